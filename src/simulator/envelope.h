#pragma once

#include <json/json.h>
#include <optional>

/// What the messages of all packages have in common, as a controller reads it: strictly. A value of
/// the wrong type, a fraction where a number counts something, or a number out of range is refused,
/// never mended.
namespace envelope {

/// A number without a fraction from `lowest` to `highest`; 3.0 is one, 3.5, true and "3" are none.
std::optional<int> whole(const Json::Value &body, const char *key, int lowest, int highest);

/// "robot", 1 to 4.
std::optional<int> robot(const Json::Value &body);
/// "craftID", 1 to 9.
std::optional<int> craft(const Json::Value &body);

} // namespace envelope
