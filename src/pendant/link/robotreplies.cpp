// What arrives: which signal a reply has, and how its body becomes the signal's arguments.

#include "app.h"
#include "controllerwords.h"
#include "eventlog.h"
#include "jobfault.h"
#include "morerobot.h"
#include "printlog.h"
#include "robot.h"
#include "robotprivate.h"
#include "snackbarmessage.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <algorithm>
#include <iterator>

namespace {

/// A position has nine values; what is longer than this is none.
constexpr Json::ArrayIndex kMaxPosition = 64;
/// "2026-11-21"
constexpr int kLongestDay = 10;

void journalUnreadable(unsigned short id, const QString &path)
{
    EventLog::getInstance()->record(QStringLiteral("reading"), {int(id), path});
}

/// The typed reads of one reply; the first that fails leaves its key in `missing`.
class Reading {
public:
    explicit Reading(const QByteArray &body) : m_root(wire::parseObject(body))
    {
        if (!m_root)
            m_missing = "(body)";
    }

    int integer(const char *key)
    {
        const std::optional<int> value = m_root ? wire::integer(*m_root, key) : std::nullopt;
        return value ? *value : miss(key, 0);
    }
    QString text(const char *key)
    {
        const std::optional<QString> value = m_root ? wire::text(*m_root, key) : std::nullopt;
        return value ? *value : miss(key, QString());
    }
    QVector<double> numbers(const char *key)
    {
        const Json::Value *array = m_root ? wire::array(*m_root, key) : nullptr;
        if (!array || array->size() > kMaxPosition)
            return miss(key, QVector<double>());
        QVector<double> values;
        for (const Json::Value &item : *array) {
            const std::optional<double> value = wire::asNumber(&item);
            if (!value)
                return miss(key, QVector<double>());
            values.append(*value);
        }
        return values;
    }

    bool hasArray(const char *key) const { return m_root && wire::array(*m_root, key); }

    /// The first key that could not be read; null when all could.
    const char *missing() const { return m_missing; }

private:
    template <typename T> T miss(const char *key, const T &nothing)
    {
        if (!m_missing)
            m_missing = key;
        return nothing;
    }

    std::optional<Json::Value> m_root;
    const char *m_missing = nullptr;
};

// One deliver() per argument list. Most replies go on as the text they are; the others are decoded
// here. Each returns the key that could not be read, or null when the signal was emitted.

const char *deliver(Robot &robot, void (Robot::*signal)(const QByteArray &), const QByteArray &body)
{
    emit(robot.*signal)(body);
    return nullptr;
}

const char *deliver(Robot &robot, void (Robot::*signal)(QByteArray), const QByteArray &body)
{
    emit(robot.*signal)(body);
    return nullptr;
}

// {"toolNum": int, "tool": "x y z a b c", "toolDeg": the same with degrees}
const char *deliver(Robot &robot, void (Robot::*signal)(int, QByteArray, QByteArray),
                    const QByteArray &body)
{
    Reading reading(body);
    const int number = reading.integer("toolNum");
    const QString tool = reading.text("tool");
    const QString toolDeg = reading.text("toolDeg");
    if (!reading.missing())
        emit(robot.*signal)(number, tool.toUtf8(), toolDeg.toUtf8());
    return reading.missing();
}

// {"userNum": int, "inquire": text, "pos": [numbers], "posDeg": [the same with degrees]}. The pages
// show the point as it comes, so they get it in the unit that is shown; "posDeg" may be missing.
const char *deliver(Robot &robot, void (Robot::*signal)(int, QString, QVector<double>),
                    const QByteArray &body)
{
    Reading reading(body);
    const int number = reading.integer("userNum");
    const QString inquire = reading.text("inquire");
    const char *key = App::isDeg && reading.hasArray("posDeg") ? "posDeg" : "pos";
    const QVector<double> position = reading.numbers(key);
    if (!reading.missing())
        emit(robot.*signal)(number, inquire, position);
    return reading.missing();
}

// {"result": int}
const char *deliver(Robot &robot, void (Robot::*signal)(int), const QByteArray &body)
{
    Reading reading(body);
    const int result = reading.integer("result");
    if (!reading.missing())
        emit(robot.*signal)(result);
    return reading.missing();
}

// {"pos": "nine numbers", "posDeg": the same with degrees}
const char *deliver(Robot &robot, void (Robot::*signal)(QByteArray, QByteArray),
                    const QByteArray &body)
{
    Reading reading(body);
    const QString position = reading.text("pos");
    const QString positionDeg = reading.text("posDeg");
    if (!reading.missing())
        emit(robot.*signal)(position.toUtf8(), positionDeg.toUtf8());
    return reading.missing();
}

// {"robot": int, "line": int}
const char *deliver(Robot &robot, void (Robot::*signal)(int, int), const QByteArray &body)
{
    Reading reading(body);
    const int number = reading.integer("robot");
    const int line = reading.integer("line");
    if (!reading.missing())
        emit(robot.*signal)(number, line);
    return reading.missing();
}

// {"robot": int, "value": int, "state": int}
const char *deliver(Robot &robot, void (Robot::*signal)(int, int, int), const QByteArray &body)
{
    Reading reading(body);
    const int number = reading.integer("robot");
    const int value = reading.integer("value");
    const int state = reading.integer("state");
    if (!reading.missing())
        emit(robot.*signal)(number, value, state);
    return reading.missing();
}

struct Reply {
    unsigned short id;
    const char *(*decode)(Robot &robot, const QByteArray &body);
};

template <auto Signal> const char *decode(Robot &robot, const QByteArray &body)
{
    return deliver(robot, Signal, body);
}

constexpr Reply kReplies[] = {
#define ROBOT_REPLY_ROW(number, signal) {wire::reply::signal, &decode<&Robot::signal>},
    WIRE_REPLIES(ROBOT_REPLY_ROW)
#undef ROBOT_REPLY_ROW
};

constexpr bool idsRise()
{
    for (size_t i = 1; i < std::size(kReplies); ++i) {
        if (kReplies[i - 1].id >= kReplies[i].id)
            return false;
    }
    return true;
}
static_assert(idsRise(), "the replies are searched by bisection and no id stands for two");

} // namespace

void Robot::receiveMessage(unsigned short id, const QByteArray &body)
{
    if (body.size() > wire::kMaxBody) {
        journalUnreadable(id, QStringLiteral("(body too long)"));
        return;
    }
    if (id == wire::Status) {
        d->applyStatus(body);
        return;
    }
    if (id == wire::JobChecked) {
        d->applyJobCheck(body);
        return;
    }
    const Reply *reply =
        std::lower_bound(std::begin(kReplies), std::end(kReplies), id,
                         [](const Reply &row, unsigned short wanted) { return row.id < wanted; });
    if (reply == std::end(kReplies) || reply->id != id) {
        journalUnreadable(id, QStringLiteral("(unknown id)"));
        return;
    }
    if (const char *missing = reply->decode(*this, body))
        journalUnreadable(id, QString::fromLatin1(missing));
}

// {"robot": int, "servo": int, "deadman": 0 or 1, "teachMode": 0 to 2, "kinematicType": 1 to 12,
// "message": text, "holder": text, "id": int, "reason": text}. Each key but the first is optional;
// one that is unreadable or out of range changes nothing. A message comes in one status only.
void Robot::Private::applyStatus(const QByteArray &body)
{
    const std::optional<Json::Value> status = wire::parseObject(body);
    const std::optional<int> robot = status ? wire::integer(*status, "robot") : std::nullopt;
    if (!robot) {
        journalUnreadable(wire::Status,
                          status ? QStringLiteral("robot") : QStringLiteral("(body)"));
        return;
    }
    if (*robot != MoreRobot::getCurrentRobot())
        return;

    bool changed = false;
    const auto take = [&](const char *key, int &target, int lowest, int highest) {
        const int value = wire::integer(*status, key).value_or(target);
        if (value == target || value < lowest || value > highest)
            return;
        target = value;
        changed = true;
    };
    take("servo", servo, 0, 3);
    take("deadman", deadman, 0, 1);
    take("teachMode", teachMode, 0, 2);
    take("kinematicType", q->kinematicType, 1, 12);
    if (changed)
        emit q->statusChanged();
    const std::optional<QString> message = wire::text(*status, "message");
    if (!message)
        return;
    if (*message == QLatin1String("refused")) {
        sayRefused(*status);
        return;
    }
    say(*message, wire::text(*status, "holder").value_or(QString()));
    if (*message == QLatin1String("storeDamaged"))
        emit q->storeDamaged(wire::text(*status, "copy").value_or(QString()).left(kLongestDay));
    else if (*message == QLatin1String("storeRestored"))
        emit q->storeRestored();
}

// {"robot": int, "name": text, "fault": word, "line": int, "detail": text}. The word of a job
// without fault is "None"; line and detail are optional. A word that is unknown here is still a
// fault.
void Robot::Private::applyJobCheck(const QByteArray &body)
{
    Reading reading(body);
    const int robot = reading.integer("robot");
    const QString name = reading.text("name");
    const QString word = reading.text("fault");
    if (reading.missing()) {
        journalUnreadable(wire::JobChecked, QString::fromLatin1(reading.missing()));
        return;
    }
    Reading rest(body);
    JobFault fault;
    fault.line = rest.integer("line");
    fault.detail = rest.text("detail").left(kLongestWord);
    fault.kind = JobFault::kindOf(word);
    if (!fault && word != QLatin1String(fault.word())) {
        fault.kind = JobFault::Other;
        fault.detail = word.left(kLongestWord);
    }
    emit q->jobChecked(robot, name, fault);
}

void Robot::Private::say(const QString &message, const QString &holder)
{
    const QString text = controllerWord(message, holder);
    if (text.isEmpty())
        return;
    QVariantList entry{message.left(kLongestWord)};
    if (!holder.isEmpty())
        entry.append(holder.left(kLongestWord));
    EventLog::getInstance()->record(QStringLiteral("controller"), entry);
    show(text);
}

void Robot::Private::show(const QString &text)
{
    constexpr int kShown = 5000; // milliseconds
    constexpr int kWarning = 3;
    SnackbarMessage::showMessage(text, kShown, kWarning, true);
    emit q->controllerSaid(text);
}

// "id" is the number of the refused message, "reason" what is wrong with it; both are optional.
void Robot::Private::sayRefused(const Json::Value &status)
{
    constexpr qint64 kBetween = 1000; // milliseconds
    constexpr int kMostShown = 5; // of different ones in that time
    constexpr int kWarningLine = 2;
    const int number = wire::integer(status, "id").value_or(-1);
    const QString id = number >= 0 && number <= 0xffff
        ? QStringLiteral("0x%1").arg(number, 4, 16, QLatin1Char('0'))
        : QString();
    const QString reason = wire::text(status, "reason").value_or(QString()).left(kLongestWord);
    EventLog::getInstance()->record(QStringLiteral("controller"),
                                    {QStringLiteral("refused"), id, reason});

    for (auto shown = refusalsShown.begin(); shown != refusalsShown.end();)
        shown = shown->hasExpired(kBetween) ? refusalsShown.erase(shown) : std::next(shown);
    const QString key = id + QLatin1Char(' ') + reason;
    if (refusalsShown.contains(key) || refusalsShown.size() >= kMostShown)
        return;
    refusalsShown[key].start();
    const QString text = refusalWord(reason);
    PrintLog::writeLine(id.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, id),
                        kWarningLine);
    show(text);
}
