#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "switchbutton.h"

#include <QPixmap>

namespace {

using Form = Ui_TechnologyWidget;

/// How the gripper comes to the place point. Lengths are millimetres along the tray's axes; X
/// stands in the field that is named length, Y in the one named width.
const Field kApproach[] = {
    {&Form::approachOnOffBtn, {"pallet", "workpieceApproEnable"}, Field::Sent::Switch},
    {&Form::approachWaysComboBox, {"pallet", "workpieceApproMode"}, Field::Sent::Row},
    {&Form::approachWorkpiecelength, {"pallet", "workpieceApproLenX"}, Field::Sent::Real},
    {&Form::approachWorkpiecewidth, {"pallet", "workpieceApproLenY"}, Field::Sent::Real},
    {&Form::approachWorkpieceheight, {"pallet", "workpieceApproLenZ"}, Field::Sent::Real},
};

constexpr Check::Pattern kDecimal = &TechnologyWidget::isPalletpara2;
constexpr double kMaxLength = 5000;
constexpr char kRefusedX[] = QT_TRANSLATE_NOOP("TechnologyWidget", "托盘X方向长度参数有误!");
constexpr char kRefusedY[] = QT_TRANSLATE_NOOP("TechnologyWidget", "托盘Y方向长度参数有误!");
constexpr char kRefusedZ[] = QT_TRANSLATE_NOOP("TechnologyWidget", "托盘Z方向长度参数有误!");

/// All three patterns come before the ranges, and look different on the screen.
const Check kChecks[] = {
    {&Form::approachWorkpiecelength, kDecimal, 0, 0, kRefusedX, 5000, 1},
    {&Form::approachWorkpiecewidth, kDecimal, 0, 0, kRefusedY, 5000, 1},
    {&Form::approachWorkpieceheight, kDecimal, 0, 0, kRefusedZ, 5000, 1},
    {&Form::approachWorkpiecelength, nullptr, 0, kMaxLength, kRefusedX},
    {&Form::approachWorkpiecewidth, nullptr, 0, kMaxLength, kRefusedY},
    {&Form::approachWorkpieceheight, nullptr, 0, kMaxLength, kRefusedZ},
};

EditPage editPage(const Form *ui)
{
    return {ui->approachModifyBtn,
            fields::widgets(kApproach, ui),
            ui->approachModifyCancelBtn,
            {ui->returnNavigationBtn5, ui->approachPageUp, ui->approachPageDown}};
}

} // namespace

void TechnologyWidget::Pallet::initApproach()
{
    setReturnButtonSheet({ui->returnNavigationBtn5, ui->approachPageUp, ui->approachPageDown,
                          ui->approachModifyBtn, ui->approachModifyCancelBtn});
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_ApproachParameter, &widget,
            &TechnologyWidget::updatePalletApproachParameter);
    connect(ui->approachWaysComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
            &TechnologyWidget::approachWays);
    widget.connectClicks({
        {ui->approachParaBtn, &TechnologyWidget::palletApproachParaWidget},
        {ui->approachOnOffBtn, &TechnologyWidget::changeApproachOnOffBtnState},
        {ui->approachModifyBtn, &TechnologyWidget::modifyApproach},
        {ui->approachModifyCancelBtn, &TechnologyWidget::palletApproachParaWidget},
        {ui->approachPageUp, &TechnologyWidget::palletWorkpieceParaWidget},
        {ui->approachPageDown, &TechnologyWidget::palletOverlappingModelWidget},
        {ui->returnNavigationBtn5, &TechnologyWidget::showPalletCompleteWidget},
    });
}

/// Opens the page, or ends an edit of it without saving.
void TechnologyWidget::palletApproachParaWidget()
{
    showTitleAndPage(page::PalletApproach);
    showViewState(editPage(ui));
    approachWays();
    request::ask(message::GetPalletApproach, wire::reply::robot_pallet_ApproachParameter,
                 ui->m_pPalletCraftNum);
}

/// Shows the drawing of the chosen way.
void TechnologyWidget::approachWays()
{
    const QString way = ui->approachWaysComboBox->currentText();
    if (way == tr("接近下降"))
        ui->approachWaysPic->setPixmap(
            QPixmap(QStringLiteral(":/new/picture/Resources/res/Closedrop.png")));
    else if (way == tr("下降接近"))
        ui->approachWaysPic->setPixmap(
            QPixmap(QStringLiteral(":/new/picture/Resources/res/Dropclose.png")));
}

void TechnologyWidget::changeApproachOnOffBtnState()
{
    ui->approachOnOffBtn->setCheck(!ui->approachOnOffBtn->isCheck());
}

/// The approach of a craft arrived.
void TechnologyWidget::updatePalletApproachParameter(const QByteArray &body)
{
    const std::optional<Reply> approach = reply::warnAndGoOn(
        wire::reply::robot_pallet_ApproachParameter, body, reply::error::kApproach);
    if (!approach || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *approach))
        return;
    for (const Field &field : kApproach)
        fields::fill(field, ui, *approach);
}

void TechnologyWidget::modifyApproach()
{
    pressModify(
        editPage(ui), [this] { return fields::acceptAll(kChecks, this, ui); },
        [this] {
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            for (const Field &field : kApproach)
                fields::collect(field, ui, body);
            request::send(message::SetPalletApproach, body);
            PrintLog::OutputToLog(tr("设置接近信息"), 1);
        });
}
