// What the controller takes as a job and what it refuses, with line and reason, and how an accepted
// job is stepped.

#include "../job/samplejob.h"

#include "simulator/jobcheck.h"
#include "simulator/jobprogram.h"

#include <QtTest>
#include <functional>

namespace {

using Change = std::function<void(ProgramJOB &)>;

JobProgram::Checked check(const ProgramJOB &job, const Ports &ports = {})
{
    return JobProgram::check(jobfile::write(job), job.name(), ports);
}

struct Case {
    const char *name;
    Change change;
    JobFault::Kind kind;
    int line;
    const char *detail;
};

CommandCondition &conditionOf(ProgramJOB &job, int line)
{
    Command *command = job.command(line);
    if (auto *loop = dynamic_cast<WHILECommand *>(command))
        return *loop->condition;
    return *dynamic_cast<WaitCommand &>(*command).condition;
}

void setOperand(ProgramJOB &job, int kind, const char *name, const char *value)
{
    CommandCondition &condition = conditionOf(job, sample::Outer);
    condition.operandKind = kind;
    condition.operandName = QLatin1String(name);
    condition.rightValue = QLatin1String(value);
}

Change operand(int kind, const char *name, const char *value = "0")
{
    return [=](ProgramJOB &job) { setOperand(job, kind, name, value); };
}

Change assignment(int type, const char *name, const char *value)
{
    return [=](ProgramJOB &job) {
        auto command = commandOf(type);
        auto &made = dynamic_cast<VARCommand &>(*command);
        made.varName = QLatin1String(name);
        made.varValue = QLatin1String(value);
        job.insertCommand(2, std::move(command));
    };
}

template <class Kind, class Value> Change field(int line, Value Kind::*member, const Value &value)
{
    return [=](ProgramJOB &job) { sample::at<Kind>(job, line).*member = value; };
}

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

} // namespace

class TestJobProgram : public QObject {
    Q_OBJECT

    static void run(const std::vector<Case> &cases)
    {
        for (const Case &each : cases) {
            const auto job = sample::job();
            each.change(*job);
            const JobProgram::Checked checked = check(*job);
            QVERIFY2(QLatin1String(checked.fault.word())
                         == QLatin1String(JobFault{each.kind, 0, {}}.word()),
                     qPrintable(QString::fromLatin1(each.name) + QLatin1Char(' ')
                                + QLatin1String(checked.fault.word()) + checked.fault.detail));
            QVERIFY2(checked.fault.line == each.line, each.name);
            QVERIFY2(checked.fault.detail == QLatin1String(each.detail), each.name);
            QVERIFY2((checked.program == nullptr) == (each.kind != JobFault::None), each.name);
        }
    }

private slots:
    void aWholeJobIsTaken()
    {
        const JobProgram::Checked checked = check(*sample::job());
        QCOMPARE(checked.fault.word(), "None");
        QVERIFY(checked.program);
        QCOMPARE(checked.program->lineCount(), 21);
        QCOMPARE(checked.program->job().name(), QStringLiteral("STACK1"));
        QVERIFY(check(ProgramJOB(QStringLiteral("EMPTY"))).program);
    }

    void loopsLeadToTheirOtherEnd()
    {
        const auto program = check(*sample::job()).program;
        QVERIFY(program);
        for (int line = -1; line <= 23; ++line) {
            const int expected = line == 2 ? 21
                : line == 21               ? 2
                : line == 6                ? 13
                : line == 13               ? 6
                                           : 0;
            QCOMPARE(program->partner(line), expected);
        }
        QCOMPARE(program->next(1), 2);
        QCOMPARE(program->next(2, true), 3);
        QCOMPARE(program->next(2, false), 22);
        QCOMPARE(program->next(6, true), 7);
        QCOMPARE(program->next(6, false), 14);
        QCOMPARE(program->next(13), 6);
        QCOMPARE(program->next(13, false), 6);
        QCOMPARE(program->next(21), 2);
    }

    /// The outer loop is entered twice, the inner one three times in all.
    void steppingRunsThroughTheLines()
    {
        const auto program = check(*sample::job()).program;
        std::vector<int> visits(23);
        int line = 1;
        int steps = 0;
        while (line <= program->lineCount() && ++steps < 1000) {
            const int visit = ++visits[static_cast<std::size_t>(line)];
            const bool holds = line == sample::Outer ? visit <= 2 : visit != 2 && visit != 5;
            line = program->next(line, holds);
        }
        QCOMPARE(line, 22);
        QCOMPARE(visits[sample::Head], 1);
        QCOMPARE(visits[sample::Outer], 3);
        QCOMPARE(visits[sample::Move], 2);
        QCOMPARE(visits[sample::Inner], 5);
        QCOMPARE(visits[sample::Output], 3);
        QCOMPARE(visits[sample::InnerEnd], 3);
        QCOMPARE(visits[sample::Off], 2);
    }

    void loops()
    {
        const auto insert = [](int type, int line) {
            return [=](ProgramJOB &job) { job.insertCommand(line, commandOf(type)); };
        };
        const auto head = [](int line) {
            return [=](ProgramJOB &job) {
                auto command = commandOf(Command::WhileBegin);
                dynamic_cast<WHILECommand &>(*command).condition = sample::input(1, 1);
                job.insertCommand(line, std::move(command));
            };
        };
        run({
            {"an end too many at the end", insert(Command::WhileEnd, 22), JobFault::LoopEnd, 22,
             ""},
            {"an end before its loop", insert(Command::WhileEnd, 1), JobFault::LoopEnd, 1, ""},
            {"a head too many", head(22), JobFault::LoopOpen, 22, ""},
            {"a head that takes the other's end", head(3), JobFault::LoopOpen, 2, ""},
            {"a whole loop more",
             [&](ProgramJOB &job) {
                 head(22)(job);
                 insert(Command::WhileEnd, 23)(job);
             },
             JobFault::None, 0, ""},
            {"a fault before the open loop comes first",
             [&](ProgramJOB &job) {
                 head(22)(job);
                 sample::at<IOCommand>(job, sample::Output).ioPort = 17;
             },
             JobFault::Port, 10, "OT#17"},
            {"a fault behind it comes second",
             [&](ProgramJOB &job) {
                 insert(Command::WhileEnd, 1)(job);
                 sample::at<IOCommand>(job, sample::Output + 1).ioPort = 17;
             },
             JobFault::LoopEnd, 1, ""},
        });
    }

    void conditions()
    {
        const auto comparison = [](int index) {
            return [=](ProgramJOB &job) { conditionOf(job, sample::Outer).comparison = index; };
        };
        const auto none = [](int line) {
            return [=](ProgramJOB &job) {
                if (auto *loop = dynamic_cast<WHILECommand *>(job.command(line)))
                    loop->condition.reset();
                else
                    sample::at<WaitCommand>(job, line).condition.reset();
            };
        };
        run({
            {"a loop without", none(sample::Outer), JobFault::Condition, 2, ""},
            {"a wait without", none(sample::Wait), JobFault::Condition, 8, ""},
            {"an end with one",
             [](ProgramJOB &job) {
                 sample::at<WHILECommand>(job, sample::InnerEnd).condition = sample::input(1, 1);
             },
             JobFault::Condition, 13, ""},
            {"the first comparison", comparison(0), JobFault::None, 0, ""},
            {"the last comparison", comparison(6), JobFault::None, 0, ""},
            {"no comparison below", comparison(-1), JobFault::Condition, 2, ""},
            {"no comparison above", comparison(7), JobFault::Condition, 2, ""},
            {"an unknown kind", operand(2, "I001"), JobFault::Condition, 2, ""},
            {"kind 0", operand(0, "I001"), JobFault::Condition, 2, ""},
            {"an integer", operand(1, "I001", "-25"), JobFault::None, 0, ""},
            {"a global integer", operand(1, "GI990", "99999"), JobFault::None, 0, ""},
            {"the default", operand(1, "I000"), JobFault::None, 0, ""},
            {"a boolean of the wrong kind", operand(3, "GB001"), JobFault::Variable, 2, "GB001"},
            {"a global boolean", operand(6, "GB990", "1"), JobFault::None, 0, ""},
            {"a global boolean of the wrong kind", operand(6, "B001"), JobFault::Variable, 2,
             "B001"},
            {"an integer for a boolean", operand(3, "I001"), JobFault::Variable, 2, "I001"},
            {"the default for a boolean", operand(3, "I000"), JobFault::Variable, 2, "I000"},
            {"no variable", operand(3, ""), JobFault::Variable, 2, ""},
            {"none", operand(3, "[-]"), JobFault::Variable, 2, "[-]"},
            {"a boolean that is 2", operand(3, "B001", "2"), JobFault::Condition, 2, ""},
            {"a fraction", operand(1, "I001", "1.5"), JobFault::Condition, 2, ""},
            {"no number", operand(1, "I001", ""), JobFault::Condition, 2, ""},
            {"a blank before it", operand(1, "I001", " 1"), JobFault::Condition, 2, ""},
            {"a number too large", operand(1, "I001", "2147483648"), JobFault::Condition, 2, ""},
        });
    }

    void ports()
    {
        const auto input = [](int line, int port) {
            return [=](ProgramJOB &job) {
                conditionOf(job, line).operandPort = port;
                conditionOf(job, line).operandName = QStringLiteral("DIN%1").arg(port);
            };
        };
        run({
            {"the last input", input(sample::Inner, 16), JobFault::None, 0, ""},
            {"an input too many", input(sample::Inner, 17), JobFault::Port, 6, "DIN17"},
            {"no input", input(sample::Wait, 0), JobFault::Port, 8, "DIN0"},
            {"a negative input", input(sample::Wait, -1), JobFault::Port, 8, "DIN-1"},
            {"name and number of an input differ",
             [](ProgramJOB &job) { conditionOf(job, sample::Wait).operandPort = 6; },
             JobFault::Condition, 8, ""},
            {"an input that is 2",
             [](ProgramJOB &job) { conditionOf(job, sample::Wait).rightValue = text("2"); },
             JobFault::Condition, 8, ""},
            {"the last output", field(sample::Output, &IOCommand::ioPort, 16), JobFault::None, 0,
             ""},
            {"an output too many", field(sample::Output, &IOCommand::ioPort, 17), JobFault::Port,
             10, "OT#17"},
            {"no output", field(sample::Output, &IOCommand::ioPort, 0), JobFault::Port, 10, "OT#0"},
            {"another kind of output", field(sample::Output, &IOCommand::ioName, text("AO")),
             JobFault::Port, 10, "AO2"},
            {"a strange kind of output", field(sample::Output, &IOCommand::ioName, text("%1%2")),
             JobFault::Port, 10, "%1%22"},
            {"half on", field(sample::Output, &IOCommand::ioValue, 0.5), JobFault::Value, 10,
             "ioValue"},
        });
        const auto job = sample::job();
        Ports many;
        many.digitalOut = 32;
        sample::at<IOCommand>(*job, sample::Output).ioPort = 32;
        QVERIFY(check(*job, many).program);
        many.digitalIn = 4;
        QCOMPARE(check(*job, many).fault.detail, QStringLiteral("DIN5"));
    }

    void movesAndTimers()
    {
        run({
            {"a move to no position", field<MoveCommand>(sample::Move, &MoveCommand::positionId, 0),
             JobFault::Position, 5, "-"},
            {"a negative pause", field<TimerCommand>(sample::Timer, &TimerCommand::duration, -0.5),
             JobFault::Value, 11, "duration"},
            {"no pause", field<TimerCommand>(sample::Timer, &TimerCommand::duration, 0.0),
             JobFault::None, 0, ""},
            {"a wait with a negative pause",
             [](ProgramJOB &job) { sample::at<WaitCommand>(job, sample::Wait).duration = -1.0; },
             JobFault::Value, 8, "duration"},
        });
    }

    void palletising()
    {
        run({
            {"craft 9", field<PALCommand>(sample::Head, &PALCommand::craftNumber, 9),
             JobFault::None, 0, ""},
            {"craft 10", field<PALCommand>(sample::Head, &PALCommand::craftNumber, 10),
             JobFault::Value, 1, "craftNumber"},
            {"craft 0", field<PALCommand>(sample::Head, &PALCommand::craftNumber, 0),
             JobFault::Value, 1, "craftNumber"},
            {"function 2", field<PALCommand>(sample::Start, &PALCommand::palFunction, 2),
             JobFault::Value, 3, "palFunction"},
            {"total of no variable", field(sample::Start, &PALCommand::totalName, text("GI991")),
             JobFault::Variable, 3, "GI991"},
            {"layer of the first that there is",
             field(sample::Start, &PALCommand::layerName, text("I001")), JobFault::None, 0, ""},
            {"layer of the default", field(sample::Start, &PALCommand::layerName, text("I000")),
             JobFault::Variable, 3, "I000"},
            {"stack of a boolean", field(sample::Start, &PALCommand::stackName, text("B001")),
             JobFault::Variable, 3, "B001"},
            {"end of an integer", field(sample::Off, &PALCommand::palOffName, text("I001")),
             JobFault::Variable, 20, "I001"},
            {"end of a global boolean", field(sample::Off, &PALCommand::palOffName, text("GB001")),
             JobFault::None, 0, ""},
            {"end of none", field(sample::Off, &PALCommand::palOffName, text("[-]")),
             JobFault::None, 0, ""},
            {"a move of no kind", field(sample::Entry, &PALCommand::moveName, text("MovC")),
             JobFault::Value, 14, "moveName"},
        });
    }

    void assignments()
    {
        const auto start = [](const char *name, const char *value) {
            return [=](ProgramJOB &job) { job.setVariable(text(name), text(value)); };
        };
        run({
            {"an integer", assignment(Command::SetInteger, "I100", "-7"), JobFault::None, 0, ""},
            {"the default", assignment(Command::SetInteger, "I000", "0"), JobFault::None, 0, ""},
            {"out of range", assignment(Command::SetInteger, "I101", "0"), JobFault::Variable, 2,
             "I101"},
            {"a boolean", assignment(Command::SetBoolean, "B100", "1"), JobFault::None, 0, ""},
            {"a boolean out of range", assignment(Command::SetBoolean, "B101", "1"),
             JobFault::Variable, 2, "B101"},
            {"a boolean that is an integer", assignment(Command::SetBoolean, "I001", "1"),
             JobFault::Variable, 2, "I001"},
            {"a boolean that is 2", assignment(Command::SetBoolean, "GB001", "2"), JobFault::Value,
             2, "varValue"},
            {"text", assignment(Command::SetInteger, "GI001", "x"), JobFault::Value, 2, "varValue"},
            {"start value", start("GB990", "1"), JobFault::None, 0, ""},
            {"start value of the default", start("I000", "0"), JobFault::None, 0, ""},
            {"start value out of range", start("GB991", "1"), JobFault::Variable, 0, "GB991"},
            {"start value that is none", start("B001", "5"), JobFault::Value, 0, "varValue"},
        });
    }

    void variableNames()
    {
        const auto isInteger = [](const char *name) {
            return isVariable(QString::fromUtf8(name), VariableKind::Integer);
        };
        for (const char *name : {"I001", "I100", "GI001", "GI990"})
            QVERIFY2(isInteger(name), name);
        for (const char *name : {"", "I", "I1", "I0001", "I000", "I101", "GI000", "GI991", "GI9990",
                                 "i001", "I 01", "I-01", "I+01", "I0x1", "I٠٠١", "B001", "G001"})
            QVERIFY2(!isInteger(name), name);
        QVERIFY(isVariable(QStringLiteral("B100"), VariableKind::LocalBoolean));
        QVERIFY(!isVariable(QStringLiteral("B100"), VariableKind::GlobalBoolean));
        QVERIFY(isVariable(QStringLiteral("B100"), VariableKind::Boolean));
        QVERIFY(isVariable(QStringLiteral("GB101"), VariableKind::Boolean));
        QVERIFY(!isVariable(QStringLiteral("I001"), VariableKind::Boolean));
    }

    /// The fault of a text that does not read is the reader's, with the line of the text.
    void unreadableTexts()
    {
        const QByteArray whole = jobfile::write(*sample::job());
        const auto fault = [](const QByteArray &bytes) {
            return JobProgram::check(bytes, QStringLiteral("X")).fault;
        };
        QCOMPARE(fault({}).word(), "NotAJob");
        QCOMPARE(fault("hello\n").word(), "NotAJob");
        QByteArray strange = whole;
        strange.replace("TIMER", "SLEEP");
        QCOMPARE(fault(strange).word(), "UnknownCommand");
        QCOMPARE(fault(strange).detail, QStringLiteral("SLEEP"));
        QCOMPARE(fault(strange).line, 1 + 3 + 1 + sample::Timer); // head, positions, BEGIN
        QByteArray lost = whole;
        lost.remove(lost.indexOf("POSITION P2"),
                    lost.indexOf("POSITION P3") - lost.indexOf("POSITION P2"));
        QCOMPARE(fault(lost).word(), "Position");
        QCOMPARE(fault(lost).detail, QStringLiteral("P2"));
        QCOMPARE(fault(whole.left(whole.size() / 2)).word(), "CutOff");
    }

    void lengths()
    {
        ProgramJOB job(QStringLiteral("LONG"));
        for (int line = 1; line <= JobProgram::kMaxLines; ++line)
            sample::appendTimer(job);
        QVERIFY(check(job).program);
        sample::appendTimer(job);
        const JobFault fault = check(job).fault;
        QCOMPARE(fault.word(), "TooLong");
        QCOMPARE(fault.line, 10000);
        QCOMPARE(fault.detail, QStringLiteral("9999"));
    }

    /// As deep as a job can be.
    void deepLoops()
    {
        ProgramJOB job(QStringLiteral("DEEP"));
        const int depth = JobProgram::kMaxLines / 2;
        for (int i = 0; i < depth; ++i)
            sample::append<WHILECommand>(job, Command::WhileBegin).condition = sample::input(1, 1);
        for (int i = 0; i < depth; ++i)
            sample::append<WHILECommand>(job, Command::WhileEnd);
        const auto program = check(job).program;
        QVERIFY(program);
        QCOMPARE(program->partner(1), 2 * depth);
        QCOMPARE(program->partner(depth), depth + 1);
    }
};

QTEST_GUILESS_MAIN(TestJobProgram)
#include "test_jobprogram.moc"
