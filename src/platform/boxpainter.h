#pragma once

#include <QGraphicsView>
#include <vector>

class QGraphicsScene;

/// The layout canvas: rectangles of workpieces, seen from above.
///
/// Controller and canvas exchange their axes: a rectangle added with controller X and Y comes back
/// from rectsResult() with y() == X and x() == Y. Lengths are canvas units, angles whole degrees.
/// The zoom level goes in whole steps: level 10 is 1:1, each step up doubles, each step down halves.
class BoxPainter : public QGraphicsView {
    Q_OBJECT
public:
    explicit BoxPainter(QWidget *parent = nullptr);

    /// The extents of the drawing area, in canvas units at level 10.
    void setXY(double width, double height);
    void clear();
    void clearSL(double rate);
    void addRect(double controllerX, double controllerY, int length, int width, int angle, int state);
    /// Selects the rectangle of this 0-based index; an index without a rectangle selects none.
    void setCurTarget2(int index);
    /// 0-based; -1 when none is selected.
    int currentTarget() const;
    void scaleUp();
    void scaleDown();
    int scaleLevelResult() const;
    void resetCanbas();
    std::vector<QRectF> rectsResult() const;
    std::vector<int> anglesResult() const;

signals:
    /// A piece was selected by touch: its x and y as shown, its 0-based index; -1 for none.
    void curPoint(double x, double y, double index);
};
