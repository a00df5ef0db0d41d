#include "holdkey.h"

#include "app.h"
#include "inputgate.h"
#include "robot.h"

#include <QKeyEvent>
#include <QMouseEvent>

HoldKey::HoldKey(QWidget *parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_AcceptTouchEvents);
    connect(InputGate::getInstance(), &InputGate::restrictionChanged, this, [this] {
        if (!InputGate::getInstance()->allows(this))
            setHeld(false);
    });
    // After an outage the operator has to press anew.
    connect(Robot::getInstance(), &Robot::linkChanged, this, [this] { setHeld(false); });
}

void HoldKey::setHeld(bool held)
{
    if (held == m_held || (held && !App::canDoOperate()))
        return;
    m_held = held;
    setDown(held);
    emit heldChanged(held);
}

bool HoldKey::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
        setHeld(true);
        event->accept();
        return true;
    case QEvent::TouchUpdate:
        event->accept();
        return true;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        setHeld(false);
        event->accept();
        return true;
    case QEvent::Leave:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::UngrabMouse:
        setHeld(false);
        break;
    case QEvent::EnabledChange:
        if (!isEnabled())
            setHeld(false);
        break;
    default:
        break;
    }
    return QPushButton::event(event);
}

void HoldKey::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        setHeld(true);
}

void HoldKey::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        setHeld(false);
}

void HoldKey::mouseMoveEvent(QMouseEvent *event)
{
    if (!rect().contains(event->pos()))
        setHeld(false);
}

// A focused button would take the space key as a press.
void HoldKey::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void HoldKey::keyReleaseEvent(QKeyEvent *event)
{
    event->ignore();
}
