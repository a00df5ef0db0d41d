// The text of a stored job: what is written, that it reads back, and that damage is told by line.

#include "commandfields.h"
#include "jobfile.h"

#include <QtTest>
#include <random>

namespace {

constexpr int kTypes[] = {1, 2, 7, 8, 13, 14, 16, 35, 37, 68, 69, 71, 72, 73, 74, 75};

/// Gives each field a value of its own, none of them the one of a new command.
struct Filler {
    int &next;

    void operator()(const char *, int &value) { value = ++next; }
    void operator()(const char *, unsigned char &value)
    {
        value = static_cast<unsigned char>(++next % 256);
    }
    void operator()(const char *, double &value) { value = ++next / 7.0; }
    void operator()(const char *, QString &value)
    {
        value = QStringLiteral("\"取料\\%1\n").arg(++next);
    }
    void operator()(const char *, std::unique_ptr<CommandCondition> &condition)
    {
        condition = std::make_unique<CommandCondition>();
        CommandCondition::visit(*condition, *this);
    }
};

/// One command of each type with all fields changed; the moves use P1.
ProgramJOB fullJob()
{
    ProgramJOB job(QStringLiteral("full"));
    RobotPos position;
    position.id = RobotPos::wordOf('P', 1);
    for (std::size_t i = 0; i < position.values.size(); ++i)
        position.values[i] = (static_cast<double>(i) - 5) / 3.0;
    job.addPosition(position);
    position.id = RobotPos::wordOf('E', 65535);
    position.kind = 'E';
    position.values[0] = 5e-324;
    position.values[1] = -1.7976931348623157e308;
    position.values[2] = -0.0;
    job.addPosition(position);
    job.setVariable(QStringLiteral("I001"), QStringLiteral("0"));
    job.setVariable(QStringLiteral("B 002"), QStringLiteral("\t\x7f\"\\"));
    int next = 100;
    for (const int type : kTypes) {
        std::unique_ptr<Command> command = commandOf(type);
        visitFields(*command, Filler{next});
        if (auto *move = dynamic_cast<MoveCommand *>(command.get())) {
            move->positionId = RobotPos::wordOf('P', 1);
            move->position = job.getPosition('P', 1);
        }
        job.insertCommand(job.lineCount() + 1, std::move(command));
    }
    return job;
}

jobfile::Reading read(const QByteArray &text)
{
    return jobfile::read(text, QStringLiteral("full"));
}

QByteArray lineOfNew(int type)
{
    ProgramJOB job(QStringLiteral("new"));
    job.insertCommand(1, commandOf(type));
    return jobfile::write(job).split('\n').at(2);
}

} // namespace

class TestJobFile : public QObject {
    Q_OBJECT
private slots:
    /// The fields of a new command, in the interpreter's order.
    void newCommands_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("line");
        const QByteArray move =
            " moveParamA=0 moveKind=0 moveParamB=0 moveParamC=0 moveParamD=0 moveParamE=0"
            " moveParamF=0 moveParamG=0 moveParamH=0 moveParamI=0 reserved1=0 reserved2=0"
            " positionId=0 reservedText=\"\" frameName=\"UF\" reserved3=0 reserved4=0 reserved5=1"
            " reserved6=0";
        const QByteArray pal =
            " craftNumber=1 palFunction=0 reserved1=0 reserved2=0 stepFlag=0 xyPathOptimization=0"
            " zPathOptimization=0 moveName=\"MovC\" moveParamA=0 reserved3=0 moveParamB=0"
            " moveParamC=0 moveKind=0 palOffName=\"[-]\" totalName=\"[-]\" layerName=\"[-]\""
            " stackName=\"[-]\"";
        const QByteArray assignment =
            " varName=\"I000\" reserved1=0 reserved2=0 reserved3=0 reserved4=0 varValue=\"0\"";
        const QByteArray timer = " duration=0 durationText=\"0\" reserved1=0";
        QTest::newRow("MovJ") << 1 << "MovJ" + move;
        QTest::newRow("MovL") << 2 << "MovL" + move;
        QTest::newRow("TIMER") << 7 << "TIMER" + timer;
        QTest::newRow("WAIT") << 8 << "WAIT" + timer + " reserved2=0 reserved3=0 condition=none";
        QTest::newRow("WHILE") << 13 << QByteArray("WHILE condition=none");
        QTest::newRow("ENDWHILE") << 14 << QByteArray("ENDWHILE condition=none");
        QTest::newRow("DOUT") << 16
                              << QByteArray("DOUT reserved1=-1 reserved2=-1 ioName=\"\" ioPort=-1"
                                            " ioValue=-1 reserved3=0 reserved4=0 reservedText=\"\""
                                            " reserved5=0 reserved6=0 reserved7=0");
        QTest::newRow("SETINT") << 35 << "SETINT" + assignment;
        QTest::newRow("SETBOOL") << 37 << "SETBOOL" + assignment;
        QTest::newRow("PALSTART") << 68 << "PALSTART" + pal;
        QTest::newRow("PalStep") << 69 << "PalStep" + pal;
        QTest::newRow("PalToEntry") << 71 << "PalToEntry" + pal;
        QTest::newRow("PalToAuxiliary") << 72 << "PalToAuxiliary" + pal;
        QTest::newRow("PalToWorkpiece") << 73 << "PalToWorkpiece" + pal;
        QTest::newRow("PalHead") << 74 << "PalHead" + pal;
        QTest::newRow("PalOff") << 75 << "PalOff" + pal;
    }

    void newCommands()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, line);
        QCOMPARE(lineOfNew(type), line);
        QCOMPARE(commandOf(type)->type, type);
        QCOMPARE(commandOf(std::string_view(wordOf(type)))->type, type);
    }

    void newCondition()
    {
        ProgramJOB job(QStringLiteral("new"));
        auto loop = std::make_unique<WHILECommand>(Command::WhileBegin);
        loop->condition = std::make_unique<CommandCondition>();
        const QStringList comparisons(loop->condition->comparisons.begin(),
                                      loop->condition->comparisons.end());
        QCOMPARE(comparisons.join(QLatin1Char(' ')), QStringLiteral("<> == < > <= >= !="));
        job.insertCommand(1, std::move(loop));
        QCOMPARE(jobfile::write(job),
                 QByteArray("JBR 1\nBEGIN\nWHILE condition={ operandKind=1 operandName=\"I000\""
                            " operandPort=0 reserved1=0 comparison=1 reserved2=0 rightValue=\"0\""
                            " }\nEND\n"));
    }

    void unknownCommands()
    {
        for (const int type : {-1, 0, 3, 15, 70, 76})
            QVERIFY(!wordOf(type) && !commandOf(type));
        for (const char *word : {"", "MOVJ", "MovJ ", "Pal"})
            QVERIFY(!commandOf(std::string_view(word)));
    }

    void everyFieldComesBack()
    {
        const QByteArray text = jobfile::write(fullJob());
        const jobfile::Reading reading = read(text);
        QVERIFY2(reading.job, qPrintable(reading.fault.reason()));
        QVERIFY(!reading.fault);
        QCOMPARE(jobfile::write(*reading.job), text);
        QCOMPARE(reading.job->lineCount(), static_cast<int>(std::size(kTypes)));
        QCOMPARE(reading.job->name(), QStringLiteral("full"));
        const auto *move = dynamic_cast<MoveCommand *>(reading.job->command(1));
        QVERIFY(move);
        QCOMPARE(move->position, static_cast<const RobotPos *>(reading.job->getPosition('P', 1)));
        QCOMPARE(reading.job->variables().at(QStringLiteral("B 002")),
                 QStringLiteral("\t\x7f\"\\"));
        const auto *wait = dynamic_cast<WaitCommand *>(reading.job->command(4));
        QVERIFY(wait && wait->condition);
        QVERIFY(wait->condition->rightValue.startsWith(QStringLiteral("\"取料\\")));
    }

    void otherFormsOfNumbers()
    {
        QByteArray text = jobfile::write(fullJob());
        const QByteArray line = text.split('\n').at(1);
        QVERIFY(line.startsWith("POSITION E65535 kind=69 5e-324 -1.7976931348623157e+308 -0 "));
        text.replace("5e-324", "0.0");
        const jobfile::Reading reading = read(text);
        QVERIFY(reading.job);
        QVERIFY(jobfile::write(*reading.job).contains("kind=69 0 -1.79"));
    }

    void damage_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("detail");
        const auto row = [](const char *name, const QByteArray &text, int line, const char *fault,
                            const QString &detail = QString()) {
            QTest::newRow(name) << text << line << QString::fromLatin1(fault) << detail;
        };
        const QByteArray head = "JBR 1\nBEGIN\n";
        const QByteArray timer = "TIMER duration=1 durationText=\"0\" reserved1=0";
        const QByteArray zeros = " 0 0 0 0 0 0 0 0 0 0 0 0 0 0";
        row("empty", "", 1, "NotAJob");
        row("other file", "PK\x03\x04 and so on\n", 1, "NotAJob");
        row("byte order mark", "\xef\xbb\xbfJBR 1\nBEGIN\nEND\n", 1, "NotAJob");
        row("no mark, no end", "hello", 1, "NotAJob");
        row("newer", "JBR 2\nBEGIN\nEND\n", 1, "Version", QStringLiteral("2"));
        row("no version", "JBR \nBEGIN\nEND\n", 1, "Version");
        row("carriage return", "JBR 1\r\nBEGIN\r\nEND\r\n", 1, "Version", QStringLiteral("1\r"));
        row("head alone", "JBR 1\n", 1, "CutOff");
        row("no end", head, 2, "CutOff");
        row("cut within a line", head + "TIMER dur", 3, "CutOff");
        row("end without its line end", head + "END", 3, "CutOff");
        row("no begin", "JBR 1\nEND\n", 2, "Field", QStringLiteral("BEGIN"));
        row("behind the end", head + "END\nPalHead\n", 4, "Surplus", QStringLiteral("PalHead"));
        row("empty line behind the end", head + "END\n\n", 4, "Surplus");
        row("unknown command", head + timer + "\nJUMP to=3\nEND\n", 4, "UnknownCommand",
            QStringLiteral("JUMP"));
        row("empty line", head + "\nEND\n", 3, "UnknownCommand");
        row("lower case", head + "timer\nEND\n", 3, "UnknownCommand", QStringLiteral("timer"));
        row("indented", head + "  " + timer + "\nEND\n", 3, "UnknownCommand");
        row("no fields", head + "TIMER\nEND\n", 3, "Field", QStringLiteral("duration"));
        row("field twice", head + "TIMER duration=1 duration=1\nEND\n", 3, "Field",
            QStringLiteral("durationText"));
        row("no value", head + "TIMER duration=\nEND\n", 3, "Value", QStringLiteral("duration"));
        row("a word", head + "TIMER duration=one\nEND\n", 3, "Value", QStringLiteral("duration"));
        row("infinite", head + "TIMER duration=inf\nEND\n", 3, "Value", QStringLiteral("duration"));
        row("too large", head + "TIMER duration=1e999\nEND\n", 3, "Value",
            QStringLiteral("duration"));
        row("text without quotes", head + "TIMER duration=1 durationText=0\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("open quote", head + "TIMER duration=1 durationText=\"0\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("odd escape", head + "TIMER duration=1 durationText=\"\\n\"\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("cut escape", head + "TIMER duration=1 durationText=\"\\x1\"\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("no UTF-8", head + "TIMER duration=1 durationText=\"\xff\xfe\"\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("cut UTF-8", head + "TIMER duration=1 durationText=\"\xe5\x8f\"\nEND\n", 3, "Value",
            QStringLiteral("durationText"));
        row("int out of range",
            head + "TIMER duration=1 durationText=\"0\" reserved1=2147483648\nEND\n", 3, "Value",
            QStringLiteral("reserved1"));
        row("fraction for int", head + "TIMER duration=1 durationText=\"0\" reserved1=1.5\nEND\n",
            3, "Surplus", QStringLiteral(".5"));
        row("more than its fields", head + timer + " more=1\nEND\n", 3, "Surplus",
            QStringLiteral("more=1"));
        row("byte out of range",
            head
                + "WAIT duration=1 durationText=\"0\" reserved1=0 reserved2=0 reserved3=256\nEND\n",
            3, "Value", QStringLiteral("reserved3"));
        row("no condition", head + "WHILE condition=\nEND\n", 3, "Value",
            QStringLiteral("condition"));
        row("half a condition", head + "WHILE condition={ operandKind=1 }\nEND\n", 3, "Field",
            QStringLiteral("operandName"));
        row("no such position",
            head + lineOfNew(1).replace("positionId=0", "positionId=5242882") + "\nEND\n", 3,
            "Position", QStringLiteral("P2"));
        row("position without a name", "JBR 1\nPOSITION  kind=80" + zeros + "\n", 2, "Value",
            QStringLiteral("POSITION"));
        row("lower-case letter", "JBR 1\nPOSITION p1 kind=80" + zeros + "\n", 2, "Value",
            QStringLiteral("POSITION"));
        row("number too large", "JBR 1\nPOSITION P65536 kind=80" + zeros + "\n", 2, "Value",
            QStringLiteral("POSITION"));
        row("leading zero", "JBR 1\nPOSITION P01 kind=80" + zeros + "\n", 2, "Value",
            QStringLiteral("POSITION"));
        row("no kind", "JBR 1\nPOSITION P1" + zeros + "\n", 2, "Field", QStringLiteral("kind"));
        row("thirteen values", "JBR 1\nPOSITION P1 kind=80" + zeros.left(26) + "\n", 2, "Value",
            QStringLiteral("P1"));
        row("fifteen values", "JBR 1\nPOSITION P1 kind=80" + zeros + " 0\n", 2, "Surplus",
            QStringLiteral("0"));
        row("position twice",
            "JBR 1\nPOSITION P1 kind=80" + zeros + "\nPOSITION P1 kind=80" + zeros + "\n", 3,
            "Twice", QStringLiteral("P1"));
        row("position out of order",
            "JBR 1\nPOSITION P2 kind=80" + zeros + "\nPOSITION P1 kind=80" + zeros + "\n", 3,
            "Order", QStringLiteral("P1"));
        row("position behind a variable",
            "JBR 1\nVARIABLE \"I001\" \"1\"\nPOSITION P1 kind=80" + zeros + "\n", 3, "Order",
            QStringLiteral("P1"));
        row("variable twice", "JBR 1\nVARIABLE \"I001\" \"1\"\nVARIABLE \"I001\" \"2\"\n", 3,
            "Twice", QStringLiteral("I001"));
        row("variable out of order", "JBR 1\nVARIABLE \"I002\" \"1\"\nVARIABLE \"I001\" \"2\"\n", 3,
            "Order", QStringLiteral("I001"));
        const char *const odd[] = {"raw tab",
                                   "\t",
                                   "raw carriage return",
                                   "\r",
                                   "raw delete",
                                   "\x7f",
                                   "escaped letter",
                                   "\\x41",
                                   "escaped UTF-8",
                                   "\\xe5\\x8f\\x96"};
        for (std::size_t i = 0; i < std::size(odd); i += 2) {
            row(odd[i],
                head + "TIMER duration=1 durationText=\"a" + odd[i + 1] + "b\" reserved1=0\nEND\n",
                3, "Value", QStringLiteral("durationText"));
        }
        row("raw zero",
            head + QByteArray("TIMER duration=1 durationText=\"a\0b\"", 35) + " reserved1=0\nEND\n",
            3, "Value", QStringLiteral("durationText"));
        row("position among the commands", head + "POSITION P1 kind=80" + zeros + "\nEND\n", 3,
            "UnknownCommand", QStringLiteral("POSITION"));
        row("variable without value", "JBR 1\nVARIABLE \"I001\"\n", 2, "Value",
            QStringLiteral("VARIABLE"));
    }

    void damage()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, line);
        QFETCH(QString, fault);
        const jobfile::Reading reading = read(text);
        QVERIFY(!reading.job);
        QCOMPARE(QString::fromLatin1(reading.fault.word()), fault);
        QCOMPARE(reading.fault.line, line);
        QTEST(reading.fault.detail, "detail");
        QVERIFY(!reading.fault.reason().isEmpty() && !reading.fault.reason().contains("%1"));
        QCOMPARE(JobFault::kindOf(fault), reading.fault.kind);
    }

    /// A file that stops anywhere is no job.
    void cutAnywhere()
    {
        const QByteArray text = jobfile::write(fullJob());
        for (int size = 0; size < text.size(); ++size) {
            const jobfile::Reading reading = read(text.left(size));
            QVERIFY2(!reading.job && reading.fault, qPrintable(QString::number(size)));
            QCOMPARE(reading.fault.line,
                     std::max(1,
                              static_cast<int>(text.left(size).count('\n')
                                               + (text.left(size).endsWith('\n') ? 0 : 1))));
        }
    }

    /// Whatever a damaged file reads as is itself a job that comes back the same.
    void mutations()
    {
        const QByteArray text = jobfile::write(fullJob());
        std::mt19937 random(20);
        int read1 = 0;
        for (int round = 0; round < 20000; ++round) {
            QByteArray damaged = text;
            for (int i = 0; i < 1 + round % 3; ++i)
                damaged[static_cast<int>(random() % static_cast<unsigned>(damaged.size()))] =
                    static_cast<char>(random() % 256);
            const jobfile::Reading reading = read(damaged);
            QCOMPARE(bool(reading.job), !reading.fault);
            if (!reading.job)
                continue;
            ++read1;
            const QByteArray written = jobfile::write(*reading.job);
            const jobfile::Reading again = read(written);
            QVERIFY2(again.job, qPrintable(again.fault.reason()));
            QCOMPARE(jobfile::write(*again.job), written);
        }
        QVERIFY(read1 > 0); // some changes only change a value
    }

    void linesOfAJob()
    {
        ProgramJOB job(QStringLiteral("lines"));
        QVERIFY(!job.command(0) && !job.command(1));
        const auto insert = [&job](int line, Command::Type type) {
            job.insertCommand(line, commandOf(type));
        };
        insert(7, Command::PalHead); // past the end: appended
        insert(1, Command::PalOff); // in front of it
        insert(2, Command::PalStep); // between them
        insert(-3, Command::Timer); // the first
        insert(5, Command::DigitalOut); // behind the last
        QVector<int> types;
        for (int line = 1; line <= job.lineCount(); ++line)
            types += job.command(line)->type;
        QCOMPARE(types, (QVector<int>{7, 75, 69, 74, 16}));
        QVERIFY(!job.command(6));
    }

    void positionsOfAJob()
    {
        ProgramJOB job(QStringLiteral("positions"));
        QVERIFY(!job.getPosition('P', 1));
        RobotPos position;
        position.id = RobotPos::wordOf('P', 1);
        position.values[7] = 1;
        const RobotPos *first = job.addPosition(position);
        QVERIFY(first);
        position.values[7] = 2;
        QVERIFY(!job.addPosition(position));
        for (int number = 2; number < 200; ++number) {
            position.id = RobotPos::wordOf('P', number);
            QVERIFY(job.addPosition(position));
        }
        QCOMPARE(static_cast<const RobotPos *>(job.getPosition('P', 1)), first);
        QCOMPARE(first->values[7], 1.0);
        QVERIFY(!job.getPosition('Q', 1));
    }
};

QTEST_APPLESS_MAIN(TestJobFile)
#include "test_jobfile.moc"
