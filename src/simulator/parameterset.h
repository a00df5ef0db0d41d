#pragma once

#include <json/json.h>
#include <vector>

/// Parameter sets as tables of members: what a set holds, and what the controller takes for it.
namespace parameters {

enum class Kind {
    Real,
    Whole, ///< a number without a fraction
    Truth ///< true or false
};

/// One member of a set, {"group": {"key": ...}} or {"key": ...}.
struct Member {
    const char *group; ///< null for a member of the set itself
    const char *key;
    Kind kind;
    double lowest;
    double highest;
    double initial = 0; ///< of a set that was never stored; 0 is false
};
using Members = std::vector<Member>;

/// Every member at its initial value.
Json::Value initial(const Members &members);

/// Lays the members that `from` holds over `set`; the key of the first one that is wrong in type or
/// range, or null. When it is not null, `set` is half changed and to be dropped.
const char *merge(const Json::Value &from, const Members &members, Json::Value &set);

/// The same for an array of `size` reals from `lowest` to `highest`; null also when `key` is
/// missing.
const char *mergeReals(const Json::Value &from, const char *key, unsigned size, double lowest,
                       double highest, Json::Value &set);

/// An array of `size` whole numbers from `lowest` to `highest`.
const char *mergeWholes(const Json::Value &from, const char *key, unsigned size, int lowest,
                        int highest, Json::Value &set);

} // namespace parameters
