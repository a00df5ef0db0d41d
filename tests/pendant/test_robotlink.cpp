// Robot and a controller over the real link: greeting, keys, outages, and nothing that outlives
// one.

#include "../simulator/link.h"
#include "../wire/rawpeer.h"
#include "app.h"
#include "eventlog.h"
#include "link/messages.h"
#include "morerobot.h"
#include "wire/ids.h"

#include <QThread>
#include <QTimer>
#include <QWidget>

namespace {

const QByteArray kGet = "{\"craftID\":3,\"robot\":1}\n";
const QByteArray kSet = "{\"craftID\":3,\"polish\":{\"toolWear\":1.5},\"robot\":1}\n";

} // namespace

class TestRobotLink : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();

private slots:
    void init() { MoreRobot::g_CurRobot = 1; }
    void cleanup() { robot->disconnectFromController(); }

    // Stays first: only before the first connection of a run is an outage no warning on screen.
    void noWarningBeforeTheFirstConnection()
    {
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        robot->setLinkTimes(quickTimes());
        quint16 port = 0;
        {
            const RawPeer gone;
            port = gone.port();
        }
        robot->connectToController(QStringLiteral("127.0.0.1"), port);
        QCOMPARE(robot->link(), Robot::Link::Connecting);
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(linkEntries(recorded, "failed"), 1);
        robot->sendCommandData(message::GetPolish, kGet);
        QCOMPARE(linkEntries(recorded, "refused"), 2);
        QCOMPARE(kindEntries(recorded, "toast"), 0);
        QCOMPARE(robot->link(), Robot::Link::Connecting);
    }

    void greeting()
    {
        Desk desk;
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy ports(robot, &Robot::portsReported);
        QSignalSpy links(robot, &Robot::linkChanged);
        QVERIFY(!robot->isSimulated());
        QVERIFY(connectTo(desk));
        QVERIFY(robot->isSimulated());
        QCOMPARE(linkEntries(recorded, "connected"), 1);
        QCOMPARE(linkEntries(recorded, "back"), 0);
        QCOMPARE(static_cast<int>(links.count()), 2); // connecting, connected
        QCOMPARE(static_cast<int>(ports.count()), 1);
        QCOMPARE(static_cast<int>(ports.at(0).at(0).toStringList().size()), 16);
        QCOMPARE(static_cast<int>(ports.at(0).at(1).toStringList().size()), 16);
        QVERIFY(!ports.at(0).at(2).toStringList().isEmpty());
        QVERIFY(App::m_Select_IO_Type != 0);

        robot->disconnectFromController();
        QCOMPARE(robot->link(), Robot::Link::Off);
        QVERIFY(!robot->isSimulated());
        QCOMPARE(linkEntries(recorded, "lost"), 0);
        QCOMPARE(linkEntries(recorded, "off"), 1);
        QTRY_COMPARE(desk.controller->pendants(), 0);
    }

    void greetingOfAnotherController()
    {
        RawPeer peer;
        QSignalSpy ports(robot, &Robot::portsReported);
        robot->connectToController(QStringLiteral("127.0.0.1"), peer.port());
        QTRY_VERIFY(peer.socket());
        peer.send(wire::HelloAnswer,
                  "{\"protocol\":1,\"role\":\"controller\",\"simulated\":\"yes\",\"ioType\":[],"
                  "\"ports\":{\"do\":[\"A\",5,\"B\"],\"di\":{\"x\":1}}}");
        QTRY_VERIFY(robot->isConnected());
        // What cannot be read counts as absent; the number of ports stays what it is.
        QVERIFY(!robot->isSimulated());
        QCOMPARE(App::m_Select_IO_Type, 0);
        QCOMPARE(static_cast<int>(ports.count()), 1);
        QCOMPARE(static_cast<int>(ports.at(0).at(0).toStringList().size()), 3);
        QVERIFY(ports.at(0).at(1).toStringList().isEmpty());
    }

    void keysReachTheControllerAndComeBackAsStatus()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy sent(robot, &Robot::commandSent);
        QCOMPARE(robot->get_servo_state(), 1);
        robot->requestServo(true);
        QTRY_COMPARE(robot->get_servo_state(), 3);
        robot->setDeadman(true);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        robot->setTeachMode(2);
        QTRY_COMPARE(robot->get_teach_mode(), 2);
        robot->setTeachMode(3);
        robot->setTeachMode(-1);
        robot->requestServo(false);
        QTRY_COMPARE(robot->get_servo_state(), 1);
        QCOMPARE(robot->get_teach_mode(), 2);

        desk.controller->setKinematicType(2, 8);
        MoreRobot::setCurrentRobot(2);
        QTRY_COMPARE(robot->kinematicType, 8);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        robot->robot_key_slot_saftySwitchProcess(0);
        QCOMPARE(robot->get_deadman_state(), 0);
        const int keys = desk.controller->received(wire::Key);
        QTRY_VERIFY(desk.controller->received(wire::Key) > keys);
        QTRY_COMPARE(robot->get_deadman_state(), 0);

        QCOMPARE(kindEntries(recorded, "key"), 6);
        QCOMPARE(kindEntries(recorded, "message"), 0);
        QCOMPARE(static_cast<int>(sent.count()), 0);
        MoreRobot::setCurrentRobot(1);
    }

    /// A held switch is said again until it is let go, taken back, or the link is lost; nobody else
    /// is told of it.
    void aHeldSwitchIsRenewed_data()
    {
        QTest::addColumn<int>("end");
        QTest::newRow("let go") << 0;
        QTest::newRow("taken back") << 1;
        QTest::newRow("link lost") << 2;
    }
    void aHeldSwitchIsRenewed()
    {
        QFETCH(int, end);
        Desk desk;
        Robot::LinkTimes times = quickTimes();
        times.renewal = 5;
        QVERIFY(connectTo(desk));
        robot->setLinkTimes(times);
        const auto heard = [&desk] { return desk.controller->received(wire::Key); };
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy sent(robot, &Robot::commandSent);
        robot->setDeadman(true);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        int before = heard();
        QTRY_VERIFY(heard() > before + 5);
        QCOMPARE(kindEntries(recorded, "key"), 1);
        QCOMPARE(int(recorded.count()), 1);
        QCOMPARE(int(sent.count()), 0);

        if (end == 0)
            robot->setDeadman(false);
        else if (end == 1)
            robot->robot_key_slot_saftySwitchProcess(0);
        else
            QVERIFY(desk.restart());
        if (end == 2) {
            QTRY_COMPARE(desk.controller->pendants(), 1);
            QTRY_VERIFY(robot->get_servo_state() != 0);
        } else {
            QTRY_COMPARE(robot->get_deadman_state(), 0);
        }
        // all that was said before has come
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 1);
        before = heard();
        QElapsedTimer since;
        since.start();
        QTRY_VERIFY(since.hasExpired(20 * times.renewal));
        QCOMPARE(heard(), before);
        QCOMPARE(robot->get_deadman_state(), 0);
        robot->setDeadman(true); // pressed anew
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        robot->setDeadman(false);
    }
    void aSwitchWithoutAControllerIsNotRenewed()
    {
        robot->setDeadman(true);
        Desk desk;
        QVERIFY(connectTo(desk));
        QTRY_VERIFY(desk.controller->received(wire::Key) == 1); // which robot is worked with
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 1);
        QCOMPARE(robot->get_deadman_state(), 0);
        robot->setDeadman(false);
    }

    void polishingThereAndBack()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        robot->sendCommandData(message::SetPolish, kSet);
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(static_cast<int>(reply.count()), 1);
        const auto root = wire::parseObject(reply.at(0).at(0).toByteArray());
        QVERIFY(root);
        QCOMPARE(wire::number(*root, "polish", "toolWear"), std::optional<double>(1.5));
    }

    void lostLinkIsUnsafeToMove()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        robot->requestServo(true);
        robot->setDeadman(true);
        robot->setTeachMode(1);
        QTRY_VERIFY(robot->get_deadman_state() == 1 && robot->get_servo_state() == 3
                    && robot->get_teach_mode() == 1);
        QSignalSpy changed(robot, &Robot::statusChanged);
        desk.controller->stop();
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        QCOMPARE(robot->get_servo_state(), 0);
        QCOMPARE(robot->get_deadman_state(), 0);
        QCOMPARE(robot->get_teach_mode(), 1);
        QVERIFY(changed.count() >= 1);
        QVERIFY(robot->isSimulated()); // the mark stays while its controller is looked for
        robot->disconnectFromController();
        robot->receiveMessage(wire::Status, "{\"robot\":1,\"teachMode\":0}");
    }

    void nothingIsQueuedOverAnOutage()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        robot->sendCommandData(message::SetPolish, kSet);
        QTRY_COMPARE(desk.controller->received(message::SetPolish), 1);
        desk.controller->stop();
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);

        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy sent(robot, &Robot::commandSent);
        const quint64 before = robot->refusedCount();
        for (int i = 0; i < 20; ++i) {
            robot->sendCommandData(message::RunToPoint, kGet);
            robot->requestServo(true);
        }
        QCOMPARE(robot->refusedCount(), before + 40);
        QCOMPARE(static_cast<int>(sent.count()), 20);
        QCOMPARE(kindEntries(recorded, "message"), 20);
        QCOMPARE(linkEntries(recorded, "refused"), 40);
        QCOMPARE(kindEntries(recorded, "toast"), 1); // one warning, however fast a page polls

        QVERIFY(desk.restart());
        QTRY_VERIFY(robot->isConnected());
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 1);
        QCOMPARE(desk.controller->received(message::RunToPoint), 0);
        QTRY_COMPARE(robot->get_servo_state(), 1); // no request for servo on came after the outage
        QCOMPARE(desk.controller->received(wire::Key), 1); // which robot is worked with
    }

    void eachOutageHasItsOwnWarning()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        for (int outage = 1; outage <= 3; ++outage) {
            desk.controller->stop();
            QTRY_COMPARE(robot->link(), Robot::Link::Lost);
            robot->sendCommandData(message::GetPolish, kGet);
            robot->sendCommandData(message::GetPolish, kGet);
            QCOMPARE(kindEntries(recorded, "toast"), outage);
            QVERIFY(desk.restart());
            QTRY_VERIFY(robot->isConnected());
        }
    }

    void warningComesAgainInALongOutage()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        Robot::LinkTimes times = quickTimes();
        times.warning = 50;
        robot->setLinkTimes(times);
        desk.controller->stop();
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QTRY_VERIFY([&] {
            robot->sendCommandData(message::GetPolish, kGet);
            return kindEntries(recorded, "toast") == 3;
        }());
        QVERIFY(linkEntries(recorded, "refused") > 3);
    }

    void hundredReconnections()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        const auto objects = [this] { return robot->findChildren<QObject *>().size(); };
        const auto serverObjects = [&] {
            return desk.controller->findChildren<wire::Connection *>().size();
        };
        const auto before = objects();
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy links(robot, &Robot::linkChanged);
        desk.controller->setFault(message::GetPolish, Fault::Cut);
        for (int round = 1; round <= 100; ++round) {
            robot->sendCommandData(message::GetPolish, kGet);
            QTRY_COMPARE(linkEntries(recorded, "lost"), round);
            QTRY_COMPARE(linkEntries(recorded, "back"), round);
            QCOMPARE(robot->link(), Robot::Link::Connected);
        }
        QCOMPARE(linkEntries(recorded, "lost"), 100);
        QCOMPARE(linkEntries(recorded, "back"), 100);
        QCOMPARE(linkEntries(recorded, "failed"), 0);
        QCOMPARE(static_cast<int>(links.count()), 200);
        QTRY_COMPARE(objects(), before);
        QTRY_COMPARE(static_cast<int>(serverObjects()), 1);
        QCOMPARE(desk.controller->received(message::GetPolish), 100);
        QTRY_COMPARE(desk.controller->pendants(), 1);
    }

    void failedAttemptsAreJournalledOnce()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        desk.controller->stop();
        QTRY_COMPARE(linkEntries(recorded, "failed"), 1);
        const auto objects = robot->findChildren<QObject *>().size();
        QElapsedTimer passed;
        passed.start();
        QTRY_VERIFY(passed.hasExpired(200)); // some forty attempts
        QCOMPARE(linkEntries(recorded, "failed"), 1);
        QCOMPARE(linkEntries(recorded, "lost"), 1);
        QVERIFY(robot->findChildren<QObject *>().size() <= objects + 4);
    }

    void badBytesFromTheController_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray damaged = wire::encodeFrame(wire::reply::robot_Polish_Para, "{\"robot\":1}");
        damaged[20] = '#';
        QTest::newRow("garbage") << QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n");
        QTest::newRow("checksum") << damaged;
        QTest::newRow("2^32-1") << QByteArray::fromHex("5243504c00014603ffffffff00000000");
        QTest::newRow("over the limit") << QByteArray::fromHex("5243504c000146030040000100000000");
        QTest::newRow("version") << QByteArray::fromHex("5243504c00024603");
    }
    void badBytesFromTheController()
    {
        QFETCH(QByteArray, bytes);
        RawPeer peer;
        robot->setLinkTimes(quickTimes());
        robot->connectToController(QStringLiteral("127.0.0.1"), peer.port());
        QTRY_VERIFY(peer.socket());
        peer.send(wire::HelloAnswer, "{\"protocol\":1,\"role\":\"controller\"}");
        QTRY_VERIFY(robot->isConnected());
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        peer.send(wire::encodeFrame(wire::reply::robot_Polish_Para, "{}") + bytes
                  + wire::encodeFrame(wire::reply::robot_Polish_Para, "{}"));
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        QCOMPARE(static_cast<int>(reply.count()), 1); // the whole one before the damage
        QCOMPARE(linkEntries(recorded, "lost"), 1);
        QTRY_COMPARE(peer.accepted(), 2); // and it tries again
    }

    /// Many messages at once, and a page that takes its time for each: the screen is drawn all
    /// along.
    void theScreenIsDrawnWhileMessagesCome()
    {
        struct Screen : QWidget {
            void paintEvent(QPaintEvent *) override
            {
                ++drawn;
                QTimer::singleShot(0, this, qOverload<>(&QWidget::update));
            }
            int drawn = 0;
        };
        constexpr int kMessages = 60;
        constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong
        RawPeer peer;
        Robot::LinkTimes times = quickTimes();
        times.silence = times.greeting = kPatience;
        robot->setLinkTimes(times);
        robot->connectToController(QStringLiteral("127.0.0.1"), peer.port());
        QTRY_VERIFY_WITH_TIMEOUT(peer.socket(), kPatience);
        peer.send(wire::HelloAnswer, "{\"protocol\":1,\"role\":\"controller\"}");
        QTRY_VERIFY_WITH_TIMEOUT(robot->isConnected(), kPatience);
        Screen screen;
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen, kPatience));
        int received = 0;
        int drawnBefore = 0;
        int drawnAfter = 0;
        connect(robot, &Robot::robot_Polish_Para, &screen, [&] {
            if (received == 0)
                drawnBefore = screen.drawn;
            QThread::msleep(2);
            if (++received == kMessages)
                drawnAfter = screen.drawn;
        });
        QByteArray bytes;
        for (int i = 0; i < kMessages; ++i)
            bytes += wire::encodeFrame(wire::reply::robot_Polish_Para, "{}");
        peer.send(bytes);
        QTRY_VERIFY_WITH_TIMEOUT(received >= kMessages, kPatience);
        QVERIFY2(drawnAfter - drawnBefore > 2,
                 qPrintable(QString::number(drawnAfter - drawnBefore)));
    }

    void silentController()
    {
        RawPeer peer;
        Robot::LinkTimes times = quickTimes();
        times.heartbeat = 20;
        times.silence = 100;
        robot->setLinkTimes(times);
        robot->connectToController(QStringLiteral("127.0.0.1"), peer.port());
        QTRY_VERIFY(peer.socket());
        peer.send(wire::HelloAnswer, "{\"protocol\":1,\"role\":\"controller\"}");
        QTRY_VERIFY(robot->isConnected());
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        QTRY_COMPARE(peer.accepted(), 2);
    }

    void bodiesThatMayNotGoOut()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy sent(robot, &Robot::commandSent);
        robot->sendCommandData(message::SetPolish,
                               "{\"polish\":{\"toolWear\":1e+9999},\"robot\":1}");
        robot->sendCommandData(message::SetPolish, QByteArray(wire::kMaxBody + 1, ' '));
        QCOMPARE(linkEntries(recorded, "refused"), 2);
        QCOMPARE(static_cast<int>(sent.count()), 2);
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(desk.controller->received(message::GetPolish), 1);
        QCOMPARE(desk.controller->received(message::SetPolish), 0);
        QVERIFY(robot->isConnected());
    }

    void anotherControllerWhileConnected()
    {
        Desk first;
        Desk second;
        QVERIFY(connectTo(first));
        QVERIFY(connectTo(second));
        QTRY_COMPARE(first.controller->pendants(), 0);
        QTRY_COMPARE(second.controller->pendants(), 1);
    }

    void disconnectingFromASlot()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        const auto connection = connect(robot, &Robot::robot_Polish_Para, robot,
                                        [this] { robot->disconnectFromController(); });
        robot->sendCommandData(message::GetPolish, kGet);
        robot->sendCommandData(message::GetPolish, kGet);
        QTRY_COMPARE(robot->link(), Robot::Link::Off);
        disconnect(connection);
        QTRY_COMPARE(desk.controller->pendants(), 0);
        QCOMPARE(robot->link(), Robot::Link::Off);
    }
};

QTEST_MAIN(TestRobotLink)
#include "test_robotlink.moc"
