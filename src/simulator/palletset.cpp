#include "simulator/palletset.h"

#include "simulator/envelope.h"
#include "simulator/parameterstore.h"
#include "wire/json.h"

namespace pallet {

namespace {

constexpr char kPackage[] = "pallet";

} // namespace

std::optional<Craft> craftOf(const Json::Value &body, const char *&wrong)
{
    const std::optional<int> robot = envelope::robot(body);
    const std::optional<int> craft = envelope::craft(body);
    if (robot && craft)
        return Craft{*robot, *craft};
    wrong = robot ? "craftID" : "robot";
    return std::nullopt;
}

Json::Value stored(const ParameterStore &store, const Craft &craft, const Topic &topic)
{
    Json::Value set = topic.initial();
    const QString sub = QString::fromLatin1(topic.sub);
    const std::optional<Json::Value> kept = load(store, craft, sub);
    if (kept && topic.merge(*kept, set)) {
        markUnreadable(store, craft, sub);
        return topic.initial();
    }
    return set;
}

std::optional<Json::Value> load(const ParameterStore &store, const Craft &craft, const QString &sub)
{
    return store.load({craft.robot, kPackage, craft.number, sub});
}

void markUnreadable(const ParameterStore &store, const Craft &craft, const QString &sub)
{
    store.markUnreadable({craft.robot, kPackage, craft.number, sub});
}

const char *keep(ParameterStore &store, const Craft &craft, const QString &sub,
                 const Json::Value &set)
{
    return store.store({craft.robot, kPackage, craft.number, sub}, set)
        ? nullptr
        : "the store does not take it";
}

const char *setTopic(Request &request, const Topic &topic)
{
    const char *wrong = nullptr;
    const std::optional<Craft> craft = craftOf(request.body, wrong);
    if (!craft)
        return wrong;
    const Json::Value *pallet = wire::find(request.body, {"pallet"});
    if (!pallet || !pallet->isObject())
        return "pallet";
    Json::Value set = stored(request.store, *craft, topic);
    if (const char *key = topic.merge(*pallet, set))
        return key;
    return keep(request.store, *craft, QString::fromLatin1(topic.sub), set);
}

const char *getTopic(Request &request, const Topic &topic)
{
    const char *wrong = nullptr;
    const std::optional<Craft> craft = craftOf(request.body, wrong);
    if (!craft)
        return wrong;
    Json::Value reply = replyFor(*craft);
    Json::Value &pallet = reply["pallet"];
    pallet = stored(request.store, *craft, topic);
    if (topic.complete)
        topic.complete(pallet);
    request.reply(topic.reply, reply);
    return nullptr;
}

Json::Value replyFor(const Craft &craft)
{
    Json::Value reply;
    reply["robot"] = craft.robot;
    reply["craftID"] = craft.number;
    return reply;
}

} // namespace pallet
