// The position page: reading, marking, saving and driving to the three points of a craft, and what
// it shares with other pages: the running position and the moves.

#include "positionpage.h"

#include "pendantstyle.h"
#include "shell/buttonstyle.h"
#include "shell/pagetable.h"

#include <QTimer>
#include <cmath>
#include <limits>

using support::child;
using support::click;
using support::kGetPosition;
using support::kRunToPoint;
using support::kSetPosition;
using support::Message;
using support::setState;
using support::tellPosition;
using support::values;

namespace {

constexpr wire::reply::Id kReply = wire::reply::robot_pallet_PositionParameter;
constexpr double kPi = 3.14159265358979323846;

const QByteArray kPoints = "{\"enterPos\":[1,2,3,4,5,6,7],\"shiftPos\":[11,12,13,14,15,16,17],"
                           "\"realPos\":[21,22,23,24,25,26,27],"
                           "\"enterPosDeg\":[101,102,103,104,105,106,107],"
                           "\"shiftPosDeg\":[111,112,113,114,115,116,117],"
                           "\"realPosDeg\":[121,122,123,124,125,126,127]}";

QByteArray replyWith(const QByteArray &pallet, const QByteArray &craft = "1", int robot = 1)
{
    return "{\"robot\":" + QByteArray::number(robot) + ",\"craftID\":" + craft
        + ",\"pallet\":" + pallet + "}\n";
}

QStringList texts(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' '));
}

/// "--" in each place.
QStringList untouched(const char *text = "--")
{
    QStringList list;
    for (int i = 0; i < 7; ++i)
        list += QString::fromLatin1(text);
    return list;
}

/// The kinds of journal entries but for what the link says of messages without a controller.
QStringList asked(const support::Journal &journal)
{
    QStringList kinds = journal.kinds();
    kinds.removeAll(QStringLiteral("link"));
    return kinds;
}

QVector<double> numbers(const Json::Value *array)
{
    QVector<double> list;
    if (!array)
        return list;
    for (const Json::Value &item : *array)
        list += item.asDouble();
    return list;
}

bool isClose(const QVector<double> &left, const QVector<double> &right, double within = 1e-9)
{
    if (left.size() != right.size())
        return false;
    for (int i = 0; i < left.size(); ++i) {
        if (!(std::abs(left.at(i) - right.at(i)) <= within))
            return false;
    }
    return true;
}

} // namespace

class TestPosition : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;

    QComboBox *craft() const { return child<QComboBox>(pages, "m_pPalletCraftNum"); }
    bool isOn(const char *name) const
    {
        const auto *widget = child<QWidget>(pages, name);
        return widget->isEnabledTo(widget->parentWidget());
    }

    /// Reads "修改" with everything as it is for looking, or "保存" with everything for marking.
    bool isIn(const QString &word, bool editing) const
    {
        for (const char *name :
             {"positionEntrancePoint", "positionAuxiliaryPoint", "positionJobPoint"}) {
            if (isOn(name) != editing)
                return false;
        }
        for (const char *name : {"returnNavigationBtn3", "positionPageUp", "positionPageDown"}) {
            const auto *button = child<QPushButton>(pages, name);
            if (isOn(name) == editing
                || button->styleSheet() != (editing ? forbiddenButtonSheet() : returnButtonSheet()))
                return false;
        }
        return child<QPushButton>(pages, "positionModifyCancelBtn")->isHidden() != editing
            && child<QPushButton>(pages, "positionModifyBtn")->text() == word;
    }
    bool isViewing() const { return isIn(QStringLiteral("修改"), false); }
    bool isEditing() const { return isIn(QStringLiteral("保存"), true); }

    /// Gives the three points all seven values, whatever the robot has.
    void teach(const QByteArray &position) const
    {
        tellPosition("0 1 " + position);
        pages->palletEntrancePosition();
        pages->palletAuxiliaryPosition();
        pages->palletJobPosition();
    }

    Json::Value lastMessage(const support::Journal &journal, unsigned short id) const
    {
        Json::Value body;
        for (const Message &message : journal.messages()) {
            if (message.id == id)
                body = support::json(message.body);
        }
        return body;
    }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
    }

    /// Each test starts on the page of craft 1 of a six-axis robot, in view state, with its drives
    /// off, no known position and untouched labels.
    void init()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        App::isDeg = false;
        MoreRobot::setCurrentRobot(1);
        robot->kinematicType = 1;
        setState(0, 0);
        tellPosition("0 1 0 0 0 0 0 0 0");
        teach("0 0 0 0 0 0 0");
        craft()->setCurrentIndex(0);
        pages->palletSetPositionWidget();
        for (const QString &point : support::kPoints)
            support::setValues(pages, point, QStringLiteral("--"));
    }

    // ---- the page -------------------------------------------------------------------------------

    void opening()
    {
        pages->setCurrentIndex(page::PalletNavigation);
        craft()->setCurrentIndex(3);
        support::Journal journal;
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        pages->palletSetPositionWidget();
        QCOMPARE(pages->currentIndex(), 26);
        QCOMPARE(pages->currentWidget()->objectName(), QStringLiteral("palletSetPositionpage"));
        QCOMPARE(titles, QList<QVariantList>({{8, 9, 0}}));
        QVERIFY(isViewing());
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGetPosition, "{\"craftID\":4,\"robot\":1}\n"}}));
        for (const char *name : {"moveToEntrancePoint", "moveToAuxiliaryPoint", "moveToJobPoint"})
            QVERIFY2(isOn(name), name);
    }

    void unitOfAngles()
    {
        const auto *unit = child<QLabel>(pages, "positionUnit");
        QVERIFY(unit->text().contains(QLatin1String("rad")));
        App::isDeg = true;
        pages->palletSetPositionWidget();
        QVERIFY(unit->text().contains(QStringLiteral("°")));
        QVERIFY(!unit->text().contains(QLatin1String("rad")));
    }

    void craftStandsOnThePage()
    {
        craft()->setCurrentIndex(6);
        QCOMPARE(child<QLabel>(pages, "technologyNumber_4")->text(), QStringLiteral("工艺号:7"));
    }

    /// Everything is on the page, large enough to touch, and not cut off, with seven values of the
    /// longest kind on each row.
    void onScreen()
    {
        robot->kinematicType = 12;
        pages->initPalletRobotType();
        teach("-9999.999 -9999.999 -9999.999 -359.999 -359.999 -359.999 -359.999");
        pages->modifyPosition();
        QCoreApplication::processEvents();
        const QWidget *stage = pages->widget(26);
        for (const auto *label : stage->findChildren<QLabel *>()) {
            const QRect place(label->mapTo(stage, QPoint()), label->size());
            QVERIFY2(stage->rect().contains(place), qPrintable(label->objectName()));
            QTRY_VERIFY2(label->width() >= label->sizeHint().width(),
                         qPrintable(label->objectName()));
        }
        for (const auto *button : stage->findChildren<QPushButton *>()) {
            const QRect place(button->mapTo(stage, QPoint()), button->size());
            QVERIFY2(stage->rect().contains(place), qPrintable(button->objectName()));
            QVERIFY2(button->height() >= 44, qPrintable(button->objectName()));
        }
        robot->kinematicType = 1;
        pages->initPalletRobotType();
    }

    /// A value that no robot has does not push the page apart.
    void hugeValueOnScreen()
    {
        const auto *button = child<QPushButton>(pages, "moveToJobPoint");
        const QPoint before = button->mapTo(pages, QPoint());
        const QSize size = pages->size();
        teach("1e308 1e308 1e308 1e308 1e308 1e308 1e308");
        QCoreApplication::processEvents();
        QCOMPARE(button->mapTo(pages, QPoint()), before);
        QCOMPARE(pages->size(), size);
    }

    // ---- the running position -------------------------------------------------------------------

    void livePosition()
    {
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")), untouched());
        tellPosition("0 1 1.5 -2.25 3 0.1 0.2 0.3 0.4");
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")),
                 texts("1.500 -2.250 3.000 0.100 0.200 0.300 --"));
        tellPosition("0 0 9 9 9 9 9 9 9"); // joints are not shown here
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")).first(), QStringLiteral("1.500"));
        pages->palletSetPositionWidget(); // entered anew: nothing is known until it is told
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")), untouched());
    }

    void livePositionStandsStillElsewhere()
    {
        tellPosition("0 1 1 2 3 4 5 6 7");
        pages->setCurrentIndex(page::PalletNavigation);
        tellPosition("0 1 9 9 9 9 9 9 9");
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")).first(), QStringLiteral("1.000"));
    }

    void unitOfThePosition()
    {
        for (const bool degrees : {false, true}) {
            App::isDeg = degrees;
            tellPosition("0 1 1 2 3 0.5 0.5 0.5 0.5", "0 1 1 2 3 45 45 45 45");
            pages->palletEntrancePosition();
            QCOMPARE(values(pages, QStringLiteral("EntrancePoint")).at(3),
                     degrees ? QStringLiteral("45.000") : QStringLiteral("0.500"));
        }
    }

    void badPositions_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("marked"); // first value that a mark then takes
        const auto row = [](const char *text, const char *marked) {
            QTest::newRow(text) << QByteArray(text) << QString::fromLatin1(marked);
        };
        row("0 1 8 8 8 8 8 8 8", "8.000"); // as it should be
        row("0 1 9 9 9 9 9 9", "1.000"); // eight parts
        row("0 1 9 9 9 9 9 9 9 9", "1.000"); // ten
        row("", "1.000");
        row("0  1 9 9 9 9 9 9 9", "1.000"); // an empty part is a part
        row("0 1 9 9 9 9 9 9 ", "9.000"); // the same at the end
        row(" 1 9 9 9 9 9 9 9", "9.000"); // the first part is not looked at
        row("0,1,9,9,9,9,9,9,9", "1.000");
        row("0 2 9 9 9 9 9 9 9", "1.000"); // tool coordinates
        row("0 -1 9 9 9 9 9 9 9", "1.000");
        row("0 one 9 9 9 9 9 9 9", "1.000");
        row("0  9 9 9 9 9 9 9", "1.000");
        row("0 1 a b c d e f g", "0.000"); // words count as 0
        row("a b c d e f g h i", "1.000");
        row("0 1 nan nan nan nan nan nan nan", "0.000");
        row("0 1 inf inf inf inf inf inf inf", "0.000");
        row("0 1 -1e999 0 0 0 0 0 0", "0.000");
    }
    void badPositions()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, marked);
        tellPosition("0 1 1 1 1 1 1 1 1");
        tellPosition(text);
        pages->palletJobPosition();
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).first(), marked);
    }

    void longPosition()
    {
        tellPosition("0 1 1 1 1 1 1 1 1");
        tellPosition(QByteArray(3 * 1024 * 1024, ' '));
        emit robot->receive_moreRobot_CurPosition(QByteArray(20 * 1024 * 1024, ' '), QByteArray());
        pages->palletJobPosition();
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).first(), QStringLiteral("1.000"));
    }

    /// A zero byte is no end of the text, in neither version of Qt.
    void zeroByteInAPosition()
    {
        tellPosition("0 1 1 1 1 1 1 1 1");
        for (int place = 0; place < 17; ++place) {
            QByteArray text = "0 1 9 9 9 9 9 9 9";
            text[place] = '\0';
            emit robot->receive_moreRobot_CurPosition(text, text);
        }
        emit robot->receive_moreRobot_CurPosition(QByteArray("0 1 2 3 \0 5 6 7 8", 17),
                                                  QByteArray());
        pages->palletJobPosition();
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).mid(0, 4),
                 texts("2.000 3.000 0.000 5.000"));
    }

    // ---- polling --------------------------------------------------------------------------------

    void polls()
    {
        support::Journal journal;
        QTRY_VERIFY(journal.messages().contains(
            Message{support::kCurrentPosition, "{\"coord\":1,\"robot\":1}\n"}));
        pages->modifyPosition();
        QVERIFY(isEditing());
        journal.clear();
        QTRY_COMPARE(static_cast<int>(journal.messages().size()), 2); // it goes on in edit state
    }

    void pollMessages()
    {
        support::Journal journal;
        pages->getCurposition();
        pages->getCurposition2();
        pages->getCurposition3();
        QCOMPARE(journal.messages(),
                 QVector<Message>({{support::kCurrentPosition, "{\"coord\":1,\"robot\":1}\n"},
                                   {support::kCurrentPosition, "{\"coord\":0,\"robot\":1}\n"},
                                   {support::kCurrentPosition, "{\"coord\":1,\"robot\":1}\n"}}));
    }

    void pollingEnds_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("position") << 26 << true;
        QTest::newRow("spray track") << 54 << true;
        QTest::newRow("tray") << 25 << false;
        QTest::newRow("workpiece") << 27 << false;
        QTest::newRow("wizard") << 34 << false;
        QTest::newRow("easy") << 42 << false;
        QTest::newRow("menu") << 0 << false;
        QTest::newRow("after the track") << 55 << false;
    }
    /// The page that was left polls once more and no more; on the track's page it goes on.
    void pollingEnds()
    {
        QFETCH(int, page);
        QFETCH(bool, goesOn);
        QSignalSpy asked(robot, &Robot::commandSent);
        pages->setCurrentIndex(page);
        QTRY_VERIFY(!asked.isEmpty());
        if (goesOn) {
            QTRY_VERIFY(asked.size() >= 3);
            return;
        }
        // Three periods of a timer that started with the tick: it alone would have asked again.
        QTimer watch;
        QSignalSpy periods(&watch, &QTimer::timeout);
        watch.start(400);
        QTRY_VERIFY(periods.size() >= 3);
        QCOMPARE(static_cast<int>(asked.size()), 1);
    }

    /// Out of sight the polling ends; the page in sight again goes on with it by itself.
    void hiddenPage()
    {
        QSignalSpy asked(robot, &Robot::commandSent);
        pages->hide();
        QTRY_COMPARE(static_cast<int>(asked.size()), 1);
        QTimer watch;
        QSignalSpy periods(&watch, &QTimer::timeout);
        watch.start(400);
        QTRY_VERIFY(periods.size() >= 3);
        QCOMPARE(static_cast<int>(asked.size()), 1);
        pages->show();
        QTRY_VERIFY(asked.size() >= 3);
    }

    /// A page that was left while out of sight does not start again.
    void hiddenAndLeft()
    {
        QSignalSpy asked(robot, &Robot::commandSent);
        pages->hide();
        QTRY_COMPARE(static_cast<int>(asked.size()), 1);
        pages->setCurrentIndex(page::PalletNavigation);
        pages->show();
        QTimer watch;
        QSignalSpy periods(&watch, &QTimer::timeout);
        watch.start(400);
        QTRY_VERIFY(periods.size() >= 3);
        QCOMPARE(static_cast<int>(asked.size()), 1);
    }

    // ---- marking --------------------------------------------------------------------------------

    void marking_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("shown");
        const QStringList six = texts("1.500 2.500 3.500 4.500 5.500 6.500 --");
        const QStringList four = texts("1.500 2.500 3.500 6.500 -- -- --"); // c, on column a
        const QStringList three = texts("1.500 2.500 3.500 -- -- -- --");
        const QStringList shown[] = {untouched(),
                                     six,
                                     four,
                                     four,
                                     four,
                                     untouched(),
                                     texts("1.500 2.500 3.500 4.500 5.500 -- --"),
                                     six,
                                     texts("1.500 2.500 -- -- -- -- --"),
                                     three,
                                     three,
                                     three,
                                     texts("1.500 2.500 3.500 4.500 5.500 6.500 7.500"),
                                     untouched()};
        for (int type = 0; type <= 13; ++type)
            QTest::addRow("type %d", type) << type << shown[type];
    }
    void marking()
    {
        QFETCH(int, type);
        QFETCH(QStringList, shown);
        robot->kinematicType = type;
        pages->modifyPosition();
        const char *buttons[] = {"positionEntrancePoint", "positionAuxiliaryPoint",
                                 "positionJobPoint"};
        for (int i = 0; i < 3; ++i) {
            support::Journal journal;
            tellPosition("0 1 1.5 2.5 3.5 4.5 5.5 6.5 7.5");
            click(pages, buttons[i]);
            for (int k = 0; k < 3; ++k)
                QCOMPARE(values(pages, support::kPoints.at(k)), k <= i ? shown : untouched());
            QVERIFY(journal.messages().isEmpty());
        }
        // stored whole, also by a robot whose values are not shown
        support::Journal journal;
        pages->modifyPosition();
        const Json::Value sent = lastMessage(journal, kSetPosition);
        for (const char *key : {"enterPos", "shiftPos", "realPos"})
            QCOMPARE(numbers(wire::array(sent, "pallet", key)),
                     QVector<double>({1.5, 2.5, 3.5, 4.5, 5.5, 6.5}));
    }

    void markingTakesThreeDecimals()
    {
        tellPosition("0 1 1.23456 -0.0004 1e-9 100000 0.9996 .5 0");
        pages->palletEntrancePosition();
        QCOMPARE(values(pages, QStringLiteral("EntrancePoint")),
                 texts("1.235 -0.000 0.000 100000.000 1.000 0.500 --"));
    }

    void markingBeforeAnyPosition()
    {
        TechnologyWidget fresh(nullptr);
        fresh.palletAuxiliaryPosition();
        QCOMPARE(values(&fresh, QStringLiteral("AuxiliaryPoint")),
                 texts("0.000 0.000 0.000 0.000 0.000 0.000 --"));
    }

    /// No mark takes where the robot was before the link went, or where another robot is.
    void markingWhatNobodyTells()
    {
        const QStringList nothing = texts("0.000 0.000 0.000 0.000 0.000 0.000 --");
        teach("1 2 3 4 5 6 7");
        emit robot->linkChanged(Robot::Link::Lost);
        QCOMPARE(values(pages, QStringLiteral("CurrentPoint")), untouched());
        pages->palletJobPosition();
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).mid(0, 6), nothing.mid(0, 6));

        teach("1 2 3 4 5 6 7");
        MoreRobot::setCurrentRobot(2);
        for (const QString &point : support::kPoints)
            QCOMPARE(values(pages, point), untouched());
        pages->palletJobPosition();
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).mid(0, 6), nothing.mid(0, 6));
    }

    /// No robot is sent to the points of another one: a point that nobody has told is all zeros.
    void movingToAPointWithoutAPlace()
    {
        teach("1 2 3 4 5 6 7");
        MoreRobot::setCurrentRobot(2);
        MoreRobot::setCurrentRobot(1);
        setState(3, 1);
        for (auto move :
             {&TechnologyWidget::doMoveToEntrancePoint, &TechnologyWidget::doMoveToAuxiliaryPoint,
              &TechnologyWidget::doMoveToJobPoint}) {
            support::Journal journal;
            (pages->*move)();
            QCOMPARE(journal.messages().size(), 1);
            QCOMPARE(journal.messages().first().id, kRunToPoint);
            QVERIFY(journal.messages().first().body.contains(
                "\"values\":[1.0,1.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0]"));
            QVERIFY(journal.toasts().isEmpty());
        }
    }

    void marksNothingWhileViewing()
    {
        tellPosition("0 1 1 2 3 4 5 6 7");
        for (const char *name :
             {"positionEntrancePoint", "positionAuxiliaryPoint", "positionJobPoint"})
            click(pages, name);
        for (const QString &point : support::kPoints)
            QCOMPARE(values(pages, point), untouched());
    }

    /// What runs on after a mark does not move the mark.
    void aMarkStays()
    {
        tellPosition("0 1 1 2 3 4 5 6 7");
        pages->palletJobPosition();
        tellPosition("0 1 9 9 9 9 9 9 9");
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).first(), QStringLiteral("1.000"));
        support::Journal journal;
        setState(3, 1);
        pages->doMoveToJobPoint();
        const Json::Value move = lastMessage(journal, kRunToPoint);
        QCOMPARE(numbers(wire::array(move, "position", "values")).at(7), 1.0);
    }

    // ---- reading --------------------------------------------------------------------------------

    void reply_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("shown");
        const QStringList six = texts("1 2 3 4 5 6 --");
        const QStringList four = texts("1 2 3 6 -- -- --");
        const QStringList three = texts("1 2 3 -- -- -- --");
        const QStringList shown[] = {untouched(),
                                     six,
                                     four,
                                     four,
                                     four,
                                     untouched(),
                                     texts("1 2 3 4 5 -- --"),
                                     six,
                                     texts("1 2 -- -- -- -- --"),
                                     three,
                                     three,
                                     three,
                                     texts("1 2 3 4 5 6 7"),
                                     untouched()};
        for (int type = 0; type <= 13; ++type)
            QTest::addRow("type %d", type) << type << shown[type];
    }
    void reply()
    {
        QFETCH(int, type);
        QFETCH(QStringList, shown);
        robot->kinematicType = type;
        for (const bool degrees : {false, true}) {
            App::isDeg = degrees;
            for (const QString &point : support::kPoints)
                support::setValues(pages, point, QStringLiteral("--"));
            support::receive(kReply, replyWith(kPoints));
            for (int i = 0; i < 3; ++i) {
                QStringList expected = shown;
                for (QString &text : expected) {
                    if (text != QLatin1String("--"))
                        text = QString::number(text.toInt() + i * 10 + (degrees ? 100 : 0));
                }
                QCOMPARE(values(pages, support::kPoints.at(i)), expected);
            }
        }
    }

    /// What was read is what a save sends back; here with angles as they come.
    void readAndSaved()
    {
        support::receive(kReply, replyWith(kPoints));
        pages->modifyPosition();
        support::Journal journal;
        pages->modifyPosition();
        QCOMPARE(journal.messages(),
                 QVector<Message>(
                     {{kSetPosition,
                       "{\"craftID\":1.0,\"pallet\":{\"enterPos\":[1.0,2.0,3.0,4.0,5.0,6.0],"
                       "\"realPos\":[21.0,22.0,23.0,24.0,25.0,26.0],"
                       "\"shiftPos\":[11.0,12.0,13.0,14.0,15.0,16.0]},\"robot\":1}\n"}}));
    }

    void replyFormat()
    {
        support::receive(
            kReply,
            replyWith("{\"enterPos\":[1234567.8,0.000012345678,-1.23456789,0,1e300,-0.5]}"));
        QCOMPARE(values(pages, QStringLiteral("EntrancePoint")),
                 texts("1.23457e+06 1.23457e-05 -1.23457 0 1e+300 -0.5 --"));
    }

    /// Points, values and the plain or the degree half can be missing: what is not there stays.
    void partialReplies()
    {
        const QStringList old = texts("9.000 9.000 9.000 9.000 9.000 9.000 --");
        const auto check = [&](const char *pallet, const QStringList &enter,
                               const QStringList &shift, const QStringList &real) {
            tellPosition("0 1 9 9 9 9 9 9 9");
            teach("9 9 9 9 9 9 9");
            support::receive(kReply, replyWith(pallet));
            return values(pages, support::kPoints.at(0)) == enter
                && values(pages, support::kPoints.at(1)) == shift
                && values(pages, support::kPoints.at(2)) == real;
        };
        const QStringList one = texts("1 2 3 4 5 6 --");
        QVERIFY(check("{}", old, old, old));
        QVERIFY(check("[]", old, old, old));
        QVERIFY(check("null", old, old, old));
        QVERIFY(check("{\"enterPos\":[1,2,3,4,5,6]}", one, old, old));
        QVERIFY(check("{\"shiftPos\":[1,2,3,4,5,6]}", old, one, old));
        QVERIFY(check("{\"realPos\":[1,2,3,4,5,6]}", old, old, one));
        QVERIFY(check("{\"realPosDeg\":[1,2,3,4,5,6]}", old, old, old));
        QVERIFY(check("{\"enterPos\":[]}", old, old, old));
        QVERIFY(check("{\"enterPos\":[1,2]}", texts("1 2 9.000 9.000 9.000 9.000 --"), old, old));
        QVERIFY(check("{\"enterPos\":[1,\"2\",null,[4],{},true,7,8,9]}",
                      texts("1 9.000 9.000 9.000 9.000 9.000 --"), old, old));
        QVERIFY(
            check("{\"enterPos\":5,\"realPos\":{\"0\":1},\"shiftPos\":\"1 2\"}", old, old, old));
    }

    /// The controller keeps six values of a point; the seventh is gone once it was read again.
    void seventhValueIsLost()
    {
        robot->kinematicType = 12;
        teach("1 2 3 4 5 6 7");
        QCOMPARE(values(pages, QStringLiteral("JobPoint")).last(), QStringLiteral("7.000"));
        pages->modifyPosition();
        support::Journal journal;
        pages->modifyPosition();
        const Json::Value sent = lastMessage(journal, kSetPosition);
        const Json::Value *realPos = wire::array(sent, "pallet", "realPos");
        QVERIFY(realPos);
        QCOMPARE(static_cast<int>(realPos->size()), 6);
        support::receive(kReply, wire::writeLine(sent));
        QCOMPARE(values(pages, QStringLiteral("JobPoint")), texts("1 2 3 4 5 6 0"));
    }

    void craftOfAReply_data()
    {
        QTest::addColumn<QByteArray>("number");
        QTest::addColumn<int>("row");
        const auto row = [](const char *number, int index) {
            QTest::newRow(number) << QByteArray(number) << index;
        };
        row("1", 0);
        row("9", 8);
        row("3.9", 2);
        row("0", -1); // as it comes, without a look at the range
        row("-1", -1);
        row("10", -1);
        row("2147483647", -1);
        row("-2147483648", -1);
        row("2147483648", 4); // no number that the page can hold: left alone
        row("null", 4);
        row("\"2\"", 4);
    }
    void craftOfAReply()
    {
        QFETCH(QByteArray, number);
        QFETCH(int, row);
        craft()->setCurrentIndex(4);
        support::receive(kReply, replyWith(kPoints, number));
        QCOMPARE(craft()->currentIndex(), row);
        QCOMPARE(values(pages, QStringLiteral("EntrancePoint")), texts("1 2 3 4 5 6 --"));
    }

    void replyWithoutCraft()
    {
        craft()->setCurrentIndex(4);
        support::receive(kReply, "{\"robot\":1,\"pallet\":" + kPoints + "}");
        QCOMPARE(craft()->currentIndex(), 4);
        QCOMPARE(values(pages, QStringLiteral("JobPoint")), texts("21 22 23 24 25 26 --"));
    }

    /// Another robot's points are pointed out and not shown.
    void anotherRobot()
    {
        for (const char *robotKey : {"\"robot\":2,", "\"robot\":0,", "\"robot\":\"1\",", ""}) {
            support::Journal journal;
            support::receive(
                kReply, "{" + QByteArray(robotKey) + "\"craftID\":5,\"pallet\":" + kPoints + "}");
            QCOMPARE(journal.of("toast"),
                     QVector<QVariantList>(
                         {{QStringLiteral("pallet position parameter error！"), 5000, 1, true}}));
            QCOMPARE(craft()->currentIndex(), 0);
            QCOMPARE(values(pages, QStringLiteral("EntrancePoint")), untouched());
        }
    }

    void unreadableReply()
    {
        support::Journal journal;
        for (const char *body : {"", "{", "[1]", "null", "{\"robot\":1,}"})
            support::receive(kReply, body);
        QCOMPARE(journal.kinds(), QStringList());
    }

    // ---- saving ---------------------------------------------------------------------------------

    void editAndSave()
    {
        support::Journal journal;
        pages->getCurposition(); // a tick of the timer must not disturb
        journal.clear();
        click(pages, "positionModifyBtn");
        QVERIFY(isEditing());
        QVERIFY(journal.messages().isEmpty());
        journal.clear();
        craft()->blockSignals(true);
        craft()->setCurrentIndex(2);
        craft()->blockSignals(false);
        click(pages, "positionModifyBtn");
        QVERIFY(isViewing());
        QCOMPARE(asked(journal), QStringList({QStringLiteral("message"), QStringLiteral("log")}));
        QCOMPARE(journal.messages().first().id, kSetPosition);
        QCOMPARE(journal.of("log").first(), QVariantList({QStringLiteral("设置位置信息"), 1}));
        QVERIFY(journal.messages().first().body.startsWith("{\"craftID\":3.0,"));
    }

    void degreesAreSentAsRadians()
    {
        App::isDeg = true;
        teach("90 90 90 90 -180 45 30");
        pages->modifyPosition();
        support::Journal journal;
        pages->modifyPosition();
        const Json::Value sent = lastMessage(journal, kSetPosition);
        for (const char *key : {"enterPos", "shiftPos", "realPos"})
            QVERIFY(isClose(numbers(wire::array(sent, "pallet", key)),
                            {90, 90, 90, kPi / 2, -kPi, kPi / 4}));
    }

    void onlyFiniteNumbersAreSent()
    {
        teach("inf nan -inf 1e999 x");
        tellPosition("0 1 inf nan -inf 1e999 x  2");
        pages->palletEntrancePosition();
        pages->modifyPosition();
        support::Journal journal;
        pages->modifyPosition();
        const Json::Value sent = lastMessage(journal, kSetPosition);
        QCOMPARE(numbers(wire::array(sent, "pallet", "enterPos")), QVector<double>(6, 0.0));
    }

    void cancel()
    {
        pages->modifyPosition();
        tellPosition("0 1 1 2 3 4 5 6 7");
        pages->palletJobPosition();
        support::Journal journal;
        click(pages, "positionModifyCancelBtn");
        QVERIFY(isViewing());
        QCOMPARE(journal.messages(),
                 QVector<Message>({{kGetPosition, "{\"craftID\":1,\"robot\":1}\n"}}));
        QVERIFY(journal.of("log").isEmpty());
    }

    // ---- moving ---------------------------------------------------------------------------------

    void withoutPower_data()
    {
        QTest::addColumn<int>("servo");
        QTest::addColumn<int>("deadman");
        for (int servo = 0; servo <= 3; ++servo) {
            for (int deadman = 0; deadman <= 1; ++deadman) {
                if (servo != 3 || deadman != 1)
                    QTest::addRow("servo %d, deadman %d", servo, deadman) << servo << deadman;
            }
        }
    }
    void withoutPower()
    {
        QFETCH(int, servo);
        QFETCH(int, deadman);
        setState(servo, deadman);
        for (const char *name : {"moveToEntrancePoint", "moveToAuxiliaryPoint", "moveToJobPoint"}) {
            support::Journal journal;
            click(pages, name);
            QCOMPARE(journal.of("toast"),
                     QVector<QVariantList>({{QStringLiteral("请上电！"), 5000, 1, true}}));
            QVERIFY(journal.messages().isEmpty());
            QVERIFY(journal.of("log").isEmpty());
        }
    }

    void moving()
    {
        setState(3, 1);
        support::receive(kReply, replyWith(kPoints));
        const struct {
            const char *button;
            QVector<double> values;
            const char *log;
        } rows[] = {
            {"moveToEntrancePoint",
             {1, 1, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 0},
             "2014 1 1 1 2 3 4 5 6 0 10 0 20 20"},
            {"moveToAuxiliaryPoint",
             {1, 1, 0, 0, 0, 0, 0, 11, 12, 13, 14, 15, 16, 0},
             "2014 1 1 11 12 13 14 15 16 0 10 0 20 20"},
            {"moveToJobPoint",
             {1, 1, 0, 0, 0, 0, 0, 21, 22, 23, 24, 25, 26, 0},
             "2014 1 1 21 22 23 24 25 26 0 10 0 20 20"},
        };
        for (const auto &row : rows) {
            support::Journal journal;
            click(pages, row.button);
            QCOMPARE(asked(journal),
                     QStringList({QStringLiteral("log"), QStringLiteral("message")}));
            QCOMPARE(journal.of("log").first(), QVariantList({QString::fromLatin1(row.log), 1}));
            const Json::Value move = lastMessage(journal, kRunToPoint);
            QCOMPARE(wire::integer(move, "type"), std::optional<int>(1));
            QCOMPARE(wire::integer(move, "robot"), std::optional<int>(1));
            QCOMPARE(wire::integer(move, "position", "id"), std::optional<int>(0));
            QCOMPARE(wire::text(move, "position", "kind"),
                     std::optional<QString>(QStringLiteral("P")));
            QCOMPARE(numbers(wire::array(move, "position", "values")), row.values);
        }
    }

    void movingInDegrees()
    {
        App::isDeg = true;
        setState(3, 1);
        teach("100 200 300 90 -180 45 30");
        support::Journal journal;
        pages->doMoveToAuxiliaryPoint();
        // d goes out as it stands; the angles with six digits
        QCOMPARE(journal.of("log").first().first().toString(),
                 QStringLiteral("2014 1 1 100 200 300 1.5708 -3.14159 0.785398 30 10 0 20 20"));
        const Json::Value move = lastMessage(journal, kRunToPoint);
        QCOMPARE(
            numbers(wire::array(move, "position", "values")),
            QVector<double>({1, 1, 0, 0, 0, 0, 0, 100, 200, 300, 1.5708, -3.14159, 0.785398, 30}));
    }

    void runToPoint_data()
    {
        QTest::addColumn<QStringList>("values");
        QTest::addColumn<int>("deadman");
        QTest::addColumn<bool>("moves");
        const QStringList seven = texts("1 2 3 4 5 6 7");
        QTest::newRow("seven") << seven << 1 << true;
        QTest::newRow("released") << seven << 0 << false;
        QTest::newRow("six") << texts("1 2 3 4 5 6") << 1 << false;
        QTest::newRow("eight") << texts("1 2 3 4 5 6 7 8") << 1 << false;
        QTest::newRow("fourteen") << seven + seven << 1 << false;
        QTest::newRow("none") << QStringList() << 1 << false;
    }
    void runToPoint()
    {
        QFETCH(QStringList, values);
        QFETCH(int, deadman);
        QFETCH(bool, moves);
        setState(0, deadman); // the servo is not its business
        support::Journal journal;
        pages->runToPoint(values);
        QCOMPARE(static_cast<int>(journal.messages().size()), moves ? 1 : 0);
        QCOMPARE(static_cast<int>(journal.of("log").size()), moves ? 1 : 0);
        QVERIFY(journal.toasts().isEmpty());
        journal.clear();
        pages->runToJointPoint(values);
        QCOMPARE(static_cast<int>(journal.messages().size()), moves ? 1 : 0);
        QVERIFY(journal.of("log").isEmpty());
        QVERIFY(journal.toasts().isEmpty());
        if (moves)
            QCOMPARE(numbers(wire::array(lastMessage(journal, kRunToPoint), "position", "values")),
                     QVector<double>({0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7}));
    }

    void runToPointTakesTextsAsTheyAre()
    {
        setState(3, 1);
        support::Journal journal;
        pages->runToPoint(texts("%1 %2 inf nan x 1e999 ") /* the last is empty */);
        QCOMPARE(journal.of("log").first().first().toString(),
                 QStringLiteral("2014 1 1 %1 %2 inf nan x 1e999  10 0 20 20"));
        QCOMPARE(numbers(wire::array(lastMessage(journal, kRunToPoint), "position", "values")),
                 QVector<double>({1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    }

    void runToPointOfThePointPage_data()
    {
        QTest::addColumn<QString>("axis");
        QTest::addColumn<QVector<double>>("head"); // empty: nothing is sent
        QTest::newRow("joint") << QStringLiteral("J1") << QVector<double>{0, 0};
        QTest::newRow("Cartesian") << QStringLiteral("X") << QVector<double>{1, 1};
        QTest::newRow("tool") << QStringLiteral("TX") << QVector<double>{2, 1};
        QTest::newRow("user") << QStringLiteral("UX") << QVector<double>{3, 1};
        QTest::newRow("other") << QStringLiteral("Y") << QVector<double>{};
    }
    void runToPointOfThePointPage()
    {
        QFETCH(QString, axis);
        QFETCH(QVector<double>, head);
        setState(3, 1);
        pages->setCurrentIndex(page::ProjectPoints);
        child<QLabel>(pages, "xmllabel_Axis1")->setText(axis);
        support::Journal journal;
        pages->runToPoint(texts("1 2 3 4 5 6 7"));
        QCOMPARE(static_cast<int>(journal.of("log").size()), 1);
        const Json::Value move = lastMessage(journal, kRunToPoint);
        if (head.isEmpty())
            QVERIFY(move.isNull());
        else
            QCOMPARE(numbers(wire::array(move, "position", "values")),
                     head + QVector<double>({0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7}));
    }

    // ---- the panel of the point page ------------------------------------------------------------

    void pointPanel()
    {
        pages->setCurrentIndex(page::ProjectPoints);
        QCOMPARE(child<QLabel>(pages, "label_pos1")->text(), QStringLiteral("nan"));
        const struct {
            const char *text;
            const char *coordinate;
            const char *firstAxis;
            const char *value;
        } rows[] = {
            {"0 0 1 2 3 4 5 6 7", "关节", "J1", "1.000"},
            {"0 1 2 2 3 4 5 6 7", "直角", "X", "2.000"},
            {"0 2 3 2 3 4 5 6 7", "工具", "TX", "3.000"},
            {"0 3 4 2 3 4 5 6 7", "用户", "UX", "4.000"},
            {"0 4 5 2 3 4 5 6 7", "用户", "UX", "4.000"}, // of no kind
        };
        for (const auto &row : rows) {
            tellPosition(row.text);
            QCOMPARE(child<QLabel>(pages, "m_pLabelcoord")->text(),
                     QString::fromUtf8(row.coordinate));
            QCOMPARE(child<QLabel>(pages, "xmllabel_Axis1")->text(),
                     QString::fromLatin1(row.firstAxis));
            QCOMPARE(child<QLabel>(pages, "label_CPos1")->text(), QString::fromLatin1(row.value));
            QCOMPARE(child<QLabel>(pages, "label_CPos7")->text(), QStringLiteral("7.000"));
        }
        QCOMPARE(child<QLabel>(pages, "label_pos1")->text(), QStringLiteral("nan"));
        pages->setCurrentIndex(page::PalletPosition);
        tellPosition("0 1 9 9 9 9 9 9 9");
        QCOMPARE(child<QLabel>(pages, "label_CPos1")->text(), QStringLiteral("4.000"));
    }
};

QTEST_MAIN(TestPosition)
#include "test_position.moc"
