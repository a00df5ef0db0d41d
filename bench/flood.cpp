// How long the screen of the running pendant stands still while its controller sends without end: a
// hundred thousand messages in one go, and a stream that does not stop for three seconds. Time is
// taken from one drawing of a widget that wants to be drawn all the time to the next.

#include "app/pendant.h"
#include "pendantstyle.h"
#include "robot.h"
#include "veltrixwidgetfoundation.h"
#include "wire/frame.h"
#include "wire/ids.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <cstdio>
#include <limits>

namespace {

constexpr int kBurst = 100000;
constexpr int kLasting = 3000; // milliseconds
constexpr char kEnd[] = "{\"robot\":1,\"value\":0,\"state\":0}"; // the last message of a stream
constexpr char kAnswer[] = "{\"protocol\":1,\"role\":\"controller\"}";

/// A controller that greets and then sends the same frame as often as it is told to.
class Sender : public QThread {
public:
    Sender()
    {
        start();
        m_listening.acquire();
    }
    ~Sender() override
    {
        m_ends = true;
        m_wanted.release();
        wait();
    }

    quint16 port() const { return m_port; }
    void send(const QByteArray &frame, int times)
    {
        m_frame = frame;
        m_left = times;
        m_wanted.release();
    }
    void stop() { m_left = 0; }

private:
    void run() override
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        m_port = server.serverPort();
        m_listening.release();
        if (!server.waitForNewConnection(10000))
            return;
        QTcpSocket *socket = server.nextPendingConnection();
        socket->write(wire::encodeFrame(wire::HelloAnswer, kAnswer));
        socket->waitForBytesWritten();
        for (;;) {
            while (!m_wanted.tryAcquire(1, 500)) { // the link wants to hear something
                socket->write(wire::encodeFrame(wire::Heartbeat, {}));
                socket->waitForBytesWritten();
            }
            if (m_ends)
                return;
            while (m_left > 0 && !m_ends && socket->state() == QAbstractSocket::ConnectedState) {
                for (int i = 0; i < 100 && m_left > 0; ++i, --m_left)
                    socket->write(m_frame);
                while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten(5000)) { }
            }
            m_left = 0;
            socket->write(wire::encodeFrame(wire::reply::sPBtnState, kEnd));
            while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten(5000)) { }
        }
    }

    QSemaphore m_listening;
    QSemaphore m_wanted;
    quint16 m_port = 0;
    QByteArray m_frame;
    std::atomic<int> m_left{0};
    std::atomic<bool> m_ends{false};
};

/// Wants to be drawn all the time, and notes the longest time that it was not.
class Canvas : public QWidget {
public:
    explicit Canvas(QWidget *parent) : QWidget(parent)
    {
        resize(20, 20);
        connect(&m_timer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
        m_timer.start(5);
        show();
        raise();
    }
    void begin()
    {
        longest = 0;
        m_since.start();
    }
    qint64 longest = 0;

protected:
    void paintEvent(QPaintEvent *) override { longest = std::max(longest, m_since.restart()); }

private:
    QTimer m_timer;
    QElapsedTimer m_since;
};

template <typename Condition> void runUntil(Condition condition)
{
    QTimer awake;
    awake.start(5);
    QEventLoop loop;
    QObject::connect(&awake, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.quit();
    });
    loop.exec();
}

QByteArray polishReply()
{
    QByteArray body = "{\"craftID\":1,\"polish\":{\"toolWear\":0.125},\"robot\":1,\"pad\":\"";
    body += QByteArray(897 - static_cast<int>(body.size()), 'x');
    return wire::encodeFrame(wire::reply::robot_Polish_Para, body + "\"}\n");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PendantStyle::apply(application);
    const QTemporaryDir directory;
    Sender sender;
    Options options;
    options.dataDirectory = directory.path();
    options.controllerHost = QStringLiteral("127.0.0.1");
    options.controllerPort = sender.port();
    Pendant pendant;
    QString error;
    if (!pendant.start(options, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    pendant.window()->show();
    Robot *robot = Robot::getInstance();
    runUntil([&] { return robot->isConnected(); });
    Canvas canvas(pendant.window());
    bool isOver = false;
    QObject::connect(robot, &Robot::sPBtnState, robot, [&] { isOver = true; });
    const auto runToTheEnd = [&] {
        runUntil([&] { return isOver || !robot->isConnected(); });
        isOver = false;
    };

    const struct {
        const char *what;
        QByteArray frame;
    } kinds[] = {
        {"replies of 900 bytes", polishReply()},
        {"heartbeats", wire::encodeFrame(wire::Heartbeat, {})},
        {"statuses with a word",
         wire::encodeFrame(wire::Status, "{\"robot\":1,\"servo\":3,\"message\":\"axisLimit\"}")},
        {"messages that mean nothing", wire::encodeFrame(0x7777, "{}")},
    };
    for (const auto &kind : kinds) {
        canvas.begin();
        QElapsedTimer all;
        all.start();
        sender.send(kind.frame, kBurst);
        runToTheEnd();
        const qint64 burst = canvas.longest;
        const qint64 taken = all.elapsed();
        canvas.begin();
        sender.send(kind.frame, std::numeric_limits<int>::max());
        all.start();
        runUntil([&] { return all.hasExpired(kLasting); });
        sender.stop();
        runToTheEnd();
        std::printf("%s: longest stall %lld ms under %d of them (%lld ms), %lld ms under a lasting "
                    "stream; %s\n",
                    kind.what, static_cast<long long>(burst), kBurst, static_cast<long long>(taken),
                    static_cast<long long>(canvas.longest),
                    robot->isConnected() ? "connected" : "the link was lost");
        std::fflush(stdout);
    }
    pendant.stop();
    return 0;
}
