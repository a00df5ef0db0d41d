#pragma once

#include "shell/edittoggle.h"
#include "shell/processpackage.h"
#include "shell/technologywidget.h"

/// What polishing keeps.
struct TechnologyWidget::Polish : ProcessPackage {
    explicit Polish(const Ui_TechnologyWidget *ui);

    const EditPage page; ///< the edit toggle of the parameter page
};
