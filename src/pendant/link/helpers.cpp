#include "helpers.h"

#include "eventlog.h"
#include "inputgate.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

namespace {

int waits = 0;

struct WaitMark {
    WaitMark()
    {
        ++waits;
        InputGate::getInstance()->hold();
    }
    ~WaitMark()
    {
        --waits;
        InputGate::getInstance()->unhold();
    }
    WaitMark(const WaitMark &) = delete;
    WaitMark &operator=(const WaitMark &) = delete;
};

} // namespace

double DegToRad(double degrees)
{
    constexpr double pi = 3.14159265358979323846;
    return degrees * pi / 180.0;
}

void Delayms(unsigned int milliseconds)
{
    EventLog::getInstance()->record(QStringLiteral("delay"), {milliseconds});
    if (!QCoreApplication::instance()) {
        QThread::msleep(milliseconds);
        return;
    }
    const WaitMark mark;
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(static_cast<int>(qMin(milliseconds, 0x7fffffffU)));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

bool isInDelay()
{
    return waits > 0;
}
