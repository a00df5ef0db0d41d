// The templates of a layer: how many workpieces, where, how turned; nothing overlaps, the gaps are
// kept, and the layer begins at the tray's origin.

#include "simulator/palletlayout.h"

#include <QtTest>
#include <cmath>

using pallet::Box;
using pallet::Piece;
using pallet::Template;
using pallet::WorkpieceSize;

namespace {

constexpr WorkpieceSize kCarton{400, 300, 10, 20};

Template layer(Template::Type type, int numX = 1, int numY = 1, int whole = 0, int single = 0)
{
    Template made{type};
    made.numX = numX;
    made.numY = numY;
    made.whole = whole;
    made.single = single;
    return made;
}

/// Whether the angles differ by full turns.
bool sameAngle(double a, double b)
{
    return std::abs(std::remainder(a - b, 360.0)) < 1e-9;
}

Box boxOf(const Piece &piece, const WorkpieceSize &size)
{
    return pallet::boxAround({piece}, size);
}

double gapBetween(double low, double high, double otherLow, double otherHigh)
{
    return std::max(otherLow - high, low - otherHigh);
}

} // namespace

class TestPalletLayout : public QObject {
    Q_OBJECT

    static void compare(const std::vector<Piece> &pieces, const std::vector<Piece> &wanted)
    {
        QCOMPARE(pieces.size(), wanted.size());
        for (size_t i = 0; i < pieces.size(); ++i) {
            const QByteArray name = "piece " + QByteArray::number(int(i));
            QVERIFY2(std::abs(pieces[i].x - wanted[i].x) < 1e-9, name.constData());
            QVERIFY2(std::abs(pieces[i].y - wanted[i].y) < 1e-9, name.constData());
            QCOMPARE(pieces[i].angle, wanted[i].angle);
        }
    }

private slots:
    /// By hand: length 400 along Y, width 300 along X, gaps 10 along X and 20 along Y.
    void ranksByHand()
    {
        compare(pallet::expand(layer(Template::Ranks, 2, 2), kCarton),
                {{150, 200, 0}, {460, 200, 0}, {150, 620, 0}, {460, 620, 0}});
        // each piece turned: length along X
        compare(pallet::expand(layer(Template::Ranks, 2, 1, 0, 90), kCarton),
                {{200, 150, 90}, {610, 150, 90}});
        // the layer turned: what lay along X lies along Y, and the gaps are those of the axes
        compare(pallet::expand(layer(Template::Ranks, 2, 1, 90), kCarton),
                {{200, 150, 90}, {200, 470, 90}});
        compare(pallet::expand(layer(Template::Ranks, 2, 1, -90), kCarton),
                {{200, 470, -90}, {200, 150, -90}});
        compare(pallet::expand(layer(Template::Ranks, 2, 1, 180), kCarton),
                {{460, 200, 180}, {150, 200, 180}});
        compare(pallet::expand(layer(Template::Ranks, 1, 1, 180, 90), kCarton), {{200, 150, -90}});
        compare(pallet::expand(layer(Template::Ranks, 1, 1, 180, 180), kCarton), {{150, 200, 0}});
    }
    void crisscrossByHand()
    {
        // two rows: along X first 300 deep, then 400 deep; the second is 620 long, 100 less on
        // either side
        compare(pallet::expand(layer(Template::Crisscross, 2, 2), kCarton),
                {{150, 200, 0}, {150, 620, 0}, {510, 250, 90}, {510, 570, 90}});
        compare(pallet::expand(layer(Template::Crisscross, 1, 2, 0, 90), kCarton),
                {{200, 150, 90}, {200, 470, 90}});
    }
    void huiByHand()
    {
        compare(pallet::expand(layer(Template::Hui), kCarton),
                {{150, 200, 0}, {510, 150, 90}, {560, 520, 180}, {200, 570, -90}});
    }

    void everyTemplateAndTurn_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("numX");
        QTest::addColumn<int>("numY");
        QTest::addColumn<int>("whole");
        QTest::addColumn<int>("single");
        const struct {
            int type;
            int numX;
            int numY;
        } kinds[] = {{0, 1, 1}, {0, 4, 3}, {0, 99, 2}, {1, 1, 1}, {1, 3, 4},
                     {1, 4, 1}, {1, 1, 5}, {1, 7, 6},  {2, 1, 1}};
        for (const auto &kind : kinds) {
            for (const int whole : {0, 90, 180, -90}) {
                for (const int single : {0, 90, 180, -90}) {
                    QTest::addRow("%d %dx%d turned %d and %d", kind.type, kind.numX, kind.numY,
                                  whole, single)
                        << kind.type << kind.numX << kind.numY << whole << single;
                }
            }
        }
    }
    void everyTemplateAndTurn()
    {
        QFETCH(int, type);
        QFETCH(int, numX);
        QFETCH(int, numY);
        QFETCH(int, whole);
        QFETCH(int, single);
        const auto kind = static_cast<Template::Type>(type);
        // long and square, and wider than long: the names say nothing of which is more
        for (const WorkpieceSize &size :
             {kCarton, WorkpieceSize{250, 250, 0, 0}, WorkpieceSize{200, 500, 5.5, 0}}) {
            const std::vector<Piece> pieces =
                pallet::expand(layer(kind, numX, numY, whole, single), size);
            QCOMPARE(int(pieces.size()), kind == Template::Hui ? 4 : numX * numY);

            const Box box = pallet::boxAround(pieces, size);
            QVERIFY(std::abs(box.left) < 1e-9 && std::abs(box.low) < 1e-9);
            for (size_t i = 0; i < pieces.size(); ++i) {
                QVERIFY(pieces[i].angle > -180 && pieces[i].angle <= 180);
                const Box one = boxOf(pieces[i], size);
                for (size_t k = 0; k < i; ++k) {
                    const Box other = boxOf(pieces[k], size);
                    const double alongX = gapBetween(one.left, one.right, other.left, other.right);
                    const double alongY = gapBetween(one.low, one.high, other.low, other.high);
                    QVERIFY(alongX >= size.gapX - 1e-9 || alongY >= size.gapY - 1e-9);
                }
            }
            // the angles: that of the template, and both turns
            const std::vector<Piece> plain = pallet::expand(layer(kind, numX, numY), size);
            for (size_t i = 0; i < pieces.size(); ++i)
                QVERIFY(sameAngle(pieces[i].angle, plain[i].angle + whole + single));
        }
    }
    void theBoxOfEachTemplate()
    {
        const auto size = [](const Template &made) {
            const Box box = pallet::boxAround(pallet::expand(made, kCarton), kCarton);
            return QSizeF(box.right, box.high);
        };
        QCOMPARE(size(layer(Template::Ranks, 4, 3)), QSizeF(4 * 300 + 3 * 10, 3 * 400 + 2 * 20));
        QCOMPARE(size(layer(Template::Ranks, 4, 3, 90)),
                 QSizeF(3 * 400 + 2 * 10, 4 * 300 + 3 * 20));
        QCOMPARE(size(layer(Template::Ranks, 4, 3, 0, -90)),
                 QSizeF(4 * 400 + 3 * 10, 3 * 300 + 2 * 20));
        QCOMPARE(size(layer(Template::Ranks, 4, 3, 90, 90)),
                 QSizeF(3 * 300 + 2 * 10, 4 * 400 + 3 * 20));
        QCOMPARE(size(layer(Template::Crisscross, 3, 4)),
                 QSizeF(300 + 400 + 300 + 2 * 10, 4 * 400 + 3 * 20));
        QCOMPARE(size(layer(Template::Hui)), QSizeF(710, 720));
        QCOMPARE(size(layer(Template::Hui, 1, 1, 90)), QSizeF(710, 720));
    }
    void theMostPieces()
    {
        QCOMPARE(int(pallet::expand(layer(Template::Ranks, 99, 99), kCarton).size()), 9801);
    }
    void withoutASizeThereAreStillPlaces()
    {
        const std::vector<Piece> pieces =
            pallet::expand(layer(Template::Crisscross, 2, 3), {0, 0, 0, 0});
        QCOMPARE(int(pieces.size()), 6);
        for (const Piece &piece : pieces)
            QVERIFY(piece.x == 0 && piece.y == 0);
    }
    void boxesAtAnyAngle()
    {
        const Box box = pallet::boxAround({{0, 0, 45}}, kCarton);
        const double half = (400 + 300) / std::sqrt(2.0) / 2;
        QVERIFY(std::abs(box.right - half) < 1e-9 && std::abs(box.low + half) < 1e-9);
        QCOMPARE(pallet::boxAround({}, kCarton).area(), 0.0);
    }
};

QTEST_GUILESS_MAIN(TestPalletLayout)
#include "test_palletlayout.moc"
