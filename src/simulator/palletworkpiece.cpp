// Workpiece and approach of a palletising craft. Lengths are in mm; the workpiece's length lies
// along Y of the tray, its width along X.

#include "simulator/palletworkpiece.h"

#include "link/messages.h"
#include "simulator/palletset.h"
#include "simulator/parameterset.h"

namespace {

using parameters::Kind;

const parameters::Members &workpieceMembers()
{
    static const parameters::Members kMembers = {
        {nullptr, "workpieceLength", Kind::Real, 0, 5000},
        {nullptr, "workpieceWidth", Kind::Real, 0, 5000},
        {nullptr, "workpieceHeight", Kind::Real, 0, 5000},
        {nullptr, "workpieceGapX", Kind::Real, 0, 3000},
        {nullptr, "workpieceGapY", Kind::Real, 0, 3000},
    };
    return kMembers;
}

Json::Value initialWorkpiece()
{
    return parameters::initial(workpieceMembers());
}

const char *mergeWorkpiece(const Json::Value &pallet, Json::Value &set)
{
    return parameters::merge(pallet, workpieceMembers(), set);
}

constexpr pallet::Topic kWorkpiece{"workpiece", wire::reply::robot_pallet_WorkpieceParameter,
                                   &initialWorkpiece, &mergeWorkpiece};

const parameters::Members &approachMembers()
{
    static const parameters::Members kMembers = {
        {nullptr, "workpieceApproEnable", Kind::Truth, 0, 1},
        {nullptr, "workpieceApproMode", Kind::Whole, 0, 1},
        {nullptr, "workpieceApproLenX", Kind::Real, 0, 5000},
        {nullptr, "workpieceApproLenY", Kind::Real, 0, 5000},
        {nullptr, "workpieceApproLenZ", Kind::Real, 0, 5000},
    };
    return kMembers;
}

Json::Value initialApproach()
{
    return parameters::initial(approachMembers());
}

const char *mergeApproach(const Json::Value &pallet, Json::Value &set)
{
    return parameters::merge(pallet, approachMembers(), set);
}

constexpr pallet::Topic kApproach{"approach", wire::reply::robot_pallet_ApproachParameter,
                                  &initialApproach, &mergeApproach};

} // namespace

namespace pallet {

WorkpieceSize workpieceOf(const ParameterStore &store, const Craft &craft)
{
    const Json::Value set = stored(store, craft, kWorkpiece);
    return {set["workpieceLength"].asDouble(), set["workpieceWidth"].asDouble(),
            set["workpieceGapX"].asDouble(), set["workpieceGapY"].asDouble()};
}

} // namespace pallet

HandlerTable palletWorkpieceHandlers()
{
    return {
        {message::SetPalletWorkpiece, &pallet::set<kWorkpiece>},
        {message::GetPalletWorkpiece, &pallet::get<kWorkpiece>},
        {message::SetPalletApproach, &pallet::set<kApproach>},
        {message::GetPalletApproach, &pallet::get<kApproach>},
    };
}
