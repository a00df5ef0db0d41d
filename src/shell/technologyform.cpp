#include "shell/technologyform.h"

#include "shell/pagetable.h"

#include <QHash>

namespace {

void orderPages(QStackedWidget *stack)
{
    QHash<QString, QWidget *> pages;
    while (QWidget *page = stack->widget(0)) {
        pages.insert(page->objectName(), page);
        stack->removeWidget(page);
    }
    for (const page::Row &row : page::kTable)
        stack->addWidget(pages.value(QString::fromLatin1(row.objectName)));
}

} // namespace

void Ui_TechnologyWidget::setupUi(QStackedWidget *stack)
{
    Ui_TechnologyWidgetMenu::setupUi(stack);
    Ui_TechnologyWidgetPallet::setupUi(stack);
    Ui_TechnologyWidgetPosition::setupUi(stack);
    Ui_TechnologyWidgetLayers::setupUi(stack);
    Ui_TechnologyWidgetPlane::setupUi(stack);
    Ui_TechnologyWidgetWizard::setupUi(stack);
    Ui_TechnologyWidgetConveyor::setupUi(stack);
    Ui_TechnologyWidgetLaser::setupUi(stack);
    Ui_TechnologyWidgetSpray::setupUi(stack);
    Ui_TechnologyWidgetProject::setupUi(stack);
    Ui_TechnologyWidgetPolish::setupUi(stack);

    orderPages(stack);
    stack->setCurrentIndex(page::Menu);
    QMetaObject::connectSlotsByName(stack);
}

void Ui_TechnologyWidget::retranslateUi(QStackedWidget *stack)
{
    Ui_TechnologyWidgetMenu::retranslateUi(stack);
    Ui_TechnologyWidgetPallet::retranslateUi(stack);
    Ui_TechnologyWidgetPosition::retranslateUi(stack);
    Ui_TechnologyWidgetLayers::retranslateUi(stack);
    Ui_TechnologyWidgetPlane::retranslateUi(stack);
    Ui_TechnologyWidgetWizard::retranslateUi(stack);
    Ui_TechnologyWidgetConveyor::retranslateUi(stack);
    Ui_TechnologyWidgetLaser::retranslateUi(stack);
    Ui_TechnologyWidgetSpray::retranslateUi(stack);
    Ui_TechnologyWidgetProject::retranslateUi(stack);
    Ui_TechnologyWidgetPolish::retranslateUi(stack);
}
