// The polishing pages: reading a process number, editing, refusing, saving.

#include "polishpage.h"

#include "digitallineedit.h"
#include "shell/buttonstyle.h"

#include <QLabel>
#include <QToolButton>
#include <algorithm>
#include <iterator>

using support::child;
using support::enter;
using support::kGetPolish;
using support::kPolishFields;
using support::kSetPolish;
using support::Message;
using support::PolishField;
using support::readOf;

namespace {

constexpr wire::reply::Id kReply = wire::reply::robot_Polish_Para;

/// Nine different values, as they stand on the page.
const QStringList kTexts = {QStringLiteral("0.5"), QStringLiteral("1.25"), QStringLiteral("-2.5"),
                            QStringLiteral("3"),   QStringLiteral("-4.5"), QStringLiteral("5.125"),
                            QStringLiteral("-6"),  QStringLiteral("0.03"), QStringLiteral("12")};

QByteArray replyWith(int number, const QByteArray &polish, int robot = 1)
{
    return "{\"robot\":" + QByteArray::number(robot) + ",\"craftID\":" + QByteArray::number(number)
        + ",\"polish\":" + polish + "}\n";
}

const QByteArray kPolish = "{\"toolWear\":0.5,\"startToolOffset\":{\"X\":1.25,\"Y\":-2.5,\"Z\":3},"
                           "\"endToolOffset\":{\"X\":-4.5,\"Y\":5.125,\"Z\":-6},"
                           "\"autoFeed\":{\"value\":0.03,\"cycle\":12}}";

} // namespace

class TestPolish : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    void edit(const support::PolishPage &page)
    {
        if (page.isViewing())
            page.pressModify();
    }

private slots:
    void initTestCase()
    {
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
    }

    /// Each test starts on the parameters of number 1, read and in view state.
    void init()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        MoreRobot::setCurrentRobot(1);
        const support::PolishPage page(pages);
        page.number()->setCurrentIndex(0);
        page.open();
        page.setTexts(kTexts);
        QVERIFY(page.isViewing());
    }

    // ---- what stands on the pages ---------------------------------------------------------------

    void firstPage()
    {
        const QWidget *first = pages->widget(47);
        const auto *open = child<QToolButton>(pages, "BtnPolishPara");
        const auto *back = child<QPushButton>(pages, "m_pBtnPolishReturn");
        QVERIFY(first->isAncestorOf(open));
        QVERIFY(first->isAncestorOf(back));
        QCOMPARE(open->text(), QStringLiteral("打磨参数"));
        QCOMPARE(back->text(), QStringLiteral("返回"));
        for (const char *name : {"m_pBtnPolishReturn", "btnPolishReturn", "btnPolishModify"})
            QCOMPARE(child<QPushButton>(pages, name)->styleSheet(), returnButtonSheet());
    }

    void parameterPage()
    {
        TechnologyWidget fresh(nullptr);
        const support::PolishPage page(&fresh);
        const QWidget *stage = fresh.widget(48);
        QCOMPARE(stage->objectName(), QStringLiteral("page_5"));
        QCOMPARE(page.number()->count(), 9);
        QCOMPARE(page.number()->currentIndex(), 0);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(page.number()->itemText(i), QString::number(i + 1));
        QCOMPARE(page.modify()->text(), QStringLiteral("修改"));
        QCOMPARE(child<QPushButton>(&fresh, "btnPolishReturn")->text(), QStringLiteral("返回"));

        QStringList labels;
        const auto found = stage->findChildren<QLabel *>();
        for (const QLabel *label : found)
            labels += label->text();
        for (const char *text : {"打磨工艺参数", "工艺号", "参数", "数值", "注释"})
            QVERIFY2(labels.contains(QString::fromUtf8(text)), text);

        const auto *holder = child<QWidget>(&fresh, "polishparamwidget");
        QVERIFY(stage->isAncestorOf(holder));
        for (const PolishField &row : kPolishFields) {
            const auto *field = child<DigitalLineEdit>(&fresh, row.name);
            QVERIFY2(holder->isAncestorOf(field), row.name);
            QVERIFY2(field->text() == QLatin1String("0"), row.name);
            QVERIFY2(labels.contains(QString::fromUtf8(row.label)), row.name);
            QVERIFY2(labels.contains(QString::fromUtf8(row.note)), row.name);
            QVERIFY2(field->minimumHeight() >= 40, row.name);
            // the keypad says which field it is for
            QCOMPARE(field->property("fieldName").toString(), QString::fromUtf8(row.label));
            QVERIFY2(!field->property("fieldUnit").toString().isEmpty(), row.name);
        }
        QCOMPARE(static_cast<int>(holder->findChildren<DigitalLineEdit *>().size()), 9);
    }

    /// From top to bottom in the order of the table, each beside its label and its note, none cut
    /// off.
    void fieldsOnScreen()
    {
        const QWidget *stage = pages->widget(48);
        const auto labels = stage->findChildren<QLabel *>();
        int last = -1;
        for (const PolishField &row : kPolishFields) {
            const auto *field = child<QLineEdit>(pages, row.name);
            const QRect place(field->mapTo(stage, QPoint()), field->size());
            QVERIFY2(stage->rect().contains(place), row.name);
            QVERIFY2(place.top() > last, row.name);
            last = place.bottom();
            for (const char *text : {row.label, row.note}) {
                const auto label =
                    std::find_if(labels.begin(), labels.end(), [text](const QLabel *each) {
                        return each->text() == QString::fromUtf8(text);
                    });
                QVERIFY2(label != labels.end(), text);
                const int middle = (*label)->mapTo(stage, (*label)->rect().center()).y();
                QVERIFY2(middle >= place.top() && middle <= place.bottom(), text);
                QVERIFY2((*label)->width() >= (*label)->sizeHint().width(), text);
            }
        }
        for (const char *name : {"btnPolishReturn", "btnPolishModify"}) {
            const auto *button = child<QPushButton>(pages, name);
            const QRect place(button->mapTo(stage, QPoint()), button->size());
            QVERIFY2(stage->rect().contains(place) && place.top() > last, name);
            QVERIFY2(place.height() >= 40, name);
        }
    }

    // ---- reading --------------------------------------------------------------------------------

    /// Menu, first page, parameters: pages, titles and the one message, in this order.
    void opening()
    {
        const support::PolishPage page(pages);
        pages->return_mainPage();
        page.number()->blockSignals(true);
        page.number()->setCurrentIndex(2);
        page.number()->blockSignals(false);

        QStringList lines;
        QObject context;
        connect(pages, &QStackedWidget::currentChanged, &context,
                [&](int index) { lines += QStringLiteral("page %1").arg(index); });
        connect(pages, &TechnologyWidget::tnw_WidgetTitle, &context,
                [&](int group, int title, int third) {
                    lines += QStringLiteral("title %1 %2 %3").arg(group).arg(title).arg(third);
                });
        connect(Robot::getInstance(), &Robot::commandSent, &context,
                [&](unsigned short id, const QByteArray &body) {
                    lines += QStringLiteral("0x%1 %2").arg(id, 0, 16).arg(
                        QString::fromUtf8(body.trimmed()));
                });
        support::click(pages, "BtnPolish");
        support::click(pages, "BtnPolishPara");
        QCOMPARE(lines,
                 QStringList({QStringLiteral("page 47"), QStringLiteral("title 8 47 0"),
                              QStringLiteral("page 48"), QStringLiteral("title 8 48 0"),
                              QStringLiteral("0x4602 {\"craftID\":3,\"robot\":1}")}));
        QVERIFY(page.isViewing());
        QCOMPARE(page.texts(), kTexts);
    }

    /// The question goes out before the page goes back to view state.
    void readingComesBeforeTheViewState()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        bool wasEditing = false;
        int indexThen = -1;
        QObject context;
        connect(Robot::getInstance(), &Robot::commandSent, &context, [&] {
            wasEditing = page.isEditing();
            indexThen = pages->currentIndex();
        });
        page.number()->setCurrentIndex(4);
        QVERIFY(wasEditing);
        QCOMPARE(indexThen, 48);
        QVERIFY(page.isViewing());
    }

    void firstReplyFills()
    {
        const support::PolishPage page(pages);
        page.setTexts(QStringList(kTexts).replaceInStrings(QRegularExpression(QStringLiteral(".+")),
                                                           QStringLiteral("0")));
        support::Journal journal;
        support::receive(kReply, replyWith(1, kPolish));
        QCOMPARE(page.texts(), kTexts);
        QVERIFY(page.isViewing());
        QCOMPARE(journal.kinds(), QStringList());
    }

    void fieldsAlone_data()
    {
        QTest::addColumn<int>("field");
        for (int i = 0; i < static_cast<int>(std::size(kPolishFields)); ++i)
            QTest::newRow(kPolishFields[i].name) << i;
    }
    /// A reply that holds one value changes one field.
    void fieldsAlone()
    {
        QFETCH(int, field);
        const PolishField &row = kPolishFields[field];
        const support::PolishPage page(pages);
        Json::Value body;
        body["robot"] = 1;
        support::placeOf(body, row) = 77;
        support::receive(kReply, wire::writeLine(body));
        QStringList expected = kTexts;
        expected[field] = QStringLiteral("77");
        QCOMPARE(page.texts(), expected);

        // and one that holds all but it leaves it alone
        Json::Value rest = support::json(replyWith(1, kPolish));
        for (const PolishField &each : kPolishFields)
            support::placeOf(rest, each) = 5;
        Json::Value &parent = row.path[2] ? rest[row.path[0]][row.path[1]] : rest[row.path[0]];
        parent.removeMember(row.path[2] ? row.path[2] : row.path[1]);
        page.setTexts(kTexts);
        support::receive(kReply, wire::writeLine(rest));
        QStringList fives;
        for (int i = 0; i < 9; ++i)
            fives += i == field ? kTexts.at(i) : QStringLiteral("5");
        QCOMPARE(page.texts(), fives);
    }

    void cycleAlone()
    {
        const support::PolishPage page(pages);
        support::receive(kReply, "{\"robot\":1,\"polish\":{\"autoFeed\":{\"cycle\":44}}}");
        QStringList expected = kTexts;
        expected[8] = QStringLiteral("44");
        QCOMPARE(page.texts(), expected);
        QCOMPARE(page.number()->currentIndex(), 0);
    }

    void partialReplies_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("robot alone") << QByteArray("{\"robot\":1}");
        QTest::newRow("no package") << QByteArray("{\"robot\":1,\"craftID\":1}");
        QTest::newRow("values beside the package")
            << QByteArray("{\"robot\":1,\"toolWear\":5,\"autoFeed\":{\"cycle\":5}}");
        QTest::newRow("empty package") << QByteArray("{\"robot\":1,\"polish\":{}}");
        QTest::newRow("empty groups")
            << QByteArray("{\"robot\":1,\"polish\":{\"startToolOffset\":{},\"endToolOffset\":{},"
                          "\"autoFeed\":{}}}");
        QTest::newRow("small letters") << QByteArray(
            "{\"robot\":1,\"polish\":{\"startToolOffset\":{\"x\":5},\"toolwear\":5}}");
        QTest::newRow("other keys") << QByteArray("{\"robot\":1,\"pallet\":{\"toolWear\":5}}");
    }
    void partialReplies()
    {
        QFETCH(QByteArray, body);
        const support::PolishPage page(pages);
        support::Journal journal;
        support::receive(kReply, body);
        QCOMPARE(page.texts(), kTexts);
        QCOMPARE(journal.kinds(), QStringList());
    }

    void dropped_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("another robot") << replyWith(4, kPolish, 2);
        QTest::newRow("robot 0") << replyWith(4, kPolish, 0);
        QTest::newRow("no robot") << QByteArray("{\"craftID\":4,\"polish\":" + kPolish + "}");
        QTest::newRow("robot as text")
            << QByteArray("{\"robot\":\"1\",\"craftID\":4,\"polish\":" + kPolish + "}");
        QTest::newRow("cut") << replyWith(4, kPolish).left(60);
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("array") << QByteArray("[" + replyWith(4, kPolish) + "]");
    }
    /// Nothing changes and nothing is shown.
    void dropped()
    {
        QFETCH(QByteArray, body);
        const support::PolishPage page(pages);
        page.setTexts(QStringList(kTexts).replaceInStrings(QRegularExpression(QStringLiteral(".+")),
                                                           QStringLiteral("8")));
        const QStringList before = page.texts();
        page.pressModify();
        support::Journal journal;
        support::receive(kReply, body);
        QCOMPARE(page.texts(), before);
        QCOMPARE(page.number()->currentIndex(), 0);
        QVERIFY(page.isEditing());
        QCOMPARE(journal.kinds(), QStringList());
    }

    void replyOfTheCurrentRobot()
    {
        const support::PolishPage page(pages);
        MoreRobot::setCurrentRobot(3);
        support::receive(kReply, replyWith(1, "{\"toolWear\":5}", 1));
        QCOMPARE(page.texts(), kTexts);
        support::receive(kReply, replyWith(1, "{\"toolWear\":5}", 3));
        QCOMPARE(page.text("toolWear"), QStringLiteral("5"));
    }

    void numberAboveTheCount()
    {
        const support::PolishPage page(pages);
        support::Journal journal;
        support::receive(kReply, replyWith(12, "{\"toolWear\":5,\"autoFeed\":{\"cycle\":6}}"));
        QCOMPARE(page.number()->currentIndex(), 0);
        QCOMPARE(page.text("toolWear"), QStringLiteral("5"));
        QCOMPARE(page.text("AutoCompensationCycle"), QStringLiteral("6"));
        QCOMPARE(journal.messages(), QVector<Message>());
    }

    void numberZero()
    {
        const support::PolishPage page(pages);
        support::Journal journal;
        support::receive(kReply, replyWith(0, "{\"toolWear\":5}"));
        QCOMPARE(page.number()->currentIndex(), -1);
        QCOMPARE(page.text("toolWear"), QStringLiteral("5"));
        QCOMPARE(journal.messages(), QVector<Message>({readOf(0)}));
        // the operator chooses again
        page.number()->setCurrentIndex(1);
        QCOMPARE(journal.messages(), QVector<Message>({readOf(0), readOf(2)}));
    }

    void numberZeroTwice()
    {
        const support::PolishPage page(pages);
        support::receive(kReply, replyWith(0, "{}"));
        support::Journal journal;
        support::receive(kReply, replyWith(0, "{\"toolWear\":6}"));
        QCOMPARE(journal.messages(), QVector<Message>());
        QCOMPARE(page.text("toolWear"), QStringLiteral("6"));
    }

    /// The number changed while the reply was under way: its number is taken over, read once more,
    /// and that ends it.
    void replyForAnotherNumber()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        support::Journal journal;
        support::receive(kReply, replyWith(5, "{\"toolWear\":5}"));
        QCOMPARE(page.number()->currentIndex(), 4);
        QCOMPARE(page.text("toolWear"), QStringLiteral("5"));
        QCOMPARE(journal.messages(), QVector<Message>({readOf(5)}));
        QVERIFY(page.isViewing()); // the page was entered anew
        support::receive(kReply, replyWith(5, "{\"toolWear\":5.5}"));
        QCOMPARE(page.text("toolWear"), QStringLiteral("5.5"));
        QCOMPARE(journal.messages(), QVector<Message>({readOf(5)}));
    }

    /// A reply for the number that is shown does not end an edit, but fills the fields.
    void replyDuringAnEdit()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        support::Journal journal;
        support::receive(kReply, replyWith(1, "{\"toolWear\":9.5}"));
        QVERIFY(page.isEditing());
        QCOMPARE(page.text("toolWear"), QStringLiteral("9.5"));
        QCOMPARE(journal.messages(), QVector<Message>());
    }

    void replyOnAnotherPage()
    {
        const support::PolishPage page(pages);
        page.leave();
        support::receive(kReply, replyWith(1, "{\"toolWear\":9.5}"));
        QCOMPARE(pages->currentIndex(), 47);
        QCOMPARE(page.text("toolWear"), QStringLiteral("9.5"));
    }

    void shownNumbers_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << QByteArray("0") << "0";
        QTest::newRow("1.0") << QByteArray("1.0") << "1";
        QTest::newRow("0.1") << QByteArray("0.1") << "0.1";
        QTest::newRow("-12.5") << QByteArray("-12.5") << "-12.5";
        QTest::newRow("six digits") << QByteArray("123456") << "123456";
        QTest::newRow("rounded") << QByteArray("12.3456789") << "12.3457";
        QTest::newRow("rounded up") << QByteArray("99999.96") << "100000";
        QTest::newRow("below a million") << QByteArray("999999") << "999999";
        QTest::newRow("a million") << QByteArray("1000000") << "1e+06";
        QTest::newRow("above a million") << QByteArray("1234567") << "1.23457e+06";
        QTest::newRow("small") << QByteArray("0.0001") << "0.0001";
        QTest::newRow("smaller") << QByteArray("0.00001") << "1e-05";
        QTest::newRow("highest int") << QByteArray("2147483647") << "2.14748e+09";
        QTest::newRow("2^64 - 1") << QByteArray("18446744073709551615") << "1.84467e+19";
        QTest::newRow("1e308") << QByteArray("1e308") << "1e+308";
    }
    /// All nine alike, the cycle too.
    void shownNumbers()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, text);
        const support::PolishPage page(pages);
        QByteArray polish = kPolish;
        polish.replace(":0.5", ":" + value)
            .replace(":1.25", ":" + value)
            .replace(":-2.5", ":" + value)
            .replace(":3", ":" + value)
            .replace(":-4.5", ":" + value)
            .replace(":5.125", ":" + value)
            .replace(":-6", ":" + value)
            .replace(":0.03", ":" + value)
            .replace(":12}", ":" + value + "}");
        support::receive(kReply, replyWith(1, polish));
        for (const QString &shown : page.texts())
            QCOMPARE(shown, text);
    }

    void wrongTypes_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QByteArray>("value");
        for (int i = 0; i < static_cast<int>(std::size(kPolishFields)); ++i) {
            for (const char *value : {"null", "true", "\"5\"", "[5]", "{\"X\":5}"})
                QTest::addRow("%s %s", kPolishFields[i].name, value) << i << QByteArray(value);
        }
    }
    /// A value of another type leaves its field as it was, fills the others, and is journalled.
    void wrongTypes()
    {
        QFETCH(int, field);
        QFETCH(QByteArray, value);
        const PolishField &row = kPolishFields[field];
        const support::PolishPage page(pages);
        Json::Value body;
        body["robot"] = 1;
        for (const PolishField &each : kPolishFields)
            support::placeOf(body, each) = 5;
        Json::Value odd;
        Json::Reader().parse(value.toStdString(), odd);
        support::placeOf(body, row) = odd;
        QStringList path;
        for (const char *key : row.path) {
            if (key)
                path += QString::fromLatin1(key);
        }
        support::Journal journal;
        support::receive(kReply, wire::writeLine(body));
        QStringList expected;
        for (int i = 0; i < 9; ++i)
            expected += i == field ? kTexts.at(i) : QStringLiteral("5");
        QCOMPARE(page.texts(), expected);
        QCOMPARE(journal.of("reading"),
                 QVector<QVariantList>({{0x4603, path.join(QLatin1Char('/'))}}));
        QCOMPARE(journal.toasts(), QStringList());
    }

    // ---- editing --------------------------------------------------------------------------------

    void startingAnEdit()
    {
        const support::PolishPage page(pages);
        support::Journal journal;
        page.pressModify();
        QVERIFY(page.isEditing());
        QCOMPARE(journal.kinds(), QStringList());
        QVERIFY(child<QPushButton>(pages, "btnPolishReturn")->isEnabled());
        QVERIFY(page.number()->isEnabled());
        QVERIFY(page.modify()->isEnabled());
        QCOMPARE(page.texts(), kTexts);
    }

    void typingNeedsTheEditState()
    {
        const support::PolishPage page(pages);
        for (const PolishField &row : kPolishFields)
            enter(page.field(row.name), QStringLiteral("99"));
        QCOMPARE(page.texts(), kTexts);
        page.pressModify();
        for (const PolishField &row : kPolishFields)
            enter(page.field(row.name), QStringLiteral("99"));
        QCOMPARE(page.texts().count(QStringLiteral("99")), 9);
    }

    /// With the fields locked the number can still be changed, by hand too.
    void changingTheNumberInView()
    {
        const support::PolishPage page(pages);
        support::Journal journal;
        QTest::keyClick(page.number(), Qt::Key_Down);
        QCOMPARE(page.number()->currentIndex(), 1);
        QCOMPARE(journal.messages(), QVector<Message>({readOf(2)}));
        QCOMPARE(page.texts(), kTexts);
        QVERIFY(page.isViewing());
        QCOMPARE(pages->currentIndex(), 48);
    }

    void changingTheNumberInEdit()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        enter(page.field("toolWear"), QStringLiteral("99"));
        support::Journal journal;
        QTest::keyClick(page.number(), Qt::Key_Down);
        QCOMPARE(journal.kinds().count(QStringLiteral("toast")), 0);
        QCOMPARE(journal.messages(), QVector<Message>({readOf(2)}));
        QVERIFY(page.isViewing());
        // until the reply comes the typed text stands
        QCOMPARE(page.text("toolWear"), QStringLiteral("99"));
        support::receive(kReply, replyWith(2, kPolish));
        QCOMPARE(page.texts(), kTexts);
    }

    void leavingAnEdit()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        enter(page.field("toolWear"), QStringLiteral("99"));
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        support::Journal journal;
        page.leave();
        QCOMPARE(pages->currentIndex(), 47);
        QCOMPARE(titles.last(), QVariantList({8, 47, 0}));
        QCOMPARE(journal.kinds(), QStringList());
        support::click(pages, "BtnPolishPara");
        QCOMPARE(pages->currentIndex(), 48);
        QVERIFY(page.isViewing());
        QCOMPARE(journal.messages(), QVector<Message>({readOf(1)}));
        support::receive(kReply, replyWith(1, kPolish));
        QCOMPARE(page.texts(), kTexts);
    }

    void backToTheMenu()
    {
        const support::PolishPage page(pages);
        page.leave();
        App::secondPage_ = 1;
        support::click(pages, "m_pBtnPolishReturn");
        QCOMPARE(pages->currentIndex(), 0);
        QCOMPARE(App::secondPage_, 28);
    }

    // ---- refusing -------------------------------------------------------------------------------

    void refusals_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        for (int i = 0; i < static_cast<int>(std::size(kPolishFields)); ++i) {
            for (const char *text : {"",     " ",   "abc",   "1,5",    "1.2.3",    "-",    "+",
                                     ".",    "--1", "1e",    "e5",     "0x10",     "1 2",  "inf",
                                     "-inf", "nan", "1e999", "-1e999", "infinity", "１２", "五"})
                QTest::addRow("%s '%s'", kPolishFields[i].name, text)
                    << i << QString::fromUtf8(text);
        }
        for (const char *text : {"2.5", "1e3", "1.0", "2147483648", "99999999999999999999",
                                 "-2147483649", "-2.5", "-abc", "1.23457e+06"})
            QTest::addRow("cycle '%s'", text) << 8 << QString::fromUtf8(text);
    }
    void refusals()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        const support::PolishPage page(pages);
        page.pressModify();
        page.field(kPolishFields[field].name)->setText(text);
        const QStringList before = page.texts();
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.kinds(), QStringList(QStringLiteral("toast")));
        QCOMPARE(journal.of("toast"),
                 QVector<QVariantList>(
                     {{QString::fromUtf8(kPolishFields[field].refusal), 3000, 4, true}}));
        QVERIFY(page.isEditing());
        QCOMPARE(page.texts(), before);
        QCOMPARE(pages->currentIndex(), 48);
    }

    void emptyWear()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        enter(page.field("toolWear"), QString());
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.toasts(),
                 QStringList(QStringLiteral("参数工具磨损补偿不合理，请重新设置")));
        QCOMPARE(page.modify()->text(), QStringLiteral("保存"));
    }

    void cycleBelowZero_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("-1") << "-1";
        QTest::newRow("-12") << "-12";
        QTest::newRow("lowest int") << "-2147483648";
        QTest::newRow("with blanks") << " -3 ";
    }
    void cycleBelowZero()
    {
        QFETCH(QString, text);
        const support::PolishPage page(pages);
        page.pressModify();
        page.field("AutoCompensationCycle")->setText(text);
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.kinds(), QStringList(QStringLiteral("toast")));
        QCOMPARE(
            journal.of("toast"),
            QVector<QVariantList>({{QStringLiteral("自动补偿周期不能为负数"), 3000, 4, true}}));
        QVERIFY(page.isEditing());
    }

    /// The checks run from top to bottom and stop at the first that fails.
    void firstFailureOnly()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        for (const PolishField &row : kPolishFields)
            page.field(row.name)->setText(row.isCount ? QStringLiteral("-1") : QStringLiteral("x"));
        QStringList expected;
        for (const PolishField &row : kPolishFields)
            expected += row.isCount ? QStringLiteral("自动补偿周期不能为负数")
                                    : QString::fromUtf8(row.refusal);
        support::Journal journal;
        for (const PolishField &row : kPolishFields) {
            page.pressModify();
            page.field(row.name)->setText(row.isCount ? QStringLiteral("x") : QStringLiteral("1"));
        }
        QCOMPARE(journal.toasts(), expected);
        QCOMPARE(journal.messages(), QVector<Message>());
        page.pressModify();
        QCOMPARE(journal.toasts(),
                 expected << QStringLiteral("参数自动补偿周期不合理，请重新设置"));
        QVERIFY(page.isEditing());
        page.field("AutoCompensationCycle")->setText(QStringLiteral("1"));
        page.pressModify();
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QVERIFY(page.isViewing());
    }

    // ---- saving ---------------------------------------------------------------------------------

    /// The whole message, byte for byte, typed by hand.
    void setMessage()
    {
        const support::PolishPage page(pages);
        page.number()->setCurrentIndex(2);
        page.pressModify();
        int i = 0;
        for (const PolishField &row : kPolishFields)
            enter(page.field(row.name), kTexts.at(i++));
        support::Journal journal;
        page.pressModify();
        QCOMPARE(
            journal.messages(),
            QVector<Message>({{kSetPolish,
                               "{\"craftID\":3,\"polish\":{\"autoFeed\":{\"cycle\":12,\"value\":"
                               "0.029999999999999999},"
                               "\"endToolOffset\":{\"X\":-4.5,\"Y\":5.125,\"Z\":-6.0},"
                               "\"startToolOffset\":{\"X\":1.25,\"Y\":-2.5,\"Z\":3.0},"
                               "\"toolWear\":0.5},\"robot\":1}\n"}}));
        QVERIFY(page.isViewing());
        QCOMPARE(page.texts(), kTexts);
        QCOMPARE(journal.toasts(), QStringList());
    }

    void roundTrips_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QByteArray>("value"); // in the reply
        for (int i = 0; i < static_cast<int>(std::size(kPolishFields)); ++i) {
            const bool isCount = kPolishFields[i].isCount;
            for (const char *value : {"0", "1", "7", "12", "999999"})
                QTest::addRow("%s %s", kPolishFields[i].name, value) << i << QByteArray(value);
            if (isCount)
                continue;
            for (const char *value : {"0.5", "-0.5", "-12.125", "0.1", "1000000", "1234567",
                                      "-1234567.5", "1e-05", "1e+100", "123.456"})
                QTest::addRow("%s %s", kPolishFields[i].name, value) << i << QByteArray(value);
        }
    }
    /// What a reply shows is what a save sends, at its place and in its type.
    void roundTrips()
    {
        QFETCH(int, field);
        QFETCH(QByteArray, value);
        const PolishField &row = kPolishFields[field];
        const support::PolishPage page(pages);
        Json::Value body = support::json(replyWith(1, kPolish));
        Json::Value number;
        QVERIFY(Json::Reader().parse(value.toStdString(), number));
        support::placeOf(body, row) = number;
        support::receive(kReply, wire::writeLine(body));
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QCOMPARE(journal.messages().first().id, kSetPolish);
        const Json::Value sent = support::json(journal.messages().first().body);
        const double shown = QString::number(value.toDouble(), 'g', 6).toDouble();
        const Json::Value *at = support::valueAt(sent, row);
        QVERIFY(at);
        QCOMPARE(at->asDouble(), shown);
        for (const PolishField &each : kPolishFields) {
            const Json::Value *other = support::valueAt(sent, each);
            QVERIFY2(other, each.name);
            QVERIFY2(other->type() == (each.isCount ? Json::intValue : Json::realValue), each.name);
            if (&each != &row)
                QCOMPARE(other->asDouble(),
                         support::valueAt(support::json(replyWith(1, kPolish)), each)->asDouble());
        }
    }

    /// Stored values come back rounded to what was shown.
    void roundedByTheWay()
    {
        const support::PolishPage page(pages);
        support::receive(kReply, replyWith(1, "{\"toolWear\":12.3456789}"));
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        const Json::Value sent = support::json(journal.messages().first().body);
        QCOMPARE(*wire::number(sent, "polish", "toolWear"), 12.3457);
    }

    /// A cycle of a million is shown with an exponent, which is no whole number to save.
    void largeCycle()
    {
        const support::PolishPage page(pages);
        support::receive(kReply, replyWith(1, "{\"autoFeed\":{\"cycle\":1234567}}"));
        QCOMPARE(page.text("AutoCompensationCycle"), QStringLiteral("1.23457e+06"));
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.toasts(),
                 QStringList(QStringLiteral("参数自动补偿周期不合理，请重新设置")));
        enter(page.field("AutoCompensationCycle"), QStringLiteral("2147483647"));
        page.pressModify();
        QCOMPARE(journal.messages().first().id, kSetPolish);
        QCOMPARE(*wire::integer(support::json(journal.messages().first().body), "polish",
                                "autoFeed", "cycle"),
                 2147483647);
    }

    void negativesPass()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        for (const PolishField &row : kPolishFields)
            page.field(row.name)->setText(row.isCount ? QStringLiteral("0")
                                                      : QStringLiteral("-1.5"));
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.kinds().count(QStringLiteral("toast")), 0);
        QCOMPARE(journal.messages().first().body,
                 QByteArray("{\"craftID\":1,\"polish\":{\"autoFeed\":{\"cycle\":0,\"value\":-1.5},"
                            "\"endToolOffset\":{\"X\":-1.5,\"Y\":-1.5,\"Z\":-1.5},"
                            "\"startToolOffset\":{\"X\":-1.5,\"Y\":-1.5,\"Z\":-1.5},"
                            "\"toolWear\":-1.5},\"robot\":1}\n"));
    }

    void acceptedTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("0") << "0" << 0.0;
        QTest::newRow("sign") << "+5" << 5.0;
        QTest::newRow("leading zeros") << "007" << 7.0;
        QTest::newRow("leading point") << ".5" << 0.5;
        QTest::newRow("closing point") << "5." << 5.0;
        QTest::newRow("exponent") << "1e3" << 1000.0;
        QTest::newRow("shown exponent") << "1.23457e+06" << 1234570.0;
        QTest::newRow("blanks around") << " 2.5 " << 2.5;
        QTest::newRow("large") << "1e308" << 1e308;
        QTest::newRow("small") << "0.000001" << 0.000001;
        QTest::newRow("many digits") << "3.14159265358979" << 3.14159265358979;
    }
    /// There is no range: any finite number passes.
    void acceptedTexts()
    {
        QFETCH(QString, text);
        QFETCH(double, value);
        const support::PolishPage page(pages);
        for (const PolishField &row : kPolishFields) {
            if (row.isCount)
                continue;
            page.setTexts(kTexts);
            edit(page);
            page.field(row.name)->setText(text);
            support::Journal journal;
            page.pressModify();
            QCOMPARE(journal.toasts(), QStringList());
            const Json::Value sent = support::json(journal.messages().first().body);
            QCOMPARE(support::valueAt(sent, row)->asDouble(), value);
        }
    }

    void acceptedCycles_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value");
        QTest::newRow("0") << "0" << 0;
        QTest::newRow("-0") << "-0" << 0;
        QTest::newRow("+7") << "+7" << 7;
        QTest::newRow("007") << "007" << 7;
        QTest::newRow("010 is ten") << "010" << 10;
        QTest::newRow("largest") << "2147483647" << 2147483647;
    }
    void acceptedCycles()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        const support::PolishPage page(pages);
        page.pressModify();
        page.field("AutoCompensationCycle")->setText(text);
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.toasts(), QStringList());
        QCOMPARE(*wire::integer(support::json(journal.messages().first().body), "polish",
                                "autoFeed", "cycle"),
                 value);
    }

    /// The message goes out from the edit state, and nothing is asked or told afterwards.
    void savingIsQuiet()
    {
        const support::PolishPage page(pages);
        page.pressModify();
        bool wasEditing = false;
        QObject context;
        connect(Robot::getInstance(), &Robot::commandSent, &context,
                [&] { wasEditing = page.isEditing(); });
        support::Journal journal;
        page.pressModify();
        QVERIFY(wasEditing);
        QVERIFY(page.isViewing());
        QCOMPARE(journal.of("message").size(), decltype(journal.of("message").size())(1));
        QCOMPARE(journal.toasts(), QStringList());
        QCOMPARE(journal.of("log").size(), decltype(journal.of("log").size())(0));
        QCOMPARE(pages->currentIndex(), 48);
    }

    void savingForAnotherRobot()
    {
        const support::PolishPage page(pages);
        MoreRobot::setCurrentRobot(4);
        page.open();
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        const Json::Value sent = support::json(journal.messages().first().body);
        QCOMPARE(*wire::integer(sent, "robot"), 4);
        journal.clear();
        page.number()->setCurrentIndex(8);
        QCOMPARE(journal.messages(), QVector<Message>({readOf(9, 4)}));
    }

    void savingWithoutARow()
    {
        const support::PolishPage page(pages);
        support::receive(kReply, replyWith(0, "{}"));
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        QCOMPARE(*wire::integer(support::json(journal.messages().first().body), "craftID"), 0);
        QVERIFY(page.isViewing());
    }

    /// A double touch counts as two presses: edit and save, or save and edit; one message each.
    void doublePress()
    {
        const support::PolishPage page(pages);
        const auto pressTwice = [&page] {
            QTest::mouseClick(page.modify(), Qt::LeftButton);
            QTest::mouseDClick(page.modify(), Qt::LeftButton);
            QTest::mouseRelease(page.modify(), Qt::LeftButton);
        };
        support::Journal journal;
        pressTwice();
        QVERIFY(page.isViewing());
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QCOMPARE(journal.messages().first().id, kSetPolish);
        page.pressModify();
        journal.clear();
        pressTwice();
        QVERIFY(page.isEditing());
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QCOMPARE(journal.toasts(), QStringList());
        QCOMPARE(page.texts(), kTexts);
    }

    /// Two presses one after the other: an edit that changed nothing is saved once.
    void twoPresses()
    {
        const support::PolishPage page(pages);
        support::Journal journal;
        page.pressModify();
        page.pressModify();
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        QVERIFY(page.isViewing());
        page.pressModify();
        page.pressModify();
        QCOMPARE(static_cast<int>(journal.messages().size()), 2);
        QCOMPARE(journal.messages().first(), journal.messages().last());
    }

    void anotherTextOnTheButton()
    {
        const support::PolishPage page(pages);
        for (const char *text : {"", "确定", "修改 "}) {
            page.modify()->setText(QString::fromUtf8(text));
            support::Journal journal;
            page.pressModify();
            QCOMPARE(journal.kinds(), QStringList());
            QVERIFY(page.isIn(QString::fromUtf8(text), false));
        }
        page.modify()->setText(QStringLiteral("修改"));
    }

    /// Without a controller the page behaves as if the message had gone: no word on the screen
    /// before a controller was ever connected, only in the journal.
    void withoutAController()
    {
        QVERIFY(!Robot::getInstance()->isConnected());
        const support::PolishPage page(pages);
        const quint64 refused = Robot::getInstance()->refusedCount();
        page.pressModify();
        support::Journal journal;
        page.pressModify();
        QVERIFY(page.isViewing());
        QCOMPARE(journal.kinds(), QStringList({QStringLiteral("message"), QStringLiteral("link")}));
        QCOMPARE(journal.of("link").first().at(0).toString(), QStringLiteral("refused"));
        QCOMPARE(Robot::getInstance()->refusedCount(), refused + 1);
        page.number()->setCurrentIndex(3);
        QVERIFY(page.isViewing());
        QCOMPARE(page.texts(), kTexts);
    }

    /// One whole visit as the journal tells it.
    void journalOfAVisit()
    {
        pages->return_mainPage();
        const support::PolishPage page(pages);
        support::Journal journal;
        support::click(pages, "BtnPolish");
        support::click(pages, "BtnPolishPara");
        support::receive(kReply, replyWith(1, kPolish));
        page.pressModify();
        enter(page.field("toolOffsetZ"), QStringLiteral("x"));
        page.pressModify();
        enter(page.field("toolOffsetZ"), QStringLiteral("3.5"));
        page.pressModify();
        page.leave();
        support::click(pages, "m_pBtnPolishReturn");

        QStringList kinds = journal.kinds();
        kinds.removeAll(QStringLiteral("link")); // no controller is connected here
        QCOMPARE(kinds,
                 QStringList({QStringLiteral("rights"), QStringLiteral("message"),
                              QStringLiteral("toast"), QStringLiteral("message")}));
        QCOMPARE(journal.of("rights").first(), QVariantList({QStringLiteral("打磨工艺"), true}));
        QCOMPARE(journal.messages().first(), readOf(1));
        QCOMPARE(journal.messages().last().id, kSetPolish);
        QCOMPARE(*wire::number(support::json(journal.messages().last().body), "polish",
                               "startToolOffset", "Z"),
                 3.5);
    }

    /// The numeric keypad works on these fields: touched in edit state, not in view state.
    void touchingAField()
    {
        const support::PolishPage page(pages);
        QLineEdit *field = page.field("toolWear");
        QTest::mouseClick(field, Qt::LeftButton);
        QVERIFY(!pages->window()->findChild<QAbstractButton *>(QStringLiteral("key_7")));
        page.pressModify();
        QTest::mouseClick(field, Qt::LeftButton);
        for (const char *key : {"key_7", "key_point", "key_2"})
            support::click(pages->window(), key);
        support::click(pages->window(), "key_ok");
        QCOMPARE(field->text(), QStringLiteral("7.2"));
        QVERIFY(page.isEditing());
        support::Journal journal;
        page.pressModify();
        QCOMPARE(
            *wire::number(support::json(journal.messages().first().body), "polish", "toolWear"),
            7.2);
    }
};

QTEST_MAIN(TestPolish)
#include "test_polish.moc"
