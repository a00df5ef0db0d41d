// The live position, the polls, points and columns, on a stack of pages that is no form.

#include "../support.h"
#include "shell/livearm.h"
#include "wire/ids.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTimer>
#include <memory>

namespace {

constexpr unsigned short kCurrentPosition = 0x2f07;
constexpr unsigned short kRunToPoint = 0x3003;
const PositionTexts kPlace = {QStringLiteral("1.5"), QStringLiteral("2"), QStringLiteral("3"),
                              QStringLiteral("90"),  QStringLiteral("5"), QStringLiteral("6"),
                              QStringLiteral("7")};

QStringList texts(const QVector<QLabel *> &labels)
{
    QStringList list;
    for (const QLabel *label : labels)
        list += label->text();
    return list;
}

/// The letters of the columns that are not hidden.
QString shown(const QVector<QLabel *> &labels)
{
    QString letters;
    for (int i = 0; i < labels.size(); ++i) {
        if (!labels.at(i)->isHidden())
            letters += QLatin1Char(static_cast<char>('a' + i));
    }
    return letters;
}

} // namespace

class TestLiveArm : public QObject {
    Q_OBJECT
private:
    struct Fixture {
        QStackedWidget pages;
        LiveArm arm{pages};
        QTimer timer;
        QVector<QLabel *> labels;
        PositionTexts place;

        Fixture()
        {
            for (int i = 0; i < page::Count; ++i)
                pages.addWidget(new QWidget);
            for (int i = 0; i < axes::kMost; ++i)
                labels.append(new QLabel(QStringLiteral("-"), &pages));
            pages.show();
        }
        PointRow row(PointRow::Unit unit) { return {&place, labels, unit}; }
    };
    std::unique_ptr<Fixture> f;

    static void become(int type) { Robot::getInstance()->kinematicType = type; }
    static void power(int servo, int deadman)
    {
        Robot::getInstance()->receiveMessage(
            wire::Status,
            QStringLiteral("{\"robot\":1,\"servo\":%1,\"deadman\":%2}")
                .arg(servo)
                .arg(deadman)
                .toUtf8());
    }
    /// The values of the one move that was sent; empty when none was.
    static QVector<double> sent(const support::Journal &journal)
    {
        QVector<double> list;
        for (const support::Message &message : journal.messages()) {
            if (message.id != kRunToPoint)
                continue;
            const Json::Value body = support::json(message.body);
            for (const Json::Value &value : *wire::array(body, "position", "values"))
                list.append(value.asDouble());
        }
        return list;
    }

private slots:
    void init()
    {
        MoreRobot::setCurrentRobot(1);
        App::isDeg = false;
        become(1);
        power(3, 1);
        f = std::make_unique<Fixture>();
    }
    void cleanup() { f.reset(); }
    void cleanupTestCase() { become(1); }

    /// A poll asks in its own coordinate, and runs on the pages of all packages that joined it.
    void polls()
    {
        f->arm.addPoll(&f->timer, axes::Joint, {page::Wizard2});
        f->arm.addPage(&f->timer, page::SprayTrack);
        for (const page::Index index : {page::Wizard2, page::SprayTrack}) {
            f->pages.setCurrentIndex(index);
            f->arm.start(&f->timer);
            QCOMPARE(f->timer.interval(), 400);
            support::Journal journal;
            f->arm.poll(&f->timer);
            QVERIFY(f->timer.isActive());
            QCOMPARE(static_cast<int>(journal.messages().size()), 1);
            QCOMPARE(journal.messages().first().id, kCurrentPosition);
            QCOMPARE(support::json(journal.messages().first().body)["coord"].asInt(), 0);
        }
        f->pages.setCurrentIndex(page::Menu);
        f->arm.poll(&f->timer);
        QVERIFY(!f->timer.isActive());
        f->pages.setCurrentIndex(page::Wizard2);
        f->arm.resume(); // it was left, not covered
        QVERIFY(!f->timer.isActive());
    }

    /// The page of another package may join before the poll is there.
    void joinsBefore()
    {
        f->arm.addPage(&f->timer, page::SprayTrack);
        f->arm.addPoll(&f->timer, axes::Tool, {page::PalletPosition});
        f->pages.setCurrentIndex(page::SprayTrack);
        f->arm.start(&f->timer);
        support::Journal journal;
        f->arm.poll(&f->timer);
        QVERIFY(f->timer.isActive());
        QCOMPARE(support::json(journal.messages().first().body)["coord"].asInt(), 2);
    }

    void resumes()
    {
        f->arm.addPoll(&f->timer, axes::Cartesian, {page::PalletPosition});
        f->pages.setCurrentIndex(page::PalletPosition);
        f->arm.start(&f->timer);
        f->pages.hide();
        f->arm.poll(&f->timer);
        QVERIFY(!f->timer.isActive());
        f->pages.show();
        f->arm.resume();
        QVERIFY(f->timer.isActive());
        f->timer.stop();
        f->arm.resume(); // once
        QVERIFY(!f->timer.isActive());
    }

    /// Every hook gets each position, in the unit of the page, whatever its kind.
    void hooks()
    {
        QStringList told;
        for (const char *name : {"first", "second"})
            f->arm.addHook([&told, name](int kind, const PositionTexts &position) {
                told += QStringLiteral("%1 %2 %3 %4")
                            .arg(QLatin1String(name))
                            .arg(kind)
                            .arg(position.front(), position.back());
            });
        f->arm.take("0 1 1 2 3 4 5 6 7", "0 1 11 2 3 4 5 6 17");
        QCOMPARE(told,
                 QStringList({QStringLiteral("first 1 1 7"), QStringLiteral("second 1 1 7")}));
        told.clear();
        App::isDeg = true;
        f->arm.take("0 9 1 2 3 4 5 6 7", "0 9 11 2 3 4 5 6 17");
        QCOMPARE(told,
                 QStringList({QStringLiteral("first 9 11 17"), QStringLiteral("second 9 11 17")}));
        told.clear();
        for (const char *bad : {"", "0 1 1 2 3 4 5 6", "0 1 1 2 3 4 5 6 7 8", "0 x 1 2 3 4 5 6 7"})
            f->arm.take(bad, bad);
        QCOMPARE(told, QStringList());
    }

    /// A mark takes all seven values and shows those of the model.
    void marks_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("position");
        QTest::addColumn<QString>("joints");
        const auto row = [](int type, const char *position, const char *joints) {
            QTest::addRow("type %d", type)
                << type << QString::fromLatin1(position) << QString::fromLatin1(joints);
        };
        row(1, "1.500 2.000 3.000 90.000 5.000 6.000 -", "1.500 2.000 3.000 90.000 5.000 6.000 -");
        row(2, "1.500 2.000 3.000 6.000 - - -", "1.500 2.000 3.000 90.000 - - -");
        row(5, "- - - - - - -", "- - - - - - -");
        row(8, "1.500 2.000 - - - - -", "1.500 2.000 - - - - -");
        row(12, "1.500 2.000 3.000 90.000 5.000 6.000 7.000",
            "1.500 2.000 3.000 90.000 5.000 6.000 7.000");
    }
    void marks()
    {
        QFETCH(int, type);
        QFETCH(QString, position);
        QFETCH(QString, joints);
        become(type);
        LiveArm::mark(f->row(PointRow::Position), kPlace);
        QCOMPARE(texts(f->labels).join(QLatin1Char(' ')), position);
        QVERIFY(f->place == kPlace);
        for (QLabel *label : f->labels)
            label->setText(QStringLiteral("-"));
        LiveArm::mark(f->row(PointRow::Joints), kPlace);
        QCOMPARE(texts(f->labels).join(QLatin1Char(' ')), joints);
        LiveArm::showNothing(f->row(PointRow::Joints));
        QCOMPARE(texts(f->labels).count(QStringLiteral("--")), 7);
    }

    void moves()
    {
        f->place = kPlace;
        App::isDeg = true;
        support::Journal journal;
        f->arm.moveTo(f->row(PointRow::Position));
        QCOMPARE(sent(journal),
                 QVector<double>({1, 1, 0, 0, 0, 0, 0, 1.5, 2, 3, 1.5708, 0.0872665, 0.10472, 7}));
        journal.clear();
        f->arm.moveTo(f->row(PointRow::Joints)); // as the controller told them
        QCOMPARE(sent(journal), QVector<double>({0, 0, 0, 0, 0, 0, 0, 1.5, 2, 3, 90, 5, 6, 7}));
        journal.clear();
        f->place = {};
        f->arm.moveTo(f->row(PointRow::Joints));
        QCOMPARE(sent(journal), QVector<double>());
        QCOMPARE(journal.toasts(), QStringList());
        f->arm.moveTo(f->row(PointRow::Position));
        QCOMPARE(static_cast<int>(sent(journal).size()), 14);
    }

    /// The drives are on with 3, the enabling switch is held with 1.
    void needsPower()
    {
        f->place = kPlace;
        for (const QPair<int, int> &state :
             {QPair<int, int>(0, 1), QPair<int, int>(2, 1), QPair<int, int>(3, 0)}) {
            power(state.first, state.second);
            support::Journal journal;
            f->arm.moveTo(f->row(PointRow::Position));
            f->arm.moveTo(f->row(PointRow::Joints));
            QCOMPARE(sent(journal), QVector<double>());
            QCOMPARE(journal.toasts(),
                     QStringList({QStringLiteral("请上电！"), QStringLiteral("请上电！")}));
        }
    }

    /// On a page that names its axes a position is sent in the coordinates of that name.
    void namedAxes()
    {
        QString name = QStringLiteral("TX");
        f->arm.nameFirstAxis(page::ProjectPoints, [&name] { return name; });
        const QStringList values(kPlace.begin(), kPlace.end());
        support::Journal journal;
        f->arm.runToPosition(values);
        QCOMPARE(sent(journal).mid(0, 2), QVector<double>({1, 1}));
        journal.clear();
        f->pages.setCurrentIndex(page::ProjectPoints);
        f->arm.runToPosition(values);
        QCOMPARE(sent(journal).mid(0, 2), QVector<double>({2, 1}));
        journal.clear();
        name = QStringLiteral("J9");
        f->arm.runToPosition(values);
        QCOMPARE(sent(journal), QVector<double>());
    }

    void columns()
    {
        QVector<QLabel *> points = f->labels.mid(0, 4);
        QVector<QLabel *> heads;
        QVector<QLabel *> tools;
        for (int i = 0; i < 3; ++i) {
            heads.append(new QLabel(&f->pages));
            tools.append(new QLabel(&f->pages));
        }
        f->arm.addColumns(LiveArm::Columns::Point, points);
        f->arm.addColumns(LiveArm::Columns::Head, heads);
        f->arm.addColumns(LiveArm::Columns::Tool, tools);
        const struct {
            int type;
            const char *point;
            const char *head;
            const char *tool;
            const char *first;
        } rows[] = {
            {12, "abcd", "abc", "abc", "A"},
            {2, "a", "a", "", "U"},
            {1, "abc", "abc", "abc", "A"},
            {9, "", "", "", "A"},
            {6, "", "", "", "A"}, // as they were
            {8, "a", "a", "", "U"},
            {5, "a", "a", "", "U"},
        };
        for (const auto &row : rows) {
            become(row.type);
            f->arm.showColumns();
            QCOMPARE(shown(points), QString::fromLatin1(row.point));
            QCOMPARE(shown(heads), QString::fromLatin1(row.head));
            QCOMPARE(shown(tools), QString::fromLatin1(row.tool));
            QCOMPARE(heads.first()->text(), QString::fromLatin1(row.first));
            QCOMPARE(f->labels.first()->text(), QStringLiteral("-"));
        }
    }
};

QTEST_MAIN(TestLiveArm)
#include "test_livearm.moc"
