// The grippers of a palletising craft: how many the flange carries, and the tool number of each.

#include "link/messages.h"
#include "simulator/envelope.h"
#include "simulator/palletset.h"
#include "simulator/parameterset.h"
#include "wire/json.h"

namespace {

constexpr int kMostGrippers = 4;
constexpr int kTools = 9;

Json::Value initial()
{
    Json::Value set;
    set["gripperNum"] = 1;
    set["gripper"].append(1);
    return set;
}

// Count and list belong together: the list has one tool per gripper.
const char *merge(const Json::Value &pallet, Json::Value &set)
{
    const std::optional<int> count = envelope::whole(pallet, "gripperNum", 1, kMostGrippers);
    if (!count)
        return "gripperNum";
    if (!pallet.isMember("gripper"))
        return "gripper";
    set["gripperNum"] = *count;
    return parameters::mergeWholes(pallet, "gripper", static_cast<unsigned>(*count), 1, kTools,
                                   set);
}

constexpr pallet::Topic kGripper{"gripper", wire::reply::robot_pallet_ToolParameter, &initial,
                                 &merge};

} // namespace

HandlerTable palletGripperHandlers()
{
    return {
        {message::SetPalletGripper, &pallet::set<kGripper>},
        {message::GetPalletGripper, &pallet::get<kGripper>},
    };
}
