// The start of the pendant when its files cannot be had as usual: nobody is locked out, nobody gets
// in without a password, and nothing that was stored is lost.

#include "../support.h"
#include "finger.h"

#include "app/pendant.h"
#include "configurationfile.h"
#include "language.h"
#include "pendantstyle.h"
#include "printlog.h"
#include "snackbarmessage.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"
#include "wraplabel.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <csignal>
#include <memory>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr int kPatience = 120000; // ms, for other programs on a busy machine
const QString kBoss = QStringLiteral("boss");
const QString kPassword = QStringLiteral("long enough 1");
UserAccounts *const accounts = UserAccounts::getInstance();

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// While it lives, no file can grow beyond `bytes`, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        rlimit low = m_limit;
        low.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &low);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_limit = {};
    void (*m_handler)(int) = SIG_DFL;
};

/// While it lives, this program finds a directory on a disk that nothing can be written to. Only
/// for who may mount.
class ReadOnlyDisk {
public:
    explicit ReadOnlyDisk(const QString &directory) : m_path(QFile::encodeName(directory))
    {
        const char *path = m_path.constData();
        m_isMounted = ::unshare(CLONE_NEWNS) == 0
            && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
            && ::mount(path, path, nullptr, MS_BIND, nullptr) == 0;
        m_isReadOnly = m_isMounted
            && ::mount(nullptr, path, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }
    ~ReadOnlyDisk()
    {
        if (m_isMounted)
            ::umount2(m_path.constData(), MNT_DETACH);
    }
    bool isReadOnly() const { return m_isReadOnly; }

private:
    QByteArray m_path;
    bool m_isMounted = false;
    bool m_isReadOnly = false;
};

/// A program of its own with the pendant or the controller in it; killed in the end.
struct Program {
    Program(const QString &path, const QStringList &arguments)
    {
        process.start(path, arguments);
        process.waitForStarted();
    }
    ~Program() { kill(); }
    void kill()
    {
        process.kill();
        process.waitForFinished(kPatience);
    }

    QProcess process;
};

/// Statements on a database that no program has open.
void change(const QString &path, const QStringList &statements)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(path);
        QVERIFY(database.open());
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            QVERIFY2(query.exec(statement), qPrintable(statement));
        }
        database.close();
    }
    QSqlDatabase::removeDatabase("test");
}

/// The page with the names of the accounts in order, which nothing but a check reads.
qint64 placeOfIndex(const QString &path)
{
    qint64 page = 0;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(path);
        database.open();
        QSqlQuery query(database);
        if (query.exec("SELECT rootpage FROM sqlite_master WHERE type = 'index'"
                       " AND tbl_name = 'account'")
            && query.next())
            page = query.value(0).toLongLong();
    }
    QSqlDatabase::removeDatabase("test");
    return (page - 1) * 4096;
}

void overwrite(const QString &path, const QByteArray &bytes, qint64 place)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(place));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

} // namespace

class TestStartup : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<Pendant> m_pendant;
    bool m_embedded = true;
    QString m_language;

    QString dataDirectory() const { return m_directory->filePath("data"); }
    QString at(const QString &name) const { return QDir(dataDirectory()).filePath(name); }
    QString today() const { return QDate::currentDate().toString(Qt::ISODate); }
    QString todaysCopy() const { return at("backup/pendant-" + today() + ".db"); }

    bool start(const QString &directory = {})
    {
        Options options;
        options.dataDirectory = directory.isEmpty() ? dataDirectory() : directory;
        options.language = m_language;
        if (!m_embedded) {
            options.controllerHost = "127.0.0.1";
            options.controllerPort = 9;
        }
        m_pendant = std::make_unique<Pendant>();
        QString error;
        if (m_pendant->start(options, &error)) {
            m_pendant->window()->show();
            return true;
        }
        m_pendant.reset();
        return false;
    }

    void stop()
    {
        if (m_pendant)
            m_pendant->stop();
        m_pendant.reset();
    }

    /// A data directory with one user, as a run leaves it.
    void makeUsed()
    {
        QVERIFY(start());
        QString error;
        accounts->start(true);
        QVERIFY2(accounts->add(kBoss, AUTHORITY_ADMINISTRATOR, kPassword, &error),
                 qPrintable(error));
        stop();
        QVERIFY(QFile::exists(todaysCopy()));
    }

    QStringList keptAside() const
    {
        return QDir(dataDirectory()).entryList({"pendant-damaged-*.db"}, QDir::AllEntries);
    }

    void lockedUntilBossLogsIn()
    {
        QVERIFY(App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_NONE);
        QVERIFY(!accounts->needsFirstPassword());
        QCOMPARE(accounts->logIn(kBoss, kPassword), UserAccounts::LogIn::Good);
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
    }

    void lockedUntilAPasswordIsSet()
    {
        QVERIFY(App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_NONE);
        QVERIFY(accounts->needsFirstPassword());
    }

    QLabel *notKept() { return support::child<QLabel>(m_pendant->window(), "statusNotKept"); }

private slots:
    void initTestCase() { PendantStyle::apply(*qApp); }

    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_embedded = true;
        m_language = "zh";
        accounts->setHashCost(1, 8192);
    }

    void cleanup()
    {
        stop();
        VeltrixDatabase::getInstance()->holdInMemory({}, {});
        PrintLog::close();
        SnackbarMessage::dismissAll();
        m_directory.reset();
    }

    void anOrdinaryStartAsksNothing()
    {
        Finger finger({});
        QVERIFY(start());
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        QVERIFY(QFile::exists(todaysCopy()));
        QVERIFY(notKept()->isHidden());
        stop();
        QVERIFY(start());
        QVERIFY(finger.isDone());
        QVERIFY(finger.pages().isEmpty());
    }

    void aDamagedConfigurationIsTakenBack_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<QString>("said");
        QTest::newRow("no database") << "garbage"
                                     << "文件不是配置数据库";
        QTest::newRow("empty file") << "empty"
                                    << "文件不完整";
        QTest::newRow("a page overwritten") << "page"
                                            << "文件内容损坏";
        QTest::newRow("an index overwritten") << "index"
                                              << "文件内容损坏";
        QTest::newRow("cut off") << "cut"
                                 << "文件内容损坏";
        QTest::newRow("no accounts' table") << "table"
                                            << "文件不完整";
        QTest::newRow("no such column") << "column"
                                        << "文件不完整";
        QTest::newRow("an unreadable account") << "row"
                                               << "用户数据无法读取";
        QTest::newRow("newer") << "newer"
                               << "文件由更新版本的程序写入";
        QTest::newRow("gone") << "gone"
                              << "文件不见了";
        QTest::newRow("a directory") << "directory"
                                     << "文件不是配置数据库";
    }

    void aDamagedConfigurationIsTakenBack()
    {
        QFETCH(QString, damage);
        QFETCH(QString, said);
        makeUsed();
        const QString path = at("pendant.db");
        const QMap<QString, std::function<void()>> damages = {
            {"garbage", [&] { overwrite(path, QByteArray(4096, 'x'), 0); }},
            {"empty", [&] { QVERIFY(QFile::resize(path, 0)); }},
            {"page",
             [&] { overwrite(path, QByteArray(int(QFile(path).size()) - 4096, '\xa5'), 4096); }},
            {"index", [&] { overwrite(path, QByteArray(4000, '\xa5'), placeOfIndex(path)); }},
            {"cut", [&] { QVERIFY(QFile::resize(path, QFile(path).size() - 4096)); }},
            {"table", [&] { change(path, {"DROP TABLE account"}); }},
            {"column", [&] { change(path, {"ALTER TABLE account RENAME COLUMN role TO rolle"}); }},
            {"row", [&] { change(path, {"UPDATE account SET role = 77"}); }},
            {"newer", [&] { change(path, {"PRAGMA user_version = 1000"}); }},
            {"gone", [&] { QVERIFY(QFile::remove(path)); }},
            {"directory", [&] { QVERIFY(QFile::remove(path) && QDir().mkpath(path)); }},
        };
        damages[damage]();
        const QByteArray damaged = contentOf(path);

        Finger finger({Startup::TryAgain, Startup::FirstCopy});
        QVERIFY(start());
        QVERIFY(finger.isDone());
        QCOMPARE(finger.pages().first().heading, QStringLiteral("配置和用户无法读取"));
        QVERIFY2(finger.pages().first().text.contains(said),
                 qPrintable(finger.pages().first().text));
        QVERIFY(finger.pages().first().text.contains(path));
        QVERIFY2(finger.pages().first().keys.first().contains(today()),
                 qPrintable(finger.pages().first().keys.join(' ')));
        lockedUntilBossLogsIn();
        if (damage == "gone") {
            QVERIFY(keptAside().isEmpty());
        } else {
            QCOMPARE(int(keptAside().size()), 1);
            QCOMPARE(contentOf(at(keptAside().first())), damaged);
        }
        stop();
        const QString log = QString::fromUtf8(contentOf(at("pendant.log")));
        QVERIFY2(log.contains("操作员取回配置副本"), qPrintable(log));

        Finger again({});
        QVERIFY(start());
        QVERIFY(again.pages().isEmpty());
        lockedUntilBossLogsIn();
    }

    void theOperatorEnds()
    {
        makeUsed();
        overwrite(at("pendant.db"), QByteArray(4096, 'x'), 0);
        const QByteArray damaged = contentOf(at("pendant.db"));
        {
            Finger finger({Startup::End});
            QVERIFY(!start());
            QVERIFY(finger.isDone());
        }
        QCOMPARE(contentOf(at("pendant.db")), damaged);
        QVERIFY(keptAside().isEmpty());
        // a page that is closed is an end too, and the directory is free again
        Finger nothing({});
        QVERIFY(!start());
        QCOMPARE(int(nothing.pages().size()), 1);
        QCOMPARE(nothing.pages().first().heading, QStringLiteral("配置和用户无法读取"));
    }

    /// Neither controller lets anybody in: a password is set first, after a choice that is asked
    /// for twice and logged.
    void withoutACopy_data()
    {
        QTest::addColumn<bool>("embedded");
        QTest::addColumn<QString>("copy");
        QTest::newRow("embedded") << true << "none";
        QTest::newRow("real") << false << "none";
        QTest::newRow("embedded, damaged copy") << true << "damaged";
        QTest::newRow("embedded, copy without users") << true << "empty";
        QTest::newRow("real, copy without users") << false << "empty";
    }

    void withoutACopy()
    {
        QFETCH(bool, embedded);
        QFETCH(QString, copy);
        makeUsed();
        overwrite(at("pendant.db"), QByteArray(4096, 'x'), 0);
        if (copy == "none")
            QVERIFY(QDir(at("backup")).removeRecursively());
        else if (copy == "damaged")
            overwrite(todaysCopy(), QByteArray(4096, 'x'), 0);
        else
            change(todaysCopy(), {"DELETE FROM account"});
        m_embedded = embedded;

        const int choice = copy == "empty" ? int(Startup::FirstCopy) : int(Startup::StartEmpty);
        Finger finger({choice, Startup::Back, choice, Startup::Confirm});
        QVERIFY(start());
        QVERIFY(finger.isDone());
        QVERIFY(finger.pages().at(1).heading.contains("必须重新设置管理员密码"));
        QCOMPARE(int(keptAside().size()), 1);
        lockedUntilAPasswordIsSet();
        stop();
        QVERIFY(QString::fromUtf8(contentOf(at("pendant.log")))
                    .contains(copy == "empty" ? "操作员取回配置副本" : "操作员确认以空配置启动"));

        // the next start does not let anybody in either
        Finger again({});
        QVERIFY(start());
        QVERIFY(again.pages().isEmpty());
        lockedUntilAPasswordIsSet();
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        stop();
        QVERIFY(start());
        QVERIFY(App::locked_ && !accounts->needsFirstPassword());
    }

    /// Of a configuration that an earlier day left.
    void theDaysAreOffered()
    {
        makeUsed();
        for (const char *day : {"2001-01-01", "2002-02-02", "2003-03-03", "2004-04-04"})
            QVERIFY(QFile::copy(todaysCopy(), at(QStringLiteral("backup/pendant-%1.db").arg(day))));
        overwrite(todaysCopy(), QByteArray(100, 'x'), 0);
        overwrite(at("pendant.db"), QByteArray(4096, 'x'), 0);
        Finger finger({Startup::FirstCopy + 2});
        QVERIFY(start());
        const QStringList keys = finger.pages().first().keys;
        QCOMPARE(keys,
                 (QStringList{"取回 2004-04-04 的副本", "取回 2003-03-03 的副本",
                              "取回 2002-02-02 的副本", "重试", "结束程序"}));
        lockedUntilBossLogsIn();
    }

    void anotherProgramHasTheDirectory()
    {
        makeUsed();
        Program other(PENDANT_PROGRAM, {"--data", dataDirectory(), "--controller", "127.0.0.1:9"});
        QTRY_VERIFY_WITH_TIMEOUT(
            contentOf(at("pendant.lock"))
                .startsWith(QByteArray::number(other.process.processId()) + '\n'),
            kPatience);
        {
            Finger finger({Startup::TryAgain, Startup::End});
            QVERIFY(!start());
            QVERIFY(finger.isDone());
            QCOMPARE(finger.pages().first().heading,
                     QStringLiteral("数据目录正在被另一个程序使用"));
            for (const QString &part :
                 {QStringLiteral("pendant"), QString::number(other.process.processId()),
                  QSysInfo::machineHostName(), dataDirectory()})
                QVERIFY2(finger.pages().first().text.contains(part), qPrintable(part));
        }

        // what is killed leaves no lock
        Finger killer({Startup::TryAgain});
        killer.onPage = [&](StartPage *) { other.kill(); };
        QVERIFY(start());
        QVERIFY(killer.isDone());
        lockedUntilBossLogsIn();
    }

    /// A second program without an operator says so and ends.
    void theSecondSaysWhoHasIt()
    {
        QVERIFY(start());
        QProcess second;
        second.start(PENDANT_PROGRAM,
                     {"--data", dataDirectory(), "--tour", m_directory->filePath("tour")});
        QVERIFY(second.waitForFinished(kPatience));
        QCOMPARE(second.exitCode(), 2);
        const QString error = QString::fromUtf8(second.readAllStandardError());
        QVERIFY2(error.contains(QString::number(QCoreApplication::applicationPid())),
                 qPrintable(error));

        // the embedded controller's data are in use too
        QProcess controller;
        controller.start(CONTROLLER_PROGRAM, {"--data", dataDirectory(), "--port", "0"});
        QVERIFY(controller.waitForFinished(kPatience));
        QCOMPARE(controller.exitCode(), 3);
        QVERIFY(QString::fromUtf8(controller.readAllStandardError()).contains(dataDirectory()));
    }

    void aControllerHasTheDirectory()
    {
        Program controller(CONTROLLER_PROGRAM, {"--data", dataDirectory(), "--port", "0"});
        QTRY_VERIFY_WITH_TIMEOUT(contentOf(at("controller.lock")).count('\n') == 3, kPatience);
        Finger finger({Startup::End});
        QVERIFY(!start());
        QVERIFY(
            finger.pages().first().text.contains(QString::number(controller.process.processId())));
        Program second(CONTROLLER_PROGRAM, {"--data", dataDirectory(), "--port", "0"});
        QVERIFY(second.process.waitForFinished(kPatience));
        QCOMPARE(second.process.exitCode(), 3);
        // a pendant for another controller shares no file with it
        m_embedded = false;
        QVERIFY(start());
    }

    void aFullDisk_data()
    {
        QTest::addColumn<bool>("changesBeside");
        QTest::addColumn<int>("bytes");
        QTest::newRow("nothing") << false << 0;
        QTest::newRow("some bytes") << false << 100;
        QTest::newRow("changes of a killed program") << true << 0;
        QTest::newRow("some pages") << true << 5000;
    }

    void aFullDisk()
    {
        QFETCH(bool, changesBeside);
        QFETCH(int, bytes);
        makeUsed();
        if (changesBeside) {
            // The files as a killed program leaves them.
            const QString source = m_directory->filePath("source");
            QDir().rename(dataDirectory(), source);
            VeltrixDatabase *database = VeltrixDatabase::getInstance();
            QVERIFY(database->open(source));
            QString error;
            accounts->start(true);
            accounts->logIn(kBoss, kPassword);
            QVERIFY(accounts->changeOwnPassword(kPassword, "another secret", &error));
            QDir().mkpath(dataDirectory());
            for (const char *name : {"pendant.db", "pendant.db-wal"})
                QVERIFY(QFile::copy(source + '/' + name, at(name)));
            database->close();
            QVERIFY(QFileInfo(at("pendant.db-wal")).size() > 0);
        }
        const QByteArray before = contentOf(at("pendant.db"));
        {
            const FullDisk full(static_cast<rlim_t>(bytes));
            Finger finger({Startup::TryAgain, Startup::Continue});
            QVERIFY(start());
            QVERIFY(finger.isDone());
            QCOMPARE(finger.pages().first().heading, QStringLiteral("数据目录无法写入"));
            QVERIFY(notKept()->isVisibleTo(m_pendant->window()));
            QVERIFY(!notKept()->text().isEmpty());
            QVERIFY(App::locked_ && !accounts->needsFirstPassword());
            QCOMPARE(accounts->logIn(kBoss, changesBeside ? "another secret" : kPassword),
                     UserAccounts::LogIn::Good);
            if (changesBeside) {
                accounts->lock();
                QCOMPARE(accounts->logIn(kBoss, kPassword), UserAccounts::LogIn::WrongPassword);
            }
            VeltrixDatabase::getInstance()->setValue("screen", 5);
            QCOMPARE(VeltrixDatabase::getInstance()->value("screen").toInt(), 5);
            stop();
        }
        if (!changesBeside)
            QCOMPARE(contentOf(at("pendant.db")), before);
        Finger again({});
        QVERIFY(start());
        QVERIFY(again.pages().isEmpty());
        QVERIFY(notKept()->isHidden());
        QCOMPARE(accounts->logIn(kBoss, changesBeside ? "another secret" : kPassword),
                 UserAccounts::LogIn::Good);
    }

    /// With changes beside the file, as a killed program leaves them, and without.
    void aReadOnlyDisk_data()
    {
        QTest::addColumn<bool>("killed");
        QTest::newRow("ended in order") << false;
        QTest::newRow("killed") << true;
    }

    void aReadOnlyDisk()
    {
        QFETCH(bool, killed);
        makeUsed();
        if (killed) {
            Program pendant(PENDANT_PROGRAM, {"--data", dataDirectory()});
            QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(at("pendant.db-wal")).size() > 0
                                         && QFile::exists(at("controller.db")),
                                     kPatience);
        }
        {
            const ReadOnlyDisk disk(dataDirectory());
            if (!disk.isReadOnly())
                QSKIP("this user may not mount a directory read-only");
            QVERIFY(!QFile(at("probe")).open(QIODevice::WriteOnly));
            Finger finger({Startup::TryAgain, Startup::Continue});
            QVERIFY(start());
            QVERIFY(finger.isDone());
            QCOMPARE(finger.pages().first().heading, QStringLiteral("数据目录无法写入"));
            lockedUntilBossLogsIn();
            QVERIFY(notKept()->isVisibleTo(m_pendant->window()));
            stop();
        }
        Finger again({});
        QVERIFY(start());
        QVERIFY(again.pages().isEmpty());
        lockedUntilBossLogsIn();
    }

    /// Users that cannot be read are not taken for none.
    void aDirectoryThatIsNone_data()
    {
        QTest::addColumn<bool>("embedded");
        QTest::newRow("embedded") << true;
        QTest::newRow("real") << false;
    }

    void aDirectoryThatIsNone()
    {
        QFETCH(bool, embedded);
        m_embedded = embedded;
        QFile file(m_directory->filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_language.clear();
        Finger finger({Startup::Continue, Startup::StartEmpty, Startup::Confirm});
        QVERIFY(start(file.fileName() + "/below"));
        QVERIFY(finger.isDone());
        // nobody knows the language of the last run: both
        for (const char *text : {"数据目录无法写入", "The data directory cannot be written"})
            QVERIFY2(finger.pages().first().heading.contains(QString::fromUtf8(text)), text);
        lockedUntilAPasswordIsSet();
        QVERIFY(notKept()->isVisibleTo(m_pendant->window()));
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
    }

    /// A repair that finds no room leaves everything as it is.
    void aDamagedFileOnAFullDisk()
    {
        makeUsed();
        QVERIFY(QFile::resize(at("pendant.db"), 0));
        const FullDisk full(0);
        Finger finger({Startup::FirstCopy, Startup::TryAgain, Startup::End});
        QVERIFY(!start());
        QVERIFY(finger.isDone());
        QVERIFY2(finger.pages().at(1).text.contains("恢复失败"),
                 qPrintable(finger.pages().at(1).text));
        QVERIFY(QFile::exists(at("pendant.db")));
        QVERIFY(keptAside().isEmpty());
        QVERIFY(QFile::exists(todaysCopy()));
    }

    /// A copy is good for a run in which the file cannot be put right.
    void aCopyForOneRun()
    {
        makeUsed();
        change(at("pendant.db"), {"UPDATE account SET role = 77"});
        const QByteArray damaged = contentOf(at("pendant.db"));
        {
            const FullDisk full(0);
            Finger finger({Startup::Continue, Startup::FirstCopy});
            QVERIFY(start());
            QVERIFY(finger.isDone());
            lockedUntilBossLogsIn();
            QVERIFY(notKept()->isVisibleTo(m_pendant->window()));
            QVERIFY(Language::getInstance()->setCurrent("en"));
            QVERIFY(notKept()->text().contains("Nothing is kept"));
            QTRY_VERIFY(notKept()->width() >= notKept()->sizeHint().width());
            stop();
        }
        QCOMPARE(contentOf(at("pendant.db")), damaged);
        QVERIFY(keptAside().isEmpty());
    }

    void onlyTheLog()
    {
        makeUsed();
        QVERIFY(QFile::remove(at("pendant.log")) && QDir().mkpath(at("pendant.log")));
        Finger finger({Startup::Continue});
        QVERIFY(start());
        QVERIFY(finger.isDone());
        QCOMPARE(finger.pages().first().heading, QStringLiteral("日志文件无法写入"));
        QVERIFY(notKept()->text().contains("日志"));
        lockedUntilBossLogsIn();
        VeltrixDatabase::getInstance()->setValue("screen", 5);
        stop();
        QVERIFY(QDir().rmdir(at("pendant.log")));
        QVERIFY(start());
        QCOMPARE(VeltrixDatabase::getInstance()->value("screen").toInt(), 5);
    }

    void theLanguageOfTheLastRun()
    {
        m_language = "en";
        makeUsed();
        m_language.clear();
        overwrite(at("pendant.db"), QByteArray(4096, 'x'), 0);
        Finger finger({Startup::FirstCopy});
        QVERIFY(start());
        QCOMPARE(finger.pages().first().heading,
                 QStringLiteral("Configuration and users cannot be read"));
    }

    /// All pages in either language and in both: nothing is cut off, every key is for a finger.
    void pagesFit_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("zh") << "zh";
        QTest::newRow("en") << "en";
        QTest::newRow("both") << "";
    }

    void pagesFit()
    {
        QFETCH(QString, language);
        QVector<QString> wrong;
        const auto look = [&](StartPage *page) {
            const QRect screen = page->rect();
            const auto labels = page->findChildren<QLabel *>();
            for (QLabel *label : labels) {
                auto *value = dynamic_cast<WrapLabel *>(label);
                const bool fits = value
                    ? QFontMetrics(value->fittingFont())
                            .boundingRect(QRect(0, 0, value->width(), 10000),
                                          Qt::TextWordWrap | Qt::TextWrapAnywhere, value->text())
                            .height()
                        <= value->height()
                    : label->wordWrap() ? label->heightForWidth(label->width()) <= label->height()
                                        : label->sizeHint().width() <= label->width();
                if (!fits
                    || !screen.contains(
                        label->geometry().translated(label->parentWidget()->mapTo(page, QPoint()))))
                    wrong += label->text();
            }
            const auto keys = page->findChildren<QPushButton *>();
            for (QPushButton *key : keys) {
                const QRect place = key->rect().translated(key->mapTo(page, QPoint()));
                if (key->height() < 40 || key->sizeHint().width() > key->width()
                    || !screen.contains(place))
                    wrong += key->text();
            }
        };
        makeUsed();
        for (const char *day : {"2001-01-01", "2002-02-02"})
            QVERIFY(QFile::copy(todaysCopy(), at(QStringLiteral("backup/pendant-%1.db").arg(day))));
        change(at("backup/pendant-2002-02-02.db"), {"DELETE FROM account"});
        const auto visit = [&](const QVector<int> &choices) {
            m_language = language;
            Finger finger(choices);
            finger.onPage = look;
            const bool started = start();
            stop();
            return finger.isDone() && !started;
        };
        // so that nobody knows the language
        change(todaysCopy(), {"DELETE FROM config"});
        change(at("backup/pendant-2001-01-01.db"), {"DELETE FROM config"});
        change(at("backup/pendant-2002-02-02.db"), {"DELETE FROM config"});
        change(at("pendant.db"), {"DELETE FROM config", "UPDATE account SET role = 77"});
        QVERIFY(visit({Startup::FirstCopy + 1, Startup::Back, Startup::End}));
        {
            const FullDisk full(0);
            QVERIFY(
                visit({Startup::Continue, Startup::FirstCopy + 1, Startup::Back, Startup::End}));
        }
        QVERIFY(QDir(at("backup")).removeRecursively());
        QVERIFY(visit({Startup::StartEmpty, Startup::Back, Startup::End}));
        DirectoryLock held;
        QCOMPARE(held.take(dataDirectory(), "pendant"), DirectoryLock::State::Held);
        QVERIFY(visit({Startup::End}));
        held.release();
        QVERIFY(QFile::remove(at("pendant.lock")) && QDir().mkpath(at("pendant.lock")));
        QVERIFY(visit({Startup::Continue, Startup::StartEmpty, Startup::Back, Startup::End}));
        QVERIFY(QDir().rmdir(at("pendant.lock")));
        QVERIFY(QFile::remove(at("pendant.log")) && QDir().mkpath(at("pendant.log")));
        QVERIFY(visit({Startup::End}));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringList(wrong.toList()).join('\n')));
    }

    /// Also what earlier runs left open to others.
    void filesAreForTheirUserAlone()
    {
        QDir().mkpath(at("jobs/robot1"));
        QDir().mkpath(at("backup"));
        const QStringList old = {"pendant.log", "pendant.1.log", "jobs/robot1/Old_1.JBR",
                                 "events-20010101-000000.txt",
                                 "pendant-damaged-20010101-000000.db"};
        for (const QString &name : old) {
            QFile file(at(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("x");
            file.close();
            QCOMPARE(::chmod(QFile::encodeName(at(name)).constData(), 0644), 0);
        }
        QFile stranger(at("notes.txt"));
        QVERIFY(stranger.open(QIODevice::WriteOnly));
        stranger.setPermissions(QFile::ReadOwner | QFile::ReadGroup);
        // Not there yet when it starts, so that this waits for the database as well.
        change(at("pendant.db"),
               {"CREATE TABLE config (key TEXT PRIMARY KEY, value)",
                "CREATE TABLE account (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,"
                " role INTEGER NOT NULL, password TEXT NOT NULL, failures INTEGER NOT NULL,"
                " last_failure INTEGER NOT NULL)"});
        for (const char *name : {"", "jobs", "jobs/robot1", "backup", "pendant.db"})
            ::chmod(QFile::encodeName(at(name)).constData(), 0755);

        Program pendant(PENDANT_PROGRAM, {"--data", dataDirectory()});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(at("controller.db")) && QFile::exists(todaysCopy()),
                                 kPatience);
        const auto open = [&] {
            QStringList names;
            QDirIterator all(dataDirectory(),
                             QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
            while (all.hasNext()) {
                struct stat state = {};
                const QString path = all.next();
                if (::lstat(QFile::encodeName(path).constData(), &state) == 0
                    && (state.st_mode & 0077) != 0)
                    names += path;
            }
            return names;
        };
        QCOMPARE(open(), QStringList{stranger.fileName()});
        struct stat state = {};
        QCOMPARE(::stat(QFile::encodeName(dataDirectory()).constData(), &state), 0);
        QCOMPARE(int(state.st_mode & 0777), 0700);
        for (const char *name : {"pendant.db-wal", "pendant.lock", "controller.lock"})
            QVERIFY2(QFile::exists(at(name)), name);
    }

    /// A pendant whose controller cannot read its parameters is there all the same, and says so.
    void controllerWithoutItsStore()
    {
        QDir().mkpath(at("controller.db"));
        support::Journal journal;
        QVERIFY(start());
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        QTRY_VERIFY(journal.of("controller").contains(QVariantList{"storeFailed"}));
        QVERIFY(Robot::getInstance()->isConnected());
    }
};

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
