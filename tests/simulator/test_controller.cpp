// The simulated controller as a pendant meets it: every fault, the counts, status, several
// pendants.

#include "link.h"
#include "link/messages.h"
#include "otherpendant.h"
#include "simulator/armwords.h"
#include "simulator/embeddedcontroller.h"
#include "wire/ids.h"

#include <algorithm>
#include <functional>

namespace {

constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong
const QByteArray kGet = "{\"craftID\":3,\"robot\":1}\n";
/// Refused because of its "cycle".
const QByteArray kNegativeCycle =
    "{\"craftID\":3,\"polish\":{\"autoFeed\":{\"cycle\":-1}},\"robot\":1}\n";

} // namespace

class TestController : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();

    void ask() { robot->sendCommandData(message::GetPolish, kGet); }

    /// Asks, and then asks something whose answer shows that the first was dealt with.
    void askAndPass(const Desk &desk)
    {
        const int before = desk.controller->received(message::GetPolish);
        ask();
        QTRY_COMPARE(desk.controller->received(message::GetPolish), before + 1);
        OtherPendant other(desk.controller->port());
        QTRY_VERIFY(!other.status.isNull());
    }

private slots:
    void cleanup() { robot->disconnectFromController(); }

    void noReply()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        desk.controller->setFault(message::GetPolish, Fault::NoReply);
        askAndPass(desk);
        askAndPass(desk);
        QCOMPARE(static_cast<int>(reply.count()), 0);
        desk.controller->setFault(message::GetPolish, Fault::None);
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        QVERIFY(robot->isConnected());
    }

    void firstReplyLost()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        desk.controller->setFault(message::GetPolish, Fault::FirstReplyLost);
        ask();
        ask();
        ask();
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 3);
        QTRY_COMPARE(static_cast<int>(reply.count()), 2);
    }

    void late()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        desk.controller->setFault(message::GetPolish, Fault::Late, 300);
        QElapsedTimer waited;
        waited.start();
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        QVERIFY(waited.elapsed() >= 250); // timers may be early by a twentieth
    }

    void lateForAPendantThatHasGone()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        desk.controller->setFault(message::GetPolish, Fault::Late, 50);
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        ask();
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 1);
        QVERIFY(connectTo(desk)); // the old connection ends
        desk.controller->setFault(message::GetPolish, Fault::Late, 100);
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1); // of the second, and it alone
    }

    void malformed()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        desk.controller->setFault(message::GetPolish, Fault::Malformed);
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        const QByteArray body = reply.at(0).at(0).toByteArray();
        QVERIFY(!body.isEmpty());
        QVERIFY(!wire::parseObject(body));
        QVERIFY(robot->isConnected()); // the frame is sound, its text is not
    }

    void otherRobot()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        desk.controller->setFault(message::GetPolish, Fault::OtherRobot);
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        const auto root = wire::parseObject(reply.at(0).at(0).toByteArray());
        QVERIFY(root);
        QCOMPARE(wire::integer(*root, "robot"), std::optional<int>(2));
        QCOMPARE(wire::integer(*root, "craftID"), std::optional<int>(3));
    }

    void cut()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        desk.controller->setFault(message::GetPolish, Fault::Cut);
        ask();
        QTRY_COMPARE(linkEntries(recorded, "lost"), 1);
        QTRY_COMPARE(linkEntries(recorded, "back"), 1);
        QCOMPARE(static_cast<int>(reply.count()), 0);
    }

    void cutOnASetThatHasNoReply()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        desk.controller->setFault(message::SetPolish, Fault::Cut);
        robot->sendCommandData(message::SetPolish,
                               "{\"craftID\":3,\"polish\":{\"toolWear\":7.5},\"robot\":1}");
        QTRY_COMPARE(linkEntries(recorded, "back"), 1);
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        ask();
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        QVERIFY(reply.at(0).at(0).toByteArray().contains("\"toolWear\":7.5")); // it was carried out
    }

    void faultRules_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("fault"); // -1: no rule
        QTest::addColumn<int>("milliseconds");
        QTest::newRow("noreply") << "0x4602=noreply" << int(Fault::NoReply) << 1000;
        QTest::newRow("firstlost") << "0x4602=firstlost" << int(Fault::FirstReplyLost) << 1000;
        QTest::newRow("late") << "0x4602=late" << int(Fault::Late) << 1000;
        QTest::newRow("late with time") << "0x4602=late:25" << int(Fault::Late) << 25;
        QTest::newRow("malformed") << "0x4602=malformed" << int(Fault::Malformed) << 1000;
        QTest::newRow("otherrobot") << "0x4602=otherrobot" << int(Fault::OtherRobot) << 1000;
        QTest::newRow("cut") << "0x4602=cut" << int(Fault::Cut) << 1000;
        QTest::newRow("decimal") << "17922=cut" << int(Fault::Cut) << 1000;
        for (const char *bad :
             {"", "=", "0x4602", "0x4602=", "0x4602=often", "0x4603=cut", "0x=cut", "0x14602=cut",
              "0x4602=cut:5", "0x4602=late:", "0x4602=late:-1", "0x4602=late:x", "0x4602=late:1:2",
              "0x4602=late=1", "polish=cut"})
            QTest::addRow("bad \"%s\"", bad) << QString::fromLatin1(bad) << -1 << 0;
    }
    void faultRules()
    {
        QFETCH(QString, text);
        QFETCH(int, fault);
        QFETCH(int, milliseconds);
        const std::optional<FaultRule> rule = FaultRule::parse(text);
        QCOMPARE(rule.has_value(), fault >= 0);
        if (rule) {
            QCOMPARE(rule->id, static_cast<quint16>(message::GetPolish));
            QCOMPARE(int(rule->fault), fault);
            QCOMPARE(rule->milliseconds, milliseconds);
        }
    }

    void everyMessageOfTheCatalogueIsCounted()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        for (const message::Entry &entry : message::kAll)
            robot->sendCommandData(entry.id, "{\"robot\":1,\"craftID\":1,\"polish\":{}}");
        robot->sendCommandData(wire::reply::robot_Polish_Para, "{}"); // no message of a pendant
        QTRY_COMPARE(desk.controller->unknown(), 1);
        for (const message::Entry &entry : message::kAll)
            QCOMPARE(desk.controller->received(entry.id), 1);
        int withoutAnswer = 0;
        for (const message::Entry &entry : message::kAll)
            withoutAnswer += desk.controller->answers(entry.id) ? 0 : 1;
        QVERIFY(withoutAnswer < message::kCount - 2);
        QCOMPARE(desk.controller->unanswered(), withoutAnswer);
        QVERIFY(robot->isConnected());
    }

    void keysThatMeanNothing()
    {
        Desk desk;
        OtherPendant pendant(desk.controller->port());
        QTRY_VERIFY(!pendant.status.isNull());
        const Json::Value before = pendant.status;
        int refused = 0;
        for (const char *body :
             {"", "{}", "[]", "{\"key\":\"servo\"}", "{\"key\":\"servo\",\"value\":2}",
              "{\"key\":\"servo\",\"value\":true}", "{\"key\":1,\"value\":1}",
              "{\"key\":\"robot\",\"value\":0}", "{\"key\":\"robot\",\"value\":5}",
              "{\"key\":\"mode\",\"value\":3}", "{\"key\":\"mode\",\"value\":0.5}",
              "{\"key\":\"stop\",\"value\":1}"}) {
            QVERIFY(pendant.connection->send(wire::Key, body));
            ++refused;
        }
        QTRY_COMPARE(desk.controller->refused(), refused);
        pendant.status = Json::Value();
        QTRY_VERIFY(!pendant.status.isNull());
        QVERIFY(pendant.status == before);
    }

    void statusComesByItselfAndOnChange()
    {
        // With a status period of an hour only a change sends one.
        SimulatedController controller;
        const QTemporaryDir directory;
        SimulatedController::Options options;
        options.directory = directory.path();
        options.statusInterval = 3600 * 1000;
        QString error;
        QVERIFY2(controller.start(options, &error), qPrintable(error));
        OtherPendant pendant(controller.port());
        QTRY_COMPARE(pendant.state("servo"), 1); // the first comes with the greeting
        QCOMPARE(pendant.state("robot"), 1);
        QCOMPARE(pendant.state("deadman"), 0);
        QCOMPARE(pendant.state("teachMode"), 0);
        QCOMPARE(pendant.state("kinematicType"), 1);
        pendant.key("servo", 1);
        QTRY_COMPARE(pendant.state("servo"), 3);
        pendant.key("mode", 1);
        QTRY_COMPARE(pendant.state("teachMode"), 1);
        controller.setKinematicType(3, 9);
        controller.setKinematicType(1, 13);
        controller.setKinematicType(0, 2);
        controller.setKinematicType(5, 2);
        pendant.key("robot", 3);
        QTRY_COMPARE(pendant.state("robot"), 3);
        QCOMPARE(pendant.state("kinematicType"), 9);
        controller.setKinematicType(3, 10);
        QTRY_COMPARE(pendant.state("kinematicType"), 10);

        SimulatedController periodic;
        const QTemporaryDir other;
        options.directory = other.path();
        options.statusInterval = 10;
        QVERIFY2(periodic.start(options, &error), qPrintable(error));
        OtherPendant watcher(periodic.port());
        for (int i = 0; i < 5; ++i) {
            watcher.status = Json::Value();
            QTRY_VERIFY(!watcher.status.isNull());
        }
    }

    void eachPendantIsToldItsOwnSwitch()
    {
        Desk desk;
        OtherPendant watcher(desk.controller->port());
        OtherPendant holder(desk.controller->port());
        QTRY_VERIFY(watcher.connection->isOpen() && holder.connection->isOpen());
        holder.key("deadman", 1);
        QTRY_COMPARE(holder.state("deadman"), 1);
        watcher.status = Json::Value();
        QTRY_COMPARE(watcher.state("deadman"), 0);
        watcher.key("deadman", 1);
        QTRY_COMPARE(watcher.state("deadman"), 1);
        holder.key("deadman", 0);
        QTRY_COMPARE(holder.state("deadman"), 0);
        watcher.status = Json::Value();
        QTRY_COMPARE(watcher.state("deadman"), 1);
    }
    void controlIsReleasedWithItsPendant()
    {
        Desk desk;
        OtherPendant waits(desk.controller->port());
        {
            OtherPendant holder(desk.controller->port());
            QTRY_VERIFY(holder.connection->isOpen() && waits.connection->isOpen());
            holder.key("deadman", 1);
            QTRY_COMPARE(holder.state("deadman"), 1);
            waits.key("servo", 1);
            QTRY_COMPARE(waits.words, QStringList(QString::fromLatin1(armword::kControlHeld)));
            QCOMPARE(waits.state("servo"), 1);
        }
        QTRY_COMPARE(desk.controller->pendants(), 1);
        waits.key("servo", 1);
        QTRY_COMPARE(waits.state("servo"), 3);
    }

    /// A renewal is no news: neither a status nor anything else comes of it.
    void renewalsAreNotAnswered()
    {
        Desk desk(0, 20, 3600 * 1000);
        OtherPendant pendant(desk.controller->port());
        QTRY_VERIFY(!pendant.status.isNull());
        pendant.key("deadman", 1);
        QTRY_COMPARE(pendant.state("deadman"), 1);
        const int before = pendant.statuses;
        for (int i = 0; i < 20; ++i)
            pendant.key("deadman", 1);
        pendant.key("robot", 1); // is answered behind them
        QTRY_VERIFY(pendant.statuses > before);
        QCOMPARE(pendant.statuses, before + 1);
        QCOMPARE(desk.controller->refused(), 0);
    }

    /// Sixteen connections may wait for their greeting; the next takes the place of the oldest.
    void strangersWait()
    {
        constexpr int kWaiting = 16;
        QTemporaryDir directory;
        SimulatedController controller;
        SimulatedController::Options options;
        options.directory = directory.path();
        options.timing = {1000, kPatience, kPatience}; // none of them goes for want of time
        QString error;
        QVERIFY2(controller.start(options, &error), qPrintable(error));
        OtherPendant pendant(controller.port());
        QTRY_VERIFY_WITH_TIMEOUT(pendant.connection->isOpen(), kPatience);
        const auto isConnected = [](const std::unique_ptr<QTcpSocket> &socket) {
            return socket->state() == QAbstractSocket::ConnectedState;
        };
        std::vector<std::unique_ptr<QTcpSocket>> strangers;
        const auto connectOne = [&] {
            strangers.push_back(std::make_unique<QTcpSocket>());
            strangers.back()->connectToHost(QHostAddress::LocalHost, controller.port());
            const int expected = std::min(static_cast<int>(strangers.size()), kWaiting) + 1;
            return QTest::qWaitFor(
                [&] {
                    return isConnected(strangers.back())
                        && controller.findChildren<wire::Connection *>().size() == expected;
                },
                kPatience);
        };
        for (int i = 0; i < kWaiting; ++i)
            QVERIFY(connectOne());
        QVERIFY(std::all_of(strangers.begin(), strangers.end(), isConnected));
        QVERIFY(connectOne());
        QTRY_VERIFY_WITH_TIMEOUT(!isConnected(strangers.front()), kPatience);
        QVERIFY(std::all_of(strangers.begin() + 1, strangers.end(), isConnected));
        QVERIFY(pendant.connection->isOpen());
        // and who has something to say still gets in
        OtherPendant late(controller.port());
        QTRY_VERIFY_WITH_TIMEOUT(late.connection->isOpen(), kPatience);
    }

    /// Strangers that come back as often as they are dropped do not keep a pendant out.
    void pendantAmongStrangers()
    {
        Desk desk;
        QObject strangers;
        int dropped = 0;
        const std::function<void()> connectOne = [&] {
            auto *socket = new QTcpSocket(&strangers);
            connect(socket, &QTcpSocket::disconnected, &strangers, [&, socket] {
                ++dropped;
                socket->deleteLater();
                connectOne();
            });
            socket->connectToHost(QHostAddress::LocalHost, desk.controller->port());
        };
        for (int i = 0; i < 24; ++i)
            connectOne();
        QTRY_VERIFY_WITH_TIMEOUT(dropped > 24, kPatience);
        robot->setLinkTimes(quickTimes());
        robot->connectToController(QStringLiteral("127.0.0.1"), desk.controller->port());
        QTRY_VERIFY_WITH_TIMEOUT(robot->isConnected(), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(desk.controller->pendants(), 1, kPatience);
    }

    /// The others are told nothing when somebody goes who never said who he is.
    void strangersThatGoAreNoNews()
    {
        Desk desk;
        OtherPendant watcher(desk.controller->port());
        QTRY_VERIFY_WITH_TIMEOUT(watcher.connection->isOpen(), kPatience);
        int statuses = 0;
        connect(watcher.connection.get(), &wire::Connection::received, this,
                [&](quint16 id) { statuses += id == wire::Status ? 1 : 0; });
        constexpr int kStrangers = 200;
        QElapsedTimer taken;
        taken.start();
        for (int i = 0; i < kStrangers; ++i) {
            QTcpSocket stranger;
            stranger.connectToHost(QHostAddress::LocalHost, desk.controller->port());
            QTRY_COMPARE_WITH_TIMEOUT(stranger.state(), QAbstractSocket::ConnectedState, kPatience);
            stranger.write("garbage");
            QTRY_COMPARE_WITH_TIMEOUT(stranger.state(), QAbstractSocket::UnconnectedState,
                                      kPatience);
        }
        QVERIFY(watcher.connection->isOpen());
        QVERIFY(statuses <= taken.elapsed() / 10 + 2); // those that come by themselves
    }

    void repliesGoToWhoAsked()
    {
        Desk desk;
        OtherPendant asks(desk.controller->port());
        OtherPendant waits(desk.controller->port());
        QTRY_VERIFY(asks.connection->isOpen() && waits.connection->isOpen());
        asks.connection->send(message::GetPolish, kGet);
        QTRY_COMPARE(asks.replies, 1);
        waits.status = Json::Value();
        QTRY_VERIFY(!waits.status.isNull());
        QCOMPARE(waits.replies, 0);
    }

    void aRefusalIsToldToItsSender()
    {
        Desk desk;
        OtherPendant sender(desk.controller->port());
        OtherPendant beside(desk.controller->port());
        QTRY_VERIFY(sender.connection->isOpen() && beside.connection->isOpen());
        sender.key("robot", 2); // it is told of the robot that it works with, whatever it has sent
        sender.connection->send(message::SetPolish, kNegativeCycle);
        QTRY_COMPARE(sender.words, QStringList{QStringLiteral("refused")});
        QCOMPARE(wire::integer(sender.told, "id"), int(message::SetPolish));
        QCOMPARE(wire::text(sender.told, "reason"), QStringLiteral("cycle"));
        QCOMPARE(wire::integer(sender.told, "robot"), 2);
        sender.connection->send(message::SetPolish, "{");
        QTRY_COMPARE(static_cast<int>(sender.words.size()), 2);
        QCOMPARE(wire::text(sender.told, "reason"), QStringLiteral("the body is no JSON object"));

        beside.status = Json::Value();
        QTRY_VERIFY(!beside.status.isNull());
        QCOMPARE(beside.words, QStringList());
    }

    void aFloodOfRefusalsIsToldOnceASecond()
    {
        Desk desk;
        OtherPendant pendant(desk.controller->port());
        QTRY_VERIFY(pendant.connection->isOpen());
        QElapsedTimer time;
        time.start();
        constexpr int kFlood = 1000;
        for (int i = 0; i < kFlood; ++i)
            pendant.connection->send(message::SetPolish, kNegativeCycle);
        QTRY_COMPARE(desk.controller->refused(), kFlood);
        const int statuses = pendant.statuses;
        QTRY_VERIFY(pendant.statuses > statuses + 1);
        QVERIFY(!pendant.words.isEmpty());
        QVERIFY(pendant.words.size() <= 1 + time.elapsed() / Refusals::kBetween);
        // Another reason is no flood, and neither is the same one later.
        pendant.connection->send(message::SetPolish, "{\"craftID\":3,\"robot\":1}");
        QTRY_COMPARE(wire::text(pendant.told, "reason"), QStringLiteral("polish"));
        const auto isToldAgain = [&] {
            pendant.connection->send(message::SetPolish, kNegativeCycle);
            return wire::text(pendant.told, "reason") == QLatin1String("cycle");
        };
        QTRY_VERIFY(isToldAgain());
    }

    /// A key, and a message that has a word of its own, is not told twice.
    void whatHasAWordOfItsOwnIsNoRefusal()
    {
        Desk desk;
        OtherPendant pendant(desk.controller->port());
        QTRY_VERIFY(pendant.connection->isOpen());
        pendant.key("servo", 7);
        pendant.key("nonsense", 1);
        pendant.connection->send(
            message::RunToPoint,
            "{\"robot\":1,\"type\":1,\"position\":{\"values\":[0,0,0,0,0,0,0,1,2,3,4,5,6,0]}}");
        QTRY_COMPARE(pendant.words, QStringList{QString::fromLatin1(armword::kNotEnabled)});
        QCOMPARE(desk.controller->refused(), 2);
        QCOMPARE(pendant.words, QStringList{QString::fromLatin1(armword::kNotEnabled)});
    }

    void whatCannotBeHad()
    {
        Desk desk;
        SimulatedController second;
        SimulatedController::Options options;
        const QTemporaryDir directory;
        options.directory = directory.path();
        options.port = desk.controller->port();
        QString error;
        QVERIFY(!second.start(options, &error)); // the port is taken
        QVERIFY(error.contains(QString::number(options.port)));

        // A store that cannot be had keeps no controller from starting: it is told.
        options.port = 0;
        QFile file(directory.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        options.directory = file.fileName() + QStringLiteral("/below");
        QSignalSpy told(&second, &SimulatedController::storeTold);
        error.clear();
        QVERIFY2(second.start(options, &error), qPrintable(error));
        QCOMPARE(static_cast<int>(told.count()), 1);
        QVERIFY(told.last().first().toString().contains(options.directory));
        QCOMPARE(second.store().state(), ParameterStore::State::Unavailable);
        second.stop();

        // A store that is none.
        const QTemporaryDir spoilt;
        QFile database(spoilt.filePath(QStringLiteral("controller.db")));
        QVERIFY(database.open(QIODevice::WriteOnly));
        database.write(QByteArray(5000, 'x'));
        database.close();
        options.directory = spoilt.path();
        QVERIFY2(second.start(options, &error), qPrintable(error));
        QCOMPARE(static_cast<int>(told.count()), 2);
        QVERIFY(told.last().first().toString().contains(QLatin1String("controller.db")));
        QCOMPARE(second.store().state(), ParameterStore::State::Damaged);
        second.stop();

        options.directory = directory.path();
        QVERIFY2(second.start(options, &error), qPrintable(error)); // and nothing stuck
    }

    void embedded()
    {
        const QTemporaryDir directory;
        EmbeddedController embedded;
        for (int run = 0; run < 3; ++run) {
            QString error;
            const quint16 port = embedded.start(directory.path(), &error);
            QVERIFY2(port != 0, qPrintable(error));
            robot->setLinkTimes(quickTimes());
            robot->connectToController(QStringLiteral("127.0.0.1"), port);
            QTRY_VERIFY(robot->isConnected());
            QSignalSpy reply(robot, &Robot::robot_Polish_Para);
            ask();
            QTRY_COMPARE(static_cast<int>(reply.count()), 1);
            QCOMPARE(reply.at(0).at(0).toByteArray().contains("\"toolWear\":8.5"), run > 0);
            QCOMPARE(embedded.controller()->received(message::GetPolish), 1);
            robot->sendCommandData(message::SetPolish,
                                   "{\"craftID\":3,\"polish\":{\"toolWear\":8.5},\"robot\":1}");
            QTRY_COMPARE(embedded.controller()->received(message::SetPolish), 1);
            embedded.controller()->setKinematicType(1, 4 + run);
            QTRY_COMPARE(robot->kinematicType, 4 + run);
            embedded.stop();
            QVERIFY(!embedded.controller());
            QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        }
        // Without a place for its store it runs all the same, and says so; without a port it does
        // not.
        QSignalSpy told(&embedded, &EmbeddedController::storeTold);
        const quint16 port = embedded.start(QStringLiteral("/proc/none"));
        QVERIFY(port != 0);
        QTRY_COMPARE(static_cast<int>(told.count()), 1);
        SimulatedController::Options options;
        options.directory = directory.path();
        QTcpServer taken;
        QVERIFY(taken.listen(QHostAddress::LocalHost));
        options.port = taken.serverPort();
        QString error;
        QCOMPARE(int(embedded.start(options, &error)), 0);
        QVERIFY(!error.isEmpty());
        QVERIFY(!embedded.controller());
    }

    void manyRobotsOnAnyThread()
    {
        // The thread-safe calls while messages come in; what the sanitizers watch.
        const QTemporaryDir directory;
        EmbeddedController embedded;
        const quint16 port = embedded.start(directory.path());
        QVERIFY(port != 0);
        robot->setLinkTimes(quickTimes());
        robot->connectToController(QStringLiteral("127.0.0.1"), port);
        QTRY_VERIFY(robot->isConnected());
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        SimulatedController *controller = embedded.controller();
        for (int i = 0; i < 200; ++i) {
            ask();
            controller->setKinematicType(1 + i % 4, 1 + i % 12);
            controller->setFault(message::SetPolish, i % 2 ? Fault::Late : Fault::None);
            QVERIFY(controller->received(message::GetPolish) <= i + 1);
        }
        QTRY_COMPARE(static_cast<int>(reply.count()), 200);
        QCOMPARE(controller->received(message::GetPolish), 200);
    }
};

QTEST_MAIN(TestController)
#include "test_controller.moc"
