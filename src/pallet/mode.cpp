#include "app.h"
#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/question.h"
#include "shell/technologyform.h"
#include "snackbarmessage.h"

#include <QSignalBlocker>
#include <iterator>

namespace {

using Form = Ui_TechnologyWidget;

/// The modes of a craft, as the controller numbers them.
enum CraftMode { Easy = 0, Complete = 1, NotSet = 2 };

/// What the type page says of a mode, and where its two buttons stand then: that of the mode in
/// force is the large one. In pixels of the page.
struct Appearance {
    const char *state;
    QRect easy;
    QRect complete;
};

const Appearance kAppearance[] = {
    {QT_TRANSLATE_NOOP("TechnologyWidget", "已设定为简易码垛"),
     {230, 200, 250, 100},
     {290, 340, 130, 40}},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "已设定为完整码垛"),
     {290, 200, 130, 40},
     {230, 280, 250, 100}},
    {QT_TRANSLATE_NOOP("TechnologyWidget", "未设定"), {290, 210, 130, 40}, {290, 280, 130, 40}},
};
constexpr int kModes = static_cast<int>(std::size(kAppearance));

/// The question before one mode takes the place of the other, and what is said once it did.
struct Switch {
    PromptWidget::WIDGETNAME prompt;
    const char *done;
};

/// By the mode that is to come.
const Switch kSwitches[] = {
    {PromptWidget::PROMPT_EASY_MODE,
     QT_TRANSLATE_NOOP("TechnologyWidget", "切换成功,当前为简易码垛模式")},
    {PromptWidget::PROMPT_COMPLETE_MODE,
     QT_TRANSLATE_NOOP("TechnologyWidget", "切换成功,当前为完整码垛模式")},
};

constexpr int kChangeMode = 15; ///< App::currentAction_ while the question is open

/// What an open question locks.
QVector<QWidget *> typePageControls(const Form *ui)
{
    return {ui->m_pPalletCraftNum, ui->BtnPalletEasy,      ui->BtnPalletComplete,
            ui->palletTypeReturn,  ui->cleanPalletParaBtn, ui->copyPalletParaBtn};
}

Question question(int mode, const Form *ui)
{
    return {kSwitches[mode].prompt, kChangeMode, Question::Guard::Cover, typePageControls(ui)};
}

/// The mode of the craft is what the page says, whoever wrote it there.
bool reads(const Form *ui, int mode)
{
    return ui->palletstate->text() == TechnologyWidget::tr(kAppearance[mode].state);
}

Json::Value setMode(const Form *ui, int mode)
{
    Json::Value body = request::forRow(ui->m_pPalletCraftNum);
    body["usePalletType"] = mode;
    return body;
}

} // namespace

/// The mode of the craft, and its number on the pages.
struct TechnologyWidget::Pallet::Mode : Page {
    using Page::Page;

    void retranslate() override;

    void show(int mode);
    void enter(int mode);
    void confirm(int mode);
    void refuse(int mode);
    void open(int mode);
    QString numberText() const;
    void showNumbers();

    int shown = Complete; ///< as palletstate reads
    QVector<QLabel *> numberLabels; ///< the process number on the complete chain's pages
};

void TechnologyWidget::Pallet::initMode()
{
    mode = addPackage<Mode>(pages, *this);
    setReturnButtonSheet({ui->palletTypeReturn, ui->palletNavigationReturn,
                          ui->palletNavigationStart, ui->PalletEasyNavigationReturn});

    // The labels stand on the pages of the whole chain, one to a page.
    for (int i = 1; i <= 10; ++i) {
        const QString name = i == 1 ? QStringLiteral("technologyNumber")
                                    : QStringLiteral("technologyNumber_%1").arg(i);
        if (auto *label = widget.findChild<QLabel *>(name))
            mode->numberLabels.append(label);
    }
    mode->retranslate();

    connect(robot, &Robot::robot_switchpalletmode, &widget,
            &TechnologyWidget::updateSwitchPalletMode);
    PromptWidget *prompt = PromptWidget::getInstance();
    connect(prompt, &PromptWidget::completeMode, &widget,
            &TechnologyWidget::SureCompletePalletMode);
    connect(prompt, &PromptWidget::CancelCompleteMode, &widget,
            &TechnologyWidget::CancelCompletePalletMode);
    connect(prompt, &PromptWidget::easyMode, &widget, &TechnologyWidget::SureEasyPalletMode);
    connect(prompt, &PromptWidget::CancelEasyMode, &widget,
            &TechnologyWidget::CancelEasyPalletMode);

    // in this order: the labels, the question to the controller, the rest
    for (const auto slot : {&TechnologyWidget::changePalletEasyTechnologyNum,
                            &TechnologyWidget::needchangePalletTechnologyNum,
                            &TechnologyWidget::changeTechnologyNumber})
        connect(ui->m_pPalletCraftNum, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
                slot);

    widget.connectClicks({
        {ui->BtnPalletType, &TechnologyWidget::showPalletTypeWidget},
        {ui->palletTypeReturn, &TechnologyWidget::return_PalletPage},
        {ui->BtnPalletComplete, &TechnologyWidget::showPalletCompleteWidget},
        {ui->BtnPalletEasy, &TechnologyWidget::showPalletEasyWidget},
        {ui->palletNavigationReturn, &TechnologyWidget::showPalletTypeWidget},
        {ui->PalletEasyNavigationReturn, &TechnologyWidget::showPalletTypeWidget},
    });
}

void TechnologyWidget::Pallet::Mode::retranslate()
{
    ui->palletstate->setText(TechnologyWidget::tr(kAppearance[shown].state));
    showNumbers();
    widget.changePalletEasyTechnologyNum();
}

/// Opens the page of craft and mode.
void TechnologyWidget::showPalletTypeWidget()
{
    showPage(page::PalletType);
    for (QWidget *control : typePageControls(ui))
        control->setEnabled(true);
    request::ask(message::GetPalletMode, wire::reply::robot_switchpalletmode,
                 ui->m_pPalletCraftNum);
}

void TechnologyWidget::needchangePalletTechnologyNum()
{
    request::ask(message::GetPalletMode, wire::reply::robot_switchpalletmode,
                 ui->m_pPalletCraftNum);
}

QString TechnologyWidget::Pallet::Mode::numberText() const
{
    return TechnologyWidget::tr("工艺号:%1").arg(ui->m_pPalletCraftNum->currentText());
}

void TechnologyWidget::changePalletEasyTechnologyNum()
{
    for (QLabel *label : {ui->technologyPalletEasyNumber, ui->technologyPalletEasyNumber_2,
                          ui->technologyPalletEasyNumber_3})
        label->setText(palletPages->mode->numberText());
}

void TechnologyWidget::Pallet::Mode::showNumbers()
{
    for (QLabel *label : numberLabels)
        label->setText(numberText());
}

void TechnologyWidget::changeTechnologyNumber()
{
    palletPages->mode->showNumbers();
    // The location page follows without asking the controller: its own selector, once it is
    // connected, asks for the location data only when the operator turns it there.
    const QSignalBlocker quiet(ui->m_pLocATCraftNum);
    ui->m_pLocATCraftNum->setCurrentIndex(ui->m_pPalletCraftNum->currentIndex());
}

/// The mode of a craft arrived. One of another robot is pointed out and shown all the same.
void TechnologyWidget::updateSwitchPalletMode(const QByteArray &body)
{
    const std::optional<Reply> reply =
        reply::warnAndGoOn(wire::reply::robot_switchpalletmode, body, reply::error::kTool);
    if (!reply || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *reply))
        return;
    if (const auto mode = reply->integer("usePalletType"))
        palletPages->mode->show(*mode);
}

void TechnologyWidget::Pallet::Mode::show(int mode)
{
    if (mode < 0 || mode >= kModes)
        return;
    shown = mode;
    const Appearance &appearance = kAppearance[mode];
    ui->palletstate->setText(TechnologyWidget::tr(appearance.state));
    ui->BtnPalletEasy->setGeometry(appearance.easy);
    ui->BtnPalletComplete->setGeometry(appearance.complete);
}

void TechnologyWidget::showPalletCompleteWidget()
{
    palletPages->mode->enter(Complete);
}

void TechnologyWidget::showPalletEasyWidget()
{
    palletPages->mode->enter(Easy);
}

/// A craft that is in the other mode is asked about first; one without a mode gets this one.
void TechnologyWidget::Pallet::Mode::enter(int mode)
{
    if (reads(ui, mode == Easy ? Complete : Easy)) {
        ask(question(mode, ui),
            TechnologyWidget::tr("工艺号%1").arg(ui->m_pPalletCraftNum->currentText()));
    } else {
        if (reads(ui, NotSet))
            request::send(message::SetPalletMode, setMode(ui, mode));
        open(mode);
    }
    if (mode == Complete)
        showNumbers();
    else
        widget.changePalletEasyTechnologyNum();
}

void TechnologyWidget::Pallet::Mode::open(int mode)
{
    if (mode == Complete) {
        widget.showTitleAndPage(page::PalletNavigation);
        widget.initPalletRobotType();
    } else {
        widget.initPalletRobotType();
        widget.showTitleAndPage(page::PalletEasy);
    }
}

void TechnologyWidget::SureCompletePalletMode()
{
    palletPages->mode->confirm(Complete);
}

void TechnologyWidget::SureEasyPalletMode()
{
    palletPages->mode->confirm(Easy);
}

/// The mode changes at once; whether the controller took it is seen when the type page asks again.
void TechnologyWidget::Pallet::Mode::confirm(int mode)
{
    endQuestion(question(mode, ui));
    App::currentAction_ = 0;
    SnackbarMessage::showMessage(TechnologyWidget::tr(kSwitches[mode].done), 3000, 1, true);
    const Json::Value body = setMode(ui, mode);
    request::send(message::SetPalletMode, body);
    request::ask(message::GetPalletMode, wire::reply::robot_switchpalletmode,
                 {ui->m_pPalletCraftNum}, body);
    open(mode);
}

void TechnologyWidget::CancelCompletePalletMode()
{
    palletPages->mode->refuse(Complete);
}

void TechnologyWidget::CancelEasyPalletMode()
{
    palletPages->mode->refuse(Easy);
}

void TechnologyWidget::Pallet::Mode::refuse(int mode)
{
    endQuestion(question(mode, ui));
    App::currentAction_ = 0;
}

/// Back from the plane page: the title of that page stays, and the mode is not looked at.
void TechnologyWidget::palletcomplete()
{
    setCurrentIndex(page::PalletNavigation);
}
