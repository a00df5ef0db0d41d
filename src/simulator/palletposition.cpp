// The taught points of a palletising craft: entrance, auxiliary and job point, each x, y, z in mm
// and a, b, c in radians.

#include "link/messages.h"
#include "simulator/angles.h"
#include "simulator/palletset.h"
#include "simulator/parameterset.h"

#include <limits>

namespace {

constexpr unsigned kValues = 6;
constexpr double kAny = std::numeric_limits<double>::max();
const char *const kPoints[] = {"enterPos", "shiftPos", "realPos"};

Json::Value initial()
{
    Json::Value set;
    for (const char *point : kPoints) {
        for (unsigned i = 0; i < kValues; ++i)
            set[point].append(0.0);
    }
    return set;
}

const char *merge(const Json::Value &pallet, Json::Value &set)
{
    for (const char *point : kPoints) {
        if (const char *wrong = parameters::mergeReals(pallet, point, kValues, -kAny, kAny, set))
            return wrong;
    }
    return nullptr;
}

// The same points with their angles in degrees.
void complete(Json::Value &pallet)
{
    for (const char *point : kPoints) {
        Json::Value degrees = pallet[point];
        for (Json::ArrayIndex i = 3; i < kValues; ++i)
            degrees[i] = angles::toDegrees(degrees[i].asDouble());
        pallet[std::string(point) + "Deg"] = degrees;
    }
}

constexpr pallet::Topic kPosition{"position", wire::reply::robot_pallet_PositionParameter, &initial,
                                  &merge, &complete};

} // namespace

HandlerTable palletPositionHandlers()
{
    return {
        {message::SetPalletPosition, &pallet::set<kPosition>},
        {message::GetPalletPosition, &pallet::get<kPosition>},
    };
}
