#pragma once

#include <QObject>
#include <QString>

/// Asks the administrator what is to become of a controller's damaged parameter store: take back
/// its last good copy, or, without one, begin empty what cannot be read.
///
/// Asked once in a connection, and again for an administrator who logs in later; never over another
/// question or the lock screen, but behind them. Simulated controllers alone can be asked for it.
class StoreRepair : public QObject {
    Q_OBJECT
public:
    explicit StoreRepair(QObject *parent = nullptr);

private:
    void take(const QString &copy);
    void forget();
    void askWhenFree();
    void ask();

    QString m_copy; ///< day of the copy; empty: there is none
    bool m_isDamaged = false; ///< as the controller last said
    bool m_isDue = false; ///< the question is still to be asked
};
