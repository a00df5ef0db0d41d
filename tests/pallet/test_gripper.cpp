// The gripper page: how many grippers there are, which tool each of them is, and its frame.

#include "course.h"

#include "shell/buttonstyle.h"

#include <QGroupBox>

using support::box;
using support::child;
using support::click;
using support::Course;
using support::isEnabled;
using support::isShown;
using support::labelText;
using support::receive;

namespace {

constexpr wire::reply::Id kReply = wire::reply::robot_pallet_ToolParameter;

const QString kGet = QStringLiteral("0x4202 {\"craftID\":1,\"robot\":1}");
const QStringList kShown = {QStringLiteral("title 7"), QStringLiteral("page 24")};
const char kColumns[] = "xyzABC";

QByteArray replyWith(const QByteArray &pallet, int craft = 1, int robot = 1)
{
    return "{\"robot\":" + QByteArray::number(robot) + ",\"craftID\":" + QByteArray::number(craft)
        + ",\"pallet\":" + pallet + "}";
}

/// The frames of these tools are asked for.
QStringList asked(const QVector<int> &tools)
{
    QStringList lines(QStringLiteral("title 7"));
    for (const int tool : tools)
        lines += QStringLiteral("0x3806 {\"toolNum\":%1}").arg(tool);
    return lines;
}

void tellFrame(int tool, const QByteArray &frame)
{
    receive(wire::reply::robot_tool_count_check,
            "{\"toolNum\":" + QByteArray::number(tool) + ",\"tool\":\"" + frame
                + "\",\"toolDeg\":\"9 9 9 9 9 9\"}");
}

} // namespace

class TestGripper : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    QString tool(int gripper, const QString &tail = QString()) const
    {
        return QStringLiteral("Tongtoolnumber%1").arg(gripper) + tail;
    }
    QComboBox *count() const { return box(pages, QStringLiteral("TongsnumbercomboBox")); }
    QVector<int> rows() const
    {
        QVector<int> list;
        for (int i = 1; i <= 4; ++i)
            list += box(pages, tool(i))->currentIndex();
        return list;
    }
    void setRows(int grippers, const QVector<int> &rows) const
    {
        support::setRowQuietly(pages, QStringLiteral("TongsnumbercomboBox"), grippers - 1);
        for (int i = 0; i < 4; ++i)
            support::setRowQuietly(pages, tool(i + 1), rows.at(i));
    }
    QStringList frame(int gripper, const QString &tail = QString()) const
    {
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts += labelText(
                pages,
                QStringLiteral("tool%1%2%3").arg(gripper).arg(QLatin1Char(kColumns[i])).arg(tail));
        return texts;
    }
    QString groups() const
    {
        QString shown;
        for (int i = 1; i <= 4; ++i) {
            if (isShown(pages, QStringLiteral("Tong%1").arg(i)))
                shown += QString::number(i);
        }
        return shown;
    }
    QPushButton *modify() const { return child<QPushButton>(pages, "tongsModifyBtn"); }

    bool isIn(const QString &word, bool editing) const
    {
        for (int i = 1; i <= 4; ++i) {
            if (isEnabled(pages, tool(i)) != editing)
                return false;
        }
        for (const char *name : {"returnNavigationBtn1", "tongsPageDown"}) {
            const auto *button = child<QPushButton>(pages, name);
            if (button->isEnabledTo(pages) == editing
                || button->styleSheet() != (editing ? forbiddenButtonSheet() : returnButtonSheet()))
                return false;
        }
        return count()->isEnabledTo(pages) == editing && modify()->text() == word
            && isShown(pages, QStringLiteral("tongsModifyCancelBtn")) == editing;
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

    /// Each test starts on the page in view state, with two grippers, tools 1 to 4.
    void init()
    {
        support::startPallet(pages);
        setRows(2, {0, 1, 2, 3});
        pages->palletSetTongsWidget();
        for (int i = 1; i <= 9; ++i)
            tellFrame(i, QByteArray());
    }

    void form()
    {
        TechnologyWidget fresh(nullptr);
        const QWidget *stage = fresh.widget(24);
        QCOMPARE(stage->objectName(), QStringLiteral("palletSetTongspage"));
        QVERIFY(stage->isAncestorOf(child<QLabel>(&fresh, "technologyNumber_2")));
        QCOMPARE(box(&fresh, QStringLiteral("TongsnumbercomboBox"))->count(), 4);
        for (int i = 1; i <= 4; ++i) {
            QCOMPARE(box(&fresh, QStringLiteral("TongsnumbercomboBox"))->itemText(i - 1),
                     QString::number(i));
            const auto *group = child<QGroupBox>(&fresh, QStringLiteral("Tong%1").arg(i));
            const QComboBox *tools = box(&fresh, tool(i));
            QVERIFY(stage->isAncestorOf(group));
            QVERIFY(group->isAncestorOf(tools));
            QVERIFY(tools->minimumHeight() >= 40);
            QCOMPARE(tools->count(), 9);
            for (int k = 0; k < 9; ++k)
                QCOMPARE(tools->itemText(k), QString::number(k + 1));
            for (int k = 0; k < 6; ++k)
                QVERIFY(group->isAncestorOf(child<QLabel>(
                    &fresh, QStringLiteral("tool%1%2").arg(i).arg(QLatin1Char(kColumns[k])))));
        }
        QCOMPARE(child<QPushButton>(&fresh, "tongsModifyBtn")->text(), QStringLiteral("修改"));
        QVERIFY(child<QPushButton>(&fresh, "tongsModifyCancelBtn")->isHidden());
        for (const char *name : {"TongsnumbercomboBox", "Tongtoolnumber1", "Tongtoolnumber4"})
            QVERIFY2(!child<QWidget>(&fresh, name)->isEnabled(), name);
    }

    /// With four grippers everything has its place on the page, below one another.
    void fieldsOnScreen()
    {
        receive(kReply, replyWith("{\"gripperNum\":4}"));
        QCoreApplication::processEvents();
        const QWidget *stage = pages->widget(24);
        int last = -1;
        for (int i = 1; i <= 4; ++i) {
            const auto *group = child<QWidget>(pages, QStringLiteral("Tong%1").arg(i));
            QVERIFY(stage->rect().contains(group->geometry()));
            QVERIFY(group->y() > last);
            last = group->geometry().bottom();
            for (int k = 0; k < 6; ++k) {
                const auto *value = child<QLabel>(
                    pages, QStringLiteral("tool%1%2").arg(i).arg(QLatin1Char(kColumns[k])));
                const auto *head = child<QLabel>(
                    pages, QStringLiteral("toolHead%1").arg(QLatin1Char(kColumns[k])));
                QVERIFY(group->rect().contains(value->geometry()));
                const int apart = value->mapTo(stage, value->rect().center()).x()
                    - head->mapTo(stage, head->rect().center()).x();
                QVERIFY(qAbs(apart) < 10);
            }
        }
        QVERIFY(modify()->mapTo(stage, QPoint()).y() > last);
    }

    // ---- showing --------------------------------------------------------------------------------

    void waysToThePage_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("from");
        QTest::newRow("start") << "palletNavigationStart" << 23;
        QTest::newRow("navigation") << "setTongsBtn" << 23;
        QTest::newRow("page up") << "trayPageUp" << 25;
    }
    void waysToThePage()
    {
        QFETCH(QString, button);
        QFETCH(int, from);
        if (from == 25)
            pages->palletSetTrayWidget();
        pages->setCurrentIndex(from);
        Course course(pages);
        click(pages, button.toLatin1().constData());
        QCOMPARE(course.lines(), kShown + QStringList(kGet));
        QVERIFY(isViewing());
    }

    void waysFromThePage()
    {
        Course course(pages);
        click(pages, "tongsPageDown");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 8"), QStringLiteral("page 25"),
                              QStringLiteral("0x4205 {\"craftID\":1,\"robot\":1}")}));
        pages->palletSetTongsWidget();
        course.clear();
        click(pages, "returnNavigationBtn1");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 6"), QStringLiteral("page 23")}));
    }

    // ---- replies --------------------------------------------------------------------------------

    /// Two grippers: the other two keep their tools, and are asked for all the same.
    void twoGrippers()
    {
        setRows(1, {0, 1, 2, 3});
        Course course(pages);
        receive(kReply, replyWith("{\"gripperNum\":2,\"gripper\":[5,6,7,8]}"));
        QCOMPARE(count()->currentIndex(), 1);
        QCOMPARE(rows(), QVector<int>({4, 5, 2, 3}));
        QCOMPARE(groups(), QStringLiteral("12"));
        // each row that changes asks, and the reply does once more
        QCOMPARE(course.lines(),
                 asked({1, 2, 3, 4}) + asked({5, 2, 3, 4}) + asked({5, 6, 3, 4})
                     + asked({5, 6, 3, 4}));
    }

    void nothingNew()
    {
        Course course(pages);
        receive(kReply, replyWith("{\"gripperNum\":2,\"gripper\":[1,2]}"));
        QCOMPARE(course.lines(), asked({1, 2, 3, 4}));
        QCOMPARE(rows(), QVector<int>({0, 1, 2, 3}));
    }

    void partialReplies_data()
    {
        QTest::addColumn<QByteArray>("pallet");
        QTest::addColumn<int>("grippers");
        QTest::addColumn<QVector<int>>("expected");
        const QVector<int> same = {0, 1, 2, 3};
        QTest::newRow("empty") << QByteArray("{}") << 2 << same;
        QTest::newRow("null") << QByteArray("null") << 2 << same;
        QTest::newRow("count alone") << QByteArray("{\"gripperNum\":4}") << 4 << same;
        QTest::newRow("real count") << QByteArray("{\"gripperNum\":3.0}") << 3 << same;
        // a count that the page does not have leaves the page's; the reply's says which tools count
        QTest::newRow("count 5") << QByteArray("{\"gripperNum\":5,\"gripper\":[9,9,9,9,9]}") << 2
                                 << QVector<int>({8, 8, 8, 8});
        QTest::newRow("count 0") << QByteArray("{\"gripperNum\":0,\"gripper\":[9,9]}") << 0 << same;
        QTest::newRow("count below 0")
            << QByteArray("{\"gripperNum\":-7,\"gripper\":[9,9]}") << 0 << same;
        QTest::newRow("count as text") << QByteArray("{\"gripperNum\":\"4\",\"gripper\":[9]}") << 2
                                       << QVector<int>({8, 1, 2, 3});
        // without a count that on the page decides
        QTest::newRow("tools alone")
            << QByteArray("{\"gripper\":[9,8,7,6]}") << 2 << QVector<int>({8, 7, 2, 3});
        QTest::newRow("tool 10") << QByteArray("{\"gripperNum\":3,\"gripper\":[10,8,7]}") << 3
                                 << QVector<int>({0, 7, 6, 3});
        QTest::newRow("tool 9") << QByteArray("{\"gripperNum\":1,\"gripper\":[9]}") << 1
                                << QVector<int>({8, 1, 2, 3});
        QTest::newRow("tool 0") << QByteArray("{\"gripperNum\":1,\"gripper\":[0]}") << 1
                                << QVector<int>({-1, 1, 2, 3});
        QTest::newRow("tool -2^31") << QByteArray("{\"gripperNum\":1,\"gripper\":[-2147483648]}")
                                    << 1 << QVector<int>({-1, 1, 2, 3});
        QTest::newRow("wrong types")
            << QByteArray("{\"gripperNum\":4,\"gripper\":[\"9\",null,2147483648,9]}") << 4
            << QVector<int>({0, 1, 2, 8});
        QTest::newRow("short") << QByteArray("{\"gripperNum\":4,\"gripper\":[9]}") << 4
                               << QVector<int>({8, 1, 2, 3});
        QTest::newRow("long") << QByteArray("{\"gripperNum\":4,\"gripper\":[9,9,9,9,9,9]}") << 4
                              << QVector<int>({8, 8, 8, 8});
        QTest::newRow("no array") << QByteArray("{\"gripperNum\":4,\"gripper\":{\"0\":9}}") << 4
                                  << same;
    }
    void partialReplies()
    {
        QFETCH(QByteArray, pallet);
        QFETCH(int, grippers);
        QFETCH(QVector<int>, expected);
        Course course(pages);
        receive(kReply, replyWith(pallet));
        QCOMPARE(count()->currentIndex(), grippers - 1);
        QCOMPARE(rows(), expected);
        QCOMPARE(groups(), QStringLiteral("1234").left(grippers));
        // whatever it holds, the frames are asked for at its end
        QVector<int> tools;
        for (const int row : expected)
            tools += row + 1;
        QCOMPARE(course.lines().mid(course.lines().size() - 5), asked(tools));
    }

    void replyWithoutPackage()
    {
        pages->setCurrentIndex(23);
        Course course(pages);
        receive(kReply, "{\"robot\":1}");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 7"), QStringLiteral("page 24")})
                     + asked({1, 2, 3, 4}).mid(1));
    }

    void replyOfAnotherRobot()
    {
        Course course(pages);
        receive(kReply, replyWith("{\"gripperNum\":2,\"gripper\":[1,7]}", 3, 2));
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("toast 5000 1 pallet tool parameter error!"),
                              QStringLiteral("0x4222 {\"craftID\":3,\"robot\":1}")})
                     + asked({1, 7, 3, 4}) + asked({1, 7, 3, 4}));
        QCOMPARE(support::row(pages, "m_pPalletCraftNum"), 2);
        QCOMPARE(rows(), QVector<int>({0, 6, 2, 3}));
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
        receive(kReply, replyWith("{\"gripperNum\":3}", 10));
        QCOMPARE(support::row(pages, "m_pPalletCraftNum"), 0);
        QCOMPARE(count()->currentIndex(), 2);
    }

    // ---- frames ---------------------------------------------------------------------------------

    /// Another robot has other tools: their frames are gone until its controller tells them.
    void anotherRobot()
    {
        const QStringList told = QStringLiteral("1 2 3 4 5 6").split(QLatin1Char(' '));
        const QStringList none = {QString(), QString(), QString(), QString(), QString(), QString()};
        tellFrame(1, "1 2 3 4 5 6");
        QCOMPARE(frame(1), told);
        MoreRobot::setCurrentRobot(2);
        QCOMPARE(frame(1), none);
        QCOMPARE(frame(1, QStringLiteral("_2")), none);
        tellFrame(2, "6 5 4 3 2 1"); // shows the others anew
        QCOMPARE(frame(1), none);
    }

    void frames()
    {
        setRows(4, {2, 4, 2, 8});
        support::setRowQuietly(pages, tool(2, QStringLiteral("_2")), 2);
        const QStringList empty = {QString(), QString(), QString(),
                                   QString(), QString(), QString()};
        tellFrame(3, "1.5 -2 3 0.1 0.2 0.3");
        const QStringList third = QStringLiteral("1.5 -2 3 0.1 0.2 0.3").split(QLatin1Char(' '));
        QCOMPARE(frame(1), third);
        QCOMPARE(frame(2), empty);
        QCOMPARE(frame(3), third);
        QCOMPARE(frame(4), empty);
        QCOMPARE(frame(2, QStringLiteral("_2")), third);
        QCOMPARE(frame(1, QStringLiteral("_2")), empty);

        // an answer for a tool that nobody uses is kept, and shows with the next answer
        tellFrame(6, "6 6 6 6 6 6");
        QCOMPARE(frame(1), third);
        setRows(4, {5, 4, 2, 8});
        QCOMPARE(frame(1), third);
        tellFrame(9, "9 8 7 6 5 4");
        QCOMPARE(frame(1),
                 QStringList({QStringLiteral("6"), QStringLiteral("6"), QStringLiteral("6"),
                              QStringLiteral("6"), QStringLiteral("6"), QStringLiteral("6")}));
        QCOMPARE(frame(4).join(QLatin1Char(' ')), QStringLiteral("9 8 7 6 5 4"));
        setRows(4, {-1, 4, 2, 8});
        tellFrame(1, "1 1 1 1 1 1");
        QCOMPARE(frame(1), empty);
    }

    void oddFrames_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("expected");
        const auto list = [](const char *text) {
            return QString::fromLatin1(text).split(QLatin1Char(','));
        };
        QTest::newRow("tool 0") << 0 << QByteArray("1 2 3 4 5 6") << list("a,b,c,d,e,f");
        QTest::newRow("tool 10") << 10 << QByteArray("1 2 3 4 5 6") << list("a,b,c,d,e,f");
        QTest::newRow("tool -1") << -1 << QByteArray("1 2 3 4 5 6") << list("a,b,c,d,e,f");
        QTest::newRow("tool 1") << 1 << QByteArray("1 2 3 4 5 6") << list("1,2,3,4,5,6");
        QTest::newRow("five parts") << 1 << QByteArray("1 2 3 4 5") << list("1,2,3,4,5,");
        QTest::newRow("one part") << 1 << QByteArray("1") << list("1,,,,,");
        QTest::newRow("no part") << 1 << QByteArray("") << list(",,,,,");
        QTest::newRow("nine parts") << 1 << QByteArray("1 2 3 4 5 6 7 8 9") << list("1,2,3,4,5,6");
        QTest::newRow("two blanks") << 1 << QByteArray("1  3 4 5 6 7") << list("1,,3,4,5,6");
        QTest::newRow("blank first") << 1 << QByteArray(" 1 2 3 4 5 6") << list(",1,2,3,4,5");
        QTest::newRow("blank last") << 1 << QByteArray("1 2 3 4 5 ") << list("1,2,3,4,5,");
        QTest::newRow("words") << 1 << QByteArray("a b c x y z") << list("a,b,c,x,y,z");
        QTest::newRow("long part") << 1 << QByteArray(100000, 'x')
                                   << (QStringList(QString(64, QLatin1Char('x'))) + list(",,,,"));
        QTest::newRow("blanks") << 1 << QByteArray(100000, ' ') << list(",,,,,");
    }
    void oddFrames()
    {
        QFETCH(int, number);
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        tellFrame(1, "a b c d e f");
        tellFrame(number, text);
        QCOMPARE(frame(1), expected);
        QVERIFY(pages->minimumSizeHint().width() <= 714);
    }

    // ---- changing and saving --------------------------------------------------------------------

    void changingARow()
    {
        modify()->click();
        Course course(pages);
        QTest::keyClick(box(pages, tool(2)), Qt::Key_Down);
        QCOMPARE(course.lines(), asked({1, 3, 3, 4}));
        course.clear();
        QTest::keyClick(count(), Qt::Key_Down);
        QCOMPARE(course.lines(), asked({1, 3, 3, 4}));
        QCOMPARE(groups(), QStringLiteral("123"));
        QVERIFY(isEditing());
    }

    void startingAnEdit()
    {
        Course course(pages);
        QTest::keyClick(count(), Qt::Key_Down);
        QCOMPARE(count()->currentIndex(), 1);
        click(pages, "tongsModifyBtn");
        QVERIFY(isEditing());
        click(pages, "returnNavigationBtn1");
        click(pages, "tongsPageDown");
        QCOMPARE(course.lines(), QStringList());
    }

    void cancelling()
    {
        click(pages, "tongsModifyBtn");
        Course course(pages);
        click(pages, "tongsModifyCancelBtn");
        QVERIFY(isViewing());
        QCOMPARE(course.lines(), QStringList({QStringLiteral("title 7"), kGet}));
    }

    void saving_data()
    {
        QTest::addColumn<int>("grippers");
        QTest::addColumn<QString>("pallet");
        QTest::newRow("1") << 1 << "{\"gripper\":[9],\"gripperNum\":1.0}";
        QTest::newRow("3") << 3 << "{\"gripper\":[9,2,7],\"gripperNum\":3.0}";
        QTest::newRow("4") << 4 << "{\"gripper\":[9,2,7,1],\"gripperNum\":4.0}";
        QTest::newRow("none chosen") << 0 << "{\"gripper\":[],\"gripperNum\":0.0}";
    }
    void saving()
    {
        QFETCH(int, grippers);
        QFETCH(QString, pallet);
        support::box(pages, QStringLiteral("m_pPalletCraftNum"))->setCurrentIndex(4);
        setRows(grippers, {8, 1, 6, 0});
        click(pages, "tongsModifyBtn");
        Course course(pages);
        click(pages, "tongsModifyBtn");
        QVERIFY(isViewing());
        QCOMPARE(
            course.lines(),
            QStringList(
                {QStringLiteral("0x4201 {\"craftID\":5.0,\"pallet\":%1,\"robot\":1}").arg(pallet),
                 QStringLiteral("log 设置抓手信息")}));
    }

    /// What is saved comes back the same.
    void roundTrip()
    {
        setRows(3, {8, 1, 6, 0});
        click(pages, "tongsModifyBtn");
        support::Journal journal;
        click(pages, "tongsModifyBtn");
        const QByteArray sent = journal.messages().first().body;
        setRows(1, {0, 0, 0, 0});
        receive(kReply, sent);
        QCOMPARE(count()->currentIndex(), 2);
        QCOMPARE(rows(), QVector<int>({8, 1, 6, 0}));
    }
};

QTEST_MAIN(TestGripper)
#include "test_gripper.moc"
