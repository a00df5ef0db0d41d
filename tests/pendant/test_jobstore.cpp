// Jobs as files: names, writing, the unsaved ones, the list, and the editor that builds them.

#include "../simulator/link.h"
#include "../support.h"

#include "jobedit.h"
#include "jobfile.h"
#include "jobmanager.h"
#include "jobstore.h"
#include "movecommand.h"
#include "snackbarmessage.h"
#include "timercommand.h"
#include "varcommand.h"

#include <QDir>
#include <QLocalServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace {

JobStore *store()
{
    return JobStore::getInstance();
}

} // namespace

class TestJobStore : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<QTemporaryDir> m_directory;

    /// Puts a file where the robot's directory should be, so that nothing can be stored in it.
    QString block(int robot) const
    {
        QFile file(store()->directoryOf(robot));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }

private slots:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        store()->setDirectory(m_directory->path());
        MoreRobot::setCurrentRobot(1);
    }
    void cleanup()
    {
        while (!store()->unsaved().isEmpty()) {
            const JobStore::Unsaved job = store()->unsaved().first();
            store()->drop(job.robot, job.name);
        }
    }

    void fileNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isValid");
        const auto row = [](const char *what, const QString &name, bool isValid) {
            QTest::newRow(what) << name << isValid;
        };
        row("letters", "JOB1", true);
        row("one letter", "a", true);
        row("Chinese", "码垛1号线", true);
        row("blank within", "line 1 left", true);
        row("points within", "v1.2.3", true);
        row("marks", "a-b_c+d=(e)[f]{g}#1,2;~!@$%^&'`", true);
        row("beyond the first plane", QString::fromUtf8("\xf0\xa0\x80\x80"), true);
        row("the suffix again", "a.JBR", true);
        row("longest", QString(100, QLatin1Char('x')), true);
        row("longest in Chinese", QString(33, QChar(0x7801)), true);
        row("empty", "", false);
        row("blank", " ", false);
        row("blank before", " a", false);
        row("blank behind", "a ", false);
        row("wide blank behind", QStringLiteral("a\u3000"), false);
        row("one byte too long", QString(101, QLatin1Char('x')), false);
        row("too long in Chinese", QString(34, QChar(0x7801)), false);
        row("point", ".", false);
        row("two points", "..", false);
        row("hidden", ".job", false);
        row("point behind", "job.", false);
        row("slash", "a/b", false);
        row("up and out", "../a", false);
        row("absolute", "/a", false);
        row("backslash", "a\\b", false);
        row("drive", "c:a", false);
        row("asterisk", "a*", false);
        row("question mark", "a?", false);
        row("quote", "a\"b", false);
        row("angle", "<a>", false);
        row("bar", "a|b", false);
        row("zero", QString(QChar(0)), false);
        row("zero within", QString("a") + QChar(0) + "b", false);
        row("tab", "a\tb", false);
        row("line end", "a\nb", false);
        row("delete", "a\x7f", false);
        row("control of the second half", QString("a") + QChar(0x85), false);
        row("turns the writing", QString("a") + QChar(0x202e) + "b", false);
        row("no width", QString("a") + QChar(0x200b) + "b", false);
        row("line separator", QString("a") + QChar(0x2028) + "b", false);
        row("private", QString("a") + QChar(0xe000), false);
        row("half a pair", QString("a") + QChar(0xd800), false);
        row("not composed", QString("e") + QChar(0x0301), false);
        row("composed", QString(QChar(0xe9)), true);
        row("mark of its own", QString("x") + QChar(0x0301), true);
        row("mark without a letter", QString(QChar(0x0301)), false);
        row("filler", QString(QChar(0x3164)), false);
        row("narrow filler", QString("a") + QChar(0xffa0), false);
        row("braille without a dot", QString(QChar(0x2800)), false);
        row("variation selector", QString("a") + QChar(0xfe0f), false);
        row("Mongolian variation selector", QString("a") + QChar(0x180b), false);
        row("variation selector of the supplement", QString::fromUtf8("a\xf3\xa0\x84\x80"), false);
        row("joiner of graphemes", QString("a") + QChar(0x034f) + "b", false);
    }

    void fileNames()
    {
        QFETCH(QString, name);
        QFETCH(bool, isValid);
        QCOMPARE(JobManager::isValidFileName(name), isValid);
        // what is accepted can be stored, listed and read; what is refused leaves nothing behind
        QCOMPARE(store()->save(1, name, "text").isEmpty(), isValid);
        QCOMPARE(store()->files(1).size(), isValid ? 1 : 0);
        QDir outside(m_directory->path());
        QCOMPARE(outside.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
                 isValid ? QStringList{"robot1"} : QStringList());
        if (!isValid)
            return;
        QCOMPARE(store()->files(1).first().name, name);
        QString error;
        QCOMPARE(store()->read(1, name, &error), QByteArray("text"));
        QVERIFY(error.isEmpty());
        QCOMPARE(store()->remove(1, name), QString());
        QVERIFY(store()->files(1).isEmpty());
    }

    void robotsAreApart()
    {
        QCOMPARE(store()->save(2, "a", "two"), QString());
        QVERIFY(store()->files(1).isEmpty());
        QCOMPARE(store()->files(2).size(), 1);
        for (const int robot : {-1, 0, 5}) {
            QVERIFY(store()->files(robot).isEmpty());
            QVERIFY(!store()->save(robot, "a", "text").isEmpty());
        }
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList{"robot2"});
    }

    void listOfAManager()
    {
        for (const char *name : {"line1", "line2", "other", "LINE"})
            QCOMPARE(store()->save(1, name, "text"), QString());
        QFile stray(store()->directoryOf(1) + "/notes.txt");
        QVERIFY(stray.open(QIODevice::WriteOnly));
        QFile lower(store()->directoryOf(1) + "/lower.jbr");
        QVERIFY(lower.open(QIODevice::WriteOnly));
        JobManager manager;
        QVERIFY(!manager.jobExists("line1")); // not read yet
        manager.updateJobsFileInfo(1, false, "", "");
        QCOMPARE(manager.names(), (QStringList{"LINE", "line1", "line2", "other"}));
        QVERIFY(manager.jobExists("line1"));
        for (const char *name : {"", "line", "Line1", "line1 ", "line1.JBR", "notes", "lower"})
            QVERIFY2(!manager.jobExists(name), name);
        manager.updateJobsFileInfo(1, false, "li", "2");
        QCOMPARE(manager.names(), QStringList{"line2"});
        manager.updateJobsFileInfo(2, false, "", "");
        QVERIFY(manager.names().isEmpty());
        QFile newest(store()->pathOf(1, "other"));
        QVERIFY(newest.open(QIODevice::ReadWrite));
        QVERIFY(newest.setFileTime(QDateTime::currentDateTime().addDays(1),
                                   QFileDevice::FileModificationTime));
        manager.updateJobsFileInfo(1, true, "", "");
        QCOMPARE(manager.names().first(), QStringLiteral("other"));
    }

    void failureKeepsTheOldFile()
    {
        QCOMPARE(store()->save(1, "a", "old"), QString());
        const QString path = store()->pathOf(1, "a");
        const QString aside = path + ".aside";
        QVERIFY(QFile::rename(path, aside));
        QVERIFY(QDir().mkpath(path)); // a directory: no file can take its place
        QVERIFY(!store()->save(1, "a", "new").isEmpty());
        QVERIFY(QDir().rmdir(path));
        QVERIFY(QFile::rename(aside, path));
        QString error;
        QCOMPARE(store()->read(1, "a", &error), QByteArray("old"));
        QCOMPARE(QDir(store()->directoryOf(1)).entryList(QDir::Files), QStringList{"a.JBR"});
        QCOMPARE(store()->saveAgain(1, "a"), QString());
        QCOMPARE(store()->read(1, "a", &error), QByteArray("new"));
    }

    void unsavedJobs()
    {
        const QString blocked = block(1);
        const support::Journal journal;
        QSignalSpy changed(store(), &JobStore::changed);
        QVERIFY(!store()->save(1, "a", "first").isEmpty());
        QCOMPARE(changed.size(), 1);
        QVERIFY(!store()->save(1, "a", "second").isEmpty()); // in the place of the first
        QVERIFY(!store()->save(1, "b", "other").isEmpty());
        QCOMPARE(store()->unsaved().size(), 2);
        QVERIFY(!store()->unsaved().first().reason.isEmpty());
        JobManager manager;
        manager.updateJobsFileInfo(1, false, "", "");
        QVERIFY(manager.jobExists("a") && manager.jobExists("b"));
        manager.updateJobsFileInfo(2, false, "", "");
        QVERIFY(!manager.jobExists("a"));
        QVERIFY(!store()->saveAgain(1, "a").isEmpty()); // still blocked
        QCOMPARE(store()->unsaved().size(), 2);
        QVERIFY(QFile::remove(blocked));
        QCOMPARE(store()->saveAgain(1, "a"), QString());
        QString error;
        QCOMPARE(store()->read(1, "a", &error), QByteArray("second"));
        store()->drop(1, "b");
        QVERIFY(store()->unsaved().isEmpty());
        store()->drop(1, "b"); // a second touch
        QCOMPARE(store()->saveAgain(1, "b"), QString());
        QVERIFY(store()->files(1).size() == 1);
        QStringList operations;
        for (const QVariantList &values : journal.of("job")) {
            const QString operation = values.at(0).toString();
            if (operation != QLatin1String("sendJob"))
                operations += operation + " " + values.at(1).toString();
        }
        QCOMPARE(operations,
                 (QStringList{"storeFailed a", "storeFailed a", "storeFailed b", "storeFailed a",
                              "storeJob a", "dropJob b"}));
    }

    void missingFiles()
    {
        QString error;
        QVERIFY(store()->read(1, "none", &error).isEmpty());
        QVERIFY(!error.isEmpty());
        QCOMPARE(store()->remove(1, "none"), QString());
        QVERIFY(!store()->send(1, "none").isEmpty());
    }

    /// The editor without a job takes nothing and stores nothing.
    void editorWithoutAJob()
    {
        JobEdit editor;
        QVERIFY(!editor.currentJob());
        auto kept = std::make_unique<TimerCommand>();
        Command *command = kept.get();
        editor.insertCommand(1, command);
        QCOMPARE(command, static_cast<Command *>(kept.get()));
        editor.setCmdVarValue(command);
        MoveCommand move(Command::MovJ);
        QVERIFY(!editor.setCmdPosValue(&move, "1 2 3 4 5 6 7", true));
        QVERIFY(!editor.storeJob());
        QVERIFY(store()->files(1).isEmpty());
    }

    void editor()
    {
        JobEdit editor;
        editor.newJob("made");
        QVERIFY(editor.currentJob());
        Command *command = new TimerCommand;
        editor.insertCommand(99, command);
        QVERIFY(!command); // the job's now
        editor.insertCommand(1, command); // nothing
        QCOMPARE(editor.currentJob()->lineCount(), 1);
        command = new VARCommand(Command::SetInteger);
        editor.setCmdVarValue(command);
        editor.insertCommand(1, command);
        QCOMPARE(editor.currentJob()->command(1)->type, 35);
        MoreRobot::setCurrentRobot(2); // the job stays the one of the robot it was begun for
        QVERIFY(editor.storeJob());
        QCOMPARE(store()->files(1).size(), 1);
        QVERIFY(store()->files(2).isEmpty());
        QString error;
        const auto reading = jobfile::read(store()->read(1, "made", &error), "made");
        QVERIFY(reading.job);
        QCOMPARE(reading.job->lineCount(), 2);
        QCOMPARE(reading.job->variables().at("I000"), QStringLiteral("0"));
        editor.newJob("next");
        QCOMPARE(editor.currentJob()->lineCount(), 0);
    }

    void positionsOfTheEditor()
    {
        JobEdit editor;
        editor.newJob("made");
        MoveCommand move(Command::MovL);
        move.positionId = RobotPos::wordOf('P', 4);
        for (const char *text : {"", "1 2 3 4 5 6", "1 2 3 4 5 6 7 8", "1 2 3 4 5 6 x",
                                 "1 2 3 4 5 6 nan", "1 2 3 4 5 6 1e999", "1,2,3,4,5,6,7"}) {
            QVERIFY2(!editor.setCmdPosValue(&move, text, true), text);
            QVERIFY(!move.position && !editor.currentJob()->getPosition('P', 4));
        }
        for (const int word : {0, 5, 1 << 16, -1, 0x100 << 16}) { // name no position
            move.positionId = word;
            QVERIFY(!editor.setCmdPosValue(&move, "1 2 3 4 5 6 7", true));
            QVERIFY(!move.position && editor.currentJob()->positions().empty());
        }
        move.positionId = RobotPos::wordOf('P', 4);
        QVERIFY(!editor.setCmdPosValue(nullptr, "1 2 3 4 5 6 7", true));
        TimerCommand timer;
        QVERIFY(!editor.setCmdPosValue(&timer, "1 2 3 4 5 6 7", true));
        QVERIFY(editor.setCmdPosValue(&move, " 1  2 3 4 5 6 -7.5 ", true));
        QCOMPARE(move.position,
                 static_cast<const RobotPos *>(editor.currentJob()->getPosition('P', 4)));
        QCOMPARE(move.position->id, 0x500004);
        QCOMPARE(move.position->kind, static_cast<unsigned char>('P'));
        QCOMPARE(move.position->values[6], 0.0);
        QCOMPARE(move.position->values[7], 1.0);
        QCOMPARE(move.position->values[13], -7.5);
        QVERIFY(!editor.setCmdPosValue(&move, "1 2 3 4 5 6 7", true)); // it has one
        move.positionId = RobotPos::wordOf('P', 5);
        QVERIFY(editor.setCmdPosValue(&move, "1 2 3 4 5 6 7", false));
        QCOMPARE(move.position->values[0], 1.0);
        QCOMPARE(move.position->values[7], 0.0);
    }

    /// A job whose name is none is kept like any other that cannot be stored.
    void aJobWithoutAPlace()
    {
        for (const char *name : {"../x", ""}) {
            JobEdit editor;
            editor.newJob(name);
            QVERIFY(!editor.storeJob());
            QCOMPARE(static_cast<int>(store()->unsaved().size()), 1);
            QCOMPARE(store()->unsaved().first().name, QString::fromLatin1(name));
            QVERIFY(!store()->unsaved().first().reason.isEmpty());
            QVERIFY(!store()->saveAgain(1, name).isEmpty());
            QCOMPARE(static_cast<int>(store()->unsaved().size()), 1);
            store()->drop(1, name);
            QVERIFY(store()->unsaved().isEmpty());
        }
        QVERIFY(!store()->save(7, "x", "text").isEmpty());
        QVERIFY(!QFile::exists(store()->pathOf(7, "x")));
        SnackbarMessage::dismissAll();
    }

    /// More than a job can be is not read into the memory.
    void aFileThatIsTooLarge()
    {
        QVERIFY(store()->save(1, "large", "text").isEmpty());
        QFile file(store()->pathOf(1, "large"));
        QString error;
        QVERIFY(file.resize(jobfile::kMaxBytes + 1)); // takes no room on the disk
        QVERIFY(store()->read(1, "large", &error).isEmpty());
        QCOMPARE(error, QStringLiteral("文件太大"));
        QVERIFY(file.resize(4));
        error.clear();
        QCOMPARE(store()->read(1, "large", &error), QByteArray("text"));
        QCOMPARE(error, QString());
    }

    /// What is no file is listed as what it is; it is neither read nor written nor handed over.
    void whatIsNoFile_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("canBeRemoved");
        QTest::newRow("link to a file") << int(JobDirectory::Link) << true;
        QTest::newRow("folder") << int(JobDirectory::Folder) << false;
        QTest::newRow("pipe") << int(JobDirectory::Pipe) << false;
        QTest::newRow("socket") << int(JobDirectory::Socket) << false;
        QTest::newRow("device") << int(JobDirectory::Device) << false;
    }
    void whatIsNoFile()
    {
        QFETCH(int, kind);
        QFETCH(bool, canBeRemoved);
        QCOMPARE(store()->save(1, "b", "other"), QString());
        const QTemporaryDir elsewhere;
        const QString outside = elsewhere.filePath("secret");
        QFile secret(outside);
        QVERIFY(secret.open(QIODevice::WriteOnly));
        QCOMPARE(secret.write("secret"), qint64(6));
        secret.close();
        const QByteArray path = QFile::encodeName(store()->pathOf(1, "a"));
        QLocalServer server;
        switch (kind) {
        case JobDirectory::Link:
            QVERIFY(QFile::link(outside, store()->pathOf(1, "a")));
            break;
        case JobDirectory::Folder:
            QVERIFY(QDir().mkpath(store()->pathOf(1, "a")));
            break;
        case JobDirectory::Pipe:
            QCOMPARE(::mkfifo(path.constData(), 0600), 0);
            break;
        case JobDirectory::Socket:
            QVERIFY(server.listen(store()->pathOf(1, "a")));
            break;
        default:
            if (::mknod(path.constData(), S_IFCHR | 0600, makedev(1, 5)) != 0)
                QSKIP("only root makes devices");
        }
        const QVector<JobStore::File> files = store()->files(1);
        QCOMPARE(files.size(), 2);
        QCOMPARE(files.first().name, QStringLiteral("a"));
        QCOMPARE(int(files.first().kind), kind);
        QCOMPARE(files.first().bytes, qint64(0));
        QCOMPARE(files.last().kind, JobDirectory::File);
        JobManager manager;
        manager.updateJobsFileInfo(1, false, "", "");
        QVERIFY(manager.jobExists("a")); // the name is taken

        QString error;
        QCOMPARE(store()->read(1, "a", &error), QByteArray());
        QVERIFY2(error.contains(JobDirectory::nameOf(JobDirectory::Kind(kind))), qPrintable(error));
        QVERIFY(!store()->send(1, "a").isEmpty());
        QVERIFY(!store()->save(1, "a", "new").isEmpty());
        QCOMPARE(store()->unsaved().size(), 1);
        QVERIFY(secret.open(QIODevice::ReadOnly));
        QCOMPARE(secret.readAll(), QByteArray("secret"));
        QCOMPARE(store()->files(1).size(), 2); // and nothing left beside it

        QCOMPARE(store()->remove(1, "a").isEmpty(), canBeRemoved);
        QCOMPARE(store()->files(1).size(), canBeRemoved ? 1 : 2);
        QVERIFY(secret.exists());
        if (canBeRemoved)
            QCOMPARE(store()->saveAgain(1, "a"), QString());
    }

    /// A folder that leads elsewhere is not gone into, the robot's as little as the one above it.
    void linkedFolders_data()
    {
        QTest::addColumn<bool>("isRobots");
        QTest::newRow("robot") << true;
        QTest::newRow("all jobs") << false;
    }
    void linkedFolders()
    {
        QFETCH(bool, isRobots);
        const QTemporaryDir elsewhere;
        QVERIFY(QDir(elsewhere.path()).mkpath("robot1"));
        QFile outside(elsewhere.filePath("robot1/a.JBR"));
        QVERIFY(outside.open(QIODevice::WriteOnly));
        outside.write("secret");
        outside.close();
        const QString jobs = m_directory->filePath("jobs");
        if (isRobots) {
            QVERIFY(QDir().mkpath(jobs));
            QVERIFY(QFile::link(elsewhere.filePath("robot1"), jobs + "/robot1"));
        } else {
            QVERIFY(QFile::link(elsewhere.path(), jobs));
        }
        store()->setDirectory(jobs);
        QVERIFY(store()->files(1).isEmpty());
        QString error;
        QVERIFY(store()->read(1, "a", &error).isEmpty());
        QVERIFY(error.contains(JobDirectory::nameOf(JobDirectory::Link)));
        QVERIFY(!store()->remove(1, "a").isEmpty());
        QVERIFY(!store()->save(1, "a", "new").isEmpty());
        QVERIFY(!store()->save(1, "b", "new").isEmpty());
        QCOMPARE(QDir(elsewhere.filePath("robot1")).entryList(QDir::Files), QStringList{"a.JBR"});
        QVERIFY(outside.open(QIODevice::ReadOnly));
        QCOMPARE(outside.readAll(), QByteArray("secret"));
    }

    /// How long a file is shows while it is read: these say that they are empty.
    void sizesAreMeasured()
    {
        const QString process = QString::number(QCoreApplication::applicationPid());
        const JobDirectory directory("/proc", process);
        QVERIFY(directory.fault().isEmpty());
        QCOMPARE(directory.entry("status").bytes, qint64(0));
        QString error;
        const QByteArray text = directory.read("status", 100000, &error);
        QCOMPARE(error, QString());
        QVERIFY(text.startsWith("Name:"));
        QVERIFY(directory.read("status", 10, &error).isEmpty());
        QCOMPARE(error, QStringLiteral("文件太大"));
    }

    /// What a program that was killed while it wrote has left goes at the next start; nothing else.
    void leftOvers()
    {
        QCOMPARE(store()->save(1, "a", "text"), QString());
        const QDir folder(store()->directoryOf(1));
        const QString left = ".a.JBR.0123456789abcdef.part";
        const QStringList others{"a.JBR.backup", ".a.JBR.0123.part", "a.JBR.0123456789abcdef.part",
                                 ".notes.0123456789abcdef.part"};
        for (const QString &name : QStringList(left) + others) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        const QString link = ".b.JBR.0123456789abcdef.part";
        QVERIFY(QFile::link(folder.filePath("a.JBR"), folder.filePath(link)));
        store()->setDirectory(m_directory->path());
        QVERIFY(!folder.exists(left));
        for (const QString &name : others + QStringList{link, "a.JBR"})
            QVERIFY2(folder.exists(name), qPrintable(name));
        QCOMPARE(store()->files(1).size(), 1);
    }

    void filesAreForOneUser()
    {
        store()->setDirectory(m_directory->filePath("jobs"));
        QCOMPARE(store()->save(1, "a", "text"), QString());
        const auto modeOf = [](const QString &path) {
            struct stat state = {};
            return ::stat(QFile::encodeName(path).constData(), &state) == 0
                ? int(state.st_mode & 0777)
                : -1;
        };
        QCOMPARE(modeOf(store()->pathOf(1, "a")), 0600);
        QCOMPARE(modeOf(store()->directoryOf(1)), 0700);
        QCOMPARE(modeOf(m_directory->filePath("jobs")), 0700);
    }

    /// What the controller says of a job belongs to the file it was handed.
    void verdicts()
    {
        using Verdict = JobStore::Verdict;
        QCOMPARE(store()->save(1, "a", "text"), QString());
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Unknown); // no controller
        QVERIFY(!store()->send(1, "a").isEmpty());
        Robot::getInstance()->receiveMessage(wire::JobChecked,
                                             R"({"robot":1,"name":"a","fault":"None"})");
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Unknown); // it was never handed over
        const Desk desk;
        QVERIFY(connectTo(desk));
        QCOMPARE(store()->send(1, "a"), QString());
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Sent);
        QTRY_COMPARE(store()->verdict(1, "a").state, Verdict::Refused);
        QCOMPARE(store()->verdict(1, "a").fault.kind, JobFault::NotAJob);
        Robot::getInstance()->disconnectFromController();
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Refused); // still what it said last
        Robot::getInstance()->receiveMessage(
            wire::JobChecked, R"({"robot":1,"name":"a","fault":"Port","line":7,"detail":"DIN17"})");
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Refused);
        QCOMPARE(store()->verdict(1, "a").fault.kind, JobFault::Port);
        QCOMPARE(store()->verdict(1, "a").fault.line, 7);
        QCOMPARE(store()->verdict(2, "a").state, Verdict::Unknown);
        Robot::getInstance()->receiveMessage(wire::JobChecked,
                                             R"({"robot":1,"name":"a","fault":"None"})");
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Accepted);
        Robot::getInstance()->receiveMessage(
            wire::JobChecked, R"({"robot":1,"name":"a","fault":"Newer","line":"x"})");
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Refused);
        QCOMPARE(store()->verdict(1, "a").fault.kind, JobFault::Other);
        QVERIFY(store()->verdict(1, "a").fault.reason().contains("Newer"));
        QCOMPARE(store()->save(1, "a", "changed"), QString());
        QCOMPARE(store()->verdict(1, "a").state, Verdict::Unknown);
        // others' jobs and unreadable words change nothing
        for (const char *body :
             {"", "[]", "{}", R"({"robot":1,"name":"a"})", R"({"robot":1,"fault":"None"})",
              R"({"robot":"1","name":"a","fault":"None"})", R"({"robot":1,"name":"a","fault":0})",
              R"({"robot":2,"name":"a","fault":"None"})",
              R"({"robot":1,"name":"stranger","fault":"None"})"}) {
            Robot::getInstance()->receiveMessage(wire::JobChecked, body);
            QCOMPARE(store()->verdict(1, "a").state, Verdict::Unknown);
        }
        QCOMPARE(store()->verdict(1, "stranger").state, Verdict::Unknown);
    }
};

QTEST_MAIN(TestJobStore)
#include "test_jobstore.moc"
