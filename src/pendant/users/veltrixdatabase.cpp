#include "veltrixdatabase.h"

#include "app.h"
#include "eventlog.h"
#include "printlog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

namespace {

const QString kConnection = QStringLiteral("pendant");

const char *const kSchema[] = {
    "PRAGMA journal_mode = WAL",
    "PRAGMA synchronous = FULL",
    "CREATE TABLE IF NOT EXISTS config (key TEXT PRIMARY KEY, value)",
    "CREATE TABLE IF NOT EXISTS account (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,"
    " role INTEGER NOT NULL, password TEXT NOT NULL, failures INTEGER NOT NULL,"
    " last_failure INTEGER NOT NULL)",
};

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

/// The hashes in the file are nobody's business but the pendant's; SQLite gives its side files the
/// permissions of the main one.
void keepPrivate(const QString &path)
{
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.close();
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace

VeltrixDatabase *VeltrixDatabase::getInstance()
{
    static VeltrixDatabase *const instance = new VeltrixDatabase;
    return instance;
}

bool VeltrixDatabase::open(const QString &directory, QString *error)
{
    close();
    const QString path = QDir(directory).filePath(QStringLiteral("pendant.db"));
    if (!QDir().mkpath(directory)) {
        if (error)
            *error =
                QCoreApplication::translate("VeltrixDatabase", "无法创建目录 %1").arg(directory);
        return false;
    }
    keepPrivate(path);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
        database.setDatabaseName(path);
        m_open = database.open();
        QString reason = database.lastError().text();
        if (m_open)
            m_open = load(&reason);
        if (!m_open && error)
            *error =
                QCoreApplication::translate("VeltrixDatabase", "无法打开 %1：%2").arg(path, reason);
    }
    if (!m_open)
        QSqlDatabase::removeDatabase(kConnection);
    return m_open;
}

bool VeltrixDatabase::load(QString *error)
{
    QSqlQuery read = query();
    const auto fails = [&] {
        *error = read.lastError().text();
        return false;
    };
    for (const char *statement : kSchema) {
        if (!read.exec(QString::fromLatin1(statement)))
            return fails();
    }
    QHash<QString, QVariant> values;
    if (!read.exec(QStringLiteral("SELECT key, value FROM config")))
        return fails();
    while (read.next())
        values.insert(read.value(0).toString(), read.value(1));

    QVector<Account> accounts;
    if (!read.exec(QStringLiteral(
            "SELECT name, role, password, failures, last_failure FROM account ORDER BY id")))
        return fails();
    while (read.next()) {
        accounts.append({read.value(0).toString(), read.value(1).toInt(),
                         read.value(2).toString().toLatin1(), read.value(3).toInt(),
                         read.value(4).toLongLong()});
    }
    m_values = values;
    m_accounts = accounts;
    return true;
}

void VeltrixDatabase::close()
{
    if (!m_open)
        return;
    m_open = false;
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
    for (Account &known : m_accounts) {
        if (known.name == account.name) {
            known = account;
            return true;
        }
    }
    m_accounts.append(account);
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
    return found;
}
