// The tray of a palletising craft: the number of the user coordinates that describe it.

#include "link/messages.h"
#include "simulator/palletset.h"
#include "simulator/parameterset.h"

namespace {

using parameters::Kind;

const parameters::Members &members()
{
    static const parameters::Members kMembers = {{nullptr, "userNum", Kind::Whole, 1, 9, 1}};
    return kMembers;
}

Json::Value initial()
{
    return parameters::initial(members());
}

const char *merge(const Json::Value &pallet, Json::Value &set)
{
    return parameters::merge(pallet, members(), set);
}

constexpr pallet::Topic kTray{"tray", wire::reply::robot_pallet_TrayParameter, &initial, &merge};

} // namespace

HandlerTable palletTrayHandlers()
{
    return {
        {message::SetPalletTray, &pallet::set<kTray>},
        {message::GetPalletTray, &pallet::get<kTray>},
    };
}
