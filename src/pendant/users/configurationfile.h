#pragma once

#include "veltrixdatabase.h"

#include <QDate>

class QSqlDatabase;

/// The file of configuration and accounts, `<directory>/pendant.db`: whether it is whole, its
/// copies in `<directory>/backup`, one for each day of use, and what takes the place of a damaged
/// one.
namespace configurationfile {

using Fault = VeltrixDatabase::Fault;

struct Content {
    QHash<QString, QVariant> values;
    QVector<VeltrixDatabase::Account> accounts; ///< in the order in which they were made
};

/// The content is empty unless the fault is None.
struct Reading {
    Fault fault = Fault::None;
    QString reason; ///< in the words of the system; empty where there are none
    Content content;
};

struct Copy {
    QDate date;
    QString path;
    Content content;
};

constexpr int kVersion = 1; ///< of the tables, as `PRAGMA user_version`
constexpr int kCopies = 7; ///< days of which a copy is kept; the oldest goes

QString pathIn(const QString &directory);

/// Whether there is something of that name at all; nothing with a fault when there was once.
enum class Presence { There, New, Lost, NoFile };
Presence presence(const QString &directory);

/// Makes the file with empty tables: whole, or not at all. False with `reason` filled.
bool create(const QString &directory, QString *reason);

/// Checks and reads everything through an open connection.
Reading read(const QSqlDatabase &database);
/// The same of a file that is not open, writing nothing beside it, also where nothing can be
/// written. Changes that a killed program left beside the file count.
Reading readOnly(const QString &path);

/// "zh" or "en", the language of the last run; empty when neither file nor copies tell.
QString storedLanguage(const QString &directory);

/// Makes the copy of that day, or makes it anew, from an open, good database. Empty when it stands;
/// else why not, and a copy that was there stays.
QString keepCopy(const QSqlDatabase &database, const QString &directory, const QDate &day);
bool hasCopy(const QString &directory, const QDate &day);
/// Those that are good, newest first.
QVector<Copy> copies(const QString &directory);

/// Puts a copy, or empty tables when `copy` is empty, in the place of the file. The old file is
/// kept beside it as `pendant-damaged-<date>-<time>.db`, which `keptAs` tells; empty when there was
/// none. Without accounts the first password is required from then on, see
/// VeltrixDatabase::requirePassword(). False with `reason` filled when it cannot be done.
bool replace(const QString &directory, const QString &copy, QString *keptAs, QString *reason);

} // namespace configurationfile
