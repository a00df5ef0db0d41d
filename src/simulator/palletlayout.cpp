#include "simulator/palletlayout.h"

#include "simulator/angles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pallet {

namespace {

/// Above -180, at most 180.
double normalised(double angle)
{
    const double turned = std::fmod(angle, 360.0);
    if (turned > 180.0)
        return turned - 360.0;
    return turned <= -180.0 ? turned + 360.0 : turned;
}

struct Extent {
    double x;
    double y;
};

/// Sine and cosine, exact for the quarter turns that the templates make.
struct Turn {
    explicit Turn(double angle)
    {
        const double quarters = angle / 90.0;
        if (quarters == std::trunc(quarters)) {
            const int quarter = ((static_cast<int>(std::fmod(quarters, 4.0)) % 4) + 4) % 4;
            constexpr double kSines[] = {0, 1, 0, -1};
            sine = kSines[quarter];
            cosine = kSines[(quarter + 1) % 4];
        } else {
            sine = std::sin(angles::toRadians(angle));
            cosine = std::cos(angles::toRadians(angle));
        }
    }
    double sine;
    double cosine;
};

Extent extentAt(double angle, const WorkpieceSize &size)
{
    const Turn turn(angle);
    return {std::abs(size.width * turn.cosine) + std::abs(size.length * turn.sine),
            std::abs(size.width * turn.sine) + std::abs(size.length * turn.cosine)};
}

std::vector<Piece> ranks(const Template &layer, const WorkpieceSize &size)
{
    const Extent piece = extentAt(layer.single, size);
    std::vector<Piece> pieces;
    for (int row = 0; row < layer.numY; ++row) {
        for (int column = 0; column < layer.numX; ++column) {
            pieces.push_back({column * (piece.x + size.gapX), row * (piece.y + size.gapY),
                              static_cast<double>(layer.single)});
        }
    }
    return pieces;
}

std::vector<Piece> crisscross(const Template &layer, const WorkpieceSize &size)
{
    std::vector<Piece> pieces;
    double begin = 0;
    for (int row = 0; row < layer.numX; ++row) {
        const double angle = layer.single + (row % 2) * 90;
        const Extent piece = extentAt(angle, size);
        const double step = piece.y + size.gapY;
        for (int place = 0; place < layer.numY; ++place) {
            const double fromMiddle = place - (layer.numY - 1) / 2.0;
            pieces.push_back({begin + piece.x / 2, fromMiddle * step, angle});
        }
        begin += piece.x + size.gapX;
    }
    return pieces;
}

std::vector<Piece> hui(const Template &layer, const WorkpieceSize &size)
{
    // Counter-clockwise from the origin: along Y at the left, along X below, then opposite.
    const Extent piece = extentAt(layer.single, size);
    const double farX = piece.y + size.gapX; // where the piece at the far side along X begins
    const double farY = piece.y + size.gapY;
    const double start = layer.single;
    return {
        {piece.x / 2, piece.y / 2, start},
        {piece.x + size.gapX + piece.y / 2, piece.x / 2, start + 90},
        {farX + piece.x / 2, piece.x + size.gapY + piece.y / 2, start + 180},
        {piece.y / 2, farY + piece.x / 2, start + 270},
    };
}

void turnAll(std::vector<Piece> &pieces, int angle)
{
    const Turn turn(angle);
    for (Piece &piece : pieces) {
        piece = {piece.x * turn.cosine - piece.y * turn.sine,
                 piece.x * turn.sine + piece.y * turn.cosine, normalised(piece.angle + angle)};
    }
}

void moveToOrigin(std::vector<Piece> &pieces, const WorkpieceSize &size)
{
    const Box box = boxAround(pieces, size);
    for (Piece &piece : pieces) {
        piece.x -= box.left;
        piece.y -= box.low;
    }
}

} // namespace

std::vector<Piece> expand(const Template &layer, const WorkpieceSize &size)
{
    // The gaps are those along the tray's axes, however the layer is turned.
    WorkpieceSize laid = size;
    if (layer.whole % 180 != 0)
        std::swap(laid.gapX, laid.gapY);
    std::vector<Piece> pieces;
    switch (layer.type) {
    case Template::Ranks:
        pieces = ranks(layer, laid);
        break;
    case Template::Crisscross:
        pieces = crisscross(layer, laid);
        break;
    case Template::Hui:
        pieces = hui(layer, laid);
        break;
    }
    turnAll(pieces, layer.whole);
    moveToOrigin(pieces, size);
    return pieces;
}

Box boxAround(const std::vector<Piece> &pieces, const WorkpieceSize &size)
{
    Box box;
    bool first = true;
    for (const Piece &piece : pieces) {
        const Extent extent = extentAt(piece.angle, size);
        const Box own{piece.x - extent.x / 2, piece.x + extent.x / 2, piece.y - extent.y / 2,
                      piece.y + extent.y / 2};
        if (first) {
            box = own;
            first = false;
            continue;
        }
        box.left = std::min(box.left, own.left);
        box.right = std::max(box.right, own.right);
        box.low = std::min(box.low, own.low);
        box.high = std::max(box.high, own.high);
    }
    return box;
}

} // namespace pallet
