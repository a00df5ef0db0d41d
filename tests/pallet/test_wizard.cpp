// The program wizard: opening, turning its pages, what holds each page, and the ways out.

#include "wizardpage.h"

#include "letterkeyboard.h"
#include "pendantstyle.h"
#include "setingwidget.h"

#include <QTimer>
#include <memory>

using support::box;
using support::child;
using support::click;
using support::Course;
using support::isEnabled;
using support::labelText;
using support::Message;
using support::Toast;

namespace {

const QStringList kNine = {
    QStringLiteral("createdFileReturnBtn2"), QStringLiteral("createdFilePagedownBtn2"),
    QStringLiteral("createdFilePageupBtn"),  QStringLiteral("positionGetPoint"),
    QStringLiteral("positionGetUpperPoint"), QStringLiteral("positionGetSafePoint"),
    QStringLiteral("moveToGetPoint"),        QStringLiteral("moveToGetUpperPoint"),
    QStringLiteral("moveToGetSafePoint")};
const QStringList kSixteen = {
    QStringLiteral("palletCreatedFilewidget2"), QStringLiteral("palletCreatedFilewidget3"),
    QStringLiteral("palletCreatedFilewidget4"), QStringLiteral("palletCreatedFilewidget5"),
    QStringLiteral("createdFileReturnBtn2"),    QStringLiteral("createdFileReturnBtn3"),
    QStringLiteral("createdFileReturnBtn4"),    QStringLiteral("createdFileReturnBtn5"),
    QStringLiteral("createdFilePageupBtn"),     QStringLiteral("createdFilePageupBtn2"),
    QStringLiteral("createdFilePageupBtn3"),    QStringLiteral("createdFilePageupBtn4"),
    QStringLiteral("createdFilePagedownBtn2"),  QStringLiteral("createdFilePagedownBtn3"),
    QStringLiteral("createdFilePagedownBtn4"),  QStringLiteral("createdFileFinishBtn")};

struct Words {
    const char *label;
    const char *text[2]; ///< palletising, depalletising
};

constexpr Words kPointNames[] = {
    {"label_286", {"取料点", "放料点"}},
    {"label_265", {"取料点上方", "放料点上方"}},
    {"label_273", {"取料安全点", "放料安全点"}},
};
constexpr Words kLegs[] = {
    {"label_275", {"取料过程", "卸跺过程"}},
    {"label_280", {"码垛过程", "放料过程"}},
    {"label_335", {"取料点上方-取料点", "卸跺入口点-卸跺辅助点-工件点"}},
    {"label_336", {"取料点上方-码垛入口点", "卸跺点上方-放料入口点"}},
    {"label_337", {"码垛入口点-码垛辅助点-工件点", "放料点上方-放料点"}},
};
const char *const kPictures[] = {"image: url(:/new/picture/Resources/res/Setgetposition.png)",
                                 "image: url(:/new/picture/Resources/res/Setputposition.png)"};

} // namespace

class TestWizard : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    std::unique_ptr<support::Wizard> wizard;

    /// The names of these widgets that are locked.
    QStringList locked(const QStringList &names) const
    {
        QStringList list;
        for (const QString &name : names) {
            if (!isEnabled(pages, name))
                list += name;
        }
        return list;
    }

    template <typename Table> bool reads(const Table &table, int function) const
    {
        for (const Words &words : table) {
            if (labelText(pages, QString::fromLatin1(words.label))
                != QString::fromUtf8(words.text[function]))
                return false;
        }
        return true;
    }

    QString sheet(const char *name) const { return child<QWidget>(pages, name)->styleSheet(); }
    QComboBox *function() const { return box(pages, QStringLiteral("palletFunctioncomboBox")); }

    /// Fills what pages 35 to 37 hold with something else than the first rows.
    void fillIn() const
    {
        for (const QString &port : support::kPorts) {
            box(pages, port)->setCurrentIndex(2);
            box(pages, port + QStringLiteral("_validvalues"))->setCurrentIndex(1);
        }
        for (const char *type : {"totalVariabletype", "layerVariabletype", "stackVariabletype"})
            box(pages, QString::fromLatin1(type))->setCurrentIndex(2);
        box(pages, QStringLiteral("paloffVariabletype"))->setCurrentIndex(1);
        for (const char *leg : {"getProcess", "middleProcess", "palletProcess"})
            box(pages, QString::fromLatin1(leg))->setCurrentIndex(1);
        for (const char *path : {"xyPathOptimization", "zPathOptimization"})
            child<SwitchButton>(pages, path)->setCheck(true);
    }

    /// What is not as it is in a wizard that nothing was entered in.
    QStringList leftovers() const
    {
        QStringList left;
        for (const QString &port : support::kPorts) {
            for (const QString &name : {port, port + QStringLiteral("_validvalues")}) {
                if (box(pages, name)->currentIndex() != 0)
                    left += name;
            }
        }
        for (const char *name :
             {"totalVariabletype", "layerVariabletype", "stackVariabletype", "paloffVariabletype",
              "getProcess", "middleProcess", "palletProcess"}) {
            if (box(pages, QString::fromLatin1(name))->currentIndex() != 0)
                left += QString::fromLatin1(name);
        }
        for (const char *name : {"xyPathOptimization", "zPathOptimization"}) {
            if (child<SwitchButton>(pages, name)->isCheck())
                left += QString::fromLatin1(name);
        }
        for (const QString &point : support::kWizardPoints) {
            if (support::values(pages, point) != support::seven("0"))
                left += point;
        }
        const ProgramInformation &program = pages->collectedProgram();
        const std::array<int, 4> none = {};
        if (program.craftNumber != 0 || program.functionNumber != 0 || program.getEnablePort != 0
            || program.getEnableValue != 0 || program.tongsPort != none
            || program.tongsValue != none || program.tongsSucceedPort != none
            || program.tongsSucceedValue != none)
            left += QStringLiteral("numbers");
        for (const PositionTexts &point : program.points) {
            for (const QString &text : point) {
                if (!text.isNull())
                    left += QStringLiteral("a point's text ") + text;
            }
        }
        if (!wizard->name()->text().isEmpty()
            || sheet("palletProgrameName_edit") != support::kBlackName)
            left += QStringLiteral("name");
        return left;
    }

    void restorePorts() const
    {
        QStringList outputs;
        QStringList inputs;
        for (int port = 1; port <= 16; ++port) {
            outputs += QStringLiteral("DOUT%1").arg(port);
            inputs += QStringLiteral("DIN%1").arg(port);
        }
        SetingWidget::getInstance()->setPorts(outputs, inputs, {});
    }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
        wizard = std::make_unique<support::Wizard>(pages);
    }

    void init() { wizard->reset(); }

    void cleanupTestCase() { wizard.reset(); }

    // ---- page 33 --------------------------------------------------------------------------------

    void opens()
    {
        Course course(pages);
        click(pages, "BtnPalletFile");
        QCOMPARE(course.lines(), QStringList({"title 16", "page 33"}));
        QVERIFY(wizard->name()->text().isEmpty());
        QCOMPARE(sheet("palletProgrameName_edit"), support::kBlackName);
    }

    void needsIo()
    {
        App::m_Select_IO_Type = 0;
        Course course(pages);
        click(pages, "BtnPalletFile");
        QCOMPARE(course.lines(), QStringList("toast 3000 1 未检测到IO，无法使用该功能"));
        QCOMPARE(pages->currentIndex(), 1);
    }

    void needsIoWithoutTouchingTheName()
    {
        wizard->open("KEPT");
        App::m_Select_IO_Type = 0;
        support::Journal journal;
        pages->palletCreatedFileWidget1();
        QCOMPARE(support::toasts(journal),
                 QVector<Toast>({{"未检测到IO，无法使用该功能", 3000, 1}}));
        QCOMPARE(wizard->name()->text(), QStringLiteral("KEPT"));
    }

    /// The columns of the taught points follow the robot, as on the other pallet pages.
    void openingFitsTheRobot()
    {
        for (const int type : {2, 12, 9, 1}) {
            Robot::getInstance()->kinematicType = type;
            pages->palletCreatedFileWidget1();
            const QString columns = type == 2 ? "a" : type == 12 ? "abcd" : type == 9 ? "" : "abc";
            for (const char *point : {"GetPoint", "UpperPoint", "SafePoint", "JobPoint"})
                QCOMPARE(support::shownColumns(pages, QString::fromLatin1(point),
                                               QStringLiteral("abcd")),
                         columns);
        }
    }

    void choices()
    {
        QStringList numbers;
        for (int number = 1; number <= 9; ++number)
            numbers += QString::number(number);
        QCOMPARE(support::items(box(pages, QStringLiteral("palletNumTechcomboBox"))), numbers);
        QCOMPARE(support::items(function()), QStringList({"码垛", "卸垛"}));
    }

    /// Leaving and coming again begins with an empty name; craft and function stay.
    void returnsToThePalletPage()
    {
        wizard->open("a/b");
        box(pages, QStringLiteral("palletNumTechcomboBox"))->setCurrentIndex(4);
        function()->setCurrentIndex(1);
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(sheet("palletProgrameName_edit"), support::kRedName);
        Course course(pages);
        click(pages, "createdFileReturnBtn1");
        QCOMPARE(course.lines(), QStringList({"page 1", "title 1"}));
        QCOMPARE(wizard->name()->text(), QStringLiteral("a/b"));
        click(pages, "BtnPalletFile");
        QVERIFY(wizard->name()->text().isEmpty());
        QCOMPARE(sheet("palletProgrameName_edit"), support::kBlackName);
        QCOMPARE(support::row(pages, "palletNumTechcomboBox"), 4);
        QCOMPARE(support::row(pages, "palletFunctioncomboBox"), 1);
    }

    void nameByTheKeyboardOnScreen()
    {
        click(pages, "BtnPalletFile");
        QTest::mouseClick(wizard->name(), Qt::LeftButton);
        LetterKeyboard *keyboard = LetterKeyboard::current();
        QVERIFY(keyboard);
        for (const char *key : {"key_b", "key_o", "key_x", "key_7", "key_ok"})
            click(keyboard, key);
        QCOMPARE(wizard->name()->text(), QStringLiteral("box7"));
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(pages->collectedProgram().name, QStringLiteral("box7"));
    }

    void refusedNames_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"", " ", "a/b", "../a", ".", "..", ".a", "a\\b", "a:b", " a", "a "})
            QTest::addRow("'%s'", name) << QString::fromLatin1(name);
        QTest::newRow("zero") << QString(QChar(0));
        QTest::newRow("control") << QString("a") + QChar(7);
        QTest::newRow("long") << QString(JobStore::kMaxNameBytes + 1, QLatin1Char('a'));
        QTest::newRow("long in bytes") << QString(JobStore::kMaxNameBytes / 3 + 1, QChar(0x5783));
    }
    void refusedNames()
    {
        QFETCH(QString, name);
        wizard->open("GOOD");
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        pages->sureResetWizardData();
        wizard->name()->setText(name);
        Course course(pages);
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(course.lines(), QStringList("toast -1 2 文件命名不符合规范！"));
        QCOMPARE(pages->currentIndex(), 33);
        QCOMPARE(sheet("palletProgrameName_edit"), support::kRedName);
        QCOMPARE(pages->collectedProgram().name, QStringLiteral("GOOD"));
        QCOMPARE(pages->collectedProgram().craftNumber, 0);
    }

    void longestName()
    {
        wizard->open();
        wizard->name()->setText(QString(JobStore::kMaxNameBytes, QLatin1Char('a')));
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
    }

    void takenName()
    {
        QVERIFY(wizard->store(1, "TAKEN"));
        wizard->open("TAKEN");
        Course course(pages);
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(course.lines(), QStringList("toast -1 2 该名称已经存在，请重新命名其他名称！"));
        QCOMPARE(sheet("palletProgrameName_edit"), support::kRedName);
        QCOMPARE(pages->currentIndex(), 33);
        QCOMPARE(pages->collectedProgram().craftNumber, 0);

        // the list is read anew with each press
        JobStore::getInstance()->remove(1, QStringLiteral("TAKEN"));
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(sheet("palletProgrameName_edit"), support::kBlackName);
    }

    /// The jobs of another robot do not matter.
    void nameTakenByAnotherRobot()
    {
        QVERIFY(wizard->store(2, "THEIRS"));
        wizard->open("THEIRS");
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        MoreRobot::setCurrentRobot(2);
        support::Journal journal;
        pages->palletCreatedFileWidget2();
        QCOMPARE(support::toasts(journal),
                 QVector<Toast>({{"该名称已经存在，请重新命名其他名称！", -1, 2}}));
    }

    void storesTheFirstPage()
    {
        wizard->open("JOB_9");
        box(pages, QStringLiteral("palletNumTechcomboBox"))->setCurrentIndex(8);
        function()->setCurrentIndex(1);
        Course course(pages);
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(course.lines(), QStringList("page 34"));
        const ProgramInformation &program = pages->collectedProgram();
        QCOMPARE(program.name, QStringLiteral("JOB_9"));
        QCOMPARE(program.craftNumber, 9);
        QCOMPARE(program.functionNumber, 2);
    }

    // ---- page 34 --------------------------------------------------------------------------------

    void wordsOfThePoints()
    {
        wizard->open();
        for (const int chosen : {0, 1, 0}) {
            function()->setCurrentIndex(chosen);
            click(pages, "createdFilePagedownBtn1");
            QVERIFY(reads(kPointNames, chosen));
            QCOMPARE(sheet("label_318"), QString::fromLatin1(kPictures[chosen]));
            function()->setCurrentIndex(1 - chosen); // nothing changes but on the way forward
            QVERIFY(reads(kPointNames, chosen));
            QCOMPARE(sheet("label_318"), QString::fromLatin1(kPictures[chosen]));
            pages->setCurrentIndex(33);
        }
    }

    /// A name that is refused comes after the words.
    void wordsBeforeTheName()
    {
        wizard->open("a/b");
        function()->setCurrentIndex(1);
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 33);
        QVERIFY(reads(kPointNames, 1));
        QCOMPARE(sheet("label_318"), QString::fromLatin1(kPictures[1]));
    }

    void pictures()
    {
        for (const char *name : {"Setgetposition", "Setputposition"}) {
            const QPixmap picture(QStringLiteral(":/new/picture/Resources/res/%1.png")
                                      .arg(QString::fromLatin1(name)));
            QVERIFY(!picture.isNull());
            QCOMPARE(picture.size(), child<QLabel>(pages, "label_318")->minimumSize());
        }
    }

    void help()
    {
        QCOMPARE(labelText(pages, QStringLiteral("label_329")),
                 QStringLiteral("若仅有一个抓手，请切换到该抓手的工具手后\n标定以下各点\n"
                                "若有多个抓手，请用切换到第一个抓手的工具\n手后标定以下各点"));
        QVERIFY(pages->widget(34)->isAncestorOf(child<QLabel>(pages, "label_329")));
    }

    void polls()
    {
        wizard->goTo(34);
        support::Journal journal;
        const Message poll = {support::kCurrentPosition, "{\"coord\":0,\"robot\":1}\n"};
        QTRY_COMPARE(journal.messages(), QVector<Message>({poll, poll}));
    }

    void pollingEnds_data()
    {
        QTest::addColumn<int>("page");
        for (const int page : {33, 35, 26, 42, 0})
            QTest::addRow("page %d", page) << page;
    }
    /// Another page gets one more poll and no more.
    void pollingEnds()
    {
        QFETCH(int, page);
        wizard->goTo(34);
        QSignalSpy asked(Robot::getInstance(), &Robot::commandSent);
        pages->setCurrentIndex(page);
        QTRY_COMPARE(static_cast<int>(asked.size()), 1);
        QTimer watch;
        QSignalSpy periods(&watch, &QTimer::timeout);
        watch.start(400);
        QTRY_VERIFY(periods.size() >= 3);
        QCOMPARE(static_cast<int>(asked.size()), 1);
    }

    /// While the journal is on screen the polling rests; page and marks are there afterwards.
    void outOfSight()
    {
        wizard->goTo(34);
        wizard->markAll("1.5 2 3 4 5 6 7");
        QSignalSpy asked(Robot::getInstance(), &Robot::commandSent);
        pages->hide();
        QTRY_COMPARE(static_cast<int>(asked.size()), 1);
        QTimer watch;
        QSignalSpy periods(&watch, &QTimer::timeout);
        watch.start(400);
        QTRY_VERIFY(periods.size() >= 3);
        QCOMPARE(static_cast<int>(asked.size()), 1);
        pages->show();
        QTRY_VERIFY(asked.size() >= 3);
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(support::values(pages, QStringLiteral("GetPoint")).first(),
                 QStringLiteral("1.500"));
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
    }

    void unmarkedPointsHoldThePage_data()
    {
        QTest::addColumn<int>("marked"); // one bit a point
        for (int marked = 0; marked < 8; ++marked)
            QTest::addRow("%d", marked) << marked;
    }
    void unmarkedPointsHoldThePage()
    {
        QFETCH(int, marked);
        wizard->goTo(34);
        for (int point = 0; point < 3; ++point) {
            if (marked & (1 << point))
                click(pages, support::kMarkButtons[point]);
        }
        Course course(pages);
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(course.lines(), QStringList(marked == 7 ? "page 35" : "toast -1 2 标定未完成！"));
    }

    // ---- page 35 --------------------------------------------------------------------------------

    void portsAreReadAnew()
    {
        SetingWidget::getInstance()->setPorts({"Y0", "Y1"}, {"X0"}, {});
        wizard->goTo(35);
        QCOMPARE(support::items(box(pages, QStringLiteral("tongs_4_port"))),
                 QStringList({"无", "Y0", "Y1"}));
        QCOMPARE(support::items(box(pages, QStringLiteral("tongs_1_getsucceed"))),
                 QStringList({"无", "X0"}));
        SetingWidget::getInstance()->setPorts({"Y0"}, {"X0", "X1"}, {});
        box(pages, QStringLiteral("tongs_1_port"))->setCurrentIndex(1);
        click(pages, "createdFilePagedownBtn3");
        QCOMPARE(pages->currentIndex(), 36);
        click(pages, "createdFilePageupBtn3");
        QCOMPARE(pages->currentIndex(), 35);
        QCOMPARE(support::items(box(pages, QStringLiteral("tongs_4_port"))),
                 QStringList({"无", "Y0"}));
        QCOMPARE(support::items(box(pages, QStringLiteral("get_enable_signal"))),
                 QStringList({"无", "X0", "X1"}));
        QCOMPARE(support::row(pages, "tongs_1_port"), 1);
        restorePorts();
    }

    void firstGripperIsNeeded()
    {
        wizard->goTo(35);
        for (const QString &port : support::kPorts)
            box(pages, port)->setCurrentIndex(port == QLatin1String("tongs_1_port") ? 0 : 3);
        Course course(pages);
        click(pages, "createdFilePagedownBtn3");
        QCOMPARE(course.lines(), QStringList("toast 5000 1 抓手1电磁阀端口不能为 无！"));
        QCOMPARE(pages->currentIndex(), 35);
        QCOMPARE(pages->collectedProgram().getEnablePort, 0); // nothing was taken
        QCOMPARE(pages->collectedProgram().tongsSucceedPort, (std::array<int, 4>{}));

        for (const QString &port : support::kPorts)
            box(pages, port)->setCurrentIndex(port == QLatin1String("tongs_1_port") ? 1 : 0);
        click(pages, "createdFilePagedownBtn3");
        QCOMPARE(pages->currentIndex(), 36);
    }

    /// Rows are port numbers, and the values are what the boxes read.
    void portsAreKept()
    {
        wizard->goTo(35);
        int row = 1;
        for (const QString &port : support::kPorts) {
            box(pages, port)->setCurrentIndex(row);
            box(pages, port + QStringLiteral("_validvalues"))->setCurrentIndex(row % 2);
            ++row;
        }
        click(pages, "createdFilePagedownBtn3");
        const ProgramInformation &program = pages->collectedProgram();
        QCOMPARE(program.tongsPort, (std::array<int, 4>{1, 2, 3, 4}));
        QCOMPARE(program.tongsValue, (std::array<int, 4>{0, 1, 0, 1}));
        QCOMPARE(program.getEnablePort, 5);
        QCOMPARE(program.getEnableValue, 0);
        QCOMPARE(program.tongsSucceedPort, (std::array<int, 4>{6, 7, 8, 9}));
        QCOMPARE(program.tongsSucceedValue, (std::array<int, 4>{1, 0, 1, 0}));
    }

    void skippedPortsAreNotKept()
    {
        wizard->goTo(35);
        for (const QString &port : support::kPorts)
            box(pages, port)->setCurrentIndex(2);
        const ProgramInformation &program = pages->collectedProgram();
        const std::array<int, 4> none = {};
        pages->saveWizardPutGetGoodsParam(true, 0);
        pages->saveWizardPumpParam(true, 0);
        pages->saveWizardSuccessParam(true, 0);
        QCOMPARE(program.getEnablePort, 0);
        QCOMPARE(program.getEnableValue, 0);
        QCOMPARE(program.tongsPort, none);
        QCOMPARE(program.tongsValue, none);
        QCOMPARE(program.tongsSucceedPort, none);
        QCOMPARE(program.tongsSucceedValue, none);

        // each of them keeps its own
        pages->saveWizardPutGetGoodsParam(false, 5);
        QCOMPARE(program.getEnablePort, 2);
        QCOMPARE(program.getEnableValue, 1);
        QCOMPARE(program.tongsPort, none);
        pages->saveWizardPumpParam(false, 5);
        QCOMPARE(program.tongsPort, (std::array<int, 4>{2, 2, 2, 2}));
        QCOMPARE(program.tongsValue, (std::array<int, 4>{1, 1, 1, 1}));
        QCOMPARE(program.tongsSucceedPort, none);
        pages->saveWizardSuccessParam(false, 5);
        QCOMPARE(program.tongsSucceedPort, (std::array<int, 4>{2, 2, 2, 2}));
    }

    /// Back from page 35 the name is looked at once more, and the polling starts again.
    void backToThePoints()
    {
        wizard->goTo(35);
        QVERIFY(wizard->store(1, "JOB1"));
        Course course(pages);
        click(pages, "createdFilePageupBtn2");
        QCOMPARE(course.lines(), QStringList("toast -1 2 该名称已经存在，请重新命名其他名称！"));
        QCOMPARE(pages->currentIndex(), 35);
        QCOMPARE(sheet("palletProgrameName_edit"), support::kRedName);

        JobStore::getInstance()->remove(1, QStringLiteral("JOB1"));
        QSignalSpy asked(Robot::getInstance(), &Robot::commandSent);
        click(pages, "createdFilePageupBtn2");
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(sheet("palletProgrameName_edit"), support::kBlackName);
        QTRY_VERIFY(asked.size() >= 2);
        // the marks are still there
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
    }

    // ---- pages 36 and 37 ------------------------------------------------------------------------

    /// Back from 36 asks for the marks again, back from 37 for the first gripper.
    void backRunsTheChecks()
    {
        wizard->goTo(37);
        QCOMPARE(pages->currentIndex(), 37);
        box(pages, QStringLiteral("tongs_1_port"))->setCurrentIndex(0);
        Course course(pages);
        click(pages, "createdFilePageupBtn4");
        QCOMPARE(course.lines(), QStringList("toast 5000 1 抓手1电磁阀端口不能为 无！"));
        QCOMPARE(pages->currentIndex(), 37);
        box(pages, QStringLiteral("tongs_1_port"))->setCurrentIndex(7);
        course.clear();
        click(pages, "createdFilePageupBtn4");
        QCOMPARE(course.lines(), QStringList("page 36"));
        QCOMPARE(pages->collectedProgram().tongsPort[0], 7);

        course.clear();
        MoreRobot::setCurrentRobot(2); // whose points are not taught
        click(pages, "createdFilePageupBtn3");
        QCOMPARE(course.lines(), QStringList("toast -1 2 标定未完成！"));
        QCOMPARE(pages->currentIndex(), 36);
        MoreRobot::setCurrentRobot(1);
        for (const char *button : support::kMarkButtons)
            child<QAbstractButton>(pages, button)->click();
        course.clear();
        click(pages, "createdFilePageupBtn3");
        QCOMPARE(course.lines(), QStringList("page 35"));
    }

    void missingVariables_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<int>("row"); // of the type that needs one
        QTest::newRow("total") << "totalVariable" << 2;
        QTest::newRow("layer") << "layerVariable" << 2;
        QTest::newRow("stack") << "stackVariable" << 2;
        QTest::newRow("end") << "paloffVariable" << 1;
    }
    /// Only the type of the last row needs a variable.
    void missingVariables()
    {
        QFETCH(QString, variable);
        QFETCH(int, row);
        for (int type = 0; type <= row; ++type) {
            wizard->reset();
            wizard->goTo(36);
            function()->setCurrentIndex(1);
            box(pages, variable + QStringLiteral("type"))->setCurrentIndex(type);
            box(pages, variable)->clear();
            Course course(pages);
            click(pages, "createdFilePagedownBtn4");
            QCOMPARE(
                course.lines(),
                QStringList(type == row ? "toast 5000 1 变量名不能为空，请重新选择" : "page 37"));
            QVERIFY(reads(kLegs, 1)); // the words come first
        }
    }

    void chosenVariablesPass()
    {
        wizard->goTo(36);
        fillIn();
        Course course(pages);
        click(pages, "createdFilePagedownBtn4");
        QCOMPARE(course.lines(), QStringList("page 37"));
    }

    void wordsOfTheLegs()
    {
        for (const int chosen : {1, 0}) {
            wizard->reset();
            wizard->open();
            function()->setCurrentIndex(chosen);
            wizard->name()->setText(QStringLiteral("JOB1"));
            click(pages, "createdFilePagedownBtn1");
            wizard->markAll();
            click(pages, "createdFilePagedownBtn2");
            box(pages, QStringLiteral("tongs_1_port"))->setCurrentIndex(1);
            click(pages, "createdFilePagedownBtn3");
            click(pages, "createdFilePagedownBtn4");
            QCOMPARE(pages->currentIndex(), 37);
            QVERIFY(reads(kLegs, chosen));
            function()->setCurrentIndex(1 - chosen);
            QVERIFY(reads(kLegs, chosen));
        }
    }

    void switches()
    {
        wizard->goTo(37);
        auto *xy = child<SwitchButton>(pages, "xyPathOptimization");
        auto *z = child<SwitchButton>(pages, "zPathOptimization");
        click(pages, "xyPathOptimization");
        QVERIFY(xy->isCheck() && !z->isCheck());
        click(pages, "zPathOptimization");
        QVERIFY(xy->isCheck() && z->isCheck());
        click(pages, "xyPathOptimization");
        QVERIFY(!xy->isCheck() && z->isCheck());
        click(pages, "zPathOptimization");
        QVERIFY(!xy->isCheck() && !z->isCheck());
    }

    /// The pages say which step they are and which program is made.
    void steps()
    {
        wizard->open("BOX_LINE");
        box(pages, QStringLiteral("palletNumTechcomboBox"))->setCurrentIndex(2);
        click(pages, "createdFilePagedownBtn1");
        for (int step = 1; step <= 5; ++step) {
            const auto *label = child<QLabel>(pages, QStringLiteral("wizardStep%1").arg(step));
            QCOMPARE(label->text(), QStringLiteral("%1/5").arg(step));
            QVERIFY(pages->widget(32 + step)->isAncestorOf(label));
            if (step > 1)
                QCOMPARE(labelText(pages, QStringLiteral("wizardProgramme%1").arg(step)),
                         QStringLiteral("工艺号:3  码垛  BOX_LINE"));
        }
    }

    // ---- back to the first page -----------------------------------------------------------------

    void asksBeforeTheFirstPage()
    {
        wizard->goTo(34);
        int actionAtPrompt = -1;
        QObject context;
        connect(EventLog::getInstance(), &EventLog::recorded, &context, [&](const QString &kind) {
            if (kind == QLatin1String("prompt"))
                actionAtPrompt = App::currentAction_;
        });
        Course course(pages);
        click(pages, "createdFilePageupBtn");
        QCOMPARE(course.lines(), QStringList("prompt 48"));
        QCOMPARE(PromptWidget::getInstance()->currentWidget(), PromptWidget::PROMPT_WIZARD_RESET);
        QCOMPARE(PromptWidget::getInstance()->text(), QString());
        QCOMPARE(actionAtPrompt, 6);
        QCOMPARE(App::currentAction_, 6);
        QCOMPARE(locked(kNine), kNine);
        QCOMPARE(locked(kSixteen),
                 QStringList(
                     {"createdFileReturnBtn2", "createdFilePageupBtn", "createdFilePagedownBtn2"}));
    }

    void firstPageGranted()
    {
        wizard->goTo(37);
        fillIn();
        pages->setCurrentIndex(34);
        click(pages, "createdFilePageupBtn");
        Course course(pages);
        wizard->answer(true);
        QCOMPARE(course.lines(), QStringList({"page 33", "promptClosed 48"}));
        QCOMPARE(locked(kNine + kSixteen), QStringList());
        QCOMPARE(leftovers(), QStringList());
        QCOMPARE(App::currentAction_, 0);
        QCOMPARE(pages->collectedProgram().name, QStringLiteral("JOB1")); // the name alone stays
        // and nothing counts as marked
        wizard->name()->setText(QStringLiteral("JOB2"));
        click(pages, "createdFilePagedownBtn1");
        support::Journal journal;
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(support::toasts(journal), QVector<Toast>({{"标定未完成！", -1, 2}}));
    }

    void firstPageRefused()
    {
        wizard->goTo(34);
        wizard->markAll();
        click(pages, "createdFilePageupBtn");
        Course course(pages);
        wizard->answer(false);
        QCOMPARE(course.lines(), QStringList("promptClosed 48"));
        QCOMPARE(locked(kNine), QStringList());
        QCOMPARE(App::currentAction_, 0);
        QCOMPARE(wizard->name()->text(), QStringLiteral("JOB1"));
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
    }

    // ---- leaving --------------------------------------------------------------------------------

    void leaving_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<QByteArray>("button");
        for (int page = 34; page <= 37; ++page)
            QTest::addRow("page %d", page)
                << page << "createdFileReturnBtn" + QByteArray::number(page - 32);
    }
    void leaving()
    {
        QFETCH(int, page);
        QFETCH(QByteArray, button);
        for (const bool yes : {false, true}) {
            wizard->reset();
            box(pages, QStringLiteral("palletNumTechcomboBox"))->setCurrentIndex(3);
            wizard->goTo(page);
            fillIn();
            Course course(pages);
            click(pages, button.constData());
            QCOMPARE(course.lines(), QStringList("prompt 49"));
            QCOMPARE(PromptWidget::getInstance()->text(), QString());
            QCOMPARE(App::currentAction_, 6);
            QCOMPARE(locked(kSixteen), kSixteen);
            QCOMPARE(locked(kNine),
                     QStringList({"createdFileReturnBtn2", "createdFilePagedownBtn2",
                                  "createdFilePageupBtn"}));
            course.clear();
            wizard->answer(yes);
            QCOMPARE(locked(kSixteen + kNine), QStringList());
            QCOMPARE(support::row(pages, "palletNumTechcomboBox"), 3);
            if (yes) {
                QCOMPARE(course.lines(), QStringList({"page 1", "title 1", "promptClosed 49"}));
                QCOMPARE(leftovers(), QStringList());
                QCOMPARE(App::currentAction_, 0);
            } else {
                QCOMPARE(course.lines(), QStringList("promptClosed 49"));
                QCOMPARE(pages->currentIndex(), page);
                QCOMPARE(App::currentAction_, 6); // other than with question 48
                QCOMPARE(wizard->name()->text(), QStringLiteral("JOB1"));
                QCOMPARE(support::row(pages, "getProcess"), 1);
            }
        }
    }

    void notWhileTheScreenIsLocked()
    {
        wizard->goTo(34);
        App::locked_ = true;
        Course course(pages);
        pages->returnCreateFile();
        pages->exitCreateFile();
        App::locked_ = false;
        QCOMPARE(course.lines(), QStringList());
        QCOMPARE(App::currentAction_, 0);
        QCOMPARE(locked(kNine + kSixteen), QStringList());
    }

    void raisedTwice_data()
    {
        QTest::addColumn<bool>("leave");
        QTest::addColumn<bool>("yes");
        for (const bool leave : {false, true}) {
            for (const bool yes : {false, true})
                QTest::addRow("%d %d", leave, yes) << leave << yes;
        }
    }
    /// However often a question was raised and answered before, one answer acts once: what follows
    /// the first effect is not undone by a second.
    void raisedTwice()
    {
        QFETCH(bool, leave);
        QFETCH(bool, yes);
        PromptWidget *prompt = PromptWidget::getInstance();
        wizard->goTo(34);
        const auto raise = [&] { leave ? pages->exitCreateFile() : pages->returnCreateFile(); };
        raise();
        wizard->answer(yes); // connected at the latest by now
        // what follows the effect of an answer
        int answers = 0;
        const auto probe = [&] {
            ++answers;
            App::currentAction_ = 99;
            child<QWidget>(pages, "createdFileReturnBtn2")->setEnabled(false);
        };
        const QMetaObject::Connection connection = leave
            ? (yes ? connect(prompt, &PromptWidget::exitPalFile, this, probe)
                   : connect(prompt, &PromptWidget::cancelExitPalFile, this, probe))
            : (yes ? connect(prompt, &PromptWidget::rePageReData, this, probe)
                   : connect(prompt, &PromptWidget::rePageReData2, this, probe));
        for (int time = 1; time <= 3; ++time) {
            App::currentAction_ = 0;
            raise();
            raise();
            wizard->answer(yes);
            QCOMPARE(answers, time);
            QCOMPARE(App::currentAction_, 99);
            QVERIFY(!isEnabled(pages, QStringLiteral("createdFileReturnBtn2")));
        }
        disconnect(connection);
    }

    /// A question that another one took the place of leaves nothing locked for good.
    void questionWithoutAnswer()
    {
        wizard->goTo(34);
        click(pages, "createdFilePageupBtn");
        PromptWidget *prompt = PromptWidget::getInstance();
        prompt->repaint_widget(PromptWidget::PROMPT_USER_COORDS_DONE, QString());
        prompt->set_widget_state(PromptWidget::PROMPT_USER_COORDS_DONE);
        wizard->answer(true);
        QCOMPARE(locked(kNine), kNine);
        pages->return_PalletPage();
        click(pages, "BtnPalletFile");
        QCOMPARE(locked(kNine + kSixteen), QStringList());
    }

    /// A gloved finger hits everything, and everything lies on the page.
    void largeEnough()
    {
        for (int page = 33; page <= 37; ++page) {
            pages->setCurrentIndex(page);
            QCoreApplication::processEvents();
            QCOMPARE(pages->size(), QSize(714, 504));
            const auto widgets = pages->widget(page)->findChildren<QWidget *>();
            for (const QWidget *widget : widgets) {
                if (!qobject_cast<const QAbstractButton *>(widget)
                    && !qobject_cast<const QComboBox *>(widget)
                    && !qobject_cast<const QLineEdit *>(widget))
                    continue;
                if (!widget->isVisible())
                    continue;
                QVERIFY2(widget->height() >= 40, qPrintable(widget->objectName()));
                const QRect place(widget->mapTo(pages, QPoint()), widget->size());
                QVERIFY2(pages->rect().contains(place), qPrintable(widget->objectName()));
            }
        }
    }
};

QTEST_MAIN(TestWizard)
#include "test_wizard.moc"
