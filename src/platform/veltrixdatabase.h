#pragma once

#include <QHash>
#include <QString>
#include <QVariant>
#include <QVector>

/// The pendant's own configuration and accounts, in one SQLite file. Before it is opened (or when
/// it cannot be) everything works the same but lives in memory only.
class VeltrixDatabase {
public:
    /// One user as stored. The password itself is never kept, only its salted hash.
    struct Account {
        QString name;
        int role = 0; ///< an AUTHORITY
        QByteArray passwordHash; ///< as crypto_pwhash_str() writes it
        int failures = 0; ///< failed log-ins since the last good one
        qint64 lastFailure = 0; ///< milliseconds since 1970 (UTC); 0: none
    };

    /// Why the file cannot be used. All but the last are damage, which stays until something else
    /// is put in its place; Unavailable may be over at the next try.
    enum class Fault {
        None,
        Missing, ///< gone, although there was one before
        NoDatabase, ///< something else is there
        CheckFailed, ///< its own check finds it damaged
        TablesMissing,
        RowsUnreadable, ///< a row holds what nothing can be made of
        Newer, ///< made by a newer version of this program
        Unavailable ///< no room, no right to write, in use
    };

    static VeltrixDatabase *getInstance();

    /// Opens or creates `<directory>/pendant.db`, checks all of it and proves that it can be
    /// written; false with `error` filled when it cannot be had. What was held in memory gives way
    /// to what the file holds.
    bool open(const QString &directory, QString *error = nullptr);
    /// Takes these over and goes on in memory alone: for a run in which nothing can be written.
    void holdInMemory(const QHash<QString, QVariant> &values, const QVector<Account> &accounts);
    void close();
    bool isOpen() const { return m_open; }
    /// What was wrong when open() failed, and the words of the system for it.
    Fault fault() const { return m_fault; }
    QString faultReason() const { return m_faultReason; }

    /// Makes the copy of today unless there is one. From then on it is made anew with each change
    /// of the accounts and when the file is closed. To be called again from time to time, as days
    /// go by.
    void keepDailyCopy();

    /// Whether the first password must be set also where a pendant without accounts is open to
    /// everybody: there were accounts, and they are lost.
    bool passwordRequired() const { return value(passwordRequiredKey()).toBool(); }
    static QString passwordRequiredKey() { return QStringLiteral("passwordRequired"); }

    /// Stores what App keeps between runs: xmlName, isDeg.
    void updateAppConfigData();
    /// Reads it back into App.
    void loadAppConfigData();

    /// SQLite keeps a truth value as 0 or 1; convert with toBool() and its like.
    QVariant value(const QString &key, const QVariant &fallback = {}) const;
    void setValue(const QString &key, const QVariant &value);

    /// In the order in which the accounts were made.
    const QVector<Account> &accounts() const { return m_accounts; }
    /// Adds the account or replaces the one of the same name. False when the file refuses it; then
    /// nothing has changed.
    bool saveAccount(const Account &account);
    bool removeAccount(const QString &name);

private:
    VeltrixDatabase() = default;

    bool fail(Fault fault, const QString &reason);
    bool openFile(const QString &path);
    void renewCopy();

    bool m_open = false;
    bool m_keepsCopies = false;
    Fault m_fault = Fault::None;
    QString m_faultReason;
    QString m_directory;
    QHash<QString, QVariant> m_values;
    QVector<Account> m_accounts;
};
