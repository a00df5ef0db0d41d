#include "link/reply.h"

#include "link/reads.h"

#include "eventlog.h"
#include "morerobot.h"
#include "snackbarmessage.h"

#include <QComboBox>
#include <QCoreApplication>
#include <algorithm>

Reply::Reply(wire::reply::Id id, Json::Value root) : m_id(id), m_root(std::move(root)) { }

void Reply::noteUnreadable(const char *const *path, std::size_t keys) const
{
    // A key above it that holds no object hides the value as well; that too is worth a line.
    QStringList names;
    const Json::Value *value = &m_root;
    for (std::size_t i = 0; i < keys && value->isObject(); ++i) {
        names.append(QString::fromUtf8(path[i]));
        value = wire::find(*value, {path[i]});
        if (!value)
            return;
    }
    EventLog::getInstance()->record(QStringLiteral("reading"),
                                    {static_cast<int>(m_id), names.join(QLatin1Char('/'))});
}

namespace reply {

namespace {

/// Without a robot number there is nothing to compare; what that means is up to the check.
std::optional<int> robotOf(const Json::Value &root)
{
    return wire::integer(root, "robot");
}

/// The warning checks read a missing robot as 0.
bool isOfAnotherRobot(const Json::Value &root)
{
    return robotOf(root).value_or(0) != MoreRobot::getCurrentRobot();
}

void showError(const char *error)
{
    SnackbarMessage::showMessage(QCoreApplication::translate("TechnologyWidget", error), 5000, 1,
                                 true);
}

} // namespace

std::optional<Reply> strict(wire::reply::Id id, const QByteArray &body)
{
    std::optional<Json::Value> root = wire::parseObject(body);
    if (!root || robotOf(*root) != MoreRobot::getCurrentRobot())
        return std::nullopt;
    return Reply(id, std::move(*root));
}

std::optional<Reply> warnAndGoOn(wire::reply::Id id, const QByteArray &body, const char *error)
{
    std::optional<Json::Value> root = wire::parseObject(body);
    if (!root)
        return std::nullopt;
    if (isOfAnotherRobot(*root))
        showError(error);
    return Reply(id, std::move(*root));
}

std::optional<Reply> warnAndStop(wire::reply::Id id, const QByteArray &body, const char *error)
{
    std::optional<Json::Value> root = wire::parseObject(body);
    if (!root)
        return std::nullopt;
    if (isOfAnotherRobot(*root)) {
        showError(error);
        return std::nullopt;
    }
    return Reply(id, std::move(*root));
}

std::optional<Reply> anyRobot(wire::reply::Id id, const QByteArray &body)
{
    std::optional<Json::Value> root = wire::parseObject(body);
    if (!root)
        return std::nullopt;
    return Reply(id, std::move(*root));
}

bool select(const Reply &reply, std::initializer_list<Named> names, bool isLast)
{
    const auto rowOf = [](int number) { return std::max(number, 0) - 1; };
    reads::Numbers numbers;
    bool isElsewhere = false;
    for (const Named &named : names) {
        const int current = named.selector->currentIndex();
        numbers.append(named.number.value_or(current + 1));
        isElsewhere |= named.number && rowOf(*named.number) != current;
    }
    if (reads::answersSelection(reply.id(), numbers, isLast) && isElsewhere)
        return false;
    const reads::Selection selection;
    for (const Named &named : names) {
        if (named.number && rowOf(*named.number) != named.selector->currentIndex())
            named.selector->setCurrentIndex(rowOf(*named.number));
    }
    return true;
}

bool selectProcessNumber(QComboBox *selector, const Reply &reply)
{
    std::optional<int> number = reply.integer("craftID");
    if (number && *number > selector->count())
        number.reset();
    return select(reply, {{selector, number}});
}

namespace error {
const char *const kTool = QT_TRANSLATE_NOOP("TechnologyWidget", "pallet tool parameter error!");
const char *const kTray = QT_TRANSLATE_NOOP("TechnologyWidget", "pallet tray parameter error!");
const char *const kPosition =
    QT_TRANSLATE_NOOP("TechnologyWidget", "pallet position parameter error！");
const char *const kEasyPosition =
    QT_TRANSLATE_NOOP("TechnologyWidget", "palleteasy position parameter error！");
const char *const kWorkpiece =
    QT_TRANSLATE_NOOP("TechnologyWidget", "pallet workpiece parameter error!");
const char *const kApproach =
    QT_TRANSLATE_NOOP("TechnologyWidget", "pallet approach parameter error!");
const char *const kOverlapping =
    QT_TRANSLATE_NOOP("TechnologyWidget", "pallet overlapping parameter error!");
const char *const kPlane = QT_TRANSLATE_NOOP("TechnologyWidget", "pallet plane parameter error!");
} // namespace error

} // namespace reply
