// What the pages show by the robot's family: names and values of the point panel, and the columns
// of the pallet pages.

#include "positionpage.h"

#include <QFrame>

using support::child;

namespace {

const QString kAll = QStringLiteral("1234567");

struct Names {
    int type; ///< kinematic type
    int axes;
    const char *names[4]; ///< by coordinate kind; null: nothing is set
};

constexpr const char kSixJoints[] = "J1 J2 J3 J4 J5 J6";
constexpr const char kSix[] = "X Y Z A B C";
constexpr const char kSixTool[] = "TX TY TZ TA TB TC";
constexpr const char kSixUser[] = "UX UY UZ UA UB UC";
constexpr const char kFourJoints[] = "J1 J2 J3 J4";
constexpr const char kFour[] = "X Y Z U";
constexpr const char kFourTool[] = "TX TY TZ TU";
constexpr const char kFourUser[] = "UX UY UZ UU";
constexpr const char kThreeJoints[] = "J1 J2 J3";
constexpr const char kThree[] = "X Y Z";
constexpr const char kThreeTool[] = "TX TY TZ";
constexpr const char kThreeUser[] = "UX UY UZ";

constexpr Names kNames[] = {
    {1, 6, {kSixJoints, kSix, kSixTool, kSixUser}},
    {2, 4, {kFourJoints, kFour, kFourTool, kFourUser}},
    {3, 4, {kFourJoints, kFour, kFourTool, kFourUser}},
    {4, 4, {kFourJoints, kFour, kFourTool, kFourUser}},
    {5, 1, {"J1", nullptr, nullptr, nullptr}},
    {6, 5, {"J1 J2 J3 J4 J5", "X Y Z A B", "TX TY TZ TA TB", "UX UY UZ UA UB"}},
    {7, 6, {kSixJoints, kSix, kSixTool, kSixUser}},
    {8, 4, {kFourJoints, kFour, kFourTool, kFourUser}},
    {9, 3, {kThreeJoints, kThree, kThreeTool, kThreeUser}},
    {10, 3, {kThreeJoints, kThree, kThreeTool, kThreeUser}},
    {11, 3, {kThreeJoints, kThree, kThreeTool, kThreeUser}},
    {12,
     7,
     {"J1 J2 J3 J4 J5 J6 J7", "X Y Z A B C Ψ", "TX TY TZ TA TB TC TΨ", "UX UY UZ UA UB UC UΨ"}},
};

const char *const kKinds[] = {"关节", "直角", "工具", "用户"};

} // namespace

class TestAxes : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    Robot *robot = nullptr;

    QLabel *heading() const { return child<QLabel>(pages, "m_pLabelcoord"); }
    QLabel *name(int axis) const
    {
        return child<QLabel>(pages, QStringLiteral("xmllabel_Axis%1").arg(axis));
    }

    /// Sets all names of the panel to "old".
    void reset() const
    {
        heading()->setText(QStringLiteral("old"));
        for (int axis = 1; axis <= 7; ++axis)
            name(axis)->setText(QStringLiteral("old"));
    }

    QStringList names() const
    {
        QStringList list;
        for (int axis = 1; axis <= 7; ++axis)
            list += name(axis)->text();
        return list;
    }

    /// "" as soon as the three labels of an axis differ.
    QString shownAxes() const
    {
        QString shown;
        for (const QChar axis : kAll) {
            const bool visible =
                !child<QLabel>(pages, QLatin1String("xmllabel_Axis") + axis)->isHidden();
            for (const char *stem : {"label_pos", "label_CPos"}) {
                if (child<QLabel>(pages, QLatin1String(stem) + axis)->isHidden() == visible)
                    return QString();
            }
            if (visible)
                shown += axis;
        }
        return shown;
    }

    /// The shown columns of everything that has columns: points, tools, and the two headings of
    /// column a, "-" where it is not shown.
    QString columns() const
    {
        const auto points = [this](const char *name) {
            return support::shownColumns(pages, QString::fromLatin1(name), QStringLiteral("abcd"));
        };
        QString all = points("positionHead");
        for (const char *point : {"EntrancePoint", "AuxiliaryPoint", "JobPoint", "CurrentPoint"}) {
            if (points(point) != all)
                return QLatin1String(point) + QLatin1String(" differs");
        }
        QString six = all;
        six.remove(QLatin1Char('d'));
        for (const char *point : {"taryHead", "taryOrigin", "taryXdirection", "taryYdirection"}) {
            if (support::shownColumns(pages, QString::fromLatin1(point), QStringLiteral("abc"))
                != six)
                return QLatin1String(point) + QLatin1String(" differs");
        }
        QString tools;
        for (const char *tail : {"", "_2"}) {
            for (const char *tool : {"toolHead", "tool1", "tool2", "tool3", "tool4"}) {
                const QString shown =
                    support::shownColumns(pages, QString::fromLatin1(tool), QStringLiteral("ABC"),
                                          QString::fromLatin1(tail));
                if (!tools.isNull() && shown != tools)
                    return QLatin1String(tool) + QLatin1String(" differs");
                tools = shown.isNull() ? QStringLiteral("") : shown;
            }
        }
        return all + QLatin1Char('/') + tools;
    }

    void setAll(bool visible) const
    {
        const auto labels = pages->findChildren<QLabel *>();
        for (QLabel *label : labels)
            label->setVisible(visible);
    }

private slots:
    void initTestCase()
    {
        robot = Robot::getInstance();
        pages = TechnologyWidget::getInstance();
        pages->show();
    }

    void cleanup()
    {
        robot->kinematicType = 1;
        setAll(true);
        pages->initPalletRobotType();
    }

    // ---- the point panel ------------------------------------------------------------------------

    /// The panel holds the 23 labels; no position is known at first.
    void panel()
    {
        TechnologyWidget fresh(nullptr);
        const auto *frame = child<QFrame>(&fresh, "frame");
        QVERIFY(fresh.widget(46)->isAncestorOf(frame));
        QVERIFY(frame->isAncestorOf(child<QLabel>(&fresh, "m_pLabelcoord")));
        for (const QChar axis : kAll) {
            for (const char *stem : {"xmllabel_Axis", "label_pos", "label_CPos"})
                QVERIFY(frame->isAncestorOf(child<QLabel>(&fresh, QLatin1String(stem) + axis)));
            QCOMPARE(child<QLabel>(&fresh, QLatin1String("label_pos") + axis)->text(),
                     QStringLiteral("nan"));
            QCOMPARE(child<QLabel>(&fresh, QLatin1String("label_CPos") + axis)->text(),
                     QStringLiteral("nan"));
        }
    }

    void panelNames()
    {
        for (const Names &row : kNames) {
            robot->kinematicType = row.type;
            for (int kind = 0; kind < 4; ++kind) {
                reset();
                pages->setLabelcoord(static_cast<unsigned char>(kind));
                QCOMPARE(shownAxes(), kAll.left(row.axes));
                const QString given = QString::fromUtf8(row.names[kind]);
                QStringList expected =
                    row.names[kind] ? given.split(QLatin1Char(' ')) : QStringList();
                QCOMPARE(heading()->text(),
                         expected.isEmpty() ? QStringLiteral("old")
                                            : QString::fromUtf8(kKinds[kind]));
                while (expected.size() < 7)
                    expected += QStringLiteral("old"); // past the axes nothing is set
                QCOMPARE(names(), expected);
            }
        }
    }

    void panelOfNoKind()
    {
        for (const Names &row : kNames) {
            robot->kinematicType = row.type;
            for (const int kind : {4, 5, 128, 255}) {
                reset();
                setAll(true);
                pages->setLabelcoord(static_cast<unsigned char>(kind));
                QCOMPARE(shownAxes(), kAll.left(row.axes));
                QCOMPARE(heading()->text(), QStringLiteral("old"));
                QCOMPARE(names(), QStringList({"old", "old", "old", "old", "old", "old", "old"}));
            }
        }
    }

    /// A robot of no family shows everything and names nothing.
    void panelOfNoFamily()
    {
        for (const int type : {0, 13, -1, 1000}) {
            robot->kinematicType = 5;
            pages->setLabelcoord(0);
            reset();
            robot->kinematicType = type;
            for (unsigned char kind = 0; kind < 4; ++kind)
                pages->setLabelcoord(kind);
            QCOMPARE(shownAxes(), kAll);
            QCOMPARE(heading()->text(), QStringLiteral("old"));
        }
    }

    /// The robot is asked each time: what a smaller one hid comes back.
    void panelFollowsTheRobot()
    {
        for (const int type : {5, 12, 9, 1, 8}) {
            robot->kinematicType = type;
            pages->setLabelcoord(0);
            QCOMPARE(static_cast<int>(shownAxes().size()), axes::modelOf(type).axes);
        }
    }

    // ---- the columns ----------------------------------------------------------------------------

    void columnsByFamily_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("columns"); // of points and tools; null: left as they are
        QTest::addColumn<QString>("head"); // of column a; null: left as it is
        const auto row = [](int type, const char *columns, const char *head) {
            QTest::addRow("type %d", type)
                << type << QString::fromLatin1(columns) << QString::fromLatin1(head);
        };
        for (const int type : {1, 7})
            row(type, "abc/ABC", "A");
        for (const int type : {2, 3, 4, 8})
            row(type, "a/", "U");
        for (const int type : {9, 10, 11})
            row(type, "/", nullptr);
        row(12, "abcd/ABC", "A");
        for (const int type : {0, 5, 6, 13})
            row(type, nullptr, nullptr);
    }
    void columnsByFamily()
    {
        QFETCH(int, type);
        QFETCH(QString, columns);
        QFETCH(QString, head);
        for (const bool visible : {true, false}) {
            for (const char *name : {"positionHeada", "taryHeada"})
                child<QLabel>(pages, name)->setText(QStringLiteral("old"));
            setAll(visible);
            robot->kinematicType = type;
            pages->initPalletRobotType();
            const QString untouched = visible ? QStringLiteral("abcd/ABC") : QStringLiteral("/");
            QCOMPARE(this->columns(), columns.isNull() ? untouched : columns);
            for (const char *name : {"positionHeada", "taryHeada"})
                QCOMPARE(child<QLabel>(pages, name)->text(),
                         head.isNull() ? QStringLiteral("old") : head);
            // the position itself is not its business
            for (const char *point : {"positionHead", "EntrancePoint", "JobPoint"})
                QCOMPARE(
                    support::shownColumns(pages, QString::fromLatin1(point), QStringLiteral("xyz")),
                    visible ? QStringLiteral("xyz") : QString());
        }
    }

    void headsOfTheOtherColumns()
    {
        const QString heads[] = {QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z"),
                                 QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                                 QStringLiteral("Ψ")};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(child<QLabel>(pages, QLatin1String("positionHead") + support::kColumns.at(i))
                         ->text(),
                     heads[i]);
    }

    /// From four axes to seven and back: the head of column a changes with them.
    void columnsFollowTheRobot()
    {
        const struct {
            int type;
            const char *columns;
        } rows[] = {{2, "a/"}, {12, "abcd/ABC"}, {9, "/"}, {6, "/"}, {1, "abc/ABC"}};
        for (const auto &row : rows) {
            robot->kinematicType = row.type;
            pages->initPalletRobotType();
            QCOMPARE(columns(), QString::fromLatin1(row.columns));
        }
    }

    /// The pages are built for the robot that is there.
    void columnsOfAFreshForm()
    {
        robot->kinematicType = 2;
        TechnologyWidget fresh(nullptr);
        QCOMPARE(support::shownColumns(&fresh, QStringLiteral("JobPoint"), QStringLiteral("abcd")),
                 QStringLiteral("a"));
        QCOMPARE(child<QLabel>(&fresh, "positionHeada")->text(), QStringLiteral("U"));
    }
};

QTEST_MAIN(TestAxes)
#include "test_axes.moc"
