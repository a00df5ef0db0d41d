#include "configurationfile.h"

#include "app.h"
#include "files/privatefiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUrl>
#include <QUuid>

#include <algorithm>
#include <cstdio>

namespace configurationfile {
namespace {

/// What SQLite keeps beside its file.
const char *const kSides[] = {"-wal", "-shm", "-journal"};

const char *const kTables[] = {
    "CREATE TABLE config (key TEXT PRIMARY KEY, value)",
    "CREATE TABLE account (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,"
    " role INTEGER NOT NULL, password TEXT NOT NULL, failures INTEGER NOT NULL,"
    " last_failure INTEGER NOT NULL)",
};

/// What an error says of the file. Beside damage there is what may be over at the next try: no
/// room, no right, a lock.
Fault faultOf(const QSqlError &error)
{
    constexpr int kError = 1; // such as a column that does not exist
    constexpr int kCorrupt = 11;
    constexpr int kNotADatabase = 26;
    constexpr int kReadError = 266;
    constexpr int kShortRead = 522;
    const int code = error.nativeErrorCode().toInt();
    if (code == kReadError || code == kShortRead)
        return Fault::CheckFailed;
    switch (code & 0xff) {
    case kError:
        return Fault::TablesMissing;
    case kCorrupt:
        return Fault::CheckFailed;
    case kNotADatabase:
        return Fault::NoDatabase;
    default:
        return Fault::Unavailable;
    }
}

/// In the words of SQLite where it said something, else in those of its driver.
QString wordsOf(const QSqlError &error)
{
    const QString words = error.databaseText().trimmed();
    return words.isEmpty() ? error.text().trimmed() : words;
}

/// A connection of its own for as long as it lives.
class Connection {
public:
    explicit Connection(const QString &file, const QString &options = {})
        : m_name(QStringLiteral("configuration-") + QUuid::createUuid().toString(QUuid::Id128))
    {
        QSqlDatabase made = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        made.setDatabaseName(file);
        made.setConnectOptions(options);
        made.open();
    }
    ~Connection()
    {
        database().close();
        QSqlDatabase::removeDatabase(m_name);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    QSqlDatabase database() const { return QSqlDatabase::database(m_name, false); }
    bool run(const QString &statement, QString *reason = nullptr) const
    {
        QSqlQuery query(database());
        if (database().isOpen() && query.exec(statement))
            return true;
        if (reason)
            *reason = wordsOf(database().isOpen() ? query.lastError() : database().lastError());
        return false;
    }

private:
    QString m_name;
};

Reading failed(const QSqlError &error)
{
    return {faultOf(error), wordsOf(error), {}};
}

/// The first value of the first row, or the reading that has failed.
QVariant first(QSqlQuery &query, const QString &statement, Reading *reading)
{
    if (query.exec(statement) && query.next()) {
        const QVariant value = query.value(0);
        query.finish();
        return value;
    }
    *reading = failed(query.lastError());
    return {};
}

bool isReadable(const VeltrixDatabase::Account &account)
{
    return !account.name.isEmpty() && !account.passwordHash.isEmpty()
        && account.role >= AUTHORITY_OPERATOR && account.role <= AUTHORITY_ADMINISTRATOR;
}

Reading readRows(QSqlQuery &query)
{
    Reading reading;
    if (!query.exec(QStringLiteral("SELECT key, value FROM config")))
        return failed(query.lastError());
    while (query.next())
        reading.content.values.insert(query.value(0).toString(), query.value(1));
    if (query.lastError().isValid())
        return failed(query.lastError());

    if (!query.exec(QStringLiteral(
            "SELECT name, role, password, failures, last_failure FROM account ORDER BY id")))
        return failed(query.lastError());
    while (query.next()) {
        reading.content.accounts.append({query.value(0).toString(), query.value(1).toInt(),
                                         query.value(2).toString().toLatin1(),
                                         query.value(3).toInt(), query.value(4).toLongLong()});
        if (!isReadable(reading.content.accounts.last()))
            return {Fault::RowsUnreadable, {}, {}};
    }
    if (query.lastError().isValid())
        return failed(query.lastError());
    return reading;
}

QString withoutWriting(const QString &path)
{
    return QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded())
        + QStringLiteral("?immutable=1");
}

/// The file as it stands, whatever stands beside it.
Reading readImmutable(const QString &path)
{
    const Connection connection(withoutWriting(path),
                                QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
    return read(connection.database());
}

bool hasChangesBeside(const QString &path)
{
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0
        || QFileInfo(path + QStringLiteral("-journal")).size() > 0;
}

bool copyWhole(const QString &from, const QString &to)
{
    return QFile::copy(from, to) && QFileInfo(from).size() == QFileInfo(to).size();
}

bool copyWithChanges(const QString &from, const QString &to)
{
    const auto copySide = [&](const QString &side) {
        return !QFileInfo::exists(from + side) || copyWhole(from + side, to + side);
    };
    return copyWhole(from, to) && copySide(QStringLiteral("-wal"))
        && copySide(QStringLiteral("-journal"));
}

QString backupIn(const QString &directory)
{
    return QDir(directory).filePath(QStringLiteral("backup"));
}

QString copyOf(const QString &directory, const QDate &day)
{
    return QDir(backupIn(directory))
        .filePath(QStringLiteral("pendant-%1.db").arg(day.toString(Qt::ISODate)));
}

QDate dayOf(const QString &path)
{
    return QDate::fromString(QFileInfo(path).completeBaseName().mid(8), Qt::ISODate);
}

/// Paths by the day, oldest first.
QStringList copyPaths(const QString &directory)
{
    QStringList paths;
    const QFileInfoList files =
        QDir(backupIn(directory))
            .entryInfoList({QStringLiteral("pendant-*.db")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        if (!file.isSymLink() && dayOf(file.filePath()).isValid())
            paths += file.filePath();
    }
    return paths;
}

/// Takes the place of what is there.
bool moveOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool makeTables(const QString &path, QString *reason)
{
    const Connection connection(path);
    for (const char *statement : kTables) {
        if (!connection.run(QString::fromLatin1(statement), reason))
            return false;
    }
    return connection.run(QStringLiteral("PRAGMA user_version = %1").arg(kVersion), reason);
}

bool requirePassword(const QString &path, QString *reason)
{
    const Connection connection(path);
    return connection.run(QStringLiteral("INSERT OR REPLACE INTO config (key, value)"
                                         " VALUES ('%1', 1)")
                              .arg(VeltrixDatabase::passwordRequiredKey()),
                          reason);
}

/// A new file under a temporary name, good and on the disk; empty with `reason` filled when it
/// cannot be made.
QString prepare(const QString &directory, const QString &copy, bool passwordRequired,
                QString *reason)
{
    const QString fresh = pathIn(directory) + QStringLiteral(".new");
    QFile::remove(fresh);
    const bool made = copy.isEmpty() ? privatefiles::makeFile(fresh) && makeTables(fresh, reason)
                                     : copyWhole(copy, fresh);
    privatefiles::tighten(fresh);
    if (made && (!passwordRequired || requirePassword(fresh, reason))
        && readOnly(fresh).fault == Fault::None && privatefiles::sync(fresh))
        return fresh;
    if (reason->isEmpty())
        *reason = QStringLiteral("%1 cannot be written").arg(fresh);
    QFile::remove(fresh);
    QFile::remove(fresh + QStringLiteral("-journal"));
    return {};
}

/// The file first and what belongs to it then: a half of this leaves no file, which is noticed.
bool setAside(const QString &path, QString *keptAs)
{
    const QString stem = QFileInfo(path).dir().filePath(
        QStringLiteral("pendant-damaged-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    QString aside = stem + QStringLiteral(".db");
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside = QStringLiteral("%1-%2.db").arg(stem).arg(number);
    if (QFileInfo::exists(path)) {
        if (!moveOver(path, aside))
            return false;
        *keptAs = aside;
    }
    for (const char *side : kSides) {
        const QString beside = path + QLatin1String(side);
        if (QFileInfo::exists(beside) && !moveOver(beside, aside + QLatin1String(side)))
            return false;
    }
    return true;
}

} // namespace

QString pathIn(const QString &directory)
{
    return QDir(directory).filePath(QStringLiteral("pendant.db"));
}

Presence presence(const QString &directory)
{
    const QFileInfo file(pathIn(directory));
    if (file.isFile())
        return Presence::There;
    if (file.exists() || file.isSymLink())
        return Presence::NoFile;
    const bool hadOne = !copyPaths(directory).isEmpty()
        || !QDir(directory)
                .entryList({QStringLiteral("pendant-damaged-*.db"), QStringLiteral("pendant.db-*")},
                           QDir::AllEntries)
                .isEmpty();
    return hadOne ? Presence::Lost : Presence::New;
}

bool create(const QString &directory, QString *reason)
{
    const QString fresh = prepare(directory, {}, false, reason);
    return !fresh.isEmpty() && moveOver(fresh, pathIn(directory)) && privatefiles::sync(directory);
}

Reading read(const QSqlDatabase &database)
{
    if (!database.isOpen())
        return failed(database.lastError());
    QSqlQuery query(database);
    Reading reading;
    const QString checked =
        first(query, QStringLiteral("PRAGMA quick_check(1)"), &reading).toString();
    if (reading.fault != Fault::None)
        return reading;
    if (checked != QLatin1String("ok"))
        return {Fault::CheckFailed, checked, {}};
    const int version = first(query, QStringLiteral("PRAGMA user_version"), &reading).toInt();
    if (version > kVersion)
        return {Fault::Newer, QStringLiteral("version %1").arg(version), {}};
    const int tables =
        first(query,
              QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table'"
                             " AND name IN ('config', 'account')"),
              &reading)
            .toInt();
    if (reading.fault != Fault::None)
        return reading;
    if (tables != 2)
        return {Fault::TablesMissing, {}, {}};
    return readRows(query);
}

Reading readOnly(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return {QFileInfo::exists(path) ? Fault::NoDatabase : Fault::Missing, {}, {}};
    if (!hasChangesBeside(path))
        return readImmutable(path);
    for (const QString &place : {QDir::tempPath(), QStringLiteral("/dev/shm")}) {
        const QTemporaryDir elsewhere(place + QStringLiteral("/pendant-XXXXXX"));
        const QString copy = elsewhere.filePath(QStringLiteral("pendant.db"));
        if (elsewhere.isValid() && copyWithChanges(path, copy)) {
            const Connection connection(copy);
            return read(connection.database());
        }
    }
    // No room anywhere: the index of the changes is kept in memory when nobody shares it.
    const Connection connection(path);
    connection.run(QStringLiteral("PRAGMA locking_mode = EXCLUSIVE"));
    connection.run(QStringLiteral("PRAGMA query_only = 1"));
    return read(connection.database());
}

QString storedLanguage(const QString &directory)
{
    const auto known = [](const QString &language) {
        return language == QLatin1String("zh") || language == QLatin1String("en");
    };
    const QString path = pathIn(directory);
    if (QFileInfo(path).isFile()) {
        // What else is wrong with the file does not matter here.
        const Connection connection(path, QStringLiteral("QSQLITE_OPEN_READONLY"));
        QSqlQuery query(connection.database());
        Reading ignored;
        const QString language =
            first(query, QStringLiteral("SELECT value FROM config WHERE key = 'language'"),
                  &ignored)
                .toString();
        if (known(language))
            return language;
    }
    const QVector<Copy> good = copies(directory);
    for (const Copy &copy : good) {
        const QString language = copy.content.values.value(QStringLiteral("language")).toString();
        if (known(language))
            return language;
    }
    return {};
}

QString keepCopy(const QSqlDatabase &database, const QString &directory, const QDate &day)
{
    const Reading reading = read(database);
    if (reading.fault != Fault::None)
        return reading.reason.isEmpty() ? QStringLiteral("the configuration is damaged")
                                        : reading.reason;
    const QString path = copyOf(directory, day);
    const QString fresh = path + QStringLiteral(".new");
    if (!privatefiles::makeDirectory(backupIn(directory)))
        return QStringLiteral("%1 cannot be made").arg(backupIn(directory));
    QFile::remove(fresh);
    if (!privatefiles::makeFile(fresh))
        return QStringLiteral("%1 cannot be written").arg(fresh);
    {
        QSqlQuery copying(database);
        copying.prepare(QStringLiteral("VACUUM INTO ?"));
        copying.addBindValue(fresh);
        if (!copying.exec()) {
            const QString reason = wordsOf(copying.lastError());
            QFile::remove(fresh);
            return reason;
        }
    }
    const Reading written = readImmutable(fresh);
    if (written.fault != Fault::None
        || written.content.accounts.size() != reading.content.accounts.size()
        || !privatefiles::sync(fresh) || !moveOver(fresh, path)) {
        QFile::remove(fresh);
        return QStringLiteral("%1 cannot be written").arg(path);
    }
    privatefiles::sync(backupIn(directory));
    // The new one stays, whatever the clock says.
    QStringList others = copyPaths(directory);
    others.removeAll(path);
    while (others.size() >= kCopies)
        QFile::remove(others.takeFirst());
    return {};
}

bool hasCopy(const QString &directory, const QDate &day)
{
    return QFileInfo::exists(copyOf(directory, day));
}

QVector<Copy> copies(const QString &directory)
{
    QVector<Copy> good;
    const QStringList paths = copyPaths(directory);
    for (const QString &path : paths) {
        const Reading reading = readImmutable(path);
        if (reading.fault == Fault::None)
            good.prepend({dayOf(path), path, reading.content});
    }
    return good;
}

bool replace(const QString &directory, const QString &copy, QString *keptAs, QString *reason)
{
    const bool hasAccounts = !copy.isEmpty() && !readImmutable(copy).content.accounts.isEmpty();
    const QString path = pathIn(directory);
    const QString fresh = prepare(directory, copy, !hasAccounts, reason);
    if (fresh.isEmpty())
        return false;
    if (setAside(path, keptAs) && moveOver(fresh, path)) {
        privatefiles::sync(directory);
        return true;
    }
    *reason = QStringLiteral("%1 cannot be renamed").arg(path);
    QFile::remove(fresh);
    return false;
}

} // namespace configurationfile
