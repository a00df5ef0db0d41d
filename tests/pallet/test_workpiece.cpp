// The workpiece page: reading a craft, editing, refusing, saving.

#include "guardedpage.h"

#include "digitallineedit.h"

#include <QLabel>

using support::child;
using support::GuardedPage;
using support::Message;
using support::palletReply;
using support::refusal;
using support::Toast;

namespace {

constexpr unsigned short kSet = 0x420a;
constexpr unsigned short kGet = 0x420b;
constexpr wire::reply::Id kReply = wire::reply::robot_pallet_WorkpieceParameter;

struct Row {
    const char *key;
    const char *name;
    const char *label;
};

const Row kRows[] = {
    {"workpieceLength", "Workpiecelength", "长（托盘Y方向）(mm)"},
    {"workpieceWidth", "Workpiecewidth", "宽（托盘X方向）(mm)"},
    {"workpieceHeight", "Workpieceheight", "高（托盘Z方向）(mm)"},
    {"workpieceGapX", "WorkpieceintervalX", "托盘X方向间隙(mm)"},
    {"workpieceGapY", "WorkpieceintervalY", "托盘Y方向间隙(mm)"},
};

const GuardedPage kPage = {27,
                           QStringLiteral("workpieceModifyBtn"),
                           QStringLiteral("workpieceModifyCancelBtn"),
                           {QStringLiteral("returnNavigationBtn4"),
                            QStringLiteral("workpiecePageUp"), QStringLiteral("workpiecePageDown")},
                           {QStringLiteral("Workpiecelength"), QStringLiteral("Workpiecewidth"),
                            QStringLiteral("Workpieceheight"), QStringLiteral("WorkpieceintervalX"),
                            QStringLiteral("WorkpieceintervalY")}};

const QByteArray kFull = "{\"workpieceGapX\":4,\"workpieceGapY\":5.25,\"workpieceHeight\":300,"
                         "\"workpieceLength\":100.5,\"workpieceWidth\":200}";
const QStringList kTexts = {QStringLiteral("100.5"), QStringLiteral("200"), QStringLiteral("300"),
                            QStringLiteral("4"), QStringLiteral("5.25")};

} // namespace

class TestWorkpiece : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    QLineEdit *field(const char *name) const { return child<QLineEdit>(pages, name); }
    QStringList texts() const
    {
        QStringList list;
        for (const Row &row : kRows)
            list += field(row.name)->text();
        return list;
    }
    void pressModify() const { support::click(pages, "workpieceModifyBtn"); }

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
    }

    void init()
    {
        MoreRobot::setCurrentRobot(1);
        support::craft(pages)->setCurrentIndex(0);
        pages->palletWorkpieceParaWidget();
        support::receive(kReply, palletReply(kFull));
        QCOMPARE(texts(), kTexts);
    }

    void form()
    {
        const QWidget *page = pages->widget(27);
        QStringList labels;
        const auto found = page->findChildren<QLabel *>();
        for (const QLabel *label : found)
            labels += label->text();
        QVERIFY(labels.contains(QStringLiteral("工艺号:1")));
        for (const Row &row : kRows) {
            const auto *edit = child<DigitalLineEdit>(page, row.name);
            QVERIFY2(labels.contains(QString::fromUtf8(row.label)), row.label);
            QVERIFY2(edit->height() >= 40 && page->rect().contains(edit->geometry()), row.name);
            QVERIFY(!edit->property("fieldName").toString().isEmpty());
            QCOMPARE(edit->property("fieldUnit").toString(), QStringLiteral("mm"));
        }
    }

    void showing()
    {
        pages->return_PalletPage();
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        support::Journal journal;
        support::click(pages, "workpieceParaBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QCOMPARE(titles.count(), 1);
        QCOMPARE(titles.at(0), QVariantList({8, 10, 0}));
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
        QVERIFY(journal.toasts().isEmpty());
    }

    void askingAlone()
    {
        support::craft(pages)->setCurrentIndex(6);
        pages->return_PalletPage();
        support::Journal journal;
        pages->getPalletWorkpieceParameter();
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet, 7)});
        QCOMPARE(pages->currentIndex(), 1);
    }

    void chain()
    {
        const struct {
            const char *button;
            int page;
        } ways[] = {
            {"workpiecePageUp", 26}, {"workpiecePageDown", 28}, {"returnNavigationBtn4", 23}};
        for (const auto &way : ways) {
            pages->palletWorkpieceParaWidget();
            support::click(pages, way.button);
            QCOMPARE(pages->currentIndex(), way.page);
        }
    }

    void editAndCancel()
    {
        pressModify();
        QCOMPARE(kPage.complaint(pages, true), QString());
        field("Workpiecelength")->setText(QStringLiteral("1"));
        support::Journal journal;
        support::click(pages, "workpieceModifyCancelBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
        support::receive(kReply, palletReply(kFull));
        QCOMPARE(texts(), kTexts);
    }

    void save()
    {
        support::craft(pages)->setCurrentIndex(2);
        pressModify();
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, false), QString());
        const QByteArray body =
            "{\"craftID\":3.0,\"pallet\":{\"workpieceGapX\":4.0,"
            "\"workpieceGapY\":5.25,\"workpieceHeight\":300.0,"
            "\"workpieceLength\":100.5,\"workpieceWidth\":200.0},\"robot\":1}\n";
        QCOMPARE(journal.messages(), (QVector<Message>{{kSet, body}}));
        QCOMPARE(journal.of("log"), (QVector<QVariantList>{{QStringLiteral("设置工件信息"), 1}}));
        QVERIFY(journal.toasts().isEmpty());
        QCOMPARE(journal.kinds().last(), QStringLiteral("log"));
    }

    /// Each field alone in a reply fills its own place, and goes back under its own key.
    void sweep()
    {
        for (const Row &row : kRows) {
            support::receive(kReply, palletReply(kFull));
            support::receive(kReply, palletReply("{\"" + QByteArray(row.key) + "\":1234.56789}"));
            for (int i = 0; i < 5; ++i) {
                const bool isRow = kRows[i].key == row.key;
                QCOMPARE(texts().at(i), isRow ? QStringLiteral("1234.57") : kTexts.at(i));
            }
            pressModify();
            support::Journal journal;
            pressModify();
            const Json::Value sent = support::json(journal.messages().at(0).body);
            QCOMPARE(wire::number(sent, "pallet", row.key).value_or(0), 1234.57);
        }
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message"); ///< empty: it is taken
        const struct {
            const char *name;
            bool isSize;
            const char *pattern;
            const char *range;
        } fields[] = {
            {"Workpiecelength", true, "工件尺寸长参数有误!", "工件尺寸长应不超过5000!"},
            {"Workpiecewidth", true, "工件尺寸宽参数有误!", "工件尺寸宽应不超过5000!"},
            {"Workpieceheight", true, "工件尺寸高参数有误!", "工件尺寸高应不超过5000!"},
            {"WorkpieceintervalX", false, "托盘X方向间隙参数有误!", "托盘X方向间隙应不超过3000!"},
            {"WorkpieceintervalY", false, "托盘Y方向间隙参数有误!", "托盘Y方向间隙应不超过3000!"},
        };
        for (const auto &field : fields) {
            const auto add = [&field](const char *text, const char *message) {
                QTest::addRow("%s '%s'", field.name, text)
                    << QString::fromLatin1(field.name) << QString::fromUtf8(text)
                    << QString::fromUtf8(message);
            };
            for (const char *text : {"", "-1", "+1", "01", ".5", "1.", "1e3", " 1", "abc", "nan",
                                     "inf", "５０", "5０", "5.０", "5,0", "1.5.5"})
                add(text, field.pattern);
            add("0", field.isSize ? field.pattern : "");
            add("0.5", field.isSize ? field.pattern : "");
            add("0.0", field.isSize ? field.pattern : "");
            add("1", "");
            add(field.isSize ? "4999.999" : "2999.999", "");
            add(field.isSize ? "5000" : "3000", "");
            add(field.isSize ? "5000.0" : "3000.0", "");
            add(field.isSize ? "5000.001" : "3000.001", field.range);
            add(field.isSize ? "5001" : "3001", field.range);
            add("1234567890123456789012345678901234567890", field.range);
        }
    }
    void refusals()
    {
        QFETCH(QString, name);
        QFETCH(QString, text);
        QFETCH(QString, message);
        pressModify();
        child<QLineEdit>(pages, name)->setText(text);
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, !message.isEmpty()), QString());
        QCOMPARE(journal.messages().size(), message.isEmpty() ? 1 : 0);
        QCOMPARE(journal.of("log").size(), message.isEmpty() ? 1 : 0);
        QCOMPARE(support::toasts(journal),
                 message.isEmpty() ? QVector<Toast>() : (QVector<Toast>{{message, 3000, 4}}));
    }

    /// All fields are wrong: each message comes when those before it are mended.
    void order()
    {
        pressModify();
        for (const Row &row : kRows)
            field(row.name)->setText(QStringLiteral("x"));
        const char *messages[] = {"工件尺寸长参数有误!",    "工件尺寸长应不超过5000!",
                                  "工件尺寸宽参数有误!",    "工件尺寸宽应不超过5000!",
                                  "工件尺寸高参数有误!",    "工件尺寸高应不超过5000!",
                                  "托盘X方向间隙参数有误!", "托盘X方向间隙应不超过3000!",
                                  "托盘Y方向间隙参数有误!", "托盘Y方向间隙应不超过3000!"};
        for (int i = 0; i < 10; ++i) {
            support::Journal journal;
            pressModify();
            QCOMPARE(support::toasts(journal), QVector<Toast>{refusal(messages[i])});
            field(kRows[i / 2].name)
                ->setText(i % 2 == 0 ? QStringLiteral("9999") : QStringLiteral("7"));
        }
        support::Journal journal;
        pressModify();
        QCOMPARE(journal.messages().size(), 1);
    }

    void anotherRobot()
    {
        support::Journal journal;
        support::receive(kReply, palletReply("{\"workpieceLength\":9}", 1, 2));
        QCOMPARE(support::toasts(journal),
                 QVector<Toast>{refusal("pallet workpiece parameter error!", 5000, 1)});
        QCOMPARE(field("Workpiecelength")->text(), QStringLiteral("9"));
    }

    void crafts()
    {
        support::receive(kReply, palletReply("{\"workpieceLength\":9}", 4));
        QCOMPARE(support::craft(pages)->currentIndex(), 3);
        QCOMPARE(child<QLabel>(pages, "technologyNumber_5")->text(), QStringLiteral("工艺号:4"));
        support::receive(kReply, palletReply("{\"workpieceLength\":8}", 10));
        QCOMPARE(support::craft(pages)->currentIndex(), 3);
        QCOMPARE(field("Workpiecelength")->text(), QStringLiteral("8"));
    }

    void unreadable()
    {
        for (const char *body : {"", "{", "[]", "{\"robot\":1}", "{\"robot\":1,\"pallet\":3}",
                                 "{\"robot\":1,\"pallet\":{\"workpieceLength\":\"7\","
                                 "\"workpieceWidth\":null,\"workpieceHeight\":[1],"
                                 "\"workpieceGapX\":{},\"workpieceGapY\":1e999}}"}) {
            support::Journal journal;
            support::receive(kReply, body);
            QCOMPARE(texts(), kTexts);
            QVERIFY(journal.toasts().isEmpty());
            QVERIFY(journal.messages().isEmpty());
        }
    }
};

QTEST_MAIN(TestWorkpiece)
#include "test_workpiece.moc"
