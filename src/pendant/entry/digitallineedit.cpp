#include "digitallineedit.h"

#include "keypad.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

namespace {

/// A popup or another window takes the focus for a while; the field is not left by that.
bool comesBack(const QFocusEvent *event)
{
    return event->reason() == Qt::PopupFocusReason
        || event->reason() == Qt::ActiveWindowFocusReason;
}

} // namespace

DigitalLineEdit::DigitalLineEdit(QWidget *parent) : DigitalLineEdit(QString(), parent) { }

DigitalLineEdit::DigitalLineEdit(const QString &text, QWidget *parent) : QLineEdit(text, parent)
{
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QLineEdit::textEdited, this, [this] { m_edited = true; });
    connect(this, &QLineEdit::textChanged, this, [this] { m_confirmed = false; });
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (!m_confirmed)
            finish();
    });
}

void DigitalLineEdit::finish()
{
    m_edited = false;
    m_confirmed = true;
    emit finishType();
}

void DigitalLineEdit::mousePressEvent(QMouseEvent *event)
{
    m_touched = event->button() == Qt::LeftButton;
    QLineEdit::mousePressEvent(event);
}

void DigitalLineEdit::mouseReleaseEvent(QMouseEvent *event)
{
    const bool touched =
        m_touched && event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_touched = false;
    QLineEdit::mouseReleaseEvent(event);
    if (touched && isEnabled() && !isReadOnly())
        openKeypad();
}

void DigitalLineEdit::openKeypad()
{
    m_confirmed = false;
    selectAll();
    Keypad::open(this);
}

void DigitalLineEdit::focusInEvent(QFocusEvent *event)
{
    if (!comesBack(event)) {
        m_edited = false;
        m_confirmed = false;
    }
    QLineEdit::focusInEvent(event);
}

void DigitalLineEdit::focusOutEvent(QFocusEvent *event)
{
    // Whether a field that is left says editingFinished() differs among the versions of Qt: 5.15
    // says it of an untouched field too, and all say it when only the window loses the focus.
    const QString text = this->text();
    const bool hadSelection = hasSelectedText();
    {
        const QSignalBlocker blocker(this);
        QLineEdit::focusOutEvent(event);
    }
    if (this->text() != text) // mended by the validator
        emit textChanged(this->text());
    if (hasSelectedText() != hadSelection)
        emit selectionChanged();
    if (!m_edited || comesBack(event))
        return;
    m_edited = false;
    const QPointer<DigitalLineEdit> alive = this;
    if (hasAcceptableInput())
        emit editingFinished();
    if (alive)
        finish();
}
