// The configuration store, the log file, and the port lists.

#include "../support.h"

#include "configurationfile.h"
#include "printlog.h"
#include "setingwidget.h"
#include "veltrixdatabase.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QTemporaryDir>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList rows(const QComboBox &box)
{
    QStringList list;
    for (int row = 0; row < box.count(); ++row)
        list += box.itemText(row);
    return list;
}

} // namespace

class TestConfiguration : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        VeltrixDatabase::getInstance()->close();
        PrintLog::close();
        App::xmlName.clear();
        App::isDeg = true;
    }

    void valuesOutliveTheProgram()
    {
        const QTemporaryDir directory;
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        QString error;
        QVERIFY2(database->open(directory.filePath(QStringLiteral("new/deep")), &error),
                 qPrintable(error));
        database->setValue(QStringLiteral("number"), 5);
        database->setValue(QStringLiteral("number"), 7);
        database->setValue(QStringLiteral("name'; --"), QStringLiteral("王'小\"明"));
        App::xmlName = QStringLiteral("项目一");
        App::isDeg = false;
        support::Journal journal;
        database->updateAppConfigData();
        App::xmlName.clear();
        App::isDeg = true;
        database->close();
        QCOMPARE(database->value(QStringLiteral("number"), -1).toInt(), -1);

        QVERIFY(database->open(directory.filePath(QStringLiteral("new/deep"))));
        database->loadAppConfigData();
        QCOMPARE(database->value(QStringLiteral("number")).toInt(), 7);
        QCOMPARE(database->value(QStringLiteral("name'; --")).toString(),
                 QStringLiteral("王'小\"明"));
        QCOMPARE(App::xmlName, QStringLiteral("项目一"));
        QCOMPARE(App::isDeg, false);
        QCOMPARE(journal.of("config"),
                 (QVector<QVariantList>{{QStringLiteral("updateAppConfigData")},
                                        {QStringLiteral("loadAppConfigData")}}));
    }

    void withoutAFileItLivesInMemory()
    {
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        QVERIFY(!database->isOpen());
        App::xmlName = QStringLiteral("项目二");
        database->updateAppConfigData();
        App::xmlName.clear();
        database->loadAppConfigData();
        QCOMPARE(App::xmlName, QStringLiteral("项目二"));
        QCOMPARE(database->value(QStringLiteral("unknown"), 3).toInt(), 3);
    }

    void filesThatCannotBeHad()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("pendant.db")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
        file.close();
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        QString error;
        QVERIFY(!database->open(directory.path(), &error));
        QVERIFY2(error.contains(file.fileName()), qPrintable(error));
        QVERIFY(!database->isOpen());
        error.clear();
        QVERIFY(!database->open(file.fileName() + QStringLiteral("/below"), &error));
        QVERIFY(!error.isEmpty());
        database->setValue(QStringLiteral("still"), 1);
        QCOMPARE(database->value(QStringLiteral("still")).toInt(), 1);
    }

    /// One a day, of a good file only, and not more than kCopies days.
    void aCopyForEachDayOfUse()
    {
        namespace file = configurationfile;
        const QTemporaryDir directory;
        VeltrixDatabase *database = VeltrixDatabase::getInstance();
        QVERIFY(database->open(directory.path()));
        QVERIFY(file::copies(directory.path()).isEmpty());
        database->setValue(QStringLiteral("screen"), 5);
        const QDir backup(directory.filePath(QStringLiteral("backup")));
        QVERIFY(backup.mkpath(QStringLiteral(".")));
        for (int day = 1; day <= file::kCopies; ++day)
            QVERIFY(
                QFile::copy(directory.filePath(QStringLiteral("pendant.db")),
                            backup.filePath(QStringLiteral("pendant-2001-01-0%1.db").arg(day))));
        database->keepDailyCopy();
        const QDate today = QDate::currentDate();
        QVERIFY(file::hasCopy(directory.path(), today));
        QCOMPARE(static_cast<int>(backup.entryList(QDir::Files).size()), file::kCopies);
        QVERIFY(!file::hasCopy(directory.path(), QDate(2001, 1, 1)));
        QVERIFY(file::hasCopy(directory.path(), QDate(2001, 1, 2)));

        // with each change of the accounts, so that a copy never holds less than they are
        const auto latest = [&] { return file::copies(directory.path()).value(0).content; };
        QCOMPARE(latest().values.value(QStringLiteral("screen")).toInt(), 5);
        QVERIFY(latest().accounts.isEmpty());
        VeltrixDatabase::Account account;
        account.name = QStringLiteral("boss");
        account.role = AUTHORITY_ADMINISTRATOR;
        account.passwordHash = "hash";
        QVERIFY(database->saveAccount(account));
        QCOMPARE(static_cast<int>(latest().accounts.size()), 1);
        account.passwordHash = "another";
        QVERIFY(database->saveAccount(account));
        QCOMPARE(latest().accounts.value(0).passwordHash, account.passwordHash);
        QVERIFY(database->removeAccount(account.name));
        QVERIFY(latest().accounts.isEmpty());
        // and in the end
        database->setValue(QStringLiteral("screen"), 6);
        database->close();
        QCOMPARE(latest().values.value(QStringLiteral("screen")).toInt(), 6);

        // What is damaged does not take the place of a good copy.
        QFile damaged(directory.filePath(QStringLiteral("pendant.db")));
        QVERIFY(damaged.open(QIODevice::ReadWrite) && damaged.seek(4096));
        damaged.write(QByteArray(static_cast<int>(damaged.size()) - 4096, '\xa5'));
        damaged.close();
        {
            QSqlDatabase connection = QSqlDatabase::addDatabase("QSQLITE", "damaged");
            connection.setDatabaseName(damaged.fileName());
            QVERIFY(connection.open());
            QVERIFY(!file::keepCopy(connection, directory.path(), today).isEmpty());
        }
        QSqlDatabase::removeDatabase("damaged");
        QCOMPARE(latest().values.value(QStringLiteral("screen")).toInt(), 6);
    }

    void logLinesReachJournalAndFile()
    {
        const QTemporaryDir directory;
        support::Journal journal;
        PrintLog::OutputToLog(QStringLiteral("没有文件"), 1);
        QVERIFY(PrintLog::open(directory.filePath(QStringLiteral("log"))));
        const QString path = directory.filePath(QStringLiteral("log/pendant.log"));
        PrintLog::OutputToLog(QStringLiteral("设置抓手信息 {} %1"), 1);
        PrintLog::OutputToLog(QStringLiteral("two\nlines"), 2);
        // A warning is on the disk at once, with what came before it.
        const QList<QByteArray> lines = contentOf(path).split('\n');
        QCOMPARE(static_cast<int>(lines.size()), 3);
        QVERIFY(lines[0].endsWith(QStringLiteral(" info 设置抓手信息 {} %1").toUtf8()));
        QVERIFY(lines[1].endsWith(" warning two\\nlines"));
        PrintLog::OutputToLog(QStringLiteral("far out"), 99);
        PrintLog::OutputToLog(QStringLiteral("far below"), -99);
        QVERIFY(contentOf(path).contains(" error far out"));
        QCOMPARE(journal.of("log").first(), (QVariantList{QStringLiteral("没有文件"), 1}));
        QCOMPARE(static_cast<int>(journal.of("log").size()), 5);
    }

    void logRotates()
    {
        const QTemporaryDir directory;
        QVERIFY(PrintLog::open(directory.path()));
        const QString line(1000, QLatin1Char('x'));
        for (int i = 0; i < 4500; ++i)
            PrintLog::OutputToLog(line, 0);
        PrintLog::close();
        const QFileInfoList files = QDir(directory.path()).entryInfoList(QDir::Files);
        QCOMPARE(static_cast<int>(files.size()), 3);
        for (const QFileInfo &file : files)
            QVERIFY(file.size() <= 1024 * 1024);
    }

    void logThatCannotBeOpened()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(!PrintLog::open(file.fileName()));
        PrintLog::OutputToLog(QStringLiteral("goes on"), 3);
    }

    void portListsKeepTheRowAndSayNothing()
    {
        SetingWidget *settings = SetingWidget::getInstance();
        QComboBox first;
        QComboBox second;
        first.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        first.setCurrentIndex(2);
        QSignalSpy changed(&first, QOverload<int>::of(&QComboBox::currentIndexChanged));
        QSignalSpy texts(&first, &QComboBox::currentTextChanged);
        settings->initIoDoutPortList({&first, nullptr, &second}, QStringLiteral("无"));
        QCOMPARE(first.count(), 17);
        QCOMPARE(first.itemText(0), QStringLiteral("无"));
        QCOMPARE(first.currentIndex(), 2);
        QCOMPARE(second.count(), 17);
        QCOMPARE(second.currentIndex(), 0);
        first.blockSignals(true);
        first.setCurrentIndex(16);
        first.blockSignals(false);

        // Two ports less than the selected row: back to none.
        emit Robot::getInstance()->portsReported({QStringLiteral("Y1"), QStringLiteral("Y2")},
                                                 {QStringLiteral("X1")}, {});
        settings->initIoDoutPortList({&first}, QStringLiteral("none"));
        QCOMPARE(rows(first),
                 QStringList({QStringLiteral("none"), QStringLiteral("Y1"), QStringLiteral("Y2")}));
        QCOMPARE(first.currentIndex(), 0);
        settings->initIoDinPortList({&second}, QStringLiteral("无"));
        QCOMPARE(rows(second), QStringList({QStringLiteral("无"), QStringLiteral("X1")}));
        settings->initIoAOPortList({&second}, QStringLiteral("无"));
        QCOMPARE(rows(second), QStringList{QStringLiteral("无")});
        QCOMPARE(static_cast<int>(changed.count()), 0);
        QCOMPARE(static_cast<int>(texts.count()), 0);
        QVERIFY(!first.signalsBlocked());
    }
};

QTEST_MAIN(TestConfiguration)
#include "test_configuration.moc"
