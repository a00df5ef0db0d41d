// The wizard's points at work with the simulated controller and its arms, over the real link.

#include "drivenarm.h"
#include "wizardpage.h"

using support::areClose;
using support::child;
using support::click;
using support::kPatience;
using support::values;

class TestWizardController : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;
    QTemporaryDir jobs;
    support::DrivenArm arm;

    QStringList live() const { return values(pages, QStringLiteral("wizardLive")); }

    /// Turns the first axis by ten degrees at least.
    bool moveAway() const
    {
        return arm.moveAway([this] { return live(); }, 1, 10.0);
    }

private slots:
    void initTestCase()
    {
        JobStore::getInstance()->setDirectory(jobs.path());
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        QVERIFY(arm.start(pages));
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
        QVERIFY(arm.becomes(type));

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
        arm.controller()->setFault(support::kCurrentPosition, Fault::Cut);
        QTRY_COMPARE_WITH_TIMEOUT(live().first(), QStringLiteral("--"), kPatience);
        arm.controller()->setFault(support::kCurrentPosition, Fault::None);
        QTRY_VERIFY_WITH_TIMEOUT(live().first() != QLatin1String("--"), kPatience);
        QCOMPARE(pages->currentIndex(), 34);
        QCOMPARE(values(pages, QStringLiteral("GetPoint")), marked);
        pages->exitPalletFile();
    }
};

QTEST_MAIN(TestWizardController)
#include "test_wizard_controller.moc"
