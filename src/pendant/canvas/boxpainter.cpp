#include "boxpainter.h"

#include "boxitem.h"

#include <QGraphicsScene>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

namespace {

constexpr double kMargin = 25.0; ///< pixels left free around the drawing area for axes and marks
constexpr int kTouchSlack = 8; ///< pixels beside a piece that still count as touching it

double finiteOr0(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

} // namespace

BoxPainter::BoxPainter(QWidget *parent)
    : QGraphicsView(parent), m_scene(new QGraphicsScene(this)), m_extent(485.0, 300.0)
{
    setScene(m_scene);
    setBackgroundBrush(Qt::white);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFrameShape(QFrame::NoFrame);
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    setOptimizationFlag(QGraphicsView::DontSavePainterState);
    applyView();
}

void BoxPainter::setXY(double width, double height)
{
    m_extent = QSizeF(qMax(0.0, finiteOr0(width)), qMax(0.0, finiteOr0(height)));
    applyView();
}

double BoxPainter::unitsPerMillimetre() const
{
    return std::ldexp(1.0, m_level - kStartLevel);
}

void BoxPainter::clear()
{
    m_current = -1;
    m_items.clear();
    m_scene->clear();
    resetCanbas();
}

void BoxPainter::clearSL(double rate)
{
    m_current = -1;
    m_items.clear();
    m_scene->clear();
    int exponent = 0;
    if (std::isfinite(rate) && rate > 0 && std::frexp(rate, &exponent) == 0.5)
        setLevel(kStartLevel + 1 - exponent);
}

void BoxPainter::addRect(double controllerX, double controllerY, int length, int width, int angle,
                         int state)
{
    const double rate = 1.0 / unitsPerMillimetre();
    auto *item = new BoxItem(static_cast<int>(m_items.size()) + 1,
                             QPointF(finiteOr0(controllerY), finiteOr0(controllerX)) * rate,
                             QSizeF(length, width) * rate, angle, state);
    m_scene->addItem(item);
    m_items.push_back(item);
}

void BoxPainter::setCurTarget2(int index)
{
    select(index);
}

int BoxPainter::currentTarget() const
{
    return m_current;
}

void BoxPainter::select(int index)
{
    if (m_current >= 0)
        m_items[static_cast<size_t>(m_current)]->setChosen(false);
    m_current = index >= 0 && static_cast<size_t>(index) < m_items.size() ? index : -1;
    if (m_current >= 0)
        m_items[static_cast<size_t>(m_current)]->setChosen(true);
}

void BoxPainter::scaleUp()
{
    setLevel(m_level + 1);
}

void BoxPainter::scaleDown()
{
    setLevel(m_level - 1);
}

int BoxPainter::scaleLevelResult() const
{
    return m_level;
}

void BoxPainter::setLevel(int level)
{
    m_level = qBound(kMinLevel, level, kMaxLevel);
    applyView();
}

void BoxPainter::resetCanbas()
{
    m_level = kStartLevel;
    applyView();
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void BoxPainter::applyView()
{
    const double scale = unitsPerMillimetre();
    const double margin = kMargin / scale;
    m_scene->setSceneRect(
        QRectF(QPointF(0, 0), m_extent).adjusted(-margin, -margin, margin, margin));
    setTransform(QTransform::fromScale(scale, scale));
    viewport()->update();
}

std::vector<QRectF> BoxPainter::rectsResult() const
{
    const double scale = unitsPerMillimetre();
    std::vector<QRectF> rects;
    rects.reserve(m_items.size());
    for (const BoxItem *item : m_items)
        rects.emplace_back(item->place() * scale, item->size() * scale);
    return rects;
}

std::vector<int> BoxPainter::anglesResult() const
{
    std::vector<int> angles;
    angles.reserve(m_items.size());
    for (const BoxItem *item : m_items)
        angles.push_back(item->angle());
    return angles;
}

BoxItem *BoxPainter::itemUnder(const QPoint &position) const
{
    const auto pick = [](const QList<QGraphicsItem *> &found) -> BoxItem * {
        for (QGraphicsItem *item : found) {
            if (auto *box = qgraphicsitem_cast<BoxItem *>(item))
                return box;
        }
        return nullptr;
    };
    if (BoxItem *exact = pick(items(position)))
        return exact;
    const QRect finger(position.x() - kTouchSlack, position.y() - kTouchSlack, 2 * kTouchSlack,
                       2 * kTouchSlack);
    return pick(items(finger));
}

void BoxPainter::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    event->accept();
    const BoxItem *touched = itemUnder(event->pos());
    select(touched ? touched->number() - 1 : -1);
    if (touched)
        emit curPoint(touched->place().y(), touched->place().x(), m_current);
    else
        emit curPoint(0.0, 0.0, -1);
}

void BoxPainter::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    viewport()->update();
}

void BoxPainter::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, backgroundBrush());
    const double scale = unitsPerMillimetre();
    // Grid lines at 1, 2 or 5 times a power of ten, never closer than 40 pixels.
    const double least = 40.0 / scale;
    double step = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {2.0, 5.0, 10.0}) {
        if (step >= least)
            break;
        step = std::pow(10.0, std::floor(std::log10(least))) * factor;
    }
    QPen grid(QColor(0xe4, 0xe7, 0xea));
    grid.setCosmetic(true);
    painter->setPen(grid);
    for (double x = std::ceil(rect.left() / step) * step; x <= rect.right(); x += step)
        painter->drawLine(QLineF(x, rect.top(), x, rect.bottom()));
    for (double y = std::ceil(rect.top() / step) * step; y <= rect.bottom(); y += step)
        painter->drawLine(QLineF(rect.left(), y, rect.right(), y));
    QPen border(QColor(0x9a, 0xa2, 0xaa));
    border.setCosmetic(true);
    painter->setPen(border);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(QPointF(0, 0), m_extent));
    m_gridStep = step;
}

void BoxPainter::drawForeground(QPainter *painter, const QRectF &)
{
    // The axes are drawn in pixels, at the edge of the view, in the controller's sense.
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPoint origin = mapFromScene(QPointF(0, 0));
    const QRect view = viewport()->rect();
    const int top = qBound(14, origin.y() - 6, view.height());
    const int left = qBound(14, origin.x() - 6, view.width());
    QFont small = font();
    small.setPixelSize(11);
    painter->setFont(small);
    painter->setPen(QColor(0x4a, 0x55, 0x60));
    for (int i = 0;; ++i) {
        const int x = mapFromScene(QPointF(i * m_gridStep, 0)).x();
        if (x > view.right() || i * m_gridStep > m_extent.width())
            break;
        if (x >= 24 && x < view.right() - 54)
            painter->drawText(QRect(x - 30, top - 14, 60, 14), Qt::AlignCenter,
                              QString::number(i * m_gridStep));
    }
    for (int i = 1;; ++i) {
        const int y = mapFromScene(QPointF(0, i * m_gridStep)).y();
        if (y > view.bottom() || i * m_gridStep > m_extent.height())
            break;
        if (y >= 24 && y < view.bottom() - 42)
            painter->drawText(QRect(0, y - 7, left, 14), Qt::AlignRight | Qt::AlignVCenter,
                              QString::number(i * m_gridStep));
    }
    QFont bold = small;
    bold.setBold(true);
    bold.setPixelSize(13);
    painter->setFont(bold);
    painter->setPen(QColor(0x1f, 0x4e, 0x79));
    painter->drawText(QRect(view.right() - 40, top - 14, 38, 14), Qt::AlignRight | Qt::AlignVCenter,
                      QStringLiteral("Y →"));
    painter->drawText(QRect(2, view.bottom() - 34, 16, 32), Qt::AlignHCenter | Qt::AlignBottom,
                      QStringLiteral("X\n↓"));
    painter->restore();
}
