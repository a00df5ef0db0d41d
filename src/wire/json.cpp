#include "wire/json.h"

#include <cmath>
#include <limits>

namespace wire {

std::optional<Json::Value> parseObject(const QByteArray &body)
{
    if (body.size() > kMaxBody)
        return std::nullopt;
    try {
        Json::Value root;
        Json::Reader reader;
        const char *begin = body.constData();
        if (!reader.parse(begin, begin + body.size(), root, true) || !root.isObject())
            return std::nullopt;
        return root;
    } catch (const std::exception &) { // nesting above JsonCpp's own limit
        return std::nullopt;
    }
}

QByteArray writeLine(const Json::Value &value)
{
    Json::FastWriter writer;
    return QByteArray::fromStdString(writer.write(value));
}

const Json::Value *find(const Json::Value &root, std::initializer_list<const char *> path)
{
    const Json::Value *value = &root;
    for (const char *key : path) {
        if (!value->isObject())
            return nullptr;
        value = value->find(key, key + std::char_traits<char>::length(key));
        if (!value)
            return nullptr;
    }
    return value;
}

std::optional<double> asNumber(const Json::Value *value)
{
    if (!value || !value->isNumeric())
        return std::nullopt;
    const double number = value->asDouble();
    return std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

std::optional<int> asInteger(const Json::Value *value)
{
    // isNumeric() also covers what isInt() does not: a real such as 3.0 or 2.7
    const std::optional<double> number = asNumber(value);
    if (!number)
        return std::nullopt;
    const double whole = std::trunc(*number);
    if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(whole);
}

std::optional<QString> asText(const Json::Value *value)
{
    if (!value || !value->isString())
        return std::nullopt;
    return QString::fromStdString(value->asString());
}

const Json::Value *asArray(const Json::Value *value)
{
    return value && value->isArray() ? value : nullptr;
}

} // namespace wire
