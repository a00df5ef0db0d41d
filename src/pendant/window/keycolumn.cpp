#include "keycolumn.h"

#include "app.h"
#include "inputgate.h"
#include "jogpad.h"
#include "linklamp.h"
#include "morerobot.h"
#include "robot.h"
#include "useraccounts.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

namespace {

constexpr int kServoOn = 3;
constexpr int kKeyHeight = 40;
constexpr int kDeadmanKeyCode = Qt::Key_F12;

QPushButton *makeKey(const QString &name, int height, QWidget *parent)
{
    auto *key = new QPushButton(parent);
    key->setObjectName(name);
    key->setFocusPolicy(Qt::NoFocus);
    key->setFixedHeight(height);
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    key->setMinimumWidth(kKeyHeight);
    return key;
}

QLabel *makeCaption(QWidget *parent)
{
    auto *caption = new QLabel(parent);
    caption->setAlignment(Qt::AlignCenter);
    QFont small = caption->font();
    small.setPointSize(10);
    caption->setFont(small);
    return caption;
}

QString modeName(int mode)
{
    switch (mode) {
    case 0:
        return KeyColumn::tr("示教");
    case 1:
        return KeyColumn::tr("自动");
    default:
        return KeyColumn::tr("远程");
    }
}

QString familyName(int kinematicType)
{
    switch (JogPad::axesOf(kinematicType)) {
    case 1:
        return KeyColumn::tr("一轴");
    case 3:
        return KeyColumn::tr("三轴");
    case 4:
        return KeyColumn::tr("四轴");
    case 5:
        return KeyColumn::tr("五轴");
    case 7:
        return KeyColumn::tr("七轴");
    default:
        return KeyColumn::tr("六轴");
    }
}

} // namespace

DeadmanKey::DeadmanKey(QWidget *parent) : HoldKey(parent)
{
    connect(this, &HoldKey::heldChanged, this,
            [](bool held) { Robot::getInstance()->setDeadman(held); });
}

DeadmanKey::~DeadmanKey()
{
    if (isHeld())
        Robot::getInstance()->setDeadman(false);
}

KeyColumn::KeyColumn(QWidget *parent)
    : QWidget(parent), m_lamp(new LinkLamp(this)), m_simulated(new SimulatedMark(this)),
      m_servo(makeKey(QStringLiteral("servoKey"), 52, this)), m_deadman(new DeadmanKey(this)),
      m_jogToggle(makeKey(QStringLiteral("jogToggle"), 40, this)), m_jogPad(new JogPad(this)),
      m_modeCaption(makeCaption(this)), m_robotCaption(makeCaption(this))
{
    setObjectName(QStringLiteral("keyColumn"));
    setFixedWidth(kWidth);
    m_lamp->setObjectName(QStringLiteral("linkLamp"));
    m_lamp->setFixedHeight(46);
    m_simulated->setFixedHeight(44);
    m_servo->setCheckable(true);
    m_deadman->setObjectName(QStringLiteral("deadmanKey"));
    m_deadman->setFixedHeight(84);
    m_deadman->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addWidget(m_lamp);
    column->addWidget(m_simulated);
    column->addStretch(1);
    column->addWidget(m_servo);
    column->addWidget(m_deadman);
    column->addStretch(1);
    auto *jogRow = new QHBoxLayout;
    jogRow->setSpacing(2);
    jogRow->addWidget(m_jogToggle);
    jogRow->addWidget(m_jogPad->coordinateKey());
    column->addLayout(jogRow);
    m_selectors = makeSelectors();
    column->addWidget(m_selectors);
    column->addWidget(m_jogPad);
    m_jogToggle->setCheckable(true);
    connect(m_jogToggle, &QPushButton::toggled, this, &KeyColumn::showJogPad);
    showJogPad(false);

    connect(m_servo, &QPushButton::clicked, this, [this] {
        if (App::canDoOperate())
            Robot::getInstance()->requestServo(Robot::getInstance()->get_servo_state() != kServoOn);
        refresh();
    });
    connect(m_deadman, &DeadmanKey::heldChanged, this, &KeyColumn::deadmanHeld);
    connect(m_simulated, &SimulatedMark::clicked, this, &KeyColumn::offerTypes);
    connect(Robot::getInstance(), &Robot::statusChanged, this, &KeyColumn::refresh);
    connect(Robot::getInstance(), &Robot::linkChanged, this, &KeyColumn::refresh);
    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this, &KeyColumn::refresh);
    connect(UserAccounts::getInstance(), &UserAccounts::lockedChanged, this, [this](bool locked) {
        if (locked) {
            releaseDeadman();
            m_jogPad->release();
        }
    });
    QCoreApplication::instance()->installEventFilter(this);
    refresh();
}

QWidget *KeyColumn::makeSelectors()
{
    auto *selectors = new QWidget(this);
    selectors->setFixedHeight(JogPad::kHeight);
    auto *column = new QVBoxLayout(selectors);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto *modes = new QVBoxLayout;
    modes->setSpacing(0);
    for (int mode = 0; mode < 3; ++mode) {
        m_modes[mode] = makeKey(QStringLiteral("modeKey%1").arg(mode), 42, this);
        m_modes[mode]->setCheckable(true);
        modes->addWidget(m_modes[mode]);
        connect(m_modes[mode], &QPushButton::clicked, this, [this, mode] {
            if (App::canDoOperate())
                Robot::getInstance()->setTeachMode(mode);
            refresh();
        });
    }
    column->addStretch(1);
    column->addWidget(m_modeCaption);
    column->addLayout(modes);
    column->addStretch(1);
    auto *robots = new QGridLayout;
    robots->setSpacing(2);
    for (int i = 0; i < MoreRobot::kRobots; ++i) {
        m_robots[i] = makeKey(QStringLiteral("robotKey%1").arg(i + 1), 44, this);
        m_robots[i]->setMinimumWidth(38);
        m_robots[i]->setCheckable(true);
        robots->addWidget(m_robots[i], i / 2, i % 2);
        connect(m_robots[i], &QPushButton::clicked, this, [this, i] { selectRobot(i + 1); });
    }
    column->addWidget(m_robotCaption);
    column->addLayout(robots);
    return selectors;
}

void KeyColumn::showJogPad(bool shown)
{
    m_jogPad->release();
    m_selectors->setVisible(!shown);
    m_jogPad->setVisible(shown);
    m_jogPad->coordinateKey()->setVisible(shown);
}

/// The simulated robot can be any; the list shows the current one marked.
void KeyColumn::offerTypes()
{
    const Robot *robot = Robot::getInstance();
    if (!robot->isConnected() || !robot->isSimulated() || !App::canDoOperate())
        return;
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("kinematicMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int type = 1; type <= 12; ++type) {
        QAction *action = menu->addAction(tr("%1  %2").arg(type).arg(familyName(type)));
        action->setCheckable(true);
        action->setChecked(type == robot->kinematicType);
        connect(action, &QAction::triggered, this, [this, type] { setType(type); });
    }
    menu->popup(mapToGlobal(QPoint(-menu->sizeHint().width(), m_simulated->y())));
}

void KeyColumn::setType(int type)
{
    if (type == Robot::getInstance()->kinematicType || !App::canDoOperate())
        return;
    releaseDeadman();
    m_jogPad->release();
    // What a page shows belongs to one kind of robot, as it belongs to one robot.
    emit aboutToChangeRobot(MoreRobot::getCurrentRobot());
    Robot::getInstance()->setKinematicType(type);
}

void KeyColumn::setEmbeddedController(bool embedded)
{
    m_simulated->setEmbedded(embedded);
}

void KeyColumn::selectRobot(int robot)
{
    if (robot != MoreRobot::getCurrentRobot() && App::canDoOperate()) {
        releaseDeadman();
        m_jogPad->release();
        emit aboutToChangeRobot(robot);
        MoreRobot::setCurrentRobot(robot);
    }
    refresh();
}

void KeyColumn::refresh()
{
    const Robot *robot = Robot::getInstance();
    const bool known = robot->isConnected();
    const bool servo = known && robot->get_servo_state() == kServoOn;
    m_servo->setChecked(servo);
    m_servo->setText(tr("伺服\n%1").arg(!known ? tr("未知") : servo ? tr("开") : tr("关")));
    const bool enabled = known && robot->get_deadman_state() == 1;
    m_deadman->setText(tr("使能\n（按住）\n%1")
                           .arg(!known        ? tr("未知")
                                    : enabled ? tr("有效")
                                              : tr("无效")));
    m_jogToggle->setText(tr("点动"));
    m_modeCaption->setText(tr("模式"));
    m_robotCaption->setText(tr("机器人"));
    for (int mode = 0; mode < 3; ++mode) {
        m_modes[mode]->setText(modeName(mode));
        m_modes[mode]->setChecked(known && robot->get_teach_mode() == mode);
    }
    for (int i = 0; i < MoreRobot::kRobots; ++i) {
        m_robots[i]->setText(QString::number(i + 1));
        m_robots[i]->setAccessibleName(tr("机器人 %1").arg(i + 1));
        m_robots[i]->setChecked(MoreRobot::getCurrentRobot() == i + 1);
    }
}

bool KeyColumn::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == kDeadmanKeyCode) {
            if (!key->isAutoRepeat())
                m_deadman->setHeld(type == QEvent::KeyPress && isVisible()
                                   && window()->isActiveWindow()
                                   && InputGate::getInstance()->allows(m_deadman));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void KeyColumn::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QWidget::changeEvent(event);
}
