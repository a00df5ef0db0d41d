#include "simulator/embeddedcontroller.h"

#include <utility>

EmbeddedController::EmbeddedController(QObject *parent) : QObject(parent) { }

EmbeddedController::~EmbeddedController()
{
    stop();
}

quint16 EmbeddedController::start(const QString &directory, QString *error)
{
    SimulatedController::Options options;
    options.directory = directory;
    return start(options, error);
}

quint16 EmbeddedController::start(const SimulatedController::Options &options, QString *error)
{
    stop();
    m_controller = new SimulatedController;
    connect(m_controller, &SimulatedController::storeTold, this, &EmbeddedController::storeTold);
    m_controller->moveToThread(&m_thread);
    m_thread.start();
    QString reason;
    quint16 port = 0;
    QMetaObject::invokeMethod(
        m_controller,
        [&] {
            if (m_controller->start(options, &reason))
                port = m_controller->port();
        },
        Qt::BlockingQueuedConnection);
    if (port == 0) {
        if (error)
            *error = reason;
        stop();
    }
    return port;
}

void EmbeddedController::stop()
{
    if (!m_controller)
        return;
    // Sockets and store belong to that thread and end on it.
    QMetaObject::invokeMethod(m_controller, &SimulatedController::stop,
                              Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
    delete std::exchange(m_controller, nullptr);
}
