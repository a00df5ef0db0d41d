#include "pallet/pallet_p.h"

#include "jobedit.h"
#include "setingwidget.h"
#include "shell/buttonstyle.h"
#include "shell/livearm.h"
#include "shell/technologyform.h"

#include <QRegularExpressionValidator>
#include <QTimer>

TechnologyWidget::Pallet::Pallet(TechnologyWidget &owner)
    : widget(owner), ui(owner.ui), robot(owner.robot), arm(*owner.liveArm)
{
}

void TechnologyWidget::Pallet::retranslate()
{
    for (const auto &page : pages)
        page->retranslate();
}

void TechnologyWidget::Pallet::forgetRobot()
{
    for (const auto &page : pages)
        page->forgetRobot();
}

void TechnologyWidget::Pallet::linkChanged()
{
    for (const auto &page : pages)
        page->linkChanged();
}

void TechnologyWidget::Pallet::initPages()
{
    initMode();
    initGripper();
    initTray();
    initMotion();
    initPositions();
    initWorkpiece();
    initApproach();
    initLayers();
    initLayerExplanations();
    initPlane();
    initWizard();
    initWizardPoints();
    initWizardVariables();
}

void TechnologyWidget::initPalletTechInterface()
{
    palletPages = addPackage<Pallet>(packages, *this);
    setReturnButtonSheet({ui->m_pBtnPalletTechReturn});
    ui->levelsnum->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{0,3}")), this));
    for (QTimer **timer : {&palletPositionTimer, &wizardPositionTimer, &palletEasyPositionTimer,
                           &bwbPositionTimer}) {
        *timer = new QTimer;
        (*timer)->setInterval(LiveArm::kInterval);
    }
    jobEdit = new JobEdit;
    connect(ui->m_pBtnPalletTechReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
    palletPages->initPages();
}

void TechnologyWidget::return_PalletPage()
{
    showPage(page::Pallet);
}

void TechnologyWidget::reflashTechnologyIOPortList()
{
    QVector<QComboBox *> boxes = {ui->tongs_1_port, ui->tongs_2_port, ui->tongs_3_port,
                                  ui->tongs_4_port};
    SetingWidget::getInstance()->initIoDoutPortList(boxes, tr("无"));
    boxes = {ui->get_enable_signal, ui->tongs_1_getsucceed, ui->tongs_2_getsucceed,
             ui->tongs_3_getsucceed, ui->tongs_4_getsucceed};
    SetingWidget::getInstance()->initIoDinPortList(boxes, tr("无"));
}

void TechnologyWidget::initPalletRobotType()
{
    liveArm->showColumns();
}
