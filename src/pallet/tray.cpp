#include "app.h"
#include "helpers.h"
#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "promptwidget.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/livearm.h"
#include "snackbarmessage.h"

namespace {

using Form = Ui_TechnologyWidget;

constexpr int kShownCharacters = 5; ///< what a value on the page is cut to
constexpr int kCalculationPause = 500; ///< milliseconds that the controller is given to calculate

// The names of the three points in the messages.
constexpr char kOrigin[] = "O";
constexpr char kXDirection[] = "X";
constexpr char kYDirection[] = "Y";

const Field kUserNumber = {&Form::taryCoordinateCombox, {"pallet", "userNum"}, Field::Sent::Real};

bool isSixAxis(int kinematicType)
{
    return axes::modelOf(kinematicType).family == axes::Family::SixAxis;
}

/// {"userNum": the chosen user coordinate, 1 to 9}
Json::Value forUser(const Form *ui)
{
    Json::Value body;
    body["userNum"] = ui->taryCoordinateCombox->currentIndex() + 1;
    return body;
}

/// Asks for a point of the chosen user coordinate, or has one marked.
void sendInquiry(message::Id id, const char *inquire, const Form *ui)
{
    Json::Value body = forUser(ui);
    body["inquire"] = inquire;
    request::send(id, body);
}

double angleOf(const QLabel *label)
{
    const double angle = axes::numberOf(label->text());
    return App::isDeg ? DegToRad(angle) : angle;
}

/// A marked point as it stands on the page: millimetres and radians. Robots with fewer than six
/// axes hold the tool upright, so that only its turn is their own.
Json::Value pointOf(const QVector<QLabel *> &labels, bool isSixAxis)
{
    Json::Value point(Json::arrayValue);
    for (int i = 0; i < 3; ++i)
        point.append(axes::numberOf(labels.at(i)->text()));
    if (isSixAxis) {
        point.append(angleOf(labels.at(3)));
        point.append(angleOf(labels.at(4)));
    } else {
        point.append(3.1415);
        point.append(0.0);
    }
    point.append(angleOf(labels.at(5)));
    return point;
}

EditPage editPage(const Form *ui)
{
    return {ui->trayModifyBtn,
            {ui->taryCoordinateCombox, ui->taryOriginBtn, ui->taryXdirectionBtn,
             ui->taryYdirectionBtn, ui->taryCalculationBtn},
            ui->trayModifyCancelBtn,
            {ui->returnNavigationBtn2, ui->trayPageUp, ui->trayPageDown}};
}

} // namespace

struct TechnologyWidget::Pallet::Tray : Page {
    using Page::Page;

    void forgetRobot() override;

    void markPoint(const char *inquire);
};

void TechnologyWidget::Pallet::initTray()
{
    tray = addPackage<Tray>(pages, *this);
    setReturnButtonSheet({ui->returnNavigationBtn2, ui->trayModifyBtn, ui->trayModifyCancelBtn,
                          ui->trayPageUp, ui->trayPageDown});
    trayOriginLabels = {ui->taryOriginx, ui->taryOriginy, ui->taryOriginz,
                        ui->taryOrigina, ui->taryOriginb, ui->taryOriginc};
    trayXLabels = {ui->taryXdirectionx, ui->taryXdirectiony, ui->taryXdirectionz,
                   ui->taryXdirectiona, ui->taryXdirectionb, ui->taryXdirectionc};
    trayYLabels = {ui->taryYdirectionx, ui->taryYdirectiony, ui->taryYdirectionz,
                   ui->taryYdirectiona, ui->taryYdirectionb, ui->taryYdirectionc};
    arm.addColumns(LiveArm::Columns::Head, {ui->taryHeada, ui->taryHeadb, ui->taryHeadc});
    for (const QVector<QLabel *> &labels : {trayOriginLabels, trayXLabels, trayYLabels})
        arm.addColumns(LiveArm::Columns::Point, labels.mid(3));
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_TrayParameter, &widget,
            &TechnologyWidget::updatePalletTrayParameter);
    connect(robot, &Robot::robot_usercoords_reply, &widget,
            &TechnologyWidget::keep_userReply_pallet);
    connect(robot, &Robot::robot_user_suc, &widget,
            &TechnologyWidget::received_user_successed_pallet);
    connect(ui->taryCoordinateCombox, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
            &TechnologyWidget::palletSetTrayWidget2);

    widget.connectClicks({
        {ui->setTrayBtn, &TechnologyWidget::palletSetTrayWidget},
        {ui->tongsPageDown, &TechnologyWidget::palletSetTrayWidget},
        {ui->trayModifyCancelBtn, &TechnologyWidget::palletSetTrayWidget},
        {ui->trayModifyBtn, &TechnologyWidget::modifyTray},
        {ui->returnNavigationBtn2, &TechnologyWidget::showPalletCompleteWidget},
        {ui->taryOriginBtn, &TechnologyWidget::trayOriginPressed},
        {ui->taryXdirectionBtn, &TechnologyWidget::trayXdirectionPressed},
        {ui->taryYdirectionBtn, &TechnologyWidget::trayYdirectionPressed},
        {ui->taryCalculationBtn, &TechnologyWidget::send_calData_pallet},
    });
}

void TechnologyWidget::palletSetTrayWidget()
{
    showTitleAndPage(page::PalletTray);
    ui->trayUnitNote->setText(App::isDeg ? QStringLiteral("mm / °") : QStringLiteral("mm / rad"));
    showViewState(editPage(ui));
    request::ask(message::GetPalletTray, wire::reply::robot_pallet_TrayParameter,
                 ui->m_pPalletCraftNum);
}

/// Reads the three points of the chosen user coordinate.
void TechnologyWidget::palletSetTrayWidget2()
{
    showTitleAndPage(page::PalletTray);
    for (const char *inquire : {kOrigin, kXDirection, kYDirection})
        sendInquiry(message::GetUserCoordinate, inquire, ui);
}

/// The tray of a craft arrived. That of another robot is pointed out and shown all the same.
void TechnologyWidget::updatePalletTrayParameter(const QByteArray &body)
{
    const std::optional<Reply> reply =
        reply::warnAndGoOn(wire::reply::robot_pallet_TrayParameter, body, reply::error::kTray);
    if (!reply || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *reply))
        return;
    fields::fill(kUserNumber, ui, *reply);
    palletSetTrayWidget2();
}

/// A point of a user coordinate arrived; `inquire` names which.
void TechnologyWidget::keep_userReply_pallet(int, QString inquire, QVector<double> point)
{
    const struct {
        const char *inquire;
        const QVector<QLabel *> &labels;
    } points[] = {{kOrigin, palletPages->trayOriginLabels},
                  {kXDirection, palletPages->trayXLabels},
                  {kYDirection, palletPages->trayYLabels}};
    for (const auto &row : points) {
        if (inquire != QLatin1String(row.inquire))
            continue;
        const axes::Values values = axes::modelOf(robot->kinematicType).trayPoint;
        for (int place = 0; place < values.count(); ++place) {
            const auto index = static_cast<int>(values.at(place));
            if (index < point.size())
                row.labels.at(place)->setText(
                    fields::shown(point.at(index)).left(kShownCharacters));
        }
    }
}

void TechnologyWidget::trayOriginPressed()
{
    palletPages->tray->markPoint(kOrigin);
}

void TechnologyWidget::trayXdirectionPressed()
{
    palletPages->tray->markPoint(kXDirection);
}

void TechnologyWidget::trayYdirectionPressed()
{
    palletPages->tray->markPoint(kYDirection);
}

void TechnologyWidget::Pallet::Tray::forgetRobot()
{
    for (const QVector<QLabel *> &labels :
         {pallet.trayOriginLabels, pallet.trayXLabels, pallet.trayYLabels}) {
        for (QLabel *label : labels)
            label->clear();
    }
}

/// Where the robot stands becomes that point; reading all three again shows it.
void TechnologyWidget::Pallet::Tray::markPoint(const char *inquire)
{
    sendInquiry(message::GetUserCoordinatePoint, inquire, ui);
    widget.palletSetTrayWidget2();
}

/// Has the user coordinate calculated from the three points as they stand on the page.
void TechnologyWidget::send_calData_pallet()
{
    const QVector<QLabel *> *points[] = {&palletPages->trayOriginLabels, &palletPages->trayXLabels,
                                         &palletPages->trayYLabels};
    Json::Value coordinates(Json::arrayValue);
    for (const QVector<QLabel *> *labels : points) {
        if (labels->isEmpty()) {
            SnackbarMessage::showMessage(tr("操作失败，请重新标定！"), 3000, 3, true);
            return;
        }
        coordinates.append(pointOf(*labels, isSixAxis(robot->kinematicType)));
    }
    Json::Value body = forUser(ui);
    body["cacl"] = coordinates; // the key is spelled so
    request::send(message::CalculateUserCoordinate, body);
    Delayms(kCalculationPause);
}

/// The controller calculated a user coordinate: 1, or could not: 0.
void TechnologyWidget::received_user_successed_pallet(const int result)
{
    if (result == 1) {
        robot->robot_key_slot_saftySwitchProcess(0);
        promptWidget->repaint_widget(PromptWidget::PROMPT_USER_COORDS_DONE, QString());
        promptWidget->set_widget_state(PromptWidget::PROMPT_USER_COORDS_DONE);
        PrintLog::OutputToLog(tr("接收用户坐标标定成功"), 1);
    } else if (result == 0) {
        robot->robot_key_slot_saftySwitchProcess(0);
        SnackbarMessage::showMessage(tr("计算失败，请重新标定!"), 3000, 4, true);
        promptWidget->set_widget_state(PromptWidget::PROMPT_USER_COORDS_FAILED);
        PrintLog::OutputToLog(tr("接收用户坐标标定失败"), 1);
    }
}

/// A save makes the tray's user coordinate the robot's current one as well.
void TechnologyWidget::modifyTray()
{
    pressModify(
        editPage(ui), [] { return true; },
        [this] {
            palletGetUserCoords();
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            fields::collect(kUserNumber, ui, body);
            request::send(message::SetPalletTray, body);
            PrintLog::OutputToLog(tr("设置托盘信息"), 1);
        });
}

/// Makes the chosen user coordinate the current one; the controller's answer is not waited for.
void TechnologyWidget::palletGetUserCoords()
{
    sendInquiry(message::GetUserCoordinate, "Calibration", ui);
    Json::Value body = request::forRow(ui->taryCoordinateCombox, "userNum");
    request::send(message::SwitchUserCoordinate, body);
    PrintLog::OutputToLog(
        tr("发送切换用户坐标 userNum=%1").arg(ui->taryCoordinateCombox->currentIndex() + 1), 1);
    const QString chosen = ui->taryCoordinateCombox->currentText();
    palletPages->currentUserCoordsText = chosen;
    SnackbarMessage::showMessage(tr("用户坐标切换成功！当前为：") + chosen, 5000, 4, true);
    emit showPalletCurrentUserCoords();
}

QString TechnologyWidget::getCurrentCoordsUser()
{
    return palletPages->currentUserCoordsText;
}
