#include "simulator/envelope.h"

#include "wire/json.h"

#include <cmath>

namespace envelope {

std::optional<int> whole(const Json::Value &body, const char *key, int lowest, int highest)
{
    const std::optional<double> value = wire::number(body, key);
    if (!value || *value != std::trunc(*value) || *value < lowest || *value > highest)
        return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<int> robot(const Json::Value &body)
{
    return whole(body, "robot", 1, 4);
}

std::optional<int> craft(const Json::Value &body)
{
    return whole(body, "craftID", 1, 9);
}

} // namespace envelope
