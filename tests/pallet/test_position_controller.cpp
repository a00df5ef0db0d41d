// The position page at work with the simulated controller and its arms, over the real link.

#include "positionpage.h"

#include "simulator/embeddedcontroller.h"

#include <QTemporaryDir>
#include <cmath>

using support::child;
using support::click;
using support::values;

namespace {

constexpr int kPatience = 60000; // milliseconds; reached only when something is wrong

bool areClose(const QStringList &left, const QStringList &right, int count, double within)
{
    for (int i = 0; i < count; ++i) {
        bool isLeft = false;
        bool isRight = false;
        const double distance =
            std::abs(left.at(i).toDouble(&isLeft) - right.at(i).toDouble(&isRight));
        if (!isLeft || !isRight || !(distance <= within))
            return false;
    }
    return true;
}

} // namespace

class TestPositionController : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;
    QTemporaryDir directory;
    EmbeddedController embedded;

    SimulatedController *controller() const { return embedded.controller(); }
    QStringList live() const { return values(pages, QStringLiteral("CurrentPoint")); }

    void open(int robotNumber, int craft) const
    {
        MoreRobot::setCurrentRobot(robotNumber);
        child<QComboBox>(pages, "m_pPalletCraftNum")->setCurrentIndex(craft - 1);
        for (const QString &point : support::kPoints)
            support::setValues(pages, point, QStringLiteral("--"));
        pages->palletSetPositionWidget();
    }

    /// The arm is asked to turn its first axis until its place on the page has moved by 20 mm.
    bool moveAway(const QStringList &from) const
    {
        const bool moved = QTest::qWaitFor(
            [&] {
                robot->jog(1, 1, 0);
                return !areClose(live(), from, 2, 20.0);
            },
            kPatience);
        robot->jog(0, 0, 0); // the key is let go
        return moved;
    }

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
        QString error;
        const quint16 port = embedded.start(directory.path(), &error);
        QVERIFY2(port != 0, qPrintable(error));
        robot->connectToController(QStringLiteral("127.0.0.1"), port);
        QTRY_VERIFY_WITH_TIMEOUT(robot->isConnected(), kPatience);
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
        controller()->setKinematicType(1, type);
        QTRY_COMPARE_WITH_TIMEOUT(robot->kinematicType, type, kPatience);
        pages->initPalletRobotType();
        robot->requestServo(true);
        robot->setDeadman(true);
        QTRY_VERIFY_WITH_TIMEOUT(robot->get_servo_state() == 3 && robot->get_deadman_state() == 1,
                                 kPatience);

        open(1, 2);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        click(pages, "positionModifyBtn");
        click(pages, "positionEntrancePoint");
        const QStringList entrance = values(pages, QStringLiteral("EntrancePoint"));
        QVERIFY(moveAway(entrance));
        click(pages, "positionAuxiliaryPoint");
        const QStringList auxiliary = values(pages, QStringLiteral("AuxiliaryPoint"));
        QVERIFY(moveAway(auxiliary));
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
        controller()->setKinematicType(1, 1);
        QTRY_COMPARE_WITH_TIMEOUT(robot->kinematicType, 1, kPatience);
        robot->requestServo(true);
        robot->setDeadman(true);
        QTRY_VERIFY_WITH_TIMEOUT(robot->get_servo_state() == 3 && robot->get_deadman_state() == 1,
                                 kPatience);
        open(1, 3);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        pages->palletEntrancePosition();
        const QStringList start = values(pages, QStringLiteral("EntrancePoint"));
        QVERIFY(moveAway(start));
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
