// The type page: craft, mode, the question before a mode is changed, and the two navigation pages.

#include "course.h"

#include "language.h"
#include "shell/buttonstyle.h"

using support::child;
using support::click;
using support::Course;
using support::isEnabled;
using support::labelText;
using support::receive;

namespace {

constexpr wire::reply::Id kReply = wire::reply::robot_switchpalletmode;

const char *const kControls[] = {"m_pPalletCraftNum", "BtnPalletEasy",      "BtnPalletComplete",
                                 "palletTypeReturn",  "cleanPalletParaBtn", "copyPalletParaBtn"};

const char *const kStates[] = {"已设定为简易码垛", "已设定为完整码垛", "未设定"};

QByteArray replyOf(int craft, int mode, int robot = 1)
{
    return QStringLiteral("{\"robot\":%1,\"craftID\":%2,\"usePalletType\":%3}")
        .arg(robot)
        .arg(craft)
        .arg(mode)
        .toUtf8();
}

QString get(int craft)
{
    return QStringLiteral("0x4222 {\"craftID\":%1,\"robot\":1}").arg(craft);
}
QString body(int craft, int mode)
{
    return QStringLiteral("{\"craftID\":%1,\"robot\":1,\"usePalletType\":%2}").arg(craft).arg(mode);
}

} // namespace

class TestMode : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    QComboBox *craft() const { return support::box(pages, QStringLiteral("m_pPalletCraftNum")); }
    QString state() const { return labelText(pages, QStringLiteral("palletstate")); }
    PromptWidget *prompt() const { return PromptWidget::getInstance(); }

    bool controlsAre(bool enabled) const
    {
        for (const char *name : kControls) {
            if (isEnabled(pages, QString::fromLatin1(name)) != enabled)
                return false;
        }
        return true;
    }

    QStringList chainLabels() const
    {
        QStringList texts;
        for (int i = 1; i <= 10; ++i) {
            const QString name = i == 1 ? QStringLiteral("technologyNumber")
                                        : QStringLiteral("technologyNumber_%1").arg(i);
            if (const auto *label = pages->findChild<QLabel *>(name))
                texts += label->text();
        }
        return texts;
    }
    QStringList easyLabels() const
    {
        return {labelText(pages, QStringLiteral("technologyPalletEasyNumber")),
                labelText(pages, QStringLiteral("technologyPalletEasyNumber_2")),
                labelText(pages, QStringLiteral("technologyPalletEasyNumber_3"))};
    }
    void setLabels(const QString &text) const
    {
        for (int i = 1; i <= 10; ++i) {
            const QString name = i == 1 ? QStringLiteral("technologyNumber")
                                        : QStringLiteral("technologyNumber_%1").arg(i);
            if (auto *label = pages->findChild<QLabel *>(name))
                label->setText(text);
        }
        for (const char *name : {"technologyPalletEasyNumber", "technologyPalletEasyNumber_2",
                                 "technologyPalletEasyNumber_3"})
            child<QLabel>(pages, name)->setText(text);
    }
    static bool areAll(const QStringList &texts, const char *text)
    {
        return !texts.isEmpty() && texts.count(QString::fromUtf8(text)) == texts.size();
    }

    /// The type page with craft 1 in a mode.
    void openIn(int mode)
    {
        pages->showPalletTypeWidget();
        receive(kReply, replyOf(1, mode));
        QCOMPARE(state(), QString::fromUtf8(kStates[mode]));
    }

private slots:
    void initTestCase()
    {
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
        QVERIFY(QTest::qWaitForWindowExposed(pages));
    }

    void init() { support::startPallet(pages); }
    void cleanup() { prompt()->close(); }

    // ---- what stands on the pages ---------------------------------------------------------------

    void form()
    {
        TechnologyWidget fresh(nullptr);
        const QWidget *stage = fresh.widget(57);
        QCOMPARE(stage->objectName(), QStringLiteral("page_14"));
        for (const char *name : kControls) {
            const auto *control = child<QWidget>(&fresh, name);
            QVERIFY2(stage->isAncestorOf(control), name);
            QVERIFY2(control->minimumHeight() >= 40 || control->height() >= 40, name);
            QVERIFY2(control->isEnabledTo(&fresh), name);
        }
        const auto *box = child<QComboBox>(&fresh, "m_pPalletCraftNum");
        const auto *located = child<QComboBox>(&fresh, "m_pLocATCraftNum");
        QVERIFY(fresh.widget(58)->isAncestorOf(located));
        for (const QComboBox *each : {box, located}) {
            QCOMPARE(each->count(), 9);
            QCOMPARE(each->currentIndex(), 0);
            for (int i = 0; i < 9; ++i)
                QCOMPARE(each->itemText(i), QString::number(i + 1));
        }
        QCOMPARE(labelText(&fresh, QStringLiteral("palletstate")),
                 QStringLiteral("已设定为完整码垛"));
        QVERIFY(fresh.widget(38)->findChildren<QPushButton *>().isEmpty());
    }

    void navigationForms()
    {
        const QWidget *chain = pages->widget(23);
        for (const char *name :
             {"palletNavigationStart", "setTongsBtn", "setTrayBtn", "setPositionBtn",
              "workpieceParaBtn", "approachParaBtn", "overlappingModelBtn", "planeModelBtn",
              "palletNavigationReturn"}) {
            const auto *button = child<QPushButton>(pages, name);
            QVERIFY2(chain->isAncestorOf(button), name);
            QVERIFY2(button->isEnabledTo(pages), name);
            QVERIFY2(button->minimumHeight() >= 44, name);
        }
        const QWidget *easy = pages->widget(40);
        for (const char *name : {"PalletEasyNavigationStart", "setPalletEasyTongsBtn",
                                 "setPalletEasyPositionBtn", "PalletEasyNavigationReturn"})
            QVERIFY2(easy->isAncestorOf(child<QPushButton>(pages, name)), name);
        QVERIFY(chain->isAncestorOf(child<QLabel>(pages, "technologyNumber")));
        QVERIFY(easy->isAncestorOf(child<QLabel>(pages, "technologyPalletEasyNumber")));
        for (const char *name : {"palletTypeReturn", "palletNavigationReturn",
                                 "PalletEasyNavigationReturn", "palletNavigationStart"})
            QCOMPARE(child<QPushButton>(pages, name)->styleSheet(), returnButtonSheet());
    }

    // ---- showing and the craft ------------------------------------------------------------------

    void opening()
    {
        click(pages, "BtnPalletTech");
        for (const char *name : kControls)
            child<QWidget>(pages, name)->setEnabled(false);
        Course course(pages);
        click(pages, "BtnPalletType");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("page 57"), QStringLiteral("title 60"), get(1)}));
        QVERIFY(controlsAre(true));
        course.clear();
        click(pages, "palletTypeReturn");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("page 1"), QStringLiteral("title 1")}));
    }

    /// First the easy labels, then the question to the controller, then the rest.
    void changingTheCraft()
    {
        pages->showPalletTypeWidget();
        setLabels(QStringLiteral("-"));
        auto *located = support::box(pages, QStringLiteral("m_pLocATCraftNum"));
        QSignalSpy locatedChanged(located, QOverload<int>::of(&QComboBox::currentIndexChanged));
        QStringList easyThen;
        QStringList chainThen;
        int locatedThen = -1;
        QObject context;
        connect(Robot::getInstance(), &Robot::commandSent, &context, [&] {
            easyThen = easyLabels();
            chainThen = chainLabels();
            locatedThen = located->currentIndex();
        });
        Course course(pages);
        QTest::keyClick(craft(), Qt::Key_Down);
        QCOMPARE(craft()->currentIndex(), 1);
        QCOMPARE(course.lines(), QStringList(get(2)));
        QVERIFY(areAll(easyThen, "工艺号:2"));
        QVERIFY(areAll(chainThen, "-"));
        QCOMPARE(locatedThen, 0);
        QVERIFY(areAll(chainLabels(), "工艺号:2"));
        QCOMPARE(located->currentIndex(), 1);
        QCOMPARE(static_cast<int>(locatedChanged.size()), 0);
    }

    void labelsFromTheStart()
    {
        TechnologyWidget fresh(nullptr);
        QCOMPARE(labelText(&fresh, QStringLiteral("technologyNumber")), QStringLiteral("工艺号:1"));
        QCOMPARE(labelText(&fresh, QStringLiteral("technologyPalletEasyNumber_3")),
                 QStringLiteral("工艺号:1"));
    }

    // ---- replies --------------------------------------------------------------------------------

    void replies_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QRect>("easy");
        QTest::addColumn<QRect>("complete");
        QTest::newRow("easy") << 0 << QRect(230, 200, 250, 100) << QRect(290, 340, 130, 40);
        QTest::newRow("complete") << 1 << QRect(290, 200, 130, 40) << QRect(230, 280, 250, 100);
        QTest::newRow("not set") << 2 << QRect(290, 210, 130, 40) << QRect(290, 280, 130, 40);
    }
    void replies()
    {
        QFETCH(int, mode);
        QFETCH(QRect, easy);
        QFETCH(QRect, complete);
        openIn((mode + 1) % 3);
        Course course(pages);
        receive(kReply, replyOf(1, mode));
        QCOMPARE(state(), QString::fromUtf8(kStates[mode]));
        const auto *easyButton = child<QPushButton>(pages, "BtnPalletEasy");
        const auto *completeButton = child<QPushButton>(pages, "BtnPalletComplete");
        QCOMPARE(QRect(easyButton->mapTo(pages, QPoint()), easyButton->size()), easy);
        QCOMPARE(QRect(completeButton->mapTo(pages, QPoint()), completeButton->size()), complete);
        QCOMPARE(course.lines(), QStringList());

        // other values, wrong types and none leave it all as it is
        for (const char *value : {"3", "-1", "4294967296", "\"0\"", "null", "true", "[0]", "{}"}) {
            receive(kReply,
                    "{\"robot\":1,\"craftID\":1,\"usePalletType\":" + QByteArray(value) + "}");
            QVERIFY2(state() == QString::fromUtf8(kStates[mode]), value);
            QVERIFY2(easyButton->size() == easy.size(), value);
        }
        receive(kReply, "{\"robot\":1,\"craftID\":1}");
        QCOMPARE(state(), QString::fromUtf8(kStates[mode]));
        QCOMPARE(craft()->currentIndex(), 0);
    }

    /// The buttons and the state do not lie over each other in any mode.
    void nothingOverlaps()
    {
        for (int mode = 0; mode < 3; ++mode) {
            openIn(mode);
            QVector<QRect> taken;
            for (const char *name : {"palletstate", "palletTypeHint", "BtnPalletEasy",
                                     "BtnPalletComplete", "palletTypeTop", "palletTypeBottom"}) {
                const QRect place = child<QWidget>(pages, name)->geometry();
                QVERIFY(QRect(0, 0, 714, 504).contains(place));
                for (const QRect &other : taken)
                    QVERIFY2(!place.intersects(other), name);
                taken += place;
            }
        }
    }

    void replyOfAnotherRobot()
    {
        openIn(1);
        for (const char *robot : {"\"robot\":2,", "", "\"robot\":\"1\","}) {
            receive(kReply, replyOf(1, 1));
            craft()->setCurrentIndex(0);
            Course course(pages);
            receive(kReply, "{" + QByteArray(robot) + "\"craftID\":4,\"usePalletType\":2}");
            QCOMPARE(
                course.lines(),
                QStringList({QStringLiteral("toast 5000 1 pallet tool parameter error!"), get(4)}));
            QCOMPARE(craft()->currentIndex(), 3);
            QCOMPARE(state(), QStringLiteral("未设定"));
        }
    }

    void unreadableReply()
    {
        openIn(1);
        Course course(pages);
        for (const char *text : {"", "{", "[]", "5", "{\"robot\":1,\"craftID\":4"})
            receive(kReply, text);
        QCOMPARE(course.lines(), QStringList());
        QCOMPARE(craft()->currentIndex(), 0);
        QCOMPARE(state(), QStringLiteral("已设定为完整码垛"));
    }

    void craftOfTheReply()
    {
        openIn(1);
        Course course(pages);
        receive(kReply, replyOf(10, 0));
        QCOMPARE(craft()->currentIndex(), 0);
        QCOMPARE(state(), QStringLiteral("已设定为简易码垛"));
        QCOMPARE(course.lines(), QStringList());

        receive(kReply, replyOf(9, 2));
        QCOMPARE(craft()->currentIndex(), 8);
        QCOMPARE(course.lines(), QStringList(get(9)));
        QVERIFY(areAll(chainLabels(), "工艺号:9"));
        QVERIFY(areAll(easyLabels(), "工艺号:9"));
        receive(kReply, replyOf(9, 0));
        QCOMPARE(course.lines(), QStringList(get(9))); // it ends there

        receive(kReply, "{\"robot\":1,\"usePalletType\":1}");
        QCOMPARE(craft()->currentIndex(), 8);
        QCOMPARE(state(), QStringLiteral("已设定为完整码垛"));

        course.clear();
        receive(kReply, replyOf(0, 1));
        QCOMPARE(craft()->currentIndex(), -1);
        QCOMPARE(course.lines(), QStringList(get(0)));
        QVERIFY(areAll(chainLabels(), "工艺号:"));
    }

    // ---- entering a mode ------------------------------------------------------------------------

    /// The mode is in force: no message, no question.
    void enteringTheModeInForce()
    {
        openIn(1);
        setLabels(QStringLiteral("-"));
        Course course(pages);
        click(pages, "BtnPalletComplete");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 6"), QStringLiteral("page 23")}));
        QVERIFY(areAll(chainLabels(), "工艺号:1"));
        QVERIFY(areAll(easyLabels(), "-"));

        openIn(0);
        setLabels(QStringLiteral("-"));
        course.clear();
        click(pages, "BtnPalletEasy");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("title 18"), QStringLiteral("page 40")}));
        QVERIFY(areAll(easyLabels(), "工艺号:1"));
        QVERIFY(areAll(chainLabels(), "-"));
        course.clear();
        click(pages, "PalletEasyNavigationReturn");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("page 57"), QStringLiteral("title 60"), get(1)}));
        click(pages, "BtnPalletEasy");
        QCOMPARE(pages->currentIndex(), 40);
    }

    /// Without a mode the button sets it and goes on; the page learns of it when it asks again.
    void enteringWithoutAMode()
    {
        openIn(2);
        Course course(pages);
        click(pages, "BtnPalletComplete");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("0x4221 ") + body(1, 1), QStringLiteral("title 6"),
                              QStringLiteral("page 23")}));
        QCOMPARE(state(), QStringLiteral("未设定"));
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
        course.clear();
        click(pages, "palletNavigationReturn");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("page 57"), QStringLiteral("title 60"), get(1)}));

        openIn(2);
        course.clear();
        click(pages, "BtnPalletEasy");
        QCOMPARE(course.lines(),
                 QStringList({QStringLiteral("0x4221 ") + body(1, 0), QStringLiteral("title 18"),
                              QStringLiteral("page 40")}));
    }

    void questions_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("number");
        QTest::addColumn<QStringList>("opened");
        QTest::addColumn<QString>("done");
        QTest::newRow("to complete")
            << 0 << 1 << "BtnPalletComplete" << 55
            << QStringList({QStringLiteral("title 6"), QStringLiteral("page 23")})
            << QStringLiteral("切换成功,当前为完整码垛模式");
        QTest::newRow("to easy") << 1 << 0 << "BtnPalletEasy" << 54
                                 << QStringList(
                                        {QStringLiteral("title 18"), QStringLiteral("page 40")})
                                 << QStringLiteral("切换成功,当前为简易码垛模式");
    }
    void questions()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, button);
        QFETCH(int, number);
        QFETCH(QStringList, opened);
        QFETCH(QString, done);
        const QStringList closed = {QStringLiteral("promptClosed %1").arg(number),
                                    QStringLiteral("uncover")};
        craft()->setCurrentIndex(4);
        receive(kReply, replyOf(5, from));
        pages->showPalletTypeWidget();

        for (const bool confirmed : {false, true}) {
            setLabels(QStringLiteral("-"));
            Course course(pages);
            click(pages, button.toLatin1().constData());
            QCOMPARE(course.lines(),
                     QStringList({QStringLiteral("cover"),
                                  QStringLiteral("prompt %1 工艺号5").arg(number)}));
            QCOMPARE(App::currentAction_, 15);
            QVERIFY(controlsAre(false));
            QCOMPARE(pages->currentIndex(), 57);
            QVERIFY(areAll(to == 1 ? chainLabels() : easyLabels(), "工艺号:5"));
            QVERIFY(areAll(to == 1 ? easyLabels() : chainLabels(), "-"));

            // nothing below the question can be pressed
            course.clear();
            click(pages, "BtnPalletEasy");
            click(pages, "palletTypeReturn");
            QCOMPARE(course.lines(), QStringList());

            click(prompt(), confirmed ? "promptConfirm" : "promptCancel");
            QStringList expected = closed;
            if (confirmed) {
                const QString text = body(5, to);
                expected << QStringLiteral("toast 3000 1 ") + done
                         << QStringLiteral("0x4221 ") + text << QStringLiteral("0x4222 ") + text
                         << opened;
            }
            QCOMPARE(course.lines(), expected);
            QCOMPARE(App::currentAction_, 0);
            QVERIFY(controlsAre(true));
            QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
            QCOMPARE(pages->currentIndex(), confirmed ? (to == 1 ? 23 : 40) : 57);
        }
        // until the answer comes the page says what it said
        QCOMPARE(state(), QString::fromUtf8(kStates[from]));
        receive(kReply, replyOf(5, to));
        QCOMPARE(state(), QString::fromUtf8(kStates[to]));
    }

    /// Back from a parameter page the mode is looked at again.
    void returningToTheNavigationAsksToo()
    {
        openIn(1);
        click(pages, "BtnPalletComplete");
        click(pages, "setTongsBtn");
        receive(kReply, replyOf(1, 0));
        click(pages, "returnNavigationBtn1");
        QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_COMPLETE_MODE);
        QCOMPARE(pages->currentIndex(), 24);
        click(prompt(), "promptCancel");
        QCOMPARE(pages->currentIndex(), 24);
        QCOMPARE(App::currentAction_, 0);
    }

    void backFromThePlanePage()
    {
        openIn(0);
        pages->setCurrentIndex(30);
        Course course(pages);
        pages->palletcomplete();
        QCOMPARE(course.lines(), QStringList(QStringLiteral("page 23")));
    }

    /// Each way into a mode fits the pages to the robot that is there then.
    void columnsFollowTheRobot()
    {
        const auto isHidden = [this] { return child<QLabel>(pages, "toolHeadA")->isHidden(); };
        const auto forget = [this] {
            Robot::getInstance()->kinematicType = 1;
            pages->initPalletRobotType();
            Robot::getInstance()->kinematicType = 2;
        };
        for (const int mode : {0, 1}) {
            openIn(mode);
            forget();
            QVERIFY(!isHidden());
            click(pages, mode == 1 ? "BtnPalletComplete" : "BtnPalletEasy");
            QVERIFY(isHidden());

            openIn(mode);
            forget();
            click(pages, mode == 1 ? "BtnPalletEasy" : "BtnPalletComplete");
            QVERIFY(!isHidden());
            click(prompt(), "promptConfirm");
            QVERIFY(isHidden());
        }
    }

    void copyAndCleanWait()
    {
        openIn(1);
        Course course(pages);
        click(pages, "copyPalletParaBtn");
        click(pages, "cleanPalletParaBtn");
        QCOMPARE(course.lines(), QStringList());
    }

    /// A new language says the mode that is in force, and it is still known to be in force.
    void otherLanguage()
    {
        openIn(0);
        craft()->setCurrentIndex(2);
        receive(kReply, replyOf(3, 0));
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("en")));
        const QString english = state();
        QVERIFY(english != QString::fromUtf8(kStates[0]));
        QVERIFY(labelText(pages, QStringLiteral("technologyNumber")).contains(QLatin1Char('3')));
        pages->showPalletTypeWidget();
        Course course(pages);
        click(pages, "BtnPalletComplete");
        const PromptWidget::WIDGETNAME asked = prompt()->currentWidget();
        click(prompt(), "promptCancel");
        QVERIFY(Language::getInstance()->setCurrent(QStringLiteral("zh")));
        QCOMPARE(asked, PromptWidget::PROMPT_COMPLETE_MODE);
        QCOMPARE(state(), QString::fromUtf8(kStates[0]));
    }
};

QTEST_MAIN(TestMode)
#include "test_mode.moc"
