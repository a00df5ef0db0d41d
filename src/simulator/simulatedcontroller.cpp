#include "simulator/simulatedcontroller.h"

#include "link/messages.h"
#include "simulator/armwords.h"
#include "simulator/envelope.h"
#include "simulator/ports.h"
#include "simulator/storewords.h"
#include "wire/ids.h"

#include <QPointer>
#include <QTcpSocket>
#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr char kVersion[] = "1.0";
constexpr int kIoBoard = 1;
constexpr int kServoOff = 1;
/// Connections that may wait for their greeting, and how many are accepted in one turn of the event
/// loop: half as many, so that each is heard before those behind it can take its place.
constexpr int kMaxWaiting = 16;
constexpr int kAcceptedAtOnce = kMaxWaiting / 2;
constexpr int kServoOn = 3;

Json::Value names(const char *stem, int count)
{
    Json::Value list(Json::arrayValue);
    for (int i = 1; i <= count; ++i)
        list.append(stem + std::to_string(i));
    return list;
}

Json::Value greeting()
{
    Json::Value self;
    self["name"] = "Simulated controller";
    self["version"] = kVersion;
    self["simulated"] = true;
    self["ioType"] = kIoBoard;
    const Ports ports;
    self["ports"]["do"] = names("DOUT", ports.digitalOut);
    self["ports"]["di"] = names("DIN", ports.digitalIn);
    self["ports"]["ao"] = names("AO", ports.analogOut);
    return self;
}

} // namespace

SimulatedController::SimulatedController(QObject *parent) : QObject(parent)
{
    m_kinematicTypes.fill(1);
    for (const HandlerTable &table :
         {polishHandlers(), palletModeHandlers(), palletGripperHandlers(), palletTrayHandlers(),
          palletPositionHandlers(), palletWorkpieceHandlers(), palletOverlapHandlers(),
          palletPlaneHandlers(), toolFrameHandlers(), userFrameHandlers(), armHandlers(),
          jobHandlers()}) {
        for (const HandlerRow &row : table)
            m_handlers.insert(row.id, row.handle);
    }
    m_server.setMaxPendingConnections(kAcceptedAtOnce);
    connect(&m_server, &QTcpServer::newConnection, this, &SimulatedController::welcome,
            Qt::QueuedConnection);
    connect(&m_statusTimer, &QTimer::timeout, this, [this] { sendStatus(); });
    m_motionTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_motionTimer, &QTimer::timeout, this, &SimulatedController::moveOn);
}

SimulatedController::~SimulatedController()
{
    stop();
}

bool SimulatedController::start(const Options &options, QString *error)
{
    m_store.open(options.directory);
    m_jobs.setLimits(options.jobs);
    m_timing = options.timing;
    if (!m_server.listen(QHostAddress::LocalHost, options.port)) {
        *error = QStringLiteral("Port %1 on 127.0.0.1 cannot be opened: %2.")
                     .arg(options.port)
                     .arg(m_server.errorString());
        m_store.close();
        return false;
    }
    m_statusTimer.start(options.statusInterval);
    m_cell.setSwitchLasts(options.switchLasts / 1000.0);
    if (options.motionInterval > 0) {
        m_clock.start();
        m_sinceStep.start();
        m_motionTimer.start(options.motionInterval);
    }
    watchStore();
    return true;
}

void SimulatedController::stop()
{
    m_server.close();
    m_statusTimer.stop();
    m_motionTimer.stop();
    m_cell.stopAll();
    while (!m_pendants.empty())
        m_pendants.back().connection->close(QStringLiteral("the controller stops"));
    m_jobs.clear();
    m_store.close();
    m_storeFault.clear();
}

const JobProgram *SimulatedController::job(int robot, const QString &name)
{
    return m_jobs.find(m_store, robot, name);
}

// ---- pendants -----------------------------------------------------------------------------------

void SimulatedController::welcome()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        makeRoom();
        auto *connection = new wire::Connection(socket, wire::Connection::Role::Controller,
                                                greeting(), m_timing, this);
        m_pendants.push_back({connection, {}, socket->peerAddress().toString()});
        m_pendants.back().session.number = ++m_sessions;
        connect(connection, &wire::Connection::opened, this, [this, connection] {
            add(Count::Pendants, 1);
            if (const Pendant *pendant = find(connection))
                sendStatus(*pendant);
        });
        connect(
            connection, &wire::Connection::received, this,
            [this, connection](quint16 id, const QByteArray &body) { take(connection, id, body); });
        connect(connection, &wire::Connection::closed, this,
                [this, connection] { drop(connection); });
    }
}

/// A pendant speaks at once: of too many that have not, the one that had the longest time goes.
void SimulatedController::makeRoom()
{
    const auto waits = [](const Pendant &pendant) { return !pendant.connection->isGreeted(); };
    if (std::count_if(m_pendants.begin(), m_pendants.end(), waits) < kMaxWaiting)
        return;
    const auto oldest = std::find_if(m_pendants.begin(), m_pendants.end(), waits);
    oldest->connection->close(QStringLiteral("too many connections wait for their greeting"));
}

void SimulatedController::drop(wire::Connection *connection)
{
    if (connection->isGreeted())
        add(Count::Pendants, -1);
    if (const Pendant *pendant = find(connection))
        m_cell.letSwitchGo(pendant->session.number);
    m_pendants.erase(std::remove_if(m_pendants.begin(), m_pendants.end(),
                                    [connection](const Pendant &pendant) {
                                        return pendant.connection == connection;
                                    }),
                     m_pendants.end());
    connection->deleteLater();
}

SimulatedController::Pendant *SimulatedController::find(const wire::Connection *connection)
{
    const auto found =
        std::find_if(m_pendants.begin(), m_pendants.end(), [connection](const Pendant &pendant) {
            return pendant.connection == connection;
        });
    return found == m_pendants.end() ? nullptr : &*found;
}

// ---- messages -----------------------------------------------------------------------------------

void SimulatedController::take(wire::Connection *connection, quint16 id, const QByteArray &body)
{
    {
        const QMutexLocker lock(&m_mutex);
        ++m_received[id];
    }
    const QPointer<wire::Connection> alive(connection);
    if (Pendant *pendant = find(connection))
        pendant->session.isTold = false;
    if (const char *wrong = carryOut(connection, id, body)) {
        add(Count::Refused, 1);
        if (Pendant *pendant = find(connection))
            tellOfRefusal(*pendant, id, wrong);
        emit messageRefused(id, QString::fromLatin1(wrong));
    }
    if (alive && faultFor(id, false) == Fault::Cut)
        connection->close(QStringLiteral("cut by the fault that was set"));
}

const char *SimulatedController::carryOut(wire::Connection *connection, quint16 id,
                                          const QByteArray &body)
{
    Pendant *pendant = find(connection);
    if (!pendant)
        return nullptr;
    expireSwitches(); // before a word that comes too late is taken for one in time
    if (id == wire::Key)
        return takeKey(*pendant, body);
    const Handler handle = m_handlers.value(id);
    if (!handle) {
        add(message::name(id) ? Count::Unanswered : Count::Unknown, 1);
        return nullptr;
    }
    const std::optional<Json::Value> parsed =
        body.isEmpty() ? Json::Value(Json::objectValue) : wire::parseObject(body);
    if (!parsed)
        return "the body is no JSON object";
    takeTypes();
    if (!m_cell.isMoving()) // a copy of a large store takes its time
        m_store.copyOncePerDay();
    std::vector<std::pair<quint16, Json::Value>> replies;
    Request request{*parsed,
                    m_store,
                    [&replies](quint16 replyId, const Json::Value &replyBody) {
                        replies.emplace_back(replyId, replyBody);
                    },
                    pendant->session,
                    m_cell,
                    [this, pendant, &parsed](const char *word) {
                        pendant->session.isTold = true;
                        sendStatus(*pendant, envelope::robot(*parsed).value_or(0), word);
                    },
                    m_jobs};
    const char *wrong = carryOut(*pendant, handle, request);
    for (const auto &[replyId, replyBody] : replies) {
        if (!wrong)
            reply(connection, id, replyId, replyBody);
    }
    return wrong;
}

const char *SimulatedController::takeKey(Pendant &pendant, const QByteArray &body)
{
    const std::optional<Json::Value> key = wire::parseObject(body);
    const std::optional<QString> name = key ? wire::text(*key, "key") : std::nullopt;
    const auto value = [&](int lowest, int highest) {
        return key ? envelope::whole(*key, "value", lowest, highest) : std::nullopt;
    };
    Session &session = pendant.session;
    const char *word = nullptr;
    if (name == QLatin1String("servo") && value(0, 1)) {
        word = m_cell.setServo(*value(0, 1) == 1, session.number);
    } else if (name == QLatin1String("deadman") && value(0, 1)) {
        return takeSwitch(pendant, *value(0, 1) == 1);
    } else if (name == QLatin1String("mode") && value(0, 2)) {
        word = m_cell.setMode(*value(0, 2), session.number);
    } else if (name == QLatin1String("robot") && value(1, kRobots)) {
        session.robot = *value(1, kRobots);
        m_cell.release(session.number); // what it no longer looks at stands still
        if (!session.sinceStoreWord.isValid())
            greetOfStore(pendant);
    } else if (name == QLatin1String("kinematic") && value(1, 12)) {
        if (m_cell.isHeldByAnother(session.number))
            word = armword::kControlHeld;
        else
            setKinematicType(session.robot, *value(1, 12));
        takeTypes();
    } else if (name == QLatin1String("restoreParameters") && value(0, 1)) {
        return restoreStore(*value(0, 1) == 1);
    } else if (name == QLatin1String("jog") && value(0, kAxes)) {
        return takeJog(pendant, *key);
    } else {
        return "no such key or value";
    }
    if (word)
        sendStatus(pendant, 0, word);
    else
        sendStatus();
    return nullptr;
}

// Said again and again while the switch is held: only a change is answered.
const char *SimulatedController::takeSwitch(Pendant &pendant, bool held)
{
    const int number = pendant.session.number;
    if (!held)
        m_cell.letSwitchGo(number);
    if (!held || m_cell.holdSwitch(number, lastHeard()))
        sendStatus(pendant);
    return nullptr;
}

// {"key": "jog", "value": axis 1 to 7, "direction": 1 or -1, "coord": 0 or 1}, again and again
// while the key is held; {"key": "jog", "value": 0} when it is let go.
const char *SimulatedController::takeJog(Pendant &pendant, const Json::Value &key)
{
    Session &session = pendant.session;
    Jog jog;
    jog.axis = envelope::whole(key, "value", 0, kAxes).value_or(0);
    if (jog.axis == 0) {
        session.jog = jog;
        m_cell.release(session.number);
        return nullptr;
    }
    const std::optional<int> direction = envelope::whole(key, "direction", -1, 1);
    const std::optional<int> coordinate = envelope::whole(key, "coord", 0, 1);
    if (!direction || *direction == 0 || !coordinate)
        return "direction or coord";
    jog.direction = *direction;
    jog.coordinate = *coordinate;
    // What was refused or has ended is not begun again by a key that is merely still held.
    const bool isRepeated = session.jog == jog;
    session.jog = jog;
    takeTypes();
    if (isRepeated && !m_cell.isMoving(session.robot, session.number))
        return nullptr;
    if (const char *word = m_cell.jog(session.robot, jog, session.number))
        sendStatus(pendant, session.robot, word);
    return nullptr;
}

void SimulatedController::reply(wire::Connection *connection, quint16 request, quint16 id,
                                const Json::Value &body)
{
    int milliseconds = 0;
    const QByteArray text = wire::writeLine(body);
    switch (faultFor(request, true, &milliseconds)) {
    case Fault::None:
        connection->send(id, text);
        break;
    case Fault::Late:
        QTimer::singleShot(milliseconds, connection,
                           [connection, id, text] { connection->send(id, text); });
        break;
    case Fault::Malformed:
        connection->send(id, text.left(text.size() / 2));
        break;
    case Fault::OtherRobot: {
        Json::Value other = body;
        if (const std::optional<int> robot = envelope::robot(body))
            other["robot"] = *robot % kRobots + 1;
        connection->send(id, wire::writeLine(other));
        break;
    }
    case Fault::NoReply:
    case Fault::FirstReplyLost:
    case Fault::Cut:
        break;
    }
}

/// The fault that applies now; a first reply that is lost is lost once.
Fault SimulatedController::faultFor(quint16 id, bool forReply, int *milliseconds)
{
    const QMutexLocker lock(&m_mutex);
    const auto found = m_faults.find(id);
    if (found == m_faults.end())
        return Fault::None;
    if (milliseconds)
        *milliseconds = found->milliseconds;
    if (found->fault == Fault::FirstReplyLost && forReply && std::exchange(found->fired, true))
        return Fault::None;
    return found->fault;
}

// ---- status -------------------------------------------------------------------------------------

void SimulatedController::sendStatus()
{
    for (const Pendant &pendant : m_pendants)
        sendStatus(pendant);
}

Json::Value SimulatedController::statusOf(const Pendant &pendant, int robot) const
{
    Json::Value status;
    status["robot"] = robot;
    status["servo"] = m_cell.servo() ? kServoOn : kServoOff;
    status["deadman"] = m_cell.holdsSwitch(pendant.session.number) ? 1 : 0;
    status["teachMode"] = m_cell.mode();
    const QMutexLocker lock(&m_mutex);
    status["kinematicType"] = m_kinematicTypes.at(static_cast<size_t>(robot - 1));
    return status;
}

/// With a word, that word is about `robot`, or about the pendant's own robot for 0.
void SimulatedController::sendStatus(const Pendant &pendant, int robot, const char *word)
{
    Json::Value status = statusOf(pendant, robot == 0 ? pendant.session.robot : robot);
    if (word) {
        status["message"] = word;
        if (std::string_view(word) == armword::kControlHeld)
            status["holder"] = holderName().toStdString();
        if (std::string_view(word) == storeword::kDamaged)
            addCopy(status);
    }
    pendant.connection->send(wire::Status, wire::writeLine(status));
}

// ---- arms ---------------------------------------------------------------------------------------

/// The types may be set on another thread; the arms belong to this one.
void SimulatedController::takeTypes()
{
    const QMutexLocker lock(&m_mutex);
    for (int robot = 1; robot <= kRobots; ++robot)
        m_cell.setType(robot, m_kinematicTypes.at(static_cast<size_t>(robot - 1)));
}

void SimulatedController::stepArms(double seconds)
{
    m_stepped += seconds;
    expireSwitches();
    takeTypes();
    for (const RobotCell::Stopped &stopped : m_cell.step(seconds)) {
        for (const Pendant &pendant : m_pendants) {
            if (pendant.session.number == stopped.owner)
                sendStatus(pendant, stopped.robot, stopped.word);
        }
    }
}

// A step is never longer than a tenth of a second: what a stalled process has missed of a motion
// is not caught up in one leap. The enabling switches live by the true time.
void SimulatedController::moveOn()
{
    constexpr qint64 kLongest = 100;
    const qint64 elapsed = std::min(m_sinceStep.restart(), kLongest);
    expireSwitches();
    m_ticks = {m_ticks[1], now()};
    if (m_cell.isMoving())
        stepArms(static_cast<double>(elapsed) / 1000.0);
}

// ---- who has control ----------------------------------------------------------------------------

double SimulatedController::now() const
{
    return m_clock.isValid() ? static_cast<double>(m_clock.elapsed()) / 1000.0 : m_stepped;
}

/// When what is read now may have come at the earliest: after what was read before the last tick
/// but one. What waited while this process did not run does not count as fresh.
double SimulatedController::lastHeard() const
{
    return m_clock.isValid() ? m_ticks[0] : now();
}

void SimulatedController::expireSwitches()
{
    for (const int owner : m_cell.expireSwitches(now())) {
        for (const Pendant &pendant : m_pendants) {
            if (pendant.session.number == owner)
                sendStatus(pendant, 0, armword::kNotRenewed);
        }
    }
}

/// What the pendant that has control calls itself, and where it is: "pendant (127.0.0.1)".
QString SimulatedController::holderName() const
{
    constexpr int kLongest = 40;
    for (const Pendant &pendant : m_pendants) {
        if (pendant.session.number != m_cell.holder())
            continue;
        QString name;
        for (const QChar c : wire::text(pendant.connection->peer(), "name").value_or(QString())) {
            if (c.isPrint())
                name.append(c);
        }
        return QStringLiteral("%1 (%2)").arg(name.left(kLongest).trimmed(), pendant.address);
    }
    return {};
}

// ---- safe from any thread -----------------------------------------------------------------------

void SimulatedController::setFault(quint16 id, Fault fault, int milliseconds)
{
    const QMutexLocker lock(&m_mutex);
    if (fault == Fault::None)
        m_faults.remove(id);
    else
        m_faults.insert(id, {fault, milliseconds, false});
}

int SimulatedController::received(quint16 id) const
{
    const QMutexLocker lock(&m_mutex);
    return m_received.value(id);
}

int SimulatedController::refused() const
{
    return value(Count::Refused);
}

int SimulatedController::unanswered() const
{
    return value(Count::Unanswered);
}

int SimulatedController::unknown() const
{
    return value(Count::Unknown);
}

int SimulatedController::pendants() const
{
    return value(Count::Pendants);
}

void SimulatedController::setKinematicType(int robot, int type)
{
    if (robot < 1 || robot > kRobots || type < 1 || type > 12)
        return;
    {
        const QMutexLocker lock(&m_mutex);
        m_kinematicTypes.at(static_cast<size_t>(robot - 1)) = type;
    }
    QMetaObject::invokeMethod(
        this, [this] { sendStatus(); }, Qt::QueuedConnection);
}

void SimulatedController::add(Count count, int number)
{
    const QMutexLocker lock(&m_mutex);
    m_counts.at(static_cast<size_t>(count)) += number;
}

int SimulatedController::value(Count count) const
{
    const QMutexLocker lock(&m_mutex);
    return m_counts.at(static_cast<size_t>(count));
}
