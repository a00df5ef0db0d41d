// The layout canvas: coordinates, selection by touch, zoom, and drawing of many pieces.

#include "boxpainter.h"

#include <QSignalSpy>
#include <QtTest>
#include <cmath>
#include <limits>

namespace {

/// Counts how often the canvas is painted.
class CountingCanvas : public BoxPainter {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        BoxPainter::paintEvent(event);
    }
};

} // namespace

class TestCanvas : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void axesAreExchanged();
    void sizesAndAnglesKeepTheirOrder();
    void unitsFollowTheZoomLevel();
    void piecesAddedAtALevelCountInItsUnits();
    void theZoomIsClamped();
    void clearGoesBackToTheStart();
    void clearSLSetsTheLevelOfItsRate_data();
    void clearSLSetsTheLevelOfItsRate();
    void resetKeepsThePieces();

    void aTouchSelectsAPiece();
    void aTouchOfTheGroundSelectsNone();
    void aNearMissStillSelects();
    void theSelectedPieceIsTheUpperOne();
    void selectionByNumber();
    void selectionUnderZoom();
    void positionsAreMillimetresWhateverTheZoom();
    void aTurnedPieceIsTouchedWhereItIsDrawn();
    void aDisabledCanvasSelectsNothing();

    void theGroundIsWhite();
    void piecesAreDrawnWhereTheyAre();
    void angleZeroLiesAlongY();
    void positiveAnglesTurnCounterClockwise();
    void theSelectedPieceIsMarked();
    void manyPiecesArePaintedOnce();
    void numbersOutOfRangeDoNoHarm();

private:
    QPoint at(double controllerX, double controllerY) const
    {
        return m_canvas->mapFromScene(QPointF(controllerY, controllerX));
    }
    QColor colourAt(double controllerX, double controllerY)
    {
        return m_canvas->viewport()->grab().toImage().pixelColor(at(controllerX, controllerY));
    }
    void touch(double controllerX, double controllerY)
    {
        QTest::mouseClick(m_canvas->viewport(), Qt::LeftButton, Qt::NoModifier,
                          at(controllerX, controllerY));
    }

    CountingCanvas *m_canvas = nullptr;
};

void TestCanvas::init()
{
    m_canvas = new CountingCanvas;
    m_canvas->resize(535, 350);
    m_canvas->setXY(485, 300);
    m_canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_canvas));
}

void TestCanvas::cleanup()
{
    delete m_canvas;
}

void TestCanvas::axesAreExchanged()
{
    m_canvas->addRect(100.25, -40.5, 60, 30, 0, 0);
    const std::vector<QRectF> rects = m_canvas->rectsResult();
    QCOMPARE(rects.size(), size_t(1));
    QCOMPARE(rects[0].y(), 100.25);
    QCOMPARE(rects[0].x(), -40.5);
    QCOMPARE(rects[0].width(), 60.0);
    QCOMPARE(rects[0].height(), 30.0);
}

void TestCanvas::sizesAndAnglesKeepTheirOrder()
{
    const std::vector<int> angles = {0, 90, -90, 270, -270, 450};
    for (size_t i = 0; i < angles.size(); ++i)
        m_canvas->addRect(double(i), 2.0 * double(i), 10 + int(i), 5, angles[i], 0);
    QCOMPARE(m_canvas->anglesResult(), angles);
    for (size_t i = 0; i < angles.size(); ++i) {
        QCOMPARE(m_canvas->rectsResult()[i].y(), double(i));
        QCOMPARE(m_canvas->rectsResult()[i].width(), 10.0 + double(i));
    }
}

void TestCanvas::unitsFollowTheZoomLevel()
{
    m_canvas->addRect(25, 10, 60, 30, 0, 0);
    m_canvas->scaleUp();
    m_canvas->scaleUp();
    QCOMPARE(m_canvas->scaleLevelResult(), 12);
    QCOMPARE(m_canvas->rectsResult()[0], QRectF(40, 100, 240, 120));
    for (int i = 0; i < 4; ++i)
        m_canvas->scaleDown();
    QCOMPARE(m_canvas->scaleLevelResult(), 8);
    QCOMPARE(m_canvas->rectsResult()[0], QRectF(2.5, 6.25, 15, 7.5));
}

void TestCanvas::piecesAddedAtALevelCountInItsUnits()
{
    m_canvas->scaleUp();
    m_canvas->addRect(100, 40, 20, 10, 0, 0);
    QCOMPARE(m_canvas->rectsResult()[0], QRectF(40, 100, 20, 10));
    m_canvas->scaleDown();
    QCOMPARE(m_canvas->rectsResult()[0], QRectF(20, 50, 10, 5));
}

void TestCanvas::theZoomIsClamped()
{
    for (int i = 0; i < 40; ++i)
        m_canvas->scaleUp();
    QCOMPARE(m_canvas->scaleLevelResult(), int(BoxPainter::kMaxLevel));
    for (int i = 0; i < 40; ++i)
        m_canvas->scaleDown();
    QCOMPARE(m_canvas->scaleLevelResult(), int(BoxPainter::kMinLevel));
}

void TestCanvas::clearGoesBackToTheStart()
{
    m_canvas->addRect(25, 10, 60, 30, 0, 0);
    m_canvas->setCurTarget2(0);
    m_canvas->scaleUp();
    m_canvas->clear();
    QVERIFY(m_canvas->rectsResult().empty());
    QVERIFY(m_canvas->anglesResult().empty());
    QCOMPARE(m_canvas->currentTarget(), -1);
    QCOMPARE(m_canvas->scaleLevelResult(), 10);
}

void TestCanvas::clearSLSetsTheLevelOfItsRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("level");
    QTest::newRow("1") << 1.0 << 10;
    QTest::newRow("0.25") << 0.25 << 12;
    QTest::newRow("8") << 8.0 << 7;
    QTest::newRow("no power of two") << 3.0 << 11;
    QTest::newRow("zero") << 0.0 << 11;
    QTest::newRow("negative") << -1.0 << 11;
    QTest::newRow("not a number") << std::nan("") << 11;
    QTest::newRow("infinite") << HUGE_VAL << 11;
    QTest::newRow("beyond the clamp") << 1024.0 << int(BoxPainter::kMinLevel);
}

void TestCanvas::clearSLSetsTheLevelOfItsRate()
{
    QFETCH(double, rate);
    QFETCH(int, level);
    m_canvas->addRect(25, 10, 60, 30, 0, 0);
    m_canvas->scaleUp();
    m_canvas->clearSL(rate);
    QVERIFY(m_canvas->rectsResult().empty());
    QCOMPARE(m_canvas->scaleLevelResult(), level);
}

void TestCanvas::resetKeepsThePieces()
{
    m_canvas->addRect(25, 10, 60, 30, 0, 0);
    const QPoint before = at(25, 10);
    for (int i = 0; i < 3; ++i)
        m_canvas->scaleUp();
    QVERIFY(at(25, 10) != before);
    m_canvas->resetCanbas();
    QCOMPARE(m_canvas->scaleLevelResult(), 10);
    QCOMPARE(at(25, 10), before);
    QCOMPARE(m_canvas->rectsResult()[0], QRectF(10, 25, 60, 30));
}

void TestCanvas::aTouchSelectsAPiece()
{
    m_canvas->addRect(50, 60, 60, 30, 0, 0);
    m_canvas->addRect(150, 260, 60, 30, 0, 0);
    QSignalSpy selected(m_canvas, &BoxPainter::curPoint);
    touch(150, 260);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.first(), QVariantList({150.0, 260.0, 1.0}));
    QCOMPARE(m_canvas->currentTarget(), 1);
    // The corners of a piece belong to it.
    touch(50 + 14, 60 + 29);
    QCOMPARE(selected.last(), QVariantList({50.0, 60.0, 0.0}));
}

void TestCanvas::aTouchOfTheGroundSelectsNone()
{
    m_canvas->addRect(50, 60, 60, 30, 0, 0);
    m_canvas->setCurTarget2(0);
    QSignalSpy selected(m_canvas, &BoxPainter::curPoint);
    touch(200, 300);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.first().at(2).toDouble(), -1.0);
    QCOMPARE(m_canvas->currentTarget(), -1);
}

void TestCanvas::aNearMissStillSelects()
{
    m_canvas->addRect(50, 60, 4, 4, 0, 0);
    touch(50, 60 + 8);
    QCOMPARE(m_canvas->currentTarget(), 0);
    touch(50, 60 + 20);
    QCOMPARE(m_canvas->currentTarget(), -1);
}

void TestCanvas::theSelectedPieceIsTheUpperOne()
{
    m_canvas->addRect(100, 100, 60, 60, 0, 0);
    m_canvas->addRect(110, 110, 60, 60, 0, 0);
    touch(105, 105);
    QCOMPARE(m_canvas->currentTarget(), 1);
    m_canvas->setCurTarget2(0);
    touch(105, 105);
    QCOMPARE(m_canvas->currentTarget(), 0);
}

void TestCanvas::selectionByNumber()
{
    QSignalSpy selected(m_canvas, &BoxPainter::curPoint);
    m_canvas->setCurTarget2(0);
    QCOMPARE(m_canvas->currentTarget(), -1);
    m_canvas->addRect(50, 60, 60, 30, 0, 0);
    m_canvas->addRect(90, 60, 60, 30, 0, 0);
    m_canvas->setCurTarget2(1);
    QCOMPARE(m_canvas->currentTarget(), 1);
    for (const int none : {2, -1, -2147483647 - 1, 2147483647}) {
        m_canvas->setCurTarget2(0);
        m_canvas->setCurTarget2(none);
        QCOMPARE(m_canvas->currentTarget(), -1);
    }
    QCOMPARE(selected.count(), 0);
}

void TestCanvas::selectionUnderZoom()
{
    m_canvas->addRect(50, 60, 60, 30, 0, 0);
    m_canvas->addRect(90, 60, 60, 30, 0, 0);
    m_canvas->scaleUp();
    touch(90, 60);
    QCOMPARE(m_canvas->currentTarget(), 1);
    m_canvas->scaleDown();
    m_canvas->scaleDown();
    touch(50, 60);
    QCOMPARE(m_canvas->currentTarget(), 0);
}

void TestCanvas::positionsAreMillimetresWhateverTheZoom()
{
    m_canvas->addRect(50.5, 60.25, 60, 30, 0, 0);
    m_canvas->scaleUp();
    QSignalSpy selected(m_canvas, &BoxPainter::curPoint);
    touch(50.5, 60.25);
    QCOMPARE(selected.first(), QVariantList({50.5, 60.25, 0.0}));
}

void TestCanvas::aTurnedPieceIsTouchedWhereItIsDrawn()
{
    m_canvas->addRect(150, 200, 120, 20, 90, 0);
    touch(150 + 50, 200);
    QCOMPARE(m_canvas->currentTarget(), 0);
    touch(150, 200 + 50);
    QCOMPARE(m_canvas->currentTarget(), -1);
}

void TestCanvas::aDisabledCanvasSelectsNothing()
{
    m_canvas->addRect(50, 60, 60, 30, 0, 0);
    m_canvas->setEnabled(false);
    QSignalSpy selected(m_canvas, &BoxPainter::curPoint);
    touch(50, 60);
    QCOMPARE(selected.count(), 0);
}

void TestCanvas::theGroundIsWhite()
{
    QCOMPARE(colourAt(75, 75), QColor(Qt::white));
    m_canvas->setEnabled(false);
    QCOMPARE(colourAt(75, 75), QColor(Qt::white));
}

void TestCanvas::piecesAreDrawnWhereTheyAre()
{
    const QColor before = colourAt(70, 80);
    m_canvas->addRect(75, 75, 60, 30, 0, 0);
    QVERIFY(colourAt(70, 80) != before);
    m_canvas->clear();
    QCOMPARE(colourAt(70, 80), before);
}

void TestCanvas::angleZeroLiesAlongY()
{
    m_canvas->addRect(130, 230, 100, 20, 0, 0);
    QVERIFY(colourAt(132, 230 + 42) != QColor(Qt::white));
    QCOMPARE(colourAt(130 + 37, 232), QColor(Qt::white));
}

void TestCanvas::positiveAnglesTurnCounterClockwise()
{
    // Seen from above, with Y to the right and X downwards: the right end goes up.
    m_canvas->addRect(130, 230, 100, 20, 30, 0);
    const double along = 42 * std::cos(std::acos(-1.0) / 6);
    const double across = 42 * std::sin(std::acos(-1.0) / 6);
    QVERIFY(colourAt(130 - across, 230 + along) != QColor(Qt::white));
    QCOMPARE(colourAt(130 + across, 230 + along), QColor(Qt::white));
}

void TestCanvas::theSelectedPieceIsMarked()
{
    m_canvas->addRect(75, 75, 60, 30, 0, 0);
    const QImage plain = m_canvas->viewport()->grab().toImage();
    m_canvas->setCurTarget2(0);
    const QImage marked = m_canvas->viewport()->grab().toImage();
    QVERIFY(plain.convertToFormat(QImage::Format_Grayscale8)
            != marked.convertToFormat(QImage::Format_Grayscale8));
    m_canvas->setCurTarget2(-1);
    QCOMPARE(m_canvas->viewport()->grab().toImage(), plain);
}

void TestCanvas::manyPiecesArePaintedOnce()
{
    m_canvas->addRect(75, 75, 60, 30, 0, 0);
    QTRY_VERIFY(m_canvas->paints > 0);
    QCoreApplication::processEvents();
    m_canvas->paints = 0;
    for (int i = 0; i < 9999; ++i)
        m_canvas->addRect(3 * (i / 100), 4 * (i % 100), 4, 3, i % 360, 0);
    QCOMPARE(m_canvas->paints, 0);
    QTRY_VERIFY(m_canvas->paints > 0);
    QCOMPARE(m_canvas->paints, 1);
    QCOMPARE(m_canvas->rectsResult().size(), size_t(10000));
    touch(3 * 40, 4 * 50);
    QVERIFY(m_canvas->currentTarget() > 0);
}

void TestCanvas::numbersOutOfRangeDoNoHarm()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    m_canvas->addRect(std::nan(""), HUGE_VAL, 10, 10, 0, 0);
    m_canvas->addRect(1e300, -1e300, highest, highest, highest, highest);
    m_canvas->addRect(0, 0, lowest, lowest, lowest, lowest);
    m_canvas->addRect(50, 60, -20, 0, -30, 1);
    m_canvas->setXY(std::nan(""), -5);
    m_canvas->setXY(485, 300);
    for (int i = 0; i < 6; ++i)
        m_canvas->scaleUp();
    m_canvas->grab();
    for (int i = 0; i < 12; ++i)
        m_canvas->scaleDown();
    m_canvas->grab();
    m_canvas->resetCanbas();
    QCOMPARE(m_canvas->rectsResult()[0].topLeft(), QPointF(0, 0));
    QCOMPARE(m_canvas->rectsResult()[1].x(), -1e300);
    QCOMPARE(m_canvas->anglesResult()[2], lowest);
}

QTEST_MAIN(TestCanvas)
#include "test_canvas.moc"
