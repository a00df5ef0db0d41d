#include "lineeditwidget.h"

#include "letterkeyboard.h"

#include <QMouseEvent>

LineEditWidget::LineEditWidget(QWidget *parent) : QLineEdit(parent)
{
    setContextMenuPolicy(Qt::NoContextMenu);
}

void LineEditWidget::mousePressEvent(QMouseEvent *event)
{
    m_touched = event->button() == Qt::LeftButton;
    QLineEdit::mousePressEvent(event);
}

void LineEditWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const bool touched =
        m_touched && event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_touched = false;
    QLineEdit::mouseReleaseEvent(event);
    if (touched && isEnabled() && !isReadOnly())
        LetterKeyboard::open(this);
}
