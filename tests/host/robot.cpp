// The smallest host: its end of the link. Whoever listens to Robot::commandSent is the controller,
// and answers by emitting the signal of the reply.

#include "robot.h"

#include "eventlog.h"
#include "morerobot.h"
#include "setingwidget.h"

#include <QComboBox>
#include <QSignalBlocker>

struct Robot::Private { };

Robot::Robot(QObject *parent) : QObject(parent) { }

Robot::~Robot() = default;

Robot *Robot::getInstance()
{
    static Robot *const instance = new Robot;
    return instance;
}

void Robot::sendCommandData(const unsigned short &id, const QByteArray &body)
{
    const unsigned short number = id;
    EventLog::getInstance()->record(QStringLiteral("message"), {int(number), body});
    emit commandSent(number, body);
}

/// No bytes arrive here.
void Robot::receiveMessage(unsigned short, const QByteArray &) { }

Robot::Link Robot::link() const
{
    return Link::Connected;
}

// This host powers no drives, so nothing moves.

int Robot::get_servo_state() const
{
    return 0;
}

int Robot::get_deadman_state() const
{
    return 0;
}

int Robot::get_teach_mode() const
{
    return 0;
}

void Robot::robot_key_slot_saftySwitchProcess(int value)
{
    EventLog::getInstance()->record(QStringLiteral("safetySwitch"), {value});
}

int MoreRobot::g_CurRobot = 1;
int MoreRobot::g_RobotAll_ONE = 1;

MoreRobot *MoreRobot::getInstance()
{
    static MoreRobot *const instance = new MoreRobot;
    return instance;
}

int MoreRobot::getCurrentRobot()
{
    return g_CurRobot;
}

namespace {

/// One port of each kind.
void refill(const QVector<QComboBox *> &boxes, const QString &none, const QString &port)
{
    for (QComboBox *box : boxes) {
        const QSignalBlocker quiet(box);
        const int row = box->currentIndex();
        box->clear();
        box->addItems({none, port});
        box->setCurrentIndex(row == 1 ? 1 : 0);
    }
}

} // namespace

SetingWidget::SetingWidget(QObject *parent) : QObject(parent) { }

SetingWidget *SetingWidget::getInstance()
{
    static SetingWidget *const instance = new SetingWidget;
    return instance;
}

void SetingWidget::initIoDoutPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, QStringLiteral("DOUT1"));
}

void SetingWidget::initIoDinPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, QStringLiteral("DIN1"));
}

void SetingWidget::initIoAOPortList(const QVector<QComboBox *> &boxes, const QString &none)
{
    refill(boxes, none, QStringLiteral("AO1"));
}
