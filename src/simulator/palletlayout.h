#pragma once

#include <vector>

/// How the templates of a layer lay out its workpieces.
///
/// Places are in mm on the tray: the middle of a piece, along the tray's X and Y. Angles are in
/// degrees, counter-clockwise seen from above; at angle 0 the length of a piece lies along Y and
/// its width along X. A layout begins at the tray's origin: nothing of it lies below 0 on either
/// axis, and its box touches both.
namespace pallet {

struct WorkpieceSize {
    double length; ///< mm
    double width; ///< mm
    double gapX; ///< mm between neighbours along X
    double gapY; ///< mm between neighbours along Y
};

struct Piece {
    double x;
    double y;
    double angle; ///< above -180, at most 180
};

struct Template {
    enum Type {
        Ranks = 0, ///< numX along X by numY along Y, all alike
        Crisscross = 1, ///< numX rows, one behind the other along X, of numY pieces each; every
                        ///< second row is turned by 90 degrees. All rows have the same middle.
        Hui = 2 ///< four pieces around a hole, each turned by 90 degrees against the one before
    };
    Type type;
    int numX = 1;
    int numY = 1;
    int whole = 0; ///< the layer is turned by this as a whole: a multiple of 90 degrees
    int single = 0; ///< each piece is turned by this in its place: a multiple of 90 degrees
};

std::vector<Piece> expand(const Template &layer, const WorkpieceSize &size);

/// The box around some pieces, at any angles.
struct Box {
    double left = 0;
    double right = 0;
    double low = 0;
    double high = 0;

    double middleX() const { return (left + right) / 2; }
    double middleY() const { return (low + high) / 2; }
    double area() const { return (right - left) * (high - low); }
};
Box boxAround(const std::vector<Piece> &pieces, const WorkpieceSize &size);

} // namespace pallet
