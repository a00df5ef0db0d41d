#include "inputgate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace {

bool isBelow(const QWidget *widget, const QWidget *root)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget == root)
            return true;
    }
    return false;
}

/// A dialog that blocks the other windows by itself is what the operator is asked.
bool isInModalDialog(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->isWindow() && widget->isModal() && widget->isVisible())
            return true;
    }
    return false;
}

/// A list or menu that is open takes every touch, wherever it lies; those that do not belong to
/// `root` are closed, and no row of them is chosen. Nested ones close from the top.
void closePopupsBeside(const QWidget *root)
{
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (isBelow(popup, root))
            return;
        popup->close();
        if (QApplication::activePopupWidget() == popup)
            popup->hide(); // one that refuses to close
        if (QApplication::activePopupWidget() == popup)
            return;
    }
}

bool isPress(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
        || type == QEvent::TouchBegin || type == QEvent::TabletPress;
}

bool endsPress(QEvent::Type type)
{
    return type == QEvent::MouseButtonRelease || type == QEvent::TouchEnd
        || type == QEvent::TouchCancel || type == QEvent::TabletRelease;
}

bool isOperatorInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::Gesture:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

InputGate::InputGate(QObject *parent) : QObject(parent)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

InputGate *InputGate::getInstance()
{
    static QPointer<InputGate> instance;
    if (!instance)
        instance = new InputGate(QCoreApplication::instance());
    return instance;
}

void InputGate::restrictTo(QWidget *root)
{
    if (!root)
        return;
    closePopupsBeside(root);
    m_roots.removeAll(nullptr);
    m_roots.removeAll(root);
    m_roots.append(root);
    emit restrictionChanged();
}

void InputGate::release(QWidget *root)
{
    const auto before = m_roots.size();
    m_roots.removeAll(root);
    m_roots.removeAll(nullptr);
    if (m_roots.size() != before)
        emit restrictionChanged();
}

QWidget *InputGate::topRoot() const
{
    for (auto root = m_roots.crbegin(); root != m_roots.crend(); ++root) {
        if (*root)
            return *root;
    }
    return nullptr;
}

bool InputGate::isRestricted() const
{
    return topRoot() != nullptr;
}

bool InputGate::allows(const QWidget *widget) const
{
    if (m_holds > 0)
        return false;
    const QWidget *root = topRoot();
    if (!root || isBelow(widget, root))
        return true;
    for (const QPointer<QWidget> &companion : m_companions) {
        if (companion && isBelow(widget, companion))
            return true;
    }
    return isInModalDialog(widget);
}

void InputGate::addCompanion(QWidget *widget)
{
    m_companions.removeAll(nullptr);
    if (widget && !m_companions.contains(widget))
        m_companions.append(widget);
}

bool InputGate::allowsObject(const QObject *object) const
{
    // Shortcuts and actions belong to the next widget above them.
    for (; object; object = object->parent()) {
        if (object->isWidgetType())
            return allows(static_cast<const QWidget *>(object));
    }
    return false;
}

bool InputGate::isRelease(const QObject *watched, const QEvent *event)
{
    const auto *button = qobject_cast<const QAbstractButton *>(watched);
    const bool known =
        m_pressed.contains(const_cast<QObject *>(watched)) || (button && button->isDown());
    if (endsPress(event->type()))
        m_released = true;
    return known
        && (endsPress(event->type()) || event->type() == QEvent::MouseMove
            || event->type() == QEvent::TouchUpdate || event->type() == QEvent::TabletMove);
}

bool InputGate::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (!isOperatorInput(type))
        return false;
    // Windows pass the events on to their widgets, which are looked at here again.
    if (!watched->isWidgetType() && type != QEvent::Shortcut)
        return false;
    const bool open = m_holds == 0 && !isRestricted();
    if (isRelease(watched, event) || open || allowsObject(watched)) {
        if (isPress(type)) {
            if (m_released)
                m_pressed.clear();
            m_released = false;
            m_pressed.append(watched);
        }
        return false;
    }
    event->accept();
    return true;
}
