// The wizard's page of points: marking them as joint values and driving to them.

#include "app.h"
#include "morerobot.h"
#include "robot.h"
#include "shell/coordinates.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QGridLayout>
#include <QLabel>
#include <utility>

namespace {

constexpr int kFirstColumn = 2; ///< of the joints, behind number and name of a point

} // namespace

void TechnologyWidget::initWizardPoints()
{
    wizardHeadLabels = {ui->wizardHeadx, ui->wizardHeady, ui->wizardHeadz, ui->wizardHeada,
                        ui->wizardHeadb, ui->wizardHeadc, ui->wizardHeadd};
    wizardLiveLabels = {ui->wizardLivex, ui->wizardLivey, ui->wizardLivez, ui->wizardLivea,
                        ui->wizardLiveb, ui->wizardLivec, ui->wizardLived};
    getPointLabels = {ui->GetPointx, ui->GetPointy, ui->GetPointz, ui->GetPointa,
                      ui->GetPointb, ui->GetPointc, ui->GetPointd};
    upperPointLabels = {ui->UpperPointx, ui->UpperPointy, ui->UpperPointz, ui->UpperPointa,
                        ui->UpperPointb, ui->UpperPointc, ui->UpperPointd};
    safePointLabels = {ui->SafePointx, ui->SafePointy, ui->SafePointz, ui->SafePointa,
                       ui->SafePointb, ui->SafePointc, ui->SafePointd};
    connect(robot, &Robot::linkChanged, this, &TechnologyWidget::forgetLiveJoints);
    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this,
            &TechnologyWidget::forgetWizardPoints);

    connectClicks({
        {ui->positionGetPoint, &TechnologyWidget::wizardInfoGetPoint},
        {ui->positionGetUpperPoint, &TechnologyWidget::wizardInfoGetUpperPoint},
        {ui->positionGetSafePoint, &TechnologyWidget::wizardInfoGetSafePoint},
        {ui->moveToGetPoint, &TechnologyWidget::doMoveToGetPoint},
        {ui->moveToGetUpperPoint, &TechnologyWidget::doMoveToGetUpperPoint},
        {ui->moveToGetSafePoint, &TechnologyWidget::doMoveToGetSafePoint},
    });
}

/// The page opens. Which columns stand on it was settled when the wizard was entered, by the
/// robot's family; they share the width.
void TechnologyWidget::showWizardPoints()
{
    ui->wizardPointsBox->setTitle(App::isDeg ? tr("关节值（转动轴 °）")
                                             : tr("关节值（转动轴 rad）"));
    forgetLiveJoints();
    for (int place = 0; place < axes::kMost; ++place) {
        const bool isShown = !wizardHeadLabels.at(place)->isHidden();
        ui->gridWizardPoints->setColumnStretch(kFirstColumn + place, isShown ? 1 : 0);
    }
}

/// Until the controller tells where the robot is, the page does not pretend to know.
void TechnologyWidget::forgetLiveJoints()
{
    for (QLabel *label : std::as_const(wizardLiveLabels))
        label->setText(QStringLiteral("--"));
}

/// Puts the joints that the robot shows on their labels, with three decimals. Other than in a
/// Cartesian position the fourth value is the fourth of any robot.
void TechnologyWidget::showJoints(const PositionTexts &joints, const QVector<QLabel *> &labels)
{
    const int shown = axes::modelOf(robot->kinematicType).shown;
    for (int place = 0; place < shown; ++place) {
        const double value = axes::numberOf(joints[static_cast<std::size_t>(place)]);
        labels.at(place)->setText(QString::number(value, 'f', 3));
    }
}

/// The joints arrived that the next mark takes.
void TechnologyWidget::takeLiveJoints(const PositionTexts &joints)
{
    programInformation.points[ProgramInformation::Live] = joints;
    if (currentIndex() == page::Wizard2)
        showJoints(joints, wizardLiveLabels);
}

/// A point becomes the position that was told last; before the first one it gets empty values and
/// counts as marked all the same.
void TechnologyWidget::markWizardPoint(ProgramInformation::Point point, int &marks,
                                       const QVector<QLabel *> &labels)
{
    ++marks;
    programInformation.points[point] = programInformation.points[ProgramInformation::Live];
    showJoints(programInformation.points[point], labels);
}

void TechnologyWidget::wizardInfoGetPoint()
{
    markWizardPoint(ProgramInformation::Get, getPointMarks, getPointLabels);
}

void TechnologyWidget::wizardInfoGetUpperPoint()
{
    markWizardPoint(ProgramInformation::Upper, upperPointMarks, upperPointLabels);
}

void TechnologyWidget::wizardInfoGetSafePoint()
{
    markWizardPoint(ProgramInformation::Safe, safePointMarks, safePointLabels);
}

/// A point with fewer than seven values is none, and the robot stays where it is.
void TechnologyWidget::moveToWizardPoint(ProgramInformation::Point point)
{
    if (!mayMove())
        return;
    QStringList values;
    for (const QString &text : programInformation.points[point]) {
        if (!text.isEmpty())
            values += text;
    }
    runToJointPoint(values);
}

void TechnologyWidget::doMoveToGetPoint()
{
    moveToWizardPoint(ProgramInformation::Get);
}

void TechnologyWidget::doMoveToGetUpperPoint()
{
    moveToWizardPoint(ProgramInformation::Upper);
}

void TechnologyWidget::doMoveToGetSafePoint()
{
    moveToWizardPoint(ProgramInformation::Safe);
}

/// Another robot: points that were taught with the one before are none of its.
void TechnologyWidget::forgetWizardPoints()
{
    programInformation.points = {};
    resetWizardPoints();
}

/// No point is marked.
void TechnologyWidget::resetWizardPoints()
{
    getPointMarks = upperPointMarks = safePointMarks = 0;
    for (const QVector<QLabel *> &labels : {getPointLabels, upperPointLabels, safePointLabels}) {
        for (QLabel *label : labels)
            label->setText(tr("0"));
    }
    forgetLiveJoints();
}
