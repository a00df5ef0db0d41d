// The tray page: the user coordinate of the tray, its three points, the calculation.

#include "course.h"

#include "shell/buttonstyle.h"

using support::box;
using support::child;
using support::click;
using support::Course;
using support::isEnabled;
using support::isShown;
using support::labelText;
using support::receive;

namespace {

constexpr wire::reply::Id kReply = wire::reply::robot_pallet_TrayParameter;

const QString kGet = QStringLiteral("0x4205 {\"craftID\":1,\"robot\":1}");
const char *const kPoints[] = {"taryOrigin", "taryXdirection", "taryYdirection"};
const char kColumns[] = "xyzabc";
const char *const kEdited[] = {"taryCoordinateCombox", "taryOriginBtn", "taryXdirectionBtn",
                               "taryYdirectionBtn", "taryCalculationBtn"};
const char *const kLocked[] = {"returnNavigationBtn2", "trayPageUp", "trayPageDown"};

QByteArray replyWith(const QByteArray &pallet, int craft = 1, int robot = 1)
{
    return "{\"robot\":" + QByteArray::number(robot) + ",\"craftID\":" + QByteArray::number(craft)
        + ",\"pallet\":" + pallet + "}";
}

/// The three points of a user coordinate are asked for.
QStringList asked(int user)
{
    QStringList lines(QStringLiteral("title 8"));
    for (const char *point : {"O", "X", "Y"})
        lines += QStringLiteral("0x3c08 {\"inquire\":\"%1\",\"userNum\":%2}")
                     .arg(QLatin1String(point))
                     .arg(user);
    return lines;
}

void tellPoint(const char *inquire, const QByteArray &values, int user = 1)
{
    receive(wire::reply::robot_usercoords_reply,
            "{\"userNum\":" + QByteArray::number(user) + ",\"inquire\":\"" + inquire
                + "\",\"pos\":[" + values + "]}");
}

void tellResult(const char *result)
{
    receive(wire::reply::robot_user_suc, "{\"result\":" + QByteArray(result) + "}");
}

} // namespace

class TestTray : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    QComboBox *user() const { return box(pages, QStringLiteral("taryCoordinateCombox")); }
    QPushButton *modify() const { return child<QPushButton>(pages, "trayModifyBtn"); }
    QStringList values(const char *point) const
    {
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts += labelText(pages, QLatin1String(point) + QLatin1Char(kColumns[i]));
        return texts;
    }
    void setValues(const char *point, const QStringList &texts) const
    {
        for (int i = 0; i < 6; ++i)
            child<QLabel>(pages, QLatin1String(point) + QLatin1Char(kColumns[i]))
                ->setText(texts.at(i));
    }
    bool isIn(const QString &word, bool editing) const
    {
        for (const char *name : kEdited) {
            if (isEnabled(pages, QString::fromLatin1(name)) != editing)
                return false;
        }
        for (const char *name : kLocked) {
            const auto *button = child<QPushButton>(pages, name);
            if (button->isEnabledTo(pages) == editing
                || button->styleSheet() != (editing ? forbiddenButtonSheet() : returnButtonSheet()))
                return false;
        }
        return modify()->text() == word
            && isShown(pages, QStringLiteral("trayModifyCancelBtn")) == editing;
    }
    bool isViewing() const { return isIn(QStringLiteral("修改"), false); }
    bool isEditing() const { return isIn(QStringLiteral("保存"), true); }

private slots:
    void initTestCase()
    {
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
    }

    /// Each test starts on the page in view state, with user coordinate 1 and "-" for all values.
    void init()
    {
        support::startPallet(pages);
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 0);
        pages->palletSetTrayWidget();
        for (const char *point : kPoints)
            setValues(point, QStringLiteral("-,-,-,-,-,-").split(QLatin1Char(',')));
    }
    void cleanup() { PromptWidget::getInstance()->close(); }

    void form()
    {
        TechnologyWidget fresh(nullptr);
        const QWidget *stage = fresh.widget(25);
        QCOMPARE(stage->objectName(), QStringLiteral("palletSetTraypage"));
        QVERIFY(stage->isAncestorOf(child<QLabel>(&fresh, "technologyNumber_3")));
        const QComboBox *users = box(&fresh, QStringLiteral("taryCoordinateCombox"));
        QCOMPARE(users->count(), 9);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(users->itemText(i), QString::number(i + 1));
        for (const char *name : kEdited) {
            const auto *widget = child<QWidget>(&fresh, name);
            QVERIFY2(stage->isAncestorOf(widget), name);
            QVERIFY2(widget->minimumHeight() >= 44, name);
            QVERIFY2(!widget->isEnabled(), name);
        }
        for (const char *point : kPoints) {
            for (int i = 0; i < 6; ++i)
                QVERIFY(stage->isAncestorOf(
                    child<QLabel>(&fresh, QLatin1String(point) + QLatin1Char(kColumns[i]))));
        }
        QVERIFY(child<QPushButton>(&fresh, "trayModifyCancelBtn")->isHidden());
    }

    void fieldsOnScreen()
    {
        QCoreApplication::processEvents();
        const QWidget *stage = pages->widget(25);
        for (const char *point : kPoints) {
            int last = -1;
            for (int i = 0; i < 6; ++i) {
                const auto *value =
                    child<QLabel>(pages, QLatin1String(point) + QLatin1Char(kColumns[i]));
                const QRect place(value->mapTo(stage, QPoint()), value->size());
                QVERIFY(stage->rect().contains(place));
                QVERIFY(place.left() > last);
                last = place.right();
                QVERIFY(value->fontMetrics().horizontalAdvance(QStringLiteral("-0000"))
                        < place.width());
            }
            const auto *mark =
                child<QPushButton>(pages, QLatin1String(point) + QLatin1String("Btn"));
            QVERIFY(mark->mapTo(stage, QPoint()).x() > last);
        }
    }

    // ---- showing --------------------------------------------------------------------------------

    void waysToThePage_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("navigation") << "setTrayBtn";
        QTest::newRow("page down") << "tongsPageDown";
    }
    void waysToThePage()
    {
        QFETCH(QString, button);
        pages->palletSetTongsWidget();
        pages->setCurrentIndex(23);
        Course course(pages);
        child<QPushButton>(pages, button)->click();
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 8"), QStringLiteral("page 25"), kGet}));
        QVERIFY(isViewing());
    }

    void waysFromThePage()
    {
        Course course(pages);
        click(pages, "trayPageUp");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 7"), QStringLiteral("page 24"),
                              QStringLiteral("0x4202 {\"craftID\":1,\"robot\":1}")}));
        pages->palletSetTrayWidget();
        course.clear();
        click(pages, "returnNavigationBtn2");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 6"), QStringLiteral("page 23")}));
    }

    void unitOfTheAngles()
    {
        QCOMPARE(labelText(pages, QStringLiteral("trayUnitNote")), QStringLiteral("mm / °"));
        App::isDeg = false;
        pages->palletSetTrayWidget();
        QCOMPARE(labelText(pages, QStringLiteral("trayUnitNote")), QStringLiteral("mm / rad"));
    }

    // ---- replies --------------------------------------------------------------------------------

    void replies_data()
    {
        QTest::addColumn<QByteArray>("pallet");
        QTest::addColumn<int>("number");
        QTest::newRow("9") << QByteArray("{\"userNum\":9}") << 9;
        QTest::newRow("10") << QByteArray("{\"userNum\":10}") << 4;
        QTest::newRow("1") << QByteArray("{\"userNum\":1}") << 1;
        QTest::newRow("0") << QByteArray("{\"userNum\":0}") << 0;
        QTest::newRow("-1") << QByteArray("{\"userNum\":-1}") << 0;
        QTest::newRow("real") << QByteArray("{\"userNum\":7.0}") << 7;
        QTest::newRow("2^31") << QByteArray("{\"userNum\":2147483648}") << 4;
        QTest::newRow("text") << QByteArray("{\"userNum\":\"7\"}") << 4;
        QTest::newRow("none") << QByteArray("{}") << 4;
        QTest::newRow("no package") << QByteArray("7") << 4;
    }
    /// Whatever it holds, the three points are read.
    void replies()
    {
        QFETCH(QByteArray, pallet);
        QFETCH(int, number);
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 3);
        Course course(pages);
        receive(kReply, replyWith(pallet));
        QCOMPARE(user()->currentIndex(), number - 1);
        QCOMPARE(course.lines().mid(course.lines().size() - 4), asked(number));
        // a row that changed has asked on its own before
        QCOMPARE(course.lines().filter(QStringLiteral("0x3c08")).size(), number == 4 ? 3 : 6);
    }

    void replyOfAnotherRobot()
    {
        Course course(pages);
        receive(kReply, replyWith("{\"userNum\":1}", 2, 3));
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("toast 5000 1 pallet tray parameter error!"),
                              QStringLiteral("0x4222 {\"craftID\":2,\"robot\":1}")})
                     + asked(1));
        QCOMPARE(support::row(pages, "m_pPalletCraftNum"), 1);
    }

    void unreadableReply()
    {
        Course course(pages);
        for (const char *text : {"", "{", "[]", "{\"robot\":1,\"pallet\":"})
            receive(kReply, text);
        QCOMPARE(course.lines(), QStringList());
    }

    void craftAboveTheCount()
    {
        receive(kReply, replyWith("{\"userNum\":2}", 10));
        QCOMPARE(support::row(pages, "m_pPalletCraftNum"), 0);
        QCOMPARE(user()->currentIndex(), 1);
    }

    // ---- points ---------------------------------------------------------------------------------

    void valuesByRobot_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("shown");
        for (const int kind : {1, 7, 5, 6, 12, 0, 13})
            QTest::addRow("%d", kind) << kind << 6;
        for (const int kind : {2, 3, 4, 8})
            QTest::addRow("%d", kind) << kind << 4;
        for (const int kind : {9, 10, 11})
            QTest::addRow("%d", kind) << kind << 3;
    }
    void valuesByRobot()
    {
        QFETCH(int, kind);
        QFETCH(int, shown);
        Robot::getInstance()->kinematicType = kind;
        const QStringList given = QStringLiteral("1,2,3,4,5,6").split(QLatin1Char(','));
        const QStringList dashes = QStringLiteral("-,-,-,-,-,-").split(QLatin1Char(','));
        const char *const letters[] = {"O", "X", "Y"};
        for (int i = 0; i < 3; ++i) {
            tellPoint(letters[i], "1,2,3,4,5,6", 1 + i);
            QCOMPARE(values(kPoints[i]), given.mid(0, shown) + dashes.mid(shown));
            for (int k = i + 1; k < 3; ++k)
                QCOMPARE(values(kPoints[k]), dashes);
        }
    }

    /// The points of another robot are not these, neither to be seen nor to be calculated with.
    void pointsOfTheRobotBefore()
    {
        for (const char *point : {"O", "X", "Y"})
            tellPoint(point, "1,2,3,4,5,6");
        MoreRobot::setCurrentRobot(2);
        for (const char *point : kPoints)
            QCOMPARE(values(point).join(QString()), QString());
    }

    void pointsOfOtherNames()
    {
        const QStringList dashes = QStringLiteral("-,-,-,-,-,-").split(QLatin1Char(','));
        for (const char *inquire : {"", "o", "Z", "Calibration", "OX", " O"})
            tellPoint(inquire, "1,2,3,4,5,6");
        for (const char *point : kPoints)
            QCOMPARE(values(point), dashes);
    }

    void shortAndLongPoints_data()
    {
        QTest::addColumn<QByteArray>("given");
        QTest::addColumn<QString>("expected");
        QTest::newRow("0") << QByteArray("") << "-,-,-,-,-,-";
        QTest::newRow("3") << QByteArray("1,2,3") << "1,2,3,-,-,-";
        QTest::newRow("4") << QByteArray("1,2,3,4") << "1,2,3,4,-,-";
        QTest::newRow("6") << QByteArray("1,2,3,4,5,6") << "1,2,3,4,5,6";
        QTest::newRow("7") << QByteArray("1,2,3,4,5,6,7") << "1,2,3,4,5,6";
        QTest::newRow("cut") << QByteArray("1234.567,-1234.567,12.3456789,0.1234567,-0.00001,1e6")
                             << "1234.,-1234,12.34,0.123,-1e-0,1e+06";
        QTest::newRow("whole") << QByteArray("12345,-1234,100000,0,-0.5,1e300")
                               << "12345,-1234,10000,0,-0.5,1e+30";
    }
    void shortAndLongPoints()
    {
        QFETCH(QByteArray, given);
        QFETCH(QString, expected);
        tellPoint("X", given);
        QCOMPARE(values("taryXdirection").join(QLatin1Char(',')), expected);
    }

    void marking_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("letter");
        QTest::newRow("origin") << "taryOriginBtn"
                                << "O";
        QTest::newRow("X") << "taryXdirectionBtn"
                           << "X";
        QTest::newRow("Y") << "taryYdirectionBtn"
                           << "Y";
    }
    void marking()
    {
        QFETCH(QString, button);
        QFETCH(QString, letter);
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 5);
        Course course(pages);
        click(pages, button.toLatin1().constData()); // locked in view state
        QCOMPARE(course.lines(), QStringList());
        click(pages, "trayModifyBtn");
        click(pages, button.toLatin1().constData());
        QCOMPARE(
            course.lines(),
            QStringList(QStringLiteral("0x3c02 {\"inquire\":\"%1\",\"userNum\":6}").arg(letter))
                + asked(6));
        QVERIFY(isEditing());
    }

    // ---- calculating ----------------------------------------------------------------------------

    void calculations_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("degrees");
        QTest::addColumn<QString>("origin");
        const QString fixed = QStringLiteral("[1.5,-2.0,1234.0,3.1415000000000002,0.0,%1]");
        for (const int kind : {1, 7})
            QTest::addRow("%d degrees", kind)
                << kind << true
                << "[1.5,-2.0,1234.0,1.5707963267948966,-3.1415926535897931,0.52359877559829882]";
        QTest::newRow("1 radians") << 1 << false << "[1.5,-2.0,1234.0,90.0,-180.0,30.0]";
        for (const int kind : {2, 5, 6, 8, 9, 12})
            QTest::addRow("%d degrees", kind)
                << kind << true << fixed.arg(QStringLiteral("0.52359877559829882"));
        QTest::newRow("2 radians") << 2 << false << fixed.arg(QStringLiteral("30.0"));
    }
    void calculations()
    {
        QFETCH(int, kind);
        QFETCH(bool, degrees);
        QFETCH(QString, origin);
        Robot::getInstance()->kinematicType = kind;
        App::isDeg = degrees;
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 2);
        setValues("taryOrigin", QStringLiteral("1.5,-2,1234.,90,-180,30").split(QLatin1Char(',')));
        setValues("taryXdirection", QStringLiteral("10,0,0,0,0,0").split(QLatin1Char(',')));
        setValues("taryYdirection", QStringLiteral(",x,7,0,0,").split(QLatin1Char(',')));
        const QString turn =
            kind == 1 || kind == 7 ? QStringLiteral("0.0") : QStringLiteral("3.1415000000000002");
        click(pages, "trayModifyBtn");
        Course course(pages);
        click(pages, "taryCalculationBtn");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("0x3c01 {\"cacl\":[%1,[10.0,0.0,0.0,%2,0.0,0.0],"
                                             "[0.0,0.0,7.0,%2,0.0,0.0]],\"userNum\":3}")
                                  .arg(origin, turn),
                              QStringLiteral("delay 500")}));
        QVERIFY(isEditing());
    }

    void calculationDone()
    {
        Course course(pages);
        tellResult("1");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("safetySwitch 0"), QStringLiteral("prompt 7"),
                              QStringLiteral("log 接收用户坐标标定成功")}));
        QCOMPARE(PromptWidget::getInstance()->text(), QString());
        click(PromptWidget::getInstance(), "promptConfirm");
        QCOMPARE(PromptWidget::getInstance()->currentWidget(), PromptWidget::PROMPT_NONE);
    }

    void calculationFailed()
    {
        Course course(pages);
        tellResult("0");
        QCOMPARE(
            course.lines(),
            QStringList({QStringLiteral("safetySwitch 0"),
                         QStringLiteral("toast 3000 4 计算失败，请重新标定!"),
                         QStringLiteral("prompt 8"), QStringLiteral("log 接收用户坐标标定失败")}));
    }

    void otherResults()
    {
        Course course(pages);
        for (const char *result : {"2", "-1", "2147483647"})
            tellResult(result);
        QCOMPARE(course.lines(), QStringList());
    }

    // ---- changing and saving --------------------------------------------------------------------

    void changingTheNumber()
    {
        click(pages, "trayModifyBtn");
        Course course(pages);
        QTest::keyClick(user(), Qt::Key_Down);
        QCOMPARE(course.lines(), asked(2));
        QVERIFY(isEditing());
    }

    void startingAnEdit()
    {
        Course course(pages);
        click(pages, "trayModifyBtn");
        QVERIFY(isEditing());
        for (const char *name : kLocked)
            click(pages, name);
        QCOMPARE(course.lines(), QStringList());
    }

    void cancelling()
    {
        click(pages, "trayModifyBtn");
        Course course(pages);
        click(pages, "trayModifyCancelBtn");
        QVERIFY(isViewing());
        QCOMPARE(course.lines(), QStringList({QStringLiteral("title 8"), kGet}));
    }

    /// The save makes the coordinate the current one first, and tells the main window.
    void saving()
    {
        support::box(pages, QStringLiteral("m_pPalletCraftNum"))->setCurrentIndex(2);
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 6);
        click(pages, "trayModifyBtn");
        QString told;
        QObject context;
        connect(pages, &TechnologyWidget::showPalletCurrentUserCoords, &context,
                [&] { told = pages->getCurrentCoordsUser(); });
        Course course(pages);
        click(pages, "trayModifyBtn");
        QCOMPARE(
            course.lines(),
            QStringList({QStringLiteral("0x3c08 {\"inquire\":\"Calibration\",\"userNum\":7}"),
                         QStringLiteral("0x3c0a {\"robot\":1,\"userNum\":7}"),
                         QStringLiteral("log 发送切换用户坐标 userNum=7"),
                         QStringLiteral("toast 5000 4 用户坐标切换成功！当前为：7"),
                         QStringLiteral("coordinates"),
                         QStringLiteral(
                             "0x4204 {\"craftID\":3.0,\"pallet\":{\"userNum\":7.0},\"robot\":1}"),
                         QStringLiteral("log 设置托盘信息")}));
        QCOMPARE(told, QStringLiteral("7"));
        QCOMPARE(pages->getCurrentCoordsUser(), QStringLiteral("7"));
        QVERIFY(isViewing());
    }

    void roundTrip()
    {
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 6);
        click(pages, "trayModifyBtn");
        support::Journal journal;
        click(pages, "trayModifyBtn");
        const QByteArray sent = journal.messages().last().body;
        support::setRowQuietly(pages, QStringLiteral("taryCoordinateCombox"), 0);
        receive(kReply, sent);
        QCOMPARE(user()->currentIndex(), 6);
    }
};

QTEST_MAIN(TestTray)
#include "test_tray.moc"
