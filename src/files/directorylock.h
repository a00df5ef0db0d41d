#pragma once

#include <QString>

/// The sole use of the files of a data directory, among all programs that ask for it.
///
/// The system itself holds the lock for as long as the program lives, so that a program that was
/// killed leaves none, whatever process has its number afterwards. The lock file says who holds it;
/// it stays behind, empty of meaning, when the lock is given up.
class DirectoryLock {
public:
    enum class State {
        Free, ///< not asked for
        Held, ///< by this object
        InUse, ///< by another program: holder()
        Unavailable ///< no lock file can be had there: reason()
    };
    /// Who has the lock. Empty texts and 0 for what is not known.
    struct Holder {
        QString program;
        qint64 process = 0;
        QString host;
    };

    DirectoryLock() = default;
    ~DirectoryLock();
    DirectoryLock(const DirectoryLock &) = delete;
    DirectoryLock &operator=(const DirectoryLock &) = delete;

    /// Takes `<directory>/<name>.lock`, mode 0600; gives up the one that was held before.
    State take(const QString &directory, const QString &name);
    void release();

    State state() const { return m_state; }
    const Holder &holder() const { return m_holder; }
    /// The path and the words of the system.
    QString reason() const { return m_reason; }

private:
    int m_file = -1;
    State m_state = State::Free;
    Holder m_holder;
    QString m_reason;
};
