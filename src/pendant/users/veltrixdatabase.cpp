#include "veltrixdatabase.h"

#include "app.h"
#include "configurationfile.h"
#include "eventlog.h"
#include "files/privatefiles.h"
#include "printlog.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

namespace {

const QString kConnection = QStringLiteral("pendant");

/// Each must succeed for the file to be fit for use. The last one writes, which shows that it can
/// be done.
QStringList settings()
{
    return {QStringLiteral("PRAGMA journal_mode = WAL"),
            QStringLiteral("PRAGMA synchronous = FULL"),
            QStringLiteral("PRAGMA user_version = %1").arg(configurationfile::kVersion)};
}

QSqlQuery query()
{
    return QSqlQuery(QSqlDatabase::database(kConnection, false));
}

bool run(QSqlQuery &prepared)
{
    if (prepared.exec())
        return true;
    PrintLog::OutputToLog(QCoreApplication::translate("VeltrixDatabase", "配置数据库写入失败：%1")
                              .arg(prepared.lastError().text()),
                          3);
    return false;
}

} // namespace

VeltrixDatabase *VeltrixDatabase::getInstance()
{
    static VeltrixDatabase *const instance = new VeltrixDatabase;
    return instance;
}

bool VeltrixDatabase::open(const QString &directory, QString *error)
{
    using configurationfile::Presence;
    close();
    m_fault = Fault::None;
    m_directory = directory;
    const QString path = configurationfile::pathIn(directory);
    const Presence presence = configurationfile::presence(directory);
    QString reason;
    if (!privatefiles::makeDirectory(directory))
        fail(Fault::Unavailable, qt_error_string());
    else if (presence == Presence::Lost)
        fail(Fault::Missing, {});
    else if (presence == Presence::NoFile)
        fail(Fault::NoDatabase, {});
    else if (presence == Presence::New && !configurationfile::create(directory, &reason))
        fail(Fault::Unavailable, reason);
    else
        m_open = openFile(path);
    if (!m_open && error) {
        *error = QCoreApplication::translate("VeltrixDatabase", "无法打开 %1：%2")
                     .arg(path, m_faultReason);
    }
    return m_open;
}

bool VeltrixDatabase::fail(Fault fault, const QString &reason)
{
    m_fault = fault;
    m_faultReason = reason;
    return false;
}

bool VeltrixDatabase::openFile(const QString &path)
{
    privatefiles::tighten(path);
    const bool good = [&] {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
        database.setDatabaseName(path);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000"));
        database.open();
        const configurationfile::Reading reading = configurationfile::read(database);
        if (reading.fault != Fault::None)
            return fail(reading.fault, reading.reason);
        for (const QString &statement : settings()) {
            QSqlQuery setting = query();
            if (!setting.exec(statement))
                return fail(Fault::Unavailable, setting.lastError().databaseText());
        }
        m_values = reading.content.values;
        m_accounts = reading.content.accounts;
        return true;
    }();
    if (!good) {
        QSqlDatabase::database(kConnection, false).close();
        QSqlDatabase::removeDatabase(kConnection);
    }
    return good;
}

void VeltrixDatabase::holdInMemory(const QHash<QString, QVariant> &values,
                                   const QVector<Account> &accounts)
{
    close();
    m_values = values;
    m_accounts = accounts;
}

void VeltrixDatabase::keepDailyCopy()
{
    if (!m_open)
        return;
    m_keepsCopies = true;
    if (!configurationfile::hasCopy(m_directory, QDate::currentDate()))
        renewCopy();
}

void VeltrixDatabase::renewCopy()
{
    if (!m_open || !m_keepsCopies)
        return;
    const QString reason = configurationfile::keepCopy(QSqlDatabase::database(kConnection, false),
                                                       m_directory, QDate::currentDate());
    if (!reason.isEmpty())
        PrintLog::OutputToLog(
            QCoreApplication::translate("VeltrixDatabase", "配置的当日副本无法写入：%1")
                .arg(reason),
            2);
}

void VeltrixDatabase::close()
{
    if (!m_open)
        return;
    renewCopy();
    m_open = false;
    m_keepsCopies = false;
    m_values.clear();
    m_accounts.clear();
    QSqlDatabase::database(kConnection, false).close();
    QSqlDatabase::removeDatabase(kConnection);
}

void VeltrixDatabase::updateAppConfigData()
{
    setValue(QStringLiteral("xmlName"), App::xmlName);
    setValue(QStringLiteral("isDeg"), App::isDeg);
    EventLog::getInstance()->record(QStringLiteral("config"),
                                    {QStringLiteral("updateAppConfigData")});
}

void VeltrixDatabase::loadAppConfigData()
{
    App::xmlName = value(QStringLiteral("xmlName"), App::xmlName).toString();
    App::isDeg = value(QStringLiteral("isDeg"), App::isDeg).toBool();
    EventLog::getInstance()->record(QStringLiteral("config"),
                                    {QStringLiteral("loadAppConfigData")});
}

QVariant VeltrixDatabase::value(const QString &key, const QVariant &fallback) const
{
    return m_values.value(key, fallback);
}

void VeltrixDatabase::setValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
    if (!m_open)
        return;
    QSqlQuery write = query();
    write.prepare(QStringLiteral("INSERT INTO config (key, value) VALUES (?, ?)"
                                 " ON CONFLICT(key) DO UPDATE SET value = excluded.value"));
    write.addBindValue(key);
    write.addBindValue(value);
    run(write);
}

bool VeltrixDatabase::saveAccount(const Account &account)
{
    const auto known =
        std::find_if(m_accounts.begin(), m_accounts.end(),
                     [&](const Account &other) { return other.name == account.name; });
    if (m_open) {
        QSqlQuery write = query();
        write.prepare(QStringLiteral(
            "INSERT INTO account (name, role, password, failures, last_failure)"
            " VALUES (?, ?, ?, ?, ?) ON CONFLICT(name) DO UPDATE SET role = excluded.role,"
            " password = excluded.password, failures = excluded.failures,"
            " last_failure = excluded.last_failure"));
        write.addBindValue(account.name);
        write.addBindValue(account.role);
        write.addBindValue(QString::fromLatin1(account.passwordHash));
        write.addBindValue(account.failures);
        write.addBindValue(account.lastFailure);
        if (!run(write))
            return false;
    }
    if (known == m_accounts.end()) {
        m_accounts.append(account);
        renewCopy();
        return true;
    }
    // Failed log-ins alone are not worth a copy each.
    const bool changed = known->role != account.role || known->passwordHash != account.passwordHash;
    *known = account;
    if (changed)
        renewCopy();
    return true;
}

bool VeltrixDatabase::removeAccount(const QString &name)
{
    if (m_open) {
        QSqlQuery write = query();
        write.prepare(QStringLiteral("DELETE FROM account WHERE name = ?"));
        write.addBindValue(name);
        if (!run(write))
            return false;
    }
    const auto gone = std::remove_if(m_accounts.begin(), m_accounts.end(),
                                     [&](const Account &account) { return account.name == name; });
    const bool found = gone != m_accounts.end();
    m_accounts.erase(gone, m_accounts.end());
    renewCopy();
    return found;
}
