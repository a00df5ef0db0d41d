#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

class QSqlDatabase;

/// The copies of the parameter store, one for each day of use: `backup/controller-2026-11-21.db` in
/// the store's directory, the newest few of them. A copy appears whole or not at all.
class StoreCopies {
public:
    /// How many are kept; the oldest goes.
    static constexpr int kKept = 7;

    /// A set of the store, by its columns.
    struct Row {
        int robot;
        QString package;
        int number;
        QString sub;

        bool operator==(const Row &other) const
        {
            return robot == other.robot && package == other.package && number == other.number
                && sub == other.sub;
        }
    };

    explicit StoreCopies(const QString &directory) : m_directory(directory) { }

    /// The days that there is a copy of, "2026-11-21", oldest first.
    QStringList days() const;
    /// The newest day whose copy can be read; empty when there is none.
    QString lastGood() const;
    QString pathOf(const QString &day) const;

    /// Copies an open store that was found sound. True when the day has its copy.
    bool make(const QSqlDatabase &database, const QString &day, QString *error) const;

    /// Puts the copy of a day, or an empty store for no day, in the place of a store that is
    /// closed. What was there is kept under the name in `keptAs`, which is empty when there was
    /// nothing. On failure the store is what it was, or missing with its copies beside it.
    bool putBack(const QString &day, QString *keptAs, QString *error) const;

    /// Puts single sets of an open store right: each gets the newest value that a good copy has of
    /// it, other than the one that it has, and is never set when there is none. All the others
    /// stay. What the store was is kept under the name in `keptAs`.
    bool mend(const QSqlDatabase &database, const QVector<Row> &rows, QString *keptAs,
              QString *error) const;

    /// Why a database file cannot be relied on; empty when it can.
    static QString faultOf(const QString &path);

private:
    QString folder() const;
    QString nameAside() const;
    void removeOld() const;
    QVector<QString> valuesOf(const QVector<Row> &rows, const QVector<QString> &bad) const;

    QString m_directory;
};

namespace storefile {

constexpr const char *kName = "controller.db";

/// Why an open database cannot be relied on; empty when it can.
QString faultOf(const QSqlDatabase &database);

} // namespace storefile
