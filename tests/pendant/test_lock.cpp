// The lock screen and what brings it up: while it is there, nothing below it can be touched.

#include "../fulldisk.h"
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

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
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
        QCOMPARE(window->area(), VeltrixWidgetFoundation::Process);
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

    void aWrongPasswordIsAlwaysNamed()
    {
        const QString wrong = QStringLiteral("密码错误");
        auto *enter = support::child<QPushButton>(lockScreen(), "logInEnter");
        accounts()->lock();
        QVERIFY(!message().contains(wrong));
        typePassword(QStringLiteral("wrong"));
        QTest::mouseClick(enter, Qt::LeftButton);
        QVERIFY2(message().contains(wrong), qPrintable(message()));
        wall += 1000; // and when the pause is over
        QTRY_VERIFY(enter->isEnabled());
        QVERIFY2(message().contains(wrong), qPrintable(message()));
        // The other user's was not.
        auto *user = support::child<QComboBox>(lockScreen(), "logInUser");
        user->setCurrentIndex(user->findText(kOperator));
        QVERIFY(!message().contains(wrong));
        user->setCurrentIndex(user->findText(kBoss));
        // A pause that is over at once, as on a clock that leaps.
        accounts()->setClock([this] { return wall += 1000000; });
        typePassword(QStringLiteral("wrong"));
        QTest::mouseClick(enter, Qt::LeftButton);
        QVERIFY(enter->isEnabled());
        QVERIFY2(message().contains(wrong), qPrintable(message()));
        logInAs(kBoss);
        QVERIFY(!App::locked_);
        accounts()->lock();
        QVERIFY(!message().contains(wrong));
    }

    void aCountThatCannotBeStoredIsNamed()
    {
        const QTemporaryDir directory;
        QVERIFY(VeltrixDatabase::getInstance()->open(directory.path()));
        accounts()->start(true);
        QString error;
        QVERIFY2(accounts()->add(kBoss, AUTHORITY_ADMINISTRATOR, kPassword, &error),
                 qPrintable(error));
        accounts()->lock();
        auto *enter = support::child<QPushButton>(lockScreen(), "logInEnter");
        {
            const FullDisk full;
            typePassword(QStringLiteral("wrong"));
            QTest::mouseClick(enter, Qt::LeftButton);
        }
        QVERIFY2(message().contains(QStringLiteral("密码错误")), qPrintable(message()));
        QVERIFY2(message().contains(accounts()->countWarning()), qPrintable(message()));
        QVERIFY(!accounts()->countWarning().isEmpty());
        QVERIFY(!enter->isEnabled());
        wall += 1000;
        QTRY_VERIFY(enter->isEnabled());
        VeltrixDatabase::getInstance()->close();
    }

    /// The lock, or a question, comes while a list is open and a row of it is under the finger.
    void anOpenListClosesWithoutAChoice_data()
    {
        QTest::addColumn<bool>("byQuestion");
        QTest::newRow("lock") << false;
        QTest::newRow("question") << true;
    }

    void anOpenListClosesWithoutAChoice()
    {
        QFETCH(bool, byQuestion);
        auto *box = new QComboBox(page);
        box->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        page->layout()->addWidget(box);
        QSignalSpy activated(box, QOverload<int>::of(&QComboBox::activated));
        QSignalSpy changed(box, QOverload<int>::of(&QComboBox::currentIndexChanged));
        box->show();
        box->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(box->view(), Qt::Key_Down);
        QCOMPARE(box->view()->currentIndex().row(), 1);
        PromptWidget *prompt = PromptWidget::getInstance();
        if (byQuestion)
            prompt->ask(PromptWidget::PROMPT_EASY_MODE, QString(), [](bool) {});
        else
            accounts()->lock();
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!box->view()->isVisible());
        QCOMPARE(static_cast<int>(activated.count()), 0);
        QCOMPARE(static_cast<int>(changed.count()), 0);
        QCOMPARE(box->currentIndex(), 0);
        if (byQuestion)
            prompt->close();
        else
            logInAs(kBoss);
        // It opens and chooses as before.
        box->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(box->view(), Qt::Key_Down);
        QTest::keyClick(box->view(), Qt::Key_Return);
        QCOMPARE(box->currentIndex(), 1);
        QCOMPARE(static_cast<int>(activated.count()), 1);
    }

    void openMenusCloseOneByOne()
    {
        QMenu menu(page);
        QMenu *sub = menu.addMenu(QStringLiteral("more"));
        sub->addAction(QStringLiteral("deeper"));
        QSignalSpy triggered(&menu, &QMenu::triggered);
        menu.popup(page->mapToGlobal(QPoint(10, 10)));
        QTRY_VERIFY(menu.isVisible());
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Right);
        QTRY_VERIFY(sub->isVisible());
        accounts()->lock();
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!menu.isVisible() && !sub->isVisible());
        QCOMPARE(static_cast<int>(triggered.count()), 0);
        logInAs(kBoss);
        QVERIFY(!App::locked_);
    }

    /// The list of users is the lock screen's own.
    void theListOfTheLockScreenStaysOpen()
    {
        accounts()->lock();
        auto *user = support::child<QComboBox>(lockScreen(), "logInUser");
        user->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        InputGate::getInstance()->restrictTo(lockScreen());
        QVERIFY(QApplication::activePopupWidget());
        user->hidePopup();
    }

    void aModalDialogIsNoList()
    {
        QDialog dialog(window.get());
        dialog.open();
        QTRY_VERIFY(dialog.isVisible());
        accounts()->lock();
        QVERIFY(dialog.isVisible());
        dialog.close();
    }

    /// A page that is put in while the window is locked and not on screen yet, as at each start of
    /// a pendant with users.
    void aPagePutInBelowTheLockScreen()
    {
        window->hide();
        accounts()->lock();
        auto *late = new QPushButton;
        window->addContent(late);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QVERIFY(late->isVisible());
        for (const QPoint &place : {QPoint(400, 300), QPoint(60, 60), QPoint(700, 540)}) {
            QWidget *hit = window->childAt(place);
            QVERIFY2(hit && (hit == lockScreen() || lockScreen()->isAncestorOf(hit)),
                     qPrintable(hit ? hit->objectName() : QString()));
        }
        logInAs(kBoss);
        QCOMPARE(window->childAt(QPoint(400, 300)), static_cast<QWidget *>(late));
    }

    void sameUserComesBackToTheSamePage()
    {
        QSignalSpy lowered(window.get(), &VeltrixWidgetFoundation::aboutToLowerRole);
        support::click(window.get(), "areaUsers");
        accounts()->lock();
        QCOMPARE(support::child<QComboBox>(lockScreen(), "logInUser")->currentText(), kBoss);
        logInAs(kBoss);
        QCOMPARE(window->area(), VeltrixWidgetFoundation::Users);
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
        QCOMPARE(window->area(), VeltrixWidgetFoundation::Process);
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
