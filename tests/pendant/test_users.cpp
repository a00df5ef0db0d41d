// Accounts: the first start, logging in and its growing pauses, managing users, and that no
// password is left lying about.

#include "../fulldisk.h"
#include "../support.h"

#include "printlog.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {

const QString kAdmin = UserAccounts::firstAdministrator();
const QString kPassword = QStringLiteral("Wz7-plainsecret");
UserAccounts *const accounts = UserAccounts::getInstance();

QByteArray allFiles(const QString &directory)
{
    QByteArray bytes;
    const QFileInfoList files = QDir(directory).entryInfoList(QDir::Files);
    for (const QFileInfo &info : files) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            bytes += file.readAll();
    }
    return bytes;
}

} // namespace

class TestUsers : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> directory;
    qint64 now = 0;

    void reopen()
    {
        QString error;
        QVERIFY2(VeltrixDatabase::getInstance()->open(directory->path(), &error),
                 qPrintable(error));
    }

private slots:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        reopen();
        now = 1700000000000;
        accounts->setClock([this] { return now; });
        accounts->setHashCost(1, 8192); // the real cost has a test of its own
    }

    void cleanup()
    {
        VeltrixDatabase::getInstance()->close();
        accounts->start(true);
    }

    void embeddedControllerStartsReady()
    {
        accounts->start(true);
        QVERIFY(!App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        QCOMPARE(accounts->currentUserText(), QStringLiteral("管理员（未设密码）"));
        QVERIFY(!accounts->lock()); // there would be no way back
        QVERIFY(!App::locked_);
    }

    void realControllerAsksForTheFirstPassword()
    {
        accounts->start(false);
        QVERIFY(App::locked_);
        QVERIFY(accounts->needsFirstPassword());
        QCOMPARE(App::sysUser, AUTHORITY_NONE);
        QCOMPARE(accounts->logIn(kAdmin, QString()), UserAccounts::LogIn::UnknownUser);
        QString error;
        QVERIFY(!accounts->add(QStringLiteral("eve"), AUTHORITY_ADMINISTRATOR, kPassword, &error));
        QVERIFY(!error.isEmpty());
        for (const QString &bad :
             {QString(), QStringLiteral("1234567"), QString::fromUtf8("😀😀😀😀😀😀😀"),
              QString::fromUtf8("e\u0301e\u0301e\u0301e\u0301"), QString(129, QLatin1Char('a'))}) {
            error.clear();
            QVERIFY(!accounts->setFirstPassword(bad, &error));
            QVERIFY(!error.isEmpty());
            QVERIFY(App::locked_);
        }
        QVERIFY2(accounts->setFirstPassword(kPassword, &error), qPrintable(error));
        QVERIFY(!App::locked_);
        QCOMPARE(App::sysUser, AUTHORITY_ADMINISTRATOR);
        QCOMPARE(accounts->currentUser(), kAdmin);
        QVERIFY(!accounts->setFirstPassword(kPassword, &error));

        // The next start asks for it, with either controller.
        for (const bool embedded : {false, true}) {
            reopen();
            accounts->start(embedded);
            QVERIFY(App::locked_);
            QVERIFY(!accounts->needsFirstPassword());
            QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        }
    }

    void realHashIsArgon2idAtInteractiveCost()
    {
        accounts->setHashCost(2, 64 * 1024 * 1024);
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        const QByteArray hash = VeltrixDatabase::getInstance()->accounts().first().passwordHash;
        QVERIFY2(hash.startsWith("$argon2id$v=19$m=65536,t=2,p=1$"), hash.constData());
    }

    void failuresAreSlowedAndCounted()
    {
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QVERIFY(accounts->add(QStringLiteral("op"), AUTHORITY_OPERATOR, kPassword, &error));
        QVERIFY(accounts->lock());

        const QVector<int> pauses = {1, 2, 4, 8, 16, 32, 64, 128, 256, 300, 300};
        for (int i = 0; i < pauses.size(); ++i) {
            support::Journal journal;
            QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                     UserAccounts::LogIn::WrongPassword);
            QCOMPARE(static_cast<int>(journal.of("log").size()), 1);
            QCOMPARE(journal.of("log").first().at(1).toInt(), 2);
            QCOMPARE(journal.of("config").first().first().toString(),
                     QStringLiteral("logInFailed"));
            QCOMPARE(accounts->waitSeconds(kAdmin), pauses[i]);
            // Within the pause even the right password is refused, and nothing more is counted.
            now += 1000 * pauses[i] - 1;
            QCOMPARE(accounts->waitSeconds(kAdmin), 1);
            QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Wait);
            QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, i + 1);
            if (i == 4) { // the count outlives the program, and the pause begins anew
                reopen();
                accounts->start(false);
                QCOMPARE(accounts->waitSeconds(kAdmin), pauses[i]);
                QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Wait);
                now += 1000 * pauses[i] - 1;
            }
            QCOMPARE(accounts->waitSeconds(kAdmin), 1);
            now += 1;
            QCOMPARE(accounts->waitSeconds(kAdmin), 0);
        }
        QCOMPARE(accounts->waitSeconds(QStringLiteral("op")), 0); // per user
        QVERIFY(App::locked_);
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, 0);
        QVERIFY(accounts->lock());
        QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                 UserAccounts::LogIn::WrongPassword);
        QCOMPARE(accounts->waitSeconds(kAdmin), 1);
    }

    /// What the clock on the wall said at the last failure plays no part in the pause.
    void theClockOnTheWallDoesNotCount_data()
    {
        QTest::addColumn<qint64>("stored");
        QTest::newRow("long ago") << qint64(1000);
        QTest::newRow("in the far future") << qint64(99) * 365 * 24 * 3600 * 1000;
    }

    void theClockOnTheWallDoesNotCount()
    {
        QFETCH(qint64, stored);
        now = 0; // a clock that begins with the machine
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        accounts->lock();
        for (int i = 0; i < 3; ++i) {
            accounts->logIn(kAdmin, QStringLiteral("wrong"));
            now += 4000;
        }
        auto account = VeltrixDatabase::getInstance()->accounts().first();
        QCOMPARE(account.failures, 3);
        account.lastFailure = stored;
        QVERIFY(VeltrixDatabase::getInstance()->saveAccount(account));
        QCOMPARE(accounts->waitSeconds(kAdmin), 0);
        reopen();
        now = 0;
        accounts->start(false);
        QCOMPARE(accounts->waitSeconds(kAdmin), 4);
        now += 4000;
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
    }

    /// By default the pauses are counted on a clock that runs.
    void theUsualClockRuns()
    {
        const qint64 wall = QDateTime::currentMSecsSinceEpoch();
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        accounts->lock();
        accounts->setClock({});
        QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                 UserAccounts::LogIn::WrongPassword);
        QVERIFY(accounts->waitSeconds(kAdmin) <= 1);
        QTRY_COMPARE(accounts->waitSeconds(kAdmin), 0);
        QVERIFY(QDateTime::currentMSecsSinceEpoch() - wall >= 1000);
    }

    void failuresAreSlowedOnAFullDisk()
    {
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        accounts->lock();
        {
            const FullDisk full;
            support::Journal journal;
            int looked = 0;
            for (int i = 0; i < 50; ++i) {
                if (accounts->logIn(kAdmin, QStringLiteral("wrong")) != UserAccounts::LogIn::Wait)
                    ++looked;
            }
            QCOMPARE(looked, 1);
            QVERIFY(!accounts->countWarning().isEmpty());
            QVERIFY(journal.of("log").contains(
                {QStringLiteral("用户 admin 的登录失败次数（1）无法保存，仅在本次运行中有效"), 3}));
            now += 1000;
            QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                     UserAccounts::LogIn::WrongPassword);
            QCOMPARE(accounts->waitSeconds(kAdmin), 2);
            QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, 0);
            now += 2000;
        }
        // There is room again: the next count that is stored holds them all.
        QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                 UserAccounts::LogIn::WrongPassword);
        QVERIFY(accounts->countWarning().isEmpty());
        QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, 3);
        now += 4000;
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, 0);
    }

    void theRightPasswordEntersOnAFullDisk()
    {
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        accounts->lock();
        accounts->logIn(kAdmin, QStringLiteral("wrong"));
        now += 1000;
        const FullDisk full;
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        accounts->lock();
        QCOMPARE(accounts->waitSeconds(kAdmin), 0);
        QCOMPARE(accounts->logIn(kAdmin, QStringLiteral("wrong")),
                 UserAccounts::LogIn::WrongPassword);
        QCOMPARE(accounts->waitSeconds(kAdmin), 1); // the good one ended the row
    }

    /// An account of a time when six characters were enough.
    void aShortPasswordOfOldLogsIn()
    {
        VeltrixDatabase::Account old;
        old.name = QStringLiteral("old");
        old.role = AUTHORITY_ADMINISTRATOR;
        old.passwordHash = "$argon2id$v=19$m=8,t=1,p=1$lvxRinuTRZaWT+DF3E3anw"
                           "$sY02UyXAhuUNDMy3yQtLGmk+TIc9LlSuKgsL2QgUbeY";
        QVERIFY(VeltrixDatabase::getInstance()->saveAccount(old));
        accounts->start(false);
        QCOMPARE(accounts->logIn(old.name, QStringLiteral("short1")), UserAccounts::LogIn::Good);
        QString error;
        QVERIFY(!accounts->changeOwnPassword(QStringLiteral("short1"), QStringLiteral("short12"),
                                             &error));
        QVERIFY(error.contains(QStringLiteral("8")));
        QVERIFY2(accounts->changeOwnPassword(QStringLiteral("short1"), QStringLiteral("short123"),
                                             &error),
                 qPrintable(error));
    }

    void ownPasswordAsksForTheOldOne()
    {
        const QString second = QStringLiteral("another-1");
        accounts->start(false);
        QString error;
        QVERIFY(!accounts->changeOwnPassword(QString(), second, &error)); // nobody is there
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        // The way without the old one is not for oneself, the administrator included.
        error.clear();
        QVERIFY(!accounts->changePassword(kAdmin, second, &error));
        QVERIFY(!error.isEmpty());

        support::Journal journal;
        for (const int pause : {1, 2, 4}) {
            error.clear();
            QVERIFY(!accounts->changeOwnPassword(second, second, &error));
            QVERIFY2(error.contains(QString::number(pause)), qPrintable(error));
            QCOMPARE(accounts->waitSeconds(kAdmin), pause);
            // In the pause nothing is looked at, and nothing more is counted.
            error.clear();
            QVERIFY(!accounts->changeOwnPassword(kPassword, second, &error));
            QVERIFY(!error.isEmpty());
            QCOMPARE(accounts->waitSeconds(kAdmin), pause);
            now += 1000 * pause;
        }
        QCOMPARE(VeltrixDatabase::getInstance()->accounts().first().failures, 3);
        QCOMPARE(journal.of("config").last(),
                 (QVariantList{QStringLiteral("oldPasswordWrong"), kAdmin, 3}));
        // It is one count with the log-ins.
        accounts->lock();
        QCOMPARE(accounts->logIn(kAdmin, second), UserAccounts::LogIn::WrongPassword);
        QCOMPARE(accounts->waitSeconds(kAdmin), 8);
        now += 8000;
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);

        QVERIFY2(accounts->changeOwnPassword(kPassword, second, &error), qPrintable(error));
        accounts->lock();
        QVERIFY(!accounts->changeOwnPassword(second, kPassword, &error));
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::WrongPassword);
        now += 1000;
        QCOMPARE(accounts->logIn(kAdmin, second), UserAccounts::LogIn::Good);
    }

    void anAdministratorEndsTheRowOfFailures()
    {
        const QString op = QStringLiteral("op");
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QVERIFY(accounts->add(op, AUTHORITY_OPERATOR, kPassword, &error));
        accounts->lock();
        accounts->logIn(op, QStringLiteral("wrong"));
        QCOMPARE(accounts->waitSeconds(op), 1);
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        QVERIFY(accounts->changePassword(op, QStringLiteral("another-1"), &error));
        QCOMPARE(accounts->waitSeconds(op), 0);
        // Nor does a new user of the name take over what was counted for the old one.
        accounts->lock();
        accounts->logIn(op, QStringLiteral("wrong"));
        QCOMPARE(accounts->logIn(kAdmin, kPassword), UserAccounts::LogIn::Good);
        QVERIFY(accounts->remove(op, &error));
        QVERIFY(accounts->add(op, AUTHORITY_OPERATOR, kPassword, &error));
        QCOMPARE(accounts->waitSeconds(op), 0);
    }

    void passwordsOfAllKinds_data()
    {
        QTest::addColumn<QString>("password");
        QTest::newRow("Chinese") << QStringLiteral("码垛工艺登录密码");
        QTest::newRow("forty characters") << QString(40, QLatin1Char('x'));
        QTest::newRow("longest") << QString(128, QChar(0x7801));
        QTest::newRow("blanks and marks") << QStringLiteral(" a'\";-- %1 ");
        QTest::newRow("beyond 16 bits") << QString::fromUtf8("😀😀😀😀😀😀😀😀");
    }

    void passwordsOfAllKinds()
    {
        QFETCH(QString, password);
        accounts->start(false);
        QString error;
        QVERIFY2(accounts->setFirstPassword(password, &error), qPrintable(error));
        accounts->lock();
        QCOMPARE(accounts->logIn(kAdmin, password.chopped(1)), UserAccounts::LogIn::WrongPassword);
        now += 1000;
        QCOMPARE(accounts->logIn(kAdmin, password), UserAccounts::LogIn::Good);
    }

    void composedAndDecomposedPasswordsAreTheSame()
    {
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(QString::fromUtf8("caf\u00e9caf\u00e9"), &error));
        accounts->lock();
        QCOMPARE(accounts->logIn(kAdmin, QString::fromUtf8("cafe\u0301cafe\u0301")),
                 UserAccounts::LogIn::Good);
    }

    void managingUsers()
    {
        accounts->start(true);
        QString error;
        // The first account must be able to make the others.
        QVERIFY(!accounts->add(QStringLiteral("op"), AUTHORITY_OPERATOR, kPassword, &error));
        QVERIFY(accounts->add(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR, kPassword, &error));
        QCOMPARE(accounts->currentUser(), QStringLiteral("boss"));
        QVERIFY(accounts->add(QStringLiteral(" 王小明 "), AUTHORITY_OPERATOR, kPassword, &error));
        QCOMPARE(accounts->names(),
                 QStringList({QStringLiteral("boss"), QStringLiteral("王小明")}));

        const QString longName(33, QLatin1Char('n'));
        for (const QString &bad : {QString(), QStringLiteral("  "), QStringLiteral("BOSS"),
                                   QStringLiteral("a\nb"), longName}) {
            error.clear();
            QVERIFY(!accounts->add(bad, AUTHORITY_OPERATOR, kPassword, &error));
            QVERIFY(!error.isEmpty());
        }
        QVERIFY(!accounts->add(QStringLiteral("x"), AUTHORITY_NONE, kPassword, &error));
        QVERIFY(!accounts->add(QStringLiteral("x"), AUTHORITY_OPERATOR, QString(), &error));
        QVERIFY(!accounts->add(QStringLiteral("x"), AUTHORITY_OPERATOR, QStringLiteral("short"),
                               &error));
        QCOMPARE(static_cast<int>(accounts->names().size()), 2);

        // The last administrator stays one.
        QVERIFY(!accounts->remove(QStringLiteral("boss"), &error));
        QVERIFY(!accounts->changeRole(QStringLiteral("boss"), AUTHORITY_OPERATOR, &error));
        QVERIFY(accounts->changeRole(QStringLiteral("王小明"), AUTHORITY_ADMINISTRATOR, &error));
        QVERIFY(!accounts->remove(QStringLiteral("boss"), &error)); // logged in
        QVERIFY(accounts->changeRole(QStringLiteral("boss"), AUTHORITY_TECHNICIAN, &error));
        QCOMPARE(App::sysUser, AUTHORITY_TECHNICIAN);

        // A technician manages nobody but their own password.
        QVERIFY(!accounts->add(QStringLiteral("x"), AUTHORITY_OPERATOR, kPassword, &error));
        QVERIFY(!accounts->remove(QStringLiteral("王小明"), &error));
        QVERIFY(!accounts->changeRole(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR, &error));
        QVERIFY(!accounts->changePassword(QStringLiteral("王小明"), QStringLiteral("another-1"),
                                          &error));
        QVERIFY(accounts->changeOwnPassword(kPassword, QStringLiteral("another-1"), &error));
        QVERIFY(accounts->lock());
        QCOMPARE(accounts->logIn(QStringLiteral("boss"), kPassword),
                 UserAccounts::LogIn::WrongPassword);
        QCOMPARE(accounts->logIn(QStringLiteral("王小明"), kPassword), UserAccounts::LogIn::Good);
        QVERIFY(accounts->remove(QStringLiteral("boss"), &error));

        reopen();
        accounts->start(false);
        QCOMPARE(accounts->names(), QStringList{QStringLiteral("王小明")});
        QCOMPARE(accounts->role(QStringLiteral("王小明")), AUTHORITY_ADMINISTRATOR);
    }

    void nothingIsManagedWhileLocked()
    {
        accounts->start(false);
        QString error;
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        accounts->lock();
        App::sysUser = AUTHORITY_ADMINISTRATOR; // even so
        QVERIFY(!accounts->add(QStringLiteral("x"), AUTHORITY_OPERATOR, kPassword, &error));
        QVERIFY(!accounts->changePassword(kAdmin, QStringLiteral("another-1"), &error));
        QVERIFY(!accounts->remove(kAdmin, &error));
    }

    void noPlainPasswordAnywhere()
    {
        support::Journal journal;
        QVERIFY(PrintLog::open(directory->path()));
        accounts->start(false);
        QString error;
        const QString second = QStringLiteral("Other-plainsecret");
        QVERIFY(accounts->setFirstPassword(kPassword, &error));
        QVERIFY(accounts->add(QStringLiteral("op"), AUTHORITY_OPERATOR, second, &error));
        QVERIFY(accounts->changePassword(QStringLiteral("op"), second + second, &error));
        accounts->lock();
        accounts->logIn(kAdmin, second);
        now += 1000;
        accounts->logIn(kAdmin, kPassword);
        PrintLog::close();

        QByteArray written = allFiles(directory->path());
        QVERIFY(written.contains("argon2id"));
        QVERIFY(written.contains("登录"));
        for (const support::Entry &entry : journal.entries()) {
            for (const QVariant &value : entry.values)
                written += value.toString().toUtf8();
        }
        QVERIFY(!written.contains("plainsecret"));
        const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup
            | QFileDevice::ReadOther | QFileDevice::WriteOther;
        QVERIFY(!(QFile::permissions(directory->filePath(QStringLiteral("pendant.db"))) & others));
    }
};

QTEST_MAIN(TestUsers)
#include "test_users.moc"
