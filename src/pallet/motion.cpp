// Where the robot is, and sending it somewhere: what all pages with taught points share.

#include "app.h"
#include "helpers.h"
#include "link/request.h"
#include "morerobot.h"
#include "movecommand.h"
#include "printlog.h"
#include "robot.h"
#include "robotpos.h"
#include "shell/coordinates.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"
#include "snackbarmessage.h"

#include <QTimer>
#include <algorithm>

namespace {

constexpr int kPowered = 3; ///< servo state
constexpr int kHeld = 1; ///< state of the enabling switch
constexpr int kPartsOfPosition = 9; ///< unused, kind, seven values
constexpr int kAngles = 3; ///< index of the first angle of a position, of three

QStringList zeros(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list += QStringLiteral("0");
    return list;
}

/// The two values that open a point of the coordinate kind whose first axis has this name; nothing
/// for another name.
QStringList headOf(const QString &firstAxis)
{
    for (const axes::PointHead &head : axes::kPointHeads) {
        if (firstAxis == QLatin1String(head.firstAxis))
            return {QString::number(head.coordinate), QString::number(head.flag)};
    }
    return {};
}

/// Sends the robot to the point that fourteen texts make; another count is no point.
void sendMove(const QStringList &texts)
{
    const std::optional<RobotPos> position = RobotPos::fromTexts(texts);
    if (!position)
        return;
    MoveCommand move(Command::MovJ);
    move.position = &*position;
    Json::Value body = move.toJson();
    body["robot"] = MoreRobot::getCurrentRobot();
    request::send(message::RunToPoint, body);
}

} // namespace

void TechnologyWidget::initMotion()
{
    connect(robot, &Robot::receive_moreRobot_CurPosition, this, &TechnologyWidget::recvCurposition);
    connect(palletPositionTimer, &QTimer::timeout, this, &TechnologyWidget::getCurposition);
    connect(wizardPositionTimer, &QTimer::timeout, this, &TechnologyWidget::getCurposition2);
    connect(palletEasyPositionTimer, &QTimer::timeout, this, &TechnologyWidget::getCurposition3);
}

/// Asks where the robot is. The timer ends here, with its first tick on another page.
void TechnologyWidget::pollPosition(QTimer *timer, axes::Coordinate coordinate,
                                    std::initializer_list<page::Index> pages)
{
    Json::Value body = request::forRobot();
    body["coord"] = static_cast<int>(coordinate);
    request::send(message::GetCurrentPosition, body);

    const bool isPage = std::find(pages.begin(), pages.end(), currentIndex()) != pages.end();
    if (isPage && isVisible())
        return;
    timer->stop();
    if (isPage)
        hiddenPolls.insert(timer, currentIndex());
}

/// The pages are in view again, behind another area of the main window: a page that polled before
/// does so again, so that nobody marks where the robot was.
void TechnologyWidget::showEvent(QShowEvent *event)
{
    QStackedWidget::showEvent(event);
    for (auto poll = hiddenPolls.cbegin(); poll != hiddenPolls.cend(); ++poll) {
        if (poll.value() == currentIndex())
            poll.key()->start();
    }
    hiddenPolls.clear();
}

void TechnologyWidget::getCurposition()
{
    pollPosition(palletPositionTimer, axes::Cartesian, {page::PalletPosition, page::SprayTrack});
}

void TechnologyWidget::getCurposition2()
{
    pollPosition(wizardPositionTimer, axes::Joint, {page::Wizard2});
}

void TechnologyWidget::getCurposition3()
{
    pollPosition(palletEasyPositionTimer, axes::Cartesian, {page::PalletEasyPosition});
}

/// The robot's position arrived, once with radians and once with degrees: nine numbers separated by
/// blanks, the second of which is the kind of coordinate. Another number of parts is no position.
void TechnologyWidget::recvCurposition(const QByteArray radians, const QByteArray degrees)
{
    const QByteArray &text = App::isDeg ? degrees : radians;
    if (text.count(' ') != kPartsOfPosition - 1) // before a long text is split into its parts
        return;
    // given its size, because Qt 5 would else end the text at a zero byte
    const QStringList parts =
        QString::fromUtf8(text.constData(), static_cast<int>(text.size())).split(QLatin1Char(' '));
    if (parts.size() != kPartsOfPosition)
        return;
    bool isKind = false;
    const int kind = parts.at(1).toInt(&isKind);
    if (!isKind)
        return;
    PositionTexts position;
    std::copy(parts.begin() + 2, parts.end(), position.begin());

    if (kind == axes::Joint) {
        curJointPos = position;
        takeLiveJoints(position);
    }
    if (kind == axes::Cartesian)
        curCartPos = curCartPosCopy = position;
    if (kind == axes::Cartesian && currentIndex() == page::PalletPosition)
        showPosition(curCartPos, livePositionLabels);
    if (currentIndex() == page::ProjectPoints)
        showPointPanel(kind, position);
}

/// The live half of the point page's panel.
void TechnologyWidget::showPointPanel(int kind, const PositionTexts &position)
{
    if (kind < axes::Joint || kind > axes::User)
        return;
    bwbLivePosition = position;
    setLabelcoord(static_cast<unsigned char>(kind));
    QLabel *const labels[] = {ui->label_CPos1, ui->label_CPos2, ui->label_CPos3, ui->label_CPos4,
                              ui->label_CPos5, ui->label_CPos6, ui->label_CPos7};
    for (std::size_t i = 0; i < position.size(); ++i)
        labels[i]->setText(QString::number(axes::numberOf(position[i]), 'f', 3));
}

/// Puts the values that the robot has on the labels of a point, with three decimals. A robot whose
/// positions are not shown leaves them as they are.
void TechnologyWidget::showPosition(const PositionTexts &position, const QVector<QLabel *> &labels)
{
    const axes::Model model = axes::modelOf(robot->kinematicType);
    for (int place = 0; place < model.shown; ++place) {
        const QString &value = position[static_cast<std::size_t>(model.valueAt(place))];
        labels.at(place)->setText(QString::number(axes::numberOf(value), 'f', 3));
    }
}

/// Whether the drives are powered and the enabling switch is held; if not, it says so.
bool TechnologyWidget::mayMove() const
{
    if (robot->get_servo_state() == kPowered && robot->get_deadman_state() == kHeld)
        return true;
    SnackbarMessage::showMessage(tr("请上电！"), 5000, 1, true);
    return false;
}

/// Sends the robot to a taught point. Values that nobody has told go as 0; whether the robot can be
/// there is for the controller to say.
void TechnologyWidget::moveToPoint(const PositionTexts &point)
{
    if (!mayMove())
        return;
    QStringList values(point.begin(), point.end());
    for (int i = kAngles; App::isDeg && i < kAngles + 3; ++i)
        values[i] = QString::number(DegToRad(axes::numberOf(values.at(i))), 'g', 6);
    runToPoint(values);
}

/// Sends the robot to a point in Cartesian coordinates, on the point page in those of the panel:
/// x, y, z, a, b, c, d in mm and radians.
void TechnologyWidget::runToPoint(QStringList values)
{
    if (values.size() != axes::kMost || robot->get_deadman_state() != kHeld)
        return;
    PrintLog::OutputToLog(QStringLiteral("2014 1 1 %1 %2 %3 %4 %5 %6 %7 10 0 20 20")
                              .arg(values.at(0), values.at(1), values.at(2), values.at(3),
                                   values.at(4), values.at(5), values.at(6)),
                          1);
    const QStringList head = currentIndex() == page::ProjectPoints
        ? headOf(ui->xmllabel_Axis1->text())
        : QStringList({QStringLiteral("1"), QStringLiteral("1")});
    sendMove(head + zeros(5) + values);
}

/// Sends the robot to a point given by its seven joints.
void TechnologyWidget::runToJointPoint(QStringList values)
{
    if (values.size() != axes::kMost || robot->get_deadman_state() != kHeld)
        return;
    sendMove(zeros(7) + values);
}
