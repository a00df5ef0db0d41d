#include "wire/connection.h"

#include "wire/ids.h"

#include <QPointer>
#include <QTcpSocket>
#include <algorithm>
#include <utility>

namespace wire {

namespace {

constexpr int kReadBlock = 64 * 1024;
/// What may wait for a peer that does not read; four of the longest frames.
constexpr qint64 kMaxUnsent = 4LL * kMaxBody;

const char *roleName(Connection::Role role)
{
    return role == Connection::Role::Pendant ? "pendant" : "controller";
}

Connection::Role otherRole(Connection::Role role)
{
    return role == Connection::Role::Pendant ? Connection::Role::Controller
                                             : Connection::Role::Pendant;
}

/// Why a greeting is not accepted; empty when it is.
QString objection(const std::optional<Json::Value> &greeting, Connection::Role wanted)
{
    if (!greeting)
        return QStringLiteral("the greeting cannot be read");
    const std::optional<int> protocol = integer(*greeting, "protocol");
    if (protocol != kProtocol) {
        return QStringLiteral("protocol %1 was offered, %2 is spoken here")
            .arg(protocol ? QString::number(*protocol) : QStringLiteral("(none)"))
            .arg(kProtocol);
    }
    if (text(*greeting, "role") != QLatin1String(roleName(wanted)))
        return QStringLiteral("the other end is no %1").arg(QLatin1String(roleName(wanted)));
    return {};
}

} // namespace

Connection::Connection(QTcpSocket *socket, Role role, const Json::Value &greeting,
                       const Timing &timing, QObject *parent)
    : QObject(parent), m_socket(socket), m_role(role), m_greeting(greeting), m_timing(timing)
{
    m_socket->setParent(this);
    m_greeting["protocol"] = kProtocol;
    m_greeting["role"] = roleName(role);

    connect(m_socket, &QTcpSocket::connected, this, &Connection::onConnected);
    connect(m_socket, &QTcpSocket::readyRead, this, &Connection::onReadyRead);
    connect(m_socket, &QTcpSocket::errorOccurred, this, &Connection::onSocketError);
    connect(&m_timer, &QTimer::timeout, this, &Connection::tick);
    connect(&m_greetingTimer, &QTimer::timeout, this,
            [this] { fail(QStringLiteral("no greeting came in time")); });

    m_greetingTimer.setSingleShot(true);
    m_greetingTimer.start(m_timing.greeting);
    if (m_socket->state() == QAbstractSocket::ConnectedState) {
        onConnected();
        if (m_socket->bytesAvailable() > 0)
            QMetaObject::invokeMethod(this, &Connection::onReadyRead, Qt::QueuedConnection);
    }
}

Connection::~Connection()
{
    // The socket tells of its own end while it is deleted; nobody is to hear that any more.
    m_socket->disconnect(this);
}

bool Connection::send(quint16 id, const QByteArray &body)
{
    if (m_state != State::Open || body.size() > kMaxBody)
        return false;
    if (m_socket->bytesToWrite() > kMaxUnsent) {
        fail(QStringLiteral("the other end does not read what it is sent"));
        return false;
    }
    write(id, body);
    return true;
}

void Connection::close(const QString &reason)
{
    if (m_state == State::Closed)
        return;
    m_state = State::Closed;
    m_timer.stop();
    m_greetingTimer.stop();
    m_inbox.clear();
    m_socket->disconnect(this);
    m_socket->abort();
    emit closed(reason);
}

void Connection::onConnected()
{
    // A command is a small frame on its own; waiting for more to send costs 40 ms.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_sinceTick.start();
    m_timer.start(m_timing.heartbeat);
    if (m_role == Role::Pendant)
        write(Hello, writeLine(m_greeting));
}

void Connection::onReadyRead()
{
    if (m_state == State::Failing || m_state == State::Closed)
        return;
    m_silentFor = 0;
    char block[kReadBlock];
    qint64 size = 0;
    while (!m_decoder.failed() && (size = m_socket->read(block, kReadBlock)) > 0) {
        int taken = 0;
        while (taken < size && !m_decoder.failed()) {
            taken += m_decoder.read(block + taken, static_cast<int>(size) - taken);
            if (m_decoder.hasFrame())
                m_inbox.push_back(m_decoder.take());
        }
    }
    if (m_decoder.failed())
        fail(QString::fromLatin1(describe(m_decoder.error())));
    else if (!m_inbox.empty())
        schedule();
}

void Connection::onSocketError()
{
    if (m_state == State::Failing || m_state == State::Closed)
        return;
    const QString reason = m_socket->errorString();
    if (m_socket->bytesAvailable() > 0)
        onReadyRead();
    fail(m_decoder.isInsideFrame() ? QStringLiteral("the connection ended within a frame")
                                   : reason);
}

void Connection::tick()
{
    // What this end slept through itself is not the other end's silence: at most two intervals
    // are charged for one tick.
    m_silentFor +=
        static_cast<int>(std::min<qint64>(m_sinceTick.restart(), 2 * qint64(m_timing.heartbeat)));
    if (m_silentFor > m_timing.silence) {
        fail(QStringLiteral("nothing was heard for %1 ms").arg(m_silentFor));
        return;
    }
    if (m_state == State::Open && !std::exchange(m_hasSent, false))
        write(Heartbeat, {});
}

void Connection::schedule()
{
    if (std::exchange(m_scheduled, true))
        return;
    QMetaObject::invokeMethod(this, &Connection::deliver, Qt::QueuedConnection);
}

void Connection::deliver()
{
    m_scheduled = false;
    const QPointer<Connection> alive(this);
    while (!m_inbox.empty()) {
        const Frame frame = std::move(m_inbox.front());
        m_inbox.pop_front();
        // The receiver may run an event loop of its own: the rest comes on through that one.
        if (!m_inbox.empty() || m_state == State::Failing)
            schedule();
        handle(frame);
        if (!alive || m_state == State::Closed)
            return;
    }
    if (m_state == State::Failing)
        close(m_reason);
}

void Connection::handle(const Frame &frame)
{
    if (m_peer.isNull()) {
        if (m_role == Role::Pendant)
            takeAnswer(frame);
        else if (frame.id == Hello)
            answerHello(frame.body);
        else
            close(QStringLiteral("a message came before the greeting"));
        return;
    }
    if (frame.id == Heartbeat)
        return;
    if (frame.id == Hello || frame.id == HelloAnswer || frame.id == HelloRefusal)
        close(QStringLiteral("a second greeting came"));
    else
        emit received(frame.id, frame.body);
}

void Connection::answerHello(const QByteArray &body)
{
    const std::optional<Json::Value> hello = parseObject(body);
    const QString reason = objection(hello, otherRole(m_role));
    if (!reason.isEmpty()) {
        Json::Value refusal;
        refusal["reason"] = reason.toStdString();
        refusal["protocol"] = kProtocol;
        write(HelloRefusal, writeLine(refusal));
        m_socket->flush();
        close(QStringLiteral("refused: ") + reason);
        return;
    }
    m_peer = *hello;
    m_greetingTimer.stop();
    write(HelloAnswer, writeLine(m_greeting));
    if (m_state == State::Greeting)
        m_state = State::Open;
    emit opened();
}

void Connection::takeAnswer(const Frame &frame)
{
    const std::optional<Json::Value> answer = parseObject(frame.body);
    if (frame.id == HelloRefusal) {
        const std::optional<QString> reason = answer ? text(*answer, "reason") : std::nullopt;
        close(QStringLiteral("the controller refused: ") + reason.value_or(QString()));
        return;
    }
    const QString reason = frame.id == HelloAnswer
        ? objection(answer, otherRole(m_role))
        : QStringLiteral("a message came before the greeting");
    if (!reason.isEmpty()) {
        close(reason);
        return;
    }
    m_peer = *answer;
    m_greetingTimer.stop();
    if (m_state == State::Greeting)
        m_state = State::Open;
    emit opened();
}

void Connection::write(quint16 id, const QByteArray &body)
{
    m_hasSent = true;
    m_socket->write(encodeFrame(id, body));
}

void Connection::fail(const QString &reason)
{
    if (m_state == State::Failing || m_state == State::Closed)
        return;
    m_state = State::Failing;
    m_reason = reason;
    m_timer.stop();
    m_greetingTimer.stop();
    m_socket->disconnect(this);
    m_socket->abort();
    schedule(); // what came whole before is delivered first
}

} // namespace wire
