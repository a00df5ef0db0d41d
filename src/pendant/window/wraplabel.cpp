#include "wraplabel.h"

#include "setfontsize.h"

#include <QPainter>

namespace {

constexpr int kSmallest = 9; // points

constexpr int kWrapping = Qt::TextWordWrap | Qt::TextWrapAnywhere;

} // namespace

WrapLabel::WrapLabel(int points, int lines, QWidget *parent)
    : QLabel(parent), m_points(points), m_lines(lines)
{
    setTextFormat(Qt::PlainText);
    setFont(SetFontSize::setSize(points));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize WrapLabel::sizeHint() const
{
    return {100, m_lines * QFontMetrics(font()).lineSpacing() + 2 * margin()};
}

QSize WrapLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

QRect WrapLabel::inside() const
{
    return contentsRect().adjusted(margin(), margin(), -margin(), -margin());
}

QFont WrapLabel::fittingFont() const
{
    QFont fitting = font();
    const QRect room = inside();
    for (int points = m_points; points >= kSmallest; --points) {
        fitting.setPointSize(points);
        const QRect needed = QFontMetrics(fitting).boundingRect(
            QRect(0, 0, room.width(), 10 * room.height()), kWrapping, text());
        if (needed.height() <= room.height() && needed.width() <= room.width())
            break;
    }
    return fitting;
}

void WrapLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(fittingFont());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(inside(), kWrapping | Qt::AlignLeft | Qt::AlignVCenter, text());
}
