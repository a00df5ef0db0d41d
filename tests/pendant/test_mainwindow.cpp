// The main window: geometry, areas, titles, the key column, the language, the users page.

#include "../simulator/link.h"
#include "../support.h"

#include "displaysize.h"
#include "eventpage.h"
#include "helpers.h"
#include "keycolumn.h"
#include "language.h"
#include "linklamp.h"
#include "newtechnologywidget.h"
#include "pagetitles.h"
#include "pendantstyle.h"
#include "snackbarmessage.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTranslator>

#include <memory>

namespace {

/// Every text in brackets with its context, so that one left in the source language stands out.
class TestEnglish : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QStringLiteral("[%1 %2]").arg(QString::fromLatin1(context),
                                             QString::fromUtf8(source));
    }
};

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

    std::unique_ptr<VeltrixWidgetFoundation> window;
    TestEnglish english;
    Robot *robot = Robot::getInstance();

    template <typename Widget> Widget *find(const char *name)
    {
        return support::child<Widget>(window.get(), name);
    }
    QString title() { return find<QLabel>("pageTitle")->text(); }

private slots:
    void initTestCase() { PendantStyle::apply(*qApp); }

    void init()
    {
        UserAccounts::getInstance()->setHashCost(1, 8192);
        UserAccounts::getInstance()->start(true);
        MoreRobot::g_CurRobot = 1;
        App::mainPage_ = 2;
        window = std::make_unique<VeltrixWidgetFoundation>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    void cleanup()
    {
        SnackbarMessage::dismissAll();
        robot->disconnectFromController();
        Language::getInstance()->setCurrent(QStringLiteral("zh"));
        Language::getInstance()->setEnglish(nullptr);
        window.reset();
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        while (!database->accounts().isEmpty()) {
            const QString name = database->accounts().first().name;
            database->removeAccount(name);
        }
    }

    void geometry()
    {
        QCOMPARE(window->size(), QSize(800, 600));
        auto *page = new QWidget;
        window->addContent(page);
        QVERIFY(page->isVisible());
        QCOMPARE(page->size(), QSize(714, 504));
        const QPoint place = page->mapTo(window.get(), QPoint(0, 0));
        QCOMPARE(place, QPoint(DisplaySize::widgetX, DisplaySize::widgetY));
        QCOMPARE(find<QWidget>("titleBar")->geometry().bottom() + 1, place.y());
        QCOMPARE(find<QWidget>("statusBar")->geometry().top(), place.y() + 504);
        QCOMPARE(find<KeyColumn>("keyColumn")->geometry(), QRect(714, 0, 86, 600));
        QCOMPARE(window->eventPage()->size(), QSize(714, 504));
    }

    void touchTargets()
    {
        for (const QPushButton *button : window->findChildren<QPushButton *>()) {
            if (button->isVisible()) {
                QVERIFY2(button->height() >= 40, qPrintable(button->objectName()));
                QVERIFY2(button->width() >= 36, qPrintable(button->objectName()));
            }
        }
    }

    void hostedPageStandsInTheContentArea()
    {
        NewTechnologyWidget *host = NewTechnologyWidget::getInstance();
        window->addContent(host);
        QVERIFY(!host->isVisible());
        host->resize(714, 504);
        host->move(DisplaySize::widgetX, DisplaySize::widgetY);
        host->showWgt(TECH_VISION);
        QCOMPARE(QRect(host->mapTo(window.get(), QPoint(0, 0)), host->size()),
                 QRect(0, 48, 714, 504));
        QCOMPARE(host->currentType(), TECH_VISION);
        QCOMPARE(support::child<QLabel>(host, "hostedPageName")->text(), QStringLiteral("视觉"));
        QSignalSpy back(host, &NewTechnologyWidget::backRequested);
        support::click(host, "hostedPageBack");
        QVERIFY(!host->isVisible());
        QCOMPARE(static_cast<int>(back.count()), 1);
        host->setParent(nullptr); // it outlives this window
    }

    void areas()
    {
        auto *page = new QWidget;
        auto *hidden = new QWidget;
        hidden->hide();
        window->addContent(page);
        window->addContent(hidden);
        window->showWidgetTitle(8, 48, 0);
        QCOMPARE(title(), QStringLiteral("打磨参数"));

        support::click(window.get(), "areaEvents");
        QVERIFY(window->eventPage()->isVisible());
        QVERIFY(!page->isVisible());
        QCOMPARE(App::mainPage_, int(VeltrixWidgetFoundation::JournalPage));
        QVERIFY(!App::isInCurrentInterface(2, App::secondPage_));
        QCOMPARE(title(), QStringLiteral("事件记录"));
        window->showWidgetTitle(8, 47, 0); // kept for later
        QCOMPARE(title(), QStringLiteral("事件记录"));

        emit window->signal_clickUserBtn();
        QVERIFY(find<QWidget>("userPage")->isVisible());
        QVERIFY(!window->eventPage()->isVisible());
        QCOMPARE(App::mainPage_, int(VeltrixWidgetFoundation::UsersPage));
        QVERIFY(find<QPushButton>("areaUsers")->isChecked());

        support::click(window.get(), "areaProcess");
        QVERIFY(page->isVisible());
        QVERIFY(!hidden->isVisible());
        QVERIFY(!find<QWidget>("userPage")->isVisible());
        QCOMPARE(App::mainPage_, 2);
        QCOMPARE(title(), QStringLiteral("打磨工艺"));
    }

    void titles()
    {
        const QVector<int> ids = {0,  1,  5,  6,  7,  8,  9,  10, 11, 12, 13, 15, 16, 18,
                                  19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 47, 48, 49, 50,
                                  51, 52, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62};
        QStringList seen;
        for (const int id : ids) {
            QVERIFY2(hasPageTitle(8, id), qPrintable(QString::number(id)));
            seen += pageTitle(8, id);
        }
        QCOMPARE(static_cast<int>(seen.removeDuplicates()), 0);
        QCOMPARE(pageTitle(1, 29), QStringLiteral("焊接"));
        QCOMPARE(pageTitle(1, 31), QStringLiteral("视觉"));
        QVERIFY(!hasPageTitle(8, 29));
        QCOMPARE(pageTitle(8, 999), pageTitle(8, 0));
    }

    void longTitlesFit()
    {
        auto *label = find<QLabel>("pageTitle");
        for (const char *language : {"zh", "en"}) {
            QVERIFY(Language::getInstance()->setCurrent(QString::fromLatin1(language)));
            find<QLabel>("staleMark")->show();
            for (int id = 0; id <= 62; ++id) {
                window->showWidgetTitle(8, id, 0);
                QCoreApplication::processEvents();
                QVERIFY2(QFontMetrics(label->font()).horizontalAdvance(label->text())
                             < label->width(),
                         qPrintable(label->text()));
            }
        }
    }

    void deadmanIsHeldOnlyWhilePressed()
    {
        auto *key = find<DeadmanKey>("deadmanKey");
        const QVariantList on = {QStringLiteral("deadman"), 1};
        const QVariantList off = {QStringLiteral("deadman"), 0};
        support::Journal journal;
        QTest::mousePress(key, Qt::LeftButton);
        QCOMPARE(journal.of("key"), QVector<QVariantList>{on});
        QVERIFY(key->isHeld());
        QTest::mouseRelease(key, Qt::LeftButton);
        QCOMPARE(journal.of("key"), (QVector<QVariantList>{on, off}));
        QVERIFY(!key->isHeld());

        // Whatever could hide the release lets go.
        const QVector<std::function<void()>> ends = {
            [&] {
                const QPointF outside(key->width() + 20, 5);
                QMouseEvent move(QEvent::MouseMove, outside, key->mapToGlobal(outside.toPoint()),
                                 Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(key, &move);
            },
            [&] {
                QEvent leave(QEvent::Leave);
                QCoreApplication::sendEvent(key, &leave);
            },
            [&] {
                QEvent deactivate(QEvent::WindowDeactivate);
                QCoreApplication::sendEvent(key, &deactivate);
            },
            [&] { window->hide(); },
            [&] {
                key->hide();
                QVERIFY(!key->isHeld());
                key->show();
            },
            [&] { emit robot->linkChanged(Robot::Link::Lost); },
        };
        for (const auto &end : ends) {
            window->show();
            QTest::mousePress(key, Qt::LeftButton);
            QVERIFY(key->isHeld());
            end();
            QTRY_VERIFY(!key->isHeld());
            QCOMPARE(journal.of("key").last(), off);
            QTest::mouseRelease(key, Qt::LeftButton);
        }
        QTest::mousePress(key, Qt::RightButton);
        QVERIFY(!key->isHeld());
    }

    void deadmanLetsGoDuringAWait()
    {
        auto *key = find<DeadmanKey>("deadmanKey");
        for (const bool keyboard : {false, true}) {
            keyboard ? QTest::keyPress(window.get(), Qt::Key_F12)
                     : QTest::mousePress(key, Qt::LeftButton);
            QVERIFY(key->isHeld());
            bool heldInWait = true;
            QTimer::singleShot(0, key, [&] {
                keyboard ? QTest::keyRelease(window.get(), Qt::Key_F12)
                         : QTest::mouseRelease(key, Qt::LeftButton);
                heldInWait = key->isHeld();
            });
            Delayms(30);
            QVERIFY(!heldInWait);
        }
        // Nor can it be taken hold of in one.
        bool taken = true;
        QTimer::singleShot(0, key, [&] {
            QTest::keyPress(window.get(), Qt::Key_F12);
            taken = key->isHeld();
            QTest::keyRelease(window.get(), Qt::Key_F12);
        });
        Delayms(30);
        QVERIFY(!taken);
    }

    void deadmanOnTheKeyboard()
    {
        auto *key = find<DeadmanKey>("deadmanKey");
        QTest::keyPress(window.get(), Qt::Key_F12);
        QVERIFY(key->isHeld());
        QTest::keyPress(window.get(), Qt::Key_F12);
        QVERIFY(key->isHeld());
        QTest::keyRelease(window.get(), Qt::Key_F12);
        QVERIFY(!key->isHeld());
        QTest::keyClick(key, Qt::Key_Space);
        QVERIFY(!key->isHeld());
    }

    /// A switch that has lapsed shows that it does not count; let go and pressed anew it does.
    void deadmanShowsThatItHasLapsed()
    {
        robot->setLinkTimes(quickTimes());
        SimulatedController controller;
        const QTemporaryDir directory;
        SimulatedController::Options options;
        options.directory = directory.path();
        options.statusInterval = 20;
        options.motionInterval = 0; // its time is what stepArms() makes of it
        QString error;
        QVERIFY2(controller.start(options, &error), qPrintable(error));
        robot->connectToController(QStringLiteral("127.0.0.1"), controller.port());
        QTRY_VERIFY(robot->isConnected() && robot->get_servo_state() != 0);
        auto *key = find<DeadmanKey>("deadmanKey");
        QTest::mousePress(key, Qt::LeftButton);
        QTRY_VERIFY(key->text().contains(QStringLiteral("有效")));
        QSignalSpy said(robot, &Robot::controllerSaid);
        controller.stepArms(1);
        QTRY_VERIFY(key->text().contains(QStringLiteral("无效")));
        QVERIFY(key->isHeld());
        QCOMPARE(said.value(0).value(0).toString(),
                 QStringLiteral("使能中断：请松开使能键后重新按住"));
        const int heard = controller.received(wire::Key);
        QTRY_VERIFY(controller.received(wire::Key) > heard + 2); // renewed, in vain
        QVERIFY(key->text().contains(QStringLiteral("无效")));
        QTest::mouseRelease(key, Qt::LeftButton);
        QTest::mousePress(key, Qt::LeftButton);
        QTRY_VERIFY(key->text().contains(QStringLiteral("有效")));
        QTest::mouseRelease(key, Qt::LeftButton);
        QTRY_COMPARE(robot->get_deadman_state(), 0);
        robot->disconnectFromController();
    }
    void aDeadmanThatGoesLetsGo()
    {
        auto key = std::make_unique<DeadmanKey>();
        key->setHeld(true);
        support::Journal journal;
        key.reset();
        QCOMPARE(journal.of("key"), (QVector<QVariantList>{{QStringLiteral("deadman"), 0}}));
    }

    void keysShowWhatTheControllerReports()
    {
        auto *lamp = find<LinkLamp>("linkLamp");
        QCOMPARE(lamp->text(), QStringLiteral("未连接"));
        QVERIFY(!find<QWidget>("simulatedMark")->isVisible());
        QVERIFY(!find<QLabel>("staleMark")->isVisible());
        auto desk = std::make_unique<Desk>();
        QVERIFY(connectTo(*desk));
        QCOMPARE(lamp->text(), QStringLiteral("已连接"));
        QVERIFY(find<QWidget>("simulatedMark")->isVisible());

        support::click(window.get(), "servoKey");
        QTRY_COMPARE(robot->get_servo_state(), 3);
        QVERIFY(find<QPushButton>("servoKey")->isChecked());
        QVERIFY(find<QPushButton>("servoKey")->text().contains(QStringLiteral("开")));
        support::click(window.get(), "modeKey1");
        QTRY_COMPARE(robot->get_teach_mode(), 1);
        QVERIFY(find<QPushButton>("modeKey1")->isChecked());
        QVERIFY(!find<QPushButton>("modeKey0")->isChecked());
        support::click(window.get(), "modeKey0");
        QTRY_COMPARE(robot->get_teach_mode(), 0);
        auto *deadman = find<DeadmanKey>("deadmanKey");
        QTest::mousePress(deadman, Qt::LeftButton);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        QVERIFY(deadman->text().contains(QStringLiteral("有效")));
        QTest::mouseRelease(deadman, Qt::LeftButton);
        QTRY_COMPARE(robot->get_deadman_state(), 0);

        desk.reset();
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        QCOMPARE(lamp->text(), QStringLiteral("已断开"));
        QVERIFY(find<QLabel>("staleMark")->isVisible());
        QVERIFY(find<QWidget>("simulatedMark")->isVisible());
        QVERIFY(!find<QPushButton>("servoKey")->isChecked());
        QVERIFY(find<QPushButton>("servoKey")->text().contains(QStringLiteral("未知")));
    }

    void embeddedControllerIsMarkedAtOnce()
    {
        window->setEmbeddedController(true);
        QVERIFY(find<QWidget>("simulatedMark")->isVisible());
        const auto marks = window->findChildren<SimulatedMark *>();
        QCOMPARE(static_cast<int>(marks.size()), 2); // key column and lock screen
        QString error;
        QVERIFY(UserAccounts::getInstance()->add(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR,
                                                 QStringLiteral("secret-1"), &error));
        UserAccounts::getInstance()->lock();
        for (const SimulatedMark *mark : marks)
            QVERIFY(mark->isVisible());
    }

    void pagesGoBackBeforeTheRobotChanges()
    {
        int robotAtSignal = 0;
        QSignalSpy about(window.get(), &VeltrixWidgetFoundation::aboutToChangeRobot);
        connect(window.get(), &VeltrixWidgetFoundation::aboutToChangeRobot, this,
                [&] { robotAtSignal = MoreRobot::getCurrentRobot(); });
        support::click(window.get(), "robotKey3");
        QCOMPARE(static_cast<int>(about.count()), 1);
        QCOMPARE(about.first().first().toInt(), 3);
        QCOMPARE(robotAtSignal, 1);
        QCOMPARE(MoreRobot::getCurrentRobot(), 3);
        QVERIFY(find<QPushButton>("robotKey3")->isChecked());
        QVERIFY(!find<QPushButton>("robotKey1")->isChecked());
        support::click(window.get(), "robotKey3");
        QCOMPARE(static_cast<int>(about.count()), 1);
        QVERIFY(find<QPushButton>("robotKey3")->isChecked());
        window->disconnect(this);
    }

    void languageSwitch()
    {
        Language *language = Language::getInstance();
        window->showWidgetTitle(8, 48, 0);
        QString titleAtSignal;
        QString titleAfter;
        QObject scope;
        connect(window.get(), &VeltrixWidgetFoundation::aboutToChangeLanguage, &scope,
                [&] { titleAtSignal = title(); });
        connect(language, &Language::changed, &scope, [&] { titleAfter = title(); });
        language->setEnglish(&english);
        support::click(window.get(), "languageButton");
        QCOMPARE(language->current(), QStringLiteral("en"));
        QCOMPARE(titleAtSignal, QStringLiteral("打磨参数"));
        QCOMPARE(titleAfter, QStringLiteral("[PageTitle 打磨参数]"));
        QCOMPARE(title(), titleAfter);
        QCOMPARE(VeltrixDatabase::getInstance()->value(QStringLiteral("language")).toString(),
                 QStringLiteral("en"));

        // Every visible text follows, on each area.
        for (const char *area : {"areaProcess", "areaEvents", "areaUsers"}) {
            support::click(window.get(), area);
            QStringList left;
            for (const QPushButton *button : window->findChildren<QPushButton *>()) {
                const QString text = button->text();
                const bool chinese = std::any_of(text.begin(), text.end(), [](QChar c) {
                    return c.unicode() >= 0x4e00 && c.unicode() < 0xa000;
                });
                if (chinese && !text.startsWith(QLatin1Char('['))
                    && button->objectName() != QLatin1String("languageButton"))
                    left += text;
            }
            for (const QLabel *label : window->findChildren<QLabel *>()) {
                if (!label->text().isEmpty() && label->text().at(0).unicode() >= 0x4e00)
                    left += label->text();
            }
            QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('|'))));
        }
        auto *kind = find<QComboBox>("eventKind");
        QVERIFY(kind->itemText(1).startsWith(QLatin1String("[EventModel ")));

        support::click(window.get(), "languageButton");
        QCOMPARE(language->current(), QStringLiteral("zh"));
        QCOMPARE(find<QPushButton>("areaEvents")->text(), QStringLiteral("事件"));
    }

    void englishShips()
    {
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("en")));
        QCOMPARE(find<QPushButton>("areaEvents")->text(), QStringLiteral("Events"));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh")));
        QCOMPARE(find<QPushButton>("areaEvents")->text(), QStringLiteral("事件"));
    }

    void languageThatCannotBeHad()
    {
        Language *language = Language::getInstance();
        QSignalSpy about(language, &Language::aboutToChange);
        QVERIFY(!language->setCurrent(QStringLiteral("fr")));
        QCOMPARE(language->current(), QStringLiteral("zh"));
        QCOMPARE(static_cast<int>(about.count()), 0);
        VeltrixDatabase::getInstance()->setValue(QStringLiteral("language"), QStringLiteral("en"));
        language->setEnglish(&english);
        language->loadStored();
        QCOMPARE(language->current(), QStringLiteral("en"));
    }

    void statusBarSaysWhoIsThere()
    {
        auto *user = find<QLabel>("statusUser");
        QVERIFY2(user->text().contains(QStringLiteral("管理员（未设密码）")),
                 qPrintable(user->text()));
        QString error;
        QVERIFY(UserAccounts::getInstance()->add(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR,
                                                 QStringLiteral("secret-1"), &error));
        QVERIFY2(user->text().contains(QStringLiteral("boss（管理员）")), qPrintable(user->text()));
        QVERIFY(!find<QLabel>("statusTime")->text().isEmpty());
    }

    void usersPage()
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        support::click(window.get(), "areaUsers");
        auto *role = find<QComboBox>("userRole");
        QCOMPARE(role->currentData().toInt(), int(AUTHORITY_ADMINISTRATOR)); // of the first user
        auto *name = find<QLineEdit>("userName");
        auto *password = find<QLineEdit>("userPassword");
        auto *repeat = find<QLineEdit>("userRepeat");
        auto *table = find<QTableWidget>("userTable");
        auto *message = find<QLabel>("userMessage");
        const auto fill = [&](const char *who, const char *first, const char *second) {
            support::enter(name, QString::fromLatin1(who));
            support::enter(password, QString::fromLatin1(first));
            support::enter(repeat, QString::fromLatin1(second));
        };
        fill("boss", "secret-1", "secret-2");
        support::click(window.get(), "userAdd");
        QCOMPARE(table->rowCount(), 0);
        QVERIFY(!message->text().isEmpty());
        fill("boss", "", "");
        support::click(window.get(), "userAdd");
        QCOMPARE(table->rowCount(), 0);
        fill("boss", "secret-1", "secret-1");
        support::click(window.get(), "userAdd");
        QCOMPARE(table->rowCount(), 1);
        QCOMPARE(password->text(), QString());
        role->setCurrentIndex(role->findData(int(AUTHORITY_OPERATOR)));
        fill("op", "secret-2", "secret-2");
        support::click(window.get(), "userAdd");
        QCOMPARE(accounts->names(), QStringList({QStringLiteral("boss"), QStringLiteral("op")}));

        table->selectRow(1);
        role->setCurrentIndex(role->findData(int(AUTHORITY_TECHNICIAN)));
        support::click(window.get(), "userChangeRole");
        QCOMPARE(accounts->role(QStringLiteral("op")), AUTHORITY_TECHNICIAN);
        support::enter(password, QStringLiteral("secret-3"));
        support::enter(repeat, QStringLiteral("secret-3"));
        support::click(window.get(), "userChangePassword");
        accounts->lock();
        QCOMPARE(accounts->logIn(QStringLiteral("op"), QStringLiteral("secret-3")),
                 UserAccounts::LogIn::Good);

        // A technician sees the list but only has their own password.
        support::click(window.get(), "areaUsers");
        table->selectRow(0);
        for (const char *button : {"userAdd", "userChangePassword", "userChangeRole", "userRemove"})
            QVERIFY2(!find<QPushButton>(button)->isEnabled(), button);
        table->selectRow(1);
        QVERIFY(find<QPushButton>("userChangePassword")->isEnabled());
        QVERIFY(!find<QPushButton>("userRemove")->isEnabled());

        accounts->lock();
        QCOMPARE(accounts->logIn(QStringLiteral("boss"), QStringLiteral("secret-1")),
                 UserAccounts::LogIn::Good);
        support::click(window.get(), "areaUsers");
        table->selectRow(1);
        support::click(window.get(), "userRemove"); // asks
        QCOMPARE(table->rowCount(), 2);
        table->selectRow(0);
        support::click(window.get(), "userRemove"); // asks anew, for another user
        QCOMPARE(table->rowCount(), 2);
        support::click(window.get(), "userRemove");
        QCOMPARE(table->rowCount(), 2); // the last administrator
        table->selectRow(1);
        support::click(window.get(), "userRemove");
        support::click(window.get(), "userRemove");
        QCOMPARE(accounts->names(), QStringList{QStringLiteral("boss")});
    }

    /// One's own password asks for the old one; another's does not.
    void ownPasswordOnTheUsersPage()
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        QString error;
        const QString boss = QStringLiteral("boss");
        QVERIFY(accounts->add(boss, AUTHORITY_ADMINISTRATOR, "secret-1", &error));
        QVERIFY(accounts->add("op", AUTHORITY_OPERATOR, "secret-2", &error));
        support::click(window.get(), "areaUsers");
        auto *old = find<QLineEdit>("userOldPassword");
        auto *table = find<QTableWidget>("userTable");
        auto *message = find<QLabel>("userMessage");
        QCOMPARE(old->echoMode(), QLineEdit::Password);
        QVERIFY(!old->isEnabled()); // nobody is chosen
        table->selectRow(1);
        QVERIFY(!old->isEnabled());
        table->selectRow(0);
        QVERIFY(old->isEnabled());
        const auto change = [&](const char *before) {
            support::enter(old, QString::fromLatin1(before));
            support::enter(find<QLineEdit>("userPassword"), QStringLiteral("secret-9"));
            support::enter(find<QLineEdit>("userRepeat"), QStringLiteral("secret-9"));
            support::click(window.get(), "userChangePassword");
        };
        qint64 now = 0;
        accounts->setClock([&now] { return now; });
        change("wrong");
        QVERIFY2(message->text().contains(QStringLiteral("原密码错误")),
                 qPrintable(message->text()));
        QCOMPARE(old->text(), QString());
        QCOMPARE(accounts->waitSeconds(boss), 1);
        change("secret-1");
        QVERIFY2(message->text().contains(QStringLiteral("1")), qPrintable(message->text()));
        now += 1000;
        change("secret-1");
        for (const char *field : {"userOldPassword", "userPassword", "userRepeat"})
            QCOMPARE(find<QLineEdit>(field)->text(), QString());
        accounts->lock();
        QCOMPARE(accounts->logIn(boss, QStringLiteral("secret-9")), UserAccounts::LogIn::Good);
        accounts->setClock({});
    }

    void whatOneUserTypedIsNotForTheNext()
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        QString error;
        for (const char *name : {"boss", "chief"})
            QVERIFY(accounts->add(name, AUTHORITY_ADMINISTRATOR, "secret-1", &error));
        support::click(window.get(), "areaUsers");
        auto *password = find<QLineEdit>("userPassword");
        support::enter(password, QStringLiteral("secret-2"));
        accounts->lock();
        QCOMPARE(accounts->logIn("chief", "secret-1"), UserAccounts::LogIn::Good);
        QVERIFY(find<QWidget>("userPage")->isVisible());
        QCOMPARE(password->text(), QString());
    }

    void passwordsDoNotStayInTheFields()
    {
        support::click(window.get(), "areaUsers");
        auto *password = find<QLineEdit>("userPassword");
        QCOMPARE(password->echoMode(), QLineEdit::Password);
        support::enter(password, QStringLiteral("secret-1"));
        support::click(window.get(), "areaProcess");
        QCOMPARE(password->text(), QString());
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
