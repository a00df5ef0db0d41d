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

    static VeltrixDatabase *getInstance();

    /// Opens or creates `<directory>/pendant.db`; false with `error` filled when it cannot be had.
    /// What was held in memory gives way to what the file holds.
    bool open(const QString &directory, QString *error = nullptr);
    void close();
    bool isOpen() const { return m_open; }

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

    bool load(QString *error);

    bool m_open = false;
    QHash<QString, QVariant> m_values;
    QVector<Account> m_accounts;
};
