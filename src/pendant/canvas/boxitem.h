#pragma once

#include <QGraphicsItem>

/// One workpiece on the canvas, centred on its position.
class BoxItem : public QGraphicsItem {
public:
    enum { Type = UserType + 1 };

    /// `number` counts from 1; `place` is the centre and `size` the extents in millimetres along Y
    /// and X; `angle` in degrees, counter-clockwise; `state` 0 for a piece within reach.
    BoxItem(int number, const QPointF &place, const QSizeF &size, int angle, int state);

    int number() const { return m_number; }
    QPointF place() const { return m_place; }
    QSizeF size() const { return m_size; }
    int angle() const { return m_angle; }
    void setChosen(bool chosen);

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QRectF box() const;

    int m_number;
    QPointF m_place;
    QSizeF m_size;
    int m_angle;
    int m_state;
    bool m_chosen = false;
};
