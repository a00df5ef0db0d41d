// Where the robot is, and sending it somewhere: the slots that all pages with taught points share.

#include "link/request.h"
#include "pallet/pallet_p.h"
#include "robot.h"
#include "shell/livearm.h"

#include <QTimer>

void TechnologyWidget::Pallet::initMotion()
{
    arm.addPoll(widget.palletPositionTimer, axes::Cartesian, {page::PalletPosition});
    arm.addPoll(widget.wizardPositionTimer, axes::Joint, {page::Wizard2});
    arm.addPoll(widget.palletEasyPositionTimer, axes::Cartesian, {page::PalletEasyPosition});
    arm.addHook([this](int kind, const PositionTexts &position) {
        if (kind == axes::Joint)
            curJointPos = position;
        if (kind == axes::Cartesian)
            curCartPos = curCartPosCopy = position;
    });

    connect(robot, &Robot::receive_moreRobot_CurPosition, &widget,
            &TechnologyWidget::recvCurposition);
    connect(widget.palletPositionTimer, &QTimer::timeout, &widget,
            &TechnologyWidget::getCurposition);
    connect(widget.wizardPositionTimer, &QTimer::timeout, &widget,
            &TechnologyWidget::getCurposition2);
    connect(widget.palletEasyPositionTimer, &QTimer::timeout, &widget,
            &TechnologyWidget::getCurposition3);
}

void TechnologyWidget::getCurposition()
{
    liveArm->poll(palletPositionTimer);
}

void TechnologyWidget::getCurposition2()
{
    liveArm->poll(wizardPositionTimer);
}

void TechnologyWidget::getCurposition3()
{
    liveArm->poll(palletEasyPositionTimer);
}

/// The robot's position arrived.
void TechnologyWidget::recvCurposition(const QByteArray radians, const QByteArray degrees)
{
    liveArm->take(radians, degrees);
}

/// Sends the robot to a point in Cartesian coordinates, on the point page in those of the panel:
/// x, y, z, a, b, c, d in mm and radians.
void TechnologyWidget::runToPoint(QStringList values)
{
    liveArm->runToPosition(values);
}

/// Sends the robot to a point given by its seven joints.
void TechnologyWidget::runToJointPoint(QStringList values)
{
    liveArm->runToJoints(values);
}
