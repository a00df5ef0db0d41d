#pragma once

#include "wire/ids.h"
#include "wire/json.h"

#include <initializer_list>
#include <optional>

class QComboBox;

/// A reply of the controller that passed the checks of its slot, and the typed reads of its values.
/// A read that finds another type than it asks for gives nothing, and names message and path in the
/// journal; a value that is simply not there gives nothing without a word.
class Reply {
public:
    Reply(wire::reply::Id id, Json::Value root);

    wire::reply::Id id() const { return m_id; }
    const Json::Value &root() const { return m_root; }
    // Reads under a path of keys, `number("polish", "toolWear")`.
    template <typename... Keys> bool has(Keys... keys) const
    {
        return wire::find(m_root, {keys...}) != nullptr;
    }
    template <typename... Keys> std::optional<double> number(Keys... keys) const
    {
        return read(wire::asNumber, {keys...});
    }
    /// A real is cut towards zero; a number beyond int is nothing.
    template <typename... Keys> std::optional<int> integer(Keys... keys) const
    {
        return read(wire::asInteger, {keys...});
    }
    template <typename... Keys> std::optional<QString> text(Keys... keys) const
    {
        return read(wire::asText, {keys...});
    }
    /// Null when there is no array.
    template <typename... Keys> const Json::Value *array(Keys... keys) const
    {
        return read(wire::asArray, {keys...});
    }
    template <typename... Keys> std::optional<bool> truth(Keys... keys) const
    {
        return read(wire::asTruth, {keys...});
    }
    // The same for a path that a table holds.
    std::optional<double> numberAt(const char *const *path, std::size_t keys) const
    {
        return read(wire::asNumber, path, keys);
    }
    std::optional<int> integerAt(const char *const *path, std::size_t keys) const
    {
        return read(wire::asInteger, path, keys);
    }
    std::optional<bool> truthAt(const char *const *path, std::size_t keys) const
    {
        return read(wire::asTruth, path, keys);
    }

private:
    template <typename Value>
    Value read(Value (*convert)(const Json::Value *), const char *const *path,
               std::size_t keys) const
    {
        Value value = convert(wire::find(m_root, path, keys));
        if (!value)
            noteUnreadable(path, keys);
        return value;
    }
    template <typename Value>
    Value read(Value (*convert)(const Json::Value *),
               std::initializer_list<const char *> path) const
    {
        return read(convert, path.begin(), path.size());
    }
    void noteUnreadable(const char *const *path, std::size_t keys) const;

    wire::reply::Id m_id;
    Json::Value m_root;
};

/// The checks that a slot makes on a reply before it reads it. All four end silently on a text that
/// does not parse; which one a slot uses is fixed, and not to be unified.
namespace reply {

/// "robot" must be there and be the current robot; else the slot ends silently.
std::optional<Reply> strict(wire::reply::Id id, const QByteArray &body);
/// Another robot, or none, shows `error`, and the reply is processed all the same.
std::optional<Reply> warnAndGoOn(wire::reply::Id id, const QByteArray &body, const char *error);
/// Another robot, or none, shows `error`, and the slot ends.
std::optional<Reply> warnAndStop(wire::reply::Id id, const QByteArray &body, const char *error);
/// The robot is not looked at.
std::optional<Reply> anyRobot(wire::reply::Id id, const QByteArray &body);

/// A selector and the number that a reply names for it; none: the reply leaves it as it is.
struct Named {
    QComboBox *selector;
    std::optional<int> number;
};

/// Sets each selector to the row of its number. There is no lower bound: 0 and below leave no row
/// selected, and so does a number without a row. False, and nothing is set, when the reply is to be
/// dropped: see link/reads.h. `isLast` is false for a reply behind which more of the same answer
/// comes.
bool select(const Reply &reply, std::initializer_list<Named> names, bool isLast = true);

/// The same for the process number of a reply, "craftID", if it is there and at most the number of
/// rows.
bool selectProcessNumber(QComboBox *selector, const Reply &reply);

/// The errors of the warning checks, shown for 5000 ms with kind 1. The two of the positions end
/// with a full-width exclamation mark.
namespace error {
extern const char *const kTool;
extern const char *const kTray;
extern const char *const kPosition;
extern const char *const kEasyPosition;
extern const char *const kWorkpiece;
extern const char *const kApproach;
extern const char *const kOverlapping;
extern const char *const kPlane;
} // namespace error

} // namespace reply
