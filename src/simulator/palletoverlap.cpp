// The layers of a palletising craft: how many, which graphic each of them has, and the correction
// of its height.

#include "simulator/palletoverlap.h"

#include "link/messages.h"
#include "simulator/envelope.h"
#include "simulator/parameterset.h"
#include "wire/json.h"

#include <algorithm>

namespace {

using parameters::Kind;

constexpr int kMostLayers = 9999;
constexpr int kGraphics = 9;

const parameters::Members &members()
{
    static const parameters::Members kMembers = {
        {nullptr, "overlapType", Kind::Whole, 0, 2}, // same, alternating, free
        {nullptr, "layHeightOffset", Kind::Real, 0, 5000},
        {nullptr, "fixedLayHeight", Kind::Truth, 0, 1},
        {nullptr, "columnLay", Kind::Truth, 0, 1},
        {nullptr, "floorAutoJustified", Kind::Truth, 0, 1},
        {nullptr, "poseAutorotation", Kind::Truth, 0, 1},
    };
    return kMembers;
}

Json::Value initial()
{
    Json::Value set = parameters::initial(members());
    set["floorSum"] = 1;
    set["graphicNum"].append(1);
    set["heightRevise"].append(0.0);
    return set;
}

// With another number of layers both lists have to come along: each has one entry per layer.
const char *merge(const Json::Value &pallet, Json::Value &set)
{
    const bool counts = pallet.isMember("floorSum");
    const std::optional<int> layers =
        envelope::whole(counts ? pallet : set, "floorSum", 1, kMostLayers);
    if (!layers)
        return "floorSum";
    const bool changes = *layers != set["floorSum"].asInt();
    set["floorSum"] = *layers;
    for (const char *list : {"graphicNum", "heightRevise"}) {
        if (changes && !pallet.isMember(list))
            return list;
    }
    const auto size = static_cast<unsigned>(*layers);
    if (const char *wrong = parameters::mergeWholes(pallet, "graphicNum", size, 1, kGraphics, set))
        return wrong;
    if (const char *wrong = parameters::mergeReals(pallet, "heightRevise", size, -5000, 5000, set))
        return wrong;
    return parameters::merge(pallet, members(), set);
}

constexpr pallet::Topic kOverlap{"overlap", wire::reply::robot_pallet_OverlappingModel, &initial,
                                 &merge};

} // namespace

namespace pallet {

Stack stackOf(const ParameterStore &store, const Craft &craft)
{
    const Json::Value set = stored(store, craft, kOverlap);
    Stack stack;
    stack.aligned = set["floorAutoJustified"].asBool();
    for (const Json::Value &graphic : set["graphicNum"])
        stack.graphics.push_back(graphic.asInt());
    std::sort(stack.graphics.begin(), stack.graphics.end());
    stack.graphics.erase(std::unique(stack.graphics.begin(), stack.graphics.end()),
                         stack.graphics.end());
    return stack;
}

} // namespace pallet

HandlerTable palletOverlapHandlers()
{
    return {
        {message::SetPalletOverlap, &pallet::set<kOverlap>},
        {message::GetPalletOverlap, &pallet::get<kOverlap>},
    };
}
