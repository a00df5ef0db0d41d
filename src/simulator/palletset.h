#pragma once

#include "simulator/handlers.h"
#include "wire/ids.h"

#include <QString>
#include <optional>

/// The palletising parameters of a craft are several sets, one per page. What the messages that
/// store and read them have in common stands here.
namespace pallet {

struct Craft {
    int robot; ///< 1 to 4
    int number; ///< 1 to 9
};

/// "robot" and "craftID" of a message; nothing, and the key that is wrong in `wrong`, else.
std::optional<Craft> craftOf(const Json::Value &body, const char *&wrong);

/// A set of one page.
struct Topic {
    const char *sub; ///< its name in the store
    wire::reply::Id reply;
    Json::Value (*initial)(); ///< the set of a craft that was never stored
    /// Lays what a message holds under "pallet" over the set; the key that is wrong, or null.
    const char *(*merge)(const Json::Value &pallet, Json::Value &set);
    /// Adds what a reply has beyond the set; null when there is nothing.
    void (*complete)(Json::Value &pallet) = nullptr;
};

Json::Value stored(const ParameterStore &store, const Craft &craft, const Topic &topic);
/// What stands in the store under that name; nothing for what never was.
std::optional<Json::Value> load(const ParameterStore &store, const Craft &craft,
                                const QString &sub);
/// What stands in the store under that name makes no sense.
void markUnreadable(const ParameterStore &store, const Craft &craft, const QString &sub);
/// Null, or that the store does not take it.
const char *keep(ParameterStore &store, const Craft &craft, const QString &sub,
                 const Json::Value &set);

const char *setTopic(Request &request, const Topic &topic);
const char *getTopic(Request &request, const Topic &topic);

template <const Topic &topic> const char *set(Request &request)
{
    return setTopic(request, topic);
}
template <const Topic &topic> const char *get(Request &request)
{
    return getTopic(request, topic);
}

/// {"robot", "craftID"} of a reply.
Json::Value replyFor(const Craft &craft);

} // namespace pallet
