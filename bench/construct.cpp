// Construct the process pages and show them first, against a stack with the same number and kinds
// of bare widgets in the same places.

#include "pendantstyle.h"
#include "rounds.h"
#include "shell/technologywidget.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <memory>

namespace {

QWidget *bareWidget(const QWidget *model, QWidget *parent)
{
    if (qobject_cast<const QToolButton *>(model))
        return new QToolButton(parent);
    if (qobject_cast<const QPushButton *>(model))
        return new QPushButton(parent);
    if (qobject_cast<const QLineEdit *>(model))
        return new QLineEdit(parent);
    if (const auto *box = qobject_cast<const QComboBox *>(model)) {
        auto *bare = new QComboBox(parent);
        for (int i = 0; i < box->count(); ++i)
            bare->addItem(box->itemText(i));
        return bare;
    }
    if (qobject_cast<const QLabel *>(model))
        return new QLabel(parent);
    if (qobject_cast<const QGraphicsView *>(model))
        return new QGraphicsView(parent);
    return new QWidget(parent);
}

/// Whether a widget makes its own inner widgets, so that they are not to be made once more.
bool bringsItsOwn(const QWidget *model)
{
    return qobject_cast<const QComboBox *>(model) || qobject_cast<const QLineEdit *>(model)
        || qobject_cast<const QGraphicsView *>(model);
}

void copyBare(const QWidget *model, QWidget *copy, int *count);

void copyPages(const QStackedWidget *model, QStackedWidget *copy, int *count)
{
    for (int i = 0; i < model->count(); ++i) {
        auto *page = new QWidget;
        ++*count;
        copyBare(model->widget(i), page, count);
        copy->addWidget(page);
    }
}

void copyBare(const QWidget *model, QWidget *copy, int *count)
{
    for (QObject *object : model->children()) {
        const auto *child = qobject_cast<const QWidget *>(object);
        if (!child)
            continue;
        ++*count;
        if (const auto *stack = qobject_cast<const QStackedWidget *>(child)) {
            auto *bare = new QStackedWidget(copy);
            bare->setGeometry(child->geometry());
            copyPages(stack, bare, count);
            continue;
        }
        if (const auto *tabs = qobject_cast<const QTabWidget *>(child)) {
            auto *bare = new QTabWidget(copy);
            bare->setGeometry(child->geometry());
            for (int i = 0; i < tabs->count(); ++i)
                bare->addTab(new QWidget, QString());
            continue;
        }
        QWidget *bare = bareWidget(child, copy);
        bare->setGeometry(child->geometry());
        bare->setVisible(!child->isHidden());
        if (!bringsItsOwn(child))
            copyBare(child, bare, count);
    }
}

void showOnce(QWidget *widget)
{
    widget->resize(714, 504);
    widget->show();
    QApplication::processEvents();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PendantStyle::apply(application);
    VeltrixWidgetFoundation::getGlobalMainWindow();

    const TechnologyWidget model(nullptr);
    int widgets = 0;
    {
        QStackedWidget bare;
        copyPages(&model, &bare, &widgets);
    }
    std::printf("%d pages, %d widgets\n", model.count(), widgets);

    std::unique_ptr<QWidget> keep;
    compare(
        "construct and show", 25,
        [&keep] {
            keep = std::make_unique<TechnologyWidget>(nullptr);
            showOnce(keep.get());
        },
        [&keep, &model] {
            auto bare = std::make_unique<QStackedWidget>();
            int count = 0;
            copyPages(&model, bare.get(), &count);
            keep = std::move(bare);
            showOnce(keep.get());
        });
    return 0;
}
