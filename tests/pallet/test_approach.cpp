// The approach page: the way to the place point, its switch and its lengths.

#include "guardedpage.h"

#include "digitallineedit.h"
#include "switchbutton.h"

#include <QLabel>

using support::child;
using support::GuardedPage;
using support::Message;
using support::palletReply;
using support::refusal;
using support::Toast;

namespace {

constexpr unsigned short kSet = 0x420d;
constexpr unsigned short kGet = 0x420e;
constexpr wire::reply::Id kReply = wire::reply::robot_pallet_ApproachParameter;

const char *const kEdits[] = {"approachWorkpiecelength", "approachWorkpiecewidth",
                              "approachWorkpieceheight"};
const char *const kKeys[] = {"workpieceApproLenX", "workpieceApproLenY", "workpieceApproLenZ"};
const char *const kMessages[] = {"托盘X方向长度参数有误!", "托盘Y方向长度参数有误!",
                                 "托盘Z方向长度参数有误!"};

const GuardedPage kPage = {
    28,
    QStringLiteral("approachModifyBtn"),
    QStringLiteral("approachModifyCancelBtn"),
    {QStringLiteral("returnNavigationBtn5"), QStringLiteral("approachPageUp"),
     QStringLiteral("approachPageDown")},
    {QStringLiteral("approachOnOffBtn"), QStringLiteral("approachWaysComboBox"),
     QStringLiteral("approachWorkpiecelength"), QStringLiteral("approachWorkpiecewidth"),
     QStringLiteral("approachWorkpieceheight")}};

const QByteArray kFull = "{\"workpieceApproEnable\":true,\"workpieceApproLenX\":10.5,"
                         "\"workpieceApproLenY\":20,\"workpieceApproLenZ\":30,"
                         "\"workpieceApproMode\":1}";

QImage resource(const char *name)
{
    return QPixmap(QStringLiteral(":/new/picture/Resources/res/") + QLatin1String(name)).toImage();
}

} // namespace

class TestApproach : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    QLineEdit *field(const char *name) const { return child<QLineEdit>(pages, name); }
    QComboBox *ways() const { return child<QComboBox>(pages, "approachWaysComboBox"); }
    SwitchButton *toggle() const { return child<SwitchButton>(pages, "approachOnOffBtn"); }
    void pressModify() const { support::click(pages, "approachModifyBtn"); }
    QImage picture() const
    {
        const auto *label = child<QLabel>(pages, "approachWaysPic");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        return label->pixmap(Qt::ReturnByValue).toImage();
#else
        return label->pixmap().toImage();
#endif
    }
    bool shows(const char *name) const
    {
        const QImage expected = resource(name);
        return !expected.isNull() && picture() == expected;
    }
    QString state() const
    {
        return QStringLiteral("%1 %2 %3 %4 %5")
            .arg(toggle()->isCheck() ? 1 : 0)
            .arg(ways()->currentIndex())
            .arg(field(kEdits[0])->text(), field(kEdits[1])->text(), field(kEdits[2])->text());
    }

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
        pages->palletApproachParaWidget();
        support::receive(kReply, palletReply(kFull));
        QCOMPARE(state(), QStringLiteral("1 1 10.5 20 30"));
    }

    void form()
    {
        const QWidget *page = pages->widget(28);
        QStringList labels;
        const auto found = page->findChildren<QLabel *>();
        for (const QLabel *label : found)
            labels += label->text();
        for (const char *text : {"接近使能", "接近方式", "托盘X方向长度(mm)", "托盘Y方向长度(mm)",
                                 "托盘Z方向长度(mm)", "工艺号:1"})
            QVERIFY2(labels.contains(QString::fromUtf8(text)), text);
        QCOMPARE(ways()->count(), 2);
        QCOMPARE(ways()->itemText(0), QStringLiteral("下降接近"));
        QCOMPARE(ways()->itemText(1), QStringLiteral("接近下降"));
        for (const char *name : kEdits) {
            QVERIFY(child<DigitalLineEdit>(page, name)->height() >= 40);
            QCOMPARE(field(name)->property("fieldUnit").toString(), QStringLiteral("mm"));
        }
    }

    void showing()
    {
        pages->return_PalletPage();
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        support::Journal journal;
        support::click(pages, "approachParaBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QCOMPARE(titles.count(), 1);
        QCOMPARE(titles.at(0), QVariantList({8, 11, 0}));
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
        QVERIFY(shows("Closedrop.png"));
    }

    void chain()
    {
        const struct {
            const char *button;
            int page;
        } buttons[] = {
            {"approachPageUp", 27}, {"approachPageDown", 29}, {"returnNavigationBtn5", 23}};
        for (const auto &way : buttons) {
            pages->palletApproachParaWidget();
            support::click(pages, way.button);
            QCOMPARE(pages->currentIndex(), way.page);
        }
    }

    void pictures()
    {
        QVERIFY(resource("Closedrop.png") != resource("Dropclose.png"));
        ways()->setCurrentIndex(0);
        QVERIFY(shows("Dropclose.png"));
        ways()->setCurrentIndex(1);
        QVERIFY(shows("Closedrop.png"));
        support::receive(kReply, palletReply("{\"workpieceApproMode\":0}"));
        QVERIFY(shows("Dropclose.png"));
        // no way at all leaves the picture
        ways()->setCurrentIndex(-1);
        QVERIFY(shows("Dropclose.png"));
    }

    void switching()
    {
        support::Journal journal;
        support::click(pages, "approachOnOffBtn");
        QVERIFY(toggle()->isCheck()); // locked in view state
        pressModify();
        support::click(pages, "approachOnOffBtn");
        QVERIFY(!toggle()->isCheck());
        support::click(pages, "approachOnOffBtn");
        QVERIFY(toggle()->isCheck());
        QVERIFY(journal.messages().isEmpty());
        QVERIFY(journal.toasts().isEmpty());
    }

    void editAndCancel()
    {
        pressModify();
        QCOMPARE(kPage.complaint(pages, true), QString());
        support::Journal journal;
        support::click(pages, "approachModifyCancelBtn");
        QCOMPARE(kPage.complaint(pages, false), QString());
        QCOMPARE(journal.messages(), QVector<Message>{support::request(kGet)});
    }

    void save()
    {
        support::craft(pages)->setCurrentIndex(8);
        pressModify();
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, false), QString());
        const QByteArray body =
            "{\"craftID\":9.0,\"pallet\":{\"workpieceApproEnable\":true,"
            "\"workpieceApproLenX\":10.5,\"workpieceApproLenY\":20.0,\"workpieceApproLenZ\":30.0,"
            "\"workpieceApproMode\":1},\"robot\":1}\n";
        QCOMPARE(journal.messages(), (QVector<Message>{{kSet, body}}));
        QCOMPARE(journal.of("log"), (QVector<QVariantList>{{QStringLiteral("设置接近信息"), 1}}));
        QVERIFY(journal.toasts().isEmpty());
    }

    void partialReplies()
    {
        const struct {
            const char *pallet;
            const char *state;
        } replies[] = {
            {"{}", "1 1 10.5 20 30"},
            {"{\"workpieceApproEnable\":false}", "0 1 10.5 20 30"},
            {"{\"workpieceApproMode\":0}", "1 0 10.5 20 30"},
            {"{\"workpieceApproMode\":2}", "1 1 10.5 20 30"},
            {"{\"workpieceApproMode\":2147483648}", "1 1 10.5 20 30"},
            {"{\"workpieceApproMode\":-1}", "1 -1 10.5 20 30"},
            {"{\"workpieceApproLenX\":1234567}", "1 1 1.23457e+06 20 30"},
            {"{\"workpieceApproLenY\":-0.125}", "1 1 10.5 -0.125 30"},
            {"{\"workpieceApproLenZ\":\"1\"}", "1 1 10.5 20 30"},
        };
        for (const auto &reply : replies) {
            support::receive(kReply, palletReply(kFull));
            support::receive(kReply, palletReply(reply.pallet));
            QCOMPARE(state(), QString::fromLatin1(reply.state));
        }
    }

    void refusals_data()
    {
        QTest::addColumn<int>("edit");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("check"); ///< 0: taken, 1: the pattern, 2: the range
        for (int edit = 0; edit < 3; ++edit) {
            const auto add = [edit](const char *text, int check) {
                QTest::addRow("%s '%s'", kEdits[edit], text)
                    << edit << QString::fromUtf8(text) << check;
            };
            for (const char *text :
                 {"", ".5", "1.", "1e3", "abc", "--1", "nan", "inf", "1,5", "５", "5０", "5.０"})
                add(text, 1);
            for (const char *text : {"0", "-0", "+5", "007", "0.001", "4999.999", "5000"})
                add(text, 0);
            for (const char *text :
                 {"-0.001", "-1", "5000.001", "5001", "1234567890123456789012345678901234567890"})
                add(text, 2);
        }
    }
    void refusals()
    {
        QFETCH(int, edit);
        QFETCH(QString, text);
        QFETCH(int, check);
        pressModify();
        field(kEdits[edit])->setText(text);
        support::Journal journal;
        pressModify();
        QCOMPARE(kPage.complaint(pages, check != 0), QString());
        QCOMPARE(journal.messages().size(), check == 0 ? 1 : 0);
        QVector<Toast> expected;
        if (check == 1)
            expected.append(refusal(kMessages[edit], 5000, 1));
        else if (check == 2)
            expected.append(refusal(kMessages[edit], 3000, 4));
        QCOMPARE(support::toasts(journal), expected);
    }

    /// All patterns come before all ranges.
    void order()
    {
        pressModify();
        for (const char *name : kEdits)
            field(name)->setText(QStringLiteral("x"));
        for (int i = 0; i < 6; ++i) {
            support::Journal journal;
            pressModify();
            QCOMPARE(support::toasts(journal),
                     QVector<Toast>{i < 3 ? refusal(kMessages[i], 5000, 1)
                                          : refusal(kMessages[i - 3], 3000, 4)});
            field(kEdits[i % 3])->setText(i < 3 ? QStringLiteral("-1") : QStringLiteral("1"));
        }
        support::Journal journal;
        pressModify();
        const Json::Value sent = support::json(journal.messages().at(0).body);
        for (const char *key : kKeys)
            QCOMPARE(wire::number(sent, "pallet", key).value_or(0), 1.0);
    }

    void anotherRobot()
    {
        support::Journal journal;
        support::receive(kReply, palletReply("{\"workpieceApproLenX\":9}", 2, 3));
        QCOMPARE(support::toasts(journal),
                 QVector<Toast>{refusal("pallet approach parameter error!", 5000, 1)});
        QCOMPARE(field(kEdits[0])->text(), QStringLiteral("9"));
        QCOMPARE(support::craft(pages)->currentIndex(), 1);
        QCOMPARE(child<QLabel>(pages, "technologyNumber_6")->text(), QStringLiteral("工艺号:2"));
    }
};

QTEST_MAIN(TestApproach)
#include "test_approach.moc"
