// The audit log: which events it keeps, that no name can forge a line, that rotation loses nothing,
// and what happens while it cannot be written.

#include "../fulldisk.h"
#include "../simulator/link.h"
#include "../support.h"

#include "auditlog.h"
#include "jobstore.h"
#include "oneline.h"
#include "statusbar.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <memory>
#include <sys/stat.h>

namespace {

AuditLog *const audit = AuditLog::getInstance();
UserAccounts *const accounts = UserAccounts::getInstance();
const QString kPassword = QStringLiteral("long enough 1");

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0
        ? static_cast<int>(status.st_mode & 0777)
        : -1;
}

} // namespace

class TestAudit : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> directory;
    qint64 now = 0;

    QString path(const char *name = "audit.log") const
    {
        return directory->filePath(QString::fromLatin1(name));
    }

    /// The columns behind the time, of the lines from `first` on.
    QStringList lines(int first = 0) const
    {
        QStringList result;
        const QStringList all =
            QString::fromUtf8(content(path())).split(QLatin1Char('\n')).mid(first);
        for (const QString &line : all) {
            if (!line.isEmpty())
                result +=
                    line.section(QLatin1Char('\t'), 1).replace(QLatin1Char('\t'), QLatin1Char('|'));
        }
        return result;
    }

    /// Every line that was ever written, oldest first, the numbered files before the current one.
    QByteArray everything(int files) const
    {
        QByteArray all;
        for (int number = files - 1; number > 0; --number)
            all += content(path() + QLatin1Char('.') + QString::number(number));
        return all + content(path());
    }

private slots:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        now = 0;
        accounts->setClock([this] { return now; });
        accounts->setHashCost(1, 8192);
        accounts->start(true);
        MoreRobot::g_CurRobot = 1;
    }

    void cleanup()
    {
        Robot::getInstance()->disconnectFromController();
        audit->close();
        while (!VeltrixDatabase::getInstance()->accounts().isEmpty()) {
            const QString name = VeltrixDatabase::getInstance()->accounts().first().name;
            VeltrixDatabase::getInstance()->removeAccount(name);
        }
        accounts->start(true);
    }

    void linesAreWhole()
    {
        audit->open(directory->path());
        audit->record(QStringLiteral("test"), QStringLiteral("a=1"));
        const QStringList all = QString::fromUtf8(content(path())).split(QLatin1Char('\n'));
        QCOMPARE(static_cast<int>(all.size()), 3); // start, test, and the end of the last line
        QVERIFY(all.last().isEmpty());
        const QStringList columns = all.at(1).split(QLatin1Char('\t'));
        QCOMPARE(columns.mid(1),
                 (QStringList{QStringLiteral("test"), QStringLiteral("-"),
                              QStringLiteral("administrator"), QStringLiteral("a=1")}));
        const QRegularExpression time(QStringLiteral(
            "^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}[+-]\\d\\d:\\d\\d$"));
        QVERIFY2(time.match(columns.first()).hasMatch(), qPrintable(columns.first()));
        const QDateTime told = QDateTime::fromString(columns.first(), Qt::ISODateWithMs);
        QVERIFY(qAbs(told.msecsTo(QDateTime::currentDateTime())) < 60000);
        QCOMPARE(modeOf(path()), 0600);
    }

    void theOffsetIsThatOfThePlace_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("offset");
        QTest::newRow("west") << QByteArray("TST+3:30") << QStringLiteral("-03:30");
        QTest::newRow("east") << QByteArray("TST-8") << QStringLiteral("+08:00");
        QTest::newRow("none") << QByteArray("TST0") << QStringLiteral("+00:00");
    }

    void theOffsetIsThatOfThePlace()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, offset);
        const QByteArray before = qgetenv("TZ");
        qputenv("TZ", zone);
        ::tzset();
        audit->open(directory->path());
        const QString time = QString::fromUtf8(content(path())).section(QLatin1Char('\t'), 0, 0);
        if (before.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", before);
        ::tzset();
        QVERIFY2(time.endsWith(offset), qPrintable(time));
    }

    void usersAndWhoChangedThem()
    {
        audit->open(directory->path());
        QString error;
        const auto boss = QStringLiteral("boss");
        const auto op = QStringLiteral("op");
        const auto other = QStringLiteral("another 22");
        QVERIFY(accounts->add(boss, AUTHORITY_ADMINISTRATOR, kPassword, &error));
        QVERIFY(accounts->add(op, AUTHORITY_OPERATOR, kPassword, &error));
        QVERIFY(accounts->changeRole(op, AUTHORITY_TECHNICIAN, &error));
        QVERIFY(accounts->changePassword(op, other, &error));
        QVERIFY(accounts->lock());
        accounts->logIn(op, kPassword);
        now += 1000;
        QCOMPARE(accounts->logIn(op, other), UserAccounts::LogIn::Good);
        QVERIFY(!accounts->remove(boss, &error)); // no right to
        QVERIFY(!App::ForbidOperatorAuthority(App::sysUser, QStringLiteral("xml文件导入")));
        QVERIFY(App::ForbidOperatorAuthority(App::sysUser, QStringLiteral("打磨工艺")));
        QVERIFY(!accounts->changeOwnPassword(kPassword, kPassword, &error));
        now += 1000;
        QVERIFY(accounts->changeOwnPassword(other, kPassword, &error));
        accounts->lock();
        QCOMPARE(accounts->logIn(boss, kPassword), UserAccounts::LogIn::Good);
        QVERIFY(accounts->remove(op, &error));
        QCOMPARE(accounts->logIn(op, kPassword), UserAccounts::LogIn::UnknownUser);

        QCOMPARE(lines(1),
                 (QStringList{
                     "user-added|-|administrator|name=\"boss\" role=\"administrator\"",
                     "user-added|boss|administrator|name=\"op\" role=\"operator\"",
                     "role-changed|boss|administrator|name=\"op\" role=\"technician\"",
                     "password-changed|boss|administrator|name=\"op\"",
                     "lock|boss|administrator|",
                     "log-in-refused|-|none|name=\"op\" failures=1",
                     "log-in|op|technician|",
                     "rights-refused|op|technician|action=\"管理用户\"",
                     "rights-refused|op|technician|action=\"xml文件导入\"",
                     "password-refused|op|technician|name=\"op\" failures=1",
                     "password-changed|op|technician|name=\"op\"",
                     "lock|op|technician|",
                     "log-in|boss|administrator|",
                     "user-removed|boss|administrator|name=\"op\"",
                     "log-in-refused|boss|administrator|name=\"op\" failures=0",
                 }));
        for (const QString &secret : {kPassword, other})
            QVERIFY(!content(path()).contains(secret.toUtf8()));
    }

    void theFirstPassword()
    {
        audit->open(directory->path());
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QCOMPARE(lines(1), QStringList{"first-password|admin|administrator|"});
    }

    void linkDrivesAndMode()
    {
        audit->open(directory->path());
        Robot *robot = Robot::getInstance();
        {
            Desk desk;
            QVERIFY(connectTo(desk));
            QTRY_COMPARE(robot->get_servo_state(), 1);
            robot->requestServo(true);
            QTRY_COMPARE(robot->get_servo_state(), 3);
            robot->setTeachMode(1);
            QTRY_COMPARE(robot->get_teach_mode(), 1);
            robot->setTeachMode(0);
            QTRY_COMPARE(robot->get_teach_mode(), 0);
        }
        QTRY_COMPARE(robot->link(), Robot::Link::Lost);
        robot->requestServo(false); // refused
        QTRY_VERIFY(lines().contains("link-failed|-|administrator|detail=\"Connection refused\""));
        robot->disconnectFromController();

        QStringList all = lines(1);
        for (QString &line : all)
            line = line.section(QLatin1Char('|'), 0, 0) + QLatin1Char(' ')
                + line.section(QLatin1Char('|'), 3).remove(QRegularExpression(" ?detail.*"));
        const QStringList expected{
            "link-connected ",       "status robot=1 servo=0 mode=0",
            "servo robot=1 value=1", "servo-requested robot=1 value=1",
            "servo robot=1 value=3", "mode-requested robot=1 value=1",
        };
        QCOMPARE(all.mid(0, expected.size()), expected);
        // Leaving teach mode may take the drives with it; that is the controller's affair.
        for (const char *later :
             {"mode robot=1 value=1", "mode-requested robot=1 value=0", "mode robot=1 value=0",
              "link-lost ", "servo-requested robot=1 value=0", "request-refused ", "link-failed ",
              "link-off "})
            QVERIFY2(all.contains(QLatin1String(later)), later);
        QVERIFY(lines().contains("request-refused|-|administrator|"
                                 "detail=\"key servo: no controller is connected\""));
        // What is refused to the pages in an outage is none of this log's.
        robot->sendCommandData(0x4602, "{}");
        QCOMPARE(lines(1).size(), all.size());
    }

    void jobsOfEveryRobot()
    {
        JobStore::getInstance()->setDirectory(path("jobs"));
        audit->open(directory->path());
        JobStore *store = JobStore::getInstance();
        QCOMPARE(store->save(2, QStringLiteral("LOAD"), "x"), QString());
        QCOMPARE(store->remove(2, QStringLiteral("LOAD")), QString());
        QVERIFY(!store->save(1, QStringLiteral("a/b"), "x").isEmpty());
        store->drop(1, QStringLiteral("a/b"));
        QCOMPARE(lines(1),
                 (QStringList{"job-stored|-|administrator|robot=2 job=\"LOAD\"",
                              "job-deleted|-|administrator|robot=2 job=\"LOAD\"",
                              "job-not-stored|-|administrator|robot=1 job=\"a/b\"",
                              "job-given-up|-|administrator|robot=1 job=\"a/b\""}));
    }

    /// A name that ends a line, a column or its quotes stays one field.
    void noNameForgesALine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("written");
        const auto row = [](const char *what, const QString &name, const char *written) {
            QTest::newRow(what) << name << QString::fromLatin1(written);
        };
        row("line end", QStringLiteral("a\n2026-01-01\tlog-in"), "a\\n2026-01-01\\tlog-in");
        row("return", QStringLiteral("a\rb"), "a\\rb");
        row("quote", QStringLiteral("a\" role=\"b"), "a\\\" role=\\\"b");
        row("backslash and quote", QStringLiteral("a\\\""), "a\\\\\\\"");
        row("nought", QStringLiteral("a") + QChar(0) + QStringLiteral("b"), "a\\x00b");
        row("escape", QStringLiteral("\x1b[2K"), "\\x1b[2K");
        row("next line", QStringLiteral("a\u0085b"), "a\\x85b");
        row("line separator", QStringLiteral("a\u2028b"), "a\\u{2028}b");
        row("turned round", QStringLiteral("a\u202eb"), "a\\u{202e}b");
        row("half a pair", QString(QChar(0xd83d)), "\\u{d83d}");
        row("tag", QString::fromUcs4(U"\U000e0041"), "\\u{e0041}");
    }

    void noNameForgesALine()
    {
        QFETCH(QString, name);
        QFETCH(QString, written);
        audit->open(directory->path());
        accounts->logIn(name, QString());
        QCOMPARE(lines(1),
                 QStringList{QStringLiteral("log-in-refused|-|administrator|name=\"%1\" failures=0")
                                 .arg(written)});
        QCOMPARE(content(path()).count('\n'), 2);
    }

    void whatShowsStaysAsItIs()
    {
        const QString text = QString::fromUtf8("王小明 é 😀 a·b");
        QCOMPARE(oneLine(text), text);
    }

    void nothingIsLostInRotation()
    {
        AuditFile::Limits limits;
        limits.bytes = 500;
        limits.files = 20;
        audit->open(directory->path(), limits);
        for (int i = 0; i < 60; ++i)
            audit->record(QStringLiteral("test"), QStringLiteral("number=%1").arg(i));
        const QByteArray all = everything(limits.files);
        for (int i = 0; i < 60; ++i)
            QCOMPARE(all.count("number=" + QByteArray::number(i) + "\n"), 1);
        QVERIFY(all.indexOf("number=10\n") < all.indexOf("number=59\n")); // oldest first
        QVERIFY(QFile::exists(path("audit.log.5")));
        const QStringList files = QDir(directory->path()).entryList({"audit.log*"}, QDir::Files);
        QVERIFY(files.size() < limits.files); // so none had to give way
        for (const QString &file : files) {
            QVERIFY(QFileInfo(directory->filePath(file)).size() <= limits.bytes);
            QCOMPARE(modeOf(directory->filePath(file)), 0600);
        }
        // A new run goes on where this one ended.
        audit->close();
        audit->open(directory->path(), limits);
        QVERIFY(everything(limits.files).startsWith(all));
    }

    void theOldestGivesWay()
    {
        AuditFile::Limits limits;
        limits.bytes = 200;
        limits.files = 3;
        audit->open(directory->path(), limits);
        for (int i = 0; i < 20; ++i)
            audit->record(QStringLiteral("test"), QStringLiteral("number=%1").arg(i));
        QCOMPARE(QDir(directory->path()).entryList({"audit.log*"}, QDir::Files),
                 (QStringList{"audit.log", "audit.log.1", "audit.log.2"}));
        QVERIFY(content(path()).endsWith("number=19\n"));
    }

    /// Moved files that were left with a gap, as by a power cut: nothing is overwritten for it.
    void aGapIsFilledFirst()
    {
        AuditFile::Limits limits;
        limits.bytes = 100;
        limits.files = 4;
        for (const char *name : {"audit.log.1", "audit.log.3"}) {
            QFile file(path(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(name);
        }
        audit->open(directory->path(), limits);
        audit->record(QStringLiteral("test"), QString(100, QLatin1Char('x')));
        QCOMPARE(content(path("audit.log.2")), QByteArray("audit.log.1"));
        QCOMPARE(content(path("audit.log.3")), QByteArray("audit.log.3"));
        QVERIFY(content(path("audit.log.1")).contains("start"));
    }

    /// A file that cannot be moved away grows on.
    void noLineIsLostForAMoveThatFails()
    {
        AuditFile::Limits limits;
        limits.bytes = 100;
        limits.files = 2;
        QVERIFY(QDir(directory->path()).mkpath(QStringLiteral("audit.log.1/full")));
        audit->open(directory->path(), limits);
        for (int i = 0; i < 5; ++i)
            audit->record(QStringLiteral("test"), QStringLiteral("number=%1").arg(i));
        QCOMPARE(static_cast<int>(lines().size()), 6);
        QCOMPARE(audit->missing(), 0);
    }

    void aFullDiskIsSaidAndRecoveredFrom()
    {
        StatusBar bar;
        bar.resize(714, StatusBar::kHeight);
        bar.show();
        auto *mark = support::child<QLabel>(&bar, "auditMark");
        audit->open(directory->path());
        QVERIFY(!mark->isVisible());
        const QByteArray before = content(path());
        support::Journal journal;
        {
            // Room for a part of a line only.
            const FullDisk full(static_cast<rlim_t>(before.size() + 20));
            for (int i = 1; i <= 3; ++i) {
                audit->record(QStringLiteral("lost"));
                QCOMPARE(audit->missing(), i);
                QVERIFY(mark->isVisible());
                QVERIFY2(mark->text().contains(QString::number(i)), qPrintable(mark->text()));
            }
            audit->retry();
            QCOMPARE(audit->missing(), 3);
            QCOMPARE(content(path()), before); // no half line
        }
        QCOMPARE(static_cast<int>(journal.of("log").size()), 1); // once for the outage
        QCOMPARE(journal.of("log").first().at(1).toInt(), 3);
        audit->record(QStringLiteral("kept"));
        QCOMPARE(audit->missing(), 0);
        QVERIFY(!mark->isVisible());
        const QStringList after = lines(1);
        QCOMPARE(static_cast<int>(after.size()), 2);
        QVERIFY2(after.first().startsWith("missing|-|none|lines=3 since=\""),
                 qPrintable(after.first()));
        QCOMPARE(after.last(), QStringLiteral("kept|-|administrator|"));
    }

    /// Nobody does anything, and still it is found out that there is room again.
    void itRecoversByItself()
    {
        audit->open(directory->path());
        {
            const FullDisk full;
            audit->record(QStringLiteral("lost"));
            QCOMPARE(audit->missing(), 1);
        }
        QTRY_COMPARE_WITH_TIMEOUT(audit->missing(), 0, 10 * AuditLog::kRetry);
        QVERIFY(lines().last().startsWith("missing|-|none|lines=1 "));
    }

    void aFileThatCannotBeOpened()
    {
        QVERIFY(QDir(directory->path()).mkpath(QStringLiteral("audit.log")));
        audit->open(directory->path());
        QCOMPARE(audit->missing(), 1);
        audit->record(QStringLiteral("lost"));
        QCOMPARE(audit->missing(), 2);
        QVERIFY(QDir(directory->path()).rmdir(QStringLiteral("audit.log")));
        audit->retry();
        QCOMPARE(audit->missing(), 0);
        QVERIFY(lines().first().startsWith("missing|-|none|lines=2 "));
        QCOMPARE(modeOf(path()), 0600);
    }

    /// A link in the file's place would lead the lines elsewhere.
    void aLinkIsNotFollowed()
    {
        const QString elsewhere = path("elsewhere");
        QVERIFY(QFile::link(elsewhere, path()));
        audit->open(directory->path());
        QCOMPARE(audit->missing(), 1);
        QVERIFY(!QFile::exists(elsewhere));
    }

    /// Lines do not go into a file that nobody can find any more.
    void aFileThatIsDeletedOrMovedIsMadeAnew()
    {
        audit->open(directory->path());
        QVERIFY(QFile::remove(path()));
        audit->record(QStringLiteral("first"));
        QCOMPARE(lines(), QStringList{"first|-|administrator|"});
        QVERIFY(QFile::rename(path(), path("moved")));
        audit->record(QStringLiteral("second"));
        QCOMPARE(lines(), QStringList{"second|-|administrator|"});
        QCOMPARE(content(path("moved")).count('\n'), 1);
        QVERIFY(QFile::rename(path(), path("moved again")));
        QVERIFY(QFile::copy(path("moved"), path())); // and another one in its place
        audit->record(QStringLiteral("third"));
        QCOMPARE(lines(), (QStringList{"first|-|administrator|", "third|-|administrator|"}));
    }

    void aTornLineOfOldStaysByItself()
    {
        QFile old(path());
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("2026-01-01T00:00:00.000+00:00\tlo");
        old.close();
        QVERIFY(old.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
        audit->open(directory->path());
        QCOMPARE(lines(), (QStringList{"lo", "start|-|administrator|version=\"\""}));
        QCOMPARE(modeOf(path()), 0600);
    }

    void itBeginsAndEndsWithALine()
    {
        accounts->lock();
        audit->record(QStringLiteral("before"));
        audit->open(directory->path());
        audit->close();
        audit->record(QStringLiteral("after"));
        QCOMPARE(lines(),
                 (QStringList{"start|-|administrator|version=\"\"", "end|-|administrator|"}));
    }
};

QTEST_MAIN(TestAudit)
#include "test_audit.moc"
