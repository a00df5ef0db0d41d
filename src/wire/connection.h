#pragma once

#include "wire/frame.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <vector>

class QTcpSocket;

namespace wire {

/// The longest body before the greeting is complete: whoever has not said yet who he is gets no
/// more room than a greeting needs.
constexpr int kMaxGreetingBody = 4 * 1024;

/// Version of the messages that both ends have to agree on.
constexpr int kProtocol = 1;

/// The time limits of a connection, in milliseconds.
struct Timing {
    int heartbeat = 1000; ///< an end that has sent nothing else for so long sends a heartbeat
    int silence = 3500; ///< an end that has heard no whole frame for so long closes
    int greeting = 3000; ///< from the start, the TCP connect included, to the completed greeting
};

/// One end of the connection between a pendant and a controller: greeting, frames, heartbeat.
///
/// Messages are passed on in the order in which they came, each whole and checked, and only after
/// the greeting; for a few milliseconds in each turn of the event loop, so that a peer who sends
/// without end does not stop the screen. A receiver may run an event loop of its own and goes on
/// receiving in it, and it may close or delete the connection. The end of a connection is told
/// once, by closed(), after the last message that came whole.
class Connection : public QObject {
    Q_OBJECT
public:
    enum class Role { Pendant, Controller };

    /// Takes the socket over, connected or still connecting. `greeting` is what this end tells of
    /// itself; protocol and role are added.
    Connection(QTcpSocket *socket, Role role, const Json::Value &greeting, const Timing &timing,
               QObject *parent = nullptr);
    ~Connection() override;

    /// False when the greeting is not complete, the connection is at its end, or `body` is longer
    /// than kMaxBody; the message is not kept.
    bool send(quint16 id, const QByteArray &body);

    bool isOpen() const { return m_state == State::Open; }
    /// Whether the other end has told who it is.
    bool isGreeted() const { return !m_peer.isNull(); }
    /// What the other end told of itself, once greeted.
    const Json::Value &peer() const { return m_peer; }

    /// Ends the connection now; what has not been delivered yet is dropped.
    void close(const QString &reason);

signals:
    void opened();
    void received(quint16 id, const QByteArray &body);
    void closed(const QString &reason);

private:
    enum class State { Greeting, Open, Failing, Closed };

    void onConnected();
    void onReadyRead();
    void tick();
    void deliver();
    bool nextFrame();
    int fillBlock();
    bool hasMore() const;
    void greeted(const Json::Value &peer);
    void handle(const Frame &frame);
    void answerHello(const QByteArray &body);
    void takeAnswer(const Frame &frame);
    void write(quint16 id, const QByteArray &body);
    void fail(const QString &reason);

    QTcpSocket *m_socket;
    Role m_role;
    Json::Value m_greeting;
    Json::Value m_peer;
    Timing m_timing;
    State m_state = State::Greeting;
    QString m_reason;

    FrameDecoder m_decoder;
    std::vector<char> m_block; ///< bytes on their way from the socket to the decoder
    int m_filled = 0;
    int m_taken = 0; ///< of those filled
    QByteArray m_rest; ///< what was left in the socket when the connection failed
    int m_restTaken = 0; ///< of the rest

    QTimer m_timer;
    QTimer m_greetingTimer;
    QTimer m_recall; ///< calls deliver() again in the next turn of the event loop
    QElapsedTimer m_sinceTick;
    int m_silentFor = 0; ///< milliseconds, as this end's event loop has seen them
    bool m_hasSent = false; ///< since the last tick
};

} // namespace wire
