// The `controller` program: its options, its end, and a store that survives being killed.

#include "link.h"
#include "link/messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

constexpr int kLongest = 60000; // milliseconds; reached only when something is wrong

QString program()
{
    return QString::fromLocal8Bit(CONTROLLER_PROGRAM);
}

struct Run {
    explicit Run(const QStringList &arguments)
    {
        process.start(program(), arguments);
        process.waitForFinished();
        out = QString::fromUtf8(process.readAllStandardOutput());
        error = QString::fromUtf8(process.readAllStandardError());
    }
    int code() const { return process.exitCode(); }

    QProcess process;
    QString out;
    QString error;
};

/// A controller that runs until it is told to end.
struct Server {
    /// With `kibibytes`, no file can grow beyond that: a write fails as on a full disk.
    explicit Server(QStringList arguments, int kibibytes = 0)
    {
        arguments << QStringLiteral("--port") << QStringLiteral("0");
        if (kibibytes > 0) {
            // blocks of 512 bytes
            const QString limit =
                QStringLiteral("trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\"").arg(kibibytes * 2);
            process.start(QStringLiteral("/bin/sh"),
                          QStringList{QStringLiteral("-c"), limit, program()} + arguments);
        } else {
            process.start(program(), arguments);
        }
        QByteArray line;
        while (!line.contains('\n') && process.waitForReadyRead(20000))
            line += process.readAllStandardOutput();
        const QRegularExpressionMatch match =
            QRegularExpression(QStringLiteral("^listening on 127\\.0\\.0\\.1:(\\d+)"))
                .match(QString::fromUtf8(line));
        port = match.captured(1).toUShort();
    }
    ~Server()
    {
        process.kill();
        process.waitForFinished();
    }

    QProcess process;
    quint16 port = 0;
};

} // namespace

class TestProgram : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();

    bool connectTo(const Server &server)
    {
        robot->setLinkTimes(quickTimes());
        robot->connectToController(QStringLiteral("127.0.0.1"), server.port);
        return QTest::qWaitFor([this] { return robot->isConnected(); }, kLongest);
    }
    QByteArray get(int craft)
    {
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        robot->sendCommandData(message::GetPolish,
                               "{\"craftID\":" + QByteArray::number(craft) + ",\"robot\":1}");
        const bool came = QTest::qWaitFor([&] { return !reply.isEmpty(); }, kLongest);
        return came ? reply.first().first().toByteArray() : QByteArray();
    }
    void set(int craft, int wear)
    {
        robot->sendCommandData(message::SetPolish,
                               "{\"craftID\":" + QByteArray::number(craft)
                                   + ",\"polish\":{\"toolWear\":" + QByteArray::number(wear)
                                   + "},\"robot\":1}");
    }

    /// A layout of 25 workpieces in three chunks, all at `x` hundredths of a millimetre, as is the
    /// translation beside them.
    void setLayout(int x)
    {
        const QByteArray place = QByteArray::number(x / 100.0, 'f', 2);
        for (const int start : {1, 11, 21}) {
            const int count = qMin(10, 26 - start);
            QByteArrayList items;
            for (int i = 0; i < count; ++i)
                items += "{\"X\":" + place + "}";
            robot->sendCommandData(message::SetPalletPlane,
                                   "{\"robot\":1,\"craftID\":1,\"graphic\":2,\"pallet\":{"
                                   "\"graphicType\":3,\"transLenX\":"
                                       + place + ",\"custom\":{\"sum\":25,\"start\":"
                                       + QByteArray::number(start)
                                       + ",\"count\":" + QByteArray::number(count)
                                       + ",\"eachVec\":[" + items.join(',') + "]}}}");
        }
    }
    /// What is stored of it.
    struct Layout {
        int x = -1; ///< the translation
        QSet<int> items;
        int count = 0;

        bool isWhole() const { return count == 25 && items == QSet<int>{x}; }
    };
    Layout getLayout()
    {
        QSignalSpy replies(robot, &Robot::robot_pallet_PlaneModel);
        robot->sendCommandData(message::GetPalletPlane,
                               "{\"robot\":1,\"craftID\":1,\"graphic\":2}");
        get(9); // answered behind it
        Layout layout;
        for (const QList<QVariant> &reply : replies) {
            const auto body = wire::parseObject(reply.first().toByteArray());
            const Json::Value &pallet = (*body)["pallet"];
            layout.x = qRound(pallet["transLenX"].asDouble() * 100);
            for (const Json::Value &item : pallet["custom"]["eachVec"]) {
                layout.items.insert(qRound(item["X"].asDouble() * 100));
                ++layout.count;
            }
        }
        return layout;
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(program()).isExecutable(), "the controller has to be built first");
    }
    void cleanup() { robot->disconnectFromController(); }

    void storeSurvivesKill()
    {
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        for (int round = 1; round <= 5; ++round) {
            Server server(arguments);
            QVERIFY(server.port != 0);
            QVERIFY(connectTo(server));
            // What the rounds before stored is there, each value as it was last acknowledged.
            for (int craft = 1; craft < round; ++craft) {
                QVERIFY(get(craft).contains("\"toolWear\":" + QByteArray::number(craft * 10 + 2)
                                            + ".0"));
            }
            set(round, round * 10 + 1);
            set(round, round * 10 + 2);
            QVERIFY(!get(9).isEmpty()); // answered behind the sets
            server.process.kill(); // SIGKILL
            QVERIFY(server.process.waitForFinished());
            QTRY_COMPARE(robot->link(), Robot::Link::Lost);
            robot->disconnectFromController();
        }
    }

    /// A list of workpieces comes in chunks; a controller that is killed between them has the list
    /// that was complete before.
    void aLayoutSurvivesKill()
    {
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        const auto send = [this](int sum, int start, int x) {
            QByteArray items;
            const int count = qMin(10, sum - start + 1);
            for (int i = 0; i < count; ++i)
                items += (i ? "," : "") + QByteArray("{\"X\":") + QByteArray::number(x) + "}";
            robot->sendCommandData(message::SetPalletPlane,
                                   "{\"robot\":1,\"craftID\":1,\"graphic\":2,\"pallet\":{"
                                   "\"graphicType\":3,\"custom\":{\"sum\":"
                                       + QByteArray::number(sum)
                                       + ",\"start\":" + QByteArray::number(start)
                                       + ",\"count\":" + QByteArray::number(count)
                                       + ",\"eachVec\":[" + items + "]}}}");
        };
        {
            Server server(arguments);
            QVERIFY(connectTo(server));
            for (const int start : {1, 11, 21})
                send(25, start, 7);
            for (const int start : {1, 11}) // and half of another
                send(25, start, 8);
            QVERIFY(!get(9).isEmpty()); // answered behind the sets
            server.process.kill(); // SIGKILL
            QVERIFY(server.process.waitForFinished());
            QTRY_COMPARE(robot->link(), Robot::Link::Lost);
            robot->disconnectFromController();
        }
        Server server(arguments);
        QVERIFY(connectTo(server));
        QSignalSpy replies(robot, &Robot::robot_pallet_PlaneModel);
        robot->sendCommandData(message::GetPalletPlane,
                               "{\"robot\":1,\"craftID\":1,\"graphic\":2}");
        QTRY_COMPARE(static_cast<int>(replies.count()), 3);
        for (const QList<QVariant> &reply : replies) {
            const QByteArray body = reply.first().toByteArray();
            QVERIFY(body.contains("\"sum\":25"));
            QVERIFY(body.contains("\"X\":7.0"));
            QVERIFY(!body.contains("\"X\":8.0"));
        }
    }

    void storeSurvivesKillAmongSets()
    {
        // Killed somewhere in a burst of sets: what is read afterwards is one of the values sent,
        // whole, and not older than the last one that was answered for.
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        int floor = 0;
        for (int round = 0; round < 5; ++round) {
            Server server(arguments);
            QVERIFY(server.port != 0);
            QVERIFY(connectTo(server));
            for (int i = 1; i <= 20; ++i)
                set(1, floor + i);
            QVERIFY(!get(2).isEmpty());
            const int answered = floor + 20;
            for (int i = 1; i <= 200; ++i)
                set(1, answered + i);
            QCoreApplication::processEvents();
            server.process.kill();
            QVERIFY(server.process.waitForFinished());
            robot->disconnectFromController();

            Server again(arguments);
            QVERIFY(again.port != 0);
            QVERIFY(connectTo(again));
            const auto root = wire::parseObject(get(1));
            QVERIFY(root);
            const int wear = wire::integer(*root, "polish", "toolWear").value_or(-1);
            QVERIFY2(wear >= answered && wear <= answered + 200, qPrintable(QString::number(wear)));
            floor = wear;
            robot->disconnectFromController();
        }
    }

    /// A layout is a list and what it belongs to. Killed at any moment in a stream of them, the
    /// store has both of one layout, and none that is older than the last that was answered for.
    void aStreamOfLayoutsSurvivesKills()
    {
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        const int rounds = qEnvironmentVariableIsSet("CONTROLLER_KILLS")
            ? qEnvironmentVariableIntValue("CONTROLLER_KILLS")
            : 12;
        int sent = 0;
        int torn = 0;
        int lost = 0;
        for (int round = 0; round < rounds; ++round) {
            Server server(arguments);
            QVERIFY(server.port != 0);
            QVERIFY(connectTo(server));
            for (int i = 0; i < 3; ++i)
                setLayout(++sent);
            QVERIFY(getLayout().isWhole()); // answered behind the sets
            const int answered = sent;
            for (int i = 0; i < 300; ++i)
                setLayout(++sent);
            // At another moment of the stream each time.
            QElapsedTimer wait;
            wait.start();
            while (wait.nsecsElapsed() < round % 20 * 500000LL)
                QCoreApplication::processEvents();
            server.process.kill(); // SIGKILL
            QVERIFY(server.process.waitForFinished());
            robot->disconnectFromController();

            Server again(arguments);
            QVERIFY(again.port != 0);
            QVERIFY(connectTo(again));
            const Layout layout = getLayout();
            torn += layout.isWhole() ? 0 : 1;
            lost += layout.x < answered || layout.x > sent ? 1 : 0;
            robot->disconnectFromController();
        }
        qInfo("%d kills, %d torn, %d lost", rounds, torn, lost);
        QCOMPARE(torn, 0);
        QCOMPARE(lost, 0);
    }

    /// The disk takes no more at some moment: what was not refused is there after a restart, whole,
    /// and what was refused has changed nothing.
    void aStreamOfLayoutsSurvivesAFullDisk_data()
    {
        QTest::addColumn<int>("kibibytes");
        for (const int kibibytes : {36, 40, 48, 64, 96, 128, 192, 256})
            QTest::addRow("%d", kibibytes) << kibibytes;
    }
    void aStreamOfLayoutsSurvivesAFullDisk()
    {
        QFETCH(int, kibibytes);
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        {
            Server server(arguments);
            QVERIFY(connectTo(server));
            setLayout(1);
            QVERIFY(getLayout().isWhole());
            robot->disconnectFromController();
        }
        Layout last;
        bool isFull = false;
        {
            Server server(arguments, kibibytes);
            QVERIFY(server.port != 0);
            QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
            QVERIFY(connectTo(server));
            for (int i = 2; i < 200 && !isFull; ++i) {
                setLayout(i);
                const Layout now = getLayout();
                QVERIFY(now.isWhole());
                isFull = now.x != i;
                last = now;
            }
            QVERIFY(isFull);
            QTRY_VERIFY(std::any_of(recorded.begin(), recorded.end(), [](const QVariantList &each) {
                return each.at(1).toList().first().toString() == QLatin1String("storeFailed");
            }));
            if (kibibytes % 3 == 0)
                server.process.kill();
            else
                server.process.terminate();
            QVERIFY(server.process.waitForFinished());
            robot->disconnectFromController();
        }
        Server server(arguments);
        QVERIFY(connectTo(server));
        const Layout layout = getLayout();
        QVERIFY(layout.isWhole());
        QCOMPARE(layout.x, last.x);
        setLayout(500); // and it goes on
        QCOMPARE(getLayout().x, 500);
    }

    void theCopyOfADayIsPutBack()
    {
        const QTemporaryDir directory;
        const QStringList arguments{QStringLiteral("--data"), directory.path()};
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        for (const int wear : {1, 2}) { // the second start makes no other copy
            Server server(arguments);
            QVERIFY(connectTo(server));
            set(1, wear);
            QVERIFY(!get(9).isEmpty());
            robot->disconnectFromController();
            server.process.terminate();
            QVERIFY(server.process.waitForFinished());
            if (wear == 1)
                QVERIFY(QDir(directory.filePath(QStringLiteral("backup"))).removeRecursively());
        }
        const QStringList back{QStringLiteral("--data"), directory.path(),
                               QStringLiteral("--restore")};
        for (const QString &day : {today, QStringLiteral("last")}) {
            Server server(back + QStringList{day});
            QVERIFY(server.port != 0);
            QVERIFY(connectTo(server));
            QVERIFY(get(1).contains("\"toolWear\":1.0"));
            set(1, 3);
            QVERIFY(!get(9).isEmpty());
            robot->disconnectFromController();
        }
        QCOMPARE(QDir(directory.path())
                     .entryList({QStringLiteral("controller-damaged-*.db")}, QDir::Files)
                     .size(),
                 2);
        const Run none(back + QStringList{QStringLiteral("2020-02-02")});
        QCOMPARE(none.code(), 1);
        QVERIFY(none.error.contains(QLatin1String("2020-02-02")));
    }

    void aStoreThatIsNone()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("controller.db")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'x'));
        file.close();
        Server server({QStringLiteral("--data"), directory.path()});
        QVERIFY(server.port != 0); // it runs all the same
        QVERIFY(server.process.readAllStandardError().contains("controller.db"));
        // A directory that cannot be had is a mistake of the command line.
        const Run none({QStringLiteral("--data"), file.fileName() + QStringLiteral("/below")});
        QCOMPARE(none.code(), 1);
        QCOMPARE(static_cast<int>(none.error.count(QLatin1Char('\n'))), 1);
    }

    void endsInOrderOnSigterm()
    {
        const QTemporaryDir directory;
        Server server({QStringLiteral("--data"), directory.path()});
        QVERIFY(server.port != 0);
        QVERIFY(connectTo(server));
        server.process.terminate();
        QVERIFY(server.process.waitForFinished());
        QCOMPARE(server.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(server.process.exitCode(), 0);
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
    }

    void faultsAndTypesFromTheCommandLine()
    {
        const QTemporaryDir directory;
        Server server({QStringLiteral("--data"), directory.path(), QStringLiteral("--fault"),
                       QStringLiteral("0x4602=otherrobot"), QStringLiteral("--fault"),
                       QStringLiteral("0x4601=cut"), QStringLiteral("--kinematic"),
                       QStringLiteral("1=7")});
        QVERIFY(server.port != 0);
        QVERIFY(connectTo(server));
        QTRY_COMPARE(robot->kinematicType, 7);
        QVERIFY(get(1).contains("\"robot\":2"));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        set(1, 5);
        QTRY_COMPARE(linkEntries(recorded, "back"), 1);
    }

    void listAndHelp()
    {
        const Run list({QStringLiteral("--list-ids")});
        QCOMPARE(list.code(), 0);
        QCOMPARE(static_cast<int>(list.out.count(QLatin1Char('\n'))), message::kCount);
        QVERIFY(list.out.contains(QLatin1String("0x4601  SetPolish")));
        const Run help({QStringLiteral("--help")});
        QCOMPARE(help.code(), 0);
        QVERIFY(help.out.contains(QLatin1String("--kinematic")));
    }

    void badOptions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](const char *name, const QStringList &arguments) {
            QTest::newRow(name) << arguments;
        };
        row("unknown", {QStringLiteral("--nonsense")});
        row("argument", {QStringLiteral("nonsense")});
        row("port text", {QStringLiteral("--port"), QStringLiteral("x")});
        row("port high", {QStringLiteral("--port"), QStringLiteral("65536")});
        row("port missing", {QStringLiteral("--port")});
        row("data empty", {QStringLiteral("--data"), QString()});
        row("fault", {QStringLiteral("--fault"), QStringLiteral("0x4602=sometimes")});
        row("fault id", {QStringLiteral("--fault"), QStringLiteral("0x9999=cut")});
        row("robot 5", {QStringLiteral("--kinematic"), QStringLiteral("5=1")});
        row("type 13", {QStringLiteral("--kinematic"), QStringLiteral("1=13")});
        row("restore", {QStringLiteral("--restore"), QStringLiteral("yesterday")});
        row("no type", {QStringLiteral("--kinematic"), QStringLiteral("1")});
    }
    void badOptions()
    {
        QFETCH(QStringList, arguments);
        const Run run(arguments);
        QCOMPARE(run.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(run.code(), 2);
        QCOMPARE(static_cast<int>(run.error.count(QLatin1Char('\n'))), 1); // one sentence
        QVERIFY(run.error.trimmed().endsWith(QLatin1Char('.')));
        QVERIFY(run.out.isEmpty());
    }

    void portThatIsTaken()
    {
        const QTemporaryDir directory;
        QTcpServer taken;
        QVERIFY(taken.listen(QHostAddress::LocalHost));
        const Run run({QStringLiteral("--data"), directory.path(), QStringLiteral("--port"),
                       QString::number(taken.serverPort())});
        QCOMPARE(run.code(), 1);
        QVERIFY(run.error.contains(QString::number(taken.serverPort())));
    }
};

QTEST_MAIN(TestProgram)
#include "test_program.moc"
