// What requests look like: robot, process number in both forms, one line of JSON.

#include "../support.h"

#include "link/request.h"

#include <QComboBox>
#include <limits>

using support::Message;

class TestRequest : public QObject {
    Q_OBJECT
private:
    QComboBox *numbers = nullptr;

    static QByteArray line(const Json::Value &body) { return wire::writeLine(body); }

private slots:
    void init()
    {
        numbers = new QComboBox;
        for (int i = 1; i <= 9; ++i)
            numbers->addItem(QString::number(i));
        MoreRobot::setCurrentRobot(1);
    }
    void cleanup()
    {
        delete numbers;
        MoreRobot::setCurrentRobot(1);
    }

    void robotAlone()
    {
        QCOMPARE(line(request::forRobot()), QByteArray("{\"robot\":1}\n"));
        MoreRobot::setCurrentRobot(4);
        QCOMPARE(line(request::forRobot()), QByteArray("{\"robot\":4}\n"));
    }

    void rowOfTheSelector_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("first") << 0 << QByteArray("{\"craftID\":1,\"robot\":1}\n");
        QTest::newRow("third") << 2 << QByteArray("{\"craftID\":3,\"robot\":1}\n");
        QTest::newRow("last") << 8 << QByteArray("{\"craftID\":9,\"robot\":1}\n");
        QTest::newRow("none") << -1 << QByteArray("{\"craftID\":0,\"robot\":1}\n");
    }
    void rowOfTheSelector()
    {
        QFETCH(int, row);
        QFETCH(QByteArray, expected);
        numbers->setCurrentIndex(row);
        QCOMPARE(line(request::forRow(numbers)), expected);
    }

    /// The row counts, whatever the items read.
    void rowOfOddItems()
    {
        QComboBox odd;
        odd.addItems({QStringLiteral("40"), QStringLiteral("41")});
        odd.setCurrentIndex(1);
        QCOMPARE(line(request::forRow(&odd)), QByteArray("{\"craftID\":2,\"robot\":1}\n"));
        QCOMPARE(line(request::forText(&odd)), QByteArray("{\"craftID\":41.0,\"robot\":1}\n"));
    }

    void otherKeys()
    {
        numbers->setCurrentIndex(4);
        QCOMPARE(line(request::forRow(numbers, "craft")),
                 QByteArray("{\"craft\":5,\"robot\":1}\n"));
        QCOMPARE(line(request::forRow(numbers, "conveyorID")),
                 QByteArray("{\"conveyorID\":5,\"robot\":1}\n"));
        QCOMPARE(line(request::forText(numbers, "conveyorID")),
                 QByteArray("{\"conveyorID\":5.0,\"robot\":1}\n"));
    }

    void textOfTheSelector_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("1") << "1" << QByteArray("{\"craftID\":1.0,\"robot\":2}\n");
        QTest::newRow("9") << "9" << QByteArray("{\"craftID\":9.0,\"robot\":2}\n");
        QTest::newRow("fraction") << "2.5" << QByteArray("{\"craftID\":2.5,\"robot\":2}\n");
        QTest::newRow("words") << "abc" << QByteArray("{\"craftID\":0.0,\"robot\":2}\n");
        QTest::newRow("nothing") << "" << QByteArray("{\"craftID\":0.0,\"robot\":2}\n");
    }
    void textOfTheSelector()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, expected);
        MoreRobot::setCurrentRobot(2);
        QComboBox box;
        box.addItem(text);
        QCOMPARE(line(request::forText(&box)), expected);
    }

    /// Integer and real are different values on the wire.
    void typesOfTheNumber()
    {
        numbers->setCurrentIndex(2);
        QVERIFY(request::forRow(numbers)["craftID"].type() == Json::intValue);
        QVERIFY(request::forText(numbers)["craftID"].type() == Json::realValue);
        QVERIFY(request::forRow(numbers)["robot"].type() == Json::intValue);
    }

    void sending()
    {
        QSignalSpy sent(Robot::getInstance(), &Robot::commandSent);
        support::Journal journal;
        Json::Value body = request::forRow(numbers);
        body["polish"]["toolWear"] = 0.5;
        body["polish"]["autoFeed"]["cycle"] = 12;
        request::send(message::SetPolish, body);
        const QByteArray expected(
            "{\"craftID\":1,\"polish\":{\"autoFeed\":{\"cycle\":12},\"toolWear\":0.5},"
            "\"robot\":1}\n");
        QCOMPARE(journal.messages(), QVector<Message>({{0x4601, expected}}));
        QCOMPARE(static_cast<int>(sent.size()), 1);
        QCOMPARE(sent.first().at(0).value<unsigned short>(), static_cast<unsigned short>(0x4601));
        QCOMPARE(sent.first().at(1).toByteArray(), expected);
    }

    void sendingNothing()
    {
        support::Journal journal;
        for (message::Id id : {message::GetLaserIo, message::GetLaserBore, message::GetLaserAnalog,
                               message::GetLaserManual, message::GetLaserState})
            request::sendEmpty(id);
        QCOMPARE(journal.messages(),
                 QVector<Message>({{0x4402, QByteArray()},
                                   {0x4405, QByteArray()},
                                   {0x4408, QByteArray()},
                                   {0x4412, QByteArray()},
                                   {0x440e, QByteArray()}}));
    }

    void sendingText()
    {
        support::Journal journal;
        Json::Value body;
        body["name"] = QStringLiteral("打磨\"1\"\n").toStdString();
        request::send(message::SetGlobalVariable, body);
        QCOMPARE(journal.messages().first().body,
                 QByteArray("{\"name\":\"\\u6253\\u78e8\\\"1\\\"\\n\"}\n"));
        QCOMPARE(*wire::text(support::json(journal.messages().first().body), "name"),
                 QStringLiteral("打磨\"1\"\n"));
    }

    void sendingNumbers()
    {
        support::Journal journal;
        Json::Value body;
        body["a"] = 0.1;
        body["b"] = 1e21;
        body["c"] = -0.0;
        body["d"] = std::numeric_limits<int>::min();
        body["e"] = true;
        body["f"] = Json::arrayValue;
        request::send(message::SetPolish, body);
        QCOMPARE(journal.messages().first().body,
                 QByteArray("{\"a\":0.10000000000000001,\"b\":1e+21,\"c\":-0.0,\"d\":-2147483648,"
                            "\"e\":true,\"f\":[]}\n"));
    }
};

QTEST_MAIN(TestRequest)
#include "test_request.moc"
