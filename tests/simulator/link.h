#pragma once

#include "eventlog.h"
#include "robot.h"
#include "simulator/simulatedcontroller.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

/// The enabling switch of a test that is not about its lapse: however long the machine lets the
/// test wait, it stays held. In milliseconds.
constexpr int kHeldAllDay = 24 * 3600 * 1000;

/// A simulated controller on this thread, with a store of its own.
struct Desk {
    /// `motionInterval` is that of its arms in milliseconds; with 0 they wait for stepArms().
    explicit Desk(quint16 port = 0, int motionInterval = 20, int statusInterval = 20)
        : m_motionInterval(motionInterval), m_statusInterval(statusInterval)
    {
        start(port);
    }

    bool start(quint16 port)
    {
        controller = std::make_unique<SimulatedController>();
        SimulatedController::Options options;
        options.directory = directory.path();
        options.port = port;
        options.statusInterval = m_statusInterval;
        options.motionInterval = m_motionInterval;
        options.switchLasts = kHeldAllDay;
        QString error;
        const bool good = controller->start(options, &error);
        if (!good)
            qWarning("%s", qPrintable(error));
        m_port = controller->port();
        return good;
    }

    /// Ends and comes back on the same port.
    bool restart()
    {
        controller.reset();
        return start(m_port);
    }

    QTemporaryDir directory;
    std::unique_ptr<SimulatedController> controller;

private:
    int m_motionInterval;
    int m_statusInterval;
    quint16 m_port = 0;
};

/// Quick attempts, so that a test of a hundred reconnections is a matter of seconds.
inline Robot::LinkTimes quickTimes()
{
    Robot::LinkTimes times;
    times.pauses = {1, 2, 5};
    return times;
}

/// Connects Robot to the desk and waits for its first status.
inline bool connectTo(const Desk &desk)
{
    Robot *robot = Robot::getInstance();
    robot->setLinkTimes(quickTimes());
    robot->connectToController(QStringLiteral("127.0.0.1"), desk.controller->port());
    return QTest::qWaitFor(
        [robot] { return robot->isConnected() && robot->get_servo_state() != 0; });
}

/// The entries of the journal that tell of the link: "lost", "back", "refused", ...
inline int linkEntries(const QSignalSpy &recorded, const char *what)
{
    int count = 0;
    for (const QVariantList &entry : recorded) {
        if (entry.at(0).toString() == QLatin1String("link")
            && entry.at(1).toList().at(0).toString() == QLatin1String(what))
            ++count;
    }
    return count;
}

inline int kindEntries(const QSignalSpy &recorded, const char *kind)
{
    int count = 0;
    for (const QVariantList &entry : recorded)
        count += entry.at(0).toString() == QLatin1String(kind) ? 1 : 0;
    return count;
}
