// One end of the link against a peer of bare bytes: greeting, silence, damage, order.

#include "rawpeer.h"
#include "wire/connection.h"
#include "wire/ids.h"

#include <QtTest>
#include <memory>

using wire::Connection;

namespace {

constexpr wire::Timing kQuick{20, 150, 300};
/// For a test in which no time limit is to be reached, however busy the machine is.
constexpr wire::Timing kPatient{1000, 600000, 600000};
constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong

/// The frames of that many messages, with the ids from 1000 on.
QByteArray numbered(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += wire::encodeFrame(static_cast<quint16>(1000 + i), {});
    return bytes;
}

QByteArray answer(int protocol = wire::kProtocol, const char *role = "controller")
{
    return "{\"protocol\":" + QByteArray::number(protocol) + ",\"role\":\"" + role
        + "\",\"name\":\"raw\"}\n";
}

} // namespace

Q_DECLARE_METATYPE(wire::Connection::Role)

class TestConnection : public QObject {
    Q_OBJECT

    struct End {
        explicit End(quint16 port, const wire::Timing &timing = {},
                     Connection::Role role = Connection::Role::Pendant)
        {
            auto *socket = new QTcpSocket;
            connection = std::make_unique<Connection>(socket, role, Json::Value(), timing);
            QObject::connect(connection.get(), &Connection::opened, [this] { ++opened; });
            QObject::connect(connection.get(), &Connection::received,
                             [this](quint16 id, const QByteArray &body) {
                                 messages.push_back({id, body});
                             });
            QObject::connect(connection.get(), &Connection::closed,
                             [this](const QString &reason) { closed.append(reason); });
            socket->connectToHost(QHostAddress::LocalHost, port);
        }

        std::unique_ptr<Connection> connection;
        int opened = 0;
        std::vector<wire::Frame> messages;
        QStringList closed;
    };

    static bool areNumbered(const std::vector<wire::Frame> &messages, int count)
    {
        if (static_cast<int>(messages.size()) != count)
            return false;
        for (int i = 0; i < count; ++i) {
            if (messages[static_cast<size_t>(i)].id != 1000 + i)
                return false;
        }
        return true;
    }

    /// Each message keeps its receiver busy for so long, in milliseconds.
    static void makeSlow(const End &end, unsigned long time)
    {
        QObject::connect(end.connection.get(), &Connection::received, end.connection.get(),
                         [time] { QThread::msleep(time); });
    }

    /// Lets both ends come together and takes the pendant's hello.
    static bool meet(RawPeer &peer, wire::Frame *hello = nullptr)
    {
        std::vector<wire::Frame> frames;
        const bool came = QTest::qWaitFor(
            [&] {
                if (peer.socket() && frames.empty())
                    frames = peer.takeFrames();
                return !frames.empty();
            },
            kPatience);
        if (came && hello)
            *hello = frames.front();
        return came;
    }

private slots:
    void helloComesFirst()
    {
        RawPeer peer;
        End end(peer.port());
        wire::Frame hello;
        QVERIFY(meet(peer, &hello));
        QCOMPARE(hello.id, quint16(wire::Hello));
        const auto root = wire::parseObject(hello.body);
        QVERIFY(root);
        QCOMPARE(wire::integer(*root, "protocol"), std::optional<int>(wire::kProtocol));
        QCOMPARE(*wire::text(*root, "role"), QStringLiteral("pendant"));
        QVERIFY(!end.connection->isOpen());
        QVERIFY(!end.connection->send(1000, "early"));

        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        QVERIFY(end.connection->isOpen());
        QCOMPARE(*wire::text(end.connection->peer(), "name"), QStringLiteral("raw"));
    }

    /// Such as the word that the enabling switch is let go.
    void whatIsSaidLastStillArrives()
    {
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        QVERIFY(end.connection->send(1000, "last"));
        end.connection->close(QStringLiteral("done"));
        wire::Frame last;
        QVERIFY(meet(peer, &last));
        QCOMPARE(last.id, quint16(1000));
        QCOMPARE(last.body, QByteArray("last"));
        QTRY_COMPARE(peer.socket()->state(), QAbstractSocket::UnconnectedState);
    }

    void unacceptableAnswers_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("message first") << 1000 << QByteArray("{}");
        QTest::newRow("heartbeat first") << int(wire::Heartbeat) << QByteArray();
        QTest::newRow("status first") << int(wire::Status) << QByteArray("{\"robot\":1}");
        QTest::newRow("other protocol") << int(wire::HelloAnswer) << answer(wire::kProtocol + 1);
        QTest::newRow("other role") << int(wire::HelloAnswer) << answer(wire::kProtocol, "pendant");
        QTest::newRow("empty answer") << int(wire::HelloAnswer) << QByteArray();
        QTest::newRow("no protocol")
            << int(wire::HelloAnswer) << QByteArray("{\"role\":\"controller\"}");
        QTest::newRow("ill types")
            << int(wire::HelloAnswer) << QByteArray("{\"protocol\":\"1\",\"role\":[]}");
        QTest::newRow("refusal") << int(wire::HelloRefusal) << QByteArray("{\"reason\":\"no\"}");
        QTest::newRow("refusal without words") << int(wire::HelloRefusal) << QByteArray("[");
    }
    void unacceptableAnswers()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, body);
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        peer.send(static_cast<quint16>(id), body);
        QTRY_COMPARE(end.closed.size(), 1);
        QCOMPARE(end.opened, 0);
        QVERIFY(end.messages.empty());
        QTRY_COMPARE(peer.socket()->state(), QAbstractSocket::UnconnectedState);
    }

    void lengthOfAGreeting_data()
    {
        QTest::addColumn<Connection::Role>("role");
        QTest::addColumn<int>("length");
        for (const auto &row : {std::make_pair("pendant", Connection::Role::Pendant),
                                std::make_pair("controller", Connection::Role::Controller)}) {
            QTest::addRow("%s, longest", row.first) << row.second << wire::kMaxGreetingBody;
            QTest::addRow("%s, one over", row.first) << row.second << wire::kMaxGreetingBody + 1;
        }
    }
    /// Before the greeting a length is judged as soon as it can be read; no body has to come.
    void lengthOfAGreeting()
    {
        QFETCH(Connection::Role, role);
        QFETCH(int, length);
        RawPeer peer;
        End end(peer.port(), kPatient, role);
        QTRY_VERIFY_WITH_TIMEOUT(peer.socket(), kPatience);
        const bool isPendant = role == Connection::Role::Pendant;
        const QByteArray greeting = answer(wire::kProtocol, isPendant ? "controller" : "pendant");
        const QByteArray frame = wire::encodeFrame(
            isPendant ? wire::HelloAnswer : wire::Hello,
            greeting + QByteArray(length - static_cast<int>(greeting.size()), ' '));
        constexpr int kUpToTheLength = 12;
        peer.send(frame.left(kUpToTheLength));
        if (length > wire::kMaxGreetingBody) {
            QTRY_COMPARE_WITH_TIMEOUT(end.closed.size(), 1, kPatience);
            QVERIFY(end.closed.first().contains(QLatin1String("longer than allowed")));
            QCOMPARE(end.opened, 0);
            return;
        }
        // behind the greeting a body may be as long as any
        peer.send(frame.mid(kUpToTheLength)
                  + wire::encodeFrame(1000, QByteArray(2 * 1024 * 1024, 'x')));
        QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(end.messages.size()), 1, kPatience);
        QCOMPARE(end.opened, 1);
        QVERIFY(end.closed.isEmpty());
    }

    void controllerRefusesAnotherProtocol()
    {
        // Here the raw peer is the pendant: it speaks first and is shown the door with a reason.
        RawPeer peer;
        End end(peer.port(), {}, Connection::Role::Controller);
        QTRY_VERIFY(peer.socket());
        peer.send(wire::Hello, answer(99, "pendant"));
        wire::Frame refusal;
        QVERIFY(meet(peer, &refusal));
        QCOMPARE(refusal.id, quint16(wire::HelloRefusal));
        const auto root = wire::parseObject(refusal.body);
        QVERIFY(root && wire::text(*root, "reason")->contains(QLatin1String("99")));
        QTRY_COMPARE(end.closed.size(), 1);
        QCOMPARE(end.opened, 0);
    }

    void noGreetingAtAll()
    {
        RawPeer peer;
        End end(peer.port(), kQuick);
        QTRY_COMPARE(end.closed.size(), 1);
        QCOMPARE(end.opened, 0);
    }

    void nobodyThere()
    {
        quint16 port = 0;
        {
            const RawPeer gone;
            port = gone.port();
        }
        End end(port);
        QTRY_COMPARE(end.closed.size(), 1);
        QVERIFY(!end.closed.first().isEmpty());
    }

    void silentPeer()
    {
        RawPeer peer;
        End end(peer.port(), kQuick);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        QTRY_COMPARE(end.closed.size(), 1);
        QVERIFY(end.closed.first().contains(QLatin1String("nothing was heard")));
        QTRY_COMPARE(peer.socket()->state(), QAbstractSocket::UnconnectedState);
    }

    /// Who sends a byte now and then of a frame that never ends has said nothing.
    void piecesOfAFrameAreNoSignOfLife()
    {
        RawPeer peer;
        End end(peer.port(), {20, 1000, kPatient.greeting});
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE_WITH_TIMEOUT(end.opened, 1, kPatience);
        const QByteArray frame = wire::encodeFrame(1000, QByteArray(100000, 'x'));
        int at = 0;
        QTimer drip;
        connect(&drip, &QTimer::timeout, this, [&] {
            if (end.closed.isEmpty())
                peer.send(frame.mid(at++, 1));
        });
        drip.start(5);
        QTRY_COMPARE_WITH_TIMEOUT(end.closed.size(), 1, kPatience);
        QVERIFY(end.closed.first().contains(QLatin1String("nothing was heard")));
        QVERIFY(at > 1 && at < frame.size());
        QVERIFY(end.messages.empty());
    }

    void heartbeatsKeepItOpen()
    {
        RawPeer peer;
        End end(peer.port(), kQuick);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        // Answer each heartbeat with one of our own, far longer than the silence limit.
        int heartbeats = 0;
        QElapsedTimer open;
        open.start();
        QTRY_VERIFY([&] {
            for (const wire::Frame &frame : peer.takeFrames()) {
                if (frame.id != wire::Heartbeat || !frame.body.isEmpty())
                    return false;
                ++heartbeats;
                peer.send(wire::Heartbeat, {});
            }
            return open.hasExpired(5 * kQuick.silence);
        }());
        QVERIFY(heartbeats > 1);
        QVERIFY(end.closed.isEmpty());
        QVERIFY(end.messages.empty()); // heartbeats are nobody else's business
    }

    void ownSleepIsNotThePeersSilence()
    {
        RawPeer peer;
        End end(peer.port(), kQuick);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        // While this thread sleeps nothing is read, though it is there.
        peer.send(1000, "while asleep");
        QThread::msleep(static_cast<unsigned long>(3 * kQuick.silence));
        QTRY_COMPARE(end.messages.size(), size_t(1));
        QVERIFY(end.closed.isEmpty());
    }

    void badBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray checksum = wire::encodeFrame(1001, "damaged");
        checksum[checksum.size() - 1] = '?';
        QByteArray version = wire::encodeFrame(1001, {});
        version[5] = 9;
        QTest::newRow("garbage") << QByteArray("garbage");
        QTest::newRow("checksum") << checksum;
        QTest::newRow("version") << version;
        QTest::newRow("2^32-1") << wire::encodeFrame(1001, {}).replace(8, 4, QByteArray(4, '\xff'));
        QTest::newRow("second greeting") << wire::encodeFrame(wire::HelloAnswer, answer());
    }
    void badBytes()
    {
        QFETCH(QByteArray, bytes);
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        peer.send(wire::encodeFrame(1000, "before") + bytes + wire::encodeFrame(1002, "after"));
        QTRY_COMPARE(end.closed.size(), 1);
        QCOMPARE(end.messages.size(), size_t(1));
        QCOMPARE(end.messages.front().body, QByteArray("before"));
        QVERIFY(!end.connection->send(1000, "late"));
    }

    void peerClosesInTheMiddleOfAFrame()
    {
        const QByteArray frame = wire::encodeFrame(1001, "never whole");
        for (int cut = 1; cut < frame.size(); ++cut) {
            RawPeer peer;
            End end(peer.port());
            QVERIFY(meet(peer));
            peer.send(wire::HelloAnswer, answer());
            peer.send(wire::encodeFrame(1000, "before") + frame.left(cut));
            peer.socket()->disconnectFromHost();
            QTRY_COMPARE(end.closed.size(), 1);
            QVERIFY(end.closed.first().contains(QLatin1String("within a frame")));
            QCOMPARE(end.messages.size(), size_t(1));
            QCOMPARE(end.messages.front().body, QByteArray("before"));
        }
    }

    void everythingWholeIsDeliveredBeforeTheEnd()
    {
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        QByteArray bytes = wire::encodeFrame(wire::HelloAnswer, answer());
        for (int i = 0; i < 500; ++i)
            bytes += wire::encodeFrame(static_cast<quint16>(1000 + i), QByteArray(900, 'x'));
        peer.send(bytes);
        peer.socket()->disconnectFromHost();
        QTRY_COMPARE(end.closed.size(), 1);
        QCOMPARE(end.opened, 1);
        QCOMPARE(end.messages.size(), size_t(500));
        for (int i = 0; i < 500; ++i)
            QCOMPARE(end.messages[static_cast<size_t>(i)].id, quint16(1000 + i));
    }

    /// Many messages at once do not keep the event loop from everything else.
    void manyMessagesAreASliceOfEachTurn()
    {
        constexpr int kMessages = 40;
        RawPeer peer;
        End end(peer.port(), kPatient);
        makeSlow(end, 2);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE_WITH_TIMEOUT(end.opened, 1, kPatience);
        QTimer turns;
        int sinceTurn = 0;
        int most = 0;
        connect(&turns, &QTimer::timeout, this, [&] { sinceTurn = 0; });
        connect(end.connection.get(), &Connection::received, this,
                [&] { most = std::max(most, ++sinceTurn); });
        turns.start(0);
        peer.send(numbered(kMessages));
        QTRY_VERIFY_WITH_TIMEOUT(static_cast<int>(end.messages.size()) >= kMessages, kPatience);
        QVERIFY(areNumbered(end.messages, kMessages));
        // A slice holds at most six of 2 ms; two may follow each other when new bytes come.
        QVERIFY2(most <= 12, qPrintable(QString::number(most)));
    }

    void theEndComesBehindAllSlices_data()
    {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("the peer goes") << QByteArray();
        QTest::newRow("bad bytes") << QByteArray("garbage");
    }
    void theEndComesBehindAllSlices()
    {
        QFETCH(QByteArray, end);
        constexpr int kMessages = 30;
        RawPeer peer;
        End pendant(peer.port(), kPatient);
        makeSlow(pendant, 2);
        int before = 0;
        connect(pendant.connection.get(), &Connection::closed, this,
                [&] { before = static_cast<int>(pendant.messages.size()); });
        QVERIFY(meet(peer));
        peer.send(wire::encodeFrame(wire::HelloAnswer, answer()) + numbered(kMessages) + end);
        if (end.isEmpty())
            peer.socket()->disconnectFromHost();
        QTRY_COMPARE_WITH_TIMEOUT(pendant.closed.size(), 1, kPatience);
        QCOMPARE(before, kMessages);
        QVERIFY(areNumbered(pendant.messages, kMessages));
    }

    /// What has come when a connection fails is still passed on, and nothing that comes later.
    void aConnectionFailsWhileThePeerGoesOn()
    {
        constexpr int kSize = 4096;
        RawPeer peer;
        End end(peer.port(), kPatient);
        makeSlow(end, 2);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE_WITH_TIMEOUT(end.opened, 1, kPatience);
        for (int i = 0; i < 40; ++i)
            peer.send(1000, QByteArray(kSize, 'x'));
        auto *socket = end.connection->findChild<QTcpSocket *>();
        QTRY_VERIFY_WITH_TIMEOUT(socket->bytesAvailable() > 10 * kSize, kPatience);
        const auto expected = static_cast<qint64>(end.messages.size())
            + socket->bytesAvailable() / (wire::kHeaderSize + kSize);
        while (end.connection->send(1000, QByteArray(1024 * 1024, 'x'))) { }
        connect(end.connection.get(), &Connection::received, this, [&] {
            for (int i = 0; i < 3; ++i)
                peer.send(2000, QByteArray(kSize, 'x'));
        });
        QTRY_COMPARE_WITH_TIMEOUT(end.closed.size(), 1, kPatience);
        QVERIFY(end.closed.first().contains(QLatin1String("does not read")));
        QVERIFY(static_cast<qint64>(end.messages.size()) >= expected);
    }

    /// The receiver of the first message waits for the last of many, which takes several slices.
    void waitingReceiverGetsAllSlices()
    {
        constexpr int kMessages = 30;
        RawPeer peer;
        End end(peer.port(), kPatient);
        makeSlow(end, 2);
        bool waited = false;
        connect(end.connection.get(), &Connection::received, this, [&](quint16 id) {
            if (id == 1000) {
                waited = QTest::qWaitFor(
                    [&] { return static_cast<int>(end.messages.size()) == kMessages; }, kPatience);
            }
        });
        QVERIFY(meet(peer));
        peer.send(wire::encodeFrame(wire::HelloAnswer, answer()) + numbered(kMessages));
        QTRY_VERIFY_WITH_TIMEOUT(waited, kPatience);
        QVERIFY(areNumbered(end.messages, kMessages));
        peer.send(3000, "later");
        QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(end.messages.size()), kMessages + 1, kPatience);
    }

    void receiverWithAnEventLoopOfItsOwn()
    {
        // The first message's receiver waits for the third; it and those behind come all the same,
        // in their order, whether they were there already or arrive later.
        for (const bool together : {true, false}) {
            RawPeer peer;
            End end(peer.port());
            std::vector<quint16> order;
            bool waited = false;
            QObject::connect(
                end.connection.get(), &Connection::received, end.connection.get(), [&](quint16 id) {
                    order.push_back(id);
                    if (id != 1000)
                        return;
                    if (!together)
                        peer.send(wire::encodeFrame(1001, {}) + wire::encodeFrame(1002, {}));
                    waited = QTest::qWaitFor([&] { return order.size() == 3; });
                });
            QVERIFY(meet(peer));
            peer.send(wire::HelloAnswer, answer());
            QTRY_COMPARE(end.opened, 1);
            peer.send(together ? wire::encodeFrame(1000, {}) + wire::encodeFrame(1001, {})
                              + wire::encodeFrame(1002, {})
                               : wire::encodeFrame(1000, {}));
            QTRY_COMPARE(order.size(), size_t(3));
            QTRY_VERIFY(waited);
            QCOMPARE(order, (std::vector<quint16>{1000, 1001, 1002}));
        }
    }

    void closingFromAReceiver()
    {
        RawPeer peer;
        End end(peer.port());
        QObject::connect(end.connection.get(), &Connection::received, end.connection.get(),
                         [&] { end.connection->close(QStringLiteral("enough")); });
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        peer.send(wire::encodeFrame(1000, {}) + wire::encodeFrame(1001, {}));
        QTRY_COMPARE(end.closed, QStringList{QStringLiteral("enough")});
        QCOMPARE(end.messages.size(), size_t(1));
    }

    void deletingFromAReceiver()
    {
        RawPeer peer;
        End end(peer.port());
        int received = 0;
        Connection *connection = end.connection.release();
        connect(connection, &Connection::received, this, [&] {
            ++received;
            delete connection;
        });
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        peer.send(wire::encodeFrame(1000, {}) + wire::encodeFrame(1001, {}));
        QTRY_COMPARE(received, 1);
        QTRY_COMPARE(peer.socket()->state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(received, 1);
    }

    void overlongBodyIsNotSent()
    {
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        QVERIFY(!end.connection->send(1000, QByteArray(wire::kMaxBody + 1, 'x')));
        QVERIFY(end.connection->send(1001, "{}"));
        std::vector<wire::Frame> frames;
        QTRY_VERIFY(!frames.empty() || !(frames = peer.takeFrames()).empty());
        QCOMPARE(frames.front().id, quint16(1001));
    }

    void peerThatDoesNotReadIsLeft()
    {
        RawPeer peer;
        End end(peer.port());
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE(end.opened, 1);
        peer.socket()->setReadBufferSize(1024);
        const QByteArray body(wire::kMaxBody, 'x');
        int sent = 0;
        while (sent < 100 && end.connection->send(1000, body))
            ++sent;
        QVERIFY(sent < 100);
        QTRY_COMPARE(end.closed.size(), 1);
    }

    /// 4 MiB may wait beside the message that is sent.
    void whatMayWaitForAPeer()
    {
        RawPeer peer;
        End end(peer.port(), kPatient);
        QVERIFY(meet(peer));
        peer.send(wire::HelloAnswer, answer());
        QTRY_COMPARE_WITH_TIMEOUT(end.opened, 1, kPatience);
        int sent = 0; // nothing leaves before the event loop runs
        while (sent < 100 && end.connection->send(1000, QByteArray(1024 * 1024, 'x')))
            ++sent;
        QCOMPARE(sent, 4);
        QTRY_COMPARE_WITH_TIMEOUT(end.closed.size(), 1, kPatience);
    }
};

QTEST_GUILESS_MAIN(TestConnection)
#include "test_connection.moc"
