#pragma once

#include <QObject>
#include <functional>

class QTimer;

/// Notices that nobody has touched the pendant for a while. Any press, key or touch counts, and so
/// does a key that is still held down.
class IdleLock : public QObject {
    Q_OBJECT
public:
    static constexpr int kUsualMinutes = 10;

    explicit IdleLock(QObject *parent = nullptr);

    /// Minutes without input after which the pendant locks, from the configuration; 0: never.
    static int minutes();
    static void setMinutes(int minutes);

    /// Milliseconds on a clock that never goes back.
    void setClock(std::function<qint64()> clock);
    /// Input happened now.
    void touch();
    /// While something is held down the operator is there, however long nothing else comes.
    void setHeld(bool held);
    /// Emits expired() when the time is over; runs every second by itself. It does nothing while
    /// there is no account or the pendant is locked already.
    void check();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void expired();

private:
    std::function<qint64()> m_clock;
    qint64 m_lastInput;
    bool m_held = false;
    QTimer *m_timer;
};
