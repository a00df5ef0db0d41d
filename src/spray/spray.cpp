#include "shell/buttonstyle.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

void TechnologyWidget::initSprayInterface()
{
    setReturnButtonSheet({ui->m_pBtnSprayReturn});
    connect(ui->m_pBtnSprayReturn, &QPushButton::clicked, this, &TechnologyWidget::return_mainPage);
}

void TechnologyWidget::return_spraywiget()
{
    showPage(page::Spray);
}
