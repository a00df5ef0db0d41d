// Polishing: nine parameters per robot and process number.

#include "link/messages.h"
#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/parameterstore.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <cmath>
#include <limits>

namespace {

struct Field {
    const char *group; ///< object under "polish"; null for a member of "polish" itself
    const char *key;
    bool counts; ///< a number of polishing cycles, whole and not negative; else a length in mm
};

constexpr Field kFields[] = {
    {nullptr, "toolWear", false},    {"startToolOffset", "X", false},
    {"startToolOffset", "Y", false}, {"startToolOffset", "Z", false},
    {"endToolOffset", "X", false},   {"endToolOffset", "Y", false},
    {"endToolOffset", "Z", false},   {"autoFeed", "value", false},
    {"autoFeed", "cycle", true},
};

/// The object that holds a field; null when there is none. `ill` is set when something else stands
/// in its place.
const Json::Value *groupOf(const Field &field, const Json::Value &polish, bool &ill)
{
    if (!field.group)
        return &polish;
    const Json::Value *group = wire::find(polish, {field.group});
    ill = ill || (group && !group->isObject());
    return ill ? nullptr : group;
}

/// Lays the members that `polish` holds over `set`; what is wrong with one of them, or null.
const char *merge(const Json::Value &polish, Json::Value &set)
{
    for (const Field &field : kFields) {
        bool ill = false;
        const Json::Value *group = groupOf(field, polish, ill);
        if (ill)
            return field.group;
        if (!group || !group->isMember(field.key))
            continue;
        Json::Value &target = field.group ? set[field.group][field.key] : set[field.key];
        if (field.counts) {
            const std::optional<int> count =
                envelope::whole(*group, field.key, 0, std::numeric_limits<int>::max());
            if (!count)
                return field.key;
            target = *count;
        } else {
            const std::optional<double> length = wire::number(*group, field.key);
            if (!length)
                return field.key;
            target = *length;
        }
    }
    return nullptr;
}

/// All nine parameters at 0, as a number has them that was never set.
Json::Value defaults()
{
    Json::Value set(Json::objectValue);
    for (const Field &field : kFields) {
        Json::Value &target = field.group ? set[field.group][field.key] : set[field.key];
        target = field.counts ? Json::Value(0) : Json::Value(0.0);
    }
    return set;
}

Json::Value storedSet(const ParameterStore &store, const ParameterStore::Key &key)
{
    Json::Value set = defaults();
    const std::optional<Json::Value> stored = store.load(key);
    if (stored && merge(*stored, set))
        store.markUnreadable(key);
    return set;
}

const char *setPolish(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    const std::optional<int> craft = envelope::craft(request.body);
    const Json::Value *polish = wire::find(request.body, {"polish"});
    if (!robot || !craft)
        return robot ? "craftID" : "robot";
    if (!polish || !polish->isObject())
        return "polish";

    const ParameterStore::Key key{*robot, "polish", *craft, {}};
    Json::Value set = storedSet(request.store, key);
    if (const char *wrong = merge(*polish, set))
        return wrong;
    return request.store.store(key, set) ? nullptr : "the store does not take it";
}

const char *getPolish(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    const std::optional<int> craft = envelope::craft(request.body);
    if (!robot || !craft)
        return robot ? "craftID" : "robot";

    Json::Value reply;
    reply["robot"] = *robot;
    reply["craftID"] = *craft;
    reply["polish"] = storedSet(request.store, {*robot, "polish", *craft, {}});
    request.reply(wire::reply::robot_Polish_Para, reply);
    return nullptr;
}

} // namespace

HandlerTable polishHandlers()
{
    return {
        {message::SetPolish, &setPolish},
        {message::GetPolish, &getPolish},
    };
}
