// The nine graphics of a palletising craft: how the workpieces of a layer lie, by a template or as
// a list.
//
// A list comes and goes in chunks. What comes is stored when its last chunk is there, so that a
// transfer which breaks off leaves the list that was.

#include "link/messages.h"
#include "simulator/envelope.h"
#include "simulator/palletoverlap.h"
#include "simulator/palletset.h"
#include "simulator/palletworkpiece.h"
#include "simulator/parameterset.h"
#include "simulator/session.h"
#include "wire/json.h"

#include <algorithm>
#include <limits>

namespace {

using pallet::Craft;
using pallet::Piece;
using pallet::Template;
using parameters::Kind;

constexpr int kGraphics = 9;
constexpr int kMostPieces = 9999;
constexpr int kChunk = 10;
constexpr int kFree = 3; // the graphic type of a list
constexpr double kAny = std::numeric_limits<double>::max();

/// The block of each template, by graphic type.
const char *const kBlocks[] = {"ranks", "intertwining", "gearType"};

const parameters::Members &commonMembers()
{
    static const parameters::Members kMembers = {
        {nullptr, "graphicType", Kind::Whole, 0, kFree},
        {nullptr, "transLenX", Kind::Real, -5000, 5000},
        {nullptr, "transLenY", Kind::Real, -5000, 5000},
    };
    return kMembers;
}

parameters::Members blockMembers(int type)
{
    const char *block = kBlocks[type];
    parameters::Members members = {
        {block, "rotationAngleWhole", Kind::Whole, -90, 180},
        {block, "rotationAngleSingle", Kind::Whole, -90, 180},
    };
    if (type != Template::Hui) {
        members.push_back({block, "numX", Kind::Whole, 1, 99, 1});
        members.push_back({block, "numY", Kind::Whole, 1, 99, 1});
    }
    return members;
}

Json::Value initial()
{
    Json::Value set = parameters::initial(commonMembers());
    for (int type = 0; type < kFree; ++type)
        set[kBlocks[type]] = parameters::initial(blockMembers(type))[kBlocks[type]];
    return set;
}

/// The templates turn by quarters.
const char *checkAngles(const Json::Value &set, int type)
{
    for (const char *key : {"rotationAngleWhole", "rotationAngleSingle"}) {
        if (set[kBlocks[type]][key].asInt() % 90 != 0)
            return key;
    }
    return nullptr;
}

const char *merge(const Json::Value &pallet, Json::Value &set)
{
    if (const char *wrong = parameters::merge(pallet, commonMembers(), set))
        return wrong;
    for (int type = 0; type < kFree; ++type) {
        if (const char *wrong = parameters::merge(pallet, blockMembers(type), set))
            return wrong;
        if (const char *wrong = checkAngles(set, type))
            return wrong;
    }
    return nullptr;
}

struct Graphic {
    Craft craft;
    int number; ///< 1 to 9
};

std::optional<Graphic> graphicOf(const Json::Value &body, const char *&wrong)
{
    const std::optional<Craft> craft = pallet::craftOf(body, wrong);
    if (!craft)
        return std::nullopt;
    const std::optional<int> number = envelope::whole(body, "graphic", 1, kGraphics);
    if (!number) {
        wrong = "graphic";
        return std::nullopt;
    }
    return Graphic{*craft, *number};
}

QString subOf(const Graphic &graphic)
{
    return QStringLiteral("plane/%1").arg(graphic.number);
}

QString listOf(const Graphic &graphic)
{
    return subOf(graphic) + QStringLiteral("/list");
}

Json::Value storedPlane(const ParameterStore &store, const Graphic &graphic)
{
    Json::Value set = initial();
    const std::optional<Json::Value> kept = pallet::load(store, graphic.craft, subOf(graphic));
    if (kept && merge(*kept, set)) {
        pallet::markUnreadable(store, graphic.craft, subOf(graphic));
        return initial();
    }
    return set;
}

/// The workpieces of a graphic whose layout is a list: [{"X","Y","t","dir","h"}].
Json::Value storedList(const ParameterStore &store, const Graphic &graphic)
{
    const std::optional<Json::Value> kept = pallet::load(store, graphic.craft, listOf(graphic));
    const Json::Value *items = kept ? wire::array(*kept, "items") : nullptr;
    if (kept && !items)
        pallet::markUnreadable(store, graphic.craft, listOf(graphic));
    return items ? *items : Json::Value(Json::arrayValue);
}

// ---- storing ------------------------------------------------------------------------------------

const parameters::Members &itemMembers()
{
    static const parameters::Members kMembers = {
        {nullptr, "X", Kind::Real, -kAny, kAny}, {nullptr, "Y", Kind::Real, -kAny, kAny},
        {nullptr, "t", Kind::Real, -kAny, kAny}, {nullptr, "h", Kind::Real, -kAny, kAny},
        {nullptr, "dir", Kind::Whole, 0, 7},
    };
    return kMembers;
}

/// Lays a chunk behind what has come of its transfer; what is wrong with it, or null. The first
/// chunk begins a new transfer, and any other has to go on where the last one ended.
const char *takeChunk(const Graphic &graphic, const Json::Value &custom, LayoutTransfer &transfer)
{
    const std::optional<int> sum = envelope::whole(custom, "sum", 1, kMostPieces);
    const std::optional<int> start = envelope::whole(custom, "start", 1, kMostPieces);
    const std::optional<int> count = envelope::whole(custom, "count", 1, kChunk);
    const Json::Value *items = wire::array(custom, "eachVec");
    if (!sum || !start || !count)
        return !sum ? "sum" : !start ? "start" : "count";
    if (!items || static_cast<int>(items->size()) != *count || *start + *count - 1 > *sum)
        return "eachVec";
    if (*start == 1)
        transfer = {graphic.craft.robot, graphic.craft.number, graphic.number, *sum, {}};
    const bool fits = transfer.robot == graphic.craft.robot
        && transfer.craft == graphic.craft.number && transfer.graphic == graphic.number
        && transfer.sum == *sum && static_cast<int>(transfer.items.size()) + 1 == *start;
    if (!fits)
        return "start";
    for (const Json::Value &item : *items) {
        Json::Value taken = parameters::initial(itemMembers());
        if (!item.isObject() || parameters::merge(item, itemMembers(), taken))
            return "eachVec";
        transfer.items.append(taken);
    }
    return nullptr;
}

const char *setPlane(Request &request)
{
    const char *wrong = nullptr;
    const std::optional<Graphic> graphic = graphicOf(request.body, wrong);
    if (!graphic)
        return wrong;
    const Json::Value *pallet = wire::find(request.body, {"pallet"});
    if (!pallet || !pallet->isObject())
        return "pallet";
    Json::Value set = storedPlane(request.store, *graphic);
    if (const char *key = merge(*pallet, set))
        return key;

    if (set["graphicType"].asInt() == kFree) {
        const Json::Value *custom = wire::find(*pallet, {"custom"});
        if (!custom || !custom->isObject())
            return "custom";
        LayoutTransfer &transfer = request.session.transfer;
        if (const char *key = takeChunk(*graphic, *custom, transfer)) {
            transfer = {};
            return key;
        }
        if (static_cast<int>(transfer.items.size()) < transfer.sum)
            return nullptr;
        Json::Value list;
        list["items"] = std::move(transfer.items);
        transfer = {};
        if (const char *key = pallet::keep(request.store, graphic->craft, listOf(*graphic), list))
            return key;
    }
    return pallet::keep(request.store, graphic->craft, subOf(*graphic), set);
}

// ---- layouts ------------------------------------------------------------------------------------

Json::Value itemOf(const Piece &piece)
{
    Json::Value item;
    item["X"] = piece.x;
    item["Y"] = piece.y;
    item["t"] = piece.angle;
    item["dir"] = 0;
    item["h"] = 0.0;
    return item;
}

std::vector<Piece> expandSaved(const Json::Value &set, const pallet::WorkpieceSize &size)
{
    const int type = set["graphicType"].asInt();
    const Json::Value &block = set[kBlocks[type]];
    Template layer{static_cast<Template::Type>(type)};
    layer.whole = block["rotationAngleWhole"].asInt();
    layer.single = block["rotationAngleSingle"].asInt();
    if (type != Template::Hui) {
        layer.numX = block["numX"].asInt();
        layer.numY = block["numY"].asInt();
    }
    return pallet::expand(layer, size);
}

/// The workpieces of a graphic, whatever its type.
std::vector<Piece> piecesOf(const ParameterStore &store, const Graphic &graphic,
                            const Json::Value &set, const pallet::WorkpieceSize &size)
{
    if (set["graphicType"].asInt() != kFree)
        return expandSaved(set, size);
    std::vector<Piece> pieces;
    for (const Json::Value &item : storedList(store, graphic)) {
        pieces.push_back({wire::number(item, "X").value_or(0), wire::number(item, "Y").value_or(0),
                          wire::number(item, "t").value_or(0)});
    }
    return pieces;
}

struct Translation {
    double x = 0;
    double y = 0;
};

/// By how much the layer is moved so that its middle lies over that of the largest layer. Nothing,
/// unless the layers of the craft are aligned and use this graphic.
Translation automatic(const ParameterStore &store, const Graphic &graphic)
{
    const pallet::Stack stack = pallet::stackOf(store, graphic.craft);
    if (!stack.aligned
        || !std::binary_search(stack.graphics.begin(), stack.graphics.end(), graphic.number))
        return {};
    const pallet::WorkpieceSize size = pallet::workpieceOf(store, graphic.craft);
    pallet::Box own;
    pallet::Box largest;
    for (const int number : stack.graphics) {
        const Graphic other{graphic.craft, number};
        const pallet::Box box =
            boxAround(piecesOf(store, other, storedPlane(store, other), size), size);
        if (number == graphic.number)
            own = box;
        if (box.area() > largest.area())
            largest = box;
    }
    return {largest.middleX() - own.middleX(), largest.middleY() - own.middleY()};
}

// ---- answering ----------------------------------------------------------------------------------

/// What every reply of a graphic has; of the blocks, only that of its type.
Json::Value replyFor(const ParameterStore &store, const Graphic &graphic, const Json::Value &set)
{
    Json::Value reply = pallet::replyFor(graphic.craft);
    reply["graphic"] = graphic.number;
    Json::Value &pallet = reply["pallet"];
    for (const parameters::Member &member : commonMembers())
        pallet[member.key] = set[member.key];
    const Translation moved = automatic(store, graphic);
    pallet["autoTransLenX"] = moved.x;
    pallet["autoTransLenY"] = moved.y;
    const int type = set["graphicType"].asInt();
    if (type != kFree)
        pallet[kBlocks[type]] = set[kBlocks[type]];
    return reply;
}

/// One reply per chunk of ten; a list without workpieces is one chunk too.
void replyList(Request &request, wire::reply::Id id, Json::Value reply, const Json::Value &items)
{
    const int sum = static_cast<int>(items.size());
    int start = 0;
    do {
        const int count = std::min(kChunk, sum - start);
        Json::Value custom;
        custom["sum"] = sum;
        custom["start"] = start + 1;
        custom["count"] = count;
        custom["eachVec"] = Json::Value(Json::arrayValue);
        for (int i = start; i < start + count; ++i)
            custom["eachVec"].append(items[static_cast<Json::ArrayIndex>(i)]);
        reply["pallet"]["custom"] = custom;
        request.reply(id, reply);
        start += count;
    } while (start < sum);
}

const char *getPlane(Request &request)
{
    const char *wrong = nullptr;
    const std::optional<Graphic> graphic = graphicOf(request.body, wrong);
    if (!graphic)
        return wrong;
    const Json::Value set = storedPlane(request.store, *graphic);
    const Json::Value reply = replyFor(request.store, *graphic, set);
    if (set["graphicType"].asInt() == kFree)
        replyList(request, wire::reply::robot_pallet_PlaneModel, reply,
                  storedList(request.store, *graphic));
    else
        request.reply(wire::reply::robot_pallet_PlaneModel, reply);
    return nullptr;
}

/// Answers with the saved graphic as a list; nothing that is stored changes.
const char *convertPlane(Request &request)
{
    const char *wrong = nullptr;
    const std::optional<Graphic> graphic = graphicOf(request.body, wrong);
    if (!graphic)
        return wrong;
    Json::Value set = storedPlane(request.store, *graphic);
    Json::Value items(Json::arrayValue);
    if (set["graphicType"].asInt() == kFree) {
        items = storedList(request.store, *graphic);
    } else {
        const pallet::WorkpieceSize size = pallet::workpieceOf(request.store, graphic->craft);
        for (const Piece &piece : expandSaved(set, size))
            items.append(itemOf(piece));
    }
    set["graphicType"] = kFree;
    replyList(request, wire::reply::robot_pallet_ChangeModel,
              replyFor(request.store, *graphic, set), items);
    return nullptr;
}

} // namespace

HandlerTable palletPlaneHandlers()
{
    return {
        {message::SetPalletPlane, &setPlane},
        {message::GetPalletPlane, &getPlane},
        {message::ConvertPalletPlane, &convertPlane},
    };
}
