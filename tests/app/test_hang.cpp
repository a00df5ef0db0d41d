// No arm moves without its operator: what becomes of a motion when the pendant that asked for it
// hangs, is cut off, or ends. Pendant and controller run in processes of their own.
//
// `app_hang --measure N` prints for how long the arm still moved, N times for each.

#include "heldpendant.h"

#include "app/operator.h"
#include "app/pendant.h"
#include "pendantstyle.h"
#include "useraccounts.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QPushButton>
#include <QSocketNotifier>
#include <algorithm>
#include <cstdio>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

enum Harm { Stopped, Pulled, Killed, kHarms };
constexpr const char *kHarmNames[] = {"stopped", "cut off", "killed"};

constexpr int kStands = 500; // milliseconds and
constexpr int kAnswers = 50; // answers of the same place: the arm stands
constexpr double kMoved = 30.0; // mm: the arm is under way

// ---- the pendant --------------------------------------------------------------------------------

void print(const QByteArray &line)
{
    std::fputs((line + '\n').constData(), stdout);
    std::fflush(stdout);
}

/// Starts the motion as an operator does. What is held stays held.
bool hold(Operator &hand, int motion)
{
    Robot *robot = Robot::getInstance();
    const auto key = [&hand](const char *name) {
        return support::child<QPushButton>(hand.pendant().window(), name);
    };
    if (robot->get_servo_state() != 3 && !hand.touch(QStringLiteral("servoKey")))
        return false;
    if (!key("jogToggle")->isChecked() && !hand.touch(QStringLiteral("jogToggle")))
        return false;
    const QString coordinate =
        motion == held::JogPose ? QStringLiteral("直角") : QStringLiteral("关节");
    if (key("jogCoordinate")->text() != coordinate && !hand.touch(QStringLiteral("jogCoordinate")))
        return false;
    if (!hand.press(QStringLiteral("deadmanKey"))
        || !hand.waitFor(QStringLiteral("the robot to be enabled"), [robot] {
               return robot->get_servo_state() == 3 && robot->get_deadman_state() == 1;
           }))
        return false;
    if (motion == held::JogAxis || motion == held::JogPose)
        return hand.press(motion == held::JogAxis ? QStringLiteral("jog1plus")
                                                  : QStringLiteral("jog2plus"));
    robot->sendCommandData(message::RunToPoint,
                           motion == held::RunAxes
                               ? "{\"robot\":1,\"type\":1,\"position\":{\"values\":"
                                 "[0,1,0,0,0,0,0,2.5,0,0,0,1.5,0,0]}}"
                               : "{\"robot\":1,\"type\":1,\"position\":{\"values\":"
                                 "[1,1,0,0,0,0,0,-400,800,1220,3.14159,0,2,0]}}");
    return true;
}

/// Takes lines from its input: "hold N" for a motion and "rest"; prints what it has done, and what
/// the controller says to its operator.
int bePendant(quint16 port)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL); // also while it is stopped
    PendantStyle::apply(*qApp);
    const QTemporaryDir data;
    Options options;
    options.controllerHost = QStringLiteral("127.0.0.1");
    options.controllerPort = port;
    options.dataDirectory = data.path();
    options.language = QStringLiteral("zh");
    QString error;
    Pendant pendant;
    if (!pendant.start(options, &error)) {
        qWarning("%s", qPrintable(error));
        return 1;
    }
    UserAccounts::getInstance()->start(true); // nobody has to log in
    pendant.window()->show();
    Operator hand(pendant, data.path());

    QObject::connect(EventLog::getInstance(), &EventLog::recorded, qApp,
                     [](const QString &kind, const QVariantList &values) {
                         if (kind == QLatin1String("controller"))
                             print("said " + values.value(0).toByteArray());
                     });
    QObject::connect(Robot::getInstance(), &Robot::linkChanged, qApp, [](Robot::Link link) {
        if (link == Robot::Link::Lost)
            print("lost");
    });
    const auto ready = [&hand] {
        Robot *robot = Robot::getInstance();
        return hand.waitFor(QStringLiteral("the controller"),
                            [robot] { return robot->get_servo_state() != 0; });
    };
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, qApp, [&] {
        char line[64] = {};
        if (read(STDIN_FILENO, line, sizeof line - 1) <= 0) {
            qApp->quit();
        } else if (QByteArray(line).startsWith("hold ")) {
            print(hold(hand, line[5] - '0') ? "held" : "failed");
        } else {
            for (const char *key : {"jog1plus", "jog2plus", "deadmanKey"})
                hand.letGo(QString::fromLatin1(key));
            print(ready() ? "rests" : "failed");
        }
    });
    print(ready() ? "ready" : "failed");
    const int code = QApplication::exec();
    pendant.stop();
    return code;
}

// ---- the scene ----------------------------------------------------------------------------------

/// What became of a motion.
struct Outcome {
    double way = 0; ///< mm that the arm went on
    qint64 milliseconds = 0; ///< for which it still moved
    qint64 asked = 0; ///< milliseconds between two answers of the controller, on the average
};

/// The controller, the cable and who watches, which stay, and the pendant.
class Scene {
public:
    bool isGood() const { return m_controller.port != 0; }
    held::Watcher &watcher() { return m_watcher; }

    /// A motion under way; a machine that is too slow to renew its switch gets several attempts.
    bool beginMotion(int motion, Harm harm)
    {
        for (int attempt = 0; attempt < 20; ++attempt) {
            if (!m_pendant || m_harm != harm) {
                m_harm = harm;
                m_pendant = std::make_unique<held::PendantProcess>(
                    harm == Pulled ? m_cable.port() : m_controller.port);
                if (!m_pendant->waitFor("ready"))
                    return complain("the pendant does not start");
            }
            m_watcher.home();
            const held::Watcher::Place home = m_watcher.place();
            const int before = m_pendant->said("said notRenewed");
            m_lost = m_pendant->said("lost");
            m_pendant->tell("hold " + QByteArray::number(motion));
            const auto isMoving = [&] {
                return held::Watcher::distance(m_watcher.place(), home) > kMoved;
            };
            const auto hasLapsed = [&] { return m_pendant->said("said notRenewed") > before; };
            if (!held::waitFor([&] { return isMoving() || hasLapsed(); }))
                return complain("the arm does not move");
            if (!hasLapsed() && m_watcher.same() < 5)
                return true;
            if (!rest())
                return false;
        }
        return complain("the machine is too slow to hold a switch");
    }
    Outcome suffer()
    {
        QElapsedTimer since;
        const int answers = m_watcher.answers();
        since.start();
        if (m_harm == Stopped)
            m_pendant->signal(SIGSTOP);
        else if (m_harm == Pulled)
            m_cable.setPulled(true);
        else
            m_pendant.reset();
        const held::Watcher::Place at = m_watcher.placeFromNow();
        Outcome outcome;
        if (!stands())
            return {1e9, 0, 0}; // it goes on and on
        outcome.way = held::Watcher::distance(at, m_watcher.place());
        outcome.milliseconds = std::max<qint64>(0, since.elapsed() - m_watcher.standsFor());
        outcome.asked = since.elapsed() / std::max(1, m_watcher.answers() - answers);
        return outcome;
    }
    /// The pendant goes on, or is heard again; its keys are still held.
    bool wake()
    {
        const int before = m_pendant->said("said notRenewed");
        const int lost = m_lost;
        if (m_harm == Stopped)
            m_pendant->signal(SIGCONT);
        else
            m_cable.setPulled(false);
        // on a machine that is slow enough the link is lost first, which lets go of everything too
        return held::waitFor([&] {
                   return m_pendant->said("said notRenewed") > before
                       || m_pendant->said("lost") > lost;
               })
            || complain("the pendant does not wake");
    }
    /// The operator lets all keys go.
    bool rest()
    {
        const int before = m_pendant->said("rests");
        m_pendant->tell("rest");
        return m_pendant->waitFor("rests", before + 1) || complain("the pendant does not rest");
    }
    bool hasPendant() const { return m_pendant != nullptr; }
    /// Waits until the arm stands, and has for a while from now on.
    bool stands()
    {
        const int from = m_watcher.answers();
        return held::waitFor([&] {
                   return m_watcher.answers() > from + kAnswers && m_watcher.same() > kAnswers
                       && m_watcher.standsFor() > kStands;
               })
            || complain("the arm does not stand");
    }

private:
    static bool complain(const char *sentence)
    {
        qWarning("%s", sentence);
        return false;
    }

    held::ControllerProcess m_controller;
    held::Cable m_cable{m_controller.port};
    held::Watcher m_watcher{m_controller.port};
    std::unique_ptr<held::PendantProcess> m_pendant;
    Harm m_harm = Stopped;
    int m_lost = 0; ///< how often the pendant had lost the link before the motion
};

int measure(int rounds)
{
    Scene scene;
    for (int harm = 0; harm < kHarms; ++harm) {
        for (int motion = 0; motion < held::kMotions; ++motion) {
            std::vector<qint64> times;
            qint64 asked = 0;
            double farthest = 0;
            for (int i = 0; i < rounds; ++i) {
                if (!scene.beginMotion(motion, static_cast<Harm>(harm)))
                    return 1;
                const Outcome outcome = scene.suffer();
                times.push_back(outcome.milliseconds);
                farthest = std::max(farthest, outcome.way);
                asked = std::max(asked, outcome.asked);
                if (scene.hasPendant() && !(scene.wake() && scene.rest()))
                    return 1;
            }
            std::sort(times.begin(), times.end());
            std::printf(
                "%s, %s: median %lld ms, worst %lld ms, %.0f mm at most; seen every %lld ms\n",
                kHarmNames[harm], held::kMotionNames[motion],
                static_cast<long long>(times[times.size() / 2]),
                static_cast<long long>(times.back()), farthest, static_cast<long long>(asked));
            std::fflush(stdout);
        }
    }
    return 0;
}

} // namespace

class TestHang : public QObject {
    Q_OBJECT
private:
    Scene m_scene;

private slots:
    void initTestCase() { QVERIFY2(m_scene.isGood(), "the controller has to be built first"); }

    /// Only a tour, whose keys nobody's hand holds, is given longer.
    void whoIsGivenLonger()
    {
        QString error;
        const QString program = QStringLiteral("pendant");
        QCOMPARE(readOptions({program}, &error)->switchLasts, 0);
        QVERIFY(readOptions({program, QStringLiteral("--tour=pictures")}, &error)->switchLasts
                > SimulatedController::Options().switchLasts);
    }

    void theArmStands_data()
    {
        QTest::addColumn<int>("motion");
        QTest::addColumn<int>("harm");
        for (int harm = 0; harm < kHarms; ++harm) {
            for (int motion = 0; motion < held::kMotions; ++motion)
                QTest::addRow("%s, %s", kHarmNames[harm], held::kMotionNames[motion])
                    << motion << harm;
        }
    }
    /// The way that it still goes is what half a second of that motion makes at most, however slow
    /// the machine is: an arm does not catch up what its controller has missed.
    void theArmStands()
    {
        QFETCH(int, motion);
        QFETCH(int, harm);
        const double fastest = motion == held::JogAxis || motion == held::JogPose ? 100.0 : 240.0;
        QVERIFY(m_scene.beginMotion(motion, static_cast<Harm>(harm)));
        const Outcome outcome = m_scene.suffer();
        QVERIFY2(outcome.way <= 0.5 * fastest, qPrintable(QString::number(outcome.way)));
        if (!m_scene.hasPendant())
            return;

        // woken, with all its keys held, it moves nothing
        const held::Watcher::Place where = m_scene.watcher().place();
        QVERIFY(m_scene.wake());
        QVERIFY(m_scene.stands());
        QVERIFY(m_scene.watcher().place() == where);
        QVERIFY(m_scene.rest());
        QVERIFY(m_scene.stands());
        QVERIFY(m_scene.watcher().place() == where);
        // and pressed anew it moves again
        QVERIFY(m_scene.beginMotion(motion, static_cast<Harm>(harm)));
        QVERIFY(m_scene.rest());
    }
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pendant"));
    const QStringList arguments = QApplication::arguments();
    const int number = arguments.value(2).toInt();
    if (arguments.value(1) == QLatin1String("--pendant"))
        return bePendant(static_cast<quint16>(number));
    if (arguments.value(1) == QLatin1String("--measure"))
        return measure(std::max(1, number));
    TestHang test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_hang.moc"
