// The enabling switches of several pendants: how long they stay held, and who has control.

#include "simulator/armwords.h"
#include "simulator/robotcell.h"

#include <QtTest>

namespace {

using Owners = std::vector<int>;

constexpr double kAway = 0.5; // rad, of the first axis

Joints elsewhere(const RobotCell &cell, int robot)
{
    Joints joints = cell.arm(robot).joints();
    joints[0] += kAway;
    return joints;
}

} // namespace

class TestEnablingSwitches : public QObject {
    Q_OBJECT

private slots:
    void heldAsLongAsItIsSaid()
    {
        EnablingSwitches switches;
        QVERIFY(!switches.isHeld(1));
        QVERIFY(switches.hold(1, 10.0));
        for (int i = 1; i < 100; ++i) {
            QVERIFY(switches.expire(10.0 + i * 0.1).empty());
            QVERIFY(!switches.hold(1, 10.0 + i * 0.1)); // no press
            QVERIFY(switches.isHeld(1));
        }
        QVERIFY(switches.expire(20.34).empty());
        QCOMPARE(switches.expire(19.91 + EnablingSwitches::kLasts), Owners{1});
        QVERIFY(!switches.isHeld(1));
        QVERIFY(switches.expire(30.0).empty()); // told once
    }
    void aLapsedSwitchHasToBeLetGo()
    {
        EnablingSwitches switches;
        switches.hold(1, 0);
        switches.expire(1);
        for (int i = 0; i < 5; ++i) {
            QVERIFY(!switches.hold(1, 1 + i * 0.1));
            QVERIFY(!switches.isHeld(1));
        }
        switches.queue(1); // nor does it come to control by asking
        QCOMPARE(switches.holder(), 0);
        switches.letGo(1);
        QVERIFY(switches.hold(1, 2));
        QVERIFY(switches.isHeld(1));
        QCOMPARE(switches.holder(), 1);
    }
    void anotherLast()
    {
        EnablingSwitches switches;
        switches.setLasts(5);
        switches.hold(1, 0);
        QVERIFY(switches.expire(4.99).empty());
        QCOMPARE(switches.expire(5), Owners{1});
    }
    void theLine()
    {
        EnablingSwitches switches;
        QCOMPARE(switches.holder(), 0);
        switches.hold(3, 0);
        switches.hold(1, 0.1);
        switches.hold(2, 0.2);
        QCOMPARE(switches.holder(), 3);
        switches.hold(1, 0.3);
        QCOMPARE(switches.holder(), 3);
        QCOMPARE(switches.expire(0.5), Owners{3});
        QCOMPARE(switches.holder(), 1); // held longest now
        switches.letGo(3);
        switches.hold(3, 0.5);
        switches.letGo(1);
        QCOMPARE(switches.holder(), 2);
        switches.letGo(2);
        QCOMPARE(switches.holder(), 3);
        switches.letGo(3);
        QCOMPARE(switches.holder(), 0);
        switches.letGo(9);
    }
    void anEmptiedLine()
    {
        EnablingSwitches switches;
        switches.hold(1, 0);
        switches.hold(2, 0);
        switches.emptyLine();
        QCOMPARE(switches.holder(), 0);
        QVERIFY(switches.isHeld(1) && switches.isHeld(2));
        switches.hold(1, 0.1); // still held is no press
        QCOMPARE(switches.holder(), 0);
        switches.queue(2);
        switches.queue(1);
        switches.queue(2);
        QCOMPARE(switches.holder(), 2);
    }

    // ---- what control is about ------------------------------------------------------------------

    void onlyTheHolderMovesSwitchesOnAndChangesTheMode()
    {
        RobotCell cell;
        QVERIFY(!cell.setServo(true, 1));
        cell.holdSwitch(1, 0);
        cell.holdSwitch(2, 0);
        QCOMPARE(cell.runTo(1, elsewhere(cell, 1), 2), armword::kControlHeld);
        QCOMPARE(cell.runTo(3, cell.arm(3).pose(), 2), armword::kControlHeld); // another robot too
        QCOMPARE(cell.jog(1, {1, 1, 0}, 2), armword::kControlHeld);
        QCOMPARE(cell.setServo(true, 2), armword::kControlHeld);
        QCOMPARE(cell.setMode(1, 2), armword::kControlHeld);
        QCOMPARE(cell.setMode(1, 3), armword::kControlHeld); // with its switch let go as well
        QCOMPARE(cell.mode(), 0);
        QVERIFY(!cell.isMoving());
        QVERIFY(!cell.setMode(1, 1));
        QVERIFY(!cell.setServo(true, 1));
        QVERIFY(!cell.runTo(1, elsewhere(cell, 1), 1));
    }
    void whileNobodyHoldsEverybodyMay()
    {
        RobotCell cell;
        QVERIFY(!cell.setServo(true, 1));
        QVERIFY(!cell.setMode(2, 2));
        QVERIFY(!cell.setServo(false, 3));
        QVERIFY(!cell.setServo(true, 3));
    }
    void drivesOnWhileAnotherHoldsIsRefused()
    {
        RobotCell cell;
        cell.holdSwitch(1, 0);
        QCOMPARE(cell.setServo(true, 2), armword::kControlHeld);
        QVERIFY(!cell.servo());
        QVERIFY(!cell.setServo(true, 1));
    }
    void everybodyStops()
    {
        RobotCell cell;
        cell.setServo(true, 1);
        cell.holdSwitch(1, 0);
        QVERIFY(!cell.runTo(1, elsewhere(cell, 1), 1));
        QVERIFY(!cell.setServo(false, 2));
        QVERIFY(!cell.isMoving());
        // control is free: the first that takes it has it
        QVERIFY(!cell.setServo(true, 2)); // does not hold its switch, so it takes nothing
        QVERIFY(!cell.runTo(1, elsewhere(cell, 1), 1));
        cell.holdSwitch(2, 0);
        QCOMPARE(cell.runTo(1, elsewhere(cell, 1), 2), armword::kControlHeld);
        cell.setServo(false, 2);
        QVERIFY(!cell.setServo(true, 2)); // holds it now
        QCOMPARE(cell.runTo(1, elsewhere(cell, 1), 1), armword::kControlHeld);
        QVERIFY(!cell.runTo(1, elsewhere(cell, 1), 2));
    }
    void theNextInLineStartsNothingByItself()
    {
        RobotCell cell;
        cell.setServo(true, 1);
        cell.holdSwitch(1, 0);
        cell.holdSwitch(2, 0.4);
        QVERIFY(!cell.runTo(1, elsewhere(cell, 1), 1));
        QCOMPARE(cell.runTo(2, elsewhere(cell, 2), 2), armword::kControlHeld);
        cell.step(0.1);
        const Joints where = cell.arm(1).joints();
        QCOMPARE(cell.expireSwitches(0.5), Owners{1});
        cell.step(1);
        QCOMPARE(cell.arm(1).joints(), where);
        QCOMPARE(cell.arm(2).joints(), cell.arm(2).model().home());
        QCOMPARE(cell.runTo(1, elsewhere(cell, 1), 1), armword::kNotEnabled);
        QVERIFY(!cell.runTo(2, elsewhere(cell, 2), 2));
        QVERIFY(cell.isMoving(2, 2) && !cell.isMoving(2, 1) && !cell.isMoving(1, 1));
    }
};

QTEST_GUILESS_MAIN(TestEnablingSwitches)
#include "test_enablingswitches.moc"
