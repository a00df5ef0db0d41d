#include "switchbutton.h"

#include <QPainter>

SwitchButton::SwitchButton(QWidget *parent) : QAbstractButton(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumSize(minimumSizeHint());
}

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
    painter.setRenderHint(QPainter::Antialiasing);

    const qreal height = qMin(34, QWidget::height() - 4);
    const QRectF track(2, (QWidget::height() - height) / 2, width() - 4, height);
    const qreal radius = height / 2;
    const bool enabled = isEnabled();
    QColor ground = m_check ? palette().color(QPalette::Highlight) : QColor(0xa6, 0xab, 0xb0);
    if (!enabled)
        ground = m_check ? QColor(0x9f, 0xb4, 0xc4) : QColor(0xc8, 0xcb, 0xce);
    if (isDown())
        ground = ground.darker(115);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight).darker(140), 2)
                              : QPen(ground.darker(120), 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(track, radius, radius);

    const qreal size = height - 6;
    const qreal left = m_check ? track.right() - 3 - size : track.left() + 3;
    const QRectF knob(left, track.top() + 3, size, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(enabled ? QColor(Qt::white) : QColor(0xec, 0xec, 0xec));
    painter.drawEllipse(knob);

    // The word stands on the side that the knob leaves free.
    QRectF word = track.adjusted(4, 0, -4, 0);
    if (m_check)
        word.setRight(knob.left());
    else
        word.setLeft(knob.right());
    const QColor dark =
        palette().color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    painter.setPen(m_check ? QColor(Qt::white) : dark);
    painter.drawText(word, Qt::AlignCenter, m_check ? tr("开") : tr("关"));
}
