// The controller's store: one message is one transaction, what cannot be read is told and never
// written over, and a copy of each day of use can be put back.

#include "link.h"
#include "link/messages.h"
#include "simulator/embeddedcontroller.h"
#include "simulator/storecopies.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <sys/stat.h>

namespace {

/// The controller's database, from outside.
void change(const QString &path, const QStringList &statements)
{
    {
        QSqlDatabase file =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("outside"));
        file.setDatabaseName(path);
        if (!file.open())
            qFatal("%s", qPrintable(file.lastError().text()));
        for (const QString &statement : statements) {
            QSqlQuery query(file);
            if (!query.exec(statement))
                qFatal("%s", qPrintable(query.lastError().text()));
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("outside"));
}

const QString kSpoilRow = QStringLiteral("UPDATE parameters SET value = '{\"toolWear\": 7'"
                                         " WHERE package = 'polish' AND number = 1");

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList keptAside(const QString &directory)
{
    return QDir(directory).entryList({QStringLiteral("controller-damaged-*.db")}, QDir::Files);
}

int modeOf(const QString &path)
{
    struct stat state = {};
    return ::stat(QFile::encodeName(path).constData(), &state) == 0 ? int(state.st_mode & 0777)
                                                                    : -1;
}

Json::Value number(int value)
{
    Json::Value set;
    set["value"] = value;
    return set;
}

int valueOf(const ParameterStore &store, const ParameterStore::Key &key)
{
    const auto set = store.load(key);
    return set ? wire::integer(*set, "value").value_or(-2) : -1;
}

} // namespace

class TestStore : public QObject {
    Q_OBJECT

    using State = ParameterStore::State;

    std::unique_ptr<Desk> desk;
    Robot *robot = Robot::getInstance();

    QString path() const { return desk->directory.filePath(QStringLiteral("controller.db")); }

    void set(int craft, int wear)
    {
        robot->sendCommandData(
            message::SetPolish,
            QStringLiteral(R"({"robot":1,"craftID":%1,"polish":{"toolWear":%2}})")
                .arg(craft)
                .arg(wear)
                .toUtf8());
    }
    /// What is stored; -1 when there is no answer. A read of robot 2, which is sound, is behind it.
    int get(int craft)
    {
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        robot->sendCommandData(message::GetPolish,
                               QStringLiteral(R"({"robot":1,"craftID":%1})").arg(craft).toUtf8());
        pass();
        if (reply.isEmpty())
            return -1;
        const auto body = wire::parseObject(reply.first().first().toByteArray());
        return body ? wire::integer(*body, "polish", "toolWear").value_or(-2) : -2;
    }
    /// Everything that was sent has been dealt with.
    void pass()
    {
        QSignalSpy answered(robot, &Robot::robot_tool_count_check);
        robot->sendCommandData(message::GetToolData, R"({"toolNum":1})");
        QVERIFY(QTest::qWaitFor([&] { return !answered.isEmpty(); }));
    }
    static void setPlane(int x)
    {
        Robot::getInstance()->sendCommandData(
            message::SetPalletPlane,
            QStringLiteral(R"({"robot":1,"craftID":1,"graphic":1,"pallet":{"graphicType":3,)"
                           R"("transLenX":%1,"custom":{"sum":1,"start":1,"count":1,)"
                           R"("eachVec":[{"X":%1}]}}})")
                .arg(x)
                .toUtf8());
    }
    /// transLenX and the X of the one workpiece.
    QString getPlane()
    {
        QSignalSpy reply(robot, &Robot::robot_pallet_PlaneModel);
        robot->sendCommandData(message::GetPalletPlane, R"({"robot":1,"craftID":1,"graphic":1})");
        pass();
        if (reply.isEmpty())
            return QStringLiteral("nothing");
        const auto body = wire::parseObject(reply.first().first().toByteArray());
        const Json::Value &pallet = (*body)["pallet"];
        const Json::Value &items = pallet["custom"]["eachVec"];
        return QStringLiteral("%1 %2")
            .arg(pallet["transLenX"].asDouble())
            .arg(items.empty() ? -1 : items[0]["X"].asDouble());
    }
    /// The words that the controller has said since.
    static QStringList words(const QSignalSpy &recorded)
    {
        QStringList list;
        for (const QVariantList &entry : recorded) {
            if (entry.at(0).toString() == QLatin1String("controller"))
                list += entry.at(1).toList().first().toString();
        }
        return list;
    }
    void restartWith(const QStringList &statements)
    {
        robot->disconnectFromController();
        desk->controller.reset();
        change(path(), statements);
        desk->restart();
        QVERIFY(connectTo(*desk));
    }
    /// A store with polish 1 to 3 and a copy of it, and then polish 2 changed.
    void prepare()
    {
        for (int craft = 1; craft <= 3; ++craft)
            set(craft, craft * 10);
        pass();
        QDir(desk->directory.filePath(QStringLiteral("backup"))).removeRecursively();
        robot->disconnectFromController();
        desk->restart(); // which makes the copy of the day
        QVERIFY(connectTo(*desk));
        set(2, 21);
        pass();
    }

private slots:
    void init()
    {
        desk = std::make_unique<Desk>();
        QVERIFY(connectTo(*desk));
    }
    void cleanup()
    {
        robot->disconnectFromController();
        desk.reset();
    }

    // ---- transactions ---------------------------------------------------------------------------

    void allOrNothing()
    {
        const QTemporaryDir directory;
        ParameterStore store;
        QVERIFY(store.open(directory.path()));
        const ParameterStore::Key one{1, "a", 1, {}};
        const ParameterStore::Key two{1, "b", 2, QStringLiteral("x")};
        {
            ParameterStore::Transaction transaction(store);
            QVERIFY(store.store(one, number(1)));
            QVERIFY(store.store(two, number(1)));
            QVERIFY(transaction.commit());
        }
        {
            ParameterStore::Transaction transaction(store);
            QVERIFY(store.store(one, number(2)));
            QVERIFY(store.store(two, number(2)));
            QCOMPARE(valueOf(store, one), 2);
        }
        QCOMPARE(valueOf(store, one), 1); // nobody committed
        QCOMPARE(valueOf(store, two), 1);
        QVERIFY(store.store(one, number(3))); // without a transaction it is one by itself
        store.close();
        QVERIFY(store.open(directory.path()));
        QCOMPARE(valueOf(store, one), 3);
        QCOMPARE(valueOf(store, two), 1);
    }

    /// A set that is longer than what can be read again is not taken.
    void nothingIsStoredThatCouldNotBeRead()
    {
        const QTemporaryDir directory;
        ParameterStore store;
        QVERIFY(store.open(directory.path()));
        const ParameterStore::Key key{1, "a", 1, {}};
        QVERIFY(store.store(key, number(1)));
        Json::Value large;
        large["text"] = std::string(wire::kMaxBody, 'x');
        QVERIFY(!store.store(key, large));
        QCOMPARE(valueOf(store, key), 1);
    }

    /// A layout is two sets. A disk that takes the one and not the other keeps neither.
    void aMessageIsOneTransaction_data()
    {
        QTest::addColumn<QString>("sub");
        QTest::newRow("the list") << QStringLiteral("plane/1/list");
        QTest::newRow("what it belongs to") << QStringLiteral("plane/1");
    }
    void aMessageIsOneTransaction()
    {
        QFETCH(QString, sub);
        setPlane(1);
        QCOMPARE(getPlane(), QStringLiteral("1 1"));
        restartWith({QStringLiteral("CREATE TRIGGER fails BEFORE INSERT ON parameters"
                                    " WHEN NEW.sub = '%1' BEGIN SELECT RAISE(ABORT, 'disk'); END")
                         .arg(sub)});
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        setPlane(2);
        QCOMPARE(getPlane(), QStringLiteral("1 1"));
        QCOMPARE(words(recorded), QStringList{QStringLiteral("storeFailed")});
        QCOMPARE(desk->controller->refused(), 1);
        restartWith({QStringLiteral("DROP TRIGGER fails")});
        QCOMPARE(getPlane(), QStringLiteral("1 1"));
        setPlane(3);
        QCOMPARE(getPlane(), QStringLiteral("3 3"));
    }

    // ---- damage ---------------------------------------------------------------------------------

    void aDamagedSetIsToldAndNotWrittenOver()
    {
        prepare();
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        restartWith({kSpoilRow});
        QTRY_COMPARE(words(recorded), QStringList{QStringLiteral("storeDamaged")});
        QCOMPARE(damaged.first().first().toString(), QDate::currentDate().toString(Qt::ISODate));
        QCOMPARE(desk->controller->store().state(), State::RowsDamaged);
        QVERIFY(desk->controller->store().fault().contains(QLatin1String("polish")));
        set(1, 99);
        pass();
        QCOMPARE(get(1), -1); // not answered
        QCOMPARE(desk->controller->refused(), 2);
        QCOMPARE(get(2), 21); // the others go on
        set(3, 31);
        QCOMPARE(get(3), 31);
        change(path(), {QStringLiteral("SELECT 1")});
        QVERIFY(!desk->controller->store().load({1, "polish", 1, {}}));
        robot->disconnectFromController();
        desk->controller.reset();
        QVERIFY(contentOf(path()).contains("{\"toolWear\": 7"));
    }

    /// What reads as JSON and is none of the controller's sets.
    void aSenselessSetIsDamaged_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("set");
        QTest::addColumn<QByteArray>("get");
        QTest::addColumn<QString>("sub");
        QTest::addColumn<QString>("spoilt");
        const QByteArray craft = R"({"robot":1,"craftID":1)";
        const auto row = [](const char *name, int id, const QByteArray &set, const QByteArray &get,
                            const char *sub, const char *spoilt) {
            QTest::newRow(name) << id << set << get << QString::fromLatin1(sub)
                                << QString::fromLatin1(spoilt);
        };
        row("polish", message::SetPolish, craft + R"(,"polish":{"toolWear":1}})", craft + "}", "",
            R"({"toolWear":"x"})");
        row("workpiece", message::SetPalletWorkpiece, craft + R"(,"pallet":{"workpieceLength":1}})",
            craft + "}", "workpiece", R"({"workpieceLength":9000})");
        row("mode", message::SetPalletMode, craft + R"(,"usePalletType":1})", craft + "}", "mode",
            R"({"usePalletType":7})");
        row("plane", message::SetPalletPlane, craft + R"(,"graphic":1,"pallet":{"graphicType":0}})",
            craft + R"(,"graphic":1})", "plane/1", R"({"graphicType":8})");
    }
    void aSenselessSetIsDamaged()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, set);
        QFETCH(QByteArray, get);
        QFETCH(QString, sub);
        QFETCH(QString, spoilt);
        robot->sendCommandData(static_cast<quint16>(id), set);
        pass();
        QCOMPARE(desk->controller->refused(), 0);
        restartWith({QStringLiteral("UPDATE parameters SET value = '%1' WHERE sub = '%2'")
                         .arg(spoilt, sub)});
        QCOMPARE(desk->controller->store().state(), State::Good); // it is JSON
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        robot->sendCommandData(static_cast<quint16>(id + 1), get);
        pass();
        QCOMPARE(desk->controller->refused(), 1);
        QCOMPARE(desk->controller->store().state(), State::RowsDamaged);
        QTRY_COMPARE(static_cast<int>(damaged.count()), 1);
    }

    void aDamagedFile_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *how : {"other", "cut", "holes", "empty", "gone"})
            QTest::newRow(how) << QString::fromLatin1(how);
    }
    void aDamagedFile()
    {
        QFETCH(QString, how);
        for (int craft = 1; craft <= 9; ++craft)
            setPlane(craft); // several pages
        prepare();
        robot->disconnectFromController();
        desk->controller.reset();
        QByteArray bytes = contentOf(path());
        QVERIFY(bytes.size() >= 8192);
        if (how == QLatin1String("other"))
            bytes = QByteArray(5000, 'x');
        else if (how == QLatin1String("cut"))
            bytes.truncate(5000);
        else if (how == QLatin1String("holes"))
            bytes.replace(4096, 4096, QByteArray(4096, '\xa5'));
        else
            bytes.clear();
        QFile file(path());
        QVERIFY(file.remove());
        if (how != QLatin1String("gone")) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
            file.close();
        }

        desk->restart();
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        QVERIFY(connectTo(*desk));
        QTRY_COMPARE(static_cast<int>(damaged.count()), 1);
        QCOMPARE(desk->controller->store().state(), State::Damaged);
        set(1, 99);
        setPlane(99);
        QCOMPARE(get(1), -1);
        QCOMPARE(contentOf(path()), bytes); // not a byte of it is changed
        QCOMPARE(file.exists(), how != QLatin1String("gone"));

        QSignalSpy restored(robot, &Robot::storeRestored);
        robot->restoreParameters(true);
        QTRY_COMPARE(static_cast<int>(restored.count()), 1);
        QCOMPARE(desk->controller->store().state(), State::Good);
        QCOMPARE(get(2), 20); // as of the copy
        QCOMPARE(getPlane(), QStringLiteral("9 9"));
        const QStringList kept = keptAside(desk->directory.path());
        QCOMPARE(static_cast<int>(kept.size()), how == QLatin1String("gone") ? 0 : 1);
        if (!kept.isEmpty())
            QCOMPARE(contentOf(desk->directory.filePath(kept.first())), bytes);
        set(1, 12);
        QCOMPARE(get(1), 12);
    }

    /// One set is damaged: it alone comes from the copy, the work since then stays.
    void aDamagedSetIsPutRight()
    {
        prepare();
        restartWith({kSpoilRow});
        QSignalSpy restored(robot, &Robot::storeRestored);
        robot->restoreParameters(false); // there is a copy
        pass();
        QCOMPARE(desk->controller->refused(), 1);
        robot->restoreParameters(true);
        QTRY_COMPARE(static_cast<int>(restored.count()), 1);
        QCOMPARE(get(1), 10);
        QCOMPARE(get(2), 21);
        QCOMPARE(desk->controller->store().state(), State::Good);
        const QStringList kept = keptAside(desk->directory.path());
        QCOMPARE(static_cast<int>(kept.size()), 1);
        QVERIFY(contentOf(desk->directory.filePath(kept.first())).contains("{\"toolWear\": 7"));
        // A store that is sound gives way to nothing.
        robot->restoreParameters(true);
        pass();
        QCOMPARE(desk->controller->refused(), 2);
        QCOMPARE(get(2), 21);
    }

    /// What no copy has is never set, and what was damaged is kept.
    void aDamagedSetWithoutACopy()
    {
        set(1, 10);
        set(2, 20);
        pass();
        QDir(desk->directory.filePath(QStringLiteral("backup"))).removeRecursively();
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        restartWith({kSpoilRow});
        QTRY_COMPARE(static_cast<int>(damaged.count()), 1);
        QCOMPARE(damaged.first().first().toString(), QString());
        QSignalSpy restored(robot, &Robot::storeRestored);
        robot->restoreParameters(false);
        QTRY_COMPARE(static_cast<int>(restored.count()), 1);
        QCOMPARE(get(1), 0);
        QCOMPARE(get(2), 20);
        QCOMPARE(static_cast<int>(keptAside(desk->directory.path()).size()), 1);
    }

    /// A page that asks several times a second does not fill the screen with the word.
    void thePollOfADamagedSetIsToldOnce()
    {
        prepare();
        restartWith({kSpoilRow});
        QSignalSpy damaged(robot, &Robot::storeDamaged);
        QTRY_VERIFY(!damaged.isEmpty());
        const int before = desk->controller->refused();
        for (int i = 0; i < 200; ++i)
            robot->sendCommandData(message::GetPolish, R"({"robot":1,"craftID":1})");
        pass();
        QCOMPARE(desk->controller->refused(), before + 200);
        QVERIFY(damaged.count() < 20);
    }

    // ---- copies ---------------------------------------------------------------------------------

    void oneCopyADay()
    {
        const QTemporaryDir directory;
        const StoreCopies copies(directory.path());
        const ParameterStore::Key key{1, "a", 1, {}};
        ParameterStore store;
        const QDate first(2026, 11, 1);
        store.setToday(first);
        QVERIFY(store.open(directory.path()));
        for (int day = 0; day < 10; ++day) {
            store.setToday(first.addDays(day));
            QVERIFY(store.store(key, number(day)));
            store.copyOncePerDay();
            QVERIFY(store.store(key, number(day + 100)));
            store.copyOncePerDay(); // no second one
        }
        QStringList expected;
        for (int day = 10 - StoreCopies::kKept; day < 10; ++day)
            expected += first.addDays(day).toString(Qt::ISODate);
        QCOMPARE(copies.days(), expected);
        QCOMPARE(store.lastGoodCopy(), expected.last());
        QCOMPARE(QDir(directory.filePath(QStringLiteral("backup"))).entryList(QDir::Files).size(),
                 StoreCopies::kKept);
        store.close();

        QString sentence;
        QVERIFY(ParameterStore::restore(directory.path(), expected.at(2), &sentence));
        QVERIFY(store.open(directory.path()));
        QCOMPARE(valueOf(store, key), 5);
        store.close();
        QVERIFY(ParameterStore::restore(directory.path(), QStringLiteral("last"), &sentence));
        QVERIFY(store.open(directory.path()));
        QCOMPARE(valueOf(store, key), 9);
        store.close();
        QVERIFY(
            !ParameterStore::restore(directory.path(), QStringLiteral("2025-01-01"), &sentence));
        QVERIFY(store.open(directory.path()));
        QCOMPARE(valueOf(store, key), 9);
        QCOMPARE(static_cast<int>(keptAside(directory.path()).size()), 2);
    }

    /// Good copies do not give way to bad ones, and a copy that is damaged itself is not offered.
    void onlyGoodCopies()
    {
        const QTemporaryDir directory;
        const StoreCopies copies(directory.path());
        ParameterStore store;
        const QDate first(2026, 11, 1);
        store.setToday(first);
        QVERIFY(store.open(directory.path()));
        QVERIFY(store.store({1, "polish", 1, {}}, number(1)));
        store.setToday(first.addDays(1));
        store.copyOncePerDay();
        store.close();
        change(directory.filePath(QStringLiteral("controller.db")), {kSpoilRow});
        store.setToday(first.addDays(2));
        QVERIFY(store.open(directory.path()));
        QCOMPARE(store.state(), State::RowsDamaged);
        QCOMPARE(static_cast<int>(copies.days().size()), 2);
        QFile last(copies.pathOf(first.addDays(1).toString(Qt::ISODate)));
        QVERIFY(last.open(QIODevice::WriteOnly)); // which empties it
        last.write("nothing");
        last.close();
        QCOMPARE(copies.lastGood(), first.toString(Qt::ISODate));
        QVERIFY(!copies.days().contains(QStringLiteral("2026-11-03")));
    }

    /// What a copy that was broken off has left is no copy, and in nobody's way.
    void aBrokenOffCopy()
    {
        const QTemporaryDir directory;
        const StoreCopies copies(directory.path());
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        QVERIFY(QDir(directory.path()).mkpath(QStringLiteral("backup")));
        QFile part(copies.pathOf(today) + QStringLiteral(".part"));
        QVERIFY(part.open(QIODevice::WriteOnly));
        part.write(QByteArray(9000, 'x'));
        part.close();
        QVERIFY(copies.days().isEmpty());
        ParameterStore store;
        QVERIFY(store.open(directory.path()));
        QCOMPARE(copies.lastGood(), today);
        QVERIFY(!part.exists());
    }

    // ---- files ----------------------------------------------------------------------------------

    void filesAreForOneUser()
    {
        robot->disconnectFromController();
        desk->controller.reset();
        QVERIFY(QFile::setPermissions(
            path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
        QVERIFY(QFile::setPermissions(desk->directory.path(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                          | QFile::ReadOther | QFile::ExeOther));
        QDir(desk->directory.filePath(QStringLiteral("backup"))).removeRecursively();
        desk->restart();
        QVERIFY(connectTo(*desk));
        set(1, 1);
        pass();
        QCOMPARE(modeOf(desk->directory.path()), 0700);
        QCOMPARE(modeOf(desk->directory.filePath(QStringLiteral("backup"))), 0700);
        for (const QString &suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
            QCOMPARE(modeOf(path() + suffix), 0600);
        const StoreCopies copies(desk->directory.path());
        QCOMPARE(static_cast<int>(copies.days().size()), 1);
        QCOMPARE(modeOf(copies.pathOf(copies.days().first())), 0600);
    }

    void aDirectoryThatCannotBeMade()
    {
        QFile file(desk->directory.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        EmbeddedController embedded;
        QSignalSpy told(&embedded, &EmbeddedController::storeTold);
        const quint16 port = embedded.start(file.fileName() + QStringLiteral("/below"));
        QVERIFY(port != 0);
        QTRY_COMPARE(static_cast<int>(told.count()), 1);
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        robot->connectToController(QStringLiteral("127.0.0.1"), port);
        QTRY_COMPARE(words(recorded), QStringList{QStringLiteral("storeFailed")});
        QCOMPARE(get(1), -1);
        QTRY_VERIFY(robot->get_servo_state() != 0); // all else goes on
    }
};

QTEST_GUILESS_MAIN(TestStore)
#include "test_store.moc"
