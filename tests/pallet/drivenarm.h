#pragma once

// A simulated controller with its arms, connected over the real link, and the arm that a test moves
// by hand.

#include "../support.h"
#include "shell/technologywidget.h"
#include "simulator/embeddedcontroller.h"

#include <QTemporaryDir>
#include <cmath>
#include <functional>

namespace support {

constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong

/// Whether the first `count` texts are numbers that differ by no more than `within`.
inline bool areClose(const QStringList &left, const QStringList &right, int count, double within)
{
    for (int i = 0; i < count; ++i) {
        bool isLeft = false;
        bool isRight = false;
        const double distance =
            std::abs(left.at(i).toDouble(&isLeft) - right.at(i).toDouble(&isRight));
        if (!isLeft || !isRight || !(distance <= within))
            return false;
    }
    return true;
}

class DrivenArm {
public:
    /// Starts the controller and connects; the pages are on screen. False when something of it
    /// cannot be had.
    bool start(TechnologyWidget *pages)
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        pages->resize(714, 504);
        pages->show();
        if (!QTest::qWaitForWindowExposed(pages))
            return false;
        SimulatedController::Options options;
        options.directory = m_directory.path();
        options.switchLasts = kPatience; // however long the machine lets the test wait
        QString error;
        const quint16 port = m_embedded.start(options, &error);
        if (port == 0) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        Robot *robot = Robot::getInstance();
        robot->connectToController(QStringLiteral("127.0.0.1"), port);
        return QTest::qWaitFor([robot] { return robot->isConnected(); }, kPatience);
    }

    SimulatedController *controller() const { return m_embedded.controller(); }

    /// Robot 1 is of that kinematic type, its drives are on and its enabling switch is held.
    bool becomes(int type) const
    {
        Robot *robot = Robot::getInstance();
        controller()->setKinematicType(1, type);
        if (!QTest::qWaitFor([&] { return robot->kinematicType == type; }, kPatience))
            return false;
        robot->requestServo(true);
        robot->setDeadman(true);
        return QTest::qWaitFor(
            [&] { return robot->get_servo_state() == 3 && robot->get_deadman_state() == 1; },
            kPatience);
    }

    /// Holds the jog key of the first axis until one of the first `count` values of `live` has
    /// changed by more than `distance`.
    bool moveAway(const std::function<QStringList()> &live, int count, double distance) const
    {
        Robot *robot = Robot::getInstance();
        const QStringList from = live();
        const bool moved = QTest::qWaitFor(
            [&] {
                robot->jog(1, 1, 0);
                return !areClose(live(), from, count, distance);
            },
            kPatience);
        robot->jog(0, 0, 0); // the key is let go
        return moved;
    }

private:
    QTemporaryDir m_directory;
    EmbeddedController m_embedded;
};

} // namespace support
