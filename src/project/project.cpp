#include "app.h"
#include "project/project_p.h"
#include "shell/buttonstyle.h"
#include "shell/technologyform.h"

TechnologyWidget::Project::Project(TechnologyWidget &owner)
    : widget(owner), ui(owner.ui), robot(owner.robot)
{
}

void TechnologyWidget::initBWBTechInterface()
{
    projectPages = addPackage<Project>(packages, *this);
    projectPages->initPointPanel();
    setReturnButtonSheet({ui->ReturnProject_Button, ui->OpenProject_Button, ui->btnOpenJob});
    ui->btnOpenJob->hide();
    connect(ui->ReturnProject_Button, &QPushButton::clicked, this,
            &TechnologyWidget::return_mainPage);
}

/// The special process from the menu: the project list, with the buttons of that way in.
void TechnologyWidget::openSpecialProcess()
{
    App::secondPage_ = 29;
    ShowBWBJobList();
    ui->ReturnProject_Button->show();
    ui->OpenProject_Button->show();
    ui->btnOpenJob->hide();
    emit tnw_WidgetTitle(page::kTitleGroup, page::kTable[page::ProjectList].title, 0);
}

void TechnologyWidget::ShowBWBJobList()
{
    setCurrentIndex(page::ProjectList);
}
