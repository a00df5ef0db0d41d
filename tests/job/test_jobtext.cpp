// Commands as they read in the job list's viewer.

#include "commandfields.h"
#include "jobtext.h"
#include "robotpos.h"

#include <QtTest>

namespace {

template <class Kind> Kind &as(Command &command)
{
    return dynamic_cast<Kind &>(command);
}

std::unique_ptr<CommandCondition> condition(const QString &name, int comparison,
                                            const QString &value)
{
    auto made = std::make_unique<CommandCondition>();
    made->operandName = name;
    made->comparison = comparison;
    made->rightValue = value;
    return made;
}

} // namespace

class TestJobText : public QObject {
    Q_OBJECT

private slots:
    void moves()
    {
        for (const int type : {Command::MovJ, Command::MovL}) {
            const auto command = commandOf(type);
            auto &move = as<MoveCommand>(*command);
            move.positionId = RobotPos::wordOf('P', 12);
            move.moveParamA = 10.0;
            move.moveParamB = 1.0;
            move.moveParamC = 0.1;
            QCOMPARE(statementOf(move),
                     QString::fromLatin1(wordOf(type)) + QStringLiteral(" P12 A=10 B=1 C=0.1 D=0"));
        }
    }

    void aMoveWithoutPosition()
    {
        const MoveCommand move(Command::MovJ);
        QCOMPARE(statementOf(move), QStringLiteral("MovJ ? A=0 B=0 C=0 D=0"));
    }

    void loops()
    {
        WHILECommand head(Command::WhileBegin);
        QCOMPARE(statementOf(head), QStringLiteral("WHILE ?"));
        head.condition = condition(QStringLiteral("B001"), 1, QStringLiteral("0"));
        QCOMPARE(statementOf(head), QStringLiteral("WHILE B001 == 0"));
        const WHILECommand end(Command::WhileEnd);
        QCOMPARE(statementOf(end), QStringLiteral("ENDWHILE"));
    }

    void comparisons()
    {
        const char *const texts[] = {"<>", "==", "<", ">", "<=", ">=", "!="};
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(conditionText(*condition(QStringLiteral("I001"), i, QStringLiteral("5"))),
                     QStringLiteral("I001 %1 5").arg(QLatin1String(texts[i])));
        }
        for (const int none : {-1, 7}) {
            QCOMPARE(conditionText(*condition(QStringLiteral("I001"), none, QStringLiteral("5"))),
                     QStringLiteral("I001 ? 5"));
        }
    }

    void waitsAndTimers()
    {
        const auto command = commandOf(Command::Wait);
        QCOMPARE(statementOf(*command), QStringLiteral("WAIT ?"));
        as<WaitCommand>(*command).condition =
            condition(QStringLiteral("DIN3"), 1, QStringLiteral("1"));
        QCOMPARE(statementOf(*command), QStringLiteral("WAIT DIN3 == 1"));
        TimerCommand timer;
        timer.duration = 1.0;
        QCOMPARE(statementOf(timer), QStringLiteral("TIMER 1 s"));
        timer.duration = 0.25;
        QCOMPARE(statementOf(timer), QStringLiteral("TIMER 0.25 s"));
    }

    void outputsAndAssignments()
    {
        IOCommand output;
        output.ioName = QStringLiteral("OT#");
        output.ioPort = 2;
        output.ioValue = 1.0;
        QCOMPARE(statementOf(output), QStringLiteral("DOUT OT#2 = 1"));
        output.ioName = QStringLiteral("%1%2");
        QCOMPARE(statementOf(output), QStringLiteral("DOUT %1%22 = 1"));
        VARCommand integer(Command::SetInteger);
        QCOMPARE(statementOf(integer), QStringLiteral("SETINT I000 = 0"));
        VARCommand boolean(Command::SetBoolean);
        boolean.varName = QStringLiteral("GB990");
        boolean.varValue = QStringLiteral("1");
        QCOMPARE(statementOf(boolean), QStringLiteral("SETBOOL GB990 = 1"));
    }

    void palletising()
    {
        PALCommand start(Command::PalStart);
        start.craftNumber = 2;
        start.totalName = QStringLiteral("GI001");
        QCOMPARE(statementOf(start),
                 QStringLiteral("PALSTART craft=2 function=0 total=GI001 layer=[-] stack=[-]"));
        PALCommand entry(Command::PalToEntry);
        entry.craftNumber = 2;
        entry.moveName = QStringLiteral("MovJ");
        entry.xyPathOptimization = 1;
        QCOMPARE(statementOf(entry), QStringLiteral("PalToEntry MovJ craft=2 xy=1 z=0"));
        PALCommand auxiliary(Command::PalToAuxiliary);
        auxiliary.moveName = QStringLiteral("MovL");
        QCOMPARE(statementOf(auxiliary), QStringLiteral("PalToAuxiliary MovL craft=1"));
        PALCommand workpiece(Command::PalToWorkpiece);
        workpiece.moveName = QStringLiteral("MovL");
        QCOMPARE(statementOf(workpiece), QStringLiteral("PalToWorkpiece MovL craft=1"));
        PALCommand step(Command::PalStep);
        step.stepFlag = 1;
        QCOMPARE(statementOf(step), QStringLiteral("PalStep craft=1 step=1"));
        QCOMPARE(statementOf(PALCommand(Command::PalHead)), QStringLiteral("PalHead craft=1"));
        PALCommand off(Command::PalOff);
        off.palOffName = QStringLiteral("B001");
        QCOMPARE(statementOf(off), QStringLiteral("PalOff B001 craft=1"));
    }

    /// Whoever builds commands may set the type of one to that of another class.
    void aTypeOfAnotherClass()
    {
        TimerCommand timer;
        timer.type = Command::WhileBegin;
        QCOMPARE(statementOf(timer), QStringLiteral("WHILE"));
        timer.type = 999;
        QCOMPARE(statementOf(timer), QStringLiteral("?"));
    }
};

QTEST_GUILESS_MAIN(TestJobText)
#include "test_jobtext.moc"
