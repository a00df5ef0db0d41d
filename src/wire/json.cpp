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

bool hasInfinity(const QByteArray &body)
{
    constexpr char kInfinity[] = "1e+9999";
    if (!body.contains(kInfinity))
        return false;
    // It counts outside of texts only.
    bool inText = false;
    for (int i = 0; i < body.size(); ++i) {
        const char c = body.at(i);
        if (inText && c == '\\')
            ++i;
        else if (c == '"')
            inText = !inText;
        else if (!inText && c == '1' && body.mid(i, sizeof(kInfinity) - 1) == kInfinity)
            return true;
    }
    return false;
}

const Json::Value *find(const Json::Value &root, const char *const *path, std::size_t keys)
{
    const Json::Value *value = &root;
    for (std::size_t i = 0; i < keys; ++i) {
        if (!value->isObject())
            return nullptr;
        value = value->find(path[i], path[i] + std::char_traits<char>::length(path[i]));
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

std::optional<bool> asTruth(const Json::Value *value)
{
    if (value && value->isBool())
        return value->asBool();
    const std::optional<double> number = asNumber(value);
    return number ? std::optional<bool>(*number != 0.0) : std::nullopt;
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
