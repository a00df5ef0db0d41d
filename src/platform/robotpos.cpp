#include "robotpos.h"

#include <cmath>

std::optional<RobotPos> RobotPos::fromTexts(const QStringList &texts)
{
    if (texts.size() != kValues)
        return std::nullopt;
    RobotPos position;
    for (int i = 0; i < kValues; ++i) {
        const double value = texts.at(i).toDouble();
        position.values[static_cast<std::size_t>(i)] = std::isfinite(value) ? value : 0.0;
    }
    return position;
}

Json::Value RobotPos::toJson() const
{
    Json::Value json;
    json["id"] = id;
    json["kind"] = std::string(1, static_cast<char>(kind));
    Json::Value &list = json["values"] = Json::Value(Json::arrayValue);
    for (const double value : values)
        list.append(value);
    return json;
}
