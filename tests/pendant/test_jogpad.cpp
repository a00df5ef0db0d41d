// The jog keys of the key column: which there are, what they send, what lets them go, and that a
// simulated arm moves by them while the enabling key is held.

#include "../simulator/link.h"
#include "../support.h"

#include "helpers.h"
#include "jogpad.h"
#include "keycolumn.h"
#include "language.h"
#include "linklamp.h"
#include "morerobot.h"
#include "pendantstyle.h"
#include "useraccounts.h"
#include "veltrixwidgetfoundation.h"

#include <QMenu>
#include <QPushButton>
#include <memory>

class TestJogPad : public QObject {
    Q_OBJECT

    std::unique_ptr<VeltrixWidgetFoundation> window;
    Robot *robot = Robot::getInstance();

    template <typename Widget> Widget *find(const char *name)
    {
        return support::child<Widget>(window.get(), name);
    }
    HoldKey *key(int axis, bool forwards)
    {
        return find<HoldKey>(qPrintable(QStringLiteral("jog%1%2").arg(axis).arg(
            forwards ? QStringLiteral("plus") : QStringLiteral("minus"))));
    }
    static QVariantList jog(int axis, int direction, int coordinate)
    {
        return {QStringLiteral("jog"), axis, direction, coordinate};
    }
    static QVariantList let() { return {QStringLiteral("jog"), 0, 0, 0}; }
    void status(int type)
    {
        robot->receiveMessage(0x0005,
                              "{\"robot\":1,\"kinematicType\":" + QByteArray::number(type) + "}");
    }

private slots:
    void initTestCase() { PendantStyle::apply(*qApp); }
    void init()
    {
        UserAccounts::getInstance()->setHashCost(1, 8192);
        UserAccounts::getInstance()->start(true);
        MoreRobot::g_CurRobot = 1;
        robot->kinematicType = 1;
        window = std::make_unique<VeltrixWidgetFoundation>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    void cleanup()
    {
        robot->disconnectFromController();
        window.reset();
    }

    void theToggleChangesTheKeys()
    {
        QVERIFY(!find<JogPad>("jogPad")->isVisible());
        QVERIFY(!find<QPushButton>("jogCoordinate")->isVisible());
        QVERIFY(find<QPushButton>("modeKey0")->isVisible());
        support::click(window.get(), "jogToggle");
        QVERIFY(find<JogPad>("jogPad")->isVisible());
        QVERIFY(!find<QPushButton>("modeKey0")->isVisible());
        QVERIFY(!find<QPushButton>("robotKey1")->isVisible());
        QVERIFY(find<QPushButton>("servoKey")->isVisible()); // what motion needs stays
        QVERIFY(find<DeadmanKey>("deadmanKey")->isVisible());
        support::click(window.get(), "jogToggle");
        QVERIFY(!find<JogPad>("jogPad")->isVisible());
        QVERIFY(find<QPushButton>("robotKey4")->isVisible());
    }

    void asManyKeysAsAxes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("axes");
        QTest::addColumn<QString>("last");
        QTest::newRow("six") << 1 << 6 << QStringLiteral("C");
        QTest::newRow("four") << 2 << 4 << QStringLiteral("U");
        QTest::newRow("one") << 5 << 1 << QStringLiteral("X");
        QTest::newRow("five") << 6 << 5 << QStringLiteral("B");
        QTest::newRow("four of type 8") << 8 << 4 << QStringLiteral("U");
        QTest::newRow("three") << 11 << 3 << QStringLiteral("Z");
        QTest::newRow("seven") << 12 << 7 << QStringLiteral("Ψ");
    }
    void asManyKeysAsAxes()
    {
        QFETCH(int, type);
        QFETCH(int, axes);
        QFETCH(QString, last);
        status(type);
        support::click(window.get(), "jogToggle");
        const QRect column(QPoint(0, 0), find<KeyColumn>("keyColumn")->size());
        for (const bool cartesian : {false, true}) {
            for (int axis = 1; axis <= JogPad::kMostAxes; ++axis) {
                for (const bool forwards : {false, true}) {
                    HoldKey *one = key(axis, forwards);
                    QCOMPARE(one->isVisible(), axis <= axes);
                    if (axis > axes)
                        continue;
                    QVERIFY(one->height() >= 40);
                    QVERIFY(QFontMetrics(one->font()).horizontalAdvance(one->text())
                            < one->width());
                    const QRect place(one->mapTo(find<KeyColumn>("keyColumn"), QPoint()),
                                      one->size());
                    QVERIFY(column.contains(place));
                }
            }
            QVERIFY(key(axes, true)
                        ->text()
                        .startsWith(cartesian ? last : QStringLiteral("J%1").arg(axes)));
            support::click(window.get(), "jogCoordinate");
        }
    }

    /// The words of all keys of the column stand clear of the keys' edges.
    void wordsFitTheirKeys()
    {
        constexpr int kEdge = 2;
        status(12);
        support::click(window.get(), "jogToggle");
        for (const char *language : {"en", "zh"}) {
            QVERIFY(Language::getInstance()->setCurrent(QString::fromLatin1(language)));
            for (int coordinates = 0; coordinates < 2; ++coordinates) {
                QCoreApplication::processEvents();
                for (const QAbstractButton *one :
                     find<KeyColumn>("keyColumn")->findChildren<QAbstractButton *>()) {
                    if (!one->isVisible())
                        continue;
                    const QSize words = one->fontMetrics().size(0, one->text());
                    QVERIFY2(words.width() <= one->width() - 2 * kEdge
                                 && words.height() <= one->height() - 2 * kEdge,
                             qPrintable(QStringLiteral("%1: %2 of %3")
                                            .arg(one->objectName())
                                            .arg(words.width())
                                            .arg(one->width())));
                }
                support::click(window.get(), "jogCoordinate");
            }
        }
    }

    void aHeldKeyIsSaidAgainAndAgain()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        support::click(window.get(), "jogToggle");
        support::Journal journal;
        // the journal has it once, the link as long as it is held
        QTest::mousePress(key(3, true), Qt::LeftButton);
        QVERIFY(key(3, true)->isHeld());
        robot->jog(3, 1, 0);
        QCOMPARE(journal.of("key"), QVector<QVariantList>{jog(3, 1, 0)});
        QTest::mouseRelease(key(3, true), Qt::LeftButton);
        QCOMPARE(journal.of("key"), (QVector<QVariantList>{jog(3, 1, 0), let()}));
        support::click(window.get(), "jogCoordinate");
        QTest::mousePress(key(1, false), Qt::LeftButton);
        QCOMPARE(journal.of("key").last(), jog(1, -1, 1));
        QTest::mouseRelease(key(1, false), Qt::LeftButton);
        QCOMPARE(journal.of("key").last(), let());
    }
    void oneMotionAtATime()
    {
        support::click(window.get(), "jogToggle");
        support::Journal journal;
        key(1, true)->setHeld(true);
        key(2, false)->setHeld(true);
        QVERIFY(!key(1, true)->isHeld());
        QCOMPARE(journal.of("key").last(), jog(2, -1, 0));
        key(2, false)->setHeld(false);
        QCOMPARE(journal.of("key").last(), let());
    }
    void whatLetsGo_data()
    {
        QTest::addColumn<int>("by");
        QTest::newRow("toggle") << 0;
        QTest::newRow("leave") << 1;
        QTest::newRow("window hides") << 2;
        QTest::newRow("link") << 3;
        QTest::newRow("another type hides the key") << 4;
        QTest::newRow("another robot") << 5;
    }
    void whatLetsGo()
    {
        QFETCH(int, by);
        support::click(window.get(), "jogToggle");
        support::Journal journal;
        HoldKey *held = key(6, true);
        QTest::mousePress(held, Qt::LeftButton);
        QVERIFY(held->isHeld());
        QEvent leave(QEvent::Leave);
        switch (by) {
        case 0:
            find<QPushButton>("jogToggle")->setChecked(false);
            break;
        case 1:
            QCoreApplication::sendEvent(held, &leave);
            break;
        case 2:
            window->hide();
            break;
        case 3:
            emit robot->linkChanged(Robot::Link::Lost);
            break;
        case 4:
            status(2);
            break;
        default:
            MoreRobot::setCurrentRobot(2);
            break;
        }
        QTRY_VERIFY(!held->isHeld());
        QVERIFY(journal.of("key").contains(let()));
        QTest::mouseRelease(held, Qt::LeftButton);
        MoreRobot::setCurrentRobot(1);
    }
    void nothingIsHeldDuringAWait()
    {
        support::click(window.get(), "jogToggle");
        bool held = true;
        QTimer::singleShot(0, this, [&] {
            QTest::mousePress(key(1, true), Qt::LeftButton);
            held = key(1, true)->isHeld();
            QTest::mouseRelease(key(1, true), Qt::LeftButton);
        });
        Delayms(20);
        QVERIFY(!held);
    }

    /// As an operator teaches: servo, enabling key on the keyboard, a jog key.
    void theArmMoves()
    {
        Desk desk;
        QVERIFY(connectTo(desk));
        const auto where = [this] {
            QSignalSpy reply(robot, &Robot::receive_moreRobot_CurPosition);
            robot->sendCommandData(0x2f07, "{\"coord\":1,\"robot\":1}");
            return QTest::qWaitFor([&] { return !reply.isEmpty(); })
                ? reply.first().at(1).toByteArray().split(' ').value(3).toDouble()
                : 0.0;
        };
        support::click(window.get(), "servoKey");
        QTRY_COMPARE(robot->get_servo_state(), 3);
        support::click(window.get(), "jogToggle");
        support::click(window.get(), "jogCoordinate");
        QTest::keyPress(window.get(), Qt::Key_F12);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        const double start = where();
        QTest::mousePress(key(2, true), Qt::LeftButton);
        // longer than the controller goes on without being told again: 600 ms at 100 mm/s
        QTRY_VERIFY(where() > start + 80);
        QTest::mouseRelease(key(2, true), Qt::LeftButton);
        QTRY_VERIFY(!desk.controller->cell().isMoving());
        QTest::mousePress(key(2, false), Qt::LeftButton);
        QTRY_VERIFY(desk.controller->cell().isMoving());
        QTest::keyRelease(window.get(), Qt::Key_F12);
        QTRY_VERIFY(!desk.controller->cell().isMoving());
        QTest::mouseRelease(key(2, false), Qt::LeftButton);
    }

    /// The mark of the simulated controller offers the kinematic types.
    void theMarkOffersTypes()
    {
        auto *mark = find<SimulatedMark>("simulatedMark");
        window->setEmbeddedController(true);
        QTest::mouseClick(mark, Qt::LeftButton);
        QVERIFY(!window->findChild<QMenu *>(QStringLiteral("kinematicMenu"))); // no controller yet
        Desk desk;
        QVERIFY(connectTo(desk));
        QSignalSpy leaves(window.get(), &VeltrixWidgetFoundation::aboutToChangeRobot);
        QTest::mouseClick(mark, Qt::LeftButton);
        auto *menu = window->findChild<QMenu *>(QStringLiteral("kinematicMenu"));
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(int(menu->actions().size()), 12);
        for (int type = 1; type <= 12; ++type) {
            QCOMPARE(menu->actions().at(type - 1)->isChecked(), type == 1);
            QVERIFY(menu->actionGeometry(menu->actions().at(type - 1)).height() >= 40);
        }
        QVERIFY(window->rect().contains(QRect(window->mapFromGlobal(menu->pos()), menu->size())));
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(menu->actions().at(11)).center());
        QTRY_COMPARE(robot->kinematicType, 12);
        QCOMPARE(desk.controller->cell().arm(1).model().type(), 12);
        QCOMPARE(desk.controller->cell().arm(2).model().type(), 1);
        QCOMPARE(int(leaves.count()), 1); // the pages go back to their menu
    }

    /// The last one: whoever locked the pendant has to log in again.
    void theLockScreenLetsGo()
    {
        support::click(window.get(), "jogToggle");
        HoldKey *held = key(6, true);
        QTest::mousePress(held, Qt::LeftButton);
        QVERIFY(held->isHeld());
        QString error;
        QVERIFY(UserAccounts::getInstance()->add(QStringLiteral("boss"), AUTHORITY_ADMINISTRATOR,
                                                 QStringLiteral("secret-1"), &error));
        UserAccounts::getInstance()->lock();
        QVERIFY(!held->isHeld());
        QTest::mousePress(held, Qt::LeftButton);
        QVERIFY(!held->isHeld());
        QTest::mouseRelease(held, Qt::LeftButton);
    }
};

QTEST_MAIN(TestJogPad)
#include "test_jogpad.moc"
