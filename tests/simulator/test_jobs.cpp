// Jobs over the link: the controller takes a job or says what is wrong with it, keeps what it took
// over a restart, and misbehaves as it is told to.

#include "../job/samplejob.h"
#include "jobfault.h"
#include "link.h"
#include "simulator/jobs.h"
#include "wire/ids.h"
#include "wire/json.h"

Q_DECLARE_METATYPE(JobFault)

class TestJobs : public QObject {
    Q_OBJECT

    std::unique_ptr<Desk> desk;
    Robot *robot = Robot::getInstance();

    struct Word {
        int robot = 0;
        QString name;
        JobFault fault;
    };
    /// What the controller says of the next job that it answers.
    static Word wordOf(const QSignalSpy &checked)
    {
        if (checked.isEmpty())
            return {};
        const QList<QVariant> &word = checked.last();
        return {word.at(0).toInt(), word.at(1).toString(), word.at(2).value<JobFault>()};
    }
    Word send(int number, const QString &name, const QByteArray &text)
    {
        QSignalSpy checked(robot, &Robot::jobChecked);
        if (!robot->sendJob(number, name, text).isEmpty())
            return {};
        const bool came = QTest::qWaitFor([&] { return !checked.isEmpty(); });
        return came ? wordOf(checked) : Word();
    }
    void sendRaw(const QByteArray &body) { robot->sendCommandData(wire::StoreJob, body); }
    static Json::Value goodBody()
    {
        Json::Value body;
        body["robot"] = 1;
        body["name"] = "A";
        body["text"] = sampleText().toStdString();
        return body;
    }
    /// Another controller with the same store.
    void restart(const JobShelf::Limits &limits)
    {
        robot->disconnectFromController();
        desk->controller->stop();
        SimulatedController::Options options;
        options.directory = desk->directory.path();
        options.statusInterval = 20;
        options.jobs = limits;
        QString error;
        QVERIFY2(desk->controller->start(options, &error), qPrintable(error));
        QVERIFY(connectTo(*desk));
    }
    static QByteArray sampleText() { return jobfile::write(*sample::job()); }

private slots:
    void init()
    {
        qRegisterMetaType<JobFault>("JobFault");
        desk = std::make_unique<Desk>();
        QVERIFY(connectTo(*desk));
    }
    void cleanup()
    {
        robot->disconnectFromController();
        desk.reset();
    }

    void aJobIsTakenAndReadyToBeStepped()
    {
        QVERIFY(!desk->controller->job(2, QStringLiteral("STACK1")));
        const Word word = send(2, QStringLiteral("STACK1"), sampleText());
        QCOMPARE(word.robot, 2);
        QCOMPARE(word.name, QStringLiteral("STACK1"));
        QCOMPARE(word.fault.word(), "None");
        const JobProgram *job = desk->controller->job(2, QStringLiteral("STACK1"));
        QVERIFY(job);
        QCOMPARE(job->lineCount(), 21);
        QCOMPARE(job->partner(2), 21);
        QVERIFY(!desk->controller->job(1, QStringLiteral("STACK1")));
        QCOMPARE(desk->controller->received(wire::StoreJob), 1);
        QCOMPARE(desk->controller->refused(), 0);
    }

    void aJobIsRefusedWithLineAndReason()
    {
        const auto job = sample::job();
        sample::at<IOCommand>(*job, sample::Output).ioPort = 17;
        const Word word = send(1, QStringLiteral("码垛"), jobfile::write(*job));
        QCOMPARE(word.name, QStringLiteral("码垛"));
        QCOMPARE(word.fault.word(), "Port");
        QCOMPARE(word.fault.line, 10);
        QCOMPARE(word.fault.detail, QStringLiteral("OT#17"));
        QVERIFY(!desk->controller->job(1, QStringLiteral("码垛")));
        QCOMPARE(desk->controller->refused(), 0); // the message itself was in order
    }

    void aTextThatDoesNotReadIsRefusedWithItsOwnLine()
    {
        QByteArray text = sampleText();
        text.replace("ENDWHILE", "ENDLOOP");
        const Word word = send(1, QStringLiteral("A"), text);
        QCOMPARE(word.fault.word(), "UnknownCommand");
        QCOMPARE(word.fault.detail, QStringLiteral("ENDLOOP"));
        QCOMPARE(word.fault.line, 1 + 3 + 1 + sample::InnerEnd);
        QCOMPARE(send(1, QStringLiteral("A"), {}).fault.word(), "NotAJob");
    }

    /// Up to the last port that the greeting names, and no further.
    void portsAreThoseOfTheGreeting()
    {
        QSignalSpy ports(robot, &Robot::portsReported);
        robot->disconnectFromController();
        QVERIFY(connectTo(*desk));
        QCOMPARE(static_cast<int>(ports.count()), 1);
        const int outputs = static_cast<int>(ports.first().at(0).toStringList().size());
        const int inputs = static_cast<int>(ports.first().at(1).toStringList().size());
        const auto job = sample::job();
        for (const int beyond : {0, 1}) {
            sample::at<IOCommand>(*job, sample::Output).ioPort = outputs + beyond;
            QCOMPARE(send(1, QStringLiteral("A"), jobfile::write(*job)).fault.kind,
                     beyond ? JobFault::Port : JobFault::None);
        }
        sample::at<IOCommand>(*job, sample::Output).ioPort = 1;
        for (const int beyond : {0, 1}) {
            sample::at<WaitCommand>(*job, sample::Wait).condition =
                sample::input(inputs + beyond, 1);
            QCOMPARE(send(1, QStringLiteral("A"), jobfile::write(*job)).fault.kind,
                     beyond ? JobFault::Port : JobFault::None);
        }
    }

    void anotherVersionTakesThePlaceAndARefusedOneDoesNot()
    {
        const QString name = QStringLiteral("A");
        send(1, name, sampleText());
        ProgramJOB shorter(name);
        sample::appendTimer(shorter);
        QVERIFY(!send(1, name, jobfile::write(shorter)).fault);
        QCOMPARE(desk->controller->job(1, name)->lineCount(), 1);
        QVERIFY(send(1, name, "nonsense").fault);
        QCOMPARE(desk->controller->job(1, name)->lineCount(), 1);
    }

    void whatWasTakenOutlastsARestart()
    {
        send(1, QStringLiteral("A"), sampleText());
        send(4, QStringLiteral("码垛 2"), sampleText());
        const auto job = sample::job();
        sample::at<IOCommand>(*job, sample::Output).ioPort = 17;
        send(1, QStringLiteral("B"), jobfile::write(*job));
        robot->disconnectFromController();
        QVERIFY(desk->restart());
        const JobProgram *kept = desk->controller->job(1, QStringLiteral("A"));
        QVERIFY(kept);
        QCOMPARE(jobfile::write(kept->job()), sampleText());
        QVERIFY(desk->controller->job(4, QStringLiteral("码垛 2")));
        QVERIFY(!desk->controller->job(1, QStringLiteral("B")));
        QVERIFY(!desk->controller->job(4, QStringLiteral("A")));
    }

    void badBodiesAreRefusedAndCounted()
    {
        QByteArrayList bodies = {"", "{}", "[]", "{\"robot\":1"};
        const auto add = [&](const char *key, const Json::Value &value) {
            Json::Value body = goodBody();
            body[key] = value;
            bodies += wire::writeLine(body);
            if (value.isNull()) {
                body.removeMember(key);
                bodies += wire::writeLine(body);
            }
        };
        for (const Json::Value &number :
             {Json::Value(0), Json::Value(5), Json::Value(1.5), Json::Value("1"), Json::Value()})
            add("robot", number);
        const std::string longName(JobShelf::kMaxNameBytes + 1, 'A');
        for (const Json::Value &name :
             {Json::Value(""), Json::Value(7), Json::Value(longName), Json::Value()})
            add("name", name);
        for (const Json::Value &text :
             {Json::Value(Json::objectValue), Json::Value(1), Json::Value()})
            add("text", text);
        QSignalSpy refused(desk->controller.get(), &SimulatedController::messageRefused);
        QSignalSpy checked(robot, &Robot::jobChecked);
        for (const QByteArray &body : bodies)
            sendRaw(body);
        QTRY_COMPARE(static_cast<int>(refused.count()), static_cast<int>(bodies.size()));
        QCOMPARE(desk->controller->refused(), static_cast<int>(bodies.size()));
        for (const QList<QVariant> &each : refused) {
            QCOMPARE(each.at(0).toInt(), int(wire::StoreJob));
            QVERIFY(!each.at(1).toString().isEmpty());
        }
        QVERIFY(!send(1, QString(JobShelf::kMaxNameBytes, QLatin1Char('A')), sampleText()).fault);
        QCOMPARE(static_cast<int>(checked.count()), 1);
    }

    /// The pendant's rule for names holds for whoever sends a job.
    void namesThatNoJobMayHave()
    {
        for (const char *name : {"../A", "a/b", " A", "A.", ".A", "a\u200bb", "e\u0301"}) {
            const Word word = send(1, QString::fromUtf8(name), sampleText());
            QCOMPARE(word.name, QString::fromUtf8(name));
            QCOMPARE(word.fault.word(), "Name");
            QVERIFY(!desk->controller->job(1, QString::fromUtf8(name)));
        }
        QCOMPARE(desk->controller->refused(), 0);
        QVERIFY(!send(1, QStringLiteral("码垛 2"), sampleText()).fault);
    }

    /// As many jobs a robot as the limit says; one that replaces another is none more.
    void asManyJobsAsThereIsRoomFor()
    {
        restart({3, 64 << 20});
        for (const char *name : {"A", "B", "C"})
            QVERIFY(!send(1, QString::fromLatin1(name), sampleText()).fault);
        const Word word = send(1, QStringLiteral("D"), sampleText());
        QCOMPARE(word.fault.word(), "TooMany");
        QCOMPARE(word.fault.detail, QStringLiteral("3"));
        QVERIFY(!desk->controller->job(1, QStringLiteral("D")));
        QVERIFY(!send(1, QStringLiteral("B"), sampleText()).fault);
        QVERIFY(!send(2, QStringLiteral("D"), sampleText()).fault); // another robot's
        restart({3, 64 << 20}); // counted from the store
        QCOMPARE(send(1, QStringLiteral("D"), sampleText()).fault.kind, JobFault::TooMany);
    }

    /// Replacing a job counts the difference.
    void asManyBytesAsThereIsRoomFor()
    {
        ProgramJOB shorter(QStringLiteral("A"));
        sample::appendTimer(shorter);
        const QByteArray small = jobfile::write(shorter);
        const auto sizeOf = [](const QByteArray &text) {
            Json::Value row;
            row["text"] = text.toStdString();
            return ParameterStore::sizeOf(row);
        };
        const qint64 most = 2 * sizeOf(sampleText()) + sizeOf(small) - 1;
        restart({1000, most});
        QVERIFY(!send(1, QStringLiteral("A"), sampleText()).fault);
        QVERIFY(!send(1, QStringLiteral("B"), sampleText()).fault);
        QCOMPARE(send(1, QStringLiteral("C"), sampleText()).fault.kind, JobFault::NoRoom);
        QVERIFY(!send(1, QStringLiteral("B"), sampleText()).fault); // as large as it was
        QVERIFY(!send(1, QStringLiteral("A"), small).fault);
        QVERIFY(!send(1, QStringLiteral("C"), small).fault);
        QCOMPARE(send(1, QStringLiteral("A"), sampleText()).fault.kind, JobFault::NoRoom);
        QCOMPARE(desk->controller->job(1, QStringLiteral("A"))->lineCount(), 1);
        restart({1000, most});
        QCOMPARE(send(1, QStringLiteral("A"), sampleText()).fault.kind, JobFault::NoRoom);
        QCOMPARE(JobShelf::Limits().jobs, 1000);
        QCOMPARE(JobShelf::Limits().bytes, qint64(64 * 1024 * 1024));
    }

    /// A job counts once it is on the disk, not before.
    void aJobThatTheDiskDoesNotTake()
    {
        JobShelf shelf;
        ParameterStore store;
        const QTemporaryDir directory;
        QVERIFY(store.open(directory.path()));
        const QString name = QStringLiteral("A");
        const auto keep = [&](bool isStored) {
            ParameterStore::Transaction transaction(store);
            QVERIFY(shelf.keep(store, 1, name, QString::fromUtf8(sampleText()),
                               JobProgram::check(sampleText(), name).program));
            if (isStored)
                QVERIFY(transaction.commit());
            shelf.settle(isStored);
        };
        keep(false);
        QVERIFY(!shelf.find(store, 1, name));
        keep(true);
        QVERIFY(shelf.find(store, 1, name));
    }

    /// A store that does not take it: nothing is said to be taken.
    void aStoreThatFails()
    {
        JobShelf shelf;
        ParameterStore closed;
        QVERIFY(!shelf.keep(closed, 1, QStringLiteral("A"), QString::fromUtf8(sampleText()),
                            JobProgram::check(sampleText(), QStringLiteral("A")).program));
        QVERIFY(!shelf.find(closed, 1, QStringLiteral("A")));
    }

    void faults()
    {
        QSignalSpy checked(robot, &Robot::jobChecked);
        desk->controller->setFault(wire::StoreJob, Fault::NoReply);
        QVERIFY(robot->sendJob(1, QStringLiteral("A"), sampleText()).isEmpty());
        QTRY_VERIFY(desk->controller->job(1, QStringLiteral("A")));
        desk->controller->setFault(wire::StoreJob, Fault::OtherRobot);
        QCOMPARE(send(1, QStringLiteral("B"), sampleText()).robot, 2);
        QCOMPARE(static_cast<int>(checked.count()), 1);
        desk->controller->setFault(wire::StoreJob, Fault::Late, 1);
        QCOMPARE(send(1, QStringLiteral("B"), sampleText()).robot, 1);

        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        desk->controller->setFault(wire::StoreJob, Fault::Malformed);
        QVERIFY(robot->sendJob(1, QStringLiteral("C"), sampleText()).isEmpty());
        QTRY_COMPARE(kindEntries(recorded, "reading"), 1);
        QCOMPARE(static_cast<int>(checked.count()), 2);
    }

    void withoutAConnectionNothingIsSent()
    {
        robot->disconnectFromController();
        QVERIFY(!robot->sendJob(1, QStringLiteral("A"), sampleText()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestJobs)
#include "test_jobs.moc"
