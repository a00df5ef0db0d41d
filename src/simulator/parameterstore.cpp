#include "simulator/parameterstore.h"

#include "files/privatefiles.h"
#include "wire/json.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
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

/// SQLite's codes for a file that is damaged, in their last byte.
constexpr int kCorrupt = 11;
constexpr int kNotADatabase = 26;

bool isDamage(const QString &nativeCode)
{
    const int code = nativeCode.toInt() & 0xff;
    return code == kCorrupt || code == kNotADatabase;
}

void bindKey(QSqlQuery &query, const ParameterStore::Key &key)
{
    query.addBindValue(key.robot);
    query.addBindValue(QString::fromLatin1(key.package));
    query.addBindValue(key.number);
    // A null text would be no text to SQL.
    query.addBindValue(key.sub.isNull() ? QStringLiteral("") : key.sub);
}

QByteArray lineOf(const Json::Value &value)
{
    return wire::writeLine(value).trimmed();
}

} // namespace

// ---- transactions -------------------------------------------------------------------------------

ParameterStore::Transaction::Transaction(ParameterStore &store) : m_store(store)
{
    Q_ASSERT(!m_store.m_isScoped);
    m_store.m_isScoped = true;
    m_store.m_hasMetDamage = false;
    m_store.m_hasFailed = false;
}

ParameterStore::Transaction::~Transaction()
{
    end();
}

void ParameterStore::Transaction::end()
{
    if (m_store.m_hasBegun)
        QSqlQuery(m_store.database()).exec(QStringLiteral("ROLLBACK"));
    m_store.m_hasBegun = false;
    m_store.m_isScoped = false;
}

bool ParameterStore::Transaction::commit()
{
    if (m_store.m_hasBegun && !m_store.m_hasFailed) {
        QSqlQuery query(m_store.database());
        if (query.exec(QStringLiteral("COMMIT"))) {
            m_store.m_hasBegun = false;
        } else {
            m_store.m_hasFailed = true;
            m_store.noteError(query.lastError().nativeErrorCode());
        }
    }
    end();
    return !m_store.m_hasFailed;
}

bool ParameterStore::Transaction::hasMetDamage() const
{
    return m_store.m_hasMetDamage;
}

bool ParameterStore::Transaction::hasFailed() const
{
    return m_store.m_hasFailed;
}

bool ParameterStore::begin()
{
    if (!m_isScoped || m_hasBegun)
        return true;
    m_hasBegun = QSqlQuery(database()).exec(QStringLiteral("BEGIN IMMEDIATE"));
    return m_hasBegun;
}

// ---- opening ------------------------------------------------------------------------------------

ParameterStore::ParameterStore()
    : m_connection(QStringLiteral("controller-") + QUuid::createUuid().toString(QUuid::Id128))
{
}

ParameterStore::~ParameterStore()
{
    close();
}

QString ParameterStore::path() const
{
    return m_directory + QLatin1Char('/') + QLatin1String(storefile::kName);
}

QString ParameterStore::lastGoodCopy() const
{
    if (!m_lastGoodCopy)
        m_lastGoodCopy = StoreCopies(m_directory).lastGood();
    return *m_lastGoodCopy;
}

bool ParameterStore::fail(State state, const QString &reason)
{
    if (QSqlDatabase::contains(m_connection)) {
        database().close();
        QSqlDatabase::removeDatabase(m_connection);
    }
    m_state = state;
    m_fault = QStringLiteral("The parameter store %1 cannot be opened: %2.")
                  .arg(path(), reason.trimmed());
    return false;
}

bool ParameterStore::open(const QString &directory)
{
    close();
    m_directory = QDir(directory).absolutePath();
    if (!openDatabase())
        return false;
    if (m_state != State::ReadOnly) {
        lookThrough();
        copyOncePerDay();
    }
    return true;
}

bool ParameterStore::openDatabase()
{
    if (!privatefiles::makeDirectory(m_directory))
        return fail(State::Unavailable, QStringLiteral("its directory cannot be made"));
    const QFileInfo file(path());
    if ((!file.exists() || file.size() == 0) && !lastGoodCopy().isEmpty())
        return fail(State::Damaged, QStringLiteral("it is gone, and its copies are there"));
    privatefiles::makeFile(path()); // SQLite gives the mode of the database to what lies beside it
    for (const char *suffix : {"-wal", "-shm", "-journal"})
        privatefiles::tighten(path() + QLatin1String(suffix));
    if (connectTo({}, path()) && setUp())
        return true;
    if (m_state == State::Damaged)
        return false;
    // A disk that is full or takes no writing: what lies on it can be read all the same, unless a
    // part of it is still in the journal.
    const QString reason = m_fault;
    if (QFileInfo(path() + QStringLiteral("-wal")).size() > 0 || !file.exists()
        || !connectTo(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI"),
                      QUrl::fromLocalFile(path()).toString(QUrl::FullyEncoded)
                          + QStringLiteral("?immutable=1"))
        || !database().tables().contains(QStringLiteral("parameters"))) {
        fail(State::Unavailable, {});
        m_fault = reason;
        return false;
    }
    m_state = State::ReadOnly;
    m_fault = reason;
    return true;
}

bool ParameterStore::connectTo(const QString &options, const QString &name)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    db.setConnectOptions(options);
    db.setDatabaseName(name);
    if (db.open())
        return true;
    const QSqlError error = db.lastError();
    db = {};
    return fail(isDamage(error.nativeErrorCode()) ? State::Damaged : State::Unavailable,
                error.text());
}

bool ParameterStore::setUp()
{
    QSqlError error;
    {
        const QSqlDatabase db = database();
        for (const char *statement : kSetup) {
            QSqlQuery query(db);
            if (query.exec(QString::fromLatin1(statement)))
                continue;
            error = query.lastError();
            break;
        }
    }
    if (error.isValid()) {
        return fail(isDamage(error.nativeErrorCode()) ? State::Damaged : State::Unavailable,
                    error.text());
    }
    const QString fault = storefile::faultOf(database());
    if (!fault.isEmpty())
        return fail(State::Damaged, fault);
    m_state = State::Good;
    m_fault.clear();
    return true;
}

/// Every set is read once, so that a damaged one is told before it is missed.
void ParameterStore::lookThrough()
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT robot, package, number, sub, value FROM parameters"));
    while (query.next()) {
        if (!wire::parseObject(query.value(4).toString().toUtf8())) {
            m_unreadable.append({query.value(0).toInt(), query.value(1).toString(),
                                 query.value(2).toInt(), query.value(3).toString()});
        }
    }
    noteError(query.lastError().nativeErrorCode());
    if (m_state != State::Damaged)
        sayUnreadable();
}

void ParameterStore::sayUnreadable() const
{
    if (m_unreadable.isEmpty())
        return;
    const StoreCopies::Row &first = m_unreadable.first();
    m_state = State::RowsDamaged;
    m_fault = QStringLiteral("The parameter store %1 has sets that cannot be read: %2; the first "
                             "is robot %3, %4 %5.")
                  .arg(path())
                  .arg(m_unreadable.size())
                  .arg(first.robot)
                  .arg(first.package)
                  .arg((QString::number(first.number) + QLatin1Char(' ') + first.sub).trimmed());
}

void ParameterStore::close()
{
    m_state = State::Closed;
    m_fault.clear();
    m_copied = {};
    m_unreadable.clear();
    m_lastGoodCopy.reset();
    if (!QSqlDatabase::contains(m_connection))
        return;
    database().close();
    QSqlDatabase::removeDatabase(m_connection);
}

// ---- copies -------------------------------------------------------------------------------------

// A store with a set that cannot be read is not copied: good copies would give way to bad ones.
void ParameterStore::copyOncePerDay()
{
    if (m_state != State::Good || m_copied == today())
        return;
    const bool isFirst = !m_copied.isValid();
    m_copied = today();
    if (!isFirst) { // it was looked through when it was opened, but that was another day
        const QString fault = storefile::faultOf(database());
        if (!fault.isEmpty()) {
            fail(State::Damaged, fault);
            return;
        }
        lookThrough();
        if (m_state != State::Good)
            return;
    }
    QString error;
    if (!StoreCopies(m_directory).make(database(), m_copied.toString(Qt::ISODate), &error))
        m_fault = error + QLatin1Char('.');
    m_lastGoodCopy.reset();
}

bool ParameterStore::mend(QString *sentence)
{
    const QString directory = m_directory;
    bool good = false;
    if (m_state == State::RowsDamaged) {
        QString kept;
        QString error;
        good = StoreCopies(directory).mend(database(), m_unreadable, &kept, &error);
        *sentence = good ? QStringLiteral("The sets that could not be read are put right; the "
                                          "store that was is %1.")
                               .arg(kept)
                         : error + QLatin1Char('.');
    } else {
        const QString day = lastGoodCopy();
        close();
        good = restore(directory, day, sentence);
    }
    return open(directory) && good && m_state == State::Good;
}

bool ParameterStore::restore(const QString &directory, const QString &day, QString *sentence)
{
    const StoreCopies copies(directory);
    const bool isLast = day == QLatin1String("last");
    const QString chosen = isLast ? copies.lastGood() : day;
    if (isLast && chosen.isEmpty()) {
        *sentence = QStringLiteral("There is no copy of the parameters in %1.").arg(directory);
        return false;
    }
    QString kept;
    QString error;
    if (!copies.putBack(chosen, &kept, &error)) {
        *sentence = error + QLatin1Char('.');
        return false;
    }
    *sentence = chosen.isEmpty() ? QStringLiteral("The parameters begin empty")
                                 : QStringLiteral("The parameters are those of %1").arg(chosen);
    *sentence += kept.isEmpty() ? QStringLiteral(".")
                                : QStringLiteral("; those that were are in %1.").arg(kept);
    return true;
}

// ---- sets ---------------------------------------------------------------------------------------

/// A file that turns out to be damaged is not used any more.
void ParameterStore::noteError(const QString &nativeCode) const
{
    if (!isDamage(nativeCode))
        return;
    m_hasMetDamage = true;
    m_state = State::Damaged;
    m_fault = QStringLiteral("The parameter store %1 is damaged.").arg(path());
}

void ParameterStore::markUnreadable(const Key &key) const
{
    m_hasMetDamage = true;
    if (m_state != State::Good && m_state != State::RowsDamaged)
        return;
    const StoreCopies::Row row{key.robot, QString::fromLatin1(key.package), key.number, key.sub};
    if (!m_unreadable.contains(row))
        m_unreadable.append(row);
    sayUnreadable();
}

std::optional<Json::Value> ParameterStore::load(const Key &key) const
{
    if (m_state == State::Closed)
        return std::nullopt;
    if (m_state == State::Damaged || m_state == State::Unavailable) {
        m_hasMetDamage = true;
        return std::nullopt;
    }
    QSqlQuery query(database());
    query.prepare(QStringLiteral("SELECT value FROM parameters"
                                 " WHERE robot = ? AND package = ? AND number = ? AND sub = ?"));
    bindKey(query, key);
    const bool good = query.exec();
    if (good && query.next()) {
        std::optional<Json::Value> value = wire::parseObject(query.value(0).toString().toUtf8());
        if (!value)
            markUnreadable(key);
        return value;
    }
    if (!good || query.lastError().isValid()) {
        m_hasMetDamage = true;
        noteError(query.lastError().nativeErrorCode());
    }
    return std::nullopt;
}

bool ParameterStore::store(const Key &key, const Json::Value &value)
{
    const QByteArray line = lineOf(value);
    // What is longer could not be read again.
    const bool canBeKept = (m_state == State::Good || m_state == State::RowsDamaged)
        && line.size() <= wire::kMaxBody && !m_hasFailed;
    if (canBeKept && begin()) {
        QSqlQuery query(database());
        query.prepare(QStringLiteral("INSERT OR REPLACE INTO parameters"
                                     " (robot, package, number, sub, value)"
                                     " VALUES (?, ?, ?, ?, ?)"));
        bindKey(query, key);
        query.addBindValue(QString::fromUtf8(line));
        if (query.exec())
            return true;
        noteError(query.lastError().nativeErrorCode());
    }
    m_hasFailed = m_isScoped;
    return false;
}

std::optional<QHash<QString, qint64>> ParameterStore::sizes(int robot, const char *package) const
{
    if (m_state == State::Closed || !QSqlDatabase::contains(m_connection)) {
        m_hasMetDamage = true;
        return std::nullopt;
    }
    QHash<QString, qint64> list;
    QSqlQuery query(database());
    query.prepare(QStringLiteral("SELECT sub, length(CAST(value AS BLOB)) FROM parameters"
                                 " WHERE robot = ? AND package = ?"));
    query.addBindValue(robot);
    query.addBindValue(QString::fromLatin1(package));
    query.exec();
    while (query.next())
        list.insert(query.value(0).toString(), query.value(1).toLongLong());
    if (!query.lastError().isValid())
        return list;
    m_hasMetDamage = true;
    noteError(query.lastError().nativeErrorCode());
    return std::nullopt;
}

qint64 ParameterStore::sizeOf(const Json::Value &value)
{
    return lineOf(value).size();
}

QSqlDatabase ParameterStore::database() const
{
    return QSqlDatabase::database(m_connection);
}
