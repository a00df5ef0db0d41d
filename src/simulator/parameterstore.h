#pragma once

#include "simulator/storecopies.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QVector>
#include <json/json.h>
#include <optional>

class QSqlDatabase;

/// The controller's memory: parameter sets as JSON, one row each, in `<directory>/controller.db`.
///
/// What was stored is there after a power cut: it is on the disk before commit() of its transaction
/// returns, or store() without one. What cannot be read is never written over: it is told, and the
/// copy of a day of use can be put back (StoreCopies). Used on the thread that opened it.
class ParameterStore {
public:
    /// What a parameter set belongs to.
    struct Key {
        int robot = 0; ///< 1 to 4; 0 for what belongs to no robot
        const char *package = ""; ///< "polish"
        int number = 0; ///< process number, from 1
        QString sub; ///< further part of a package, where it has several
    };
    enum class State {
        Closed,
        Good,
        RowsDamaged, ///< some sets cannot be read; the others can be used
        ReadOnly, ///< what is stored can be read, and nothing be written
        Damaged, ///< the file is no sound database; nothing of it is used
        Unavailable ///< the file or its directory cannot be had
    };

    /// What a message stores, as one: either all of it or nothing. It begins with the first set
    /// that is stored. Not nested.
    class Transaction {
    public:
        explicit Transaction(ParameterStore &store);
        /// Takes back what was stored since, unless it was committed.
        ~Transaction();
        Transaction(const Transaction &) = delete;
        Transaction &operator=(const Transaction &) = delete;

        /// False when any of it could not be written; nothing of it is then.
        bool commit();
        /// Something that is stored could not be read meanwhile.
        bool hasMetDamage() const;
        /// Something could not be written meanwhile.
        bool hasFailed() const;

    private:
        void end();
        ParameterStore &m_store;
    };

    ParameterStore();
    ~ParameterStore();
    ParameterStore(const ParameterStore &) = delete;
    ParameterStore &operator=(const ParameterStore &) = delete;

    /// Opens or creates the store, looks through all that it holds, and makes the copy of the day.
    /// False when nothing of it can be used; state() and fault() say what is wrong in any case.
    bool open(const QString &directory);
    void close();

    State state() const { return m_state; }
    /// What is wrong with the store, in one sentence; empty when nothing is.
    QString fault() const { return m_fault; }
    /// Something that was stored cannot be read: State RowsDamaged or Damaged.
    bool isDamaged() const { return m_state == State::RowsDamaged || m_state == State::Damaged; }
    /// The day whose copy can be put back, "2026-11-21"; empty when there is none.
    QString lastGoodCopy() const;

    /// Puts a damaged store right: single sets that cannot be read get their values of the newest
    /// copy that has them, all the others stay; a file that is no sound database gives way to the
    /// newest good copy. What no copy has begins as if it was never set. False with `sentence`
    /// saying why; else it says what was done, and under which name the store that was is kept.
    bool mend(QString *sentence);
    /// Puts the copy of a day in the place of a store that is not open: of the newest good one for
    /// "last"; an empty store for no day. `sentence` as above.
    static bool restore(const QString &directory, const QString &day, QString *sentence);

    /// A day after the one of the last copy has a copy of its own. Looks at the clock only, unless
    /// one is due. Not while a transaction is open.
    void copyOncePerDay();

    /// The stored set; nothing when there never was one, or when it cannot be read, which counts as
    /// damage met.
    std::optional<Json::Value> load(const Key &key) const;
    /// False when it could not be written; the set that was there stays.
    bool store(const Key &key, const Json::Value &value);
    /// A set was read and makes no sense: damage met.
    void markUnreadable(const Key &key) const;
    /// The bytes that each set of that kind takes, by its `sub`; nothing when they cannot be read,
    /// which counts as damage met.
    std::optional<QHash<QString, qint64>> sizes(int robot, const char *package) const;
    /// The bytes that a set takes.
    static qint64 sizeOf(const Json::Value &value);

    /// What day it is; the system's date without one. For tests.
    void setToday(const QDate &day) { m_today = day; }

private:
    bool openDatabase();
    bool connectTo(const QString &options, const QString &name);
    bool setUp();
    void lookThrough();
    void sayUnreadable() const;
    bool fail(State state, const QString &reason);
    void noteError(const QString &nativeCode) const;
    bool begin();
    QSqlDatabase database() const;
    QDate today() const { return m_today.isValid() ? m_today : QDate::currentDate(); }
    QString path() const;

    QString m_connection; ///< name of the database connection, of this instance alone
    QString m_directory;
    mutable State m_state = State::Closed;
    mutable QString m_fault;
    QDate m_today;
    QDate m_copied; ///< the day of the last copy, or attempt
    mutable QVector<StoreCopies::Row> m_unreadable; ///< the sets that cannot be read
    mutable std::optional<QString> m_lastGoodCopy; ///< once it was looked for

    bool m_isScoped = false; ///< a Transaction is alive
    bool m_hasBegun = false; ///< ... and has stored something
    mutable bool m_hasMetDamage = false;
    bool m_hasFailed = false;
};
