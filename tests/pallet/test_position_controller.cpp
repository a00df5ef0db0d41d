// The position page at work with the simulated controller and its arms, over the real link.

#include "drivenarm.h"
#include "positionpage.h"

using support::areClose;
using support::child;
using support::click;
using support::kPatience;
using support::values;

class TestPositionController : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;
    support::DrivenArm arm;

    QStringList live() const { return values(pages, QStringLiteral("CurrentPoint")); }

    void open(int robotNumber, int craft) const
    {
        MoreRobot::setCurrentRobot(robotNumber);
        child<QComboBox>(pages, "m_pPalletCraftNum")->setCurrentIndex(craft - 1);
        for (const QString &point : support::kPoints)
            support::setValues(pages, point, QStringLiteral("--"));
        pages->palletSetPositionWidget();
    }

    /// The arm turns its first axis until its place on the page has moved by 20 mm.
    bool moveAway() const
    {
        return arm.moveAway([this] { return live(); }, 2, 20.0);
    }

private slots:
    void initTestCase()
    {
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        QVERIFY(arm.start(pages));
    }

    void cleanup()
    {
        robot->setDeadman(false);
        App::isDeg = false;
        MoreRobot::setCurrentRobot(1);
    }

    void cleanupTestCase() { robot->disconnectFromController(); }

    void teachAndDrive_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("degrees");
        QTest::addColumn<int>("count"); // of the values that are shown and kept
        QTest::newRow("six axes, radians") << 1 << false << 6;
        QTest::newRow("six axes, degrees") << 1 << true << 6;
        QTest::newRow("four axes, radians") << 2 << false << 4;
        QTest::newRow("four axes, degrees") << 2 << true << 4;
        QTest::newRow("seven axes, radians") << 12 << false << 6;
        QTest::newRow("three axes, degrees") << 9 << true << 3;
    }
    /// An operator marks where the arm is, saves, moves it away, reads the points again, and drives
    /// back to each of them.
    void teachAndDrive()
    {
        QFETCH(int, type);
        QFETCH(bool, degrees);
        QFETCH(int, count);
        App::isDeg = degrees;
        QVERIFY(arm.becomes(type));
        pages->initPalletRobotType();

        open(1, 2);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        click(pages, "positionModifyBtn");
        click(pages, "positionEntrancePoint");
        const QStringList entrance = values(pages, QStringLiteral("EntrancePoint"));
        QVERIFY(moveAway());
        click(pages, "positionAuxiliaryPoint");
        const QStringList auxiliary = values(pages, QStringLiteral("AuxiliaryPoint"));
        QVERIFY(moveAway());
        click(pages, "positionJobPoint");
        const QStringList job = values(pages, QStringLiteral("JobPoint"));
        click(pages, "positionModifyBtn");

        // another robot's craft of the same number has points of its own
        open(2, 2);
        QTRY_COMPARE_WITH_TIMEOUT(values(pages, QStringLiteral("JobPoint")).first(),
                                  QStringLiteral("0"), kPatience);
        open(1, 2);
        QTRY_VERIFY_WITH_TIMEOUT(
            areClose(values(pages, QStringLiteral("EntrancePoint")), entrance, count, 0.01),
            kPatience);
        QVERIFY(areClose(values(pages, QStringLiteral("AuxiliaryPoint")), auxiliary, count, 0.01));
        QVERIFY(areClose(values(pages, QStringLiteral("JobPoint")), job, count, 0.01));

        // the switch of robots let go of the enabling switch
        robot->setDeadman(false);
        robot->setDeadman(true);
        QTRY_VERIFY_WITH_TIMEOUT(robot->get_servo_state() == 3 && robot->get_deadman_state() == 1,
                                 kPatience);
        const struct {
            const char *button;
            const QStringList &point;
        } ways[] = {{"moveToEntrancePoint", entrance},
                    {"moveToAuxiliaryPoint", auxiliary},
                    {"moveToJobPoint", job}};
        for (const auto &way : ways) {
            click(pages, way.button);
            QTRY_VERIFY_WITH_TIMEOUT(areClose(live(), way.point, count < 3 ? count : 3, 0.1),
                                     kPatience);
        }
    }

    /// Letting go of the enabling switch stops the arm on its way.
    void lettingGoStops()
    {
        QVERIFY(arm.becomes(1));
        open(1, 3);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        pages->palletEntrancePosition();
        const QStringList start = values(pages, QStringLiteral("EntrancePoint"));
        QVERIFY(moveAway());
        robot->setDeadman(false);
        QTRY_COMPARE_WITH_TIMEOUT(robot->get_deadman_state(), 0, kPatience);
        support::Journal journal;
        click(pages, "moveToEntrancePoint");
        QCOMPARE(journal.toasts(), QStringList(QStringLiteral("请上电！")));
        QVERIFY(!areClose(live(), start, 2, 10.0));
    }
};

QTEST_MAIN(TestPositionController)
#include "test_position_controller.moc"
