// The wizard's finish key: the lines of the job for each choice, what stands in them, and what
// happens when something is missing or in the way.

#include "../fulldisk.h"
#include "wizardpage.h"

#include "commandfields.h"
#include "jobedit.h"
#include "jobfile.h"
#include "jobmanager.h"
#include "language.h"
#include "snackbarmessage.h"

#include <QDir>
#include <memory>

using support::box;
using support::child;
using support::click;
using support::Journal;
using support::Wizard;

namespace {

constexpr int kPallet = 1; // page of the stack
const QString kMade = QStringLiteral("码垛文件生成成功！");

/// What the operator chooses; port 0 is "无".
struct Choice {
    bool depalletise = false;
    int gripInput = 0; ///< port
    int permission = 0; ///< port
};

void choose(const QObject *pages, const char *name, int row)
{
    box(pages, QString::fromLatin1(name))->setCurrentIndex(row);
}

/// Collects a job on the five pages: process 2, three different points, gripper 1 on port 3.
void collect(const Wizard &wizard, const Choice &choice, const char *job = "JOB1")
{
    TechnologyWidget *pages = wizard.pages;
    wizard.open(job);
    choose(pages, "palletNumTechcomboBox", 1);
    choose(pages, "palletFunctioncomboBox", choice.depalletise ? 1 : 0);
    click(pages, "createdFilePagedownBtn1");
    const char *positions[] = {"31 32 33 34 35 36 37", "21.5 22 23 24 25 26 27",
                               "-11 12 13 14 15 16 0.001"};
    for (std::size_t i = 0; i < std::size(positions); ++i) {
        support::tellPosition(QByteArray("0 0 ") + positions[i]);
        click(pages, support::kMarkButtons[i]);
    }
    click(pages, "createdFilePagedownBtn2");
    choose(pages, "tongs_1_port", 3);
    choose(pages, "tongs_1_getsucceed", choice.gripInput);
    choose(pages, "get_enable_signal", choice.permission);
    click(pages, "createdFilePagedownBtn3");
    click(pages, "createdFilePagedownBtn4");
}

/// The words of the job's lines, in order.
QStringList words(const ProgramJOB &job)
{
    QStringList list;
    for (int line = 1; line <= job.lineCount(); ++line)
        list += QString::fromLatin1(wordOf(job.command(line)->type));
    return list;
}

template <class AnyCommand> AnyCommand *at(const ProgramJOB &job, int line)
{
    auto *command = dynamic_cast<AnyCommand *>(job.command(line));
    if (!command)
        qFatal("line %d is of another kind", line);
    return command;
}

QString stored(const char *job, int robot = 1)
{
    QFile file(JobStore::getInstance()->pathOf(robot, QString::fromLatin1(job)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestGeneration : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_data;
    std::unique_ptr<TechnologyWidget> m_pages;
    std::unique_ptr<Wizard> m_wizard;

    jobfile::Reading read(const char *job = "JOB1", int robot = 1) const
    {
        QString error;
        const QString name = QString::fromLatin1(job);
        const QByteArray text = JobStore::getInstance()->read(robot, name, &error);
        return jobfile::read(text, name);
    }

    /// Collects, finishes and reads the file.
    std::unique_ptr<ProgramJOB> generate(const Choice &choice)
    {
        collect(*m_wizard, choice);
        finish();
        return read().job;
    }

    void finish() { click(m_pages.get(), "createdFileFinishBtn"); }

private slots:
    void initTestCase()
    {
        m_pages = std::make_unique<TechnologyWidget>(nullptr);
        m_pages->resize(714, 504);
        m_pages->show();
        m_wizard = std::make_unique<Wizard>(m_pages.get());
    }

    void init()
    {
        while (!JobStore::getInstance()->unsaved().isEmpty()) {
            const JobStore::Unsaved job = JobStore::getInstance()->unsaved().first();
            JobStore::getInstance()->drop(job.robot, job.name);
        }
        m_wizard->reset();
    }

    void lines_data()
    {
        QTest::addColumn<bool>("depalletise");
        QTest::addColumn<bool>("grip");
        QTest::addColumn<bool>("permission");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, bool depalletise, bool grip, bool permission,
                            const char *expected) {
            QTest::newRow(name) << depalletise << grip << permission
                                << QString::fromLatin1(expected);
        };
        row("palletise", false, false, false,
            "PalHead WHILE PALSTART PalStep MovJ MovJ MovJ DOUT TIMER MovJ PalToEntry "
            "PalToAuxiliary PalToWorkpiece DOUT TIMER PalToAuxiliary PalOff ENDWHILE");
        row("palletise, grip success", false, true, false,
            "PalHead WHILE PALSTART PalStep MovJ WHILE MovJ MovJ DOUT TIMER MovJ ENDWHILE "
            "PalToEntry PalToAuxiliary PalToWorkpiece DOUT TIMER PalToAuxiliary PalOff ENDWHILE");
        row("palletise, permission", false, false, true,
            "PalHead WHILE PALSTART PalStep MovJ MovJ WAIT MovJ DOUT TIMER MovJ PalToEntry "
            "PalToAuxiliary PalToWorkpiece DOUT TIMER PalToAuxiliary PalOff ENDWHILE");
        row("palletise, both", false, true, true,
            "PalHead WHILE PALSTART PalStep MovJ WHILE MovJ WAIT MovJ DOUT TIMER MovJ ENDWHILE "
            "PalToEntry PalToAuxiliary PalToWorkpiece DOUT TIMER PalToAuxiliary PalOff ENDWHILE");
        row("depalletise", true, false, false,
            "PalHead WHILE PALSTART PalStep PalToEntry PalToAuxiliary PalToWorkpiece DOUT TIMER "
            "PalToAuxiliary PalOff MovJ MovJ MovJ DOUT TIMER MovJ ENDWHILE");
        row("depalletise, grip success", true, true, false,
            "PalHead WHILE PALSTART PalStep PalToEntry WHILE PalToAuxiliary PalToWorkpiece DOUT "
            "TIMER PalToAuxiliary ENDWHILE PalOff MovJ MovJ MovJ DOUT TIMER MovJ ENDWHILE");
        row("depalletise, permission", true, false, true,
            "PalHead WHILE PALSTART PalStep PalToEntry WAIT PalToAuxiliary PalToWorkpiece DOUT "
            "TIMER PalToAuxiliary PalOff MovJ MovJ MovJ DOUT TIMER MovJ ENDWHILE");
        row("depalletise, both", true, true, true,
            "PalHead WHILE PALSTART PalStep PalToEntry WHILE WAIT PalToAuxiliary PalToWorkpiece "
            "DOUT TIMER PalToAuxiliary ENDWHILE PalOff MovJ MovJ MovJ DOUT TIMER MovJ ENDWHILE");
    }

    void lines()
    {
        QFETCH(bool, depalletise);
        QFETCH(bool, grip);
        QFETCH(bool, permission);
        const auto job = generate({depalletise, grip ? 4 : 0, permission ? 5 : 0});
        QVERIFY(job);
        QTEST(words(*job).join(QLatin1Char(' ')), "expected");
    }

    /// A whole file, byte by byte.
    void file()
    {
        collect(*m_wizard, {false, 4, 5});
        choose(m_pages.get(), "middleProcess", 1);
        finish();
        const QString pal = QStringLiteral(
            " craftNumber=2 palFunction=0 reserved1=0 reserved2=0 stepFlag=%1 xyPathOptimization=0"
            " zPathOptimization=0 moveName=\"%2\" moveParamA=%3 reserved3=0 moveParamB=%3"
            " moveParamC=%3 moveKind=%4 palOffName=\"%5\" totalName=\"[-]\" layerName=\"[-]\""
            " stackName=\"[-]\"\n");
        const QString move = QStringLiteral(
            " moveParamA=10 moveKind=%1 moveParamB=%2 moveParamC=%2 moveParamD=0 moveParamE=0"
            " moveParamF=0 moveParamG=0 moveParamH=0 moveParamI=0 reserved1=0 reserved2=0"
            " positionId=%3 reservedText=\"\" frameName=\"UF\" reserved3=0 reserved4=0"
            " reserved5=1 reserved6=0\n");
        const QString valve = QStringLiteral(
            "DOUT reserved1=-1 reserved2=-1 ioName=\"OT#\" ioPort=3 ioValue=%1 reserved3=0"
            " reserved4=0 reservedText=\"\" reserved5=0 reserved6=0 reserved7=0\n");
        const QString timer = QStringLiteral("TIMER duration=1 durationText=\"0\" reserved1=0\n");
        const QString end = QStringLiteral("ENDWHILE condition=none\n");
        const QString plain = pal.arg(0).arg("MovC").arg(0).arg(0);
        const QString toPlace = pal.arg(0).arg("MovJ").arg(10).arg(2).arg("[-]");
        const QString none = QStringLiteral("[-]");
        QString expected =
            QStringLiteral("JBR 1\n"
                           "POSITION P1 kind=80 0 0 0 0 0 0 0 -11 12 13 14 15 16 0.001\n"
                           "POSITION P2 kind=80 0 0 0 0 0 0 0 21.5 22 23 24 25 26 27\n"
                           "POSITION P3 kind=80 0 0 0 0 0 0 0 31 32 33 34 35 36 37\n"
                           "BEGIN\n");
        expected += QStringLiteral("PalHead") + plain.arg(none);
        expected += QStringLiteral(
            "WHILE condition={ operandKind=3 operandName=\"B001\" operandPort=0 reserved1=0"
            " comparison=1 reserved2=0 rightValue=\"0\" }\n");
        expected += QStringLiteral("PALSTART") + plain.arg(none);
        expected += QStringLiteral("PalStep") + pal.arg(1).arg("MovC").arg(0).arg(0).arg(none);
        expected += QStringLiteral("MovL") + move.arg(1).arg(1).arg(0x500001);
        expected += QStringLiteral(
            "WHILE condition={ operandKind=7 operandName=\"DIN4\" operandPort=4 reserved1=0"
            " comparison=1 reserved2=0 rightValue=\"1\" }\n");
        expected += QStringLiteral("MovJ") + move.arg(2).arg(10).arg(0x500002);
        expected += QStringLiteral(
            "WAIT duration=0 durationText=\"0\" reserved1=0 reserved2=0 reserved3=0 condition={"
            " operandKind=7 operandName=\"DIN5\" operandPort=5 reserved1=0 comparison=1"
            " reserved2=0 rightValue=\"1\" }\n");
        expected += QStringLiteral("MovJ") + move.arg(2).arg(10).arg(0x500003);
        expected += valve.arg(1) + timer;
        expected += QStringLiteral("MovJ") + move.arg(2).arg(10).arg(0x500002) + end;
        expected += QStringLiteral("PalToEntry") + pal.arg(0).arg("MovL").arg(10).arg(1).arg("[-]");
        expected += QStringLiteral("PalToAuxiliary") + toPlace;
        expected += QStringLiteral("PalToWorkpiece") + toPlace;
        expected += valve.arg(0) + timer;
        expected += QStringLiteral("PalToAuxiliary") + toPlace;
        expected += QStringLiteral("PalOff") + plain.arg(QStringLiteral("B001")) + end;
        expected += QStringLiteral("END\n");
        const QStringList got = stored("JOB1").split(QLatin1Char('\n'));
        const QStringList want = expected.split(QLatin1Char('\n'));
        for (int i = 0; i < std::min(got.size(), want.size()); ++i)
            QCOMPARE(got.at(i), want.at(i));
        QCOMPARE(got.size(), want.size());
    }

    /// Which leg decides over which moves.
    void legs_data()
    {
        QTest::addColumn<bool>("depalletise");
        QTest::addColumn<QString>("linear");
        QTest::addColumn<QString>("expected"); ///< lines that become linear
        QTest::newRow("palletise, get") << false << "getProcess"
                                        << "6 7 10";
        QTest::newRow("palletise, middle") << false << "middleProcess"
                                           << "5 11";
        QTest::newRow("palletise, pallet") << false << "palletProcess"
                                           << "12 13 16";
        QTest::newRow("depalletise, get") << true << "getProcess"
                                          << "6 7 10";
        QTest::newRow("depalletise, middle") << true << "middleProcess"
                                             << "5 12";
        QTest::newRow("depalletise, pallet") << true << "palletProcess"
                                             << "13 14 17";
    }

    void legs()
    {
        QFETCH(bool, depalletise);
        QFETCH(QString, linear);
        collect(*m_wizard, {depalletise, 0, 0});
        box(m_pages.get(), linear)->setCurrentIndex(1);
        finish();
        const auto job = read().job;
        QVERIFY(job);
        QStringList lines;
        for (int line = 1; line <= job->lineCount(); ++line) {
            Command *command = job->command(line);
            if (const auto *move = dynamic_cast<MoveCommand *>(command)) {
                const bool isLinear = move->type == Command::MovL;
                QCOMPARE(move->moveKind, isLinear ? 1 : 2);
                QCOMPARE(move->moveParamA, 10.0);
                QCOMPARE(move->moveParamB, isLinear ? 1.0 : 10.0);
                QCOMPARE(move->moveParamC, isLinear ? 1.0 : 10.0);
                if (isLinear)
                    lines += QString::number(line);
            } else if (const auto *pal = dynamic_cast<PALCommand *>(command)) {
                if (pal->moveName == QLatin1String("MovC"))
                    continue;
                const bool isLinear = pal->moveName == QLatin1String("MovL");
                QCOMPARE(pal->moveKind, isLinear ? 1 : 2);
                QCOMPARE(pal->moveParamB, 10.0); // linear or not
                QCOMPARE(pal->moveParamC, 10.0);
                if (isLinear)
                    lines += QString::number(line);
            }
        }
        QTEST(lines.join(QLatin1Char(' ')), "expected");
    }

    void values_data()
    {
        QTest::addColumn<bool>("depalletise");
        QTest::addColumn<QString>("path"); ///< the switch that is on
        QTest::newRow("palletise, x and y") << false << "xyPathOptimization";
        QTest::newRow("palletise, z") << false << "zPathOptimization";
        QTest::newRow("depalletise, x and y") << true << "xyPathOptimization";
        QTest::newRow("depalletise, z") << true << "zPathOptimization";
    }

    /// Values 0, the count variables, the other type of end variable, and the path switches.
    void values()
    {
        QFETCH(bool, depalletise);
        collect(*m_wizard, {depalletise, 16, 9});
        QObject *pages = m_pages.get();
        for (const char *name : {"createdFilePageupBtn4", "createdFilePageupBtn3"})
            click(pages, name); // each goes back by one
        for (const char *name : {"tongs_1_port_validvalues", "tongs_1_getsucceed_validvalues",
                                 "get_enable_signal_validvalues"})
            choose(pages, name, 1); // "0"
        QCOMPARE(m_pages->currentIndex(), 35);
        click(pages, "createdFilePagedownBtn3");
        choose(pages, "totalVariabletype", 2);
        choose(pages, "totalVariable", 989);
        choose(pages, "layerVariabletype", 1);
        choose(pages, "layerVariable", 6);
        choose(pages, "stackVariabletype", 2);
        choose(pages, "stackVariable", 41);
        choose(pages, "paloffVariabletype", 1);
        choose(pages, "paloffVariable", 11);
        click(pages, "createdFilePagedownBtn4");
        QFETCH(QString, path);
        click(pages, qPrintable(path));
        finish();
        const auto job = read().job;
        QVERIFY(job);

        const auto *outer = at<WHILECommand>(*job, 2);
        QCOMPARE(outer->condition->operandKind, 6);
        QCOMPARE(outer->condition->operandName, QStringLiteral("GB012"));
        QCOMPARE(outer->condition->rightValue, QStringLiteral("0"));
        const auto *start = at<PALCommand>(*job, 3);
        QCOMPARE(start->palFunction, depalletise ? 1 : 0);
        QCOMPARE(start->totalName, QStringLiteral("GI990"));
        QCOMPARE(start->layerName, QStringLiteral("I007"));
        QCOMPARE(start->stackName, QStringLiteral("GI042"));
        const auto *inner = at<WHILECommand>(*job, 6);
        QCOMPARE(inner->condition->operandName, QStringLiteral("DIN16"));
        QCOMPARE(inner->condition->operandPort, 16);
        QCOMPARE(inner->condition->rightValue, QStringLiteral("0"));
        const auto *wait = at<WaitCommand>(*job, depalletise ? 7 : 8);
        QCOMPARE(wait->condition->operandName, QStringLiteral("DIN9"));
        QCOMPARE(wait->condition->rightValue, QStringLiteral("0"));
        QCOMPARE(wait->duration, 0.0);
        QCOMPARE(at<IOCommand>(*job, 10)->ioValue, 0.0);
        QCOMPARE(at<IOCommand>(*job, depalletise ? 18 : 17)->ioValue, 1.0);
        QCOMPARE(at<PALCommand>(*job, depalletise ? 14 : 20)->palOffName, QStringLiteral("GB012"));
        int entries = 0;
        for (int line = 1; line <= job->lineCount(); ++line) {
            const auto *pal = dynamic_cast<PALCommand *>(job->command(line));
            if (!pal)
                continue;
            QCOMPARE(pal->craftNumber, 2);
            const bool isEntry = pal->type == Command::PalToEntry;
            entries += isEntry ? 1 : 0;
            const bool isZ = path.startsWith(QLatin1Char('z'));
            QCOMPARE(pal->xyPathOptimization, isEntry && !isZ ? 1 : 0);
            QCOMPARE(pal->zPathOptimization, isEntry && isZ ? 1 : 0);
            QCOMPARE(pal->stepFlag, pal->type == Command::PalStep ? 1 : 0);
            QCOMPARE(pal->palOffName == QLatin1String("GB012"), pal->type == Command::PalOff);
        }
        QCOMPARE(entries, 1);
    }

    /// What the box of the function reads when the key is pressed counts, not what it read on the
    /// first page.
    void theFunctionAsItReadsNow()
    {
        for (const bool depalletise : {true, false}) {
            const QByteArray name = depalletise ? "TURNED1" : "TURNED2";
            collect(*m_wizard, {!depalletise, 0, 0}, name.constData());
            choose(m_pages.get(), "palletFunctioncomboBox", depalletise ? 1 : 0);
            finish();
            const auto job = read(name.constData()).job;
            QVERIFY(job);
            QCOMPARE(words(*job).at(4), depalletise ? QString("PalToEntry") : QString("MovJ"));
            QCOMPARE(at<PALCommand>(*job, 3)->palFunction, depalletise ? 1 : 0);
        }
    }

    /// A function that is neither makes no job; what follows is the same.
    void noSuchFunction()
    {
        collect(*m_wizard, {});
        QComboBox *function = box(m_pages.get(), QStringLiteral("palletFunctioncomboBox"));
        function->addItem(QStringLiteral("拆码"));
        function->setCurrentIndex(function->count() - 1);
        const Journal course;
        finish();
        function->setCurrentIndex(0);
        function->removeItem(function->count() - 1);
        QCOMPARE(course.kinds(), (QStringList{"log", "log", "log", "toast"}));
        QCOMPARE(course.of("toast").at(0).at(0).toString(), kMade);
        QVERIFY(JobStore::getInstance()->files(1).isEmpty());
        QCOMPARE(m_pages->currentIndex(), kPallet);
    }

    /// The job does not depend on the language that the pages are in.
    void theOtherLanguage_data()
    {
        QTest::addColumn<bool>("depalletise");
        QTest::newRow("palletise") << false;
        QTest::newRow("depalletise") << true;
    }

    void theOtherLanguage()
    {
        QFETCH(bool, depalletise);
        const Choice choice = {depalletise, 4, 5};
        const auto makeIn = [&](const char *language, const char *job) {
            if (!Language::getInstance()->setCurrent(QString::fromLatin1(language)))
                return QString();
            collect(*m_wizard, choice, job);
            choose(m_pages.get(), "middleProcess", 1);
            finish();
            return stored(job);
        };
        const QString chinese = makeIn("zh", "ZH");
        const QString english = makeIn("en", "EN");
        const QString made = SnackbarMessage::shownTexts().join(QLatin1Char('\n'));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh")));
        QVERIFY(!chinese.isEmpty());
        QCOMPARE(english, chinese);
        QVERIFY2(made.contains(QStringLiteral("Palletising program generated")), qPrintable(made));
        SnackbarMessage::dismissAll();
    }

    /// No builder does anything while no job is being edited.
    void buildersWithoutAJob()
    {
        TechnologyWidget pages(nullptr);
        QVERIFY(!pages.jobEditor()->currentJob());
        const Journal course;
        int line = 1;
        pages.insertMoveCmd(0, 0, 1, 1, QStringLiteral("1 2 3 4 5 6 7"));
        pages.insertPalCmd(1, 1, 1, QStringLiteral("MovJ"));
        pages.insertBoolCmd(1);
        pages.insertIntCmd(1, 0);
        pages.insertWhileCmd(0, line, 0, 0);
        pages.insertWaitCmd(1, 1, 1);
        pages.insertDoutCmd(1, 1, 1);
        pages.insertTimerCmd(QStringLiteral("1"), 1);
        QCOMPARE(course.kinds(), QStringList());
        QVERIFY(!pages.jobEditor()->currentJob());
    }

    /// The second move to P2 refers to the position of the first.
    void samePosition()
    {
        collect(*m_wizard, {});
        finish();
        const auto stored = read().job;
        QVERIFY(stored);
        for (const ProgramJOB *job : {stored.get(), m_pages->jobEditor()->currentJob()}) {
            QCOMPARE(static_cast<int>(job->positions().size()), 3);
            const RobotPos *upper = job->getPosition('P', 2);
            QVERIFY(upper);
            QCOMPARE(at<MoveCommand>(*job, 6)->position, upper);
            QCOMPARE(at<MoveCommand>(*job, 10)->position, upper);
            QVERIFY(at<MoveCommand>(*job, 5)->position != upper);
        }
    }

    void orderOfWhatHappens()
    {
        collect(*m_wizard, {});
        const Journal course;
        finish();
        const QStringList kinds = course.kinds();
        QCOMPARE(kinds, (QStringList{"log", "log", "log", "job", "job", "job", "toast"}));
        QCOMPARE(course.of("log").at(0), (QVariantList{QStringLiteral("31 32 33 34 35 36 37"), 1}));
        QCOMPARE(course.of("log").at(1),
                 (QVariantList{QStringLiteral("21.5 22 23 24 25 26 27"), 1}));
        QCOMPARE(course.of("log").at(2),
                 (QVariantList{QStringLiteral("-11 12 13 14 15 16 0.001"), 1}));
        QCOMPARE(course.of("job").at(0),
                 (QVariantList{QStringLiteral("newJob"), QStringLiteral("JOB1")}));
        QCOMPARE(course.of("job").at(1),
                 (QVariantList{QStringLiteral("storeJob"), QStringLiteral("JOB1")}));
        QCOMPARE(course.of("toast").at(0), (QVariantList{kMade, 5000, 1, true}));
        QCOMPARE(m_pages->currentIndex(), kPallet);
        // everything collected is forgotten, but for the name
        QCOMPARE(child<QLabel>(m_pages.get(), "GetPointx")->text(), QStringLiteral("0"));
        QCOMPARE(box(m_pages.get(), QStringLiteral("tongs_1_port"))->currentIndex(), 0);
        QCOMPARE(m_wizard->name()->text(), QStringLiteral("JOB1"));
    }

    /// A second press, already under way when the first left the wizard, makes no empty job of the
    /// same name.
    void pressedTwice()
    {
        collect(*m_wizard, {});
        finish();
        const QString text = stored("JOB1");
        QVERIFY(!text.isEmpty());
        const Journal course;
        finish();
        m_pages->on_createdFileFinishBtn_clicked();
        QCOMPARE(course.kinds(), QStringList());
        QCOMPARE(stored("JOB1"), text);
        // a second job is made all the same
        collect(*m_wizard, {}, "JOB2");
        finish();
        QVERIFY(!stored("JOB2").isEmpty());
    }

    /// Points that were marked before the robot told where it is have no values: their moves are
    /// left out. The cursor moves on over them all the same, and so past the end of the loop.
    void unknownPoints_data()
    {
        QTest::addColumn<bool>("depalletise");
        QTest::addColumn<QString>("expected");
        QTest::newRow("palletise")
            << false
            << "PalHead WHILE PALSTART PalStep ENDWHILE DOUT TIMER PalToEntry PalToAuxiliary"
               " PalToWorkpiece DOUT TIMER PalToAuxiliary PalOff";
        QTest::newRow("depalletise")
            << true
            << "PalHead WHILE PALSTART PalStep PalToEntry PalToAuxiliary PalToWorkpiece DOUT"
               " TIMER PalToAuxiliary PalOff ENDWHILE DOUT TIMER";
    }

    void unknownPoints()
    {
        QFETCH(bool, depalletise);
        m_wizard->open();
        choose(m_pages.get(), "palletFunctioncomboBox", depalletise ? 1 : 0);
        click(m_pages.get(), "createdFilePagedownBtn1");
        for (const char *button : support::kMarkButtons)
            click(m_pages.get(), button);
        click(m_pages.get(), "createdFilePagedownBtn2");
        choose(m_pages.get(), "tongs_1_port", 1);
        click(m_pages.get(), "createdFilePagedownBtn3");
        click(m_pages.get(), "createdFilePagedownBtn4");
        const Journal course;
        finish();
        const auto job = read().job;
        QVERIFY(job);
        QVERIFY(job->positions().empty());
        QTEST(words(*job).join(QLatin1Char(' ')), "expected");
        QCOMPARE(course.of("toast").size(), 1);
        QCOMPARE(course.of("toast").at(0).at(0).toString(), kMade);
    }

    void wordsForNumbers()
    {
        collect(*m_wizard, {});
        support::tellPosition("0 0 1 2 three 4 5 6 7");
        for (const char *name :
             {"createdFilePageupBtn4", "createdFilePageupBtn3", "createdFilePageupBtn2"})
            click(m_pages.get(), name);
        QCOMPARE(m_pages->currentIndex(), 34);
        click(m_pages.get(), "positionGetUpperPoint");
        for (const char *name :
             {"createdFilePagedownBtn2", "createdFilePagedownBtn3", "createdFilePagedownBtn4"})
            click(m_pages.get(), name);
        finish();
        const auto job = read().job;
        QVERIFY(job);
        QVERIFY(job->getPosition('P', 1) && !job->getPosition('P', 2) && job->getPosition('P', 3));
        QCOMPARE(words(*job).count(QStringLiteral("MovJ")), 2);
    }

    void otherRobot()
    {
        MoreRobot::setCurrentRobot(3);
        collect(*m_wizard, {});
        finish();
        MoreRobot::setCurrentRobot(1);
        QVERIFY(stored("JOB1").isEmpty());
        QVERIFY(!stored("JOB1", 3).isEmpty());
    }

    /// The job appears between the name's check and the finish: the check comes again on the way
    /// back; finishing replaces the file by a whole one.
    void nameTakenMeanwhile()
    {
        collect(*m_wizard, {});
        QVERIFY(m_wizard->store(1, "JOB1"));
        for (const char *name : {"createdFilePageupBtn4", "createdFilePageupBtn3"})
            click(m_pages.get(), name);
        const Journal course;
        click(m_pages.get(), "createdFilePageupBtn2");
        QCOMPARE(m_pages->currentIndex(), 35);
        QCOMPARE(course.of("toast").at(0).at(0).toString(),
                 QStringLiteral("该名称已经存在，请重新命名其他名称！"));
    }

    void storeFails_data()
    {
        QTest::addColumn<bool>("isFull");
        QTest::newRow("full disk") << true;
        QTest::newRow("no directory") << false;
    }

    /// The editor speaks for itself, the job is kept, and the wizard says what it always says.
    void storeFails()
    {
        QFETCH(bool, isFull);
        JobStore *store = JobStore::getInstance();
        collect(*m_wizard, {});
        const Journal course;
        const QString directory = store->directoryOf(1);
        if (isFull) {
            const FullDisk full;
            finish();
        } else {
            QDir(directory).removeRecursively();
            QFile file(directory);
            QVERIFY(file.open(QIODevice::WriteOnly));
            finish();
            file.remove();
        }
        QVERIFY(stored("JOB1").isEmpty());
        QCOMPARE(store->unsaved().size(), 1);
        QCOMPARE(store->unsaved().first().name, QStringLiteral("JOB1"));
        QVERIFY(!store->unsaved().first().reason.isEmpty());
        const auto toasts = course.of("toast");
        QCOMPARE(toasts.size(), 2);
        QVERIFY(toasts.at(0).at(0).toString().contains(QStringLiteral("JOB1")));
        QCOMPARE(toasts.at(0).mid(1), (QVariantList{-1, 3, true}));
        QCOMPARE(toasts.at(1).at(0).toString(), kMade);
        // it stays until it is touched
        SnackbarMessage::showMessage(QStringLiteral("other"), 1, 1, true);
        QVERIFY(SnackbarMessage::shownTexts().contains(toasts.at(0).at(0).toString()));
        // the name is taken
        m_wizard->open();
        click(m_pages.get(), "createdFilePagedownBtn1");
        QCOMPARE(m_pages->currentIndex(), 33);
        // with room on the disk it is stored as it was
        QCOMPARE(store->saveAgain(1, QStringLiteral("JOB1")), QString());
        QVERIFY(store->unsaved().isEmpty());
        const auto job = read().job;
        QVERIFY(job);
        QCOMPARE(job->lineCount(), 18);
        SnackbarMessage::dismissAll();
    }

    /// The two assignments that no job of the wizard has.
    void assignments()
    {
        m_wizard->goTo(36);
        choose(m_pages.get(), "totalVariabletype", 1);
        choose(m_pages.get(), "totalVariable", 3);
        choose(m_pages.get(), "layerVariabletype", 2);
        choose(m_pages.get(), "layerVariable", 4);
        choose(m_pages.get(), "stackVariabletype", 2);
        choose(m_pages.get(), "stackVariable", 5);
        click(m_pages.get(), "createdFilePagedownBtn4");
        finish();
        const int lines = read().job->lineCount();
        choose(m_pages.get(), "totalVariabletype", 1);
        choose(m_pages.get(), "totalVariable", 3);
        choose(m_pages.get(), "layerVariabletype", 2);
        choose(m_pages.get(), "layerVariable", 4);
        choose(m_pages.get(), "stackVariabletype", 2);
        choose(m_pages.get(), "stackVariable", 5);
        choose(m_pages.get(), "paloffVariabletype", 1);
        choose(m_pages.get(), "paloffVariable", 6);
        m_pages->insertBoolCmd(lines + 1);
        for (int which = 0; which <= 3; ++which)
            m_pages->insertIntCmd(lines + 2 + which, which);
        m_pages->insertPalCmd(0, 1, 1, QString()); // no such selector
        m_pages->insertMoveCmd(0, 2, 9, 1, QStringLiteral("1 2 3 4 5 6 7")); // nor interpolation
        m_pages->insertMoveCmd(0, 0, 9, 1, QStringLiteral("1 2 3 4 5 6"));
        m_pages->insertMoveCmd(0, 0, 9, 1, QStringLiteral("1 2 3 4 5 6 7 8"));
        m_pages->insertMoveCmd(0, 0, 9, 1, QStringLiteral("1 2 3 4 5 6 inf"));
        m_pages->insertMoveCmd(0, 1, 9, lines + 6, QStringLiteral("  1 2 3  4 5 6 7.5 "));
        int line = lines + 7;
        m_pages->insertWhileCmd(7, line, 3, 1);
        QCOMPARE(line, lines + 8);
        QVERIFY(store());
        const auto job = read().job;
        QVERIFY(job);
        QCOMPARE(job->lineCount(), lines + 8);
        const auto *flag = at<VARCommand>(*job, lines + 1);
        QCOMPARE(flag->type, 37);
        QCOMPARE(flag->varName, QStringLiteral("GB007"));
        const char *names[] = {"I004", "GI005", "GI006", "I000"};
        for (int which = 0; which <= 3; ++which) {
            const auto *assignment = at<VARCommand>(*job, lines + 2 + which);
            QCOMPARE(assignment->type, 35);
            QCOMPARE(assignment->varName, QString::fromLatin1(names[which]));
            QCOMPARE(assignment->varValue, QStringLiteral("0"));
            QCOMPARE(job->variables().at(assignment->varName), QStringLiteral("0"));
        }
        QCOMPARE(job->variables().size(), std::size_t(5));
        const auto *move = at<MoveCommand>(*job, lines + 6);
        QCOMPARE(move->positionId, 0x500009);
        QCOMPARE(move->position->values[13], 7.5);
        QCOMPARE(move->position->values[0], 0.0);
        QCOMPARE(at<WHILECommand>(*job, lines + 7)->condition->operandName, QStringLiteral("I000"));
        QVERIFY(!at<WHILECommand>(*job, lines + 8)->condition);
    }

private:
    /// Stores the current job once more, as an editor's save key would.
    bool store() { return m_pages->jobEditor()->storeJob(); }
};

QTEST_MAIN(TestGeneration)
#include "test_generation.moc"
