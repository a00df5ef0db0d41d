// The polishing pages at work with the simulated controller, over the real link.

#include "polishpage.h"

#include "simulator/embeddedcontroller.h"

#include <QTemporaryDir>

using support::enter;
using support::kGetPolish;
using support::kPolishFields;
using support::kSetPolish;
using support::PolishField;

namespace {

const QStringList kZeros(QStringList({QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
                                      QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
                                      QStringLiteral("0"), QStringLiteral("0"),
                                      QStringLiteral("0")}));
const QStringList kValues = {QStringLiteral("0.5"), QStringLiteral("1.25"), QStringLiteral("-2.5"),
                             QStringLiteral("3"),   QStringLiteral("-4.5"), QStringLiteral("5.125"),
                             QStringLiteral("-6"),  QStringLiteral("0.03"), QStringLiteral("12")};
const QStringList kOther = {QStringLiteral("9"), QStringLiteral("8"), QStringLiteral("7"),
                            QStringLiteral("6"), QStringLiteral("5"), QStringLiteral("4"),
                            QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("1")};
/// What no controller holds: it stands in the fields until a reply fills them.
const QStringList kOld = {QStringLiteral("31"), QStringLiteral("32"), QStringLiteral("33"),
                          QStringLiteral("34"), QStringLiteral("35"), QStringLiteral("36"),
                          QStringLiteral("37"), QStringLiteral("38"), QStringLiteral("39")};

} // namespace

class TestPolishController : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    QTemporaryDir directory;
    std::unique_ptr<EmbeddedController> embedded;
    int kinematicType = 1;

    SimulatedController *controller() const { return embedded->controller(); }

    bool start(const QString &data)
    {
        embedded = std::make_unique<EmbeddedController>();
        QString error;
        const quint16 port = embedded->start(data, &error);
        if (port == 0) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        Robot::getInstance()->connectToController(QStringLiteral("127.0.0.1"), port);
        return QTest::qWaitFor([] { return Robot::getInstance()->isConnected(); }, 20000);
    }

    void stop()
    {
        Robot::getInstance()->disconnectFromController();
        embedded.reset();
    }

    /// Waits until all that the controller has sent so far is here: it reports a new kinematic type
    /// behind it on the same connection.
    bool caughtUp()
    {
        kinematicType = kinematicType % 12 + 1;
        controller()->setKinematicType(MoreRobot::getCurrentRobot(), kinematicType);
        return QTest::qWaitFor(
            [this] { return Robot::getInstance()->kinematicType == kinematicType; }, 20000);
    }

    /// Waits until the controller has carried out what the page has sent, and its replies are here.
    bool settled(unsigned short id, int count)
    {
        return QTest::qWaitFor([=] { return controller()->received(id) >= count; }, 20000)
            && caughtUp();
    }

    /// Shows a process number with `old` in the fields, so that a reply can be told from none.
    void show(const support::PolishPage &page, int number, const QStringList &old = kOld)
    {
        page.setTexts(old);
        const int asked = controller()->received(kGetPolish);
        if (page.number()->currentIndex() == number - 1)
            pages->showPolish();
        else
            page.number()->setCurrentIndex(number - 1);
        QVERIFY(settled(kGetPolish, asked + 1));
    }

    void save(const support::PolishPage &page, const QStringList &texts)
    {
        QVERIFY(page.isViewing());
        page.pressModify();
        int i = 0;
        for (const PolishField &row : kPolishFields)
            enter(page.field(row.name), texts.at(i++));
        const int saved = controller()->received(kSetPolish);
        page.pressModify();
        QVERIFY(page.isViewing());
        QVERIFY(settled(kSetPolish, saved + 1));
    }

private slots:
    void initTestCase()
    {
        QVERIFY(directory.isValid());
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        Robot::LinkTimes times;
        times.pauses = {10, 20, 50};
        Robot::getInstance()->setLinkTimes(times);
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
    }

    void init()
    {
        MoreRobot::setCurrentRobot(1);
        if (!embedded)
            QVERIFY(start(directory.path()));
        const int asked = controller()->received(kGetPolish);
        support::PolishPage(pages).open();
        QVERIFY(settled(kGetPolish, asked + 1));
    }

    void cleanup()
    {
        if (embedded)
            controller()->setFault(kGetPolish, Fault::None);
    }

    void cleanupTestCase() { stop(); }

    /// Read, change, save, look at another number, come back; then the same after a restart.
    void aWorkingDay()
    {
        const support::PolishPage page(pages);
        show(page, 3);
        QCOMPARE(page.texts(), kZeros);
        save(page, kValues);
        show(page, 5);
        QCOMPARE(page.texts(), kZeros);
        save(page, kOther);
        show(page, 3);
        QCOMPARE(page.texts(), kValues);
        show(page, 5);
        QCOMPARE(page.texts(), kOther);
        QCOMPARE(controller()->refused(), 0);
        QCOMPARE(controller()->unknown(), 0);

        stop();
        QVERIFY(start(directory.path()));
        page.leave();
        page.setTexts(kOld);
        page.number()->blockSignals(true);
        page.number()->setCurrentIndex(2);
        page.number()->blockSignals(false);
        support::click(pages, "BtnPolishPara");
        QTRY_COMPARE_WITH_TIMEOUT(page.texts(), kValues, 20000);
        QVERIFY(page.isViewing());
    }

    void anotherRobotIsUntouched()
    {
        const support::PolishPage page(pages);
        show(page, 3);
        save(page, kValues);
        MoreRobot::setCurrentRobot(2);
        show(page, 3);
        QCOMPARE(page.texts(), kZeros);
        save(page, kOther);
        MoreRobot::setCurrentRobot(1);
        show(page, 3);
        QCOMPARE(page.texts(), kValues);
        MoreRobot::setCurrentRobot(2);
        show(page, 3);
        QCOMPARE(page.texts(), kOther);
    }

    void anotherDirectoryIsEmpty()
    {
        const support::PolishPage page(pages);
        show(page, 4);
        save(page, kValues);
        stop();
        QTemporaryDir other;
        QVERIFY(other.isValid());
        QVERIFY(start(other.path()));
        show(page, 4);
        QCOMPARE(page.texts(), kZeros);
        stop();
    }

    /// Many saves, each read back.
    void allNumbers()
    {
        const support::PolishPage page(pages);
        for (int number = 1; number <= 9; ++number) {
            show(page, number);
            QStringList texts = kValues;
            texts[0] = QString::number(number);
            texts[8] = QString::number(100 * number);
            save(page, texts);
        }
        for (int number = 9; number >= 1; --number) {
            show(page, number);
            QStringList texts = kValues;
            texts[0] = QString::number(number);
            texts[8] = QString::number(100 * number);
            QCOMPARE(page.texts(), texts);
        }
    }

    /// A number that no row stands for is refused by the controller and harms nothing.
    void numberWithoutARow()
    {
        const support::PolishPage page(pages);
        show(page, 2);
        const int refused = controller()->refused();
        page.setTexts(kOld);
        page.number()->setCurrentIndex(-1);
        QTRY_COMPARE_WITH_TIMEOUT(controller()->refused(), refused + 1, 20000);
        QVERIFY(caughtUp());
        QCOMPARE(page.texts(), kOld);
        QVERIFY(page.isViewing());
        show(page, 2);
        QVERIFY(page.texts() != kOld);
    }

    /// A save that the page lets through and the controller does not: the page goes on as after
    /// every save, and the pendant says what became of it.
    void aRefusedSaveIsTold()
    {
        const support::PolishPage page(pages);
        show(page, 2);
        const int refused = controller()->refused();
        page.number()->setCurrentIndex(-1);
        QTRY_COMPARE_WITH_TIMEOUT(controller()->refused(), refused + 1, 20000); // the read
        const support::Journal journal;
        save(page, kValues);
        const QVariantList told{"refused", "0x4601", "craftID"};
        QTRY_VERIFY_WITH_TIMEOUT(journal.of("controller").contains(told), 20000);
        QCOMPARE(controller()->refused(), refused + 2);
        QVERIFY(journal.toasts().contains(QStringLiteral("控制器拒绝了该设置：craftID")));
        QVERIFY(page.isViewing());
        QCOMPARE(page.texts(), kValues);
        show(page, 2);
    }

    void faults_data()
    {
        QTest::addColumn<int>("fault");
        QTest::newRow("no reply") << static_cast<int>(Fault::NoReply);
        QTest::newRow("malformed") << static_cast<int>(Fault::Malformed);
        QTest::newRow("another robot") << static_cast<int>(Fault::OtherRobot);
        QTest::newRow("first reply lost") << static_cast<int>(Fault::FirstReplyLost);
    }
    /// The fields keep their text, nothing is said, and the page can be worked all the same.
    void faults()
    {
        QFETCH(int, fault);
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        show(page, 7);
        controller()->setFault(kGetPolish, static_cast<Fault>(fault));
        {
            support::Journal journal;
            show(page, 6);
            QCOMPARE(page.texts(), kOld);
            QVERIFY(page.isViewing());
            QCOMPARE(page.number()->currentIndex(), 5);
            QCOMPARE(journal.toasts(), QStringList());
        }
        // what is saved from here goes through
        save(page, kOther);
        QCOMPARE(page.texts(), kOther);
        controller()->setFault(kGetPolish, Fault::None);
        show(page, 7);
        show(page, 6);
        QCOMPARE(page.texts(), kOther);
    }

    /// The second question is answered.
    void firstReplyLost()
    {
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        page.leave();
        page.setTexts(kOld);
        controller()->setFault(kGetPolish, Fault::FirstReplyLost);
        const int asked = controller()->received(kGetPolish);
        support::click(pages, "BtnPolishPara");
        QVERIFY(settled(kGetPolish, asked + 1));
        QCOMPARE(page.texts(), kOld);
        page.leave();
        support::click(pages, "BtnPolishPara");
        QVERIFY(settled(kGetPolish, asked + 2));
        QCOMPARE(page.texts(), kValues);
    }

    /// The operator goes on in the meantime; the reply fills the fields when it comes.
    void lateReply()
    {
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        show(page, 7);
        controller()->setFault(kGetPolish, Fault::Late, 200);
        page.setTexts(kOld);
        page.number()->setCurrentIndex(5);
        page.pressModify();
        QVERIFY(page.isEditing());
        QTRY_COMPARE_WITH_TIMEOUT(page.texts(), kValues, 20000);
        QVERIFY(page.isEditing());
        QCOMPARE(page.number()->currentIndex(), 5);
    }

    /// The reply of the number before comes after the operator has gone on and after the reply of
    /// that choice: it selects its number, reads it once more, and that ends it.
    void lateReplyOfAnotherNumber()
    {
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        show(page, 7);
        save(page, kOther);
        show(page, 8);
        const int asked = controller()->received(kGetPolish);
        QSignalSpy replies(Robot::getInstance(), &Robot::robot_Polish_Para);
        controller()->setFault(kGetPolish, Fault::Late, 200);
        page.number()->setCurrentIndex(5);
        QVERIFY(settled(kGetPolish, asked + 1));
        controller()->setFault(kGetPolish, Fault::None);
        page.number()->setCurrentIndex(6);
        const auto isSettled = [&] {
            return replies.size() == 3 && page.number()->currentIndex() == 5
                && page.texts() == kValues;
        };
        QTRY_VERIFY_WITH_TIMEOUT(isSettled(), 20000);
        QVERIFY(page.isViewing());
        QVERIFY(caughtUp());
        QVERIFY(isSettled());
        QCOMPARE(controller()->received(kGetPolish) - asked, 3);
    }

    void manyRequestsUnderWay_data()
    {
        QTest::addColumn<int>("requests");
        QTest::newRow("two") << 2;
        QTest::newRow("three") << 3;
        QTest::newRow("five") << 5;
        QTest::newRow("nine") << 9;
    }
    /// The operator runs through the numbers before the first reply is here. Each reply selects its
    /// number and makes the page ask once more; what that brings is shown for the last one only.
    void manyRequestsUnderWay()
    {
        QFETCH(int, requests);
        const support::PolishPage page(pages);
        for (int number = 1; number <= 9; ++number) {
            show(page, number);
            QStringList texts = kValues;
            texts[0] = QString::number(number);
            save(page, texts);
        }
        show(page, 9);
        page.setTexts(kOld);
        const int asked = controller()->received(kGetPolish);
        QSignalSpy sent(Robot::getInstance(), &Robot::commandSent);
        QSignalSpy replies(Robot::getInstance(), &Robot::robot_Polish_Para);
        controller()->setFault(kGetPolish, Fault::Late, 100);
        for (int row = 0; row < requests; ++row)
            page.number()->setCurrentIndex(row);
        QVERIFY(settled(kGetPolish, asked + requests));
        // if they chased each other, at least one would always be under way
        QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(replies.size()), 2 * requests, 20000);
        QCOMPARE(static_cast<int>(sent.size()), 2 * requests); // nothing is asked any more
        QCOMPARE(page.number()->currentIndex(), requests - 1);
        QVERIFY(page.isViewing());
        QStringList expected = kValues;
        expected[0] = QString::number(page.number()->currentIndex() + 1);
        QCOMPARE(page.texts(), expected);
    }

    /// The connection is cut instead of a reply; the link comes back by itself.
    void cut()
    {
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        show(page, 7);
        controller()->setFault(kGetPolish, Fault::Cut);
        page.setTexts(kOld);
        QSignalSpy links(Robot::getInstance(), &Robot::linkChanged);
        page.number()->setCurrentIndex(5);
        QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(links.size()), 2, 20000); // lost and back
        QCOMPARE(page.texts(), kOld);
        QVERIFY(page.isViewing());
        controller()->setFault(kGetPolish, Fault::None);
        QVERIFY(Robot::getInstance()->isConnected());
        show(page, 7);
        show(page, 6);
        QCOMPARE(page.texts(), kValues);
    }

    /// Saving while the controller is away: the page goes on, the operator is told that the link is
    /// off, and nothing is sent later.
    void savingWhileTheLinkIsOff()
    {
        const support::PolishPage page(pages);
        show(page, 6);
        save(page, kValues);
        stop();
        page.pressModify();
        enter(page.field("toolWear"), QStringLiteral("77"));
        support::Journal journal;
        page.pressModify();
        QVERIFY(page.isViewing());
        QCOMPARE(page.text("toolWear"), QStringLiteral("77"));
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QCOMPARE(static_cast<int>(journal.toasts().size()), 1);

        QVERIFY(start(directory.path()));
        QVERIFY(caughtUp());
        QCOMPARE(controller()->received(kSetPolish), 0);
        show(page, 6);
        QCOMPARE(page.texts(), kValues);
    }
};

QTEST_MAIN(TestPolishController)
#include "test_polish_controller.moc"
