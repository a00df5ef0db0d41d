// The transient messages at the foot of the screen.

#include "digitallineedit.h"
#include "displaysize.h"
#include "eventlog.h"
#include "inputgate.h"
#include "promptwidget.h"
#include "snackbarmessage.h"
#include "snackbarpanel.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>
#include <algorithm>

namespace {

constexpr int kLong = 600000; ///< ms; longer than any test

void say(const QString &text, int duration = kLong, int kind = 1)
{
    SnackbarMessage::showMessage(text, duration, kind, true);
}

QStringList texts(int from, int to)
{
    QStringList list;
    for (int i = from; i <= to; ++i)
        list.append(QString::number(i));
    return list;
}

} // namespace

class TestSnackbar : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyCallIsRecorded();
    void withoutAWindowOnlyTheJournalKnows();
    void aMessageLeavesAfterItsTime();
    void endlessStaysUntilTouched();
    void endlessGivesWayToTheNext();
    void aRepetitionEndsAnEndlessOtherToo();
    void severalStandAboveOneAnother();
    void beyondTheRoomTheyWaitTheirTurn();
    void theWaitingLineIsLimited();
    void theSameTextStandsOnce();
    void theSameTextWaitsOnce();
    void aRepetitionStartsTheTimeAnew();
    void anEndlessOneThatWaitedGetsItsTime();
    void standingStaysUntilTouched();
    void longTextsAreWholeAndFollowTheWidth();
    void onThePendantsScreenTheyStandBesideTheKeys();
    void theyTakeNoFocusAndBlockNothing();
    void theyAreTouchableUnderAPrompt();
    void promptAndKeypadStayAboveThem();
    void kindsLookDifferent();
    void theHostMayGo();

private:
    /// From the top downwards.
    QList<SnackbarPanel *> panels() const
    {
        QList<SnackbarPanel *> found = m_window->findChildren<SnackbarPanel *>();
        std::sort(found.begin(), found.end(),
                  [](const QWidget *a, const QWidget *b) { return a->y() < b->y(); });
        return found;
    }

    QWidget *m_window = nullptr;
};

void TestSnackbar::init()
{
    m_window = new QWidget;
    m_window->resize(714, 504);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    SnackbarMessage::setHost(m_window);
}

void TestSnackbar::cleanup()
{
    SnackbarMessage::setHost(nullptr);
    delete m_window;
    m_window = nullptr;
}

void TestSnackbar::everyCallIsRecorded()
{
    QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
    SnackbarMessage::showMessage(QStringLiteral("请上电！"), 5000, 1, true);
    SnackbarMessage::showMessage(QStringLiteral("请上电！"), 5000, 1, true);
    SnackbarMessage::showMessage(QStringLiteral("标定未完成！"), -1, 2, false);
    QCOMPARE(recorded.count(), 3);
    QCOMPARE(recorded.at(0).at(0).toString(), QStringLiteral("toast"));
    QCOMPARE(recorded.at(1).at(1).toList(),
             QVariantList({QStringLiteral("请上电！"), 5000, 1, true}));
    QCOMPARE(recorded.at(2).at(1).toList(),
             QVariantList({QStringLiteral("标定未完成！"), -1, 2, false}));
}

void TestSnackbar::withoutAWindowOnlyTheJournalKnows()
{
    SnackbarMessage::setHost(nullptr);
    delete m_window;
    m_window = nullptr;
    QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
    say(QStringLiteral("A"));
    QCOMPARE(recorded.count(), 1);
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList());
}

void TestSnackbar::aMessageLeavesAfterItsTime()
{
    QElapsedTimer clock;
    clock.start();
    say(QStringLiteral("A"), 300);
    say(QStringLiteral("B"));
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList({"A", "B"}));
    QTRY_COMPARE(SnackbarMessage::shownTexts(), QStringList("B"));
    QVERIFY(clock.elapsed() >= 280);
    QTRY_COMPARE(panels().size(), 1);
}

void TestSnackbar::endlessStaysUntilTouched()
{
    say(QStringLiteral("A"), -1);
    say(QStringLiteral("A"), -1);
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList("A"));
    QCOMPARE(panels().size(), 1);
    QVERIFY(panels().first()->isEndless());
    QTest::mouseClick(panels().first(), Qt::LeftButton);
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList());
    QTRY_COMPARE(panels().size(), 0);
}

void TestSnackbar::endlessGivesWayToTheNext()
{
    say(QStringLiteral("A"));
    say(QStringLiteral("B"), -1);
    say(QStringLiteral("C"));
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList({"A", "C"}));
}

void TestSnackbar::aRepetitionEndsAnEndlessOtherToo()
{
    say(QStringLiteral("A"));
    say(QStringLiteral("B"), -1);
    say(QStringLiteral("A"));
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList("A"));
}

void TestSnackbar::severalStandAboveOneAnother()
{
    for (const QString &text : texts(1, SnackbarMessage::kShown))
        say(text);
    QCOMPARE(SnackbarMessage::shownTexts(), texts(1, SnackbarMessage::kShown));
    QList<SnackbarPanel *> found = panels();
    for (int i = 0; i < found.size(); ++i) {
        QVERIFY(found.at(i)->isVisible());
        QVERIFY(m_window->rect().contains(found.at(i)->geometry()));
        QVERIFY(found.at(i)->height() >= 40);
        if (i > 0)
            QVERIFY(found.at(i)->geometry().top() > found.at(i - 1)->geometry().bottom());
    }
    QVERIFY(found.last()->geometry().bottom() > m_window->height() - 20);
}

void TestSnackbar::beyondTheRoomTheyWaitTheirTurn()
{
    const int last = SnackbarMessage::kShown + 2;
    for (const QString &text : texts(1, last))
        say(text);
    QCOMPARE(SnackbarMessage::shownTexts(), texts(1, SnackbarMessage::kShown));
    QCOMPARE(SnackbarMessage::waitingTexts(), texts(SnackbarMessage::kShown + 1, last));
    QTest::mouseClick(panels().first(), Qt::LeftButton);
    QCOMPARE(SnackbarMessage::shownTexts(), texts(2, SnackbarMessage::kShown + 1));
    QCOMPARE(SnackbarMessage::waitingTexts(), texts(last, last));
}

void TestSnackbar::theWaitingLineIsLimited()
{
    const int last = SnackbarMessage::kShown + SnackbarMessage::kWaiting + 300;
    for (const QString &text : texts(1, last))
        say(text);
    QCOMPARE(SnackbarMessage::waitingTexts(), texts(last - SnackbarMessage::kWaiting + 1, last));
    SnackbarMessage::dismissAll();
    QCOMPARE(SnackbarMessage::shownTexts() + SnackbarMessage::waitingTexts(), QStringList());
}

void TestSnackbar::theSameTextStandsOnce()
{
    say(QStringLiteral("A"));
    say(QStringLiteral("B"));
    for (int i = 0; i < 50; ++i)
        say(QStringLiteral("A"));
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList({"A", "B"}));
    QCOMPARE(SnackbarMessage::waitingTexts(), QStringList());
}

void TestSnackbar::theSameTextWaitsOnce()
{
    for (const QString &text : texts(1, SnackbarMessage::kShown))
        say(text);
    say(QStringLiteral("A"));
    say(QStringLiteral("A"));
    QCOMPARE(SnackbarMessage::waitingTexts(), QStringList("A"));
}

void TestSnackbar::aRepetitionStartsTheTimeAnew()
{
    say(QStringLiteral("A"), 200);
    say(QStringLiteral("B"), 200);
    say(QStringLiteral("A"), kLong);
    QTRY_COMPARE(SnackbarMessage::shownTexts(), QStringList("A"));
    QTest::qWait(0);
    say(QStringLiteral("A"), 100);
    QTRY_COMPARE(SnackbarMessage::shownTexts(), QStringList());
}

void TestSnackbar::anEndlessOneThatWaitedGetsItsTime()
{
    for (const QString &text : texts(1, SnackbarMessage::kShown))
        say(text);
    say(QStringLiteral("endless"), -1);
    say(QStringLiteral("next"));
    QTest::mouseClick(panels().first(), Qt::LeftButton);
    QVERIFY(SnackbarMessage::shownTexts().contains(QStringLiteral("endless")));
    QTRY_VERIFY(!SnackbarMessage::shownTexts().contains(QStringLiteral("endless")));
    QVERIFY(SnackbarMessage::shownTexts().contains(QStringLiteral("next")));
}

void TestSnackbar::standingStaysUntilTouched()
{
    const QString text = QStringLiteral("stands");
    for (int i = 1; i <= SnackbarMessage::kShown; ++i)
        say(QString::number(i));
    SnackbarMessage::showStanding(text, 3); // waits for nobody
    QVERIFY(SnackbarMessage::shownTexts().contains(text));
    QVERIFY(SnackbarMessage::waitingTexts().isEmpty());
    say(QStringLiteral("next"), -1);
    say(QStringLiteral("and next"), -1);
    say(text, 1); // the same for a moment only
    QTest::qWait(20);
    QCOMPARE(SnackbarMessage::shownTexts().count(text), 1);
    for (SnackbarPanel *panel : panels()) {
        if (panel->isVisible() && panel->text() == text)
            QTest::mouseClick(panel, Qt::LeftButton);
    }
    QVERIFY(!SnackbarMessage::shownTexts().contains(text));
    QCOMPARE(SnackbarMessage::shownTexts(), texts(1, SnackbarMessage::kShown));
}

void TestSnackbar::longTextsAreWholeAndFollowTheWidth()
{
    say(QString(60, QChar(0x6587)) + QString(90, QLatin1Char('w')));
    SnackbarPanel *panel = panels().first();
    const int wide = panel->height();
    QCOMPARE(wide, panel->heightAt(panel->width()));
    QVERIFY(wide > 60);
    m_window->resize(400, 504);
    QVERIFY(panel->height() > wide);
    QVERIFY(m_window->rect().contains(panel->geometry()));
}

void TestSnackbar::onThePendantsScreenTheyStandBesideTheKeys()
{
    m_window->resize(DisplaySize::width, DisplaySize::height);
    DisplaySize::widgetY = 48;
    say(QStringLiteral("A"));
    const QRect besideTheKeys(0, 48, DisplaySize::contentWidth, DisplaySize::height - 48);
    QVERIFY(besideTheKeys.contains(panels().first()->geometry()));
    // one message leaves the buttons at the foot of a page in reach
    QVERIFY(panels().first()->geometry().top() > 48 + DisplaySize::contentHeight - 10);
    DisplaySize::widgetY = 0;
}

void TestSnackbar::theyTakeNoFocusAndBlockNothing()
{
    QLineEdit field(m_window);
    field.setGeometry(10, 10, 100, 40);
    field.show();
    field.setFocus();
    QTRY_VERIFY(field.hasFocus());
    say(QStringLiteral("A"), -1);
    QTest::mouseClick(panels().first(), Qt::LeftButton);
    say(QStringLiteral("B"), -1);
    QVERIFY(field.hasFocus());
    QCOMPARE(m_window->childAt(field.geometry().center()), &field);
    QVERIFY(!InputGate::getInstance()->isRestricted());
}

void TestSnackbar::theyAreTouchableUnderAPrompt()
{
    QWidget root(m_window);
    InputGate::getInstance()->restrictTo(&root);
    say(QStringLiteral("A"), -1);
    QTest::mouseClick(panels().first(), Qt::LeftButton);
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList());
    InputGate::getInstance()->release(&root);
}

void TestSnackbar::promptAndKeypadStayAboveThem()
{
    PromptWidget::getInstance()->set_widget_state(PromptWidget::PROMPT_COPY_PICTURE);
    for (const QString &text : texts(1, SnackbarMessage::kShown))
        say(text);
    auto *confirm = m_window->findChild<QPushButton *>(QStringLiteral("promptConfirm"));
    QVERIFY(panels().first()->geometry().intersects(PromptWidget::getInstance()->geometry()));
    for (int y = 1; y < confirm->height(); ++y)
        QCOMPARE(m_window->childAt(confirm->mapTo(m_window, QPoint(20, y))), confirm);
    PromptWidget::getInstance()->close();
    SnackbarMessage::dismissAll();

    DigitalLineEdit field(m_window);
    field.setGeometry(10, 10, 100, 40);
    field.show();
    QTest::mouseClick(&field, Qt::LeftButton);
    for (const QString &text : texts(1, SnackbarMessage::kShown))
        say(text);
    auto *ok = m_window->findChild<QPushButton *>(QStringLiteral("key_ok"));
    QVERIFY(ok);
    for (int y = 1; y < ok->height(); ++y)
        QCOMPARE(m_window->childAt(ok->mapTo(m_window, QPoint(20, y))), ok);
}

void TestSnackbar::kindsLookDifferent()
{
    QList<QImage> looks;
    QStringList words;
    for (int kind = 1; kind <= 4; ++kind) {
        say(QStringLiteral("A"), kLong, kind);
        looks.append(panels().first()->grab().toImage().convertToFormat(QImage::Format_Grayscale8));
        words.append(panels().first()->accessibleName());
    }
    for (int i = 0; i < looks.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            QVERIFY(looks.at(i) != looks.at(j));
            QVERIFY(words.at(i) != words.at(j));
        }
    }
}

void TestSnackbar::theHostMayGo()
{
    say(QStringLiteral("A"));
    delete m_window;
    m_window = new QWidget;
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList());
    m_window->resize(714, 504);
    m_window->show();
    SnackbarMessage::setHost(m_window);
    say(QStringLiteral("B"));
    QCOMPARE(SnackbarMessage::shownTexts(), QStringList("B"));
    QCOMPARE(panels().size(), 1);
}

QTEST_MAIN(TestSnackbar)
#include "test_snackbar.moc"
