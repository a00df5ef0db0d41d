// The plane page: three templates, their checks, their messages and their drawings.

#include "course.h"
#include "guardedpage.h"
#include "morerobot.h"

#include <QLabel>
#include <QRegularExpression>
#include <QStackedWidget>
#include <iterator>

using namespace support;

namespace {

constexpr unsigned short kSet = 0x4213;
constexpr unsigned short kGet = 0x4214;

enum Template { Ranks, Crisscross, HuiType, Custom };

struct TemplateRow {
    const char *prefix; ///< what the names of its widgets begin with
    const char *block; ///< its key in the messages
    const char *picture; ///< what the names of its drawings begin with
};

const TemplateRow kTemplates[] = {{"ranks", "ranks", "RanksModel"},
                                  {"crisscross", "intertwining", "crisscross"},
                                  {"huiType", "gearType", "HuiType"}};
const char *const kAngles[] = {"0", "90", "180", "-90"};

const char *const kCounts[] = {"ranksXDirectionNum", "ranksYDirectionNum",
                               "crisscrossXDirectionNum", "crisscrossYDirectionNum"};
const char *const kRotations[] = {"ranksWholeRotate",      "ranksWorkpieceRotate",
                                  "crisscrossWholeRotate", "crisscrossWorkpieceRotate",
                                  "huiTypeWholeRotate",    "huiTypeWorkpieceRotate"};
/// The counts and rotations of a graphic that nothing is known of yet.
const QStringList kFresh = QStringLiteral("1 1 1 1 0 0 0 0 0 0").split(QLatin1Char(' '));

/// What a save tests, in its order.
struct Checked {
    const char *name;
    Template type; ///< a template whose message holds the field
    const char *block; ///< null: the value stands in the package object itself
    const char *key;
    const char *beyond; ///< too large by the least that a keypad makes
    const char *message;
};

const Checked kChecked[] = {
    {"xDirectionMoveDistance", HuiType, nullptr, "transLenX", "5000.01", "X方向平移距离参数有误!"},
    {"yDirectionMoveDistance", HuiType, nullptr, "transLenY", "5000.01", "Y方向平移距离参数有误!"},
    {"ranksXDirectionNum", Ranks, "ranks", "numX", "100", "行列X方向个数参数有误!"},
    {"ranksYDirectionNum", Ranks, "ranks", "numY", "100", "行列Y方向个数参数有误!"},
    {"crisscrossXDirectionNum", Crisscross, "intertwining", "numX", "100",
     "纵横交错X方向个数参数有误!"},
    {"crisscrossYDirectionNum", Crisscross, "intertwining", "numY", "100",
     "纵横交错Y方向个数参数有误!"},
};

/// What starts from the saved graphic: at hand in view state, locked in an edit.
const char *const kSavedGraphic[] = {"customPreviewBtn", "copyPictureBtn", "ranksToCustomBtn",
                                     "crisscrossToCustomBtn", "huiTypeToCustomBtn"};

/// What the page shows in its head, whatever was shown in its place before.
const char *const kHead[] = {"label_325",
                             "label_326",
                             "label_327",
                             "label_328",
                             "technologyNumber_7",
                             "planePicturesNumComboBox",
                             "planeTemplateComboBox",
                             "xDirectionMoveDistance",
                             "yDirectionMoveDistance",
                             "autoTransLenX",
                             "autoTransLenY"};

} // namespace

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
                {QStringLiteral("draftingPreview"),
                 QStringLiteral("customPagDn"),
                 QStringLiteral("customPagUp"),
                 QStringLiteral("customPage"),
                 QStringLiteral("moveupBtn"),
                 QStringLiteral("moveDownBtn"),
                 QStringLiteral("planeTemplateComboBox"),
                 QStringLiteral("xDirectionMoveDistance"),
                 QStringLiteral("yDirectionMoveDistance"),
                 QStringLiteral("ranksXDirectionNum"),
                 QStringLiteral("ranksYDirectionNum"),
                 QStringLiteral("ranksWholeRotate"),
                 QStringLiteral("ranksWorkpieceRotate"),
                 QStringLiteral("crisscrossXDirectionNum"),
                 QStringLiteral("crisscrossYDirectionNum"),
                 QStringLiteral("crisscrossWholeRotate"),
                 QStringLiteral("crisscrossWorkpieceRotate"),
                 QStringLiteral("huiTypeWholeRotate"),
                 QStringLiteral("huiTypeWorkpieceRotate"),
                 QStringLiteral("workPieceNum"),
                 QStringLiteral("planeMoleTab")}};
    }
    /// What is wrong with the page in this state, or nothing.
    QString complaint(bool editing) const
    {
        for (const char *name : kSavedGraphic) {
            if (isEnabled(m_pages, QString::fromLatin1(name)) == editing)
                return QString::fromLatin1(name);
        }
        if (!isEnabled(m_pages, QStringLiteral("planeModifyBtn")))
            return QStringLiteral("planeModifyBtn");
        return page().complaint(m_pages, editing);
    }

    /// The counts and rotations of all templates.
    QStringList templateFields() const
    {
        QStringList list;
        for (const char *name : kCounts)
            list += edit(name)->text();
        for (const char *name : kRotations)
            list += box(name)->currentText();
        return list;
    }
    /// Other values in each of them than a graphic starts with.
    void setTemplateFields() const
    {
        for (const char *name : kCounts)
            edit(name)->setText(QStringLiteral("8"));
        for (const char *name : kRotations)
            box(name)->setCurrentIndex(3);
        for (int i = 0; i < kFresh.size(); ++i)
            QVERIFY(templateFields().at(i) != kFresh.at(i));
    }

    QComboBox *wholeRotation(int type) const
    {
        return support::box(
            m_pages, QString::fromLatin1(kTemplates[type].prefix) + QLatin1String("WholeRotate"));
    }
    QComboBox *singleRotation(int type) const
    {
        return support::box(m_pages,
                            QString::fromLatin1(kTemplates[type].prefix)
                                + QLatin1String("WorkpieceRotate"));
    }
    QLabel *picture(int type) const
    {
        return child<QLabel>(m_pages,
                             QString::fromLatin1(kTemplates[type].prefix) + QLatin1String("Pic"));
    }
    /// The drawings that the three templates show; empty where there is none.
    QStringList pictures() const
    {
        static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
        QStringList list;
        for (int type = Ranks; type <= HuiType; ++type)
            list += url.match(picture(type)->styleSheet()).captured(1);
        return list;
    }
    static QString drawing(int type, const char *angle)
    {
        return QStringLiteral(":/new/picture/Resources/res/%1%2.png")
            .arg(QLatin1String(kTemplates[type].picture), QLatin1String(angle));
    }

    static void addTemplates()
    {
        QTest::addColumn<int>("type");
        for (int type = Ranks; type <= HuiType; ++type)
            QTest::newRow(kTemplates[type].prefix) << type;
    }
    /// Each template in each rotation.
    static void addRotations()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("row");
        for (int type = Ranks; type <= HuiType; ++type) {
            for (int row = 0; row < 4; ++row)
                QTest::addRow("%s %s", kTemplates[type].prefix, kAngles[row]) << type << row;
        }
    }

    /// Of a message that saves a graphic.
    static Json::Value sentPallet(const Journal &journal)
    {
        return json(journal.messages().at(0).body)["pallet"];
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

    void cleanup()
    {
        delete m_pages;
        App::isSendLargeData_ = false;
    }

    // ---- showing the page -----------------------------------------------------------------------

    void asksForTheGraphicAndStartsInViewState()
    {
        Journal journal;
        m_pages->palletPlaneModelWidget();
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGet, "{\"craftID\":1,\"graphic\":1,\"robot\":1}\n"}}));
        QCOMPARE(complaint(false), QString());
        QVERIFY(child<QWidget>(m_pages, "CustomPreviewframe")->isHidden());
    }

    /// Until the reply it is the graphic's row that picks the inner page, up to the fourth.
    void showsTheInnerPageOfTheGraphicsRow()
    {
        for (int row = 0; row < 9; ++row) {
            child<QStackedWidget>(m_pages, "planePatternTemplate")->setCurrentIndex(5);
            box("planePicturesNumComboBox")->setCurrentIndex(row);
            m_pages->palletPlaneModelWidget();
            QCOMPARE(innerPage(), row < 4 ? row : 5);
        }
    }

    void comingBackStartsFromNothing_data()
    {
        QTest::addColumn<QStringList>("clicks");
        QTest::newRow("another page and back")
            << QStringList{QStringLiteral("planePageUp"), QStringLiteral("overlappingPageDown")};
        QTest::newRow("an edit and its cancel") << QStringList{
            QStringLiteral("planeModifyBtn"), QStringLiteral("planeModifyCancelBtn")};
    }

    /// The answer may bring a part only: what it does not bring is not to stay from before.
    void comingBackStartsFromNothing()
    {
        QFETCH(QStringList, clicks);
        setTemplateFields();
        QTest::mouseClick(child<QPushButton>(m_pages, clicks.at(0)), Qt::LeftButton);
        Journal journal;
        QTest::mouseClick(child<QPushButton>(m_pages, clicks.at(1)), Qt::LeftButton);
        QCOMPARE(templateFields(), kFresh);
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGet, "{\"craftID\":1,\"graphic\":1,\"robot\":1}\n"}}));
        QCOMPARE(complaint(false), QString());
    }

    void anotherGraphicStartsFromNothing()
    {
        reply("{\"graphicType\":0,\"ranks\":{\"numX\":4,\"numY\":3,\"rotationAngleWhole\":90,"
              "\"rotationAngleSingle\":180}}");
        QCOMPARE(edit("ranksXDirectionNum")->text(), QStringLiteral("4"));
        setTemplateFields();
        Journal journal;
        box("planePicturesNumComboBox")->setCurrentIndex(4);
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGet, "{\"craftID\":1,\"graphic\":5,\"robot\":1}\n"}}));
        QCOMPARE(templateFields(), kFresh);
        reply("{\"graphicType\":1,\"intertwining\":{\"numY\":6}}", 5);
        QStringList expected = kFresh;
        expected[3] = QStringLiteral("6");
        QCOMPARE(templateFields(), expected);
    }

    void bringsBackWhatWasHidden_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : kHead)
            QTest::newRow(name) << QString::fromLatin1(name);
        QTest::newRow("all of it") << QStringLiteral("planeTopWidget");
    }

    void bringsBackWhatWasHidden()
    {
        QFETCH(QString, name);
        const auto missing = [this] {
            QStringList list;
            for (const char *shown : kHead) {
                if (!child<QWidget>(m_pages, shown)->isVisible())
                    list += QString::fromLatin1(shown);
            }
            return list;
        };
        child<QWidget>(m_pages, name)->hide();
        QVERIFY(!missing().isEmpty());
        m_pages->palletPlaneModelWidget();
        QCOMPARE(missing(), QStringList());
        click(m_pages, "planeModifyBtn");
        child<QWidget>(m_pages, name)->hide();
        QVERIFY(!missing().isEmpty());
        click(m_pages, "planeModifyCancelBtn");
        QCOMPARE(missing(), QStringList());
    }

    /// Showing the page unlocks it, whatever it was locked for, and puts its parts in their places.
    void startsFromAnyState()
    {
        auto *inner = child<QWidget>(m_pages, "planePatternTemplate");
        const QRect place = inner->geometry();
        inner->setGeometry(m_pages->rect());
        child<QWidget>(m_pages, "CustomPreviewframe")->show();
        child<QWidget>(m_pages, "planeModifyCancelBtn")->show();
        for (const char *name : kSavedGraphic)
            child<QWidget>(m_pages, name)->setEnabled(false);
        const char *const foot[] = {"planeModifyBtn", "planePageUp", "returnNavigationBtn7"};
        for (const char *name : foot)
            child<QWidget>(m_pages, name)->setEnabled(false);
        child<QWidget>(m_pages, "planeFootWidget")->hide();
        m_pages->palletPlaneModelWidget();
        QCOMPARE(inner->geometry(), place);
        for (const char *name : foot)
            QVERIFY2(child<QWidget>(m_pages, name)->isVisible(), name);
        QVERIFY(!isShown(m_pages, QStringLiteral("CustomPreviewframe")));
        QCOMPARE(complaint(false), QString());
    }

    // ---- replies --------------------------------------------------------------------------------

    void graphicOfAReply_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("graphic");
        QTest::addColumn<int>("row");
        const struct {
            const char *name;
            wire::reply::Id id;
        } replies[] = {{"plane", wire::reply::robot_pallet_PlaneModel},
                       {"conversion", wire::reply::robot_pallet_ChangeModel}};
        for (const auto &each : replies) {
            for (int graphic : {1, 2, 4, 8, 9})
                QTest::addRow("%s %d", each.name, graphic)
                    << static_cast<int>(each.id) << graphic << graphic - 1;
            // as it comes: there is no such row, and none is selected
            for (int graphic : {-1, 0, 10})
                QTest::addRow("%s %d", each.name, graphic)
                    << static_cast<int>(each.id) << graphic << -1;
        }
    }

    /// The number of a reply selects its row, and what came with it stands in the fields.
    void graphicOfAReply()
    {
        QFETCH(int, id);
        QFETCH(int, graphic);
        QFETCH(int, row);
        box("planePicturesNumComboBox")->setCurrentIndex(6);
        Journal journal;
        receive(static_cast<wire::reply::Id>(id),
                "{\"robot\":1,\"craftID\":1,\"graphic\":" + QByteArray::number(graphic)
                    + ",\"pallet\":{\"graphicType\":0,\"transLenX\":2.5,"
                      "\"ranks\":{\"numX\":4}}}");
        QCOMPARE(box("planePicturesNumComboBox")->currentIndex(), row);
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGet,
                                    "{\"craftID\":1,\"graphic\":" + QByteArray::number(row + 1)
                                        + ",\"robot\":1}\n"}}));
        QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("2.5"));
        QCOMPARE(edit("ranksXDirectionNum")->text(),
                 id == wire::reply::robot_pallet_PlaneModel ? QStringLiteral("4")
                                                            : QStringLiteral("1"));
    }

    /// A reply that names no graphic is about the one on the page.
    void replyWithoutGraphic()
    {
        box("planePicturesNumComboBox")->setCurrentIndex(6);
        Journal journal;
        receive(wire::reply::robot_pallet_PlaneModel,
                "{\"robot\":1,\"craftID\":1,\"pallet\":{\"transLenX\":2.5}}");
        QCOMPARE(box("planePicturesNumComboBox")->currentIndex(), 6);
        QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("2.5"));
        QVERIFY(journal.messages().isEmpty());
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
        for (int type = Ranks; type <= HuiType; ++type) {
            for (const char *angle : kAngles) {
                const QString path = drawing(type, angle);
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

    void conversionIntoATemplate_data() { addTemplates(); }

    /// A conversion ends in a table of workpieces: of a reply that has none the head is taken and
    /// no more, whatever else it brings.
    void conversionIntoATemplate()
    {
        QFETCH(int, type);
        const int row = (type + 1) % 3; // its page is neither the template's nor the table's
        const QByteArray number = QByteArray::number(type);
        const QByteArray graphic = QByteArray::number(row + 1);
        reply("{\"graphicType\":" + number + "}", row + 1);
        m_pages->palletPlaneModelWidget();
        QCOMPARE(innerPage(), row);
        setTemplateFields();
        for (int each = Ranks; each <= HuiType; ++each)
            picture(each)->setStyleSheet(QString());
        const QStringList fields = templateFields();
        const QString workpieces = edit("workPieceNum")->text();
        const QByteArray block =
            "{\"numX\":4,\"numY\":3,\"rotationAngleWhole\":90,\"rotationAngleSingle\":180}";
        Journal journal;
        receive(wire::reply::robot_pallet_ChangeModel,
                "{\"robot\":1,\"craftID\":1,\"graphic\":" + graphic
                    + ",\"pallet\":{\"graphicType\":" + number
                    + ",\"transLenX\":12.5,\"transLenY\":-3,\"autoTransLenX\":7,"
                      "\"autoTransLenY\":8.25,\"ranks\":"
                    + block + ",\"intertwining\":" + block + ",\"gearType\":" + block
                    + ",\"custom\":{\"sum\":2,\"start\":1,\"count\":0,\"eachVec\":[]}}}");
        QCOMPARE(edit("xDirectionMoveDistance")->text(), QStringLiteral("12.5"));
        QCOMPARE(edit("yDirectionMoveDistance")->text(), QStringLiteral("-3"));
        QCOMPARE(labelText(m_pages, QStringLiteral("autoTransLenX")),
                 QStringLiteral("X自动平移距离7"));
        QCOMPARE(labelText(m_pages, QStringLiteral("autoTransLenY")),
                 QStringLiteral("Y自动平移距离8.25"));
        QCOMPARE(innerPage(), row);
        QCOMPARE(box("planeTemplateComboBox")->currentIndex(), type);
        QCOMPARE(templateFields(), fields);
        QCOMPARE(pictures(), QStringList({QString(), QString(), QString()}));
        QCOMPARE(edit("workPieceNum")->text(), workpieces);
        QVERIFY(journal.entries().isEmpty());
    }

    void largeTransfersEndWithAnyReply()
    {
        App::isSendLargeData_ = true;
        receive(wire::reply::robot_pallet_PlaneModel, "no JSON");
        QVERIFY(!App::isSendLargeData_);
    }

    /// ... but not with that to a conversion.
    void largeTransfersOutlastAConversion()
    {
        App::isSendLargeData_ = true;
        for (const char *body : {"no JSON", "{\"robot\":2,\"pallet\":{}}",
                                 "{\"robot\":1,\"craftID\":1,\"graphic\":1,\"pallet\":"
                                 "{\"graphicType\":3,\"custom\":{}}}",
                                 "{\"robot\":1,\"craftID\":1,\"graphic\":1,\"pallet\":"
                                 "{\"graphicType\":0,\"ranks\":{}}}"}) {
            receive(wire::reply::robot_pallet_ChangeModel, body);
            QVERIFY2(App::isSendLargeData_, body);
        }
    }

    // ---- edit and save --------------------------------------------------------------------------

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
        QCOMPARE(complaint(true), QString());
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
        QCOMPARE(journal.messages(), QVector<Message>({{kSet, body}}));
        QCOMPARE(journal.of("log").first().first().toString(), QStringLiteral("设置平面模式"));
        QCOMPARE(complaint(false), QString());
    }

    void bounds_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("taken");
        for (int field = 0; field < static_cast<int>(std::size(kChecked)); ++field) {
            const auto add = [field](const char *text, bool taken) {
                QTest::addRow("%s '%s'", kChecked[field].name, text)
                    << field << QString::fromLatin1(text) << taken;
            };
            if (kChecked[field].block) {
                for (const char *text : {"1", "2", "98", "99"})
                    add(text, true);
                for (const char *text : {"0", "100"})
                    add(text, false);
            } else {
                for (const char *text : {"0", "4999", "4999.99", "5000", "5000.0", "+5000", "-4999",
                                         "-4999.99", "-5000", "-5000.0"})
                    add(text, true);
                for (const char *text : {"5000.01", "5001", "-5000.01", "-5001"})
                    add(text, false);
            }
        }
    }

    void bounds()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(bool, taken);
        const Checked &checked = kChecked[field];
        reply("{\"graphicType\":" + QByteArray::number(checked.type) + "}");
        click(m_pages, "planeModifyBtn");
        edit(checked.name)->setText(text);
        Journal journal;
        click(m_pages, "planeModifyBtn");
        QCOMPARE(toasts(journal),
                 taken ? QVector<Toast>() : QVector<Toast>{refusal(checked.message, 5000, 1)});
        QCOMPARE(complaint(!taken), QString());
        QCOMPARE(journal.messages().size(), taken ? 1 : 0);
        QCOMPARE(journal.of("log").size(), taken ? 1 : 0);
        if (taken) {
            const Json::Value pallet = sentPallet(journal);
            const Json::Value &block = checked.block ? pallet[checked.block] : pallet;
            QVERIFY(block[checked.key].isDouble());
            QCOMPARE(block[checked.key].asDouble(), text.toDouble());
        }
    }

    void order_data()
    {
        addTemplates();
        QTest::newRow("custom") << static_cast<int>(Custom);
    }

    /// All fields are wrong: each message comes when those before it are mended. A field is no
    /// number first and too large then.
    void order()
    {
        QFETCH(int, type);
        click(m_pages, "planeModifyBtn");
        box("planeTemplateComboBox")->setCurrentIndex(type);
        for (const Checked &checked : kChecked)
            edit(checked.name)->setText(QStringLiteral("x"));
        for (const Checked &checked : kChecked) {
            for (const char *next : {checked.beyond, "7"}) {
                Journal journal;
                click(m_pages, "planeModifyBtn");
                QCOMPARE(toasts(journal), QVector<Toast>{refusal(checked.message, 5000, 1)});
                QVERIFY(journal.messages().isEmpty());
                QVERIFY(journal.of("log").isEmpty());
                QCOMPARE(complaint(true), QString());
                edit(checked.name)->setText(QString::fromLatin1(next));
            }
        }
        if (type == Custom)
            return; // its table is tested behind these
        Journal journal;
        click(m_pages, "planeModifyBtn");
        QCOMPARE(toasts(journal), QVector<Toast>());
        QCOMPARE(journal.messages().size(), 1);
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        for (const Checked &checked : kChecked) {
            const auto add = [&checked](const QString &text) {
                QTest::addRow("%s '%s'", checked.name, text.toUtf8().constData())
                    << checked.name << text << QString::fromUtf8(checked.message);
            };
            for (const char *text : {"", " ", "abc", "nan", "inf", "1e3", ".5", "1.", "1,5", "４",
                                     "５０", "5０", "１2", "－5", "１.5"})
                add(QString::fromUtf8(text));
            add(QString(40, QLatin1Char('4')));
            add(QLatin1Char('-') + QString(39, QLatin1Char('4')));
            add(QString(40, QChar(0xff14))); // the full-width 4
            if (checked.block) {
                for (const char *text : {"0", "100", "1.5", "-1", "+1", "01", "1000"})
                    add(QString::fromLatin1(text));
                add(QString(39, QLatin1Char('0')) + QLatin1Char('1'));
            } else {
                for (const char *text : {"5000.01", "-5000.01", "--1", "1-"})
                    add(QString::fromLatin1(text));
            }
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
        QCOMPARE(complaint(true), QString());
    }

    void cancelReadsAnew()
    {
        click(m_pages, "planeModifyBtn");
        Journal journal;
        click(m_pages, "planeModifyCancelBtn");
        QCOMPARE(journal.messages().size(), 1);
        QCOMPARE(complaint(false), QString());
    }

    // ---- by hand --------------------------------------------------------------------------------

    void rotationsChosenByHand_data() { addRotations(); }

    /// The drawing follows the rotation of the whole. That of the single workpiece has none of its
    /// own; both are sent.
    void rotationsChosenByHand()
    {
        QFETCH(int, type);
        QFETCH(int, row);
        const int other = (row + 1) % 4;
        click(m_pages, "planeModifyBtn");
        box("planeTemplateComboBox")->setCurrentIndex(type);
        QStringList expected = pictures();
        wholeRotation(type)->setCurrentIndex(other);
        expected[type] = drawing(type, kAngles[other]);
        QCOMPARE(pictures(), expected);
        wholeRotation(type)->setCurrentIndex(row);
        expected[type] = drawing(type, kAngles[row]);
        QCOMPARE(pictures(), expected);
        for (int single : {row, other}) {
            singleRotation(type)->setCurrentIndex(single);
            QCOMPARE(pictures(), expected);
        }
        Journal journal;
        click(m_pages, "planeModifyBtn");
        QCOMPARE(journal.messages().size(), 1);
        const Json::Value pallet = sentPallet(journal);
        const Json::Value &block = pallet[kTemplates[type].block];
        QCOMPARE(block["rotationAngleWhole"].asDouble(), QByteArray(kAngles[row]).toDouble());
        QCOMPARE(block["rotationAngleSingle"].asDouble(), QByteArray(kAngles[other]).toDouble());
    }

    /// A rotation without a drawing leaves that which is there.
    void rotationWithoutADrawing()
    {
        for (int type = Ranks; type <= HuiType; ++type) {
            wholeRotation(type)->setCurrentIndex(2);
            const QStringList before = pictures();
            wholeRotation(type)->addItem(QStringLiteral("45"));
            wholeRotation(type)->setCurrentIndex(4);
            QCOMPARE(wholeRotation(type)->currentText(), QStringLiteral("45"));
            QCOMPARE(pictures(), before);
        }
    }

    void templateChosenByHand_data() { addRotations(); }

    /// Its page comes with the drawing of the rotation that is set there, and nothing is sent.
    void templateChosenByHand()
    {
        QFETCH(int, type);
        QFETCH(int, row);
        click(m_pages, "planeModifyBtn");
        box("planeTemplateComboBox")->setCurrentIndex((type + 1) % 3);
        QCOMPARE(innerPage(), (type + 1) % 3);
        setRowQuietly(m_pages, wholeRotation(type)->objectName(), row);
        for (int each = Ranks; each <= HuiType; ++each)
            picture(each)->setStyleSheet(QString());
        Journal journal;
        box("planeTemplateComboBox")->setCurrentIndex(type);
        QCOMPARE(innerPage(), type);
        QStringList expected{QString(), QString(), QString()};
        expected[type] = drawing(type, kAngles[row]);
        QCOMPARE(pictures(), expected);
        QVERIFY(journal.messages().isEmpty());
        QCOMPARE(complaint(true), QString());
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
        QCOMPARE(complaint(true), QString());
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
