#include "app/startup.h"

#include "app/datafiles.h"
#include "language.h"
#include "printlog.h"

#include <QTextStream>
#include <QTime>

#include <cerrno>

namespace {

using configurationfile::Copy;
using Keeps = StatusBar::Keeps;
using Fault = VeltrixDatabase::Fault;

/// What is wrong with the configuration, for the operator.
struct FaultText {
    Fault fault;
    const char *text;
};

const FaultText kFaults[] = {
    {Fault::Missing, QT_TRANSLATE_NOOP("Startup", "文件不见了")},
    {Fault::NoDatabase, QT_TRANSLATE_NOOP("Startup", "文件不是配置数据库")},
    {Fault::CheckFailed, QT_TRANSLATE_NOOP("Startup", "文件内容损坏")},
    {Fault::TablesMissing, QT_TRANSLATE_NOOP("Startup", "文件不完整")},
    {Fault::RowsUnreadable, QT_TRANSLATE_NOOP("Startup", "用户数据无法读取")},
    {Fault::Newer, QT_TRANSLATE_NOOP("Startup", "文件由更新版本的程序写入")},
    {Fault::Unavailable, QT_TRANSLATE_NOOP("Startup", "文件无法读取")},
};

/// What happened and what can be done about it.
struct PageText {
    const char *heading;
    const char *explanation;
};

// One for each Obstacle::Kind but None.
const PageText kPages[] = {
    {QT_TRANSLATE_NOOP("Startup", "数据目录正在被另一个程序使用"),
     QT_TRANSLATE_NOOP("Startup", "同一个数据目录只能由一个程序使用。请先结束那个程序，再重试。")},
    {QT_TRANSLATE_NOOP("Startup", "数据目录无法写入"),
     QT_TRANSLATE_NOOP("Startup",
                       "磁盘可能已满或只读。可以继续运行：已有的用户和设置照常使用，"
                       "但本次运行的更改不会保存。")},
    {QT_TRANSLATE_NOOP("Startup", "日志文件无法写入"),
     QT_TRANSLATE_NOOP("Startup", "可以继续运行，但本次运行的日志不会保存。")},
    {QT_TRANSLATE_NOOP("Startup", "配置和用户无法读取"),
     QT_TRANSLATE_NOOP("Startup",
                       "取回副本后，副本之后的更改会丢失。原来的文件会另存，不会删除。")},
};

/// The same texts to the error output, where they are English.
QString sentence(const StartPage::Content &content)
{
    QStringList parts;
    for (const StartPage::Detail &detail : content.details)
        parts += detail.label + QStringLiteral(": ") + detail.value;
    return QStringLiteral("%1 (%2).").arg(content.heading, parts.join(QStringLiteral("; ")));
}

} // namespace

bool Startup::run(const Options &options, const Ask &ask, QString *error)
{
    m_options = options;
    m_ask = ask;
    m_keeps = Keeps::Everything;
    m_isHeld = false;
    for (;;) {
        const Obstacle obstacle = nextObstacle();
        if (obstacle.kind == Obstacle::None)
            return true;
        Language::getInstance()->show(QStringLiteral("en"));
        *error = sentence(page(obstacle));
        QTextStream(stderr) << *error << Qt::endl;
        if (!settle(obstacle)) {
            VeltrixDatabase::getInstance()->close();
            release();
            return false;
        }
    }
}

void Startup::release()
{
    m_lock.release();
    m_controllerLock.release();
}

QString Startup::configurationPath() const
{
    return configurationfile::pathIn(m_options.dataDirectory);
}

Startup::Obstacle Startup::nextObstacle()
{
    if (m_keeps == Keeps::Nothing)
        return readConfiguration();
    const Obstacle taking = takeDirectory();
    if (taking.kind != Obstacle::None)
        return taking;
    // Where nothing can be written, that is what is said, and not that the log is missing.
    const bool hasLog = m_keeps == Keeps::NoLog || PrintLog::open(m_options.dataDirectory);
    if (!hasLog)
        PrintLog::openStandardError();
    const Obstacle opening = openConfiguration();
    if (opening.kind == Obstacle::None && !hasLog)
        return {Obstacle::NoLog, QString(), {}, Fault::None};
    return opening;
}

Startup::Obstacle Startup::takeDirectory()
{
    const QString directory = m_options.dataDirectory;
    errno = 0;
    if (!makeDataDirectory(directory))
        return {Obstacle::NotWritable, qt_error_string(errno), {}, Fault::None};
    // The embedded controller's store stands in the same directory as that of one by itself.
    for (DirectoryLock *lock : {&m_lock, &m_controllerLock}) {
        const bool isController = lock == &m_controllerLock;
        if (lock->state() == DirectoryLock::State::Held
            || (isController && !m_options.isEmbedded()))
            continue;
        lock->take(directory,
                   isController ? QStringLiteral("controller") : QStringLiteral("pendant"));
        if (lock->state() == DirectoryLock::State::InUse)
            return {Obstacle::InUse, QString(), lock->holder(), Fault::None};
        if (lock->state() == DirectoryLock::State::Unavailable)
            return {Obstacle::NotWritable, lock->reason(), {}, Fault::None};
    }
    return {};
}

Startup::Obstacle Startup::openConfiguration()
{
    VeltrixDatabase *database = VeltrixDatabase::getInstance();
    if (database->open(m_options.dataDirectory))
        return {};
    const auto kind =
        database->fault() == Fault::Unavailable ? Obstacle::NotWritable : Obstacle::Unreadable;
    return {kind, database->faultReason(), {}, database->fault()};
}

/// Of a directory in which nothing can be written. Users who cannot be read are not taken for none.
Startup::Obstacle Startup::readConfiguration()
{
    if (m_isHeld)
        return {};
    const configurationfile::Reading reading = configurationfile::readOnly(configurationPath());
    if (reading.fault != Fault::None)
        return {Obstacle::Unreadable, reading.reason, {}, reading.fault};
    hold(reading.content);
    return {};
}

void Startup::hold(const configurationfile::Content &content)
{
    VeltrixDatabase::getInstance()->holdInMemory(content.values, content.accounts);
    m_isHeld = true;
}

bool Startup::settle(const Obstacle &obstacle)
{
    const QVector<Copy> copies = obstacle.kind == Obstacle::Unreadable
        ? configurationfile::copies(m_options.dataDirectory).mid(0, kOfferedCopies)
        : QVector<Copy>();
    const int choice = show([&] {
        StartPage::Content content = page(obstacle);
        if (obstacle.kind == Obstacle::Unreadable)
            addRepairs(copies, &content);
        content.choices.append({TryAgain, tr("重试")});
        content.choices.append({End, tr("结束程序")});
        return content;
    });
    m_repairError.clear();
    switch (choice) {
    case End:
        return false;
    case TryAgain:
        m_keeps = Keeps::Everything;
        return true;
    case Continue:
        settleNotWritable(obstacle);
        return true;
    default:
        putBack(choice, copies);
        return true;
    }
}

void Startup::settleNotWritable(const Obstacle &obstacle)
{
    m_keeps = obstacle.kind == Obstacle::NoLog ? Keeps::NoLog : Keeps::Nothing;
    PrintLog::openStandardError();
    PrintLog::OutputToLog(
        m_keeps == Keeps::NoLog
            ? tr("日志文件无法写入，本次运行的日志不保存")
            : tr("数据目录无法写入（%1），本次运行的更改不保存").arg(obstacle.reason),
        2);
}

/// A copy without users leads to the same as no copy, and is asked for in the same way.
void Startup::putBack(int choice, const QVector<Copy> &copies)
{
    const Copy copy = copies.value(choice - FirstCopy);
    if (copy.content.accounts.isEmpty() && show([this] { return confirmation(); }) != Confirm)
        return;
    useInstead(copy.path, copy.content);
}

void Startup::useInstead(const QString &copy, const configurationfile::Content &content)
{
    QString keptAs;
    if (m_keeps == Keeps::Nothing) {
        QHash<QString, QVariant> values = content.values;
        if (content.accounts.isEmpty())
            values.insert(VeltrixDatabase::passwordRequiredKey(), true);
        hold({values, content.accounts});
    } else if (!configurationfile::replace(m_options.dataDirectory, copy, &keptAs,
                                           &m_repairError)) {
        PrintLog::OutputToLog(tr("配置无法恢复：%1").arg(m_repairError), 3);
        return;
    }
    if (copy.isEmpty())
        PrintLog::OutputToLog(tr("操作员确认以空配置启动，须重新设置管理员密码"), 2);
    else
        PrintLog::OutputToLog(tr("操作员取回配置副本 %1").arg(copy), 2);
    if (!keptAs.isEmpty())
        PrintLog::OutputToLog(tr("原配置文件另存为 %1").arg(keptAs), 2);
}

int Startup::show(const StartPage::Maker &maker)
{
    QStringList languages = {m_options.language};
    if (languages.first().isEmpty())
        languages = QStringList{configurationfile::storedLanguage(m_options.dataDirectory)};
    if (languages.first().isEmpty())
        languages = QStringList{QStringLiteral("zh"), QStringLiteral("en")};
    return m_ask(languages, maker);
}

StartPage::Content Startup::page(const Obstacle &obstacle) const
{
    const PageText &text = kPages[obstacle.kind - 1];
    StartPage::Content content;
    content.heading = tr(text.heading);
    content.explanation = tr(text.explanation);
    const auto detail = [&](const QString &label, const QString &value) {
        if (!value.isEmpty())
            content.details.append({label, value});
    };
    switch (obstacle.kind) {
    case Obstacle::InUse:
        detail(tr("程序"), obstacle.holder.program);
        detail(tr("进程号"),
               obstacle.holder.process > 0 ? QString::number(obstacle.holder.process) : QString());
        detail(tr("主机"), obstacle.holder.host);
        break;
    case Obstacle::Unreadable:
        for (const FaultText &fault : kFaults) {
            if (fault.fault == obstacle.fault)
                detail(tr("情况"), tr(fault.text));
        }
        detail(tr("文件"), configurationPath());
        break;
    default:
        content.choices.append({Continue,
                                obstacle.kind == Obstacle::NoLog ? tr("继续运行，不保存日志")
                                                                 : tr("继续运行，不保存")});
        break;
    }
    if (obstacle.kind != Obstacle::Unreadable)
        detail(tr("数据目录"), m_options.dataDirectory);
    detail(tr("系统信息"), obstacle.reason);
    detail(tr("恢复失败"), m_repairError);
    detail(tr("检查时间"), QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
    return content;
}

void Startup::addRepairs(const QVector<Copy> &copies, StartPage::Content *content) const
{
    for (int row = 0; row < copies.size(); ++row) {
        const QString day = copies[row].date.toString(Qt::ISODate);
        content->choices.append({FirstCopy + row,
                                 copies[row].content.accounts.isEmpty()
                                     ? tr("取回 %1 的副本（没有用户）").arg(day)
                                     : tr("取回 %1 的副本").arg(day)});
    }
    const bool isWritable = m_keeps != Keeps::Nothing;
    if (!copies.isEmpty()) {
        if (!isWritable)
            content->explanation = tr("可以在本次运行中使用一个副本，文件不会改动。");
        return;
    }
    content->explanation = isWritable
        ? tr("没有可用的副本。可以以空配置启动，原来的文件会另存，不会删除。")
        : tr("没有可用的副本。可以在本次运行中使用空配置，文件不会改动。");
    content->choices.append({StartEmpty, tr("以空配置启动…")});
}

StartPage::Content Startup::confirmation() const
{
    StartPage::Content content;
    content.heading = tr("没有用户：必须重新设置管理员密码");
    content.explanation = m_keeps == Keeps::Nothing
        ? tr("原有的用户在本次运行中不能登录。启动后屏幕锁定，设置管理员密码后才能操作。"
             "此选择写入日志。")
        : tr("原有的用户不再有效。启动后屏幕锁定，设置管理员密码后才能操作。此选择写入日志，"
             "原来的文件另存。");
    content.details = {{tr("文件"), configurationPath()}};
    content.choices = {{Confirm, tr("不带用户启动")}, {Back, tr("返回")}};
    return content;
}
