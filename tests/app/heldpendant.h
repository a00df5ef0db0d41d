#pragma once

// A pendant in a process of its own whose keys are held, a controller in another, a cable between
// them that can be pulled, and who watches the arm meanwhile.

#include "../support.h"

#include "link/messages.h"
#include "wire/connection.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHostAddress>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <array>
#include <cmath>
#include <csignal>
#include <memory>

namespace held {

/// The motions that a held pendant can be told.
enum Motion { RunAxes, RunToPlace, JogAxis, JogPose, kMotions };
constexpr const char *kMotionNames[] = {"run of the axes", "run to a place", "jog of an axis",
                                        "jog of the pose"};

/// Waits without pausing between two looks, so that what is seen is seen at once; for a minute at
/// most.
template <typename Condition> bool waitFor(const Condition &condition)
{
    const QDeadlineTimer deadline(60000);
    QTimer tick; // wakes the loop where nothing else does
    tick.start(20);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// The `controller` program on a port of its own.
struct ControllerProcess {
    ControllerProcess()
    {
        process.start(
            QString::fromLocal8Bit(CONTROLLER_PROGRAM),
            {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--data"), data.path()});
        QByteArray line;
        while (!line.contains('\n') && process.waitForReadyRead(20000))
            line += process.readAllStandardOutput();
        const QByteArray first = line.left(line.indexOf('\n'));
        port = first.mid(first.lastIndexOf(':') + 1).toUShort();
    }
    ~ControllerProcess()
    {
        process.kill();
        process.waitForFinished();
    }

    QTemporaryDir data;
    QProcess process;
    quint16 port = 0;
};

/// Passes everything on between a pendant and the controller, until it is pulled: then both keep
/// their connection and hear nothing. Put back, it delivers what was sent meanwhile, as a network
/// does.
class Cable : public QObject {
public:
    explicit Cable(quint16 controller)
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QTcpServer::newConnection, this, [this, controller] {
            m_pendant = m_server.nextPendingConnection();
            m_controller = new QTcpSocket(this);
            m_controller->connectToHost(QHostAddress::LocalHost, controller);
            for (QTcpSocket *end : {m_pendant, m_controller}) {
                end->setSocketOption(QAbstractSocket::LowDelayOption, 1);
                connect(end, &QTcpSocket::readyRead, this, &Cable::pass);
            }
            connect(m_controller, &QTcpSocket::connected, this, &Cable::pass);
            connect(m_pendant, &QTcpSocket::disconnected, m_controller, &QTcpSocket::abort);
            connect(m_controller, &QTcpSocket::disconnected, m_pendant, &QTcpSocket::abort);
        });
    }
    quint16 port() const { return m_server.serverPort(); }
    void setPulled(bool pulled)
    {
        pass(); // what has been sent before
        m_isPulled = pulled;
        pass();
    }

private:
    void pass()
    {
        if (m_isPulled || !m_controller || m_controller->state() != QAbstractSocket::ConnectedState)
            return;
        m_controller->write(m_pendant->readAll());
        m_pendant->write(m_controller->readAll());
    }

    QTcpServer m_server;
    QTcpSocket *m_pendant = nullptr;
    QTcpSocket *m_controller = nullptr;
    bool m_isPulled = false;
};

/// The pendant process; it is this program again, told to be one.
class PendantProcess {
public:
    explicit PendantProcess(quint16 port)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--pendant"), QString::number(port)});
    }
    ~PendantProcess() { kill(); }

    void tell(const QByteArray &line) { m_process.write(line + '\n'); }
    void signal(int number) { ::kill(static_cast<pid_t>(m_process.processId()), number); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    /// How often it has printed that line.
    int said(const QByteArray &line)
    {
        m_out += m_process.readAllStandardOutput();
        return m_out.split('\n').count(line);
    }
    bool waitFor(const QByteArray &line, int times = 1)
    {
        return held::waitFor([&] { return said(line) >= times; });
    }

private:
    QProcess m_process;
    QByteArray m_out;
};

/// Asks the controller where the flange is, as fast as it answers.
class Watcher : public QObject {
public:
    explicit Watcher(quint16 port)
        : m_connection(new QTcpSocket, wire::Connection::Role::Pendant, Json::Value(),
                       wire::Timing())
    {
        connect(&m_connection, &wire::Connection::opened, this, [this] { ask(); });
        connect(&m_connection, &wire::Connection::received, this,
                [this](quint16 id, const QByteArray &body) {
                    if (id == wire::reply::receive_moreRobot_CurPosition)
                        take(body);
                });
        m_pause.setSingleShot(true);
        m_pause.setTimerType(Qt::PreciseTimer);
        connect(&m_pause, &QTimer::timeout, this, [this] { ask(); });
        m_connection.findChild<QTcpSocket *>()->connectToHost(QHostAddress::LocalHost, port);
    }

    using Place = std::array<double, 3>;
    static double distance(const Place &a, const Place &b)
    {
        return std::hypot(std::hypot(a[0] - b[0], a[1] - b[1]), a[2] - b[2]);
    }

    const Place &place() const { return m_place; }
    int answers() const { return m_answers; }
    /// Answers with the same place, up to now.
    int same() const { return m_same; }
    /// Since the arm was first seen where it is.
    qint64 standsFor() const { return m_since.isValid() ? m_since.elapsed() : 0; }

    /// The place of an answer to a question that is asked from now on.
    Place placeFromNow()
    {
        const int wanted = m_answers + 2;
        if (!held::waitFor([&] { return m_answers >= wanted; }))
            qFatal("the controller does not answer");
        return m_place;
    }
    /// The robot stands at its home position again.
    void home()
    {
        for (const int type : {7, 1})
            m_connection.send(wire::Key,
                              "{\"key\":\"kinematic\",\"value\":" + QByteArray::number(type) + "}");
        placeFromNow();
    }

private:
    void ask() { m_connection.send(message::GetCurrentPosition, "{\"robot\":1,\"coord\":1}"); }
    void take(const QByteArray &body)
    {
        const QList<QByteArray> numbers =
            QByteArray::fromStdString(support::json(body)["pos"].asString()).split(' ');
        const Place now{numbers.value(2).toDouble(), numbers.value(3).toDouble(),
                        numbers.value(4).toDouble()};
        ++m_answers;
        if (now == m_place) {
            ++m_same;
        } else {
            m_same = 0;
            m_since.start();
            m_place = now;
        }
        m_pause.start(4);
    }

    wire::Connection m_connection;
    QTimer m_pause;
    Place m_place{};
    int m_answers = 0;
    int m_same = 0;
    QElapsedTimer m_since;
};

} // namespace held
