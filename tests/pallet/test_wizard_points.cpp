// The wizard's taught points: the live joints, marking them, and driving there.

#include "wizardpage.h"

#include "language.h"
#include "pendantstyle.h"

#include <QGroupBox>
#include <memory>

using support::child;
using support::click;
using support::Message;
using support::setState;
using support::tellPosition;
using support::values;

namespace {

QStringList texts(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' '));
}

QStringList textsOf(const PositionTexts &point)
{
    return QStringList(point.begin(), point.end());
}

/// What a robot of this kinematic type shows of "1.5 ... 7.5"; the others of the seven keep `rest`.
QStringList shownOf(int type, const char *rest)
{
    constexpr int kShown[] = {0, 6, 4, 4, 4, 0, 5, 6, 2, 3, 3, 3, 7, 0};
    QStringList list = support::seven(rest);
    for (int i = 0; i < kShown[type]; ++i)
        list[i] = QStringLiteral("%1.500").arg(i + 1);
    return list;
}

} // namespace

class TestWizardPoints : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;
    std::unique_ptr<support::Wizard> wizard;

    const PositionTexts &point(int row) const
    {
        return pages->collectedProgram().points[static_cast<std::size_t>(row)];
    }
    QStringList live() const { return values(pages, QStringLiteral("wizardLive")); }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
        wizard = std::make_unique<support::Wizard>(pages);
    }

    void init() { wizard->reset(); }

    void cleanupTestCase() { wizard.reset(); }

    // ---- marking --------------------------------------------------------------------------------

    void marking_data()
    {
        QTest::addColumn<int>("type");
        for (int type = 0; type <= 13; ++type)
            QTest::addRow("type %d", type) << type;
    }
    /// Each button marks its own point: all seven values are kept, and the robot's are shown. The
    /// fourth of four axes is the fourth joint.
    void marking()
    {
        QFETCH(int, type);
        wizard->goTo(34);
        robot->kinematicType = type;
        const QStringList shown = shownOf(type, "0");
        for (int i = 0; i < 3; ++i) {
            tellPosition("0 0 1.5 2.5 3.5 4.5 5.5 6.5 7.5");
            click(pages, support::kMarkButtons[i]);
            for (int k = 0; k < 3; ++k) {
                QCOMPARE(values(pages, support::kWizardPoints.at(k)),
                         k <= i ? shown : support::seven("0"));
                QCOMPARE(textsOf(point(k + 1)).join(QLatin1Char(' ')).trimmed(),
                         k <= i ? QStringLiteral("1.5 2.5 3.5 4.5 5.5 6.5 7.5") : QString());
            }
        }
        support::Journal journal;
        click(pages, "createdFilePagedownBtn2"); // all count, shown or not
        QCOMPARE(pages->currentIndex(), 35);
    }

    void threeDecimals()
    {
        wizard->goTo(34);
        tellPosition("0 0 1.23456 -0.0004 1e-9 100000 0.9996 .5 0");
        click(pages, "positionGetUpperPoint");
        QCOMPARE(values(pages, QStringLiteral("UpperPoint")),
                 texts("1.235 -0.000 0.000 100000.000 1.000 0.500 0"));
        QCOMPARE(textsOf(point(ProgramInformation::Upper)),
                 texts("1.23456 -0.0004 1e-9 100000 0.9996 .5 0"));
    }

    /// Before any reply the mark has empty texts, reads 0.000 and counts all the same.
    void beforeAnyPosition()
    {
        TechnologyWidget fresh(nullptr);
        fresh.resize(714, 504);
        fresh.palletCreatedFileWidget1();
        child<QLineEdit>(&fresh, "palletProgrameName_edit")->setText(QStringLiteral("JOB1"));
        fresh.palletCreatedFileWidget2();
        QCOMPARE(fresh.currentIndex(), 34);
        fresh.wizardInfoGetPoint();
        fresh.wizardInfoGetUpperPoint();
        fresh.wizardInfoGetSafePoint();
        for (const QString &name : support::kWizardPoints)
            QCOMPARE(values(&fresh, name), texts("0.000 0.000 0.000 0.000 0.000 0.000 0"));
        for (const PositionTexts &row : fresh.collectedProgram().points)
            QCOMPARE(textsOf(row).join(QString()), QString());
        setState(3, 1);
        support::Journal journal;
        fresh.doMoveToGetPoint();
        QCOMPARE(journal.kinds(), QStringList());
        fresh.palletCreatedFileWidget3();
        QCOMPARE(fresh.currentIndex(), 35);
    }

    void twice()
    {
        wizard->goTo(34);
        wizard->markAll("1 1 1 1 1 1 1");
        wizard->markAll("2 2 2 2 2 2 2");
        QCOMPARE(textsOf(point(ProgramInformation::Safe)), support::seven("2"));
        QCOMPARE(values(pages, QStringLiteral("SafePoint")).first(), QStringLiteral("2.000"));
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
    }

    /// What runs on after a mark does not move the mark.
    void aMarkStays()
    {
        wizard->goTo(34);
        wizard->markAll("1 1 1 1 1 1 1");
        tellPosition("0 0 9 9 9 9 9 9 9");
        QCOMPARE(textsOf(point(ProgramInformation::Get)), support::seven("1"));
        QCOMPARE(values(pages, QStringLiteral("GetPoint")).first(), QStringLiteral("1.000"));
    }

    /// Words and infinities are kept as they came and read as 0.
    void words()
    {
        wizard->goTo(34);
        tellPosition("0 0 abc nan inf -inf 1e400 0x10 5");
        click(pages, "positionGetPoint");
        QCOMPARE(values(pages, QStringLiteral("GetPoint")),
                 texts("0.000 0.000 0.000 0.000 0.000 0.000 0"));
        QCOMPARE(textsOf(point(ProgramInformation::Get)), texts("abc nan inf -inf 1e400 0x10 5"));
    }

    // ---- the live position ----------------------------------------------------------------------

    void liveJoints_data() { marking_data(); }
    void liveJoints()
    {
        QFETCH(int, type);
        robot->kinematicType = type;
        wizard->goTo(34);
        QCOMPARE(live(), support::seven("--"));
        tellPosition("0 0 1.5 2.5 3.5 4.5 5.5 6.5 7.5");
        QCOMPARE(live(), shownOf(type, "--"));
    }

    /// Joint replies are taken on any page, as the last of them is where the robot is.
    void takenOnAnyPage()
    {
        tellPosition("0 0 1 2 3 4 5 6 7");
        QCOMPARE(live(), support::seven("--"));
        QCOMPARE(textsOf(point(ProgramInformation::Live)), texts("1 2 3 4 5 6 7"));
        tellPosition("0 1 9 9 9 9 9 9 9"); // Cartesian
        tellPosition("0 2 9 9 9 9 9 9 9");
        tellPosition("0 0 9 9 9 9 9 9"); // too short
        tellPosition("0 x 9 9 9 9 9 9 9");
        QCOMPARE(textsOf(point(ProgramInformation::Live)), texts("1 2 3 4 5 6 7"));
    }

    void unitOfTheAngles()
    {
        for (const bool degrees : {true, false}) {
            wizard->reset();
            App::isDeg = degrees;
            wizard->goTo(34);
            tellPosition("0 0 1 1 1 1 1 1 1", "0 0 2 2 2 2 2 2 2");
            QCOMPARE(textsOf(point(ProgramInformation::Live)), support::seven(degrees ? "2" : "1"));
            QCOMPARE(child<QGroupBox>(pages, "wizardPointsBox")->title(),
                     QString::fromUtf8(degrees ? "关节值（转动轴 °）" : "关节值（转动轴 rad）"));
        }
    }

    /// A lost link takes the live position off the screen and nothing else.
    void lostLink()
    {
        wizard->goTo(34);
        wizard->markAll("1 2 3 4 5 6 7");
        emit robot->linkChanged(Robot::Link::Lost);
        QCOMPARE(live(), support::seven("--"));
        QCOMPARE(values(pages, QStringLiteral("GetPoint")).first(), QStringLiteral("1.000"));
        QCOMPARE(textsOf(point(ProgramInformation::Live)), texts("1 2 3 4 5 6 7"));
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
    }

    /// What was reset is not known any more until the robot tells it again.
    void resetForgets()
    {
        wizard->goTo(34);
        wizard->markAll("1 2 3 4 5 6 7");
        pages->initializeCreateFile();
        for (const PositionTexts &row : pages->collectedProgram().points) {
            for (const QString &text : row)
                QVERIFY(text.isNull());
        }
        QCOMPARE(live(), support::seven("--"));
        QCOMPARE(values(pages, QStringLiteral("GetPoint")), support::seven("0"));
        click(pages, "positionGetPoint");
        QCOMPARE(values(pages, QStringLiteral("GetPoint")).first(), QStringLiteral("0.000"));
        tellPosition("0 0 1 2 3 4 5 6 7");
        click(pages, "positionGetPoint");
        QCOMPARE(values(pages, QStringLiteral("GetPoint")).first(), QStringLiteral("1.000"));
    }

    /// Points that were taught with one robot are none of another's.
    void anotherRobot()
    {
        wizard->goTo(34);
        wizard->markAll("1 2 3 4 5 6 7");
        MoreRobot::setCurrentRobot(2);
        for (const PositionTexts &row : pages->collectedProgram().points)
            QCOMPARE(textsOf(row).join(QString()), QString());
        QCOMPARE(values(pages, QStringLiteral("SafePoint")), support::seven("0"));
        QCOMPARE(pages->collectedProgram().name, QStringLiteral("JOB1"));
        support::Journal journal;
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(support::toasts(journal), QVector<support::Toast>({{"标定未完成！", -1, 2}}));
    }

    void sameRobotAgain()
    {
        wizard->goTo(34);
        wizard->markAll("1 2 3 4 5 6 7");
        MoreRobot::setCurrentRobot(1);
        MoreRobot::setCurrentRobot(9);
        QCOMPARE(textsOf(point(ProgramInformation::Get)), texts("1 2 3 4 5 6 7"));
    }

    // ---- the columns ----------------------------------------------------------------------------

    void columns_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("shown"); // null: as it was
        const char *const shown[] = {nullptr, "xyzabc", "xyza",    "xyza", "xyza",
                                     nullptr, nullptr,  "xyzabc",  "xyza", "xyz",
                                     "xyz",   "xyz",    "xyzabcd", nullptr};
        for (int type = 0; type <= 13; ++type)
            QTest::addRow("type %d", type) << type << QString::fromLatin1(shown[type]);
    }
    /// The page has the columns of the robot's family, also those that a mark leaves alone, under
    /// the names of the joints.
    void columns()
    {
        QFETCH(int, type);
        QFETCH(QString, shown);
        robot->kinematicType = 12;
        wizard->goTo(34);
        pages->return_PalletPage();
        robot->kinematicType = type;
        wizard->goTo(34);
        for (const char *stem : {"wizardHead", "wizardLive", "GetPoint", "UpperPoint", "SafePoint"})
            QCOMPARE(support::shownColumns(pages, QString::fromLatin1(stem), support::kColumns),
                     shown.isNull() ? support::kColumns : shown);
        for (int i = 0; i < 7; ++i)
            QCOMPARE(
                support::labelText(pages, QLatin1String("wizardHead") + support::kColumns.at(i)),
                QStringLiteral("J%1").arg(i + 1));
    }

    // ---- driving there --------------------------------------------------------------------------

    void needsPower_data()
    {
        QTest::addColumn<int>("servo");
        QTest::addColumn<int>("deadman");
        for (int servo = 0; servo <= 4; ++servo) {
            for (int deadman = 0; deadman <= 2; ++deadman)
                QTest::addRow("servo %d, deadman %d", servo, deadman) << servo << deadman;
        }
    }
    void needsPower()
    {
        QFETCH(int, servo);
        QFETCH(int, deadman);
        wizard->goTo(34);
        wizard->markAll();
        setState(servo, deadman);
        for (const char *button : support::kRunButtons) {
            support::Journal journal;
            click(pages, button);
            if (robot->get_servo_state() == 3 && robot->get_deadman_state() == 1) {
                QCOMPARE(journal.messages().size(), 1);
                QVERIFY(journal.toasts().isEmpty());
            } else {
                QVERIFY(journal.messages().isEmpty());
                QCOMPARE(support::toasts(journal),
                         QVector<support::Toast>({{"请上电！", 5000, 1}}));
            }
        }
        QCOMPARE(servo == 3 && deadman == 1,
                 robot->get_servo_state() == 3 && robot->get_deadman_state() == 1);
    }

    /// Each button drives to its own point, by its joints.
    void drives()
    {
        wizard->goTo(34);
        setState(3, 1);
        for (int i = 0; i < 3; ++i) {
            tellPosition("0 0 " + QByteArray::number(10 * i + 1) + ".25 2 3 4 5 6 -7");
            click(pages, support::kMarkButtons[i]);
        }
        for (int i = 0; i < 3; ++i) {
            support::Journal journal;
            click(pages, support::kRunButtons[i]);
            QCOMPARE(journal.messages().size(), 1);
            QCOMPARE(journal.messages().first().id, support::kRunToPoint);
            const Json::Value body = support::json(journal.messages().first().body);
            QCOMPARE(body["robot"].asInt(), 1);
            QCOMPARE(body["type"].asInt(), 1);
            const Json::Value &sent = body["position"]["values"];
            const double expected[] = {0, 0, 0, 0, 0, 0, 0, 10 * i + 1.25, 2, 3, 4, 5, 6, -7};
            QCOMPARE(static_cast<int>(sent.size()), 14);
            for (Json::ArrayIndex k = 0; k < 14; ++k)
                QCOMPARE(sent[k].asDouble(), expected[k]);
        }
    }

    /// A point without seven values is none.
    void unmarkedPointsAreNone()
    {
        wizard->goTo(34);
        setState(3, 1);
        support::Journal journal;
        for (const char *button : support::kRunButtons)
            click(pages, button);
        QCOMPARE(journal.kinds(), QStringList());

        tellPosition("0 0 1 2 3  5 6 7"); // one of the nine parts is empty
        QCOMPARE(textsOf(point(ProgramInformation::Live)), texts("1 2 3  5 6 7"));
        click(pages, "positionGetPoint");
        click(pages, "moveToGetPoint");
        QCOMPARE(journal.kinds(), QStringList());
    }

    // ---- the language ---------------------------------------------------------------------------

    /// Another language leads to the menu; what was collected is there when the wizard is opened
    /// again.
    void anotherLanguage()
    {
        wizard->goTo(36);
        const QStringList rows = {QStringLiteral("tongs_3_port"), QStringLiteral("getProcess"),
                                  QStringLiteral("totalVariabletype"),
                                  QStringLiteral("totalVariable"),
                                  QStringLiteral("palletFunctioncomboBox")};
        for (const QString &name : rows)
            support::box(pages, name)->setCurrentIndex(1);
        const auto lists = [&] {
            QVector<int> counts;
            for (const char *name : {"totalVariable", "paloffVariable", "tongs_1_port"})
                counts += support::box(pages, QString::fromLatin1(name))->count();
            return counts;
        };
        const QVector<int> before = lists();
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("en")));
        QCOMPARE(pages->currentIndex(), 0);
        for (const QString &name : rows)
            QCOMPARE(support::box(pages, name)->currentIndex(), 1);
        QCOMPARE(lists(), before);
        QCOMPARE(support::box(pages, QStringLiteral("tongs_2_port"))->itemText(0),
                 QStringLiteral("None"));
        QCOMPARE(values(pages, QStringLiteral("GetPoint")),
                 texts("1.000 2.000 3.000 4.000 5.000 6.000 0"));

        pages->return_PalletPage();
        wizard->open("JOB2");
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(support::labelText(pages, QStringLiteral("label_265")),
                 QStringLiteral("Above place point"));
        click(pages, "createdFilePagedownBtn2");
        click(pages, "createdFilePagedownBtn3");
        click(pages, "createdFilePagedownBtn4");
        QCOMPARE(pages->currentIndex(), 37);
        QCOMPARE(support::labelText(pages, QStringLiteral("label_280")), QStringLiteral("Placing"));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh")));
    }

    void cleanup() { Language::getInstance()->setCurrent(QStringLiteral("zh")); }

    // ---- the value class ------------------------------------------------------------------------

    void clearing()
    {
        ProgramInformation program;
        program.name = QStringLiteral("kept");
        for (int *number :
             {&program.craftNumber, &program.functionNumber, &program.getEnablePort,
              &program.getEnableValue, &program.reserved1, &program.reserved2, &program.reserved3,
              &program.reserved4, &program.reserved5, &program.reserved6, &program.reserved7,
              &program.reserved8, &program.reserved9, &program.reserved10})
            *number = 5;
        for (auto *numbers : {&program.tongsPort, &program.tongsValue, &program.tongsSucceedPort,
                              &program.tongsSucceedValue})
            numbers->fill(5);
        for (PositionTexts &row : program.points)
            row.fill(QStringLiteral("5"));
        const ProgramInformation copy = program;
        program.clear();
        QCOMPARE(program.name, QStringLiteral("kept"));
        for (const int number :
             {program.craftNumber, program.functionNumber, program.getEnablePort,
              program.getEnableValue, program.reserved1, program.reserved2, program.reserved3,
              program.reserved4, program.reserved5, program.reserved6, program.reserved7,
              program.reserved8, program.reserved9, program.reserved10})
            QCOMPARE(number, 0);
        for (const auto &numbers : {program.tongsPort, program.tongsValue, program.tongsSucceedPort,
                                    program.tongsSucceedValue})
            QCOMPARE(numbers, (std::array<int, 4>{}));
        QCOMPARE(static_cast<int>(program.points.size()), 4);
        for (const PositionTexts &row : program.points) {
            for (const QString &text : row)
                QVERIFY(text.isNull());
        }
        QCOMPARE(copy.points[3][6], QStringLiteral("5")); // copied whole
        QCOMPARE(copy.tongsSucceedValue[3], 5);
    }
};

QTEST_MAIN(TestWizardPoints)
#include "test_wizard_points.moc"
