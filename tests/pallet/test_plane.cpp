// The plane page: three templates, their checks, their messages and their drawings.

#include "guardedpage.h"
#include "morerobot.h"

#include <QLabel>
#include <QStackedWidget>

using namespace support;

class TestPlane : public QObject {
    Q_OBJECT

    TechnologyWidget *m_pages = nullptr;

    QLineEdit *edit(const char *name) const { return child<QLineEdit>(m_pages, name); }
    QComboBox *box(const char *name) const { return child<QComboBox>(m_pages, name); }
    int innerPage() const
    {
        return child<QStackedWidget>(m_pages, "planePatternTemplate")->currentIndex();
    }

    GuardedPage page() const
    {
        return {30,
                QStringLiteral("planeModifyBtn"),
                QStringLiteral("planeModifyCancelBtn"),
                {QStringLiteral("returnNavigationBtn7"), QStringLiteral("planePageUp")},
                {QStringLiteral("planeTemplateComboBox"), QStringLiteral("xDirectionMoveDistance"),
                 QStringLiteral("yDirectionMoveDistance"), QStringLiteral("ranksXDirectionNum"),
                 QStringLiteral("ranksYDirectionNum"), QStringLiteral("ranksWholeRotate"),
                 QStringLiteral("ranksWorkpieceRotate"), QStringLiteral("crisscrossXDirectionNum"),
                 QStringLiteral("crisscrossYDirectionNum"), QStringLiteral("crisscrossWholeRotate"),
                 QStringLiteral("crisscrossWorkpieceRotate"), QStringLiteral("huiTypeWholeRotate"),
                 QStringLiteral("huiTypeWorkpieceRotate"), QStringLiteral("workPieceNum"),
                 QStringLiteral("planeMoleTab")}};
    }

    void reply(const QByteArray &pallet, int graphic = 1, int robot = 1)
    {
        receive(wire::reply::robot_pallet_PlaneModel,
                "{\"robot\":" + QByteArray::number(robot) + ",\"craftID\":1,\"graphic\":"
                    + QByteArray::number(graphic) + ",\"pallet\":" + pallet + "}");
    }

private slots:
    void init()
    {
        MoreRobot::setCurrentRobot(1);
        m_pages = new TechnologyWidget(nullptr);
        m_pages->show();
        m_pages->palletPlaneModelWidget();
    }

    void cleanup() { delete m_pages; }

    void asksForTheGraphicAndStartsInViewState()
    {
        Journal journal;
        m_pages->palletPlaneModelWidget();
        QCOMPARE(journal.messages(),
                 QVector<Message>({{0x4214, "{\"craftID\":1,\"graphic\":1,\"robot\":1}\n"}}));
        QCOMPARE(page().complaint(m_pages, false), QString());
        QVERIFY(child<QWidget>(m_pages, "ranksToCustomBtn")->isEnabled());
        QVERIFY(child<QWidget>(m_pages, "CustomPreviewframe")->isHidden());
    }

    /// Until the reply it is the graphic's row that picks the inner page, up to the fourth.
    void showsTheInnerPageOfTheGraphicsRow()
    {
        box("planePicturesNumComboBox")->setCurrentIndex(2);
        m_pages->palletPlaneModelWidget();
        QCOMPARE(innerPage(), 2);
        box("planePicturesNumComboBox")->setCurrentIndex(6);
        m_pages->palletPlaneModelWidget();
        QCOMPARE(innerPage(), 2);
    }

    void anotherGraphicStartsFromNothing()
    {
        reply("{\"graphicType\":0,\"ranks\":{\"numX\":4,\"numY\":3,\"rotationAngleWhole\":90,"
              "\"rotationAngleSingle\":180}}");
        QCOMPARE(edit("ranksXDirectionNum")->text(), QStringLiteral("4"));
        Journal journal;
        box("planePicturesNumComboBox")->setCurrentIndex(4);
        QCOMPARE(journal.messages(),
                 QVector<Message>({{0x4214, "{\"craftID\":1,\"graphic\":5,\"robot\":1}\n"}}));
        QCOMPARE(edit("ranksXDirectionNum")->text(), QStringLiteral("1"));
        QCOMPARE(edit("ranksYDirectionNum")->text(), QStringLiteral("1"));
        QCOMPARE(box("ranksWholeRotate")->currentIndex(), 0);
        QCOMPARE(box("ranksWorkpieceRotate")->currentIndex(), 0);
    }

    void fillsEachTemplate_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("block");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QString>("picture");
        QTest::newRow("ranks") << 0 << QByteArray("ranks") << "ranks"
                               << "RanksModel-90.png";
        QTest::newRow("crisscross") << 1 << QByteArray("intertwining") << "crisscross"
                                    << "crisscross-90.png";
        QTest::newRow("hui") << 2 << QByteArray("gearType") << "huiType"
                             << "HuiType-90.png";
    }

    void fillsEachTemplate()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, block);
        QFETCH(QString, prefix);
        QFETCH(QString, picture);
        reply("{\"graphicType\":" + QByteArray::number(type)
              + ",\"transLenX\":12.5,\"transLenY\":-3,\"autoTransLenX\":7,\"autoTransLenY\":8.25,\""
              + block
              + "\":{\"numX\":4.0,\"numY\":3.0,\"rotationAngleWhole\":-90,"
                "\"rotationAngleSingle\":180}}");
        QCOMPARE(box("planeTemplateComboBox")->currentIndex(), type);
        QCOMPARE(innerPage(), type);
        QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("12.5"));
        QCOMPARE(edit("yDirectionMoveDistance")->text(), QStringLiteral("-3"));
        QCOMPARE(child<QLabel>(m_pages, "autoTransLenX")->text(), QStringLiteral("X自动平移距离7"));
        QCOMPARE(child<QLabel>(m_pages, "autoTransLenY")->text(),
                 QStringLiteral("Y自动平移距离8.25"));
        if (type != 2) {
            QCOMPARE(child<QLineEdit>(m_pages, prefix + "XDirectionNum")->text(),
                     QStringLiteral("4"));
            QCOMPARE(child<QLineEdit>(m_pages, prefix + "YDirectionNum")->text(),
                     QStringLiteral("3"));
        }
        QCOMPARE(child<QComboBox>(m_pages, prefix + "WholeRotate")->currentText(),
                 QStringLiteral("-90"));
        QCOMPARE(child<QComboBox>(m_pages, prefix + "WorkpieceRotate")->currentText(),
                 QStringLiteral("180"));
        const QString sheet = child<QLabel>(m_pages, prefix + "Pic")->styleSheet();
        QVERIFY2(sheet.contains(QLatin1Char('/') + picture), qPrintable(sheet));
    }

    /// Each drawing that a rotation can ask for is there.
    void hasEveryDrawing()
    {
        for (const char *name : {"RanksModel", "crisscross", "HuiType"}) {
            for (const char *angle : {"0", "90", "180", "-90"}) {
                const QString path =
                    QStringLiteral(":/new/picture/Resources/res/%1%2.png").arg(name, angle);
                QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
            }
        }
    }

    void anotherRobotStopsThePlaneReply()
    {
        Journal journal;
        reply("{\"graphicType\":1,\"transLenX\":99}", 1, 2);
        QCOMPARE(journal.of("toast"),
                 QVector<QVariantList>(
                     {{QStringLiteral("pallet plane parameter error!"), 5000, 1, true}}));
        QVERIFY(edit("xDirectionMoveDistance")->text() != QStringLiteral("99"));
        QCOMPARE(box("planeTemplateComboBox")->currentIndex(), 0);
    }

    /// ... while the reply to a conversion is handled all the same.
    void anotherRobotDoesNotStopTheConversion()
    {
        Journal journal;
        receive(wire::reply::robot_pallet_ChangeModel,
                "{\"robot\":2,\"craftID\":1,\"graphic\":1,\"pallet\":{\"graphicType\":3,"
                "\"transLenX\":99}}");
        QCOMPARE(journal.toasts(), QStringList({QStringLiteral("pallet plane parameter error!")}));
        QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("99"));
        QCOMPARE(innerPage(), 3);
    }

    void largeTransfersEndWithAnyReply()
    {
        App::isSendLargeData_ = true;
        receive(wire::reply::robot_pallet_PlaneModel, "no JSON");
        QVERIFY(!App::isSendLargeData_);
    }

    void savesEachTemplate_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("block");
        QTest::newRow("ranks") << 0
                               << QByteArray("\"ranks\":{\"numX\":2.0,\"numY\":3.0,"
                                             "\"rotationAngleSingle\":0.0,"
                                             "\"rotationAngleWhole\":0.0}");
        QTest::newRow("crisscross") << 1
                                    << QByteArray("\"intertwining\":{\"numX\":4.0,\"numY\":5.0,"
                                                  "\"rotationAngleSingle\":0.0,"
                                                  "\"rotationAngleWhole\":90.0}");
        QTest::newRow("hui") << 2
                             << QByteArray("\"gearType\":{\"rotationAngleSingle\":-90.0,"
                                           "\"rotationAngleWhole\":180.0}");
    }

    void savesEachTemplate()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, block);
        click(m_pages, "planeModifyBtn");
        QCOMPARE(page().complaint(m_pages, true), QString());
        QVERIFY(!child<QWidget>(m_pages, "ranksToCustomBtn")->isEnabled());
        QVERIFY(!child<QWidget>(m_pages, "copyPictureBtn")->isEnabled());
        box("planeTemplateComboBox")->setCurrentIndex(type);
        enter(edit("xDirectionMoveDistance"), QStringLiteral("-5000"));
        enter(edit("yDirectionMoveDistance"), QStringLiteral("5000"));
        edit("ranksXDirectionNum")->setText(QStringLiteral("2"));
        edit("ranksYDirectionNum")->setText(QStringLiteral("3"));
        edit("crisscrossXDirectionNum")->setText(QStringLiteral("4"));
        edit("crisscrossYDirectionNum")->setText(QStringLiteral("5"));
        box("crisscrossWholeRotate")->setCurrentIndex(1);
        box("huiTypeWholeRotate")->setCurrentIndex(2);
        box("huiTypeWorkpieceRotate")->setCurrentIndex(3);
        Journal journal;
        click(m_pages, "planeModifyBtn");
        QCOMPARE(journal.toasts(), QStringList());
        // transLenX sorts behind the block of each template
        QByteArray body = "{\"craftID\":1.0,\"graphic\":1,\"pallet\":{";
        const QByteArray kind = "\"graphicType\":" + QByteArray::number(type);
        body += type == 2 ? block + "," + kind : kind + "," + block;
        body += ",\"transLenX\":-5000.0,\"transLenY\":5000.0},\"robot\":1}\n";
        QCOMPARE(journal.messages(), QVector<Message>({{0x4213, body}}));
        QCOMPARE(journal.of("log").first().first().toString(), QStringLiteral("设置平面模式"));
        QCOMPARE(page().complaint(m_pages, false), QString());
        QVERIFY(child<QWidget>(m_pages, "ranksToCustomBtn")->isEnabled());
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        const struct {
            const char *field;
            const char *message;
        } translations[] = {{"xDirectionMoveDistance", "X方向平移距离参数有误!"},
                            {"yDirectionMoveDistance", "Y方向平移距离参数有误!"}};
        for (const auto &row : translations) {
            for (const char *text : {"", "abc", "5000.01", "-5000.01", "1e3", ".5", "５", "5０"})
                QTest::addRow("%s '%s'", row.field, text)
                    << row.field << QString::fromUtf8(text) << QString::fromUtf8(row.message);
        }
        const struct {
            const char *field;
            const char *message;
        } counts[] = {{"ranksXDirectionNum", "行列X方向个数参数有误!"},
                      {"ranksYDirectionNum", "行列Y方向个数参数有误!"},
                      {"crisscrossXDirectionNum", "纵横交错X方向个数参数有误!"},
                      {"crisscrossYDirectionNum", "纵横交错Y方向个数参数有误!"}};
        for (const auto &row : counts) {
            for (const char *text : {"", "0", "100", "1.5", "-1", "01", "1000", "４", "1２"})
                QTest::addRow("%s '%s'", row.field, text)
                    << row.field << QString::fromUtf8(text) << QString::fromUtf8(row.message);
        }
    }

    /// Whatever the template, also the fields of the others.
    void refuses()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(QString, message);
        reply("{\"graphicType\":2,\"transLenX\":0,\"transLenY\":0,\"gearType\":{}}");
        click(m_pages, "planeModifyBtn");
        child<QLineEdit>(m_pages, field)->setText(text);
        Journal journal;
        click(m_pages, "planeModifyBtn");
        QCOMPARE(journal.of("toast"), QVector<QVariantList>({{message, 5000, 1, true}}));
        QVERIFY(journal.messages().isEmpty());
        QCOMPARE(page().complaint(m_pages, true), QString());
    }

    void cancelReadsAnew()
    {
        click(m_pages, "planeModifyBtn");
        Journal journal;
        click(m_pages, "planeModifyCancelBtn");
        QCOMPARE(journal.messages().size(), 1);
        QCOMPARE(page().complaint(m_pages, false), QString());
    }

    /// By hand, row 3 shows the custom page and the number of its rows.
    void choosingCustomShowsItsPage()
    {
        click(m_pages, "planeModifyBtn");
        box("planeTemplateComboBox")->setCurrentIndex(3);
        QCOMPARE(innerPage(), 3);
        QCOMPARE(edit("workPieceNum")->text(), QStringLiteral("7"));
        Journal journal;
        click(m_pages, "planeModifyBtn"); // nothing is stored from here yet, and nothing is lost
        QVERIFY(journal.messages().isEmpty());
        QCOMPARE(page().complaint(m_pages, true), QString());
    }

    void convertsTheSavedTemplate()
    {
        for (const char *button :
             {"ranksToCustomBtn", "crisscrossToCustomBtn", "huiTypeToCustomBtn"}) {
            m_pages->palletPlaneModelWidget();
            Journal journal;
            click(m_pages, button);
            QCOMPARE(journal.messages(),
                     QVector<Message>({{0x4216, "{\"craftID\":1,\"graphic\":1,\"robot\":1}\n"}}));
            QCOMPARE(box("planeTemplateComboBox")->currentIndex(), 3);
            QCOMPARE(innerPage(), 3);
        }
    }

    /// Common fields are filled also from a reply whose template is none.
    void unknownTemplateFillsTheHead()
    {
        for (const QByteArray type : {"7", "-1", "\"x\"", "2147483648"}) {
            reply("{\"graphicType\":" + type + ",\"transLenX\":4.5,\"ranks\":[]}");
            QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("4.5"));
        }
    }
};

QTEST_MAIN(TestPlane)
#include "test_plane.moc"
