// The mode of a palletising craft: easy, complete, or not set yet.

#include "link/messages.h"
#include "simulator/envelope.h"
#include "simulator/palletset.h"

namespace {

constexpr int kNotSet = 2;
const char *const kKey = "usePalletType"; // 0 easy, 1 complete, 2 not set

const char *setMode(Request &request)
{
    const char *wrong = nullptr;
    const std::optional<pallet::Craft> craft = pallet::craftOf(request.body, wrong);
    if (!craft)
        return wrong;
    const std::optional<int> mode = envelope::whole(request.body, kKey, 0, kNotSet);
    if (!mode)
        return kKey;
    Json::Value set;
    set[kKey] = *mode;
    return pallet::keep(request.store, *craft, QStringLiteral("mode"), set);
}

// A read may carry a mode as well, when it is sent with the text of the set before it; the mode
// that is kept is the answer.
const char *getMode(Request &request)
{
    const char *wrong = nullptr;
    const std::optional<pallet::Craft> craft = pallet::craftOf(request.body, wrong);
    if (!craft)
        return wrong;
    const QString sub = QStringLiteral("mode");
    const std::optional<Json::Value> kept = pallet::load(request.store, *craft, sub);
    const std::optional<int> mode =
        kept ? envelope::whole(*kept, kKey, 0, kNotSet) : std::optional<int>(kNotSet);
    if (!mode)
        pallet::markUnreadable(request.store, *craft, sub);
    Json::Value reply = pallet::replyFor(*craft);
    reply[kKey] = mode.value_or(kNotSet);
    request.reply(wire::reply::robot_switchpalletmode, reply);
    return nullptr;
}

} // namespace

HandlerTable palletModeHandlers()
{
    return {
        {message::SetPalletMode, &setMode},
        {message::GetPalletMode, &getMode},
    };
}
