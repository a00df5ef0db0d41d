// Which answers select and which are dropped, when several are under way: a page with a selector,
// and a controller whose answers the test brings when it is time.

#include "../support.h"
#include "../wire/rawpeer.h"

#include "link/reads.h"
#include "link/reply.h"
#include "link/request.h"

#include <QComboBox>
#include <deque>
#include <memory>
#include <random>

namespace {

constexpr wire::reply::Id kAnswer = wire::reply::robot_Polish_Para;

/// A page that asks whenever its number changes, and what it has asked.
struct Page {
    Page()
    {
        for (int i = 1; i <= 9; ++i)
            box.addItem(QString::number(i));
        QObject::connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), &box,
                         [this] { ask(); });
    }

    void ask()
    {
        request::ask(message::GetPolish, kAnswer, &box);
        asked.push_back(box.currentIndex() + 1);
    }
    void choose(int number) { box.setCurrentIndex(number - 1); }
    int number() const { return box.currentIndex() + 1; }
    /// A reply that names that number comes; false when it is dropped.
    bool answer(int number)
    {
        return reply::selectProcessNumber(
            &box,
            Reply(kAnswer, support::json("{\"craftID\":" + QByteArray::number(number) + "}")));
    }

    QComboBox box;
    std::deque<int> asked;
};

} // namespace

class TestReads : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();
    std::unique_ptr<RawPeer> peer;
    std::unique_ptr<Page> page;

    /// The controller greets whoever comes.
    bool meet()
    {
        const int before = peer->accepted();
        if (!QTest::qWaitFor([&] { return peer->accepted() > before; }, 20000))
            return false;
        peer->send(wire::HelloAnswer, "{\"protocol\":1,\"role\":\"controller\"}");
        return QTest::qWaitFor([this] { return robot->isConnected(); }, 20000);
    }

private slots:
    void init()
    {
        MoreRobot::setCurrentRobot(1);
        peer = std::make_unique<RawPeer>();
        Robot::LinkTimes times;
        times.silence = 600000; // this controller says nothing by itself
        times.greeting = 600000;
        times.pauses = {1};
        robot->setLinkTimes(times);
        robot->connectToController(QStringLiteral("127.0.0.1"), peer->port());
        QVERIFY(meet());
        page = std::make_unique<Page>();
    }
    void cleanup()
    {
        page.reset();
        robot->disconnectFromController();
        peer.reset();
        MoreRobot::setCurrentRobot(1);
    }

    void whatNobodyAskedForSelects()
    {
        for (int number : {7, 3, 9, -7, 1}) {
            QVERIFY(page->answer(number));
            QCOMPARE(page->number(), std::max(number, 0));
        }
        QVERIFY(page->answer(12)); // there is no such row: what it brings is shown all the same
        QCOMPARE(page->number(), 1);
    }

    /// The operator went on before the answer came: it selects, and what that asks anew does not.
    void answersToTheOperatorSelect()
    {
        QVERIFY(!reads::areOpen());
        page->choose(3);
        page->choose(5);
        QVERIFY(reads::areOpen());
        QVERIFY(page->answer(3));
        QCOMPARE(page->number(), 3);
        QVERIFY(page->answer(5));
        QCOMPARE(page->number(), 5);
        QCOMPARE(page->asked, (std::deque<int>{3, 5, 3, 5}));
        QVERIFY(!page->answer(3));
        QCOMPARE(page->number(), 5);
        QVERIFY(page->answer(5));
        QCOMPARE(page->number(), 5);
        QCOMPARE(static_cast<int>(page->asked.size()), 4);
        QVERIFY(!reads::areOpen());
        QVERIFY(page->answer(3)); // nothing is open any more: this one comes by itself
        QCOMPARE(page->number(), 3);
    }

    /// A selection's own answer fills as long as its number is the one that is shown, also when it
    /// was another in between.
    void answersToASelectionFill()
    {
        QVERIFY(page->answer(4));
        QVERIFY(page->answer(4));
        QVERIFY(page->answer(6));
        page->choose(2);
        page->choose(6);
        QVERIFY(page->answer(6));
        QCOMPARE(page->number(), 6);
    }

    void theOrderOfOneNumber()
    {
        QVERIFY(page->answer(2)); // selects, and asks
        page->choose(4);
        page->choose(2);
        page->choose(6);
        QVERIFY(!page->answer(2)); // what the selection asked
        QCOMPARE(page->number(), 6);
        QVERIFY(page->answer(4));
        QVERIFY(page->answer(2)); // what the operator asked
        QCOMPARE(page->number(), 2);
        QVERIFY(page->answer(6));
        QCOMPARE(page->asked, (std::deque<int>{2, 4, 2, 6, 4, 2, 6}));
        QVERIFY(!page->answer(4));
        QVERIFY(!page->answer(2));
        QVERIFY(page->answer(6));
        QCOMPARE(page->number(), 6);
    }

    /// The same number asked twice by the operator, and left: both answers select.
    void sameNumberTwice()
    {
        page->choose(3);
        page->ask();
        page->choose(8);
        QVERIFY(page->answer(3));
        QVERIFY(page->answer(3));
        QCOMPARE(page->number(), 3);
        QVERIFY(page->answer(8));
        QVERIFY(!page->answer(3)); // what the first of them made the page ask
        QCOMPARE(page->number(), 8);
    }

    /// The answer to what a selection asked was lost: the next that the operator asks for counts.
    void aLostAnswerTakesNoTrueOneAway()
    {
        QVERIFY(page->answer(2));
        page->choose(4);
        QVERIFY(page->answer(4)); // passes over the lost one
        page->choose(2);
        page->choose(6);
        QVERIFY(page->answer(2));
        QCOMPARE(page->number(), 2);
        QVERIFY(page->answer(6));
        QVERIFY(!page->answer(2)); // of the selection, just now
        QCOMPARE(page->number(), 6);
        QVERIFY(page->answer(6));
        QVERIFY(page->answer(2)); // the lost one is not waited for
        QCOMPARE(page->number(), 2);
    }

    /// The same for an answer to the operator: it is not taken for one that is still to come.
    void aLostAnswerToTheOperator()
    {
        page->choose(2); // never answered
        page->choose(9);
        QVERIFY(page->answer(9));
        for (int number = 1; number <= 9; ++number)
            page->choose(number);
        for (int number = 1; number <= 9; ++number)
            QVERIFY(page->answer(number));
        for (int number = 1; number <= 8; ++number)
            QVERIFY(!page->answer(number));
        QVERIFY(page->answer(9));
        QCOMPARE(page->number(), 9);
    }

    /// It was not lost but is late: it is dropped all the same.
    void aLateAnswerOfASelection()
    {
        QVERIFY(page->answer(2));
        page->choose(4);
        QVERIFY(page->answer(4));
        QVERIFY(!page->answer(2));
        QCOMPARE(page->number(), 4);
        QVERIFY(page->answer(2)); // this one nobody asked for
    }

    void numbersWithoutARow_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("-7") << -7;
        QTest::newRow("0") << 0;
    }
    /// No row is selected then, and the page asks for that; true answers count as before.
    void numbersWithoutARow()
    {
        QFETCH(int, number);
        page->choose(3);
        QVERIFY(page->answer(number));
        QCOMPARE(page->number(), 0);
        QCOMPARE(page->asked, (std::deque<int>{3, 0}));
        QVERIFY(page->answer(3));
        QCOMPARE(page->number(), 3);
        QVERIFY(!page->answer(0)); // what the page asked without a row
        QCOMPARE(page->number(), 3);
        QVERIFY(page->answer(3));
        page->choose(5);
        QVERIFY(page->answer(5));
        QCOMPARE(page->number(), 5);
    }

    void withoutALink()
    {
        robot->disconnectFromController();
        QVERIFY(page->answer(2));
        page->choose(5);
        QVERIFY(page->answer(2));
        QCOMPARE(page->number(), 2);
        robot->connectToController(QStringLiteral("127.0.0.1"), peer->port());
        QVERIFY(meet());
        page->choose(5);
        QVERIFY(page->answer(2));
        QCOMPARE(page->number(), 2);
    }

    void linkLostBetweenQuestionAndAnswer()
    {
        QVERIFY(page->answer(2));
        page->choose(5);
        peer->socket()->abort();
        QTRY_COMPARE_WITH_TIMEOUT(robot->link(), Robot::Link::Lost, 20000);
        QVERIFY(meet());
        QVERIFY(page->answer(2));
        QCOMPARE(page->number(), 2);
    }

    void anotherRobotBetweenQuestionAndAnswer()
    {
        QVERIFY(page->answer(2));
        page->choose(5);
        MoreRobot::setCurrentRobot(2);
        MoreRobot::setCurrentRobot(1);
        QVERIFY(page->answer(2));
        QCOMPARE(page->number(), 2);
    }

    void tooManyQuestions()
    {
        QVERIFY(page->answer(2));
        page->choose(5);
        for (int i = 0; i < 10000; ++i)
            page->ask();
        QVERIFY(page->answer(2)); // the oldest are not waited for
        QCOMPARE(page->number(), 2);
    }

    /// Another reply that names the same number is no answer to this read.
    void repliesOfAnotherKind()
    {
        QVERIFY(page->answer(2));
        page->choose(5);
        const Reply other(wire::reply::robot_pallet_TrayParameter,
                          support::json("{\"craftID\":2}"));
        QVERIFY(reply::selectProcessNumber(&page->box, other));
        QCOMPARE(page->number(), 2);
    }

    /// Two selectors in one reply count together, and no part of the question is left open.
    void twoSelectors()
    {
        Page crafts;
        QComboBox graphics;
        graphics.addItems({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
        const auto ask = [&] {
            request::ask(message::GetPalletPlane, wire::reply::robot_pallet_PlaneModel,
                         {&crafts.box, &graphics}, Json::Value());
        };
        connect(&graphics, QOverload<int>::of(&QComboBox::currentIndexChanged), &graphics, ask);
        const auto answer = [&](std::optional<int> craft, std::optional<int> graphic,
                                bool isLast = true) {
            return reply::select(Reply(wire::reply::robot_pallet_PlaneModel, Json::Value()),
                                 {{&crafts.box, craft}, {&graphics, graphic}}, isLast);
        };
        QVERIFY(answer(2, 3));
        QCOMPARE(crafts.number(), 2);
        QCOMPARE(graphics.currentIndex(), 2);
        crafts.choose(5);
        QVERIFY(!answer(2, 3)); // neither the one nor the other
        QCOMPARE(crafts.number(), 5);
        QCOMPARE(graphics.currentIndex(), 2);
        QVERIFY(answer(2, 3)); // nothing was left open
        QCOMPARE(crafts.number(), 2);

        // What a reply does not name is as it stands.
        QVERIFY(answer(std::nullopt, 1));
        QCOMPARE(crafts.number(), 2);
        QCOMPARE(graphics.currentIndex(), 0);

        // An answer in several replies is dropped as a whole.
        graphics.setCurrentIndex(1);
        QVERIFY(!answer(2, 1, false));
        QVERIFY(!answer(2, 1, false));
        QVERIFY(!answer(2, 1, true));
        QCOMPARE(graphics.currentIndex(), 1);
        QVERIFY(answer(2, 1, false)); // the next is another one's
        QCOMPARE(graphics.currentIndex(), 0);
    }

    void anyCourse_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 200; ++seed)
            QTest::addRow("%d", seed) << seed;
    }
    /// Whatever the operator does while the answers are under way: the page comes to rest on the
    /// number that was chosen last, and asks at most twice for each choice.
    void anyCourse()
    {
        QFETCH(int, seed);
        std::mt19937 random(static_cast<unsigned>(seed));
        const auto upTo = [&random](int n) { return static_cast<int>(random() % unsigned(n)); };
        const int haste = 1 + upTo(4);
        constexpr int kChoices = 50;
        int choices = 0;
        int answers = 0;
        int last = 0;
        while (choices < kChoices || !page->asked.empty()) {
            if (choices < kChoices && (page->asked.empty() || upTo(haste) > 0)) {
                last = 1 + upTo(9);
                if (last == page->number())
                    page->ask(); // the page is opened anew
                else
                    page->choose(last);
                ++choices;
            } else {
                const int number = page->asked.front();
                page->asked.pop_front();
                page->answer(number);
                QVERIFY(++answers <= 2 * kChoices);
            }
        }
        QCOMPARE(page->number(), last);
    }
};

QTEST_MAIN(TestReads)
#include "test_reads.moc"
