#include "simulator/parameterset.h"

#include "wire/json.h"

#include <cmath>

namespace parameters {

namespace {

Json::Value asKind(Kind kind, double value)
{
    switch (kind) {
    case Kind::Whole:
        return static_cast<int>(value);
    case Kind::Truth:
        return value != 0;
    case Kind::Real:
        break;
    }
    return value;
}

Json::Value &place(const Member &member, Json::Value &set)
{
    return member.group ? set[member.group][member.key] : set[member.key];
}

/// A number of that kind and range; nothing for anything else.
std::optional<Json::Value> take(const Json::Value &value, Kind kind, double lowest, double highest)
{
    if (kind == Kind::Truth)
        return value.isBool() ? std::optional<Json::Value>(value) : std::nullopt;
    const std::optional<double> number = wire::asNumber(&value);
    if (!number || *number < lowest || *number > highest)
        return std::nullopt;
    if (kind == Kind::Whole && *number != std::trunc(*number))
        return std::nullopt;
    return asKind(kind, *number);
}

const char *mergeArray(const Json::Value &from, const char *key, unsigned size, Kind kind,
                       double lowest, double highest, Json::Value &set)
{
    const Json::Value *array = wire::find(from, {key});
    if (!array)
        return nullptr;
    if (!array->isArray() || array->size() != size)
        return key;
    Json::Value taken(Json::arrayValue);
    for (const Json::Value &item : *array) {
        const std::optional<Json::Value> value = take(item, kind, lowest, highest);
        if (!value)
            return key;
        taken.append(*value);
    }
    set[key] = taken;
    return nullptr;
}

} // namespace

Json::Value initial(const Members &members)
{
    Json::Value set(Json::objectValue);
    for (const Member &member : members)
        place(member, set) = asKind(member.kind, member.initial);
    return set;
}

const char *merge(const Json::Value &from, const Members &members, Json::Value &set)
{
    for (const Member &member : members) {
        const Json::Value *group = &from;
        if (member.group) {
            group = wire::find(from, {member.group});
            if (!group)
                continue;
            if (!group->isObject())
                return member.group;
        }
        const Json::Value *value = wire::find(*group, {member.key});
        if (!value)
            continue;
        const std::optional<Json::Value> taken =
            take(*value, member.kind, member.lowest, member.highest);
        if (!taken)
            return member.key;
        place(member, set) = *taken;
    }
    return nullptr;
}

const char *mergeReals(const Json::Value &from, const char *key, unsigned size, double lowest,
                       double highest, Json::Value &set)
{
    return mergeArray(from, key, size, Kind::Real, lowest, highest, set);
}

const char *mergeWholes(const Json::Value &from, const char *key, unsigned size, int lowest,
                        int highest, Json::Value &set)
{
    return mergeArray(from, key, size, Kind::Whole, lowest, highest, set);
}

} // namespace parameters
