#include "snackbarmessage.h"

#include "eventlog.h"
#include "screenhost.h"
#include "snackbarpanel.h"

void SnackbarMessage::showMessage(const QString &text, const int &duration, int kind, bool flag)
{
    EventLog::getInstance()->record(QStringLiteral("toast"), {text, duration, kind, flag});
    if (QWidget *host = ScreenHost::widget())
        SnackbarStack::of(host)->add({text, duration, kind, false});
}

void SnackbarMessage::showStanding(const QString &text, int kind)
{
    EventLog::getInstance()->record(QStringLiteral("toast"), {text, -1, kind, true});
    if (QWidget *host = ScreenHost::widget())
        SnackbarStack::of(host)->add({text, -1, kind, true});
}

void SnackbarMessage::setHost(QWidget *host)
{
    ScreenHost::set(host);
}

QStringList SnackbarMessage::shownTexts()
{
    const SnackbarStack *stack = SnackbarStack::current();
    return stack ? stack->shownTexts() : QStringList();
}

QStringList SnackbarMessage::waitingTexts()
{
    const SnackbarStack *stack = SnackbarStack::current();
    return stack ? stack->waitingTexts() : QStringList();
}

void SnackbarMessage::dismissAll()
{
    if (SnackbarStack *stack = SnackbarStack::current())
        stack->dismissAll();
}
