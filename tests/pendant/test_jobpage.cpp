// The job list and its viewer in the main window, by touches: what they show, what each button
// does, rights and questions, jobs that could not be stored, damaged files, other robots and
// languages.

#include "../job/samplejob.h"
#include "../simulator/link.h"
#include "../support.h"

#include "joblinemodel.h"
#include "jobpage.h"
#include "jobstore.h"
#include "jobviewer.h"
#include "language.h"
#include "loginpage.h"
#include "promptwidget.h"
#include "snackbarmessage.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"
#include "wraplabel.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>

namespace {

JobStore *store()
{
    return JobStore::getInstance();
}

PromptWidget *prompt()
{
    return PromptWidget::getInstance();
}

QByteArray sampleText()
{
    return jobfile::write(*sample::job());
}

/// The sample with an output that the controller does not have, in line 10.
QByteArray refusedText()
{
    const auto job = sample::job();
    sample::at<IOCommand>(*job, sample::Output).ioPort = 17;
    return jobfile::write(*job);
}

enum Column { Name, Date, Size, State };

} // namespace

class TestJobPage : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<VeltrixWidgetFoundation> window;
    Robot *robot = Robot::getInstance();

    template <typename Widget> Widget *find(const char *name)
    {
        return support::child<Widget>(window.get(), name);
    }
    QTableWidget *table() { return find<QTableWidget>("jobTable"); }
    QTableView *lines() { return find<QTableView>("jobLines"); }
    JobViewer *viewer() { return window->jobPage()->viewer(); }
    JobLineModel *model() { return dynamic_cast<JobLineModel *>(lines()->model()); }
    void click(const char *name) { support::click(window.get(), name); }
    void answer(const char *name) { support::click(prompt(), name); }
    bool isShown(const char *name) { return find<QWidget>(name)->isVisible(); }

    void write(const QString &name, const QByteArray &text, int number = 1)
    {
        QVERIFY(QDir().mkpath(store()->directoryOf(number)));
        QFile file(store()->pathOf(number, name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), qint64(text.size()));
    }
    /// Stores a job whose directory is a file, so that it stays in memory.
    void saveInVain(const QString &name, int number = 1)
    {
        QDir(store()->directoryOf(number)).removeRecursively();
        write(number, QByteArray());
        QVERIFY(!store()->save(number, name, sampleText()).isEmpty());
    }
    void write(int number, const QByteArray &text)
    {
        QFile file(store()->directoryOf(number));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void mendDirectory(int number = 1) { QVERIFY(QFile::remove(store()->directoryOf(number))); }

    void openArea()
    {
        click("areaJobs");
        QVERIFY(isShown("jobPage"));
    }
    QStringList column(int which)
    {
        QStringList texts;
        for (int row = 0; row < table()->rowCount(); ++row)
            texts += table()->item(row, which)->text();
        return texts;
    }
    QPoint placeOf(const QString &name)
    {
        for (int row = 0; row < table()->rowCount(); ++row) {
            if (table()->item(row, Name)->text() == name) {
                table()->scrollToItem(table()->item(row, Name));
                return table()->visualItemRect(table()->item(row, Name)).center();
            }
        }
        return {-1, -1};
    }
    void touch(const QString &name)
    {
        const QPoint place = placeOf(name);
        QVERIFY2(place.x() >= 0, qPrintable(name));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    QString selected()
    {
        const auto items = table()->selectedItems();
        return items.isEmpty() ? QString() : table()->item(items.first()->row(), Name)->text();
    }
    QString stateOf(const QString &name)
    {
        const int row = static_cast<int>(column(Name).indexOf(name));
        return row < 0 ? QString() : table()->item(row, State)->text();
    }
    void open(const QString &name)
    {
        touch(name);
        click("jobOpen");
        QVERIFY2(isShown("jobViewer"), qPrintable(name));
    }
    QString statement(int line)
    {
        return model()->index(line - 1, JobLineModel::Statement).data().toString();
    }
    QString number(int line)
    {
        return model()->index(line - 1, JobLineModel::Number).data().toString();
    }
    QString warning()
    {
        return isShown("jobWarning") ? find<QLabel>("jobWarning")->text() : QString();
    }

private slots:
    void initTestCase() { QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh"))); }

    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        store()->setDirectory(directory->path());
        UserAccounts::getInstance()->setHashCost(1, 8192);
        UserAccounts::getInstance()->start(true);
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        App::mainPage_ = 2;
        MoreRobot::setCurrentRobot(1);
        window = std::make_unique<VeltrixWidgetFoundation>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    void cleanup()
    {
        prompt()->close();
        App::locked_ = false;
        SnackbarMessage::dismissAll();
        robot->disconnectFromController();
        Language::getInstance()->setCurrent(QStringLiteral("zh"));
        window.reset();
        while (!store()->unsaved().isEmpty()) {
            const JobStore::Unsaved job = store()->unsaved().first();
            store()->drop(job.robot, job.name);
        }
        MoreRobot::setCurrentRobot(1);
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        while (!database->accounts().isEmpty()) {
            const QString name = database->accounts().first().name;
            database->removeAccount(name);
        }
    }

    // ---- the area -------------------------------------------------------------------------------

    void theAreaOfItsOwn()
    {
        openArea();
        QCOMPARE(window->area(), VeltrixWidgetFoundation::Jobs);
        QCOMPARE(App::mainPage_, int(VeltrixWidgetFoundation::JobsPage));
        QCOMPARE(find<QLabel>("pageTitle")->text(), QStringLiteral("作业"));
        QCOMPARE(window->jobPage()->geometry(), QRect(0, 48, 714, 504));
        click("areaEvents");
        QVERIFY(!isShown("jobPage"));
        click("areaProcess");
        QCOMPARE(App::mainPage_, 2);
        const char *const order[] = {"areaProcess", "areaJobs", "areaEvents", "areaUsers",
                                     "lockButton"};
        int right = 0;
        for (const char *name : order) {
            const QRect place = find<QPushButton>(name)->geometry();
            QVERIFY2(place.left() > right, name);
            QVERIFY2(place.width() >= 56, name);
            right = place.right();
        }
        QVERIFY(right < 714);
    }

    /// Whoever asks for the jobs gets the list, also when a job was being read.
    void aPageAsksForTheJobs()
    {
        write(QStringLiteral("A"), sampleText());
        window->showJobs(4);
        QCOMPARE(window->area(), VeltrixWidgetFoundation::Jobs);
        open(QStringLiteral("A"));
        click("areaProcess");
        window->showJobs(0);
        QVERIFY(isShown("jobTable"));
        QVERIFY(!viewer()->isOpen());
    }

    void touchTargets()
    {
        write(QStringLiteral("A"), sampleText());
        saveInVain(QStringLiteral("B"), 2);
        openArea();
        const auto check = [this] {
            for (const QPushButton *button : window->jobPage()->findChildren<QPushButton *>()) {
                if (!button->isVisible())
                    continue;
                QVERIFY2(button->height() >= 44, qPrintable(button->objectName()));
                QVERIFY2(button->width() >= 100, qPrintable(button->objectName()));
                const int words = button->fontMetrics().horizontalAdvance(button->text());
                QVERIFY2(words + 8 <= button->width(), qPrintable(button->text()));
            }
        };
        for (const char *language : {"zh", "en"}) {
            Language::getInstance()->setCurrent(QString::fromLatin1(language));
            MoreRobot::setCurrentRobot(1);
            touch(QStringLiteral("A"));
            check();
            click("jobOpen");
            check();
            MoreRobot::setCurrentRobot(2);
            touch(QStringLiteral("B"));
            check();
        }
    }

    // ---- the list -------------------------------------------------------------------------------

    void anEmptyListSaysSo()
    {
        openArea();
        QVERIFY(!isShown("jobTable"));
        QVERIFY(isShown("jobEmpty"));
        QVERIFY(find<QLabel>("jobEmpty")->text().contains(QStringLiteral("还没有作业")));
        QCOMPARE(find<QLabel>("jobCount")->text(), QStringLiteral("机器人 1 · 0 个作业"));
        for (const char *button : {"jobOpen", "jobSend", "jobDelete"})
            QVERIFY2(!find<QPushButton>(button)->isEnabled(), button);
        store()->save(1, QStringLiteral("A"), sampleText());
        QVERIFY(isShown("jobTable"));
        QVERIFY(!isShown("jobEmpty"));
    }

    void rows()
    {
        write(QStringLiteral("STACK1"), sampleText());
        write(QStringLiteral("small"), "x\n");
        write(QStringLiteral("elsewhere"), sampleText(), 2);
        QVERIFY(QDir().mkpath(store()->pathOf(1, QStringLiteral("a directory"))));
        openArea();
        QCOMPARE(column(Name),
                 QStringList({QStringLiteral("STACK1"), QStringLiteral("a directory"),
                              QStringLiteral("small")}));
        const QFileInfo file(store()->pathOf(1, QStringLiteral("STACK1")));
        QCOMPARE(column(Date).first(),
                 file.lastModified().toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm")));
        QCOMPARE(
            column(Size),
            QStringList({QStringLiteral("4.0 kB"), QStringLiteral("0 B"), QStringLiteral("2 B")}));
        QCOMPARE(column(State),
                 QStringList({QStringLiteral("未发送"), QStringLiteral("不可读：文件夹"),
                              QStringLiteral("未发送")}));
        QCOMPARE(find<QLabel>("jobCount")->text(), QStringLiteral("机器人 1 · 2 个作业"));
        QVERIFY(!isShown("jobSaveAgain"));
        QVERIFY(!isShown("jobDrop"));
    }

    void sorting()
    {
        const QDateTime now = QDateTime::currentDateTime();
        int age = 0;
        for (const char *name : {"b", "c", "a"}) {
            write(QString::fromLatin1(name), sampleText());
            QFile file(store()->pathOf(1, QString::fromLatin1(name)));
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(now.addDays(-++age), QFileDevice::FileModificationTime));
        }
        openArea();
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("a b c"));
        touch(QStringLiteral("c"));
        click("jobSort");
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("b c a"));
        QCOMPARE(selected(), QStringLiteral("c"));
        QCOMPARE(find<QPushButton>("jobSort")->text(), QStringLiteral("排序：最新在前"));
        click("jobSort");
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("a b c"));
        QCOMPARE(find<QPushButton>("jobSort")->text(), QStringLiteral("排序：按名称"));
    }

    /// What is not stored yet stands where its name belongs, and is newer than all else.
    void sortingOfUnsavedJobs()
    {
        QVERIFY(QDir().mkpath(store()->pathOf(1, QStringLiteral("b"))));
        QVERIFY(!store()->save(1, QStringLiteral("b"), sampleText()).isEmpty());
        write(QStringLiteral("a"), sampleText());
        write(QStringLiteral("c"), sampleText());
        openArea();
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("a b c"));
        click("jobSort");
        QCOMPARE(column(Name).first(), QStringLiteral("b"));
    }

    void theListIsReadAgain()
    {
        write(QStringLiteral("b"), sampleText());
        openArea();
        touch(QStringLiteral("b"));
        store()->save(1, QStringLiteral("a"), sampleText());
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("a b"));
        QCOMPARE(selected(), QStringLiteral("b"));
        click("areaProcess");
        write(QStringLiteral("aa"), sampleText());
        click("areaJobs");
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("a aa b"));
        QCOMPARE(selected(), QStringLiteral("b"));
        store()->remove(1, QStringLiteral("b"));
        QCOMPARE(selected(), QString());
        QVERIFY(!find<QPushButton>("jobOpen")->isEnabled());
    }

    void longNames()
    {
        const QString latin(JobStore::kMaxNameBytes, QLatin1Char('W'));
        const QString chinese(JobStore::kMaxNameBytes / 3, QChar(0x578b));
        for (const QString &name : {latin, chinese}) {
            QVERIFY(JobStore::isValidName(name));
            write(name, sampleText());
        }
        openArea();
        for (const QString &name : {latin, chinese}) {
            touch(name);
            QVERIFY(find<QLabel>("jobDetail")->text().startsWith(name));
            click("jobOpen");
            const auto *head = dynamic_cast<WrapLabel *>(find<QLabel>("jobName"));
            QCOMPARE(head->text(), name);
            const QRect room = head->contentsRect();
            const QRect needed = QFontMetrics(head->fittingFont())
                                     .boundingRect(QRect(0, 0, room.width(), 1000),
                                                   Qt::TextWordWrap | Qt::TextWrapAnywhere, name);
            QVERIFY(needed.width() <= room.width());
            QVERIFY(needed.height() <= room.height());
            click("jobBack");
        }
    }

    // ---- what the controller says ---------------------------------------------------------------

    void statesOfTheController()
    {
        const Desk desk;
        QVERIFY(connectTo(desk));
        openArea();
        store()->save(1, QStringLiteral("good"), sampleText());
        store()->save(1, QStringLiteral("bad"), refusedText());
        QCOMPARE(stateOf(QStringLiteral("good")), QStringLiteral("检查中"));
        QTRY_COMPARE(stateOf(QStringLiteral("good")), QStringLiteral("通过"));
        QTRY_COMPARE(stateOf(QStringLiteral("bad")),
                     QStringLiteral("第 10 行：控制器没有端口 OT#17"));
        touch(QStringLiteral("bad"));
        QVERIFY(find<QLabel>("jobDetail")
                    ->text()
                    .endsWith(QStringLiteral("第 10 行：控制器没有端口 OT#17")));
        QVERIFY(desk.controller->job(1, QStringLiteral("good")));
        QVERIFY(!desk.controller->job(1, QStringLiteral("bad")));
    }

    void sendingAgain()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        support::Journal journal;
        click("jobSend");
        QCOMPARE(journal.toasts(), QStringList(QStringLiteral("作业 A 未发送：控制器未连接")));
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("未发送"));

        const Desk desk;
        QVERIFY(connectTo(desk));
        click("jobSend");
        QTRY_COMPARE(stateOf(QStringLiteral("A")), QStringLiteral("通过"));
        QCOMPARE(desk.controller->received(wire::StoreJob), 1);
        QCOMPARE(selected(), QStringLiteral("A"));

        // What was not sent has changed nothing.
        robot->disconnectFromController();
        click("jobSend");
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("通过"));
        store()->save(1, QStringLiteral("A"), sampleText());
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("未发送"));
    }

    /// What was to be said by a controller that is gone is not waited for.
    void theLinkIsLostWhileTheJobIsChecked()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        desk.controller->setFault(wire::StoreJob, Fault::NoReply);
        openArea();
        store()->save(1, QStringLiteral("A"), sampleText());
        QTRY_COMPARE(desk.controller->received(wire::StoreJob), 1);
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("检查中"));
        desk.controller.reset();
        QTRY_COMPARE(stateOf(QStringLiteral("A")), QStringLiteral("未发送"));
    }

    // ---- deleting -------------------------------------------------------------------------------

    void deleteAsksAndActsOnce()
    {
        for (const char *name : {"A", "B"})
            write(QString::fromLatin1(name), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        support::Journal journal;
        QSignalSpy others(prompt(), &PromptWidget::deleteXmlJob);
        click("jobDelete");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_DELETE_PROJECT);
        QCOMPARE(prompt()->text(), QStringLiteral("A"));
        const QVariantList released = {0};
        QCOMPARE(journal.of("safetySwitch"), QVector<QVariantList>{released});
        answer("promptCancel");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("A B"));

        click("jobDelete");
        answer("promptConfirm");
        answer("promptConfirm"); // a second touch on the way
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        QCOMPARE(column(Name), QStringList(QStringLiteral("B")));
        QVERIFY(!QFile::exists(store()->pathOf(1, QStringLiteral("A"))));
        const QVariantList removed = {QStringLiteral("removeJob"), QStringLiteral("A")};
        QCOMPARE(static_cast<int>(journal.of("job").count(removed)), 1);
        QCOMPARE(static_cast<int>(others.count()), 0); // nobody else's question
    }

    void deleteActsOnTheJobThatWasAskedAbout()
    {
        for (const char *name : {"A", "B"})
            write(QString::fromLatin1(name), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        click("jobDelete");
        table()->selectRow(1);
        QCOMPARE(selected(), QStringLiteral("B"));
        answer("promptConfirm");
        QCOMPARE(column(Name), QStringList(QStringLiteral("B")));
    }

    /// The same kind of question, asked by another page: its answers are no concern of the list.
    void anotherPagesQuestion()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        QSignalSpy others(prompt(), &PromptWidget::deleteXmlJob);
        const auto askForAnother = [] {
            prompt()->repaint_widget(PromptWidget::PROMPT_DELETE_PROJECT, QStringLiteral("A"));
            prompt()->set_widget_state(PromptWidget::PROMPT_DELETE_PROJECT);
        };
        click("jobDelete");
        askForAnother(); // takes the place of the list's own
        answer("promptConfirm");
        QCOMPARE(static_cast<int>(others.count()), 1);
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));

        click("jobDelete");
        answer("promptCancel");
        askForAnother();
        answer("promptConfirm");
        QCOMPARE(static_cast<int>(others.count()), 2);
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));

        click("jobDelete");
        prompt()->close(); // without an answer
        askForAnother();
        answer("promptConfirm");
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
    }

    void deleteNeedsTheRight()
    {
        write(QStringLiteral("A"), sampleText());
        saveInVain(QStringLiteral("B"), 2);
        openArea();
        touch(QStringLiteral("A"));
        for (const AUTHORITY role : {AUTHORITY_NONE, AUTHORITY_OPERATOR}) {
            App::sysUser = role;
            support::Journal journal;
            click("jobDelete");
            const QVariantList refused = {QStringLiteral("删除程序"), false};
            QCOMPARE(journal.of("rights"), QVector<QVariantList>{refused});
            QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
            QVERIFY(!journal.toasts().isEmpty());
        }
        MoreRobot::setCurrentRobot(2);
        touch(QStringLiteral("B"));
        click("jobDrop");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        App::sysUser = AUTHORITY_TECHNICIAN;
        click("jobDrop");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_DELETE_PROJECT);
    }

    /// The question was put to a user with the right; another one logs in below it.
    void aQuestionIsNotForAUserWithFewerRights()
    {
        UserAccounts *accounts = UserAccounts::getInstance();
        const QString password = QStringLiteral("long enough 1");
        const QString boss = QStringLiteral("boss");
        const QString worker = QStringLiteral("op");
        QString error;
        QVERIFY2(accounts->add(boss, AUTHORITY_ADMINISTRATOR, password, &error), qPrintable(error));
        QVERIFY2(accounts->add(worker, AUTHORITY_OPERATOR, password, &error), qPrintable(error));
        write(QStringLiteral("A"), sampleText());
        saveInVain(QStringLiteral("B"), 2);
        for (const char *key : {"jobDelete", "jobDrop"}) {
            accounts->lock();
            accounts->logIn(boss, password);
            QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
            const bool isDrop = qstrcmp(key, "jobDrop") == 0;
            MoreRobot::setCurrentRobot(isDrop ? 2 : 1);
            openArea();
            touch(isDrop ? QStringLiteral("B") : QStringLiteral("A"));
            click(key);
            QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_DELETE_PROJECT);
            support::Journal journal;
            QVERIFY(accounts->lock());
            QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_DELETE_PROJECT);
            accounts->logIn(worker, password);
            QCOMPARE(App::sysUser, AUTHORITY_OPERATOR);
            QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
            QVERIFY(journal.of("job").isEmpty());
        }
        QVERIFY(QFile::exists(store()->pathOf(1, QStringLiteral("A"))));
        QCOMPARE(static_cast<int>(store()->unsaved().size()), 1);
    }

    void aFileThatCannotBeDeleted()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        const QString path = store()->pathOf(1, QStringLiteral("A"));
        QVERIFY(QFile::remove(path));
        QVERIFY(QDir().mkpath(path + QStringLiteral("/full")));
        support::Journal journal;
        click("jobDelete");
        answer("promptConfirm");
        QCOMPARE(static_cast<int>(journal.toasts().size()), 1);
        QVERIFY(journal.toasts().first().startsWith(QStringLiteral("作业 A 不能删除：")));
    }

    /// What is no file is neither opened nor handed over; of a link, the link itself can go.
    void aLinkInTheList()
    {
        write(QStringLiteral("A"), sampleText());
        QVERIFY(QFile::link(store()->pathOf(1, QStringLiteral("A")),
                            store()->pathOf(1, QStringLiteral("B"))));
        QVERIFY(QDir().mkpath(store()->pathOf(1, QStringLiteral("C"))));
        openArea();
        QCOMPARE(stateOf(QStringLiteral("B")), QStringLiteral("不可读：链接"));
        QCOMPARE(find<QLabel>("jobCount")->text(), QStringLiteral("机器人 1 · 1 个作业"));
        touch(QStringLiteral("C"));
        for (const char *button : {"jobOpen", "jobSend", "jobDelete"})
            QVERIFY(!find<QPushButton>(button)->isEnabled());
        touch(QStringLiteral("B"));
        for (const char *button : {"jobOpen", "jobSend"})
            QVERIFY(!find<QPushButton>(button)->isEnabled());
        QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {},
                           table()->visualItemRect(table()->selectedItems().first()).center());
        QVERIFY(!isShown("jobViewer"));
        click("jobDelete");
        QVERIFY(prompt()->question().contains(QStringLiteral("链接")));
        answer("promptConfirm");
        QCOMPARE(column(Name), QStringList({QStringLiteral("A"), QStringLiteral("C")}));
        QVERIFY(QFile::exists(store()->pathOf(1, QStringLiteral("A"))));
    }

    /// A link in the way of a job that is not stored yet can be removed without dropping the job.
    void aLinkInTheWayOfAJob()
    {
        write(QStringLiteral("A"), sampleText());
        QVERIFY(QFile::link(store()->pathOf(1, QStringLiteral("A")),
                            store()->pathOf(1, QStringLiteral("B"))));
        QVERIFY(!store()->save(1, QStringLiteral("B"), sampleText()).isEmpty());
        openArea();
        touch(QStringLiteral("B"));
        QVERIFY(isShown("jobDelete"));
        QVERIFY(find<QPushButton>("jobOpen")->isEnabled()); // what is in memory
        click("jobDelete");
        answer("promptConfirm");
        QCOMPARE(static_cast<int>(store()->unsaved().size()), 1);
        click("jobSaveAgain");
        QVERIFY(store()->unsaved().isEmpty());
        QCOMPARE(stateOf(QStringLiteral("B")), QStringLiteral("未发送"));
    }

    // ---- jobs that are in memory only -----------------------------------------------------------

    void anUnsavedJobIsStoredAgain()
    {
        saveInVain(QStringLiteral("A"));
        openArea();
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
        QCOMPARE(column(Date), QStringList(QStringLiteral("—")));
        QVERIFY(stateOf(QStringLiteral("A")).startsWith(QStringLiteral("未保存：目录")));
        touch(QStringLiteral("A"));
        QVERIFY(!isShown("jobSend"));
        QVERIFY(!isShown("jobDelete"));
        support::Journal journal;
        click("jobSaveAgain");
        QCOMPARE(static_cast<int>(journal.toasts().size()), 1);
        QVERIFY(journal.toasts().first().startsWith(QStringLiteral("作业 A 仍未保存：")));
        QCOMPARE(selected(), QStringLiteral("A"));

        mendDirectory();
        click("jobSaveAgain");
        QCOMPARE(journal.toasts().last(), QStringLiteral("作业 A 已保存"));
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("未发送"));
        QVERIFY(store()->unsaved().isEmpty());
        QFile file(store()->pathOf(1, QStringLiteral("A")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), sampleText());
        QVERIFY(isShown("jobDelete"));
        QVERIFY(!isShown("jobDrop"));
    }

    void anUnsavedJobIsDropped()
    {
        saveInVain(QStringLiteral("A"));
        openArea();
        touch(QStringLiteral("A"));
        click("jobDrop");
        QCOMPARE(prompt()->text(), QStringLiteral("A（未保存）"));
        answer("promptCancel");
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
        click("jobDrop");
        answer("promptConfirm");
        QVERIFY(store()->unsaved().isEmpty());
        QVERIFY(isShown("jobEmpty"));
    }

    /// The older file of that name stays what it is until the new job is stored.
    void anUnsavedJobOverAFile()
    {
        write(QStringLiteral("A"), "old\n");
        const QString path = store()->directoryOf(1);
        const QString aside = directory->filePath(QStringLiteral("aside"));
        QVERIFY(QDir().rename(path, aside));
        saveInVain(QStringLiteral("A"));
        mendDirectory();
        QVERIFY(QDir().rename(aside, path));
        openArea();
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
        QVERIFY(stateOf(QStringLiteral("A")).startsWith(QStringLiteral("未保存")));
        open(QStringLiteral("A"));
        QVERIFY(warning().contains(QStringLiteral("只在内存中")));
        QCOMPARE(model()->rowCount(), 21);
        click("jobBack");
        click("jobDrop");
        answer("promptConfirm");
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
        QCOMPARE(column(Size), QStringList(QStringLiteral("4 B")));
    }

    void anUnsavedJobIsReadAndStoredBehindIt()
    {
        saveInVain(QStringLiteral("A"));
        openArea();
        open(QStringLiteral("A"));
        QVERIFY(warning().contains(QStringLiteral("未保存")));
        QCOMPARE(model()->marked(), 0);
        mendDirectory();
        QVERIFY(store()->saveAgain(1, QStringLiteral("A")).isEmpty());
        QVERIFY(isShown("jobViewer"));
        QVERIFY(warning().isEmpty());
    }

    // ---- the viewer -----------------------------------------------------------------------------

    void readingAJob()
    {
        write(QStringLiteral("STACK1"), sampleText());
        openArea();
        open(QStringLiteral("STACK1"));
        QVERIFY(!isShown("jobTable"));
        QCOMPARE(find<QLabel>("jobName")->text(), QStringLiteral("STACK1"));
        QVERIFY(find<QLabel>("jobFacts")->text().startsWith(QStringLiteral("21 行 · 4.0 kB\n20")));
        QVERIFY(warning().isEmpty());
        QCOMPARE(model()->rowCount(), 21);
        QCOMPARE(number(21), QStringLiteral("21"));
        const QString step(4, QLatin1Char(' '));
        QCOMPARE(statement(1), QStringLiteral("PalHead craft=2"));
        QCOMPARE(statement(2), QStringLiteral("WHILE B001 == 0"));
        QCOMPARE(statement(5), step + QStringLiteral("MovJ P1 A=10 B=10 C=10 D=0"));
        QCOMPARE(statement(6), step + QStringLiteral("WHILE DIN3 == 1"));
        QCOMPARE(statement(8), step + step + QStringLiteral("WAIT DIN5 == 1"));
        QCOMPARE(statement(13), step + QStringLiteral("ENDWHILE"));
        QCOMPARE(statement(21), QStringLiteral("ENDWHILE"));

        const auto *stored = find<QPlainTextEdit>("jobStoredLine");
        QVERIFY(stored->toPlainText().startsWith(QStringLiteral("PalHead craftNumber=2")));
        const QRect place = lines()->visualRect(model()->index(4, JobLineModel::Statement));
        QTest::mouseClick(lines()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
        const QStringList shown = stored->toPlainText().split(QLatin1Char('\n'));
        QCOMPARE(static_cast<int>(shown.size()), 2);
        QVERIFY(sampleText().contains(shown[0].toUtf8() + '\n'));
        QVERIFY(shown[0].contains(QStringLiteral(" reserved5=1 ")));
        QVERIFY(shown[1].startsWith(QStringLiteral("POSITION P1 kind=80 0 0 0 0 0 0 0 10.5 ")));

        click("jobBack");
        QVERIFY(isShown("jobTable"));
        QVERIFY(!viewer()->isOpen());
        QCOMPARE(selected(), QStringLiteral("STACK1"));
    }

    void aDoubleTapOpens()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        QTest::mouseDClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier,
                           placeOf(QStringLiteral("A")));
        QVERIFY(isShown("jobViewer"));
        QCOMPARE(viewer()->name(), QStringLiteral("A"));
        QCOMPARE(viewer()->robot(), 1);
    }

    void anEmptyJob()
    {
        write(QStringLiteral("A"), jobfile::write(ProgramJOB(QStringLiteral("A"))));
        openArea();
        open(QStringLiteral("A"));
        QCOMPARE(model()->rowCount(), 0);
        QVERIFY(warning().isEmpty());
        QVERIFY(find<QPlainTextEdit>("jobStoredLine")->toPlainText().isEmpty());
    }

    void damagedFiles()
    {
        QByteArray strange = sampleText();
        strange.replace("TIMER", "SLEEP");
        const int timerLine = 1 + 3 + 1 + sample::Timer;
        const QByteArray whole = sampleText();
        const QByteArray half = whole.left(whole.size() / 2);
        const QByteArray oneLine(5 * 1000 * 1000, 'x');
        QByteArray bytes;
        for (int i = 0; i < 4096; ++i)
            bytes.append(static_cast<char>(i * 7));
        struct Case {
            const char *name;
            QByteArray text;
            int line;
            int rows;
            QString reason;
        };
        const int halfLines = static_cast<int>(half.count('\n')) + 1;
        const Case cases[] = {
            {"strange", strange, timerLine, 27, QStringLiteral("不认识的指令 SLEEP")},
            {"half", half, halfLines, halfLines, QStringLiteral("文件不完整")},
            {"empty", {}, 1, 1, QStringLiteral("不是作业文件")},
            {"words", "hello\nworld\n", 1, 2, QStringLiteral("不是作业文件")},
            {"newer", "JBR 2\nBEGIN\nEND\n", 1, 3, QStringLiteral("不认识的文件版本 2")},
            {"one line", oneLine, 1, 1, QStringLiteral("不是作业文件")},
            {"bytes", bytes, 1, static_cast<int>(bytes.count('\n')) + 1,
             QStringLiteral("不是作业文件")},
        };
        for (const Case &each : cases)
            write(QString::fromLatin1(each.name), each.text);
        openArea();
        for (const Case &each : cases) {
            open(QString::fromLatin1(each.name));
            QVERIFY2(!model()->isJob(), each.name);
            QVERIFY2(model()->rowCount() == each.rows, each.name);
            QVERIFY2(model()->marked() == each.line, each.name);
            QCOMPARE(number(each.line), QStringLiteral("! %1").arg(each.line));
            QVERIFY(model()->index(each.line - 1, 0).data(Qt::BackgroundRole).isValid());
            QCOMPARE(lines()->currentIndex().row(), each.line - 1);
            QCOMPARE(warning(),
                     QStringLiteral("! 文件已损坏，按文本显示。第 %1 行：%2")
                         .arg(QString::number(each.line), each.reason));
            for (int row = 0; row < model()->rowCount(); ++row) {
                QVERIFY(statement(row + 1).size() <= 201);
                QVERIFY(model()->storedText(row).size() <= 4001);
            }
            click("jobBack");
        }
    }

    /// Names and texts from a file may hold anything; a line of the list stays one line.
    void strangeCharacters()
    {
        const auto job = sample::job();
        sample::at<IOCommand>(*job, sample::Output).ioName = QStringLiteral("O\nT\t<b>%1</b>");
        write(QStringLiteral("A"), jobfile::write(*job));
        openArea();
        open(QStringLiteral("A"));
        QVERIFY(model()->isJob());
        const QString shown = statement(sample::Output).trimmed();
        QCOMPARE(shown, QStringLiteral("DOUT O\uFFFDT\uFFFD<b>%1</b>2 = 1"));
    }

    void theLineThatTheControllerRefuses()
    {
        const Desk desk;
        QVERIFY(connectTo(desk));
        openArea();
        store()->save(1, QStringLiteral("A"), refusedText());
        QTRY_VERIFY(stateOf(QStringLiteral("A")).startsWith(QStringLiteral("第 10 行")));
        open(QStringLiteral("A"));
        QVERIFY(model()->isJob());
        QCOMPARE(model()->marked(), 10);
        QCOMPARE(number(10), QStringLiteral("! 10"));
        QCOMPARE(lines()->currentIndex().row(), 9);
        QCOMPARE(warning(), QStringLiteral("! 控制器不接受此作业。第 10 行：控制器没有端口 OT#17"));

        // Stored anew while it is being read, and taken.
        lines()->selectRow(3);
        store()->save(1, QStringLiteral("A"), sampleText());
        QCOMPARE(model()->marked(), 0);
        QVERIFY(warning().isEmpty());
        QTRY_COMPARE(store()->verdict(1, QStringLiteral("A")).state, JobStore::Verdict::Accepted);
        QCOMPARE(lines()->currentIndex().row(), 3);
        QCOMPARE(statement(10).trimmed(), QStringLiteral("DOUT OT#2 = 1"));

        // And the other way round: the refusal comes while it is being read.
        store()->save(1, QStringLiteral("A"), refusedText());
        QTRY_COMPARE(model()->marked(), 10);
        QVERIFY(!warning().isEmpty());
    }

    void theJobGoesWhileItIsRead()
    {
        for (const char *name : {"A", "B"})
            write(QString::fromLatin1(name), sampleText());
        openArea();
        open(QStringLiteral("A"));
        store()->remove(1, QStringLiteral("B"));
        QVERIFY(isShown("jobViewer"));
        store()->remove(1, QStringLiteral("A"));
        QVERIFY(!isShown("jobViewer"));
        QVERIFY(!viewer()->isOpen());
        QVERIFY(isShown("jobEmpty"));
    }

    void aJobThatCannotBeOpened()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        QVERIFY(QFile::remove(store()->pathOf(1, QStringLiteral("A"))));
        support::Journal journal;
        click("jobOpen");
        QVERIFY(!isShown("jobViewer"));
        QCOMPARE(static_cast<int>(journal.toasts().size()), 1);
        QVERIFY(journal.toasts().first().startsWith(QStringLiteral("作业 A 不能打开：")));
        QVERIFY(isShown("jobEmpty"));
    }

    void aHundredThousandLines()
    {
        ProgramJOB job(QStringLiteral("LONG"));
        const int depth = 100;
        const int count = 100000;
        for (int i = 0; i < depth; ++i)
            sample::append<WHILECommand>(job, Command::WhileBegin).condition = sample::input(1, 1);
        while (job.lineCount() < count - depth)
            sample::appendTimer(job);
        for (int i = 0; i < depth; ++i)
            sample::append<WHILECommand>(job, Command::WhileEnd);
        write(QStringLiteral("LONG"), jobfile::write(job));
        openArea();
        open(QStringLiteral("LONG"));
        QCOMPARE(model()->rowCount(), count);
        QCOMPARE(statement(count), QStringLiteral("ENDWHILE"));
        QCOMPARE(statement(3), QString(8, QLatin1Char(' ')) + QStringLiteral("WHILE DIN1 == 1"));
        QCOMPARE(statement(50000), QString(40, QLatin1Char(' ')) + QStringLiteral("TIMER 1 s"));
        lines()->verticalScrollBar()->setValue(lines()->verticalScrollBar()->maximum());
        const QRect last = lines()->visualRect(model()->index(count - 1, JobLineModel::Number));
        QVERIFY(lines()->viewport()->rect().contains(last.center()));
        // The column of the numbers has room for the longest of them, marked.
        QVERIFY(lines()->fontMetrics().horizontalAdvance(QStringLiteral("! 100000"))
                < lines()->columnWidth(JobLineModel::Number));
    }

    // ---- another robot, another language, the lock screen ---------------------------------------

    void anotherRobot()
    {
        write(QStringLiteral("A"), sampleText());
        write(QStringLiteral("A"), sampleText(), 2);
        write(QStringLiteral("B"), sampleText(), 2);
        openArea();
        touch(QStringLiteral("A"));
        click("robotKey2");
        QCOMPARE(column(Name).join(QLatin1Char(' ')), QStringLiteral("A B"));
        QCOMPARE(find<QLabel>("jobCount")->text(), QStringLiteral("机器人 2 · 2 个作业"));
        QCOMPARE(selected(), QString()); // another job of the same name
        open(QStringLiteral("B"));
        QCOMPARE(viewer()->robot(), 2);
        click("robotKey3");
        QVERIFY(!isShown("jobViewer"));
        QVERIFY(!viewer()->isOpen());
        QVERIFY(isShown("jobEmpty"));
        click("areaProcess");
        click("robotKey1");
        click("areaJobs");
        QCOMPARE(column(Name), QStringList(QStringLiteral("A")));
    }

    /// A question about a job of one robot is no question about the next robot's.
    void anotherRobotUnderTheQuestion()
    {
        write(QStringLiteral("A"), sampleText());
        write(QStringLiteral("A"), sampleText(), 2);
        openArea();
        touch(QStringLiteral("A"));
        click("jobDelete");
        MoreRobot::setCurrentRobot(2);
        answer("promptConfirm");
        QVERIFY(QFile::exists(store()->pathOf(1, QStringLiteral("A"))));
        QVERIFY(QFile::exists(store()->pathOf(2, QStringLiteral("A"))));
    }

    void theOtherLanguage()
    {
        QByteArray strange = sampleText();
        strange.replace("TIMER", "SLEEP");
        write(QStringLiteral("A"), strange);
        openArea();
        touch(QStringLiteral("A"));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("en")));
        QCOMPARE(find<QLabel>("pageTitle")->text(), QStringLiteral("Jobs"));
        QCOMPARE(find<QPushButton>("areaJobs")->text(), QStringLiteral("Jobs"));
        QCOMPARE(find<QPushButton>("jobOpen")->text(), QStringLiteral("Open"));
        QCOMPARE(find<QLabel>("jobCount")->text(), QStringLiteral("Robot 1 · jobs: 1"));
        QCOMPARE(table()->horizontalHeaderItem(Name)->text(), QStringLiteral("Name"));
        QCOMPARE(stateOf(QStringLiteral("A")), QStringLiteral("Not sent"));
        QCOMPARE(selected(), QStringLiteral("A"));
        click("jobOpen");
        QCOMPARE(warning(),
                 QStringLiteral("! The file is damaged and shown as text. "
                                "Line 16: Unknown command SLEEP"));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh")));
        QVERIFY(isShown("jobViewer"));
        QCOMPARE(warning(),
                 QStringLiteral("! 文件已损坏，按文本显示。第 16 行：不认识的指令 SLEEP"));
        QCOMPARE(find<QPushButton>("jobBack")->text(), QStringLiteral("返回"));
    }

    void theLockScreenCoversIt()
    {
        QString error;
        QVERIFY2(UserAccounts::getInstance()->add(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR,
                                                  QStringLiteral("long enough 1"), &error),
                 qPrintable(error));
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        click("lockButton");
        QVERIFY(App::locked_);
        const auto *login = window->findChild<LoginPage *>();
        QVERIFY(login->isVisible());
        QCOMPARE(login->geometry(), window->rect());
        click("jobDelete");
        click("jobOpen");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        QVERIFY(!viewer()->isOpen());
    }

    /// The page goes while its question is up.
    void theWindowGoesUnderTheQuestion()
    {
        write(QStringLiteral("A"), sampleText());
        openArea();
        touch(QStringLiteral("A"));
        click("jobDelete");
        window.reset();
        if (prompt()->currentWidget() != PromptWidget::PROMPT_NONE)
            answer("promptConfirm");
        QVERIFY(QFile::exists(store()->pathOf(1, QStringLiteral("A"))));
    }
};

QTEST_MAIN(TestJobPage)
#include "test_jobpage.moc"
