// The question about a controller's damaged parameter store: who is asked, when, and what an answer
// does. The controller is a real one whose store was damaged.

#include "../simulator/link.h"
#include "../support.h"

#include "language.h"
#include "link/messages.h"
#include "promptwidget.h"
#include "snackbarmessage.h"
#include "storerepair.h"
#include "useraccounts.h"
#include "veltrixwidgetfoundation.h"

#include <QSqlDatabase>
#include <QSqlQuery>

class TestStoreRepair : public QObject {
    Q_OBJECT

    std::unique_ptr<Desk> desk;
    std::unique_ptr<VeltrixWidgetFoundation> window;
    Robot *robot = Robot::getInstance();

    static PromptWidget *prompt() { return PromptWidget::getInstance(); }
    static bool isAsked()
    {
        return prompt()->currentWidget() == PromptWidget::PROMPT_RESTORE_STORE;
    }

    void spoil()
    {
        robot->disconnectFromController();
        desk->controller.reset();
        {
            QSqlDatabase file =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("outside"));
            file.setDatabaseName(desk->directory.filePath(QStringLiteral("controller.db")));
            QVERIFY(file.open());
            QSqlQuery query(file);
            QVERIFY(query.exec(QStringLiteral(
                "INSERT INTO parameters VALUES (1, 'polish', 1, '', '{\"toolWear\": 7')")));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("outside"));
        desk->restart();
    }
    QStringList keysSent(const support::Journal &journal) const
    {
        QStringList list;
        for (const QVariantList &values : journal.of("key")) {
            if (values.first().toString() == QLatin1String("restoreParameters"))
                list += values.at(1).toString();
        }
        return list;
    }

private slots:
    void initTestCase() { QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh"))); }
    void init()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        App::locked_ = false;
        window = std::make_unique<VeltrixWidgetFoundation>();
        window->show();
        desk = std::make_unique<Desk>(); // which makes the copy of the day
        spoil();
    }
    void cleanup()
    {
        prompt()->withdraw();
        robot->disconnectFromController();
        desk.reset();
        window.reset();
        SnackbarMessage::dismissAll();
    }

    void theCopyIsTakenBack()
    {
        support::Journal journal;
        QVERIFY(connectTo(*desk));
        QTRY_VERIFY(isAsked());
        QVERIFY(prompt()->question().contains(QDate::currentDate().toString(Qt::ISODate)));
        QSignalSpy restored(robot, &Robot::storeRestored);
        support::click(prompt(), "promptConfirm");
        QTRY_COMPARE(static_cast<int>(restored.count()), 1);
        QCOMPARE(keysSent(journal), QStringList{QStringLiteral("1")});
        QCOMPARE(desk->controller->store().state(), ParameterStore::State::Good);
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        QVERIFY(journal.toasts().contains(QStringLiteral("控制器的参数已恢复，请重新打开页面")));
    }

    void withoutACopy()
    {
        QVERIFY(QDir(desk->directory.filePath(QStringLiteral("backup"))).removeRecursively());
        desk->restart();
        support::Journal journal;
        QVERIFY(connectTo(*desk));
        QTRY_COMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_EMPTY_STORE);
        QSignalSpy restored(robot, &Robot::storeRestored);
        support::click(prompt(), "promptConfirm");
        QTRY_COMPARE(static_cast<int>(restored.count()), 1);
        QCOMPARE(keysSent(journal), QStringList{QStringLiteral("0")});
    }

    /// An answer of no stands for as long as the connection does.
    void noIsAskedOnce()
    {
        support::Journal journal;
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        QVERIFY(connectTo(*desk));
        QTRY_VERIFY(isAsked());
        support::click(prompt(), "promptCancel");
        QTRY_VERIFY([&] { // said again, once its second is over
            robot->sendCommandData(message::GetPolish, R"({"robot":1,"craftID":1})");
            return damaged.count() > 1;
        }());
        QCoreApplication::processEvents();
        QVERIFY(!isAsked());
        QVERIFY(keysSent(journal).isEmpty());
        QCOMPARE(desk->controller->store().state(), ParameterStore::State::RowsDamaged);
        robot->disconnectFromController();
        QVERIFY(connectTo(*desk));
        QTRY_VERIFY(isAsked());
    }

    void onlyTheAdministratorIsAsked()
    {
        App::sysUser = AUTHORITY_TECHNICIAN;
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        QVERIFY(connectTo(*desk));
        QTRY_COMPARE(static_cast<int>(damaged.count()), 1);
        QCoreApplication::processEvents();
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        emit UserAccounts::getInstance()->userChanged();
        QTRY_VERIFY(isAsked());
    }

    /// Another question comes first.
    void notOverAnotherQuestion()
    {
        prompt()->repaint_widget(PromptWidget::PROMPT_CLEAN_PALLET, QStringLiteral("1"));
        prompt()->set_widget_state(PromptWidget::PROMPT_CLEAN_PALLET);
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        QVERIFY(connectTo(*desk));
        QTRY_COMPARE(static_cast<int>(damaged.count()), 1);
        QCoreApplication::processEvents();
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_CLEAN_PALLET);
        support::click(prompt(), "promptCancel");
        QTRY_VERIFY(isAsked());
    }

    /// A question about a controller that has gone is no question.
    void theLinkGoesUnderTheQuestion()
    {
        QVERIFY(connectTo(*desk));
        QTRY_VERIFY(isAsked());
        robot->disconnectFromController();
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
    }
};

QTEST_MAIN(TestStoreRepair)
#include "test_storerepair.moc"
