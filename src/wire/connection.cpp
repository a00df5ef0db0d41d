#include "wire/connection.h"

#include "wire/ids.h"

#include <QPointer>
#include <QTcpSocket>
#include <algorithm>
#include <utility>

namespace wire {

namespace {

/// Bytes that are taken from the socket at a time; small enough to stay in the nearest cache.
constexpr int kBlock = 16 * 1024;
/// For how long messages are passed on in one turn of the event loop, in milliseconds.
constexpr int kSlice = 10;
/// After a slice the timer may not be due in the same turn.
constexpr int kPause = 1;
/// Bytes that may wait to be passed on; the rest waits at the other end, which is slowed down by
/// that. Before the greeting it is what the longest greeting needs.
constexpr qint64 kMaxUnread = 1024 * 1024;
constexpr qint64 kMaxUnreadGreeting = kHeaderSize + kMaxGreetingBody;
/// What may wait, beside the message that is sent, for a peer that does not read.
constexpr qint64 kMaxUnsent = 4 * 1024 * 1024;

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
    : QObject(parent), m_socket(socket), m_role(role), m_greeting(greeting), m_timing(timing),
      m_block(kBlock)
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(kMaxUnreadGreeting);
    m_decoder.setMaxBody(kMaxGreetingBody);
    m_greeting["protocol"] = kProtocol;
    m_greeting["role"] = roleName(role);

    connect(m_socket, &QTcpSocket::connected, this, &Connection::onConnected);
    // Unlike readyRead() it also comes while a receiver runs an event loop of its own.
    connect(m_socket, &QTcpSocket::channelReadyRead, this, &Connection::onReadyRead);
    connect(m_socket, &QTcpSocket::errorOccurred, this, [this] { fail(m_socket->errorString()); });
    connect(&m_timer, &QTimer::timeout, this, &Connection::tick);
    connect(&m_greetingTimer, &QTimer::timeout, this,
            [this] { fail(QStringLiteral("no greeting came in time")); });

    m_recall.setSingleShot(true);
    connect(&m_recall, &QTimer::timeout, this, &Connection::deliver);

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
    // A receiver may delete its connection, while the socket is still telling of what it has read.
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket->setParent(nullptr);
    m_socket->deleteLater();
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
    m_recall.stop();
    m_socket->disconnect(this);
    m_socket->flush(); // what was said last, such as that the enabling switch is let go
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
    if (!m_recall.isActive()) // else this turn of the event loop has had its share
        deliver();
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

void Connection::deliver()
{
    if (m_state == State::Closed)
        return;
    const QPointer<Connection> alive(this);
    QElapsedTimer slice;
    slice.start();
    while (nextFrame()) {
        // The receiver may run an event loop of its own: what is here already comes through that.
        if (!m_recall.isActive() && hasMore())
            m_recall.start(0);
        handle(m_decoder.take());
        if (!alive || m_state == State::Closed)
            return;
        // The screen and the timers come first; the rest comes in the next turn.
        if (slice.hasExpired(kSlice) && hasMore()) {
            m_recall.start(kPause);
            return;
        }
    }
    m_recall.stop();
    if (m_decoder.failed())
        close(QString::fromLatin1(describe(m_decoder.error())));
    else if (m_state == State::Failing)
        close(m_decoder.isInsideFrame()
                  ? QStringLiteral("the connection ended within a frame: ") + m_reason
                  : m_reason);
}

/// Whether there is one; the decoder has it then. Frames are made one by one, each when the one
/// before has been dealt with, so that all of them find the same warm memory.
bool Connection::nextFrame()
{
    while (!m_decoder.failed()) {
        if (m_taken == m_filled) {
            m_taken = 0;
            m_filled = fillBlock();
            if (m_filled == 0)
                return false;
        }
        m_taken += m_decoder.read(m_block.data() + m_taken, m_filled - m_taken);
        if (m_decoder.hasFrame()) {
            // Only what is whole counts as heard: the pieces of a frame that never ends do not.
            m_silentFor = 0;
            return true;
        }
    }
    return false;
}

/// Takes the next bytes into the block and returns how many there were. A connection that has
/// failed has only those that were there then.
int Connection::fillBlock()
{
    if (m_state != State::Failing)
        return static_cast<int>(std::max<qint64>(0, m_socket->read(m_block.data(), kBlock)));
    const int size = std::min(kBlock, static_cast<int>(m_rest.size()) - m_restTaken);
    std::copy_n(m_rest.constData() + m_restTaken, size, m_block.data());
    m_restTaken += size;
    return size;
}

bool Connection::hasMore() const
{
    if (m_taken < m_filled)
        return true;
    return m_state == State::Failing ? m_restTaken < m_rest.size() : m_socket->bytesAvailable() > 0;
}

void Connection::handle(const Frame &frame)
{
    if (!isGreeted()) {
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
    greeted(*hello);
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
    greeted(*answer);
    if (m_state == State::Greeting)
        m_state = State::Open;
    emit opened();
}

/// The other end has told who it is, and may say more at a time from here on.
void Connection::greeted(const Json::Value &peer)
{
    m_peer = peer;
    m_greetingTimer.stop();
    m_decoder.setMaxBody(kMaxBody);
    m_socket->setReadBufferSize(kMaxUnread);
}

void Connection::write(quint16 id, const QByteArray &body)
{
    m_hasSent = true;
    const FrameHeader header = frameHeader(id, body);
    m_socket->write(header.data(), kHeaderSize);
    m_socket->write(body);
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
    m_rest = m_socket->read(m_socket->bytesAvailable());
    m_recall.start(0); // what came whole before is delivered first
}

} // namespace wire
