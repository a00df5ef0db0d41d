#pragma once

#include <QGraphicsView>
#include <vector>

class BoxItem;
class QGraphicsScene;

/// The layout canvas: rectangles of workpieces, seen from above.
///
/// Controller and canvas exchange their axes: a rectangle added with controller X and Y comes back
/// from rectsResult() with y() == X and x() == Y. On screen the controller's Y runs to the right
/// and its X downwards, so that Z points at the operator and positive angles turn
/// counter-clockwise. X and Y name the centre of a piece, about which it is turned; at angle 0 its
/// length lies along Y and its width along X.
///
/// Lengths are canvas units, angles whole degrees. The zoom level goes in whole steps from
/// kMinLevel to kMaxLevel: at level 10 a canvas unit is a millimetre and a pixel, each step up
/// doubles the units and the pixels of a millimetre, each step down halves them. So what is added
/// and what comes back counts in units of the level that is set at that time, while curPoint() and
/// the selected piece's position count in millimetres.
class BoxPainter : public QGraphicsView {
    Q_OBJECT
public:
    static constexpr int kMinLevel = 5;
    static constexpr int kMaxLevel = 15;
    static constexpr int kStartLevel = 10;

    explicit BoxPainter(QWidget *parent = nullptr);

    /// The extents of the drawing area, in canvas units at level 10: along Y, then along X.
    void setXY(double width, double height);
    /// Removes all rectangles and goes back to the start view.
    void clear();
    /// Removes all rectangles and sets the zoom level that `rate`, the millimetres of a canvas
    /// unit, stands for: 1 is level 10, 0.5 level 11, 2 level 9. A rate that is no power of two
    /// leaves the level as it is.
    void clearSL(double rate);
    /// Adds a rectangle at the end of the list. Numbers that are not finite are taken as 0. `state`
    /// is 0 for a piece within reach; other pieces are hatched.
    void addRect(double controllerX, double controllerY, int length, int width, int angle,
                 int state);
    /// Selects the rectangle of this 0-based index; an index without a rectangle selects none.
    void setCurTarget2(int index);
    /// 0-based; -1 when none is selected.
    int currentTarget() const;
    void scaleUp();
    void scaleDown();
    int scaleLevelResult() const;
    /// Back to the start view: level 10, the origin at the upper left.
    void resetCanbas();
    /// x() and y() as said above, width() the length and height() the width of the piece.
    std::vector<QRectF> rectsResult() const;
    std::vector<int> anglesResult() const;

signals:
    /// A piece was selected by touch: its controller X and Y in millimetres and its 0-based index;
    /// 0, 0 and -1 when the ground was touched.
    void curPoint(double x, double y, double index);

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    double unitsPerMillimetre() const;
    void setLevel(int level);
    void applyView();
    BoxItem *itemUnder(const QPoint &position) const;
    void select(int index);

    QGraphicsScene *m_scene;
    std::vector<BoxItem *> m_items;
    int m_current = -1;
    int m_level = kStartLevel;
    QSizeF m_extent; ///< millimetres, along Y and X
    double m_gridStep = 50.0; ///< millimetres between two grid lines
};
