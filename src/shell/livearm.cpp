#include "shell/livearm.h"

#include "app.h"
#include "helpers.h"
#include "link/request.h"
#include "morerobot.h"
#include "movecommand.h"
#include "printlog.h"
#include "robot.h"
#include "robotpos.h"
#include "snackbarmessage.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStackedWidget>
#include <QTimer>
#include <algorithm>

namespace {

using axes::Family;

constexpr int kPowered = 3; ///< servo state
constexpr int kHeld = 1; ///< state of the enabling switch
constexpr int kPartsOfPosition = 9; ///< unused, kind, seven values
constexpr int kAngles = 3; ///< index of the first angle of a position, of three

bool isHeld()
{
    return Robot::getInstance()->get_deadman_state() == kHeld;
}

/// Whether the drives are powered and the enabling switch is held; if not, it says so.
bool mayMove()
{
    if (Robot::getInstance()->get_servo_state() == kPowered && isHeld())
        return true;
    SnackbarMessage::showMessage(QCoreApplication::translate("TechnologyWidget", "请上电！"), 5000,
                                 1, true);
    return false;
}

axes::Values valuesOf(PointRow::Unit unit)
{
    const axes::Model model = axes::modelOf(Robot::getInstance()->kinematicType);
    return unit == PointRow::Joints ? model.joints : model.position;
}

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

/// Which columns a family shows, and what the first of them is called. U is the column a of a robot
/// with four axes. Families that are not here leave the pages as they are.
struct Shown {
    Family family;
    int points; ///< columns from the first on
    bool tools;
    const char *firstHead; ///< null: the column is not shown
};

constexpr Shown kShown[] = {
    {Family::SevenAxis, 4, true, "A"},
    {Family::SixAxis, 3, true, "A"},
    {Family::FourAxis, 1, false, "U"},
    {Family::ThreeAxis, 0, false, nullptr},
};

const Shown *shownOf(Family family)
{
    for (const Shown &row : kShown) {
        if (row.family == family)
            return &row;
    }
    return nullptr;
}

} // namespace

void LiveArm::addPoll(QTimer *timer, axes::Coordinate coordinate,
                      std::initializer_list<page::Index> pages)
{
    Poll &poll = m_polls[timer];
    poll.coordinate = coordinate;
    for (const page::Index page : pages)
        poll.pages.append(page);
}

void LiveArm::addPage(QTimer *timer, page::Index page)
{
    m_polls[timer].pages.append(page);
}

void LiveArm::start(QTimer *timer) const
{
    timer->start(kInterval);
}

void LiveArm::poll(QTimer *timer)
{
    const Poll poll = m_polls.value(timer);
    Json::Value body = request::forRobot();
    body["coord"] = static_cast<int>(poll.coordinate);
    request::send(message::GetCurrentPosition, body);

    const int current = m_pages.currentIndex();
    const bool isPage =
        std::find(poll.pages.begin(), poll.pages.end(), current) != poll.pages.end();
    if (isPage && m_pages.isVisible())
        return;
    timer->stop();
    if (isPage)
        m_hidden.insert(timer, current);
}

void LiveArm::resume()
{
    for (auto poll = m_hidden.cbegin(); poll != m_hidden.cend(); ++poll) {
        if (poll.value() == m_pages.currentIndex())
            poll.key()->start();
    }
    m_hidden.clear();
}

void LiveArm::take(const QByteArray &radians, const QByteArray &degrees) const
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
    for (const Hook &hook : m_hooks)
        hook(kind, position);
}

void LiveArm::show(const PositionTexts &position, const PointRow &row)
{
    const axes::Values values = valuesOf(row.unit);
    for (int place = 0; place < values.count(); ++place) {
        const double value = axes::numberOf(position[values.at(place)]);
        row.labels.at(place)->setText(QString::number(value, 'f', 3));
    }
}

void LiveArm::mark(const PointRow &row, const PositionTexts &position)
{
    *row.texts = position;
    show(position, row);
}

void LiveArm::showNothing(const PointRow &row)
{
    for (QLabel *label : row.labels)
        label->setText(QStringLiteral("--"));
}

void LiveArm::nameFirstAxis(page::Index page, std::function<QString()> name)
{
    m_firstAxes.insert(page, std::move(name));
}

void LiveArm::moveTo(const PointRow &row) const
{
    if (!mayMove())
        return;
    QStringList values(row.texts->begin(), row.texts->end());
    if (row.unit == PointRow::Joints) {
        values.removeAll(QString());
        runToJoints(values);
        return;
    }
    for (int i = kAngles; App::isDeg && i < kAngles + 3; ++i)
        values[i] = QString::number(DegToRad(axes::numberOf(values.at(i))), 'g', 6);
    runToPosition(values);
}

void LiveArm::runToPosition(const QStringList &values) const
{
    if (values.size() != axes::kMost || !isHeld())
        return;
    PrintLog::OutputToLog(QStringLiteral("2014 1 1 %1 %2 %3 %4 %5 %6 %7 10 0 20 20")
                              .arg(values.at(0), values.at(1), values.at(2), values.at(3),
                                   values.at(4), values.at(5), values.at(6)),
                          1);
    const auto firstAxis = m_firstAxes.constFind(m_pages.currentIndex());
    const QStringList head = firstAxis != m_firstAxes.constEnd()
        ? headOf((*firstAxis)())
        : QStringList({QStringLiteral("1"), QStringLiteral("1")});
    sendMove(head + zeros(5) + values);
}

void LiveArm::runToJoints(const QStringList &values) const
{
    if (values.size() != axes::kMost || !isHeld())
        return;
    sendMove(zeros(7) + values);
}

void LiveArm::addColumns(Columns kind, const QVector<QLabel *> &labels)
{
    m_columns.append({kind, labels});
}

void LiveArm::showColumns() const
{
    const Shown *shown = shownOf(axes::modelOf(Robot::getInstance()->kinematicType).family);
    if (!shown)
        return;
    for (const ColumnLabels &row : m_columns) {
        for (int column = 0; column < row.labels.size(); ++column)
            row.labels.at(column)->setVisible(row.kind == Columns::Tool ? shown->tools
                                                                        : column < shown->points);
        if (row.kind == Columns::Head && shown->firstHead)
            row.labels.first()->setText(QString::fromLatin1(shown->firstHead));
    }
}
