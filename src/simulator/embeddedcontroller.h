#pragma once

#include "simulator/simulatedcontroller.h"

#include <QThread>

/// A simulated controller on a thread of its own, for a pendant that brings its controller along.
/// Used from the thread that made it.
class EmbeddedController : public QObject {
    Q_OBJECT
public:
    explicit EmbeddedController(QObject *parent = nullptr);
    ~EmbeddedController() override;

    /// The port on 127.0.0.1 where it listens; 0, with `error` filled, when it cannot be started.
    quint16 start(const QString &directory, QString *error = nullptr);
    quint16 start(const SimulatedController::Options &options, QString *error = nullptr);
    void stop();

    /// For what is safe from any thread; null when it is not running.
    SimulatedController *controller() const { return m_controller; }

signals:
    /// As SimulatedController says it, also while it starts.
    void storeTold(const QString &sentence);

private:
    QThread m_thread;
    SimulatedController *m_controller = nullptr;
};
