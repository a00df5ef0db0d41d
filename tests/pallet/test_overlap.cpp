// The layer page: the table and its rebuilds, the repeat modes, the switches, saving.

#include "guardedpage.h"

#include "digitallineedit.h"
#include "switchbutton.h"

#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QScrollBar>
#include <QTableWidget>

using support::child;
using support::GuardedPage;
using support::Message;
using support::palletReply;
using support::refusal;
using support::Toast;

namespace {

constexpr unsigned short kSet = 0x4210;
constexpr unsigned short kGet = 0x4211;
constexpr wire::reply::Id kReply = wire::reply::robot_pallet_OverlappingModel;

enum Mode { Same, Alternating, Custom };

const char *const kSwitches[] = {"fixedPointHeightBtn", "verticalAlignmentBtn",
                                 "levelsAutoAlignmentBtn", "poseAutorotationBtn"};
const char *const kSwitchKeys[] = {"fixedLayHeight", "columnLay", "floorAutoJustified",
                                   "poseAutorotation"};

const GuardedPage kPage = {
    29,
    QStringLiteral("overlappingModifyBtn"),
    QStringLiteral("overlappingModifyCancelBtn"),
    {QStringLiteral("returnNavigationBtn6"), QStringLiteral("overlappingPageUp"),
     QStringLiteral("overlappingPageDown"), QStringLiteral("overlappingExplainBtn")},
    {QStringLiteral("levelsnum"), QStringLiteral("repeatModeComboBox"),
     QStringLiteral("altimetricCompensationEdit"), QStringLiteral("fixedPointHeightBtn"),
     QStringLiteral("verticalAlignmentBtn"), QStringLiteral("levelsAutoAlignmentBtn"),
     QStringLiteral("poseAutorotationBtn"), QStringLiteral("overlapModeTab"),
     QStringLiteral("repeatBtn")}};

/// A stack of as many layers as there are graphics.
QByteArray stack(int mode, const QByteArray &graphics, const QByteArray &heights)
{
    const int layers = graphics.isEmpty() ? 0 : static_cast<int>(graphics.count(',')) + 1;
    return "{\"floorSum\":" + QByteArray::number(layers)
        + ",\"overlapType\":" + QByteArray::number(mode)
        + ",\"layHeightOffset\":0,\"fixedLayHeight\":false,\"columnLay\":false,"
          "\"floorAutoJustified\":false,\"poseAutorotation\":false,\"graphicNum\":["
        + graphics + "],\"heightRevise\":[" + heights + "]}";
}

const QByteArray kSeven = stack(Custom, "1,2,3,4,5,6,7", "10,20,30,40,50,60,70");

} // namespace

class TestOverlap : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    QTableWidget *table = nullptr;

    QLineEdit *field(const char *name) const { return child<QLineEdit>(pages, name); }
    QComboBox *mode() const { return child<QComboBox>(pages, "repeatModeComboBox"); }
    QPushButton *repeat() const { return child<QPushButton>(pages, "repeatBtn"); }
    SwitchButton *toggle(const char *name) const { return child<SwitchButton>(pages, name); }
    void pressModify() const { support::click(pages, "overlappingModifyBtn"); }

    int layers() const { return table->rowCount() - 1; }
    QComboBox *graphic(int layer) const
    {
        return qobject_cast<QComboBox *>(table->cellWidget(layer + 1, 1));
    }
    DigitalLineEdit *height(int layer) const
    {
        return qobject_cast<DigitalLineEdit *>(table->cellWidget(layer + 1, 2));
    }
    /// The texts of the graphic column: "1 2 3"; "-" where no graphic is chosen.
    QString graphics() const
    {
        QStringList list;
        for (int layer = 0; layer < layers(); ++layer) {
            const QString text = graphic(layer)->currentText();
            list += text.isEmpty() ? QStringLiteral("-") : text;
        }
        return list.join(QLatin1Char(' '));
    }
    QString heights() const
    {
        QStringList list;
        for (int layer = 0; layer < layers(); ++layer)
            list += height(layer)->text();
        return list.join(QLatin1Char(' '));
    }
    /// Which graphics can be chosen, the table itself being enabled: "1" and "0".
    QString choosable() const
    {
        QString list;
        for (int layer = 0; layer < layers(); ++layer)
            list += graphic(layer)->isEnabledTo(table) ? QLatin1Char('1') : QLatin1Char('0');
        return list;
    }

    void receive(const QByteArray &pallet) const { support::receive(kReply, palletReply(pallet)); }
    /// The operator chooses a repeat mode.
    void choose(int row) const
    {
        mode()->setCurrentIndex(row);
        emit mode()->activated(row);
    }
    void confirm(QLineEdit *edit, const QString &text) const
    {
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        pages->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pages));
        table = child<QTableWidget>(pages, "overlapModeTab");
    }

    void init()
    {
        MoreRobot::setCurrentRobot(1);
        support::craft(pages)->setCurrentIndex(0);
        pages->palletOverlappingModelWidget();
        receive(kSeven);
        QCOMPARE(graphics(), QStringLiteral("1 2 3 4 5 6 7"));
        QCOMPARE(heights(), QStringLiteral("10 20 30 40 50 60 70"));
    }

    // ---- what stands on the page ----------------------------------------------------------------

    void form()
    {
        const QWidget *page = pages->widget(29);
        QStringList labels;
        const auto found = page->findChildren<QLabel *>();
        for (const QLabel *label : found)
            labels += label->text();
        for (const char *text : {"工艺号:1", "层数", "重复关系", "放货点高度补偿(mm)",
                                 "固定放货点高度", "竖直方向排列", "层自动对齐", "姿态自动旋转"})
            QVERIFY2(labels.contains(QString::fromUtf8(text)), text);
        QCOMPARE(mode()->count(), 3);
        QCOMPARE(mode()->itemText(Same), QStringLiteral("相同"));
        QCOMPARE(mode()->itemText(Alternating), QStringLiteral("交替"));
        QCOMPARE(mode()->itemText(Custom), QStringLiteral("自定义"));
        const QRect area = page->rect();
        for (const QString &name : kPage.controls) {
            const auto *control = child<QWidget>(page, name);
            QVERIFY2(control->height() >= 40, qPrintable(name));
            QVERIFY2(area.contains(QRect(control->mapTo(page, QPoint()), control->size())),
                     qPrintable(name));
        }
        QVERIFY(field("levelsnum")->validator());
    }

    void aFreshPageHasATableToo()
    {
        TechnologyWidget fresh(nullptr);
        const auto *own = child<QTableWidget>(&fresh, "overlapModeTab");
        QCOMPARE(own->rowCount(), child<QLineEdit>(&fresh, "levelsnum")->text().toInt() + 1);
        QVERIFY(!own->isEnabledTo(own->parentWidget()));
    }

    void tableLook()
    {
        QCOMPARE(table->rowCount(), 8);
        QCOMPARE(table->columnCount(), 3);
        const char *header[] = {"层", "图形编号", "高度修正"};
        for (int column = 0; column < 3; ++column) {
            const QTableWidgetItem *item = table->item(0, column);
            QCOMPARE(item->text(), QString::fromUtf8(header[column]));
            QCOMPARE(item->background().color(), QColor(169, 169, 169));
            QCOMPARE(item->font().pointSize(), 14);
        }
        for (int layer = 0; layer < 7; ++layer) {
            QCOMPARE(table->item(layer + 1, 0)->text(), QString::number(layer + 1));
            QCOMPARE(graphic(layer)->count(), 9);
            for (int row = 0; row < 9; ++row)
                QCOMPARE(graphic(layer)->itemText(row), QString::number(row + 1));
            QVERIFY(graphic(layer)->isVisible());
            QVERIFY(height(layer)->isVisible());
            QVERIFY(graphic(layer)->height() >= 40 && height(layer)->height() >= 40);
            QVERIFY(table->visualItemRect(table->item(layer + 1, 0)).height() >= 40);
        }
        QVERIFY(table->showGrid());
        QVERIFY(table->horizontalHeader()->isHidden());
        QVERIFY(table->verticalHeader()->isHidden());
        QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(table->currentRow(), 1);
        QCOMPARE(static_cast<int>(table->selectedItems().size()), 1);
        QCOMPARE(table->selectedItems().at(0)->row(), 1);
    }

    void showing()
    {
        pages->return_PalletPage();
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        support::Journal journal;
        support::click(pages, "overlappingModelBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QCOMPARE(titles.count(), 1);
        QCOMPARE(titles.at(0), QVariantList({8, 12, 0}));
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
        QVERIFY(!repeat()->isHidden());
    }

    void chain()
    {
        const struct {
            const char *button;
            int page;
        } ways[] = {{"overlappingPageUp", 28},
                    {"overlappingPageDown", 30},
                    {"returnNavigationBtn6", 23},
                    {"overlappingExplainBtn", 2}};
        for (const auto &way : ways) {
            pages->palletOverlappingModelWidget();
            support::click(pages, way.button);
            QCOMPARE(pages->currentIndex(), way.page);
        }
    }

    /// The ring: pages 2 to 5, 13, 14; no title is set on the way.
    void explanations()
    {
        const int ring[] = {2, 3, 4, 5, 13, 14};
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        support::Journal journal;
        support::click(pages, "overlappingExplainBtn");
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(pages->currentIndex(), ring[i]);
            const auto *picture = child<QLabel>(
                pages, QStringLiteral("overlapExplainPic%1").arg(i + 1).toLatin1().constData());
            QVERIFY(picture->isVisible());
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
            QVERIFY(picture->size().width() >= picture->pixmap().width());
            QVERIFY(picture->pixmap().width() > 500);
#endif
            support::click(
                pages,
                QStringLiteral("overlapExplainPageDown%1").arg(i + 1).toLatin1().constData());
        }
        QCOMPARE(pages->currentIndex(), 2);
        for (int i = 6; i > 0; --i) {
            const int from = i % 6 + 1; // 1, 6, 5, 4, 3, 2
            support::click(
                pages, QStringLiteral("overlapExplainPageUp%1").arg(from).toLatin1().constData());
            QCOMPARE(pages->currentIndex(), ring[i - 1]);
        }
        QVERIFY(titles.isEmpty());
        QVERIFY(journal.messages().isEmpty());

        using Slot = void (TechnologyWidget::*)();
        const Slot shows[] = {
            &TechnologyWidget::overlapExplain1, &TechnologyWidget::overlapExplain2,
            &TechnologyWidget::overlapExplain3, &TechnologyWidget::overlapExplain4,
            &TechnologyWidget::overlapExplain5, &TechnologyWidget::overlapExplain6};
        for (int i = 0; i < 6; ++i) {
            (pages->*shows[i])();
            QCOMPARE(pages->currentIndex(), ring[i]);
            support::click(
                pages,
                QStringLiteral("overlapExplainReturnBtn%1").arg(i + 1).toLatin1().constData());
            QCOMPARE(pages->currentIndex(), 29);
        }
    }

    // ---- replies --------------------------------------------------------------------------------

    void reply()
    {
        receive("{\"floorSum\":3,\"overlapType\":2,\"layHeightOffset\":12.3456789,"
                "\"fixedLayHeight\":true,\"columnLay\":true,\"floorAutoJustified\":true,"
                "\"poseAutorotation\":true,\"graphicNum\":[9,1,5],"
                "\"heightRevise\":[-1.5,0.1234567,1e6]}");
        QCOMPARE(field("levelsnum")->text(), QStringLiteral("3"));
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Custom));
        QCOMPARE(field("altimetricCompensationEdit")->text(), QStringLiteral("12.3457"));
        for (const char *name : kSwitches)
            QVERIFY(toggle(name)->isCheck());
        QCOMPARE(graphics(), QStringLiteral("9 1 5"));
        QCOMPARE(heights(), QStringLiteral("-1.5 0.123457 1e+06"));
        QCOMPARE(choosable(), QStringLiteral("111"));
        QCOMPARE(table->currentRow(), 1);
        QVERIFY(!repeat()->isHidden());
        QCOMPARE(kPage.complaint(pages, false), QString());
    }

    void switchesOneByOne()
    {
        for (int on = 0; on < 4; ++on) {
            receive(kSeven);
            receive("{\"" + QByteArray(kSwitchKeys[on]) + "\":true}");
            for (int i = 0; i < 4; ++i)
                QCOMPARE(toggle(kSwitches[i])->isCheck(), i == on);
        }
    }

    void repliesInEachMode()
    {
        receive(stack(Same, "4,2,3", "1,2,3"));
        QCOMPARE(graphics(), QStringLiteral("4 4 4"));
        QCOMPARE(heights(), QStringLiteral("1 1 1"));
        QCOMPARE(choosable(), QStringLiteral("100"));
        QVERIFY(repeat()->isHidden());
        receive(stack(Alternating, "4,2,3,9,9", "1,2,3,4,5"));
        QCOMPARE(graphics(), QStringLiteral("4 2 4 2 4"));
        QCOMPARE(heights(), QStringLiteral("1 2 1 2 1"));
        QCOMPARE(choosable(), QStringLiteral("11000"));
        for (int layer = 0; layer < 5; ++layer)
            QVERIFY(height(layer)->isEnabledTo(table));
        QVERIFY(repeat()->isHidden());
        receive(kSeven);
        QCOMPARE(choosable(), QStringLiteral("1111111"));
        QVERIFY(!repeat()->isHidden());
    }

    /// One layer: nothing follows, nothing is locked.
    void oneLayer()
    {
        receive(stack(Same, "4", "5"));
        QCOMPARE(graphics(), QStringLiteral("4"));
        QCOMPARE(choosable(), QStringLiteral("1"));
        choose(Alternating);
        pages->repeatModeComboBoxShow(7);
        pages->repeatModeEditShow();
        support::click(pages, "repeatBtn");
        QCOMPARE(graphics(), QStringLiteral("4"));
        QCOMPARE(heights(), QStringLiteral("5"));
        QCOMPARE(choosable(), QStringLiteral("1"));
    }

    void layerCounts_data()
    {
        QTest::addColumn<QByteArray>("floorSum");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("layers");
        const auto add = [](const char *floorSum, const char *text, int count) {
            QTest::addRow("%s", floorSum)
                << QByteArray(floorSum) << QString::fromLatin1(text) << count;
        };
        add("0", "0", 0);
        add("1", "1", 1);
        add("2.9", "2", 2);
        add("9998", "9998", 9998);
        add("9999", "9999", 9999);
        add("10000", "9999", 9999);
        add("2147483647", "9999", 9999);
        add("2147483648", "9999", 9999);
        add("1e300", "9999", 9999);
        add("-1", "-1", 0);
        add("-2147483649", "-9999", 0);
        // no number: the count on the page stands
        for (const char *odd : {"\"3\"", "null", "[5]", "{}", "true"})
            add(odd, "7", 7);
    }
    void layerCounts()
    {
        QFETCH(QByteArray, floorSum);
        QFETCH(QString, text);
        QFETCH(int, layers);
        receive("{\"floorSum\":" + floorSum + ",\"graphicNum\":[2,3],\"heightRevise\":[5]}");
        QCOMPARE(field("levelsnum")->text(), text);
        QCOMPARE(table->rowCount(), layers + 1);
        for (int layer = 0; layer < layers; ++layer) {
            const QString expected = layer == 0 ? QStringLiteral("2")
                : layer == 1                    ? QStringLiteral("3")
                                                : QString();
            if (graphic(layer)->currentText() != expected)
                QCOMPARE(graphic(layer)->currentText(), expected);
            if (height(layer)->text() != (layer == 0 ? QLatin1String("5") : QLatin1String("0")))
                QFAIL("a height");
        }
        // and the page works on
        receive(kSeven);
        QCOMPARE(graphics(), QStringLiteral("1 2 3 4 5 6 7"));
    }

    void oddLists()
    {
        const struct {
            const char *pallet;
            const char *graphics;
            const char *heights;
        } replies[] = {
            {"{\"floorSum\":3}", "- - -", "0 0 0"},
            {"{\"floorSum\":3,\"graphicNum\":[1,2,3,4,5],\"heightRevise\":[1,2,3,4,5]}", "1 2 3",
             "1 2 3"},
            {"{\"floorSum\":3,\"graphicNum\":7,\"heightRevise\":\"1\"}", "- - -", "0 0 0"},
            {"{\"floorSum\":3,\"graphicNum\":{\"0\":1},\"heightRevise\":{}}", "- - -", "0 0 0"},
            {"{\"floorSum\":4,\"graphicNum\":[0,10,-1,9],\"heightRevise\":[0,-0.5,1e308,-1]}",
             "- - - 9", "0 -0.5 1e+308 -1"},
            {"{\"floorSum\":5,\"graphicNum\":[\"2\",null,[3],true,2.9],"
             "\"heightRevise\":[\"2\",null,[3],true,1e308]}",
             "- - - - 2", "0 0 0 0 1e+308"},
            {"{\"floorSum\":3,\"graphicNum\":[2147483648,-2147483649,1e300],"
             "\"heightRevise\":[1e300,-1e300,1e-300]}",
             "- - -", "1e+300 -1e+300 1e-300"},
        };
        for (const auto &reply : replies) {
            receive(reply.pallet);
            QCOMPARE(graphics(), QString::fromLatin1(reply.graphics));
            QCOMPARE(heights(),
                     QString::fromLatin1(reply.heights)
                         .replace(QLatin1String("-0 "), QLatin1String("-0 ")));
        }
    }

    /// Without a package object nothing changes; with an empty one the table is filled from it.
    void partialReplies()
    {
        const QPointer<QComboBox> kept = graphic(0);
        for (const char *body : {"", "{", "{\"robot\":1}", "{\"robot\":1,\"craftID\":1}"}) {
            support::receive(kReply, body);
            QCOMPARE(heights(), QStringLiteral("10 20 30 40 50 60 70"));
            QVERIFY(kept);
        }
        receive("{\"overlapType\":3}");
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Custom));
        QCOMPARE(graphics(), QStringLiteral("- - - - - - -"));
        receive("{\"overlapType\":1,\"graphicNum\":[5,6]}");
        QCOMPARE(graphics(), QStringLiteral("5 6 5 6 5 6 5"));
        QVERIFY(repeat()->isHidden());
        receive("{\"overlapType\":-4,\"graphicNum\":[5,6]}");
        QCOMPARE(mode()->currentIndex(), -1);
        QCOMPARE(graphics(), QStringLiteral("5 6 - - - - -"));
    }

    void anotherRobot()
    {
        support::Journal journal;
        support::receive(kReply, palletReply(stack(Custom, "9,8", "1,2"), 5, 4));
        QCOMPARE(support::toasts(journal),
                 QVector<Toast>{refusal("pallet overlapping parameter error!", 5000, 1)});
        QCOMPARE(graphics(), QStringLiteral("9 8"));
        QCOMPARE(support::craft(pages)->currentIndex(), 4);
        QCOMPARE(child<QLabel>(pages, "technologyNumber_8")->text(), QStringLiteral("工艺号:5"));
    }

    // ---- the layer count ------------------------------------------------------------------------

    void anotherLayerCount()
    {
        pressModify();
        support::Journal journal;
        confirm(field("levelsnum"), QStringLiteral("5"));
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1"));
        QCOMPARE(heights(), QStringLiteral("0 0 0 0 0"));
        QCOMPARE(choosable(), QStringLiteral("11111"));
        QCOMPARE(table->currentRow(), 1);
        // the same number once more: what was in the table is lost all the same
        graphic(3)->setCurrentIndex(8);
        confirm(field("levelsnum"), QStringLiteral("5"));
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1"));
        QVERIFY(journal.messages().isEmpty());

        choose(Alternating);
        confirm(field("levelsnum"), QStringLiteral("4"));
        QCOMPARE(choosable(), QStringLiteral("1100"));
        graphic(1)->setCurrentIndex(2);
        QCOMPARE(graphics(), QStringLiteral("1 3 1 3"));
    }

    void aTapOnTheCountKeepsTheTable()
    {
        pressModify();
        const QPointer<QComboBox> kept = graphic(0);
        field("levelsnum")->setFocus();
        QVERIFY(field("levelsnum")->hasFocus());
        field("altimetricCompensationEdit")->setFocus();
        QTest::mouseClick(field("levelsnum"), Qt::LeftButton);
        QTest::keyClick(field("levelsnum"), Qt::Key_Escape);
        field("altimetricCompensationEdit")->setFocus();
        QVERIFY(kept);
        QCOMPARE(heights(), QStringLiteral("10 20 30 40 50 60 70"));
    }

    /// Typed, not confirmed, and the next touch goes right into the table that gives way.
    void leavingTheCountForTheTable()
    {
        pressModify();
        field("levelsnum")->setFocus();
        support::enter(field("levelsnum"), QStringLiteral("3"));
        QCOMPARE(layers(), 7);
        const QPointer<DigitalLineEdit> old = height(1);
        QTest::mouseClick(old, Qt::LeftButton);
        old->setFocus(); // offscreen the click alone moves no focus
        QCOMPARE(layers(), 3);
        QCOMPARE(heights(), QStringLiteral("0 0 0"));
        QTRY_VERIFY(!old);
    }

    void countsThatAreNone()
    {
        pressModify();
        for (const char *text : {"", "0", "-3", "x"}) {
            field("levelsnum")->setText(QString::fromLatin1(text));
            pages->on_levelsnum_editingFinished();
            QCOMPARE(layers(), 7);
        }
        field("levelsnum")->clear();
        QTest::keyClicks(field("levelsnum"), QStringLiteral("0a-12345"));
        QCOMPARE(field("levelsnum")->text(), QStringLiteral("1234"));
    }

    /// An emptied count names no stack: the save takes that of the table.
    void countThatWasEmptied()
    {
        pressModify();
        support::enter(field("levelsnum"), QString());
        QCOMPARE(field("levelsnum")->text(), QString());
        QCOMPARE(layers(), 7);
        support::Journal journal;
        pressModify();
        const QByteArray body = journal.messages().at(0).body;
        QVERIFY(body.contains("\"floorSum\":7,\"graphicNum\":[1,2,3,4,5,6,7]"));
        QCOMPARE(field("levelsnum")->text(), QStringLiteral("7"));
    }

    void rebuildByHand()
    {
        pages->overlapModeTab(2);
        QCOMPARE(graphics(), QStringLiteral("1 1"));
        QCOMPARE(heights(), QStringLiteral("0 0"));
        pages->overlapModeTab(0);
        QCOMPARE(table->rowCount(), 1);
        pages->overlapModeTab(-5);
        QCOMPARE(table->rowCount(), 1);
        pages->overlapModeTab(20000);
        QCOMPARE(layers(), 9999);
    }

    /// The widgets of the old rows are gone: at once after a reply, soon after an entry.
    void oldWidgetsAreDeleted()
    {
        const auto count = [this] {
            return static_cast<int>(table->findChildren<QComboBox *>().size()
                                    + table->findChildren<DigitalLineEdit *>().size());
        };
        for (int round = 0; round < 3; ++round) {
            QVector<QPointer<QWidget>> old;
            for (int layer = 0; layer < layers(); ++layer)
                old += {graphic(layer), height(layer)};
            receive(kSeven);
            for (const auto &widget : old)
                QVERIFY(!widget);
            QCOMPARE(count(), 14);
        }
        pressModify();
        for (int round = 0; round < 3; ++round)
            confirm(field("levelsnum"), QStringLiteral("50"));
        QTRY_COMPARE(count(), 100);
        confirm(field("levelsnum"), QStringLiteral("1"));
        QTRY_COMPARE(count(), 2);
    }

    // ---- the repeat modes -----------------------------------------------------------------------

    void modes()
    {
        pressModify();
        choose(Alternating);
        QCOMPARE(graphics(), QStringLiteral("1 2 1 2 1 2 1"));
        QCOMPARE(heights(), QStringLiteral("10 20 10 20 10 20 10"));
        QCOMPARE(choosable(), QStringLiteral("1100000"));
        QVERIFY(repeat()->isHidden());
        choose(Same);
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1 1 1"));
        QCOMPARE(heights(), QStringLiteral("10 10 10 10 10 10 10"));
        QCOMPARE(choosable(), QStringLiteral("1000000"));
        QVERIFY(repeat()->isHidden());
        choose(Custom);
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1 1 1"));
        QCOMPARE(choosable(), QStringLiteral("1111111"));
        QVERIFY(!repeat()->isHidden());
    }

    void followersOfSame()
    {
        pressModify();
        choose(Same);
        graphic(0)->setCurrentIndex(6);
        QCOMPARE(graphics(), QStringLiteral("7 7 7 7 7 7 7"));
        confirm(height(0), QStringLiteral("-3"));
        QCOMPARE(heights(), QStringLiteral("-3 -3 -3 -3 -3 -3 -3"));
        // the height of a layer above the first two has no follower
        confirm(height(4), QStringLiteral("8"));
        QCOMPARE(heights(), QStringLiteral("-3 -3 -3 -3 8 -3 -3"));
    }

    void followersOfAlternating()
    {
        pressModify();
        choose(Alternating);
        graphic(0)->setCurrentIndex(8);
        QCOMPARE(graphics(), QStringLiteral("9 2 9 2 9 2 9"));
        graphic(1)->setCurrentIndex(4);
        QCOMPARE(graphics(), QStringLiteral("9 5 9 5 9 5 9"));
        confirm(height(1), QStringLiteral("1.5"));
        QCOMPARE(heights(), QStringLiteral("10 1.5 10 1.5 10 1.5 10"));
    }

    void twoLayersAlternate()
    {
        receive(stack(Alternating, "1,2", "3,4"));
        pressModify();
        graphic(0)->setCurrentIndex(8);
        confirm(height(0), QStringLiteral("7"));
        QCOMPARE(graphics(), QStringLiteral("9 2"));
        QCOMPARE(heights(), QStringLiteral("7 4"));
        QCOMPARE(choosable(), QStringLiteral("11"));
    }

    void customHasNoFollowers()
    {
        pressModify();
        graphic(0)->setCurrentIndex(8);
        confirm(height(1), QStringLiteral("1"));
        QCOMPARE(graphics(), QStringLiteral("9 2 3 4 5 6 7"));
        QCOMPARE(heights(), QStringLiteral("10 1 30 40 50 60 70"));
    }

    void repeatButton_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("graphics");
        QTest::newRow("header") << 0 << QStringLiteral("1 2 3 4 5 6 7");
        QTest::newRow("1") << 1 << QStringLiteral("1 1 1 1 1 1 1");
        QTest::newRow("2") << 2 << QStringLiteral("1 1 1 1 1 1 1");
        QTest::newRow("3") << 3 << QStringLiteral("1 2 1 2 1 2 1");
        QTest::newRow("4") << 4 << QStringLiteral("1 2 3 1 2 3 1");
        QTest::newRow("6") << 6 << QStringLiteral("1 2 3 4 5 1 2");
        QTest::newRow("7") << 7 << QStringLiteral("1 2 3 4 5 6 1");
        QTest::newRow("none") << -1 << QStringLiteral("1 2 3 4 5 6 7");
    }
    void repeatButton()
    {
        QFETCH(int, row);
        QFETCH(QString, graphics);
        pressModify();
        table->setCurrentCell(row, 0);
        QCOMPARE(table->currentRow(), row);
        support::click(pages, "repeatBtn");
        QCOMPARE(this->graphics(), graphics);
        QCOMPARE(heights(), QStringLiteral("10 20 30 40 50 60 70"));
    }

    /// A touch on a layer's number chooses its row.
    void choosingARow()
    {
        pressModify();
        const QRect cell = table->visualItemRect(table->item(4, 0));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
        QCOMPARE(table->currentRow(), 4);
    }

    // ---- the switches ---------------------------------------------------------------------------

    void switches()
    {
        support::click(pages, kSwitches[0]);
        QVERIFY(!toggle(kSwitches[0])->isCheck()); // locked in view state
        pressModify();
        support::Journal journal;
        for (const char *name : {kSwitches[0], kSwitches[2], kSwitches[3]}) {
            support::click(pages, name);
            QVERIFY2(toggle(name)->isCheck(), name);
            support::click(pages, name);
            QVERIFY2(!toggle(name)->isCheck(), name);
        }
        QCOMPARE(graphics(), QStringLiteral("1 2 3 4 5 6 7"));
        QVERIFY(journal.messages().isEmpty());
        QVERIFY(journal.toasts().isEmpty());
    }

    void verticalAlignment()
    {
        pressModify();
        support::click(pages, "verticalAlignmentBtn");
        QVERIFY(toggle("verticalAlignmentBtn")->isCheck());
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Same));
        QVERIFY(!mode()->isEnabled());
        QVERIFY(repeat()->isHidden());
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1 1 1"));
        QCOMPARE(heights(), QStringLiteral("10 10 10 10 10 10 10"));
        support::click(pages, "verticalAlignmentBtn");
        QVERIFY(!toggle("verticalAlignmentBtn")->isCheck());
        QVERIFY(mode()->isEnabled());
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Same));
    }

    /// An edit of a stack that is built in columns begins with the mode locked.
    void verticalAlignmentAtTheBeginning()
    {
        QByteArray columns = kSeven;
        columns.replace("\"columnLay\":false", "\"columnLay\":true");
        receive(columns);
        QCOMPARE(graphics(), QStringLiteral("1 2 3 4 5 6 7"));
        pressModify();
        QVERIFY(!mode()->isEnabled());
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Same));
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1 1 1"));
        // a save that is refused leaves what was typed since then
        height(3)->setText(QStringLiteral("6000"));
        pressModify();
        QCOMPARE(heights(), QStringLiteral("10 10 10 6000 10 10 10"));
        support::click(pages, "overlappingModifyCancelBtn");
        QVERIFY(!mode()->isEnabledTo(mode()->parentWidget()));
    }

    /// The same when the reply comes only after the edit has begun.
    void columnsArriveDuringAnEdit()
    {
        pressModify();
        QByteArray columns = kSeven;
        columns.replace("\"columnLay\":false", "\"columnLay\":true");
        receive(columns);
        QVERIFY(!mode()->isEnabled());
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Same));
        QCOMPARE(graphics(), QStringLiteral("1 1 1 1 1 1 1"));
        QCOMPARE(kPage.complaint(pages, true), QStringLiteral("repeatModeComboBox"));
    }

    // ---- edit and save --------------------------------------------------------------------------

    void editAndCancel()
    {
        pressModify();
        QCOMPARE(kPage.complaint(pages, true), QString());
        QVERIFY(graphic(0)->isEnabled());
        QVERIFY(height(6)->isEnabled());
        support::Journal journal;
        support::click(pages, "overlappingModifyCancelBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QVERIFY(!height(6)->isEnabled());
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
    }

    void save()
    {
        support::craft(pages)->setCurrentIndex(1);
        pressModify();
        support::enter(field("altimetricCompensationEdit"), QStringLiteral("12.5"));
        support::click(pages, "poseAutorotationBtn");
        height(1)->setText(QStringLiteral("-0.25"));
        graphic(2)->setCurrentIndex(8);
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, false), QString());
        const QByteArray body =
            "{\"craftID\":2.0,\"pallet\":{\"columnLay\":false,\"fixedLayHeight\":false,"
            "\"floorAutoJustified\":false,\"floorSum\":7,\"graphicNum\":[1,2,9,4,5,6,7],"
            "\"heightRevise\":[10.0,-0.25,30.0,40.0,50.0,60.0,70.0],\"layHeightOffset\":12.5,"
            "\"overlapType\":2,\"poseAutorotation\":true},\"robot\":1}\n";
        QCOMPARE(journal.messages(), (QVector<Message>{{kSet, body}}));
        QCOMPARE(journal.of("log"), (QVector<QVariantList>{{QStringLiteral("设置重叠模式"), 1}}));
        QVERIFY(journal.toasts().isEmpty());
    }

    void saveAndReadBack()
    {
        pressModify();
        choose(Alternating);
        support::Journal journal;
        pressModify();
        Json::Value sent = support::json(journal.messages().at(0).body);
        receive(stack(Custom, "9,9,9,9,9,9,9,9,9", "1,1,1,1,1,1,1,1,1"));
        support::receive(kReply, wire::writeLine(sent));
        QCOMPARE(graphics(), QStringLiteral("1 2 1 2 1 2 1"));
        QCOMPARE(heights(), QStringLiteral("10 20 10 20 10 20 10"));
        QCOMPARE(mode()->currentIndex(), static_cast<int>(Alternating));
    }

    void saveWithoutLayers()
    {
        receive("{\"floorSum\":0}");
        pressModify();
        support::Journal journal;
        pressModify();
        const QByteArray body = journal.messages().at(0).body;
        QVERIFY(body.contains("\"floorSum\":0,\"graphicNum\":[],\"heightRevise\":[]"));
    }

    void graphicsThatAreNone()
    {
        receive("{\"floorSum\":2}");
        pressModify();
        support::Journal journal;
        pressModify();
        QVERIFY(journal.messages().at(0).body.contains("\"graphicNum\":[0,0]"));
    }

    void offsets_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("check"); ///< 0: taken, 1: the pattern, 2: the range
        const auto add = [](const char *text, int check) {
            QTest::addRow("'%s'", text) << QString::fromUtf8(text) << check;
        };
        for (const char *text : {"", "-1", "-0.001", "+1", "01", ".5", "1e3", "abc", "nan", "inf",
                                 "５０", "5０", "0.５"})
            add(text, 1);
        for (const char *text : {"0", "0.001", "0.0", "4999.999", "5000", "5000.0"})
            add(text, 0);
        for (const char *text : {"5000.001", "5001", "1234567890123456789012345678901234567890"})
            add(text, 2);
    }
    void offsets()
    {
        QFETCH(QString, text);
        QFETCH(int, check);
        pressModify();
        field("altimetricCompensationEdit")->setText(text);
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, check != 0), QString());
        QCOMPARE(journal.messages().size(), check == 0 ? 1 : 0);
        QVector<Toast> expected;
        if (check == 1)
            expected.append(refusal("放货点高度补偿参数有误!", 5000, 1));
        else if (check == 2)
            expected.append(refusal("放货点高度补偿参数有误!", 3000, 4));
        QCOMPARE(support::toasts(journal), expected);
    }

    void heightBounds_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("taken");
        for (const char *text : {"5000", "-5000", "4999.999", "-4999.999", "0", "-0", "1e3", ""})
            QTest::addRow("'%s'", text) << QString::fromUtf8(text) << true;
        for (const char *text :
             {"5000.001", "-5000.001", "5001", "-5001", "1e9", "inf", "-inf", "nan",
              "1234567890123456789012345678901234567890", "abc", "５０", "5０", " "})
            QTest::addRow("'%s'", text) << QString::fromUtf8(text) << false;
    }
    void heightBounds()
    {
        QFETCH(QString, text);
        QFETCH(bool, taken);
        for (int layer : {0, 3, 6}) {
            receive(kSeven);
            pressModify();
            height(layer)->setText(text);
            support::Journal journal;
            pressModify();
            QCOMPARE(kPage.complaint(pages, !taken), QString());
            QCOMPARE(journal.messages().size(), taken ? 1 : 0);
            QCOMPARE(support::toasts(journal),
                     taken ? QVector<Toast>()
                           : QVector<Toast>{refusal("高度修正值范围为[-5000-5000]!")});
            if (!taken)
                support::click(pages, "overlappingModifyCancelBtn");
        }
    }

    void order()
    {
        pressModify();
        height(2)->setText(QStringLiteral("6000"));
        const struct {
            const char *offset;
            Toast toast;
        } steps[] = {
            {"x", refusal("放货点高度补偿参数有误!", 5000, 1)},
            {"6000", refusal("放货点高度补偿参数有误!", 3000, 4)},
            {"1", refusal("高度修正值范围为[-5000-5000]!")},
        };
        for (const auto &step : steps) {
            field("altimetricCompensationEdit")->setText(QString::fromLatin1(step.offset));
            support::Journal journal;
            pressModify();
            QCOMPARE(support::toasts(journal), QVector<Toast>{step.toast});
            QVERIFY(journal.messages().isEmpty());
        }
    }

    // ---- a high stack ---------------------------------------------------------------------------

    /// Only the cells in view are shown, and those that come into view by scrolling; in view state
    /// too.
    void scrolling()
    {
        receive("{\"floorSum\":1000}");
        QVERIFY(!table->isEnabled());
        auto *bar = child<QScrollBar>(pages, "overlapModeScroll");
        QVERIFY(bar->isVisible() && bar->isEnabled());
        for (int value : {0, 500, bar->maximum() / 2, bar->maximum(), 10, 0}) {
            bar->setValue(value);
            int shown = 0;
            for (int layer = 0; layer < 1000; ++layer) {
                const QRect cell = table->visualRect(table->model()->index(layer + 1, 2));
                const bool inView = table->viewport()->rect().intersects(cell);
                QCOMPARE(height(layer)->isVisible(), inView);
                QCOMPARE(graphic(layer)->isVisible(), inView);
                if (inView) {
                    QCOMPARE(height(layer)->geometry(), cell);
                    ++shown;
                }
            }
            QVERIFY(shown >= 7 && shown <= 12);
        }
        table->scrollToBottom();
        QCOMPARE(bar->value(), bar->maximum());
        receive(kSeven);
        QCOMPARE(bar->value(), 0);
        QVERIFY(height(0)->isVisible());
    }

    void keypadOfALayer()
    {
        pressModify();
        QCOMPARE(height(2)->property("fieldName").toString(), QStringLiteral("第3层高度修正"));
        QCOMPARE(height(2)->property("fieldUnit").toString(), QStringLiteral("mm"));
    }
};

QTEST_MAIN(TestOverlap)
#include "test_overlap.moc"
