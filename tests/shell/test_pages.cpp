// The composed form: which pages there are, in which order, and what stands ready on them once the
// process pages are built.

#include "../support.h"

#include "boxpainter.h"
#include "newtechnologywidget.h"
#include "setfontsize.h"
#include "setingwidget.h"
#include "shell/pagetable.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <iterator>

using support::child;

namespace {

struct PageRow {
    int index;
    const char *name;
    int title; ///< -1: the page leaves the title as it is
};

constexpr PageRow kPages[] = {
    {0, "techMainButtonWidget", 0},
    {1, "palletPage", 1},
    {2, "overlapExplainPage1", -1},
    {3, "overlapExplainPage2", -1},
    {4, "overlapExplainPage3", -1},
    {5, "overlapExplainPage4", -1},
    {6, "trackConveyorPage", 22},
    {7, "trackConParaPage", 23},
    {8, "trackConBasicInfpage", 55},
    {9, "trackConSetToolpage", 56},
    {10, "trackConCalibrationpage", 57},
    {11, "trackConSetPospage", 59},
    {12, "calibrationStartpage", -1},
    {13, "overlapExplainPage5", -1},
    {14, "overlapExplainPage6", -1},
    {15, "laserMainpage", 5},
    {16, "LaserBorepage", 24},
    {17, "Laserboreslopepage", -1},
    {18, "LaserCutpage", 25},
    {19, "LaserCutSlopePage", -1},
    {20, "LaserAnalogpage", 26},
    {21, "LaserIoSetpage", 27},
    {22, "laserHandOppage", 28},
    {23, "palletNavigationpage", 6},
    {24, "palletSetTongspage", 7},
    {25, "palletSetTraypage", 8},
    {26, "palletSetPositionpage", 9},
    {27, "palletWorkpieceParapage", 10},
    {28, "palletApproachParapage", 11},
    {29, "palletOverlappingModelpage", 12},
    {30, "palletPlaneModelpage", 13},
    {31, "palletMultiplepage", -1},
    {32, "palletMultipleCountpage", 15},
    {33, "palletCreatedFilepage1", 16},
    {34, "palletCreatedFilepage2", -1},
    {35, "palletCreatedFilepage3", -1},
    {36, "palletCreatedFilepage4", -1},
    {37, "palletCreatedFilepage5", -1},
    {38, "palletStatepage", -1},
    {39, "customPreviewpage", -1},
    {40, "PalletEasy", 18},
    {41, "page_2", 19},
    {42, "page_3", 20},
    {43, "BWBpage", -1},
    {44, "proviewpage", 21},
    {45, "BWBNewProgram_page", -1},
    {46, "page_4", -1},
    {47, "polishpage", 47},
    {48, "page_5", 48},
    {49, "page_6", 49},
    {50, "page_7", 50},
    {51, "page_8", 51},
    {52, "page_9", 52},
    {53, "page_10", 53},
    {54, "page_11", 54},
    {55, "page_12", 58},
    {56, "page_13", -1},
    {57, "page_14", 60},
    {58, "LocationDebugpage", 61},
};

/// Which page of the stack a widget lies on.
int pageOf(const QStackedWidget *stack, const QWidget *widget)
{
    for (int i = 0; i < stack->count(); ++i) {
        if (stack->widget(i) == widget || stack->widget(i)->isAncestorOf(widget))
            return i;
    }
    return -1;
}

QStringList items(const QComboBox *box)
{
    QStringList list;
    for (int i = 0; i < box->count(); ++i)
        list += box->itemText(i);
    return list;
}

QStringList numbers(int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list += QString::number(i);
    return list;
}

/// A stack whose slots are named after widgets of several packages.
class NamedSlots : public QStackedWidget {
    Q_OBJECT
public:
    QStringList calls;

public slots:
    void on_BtnPolish_clicked() { calls += QStringLiteral("BtnPolish"); }
    void on_BtnPalletType_clicked() { calls += QStringLiteral("BtnPalletType"); }
    void on_BtnTrackConPara_clicked() { calls += QStringLiteral("BtnTrackConPara"); }
    void on_BtnLaserBore_clicked() { calls += QStringLiteral("BtnLaserBore"); }
    void on_BtnSequence_clicked() { calls += QStringLiteral("BtnSequence"); }
    void on_btnOpenJob_clicked() { calls += QStringLiteral("btnOpenJob"); }
    void on_btnPolishModify_clicked() { calls += QStringLiteral("btnPolishModify"); }
    void on_tongs_1_port_currentIndexChanged(int) { calls += QStringLiteral("tongs_1_port"); }
    void on_m_pPolishCombox_currentIndexChanged(int) { calls += QStringLiteral("m_pPolishCombox"); }
    void on_calibrationStartstackedWidget_currentChanged(int)
    {
        calls += QStringLiteral("calibrationStartstackedWidget");
    }
    void on_planePatternTemplate_currentChanged(int)
    {
        calls += QStringLiteral("planePatternTemplate");
    }
    void on_tabWidget_currentChanged(int) { calls += QStringLiteral("tabWidget"); }
};

} // namespace

class TestPages : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        pages = TechnologyWidget::getInstance();
    }

    void oneObject()
    {
        QVERIFY(pages);
        QCOMPARE(TechnologyWidget::getInstance(), pages);
        {
            TechnologyWidget other(nullptr);
            QCOMPARE(TechnologyWidget::getInstance(), pages);
        }
        QCOMPARE(TechnologyWidget::getInstance(), pages);
    }

    void order_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("title");
        for (const PageRow &row : kPages)
            QTest::newRow(row.name) << row.index << QString::fromLatin1(row.name) << row.title;
    }
    void order()
    {
        QFETCH(int, index);
        QFETCH(QString, name);
        QFETCH(int, title);
        QVERIFY(pages->widget(index));
        QCOMPARE(pages->widget(index)->objectName(), name);
        const page::Row &row = page::kTable[index];
        QCOMPARE(static_cast<int>(row.index), index);
        QCOMPARE(QString::fromLatin1(row.objectName), name);
        QCOMPARE(row.title, title);
    }

    void count()
    {
        QCOMPARE(pages->count(), 59);
        QCOMPARE(static_cast<int>(std::size(kPages)), 59);
        QCOMPARE(static_cast<int>(page::Count), 59);
    }

    void objectNamesAreUnique()
    {
        QStringList seen;
        const QList<QWidget *> widgets = pages->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            const QString name = widget->objectName();
            // the inner parts of Qt's own widgets repeat themselves
            if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))
                || name.startsWith(QLatin1String("Scroll")))
                continue;
            QVERIFY2(!seen.contains(name), qPrintable(name));
            seen += name;
        }
    }

    void startIndices()
    {
        TechnologyWidget fresh(nullptr);
        QCOMPARE(fresh.currentIndex(), 0);

        struct Nested {
            const char *name;
            int page;
            int count;
            int index;
        };
        const Nested stacks[] = {
            {"calibrationStartstackedWidget", 12, 4, 1},
            {"calibrationStartstackedWidget_2", 56, 3, 0},
            {"planePatternTemplate", 30, 6, 4},
        };
        for (const Nested &row : stacks) {
            const auto *stack = child<QStackedWidget>(&fresh, row.name);
            QCOMPARE(stack->count(), row.count);
            QCOMPARE(stack->currentIndex(), row.index);
            QCOMPARE(pageOf(&fresh, stack), row.page);
        }
    }

    void tabs()
    {
        TechnologyWidget fresh(nullptr);
        const auto *sequence = child<QTabWidget>(&fresh, "tabWidgetSequence");
        QCOMPARE(pageOf(&fresh, sequence), 52);
        QCOMPARE(sequence->currentIndex(), 0);
        QCOMPARE(sequence->count(), 2);
        QCOMPARE(sequence->tabText(0), QStringLiteral("开枪时序"));
        QCOMPARE(sequence->tabText(1), QStringLiteral("换料时序"));

        const auto *hand = child<QTabWidget>(&fresh, "tabWidget");
        QCOMPARE(pageOf(&fresh, hand), 53);
        QCOMPARE(hand->currentIndex(), 0);
        QCOMPARE(hand->count(), 3);
        QCOMPARE(hand->tabText(0), QStringLiteral("喷漆"));
        QCOMPARE(hand->tabText(1), QStringLiteral("除尘"));
        QCOMPARE(hand->tabText(2), QStringLiteral("油量测试"));
    }

    /// Slots are attached by name once the whole form stands: setting it up calls none of them, and
    /// each is attached once.
    void slotsByName()
    {
        NamedSlots stack;
        Ui_TechnologyWidget form;
        form.setupUi(&stack);
        QCOMPARE(stack.calls, QStringList());

        for (const char *button : {"BtnPolish", "BtnPalletType", "BtnTrackConPara", "BtnLaserBore",
                                   "BtnSequence", "btnOpenJob", "btnPolishModify"}) {
            stack.calls.clear();
            auto *found = child<QAbstractButton>(&stack, button);
            found->setEnabled(true);
            found->click();
            QVERIFY2(stack.calls == QStringList(QString::fromLatin1(button)), button);
        }
        stack.calls.clear();
        form.m_pPolishCombox->setCurrentIndex(4);
        form.tongs_1_port->setCurrentIndex(2);
        form.calibrationStartstackedWidget->setCurrentIndex(3);
        form.planePatternTemplate->setCurrentIndex(0);
        form.tabWidget->setCurrentIndex(2);
        QCOMPARE(
            stack.calls,
            QStringList({QStringLiteral("m_pPolishCombox"), QStringLiteral("tongs_1_port"),
                         QStringLiteral("calibrationStartstackedWidget"),
                         QStringLiteral("planePatternTemplate"), QStringLiteral("tabWidget")}));
    }

    void firstLevelButtons_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, int page, const char *text = "") {
            QTest::newRow(name) << page << QString::fromUtf8(text);
        };
        row("BtnPalletTech", 0, "码垛工艺");
        row("BtnLaserSetting", 0, "激光切割工艺");
        row("BtnBWBTech", 0, "专用工艺");
        row("BtnTrackConveyor", 0, "传送带跟踪工艺");
        row("BtnPolish", 0, "打磨工艺");
        row("BtnSpray", 0, "喷涂工艺");
        row("BtnScrew", 0, "电批");
        row("BtnVisionSetting", 0);
        row("BtnWeldSetting", 0);
        row("UserTechBtns", 0);
        row("BtnPalletType", 1);
        row("BtnLocationDebug", 1);
        row("BtnPalletMultiple", 1);
        row("BtnPalletFile", 1);
        row("BtnTrackConPara", 6);
        row("BtnLaserBore", 15);
        row("BtnLaserCut", 15);
        row("BtnLaserAnalog", 15);
        row("BtnLaserIoSetting", 15);
        row("BtnLaserHandOp", 15);
        row("BtnPolishPara", 47, "打磨参数");
        row("BtnDigitalSetting", 49);
        row("BtnAnalogSetting", 49);
        row("BtnSequence", 49);
        row("BtnTrackPara", 49);
        row("BtnHandOperating", 49);
    }
    /// Each stands on its page, reads well, and is large enough to be touched.
    void firstLevelButtons()
    {
        QFETCH(int, page);
        QFETCH(QString, text);
        const auto *button = child<QToolButton>(pages, QTest::currentDataTag());
        QCOMPARE(pageOf(pages, button), page);
        QVERIFY(!button->text().isEmpty());
        if (!text.isEmpty())
            QCOMPARE(button->text(), text);
        QVERIFY(!button->icon().isNull());
        QVERIFY(button->height() >= 40);
        QVERIFY(pages->widget(page)->rect().isNull()
                || QRect(0, 0, 714, 504).contains(button->geometry()));
    }

    void firstLevelFonts()
    {
        const QFont font = SetFontSize::setSize(14);
        QCOMPARE(font.pointSize(), 14);
        for (const char *name :
             {"BtnPalletTech",    "BtnPalletType",    "BtnLocationDebug", "BtnPalletMultiple",
              "BtnPalletFile",    "BtnVisionSetting", "BtnWeldSetting",   "BtnLaserSetting",
              "BtnLaserBore",     "BtnLaserCut",      "BtnLaserAnalog",   "BtnLaserIoSetting",
              "BtnLaserHandOp",   "BtnBWBTech",       "BtnPolishPara",    "BtnTrackConveyor",
              "BtnPolish",        "BtnScrew",         "BtnSpray",         "BtnDigitalSetting",
              "BtnAnalogSetting", "BtnSequence",      "BtnTrackPara",     "BtnHandOperating"}) {
            const QFont used = child<QToolButton>(pages, name)->font();
            QVERIFY2(used.pointSize() == 14, name);
            QVERIFY2(used.family() == font.family(), name);
        }
    }

    void multipleStaysHidden()
    {
        const auto *button = child<QToolButton>(pages, "BtnPalletMultiple");
        QVERIFY(button->isHidden());
        pages->return_PalletPage();
        QVERIFY(button->isHidden());
        pages->return_mainPage();
    }

    void canvases_data()
    {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<int>("page");
        QTest::addColumn<QRect>("geometry"); // a fixed size holds over the geometry set before
        QTest::addColumn<bool>("isFixed");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("plane") << "widget_11" << 30 << QRect(10, 50, 535, 350) << true << true;
        QTest::newRow("location") << "LocationDebugWidget" << 58 << QRect(20, 80, 530, 310) << true
                                  << true;
        QTest::newRow("preview") << "previewShowwidget" << 39 << QRect(10, 10, 619, 369) << false
                                 << false;
    }
    void canvases()
    {
        QFETCH(QString, parent);
        QFETCH(int, page);
        QFETCH(QRect, geometry);
        QFETCH(bool, isFixed);
        QFETCH(bool, enabled);
        auto *holder = child<QWidget>(pages, parent);
        const auto found =
            holder->findChildren<BoxPainter *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(static_cast<int>(found.size()), 1);
        const BoxPainter *canvas = found.first();
        QCOMPARE(pageOf(pages, canvas), page);
        QCOMPARE(canvas->geometry(), geometry);
        if (isFixed) {
            QCOMPARE(canvas->minimumSize(), geometry.size());
            QCOMPARE(canvas->maximumSize(), geometry.size());
        } else {
            QCOMPARE(canvas->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        }
        QVERIFY(canvas->isHidden());
        QCOMPARE(canvas->styleSheet(), QStringLiteral("background-color:white"));
        QCOMPARE(canvas->isEnabledTo(holder), enabled);
        QCOMPARE(canvas->scaleLevelResult(), 10);
        QVERIFY(holder->rect().contains(canvas->geometry()));
        QVERIFY(QRect(0, 0, 714, 504).contains(holder->geometry()));
    }

    void noFurtherCanvas()
    {
        QCOMPARE(static_cast<int>(pages->findChildren<BoxPainter *>().size()), 3);
    }

    /// The drawing areas differ in their extents, which is seen in what can be scrolled to.
    void canvasExtents()
    {
        struct Row {
            const char *parent;
            QSizeF extent;
        };
        for (const Row &row :
             {Row{"widget_11", {485.0, 300.0}}, Row{"LocationDebugWidget", {480.0, 260.0}},
              Row{"previewShowwidget", {610.0, 360.0}}}) {
            const auto *canvas = child<QWidget>(pages, row.parent)->findChild<BoxPainter *>();
            BoxPainter expected;
            expected.setFixedSize(canvas->size());
            expected.setXY(row.extent.width(), row.extent.height());
            QCOMPARE(canvas->sceneRect(), expected.sceneRect());
            BoxPainter swapped;
            swapped.setFixedSize(canvas->size());
            swapped.setXY(row.extent.height(), row.extent.width());
            QVERIFY(canvas->sceneRect() != swapped.sceneRect());
        }
    }

    void countFieldsTake_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");
        QTest::newRow("a digit") << "7"
                                 << "7";
        QTest::newRow("the largest") << "9999"
                                     << "9999";
        QTest::newRow("five digits") << "12345"
                                     << "1234";
        QTest::newRow("zero first") << "05"
                                    << "5";
        QTest::newRow("zero later") << "100"
                                    << "100";
        QTest::newRow("sign") << "-3"
                              << "3";
        QTest::newRow("point") << "1.5"
                               << "15";
        QTest::newRow("letters") << "ab"
                                 << "";
    }
    void countFieldsTake()
    {
        QFETCH(QString, typed);
        QFETCH(QString, kept);
        TechnologyWidget fresh(nullptr);
        for (const char *name : {"levelsnum", "workPieceNum"}) {
            auto *edit = child<QLineEdit>(&fresh, name);
            edit->setEnabled(true);
            edit->clear();
            support::enter(edit, typed);
            QCOMPARE(edit->text(), kept);
            QCOMPARE(edit->hasAcceptableInput(), !kept.isEmpty());
        }
    }

    void countFieldsRefuseWhatIsPasted()
    {
        for (const char *name : {"levelsnum", "workPieceNum"}) {
            auto *edit = child<QLineEdit>(pages, name);
            QVERIFY2(edit->validator(), name);
            for (const char *text : {"0", "10000", "1a", " 1", "1 "}) {
                QString copy = QString::fromLatin1(text);
                int position = 0;
                QVERIFY2(edit->validator()->validate(copy, position) == QValidator::Invalid, text);
            }
        }
    }

    void moveStepIsOne()
    {
        QCOMPARE(child<QLineEdit>(pages, "Forward")->text(), QStringLiteral("1"));
    }

    void tableRows_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("height"); // given to resizeTable
        QTest::addColumn<int>("own"); // of the table
        QTest::addColumn<QVector<int>>("expected");
        QTest::newRow("four") << 4 << 230 << 500 << QVector<int>{57, 57, 57, 54};
        QTest::newRow("no remainder") << 5 << 250 << 500 << QVector<int>{50, 50, 50, 50, 47};
        QTest::newRow("one") << 1 << 100 << 500 << QVector<int>{97};
        QTest::newRow("own height") << 4 << -1 << 230 << QVector<int>{57, 57, 57, 54};
    }
    void tableRows()
    {
        QFETCH(int, rows);
        QFETCH(int, height);
        QFETCH(int, own);
        QFETCH(QVector<int>, expected);
        QTableWidget table(rows, 2);
        table.resize(300, own);
        pages->resizeTable(&table, height);
        QVector<int> heights;
        for (int row = 0; row < rows; ++row)
            heights += table.rowHeight(row);
        QCOMPARE(heights, expected);
    }

    void tablesLeftAlone()
    {
        pages->resizeTable(nullptr, 230);
        pages->resizeTable(nullptr, -1);
        QTableWidget empty(0, 3);
        pages->resizeTable(&empty, 230);
        pages->resizeTable(&empty, -1);
        QCOMPARE(empty.rowCount(), 0);
    }

    void portListsOfTheForm()
    {
        TechnologyWidget fresh(nullptr);
        for (const char *name : {"tongs_1_port", "tongs_2_port", "tongs_3_port", "tongs_4_port",
                                 "get_enable_signal", "tongs_1_getsucceed", "tongs_2_getsucceed",
                                 "tongs_3_getsucceed", "tongs_4_getsucceed"}) {
            QCOMPARE(items(child<QComboBox>(&fresh, name)), numbers(16));
            QCOMPARE(pageOf(&fresh, child<QComboBox>(&fresh, name)), 35);
            QCOMPARE(items(child<QComboBox>(
                         &fresh, QString::fromLatin1(name) + QLatin1String("_validvalues"))),
                     QStringList({QStringLiteral("1"), QStringLiteral("0")}));
        }
    }

    /// Outputs for the grippers, inputs for what they report; a row "无" before the ports.
    void portListsOfTheController()
    {
        TechnologyWidget fresh(nullptr);
        auto *kept = child<QComboBox>(&fresh, "tongs_2_port");
        auto *gone = child<QComboBox>(&fresh, "tongs_3_getsucceed");
        kept->setCurrentIndex(2);
        gone->setCurrentIndex(15);

        const QStringList outputs = {QStringLiteral("Y0"), QStringLiteral("Y1")};
        const QStringList inputs = {QStringLiteral("X0"), QStringLiteral("X1"),
                                    QStringLiteral("X2")};
        emit Robot::getInstance()->portsReported(outputs, inputs, {QStringLiteral("A0")});
        SetingWidget::getInstance()->setPorts(outputs, inputs, {QStringLiteral("A0")});
        fresh.reflashTechnologyIOPortList();

        const QStringList none(QStringLiteral("无"));
        for (const char *name : {"tongs_1_port", "tongs_2_port", "tongs_3_port", "tongs_4_port"})
            QCOMPARE(items(child<QComboBox>(&fresh, name)), none + outputs);
        for (const char *name : {"get_enable_signal", "tongs_1_getsucceed", "tongs_2_getsucceed",
                                 "tongs_3_getsucceed", "tongs_4_getsucceed"})
            QCOMPARE(items(child<QComboBox>(&fresh, name)), none + inputs);
        QCOMPARE(kept->currentIndex(), 2);
        QCOMPARE(gone->currentIndex(), 0);

        // again with another controller, as the page does each time it opens
        SetingWidget::getInstance()->setPorts({}, {QStringLiteral("IN")}, {});
        fresh.reflashTechnologyIOPortList();
        QCOMPARE(items(child<QComboBox>(&fresh, "tongs_4_port")), none);
        QCOMPARE(items(child<QComboBox>(&fresh, "get_enable_signal")),
                 none + QStringList(QStringLiteral("IN")));
    }

    void hidingTheProcessPages()
    {
        QWidget *hosted = NewTechnologyWidget::getInstance();
        pages->show();
        hosted->show();
        pages->hideWgt();
        QVERIFY(!pages->isVisible());
        QVERIFY(!hosted->isVisible());
        pages->hideWgt();
        QVERIFY(!pages->isVisible());
    }

    void userCoordinateIsEmptyAtFirst()
    {
        TechnologyWidget fresh(nullptr);
        QVERIFY(fresh.getCurrentCoordsUser().isEmpty());
    }

    /// Building the pages asks the controller nothing, tells nothing and asks for no right.
    void buildingIsSilent()
    {
        support::Journal journal;
        TechnologyWidget fresh(nullptr);
        QCOMPARE(journal.kinds(), QStringList());
    }
};

QTEST_MAIN(TestPages)
#include "test_pages.moc"
