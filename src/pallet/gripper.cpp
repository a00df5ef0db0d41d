#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/livearm.h"

#include <algorithm>

namespace {

using Form = Ui_TechnologyWidget;

constexpr int kValues = 6; ///< of a tool frame

/// One gripper: the tool number that it is, and the frame of that tool.
struct GripperRow {
    QGroupBox *Form::*group;
    QComboBox *Form::*tool;
    QLabel *Form::*frame[kValues];
};

/// The grippers of the complete chain.
const GripperRow kGrippers[] = {
    {&Form::Tong1,
     &Form::Tongtoolnumber1,
     {&Form::tool1x, &Form::tool1y, &Form::tool1z, &Form::tool1A, &Form::tool1B, &Form::tool1C}},
    {&Form::Tong2,
     &Form::Tongtoolnumber2,
     {&Form::tool2x, &Form::tool2y, &Form::tool2z, &Form::tool2A, &Form::tool2B, &Form::tool2C}},
    {&Form::Tong3,
     &Form::Tongtoolnumber3,
     {&Form::tool3x, &Form::tool3y, &Form::tool3z, &Form::tool3A, &Form::tool3B, &Form::tool3C}},
    {&Form::Tong4,
     &Form::Tongtoolnumber4,
     {&Form::tool4x, &Form::tool4y, &Form::tool4z, &Form::tool4A, &Form::tool4B, &Form::tool4C}},
};

/// Those of easy mode, which show the same tools.
const GripperRow kEasyGrippers[] = {
    {&Form::Tong1_2,
     &Form::Tongtoolnumber1_2,
     {&Form::tool1x_2, &Form::tool1y_2, &Form::tool1z_2, &Form::tool1A_2, &Form::tool1B_2,
      &Form::tool1C_2}},
    {&Form::Tong2_2,
     &Form::Tongtoolnumber2_2,
     {&Form::tool2x_2, &Form::tool2y_2, &Form::tool2z_2, &Form::tool2A_2, &Form::tool2B_2,
      &Form::tool2C_2}},
    {&Form::Tong3_2,
     &Form::Tongtoolnumber3_2,
     {&Form::tool3x_2, &Form::tool3y_2, &Form::tool3z_2, &Form::tool3A_2, &Form::tool3B_2,
      &Form::tool3C_2}},
    {&Form::Tong4_2,
     &Form::Tongtoolnumber4_2,
     {&Form::tool4x_2, &Form::tool4y_2, &Form::tool4z_2, &Form::tool4A_2, &Form::tool4B_2,
      &Form::tool4C_2}},
};

const Field kCount = {&Form::TongsnumbercomboBox, {"pallet", "gripperNum"}, Field::Sent::Real};

int gripperCount(const Form *ui)
{
    return ui->TongsnumbercomboBox->currentIndex() + 1;
}

/// The parts of a text between single blanks; those that are missing are empty, those beyond
/// `Count` are not looked at.
template <std::size_t Count> std::array<QString, Count> partsOf(const QByteArray &text)
{
    constexpr int kLongest = 64; // characters; no number has as many
    std::array<QString, Count> parts;
    int from = 0;
    for (QString &part : parts) {
        if (from > text.size())
            break;
        const int blank = static_cast<int>(text.indexOf(' ', from));
        const int end = blank < 0 ? static_cast<int>(text.size()) : blank;
        part = QString::fromUtf8(text.mid(from, end - from)).left(kLongest);
        from = end + 1;
    }
    return parts;
}

EditPage editPage(const Form *ui)
{
    EditPage page{ui->tongsModifyBtn,
                  {ui->TongsnumbercomboBox},
                  ui->tongsModifyCancelBtn,
                  {ui->returnNavigationBtn1, ui->tongsPageDown}};
    for (const GripperRow &gripper : kGrippers)
        page.fields.append(ui->*gripper.tool);
    return page;
}

} // namespace

struct TechnologyWidget::Pallet::Gripper : Page {
    using Page::Page;

    void forgetRobot() override;

    void addColumns();
    void showToolFrames();
};

void TechnologyWidget::Pallet::initGripper()
{
    gripper = addPackage<Gripper>(pages, *this);
    setReturnButtonSheet({ui->returnNavigationBtn1, ui->tongsModifyBtn, ui->tongsModifyCancelBtn,
                          ui->tongsPageDown, ui->tongsPalletEasyReturnBtn,
                          ui->tongsPalletEasyModifyBtn, ui->tongsPalletEasyModifyCancelBtn,
                          ui->tongsPalletEasyPageDown});
    showViewState(editPage(ui));
    gripper->addColumns();

    connect(robot, &Robot::robot_pallet_ToolParameter, &widget,
            &TechnologyWidget::updatePalletToolParameter);
    connect(robot, &Robot::robot_tool_count_check, &widget,
            &TechnologyWidget::keep_count_data_pallet);
    QVector<QComboBox *> boxes = {ui->TongsnumbercomboBox};
    for (const GripperRow &row : kGrippers)
        boxes.append(ui->*row.tool);
    for (QComboBox *box : boxes)
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
                &TechnologyWidget::palletSetTongsWidget2);
    for (QPushButton *button :
         {ui->palletNavigationStart, ui->setTongsBtn, ui->trayPageUp, ui->tongsModifyCancelBtn})
        connect(button, &QPushButton::clicked, &widget, &TechnologyWidget::palletSetTongsWidget);
    connect(ui->tongsModifyBtn, &QPushButton::clicked, &widget, &TechnologyWidget::modifyTongs);
    connect(ui->returnNavigationBtn1, &QPushButton::clicked, &widget,
            &TechnologyWidget::showPalletCompleteWidget);
    connect(ui->tongsPalletEasyReturnBtn, &QPushButton::clicked, &widget,
            &TechnologyWidget::showPalletEasyWidget);
}

void TechnologyWidget::palletSetTongsWidget()
{
    showTitleAndPage(page::PalletGripper);
    showViewState(editPage(ui));
    request::ask(message::GetPalletGripper, wire::reply::robot_pallet_ToolParameter,
                 ui->m_pPalletCraftNum);
}

/// Shows as many grippers as there are, and asks for the frames of all four tools.
void TechnologyWidget::palletSetTongsWidget2()
{
    showTitleAndPage(page::PalletGripper);
    int number = 0;
    for (const GripperRow &gripper : kGrippers)
        (ui->*gripper.group)->setVisible(++number <= gripperCount(ui));
    for (const GripperRow &gripper : kGrippers) {
        Json::Value body;
        body["toolNum"] = (ui->*gripper.tool)->currentIndex() + 1;
        request::send(message::GetToolData, body);
    }
}

/// The grippers of a craft arrived. Those of another robot are pointed out and shown all the same.
void TechnologyWidget::updatePalletToolParameter(const QByteArray &body)
{
    const std::optional<Reply> reply =
        reply::warnAndGoOn(wire::reply::robot_pallet_ToolParameter, body, reply::error::kTool);
    if (!reply || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *reply))
        return;
    fields::fill(kCount, ui, *reply);
    if (const Json::Value *tools = reply->array("pallet", "gripper")) {
        // without a count in the reply, that on the page decides
        const int told = reply->integer("pallet", "gripperNum").value_or(gripperCount(ui));
        const int most = std::min<int>(std::size(kGrippers), static_cast<int>(tools->size()));
        const int count = std::min(told, most);
        for (int i = 0; i < count; ++i) {
            if (const auto tool = wire::asInteger(&(*tools)[i]))
                fields::selectNumber(ui->*kGrippers[i].tool, *tool);
        }
    }
    palletSetTongsWidget2();
}

/// The frame of a tool arrived: `frame` is "x y z A B C" in millimetres and radians. Every gripper
/// that is this tool shows it.
void TechnologyWidget::keep_count_data_pallet(int tool, QByteArray frame, QByteArray)
{
    if (tool < 1 || tool > static_cast<int>(palletPages->toolFrameTexts.size()))
        return;
    palletPages->toolFrameTexts[tool - 1] = partsOf<kValues>(frame);
    palletPages->gripper->showToolFrames();
}

void TechnologyWidget::Pallet::Gripper::forgetRobot()
{
    pallet.toolFrameTexts = {};
    showToolFrames();
}

void TechnologyWidget::Pallet::Gripper::addColumns()
{
    const auto add = [this](const GripperRow &row) {
        pallet.arm.addColumns(LiveArm::Columns::Tool,
                              {ui->*row.frame[3], ui->*row.frame[4], ui->*row.frame[5]});
    };
    std::for_each(std::begin(kGrippers), std::end(kGrippers), add);
    std::for_each(std::begin(kEasyGrippers), std::end(kEasyGrippers), add);
    pallet.arm.addColumns(LiveArm::Columns::Tool, {ui->toolHeadA, ui->toolHeadB, ui->toolHeadC});
    pallet.arm.addColumns(LiveArm::Columns::Tool,
                          {ui->toolHeadA_2, ui->toolHeadB_2, ui->toolHeadC_2});
}

void TechnologyWidget::Pallet::Gripper::showToolFrames()
{
    const auto show = [this](const GripperRow &gripper) {
        const int row = (ui->*gripper.tool)->currentIndex();
        for (std::size_t i = 0; i < kValues; ++i)
            (ui->*gripper.frame[i])->setText(row < 0 ? QString() : pallet.toolFrameTexts[row][i]);
    };
    std::for_each(std::begin(kGrippers), std::end(kGrippers), show);
    std::for_each(std::begin(kEasyGrippers), std::end(kEasyGrippers), show);
}

void TechnologyWidget::modifyTongs()
{
    pressModify(
        editPage(ui), [] { return true; },
        [this] {
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            fields::collect(kCount, ui, body);
            Json::Value tools(Json::arrayValue);
            for (int i = 0; i < gripperCount(ui); ++i)
                tools.append((ui->*kGrippers[i].tool)->currentIndex() + 1);
            body["pallet"]["gripper"] = tools;
            request::send(message::SetPalletGripper, body);
            PrintLog::OutputToLog(tr("设置抓手信息"), 1);
        });
}
