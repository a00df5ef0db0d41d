// The wizard's page of points: marking them as joint values and driving to them.

#include "pallet/wizard/points_p.h"

#include "app.h"
#include "shell/technologyform.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int kFirstColumn = 2; ///< of the joints, behind number and name of a point

} // namespace

TechnologyWidget::Pallet::WizardPoints::WizardPoints(Pallet &package) : Page(package)
{
    heads = {ui->wizardHeadx, ui->wizardHeady, ui->wizardHeadz, ui->wizardHeada,
             ui->wizardHeadb, ui->wizardHeadc, ui->wizardHeadd};
    const QVector<QLabel *> labels[] = {
        {ui->wizardLivex, ui->wizardLivey, ui->wizardLivez, ui->wizardLivea, ui->wizardLiveb,
         ui->wizardLivec, ui->wizardLived},
        {ui->GetPointx, ui->GetPointy, ui->GetPointz, ui->GetPointa, ui->GetPointb, ui->GetPointc,
         ui->GetPointd},
        {ui->UpperPointx, ui->UpperPointy, ui->UpperPointz, ui->UpperPointa, ui->UpperPointb,
         ui->UpperPointc, ui->UpperPointd},
        {ui->SafePointx, ui->SafePointy, ui->SafePointz, ui->SafePointa, ui->SafePointb,
         ui->SafePointc, ui->SafePointd},
    };
    for (std::size_t point = 0; point < rows.size(); ++point)
        rows[point] = {&widget.programInformation.points[point], labels[point], PointRow::Joints};
}

void TechnologyWidget::Pallet::initWizardPoints()
{
    wizardPoints = addPackage<WizardPoints>(pages, *this);
    arm.addColumns(LiveArm::Columns::Point, wizardPoints->heads.mid(3));
    for (const PointRow &row : wizardPoints->rows)
        arm.addColumns(LiveArm::Columns::Point, row.labels.mid(3));
    // the joints that the next mark takes
    arm.addHook([this](int kind, const PositionTexts &joints) {
        if (kind != axes::Joint)
            return;
        const PointRow &live = wizardPoints->rows[ProgramInformation::Live];
        *live.texts = joints;
        if (widget.currentIndex() == page::Wizard2)
            LiveArm::show(joints, live);
    });

    widget.connectClicks({
        {ui->positionGetPoint, &TechnologyWidget::wizardInfoGetPoint},
        {ui->positionGetUpperPoint, &TechnologyWidget::wizardInfoGetUpperPoint},
        {ui->positionGetSafePoint, &TechnologyWidget::wizardInfoGetSafePoint},
        {ui->moveToGetPoint, &TechnologyWidget::doMoveToGetPoint},
        {ui->moveToGetUpperPoint, &TechnologyWidget::doMoveToGetUpperPoint},
        {ui->moveToGetSafePoint, &TechnologyWidget::doMoveToGetSafePoint},
    });
}

/// Which columns stand on the page was settled when the wizard was entered, by the robot's family;
/// they share the width.
void TechnologyWidget::Pallet::WizardPoints::open()
{
    isInDegrees = App::isDeg;
    showUnit();
    linkChanged();
    for (int place = 0; place < axes::kMost; ++place) {
        const bool isShown = !heads.at(place)->isHidden();
        ui->gridWizardPoints->setColumnStretch(kFirstColumn + place, isShown ? 1 : 0);
    }
}

void TechnologyWidget::Pallet::WizardPoints::showUnit()
{
    if (isInDegrees)
        ui->wizardPointsBox->setTitle(*isInDegrees ? TechnologyWidget::tr("关节值（转动轴 °）")
                                                   : TechnologyWidget::tr("关节值（转动轴 rad）"));
}

void TechnologyWidget::Pallet::WizardPoints::retranslate()
{
    showUnit();
}

/// Until the controller tells where the robot is, the page does not pretend to know.
void TechnologyWidget::Pallet::WizardPoints::linkChanged()
{
    LiveArm::showNothing(rows[ProgramInformation::Live]);
}

/// Points that were taught with the robot before are none of this one's.
void TechnologyWidget::Pallet::WizardPoints::forgetRobot()
{
    widget.programInformation.points = {};
    reset();
}

void TechnologyWidget::Pallet::WizardPoints::reset()
{
    pallet.getPointMarks = pallet.upperPointMarks = pallet.safePointMarks = 0;
    for (const auto point :
         {ProgramInformation::Get, ProgramInformation::Upper, ProgramInformation::Safe}) {
        for (QLabel *label : rows[point].labels)
            label->setText(TechnologyWidget::tr("0"));
    }
    linkChanged();
}

/// A point becomes the position that was told last; before the first one it gets empty values and
/// counts as marked all the same.
void TechnologyWidget::Pallet::WizardPoints::mark(ProgramInformation::Point point)
{
    LiveArm::mark(rows[point], widget.programInformation.points[ProgramInformation::Live]);
}

void TechnologyWidget::wizardInfoGetPoint()
{
    ++palletPages->getPointMarks;
    palletPages->wizardPoints->mark(ProgramInformation::Get);
}

void TechnologyWidget::wizardInfoGetUpperPoint()
{
    ++palletPages->upperPointMarks;
    palletPages->wizardPoints->mark(ProgramInformation::Upper);
}

void TechnologyWidget::wizardInfoGetSafePoint()
{
    ++palletPages->safePointMarks;
    palletPages->wizardPoints->mark(ProgramInformation::Safe);
}

/// A point with fewer than seven values is none, and the robot stays where it is.
void TechnologyWidget::Pallet::WizardPoints::moveTo(ProgramInformation::Point point) const
{
    pallet.arm.moveTo(rows[point]);
}

void TechnologyWidget::doMoveToGetPoint()
{
    palletPages->wizardPoints->moveTo(ProgramInformation::Get);
}

void TechnologyWidget::doMoveToGetUpperPoint()
{
    palletPages->wizardPoints->moveTo(ProgramInformation::Upper);
}

void TechnologyWidget::doMoveToGetSafePoint()
{
    palletPages->wizardPoints->moveTo(ProgramInformation::Safe);
}
