#include "auditlog.h"

#include "eventlog.h"
#include "jobstore.h"
#include "morerobot.h"
#include "oneline.h"
#include "printlog.h"
#include "robot.h"
#include "useraccounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QTimer>
#include <iterator>
#include <utility>

namespace {

constexpr int kLongestDetails = 2000; // characters

/// An operation of the journal or of the job store, as the audit log calls it.
struct Kind {
    const char *operation;
    const char *kind;
};

const Kind kAccountKinds[] = {
    {"firstPassword", "first-password"},
    {"logIn", "log-in"},
    {"logInFailed", "log-in-refused"},
    {"lock", "lock"},
    {"userAdded", "user-added"},
    {"userRemoved", "user-removed"},
    {"roleChanged", "role-changed"},
    {"passwordChanged", "password-changed"},
    {"oldPasswordWrong", "password-refused"},
};

const Kind kJobKinds[] = {
    {"storeJob", "job-stored"},
    {"storeFailed", "job-not-stored"},
    {"removeJob", "job-deleted"},
    {"dropJob", "job-given-up"},
};

const Kind kLinkKinds[] = {
    {"connected", "link-connected"}, {"back", "link-back"}, {"lost", "link-lost"},
    {"failed", "link-failed"},       {"off", "link-off"},
};

const Kind kKeyKinds[] = {
    {"servo", "servo-requested"},
    {"mode", "mode-requested"},
};

/// Empty when there is none.
template <std::size_t count> QString kindOf(const Kind (&kinds)[count], const QString &operation)
{
    for (const Kind &kind : kinds) {
        if (operation == QLatin1String(kind.operation))
            return QString::fromLatin1(kind.kind);
    }
    return {};
}

QString roleWord(int role)
{
    constexpr const char *words[] = {"none", "operator", "technician", "administrator"};
    const bool isKnown = role >= 0 && role < static_cast<int>(std::size(words));
    return QString::fromLatin1(isKnown ? words[role] : "unknown");
}

QString field(const char *key, int value)
{
    return QStringLiteral("%1=%2").arg(QLatin1String(key)).arg(value);
}

/// A text is quoted, so that none can pass for another field.
QString field(const char *key, QString text)
{
    text = oneLine(text.left(kLongestDetails));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1String(key) + QLatin1String("=\"") + text + QLatin1Char('"');
}

QString both(const QString &first, const QString &second)
{
    return first + QLatin1Char(' ') + second;
}

QString isoTime(const QDateTime &time)
{
    const int minutes = qAbs(time.offsetFromUtc()) / 60;
    return time.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"))
        + QStringLiteral("%1%2:%3")
              .arg(QLatin1Char(time.offsetFromUtc() < 0 ? '-' : '+'))
              .arg(minutes / 60, 2, 10, QLatin1Char('0'))
              .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

AuditLog::AuditLog(QObject *parent) : QObject(parent), m_retry(new QTimer(this))
{
    m_retry->setInterval(kRetry);
    connect(m_retry, &QTimer::timeout, this, &AuditLog::retry);
    connect(EventLog::getInstance(), &EventLog::recorded, this, &AuditLog::takeEvent);
    connect(JobStore::getInstance(), &JobStore::fileChanged, this, &AuditLog::takeFileChange);
    connect(Robot::getInstance(), &Robot::statusChanged, this, &AuditLog::takeStatus);
}

AuditLog *AuditLog::getInstance()
{
    // Never deleted: what ends last may still have something to tell.
    static AuditLog *const instance = new AuditLog;
    return instance;
}

void AuditLog::open(const QString &directory, const AuditFile::Limits &limits)
{
    m_file.setPath(QDir(directory).filePath(QStringLiteral("audit.log")), limits);
    m_isOpen = true;
    m_status = {};
    setMissing(0);
    record(QStringLiteral("start"), field("version", QCoreApplication::applicationVersion()));
}

void AuditLog::close()
{
    if (!m_isOpen)
        return;
    record(QStringLiteral("end"));
    m_isOpen = false;
    if (m_missing > 0)
        PrintLog::OutputToLog(tr("审计日志结束，缺少 %1 条记录").arg(m_missing), 3);
    m_file.close();
    setMissing(0);
}

void AuditLog::record(const QString &kind, const QString &details)
{
    recordAs(UserAccounts::getInstance()->currentUser(), App::sysUser, kind, details);
}

void AuditLog::recordAs(const QString &user, AUTHORITY role, const QString &kind,
                        const QString &details)
{
    if (!m_isOpen)
        return;
    if (m_missing > 0 && !tellMissing()) {
        setMissing(m_missing + 1);
        return;
    }
    const QDateTime now = QDateTime::currentDateTime();
    const QStringList columns{isoTime(now), oneLine(kind),
                              user.isEmpty() ? QStringLiteral("-") : oneLine(user), roleWord(role),
                              details};
    const QString reason = m_file.append(columns.join(QLatin1Char('\t')).toUtf8());
    if (reason.isEmpty())
        return;
    m_missingSince = now;
    setMissing(1);
    PrintLog::OutputToLog(tr("审计日志无法写入：%1").arg(reason), 3);
}

bool AuditLog::tellMissing()
{
    const QStringList columns{
        isoTime(QDateTime::currentDateTime()), QStringLiteral("missing"), QStringLiteral("-"),
        roleWord(AUTHORITY_NONE),
        both(field("lines", m_missing), field("since", isoTime(m_missingSince)))};
    if (!m_file.append(columns.join(QLatin1Char('\t')).toUtf8()).isEmpty())
        return false;
    const int told = m_missing;
    setMissing(0);
    PrintLog::OutputToLog(tr("审计日志恢复写入，缺少 %1 条记录").arg(told), 2);
    return true;
}

void AuditLog::retry()
{
    if (m_missing > 0)
        tellMissing();
}

void AuditLog::setMissing(int missing)
{
    if (missing == m_missing)
        return;
    m_missing = missing;
    if (missing == 0)
        m_retry->stop();
    else if (!m_retry->isActive())
        m_retry->start();
    emit missingChanged(missing);
}

void AuditLog::takeEvent(const QString &kind, const QVariantList &values)
{
    if (!m_isOpen)
        return;
    const QString first = values.value(0).toString();
    if (kind == QLatin1String("config")) {
        takeAccountChange(first, values.value(1).toString(), values.value(2));
    } else if (kind == QLatin1String("link")) {
        takeLinkChange(first, values.value(1).toString());
    } else if (kind == QLatin1String("rights")) {
        if (!values.value(1).toBool())
            record(QStringLiteral("rights-refused"), field("action", first));
    } else if (kind == QLatin1String("key")) {
        const QString asked = kindOf(kKeyKinds, first);
        if (!asked.isEmpty())
            record(asked,
                   both(field("robot", MoreRobot::getCurrentRobot()),
                        field("value", values.value(1).toInt())));
    }
}

void AuditLog::takeAccountChange(const QString &operation, const QString &name,
                                 const QVariant &detail)
{
    const QString kind = kindOf(kAccountKinds, operation);
    if (kind.isEmpty())
        return;
    if (operation == QLatin1String("logIn") || operation == QLatin1String("firstPassword")) {
        recordAs(name, UserAccounts::getInstance()->role(name), kind, {});
        return;
    }
    if (operation == QLatin1String("lock")) {
        record(kind);
        return;
    }
    QString details = field("name", name);
    if (operation == QLatin1String("userAdded") || operation == QLatin1String("roleChanged"))
        details = both(details, field("role", roleWord(detail.toInt())));
    else if (detail.isValid())
        details = both(details, field("failures", detail.toInt()));
    record(kind, details);
}

void AuditLog::takeLinkChange(const QString &what, const QString &detail)
{
    const QString kind = kindOf(kLinkKinds, what);
    if (!kind.isEmpty()) {
        record(kind, detail.isEmpty() ? QString() : field("detail", detail));
        return;
    }
    // Of all that is refused without a controller, what was requested above.
    for (const Kind &key : kKeyKinds) {
        if (what == QLatin1String("refused")
            && detail.startsWith(QLatin1String("key ") + QLatin1String(key.operation)))
            record(QStringLiteral("request-refused"), field("detail", detail));
    }
}

void AuditLog::takeFileChange(int robot, const QString &operation, const QString &name)
{
    const QString kind = kindOf(kJobKinds, operation);
    if (m_isOpen && !kind.isEmpty())
        record(kind, both(field("robot", robot), field("job", name)));
}

void AuditLog::takeStatus()
{
    if (!m_isOpen)
        return;
    const Robot *robot = Robot::getInstance();
    if (!robot->isConnected()) { // nothing is told, and what was told no longer counts
        m_status = {};
        return;
    }
    const int number = MoreRobot::getCurrentRobot();
    const Status told{number, robot->get_servo_state(), robot->get_teach_mode()};
    const Status before = std::exchange(m_status, told);
    const QString who = field("robot", number);
    if (before.robot != number) {
        record(QStringLiteral("status"),
               both(who, both(field("servo", told.servo), field("mode", told.mode))));
        return;
    }
    if (told.servo != before.servo)
        record(QStringLiteral("servo"), both(who, field("value", told.servo)));
    if (told.mode != before.mode)
        record(QStringLiteral("mode"), both(who, field("value", told.mode)));
}
