// The smallest host: the fields that stand on the pages. They are those of Qt, with no keypad.

#include "boxpainter.h"
#include "digitallineedit.h"
#include "lineeditwidget.h"
#include "switchbutton.h"

#include <QPainter>

DigitalLineEdit::DigitalLineEdit(QWidget *parent) : DigitalLineEdit(QString(), parent) { }

DigitalLineEdit::DigitalLineEdit(const QString &text, QWidget *parent) : QLineEdit(text, parent)
{
    connect(this, &QLineEdit::textEdited, this, [this] { m_edited = true; });
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (m_edited)
            emit finishType();
        m_edited = false;
    });
}

void DigitalLineEdit::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
}

void DigitalLineEdit::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
}

void DigitalLineEdit::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
}

void DigitalLineEdit::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
}

LineEditWidget::LineEditWidget(QWidget *parent) : QLineEdit(parent) { }

void LineEditWidget::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
}

void LineEditWidget::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
}

SwitchButton::SwitchButton(QWidget *parent) : QAbstractButton(parent) { }

void SwitchButton::setCheck(bool on)
{
    m_check = on;
    update();
}

QSize SwitchButton::sizeHint() const
{
    return {76, 40};
}

QSize SwitchButton::minimumSizeHint() const
{
    return {64, 40};
}

void SwitchButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawText(rect(), Qt::AlignCenter, m_check ? QStringLiteral("1") : QStringLiteral("0"));
}

/// An empty canvas: this host draws no layouts.
BoxPainter::BoxPainter(QWidget *parent) : QGraphicsView(parent) { }

void BoxPainter::setXY(double width, double height)
{
    m_extent = {width, height};
}

void BoxPainter::drawBackground(QPainter *painter, const QRectF &rect)
{
    QGraphicsView::drawBackground(painter, rect);
}

void BoxPainter::drawForeground(QPainter *painter, const QRectF &rect)
{
    QGraphicsView::drawForeground(painter, rect);
}

void BoxPainter::mousePressEvent(QMouseEvent *event)
{
    QGraphicsView::mousePressEvent(event);
}

void BoxPainter::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
}
