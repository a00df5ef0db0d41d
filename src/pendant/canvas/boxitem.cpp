#include "boxitem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace {

/// Nothing is drawn beyond this many millimetres; the numbers themselves are kept as they are.
constexpr double kFarthest = 1e6;

} // namespace

BoxItem::BoxItem(int number, const QPointF &place, const QSizeF &size, int angle, int state)
    : m_number(number), m_place(place), m_size(size), m_angle(angle), m_state(state)
{
    // The scene turns clockwise.
    setRotation(-(angle % 360));
    setPos(qBound(-kFarthest, place.x(), kFarthest), qBound(-kFarthest, place.y(), kFarthest));
}

QRectF BoxItem::box() const
{
    const QSizeF drawn(qBound(0.0, m_size.width(), kFarthest),
                       qBound(0.0, m_size.height(), kFarthest));
    return {QPointF(-drawn.width() / 2, -drawn.height() / 2), drawn};
}

void BoxItem::setChosen(bool chosen)
{
    if (m_chosen == chosen)
        return;
    m_chosen = chosen;
    setZValue(chosen ? 1 : 0);
    update();
}

QRectF BoxItem::boundingRect() const
{
    // Outlines keep their width in pixels; half of it lies outside. At the lowest level a pixel is
    // 32 mm.
    constexpr double margin = 3 * 32;
    return box().adjusted(-margin, -margin, margin, margin);
}

QPainterPath BoxItem::shape() const
{
    QPainterPath path;
    path.addRect(box());
    return path;
}

void BoxItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    const QColor line = m_chosen ? QColor(0x0b, 0x4f, 0x8a) : QColor(0x55, 0x60, 0x6a);
    QPen pen(line, m_chosen ? 3 : 1);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->setBrush(m_chosen ? QColor(0xd3, 0xe4, 0xf3) : QColor(0xf0, 0xea, 0xdc));
    painter->drawRect(box());
    if (m_state != 0) {
        painter->setBrush(QBrush(QColor(0x8c, 0x36, 0x2c), Qt::BDiagPattern));
        painter->drawRect(box());
    }
    // A short line marks the edge that lies at larger X, so that a half turn can be seen.
    const QRectF piece = box();
    painter->drawLine(QPointF(piece.center().x(), piece.bottom()),
                      QPointF(piece.center().x(), piece.bottom() - piece.height() / 6));

    const double scale =
        QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform());
    const QString text = QString::number(m_number);
    QFont font = painter->font();
    font.setPixelSize(m_chosen ? 16 : 13);
    font.setBold(m_chosen);
    const QSizeF needed = QFontMetricsF(font).boundingRect(text).size();
    const double room = qMin(piece.width(), piece.height()) * scale;
    if (!m_chosen && (room < needed.height() || room < needed.width() + 2))
        return;
    // The number stands upright whatever the piece's angle is.
    painter->save();
    const QPointF centre = painter->worldTransform().map(QPointF(0, 0));
    painter->resetTransform();
    painter->setFont(font);
    painter->setPen(line);
    painter->drawText(QRectF(centre.x() - 40, centre.y() - 20, 80, 40), Qt::AlignCenter, text);
    painter->restore();
    Q_UNUSED(option)
}
