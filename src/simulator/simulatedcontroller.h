#pragma once

#include "simulator/fault.h"
#include "simulator/handlers.h"
#include "simulator/jobs.h"
#include "simulator/parameterstore.h"
#include "simulator/robotcell.h"
#include "simulator/session.h"
#include "wire/connection.h"

#include <QElapsedTimer>
#include <QHash>
#include <QMutex>
#include <QTcpServer>
#include <QTimer>
#include <array>
#include <vector>

/// A robot controller on the desk: a TCP server on 127.0.0.1 that keeps parameters, answers the
/// pendants that connect, and can be told to misbehave.
///
/// It lives on one thread; the calls that say so are safe from any.
class SimulatedController : public QObject {
    Q_OBJECT
public:
    static constexpr int kRobots = RobotCell::kRobots;

    struct Options {
        QString directory; ///< of the parameter store; made when it is missing
        quint16 port = 0; ///< 0: any free one
        wire::Timing timing;
        int statusInterval = 200; ///< milliseconds between two status messages
        int motionInterval = 20; ///< milliseconds between two steps of the arms; 0: stepArms() only
        /// Milliseconds from the last word of a held enabling switch to its lapse.
        int switchLasts = static_cast<int>(1000 * EnablingSwitches::kLasts);
        JobShelf::Limits jobs;
    };

    explicit SimulatedController(QObject *parent = nullptr);
    ~SimulatedController() override;

    /// Opens the store and listens; false with `error` filled when it cannot listen. A store that
    /// cannot be used keeps no controller from starting: it is told, and what would need the store
    /// is refused.
    bool start(const Options &options, QString *error);
    /// Ends all connections and closes the store.
    void stop();
    /// The port it listens on; 0 when it does not.
    quint16 port() const { return m_server.serverPort(); }

    /// Lets the arms move for that time, in seconds. Without a motion interval it is the time of
    /// the enabling switches too.
    void stepArms(double seconds);
    const RobotCell &cell() const { return m_cell; }
    const ParameterStore &store() const { return m_store; }
    /// The job that was accepted for robot 1 to 4 under that name, also before the controller was
    /// last started; null when there is none.
    const JobProgram *job(int robot, const QString &name);

    // ---- safe from any thread -------------------------------------------------------------------
    /// How it misbehaves on that message from now on. `milliseconds` delays a late reply.
    void setFault(quint16 id, Fault fault, int milliseconds = 1000);
    /// How often a message with that id has come.
    int received(quint16 id) const;
    /// Messages that were refused because of what they held.
    int refused() const;
    /// Messages of the catalogue that nothing here answers yet.
    int unanswered() const;
    /// Whether something here carries out a message with that id.
    bool answers(quint16 id) const { return m_handlers.contains(id); }
    /// Messages that are not in the catalogue.
    int unknown() const;
    int pendants() const;
    /// The type of robot 1 to 4, 1 to 12; other numbers change nothing.
    void setKinematicType(int robot, int type);

signals:
    /// A message was not carried out: its id and what is wrong with it.
    void messageRefused(quint16 id, const QString &reason);
    /// Something is wrong with the parameter store, or it was put right: one sentence, for the log.
    void storeTold(const QString &sentence);

private:
    struct Pendant {
        wire::Connection *connection;
        Session session;
        QString address;
    };
    struct FaultState {
        Fault fault = Fault::None;
        int milliseconds = 0;
        bool fired = false;
    };
    enum class Count { Refused, Unanswered, Unknown, Pendants };

    void welcome();
    void makeRoom();
    void drop(wire::Connection *connection);
    Pendant *find(const wire::Connection *connection);
    void take(wire::Connection *connection, quint16 id, const QByteArray &body);
    const char *carryOut(wire::Connection *connection, quint16 id, const QByteArray &body);
    const char *takeKey(Pendant &pendant, const QByteArray &body);
    const char *takeJog(Pendant &pendant, const Json::Value &key);
    const char *takeSwitch(Pendant &pendant, bool held);
    // storemessages.cpp
    const char *carryOut(Pendant &pendant, Handler handle, Request &request);
    const char *restoreStore(bool fromCopy);
    void watchStore();
    void greetOfStore(Pendant &pendant);
    void tellOfStore(Pendant &pendant, const char *word);
    void addCopy(Json::Value &status) const;

    void takeTypes();
    void moveOn();
    double now() const;
    double lastHeard() const;
    void expireSwitches();
    QString holderName() const;
    void reply(wire::Connection *connection, quint16 request, quint16 id, const Json::Value &body);
    Fault faultFor(quint16 id, bool forReply, int *milliseconds = nullptr);
    void sendStatus();
    void sendStatus(const Pendant &pendant, int robot = 0, const char *word = nullptr);
    Json::Value statusOf(const Pendant &pendant, int robot) const;
    void tellOfRefusal(Pendant &pendant, quint16 id, const char *reason); // refusals.cpp
    void add(Count count, int number);
    int value(Count count) const;

    QTcpServer m_server{this}; // children, so that they go where this one is moved
    QTimer m_statusTimer{this};
    ParameterStore m_store;
    QString m_storeFault; ///< the last that was told
    QHash<quint16, Handler> m_handlers;
    wire::Timing m_timing;
    std::vector<Pendant> m_pendants;

    RobotCell m_cell;
    JobShelf m_jobs;
    QTimer m_motionTimer{this};
    QElapsedTimer m_sinceStep;
    QElapsedTimer m_clock; ///< of the enabling switches; without a motion interval it stands still
    double m_stepped = 0; ///< seconds, by stepArms()
    std::array<double, 2> m_ticks{}; ///< when the arms last had their turns, the older one first
    int m_sessions = 0; ///< counted, so that each has a number of its own

    mutable QMutex m_mutex; ///< for what follows
    QHash<quint16, FaultState> m_faults;
    QHash<quint16, int> m_received;
    std::array<int, 4> m_counts{};
    std::array<int, kRobots> m_kinematicTypes;
};
