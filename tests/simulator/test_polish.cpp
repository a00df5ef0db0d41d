// Polishing as the controller keeps it: what is asked, taken, merged and refused.

#include "link.h"
#include "link/messages.h"
#include "wire/ids.h"

class TestPolish : public QObject {
    Q_OBJECT

    Desk desk;
    Robot *robot = Robot::getInstance();

    static QByteArray getBody(const QByteArray &robotNumber, const QByteArray &craft)
    {
        return "{\"craftID\":" + craft + ",\"robot\":" + robotNumber + "}\n";
    }
    void set(const QByteArray &body) { robot->sendCommandData(message::SetPolish, body); }
    void setPolish(const QByteArray &craft, const QByteArray &polish)
    {
        set("{\"craftID\":" + craft + ",\"polish\":" + polish + ",\"robot\":1}\n");
    }
    /// The reply to a read; an empty text when none came before the one to a second read.
    QByteArray get(const QByteArray &body)
    {
        QSignalSpy reply(robot, &Robot::robot_Polish_Para);
        robot->sendCommandData(message::GetPolish, body);
        const int received = desk.controller->received(message::GetPolish);
        if (!QTest::qWaitFor(
                [&] { return desk.controller->received(message::GetPolish) > received; }))
            return "nothing arrived";
        // The next answer comes behind the one that is waited for, if there is one.
        robot->sendCommandData(message::GetPolish, getBody("4", "9"));
        if (!QTest::qWaitFor([&] {
                return !reply.isEmpty()
                    && reply.last().at(0).toByteArray().contains("\"craftID\":9")
                    && reply.last().at(0).toByteArray().contains("\"robot\":4");
            }))
            return "no end";
        return reply.count() == 2 ? reply.first().at(0).toByteArray() : QByteArray();
    }
    QByteArray getCraft(const QByteArray &craft) { return get(getBody("1", craft)); }

private slots:
    void initTestCase() { QVERIFY(connectTo(desk)); }
    void cleanupTestCase() { robot->disconnectFromController(); }

    void neverSetReadsAsZero()
    {
        QCOMPARE(getCraft("1"),
                 QByteArray("{\"craftID\":1,\"polish\":{\"autoFeed\":{\"cycle\":0,\"value\":0.0},"
                            "\"endToolOffset\":{\"X\":0.0,\"Y\":0.0,\"Z\":0.0},"
                            "\"startToolOffset\":{\"X\":0.0,\"Y\":0.0,\"Z\":0.0},"
                            "\"toolWear\":0.0},\"robot\":1}\n"));
    }

    void aWholeSetComesBackEqual()
    {
        const QByteArray body =
            "{\"craftID\":2,\"polish\":{\"autoFeed\":{\"cycle\":12,\"value\":-0.25},"
            "\"endToolOffset\":{\"X\":4.5,\"Y\":-5.5,\"Z\":1234570.0},"
            "\"startToolOffset\":{\"X\":1.5,\"Y\":2.5,\"Z\":-3.5},"
            "\"toolWear\":0.125},\"robot\":1}\n";
        set(body);
        QCOMPARE(getCraft("2"), body);
    }

    void setsAreKeptApartByNumberAndRobot()
    {
        setPolish("3", "{\"toolWear\":3.5}");
        QVERIFY(getCraft("3").contains("\"toolWear\":3.5"));
        QVERIFY(getCraft("4").contains("\"toolWear\":0.0"));
        QVERIFY(get(getBody("2", "3")).contains("\"toolWear\":0.0"));
    }

    void aPartialSetMerges()
    {
        setPolish("5", "{\"toolWear\":1.5,\"startToolOffset\":{\"X\":2.5,\"Y\":3.5}}");
        setPolish("5", "{\"startToolOffset\":{\"Y\":9.5},\"unknown\":{\"a\":1}}");
        setPolish("5", "{}");
        const QByteArray reply = getCraft("5");
        QVERIFY(reply.contains("\"toolWear\":1.5"));
        QVERIFY(reply.contains("\"startToolOffset\":{\"X\":2.5,\"Y\":9.5,\"Z\":0.0}"));
        QVERIFY(!reply.contains("unknown"));
    }

    void wholeNumbersInAnyNotation()
    {
        set("{\"craftID\":6.0,\"polish\":{\"toolWear\":2,\"autoFeed\":{\"cycle\":1e3}},\"robot\":1."
            "0}");
        const QByteArray reply = getCraft("6");
        QVERIFY(reply.contains("\"toolWear\":2.0"));
        QVERIFY(reply.contains("\"cycle\":1000,"));
    }

    void refusedSets_data()
    {
        QTest::addColumn<QByteArray>("body");
        const auto wrap = [](const QByteArray &polish) {
            return "{\"craftID\":7,\"polish\":" + polish + ",\"robot\":1}";
        };
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no JSON") << QByteArray("{\"craftID\":7,");
        QTest::newRow("array") << QByteArray("[]");
        QTest::newRow("robot 0") << QByteArray(
            "{\"craftID\":7,\"polish\":{\"toolWear\":1},\"robot\":0}");
        QTest::newRow("robot 5") << QByteArray(
            "{\"craftID\":7,\"polish\":{\"toolWear\":1},\"robot\":5}");
        QTest::newRow("robot a text")
            << QByteArray("{\"craftID\":7,\"polish\":{\"toolWear\":1},\"robot\":\"1\"}");
        QTest::newRow("no robot") << QByteArray("{\"craftID\":7,\"polish\":{\"toolWear\":1}}");
        for (const char *craft : {"0", "10", "-1", "2147483648", "7.5", "true", "null"}) {
            QTest::addRow("craftID %s", craft) << QByteArray("{\"craftID\":") + craft
                    + ",\"polish\":{\"toolWear\":1},\"robot\":1}";
        }
        QTest::newRow("no polish") << QByteArray("{\"craftID\":7,\"robot\":1}");
        QTest::newRow("polish a number") << wrap("1");
        QTest::newRow("polish an array") << wrap("[]");
        QTest::newRow("wear a text") << wrap("{\"toolWear\":\"1\"}");
        QTest::newRow("wear null") << wrap("{\"toolWear\":null}");
        QTest::newRow("wear infinite") << wrap("{\"toolWear\":1e999}");
        QTest::newRow("offset a number") << wrap("{\"startToolOffset\":1}");
        QTest::newRow("last member bad") << wrap("{\"toolWear\":5,\"autoFeed\":{\"cycle\":true}}");
        QTest::newRow("cycle negative") << wrap("{\"autoFeed\":{\"cycle\":-1}}");
        QTest::newRow("cycle a fraction") << wrap("{\"autoFeed\":{\"cycle\":1.5}}");
        QTest::newRow("cycle beyond int") << wrap("{\"autoFeed\":{\"cycle\":2147483648}}");
        QTest::newRow("deep") << wrap(QByteArray(100000, '['));
    }
    void refusedSets()
    {
        QFETCH(QByteArray, body);
        const QByteArray before = getCraft("7");
        const int refused = desk.controller->refused();
        QSignalSpy told(desk.controller.get(), &SimulatedController::messageRefused);
        set(body);
        QTRY_COMPARE(desk.controller->refused(), refused + 1);
        QVERIFY(!told.at(0).at(1).toString().isEmpty());
        QCOMPARE(getCraft("7"), before); // nothing of it was taken, not even its good members
    }

    void refusedReads_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("craft 0") << getBody("1", "0");
        QTest::newRow("craft 10") << getBody("1", "10");
        QTest::newRow("robot 5") << getBody("5", "1");
        QTest::newRow("no craft") << QByteArray("{\"robot\":1}");
    }
    void refusedReads()
    {
        QFETCH(QByteArray, body);
        QCOMPARE(get(body), QByteArray());
    }
};

QTEST_MAIN(TestPolish)
#include "test_polish.moc"
