// What Robot makes of what arrives: each reply on its signal, damage on none, and the status.

#include "eventlog.h"
#include "morerobot.h"
#include "printlog.h"
#include "robot.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <QElapsedTimer>
#include <QFile>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>
#include <vector>

namespace {

/// All reply signals of Robot, each with its spy.
class AllSignals {
public:
    AllSignals()
    {
        for (const wire::ReplyName &reply : wire::kReplies)
            m_spies.push_back(std::make_unique<QSignalSpy>(Robot::getInstance(), method(reply)));
    }

    static QMetaMethod method(const wire::ReplyName &reply)
    {
        const QMetaObject &meta = Robot::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).name() == reply.signal)
                return meta.method(i);
        }
        return {};
    }

    QSignalSpy &of(size_t row) { return *m_spies[row]; }
    int total() const
    {
        int sum = 0;
        for (const auto &spy : m_spies)
            sum += static_cast<int>(spy->count());
        return sum;
    }
    void clear()
    {
        for (const auto &spy : m_spies)
            spy->clear();
    }

private:
    std::vector<std::unique_ptr<QSignalSpy>> m_spies;
};

/// Holds the keys of every typed reply, so that each decodes from it.
const QByteArray kEveryKey = "{\"robot\":2,\"line\":3,\"value\":4,\"state\":5,\"result\":1,"
                             "\"toolNum\":6,\"tool\":\"1 2 3 4 5 6\",\"toolDeg\":\"6 5 4 3 2 1\","
                             "\"userNum\":7,\"inquire\":\"X\",\"pos\":[1,2.5,-3],"
                             "\"posDeg\":\"1 2 3 4 5 6 7 8 9\"}\n";

QVariantList lastJournalEntry()
{
    const EventLog::Entry &entry = EventLog::getInstance()->entries().back();
    return QVariantList{entry.kind} + entry.values;
}

} // namespace

class TestRobotReplies : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();

    void receive(unsigned short id, const QByteArray &body) { robot->receiveMessage(id, body); }
    void status(const QByteArray &body) { receive(wire::Status, body); }

private slots:
    void init()
    {
        MoreRobot::g_CurRobot = 1;
        status("{\"robot\":1,\"servo\":1,\"deadman\":0,\"teachMode\":0,\"kinematicType\":1}");
        EventLog::getInstance()->clear();
        EventLog::getInstance()->record(QStringLiteral("start"));
    }

    void everyReplyOnItsSignalAndNoOther()
    {
        AllSignals all;
        for (size_t row = 0; row < std::size(wire::kReplies); ++row) {
            const wire::ReplyName &reply = wire::kReplies[row];
            QVERIFY2(AllSignals::method(reply).isValid(), reply.signal);
            all.clear();
            QByteArray body = kEveryKey;
            // The current position has its "pos" as a text, the user coordinate as an array.
            if (reply.id == wire::reply::receive_moreRobot_CurPosition)
                body.replace("[1,2.5,-3]", "\"9 8 7\"");
            receive(reply.id, body);
            QVERIFY2(all.of(row).count() == 1, reply.signal);
            QCOMPARE(all.total(), 1);
            const QVariantList arguments = all.of(row).first();
            if (arguments.size() == 1 && arguments.first().userType() == QMetaType::QByteArray)
                QCOMPARE(arguments.first().toByteArray(), body);
        }
        QCOMPARE(lastJournalEntry().first().toString(), QStringLiteral("start"));
    }

    void textRepliesGoOnAsTheyAre()
    {
        // Their reading is the pages' business: even what is no JSON is passed on whole.
        QSignalSpy spy(robot, &Robot::robot_Polish_Para);
        for (const QByteArray &body : {QByteArray(), QByteArray("{"), QByteArray("\0\xff", 2)}) {
            receive(wire::reply::robot_Polish_Para, body);
            QCOMPARE(spy.takeFirst().first().toByteArray(), body);
        }
    }

    void typedArguments()
    {
        QSignalSpy tool(robot, &Robot::robot_tool_count_check);
        receive(wire::reply::robot_tool_count_check, kEveryKey);
        QCOMPARE(tool.takeFirst(),
                 (QVariantList{6, QByteArray("1 2 3 4 5 6"), QByteArray("6 5 4 3 2 1")}));

        QSignalSpy user(robot, &Robot::robot_usercoords_reply);
        receive(wire::reply::robot_usercoords_reply, kEveryKey);
        const QVariantList point = user.takeFirst();
        QCOMPARE(point.at(0).toInt(), 7);
        QCOMPARE(point.at(1).toString(), QStringLiteral("X"));
        QCOMPARE(point.at(2).value<QVector<double>>(), (QVector<double>{1, 2.5, -3}));

        QSignalSpy done(robot, &Robot::robot_user_suc);
        receive(wire::reply::robot_user_suc, kEveryKey);
        QCOMPARE(done.takeFirst(), QVariantList{1});

        QSignalSpy position(robot, &Robot::receive_moreRobot_CurPosition);
        receive(wire::reply::receive_moreRobot_CurPosition, "{\"pos\":\"1 2\",\"posDeg\":\"3 4\"}");
        QCOMPARE(position.takeFirst(), (QVariantList{QByteArray("1 2"), QByteArray("3 4")}));

        QSignalSpy command(robot, &Robot::robot_BWB_command);
        receive(wire::reply::robot_BWB_command, kEveryKey);
        QCOMPARE(command.takeFirst(), (QVariantList{2, 3}));

        QSignalSpy button(robot, &Robot::sPBtnState);
        receive(wire::reply::sPBtnState, kEveryKey);
        QCOMPARE(button.takeFirst(), (QVariantList{2, 4, 5}));
    }

    void hostileTypedReplies_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("body");
        const struct {
            int id;
            std::vector<const char *> keys;
        } typed[] = {
            {wire::reply::robot_tool_count_check, {"toolNum", "tool", "toolDeg"}},
            {wire::reply::robot_usercoords_reply, {"userNum", "inquire", "pos"}},
            {wire::reply::robot_user_suc, {"result"}},
            {wire::reply::receive_moreRobot_CurPosition, {"pos", "posDeg"}},
            {wire::reply::robot_BWB_command, {"robot", "line"}},
            {wire::reply::sPBtnState, {"robot", "value", "state"}},
        };
        const char *const bad[] = {"null",  "true",    "{}", "[\"x\"]", "2147483648.5e10",
                                   "[[1]]", "[1,null]"};
        for (const auto &reply : typed) {
            for (const char *key : reply.keys) {
                for (const char *value : bad) {
                    // A good body with this one key spoilt: of two equal keys the last counts.
                    QByteArray body = kEveryKey.trimmed();
                    if (reply.id == wire::reply::receive_moreRobot_CurPosition)
                        body.replace("[1,2.5,-3]", "\"9 8 7\"");
                    body.chop(1);
                    body += QByteArray(",\"") + key + "\":" + value + "}";
                    QTest::addRow("%04x %s %s", static_cast<unsigned>(reply.id), key, value)
                        << reply.id << body;
                }
            }
            QTest::addRow("%04x nothing", static_cast<unsigned>(reply.id))
                << reply.id << QByteArray();
            QTest::addRow("%04x no keys", static_cast<unsigned>(reply.id))
                << reply.id << QByteArray("{}");
            QTest::addRow("%04x array", static_cast<unsigned>(reply.id))
                << reply.id << QByteArray("[1]");
            QTest::addRow("%04x deep", static_cast<unsigned>(reply.id))
                << reply.id << QByteArray(100000, '[');
            QTest::addRow("%04x digits", static_cast<unsigned>(reply.id))
                << reply.id << QByteArray("{\"robot\":" + QByteArray(10 * 1024 * 1024, '7') + "}");
        }
        QTest::newRow("position of 65 values")
            << int(wire::reply::robot_usercoords_reply)
            << QByteArray("{\"userNum\":1,\"inquire\":\"O\",\"pos\":[0")
                + QByteArray(",0").repeated(64) + "]}";
    }
    void hostileTypedReplies()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, body);
        AllSignals all;
        receive(static_cast<unsigned short>(id), body);
        QCOMPARE(all.total(), 0);
        QCOMPARE(lastJournalEntry().at(0).toString(), QStringLiteral("reading"));
        QCOMPARE(lastJournalEntry().at(1).toInt(), id);
    }

    void unknownIds()
    {
        QSet<int> known{wire::Status};
        for (const wire::ReplyName &reply : wire::kReplies)
            known.insert(reply.id);
        AllSignals all;
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        for (int id = 0; id <= 0xffff; ++id) {
            if (!known.contains(id))
                receive(static_cast<unsigned short>(id), kEveryKey);
        }
        QCOMPARE(all.total(), 0);
        QCOMPARE(static_cast<int>(recorded.count()), 0x10000 - static_cast<int>(known.size()));
        QCOMPARE(lastJournalEntry().at(0).toString(), QStringLiteral("reading"));
        EventLog::getInstance()->clear();
    }

    void overlongBodyIsDropped()
    {
        QSignalSpy spy(robot, &Robot::robot_Polish_Para);
        receive(wire::reply::robot_Polish_Para, QByteArray(wire::kMaxBody, ' '));
        QCOMPARE(spy.count(), 1);
        receive(wire::reply::robot_Polish_Para, QByteArray(wire::kMaxBody + 1, ' '));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(lastJournalEntry().at(0).toString(), QStringLiteral("reading"));
    }

    void statusIsApplied()
    {
        QSignalSpy changed(robot, &Robot::statusChanged);
        status("{\"robot\":1,\"servo\":3,\"deadman\":1,\"teachMode\":2,\"kinematicType\":12}");
        QCOMPARE(robot->get_servo_state(), 3);
        QCOMPARE(robot->get_deadman_state(), 1);
        QCOMPARE(robot->get_teach_mode(), 2);
        QCOMPARE(robot->kinematicType, 12);
        QCOMPARE(changed.count(), 1);

        status("{\"robot\":1,\"servo\":3,\"deadman\":1,\"teachMode\":2,\"kinematicType\":12}");
        QCOMPARE(changed.count(), 1); // nothing new

        status("{\"robot\":1,\"deadman\":0}");
        QCOMPARE(robot->get_servo_state(), 3);
        QCOMPARE(robot->get_deadman_state(), 0);
        QCOMPARE(changed.count(), 2);
    }

    void statusThatChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("other robot") << QByteArray(
            "{\"robot\":2,\"servo\":3,\"deadman\":1,\"teachMode\":1,\"kinematicType\":5}");
        QTest::newRow("no robot") << QByteArray(
            "{\"servo\":3,\"deadman\":1,\"teachMode\":1,\"kinematicType\":5}");
        QTest::newRow("robot as a text") << QByteArray("{\"robot\":\"1\",\"servo\":3}");
        QTest::newRow("ill types")
            << QByteArray("{\"robot\":1,\"servo\":\"3\",\"deadman\":true,\"teachMode\":[1],"
                          "\"kinematicType\":{}}");
        QTest::newRow("out of range") << QByteArray(
            "{\"robot\":1,\"servo\":4,\"deadman\":2,\"teachMode\":3,\"kinematicType\":13}");
        QTest::newRow("below range")
            << QByteArray("{\"robot\":1,\"servo\":-1,\"deadman\":-1,\"teachMode\":-1,"
                          "\"kinematicType\":0}");
        QTest::newRow("beyond int")
            << QByteArray("{\"robot\":1,\"servo\":4294967299,\"deadman\":4294967297,"
                          "\"teachMode\":9223372036854775809,\"kinematicType\":1e300}");
        QTest::newRow("no object") << QByteArray("[1,3]");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("deep") << QByteArray(100000, '{');
    }
    void statusThatChangesNothing()
    {
        QFETCH(QByteArray, body);
        QSignalSpy changed(robot, &Robot::statusChanged);
        status(body);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(robot->get_servo_state(), 1);
        QCOMPARE(robot->get_deadman_state(), 0);
        QCOMPARE(robot->get_teach_mode(), 0);
        QCOMPARE(robot->kinematicType, 1);
    }

    void oneIllKeyLeavesTheOthers()
    {
        status(
            "{\"robot\":1,\"servo\":3,\"deadman\":\"held\",\"teachMode\":1,\"kinematicType\":99}");
        QCOMPARE(robot->get_servo_state(), 3);
        QCOMPARE(robot->get_deadman_state(), 0);
        QCOMPARE(robot->get_teach_mode(), 1);
        QCOMPARE(robot->kinematicType, 1);
    }

    void anotherRobotsStateIsUnknownUntilItsStatus()
    {
        status("{\"robot\":1,\"servo\":3,\"deadman\":1}");
        QSignalSpy current(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged);
        MoreRobot::setCurrentRobot(2);
        QCOMPARE(current.count(), 1);
        QCOMPARE(MoreRobot::getCurrentRobot(), 2);
        QCOMPARE(robot->get_servo_state(), 0);
        QCOMPARE(robot->get_deadman_state(), 0);
        status("{\"robot\":1,\"servo\":3}"); // late, of the robot left
        QCOMPARE(robot->get_servo_state(), 0);
        status("{\"robot\":2,\"servo\":3}");
        QCOMPARE(robot->get_servo_state(), 3);
        MoreRobot::setCurrentRobot(0);
        MoreRobot::setCurrentRobot(5);
        MoreRobot::setCurrentRobot(-1);
        QCOMPARE(MoreRobot::getCurrentRobot(), 2);
        QCOMPARE(current.count(), 1);
    }

    /// Who has control is named in the sentence; whatever the name holds, it stays one line of
    /// text.
    void whoHasControlIsNamed_data()
    {
        QTest::addColumn<QByteArray>("holder");
        QTest::addColumn<QString>("text");
        const QString nobody = QStringLiteral("未执行：另一台示教器正在控制机器人");
        const QString named = QStringLiteral("未执行：%1 正在控制机器人");
        QTest::newRow("named") << QByteArray("\"Cell 4 (10.0.0.7)\"")
                               << named.arg(QStringLiteral("Cell 4 (10.0.0.7)"));
        QTest::newRow("an old controller") << QByteArray() << nobody;
        QTest::newRow("empty") << QByteArray("\"\"") << nobody;
        QTest::newRow("no text") << QByteArray("7") << nobody;
        QTest::newRow("controls") << QByteArray("\"a\\u0000b\\n\\u202ec\\u001b\"")
                                  << named.arg(QStringLiteral("abc"));
        QTest::newRow("nothing visible") << QByteArray("\"\\u200b\\n\"") << nobody;
        QTest::newRow("a place for a number")
            << QByteArray("\"%1 %2\"") << named.arg(QStringLiteral("%1 %2"));
        QTest::newRow("long") << QByteArray("\"") + QByteArray(5000, 'x') + "\""
                              << named.arg(QString(60, QLatin1Char('x')));
    }
    void whoHasControlIsNamed()
    {
        QFETCH(QByteArray, holder);
        QFETCH(QString, text);
        QSignalSpy said(robot, &Robot::controllerSaid);
        status("{\"robot\":1,\"message\":\"controlHeld\""
               + (holder.isNull() ? QByteArray() : ",\"holder\":" + holder) + "}");
        QCOMPARE(said.count(), 1);
        QCOMPARE(said.first().first().toString(), text);
    }
    void refusalsAreTold_data()
    {
        QTest::addColumn<QByteArray>("keys");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("id");
        const QString bare = QStringLiteral("控制器拒绝了该设置");
        const QString why = QStringLiteral("控制器拒绝了该设置：%1");
        QTest::newRow("whole") << QByteArray(",\"id\":17921,\"reason\":\"cycle\"")
                               << why.arg(QStringLiteral("cycle")) << QStringLiteral("0x4601");
        QTest::newRow("neither") << QByteArray() << bare << QString();
        QTest::newRow("other types")
            << QByteArray(",\"id\":\"x\",\"reason\":[1]") << bare << QString();
        QTest::newRow("no such id") << QByteArray(",\"id\":65536,\"reason\":\"a\"")
                                    << why.arg(QStringLiteral("a")) << QString();
        QTest::newRow("negative id") << QByteArray(",\"id\":-1") << bare << QString();
        QTest::newRow("controls") << QByteArray(",\"reason\":\"b\\u0000\\n\\u202ec\\u001b\"")
                                  << why.arg(QStringLiteral("bc")) << QString();
        QTest::newRow("a place for a number")
            << QByteArray(",\"reason\":\"%1 %2\"") << why.arg(QStringLiteral("%1 %2")) << QString();
        QTest::newRow("long") << QByteArray(",\"reason\":\"") + QByteArray(5000, 'x') + "\""
                              << why.arg(QString(60, QLatin1Char('x'))) << QString();
    }
    void refusalsAreTold()
    {
        QFETCH(QByteArray, keys);
        QFETCH(QString, text);
        QFETCH(QString, id);
        const QTemporaryDir directory;
        QVERIFY(PrintLog::open(directory.path()));
        QSignalSpy said(robot, &Robot::controllerSaid);
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        const auto isTold = [&] { // not while those of the tests before count as a flood
            recorded.clear();
            status("{\"robot\":1,\"message\":\"refused\"" + keys + "}");
            return said.count() == 1;
        };
        QVERIFY(QTest::qWaitFor(isTold));
        PrintLog::close();
        QCOMPARE(said.first().first().toString(), text);

        // The journal of the pages has no line of it; the log file has.
        QCOMPARE(recorded.count(), 2);
        QCOMPARE(recorded.at(0).at(0).toString(), QStringLiteral("controller"));
        const QVariantList values = recorded.at(0).at(1).toList();
        QCOMPARE(values.at(0).toString(), QStringLiteral("refused"));
        QCOMPARE(values.at(1).toString(), id);
        QVERIFY(values.at(2).toString().size() <= 200);
        QCOMPARE(recorded.at(1).at(0).toString(), QStringLiteral("toast"));
        QCOMPARE(recorded.at(1).at(1).toList().at(0).toString(), text);
        QFile log(directory.filePath(QStringLiteral("pendant.log")));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString line = QString::fromUtf8(log.readAll());
        QVERIFY2(line.contains(QStringLiteral(" warning ") + text), qPrintable(line));
        QCOMPARE(line.count(QLatin1Char('\n')), 1);
        QVERIFY(id.isEmpty() || line.contains(id));
    }

    void aFloodOfRefusalsIsShownOnceASecond()
    {
        constexpr int kFlood = 500;
        QSignalSpy said(robot, &Robot::controllerSaid);
        const auto isShown = [&](const QByteArray &reason) {
            const auto before = said.count();
            status("{\"robot\":1,\"message\":\"refused\",\"id\":17921,\"reason\":\"" + reason
                   + "\"}");
            return said.count() > before;
        };
        QElapsedTimer time;
        time.start();
        EventLog::getInstance()->clear();
        int shown = 0;
        for (int i = 0; i < kFlood; ++i)
            shown += isShown("flood") ? 1 : 0;
        QVERIFY(shown <= 1 + time.elapsed() / 1000);
        int counted = 0;
        for (const EventLog::Entry &entry : EventLog::getInstance()->entries())
            counted += entry.kind == QLatin1String("controller") ? entry.count : 0;
        QCOMPARE(counted, kFlood);
        // It is shown again later, and so is another reason, but not hundreds of them.
        QVERIFY(QTest::qWaitFor([&] { return isShown("flood"); }));
        QVERIFY(QTest::qWaitFor([&] { return isShown("another"); }));
        time.restart();
        shown = 0;
        for (int i = 0; i < kFlood; ++i)
            shown += isShown("reason " + QByteArray::number(i)) ? 1 : 0;
        QVERIFY(shown <= 5 * (1 + time.elapsed() / 1000));
    }

    void theNameIsForThatWordAlone()
    {
        QSignalSpy said(robot, &Robot::controllerSaid);
        status("{\"robot\":1,\"message\":\"axisLimit\",\"holder\":\"x\"}");
        QCOMPARE(said.first().first().toString(), QStringLiteral("已停止：轴到达限位"));
        status("{\"robot\":1,\"holder\":\"x\"}");
        QCOMPARE(said.count(), 1);
    }
    void safetySwitchTakesTheEnablingSwitchBack()
    {
        status("{\"robot\":1,\"servo\":3,\"deadman\":1}");
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        QSignalSpy sent(robot, &Robot::commandSent);
        robot->robot_key_slot_saftySwitchProcess(0);
        QCOMPARE(robot->get_deadman_state(), 0);
        QCOMPARE(recorded.at(0).at(0).toString(), QStringLiteral("safetySwitch"));
        QCOMPARE(recorded.at(0).at(1).toList(), QVariantList{0});
        QCOMPARE(recorded.at(1).at(0).toString(), QStringLiteral("key"));
        QCOMPARE(recorded.at(1).at(1).toList(), (QVariantList{QStringLiteral("deadman"), 0}));
        QCOMPARE(sent.count(), 0); // a key is no message
    }

    void messagesAreToldAndJournalledInOrder()
    {
        QSignalSpy sent(robot, &Robot::commandSent);
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        const unsigned short id = 0x1234;
        robot->sendCommandData(id, "{\"robot\":1}\n");
        QCOMPARE(sent.takeFirst(),
                 (QVariantList{QVariant::fromValue(id), QByteArray("{\"robot\":1}\n")}));
        QCOMPARE(recorded.at(0).at(0).toString(), QStringLiteral("message"));
        QCOMPARE(recorded.at(0).at(1).toList(),
                 (QVariantList{0x1234, QByteArray("{\"robot\":1}\n")}));
    }

    void beforeTheFirstConnectionTheJournalAloneIsTold()
    {
        const quint64 before = robot->refusedCount();
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        robot->sendCommandData(0x1234, {});
        QCOMPARE(robot->refusedCount(), before + 1);
        QStringList kinds;
        for (const QVariantList &entry : recorded)
            kinds.append(entry.first().toString());
        QCOMPARE(kinds, (QStringList{QStringLiteral("message"), QStringLiteral("link")}));
        QCOMPARE(recorded.at(1).at(1).toList().first().toString(), QStringLiteral("refused"));
    }
};

QTEST_MAIN(TestRobotReplies)
#include "test_robotreplies.moc"
