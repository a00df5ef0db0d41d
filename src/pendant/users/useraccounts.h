#pragma once

#include "app.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <functional>

/// Who may use the pendant, and who does: the accounts, logging in and the lock.
///
/// There is no built-in password. Without any account the pendant is either open to an
/// administrator without a password (embedded controller) or locked until the administrator's
/// password is set (real controller; any controller where there were accounts that are lost). While
/// locked, App::locked_ is set and App::sysUser is AUTHORITY_NONE.
class UserAccounts : public QObject {
    Q_OBJECT
public:
    enum class LogIn { Good, WrongPassword, Wait, UnknownUser };
    Q_ENUM(LogIn)

    static constexpr int kMinimumPassword = 8; ///< characters; shorter ones of old still log in
    static constexpr int kMaximumPassword = 128; ///< characters
    static constexpr int kMaximumName = 32; ///< characters
    static constexpr int kLongestPause = 300; ///< seconds between two failed log-ins, at most

    static UserAccounts *getInstance();

    /// The account that the first password is set for.
    static QString firstAdministrator() { return QStringLiteral("admin"); }

    /// Takes up the accounts of the configuration store; call it once the store is open. A pause
    /// that was running when the program ended begins anew.
    void start(bool embeddedController);

    QStringList names() const;
    bool hasAccounts() const;
    AUTHORITY role(const QString &name) const;
    /// Empty while locked, and for the administrator without a password.
    QString currentUser() const { return m_current; }
    /// What the status bar says: name and role, or why there is no name.
    QString currentUserText() const;
    bool isLocked() const { return App::locked_; }
    /// Locked until setFirstPassword() because no account exists.
    bool needsFirstPassword() const { return App::locked_ && !hasAccounts(); }

    /// Makes the administrator's account and logs in.
    bool setFirstPassword(const QString &password, QString *error);
    /// A failed log-in is counted and followed by a pause of 1, 2, 4, ... seconds for this user, in
    /// which even the right password is not looked at. Count and pause hold whether or not the
    /// count can be stored.
    LogIn logIn(const QString &name, const QString &password);
    /// Seconds until this user may try again, rounded up; 0: now.
    int waitSeconds(const QString &name) const;
    /// What to tell the operator while the last count of failures could not be stored; else empty.
    QString countWarning() const;
    /// Leaves the current user and shows the lock screen; false when there is no account to come
    /// back with.
    bool lock();

    /// The current user's own password. A wrong old one is refused and counted like a failed
    /// log-in, and nothing is looked at during the pause that follows.
    bool changeOwnPassword(const QString &oldPassword, const QString &password, QString *error);

    // For the administrator. Each refuses with `error` filled.
    bool add(const QString &name, AUTHORITY role, const QString &password, QString *error);
    /// Of another user than the current one.
    bool changePassword(const QString &name, const QString &password, QString *error);
    bool changeRole(const QString &name, AUTHORITY role, QString *error);
    bool remove(const QString &name, QString *error);

    /// Milliseconds on a clock that never goes back; the pauses are counted with it. Without one it
    /// is the machine's, which knows nothing of the date.
    void setClock(std::function<qint64()> clock);
    /// Work of one password hash: passes and bytes of memory. The default is libsodium's for
    /// logging in interactively (2 passes, 64 MiB).
    void setHashCost(unsigned long long passes, std::size_t bytes);

signals:
    void lockedChanged(bool locked);
    void userChanged();
    void accountsChanged();

private:
    explicit UserAccounts(QObject *parent = nullptr);

    /// Failed tries of one user, one after the other.
    struct Failures {
        int count = 0;
        qint64 last = 0; ///< on m_clock
    };

    /// Whether it is the user's password. The answer is counted.
    bool takes(const QString &name, const QString &password);
    void storeCount(const QString &name, int count);
    bool storePassword(const QString &name, const QString &password, QString *error);
    void enter(const QString &name, AUTHORITY role);
    bool mayManage(QString *error) const;
    int administrators() const;
    QByteArray hashed(const QString &password) const;

    QString m_current;
    QHash<QString, Failures> m_failures; ///< by name; users without a failure are not in it
    bool m_countStored = true;
    std::function<qint64()> m_clock;
    unsigned long long m_passes;
    std::size_t m_bytes;
};
