// The wizard's points at work with the simulated controller and its arms, over the real link.

#include "wizardpage.h"

#include "simulator/embeddedcontroller.h"

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

class TestWizardController : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;
    QTemporaryDir directory;
    QTemporaryDir jobs;
    EmbeddedController embedded;

    QStringList live() const { return values(pages, QStringLiteral("wizardLive")); }

    /// Turns the first axis by ten degrees at least.
    bool moveAway() const
    {
        const QStringList from = live();
        const bool moved = QTest::qWaitFor(
            [&] {
                robot->jog(1, 1, 0);
                return !areClose(live(), from, 1, 10.0);
            },
            kPatience);
        robot->jog(0, 0, 0); // the key is let go
        return moved;
    }

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        JobStore::getInstance()->setDirectory(jobs.path());
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

    void cleanupTestCase()
    {
        robot->setDeadman(false);
        robot->disconnectFromController();
    }

    void teachAndDrive_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("count"); // of the joints that are shown
        QTest::newRow("six axes") << 1 << 6;
        QTest::newRow("four axes") << 2 << 4;
        QTest::newRow("seven axes") << 12 << 7;
        QTest::newRow("three axes") << 9 << 3;
    }
    /// An operator marks three places of the arm and drives back to each of them, looks at another
    /// page between, and finds the page with its marks as it was.
    void teachAndDrive()
    {
        QFETCH(int, type);
        QFETCH(int, count);
        App::isDeg = true;
        embedded.controller()->setKinematicType(1, type);
        QTRY_COMPARE_WITH_TIMEOUT(robot->kinematicType, type, kPatience);
        robot->requestServo(true);
        robot->setDeadman(true);
        QTRY_VERIFY_WITH_TIMEOUT(robot->get_servo_state() == 3 && robot->get_deadman_state() == 1,
                                 kPatience);

        pages->return_PalletPage();
        click(pages, "BtnPalletFile");
        support::enter(child<QLineEdit>(pages, "palletProgrameName_edit"), QStringLiteral("JOB1"));
        click(pages, "createdFilePagedownBtn1");
        QCOMPARE(pages->currentIndex(), 34);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);

        QVector<QStringList> places;
        for (int i = 0; i < 3; ++i) {
            QVERIFY(moveAway());
            click(pages, support::kMarkButtons[i]);
            places += values(pages, support::kWizardPoints.at(i));
        }
        QVERIFY(!areClose(places.at(0), places.at(1), count, 1.0));
        QVERIFY(!areClose(places.at(1), places.at(2), count, 1.0));

        pages->hide(); // the journal is on screen
        pages->show();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(values(pages, support::kWizardPoints.at(i)), places.at(i));
            click(pages, support::kRunButtons[i]);
            QTRY_VERIFY_WITH_TIMEOUT(areClose(live(), places.at(i), count, 0.1), kPatience);
        }
        click(pages, "createdFilePagedownBtn2");
        QCOMPARE(pages->currentIndex(), 35);
        pages->exitPalletFile();
    }

    /// The link goes and comes: the marks stay, the live position comes back by itself.
    void lostLink()
    {
        pages->return_PalletPage();
        click(pages, "BtnPalletFile");
        support::enter(child<QLineEdit>(pages, "palletProgrameName_edit"), QStringLiteral("JOB1"));
        click(pages, "createdFilePagedownBtn1");
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        click(pages, "positionGetPoint");
        const QStringList marked = values(pages, QStringLiteral("GetPoint"));
        embedded.controller()->setFault(support::kCurrentPosition, Fault::Cut);
        QTRY_COMPARE_WITH_TIMEOUT(live().first(), QStringLiteral("--"), kPatience);
        embedded.controller()->setFault(support::kCurrentPosition, Fault::None);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(values(pages, QStringLiteral("GetPoint")), marked);
        pages->exitPalletFile();
    }
};

QTEST_MAIN(TestWizardController)
#include "test_wizard_controller.moc"
