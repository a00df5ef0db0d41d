// The lock screen and what brings it up: while it is there, nothing below it can be touched.

#include "../support.h"

#include "idlelock.h"
#include "inputgate.h"
#include "keycolumn.h"
#include "loginpage.h"
#include "promptwidget.h"
#include "snackbarmessage.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace {

const QString kPassword = QStringLiteral("secret-1");
const QString kBoss = QStringLiteral("boss");
const QString kOperator = QStringLiteral("op");
constexpr qint64 kMinute = 60 * 1000;

} // namespace

class TestLock : public QObject {
    Q_OBJECT

    std::unique_ptr<VeltrixWidgetFoundation> window;
    QWidget *page = nullptr;
    QPushButton *pageButton = nullptr;
    QLineEdit *pageField = nullptr;
    int pageClicks = 0;
    qint64 wall = 0;

    UserAccounts *accounts() { return UserAccounts::getInstance(); }
    LoginPage *lockScreen() { return support::child<LoginPage>(window.get(), "loginPage"); }
    QString message() { return support::child<QLabel>(lockScreen(), "logInMessage")->text(); }

    void typePassword(const QString &password)
    {
        auto *field = support::child<QLineEdit>(lockScreen(), "logInPassword");
        field->setFocus();
        support::enter(field, password);
    }

    void logInAs(const QString &name)
    {
        auto *user = support::child<QComboBox>(lockScreen(), "logInUser");
        user->setCurrentIndex(user->findText(name));
        typePassword(kPassword);
        support::click(lockScreen(), "logInEnter");
    }

private slots:
    void init()
    {
        wall = 1700000000000;
        accounts()->setClock([this] { return wall; });
        accounts()->setHashCost(1, 8192);
        accounts()->start(true);
        window = std::make_unique<VeltrixWidgetFoundation>();
        page = new QWidget;
        pageButton = new QPushButton(QStringLiteral("page"), page);
        pageField = new QLineEdit(page);
        auto *layout = new QVBoxLayout(page);
        layout->addWidget(pageButton);
        layout->addWidget(pageField);
        pageClicks = 0;
        connect(pageButton, &QPushButton::clicked, this, [this] { ++pageClicks; });
        window->addContent(page);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QString error;
        QVERIFY2(accounts()->add(kBoss, AUTHORITY_ADMINISTRATOR, kPassword, &error),
                 qPrintable(error));
        QVERIFY2(accounts()->add(kOperator, AUTHORITY_OPERATOR, kPassword, &error),
                 qPrintable(error));
    }

    void cleanup()
    {
        SnackbarMessage::dismissAll();
        window.reset();
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        while (!database->accounts().isEmpty()) {
            const QString name = database->accounts().first().name;
            database->removeAccount(name);
        }
        accounts()->start(true);
        IdleLock::setMinutes(IdleLock::kUsualMinutes);
        QVERIFY(!InputGate::getInstance()->isRestricted());
    }

    void nothingBelowCanBeReached()
    {
        QTest::mouseClick(pageButton, Qt::LeftButton);
        QCOMPARE(pageClicks, 1);
        support::click(window.get(), "lockButton");
        QVERIFY(App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_NONE);
        QVERIFY(lockScreen()->isVisible());
        QCOMPARE(lockScreen()->geometry(), window->rect());

        QTest::mouseClick(pageButton, Qt::LeftButton);
        QTest::keyClick(pageButton, Qt::Key_Space);
        QTest::keyClicks(pageField, QStringLiteral("typed"));
        support::click(window.get(), "areaEvents");
        support::click(window.get(), "robotKey2");
        support::click(window.get(), "languageButton");
        QCOMPARE(pageClicks, 1);
        QCOMPARE(pageField->text(), QString());
        QCOMPARE(window->area(), TitleBar::Process);
        QCOMPARE(MoreRobot::getCurrentRobot(), 1);

        logInAs(kBoss);
        QVERIFY(!App::locked_);
        QVERIFY(!lockScreen()->isVisible());
        QTest::mouseClick(pageButton, Qt::LeftButton);
        QCOMPARE(pageClicks, 2);
    }

    void wrongPasswordWaitsAndSaysSo()
    {
        accounts()->lock();
        auto *enter = support::child<QPushButton>(lockScreen(), "logInEnter");
        typePassword(QStringLiteral("wrong"));
        QTest::mouseClick(enter, Qt::LeftButton);
        QVERIFY(App::locked_);
        QVERIFY(!enter->isEnabled());
        QVERIFY2(message().contains(QStringLiteral("1")), qPrintable(message()));
        QCOMPARE(support::child<QLineEdit>(lockScreen(), "logInPassword")->text(), QString());
        // Enter does not go round the button.
        typePassword(kPassword);
        QTest::keyClick(support::child<QLineEdit>(lockScreen(), "logInPassword"), Qt::Key_Return);
        QVERIFY(App::locked_);
        // Another user does not wait.
        auto *user = support::child<QComboBox>(lockScreen(), "logInUser");
        user->setCurrentIndex(user->findText(kOperator));
        QVERIFY(enter->isEnabled());
        user->setCurrentIndex(user->findText(kBoss));
        QVERIFY(!enter->isEnabled());
        wall += 1000;
        QTRY_VERIFY(enter->isEnabled());
        logInAs(kBoss);
        QVERIFY(!App::locked_);
    }

    void sameUserComesBackToTheSamePage()
    {
        QSignalSpy lowered(window.get(), &VeltrixWidgetFoundation::aboutToLowerRole);
        support::click(window.get(), "areaUsers");
        accounts()->lock();
        QCOMPARE(support::child<QComboBox>(lockScreen(), "logInUser")->currentText(), kBoss);
        logInAs(kBoss);
        QCOMPARE(window->area(), TitleBar::Users);
        QCOMPARE(static_cast<int>(lowered.count()), 0);
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
    }

    void lowerRoleComesBackToTheMenu()
    {
        QSignalSpy lowered(window.get(), &VeltrixWidgetFoundation::aboutToLowerRole);
        support::click(window.get(), "areaUsers");
        accounts()->lock();
        logInAs(kOperator);
        QCOMPARE(App::sysUser, AUTHORITY_OPERATOR);
        QCOMPARE(window->area(), TitleBar::Process);
        QCOMPARE(static_cast<int>(lowered.count()), 1);
        accounts()->lock();
        logInAs(kBoss);
        QCOMPARE(static_cast<int>(lowered.count()), 1);
    }

    void aQuestionWaitsBelowTheLockScreen()
    {
        PromptWidget *prompt = PromptWidget::getInstance();
        QSignalSpy answered(prompt, &PromptWidget::easyMode);
        accounts()->lock();
        prompt->repaint_widget(PromptWidget::PROMPT_EASY_MODE, QString());
        prompt->set_widget_state(PromptWidget::PROMPT_EASY_MODE);
        QVERIFY(!InputGate::getInstance()->allows(prompt));
        const QList<QPushButton *> buttons = prompt->findChildren<QPushButton *>();
        QVERIFY(!buttons.isEmpty());
        for (QPushButton *button : buttons)
            QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(static_cast<int>(answered.count()), 0);
        logInAs(kBoss);
        QVERIFY(!App::locked_);
        QVERIFY(InputGate::getInstance()->allows(prompt));
        QVERIFY(!InputGate::getInstance()->allows(pageButton));
        prompt->close();
    }

    void idleTime()
    {
        qint64 now = 0;
        IdleLock *idle = window->idleLock();
        idle->setClock([&now] { return now; });
        now = 10 * kMinute - 1;
        idle->check();
        QVERIFY(!App::locked_);
        QTest::mouseClick(pageButton, Qt::LeftButton); // somebody is there
        now += 10 * kMinute - 1;
        idle->check();
        QVERIFY(!App::locked_);
        now += 1;
        idle->check();
        QVERIFY(App::locked_);
        now += 100 * kMinute;
        idle->check();
        logInAs(kBoss);
        QVERIFY(!App::locked_);
        idle->check(); // logging in was input
        QVERIFY(!App::locked_);
        idle->setClock([] { return qint64(0); });
    }

    void idleTimeIsConfigured()
    {
        qint64 now = 0;
        IdleLock *idle = window->idleLock();
        idle->setClock([&now] { return now; });
        support::click(window.get(), "areaUsers");
        auto *minutes = support::child<QComboBox>(window.get(), "idleMinutes");
        QCOMPARE(minutes->currentData().toInt(), 10);
        minutes->setFocus();
        QTest::keyClick(minutes, Qt::Key_Home); // never
        QCOMPARE(IdleLock::minutes(), 0);
        now += 1000 * kMinute;
        idle->check();
        QVERIFY(!App::locked_);
        QTest::keyClick(minutes, Qt::Key_Down); // one minute
        QCOMPARE(IdleLock::minutes(), 1);
        now += kMinute;
        idle->check();
        QVERIFY(App::locked_);
        idle->setClock([] { return qint64(0); });
    }

    void noIdleLockWithoutAccounts()
    {
        qint64 now = 0;
        IdleLock idle;
        idle.setClock([&now] { return now; });
        QSignalSpy expired(&idle, &IdleLock::expired);
        now = 11 * kMinute;
        idle.check();
        QCOMPARE(static_cast<int>(expired.count()), 1);
        VeltrixDatabase::getInstance()->removeAccount(kBoss);
        VeltrixDatabase::getInstance()->removeAccount(kOperator);
        idle.check();
        QCOMPARE(static_cast<int>(expired.count()), 1);
    }

    void aHeldKeyIsSomebody()
    {
        qint64 now = 0;
        IdleLock *idle = window->idleLock();
        idle->setClock([&now] { return now; });
        auto *deadman = support::child<DeadmanKey>(window.get(), "deadmanKey");
        QTest::mousePress(deadman, Qt::LeftButton);
        now = 11 * kMinute;
        idle->check();
        QVERIFY(!App::locked_);
        QTest::mouseRelease(deadman, Qt::LeftButton);
        now += 10 * kMinute;
        idle->check();
        QVERIFY(App::locked_);
        idle->setClock([] { return qint64(0); });
    }

    void lockLetsGoOfTheEnablingKey()
    {
        auto *deadman = support::child<DeadmanKey>(window.get(), "deadmanKey");
        QTest::mousePress(deadman, Qt::LeftButton);
        QVERIFY(deadman->isHeld());
        support::Journal journal;
        accounts()->lock();
        QVERIFY(!deadman->isHeld());
        QVERIFY(journal.of("key").contains(QVariantList{QStringLiteral("deadman"), 0}));
        QTest::keyClick(deadman, Qt::Key_F12);
        QVERIFY(!journal.of("key").contains(QVariantList{QStringLiteral("deadman"), 1}));
        QTest::mouseRelease(deadman, Qt::LeftButton);
    }

    void firstPasswordOnScreen()
    {
        VeltrixDatabase::getInstance()->removeAccount(kBoss);
        VeltrixDatabase::getInstance()->removeAccount(kOperator);
        accounts()->start(false);
        QVERIFY(lockScreen()->isVisible());
        auto *password = support::child<QLineEdit>(lockScreen(), "logInPassword");
        auto *repeat = support::child<QLineEdit>(lockScreen(), "logInRepeat");
        QVERIFY(repeat->isVisible());
        QVERIFY(!support::child<QComboBox>(lockScreen(), "logInUser")->isVisible());
        for (const QLineEdit *field : {password, repeat})
            QCOMPARE(field->echoMode(), QLineEdit::Password);
        support::click(lockScreen(), "logInEnter");
        QVERIFY(App::locked_);
        QVERIFY(!message().isEmpty());
        support::enter(password, kPassword);
        support::enter(repeat, kPassword + kPassword);
        support::click(lockScreen(), "logInEnter");
        QVERIFY(App::locked_);
        support::enter(repeat, kPassword);
        support::click(lockScreen(), "logInEnter");
        QVERIFY(!App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        accounts()->lock();
        QVERIFY(!repeat->isVisible());
        QCOMPARE(password->text(), QString());
    }

    void lockButtonWithoutAccountsSaysWhyNot()
    {
        VeltrixDatabase::getInstance()->removeAccount(kBoss);
        VeltrixDatabase::getInstance()->removeAccount(kOperator);
        accounts()->start(true);
        support::Journal journal;
        support::click(window.get(), "lockButton");
        QVERIFY(!App::locked_);
        QCOMPARE(static_cast<int>(journal.toasts().size()), 1);
    }
};

QTEST_MAIN(TestLock)
#include "test_lock.moc"
