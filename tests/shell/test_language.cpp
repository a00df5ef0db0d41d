// Switching the language while the pages are at work.

#include "../polish/polishpage.h"

#include "displaysize.h"
#include "language.h"
#include "newtechnologywidget.h"
#include "pagetitles.h"
#include "pendantstyle.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>

using support::child;
using support::kPolishFields;
using support::PolishField;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("TechnologyWidget", text);
}

bool isChinese(const QString &text)
{
    for (const QChar c : text) {
        if (c.unicode() >= 0x3000)
            return true;
    }
    return false;
}

QStringList textsOf(const QWidget *root)
{
    QStringList list;
    const auto buttons = root->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        list += button->text();
    const auto labels = root->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        list += label->text();
    const auto boxes = root->findChildren<QGroupBox *>();
    for (const QGroupBox *box : boxes)
        list += box->title();
    return list;
}

/// The robot tells where it is, in both units.
void tellPosition(int kind, const char *values)
{
    const QByteArray text = "0 " + QByteArray::number(kind) + " " + values;
    support::receive(wire::reply::receive_moreRobot_CurPosition,
                     "{\"pos\":\"" + text + "\",\"posDeg\":\"" + text + "\"}");
}

/// Everything on the pages gets another text than the form begins with: those of replies and of
/// marks, and the words that follow a choice.
void fillAllPages(TechnologyWidget *pages)
{
    using support::receive;
    App::isDeg = true;
    App::m_Select_IO_Type = 1;
    child<QComboBox>(pages, "m_pPalletCraftNum")->setCurrentIndex(2);
    receive(wire::reply::robot_switchpalletmode, "{\"robot\":1,\"craftID\":3,\"usePalletType\":0}");
    pages->keep_count_data_pallet(1, "11 12 13 14 15 16", QByteArray());
    pages->palletSetTrayWidget();
    for (const char *point : {"O", "X", "Y"})
        pages->keep_userReply_pallet(1, QString::fromLatin1(point), {21, 22, 23, 24, 25, 26});
    pages->palletSetPositionWidget();
    tellPosition(1, "31 32 33 34 35 36 37");
    pages->palletEntrancePosition();
    pages->palletAuxiliaryPosition();
    pages->palletJobPosition();
    receive(wire::reply::robot_pallet_PlaneModel,
            "{\"robot\":1,\"craftID\":3,\"graphic\":1,\"pallet\":{\"graphicType\":0,"
            "\"autoTransLenX\":41,\"autoTransLenY\":42}}");
    pages->setCurrentIndex(46); // the point page of the special process
    tellPosition(3, "51 52 53 54 55 56 57");

    pages->palletCreatedFileWidget1();
    child<QComboBox>(pages, "palletNumTechcomboBox")->setCurrentIndex(4);
    child<QComboBox>(pages, "palletFunctioncomboBox")->setCurrentIndex(1);
    child<QLineEdit>(pages, "palletProgrameName_edit")->setText(QStringLiteral("BOX61"));
    pages->palletCreatedFileWidget2();
    tellPosition(0, "61 62 63 64 65 66 67");
    pages->wizardInfoGetPoint();
    pages->wizardInfoGetUpperPoint();
    pages->wizardInfoGetSafePoint();
    pages->palletCreatedFileWidget5();
    pages->return_mainPage();
}

/// What fillAllPages() left is there. The texts stand on labels of the words' own language.
QString missingOf(const QStringList &texts)
{
    for (const char *value :
         {"11", "16", "21", "26", "31.000", "36.000", "51.000", "56.000", "61.000", "66.000"}) {
        if (!texts.contains(QString::fromLatin1(value)))
            return QString::fromLatin1(value);
    }
    for (const char *part : {"41", "42", "BOX61"}) {
        if (texts.filter(QString::fromLatin1(part)).isEmpty())
            return QString::fromLatin1(part);
    }
    for (const char *word :
         {"已设定为简易码垛", "位置 mm，姿态 °", "用户", "放料点", "放料点上方", "放料安全点",
          "关节值（转动轴 °）", "卸跺过程", "放料过程", "放料点上方-放料点"}) {
        if (!texts.contains(translated(word)))
            return QString::fromUtf8(word);
    }
    return {};
}

} // namespace

class TestLanguage : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;

    bool switchTo(const char *language)
    {
        return Language::getInstance()->setCurrent(QString::fromLatin1(language));
    }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        pages = TechnologyWidget::getInstance();
        pages->resize(714, 504);
        pages->show();
    }

    void init()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        MoreRobot::setCurrentRobot(1);
        QVERIFY(switchTo("zh"));
        pages->return_mainPage();
    }

    void cleanupTestCase() { switchTo("zh"); }

    void startsInChinese()
    {
        QCOMPARE(Language::getInstance()->current(), QStringLiteral("zh"));
        QCOMPARE(child<QToolButton>(pages, "BtnPolish")->text(), QStringLiteral("打磨工艺"));
    }

    /// The form is retranslated only once the top menu is shown: the edit state of a page is a
    /// button's text, which the new language resets.
    void menuComesFirst()
    {
        const support::PolishPage page(pages);
        page.open();
        page.pressModify();
        QVERIFY(page.isEditing());
        App::mainPage_ = 7;
        App::secondPage_ = 7;
        QStringList lines;
        QObject context;
        connect(pages, &TechnologyWidget::tnw_WidgetTitle, &context,
                [&](int group, int title, int third) {
                    lines += QStringLiteral("%1 %2 %3 on page %4 with %5")
                                 .arg(group)
                                 .arg(title)
                                 .arg(third)
                                 .arg(pages->currentIndex())
                                 .arg(page.modify()->text());
                });
        QVERIFY(switchTo("en"));
        QCOMPARE(lines, QStringList(QStringLiteral("8 0 0 on page 0 with 保存")));
        QCOMPARE(pages->currentIndex(), 0);
        QCOMPARE(App::mainPage_, 2);
        QCOMPARE(App::secondPage_, 28);
    }

    void menuStaysWhenItIsShown()
    {
        QSignalSpy titles(pages, &TechnologyWidget::tnw_WidgetTitle);
        QVERIFY(switchTo("en"));
        QCOMPARE(pages->currentIndex(), 0);
        QVERIFY(titles.isEmpty());
    }

    void sameLanguageAgain()
    {
        const support::PolishPage page(pages);
        page.open();
        page.pressModify();
        QVERIFY(switchTo("zh"));
        QVERIFY(!switchTo("tlh"));
        QCOMPARE(pages->currentIndex(), 48);
        QVERIFY(page.isEditing());
    }

    /// No page asks for more than the pendant's content area; one that did would make them all
    /// larger, and their feet would be cut off.
    void pagesFit()
    {
        for (const char *language : {"zh", "en"}) {
            QVERIFY(switchTo(language));
            for (int index = 0; index < pages->count(); ++index) {
                const QWidget *page = pages->widget(index);
                pages->setCurrentIndex(index);
                QCoreApplication::processEvents();
                const QSize least = page->minimumSizeHint();
                QVERIFY2(least.width() <= DisplaySize::contentWidth
                             && least.height() <= DisplaySize::contentHeight,
                         qPrintable(QStringLiteral("%1 in %2: %3 x %4")
                                        .arg(page->objectName(), QString::fromLatin1(language))
                                        .arg(least.width())
                                        .arg(least.height())));
            }
        }
        pages->return_mainPage();
        QCOMPARE(pages->size(), QSize(DisplaySize::contentWidth, DisplaySize::contentHeight));
    }

    void noChineseIsLeft()
    {
        QVERIFY(switchTo("en"));
        for (const QString &text : textsOf(pages))
            QVERIFY2(!isChinese(text), qPrintable(text));
        for (int title : {0, 1, 22, 5, 21, 47, 48, 49})
            QVERIFY2(!isChinese(pageTitle(8, title)), qPrintable(pageTitle(8, title)));
    }

    void thereAndBack()
    {
        const QStringList before = textsOf(pages);
        QVERIFY(switchTo("en"));
        QVERIFY(textsOf(pages) != before);
        QVERIFY(switchTo("zh"));
        QCOMPARE(textsOf(pages), before);
    }

    /// What a page holds at run time outlives another language: the values as they are, the words
    /// in the new language.
    void whatThePagesHoldStays()
    {
        fillAllPages(pages);
        const QStringList before = textsOf(pages);
        QCOMPARE(missingOf(before), QString());
        QVERIFY(switchTo("en"));
        QCOMPARE(missingOf(textsOf(pages)), QString());
        for (const QString &text : textsOf(pages))
            QVERIFY2(!isChinese(text), qPrintable(text));
        QVERIFY(switchTo("zh"));
        QCOMPARE(textsOf(pages), before);
    }

    /// The whole round in English: open, edit, be refused, save.
    void polishingInEnglish()
    {
        const support::PolishPage page(pages);
        QVERIFY(switchTo("en"));
        const QString view = translated("修改");
        const QString edit = translated("保存");
        QVERIFY(!isChinese(view));
        QVERIFY(!isChinese(edit));
        QVERIFY(view != edit);

        page.open();
        QCOMPARE(pages->currentIndex(), 48);
        QVERIFY(page.isIn(view, false));
        support::receive(wire::reply::robot_Polish_Para,
                         "{\"robot\":1,\"craftID\":1,\"polish\":{\"toolWear\":0.5,"
                         "\"startToolOffset\":{\"X\":1,\"Y\":2,\"Z\":3},"
                         "\"endToolOffset\":{\"X\":4,\"Y\":5,\"Z\":6},"
                         "\"autoFeed\":{\"value\":7,\"cycle\":8}}}");
        QCOMPARE(page.text("toolWear"), QStringLiteral("0.5"));
        page.pressModify();
        QVERIFY(page.isIn(edit, true));
        support::Journal journal;
        QStringList refusals;
        for (const PolishField &row : kPolishFields) {
            const QString good = page.text(row.name);
            page.field(row.name)->setText(QStringLiteral("x"));
            page.pressModify();
            QVERIFY(page.isIn(edit, true));
            page.field(row.name)->setText(good);
            refusals += journal.toasts().last();
            QCOMPARE(refusals.last(), translated(row.refusal));
            QVERIFY2(!isChinese(refusals.last()), qPrintable(refusals.last()));
        }
        refusals.removeDuplicates();
        QCOMPARE(static_cast<int>(refusals.size()), 9);
        page.field("AutoCompensationCycle")->setText(QStringLiteral("-1"));
        page.pressModify();
        QCOMPARE(journal.toasts().last(), translated("自动补偿周期不能为负数"));
        QVERIFY(!isChinese(journal.toasts().last()));
        page.field("AutoCompensationCycle")->setText(QStringLiteral("8"));
        QVERIFY(journal.messages().isEmpty());
        page.pressModify();
        QVERIFY(page.isIn(view, false));
        QCOMPARE(static_cast<int>(journal.messages().size()), 1);
        // the keys of a message are no texts
        QVERIFY(support::json(journal.messages().first().body).isMember("polish"));
    }

    /// The button's Chinese word means nothing to the English page.
    void oldWordsDoNothing()
    {
        const support::PolishPage page(pages);
        QVERIFY(switchTo("en"));
        page.open();
        page.modify()->setText(QStringLiteral("保存"));
        support::Journal journal;
        page.pressModify();
        QCOMPARE(journal.kinds(), QStringList());
        QCOMPARE(page.modify()->text(), QStringLiteral("保存"));
    }

    /// What the operator has before them is no text of the form: numbers and choices stay.
    void valuesStay()
    {
        const support::PolishPage page(pages);
        page.open();
        QStringList texts;
        for (int i = 1; i <= 9; ++i)
            texts += QString::number(i * 1.5);
        page.number()->setCurrentIndex(6);
        page.setTexts(texts);
        support::Journal journal;
        QVERIFY(switchTo("en"));
        QCOMPARE(page.texts(), texts);
        QCOMPARE(page.number()->currentIndex(), 6);
        QCOMPARE(page.number()->currentText(), QStringLiteral("7"));
        QVERIFY(journal.messages().isEmpty());
    }

    /// An edit is dropped by the switch without a word, and the page is entered anew as always.
    void editIsDropped()
    {
        const support::PolishPage page(pages);
        page.open();
        page.pressModify();
        QVERIFY(switchTo("en"));
        QVERIFY(switchTo("zh"));
        support::Journal journal;
        page.open();
        QVERIFY(page.isViewing());
        QCOMPARE(journal.messages().last(), support::readOf(page.number()->currentIndex() + 1));
    }

    /// The port lists of the wizard were refilled for the controller; the form's own items do not
    /// come back with another language.
    void portListsStay()
    {
        pages->reflashTechnologyIOPortList();
        const auto *box = child<QComboBox>(pages, "tongs_1_port");
        const int count = box->count();
        const QString port = box->itemText(1);
        QVERIFY(switchTo("en"));
        QCOMPARE(box->count(), count);
        QCOMPARE(box->itemText(1), port);
        pages->reflashTechnologyIOPortList();
        QCOMPARE(box->itemText(0), translated("无"));
        QVERIFY(!isChinese(box->itemText(0)));
    }

    /// Rights are asked for by translated labels, and mean the same.
    void rightsInEnglish()
    {
        QVERIFY(switchTo("en"));
        App::sysUser = AUTHORITY_OPERATOR;
        support::Journal journal;
        support::click(pages, "BtnPolish");
        QCOMPARE(pages->currentIndex(), 47);
        QCOMPARE(journal.of("rights").last(), QVariantList({translated("打磨工艺"), true}));
        pages->return_mainPage();
        support::click(pages, "BtnLaserSetting");
        QCOMPARE(pages->currentIndex(), 0);
        QCOMPARE(journal.of("rights").last(), QVariantList({translated("激光切割设置"), false}));
        QVERIFY2(!isChinese(journal.toasts().last()), qPrintable(journal.toasts().last()));
        App::sysUser = AUTHORITY_TECHNICIAN;
        support::click(pages, "BtnLaserSetting");
        QCOMPARE(pages->currentIndex(), 15);
    }

    void hostedPageSpeaksEnglish()
    {
        QVERIFY(switchTo("en"));
        support::click(pages, "BtnScrew");
        NewTechnologyWidget *host = NewTechnologyWidget::getInstance();
        QVERIFY(host->isVisible());
        for (const QString &text : textsOf(host))
            QVERIFY2(!isChinese(text), qPrintable(text));
        host->hide();
        pages->show();
    }

    /// To and fro many times, with an edit under way each time.
    void manySwitches()
    {
        const support::PolishPage page(pages);
        for (int i = 0; i < 20; ++i) {
            page.open();
            page.pressModify();
            QVERIFY(switchTo(i % 2 == 0 ? "en" : "zh"));
            QCOMPARE(pages->currentIndex(), 0);
        }
        page.open();
        QVERIFY(page.isViewing());
    }
};

QTEST_MAIN(TestLanguage)
#include "test_language.moc"
