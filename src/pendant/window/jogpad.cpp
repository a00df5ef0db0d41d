#include "jogpad.h"

#include "app.h"
#include "holdkey.h"
#include "morerobot.h"
#include "robot.h"

#include <QEvent>
#include <QGridLayout>

namespace {

constexpr int kKeyWidth = 38;
constexpr int kRepeat = 150; // milliseconds; the controller lets go after a few that are missing

/// What the values of a robot's Cartesian position are called, by its axes; as many as it has axes.
QStringList cartesianNames(int axes)
{
    const QString all = axes == 4 ? QStringLiteral("X,Y,Z,U") : QStringLiteral("X,Y,Z,A,B,C,Ψ");
    return all.split(QLatin1Char(',')).mid(0, axes);
}

} // namespace

int JogPad::axesOf(int kinematicType)
{
    constexpr int kAxes[] = {6, 4, 4, 4, 1, 5, 6, 4, 3, 3, 3, 7};
    return kinematicType >= 1 && kinematicType <= 12 ? kAxes[kinematicType - 1] : 6;
}

JogPad::JogPad(QWidget *parent) : QWidget(parent), m_coordinateKey(new QPushButton(parent))
{
    setObjectName(QStringLiteral("jogPad"));
    m_coordinateKey->setObjectName(QStringLiteral("jogCoordinate"));
    m_coordinateKey->setFocusPolicy(Qt::NoFocus);
    m_coordinateKey->setFixedHeight(kKeyHeight);
    m_coordinateKey->setMinimumWidth(kKeyWidth);
    QFont small = m_coordinateKey->font();
    small.setPointSize(10); // a word on a key of half the column's width
    m_coordinateKey->setFont(small);
    m_coordinateKey->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(m_coordinateKey, &QPushButton::clicked, this, [this] {
        release();
        m_coordinate = 1 - m_coordinate;
        refresh();
    });

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kSpacing);
    // as high for one axis as for seven, so that the keys above it stay where they are
    setFixedHeight(kHeight);
    for (int axis = 1; axis <= kMostAxes; ++axis) {
        const Pair pair{makeKey(axis, -1), makeKey(axis, 1)};
        grid->addWidget(pair.backwards, axis - 1, 0);
        grid->addWidget(pair.forwards, axis - 1, 1);
        m_keys.append(pair);
    }
    grid->setRowStretch(kMostAxes, 1);

    m_repeat.setInterval(kRepeat);
    connect(&m_repeat, &QTimer::timeout, this,
            [this] { Robot::getInstance()->jog(m_axis, m_direction, m_coordinate); });
    connect(Robot::getInstance(), &Robot::statusChanged, this, &JogPad::refresh);
    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this, [this] {
        release();
        refresh();
    });
    refresh();
}

HoldKey *JogPad::makeKey(int axis, int direction)
{
    auto *key = new HoldKey(this);
    key->setObjectName(
        QStringLiteral("jog%1%2").arg(axis).arg(QLatin1String(direction > 0 ? "plus" : "minus")));
    key->setFixedHeight(kKeyHeight);
    key->setMinimumWidth(kKeyWidth);
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(key, &HoldKey::heldChanged, this,
            [this, key, axis, direction](bool held) { onHeld(key, axis, direction, held); });
    return key;
}

// One motion at a time: a second key takes over, and letting go of any key stops the robot.
void JogPad::onHeld(HoldKey *key, int axis, int direction, bool held)
{
    if (!held) {
        if (axis != m_axis || direction != m_direction)
            return; // another key has taken over
        m_axis = 0;
        m_repeat.stop();
        Robot::getInstance()->jog(0, 0, 0);
        return;
    }
    for (const Pair &pair : m_keys) {
        for (HoldKey *other : {pair.backwards, pair.forwards}) {
            if (other != key)
                other->setHeld(false);
        }
    }
    m_axis = axis;
    m_direction = direction;
    Robot::getInstance()->jog(m_axis, m_direction, m_coordinate);
    m_repeat.start();
}

void JogPad::release()
{
    for (const Pair &pair : m_keys) {
        pair.backwards->setHeld(false);
        pair.forwards->setHeld(false);
    }
}

void JogPad::refresh()
{
    const int axes = axesOf(Robot::getInstance()->kinematicType);
    if (axes != m_axes)
        release();
    m_axes = axes;
    const QStringList names = cartesianNames(axes);
    m_coordinateKey->setText(m_coordinate == 0 ? tr("关节") : tr("直角"));
    for (int i = 0; i < kMostAxes; ++i) {
        const QString name = m_coordinate == 0 ? QStringLiteral("J%1").arg(i + 1) : names.value(i);
        m_keys[i].backwards->setVisible(i < axes);
        m_keys[i].forwards->setVisible(i < axes);
        m_keys[i].backwards->setText(name + QChar(0x2212));
        m_keys[i].forwards->setText(name + QLatin1Char('+'));
        m_keys[i].backwards->setAccessibleName(tr("点动 %1 负向").arg(name));
        m_keys[i].forwards->setAccessibleName(tr("点动 %1 正向").arg(name));
    }
}

void JogPad::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QWidget::changeEvent(event);
}
