#include "screenhost.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace {

QPointer<QWidget> &chosen()
{
    static QPointer<QWidget> host;
    return host;
}

bool isPlainWindow(const QWidget *widget)
{
    const Qt::WindowType type = widget->windowType();
    return widget->isVisible() && (type == Qt::Window || type == Qt::Widget || type == Qt::Dialog);
}

} // namespace

void ScreenHost::set(QWidget *host)
{
    chosen() = host;
}

QWidget *ScreenHost::widget()
{
    if (chosen())
        return chosen();
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    QWidget *active = QApplication::activeWindow();
    if (active && isPlainWindow(active))
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (isPlainWindow(window))
            return window;
    }
    return nullptr;
}
