#pragma once

#include "ui_conveyor.h"
#include "ui_laser.h"
#include "ui_layers.h"
#include "ui_menu.h"
#include "ui_pallet.h"
#include "ui_plane.h"
#include "ui_polish.h"
#include "ui_position.h"
#include "ui_project.h"
#include "ui_spray.h"
#include "ui_wizard.h"

/// The form of the whole component. Each package brings its pages in form files of its own; here
/// they become one flat form whose members are all widgets by their object names.
class Ui_TechnologyWidget : public Ui_TechnologyWidgetMenu,
                            public Ui_TechnologyWidgetPallet,
                            public Ui_TechnologyWidgetPosition,
                            public Ui_TechnologyWidgetLayers,
                            public Ui_TechnologyWidgetPlane,
                            public Ui_TechnologyWidgetWizard,
                            public Ui_TechnologyWidgetConveyor,
                            public Ui_TechnologyWidgetLaser,
                            public Ui_TechnologyWidgetSpray,
                            public Ui_TechnologyWidgetProject,
                            public Ui_TechnologyWidgetPolish {
public:
    /// Builds all pages into `stack`, puts them into the order of the page table, shows page 0 and
    /// connects the `on_<object>_<signal>` slots.
    void setupUi(QStackedWidget *stack);
    void retranslateUi(QStackedWidget *stack);
};
