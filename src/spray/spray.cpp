#include "shell/buttonstyle.h"
#include "shell/livearm.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

void TechnologyWidget::initSprayInterface()
{
    liveArm->addPage(palletPositionTimer, page::SprayTrack);
    setReturnButtonSheet({ui->m_pBtnSprayReturn});
    connect(ui->m_pBtnSprayReturn, &QPushButton::clicked, this, &TechnologyWidget::return_mainPage);
}

void TechnologyWidget::return_spraywiget()
{
    showPage(page::Spray);
}
