#include "cover.h"

#include "eventlog.h"
#include "inputgate.h"
#include "promptwidget.h"
#include "screenhost.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>

namespace {

/// A translucent pane as large as the widget that it lies over.
class CoverPane : public QWidget {
public:
    explicit CoverPane(QWidget *host) : QWidget(host)
    {
        setObjectName(QStringLiteral("coverPane"));
        setGeometry(host->rect());
        host->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && watched == parent())
            setGeometry(parentWidget()->rect());
        return QWidget::eventFilter(watched, event);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect(), QColor(0, 0, 0, 110));
    }
};

QPointer<CoverPane> pane;

} // namespace

void CoverOtherWidgetButCurDialog()
{
    EventLog::getInstance()->record(QStringLiteral("cover"));
    QWidget *host = ScreenHost::widget();
    if (!host)
        return;
    if (pane && pane->parentWidget() != host)
        delete pane;
    if (!pane)
        pane = new CoverPane(host);
    pane->show();
    pane->raise();
    InputGate::getInstance()->restrictTo(pane);
    // A prompt that is up already stays above the cover and keeps the operator's input.
    PromptWidget::getInstance()->stayOnTop();
}

void DisCoverOtherWidgetButCurDialog()
{
    EventLog::getInstance()->record(QStringLiteral("uncover"));
    if (!pane)
        return;
    InputGate::getInstance()->release(pane);
    delete pane;
}
