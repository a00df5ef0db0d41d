#include "shell/edittoggle.h"

#include "shell/buttonstyle.h"
#include "shell/technologywidget.h"

#include <QPushButton>

namespace {

void enableAll(const QVector<QWidget *> &widgets, bool enabled)
{
    for (QWidget *widget : widgets)
        widget->setEnabled(enabled);
}

void lockNavigation(const EditPage &page, bool locked)
{
    for (QPushButton *button : page.navigation) {
        setSheet(button, locked ? forbiddenButtonSheet() : returnButtonSheet());
        button->setEnabled(!locked);
    }
    if (page.isGuarded())
        page.cancel->setVisible(locked);
}

} // namespace

void showViewState(const EditPage &page)
{
    page.modify->setText(TechnologyWidget::tr("修改"));
    lockNavigation(page, false);
    enableAll(page.fields, false);
}

void showEditState(const EditPage &page)
{
    enableAll(page.fields, true);
    lockNavigation(page, true);
    page.modify->setText(TechnologyWidget::tr("保存"));
}

void pressModify(const EditPage &page, const std::function<bool()> &accept,
                 const std::function<void()> &send)
{
    if (page.modify->text() == TechnologyWidget::tr("修改")) {
        showEditState(page);
        return;
    }
    if (page.modify->text() != TechnologyWidget::tr("保存") || !accept())
        return;
    if (page.isGuarded()) {
        showViewState(page);
        send();
    } else {
        send();
        showViewState(page);
    }
}
