#include "robotpos.h"

#include <charconv>
#include <cmath>

std::optional<int> RobotPos::wordOf(std::string_view name)
{
    if (name.size() < 2 || name[0] < 'A' || name[0] > 'Z' || (name[1] == '0' && name.size() > 2))
        return std::nullopt;
    unsigned short number = 0;
    const char *const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + 1, end, number);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return wordOf(name[0], number);
}

bool RobotPos::isWord(int word)
{
    return (word >> 16) >= 'A' && (word >> 16) <= 'Z';
}

QString RobotPos::nameOf(int word)
{
    if (!isWord(word))
        return QString::number(word);
    return QLatin1Char(static_cast<char>(word >> 16)) + QString::number(word & 0xffff);
}

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
