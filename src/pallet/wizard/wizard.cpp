// The program wizard: turning its five pages and leaving it. What they collect ends up in
// programInformation; the controller is asked for nothing but the robot's position.

#include "app.h"
#include "morerobot.h"
#include "pallet/wizard/points_p.h"
#include "pallet/wizard/wizardpages.h"
#include "promptwidget.h"
#include "shell/buttonstyle.h"
#include "shell/technologyform.h"
#include "snackbarmessage.h"
#include "switchbutton.h"

namespace {

using Form = Ui_TechnologyWidget;

constexpr int kLeaving = 6; ///< App::currentAction_ while one of the wizard's questions is open

/// What the pages call their points and legs by the function that is chosen on the first page.
struct Wording {
    const char *function;
    const char *get;
    const char *upper;
    const char *safe;
    const char *picture; ///< style sheet
    const char *firstLeg;
    const char *lastLeg;
    const char *firstWay;
    const char *middleWay;
    const char *lastWay;
};

const Wording kWordings[] = {
    {QT_TRANSLATE_NOOP("TechnologyWidget", "码垛"), QT_TRANSLATE_NOOP("TechnologyWidget", "取料点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "取料点上方"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "取料安全点"),
     "image: url(:/new/picture/Resources/res/Setgetposition.png)",
     QT_TRANSLATE_NOOP("TechnologyWidget", "取料过程"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "码垛过程"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "取料点上方-取料点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "取料点上方-码垛入口点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "码垛入口点-码垛辅助点-工件点")},
    // 跺 for 垛 is how these texts are known
    {QT_TRANSLATE_NOOP("TechnologyWidget", "卸垛"), QT_TRANSLATE_NOOP("TechnologyWidget", "放料点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "放料点上方"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "放料安全点"),
     "image: url(:/new/picture/Resources/res/Setputposition.png)",
     QT_TRANSLATE_NOOP("TechnologyWidget", "卸跺过程"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "放料过程"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "卸跺入口点-卸跺辅助点-工件点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "卸跺点上方-放料入口点"),
     QT_TRANSLATE_NOOP("TechnologyWidget", "放料点上方-放料点")},
};

const Wording *wordingOf(const Form *ui)
{
    for (const Wording &wording : kWordings) {
        if (ui->palletFunctioncomboBox->currentText() == TechnologyWidget::tr(wording.function))
            return &wording;
    }
    return nullptr;
}

/// The name of a program, black, or red once it was refused.
QString nameSheet(const char *colour)
{
    return QStringLiteral("background-color: rgb(255, 255, 255);"
                          "border: 1px solid  rgb(106, 106, 106);color:%1;")
        .arg(QLatin1String(colour));
}

void clearName(const Form *ui)
{
    ui->palletProgrameName_edit->clear();
    setSheet(ui->palletProgrameName_edit, nameSheet("black"));
}

/// What the question before the way back to the first page locks.
QVector<QWidget *> pointPageControls(const Form *ui)
{
    return {ui->createdFileReturnBtn2, ui->createdFilePagedownBtn2, ui->createdFilePageupBtn,
            ui->positionGetPoint,      ui->positionGetUpperPoint,   ui->positionGetSafePoint,
            ui->moveToGetPoint,        ui->moveToGetUpperPoint,     ui->moveToGetSafePoint};
}

/// What the question before the wizard is left locks.
QVector<QWidget *> laterPagesControls(const Form *ui)
{
    return {
        ui->palletCreatedFilewidget2, ui->palletCreatedFilewidget3, ui->palletCreatedFilewidget4,
        ui->palletCreatedFilewidget5, ui->createdFileReturnBtn2,    ui->createdFileReturnBtn3,
        ui->createdFileReturnBtn4,    ui->createdFileReturnBtn5,    ui->createdFilePageupBtn,
        ui->createdFilePageupBtn2,    ui->createdFilePageupBtn3,    ui->createdFilePageupBtn4,
        ui->createdFilePagedownBtn2,  ui->createdFilePagedownBtn3,  ui->createdFilePagedownBtn4,
        ui->createdFileFinishBtn};
}

void enableAll(const QVector<QWidget *> &widgets, bool enabled)
{
    for (QWidget *widget : widgets)
        widget->setEnabled(enabled);
}

/// The pages stay in sight under these two questions, and the enabling switch as it is.
void question(PromptWidget::WIDGETNAME prompt, const QVector<QWidget *> &locked)
{
    App::currentAction_ = kLeaving;
    PromptWidget::getInstance()->repaint_widget(prompt, QString());
    PromptWidget::getInstance()->set_widget_state(prompt);
    enableAll(locked, false);
}

/// A refusal that stays until the operator has read it.
void refuse(const char *text)
{
    SnackbarMessage::showMessage(TechnologyWidget::tr(text), -1, 2, true);
}

} // namespace

/// What the wizard wrote on its pages, so that it can be written in another language.
struct TechnologyWidget::Pallet::Wizard : Page {
    using Page::Page;

    void retranslate() override;

    void showPointNames();
    void showLegNames();
    void showProgramme();

    // Null as long as the page was not opened.
    const Wording *pointNames = nullptr;
    const Wording *legNames = nullptr;
    // At the head of the pages behind the first, as they were when the first was left.
    QString craft;
    int function = -1; ///< row of its box; -1: there is nothing at the head yet
    QString name;
};

void TechnologyWidget::Pallet::initWizard()
{
    wizard = addPackage<Wizard>(pages, *this);
    setReturnButtonSheet(
        {ui->createdFileReturnBtn1, ui->createdFileReturnBtn2, ui->createdFileReturnBtn3,
         ui->createdFileReturnBtn4, ui->createdFileReturnBtn5, ui->createdFilePageupBtn,
         ui->createdFilePageupBtn2, ui->createdFilePageupBtn3, ui->createdFilePageupBtn4,
         ui->createdFilePagedownBtn1, ui->createdFilePagedownBtn2, ui->createdFilePagedownBtn3,
         ui->createdFilePagedownBtn4, ui->createdFileFinishBtn});
    ui->palletProgrameName_edit->setTextMargins(8, 0, 8, 0);
    clearName(ui);

    widget.connectClicks({
        {ui->BtnPalletFile, &TechnologyWidget::palletCreatedFileWidget1},
        {ui->createdFilePagedownBtn1, &TechnologyWidget::palletCreatedFileWidget2},
        {ui->createdFilePageupBtn2, &TechnologyWidget::palletCreatedFileWidget2},
        {ui->createdFilePagedownBtn2, &TechnologyWidget::palletCreatedFileWidget3},
        {ui->createdFilePageupBtn3, &TechnologyWidget::palletCreatedFileWidget3},
        {ui->createdFilePagedownBtn3, &TechnologyWidget::palletCreatedFileWidget4},
        {ui->createdFilePageupBtn4, &TechnologyWidget::palletCreatedFileWidget4},
        {ui->createdFilePagedownBtn4, &TechnologyWidget::palletCreatedFileWidget5},
        {ui->createdFileReturnBtn1, &TechnologyWidget::return_PalletPage},
        {ui->createdFileReturnBtn2, &TechnologyWidget::exitCreateFile},
        {ui->createdFileReturnBtn3, &TechnologyWidget::exitCreateFile},
        {ui->createdFileReturnBtn4, &TechnologyWidget::exitCreateFile},
        {ui->createdFileReturnBtn5, &TechnologyWidget::exitCreateFile},
        {ui->createdFilePageupBtn, &TechnologyWidget::returnCreateFile},
    });
}

void TechnologyWidget::Pallet::Wizard::retranslate()
{
    widget.reflashTechnologyIOPortList(); // their first row is no port but a word
    showPointNames();
    showLegNames();
    showProgramme();
}

void TechnologyWidget::Pallet::Wizard::showPointNames()
{
    if (!pointNames)
        return;
    ui->label_286->setText(TechnologyWidget::tr(pointNames->get));
    ui->label_265->setText(TechnologyWidget::tr(pointNames->upper));
    ui->label_273->setText(TechnologyWidget::tr(pointNames->safe));
    setSheet(ui->label_318, QLatin1String(pointNames->picture));
}

void TechnologyWidget::Pallet::Wizard::showLegNames()
{
    if (!legNames)
        return;
    ui->label_275->setText(TechnologyWidget::tr(legNames->firstLeg));
    ui->label_280->setText(TechnologyWidget::tr(legNames->lastLeg));
    ui->label_335->setText(TechnologyWidget::tr(legNames->firstWay));
    ui->label_336->setText(TechnologyWidget::tr(legNames->middleWay));
    ui->label_337->setText(TechnologyWidget::tr(legNames->lastWay));
}

/// Opens the wizard on its first page.
void TechnologyWidget::palletCreatedFileWidget1()
{
    if (App::m_Select_IO_Type == 0) {
        SnackbarMessage::showMessage(tr("未检测到IO，无法使用该功能"), 3000, 1, true);
        return;
    }
    showTitleAndPage(page::Wizard1);
    initPalletRobotType();
    clearName(ui);
    // A question that another one took the place of was never answered.
    enableAll(pointPageControls(ui) + laterPagesControls(ui), true);
}

/// Opens the page of the points, if the program can have its name.
void TechnologyWidget::palletCreatedFileWidget2()
{
    if (const Wording *wording = wordingOf(ui))
        palletPages->wizard->pointNames = wording;
    palletPages->wizard->showPointNames();
    const QString name = ui->palletProgrameName_edit->text();
    jobManager.updateJobsFileInfo(MoreRobot::getCurrentRobot(), false, QString(), QString());
    const char *refusal = nullptr;
    if (jobManager.jobExists(name))
        refusal = QT_TR_NOOP("该名称已经存在，请重新命名其他名称！");
    else if (!JobManager::isValidFileName(name))
        refusal = QT_TR_NOOP("文件命名不符合规范！");
    if (refusal) {
        setSheet(ui->palletProgrameName_edit, nameSheet("red"));
        refuse(refusal);
        return;
    }
    setSheet(ui->palletProgrameName_edit, nameSheet("black"));
    palletPages->jobIsGenerated = false;
    programInformation.name = name;
    programInformation.craftNumber = ui->palletNumTechcomboBox->currentIndex() + 1;
    programInformation.functionNumber = ui->palletFunctioncomboBox->currentIndex() + 1;
    palletPages->wizard->craft = ui->palletNumTechcomboBox->currentText();
    palletPages->wizard->function = ui->palletFunctioncomboBox->currentIndex();
    palletPages->wizard->name = name;
    palletPages->wizard->showProgramme();
    palletPages->wizardPoints->open();
    setCurrentIndex(page::Wizard2);
    liveArm->start(wizardPositionTimer);
}

/// Opens the page of the ports, once each point was marked.
void TechnologyWidget::palletCreatedFileWidget3()
{
    if (palletPages->getPointMarks == 0 || palletPages->upperPointMarks == 0
        || palletPages->safePointMarks == 0) {
        refuse(QT_TR_NOOP("标定未完成！"));
        return;
    }
    reflashTechnologyIOPortList();
    setCurrentIndex(page::Wizard3);
}

/// Opens the page of the variables. Only the first gripper has to be there.
void TechnologyWidget::palletCreatedFileWidget4()
{
    if (ui->tongs_1_port->currentText() == tr("无")) {
        SnackbarMessage::showMessage(tr("抓手1电磁阀端口不能为 无！"), 5000, 1, true);
        return;
    }
    saveWizardPutGetGoodsParam(false, 0);
    saveWizardPumpParam(false, 0);
    saveWizardSuccessParam(false, 0);
    setCurrentIndex(page::Wizard4);
    wizard::appendEndVariables(ui);
}

/// Opens the page of the legs.
void TechnologyWidget::palletCreatedFileWidget5()
{
    if (const Wording *wording = wordingOf(ui))
        palletPages->wizard->legNames = wording;
    palletPages->wizard->showLegNames();
    if (!wizard::acceptVariables(ui))
        return;
    setCurrentIndex(page::Wizard5);
}

/// Names the program at the head of the pages behind the first.
void TechnologyWidget::Pallet::Wizard::showProgramme()
{
    if (function < 0)
        return;
    const QString shortName = widget.fontMetrics().elidedText(name, Qt::ElideMiddle, 200);
    const QString text = TechnologyWidget::tr("工艺号:%1  %2  %3")
                             .arg(craft, ui->palletFunctioncomboBox->itemText(function), shortName);
    for (QLabel *label :
         {ui->wizardProgramme2, ui->wizardProgramme3, ui->wizardProgramme4, ui->wizardProgramme5})
        label->setText(text);
}

/// Back to the first page costs what was collected.
void TechnologyWidget::returnCreateFile()
{
    if (!App::canDoOperate())
        return;
    question(PromptWidget::PROMPT_WIZARD_RESET, pointPageControls(ui));
    // once, however often the question is asked: one answer acts once
    connect(promptWidget, &PromptWidget::rePageReData, this, &TechnologyWidget::sureResetWizardData,
            Qt::UniqueConnection);
    connect(promptWidget, &PromptWidget::rePageReData2, this,
            &TechnologyWidget::sureResetWizardData2, Qt::UniqueConnection);
}

void TechnologyWidget::sureResetWizardData()
{
    enableAll(pointPageControls(ui), true);
    setCurrentIndex(page::Wizard1);
    initializeCreateFile();
    clearName(ui);
    App::currentAction_ = 0;
}

void TechnologyWidget::sureResetWizardData2()
{
    enableAll(pointPageControls(ui), true);
    App::currentAction_ = 0;
}

/// Leaving the wizard costs what was collected.
void TechnologyWidget::exitCreateFile()
{
    if (!App::canDoOperate())
        return;
    question(PromptWidget::PROMPT_WIZARD_EXIT, laterPagesControls(ui));
    connect(promptWidget, &PromptWidget::exitPalFile, this, &TechnologyWidget::exitPalletFile,
            Qt::UniqueConnection);
    connect(promptWidget, &PromptWidget::cancelExitPalFile, this,
            &TechnologyWidget::cancelExitPalletFile, Qt::UniqueConnection);
}

void TechnologyWidget::exitPalletFile()
{
    showPage(page::Pallet);
    enableAll(laterPagesControls(ui), true);
    initializeCreateFile();
    clearName(ui);
    App::currentAction_ = 0;
}

/// App::currentAction_ stays as it is, other than after the question of the way back.
void TechnologyWidget::cancelExitPalletFile()
{
    enableAll(laterPagesControls(ui), true);
}

/// Everything collected is forgotten, but for craft, function and name on the first page.
void TechnologyWidget::initializeCreateFile()
{
    programInformation.clear();
    palletPages->wizardPoints->reset();
    wizard::resetPorts(ui);
    for (QComboBox *box :
         {ui->totalVariabletype, ui->layerVariabletype, ui->stackVariabletype,
          ui->paloffVariabletype, ui->getProcess, ui->middleProcess, ui->palletProcess})
        box->setCurrentIndex(0);
    for (SwitchButton *button : {ui->xyPathOptimization, ui->zPathOptimization})
        button->setCheck(false);
}
