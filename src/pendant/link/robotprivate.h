#pragma once

#include "robot.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointer>
#include <QTimer>

namespace Json {
class Value;
}
namespace wire {
class Connection;
}

/// What Robot keeps: the connection and what the controller has said of itself.
struct Robot::Private {
    explicit Private(Robot *robot) : q(robot) { }

    void open();
    void onOpened();
    void onClosed(const QString &reason);
    void setLink(Link value);
    void takePorts(const Json::Value &greeting);
    /// Servo and enabling switch are unknown from here on, which reads as "do not move".
    void forgetState();

    bool send(unsigned short id, const QByteArray &body);
    /// False when no controller is connected.
    bool sendKey(const char *name, int value, bool warns);
    void renewDeadman();
    void sendJog(int axis, int direction, int coordinate);
    void refuse(const QString &what, bool warns);
    void warn();

    void applyStatus(const QByteArray &body);
    void applyJobCheck(const QByteArray &body);
    /// Shows what a status message says to the operator.
    void say(const QString &message, const QString &holder);
    /// Tells that a message was not carried out: in the journal each time, on the screen and in the
    /// log once a second for the same id and reason.
    void sayRefused(const Json::Value &status);
    void show(const QString &text);

    Robot *q;
    LinkTimes times;

    QString host;
    quint16 port = 0;
    Link link = Link::Off;
    QPointer<wire::Connection> connection;
    QTimer retry;
    QTimer renewal; ///< says again that the enabling switch is held
    int attempt = 0;
    bool hasBeenConnected = false; ///< in this run of the program
    QString lastFailure; ///< of the attempts since the link was last up
    QElapsedTimer sinceWarning;
    QHash<QString, QElapsedTimer> refusalsShown; ///< within the last second, by what was said
    quint64 refused = 0;

    bool simulated = false;
    int servo = 0;
    int deadman = 0;
    int teachMode = 0;
    QVector<int> jog; ///< axis, direction and coordinate that were last asked for; empty: none
};
