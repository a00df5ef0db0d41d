// The position page: entrance, auxiliary and job point of a craft.

#include "app.h"
#include "helpers.h"
#include "link/reply.h"
#include "link/request.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/coordinates.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace {

using Form = Ui_TechnologyWidget;

constexpr Json::ArrayIndex kSent = 6; ///< values of a point in the messages: d is not among them
constexpr Json::ArrayIndex kFirstAngle = 3;
constexpr int kPollPeriod = 400; ///< milliseconds

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

void showNothing(const QVector<QLabel *> &labels)
{
    for (QLabel *label : labels)
        label->setText(QStringLiteral("--"));
}

EditPage editPage(const Form *ui)
{
    return {ui->positionModifyBtn,
            {ui->positionEntrancePoint, ui->positionAuxiliaryPoint, ui->positionJobPoint},
            ui->positionModifyCancelBtn,
            {ui->returnNavigationBtn3, ui->positionPageUp, ui->positionPageDown}};
}

} // namespace

void TechnologyWidget::initPosition()
{
    livePositionLabels = {ui->CurrentPointx, ui->CurrentPointy, ui->CurrentPointz,
                          ui->CurrentPointa, ui->CurrentPointb, ui->CurrentPointc,
                          ui->CurrentPointd};
    entranceLabels = {ui->EntrancePointx, ui->EntrancePointy, ui->EntrancePointz,
                      ui->EntrancePointa, ui->EntrancePointb, ui->EntrancePointc,
                      ui->EntrancePointd};
    auxiliaryLabels = {ui->AuxiliaryPointx, ui->AuxiliaryPointy, ui->AuxiliaryPointz,
                       ui->AuxiliaryPointa, ui->AuxiliaryPointb, ui->AuxiliaryPointc,
                       ui->AuxiliaryPointd};
    jobLabels = {ui->JobPointx, ui->JobPointy, ui->JobPointz, ui->JobPointa,
                 ui->JobPointb, ui->JobPointc, ui->JobPointd};
    setReturnButtonSheet({ui->returnNavigationBtn3, ui->positionPageUp, ui->positionPageDown,
                          ui->positionModifyBtn, ui->positionModifyCancelBtn});
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_PositionParameter, this,
            &TechnologyWidget::updatePalletPositionParameter);
    connect(robot, &Robot::linkChanged, this, &TechnologyWidget::forgetLivePosition);

    connectClicks({
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
    ui->positionUnit->setText(App::isDeg ? tr("位置 mm，姿态 °") : tr("位置 mm，姿态 rad"));
    hideLivePosition();
    palletPositionTimer->start(kPollPeriod);
    request::ask(message::GetPalletPosition, wire::reply::robot_pallet_PositionParameter,
                 ui->m_pPalletCraftNum);
}

/// Until the controller tells where the robot is, the page does not pretend to know.
void TechnologyWidget::hideLivePosition()
{
    showNothing(livePositionLabels);
}

/// The robot may have moved while nobody told where it is: no mark takes where it was.
void TechnologyWidget::forgetLivePosition()
{
    hideLivePosition();
    curCartPos = curCartPosCopy = {};
}

void TechnologyWidget::forgetTaughtPositions()
{
    entrancePos = auxiliaryPos = jobPos = {};
    for (const QVector<QLabel *> &labels : {entranceLabels, auxiliaryLabels, jobLabels})
        showNothing(labels);
}

void TechnologyWidget::palletEntrancePosition()
{
    entrancePos = curCartPos;
    showPosition(entrancePos, entranceLabels);
}

void TechnologyWidget::palletAuxiliaryPosition()
{
    auxiliaryPos = curCartPos;
    showPosition(auxiliaryPos, auxiliaryLabels);
}

void TechnologyWidget::palletJobPosition()
{
    jobPos = curCartPos;
    showPosition(jobPos, jobLabels);
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
    const auto fill = [&](const char *key, PositionTexts &point, const QVector<QLabel *> &labels) {
        if (const Json::Value *values = reply->array("pallet", key))
            fillPoint(*values, point, labels);
    };
    fill(App::isDeg ? "enterPosDeg" : "enterPos", entrancePos, entranceLabels);
    fill(App::isDeg ? "shiftPosDeg" : "shiftPos", auxiliaryPos, auxiliaryLabels);
    fill(App::isDeg ? "realPosDeg" : "realPos", jobPos, jobLabels);
}

/// Takes the values that the robot has from an array of a reply.
void TechnologyWidget::fillPoint(const Json::Value &values, PositionTexts &point,
                                 const QVector<QLabel *> &labels)
{
    const axes::Model model = axes::modelOf(robot->kinematicType);
    for (int place = 0; place < model.shown; ++place) {
        const auto index = static_cast<Json::ArrayIndex>(model.valueAt(place));
        std::optional<double> value;
        if (index < values.size())
            value = wire::asNumber(&values[index]);
        else if (index == kSent)
            value = 0.0;
        if (!value)
            continue;
        point[index] = fields::shown(*value);
        labels.at(place)->setText(point[index]);
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
            pallet["enterPos"] = toJson(entrancePos);
            pallet["shiftPos"] = toJson(auxiliaryPos);
            pallet["realPos"] = toJson(jobPos);
            request::send(message::SetPalletPosition, body);
            PrintLog::OutputToLog(tr("设置位置信息"), 1);
        });
}

void TechnologyWidget::doMoveToEntrancePoint()
{
    moveToPoint(entrancePos);
}

void TechnologyWidget::doMoveToAuxiliaryPoint()
{
    moveToPoint(auxiliaryPos);
}

void TechnologyWidget::doMoveToJobPoint()
{
    moveToPoint(jobPos);
}
