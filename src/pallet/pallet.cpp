#include "jobedit.h"
#include "morerobot.h"
#include "setingwidget.h"
#include "shell/buttonstyle.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QRegularExpressionValidator>
#include <QTimer>

void TechnologyWidget::initPalletTechInterface()
{
    setReturnButtonSheet({ui->m_pBtnPalletTechReturn});
    ui->levelsnum->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{0,3}")), this));
    for (QTimer **timer : {&palletPositionTimer, &wizardPositionTimer, &palletEasyPositionTimer,
                           &bwbPositionTimer}) {
        *timer = new QTimer;
        (*timer)->setInterval(400);
    }
    jobEdit = new JobEdit;
    connect(ui->m_pBtnPalletTechReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
    initPalletMode();
    initGripper();
    initTray();
    initMotion();
    initPosition();
    initWorkpiece();
    initApproach();
    initOverlapping();
    initOverlapExplanations();
    initPlane();
    initWizard();
    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this,
            &TechnologyWidget::forgetOtherRobot);
}

/// The pendant works with another robot: what the pages hold of the last one is not shown, marked,
/// calculated with or run to until the controller has told it of this one.
void TechnologyWidget::forgetOtherRobot()
{
    toolFrameTexts = {};
    showToolFrames();
    for (const QVector<QLabel *> &labels : {trayOriginLabels, trayXLabels, trayYLabels}) {
        for (QLabel *label : labels)
            label->clear();
    }
    forgetLivePosition();
    forgetTaughtPositions();
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
