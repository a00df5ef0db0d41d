#include "simulator/parameterstore.h"

#include "wire/json.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

/// Each must succeed for the store to be fit for use. WAL with full synchronisation: a commit is on
/// the disk when it returns, and a torn write is rolled back at the next start.
const char *const kSetup[] = {
    "PRAGMA busy_timeout = 2000",
    "PRAGMA journal_mode = WAL",
    "PRAGMA synchronous = FULL",
    "CREATE TABLE IF NOT EXISTS parameters ("
    " robot INTEGER NOT NULL, package TEXT NOT NULL, number INTEGER NOT NULL, sub TEXT NOT NULL,"
    " value TEXT NOT NULL, PRIMARY KEY (robot, package, number, sub)) WITHOUT ROWID",
};

void bindKey(QSqlQuery &query, const ParameterStore::Key &key)
{
    query.addBindValue(key.robot);
    query.addBindValue(QString::fromLatin1(key.package));
    query.addBindValue(key.number);
    // A null text would be no text to SQL.
    query.addBindValue(key.sub.isNull() ? QStringLiteral("") : key.sub);
}

} // namespace

ParameterStore::ParameterStore()
    : m_connection(QStringLiteral("controller-") + QUuid::createUuid().toString(QUuid::Id128))
{
}

ParameterStore::~ParameterStore()
{
    close();
}

bool ParameterStore::open(const QString &directory, QString *error)
{
    if (openDatabase(directory, error))
        return true;
    close();
    return false;
}

bool ParameterStore::openDatabase(const QString &directory, QString *error)
{
    if (!QDir().mkpath(directory)) {
        *error = QStringLiteral("The directory %1 cannot be made.").arg(directory);
        return false;
    }
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    db.setDatabaseName(QDir(directory).filePath(QStringLiteral("controller.db")));
    bool good = db.open();
    QString reason = db.lastError().text();
    for (const char *statement : kSetup) {
        if (!good)
            break;
        QSqlQuery query(db);
        good = query.exec(QString::fromLatin1(statement));
        reason = query.lastError().text();
    }
    if (!good) {
        *error = QStringLiteral("The parameter store %1 cannot be opened: %2.")
                     .arg(db.databaseName(), reason.trimmed());
    }
    return good;
}

void ParameterStore::close()
{
    if (!QSqlDatabase::contains(m_connection))
        return;
    database().close();
    QSqlDatabase::removeDatabase(m_connection);
}

std::optional<Json::Value> ParameterStore::load(const Key &key) const
{
    QSqlQuery query(database());
    query.prepare(QStringLiteral("SELECT value FROM parameters"
                                 " WHERE robot = ? AND package = ? AND number = ? AND sub = ?"));
    bindKey(query, key);
    if (!query.exec() || !query.next())
        return std::nullopt;
    return wire::parseObject(query.value(0).toString().toUtf8());
}

bool ParameterStore::store(const Key &key, const Json::Value &value)
{
    QSqlQuery query(database());
    query.prepare(QStringLiteral("INSERT OR REPLACE INTO parameters"
                                 " (robot, package, number, sub, value) VALUES (?, ?, ?, ?, ?)"));
    bindKey(query, key);
    query.addBindValue(QString::fromUtf8(wire::writeLine(value)).trimmed());
    return query.exec();
}

QSqlDatabase ParameterStore::database() const
{
    return QSqlDatabase::database(m_connection);
}
