#include "jobedit.h"
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
