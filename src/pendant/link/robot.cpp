#include "robot.h"

#include "app.h"
#include "eventlog.h"
#include "morerobot.h"
#include "robotprivate.h"
#include "snackbarmessage.h"
#include "wire/connection.h"
#include "wire/ids.h"

#include <QCoreApplication>
#include <QTcpSocket>
#include <algorithm>

namespace {

constexpr int kWarningShown = 5000; // milliseconds
constexpr int kWarningKind = 3;

void journal(const char *what, const QString &detail)
{
    EventLog::getInstance()->record(QStringLiteral("link"), {QString::fromLatin1(what), detail});
}

QByteArray keyBody(const char *name, int value)
{
    Json::Value key;
    key["key"] = name;
    key["value"] = value;
    return wire::writeLine(key);
}

QStringList texts(const Json::Value *array)
{
    QStringList list;
    if (!array)
        return list;
    for (const Json::Value &item : *array)
        list.append(wire::asText(&item).value_or(QString()));
    return list;
}

} // namespace

Robot *Robot::getInstance()
{
    // Never deleted: whatever is torn down at the end of the program may still ask for it.
    static Robot *const instance = new Robot;
    return instance;
}

Robot::Robot(QObject *parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    d->retry.setSingleShot(true);
    connect(&d->retry, &QTimer::timeout, this, [this] { d->open(); });
    connect(&d->renewal, &QTimer::timeout, this, [this] { d->renewDeadman(); });
    if (QCoreApplication::instance()) {
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                &Robot::disconnectFromController);
    }
}

Robot::~Robot() = default;

// ---- messages -----------------------------------------------------------------------------------

void Robot::sendCommandData(const unsigned short &id, const QByteArray &body)
{
    const unsigned short number = id;
    EventLog::getInstance()->record(QStringLiteral("message"), {int(number), body});
    emit commandSent(number, body);

    const QString name = QStringLiteral("0x%1").arg(number, 4, 16, QLatin1Char('0'));
    if (body.size() > wire::kMaxBody)
        journal("refused", name + QStringLiteral(": the body is longer than allowed"));
    else if (wire::hasInfinity(body))
        journal("refused", name + QStringLiteral(": the body holds a number that is not finite"));
    else if (!d->send(number, body))
        d->refuse(name, true);
}

void Robot::requestServo(bool on)
{
    d->sendKey("servo", on ? 1 : 0, on);
}

void Robot::setDeadman(bool held)
{
    const bool isSent = d->sendKey("deadman", held ? 1 : 0, held);
    if (held && isSent)
        d->renewal.start(d->times.renewal);
    else
        d->renewal.stop();
}

void Robot::setTeachMode(int mode)
{
    if (mode >= 0 && mode <= 2)
        d->sendKey("mode", mode, true);
}

void Robot::setKinematicType(int type)
{
    if (type >= 1 && type <= 12 && isSimulated())
        d->sendKey("kinematic", type, true);
}

void Robot::restoreParameters(bool fromCopy)
{
    if (isSimulated())
        d->sendKey("restoreParameters", fromCopy ? 1 : 0, true);
}

void Robot::jog(int axis, int direction, int coordinate)
{
    if (axis == 0)
        d->sendJog(0, 0, 0);
    else if (axis >= 1 && axis <= 7 && qAbs(direction) == 1 && (coordinate == 0 || coordinate == 1))
        d->sendJog(axis, direction, coordinate);
}

void Robot::selectRobot(int robot)
{
    if (robot < 1 || robot > MoreRobot::kRobots)
        return;
    d->sendKey("robot", robot, false);
    d->forgetState();
}

QString Robot::sendJob(int robot, const QString &name, const QByteArray &text)
{
    EventLog::getInstance()->record(QStringLiteral("job"), {QStringLiteral("sendJob"), name});
    Json::Value job;
    job["robot"] = robot;
    job["name"] = name.toStdString();
    job["text"] = text.toStdString();
    const QByteArray body = wire::writeLine(job);
    if (body.size() > wire::kMaxBody)
        return tr("程序太大，不能发送给控制器");
    return d->send(wire::StoreJob, body) ? QString() : tr("控制器未连接");
}

void Robot::robot_key_slot_saftySwitchProcess(int value)
{
    EventLog::getInstance()->record(QStringLiteral("safetySwitch"), {value});
    if (value != 0)
        return;
    d->sendKey("deadman", 0, false);
    d->renewal.stop();
    // The robot is not to count as free to move until the controller's next word.
    if (d->deadman != 0) {
        d->deadman = 0;
        emit statusChanged();
    }
}

int Robot::get_servo_state() const
{
    return d->servo;
}

int Robot::get_deadman_state() const
{
    return d->deadman;
}

int Robot::get_teach_mode() const
{
    return d->teachMode;
}

bool Robot::Private::send(unsigned short id, const QByteArray &body)
{
    return connection && connection->send(id, body);
}

bool Robot::Private::sendKey(const char *name, int value, bool warns)
{
    EventLog::getInstance()->record(QStringLiteral("key"), {QString::fromLatin1(name), value});
    if (send(wire::Key, keyBody(name, value)))
        return true;
    refuse(QStringLiteral("key ") + QString::fromLatin1(name), warns);
    return false;
}

// The journal has the press alone.
void Robot::Private::renewDeadman()
{
    if (!send(wire::Key, keyBody("deadman", 1)))
        renewal.stop();
}

// A held key says the same again and again; the journal has it once.
void Robot::Private::sendJog(int axis, int direction, int coordinate)
{
    const QVector<int> asked{axis, direction, coordinate};
    const bool isNew = jog != asked;
    jog = asked;
    if (isNew) {
        EventLog::getInstance()->record(QStringLiteral("key"),
                                        {QStringLiteral("jog"), axis, direction, coordinate});
    }
    Json::Value key;
    key["key"] = "jog";
    key["value"] = axis;
    if (axis != 0) {
        key["direction"] = direction;
        key["coord"] = coordinate;
    }
    if (!send(wire::Key, wire::writeLine(key)) && isNew)
        refuse(QStringLiteral("key jog"), axis != 0);
}

void Robot::Private::refuse(const QString &what, bool warns)
{
    ++refused;
    journal("refused", what + QStringLiteral(": no controller is connected"));
    if (warns && hasBeenConnected)
        warn();
}

// A page that polls is refused several times a second; the operator is told once in a while.
void Robot::Private::warn()
{
    if (sinceWarning.isValid() && !sinceWarning.hasExpired(times.warning))
        return;
    sinceWarning.start();
    SnackbarMessage::showMessage(Robot::tr("控制器未连接，指令未发送"), kWarningShown, kWarningKind,
                                 true);
}

// ---- link ---------------------------------------------------------------------------------------

void Robot::setLinkTimes(const LinkTimes &times)
{
    d->times = times;
}

void Robot::connectToController(const QString &host, quint16 port)
{
    disconnectFromController();
    d->host = host;
    d->port = port;
    d->setLink(Link::Connecting);
    d->open();
}

void Robot::disconnectFromController()
{
    if (d->link == Link::Off)
        return;
    d->retry.stop();
    if (d->connection) {
        d->connection->disconnect(this);
        d->connection->close(QStringLiteral("the pendant ended the connection"));
        d->connection->deleteLater();
        d->connection = nullptr;
    }
    d->attempt = 0;
    d->lastFailure.clear();
    d->simulated = false;
    journal("off", QString());
    d->setLink(Link::Off);
    d->forgetState();
}

Robot::Link Robot::link() const
{
    return d->link;
}

bool Robot::isSimulated() const
{
    return d->simulated;
}

quint64 Robot::refusedCount() const
{
    return d->refused;
}

void Robot::Private::open()
{
    Json::Value greeting;
    greeting["name"] = QCoreApplication::applicationName().toStdString();
    greeting["version"] = QCoreApplication::applicationVersion().toStdString();
    wire::Timing timing;
    timing.heartbeat = times.heartbeat;
    timing.silence = times.silence;
    timing.greeting = times.greeting;

    auto *socket = new QTcpSocket;
    connection = new wire::Connection(socket, wire::Connection::Role::Pendant, greeting, timing, q);
    connect(connection, &wire::Connection::opened, q, [this] { onOpened(); });
    connect(connection, &wire::Connection::received, q, &Robot::receiveMessage);
    connect(connection, &wire::Connection::closed, q,
            [this](const QString &reason) { onClosed(reason); });
    socket->connectToHost(host, port);
}

void Robot::Private::onOpened()
{
    const bool wasLost = link == Link::Lost;
    const Json::Value greeting = connection->peer();
    const Json::Value *isSimulated = wire::find(greeting, {"simulated"});
    simulated = isSimulated && isSimulated->isBool() && isSimulated->asBool();
    attempt = 0;
    lastFailure.clear();
    hasBeenConnected = true;
    sinceWarning.invalidate();

    journal(wasLost ? "back" : "connected", wire::text(greeting, "name").value_or(QString()));
    setLink(Link::Connected);
    sendKey("robot", MoreRobot::getCurrentRobot(), false);
    takePorts(greeting);
}

void Robot::Private::onClosed(const QString &reason)
{
    connection->deleteLater();
    connection = nullptr;
    if (link == Link::Connected) {
        journal("lost", reason);
        setLink(Link::Lost);
        forgetState();
    } else if (reason != lastFailure) {
        // Attempts go on as long as it takes; the journal has each cause once.
        lastFailure = reason;
        journal("failed", reason);
    }
    if (link == Link::Off || connection) // a receiver of the news has turned the link off or anew
        return;
    retry.start(times.pauses.value(std::min<int>(attempt, times.pauses.size() - 1)));
    ++attempt;
}

void Robot::Private::setLink(Link value)
{
    if (link == value)
        return;
    link = value;
    renewal.stop(); // it was said on the link that was
    emit q->linkChanged(value);
}

void Robot::Private::takePorts(const Json::Value &greeting)
{
    App::m_Select_IO_Type = wire::integer(greeting, "ioType").value_or(0);
    emit q->portsReported(texts(wire::array(greeting, "ports", "do")),
                          texts(wire::array(greeting, "ports", "di")),
                          texts(wire::array(greeting, "ports", "ao")));
    emit q->statusChanged();
}

void Robot::Private::forgetState()
{
    servo = 0;
    deadman = 0;
    emit q->statusChanged();
}
