#include "idlelock.h"

#include "app.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace {

const QString kKey = QStringLiteral("idleLockMinutes");

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

IdleLock::IdleLock(QObject *parent) : QObject(parent), m_timer(new QTimer(this))
{
    auto elapsed = std::make_shared<QElapsedTimer>();
    elapsed->start();
    m_clock = [elapsed] { return elapsed->elapsed(); };
    m_lastInput = m_clock();
    m_timer->setInterval(1000);
    connect(m_timer, &QTimer::timeout, this, &IdleLock::check);
    m_timer->start();
    QCoreApplication::instance()->installEventFilter(this);
}

int IdleLock::minutes()
{
    return std::max(0, VeltrixDatabase::getInstance()->value(kKey, kUsualMinutes).toInt());
}

void IdleLock::setMinutes(int minutes)
{
    VeltrixDatabase::getInstance()->setValue(kKey, std::max(0, minutes));
}

void IdleLock::setClock(std::function<qint64()> clock)
{
    m_clock = std::move(clock);
    touch();
}

void IdleLock::touch()
{
    m_lastInput = m_clock();
}

void IdleLock::setHeld(bool held)
{
    m_held = held;
    touch();
}

void IdleLock::check()
{
    const qint64 limit = qint64(minutes()) * 60 * 1000;
    if (limit == 0 || m_held || App::locked_ || !UserAccounts::getInstance()->hasAccounts()) {
        if (m_held)
            touch();
        return;
    }
    if (m_clock() - m_lastInput >= limit)
        emit expired();
}

bool IdleLock::eventFilter(QObject *watched, QEvent *event)
{
    if (isInput(event->type()))
        touch();
    return QObject::eventFilter(watched, event);
}
