// The smallest host: what the whole application knows of itself, and what it is told.

#include "app.h"
#include "cover.h"
#include "displaysize.h"
#include "eventlog.h"
#include "helpers.h"
#include "printlog.h"
#include "setfontsize.h"
#include "snackbarmessage.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

int App::currentAction_ = 0;
int App::mainPage_ = 2;
int App::secondPage_ = 28;
AUTHORITY App::sysUser = AUTHORITY_NONE;
bool App::locked_ = false;
bool App::isDeg = true;
bool App::isSendLargeData_ = false;
QString App::xmlName;
bool App::DCAll_In_One = false;
int App::m_Select_IO_Type = 0;

int DisplaySize::widgetX = 0;
int DisplaySize::widgetY = 0;

namespace {

int waits = 0;

void record(const char *kind, const QVariantList &values = {})
{
    EventLog::getInstance()->record(QLatin1String(kind), values);
}

} // namespace

/// Whoever is logged in may do everything here.
bool App::ForbidOperatorAuthority(AUTHORITY user, const QString &label)
{
    const bool granted = !locked_ && user != AUTHORITY_NONE;
    record("rights", {label, granted});
    if (!granted)
        SnackbarMessage::showMessage(QStringLiteral("Not allowed: ") + label, 3000, 3, true);
    return granted;
}

bool App::canDoOperate()
{
    return !locked_ && waits == 0;
}

bool App::isInCurrentInterface(int mainPage, int secondPage)
{
    return mainPage_ == mainPage && secondPage_ == secondPage;
}

double DegToRad(double degrees)
{
    return degrees * 3.14159265358979323846 / 180.0;
}

void Delayms(unsigned int milliseconds)
{
    record("delay", {milliseconds});
    ++waits;
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(milliseconds), &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    --waits;
}

// The messages and the log have no place of their own on screen: whoever listens to the journal
// shows them.

void SnackbarMessage::showMessage(const QString &text, const int &duration, int kind, bool flag)
{
    record("toast", {text, duration, kind, flag});
}

void PrintLog::OutputToLog(const QString &text, int level)
{
    record("log", {text, level});
}

EventLog::EventLog(QObject *parent) : QObject(parent) { }

EventLog *EventLog::getInstance()
{
    static EventLog *const instance = new EventLog;
    return instance;
}

/// Keeps nothing.
void EventLog::record(const QString &kind, const QVariantList &values)
{
    emit recorded(kind, values);
}

QFont SetFontSize::setSize(int points)
{
    QFont font = QApplication::font();
    font.setPointSize(points);
    return font;
}

// The questions of this host are windows that block the others by themselves.

void CoverOtherWidgetButCurDialog()
{
    record("cover");
}

void DisCoverOtherWidgetButCurDialog()
{
    record("uncover");
}
