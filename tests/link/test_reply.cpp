// The four checks that slots make on a reply, and the typed reads of its values.

#include "../support.h"

#include "link/reply.h"

#include <QComboBox>
#include <climits>

namespace {

constexpr wire::reply::Id kId = wire::reply::robot_pallet_ToolParameter;

using Check = std::optional<Reply> (*)(wire::reply::Id, const QByteArray &);

std::optional<Reply> goOn(wire::reply::Id id, const QByteArray &body)
{
    return reply::warnAndGoOn(id, body, reply::error::kTool);
}

std::optional<Reply> stop(wire::reply::Id id, const QByteArray &body)
{
    return reply::warnAndStop(id, body, reply::error::kPosition);
}

Reply replyOf(const QByteArray &body)
{
    return Reply(kId, support::json(body));
}

} // namespace

Q_DECLARE_METATYPE(Check)

class TestReply : public QObject {
    Q_OBJECT
private slots:
    void init() { MoreRobot::setCurrentRobot(2); }
    void cleanupTestCase() { MoreRobot::setCurrentRobot(1); }

    void checks_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("matches");
        QTest::newRow("same robot") << QByteArray("{\"robot\":2}") << true;
        QTest::newRow("same robot as a real") << QByteArray("{\"robot\":2.0}") << true;
        QTest::newRow("another robot") << QByteArray("{\"robot\":1}") << false;
        QTest::newRow("no robot") << QByteArray("{\"craftID\":1}") << false;
        QTest::newRow("empty object") << QByteArray("{}") << false;
        QTest::newRow("robot 0") << QByteArray("{\"robot\":0}") << false;
        QTest::newRow("robot as text") << QByteArray("{\"robot\":\"2\"}") << false;
        QTest::newRow("robot null") << QByteArray("{\"robot\":null}") << false;
        QTest::newRow("robot as object") << QByteArray("{\"robot\":{\"robot\":2}}") << false;
        QTest::newRow("robot as array") << QByteArray("{\"robot\":[2]}") << false;
        QTest::newRow("robot true") << QByteArray("{\"robot\":true}") << false;
        QTest::newRow("robot beyond int") << QByteArray("{\"robot\":4294967298}") << false;
        QTest::newRow("robot twice, the last counts")
            << QByteArray("{\"robot\":1,\"robot\":2}") << true;
    }
    void checks()
    {
        QFETCH(QByteArray, body);
        QFETCH(bool, matches);
        struct Row {
            Check check;
            bool goesOn; ///< when the robot does not match
            QString error;
        };
        const Row rows[] = {
            {&reply::strict, false, {}},
            {&goOn, true, QStringLiteral("pallet tool parameter error!")},
            {&stop, false, QStringLiteral("pallet position parameter error！")},
            {&reply::anyRobot, true, {}},
        };
        for (const Row &row : rows) {
            support::Journal journal;
            QCOMPARE(row.check(kId, body).has_value(), matches || row.goesOn);
            if (matches || row.error.isEmpty())
                QCOMPARE(journal.toasts(), QStringList());
            else
                QCOMPARE(journal.of("toast"), QVector<QVariantList>({{row.error, 5000, 1, true}}));
        }
    }

    /// A missing robot reads as 0 where the slot warns, and 0 is what it is compared with.
    void missingRobotReadsAsZero()
    {
        const int robot = MoreRobot::g_CurRobot;
        MoreRobot::g_CurRobot = 0;
        support::Journal journal;
        const bool good = goOn(kId, "{}") && stop(kId, "{}");
        const bool strict = reply::strict(kId, "{}").has_value();
        MoreRobot::g_CurRobot = robot;
        QVERIFY(good);
        QCOMPARE(journal.toasts(), QStringList());
        QVERIFY(!strict); // here it has to be there
    }

    void unreadable_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("cut") << QByteArray("{\"robot\":2,\"craftID\":");
        QTest::newRow("words") << QByteArray("hello");
        QTest::newRow("array") << QByteArray("[{\"robot\":2}]");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("deep") << "{\"robot\":2,\"a\":" + QByteArray(100000, '[')
                + QByteArray(100000, ']') + "}";
        QTest::newRow("long") << "{\"robot\":2,\"a\":" + QByteArray(10 * 1024 * 1024, '7') + "}";
    }
    /// What cannot be parsed ends every slot without a word.
    void unreadable()
    {
        QFETCH(QByteArray, body);
        for (Check check :
             {Check(&reply::strict), Check(&goOn), Check(&stop), Check(&reply::anyRobot)}) {
            support::Journal journal;
            QVERIFY(!check(kId, body));
            QCOMPARE(journal.kinds(), QStringList());
        }
    }

    void errorTexts()
    {
        const auto text = [](const char *error) { return QString::fromUtf8(error); };
        QCOMPARE(text(reply::error::kTool), QStringLiteral("pallet tool parameter error!"));
        QCOMPARE(text(reply::error::kTray), QStringLiteral("pallet tray parameter error!"));
        QCOMPARE(text(reply::error::kPosition),
                 QStringLiteral("pallet position parameter error！"));
        QCOMPARE(text(reply::error::kEasyPosition),
                 QStringLiteral("palleteasy position parameter error！"));
        QCOMPARE(text(reply::error::kWorkpiece),
                 QStringLiteral("pallet workpiece parameter error!"));
        QCOMPARE(text(reply::error::kApproach), QStringLiteral("pallet approach parameter error!"));
        QCOMPARE(text(reply::error::kOverlapping),
                 QStringLiteral("pallet overlapping parameter error!"));
        QCOMPARE(text(reply::error::kPlane), QStringLiteral("pallet plane parameter error!"));
        QCOMPARE(text(reply::error::kPosition).right(1).at(0).unicode(), ushort(0xff01));
        QCOMPARE(text(reply::error::kEasyPosition).right(1).at(0).unicode(), ushort(0xff01));
    }

    void processNumber_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("row"); // expected; the selector stands on row 4 before
        QTest::newRow("1") << QByteArray("{\"craftID\":1}") << 0;
        QTest::newRow("9, the count") << QByteArray("{\"craftID\":9}") << 8;
        QTest::newRow("10, above the count") << QByteArray("{\"craftID\":10}") << 4;
        QTest::newRow("12") << QByteArray("{\"craftID\":12}") << 4;
        QTest::newRow("0") << QByteArray("{\"craftID\":0}") << -1;
        QTest::newRow("-1") << QByteArray("{\"craftID\":-1}") << -1;
        QTest::newRow("-5") << QByteArray("{\"craftID\":-5}") << -1;
        QTest::newRow("lowest int") << QByteArray("{\"craftID\":-2147483648}") << -1;
        QTest::newRow("highest int") << QByteArray("{\"craftID\":2147483647}") << 4;
        QTest::newRow("2^31") << QByteArray("{\"craftID\":2147483648}") << 4;
        QTest::newRow("-2^31 - 1") << QByteArray("{\"craftID\":-2147483649}") << 4;
        QTest::newRow("2^63") << QByteArray("{\"craftID\":9223372036854775808}") << 4;
        QTest::newRow("a real") << QByteArray("{\"craftID\":3.0}") << 2;
        QTest::newRow("a fraction is cut") << QByteArray("{\"craftID\":3.9}") << 2;
        QTest::newRow("missing") << QByteArray("{\"robot\":2}") << 4;
        QTest::newRow("null") << QByteArray("{\"craftID\":null}") << 4;
        QTest::newRow("text") << QByteArray("{\"craftID\":\"3\"}") << 4;
        QTest::newRow("array") << QByteArray("{\"craftID\":[3]}") << 4;
        QTest::newRow("object") << QByteArray("{\"craftID\":{}}") << 4;
        QTest::newRow("true") << QByteArray("{\"craftID\":true}") << 4;
    }
    void processNumber()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, row);
        QComboBox selector;
        for (int i = 1; i <= 9; ++i)
            selector.addItem(QString::number(i));
        selector.setCurrentIndex(4);
        reply::selectProcessNumber(&selector, replyOf(body));
        QCOMPARE(selector.currentIndex(), row);
    }

    void processNumberOfAnEmptySelector()
    {
        QComboBox empty;
        for (const char *body : {"{\"craftID\":1}", "{\"craftID\":0}", "{\"craftID\":-3}"}) {
            reply::selectProcessNumber(&empty, replyOf(body));
            QCOMPARE(empty.currentIndex(), -1);
        }
    }

    void reads()
    {
        const Reply reply = replyOf("{\"polish\":{\"wear\":0.5,\"cycle\":12,\"name\":\"磨\","
                                    "\"list\":[1,2]},\"robot\":2}");
        support::Journal journal;
        QVERIFY(reply.has("polish"));
        QVERIFY(reply.has("polish", "wear"));
        QVERIFY(!reply.has("polish", "none"));
        QVERIFY(!reply.has("polish", "wear", "deeper"));
        QCOMPARE(*reply.number("polish", "wear"), 0.5);
        QCOMPARE(*reply.number("polish", "cycle"), 12.0);
        QCOMPARE(*reply.integer("polish", "cycle"), 12);
        QCOMPARE(*reply.integer("polish", "wear"), 0);
        QCOMPARE(*reply.text("polish", "name"), QStringLiteral("磨"));
        QVERIFY(reply.array("polish", "list"));
        QCOMPARE(static_cast<int>(reply.array("polish", "list")->size()), 2);
        const char *path[] = {"polish", "wear"};
        QCOMPARE(*reply.numberAt(path, 2), 0.5);
        QVERIFY(!reply.number("polish", "none"));
        QVERIFY(!reply.integer("none", "none"));
        QVERIFY(!reply.text("none"));
        QVERIFY(!reply.array("polish", "none"));
        // a value that is not there is no news
        QCOMPARE(journal.kinds(), QStringList());
    }

    void wrongTypes_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("kind"); // what may read it: number, integer, text, array
        QTest::newRow("null") << QByteArray("null") << "";
        QTest::newRow("true") << QByteArray("true") << "";
        QTest::newRow("object") << QByteArray("{\"x\":1}") << "";
        QTest::newRow("empty object") << QByteArray("{}") << "";
        QTest::newRow("array") << QByteArray("[1]") << "array";
        QTest::newRow("text") << QByteArray("\"5\"") << "text";
        QTest::newRow("empty text") << QByteArray("\"\"") << "text";
        QTest::newRow("number") << QByteArray("5") << "number integer";
        QTest::newRow("beyond int") << QByteArray("3000000000") << "number";
        QTest::newRow("below int") << QByteArray("-3000000000") << "number";
        QTest::newRow("2^64") << QByteArray("18446744073709551616") << "number";
        QTest::newRow("large real") << QByteArray("1e308") << "number";
    }
    void wrongTypes()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, kind);
        const Reply reply = replyOf("{\"a\":{\"b\":" + value + "}}");
        const QVariantList note = {static_cast<int>(kId), QStringLiteral("a/b")};
        const auto check = [&](const char *read, bool found, const support::Journal &journal) {
            const bool expected = kind.split(QLatin1Char(' ')).contains(QString::fromLatin1(read));
            if (found != expected)
                return false;
            return expected ? journal.kinds().isEmpty()
                            : journal.kinds() == QStringList(QStringLiteral("reading"))
                    && journal.of("reading").first() == note;
        };
        {
            support::Journal journal;
            QVERIFY(check("number", reply.number("a", "b").has_value(), journal));
        }
        {
            support::Journal journal;
            QVERIFY(check("integer", reply.integer("a", "b").has_value(), journal));
        }
        {
            support::Journal journal;
            QVERIFY(check("text", reply.text("a", "b").has_value(), journal));
        }
        {
            support::Journal journal;
            QVERIFY(check("array", reply.array("a", "b") != nullptr, journal));
        }
    }

    /// What stands in the place of an object on the way hides the value; the journal names it.
    void wrongTypeOnTheWay()
    {
        for (const char *value : {"5", "\"x\"", "[1]", "null", "true"}) {
            const Reply reply = replyOf("{\"a\":" + QByteArray(value) + "}");
            support::Journal journal;
            QVERIFY(!reply.number("a", "b", "c"));
            QCOMPARE(journal.of("reading"),
                     QVector<QVariantList>({{static_cast<int>(kId), QStringLiteral("a")}}));
        }
    }

    /// An infinite number does not come through, however it is written.
    void infinity()
    {
        for (const char *value : {"1e999", "-1e999", "1e+9999"}) {
            const auto root = wire::parseObject("{\"a\":" + QByteArray(value) + "}");
            if (root)
                QVERIFY(!Reply(kId, *root).number("a"));
        }
    }

    void readingLeavesTheReplyAsItIs()
    {
        const Reply reply = replyOf("{\"a\":1}");
        QVERIFY(!reply.number("b", "c"));
        QVERIFY(!reply.has("b"));
        QCOMPARE(wire::writeLine(reply.root()), QByteArray("{\"a\":1}\n"));
    }
};

QTEST_MAIN(TestReply)
#include "test_reply.moc"
