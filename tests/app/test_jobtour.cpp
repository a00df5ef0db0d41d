// The whole way to a job in the running pendant, by touches alone: wizard, taught points on the
// simulated arm, file, controller, job list.

#include "runningpendant.h"

#include "app/jobtour.h"
#include "app/operator.h"
#include "jobfile.h"
#include "jobpage.h"
#include "jobstore.h"
#include "promptwidget.h"
#include "shell/technologywidget.h"
#include "snackbarmessage.h"
#include "useraccounts.h"

class TestJobTour : public QObject {
    Q_OBJECT
private:
    RunningPendant m_desk;

private slots:
    void initTestCase() { QVERIFY(m_desk.start()); }
    void cleanupTestCase() { m_desk.pendant.stop(); }

    void palletise()
    {
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(JobTour(hand, m_desk.pictures.path()).walk(QStringLiteral("Load_1"), false));
        QCOMPARE(m_desk.pendant.pages()->currentIndex(), 0);
        QFile copy(m_desk.pictures.filePath(QStringLiteral("Load_1.JBR")));
        QVERIFY(copy.open(QIODevice::ReadOnly));
        const auto reading = jobfile::read(copy.readAll(), QStringLiteral("Load_1"));
        QVERIFY(reading.job);
        QCOMPARE(reading.job->lineCount(), 21);
        const RobotPos *safe = reading.job->getPosition('P', 1);
        const RobotPos *upper = reading.job->getPosition('P', 2);
        const RobotPos *get = reading.job->getPosition('P', 3);
        QVERIFY(safe && upper && get);
        // the arm was moved by its second joint, then by its third
        QCOMPARE(safe->values[7], upper->values[7]);
        QVERIFY(upper->values[8] - safe->values[8] > 4.0);
        QVERIFY(get->values[9] - upper->values[9] > 4.0);
        // in the data directory, where the next run finds it
        QVERIFY(QFile::exists(m_desk.data.filePath(QStringLiteral("jobs/robot1/Load_1.JBR"))));
    }

    void depalletise()
    {
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        // the way to the job list ended in its area
        QVERIFY(hand.touch(QStringLiteral("areaProcess")));
        m_desk.pendant.pages()->return_mainPage();
        QVERIFY(JobTour(hand, m_desk.pictures.path()).walk(QStringLiteral("Unload_1"), true));
        QFile copy(m_desk.pictures.filePath(QStringLiteral("Unload_1.JBR")));
        QVERIFY(copy.open(QIODevice::ReadOnly));
        const auto reading = jobfile::read(copy.readAll(), QStringLiteral("Unload_1"));
        QVERIFY(reading.job);
        QCOMPARE(reading.job->command(5)->type, static_cast<int>(Command::PalToEntry));
    }

    /// The name is taken now: the wizard does not go on.
    void sameNameAgain()
    {
        SnackbarMessage::dismissAll();
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(!JobTour(hand, m_desk.pictures.path()).walk(QStringLiteral("Load_1"), false));
        QCOMPARE(m_desk.pendant.pages()->currentIndex(), 33);
        SnackbarMessage::dismissAll();
        QVERIFY(hand.touch(QStringLiteral("createdFileReturnBtn1")));
    }

    /// The wizard asks one user; another with fewer rights logs in before the answer.
    void aQuestionIsNotForAUserWithFewerRights_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("number");
        QTest::newRow("back to the first page") << "createdFilePageupBtn" << 48;
        QTest::newRow("out of the wizard") << "createdFileReturnBtn2" << 49;
    }

    void aQuestionIsNotForAUserWithFewerRights()
    {
        QFETCH(QString, button);
        QFETCH(int, number);
        const QString password = QStringLiteral("long enough 1");
        UserAccounts *accounts = UserAccounts::getInstance();
        accounts->setHashCost(1, 8192);
        m_desk.pendant.pages()->return_mainPage();
        if (!accounts->hasAccounts()) {
            QString error;
            QVERIFY(accounts->add("boss", AUTHORITY_ADMINISTRATOR, password, &error));
            QVERIFY(accounts->add("op", AUTHORITY_OPERATOR, password, &error));
        }
        QVERIFY(accounts->lock());
        accounts->logIn("boss", password);
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(hand.touchAll({QStringLiteral("BtnPalletTech"), QStringLiteral("BtnPalletFile")})
                && hand.write(QStringLiteral("palletProgrameName_edit"), QStringLiteral("Next_1"))
                && hand.touchAll({QStringLiteral("createdFilePagedownBtn1"), button}));
        PromptWidget *prompt = PromptWidget::getInstance();
        QCOMPARE(static_cast<int>(prompt->currentWidget()), number);
        QVERIFY(accounts->lock());
        accounts->logIn("op", password);
        QCOMPARE(App::sysUser, AUTHORITY_OPERATOR);
        QCOMPARE(static_cast<int>(prompt->currentWidget()), 0);
        QCOMPARE(m_desk.pendant.pages()->currentIndex(), 0);
        // nothing is left locked behind the question
        QVERIFY(hand.touch(QStringLiteral("BtnPalletTech")));
        QVERIFY(m_desk.pendant.pages()->findChild<QWidget *>(button)->isEnabledTo(
            m_desk.pendant.pages()));
        m_desk.pendant.pages()->return_mainPage();
    }

    void pagesAskForTheJobList()
    {
        QVERIFY(!m_desk.pendant.window()->jobPage()->isVisible());
        emit m_desk.pendant.pages()->showJobFile(WIND_JOB_FILES);
        QVERIFY(m_desk.pendant.window()->jobPage()->isVisible());
        QVERIFY(!m_desk.pendant.pages()->isVisible());
    }
};

QTEST_MAIN(TestJobTour)
#include "test_jobtour.moc"
