// A thousand messages of 900 bytes from a controller, through checksums, frames and dispatch to the
// signal of Robot; against the same bytes, written in the same pieces, through a bare pair of
// sockets. All over loopback and within this one thread.

#include "robot.h"
#include "rounds.h"
#include "wire/connection.h"
#include "wire/ids.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

namespace {

constexpr int kFrames = 1000;
constexpr int kBodySize = 900;
constexpr int kRounds = 101;
constexpr char kAnswer[] = "{\"protocol\":1,\"role\":\"controller\"}";

QByteArray exampleBody()
{
    QByteArray body = "{\"craftID\":3,\"polish\":{\"toolWear\":0.125},\"robot\":1,\"pad\":\"";
    body += QByteArray(kBodySize - 3 - static_cast<int>(body.size()), 'x');
    return body + "\"}\n";
}

template <typename Condition> void runUntil(Condition condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QTcpSocket *accept(QTcpServer &server)
{
    runUntil([&] { return server.hasPendingConnections(); });
    return server.nextPendingConnection();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QByteArray body = exampleBody();
    const QByteArray frame = wire::encodeFrame(wire::reply::robot_Polish_Para, body);

    QTcpServer server;
    if (!server.listen(QHostAddress::LocalHost)) {
        std::fprintf(stderr, "No port on 127.0.0.1 can be opened.\n");
        return 1;
    }

    Robot *robot = Robot::getInstance();
    int received = 0;
    QObject::connect(robot, &Robot::robot_Polish_Para, robot, [&] { ++received; });
    const auto sendBytes = [&](QTcpSocket *socket) {
        for (int i = 0; i < kFrames; ++i)
            socket->write(frame);
    };

    // Against: two sockets and nothing else.
    QTcpSocket bareSender;
    bareSender.connectToHost(QHostAddress::LocalHost, server.serverPort());
    const std::unique_ptr<QTcpSocket> bareReceiver(accept(server));
    runUntil([&] { return bareSender.state() == QAbstractSocket::ConnectedState; });
    bareSender.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    bareReceiver->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    qint64 arrived = 0;
    QObject::connect(bareReceiver.get(), &QTcpSocket::readyRead, bareReceiver.get(),
                     [&] { arrived += bareReceiver->readAll().size(); });
    const auto throughBareSockets = [&] {
        arrived = 0;
        sendBytes(&bareSender);
        runUntil([&] { return arrived == qint64(kFrames) * frame.size(); });
    };

    // The pendant's end of the link alone: the peer sends the same bytes as above, ready-made.
    robot->connectToController(QStringLiteral("127.0.0.1"), server.serverPort());
    std::unique_ptr<QTcpSocket> peer(accept(server));
    peer->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(peer.get(), &QTcpSocket::readyRead, peer.get(), [&] {
        peer->readAll(); // what the pendant says
        peer->write(wire::encodeFrame(wire::Heartbeat, {}));
    });
    peer->write(wire::encodeFrame(wire::HelloAnswer, kAnswer));
    runUntil([&] { return robot->isConnected(); });
    compare(
        "1000 frames of 900 bytes, the pendant's end of the link against bare sockets", kRounds,
        [&] {
            received = 0;
            sendBytes(peer.get());
            runUntil([&] { return received == kFrames; });
        },
        throughBareSockets);

    // Both ends of the link: the controller's makes each frame of its body.
    robot->connectToController(QStringLiteral("127.0.0.1"), server.serverPort());
    wire::Connection controller(accept(server), wire::Connection::Role::Controller, Json::Value(),
                                wire::Timing());
    runUntil([&] { return robot->isConnected(); });
    compare(
        "1000 frames of 900 bytes, both ends of the link against bare sockets", kRounds,
        [&] {
            received = 0;
            for (int i = 0; i < kFrames; ++i)
                controller.send(wire::reply::robot_Polish_Para, body);
            runUntil([&] { return received == kFrames; });
        },
        throughBareSockets);
    robot->disconnectFromController();
    return 0;
}
