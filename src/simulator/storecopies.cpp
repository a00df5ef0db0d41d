#include "simulator/storecopies.h"

#include "files/privatefiles.h"
#include "wire/json.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <cstdio>

namespace {

const QString kStem = QStringLiteral("controller-");
const QString kSuffix = QStringLiteral(".db");
const QString kPart = QStringLiteral(".part");
/// A database and the journals that SQLite keeps beside it.
const char *const kParts[] = {"", "-wal", "-journal"};

/// A rename that replaces, unlike QFile's.
bool moveOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// A database file that is read while this object lives.
class Reader {
public:
    explicit Reader(const QString &path) : m_name(QUuid::createUuid().toString(QUuid::Id128))
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        file.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        file.setDatabaseName(path);
        file.open();
    }
    ~Reader() { QSqlDatabase::removeDatabase(m_name); }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    QSqlDatabase database() const { return QSqlDatabase::database(m_name, false); }

private:
    QString m_name;
};

/// A statement about one row; `leading` is bound before its key.
QSqlQuery queryOf(const QSqlDatabase &database, const char *statement, const StoreCopies::Row &row,
                  const QVariant &leading = {})
{
    QSqlQuery query(database);
    query.prepare(QLatin1String(statement)
                  + QStringLiteral(" WHERE robot = ? AND package = ? AND number = ? AND sub = ?"));
    if (leading.isValid())
        query.addBindValue(leading);
    query.addBindValue(row.robot);
    query.addBindValue(row.package);
    query.addBindValue(row.number);
    query.addBindValue(row.sub.isNull() ? QStringLiteral("") : row.sub);
    query.exec();
    return query;
}

QString valueOf(const QSqlDatabase &database, const StoreCopies::Row &row)
{
    QSqlQuery query = queryOf(database, "SELECT value FROM parameters", row);
    return query.next() ? query.value(0).toString() : QString();
}

bool copyFile(const QString &from, const QString &to)
{
    QFile::remove(to);
    return privatefiles::makeFile(to) && [&] {
        QFile source(from);
        QFile target(to);
        if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
            return false;
        while (!source.atEnd()) {
            const QByteArray block = source.read(1 << 20);
            if (block.isEmpty() || target.write(block) != block.size())
                return false;
        }
        return target.flush();
    }() && privatefiles::sync(to);
}

} // namespace

QString storefile::faultOf(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        return query.lastError().text();
    const QString answer = query.value(0).toString();
    return answer == QLatin1String("ok") ? QString() : answer;
}

QString StoreCopies::faultOf(const QString &path)
{
    const Reader reader(path);
    const QSqlDatabase database = reader.database();
    const QString fault =
        database.isOpen() ? storefile::faultOf(database) : database.lastError().text();
    if (fault.isEmpty() && !database.tables().contains(QStringLiteral("parameters")))
        return QStringLiteral("it holds no parameters");
    return fault;
}

QString StoreCopies::folder() const
{
    return m_directory + QStringLiteral("/backup");
}

QString StoreCopies::pathOf(const QString &day) const
{
    return folder() + QLatin1Char('/') + kStem + day + kSuffix;
}

QString StoreCopies::nameAside() const
{
    const QString now =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH-mm-ss-zzz"));
    return m_directory + QStringLiteral("/controller-damaged-") + now + kSuffix;
}

QStringList StoreCopies::days() const
{
    QStringList list;
    const QStringList names = QDir(folder()).entryList({kStem + QLatin1Char('*') + kSuffix},
                                                       QDir::Files | QDir::NoSymLinks, QDir::Name);
    for (const QString &name : names) {
        const QString day = name.mid(kStem.size()).chopped(kSuffix.size());
        if (QDate::fromString(day, Qt::ISODate).isValid())
            list.append(day);
    }
    return list;
}

QString StoreCopies::lastGood() const
{
    const QStringList list = days();
    for (auto day = list.crbegin(); day != list.crend(); ++day) {
        if (faultOf(pathOf(*day)).isEmpty())
            return *day;
    }
    return {};
}

bool StoreCopies::make(const QSqlDatabase &database, const QString &day, QString *error) const
{
    const QString path = pathOf(day);
    if (QFileInfo::exists(path))
        return true;
    *error = QStringLiteral("The copy %1 cannot be made").arg(path);
    if (!privatefiles::makeDirectory(folder()))
        return false;
    const QString part = path + kPart;
    QFile::remove(part);
    QSqlQuery query(database);
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(part);
    const bool good = privatefiles::makeFile(part) && query.exec() && privatefiles::sync(part)
        && faultOf(part).isEmpty() && moveOver(part, path) && privatefiles::sync(folder());
    if (!good) {
        *error += QStringLiteral(": ") + query.lastError().text().trimmed();
        QFile::remove(part);
        return false;
    }
    error->clear();
    removeOld();
    return true;
}

void StoreCopies::removeOld() const
{
    QStringList list = days();
    while (list.size() > kKept)
        QFile::remove(pathOf(list.takeFirst()));
}

// In this order: a crash between two steps leaves no journal of the old store beside the new one,
// which would be played into it, and at worst no store, which is told like a damaged one.
bool StoreCopies::putBack(const QString &day, QString *keptAs, QString *error) const
{
    const QString path = m_directory + QLatin1Char('/') + QLatin1String(storefile::kName);
    const QString part = path + kPart;
    if (!day.isEmpty()) {
        const QString fault = days().contains(day) ? faultOf(pathOf(day))
                                                   : QStringLiteral("there is none of that day");
        if (!fault.isEmpty() || !copyFile(pathOf(day), part)) {
            *error = QStringLiteral("The copy of %1 cannot be used: %2")
                         .arg(day, fault.isEmpty() ? QStringLiteral("it cannot be copied") : fault);
            return false;
        }
    }
    const QString aside = nameAside();
    keptAs->clear();
    for (const char *each : kParts) {
        const QString suffix = QLatin1String(each);
        if (!QFileInfo::exists(path + suffix))
            continue;
        const QString kept = aside + suffix;
        if (!moveOver(path + suffix, kept)) {
            *error = QStringLiteral("%1 cannot be renamed").arg(path + suffix);
            return false;
        }
        if (keptAs->isEmpty())
            *keptAs = kept;
    }
    QFile::remove(path + QStringLiteral("-shm"));
    privatefiles::sync(m_directory);
    if (day.isEmpty())
        return true;
    if (moveOver(part, path) && privatefiles::sync(m_directory))
        return true;
    *error = QStringLiteral("The copy of %1 cannot be put in its place").arg(day);
    return false;
}

QVector<QString> StoreCopies::valuesOf(const QVector<Row> &rows, const QVector<QString> &bad) const
{
    QVector<QString> values(rows.size());
    const QStringList list = days();
    for (auto day = list.crbegin(); day != list.crend(); ++day) {
        if (!faultOf(pathOf(*day)).isEmpty())
            continue;
        const Reader copy(pathOf(*day));
        for (int i = 0; i < rows.size(); ++i) {
            const QString value = valueOf(copy.database(), rows.at(i));
            if (values.at(i).isEmpty() && value != bad.at(i) && wire::parseObject(value.toUtf8()))
                values[i] = value;
        }
    }
    return values;
}

bool StoreCopies::mend(const QSqlDatabase &database, const QVector<Row> &rows, QString *keptAs,
                       QString *error) const
{
    *keptAs = nameAside();
    QSqlQuery aside(database);
    aside.prepare(QStringLiteral("VACUUM INTO ?"));
    aside.addBindValue(*keptAs);
    if (!privatefiles::makeFile(*keptAs) || !aside.exec() || !privatefiles::sync(*keptAs)
        || !privatefiles::sync(m_directory)) {
        *error = QStringLiteral("What is stored cannot be kept aside");
        return false;
    }
    QVector<QString> bad;
    for (const Row &row : rows)
        bad.append(valueOf(database, row));
    const QVector<QString> values = valuesOf(rows, bad);
    QSqlQuery query(database);
    bool good = query.exec(QStringLiteral("BEGIN IMMEDIATE"));
    for (int i = 0; good && i < rows.size(); ++i) {
        const QSqlQuery change = values.at(i).isEmpty()
            ? queryOf(database, "DELETE FROM parameters", rows.at(i))
            : queryOf(database, "UPDATE parameters SET value = ?", rows.at(i), values.at(i));
        good = !change.lastError().isValid();
    }
    if (good && query.exec(QStringLiteral("COMMIT")))
        return true;
    query.exec(QStringLiteral("ROLLBACK"));
    *error = QStringLiteral("What is stored cannot be changed");
    return false;
}
