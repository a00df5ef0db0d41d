// The simulated arms: where the flange is for given axes, which axes lead to a point, and how a
// motion runs in simulated time.

#include "simulator/angles.h"
#include "simulator/arm.h"
#include "simulator/armwords.h"
#include "simulator/robotcell.h"
#include "simulator/toolframes.h"

#include <QtTest>
#include <cmath>

namespace {

constexpr double kPi = angles::kPi;
constexpr ArmSpeed kSlow{240.0, angles::toRadians(30.0)};

double distance(const Pose &a, const Pose &b)
{
    return std::hypot(std::hypot(a[0] - b[0], a[1] - b[1]), a[2] - b[2]);
}

bool near(double a, double b, double within = 1e-3)
{
    return std::abs(a - b) <= within;
}

/// How far apart two poses are turned, in radians.
double turned(const Pose &a, const Pose &b)
{
    return KDL::diff(toFrame(a), toFrame(b)).rot.Norm();
}

Pose withValue(Pose pose, size_t index, double value)
{
    pose[index] = value;
    return pose;
}

} // namespace

class TestArm : public QObject {
    Q_OBJECT

private slots:
    void families_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("axes");
        const int axes[] = {6, 4, 4, 4, 1, 5, 6, 4, 3, 3, 3, 7};
        for (int type = 1; type <= 12; ++type)
            QTest::addRow("type %d", type) << type << axes[type - 1];
    }
    void families()
    {
        QFETCH(int, type);
        QFETCH(int, axes);
        const ArmModel model(type);
        QCOMPARE(model.axes(), axes);
        QCOMPARE(model.type(), type);
        QVERIFY(model.isWithinLimits(model.home()));
        const std::optional<Joints> home = model.solve(model.pose(model.home()), model.home());
        QVERIFY(home);
        for (size_t i = 0; i < kAxes; ++i) {
            QVERIFY(near((*home)[i], model.home()[i], 1e-3));
            if (static_cast<int>(i) >= axes)
                QCOMPARE((*home)[i], 0.0);
        }
    }

    /// What the axes lead to is found again from another start, all over their range.
    void thereAndBack_data() { families_data(); }
    void thereAndBack()
    {
        QFETCH(int, type);
        const ArmModel model(type);
        unsigned state = 7;
        const auto spread = [&state] {
            state = state * 1664525u + 1013904223u;
            return state / 4294967296.0;
        };
        int checked = 0;
        for (int i = 0; i < 60; ++i) {
            Joints joints{};
            for (int axis = 0; axis < model.axes(); ++axis) {
                const auto at = static_cast<size_t>(axis);
                joints[at] = model.low()[at] + spread() * (model.high()[at] - model.low()[at]);
            }
            const Pose wanted = model.pose(joints);
            if (std::hypot(wanted[0], wanted[1]) < 260 && wanted[2] < 710)
                continue; // in its own column
            const std::optional<Joints> found = model.solve(wanted, model.home());
            QVERIFY(found);
            QVERIFY(model.isWithinLimits(*found));
            const Pose reached = model.pose(*found);
            QVERIFY(distance(reached, wanted) < 0.01);
            QVERIFY(turned(reached, wanted) < 1e-3);
            QVERIFY(near(reached[6], wanted[6], 1e-9));
            ++checked;
        }
        QVERIFY(checked > 50);
    }

    /// Positions that can be worked out by hand.
    void fourAxesByHand()
    {
        const ArmModel down(2);
        const ArmModel up(8);
        const Joints joints{
            angles::toRadians(30), angles::toRadians(60), 700.0, angles::toRadians(-45), 0, 0, 0};
        const Pose pose = down.pose(joints);
        QVERIFY(near(pose[0], 750 * std::cos(kPi / 6) + 650 * std::cos(kPi / 2)));
        QVERIFY(near(pose[1], 750 * std::sin(kPi / 6) + 650 * std::sin(kPi / 2)));
        QVERIFY(near(pose[2], 700));
        QVERIFY(near(pose[3], kPi));
        QVERIFY(near(pose[4], 0));
        QVERIFY(near(pose[5], angles::toRadians(45)));
        QCOMPARE(pose[6], 0.0);
        QVERIFY(near(up.pose(joints)[3], 0));
        QVERIFY(near(up.pose(joints)[5], angles::toRadians(45)));
        QCOMPARE(int(down.poseIndex(3)), 5);
    }
    void sixAxesByHand()
    {
        const ArmModel model(1);
        // stretched up: forearm and flange along X
        const Pose up = model.pose(Joints{});
        QVERIFY(near(up[0], 150 + 400 + 350 + 100));
        QVERIFY(near(up[1], 0));
        QVERIFY(near(up[2], 300 + 200 + 700 + 120));
        // at home the flange looks straight down
        const Pose home = model.pose(model.home());
        QVERIFY(near(home[0], 900));
        QVERIFY(near(home[2], 1320 - 100));
        QVERIFY(near(home[3], kPi) && near(home[4], 0) && near(home[5], 0));
        // the first axis turns everything about the base
        Joints aside = model.home();
        aside[0] = kPi / 2;
        const Pose turnedAside = model.pose(aside);
        QVERIFY(near(turnedAside[0], 0) && near(turnedAside[1], 900));
        QVERIFY(near(turnedAside[5], kPi / 2));
    }
    void theSeventhValueIsTheRedundantAxis()
    {
        const ArmModel model(12);
        const Pose home = model.pose(model.home());
        QCOMPARE(home[6], 0.0);
        const Pose bent = withValue(home, 6, 0.5);
        const std::optional<Joints> joints = model.solve(bent, model.home());
        QVERIFY(joints);
        QCOMPARE((*joints)[2], 0.5);
        QVERIFY(distance(model.pose(*joints), home) < 0.01);
        QVERIFY(turned(model.pose(*joints), home) < 1e-3);
        QVERIFY(!near((*joints)[3], model.home()[3]) || !near((*joints)[0], model.home()[0]));
    }

    void whatAnArmDoesNotFollowIsIgnored()
    {
        // a four-axis arm is asked for a point whose a and b nobody ever filled in
        const ArmModel model(3);
        Pose point{};
        point[0] = 900;
        point[1] = 100;
        point[2] = 500;
        point[5] = 0.25;
        const std::optional<Joints> joints = model.solve(point, model.home());
        QVERIFY(joints);
        QVERIFY(distance(model.pose(*joints), point) < 0.01);
        QVERIFY(near(model.pose(*joints)[5], 0.25));
        const ArmModel down(2);
        QVERIFY(down.solve(point, down.home()));
    }

    void outOfReach_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("six, far") << 1 << 5000.0 << 0.0 << 500.0;
        QTest::newRow("six, in its column") << 1 << 0.0 << 0.0 << 0.0;
        QTest::newRow("six, high") << 7 << 0.0 << 500.0 << 4000.0;
        QTest::newRow("four, far") << 2 << 1401.0 << 0.0 << 500.0;
        QTest::newRow("four, low") << 4 << 900.0 << 0.0 << -1.0;
        QTest::newRow("four, too near") << 8 << 10.0 << 0.0 << 500.0;
        QTest::newRow("one") << 5 << 3001.0 << 0.0 << 0.0;
        QTest::newRow("five") << 6 << 100.0 << 1501.0 << 100.0;
        QTest::newRow("three") << 10 << 100.0 << 0.0 << 2001.0;
        QTest::newRow("seven") << 12 << 0.0 << 1300.0 << 400.0;
        QTest::newRow("no number") << 1 << std::nan("") << 0.0 << 500.0;
    }
    void outOfReach()
    {
        QFETCH(int, type);
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        Arm arm(type);
        Pose point = arm.pose();
        point[0] = x;
        point[1] = y;
        point[2] = z;
        QCOMPARE(arm.runTo(point), armword::kOutOfReach);
        QVERIFY(!arm.isMoving());
        QCOMPARE(arm.joints(), arm.model().home());
    }
    void justWithinReach()
    {
        Arm arm(2);
        Pose point = arm.pose();
        point[0] = 1399.9;
        point[1] = 0;
        QVERIFY(!arm.runTo(point));
    }
    void beyondALimit()
    {
        Arm arm(1);
        Joints joints = arm.model().home();
        joints[1] = arm.model().high()[1] + 1e-4;
        QCOMPARE(arm.runTo(joints), armword::kAxisLimit);
        joints[1] = arm.model().high()[1];
        QVERIFY(!arm.runTo(joints));
    }

    /// The flange is never faster than it may be, and the motion takes as long as that says.
    void aRunKeepsItsSpeed_data() { families_data(); }
    void aRunKeepsItsSpeed()
    {
        QFETCH(int, type);
        Arm arm(type);
        Pose wanted = arm.pose();
        wanted[0] -= 200;
        if (arm.model().axes() > 2)
            wanted[2] -= 100;
        QVERIFY(!arm.runTo(wanted));
        constexpr double kTick = 0.02;
        double seconds = 0;
        double fastest = 0;
        while (arm.isMoving() && seconds < 60) {
            const Pose before = arm.pose();
            const Joints axesBefore = arm.joints();
            QVERIFY(!arm.step(kTick, kSlow));
            seconds += kTick;
            const double speed = distance(before, arm.pose()) / kTick;
            QVERIFY2(speed <= kSlow.tip * (1 + 1e-9), qPrintable(QString::number(speed)));
            fastest = std::max(fastest, speed);
            for (int i = 0; i < arm.model().axes(); ++i) {
                const auto at = static_cast<size_t>(i);
                const double most = arm.model().isLinear(i) ? kSlow.tip : kSlow.turn;
                QVERIFY(std::abs(arm.joints()[at] - axesBefore[at]) <= most * kTick * (1 + 1e-9));
            }
        }
        QVERIFY(!arm.isMoving());
        QVERIFY(distance(arm.pose(), wanted) < 0.01);
        QVERIFY(fastest > 50);
        QVERIFY(seconds >= (arm.model().axes() > 2 ? 200.0 : 199.9) / kSlow.tip);
    }
    void aRunDoesNotDependOnTheSteps()
    {
        Arm one(1);
        Arm other(1);
        Pose wanted = one.pose();
        wanted[1] += 300;
        QVERIFY(!one.runTo(wanted) && !other.runTo(wanted));
        one.step(0.5, kSlow);
        for (int i = 0; i < 5; ++i)
            other.step(0.1, kSlow);
        QVERIFY(distance(one.pose(), other.pose()) < 1e-6);
        QVERIFY(one.isMoving());
    }
    void stopIsAtOnce()
    {
        Arm arm(1);
        Pose wanted = arm.pose();
        wanted[1] += 300;
        arm.runTo(wanted);
        arm.step(0.2, kSlow);
        const Joints where = arm.joints();
        QVERIFY(where != arm.model().home());
        arm.stop();
        arm.step(1, kSlow);
        QCOMPARE(arm.joints(), where);
    }

    void jogsOneAxisAsLongAsItIsAsked()
    {
        Arm arm(1);
        const Joints home = arm.joints();
        QVERIFY(!arm.jog({2, -1, 0}));
        QVERIFY(!arm.step(0.2, kSlow));
        const double way = home[1] - arm.joints()[1];
        QVERIFY(way > 0 && way <= angles::toRadians(15) * 0.2);
        // the flange is far out, so that its own limit of 100 mm/s counts
        QVERIFY(near(distance(arm.pose(), arm.model().pose(home)), 20, 0.1));
        for (size_t i = 0; i < kAxes; ++i) {
            if (i != 1)
                QCOMPARE(arm.joints()[i], home[i]);
        }
        QVERIFY(!arm.step(Arm::kJogLasts, kSlow));
        QVERIFY(!arm.isMoving()); // not asked for again
        QVERIFY(!arm.jog({2, -1, 0}));
        QVERIFY(!arm.step(Arm::kJogLasts - 0.1, kSlow));
        QVERIFY(!arm.jog({2, -1, 0}));
        QVERIFY(!arm.step(Arm::kJogLasts - 0.1, kSlow));
        QVERIFY(arm.isMoving());
    }
    /// As fast as jogging allows, or as fast as the axis that has to turn most.
    void jogsOneValueOfThePose_data() { families_data(); }
    void jogsOneValueOfThePose()
    {
        QFETCH(int, type);
        const ArmModel model(type);
        for (int shown = 0; shown < model.poseValues(); ++shown) {
            for (const int direction : {1, -1}) {
                Arm arm(type);
                const Pose before = arm.pose();
                QVERIFY(!arm.jog({shown + 1, direction, 1}));
                QVERIFY(!arm.step(0.3, kSlow));
                const Pose after = arm.pose();
                const size_t index = model.poseIndex(shown);
                const double way = std::remainder(after[index] - before[index], 2 * kPi);
                if (index < 3) {
                    QVERIFY(near((after[index] - before[index]) * direction, 30.0, 0.5));
                    QVERIFY(near(distance(before, after), 30.0, 0.5));
                    QVERIFY(turned(before, after) < 1e-3);
                } else {
                    double farthest = 0;
                    for (int axis = 0; axis < model.axes(); ++axis) {
                        const auto at = static_cast<size_t>(axis);
                        if (!model.isLinear(axis))
                            farthest =
                                std::max(farthest, std::abs(arm.joints()[at] - model.home()[at]));
                    }
                    QVERIFY(
                        near(std::max(way * direction, farthest), angles::toRadians(4.5), 2e-3));
                    QVERIFY(way * direction > angles::toRadians(1.5));
                    QVERIFY(distance(before, after) < 0.01);
                }
            }
        }
        Arm arm(type);
        QCOMPARE(arm.jog({model.axes() + 1, 1, 0}), armword::kNoSuchAxis);
    }
    void aJogEndsAtTheLimit()
    {
        Arm arm(8);
        const char *word = nullptr;
        for (int i = 0; i < 200 && !word; ++i) {
            arm.jog({3, 1, 0});
            word = arm.step(0.1, kSlow);
        }
        QCOMPARE(word, armword::kAxisLimit);
        QVERIFY(near(arm.joints()[2], 1600));
        QVERIFY(!arm.isMoving());
    }
    void aJogEndsWhereTheArmIsStretched()
    {
        Arm arm(1);
        const char *word = nullptr;
        Pose before = arm.pose();
        for (int i = 0; i < 300 && !word; ++i) {
            before = arm.pose();
            arm.jog({1, 1, 1});
            word = arm.step(0.1, kSlow);
            QVERIFY(distance(before, arm.pose()) <= kSlow.tip * 0.1 + 1e-6);
        }
        QCOMPARE(word, armword::kOutOfReach);
        QVERIFY(arm.pose()[0] > 1100);
        QVERIFY(arm.model().isWithinLimits(arm.joints()));
    }
    /// From poses all over the range, wherever the jog leads: no axis is faster than when it is
    /// jogged by itself, neither the flange nor a tip faster than jogging allows.
    void aJogOfThePoseKeepsItsSpeed_data() { families_data(); }
    void aJogOfThePoseKeepsItsSpeed()
    {
        QFETCH(int, type);
        constexpr double kTick = 0.02;
        constexpr double kTip = 100.0;
        const double turn = angles::toRadians(15.0);
        const KDL::Vector tip(0, 120, 400);
        const ArmModel model(type);
        unsigned state = 11;
        const auto spread = [&state] {
            state = state * 1664525u + 1013904223u;
            return state / 4294967296.0;
        };
        double fastest = 0;
        for (int trial = 0; trial < 12; ++trial) {
            Joints start = model.home();
            for (int i = 0; trial > 1 && i < model.axes(); ++i) {
                const auto at = static_cast<size_t>(i);
                start[at] = model.low()[at] + spread() * (model.high()[at] - model.low()[at]);
            }
            if (trial == 1 && model.axes() > 5)
                start[model.axes() == 6 ? 4 : 5] = 0.02; // the wrist is nearly straight
            for (int jogged = 1; jogged <= model.poseValues(); ++jogged) {
                Arm arm(type);
                arm.setTips({tip});
                QVERIFY(!arm.runTo(start));
                while (arm.isMoving())
                    arm.step(1, {1e5, 100});
                const char *word = nullptr;
                for (int i = 0; i < 60 && !word; ++i) {
                    const Joints before = arm.joints();
                    const Pose from = arm.pose();
                    arm.jog({jogged, trial % 2 ? 1 : -1, 1});
                    word = arm.step(kTick, kSlow);
                    for (int axis = 0; axis < model.axes(); ++axis) {
                        const auto at = static_cast<size_t>(axis);
                        const double most = model.isLinear(axis) ? kTip : turn;
                        const double speed = std::abs(arm.joints()[at] - before[at]) / kTick;
                        QVERIFY2(speed <= most * (1 + 1e-5), qPrintable(QString::number(speed)));
                        fastest = std::max(fastest, speed / most);
                    }
                    QVERIFY(distance(from, arm.pose()) <= kTip * kTick * (1 + 1e-5));
                    const KDL::Vector swung =
                        (toFrame(arm.pose()) * (tip / 1000.0) - toFrame(from) * (tip / 1000.0))
                        * 1000.0;
                    QVERIFY2(swung.Norm() <= kTip * kTick * (1 + 1e-5),
                             qPrintable(QString::number(swung.Norm() / kTick)));
                }
            }
        }
        QVERIFY2(fastest > 0.9, qPrintable(QString::number(fastest))); // and they are made use of
    }
    void aJogGetsSlowWhereTheArmGetsStretched_data()
    {
        QTest::addColumn<int>("type");
        for (const int type : {1, 2, 8, 12})
            QTest::addRow("type %d", type) << type;
    }
    /// The last of the way is gone ever more slowly, to within a hundredth of a millimetre.
    void aJogGetsSlowWhereTheArmGetsStretched()
    {
        QFETCH(int, type);
        constexpr double kTick = 0.01;
        Arm arm(type);
        const char *word = nullptr;
        double last = 0;
        double lastWay = 0;
        for (int i = 0; i < 3000 && !word; ++i) {
            const double before = arm.pose()[0];
            arm.jog({1, 1, 1});
            word = arm.step(kTick, kSlow);
            const double way = arm.pose()[0] - before;
            QVERIFY(way > -1e-3);
            if (last > 0 && !word)
                QVERIFY2(way > 0.25 * last || last < 0.2 * 100.0 * kTick,
                         qPrintable(QStringLiteral("%1 after %2").arg(way).arg(last)));
            last = way;
            lastWay = word ? lastWay : way;
        }
        QCOMPARE(word, armword::kOutOfReach);
        QVERIFY2(lastWay < 0.01, qPrintable(QString::number(lastWay)));
    }
    void aStretchedArmIsJoggedBack_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QVector<double>>("axes");
        const double elbow = std::atan2(120.0, 750.0) - kPi / 2; // upper arm and forearm in line
        QTest::newRow("six") << 1 << QVector<double>{0, 0.3, elbow, 0, 0.7, 0};
        QTest::newRow("four") << 2 << QVector<double>{0, 0, 800, 0};
        QTest::newRow("four, flange up") << 8 << QVector<double>{0.3, 0, 500, 0};
        QTest::newRow("seven") << 12 << QVector<double>{0, 0.6, 0, 0, 0, 0.5, 0};
    }
    void aStretchedArmIsJoggedBack()
    {
        QFETCH(int, type);
        QFETCH(QVector<double>, axes);
        Arm arm(type);
        Joints stretched{};
        std::copy(axes.begin(), axes.end(), stretched.begin());
        QVERIFY(!arm.runTo(stretched));
        while (arm.isMoving())
            arm.step(1, {1e5, 100});
        const double from = arm.pose()[0];
        double last = 0;
        for (int i = 0; i < 100; ++i) {
            const double before = arm.pose()[0];
            arm.jog({1, -1, 1});
            const char *word = arm.step(0.02, kSlow);
            QVERIFY2(!word, word);
            const double way = before - arm.pose()[0];
            QVERIFY(way > 0.9 * last); // ever faster
            last = way;
        }
        QVERIFY(from - arm.pose()[0] > 20);
    }
    void anotherTypeStartsAtItsHome()
    {
        Arm arm(1);
        arm.jog({1, 1, 0});
        arm.setType(12);
        QVERIFY(!arm.isMoving());
        QCOMPARE(arm.joints(), ArmModel(12).home());
    }

    // ---- what may move ----------------------------------------------------------------------

    void nothingMovesWithoutDrivesAndEnablingSwitch()
    {
        RobotCell cell;
        const Pose there = withValue(cell.arm(1).pose(), 1, 200);
        QVERIFY(cell.holdSwitch(1, 0));
        QCOMPARE(cell.runTo(1, there, 1), armword::kNotEnabled);
        QVERIFY(!cell.setServo(true, 1));
        QCOMPARE(cell.runTo(1, there, 2), armword::kNotEnabled);
        QCOMPARE(cell.jog(1, {1, 1, 0}, 2), armword::kNotEnabled);
        QVERIFY(!cell.setMode(1, 1));
        QCOMPARE(cell.jog(1, {1, 1, 0}, 1), armword::kNotTeaching);
        QVERIFY(!cell.isMoving());
        QVERIFY(!cell.runTo(1, there, 1));
        QVERIFY(cell.isMoving());
    }
    void whatEndsAMotion_data()
    {
        QTest::addColumn<int>("end");
        QTest::newRow("drives off") << 0;
        QTest::newRow("drives off by another") << 1;
        QTest::newRow("let go") << 2;
        QTest::newRow("not renewed") << 3;
        QTest::newRow("mode") << 4;
    }
    void whatEndsAMotion()
    {
        QFETCH(int, end);
        RobotCell cell;
        cell.setServo(true, 7);
        cell.holdSwitch(7, 0);
        cell.holdSwitch(8, 0);
        QVERIFY(!cell.runTo(1, withValue(cell.arm(1).pose(), 1, 200), 7));
        QVERIFY(!cell.runTo(2, withValue(cell.arm(2).pose(), 1, 200), 7));
        cell.step(0.1);
        const Joints where = cell.arm(1).joints();
        const Joints other = cell.arm(2).joints();
        cell.holdSwitch(8, 0.2);
        cell.letSwitchGo(8); // another pendant's switch is none of its business
        QVERIFY(cell.isMoving(1, 7) && cell.isMoving(2, 7));
        if (end <= 1)
            QVERIFY(!cell.setServo(false, end == 0 ? 7 : 8));
        else if (end == 2)
            cell.letSwitchGo(7);
        else if (end == 3)
            QCOMPARE(cell.expireSwitches(0.5), std::vector<int>{7});
        else
            QVERIFY(!cell.setMode(1, 7));
        QVERIFY(!cell.isMoving());
        cell.step(0.1);
        QVERIFY(!cell.setServo(true, 7));
        cell.holdSwitch(7, 0.5);
        cell.step(0.1);
        QCOMPARE(cell.arm(1).joints(), where); // nothing starts again by itself
        QCOMPARE(cell.arm(2).joints(), other);
    }
    void teachModeIsSlow_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("turns"); ///< a run of the axes that swings the tools
        for (const int type : {1, 2, 12}) {
            QTest::addRow("type %d, straight", type) << type << false;
            QTest::addRow("type %d, turning", type) << type << true;
        }
    }
    /// Neither the flange nor any tool of the robot gets faster than teaching allows.
    void teachModeIsSlow()
    {
        QFETCH(int, type);
        QFETCH(bool, turns);
        constexpr double kTick = 0.01;
        constexpr int kRobot = 4; // the one with the longest tools
        double fastest[2] = {0, 0};
        for (const int mode : {RobotCell::kTeach, 1}) {
            RobotCell cell;
            cell.setType(kRobot, type);
            cell.setServo(true, 1);
            cell.setMode(mode, 1);
            cell.holdSwitch(1, 0);
            Joints turned = cell.arm(kRobot).joints();
            for (size_t i = 0; i < kAxes; ++i)
                turned[i] -= i == 0 || i > 2 ? 0.8 : 0.0;
            const Pose away = withValue(cell.arm(kRobot).pose(), 1, 600);
            QVERIFY(!(turns ? cell.runTo(kRobot, turned, 1) : cell.runTo(kRobot, away, 1)));
            for (int i = 0; i < 2000 && cell.isMoving(); ++i) {
                const KDL::Frame before = toFrame(cell.arm(kRobot).pose());
                cell.step(kTick);
                const KDL::Frame after = toFrame(cell.arm(kRobot).pose());
                const auto look = [&](const KDL::Vector &tip) {
                    const KDL::Vector metres = tip / 1000.0;
                    const double way = (after * metres - before * metres).Norm() * 1000.0;
                    fastest[mode] = std::max(fastest[mode], way / kTick);
                };
                look(KDL::Vector::Zero());
                for (int tool = 1; tool <= toolframes::kTools; ++tool) {
                    const toolframes::Frame frame = toolframes::frameOf(kRobot, tool);
                    look(KDL::Vector(frame[0], frame[1], frame[2]));
                }
            }
            QVERIFY(!cell.isMoving());
        }
        QVERIFY2(fastest[0] < 250, qPrintable(QString::number(fastest[0])));
        QVERIFY2(fastest[0] > 200, qPrintable(QString::number(fastest[0])));
        QVERIFY2(fastest[1] > 250, qPrintable(QString::number(fastest[1])));
    }
};

QTEST_GUILESS_MAIN(TestArm)
#include "test_arm.moc"
