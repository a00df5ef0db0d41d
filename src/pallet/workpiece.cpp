#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"

namespace {

using Form = Ui_TechnologyWidget;

/// Millimetres. The length lies along the tray's Y axis, the width along its X axis.
const Field kWorkpiece[] = {
    {&Form::Workpiecelength, {"pallet", "workpieceLength"}, Field::Sent::Real},
    {&Form::Workpiecewidth, {"pallet", "workpieceWidth"}, Field::Sent::Real},
    {&Form::Workpieceheight, {"pallet", "workpieceHeight"}, Field::Sent::Real},
    {&Form::WorkpieceintervalX, {"pallet", "workpieceGapX"}, Field::Sent::Real},
    {&Form::WorkpieceintervalY, {"pallet", "workpieceGapY"}, Field::Sent::Real},
};

constexpr Check::Pattern kSize = &TechnologyWidget::isPalletpara1;
constexpr Check::Pattern kGap = &TechnologyWidget::isPalletpara;
constexpr double kMaxSize = 5000;
constexpr double kMaxGap = 3000;

const Check kChecks[] = {
    {&Form::Workpiecelength, kSize, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸长参数有误!")},
    {&Form::Workpiecelength, nullptr, 0, kMaxSize,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸长应不超过5000!")},
    {&Form::Workpiecewidth, kSize, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸宽参数有误!")},
    {&Form::Workpiecewidth, nullptr, 0, kMaxSize,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸宽应不超过5000!")},
    {&Form::Workpieceheight, kSize, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸高参数有误!")},
    {&Form::Workpieceheight, nullptr, 0, kMaxSize,
     QT_TRANSLATE_NOOP("TechnologyWidget", "工件尺寸高应不超过5000!")},
    {&Form::WorkpieceintervalX, kGap, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "托盘X方向间隙参数有误!")},
    {&Form::WorkpieceintervalX, nullptr, 0, kMaxGap,
     QT_TRANSLATE_NOOP("TechnologyWidget", "托盘X方向间隙应不超过3000!")},
    {&Form::WorkpieceintervalY, kGap, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "托盘Y方向间隙参数有误!")},
    {&Form::WorkpieceintervalY, nullptr, 0, kMaxGap,
     QT_TRANSLATE_NOOP("TechnologyWidget", "托盘Y方向间隙应不超过3000!")},
};

EditPage editPage(const Form *ui)
{
    return {ui->workpieceModifyBtn,
            fields::widgets(kWorkpiece, ui),
            ui->workpieceModifyCancelBtn,
            {ui->returnNavigationBtn4, ui->workpiecePageUp, ui->workpiecePageDown}};
}

} // namespace

void TechnologyWidget::Pallet::initWorkpiece()
{
    setReturnButtonSheet({ui->returnNavigationBtn4, ui->workpiecePageUp, ui->workpiecePageDown,
                          ui->workpieceModifyBtn, ui->workpieceModifyCancelBtn});
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_WorkpieceParameter, &widget,
            &TechnologyWidget::updatePalletWorkpieceParameter);
    widget.connectClicks({
        {ui->workpieceParaBtn, &TechnologyWidget::palletWorkpieceParaWidget},
        {ui->workpieceModifyBtn, &TechnologyWidget::modifyWorkpiece},
        {ui->workpieceModifyCancelBtn, &TechnologyWidget::palletWorkpieceParaWidget},
        {ui->workpiecePageUp, &TechnologyWidget::palletSetPositionWidget},
        {ui->workpiecePageDown, &TechnologyWidget::palletApproachParaWidget},
        {ui->returnNavigationBtn4, &TechnologyWidget::showPalletCompleteWidget},
    });
}

/// Opens the page, or ends an edit of it without saving.
void TechnologyWidget::palletWorkpieceParaWidget()
{
    showTitleAndPage(page::PalletWorkpiece);
    showViewState(editPage(ui));
    getPalletWorkpieceParameter();
}

void TechnologyWidget::getPalletWorkpieceParameter()
{
    request::ask(message::GetPalletWorkpiece, wire::reply::robot_pallet_WorkpieceParameter,
                 ui->m_pPalletCraftNum);
}

/// The workpiece of a craft arrived.
void TechnologyWidget::updatePalletWorkpieceParameter(const QByteArray &body)
{
    const std::optional<Reply> workpiece = reply::warnAndGoOn(
        wire::reply::robot_pallet_WorkpieceParameter, body, reply::error::kWorkpiece);
    if (!workpiece || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *workpiece))
        return;
    for (const Field &field : kWorkpiece)
        fields::fill(field, ui, *workpiece);
}

void TechnologyWidget::modifyWorkpiece()
{
    pressModify(
        editPage(ui), [this] { return fields::acceptAll(kChecks, this, ui); },
        [this] {
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            for (const Field &field : kWorkpiece)
                fields::collect(field, ui, body);
            request::send(message::SetPalletWorkpiece, body);
            PrintLog::OutputToLog(tr("设置工件信息"), 1);
        });
}
