// A pendant that has users starts locked: the lock screen lies over everything, and a finger logs
// in on it.

#include "runningpendant.h"

#include "app/operator.h"
#include "newtechnologywidget.h"
#include "shell/technologywidget.h"

#include <QLabel>

class TestLogIn : public QObject {
    Q_OBJECT
private:
    RunningPendant m_desk;

    QWidget *lockScreen() { return support::child<QWidget>(m_desk.pendant.window(), "loginPage"); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_desk.addUser(QStringLiteral("boss"), QStringLiteral("Secret-123")));
        QVERIFY(m_desk.start());
    }
    void cleanupTestCase() { m_desk.pendant.stop(); }

    void theLockScreenLiesOverEverything()
    {
        QVERIFY(App::locked_);
        QVERIFY(lockScreen()->isVisible());
        const QWidget *window = m_desk.pendant.window();
        for (int y = 5; y < window->height(); y += 20) {
            for (int x = 5; x < window->width(); x += 20) {
                const QWidget *hit = window->childAt(x, y);
                QVERIFY2(hit && (hit == lockScreen() || lockScreen()->isAncestorOf(hit)),
                         qPrintable(QStringLiteral("%1, %2: %3")
                                        .arg(x)
                                        .arg(y)
                                        .arg(hit ? hit->objectName() : QString())));
            }
        }
    }

    void aFingerLogsIn()
    {
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(!hand.touch(QStringLiteral("BtnPolish")));
        QVERIFY(hand.touch(QStringLiteral("logInEnter"))); // without a password
        QVERIFY(App::locked_);
        const auto *message = support::child<QLabel>(lockScreen(), "logInMessage");
        QVERIFY2(message->text().contains(QStringLiteral("密码错误")), qPrintable(message->text()));
        auto *enter = support::child<QAbstractButton>(lockScreen(), "logInEnter");
        QTRY_VERIFY(enter->isEnabled());
        QVERIFY(hand.write(QStringLiteral("logInPassword"), QStringLiteral("Secret-123")));
        QVERIFY(!App::locked_);
        QVERIFY(hand.touch(QStringLiteral("BtnPolish")));
        QVERIFY(m_desk.pendant.pages()->currentIndex() != 0);
        m_desk.pendant.pages()->return_mainPage();
    }

    /// The pages go back to their menu unseen while another area is shown.
    void anotherLanguageOnTheUsersPage()
    {
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(hand.touchAll({QStringLiteral("areaProcess"), QStringLiteral("BtnWeldSetting"),
                               QStringLiteral("areaUsers"), QStringLiteral("languageButton")}));
        QVERIFY(!m_desk.pendant.pages()->isVisible());
        QVERIFY(!NewTechnologyWidget::getInstance()->isVisible());
        QVERIFY(hand.touchAll({QStringLiteral("languageButton"), QStringLiteral("areaProcess")}));
        QVERIFY(m_desk.pendant.pages()->isVisible());
        QVERIFY(!NewTechnologyWidget::getInstance()->isVisible());
        QCOMPARE(m_desk.pendant.pages()->currentIndex(), 0);
    }
};

QTEST_MAIN(TestLogIn)
#include "test_login.moc"
