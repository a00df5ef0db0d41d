#include "shell/buttonstyle.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

void TechnologyWidget::initLaserInterface()
{
    setReturnButtonSheet({ui->m_pBtnLaserTechReturn});
    connect(ui->m_pBtnLaserTechReturn, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
}

void TechnologyWidget::LaserMainPage()
{
    showPage(page::Laser);
}
