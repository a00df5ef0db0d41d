#pragma once

#include <QByteArray>
#include <QString>
#include <initializer_list>
#include <json/json.h>
#include <optional>

/// Message bodies as JSON: parsing and reading that never throw, whatever arrives.
namespace wire {

/// The longest body that is read or sent, in bytes.
constexpr int kMaxBody = 4 * 1024 * 1024;

/// The JSON object that `body` holds; nothing when it is longer than kMaxBody, does not parse,
/// nests deeper than JsonCpp reads (1000), or is no object.
std::optional<Json::Value> parseObject(const QByteArray &body);

/// One line as Json::FastWriter writes it, with its trailing newline. Numbers must be finite.
QByteArray writeLine(const Json::Value &value);

/// Whether a body holds an infinite number, which FastWriter writes as 1e+9999 and no reader takes.
bool hasInfinity(const QByteArray &body);

/// The value under a path of keys; null when a key is missing or what should hold it is no object.
const Json::Value *find(const Json::Value &root, const char *const *path, std::size_t keys);
inline const Json::Value *find(const Json::Value &root, std::initializer_list<const char *> path)
{
    return find(root, path.begin(), path.size());
}

// Typed reads under a path of keys, `number(root, "polish", "toolWear")`. They convert among
// numbers as JsonCpp does (a real is cut towards zero) and take everything else as absent: texts,
// booleans, null, arrays, objects, numbers out of range.
std::optional<double> asNumber(const Json::Value *value);
std::optional<int> asInteger(const Json::Value *value);
/// true and false, and numbers: 0 is false.
std::optional<bool> asTruth(const Json::Value *value);
std::optional<QString> asText(const Json::Value *value);
const Json::Value *asArray(const Json::Value *value);

template <typename... Keys> std::optional<double> number(const Json::Value &root, Keys... keys)
{
    return asNumber(find(root, {keys...}));
}
template <typename... Keys> std::optional<int> integer(const Json::Value &root, Keys... keys)
{
    return asInteger(find(root, {keys...}));
}
template <typename... Keys> std::optional<QString> text(const Json::Value &root, Keys... keys)
{
    return asText(find(root, {keys...}));
}
/// Null when there is no array.
template <typename... Keys> const Json::Value *array(const Json::Value &root, Keys... keys)
{
    return asArray(find(root, {keys...}));
}

} // namespace wire
