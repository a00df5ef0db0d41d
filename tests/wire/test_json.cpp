// Reading JSON that means harm.

#include "wire/json.h"

#include <QtTest>
#include <limits>

class TestJson : public QObject {
    Q_OBJECT
private slots:
    void bodiesThatAreNoObject_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("blank") << QByteArray("   \n");
        QTest::newRow("zero byte") << QByteArray(1, '\0');
        QTest::newRow("array") << QByteArray("[1,2]");
        QTest::newRow("number") << QByteArray("5");
        QTest::newRow("text") << QByteArray("\"robot\"");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("cut") << QByteArray("{\"robot\":1,\"po");
        QTest::newRow("open brace") << QByteArray("{");
        QTest::newRow("deep arrays")
            << QByteArray("{\"a\":") + QByteArray(100000, '[') + QByteArray(100000, ']') + "}";
        QByteArray deep;
        for (int i = 0; i < 100000; ++i)
            deep += "{\"a\":";
        QTest::newRow("deep objects, cut") << deep;
        QTest::newRow("deep objects") << deep + "1" + QByteArray(100000, '}');
        QTest::newRow("10 MB of digits") << "{\"robot\":" + QByteArray(10 * 1024 * 1024, '9') + "}";
        QTest::newRow("one byte over the limit")
            << "{\"a\":\"" + QByteArray(wire::kMaxBody - 7, 'x') + "\"}";
        QTest::newRow("binary") << QByteArray::fromHex("fffe00017f80c3281f");
    }
    void bodiesThatAreNoObject()
    {
        QFETCH(QByteArray, body);
        QVERIFY(!wire::parseObject(body));
    }

    void atTheLimit()
    {
        const QByteArray body = "{\"a\":\"" + QByteArray(wire::kMaxBody - 8, 'x') + "\"}";
        QCOMPARE(static_cast<int>(body.size()), wire::kMaxBody);
        const auto root = wire::parseObject(body);
        QVERIFY(root);
        QCOMPARE(static_cast<int>(wire::text(*root, "a")->size()), wire::kMaxBody - 8);
    }

    void integers_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("readable");
        QTest::addColumn<int>("expected");
        QTest::newRow("0") << QByteArray("0") << true << 0;
        QTest::newRow("-7") << QByteArray("-7") << true << -7;
        QTest::newRow("real") << QByteArray("3.0") << true << 3;
        QTest::newRow("fraction") << QByteArray("2.7") << true << 2;
        QTest::newRow("negative fraction") << QByteArray("-2.7") << true << -2;
        QTest::newRow("largest") << QByteArray("2147483647") << true << 2147483647;
        QTest::newRow("smallest") << QByteArray("-2147483648") << true
                                  << std::numeric_limits<int>::min();
        QTest::newRow("2^31") << QByteArray("2147483648") << false << 0;
        QTest::newRow("2^63") << QByteArray("9223372036854775808") << false << 0;
        QTest::newRow("2^64") << QByteArray("18446744073709551616") << false << 0;
        QTest::newRow("1e300") << QByteArray("1e300") << false << 0;
        QTest::newRow("1000 digits") << QByteArray(300, '1') << false << 0;
        QTest::newRow("text") << QByteArray("\"5\"") << false << 0;
        QTest::newRow("true") << QByteArray("true") << false << 0;
        QTest::newRow("null") << QByteArray("null") << false << 0;
        QTest::newRow("array") << QByteArray("[1]") << false << 0;
        QTest::newRow("object") << QByteArray("{\"x\":1}") << false << 0;
    }
    void integers()
    {
        QFETCH(QByteArray, value);
        QFETCH(bool, readable);
        QFETCH(int, expected);
        const auto root = wire::parseObject("{\"v\":" + value + "}");
        QVERIFY(root);
        const std::optional<int> number = wire::integer(*root, "v");
        QCOMPARE(number.has_value(), readable);
        if (readable)
            QCOMPARE(*number, expected);
    }

    void beyondADouble()
    {
        // Whether the parser refuses the text or reads an infinity: no number comes of it.
        for (const QByteArray &value : {QByteArray("1e400"), QByteArray("-1e400"),
                                        QByteArray("1e+9999"), QByteArray(400, '9')}) {
            const auto root = wire::parseObject("{\"v\":" + value + "}");
            QVERIFY(!root || !wire::number(*root, "v"));
        }
    }

    void pathsThatLeadNowhere()
    {
        const auto root =
            wire::parseObject("{\"a\":{\"b\":1},\"n\":5,\"t\":\"x\",\"l\":[{\"b\":1}]}");
        QVERIFY(root);
        QCOMPARE(wire::number(*root, "a", "b"), std::optional<double>(1));
        QVERIFY(!wire::number(*root, "a"));
        QVERIFY(!wire::number(*root, "a", "c"));
        QVERIFY(!wire::number(*root, "a", "b", "c"));
        QVERIFY(!wire::number(*root, "n", "b"));
        QVERIFY(!wire::number(*root, "t", "b"));
        QVERIFY(!wire::number(*root, "l", "b"));
        QVERIFY(!wire::text(*root, "n"));
        QVERIFY(!wire::array(*root, "a"));
        QVERIFY(wire::array(*root, "l"));
        QVERIFY(!root->isMember("c")); // looking does not insert
    }

    void duplicateKeysReadAsOne()
    {
        const auto root = wire::parseObject("{\"robot\":1,\"robot\":2}");
        QVERIFY(!root || wire::integer(*root, "robot") == 2);
    }

    void invalidUtf8StaysAText()
    {
        const auto root = wire::parseObject(QByteArray("{\"t\":\"a\xff\xc3\x28z\"}"));
        if (root)
            QVERIFY(wire::text(*root, "t")->startsWith(QLatin1Char('a')));
    }

    void infinityOnTheWayOut()
    {
        Json::Value value;
        value["v"] = std::numeric_limits<double>::infinity();
        QVERIFY(wire::hasInfinity(wire::writeLine(value)));
        value["v"] = -std::numeric_limits<double>::infinity();
        QVERIFY(wire::hasInfinity(wire::writeLine(value)));
        value["v"] = 1e300;
        QVERIFY(!wire::hasInfinity(wire::writeLine(value)));
        value["v"] = "say \"1e+9999\" \\";
        QVERIFY(!wire::hasInfinity(wire::writeLine(value)));
        value["w"] = std::numeric_limits<double>::infinity();
        QVERIFY(wire::hasInfinity(wire::writeLine(value)));
        QVERIFY(!wire::hasInfinity({}));
    }
};

QTEST_GUILESS_MAIN(TestJson)
#include "test_json.moc"
