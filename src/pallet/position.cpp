// The position page: entrance, auxiliary and job point of a craft.

#include "app.h"
#include "helpers.h"
#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/livearm.h"
#include "shell/technologyform.h"

#include <algorithm>

namespace {

using Form = Ui_TechnologyWidget;

constexpr Json::ArrayIndex kSent = 6; ///< values of a point in the messages: d is not among them
constexpr Json::ArrayIndex kFirstAngle = 3;

/// A point as the controller keeps it: x, y, z in mm and a, b, c in radians.
Json::Value toJson(const PositionTexts &point)
{
    Json::Value values(Json::arrayValue);
    for (Json::ArrayIndex i = 0; i < kSent; ++i) {
        const double value = axes::numberOf(point[i]);
        values.append(App::isDeg && i >= kFirstAngle ? DegToRad(value) : value);
    }
    return values;
}

EditPage editPage(const Form *ui)
{
    return {ui->positionModifyBtn,
            {ui->positionEntrancePoint, ui->positionAuxiliaryPoint, ui->positionJobPoint},
            ui->positionModifyCancelBtn,
            {ui->returnNavigationBtn3, ui->positionPageUp, ui->positionPageDown}};
}

} // namespace

/// The points of the page with their labels: x, y, z, a, b, c, d.
struct TechnologyWidget::Pallet::Positions : Page {
    explicit Positions(Pallet &package);

    void retranslate() override;
    void forgetRobot() override;
    void linkChanged() override;

    void showUnit();
    void fill(const Json::Value &values, const PointRow &row);

    PointRow live;
    PointRow entrance;
    PointRow auxiliary;
    PointRow job;
    bool isInDegrees = false; ///< as the page was opened
};

TechnologyWidget::Pallet::Positions::Positions(Pallet &package)
    : Page(package), live{&pallet.curCartPos,
                          {ui->CurrentPointx, ui->CurrentPointy, ui->CurrentPointz,
                           ui->CurrentPointa, ui->CurrentPointb, ui->CurrentPointc,
                           ui->CurrentPointd},
                          PointRow::Position},
      entrance{&pallet.entrancePos,
               {ui->EntrancePointx, ui->EntrancePointy, ui->EntrancePointz, ui->EntrancePointa,
                ui->EntrancePointb, ui->EntrancePointc, ui->EntrancePointd},
               PointRow::Position},
      auxiliary{&pallet.auxiliaryPos,
                {ui->AuxiliaryPointx, ui->AuxiliaryPointy, ui->AuxiliaryPointz, ui->AuxiliaryPointa,
                 ui->AuxiliaryPointb, ui->AuxiliaryPointc, ui->AuxiliaryPointd},
                PointRow::Position},
      job{&pallet.jobPos,
          {ui->JobPointx, ui->JobPointy, ui->JobPointz, ui->JobPointa, ui->JobPointb, ui->JobPointc,
           ui->JobPointd},
          PointRow::Position}
{
}

void TechnologyWidget::Pallet::initPositions()
{
    positions = addPackage<Positions>(pages, *this);
    setReturnButtonSheet({ui->returnNavigationBtn3, ui->positionPageUp, ui->positionPageDown,
                          ui->positionModifyBtn, ui->positionModifyCancelBtn});
    showViewState(editPage(ui));
    arm.addColumns(LiveArm::Columns::Head,
                   {ui->positionHeada, ui->positionHeadb, ui->positionHeadc, ui->positionHeadd});
    for (const PointRow *row :
         {&positions->live, &positions->entrance, &positions->auxiliary, &positions->job})
        arm.addColumns(LiveArm::Columns::Point, row->labels.mid(3));
    arm.addHook([this](int kind, const PositionTexts &position) {
        if (kind == axes::Cartesian && widget.currentIndex() == page::PalletPosition)
            LiveArm::show(position, positions->live);
    });

    connect(robot, &Robot::robot_pallet_PositionParameter, &widget,
            &TechnologyWidget::updatePalletPositionParameter);

    widget.connectClicks({
        {ui->positionEntrancePoint, &TechnologyWidget::palletEntrancePosition},
        {ui->positionAuxiliaryPoint, &TechnologyWidget::palletAuxiliaryPosition},
        {ui->positionJobPoint, &TechnologyWidget::palletJobPosition},
        {ui->moveToEntrancePoint, &TechnologyWidget::doMoveToEntrancePoint},
        {ui->moveToAuxiliaryPoint, &TechnologyWidget::doMoveToAuxiliaryPoint},
        {ui->moveToJobPoint, &TechnologyWidget::doMoveToJobPoint},
        {ui->positionModifyBtn, &TechnologyWidget::modifyPosition},
        {ui->positionModifyCancelBtn, &TechnologyWidget::palletSetPositionWidget},
        {ui->setPositionBtn, &TechnologyWidget::palletSetPositionWidget},
        {ui->trayPageDown, &TechnologyWidget::palletSetPositionWidget},
        {ui->positionPageUp, &TechnologyWidget::palletSetTrayWidget},
        {ui->positionPageDown, &TechnologyWidget::palletWorkpieceParaWidget},
        {ui->returnNavigationBtn3, &TechnologyWidget::showPalletCompleteWidget},
    });
}

/// Opens the page; cancelling an edit opens it anew.
void TechnologyWidget::palletSetPositionWidget()
{
    showTitleAndPage(page::PalletPosition);
    showViewState(editPage(ui));
    palletPages->positions->isInDegrees = App::isDeg;
    palletPages->positions->showUnit();
    // until the controller tells where the robot is, the page does not pretend to know
    LiveArm::showNothing(palletPages->positions->live);
    liveArm->start(palletPositionTimer);
    request::ask(message::GetPalletPosition, wire::reply::robot_pallet_PositionParameter,
                 ui->m_pPalletCraftNum);
}

void TechnologyWidget::Pallet::Positions::showUnit()
{
    ui->positionUnit->setText(isInDegrees ? TechnologyWidget::tr("位置 mm，姿态 °")
                                          : TechnologyWidget::tr("位置 mm，姿态 rad"));
}

void TechnologyWidget::Pallet::Positions::retranslate()
{
    showUnit();
}

void TechnologyWidget::Pallet::Positions::forgetRobot()
{
    linkChanged();
    for (const PointRow &row : {entrance, auxiliary, job}) {
        *row.texts = {};
        LiveArm::showNothing(row);
    }
}

/// The robot may have moved while nobody told where it is: no mark takes where it was.
void TechnologyWidget::Pallet::Positions::linkChanged()
{
    LiveArm::showNothing(live);
    pallet.curCartPos = pallet.curCartPosCopy = {};
}

void TechnologyWidget::palletEntrancePosition()
{
    LiveArm::mark(palletPages->positions->entrance, palletPages->curCartPos);
}

void TechnologyWidget::palletAuxiliaryPosition()
{
    LiveArm::mark(palletPages->positions->auxiliary, palletPages->curCartPos);
}

void TechnologyWidget::palletJobPosition()
{
    LiveArm::mark(palletPages->positions->job, palletPages->curCartPos);
}

/// The points of a craft arrived. What the reply does not hold stays, but for d: the controller
/// keeps none, so a point that was read has none.
void TechnologyWidget::updatePalletPositionParameter(const QByteArray &body)
{
    const std::optional<Reply> reply = reply::warnAndStop(
        wire::reply::robot_pallet_PositionParameter, body, reply::error::kPosition);
    if (!reply)
        return;
    // as it comes: a number without a row leaves no row selected
    if (!reply::select(*reply, {{ui->m_pPalletCraftNum, reply->integer("craftID")}}))
        return;
    const auto fill = [&](const char *key, const PointRow &row) {
        if (const Json::Value *values = reply->array("pallet", key))
            palletPages->positions->fill(*values, row);
    };
    fill(App::isDeg ? "enterPosDeg" : "enterPos", palletPages->positions->entrance);
    fill(App::isDeg ? "shiftPosDeg" : "shiftPos", palletPages->positions->auxiliary);
    fill(App::isDeg ? "realPosDeg" : "realPos", palletPages->positions->job);
}

/// Takes the values that the robot has from an array of a reply.
void TechnologyWidget::Pallet::Positions::fill(const Json::Value &values, const PointRow &row)
{
    const axes::Values shown = axes::modelOf(robot->kinematicType).position;
    for (int place = 0; place < shown.count(); ++place) {
        const auto index = static_cast<Json::ArrayIndex>(shown.at(place));
        std::optional<double> value;
        if (index < values.size())
            value = wire::asNumber(&values[index]);
        else if (index == kSent)
            value = 0.0;
        if (!value)
            continue;
        QString &text = (*row.texts)[index];
        text = fields::shown(*value);
        row.labels.at(place)->setText(text);
    }
}

/// Starts or saves an edit. There is nothing to check: the values come from the robot.
void TechnologyWidget::modifyPosition()
{
    pressModify(
        editPage(ui), [] { return true; },
        [this] {
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            Json::Value &pallet = body["pallet"];
            pallet["enterPos"] = toJson(palletPages->entrancePos);
            pallet["shiftPos"] = toJson(palletPages->auxiliaryPos);
            pallet["realPos"] = toJson(palletPages->jobPos);
            request::send(message::SetPalletPosition, body);
            PrintLog::OutputToLog(tr("设置位置信息"), 1);
        });
}

void TechnologyWidget::doMoveToEntrancePoint()
{
    liveArm->moveTo(palletPages->positions->entrance);
}

void TechnologyWidget::doMoveToAuxiliaryPoint()
{
    liveArm->moveTo(palletPages->positions->auxiliary);
}

void TechnologyWidget::doMoveToJobPoint()
{
    liveArm->moveTo(palletPages->positions->job);
}
