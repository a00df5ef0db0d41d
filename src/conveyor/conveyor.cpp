#include "shell/buttonstyle.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QTimer>

void TechnologyWidget::inittrackCon()
{
    ui->BtnTrackConPara->setFont(ui->BtnTrackConveyor->font());
    setReturnButtonSheet({ui->m_pBtnTrackConReturn});
    trackSpeedTimer = new QTimer;
    trackSpeedTimer->setInterval(400);
    connect(ui->m_pBtnTrackConReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
}
