// The modal prompt, the cover below it and the gate that keeps the operator's input to them.

#include "cover.h"
#include "eventlog.h"
#include "inputgate.h"
#include "promptwidget.h"
#include "snackbarmessage.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QWindow>
#include <QtTest>

namespace {

struct Answer {
    int number;
    const char *text; ///< what the asking page gives
    const char *confirmed; ///< signal of the confirming answer; null for none
    const char *cancelled;
    int choosers;
};

const Answer answers[] = {
    {7, "", nullptr, nullptr, 0},
    {8, "", nullptr, nullptr, 0},
    {48, "", SIGNAL(rePageReData()), SIGNAL(rePageReData2()), 0},
    {49, "", SIGNAL(exitPalFile()), SIGNAL(cancelExitPalFile()), 0},
    {51, "", SIGNAL(copyPalletParameter(int)), SIGNAL(cancelCopyPalletParameter()), 1},
    {52, "工艺号2的参数", SIGNAL(cleanPalletParameter()), SIGNAL(cancelCleanPalletParameter()), 0},
    {53, "3", SIGNAL(copyPalletPicture(int, int)), SIGNAL(cancelCopyPalletPicture()), 2},
    {54, "工艺号2", SIGNAL(easyMode()), SIGNAL(CancelEasyMode()), 0},
    {55, "工艺号2", SIGNAL(completeMode()), SIGNAL(CancelCompleteMode()), 0},
    {56, "工艺号4的参数", SIGNAL(cleanTrackParameter()), SIGNAL(cancelCleanTrackParameter()), 0},
    {57, "", SIGNAL(copyTrackParameter(int)), SIGNAL(cancelCopyTrackParameter()), 1},
    {60, "焊接A", SIGNAL(deleteXmlJob()), SIGNAL(cancelDeleteXmlJob()), 0},
};

PromptWidget *prompt()
{
    return PromptWidget::getInstance();
}

PromptWidget::WIDGETNAME kind(int number)
{
    return static_cast<PromptWidget::WIDGETNAME>(number);
}

void ask(int number, const QString &text = QString())
{
    prompt()->repaint_widget(kind(number), text);
    prompt()->set_widget_state(kind(number));
}

QPushButton *button(const QString &name)
{
    return prompt()->findChild<QPushButton *>(name);
}

void touch(const QString &name)
{
    auto *found = button(name);
    QVERIFY2(found, qPrintable(name));
    QTest::mouseClick(found, Qt::LeftButton);
}

} // namespace

class TestPrompts : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachKindAsksAndAnswers_data();
    void eachKindAsksAndAnswers();
    void wordings_data();
    void wordings();
    void informationClosesByItsButton();
    void showingAndClosingAreRecordedOnce();
    void theAskingPageClosesInItsSlot();
    void anAnswerWithoutASlotClosesToo();
    void anAnswerCountsOnce();
    void aSlotMayAskTheNextQuestion();
    void targetsAreChosenByTouch();
    void choosersStartAnewAtEachShowing();
    void showingWithoutPreparingHasNoText();
    void anotherKindTakesThePlace();
    void anUnknownKindShowsNothing();
    void escapeIsTheAnswerThatChangesNothing();
    void tabStaysWithinThePrompt();
    void itLiesCentredOverTheHost();
    void itOutlivesItsHost();
    void itWorksWithoutAHost();
    void anAnswerForOneAskerAlone();
    void anAskerThatIsForgotten();
    void anAskerMayAskAgain();
    void aLongNameBreaksWithin();

    void onlyThePromptGetsInput();
    void touchesFromTheScreenAreHeldBackToo();
    void listsOfAllowedWidgetsAreAllowed();
    void modalDialogsAreAllowed();
    void shortcutsOfCoveredPagesAreHeldBack();
    void aHeldButtonGetsItsRelease();
    void aHeldSliderGetsItsRelease();
    void aButtonPressedByTheProgramGetsItsRelease();
    void theLastRestrictionCounts();
    void companionsAreServedAlways();
    void aDestroyedRootFreesTheInput();

    void theCoverBlocksThePageUntilItIsLifted();
    void aPromptAfterTheCoverGetsInput();
    void aCoverAfterThePromptLeavesItTheInput();
    void liftingWithoutACoverDoesNothing();
    void theCoverFollowsItsHost();

private:
    QStringList journal(const QString &which = QString()) const;

    QWidget *m_window = nullptr;
    QPushButton *m_page = nullptr; ///< a button of the page below
    int m_pressed = 0;
    QStringList m_journal;
    QMetaObject::Connection m_recording;
};

void TestPrompts::init()
{
    m_window = new QWidget;
    m_window->resize(714, 504);
    m_page = new QPushButton(QStringLiteral("page"), m_window);
    m_page->setGeometry(10, 10, 100, 40);
    m_pressed = 0;
    connect(m_page, &QPushButton::clicked, this, [this] { ++m_pressed; });
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    SnackbarMessage::setHost(m_window);
    m_journal.clear();
    m_recording = connect(EventLog::getInstance(), &EventLog::recorded, this,
                          [this](const QString &what, const QVariantList &values) {
                              QStringList entry(what);
                              for (const QVariant &value : values)
                                  entry.append(value.toString());
                              m_journal.append(entry.join(QLatin1Char(' ')));
                          });
}

void TestPrompts::cleanup()
{
    disconnect(m_recording);
    prompt()->close();
    DisCoverOtherWidgetButCurDialog();
    SnackbarMessage::setHost(nullptr);
    delete m_window;
    QVERIFY(!InputGate::getInstance()->isRestricted());
}

QStringList TestPrompts::journal(const QString &which) const
{
    return m_journal.filter(which);
}

void TestPrompts::eachKindAsksAndAnswers_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("confirm");
    for (size_t i = 0; i < std::size(answers); ++i) {
        QTest::addRow("%d confirmed", answers[i].number) << int(i) << true;
        if (answers[i].cancelled)
            QTest::addRow("%d cancelled", answers[i].number) << int(i) << false;
    }
}

void TestPrompts::eachKindAsksAndAnswers()
{
    QFETCH(int, row);
    QFETCH(bool, confirm);
    const Answer &answer = answers[row];
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const Answer &other : answers) {
        for (const char *signal : {other.confirmed, other.cancelled}) {
            if (signal)
                spies.push_back(std::make_unique<QSignalSpy>(prompt(), signal));
        }
    }
    ask(answer.number, QString::fromUtf8(answer.text));
    QCOMPARE(int(prompt()->currentWidget()), answer.number);
    QCOMPARE(prompt()->text(), QString::fromUtf8(answer.text));
    QVERIFY(prompt()->isVisible());
    QVERIFY(!prompt()->question().isEmpty());
    QVERIFY(prompt()->question().contains(QString::fromUtf8(answer.text)));
    QCOMPARE(button(QStringLiteral("promptCancel"))->isVisible(), answer.cancelled != nullptr);
    QCOMPARE(prompt()->findChild<QWidget *>(QStringLiteral("promptTarget"))->isVisible(),
             answer.choosers >= 1);
    QCOMPARE(prompt()->findChild<QWidget *>(QStringLiteral("promptTargetPicture"))->isVisible(),
             answer.choosers == 2);
    for (const QPushButton *each : prompt()->findChildren<QPushButton *>()) {
        if (each->isVisible())
            QVERIFY2(each->height() >= 40 && each->width() >= 40, qPrintable(each->objectName()));
    }

    touch(confirm ? QStringLiteral("promptConfirm") : QStringLiteral("promptCancel"));
    const char *expected = confirm ? answer.confirmed : answer.cancelled;
    int emitted = 0;
    for (const auto &spy : spies) {
        emitted += int(spy->count());
        if (expected && "2" + spy->signal() == QMetaObject::normalizedSignature(expected))
            QCOMPARE(spy->count(), 1);
    }
    QCOMPARE(emitted, expected ? 1 : 0);
    QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
    QVERIFY(!prompt()->isVisible());
    QVERIFY(!InputGate::getInstance()->isRestricted());
}

void TestPrompts::wordings_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("question");
    QTest::newRow("52") << 52 << "工艺号2的参数"
                        << "确定清空工艺号2的参数吗？";
    QTest::newRow("56") << 56 << "工艺号4的参数"
                        << "确定清空工艺号4的参数吗？";
    QTest::newRow("54") << 54 << "工艺号2"
                        << "确定将工艺号2切换为简易码垛模式吗？";
    QTest::newRow("55") << 55 << "工艺号2"
                        << "确定将工艺号2切换为完整码垛模式吗？";
    QTest::newRow("60") << 60 << "焊接A"
                        << "确定删除程序焊接A吗？删除后不能恢复。";
    QTest::newRow("53") << 53 << "3"
                        << "将工艺号3的当前图形复制到：";
    QTest::newRow("no text") << 54 << ""
                             << "确定切换为简易码垛模式吗？";
    QTest::newRow("percent") << 60 << "50%1"
                             << "确定删除程序50%1吗？删除后不能恢复。";
}

void TestPrompts::wordings()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QFETCH(QString, question);
    ask(number, text);
    QCOMPARE(prompt()->question(), question);
}

void TestPrompts::informationClosesByItsButton()
{
    prompt()->set_widget_state(kind(8));
    QVERIFY(prompt()->isVisible());
    touch(QStringLiteral("promptConfirm"));
    QVERIFY(!prompt()->isVisible());
    QCOMPARE(journal(QStringLiteral("promptClosed")),
             QStringList(QStringLiteral("promptClosed 8")));
}

void TestPrompts::showingAndClosingAreRecordedOnce()
{
    prompt()->repaint_widget(kind(52), QStringLiteral("A"));
    QCOMPARE(journal(), QStringList());
    prompt()->set_widget_state(kind(52));
    QCOMPARE(journal(), QStringList(QStringLiteral("prompt 52 A")));
    prompt()->close();
    prompt()->close();
    prompt()->hide();
    QCOMPARE(journal(),
             QStringList({QStringLiteral("prompt 52 A"), QStringLiteral("promptClosed 52")}));
}

void TestPrompts::theAskingPageClosesInItsSlot()
{
    QStringList order;
    const auto asked = connect(prompt(), &PromptWidget::cleanPalletParameter, this, [&order] {
        order.append(QStringLiteral("slot"));
        prompt()->close();
        order.append(prompt()->isVisible() ? QStringLiteral("up") : QStringLiteral("closed"));
    });
    ask(52);
    touch(QStringLiteral("promptConfirm"));
    disconnect(asked);
    QCOMPARE(order, QStringList({QStringLiteral("slot"), QStringLiteral("closed")}));
    QCOMPARE(journal(QStringLiteral("promptClosed")).size(), 1);
}

void TestPrompts::anAnswerWithoutASlotClosesToo()
{
    ask(48);
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(prompt()->currentWidget(), PromptWidget::PROMPT_NONE);
    QCOMPARE(journal(QStringLiteral("promptClosed")).size(), 1);
}

void TestPrompts::anAnswerCountsOnce()
{
    int answered = 0;
    // The slot touches the button again while it still runs, as a second finger would.
    const auto asked = connect(prompt(), &PromptWidget::deleteXmlJob, this, [&answered] {
        ++answered;
        if (answered < 3)
            button(QStringLiteral("promptConfirm"))->click();
        button(QStringLiteral("promptCancel"))->click();
        QTest::keyClick(prompt(), Qt::Key_Escape);
    });
    QSignalSpy cancelled(prompt(), &PromptWidget::cancelDeleteXmlJob);
    ask(60);
    touch(QStringLiteral("promptConfirm"));
    touch(QStringLiteral("promptConfirm"));
    disconnect(asked);
    QCOMPARE(answered, 1);
    QCOMPARE(cancelled.count(), 0);

    ask(60);
    touch(QStringLiteral("promptCancel"));
    QCOMPARE(cancelled.count(), 1);
}

void TestPrompts::aSlotMayAskTheNextQuestion()
{
    const auto asked =
        connect(prompt(), &PromptWidget::easyMode, this, [] { ask(52, QStringLiteral("B")); });
    ask(54);
    touch(QStringLiteral("promptConfirm"));
    disconnect(asked);
    QCOMPARE(int(prompt()->currentWidget()), 52);
    QVERIFY(prompt()->isVisible());
    QVERIFY(button(QStringLiteral("promptConfirm"))->isEnabled());
    QVERIFY(InputGate::getInstance()->allows(prompt()));
    QCOMPARE(journal(),
             QStringList({QStringLiteral("prompt 54 "), QStringLiteral("promptClosed 54"),
                          QStringLiteral("prompt 52 B")}));
}

void TestPrompts::targetsAreChosenByTouch()
{
    QSignalSpy copied(prompt(), &PromptWidget::copyPalletPicture);
    ask(53, QStringLiteral("2"));
    touch(QStringLiteral("promptTarget_7"));
    touch(QStringLiteral("promptTarget_9"));
    touch(QStringLiteral("promptTargetPicture_4"));
    QVERIFY(!button(QStringLiteral("promptTarget_7"))->isChecked());
    QVERIFY(button(QStringLiteral("promptTarget_9"))->isChecked());
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(copied.count(), 1);
    QCOMPARE(copied.first(), QVariantList({9, 4}));

    QSignalSpy track(prompt(), &PromptWidget::copyTrackParameter);
    ask(57);
    touch(QStringLiteral("promptTarget_5"));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(track.first(), QVariantList({5}));
}

void TestPrompts::choosersStartAnewAtEachShowing()
{
    QSignalSpy copied(prompt(), &PromptWidget::copyPalletParameter);
    ask(51);
    touch(QStringLiteral("promptTarget_8"));
    touch(QStringLiteral("promptCancel"));
    ask(51);
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(copied.first(), QVariantList({1}));

    // A picture is copied within its own process number unless another one is chosen.
    QSignalSpy picture(prompt(), &PromptWidget::copyPalletPicture);
    ask(53, QStringLiteral("6"));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(picture.first(), QVariantList({6, 1}));
}

void TestPrompts::showingWithoutPreparingHasNoText()
{
    prompt()->repaint_widget(kind(52), QStringLiteral("工艺号2的参数"));
    prompt()->set_widget_state(kind(60));
    QVERIFY(!prompt()->question().contains(QStringLiteral("工艺号2")));
    QCOMPARE(journal(), QStringList(QStringLiteral("prompt 60 ")));
    prompt()->close();
    prompt()->set_widget_state(kind(52));
    QVERIFY(prompt()->question().contains(QStringLiteral("工艺号2")));
}

void TestPrompts::anotherKindTakesThePlace()
{
    ask(52, QStringLiteral("A"));
    QSignalSpy cleaned(prompt(), &PromptWidget::cleanPalletParameter);
    ask(60, QStringLiteral("B"));
    QCOMPARE(journal(),
             QStringList({QStringLiteral("prompt 52 A"), QStringLiteral("promptClosed 52"),
                          QStringLiteral("prompt 60 B")}));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(cleaned.count(), 0);
}

void TestPrompts::anUnknownKindShowsNothing()
{
    ask(99);
    QVERIFY(!prompt()->isVisible());
    QCOMPARE(journal(), QStringList());
    QVERIFY(!InputGate::getInstance()->isRestricted());
}

void TestPrompts::escapeIsTheAnswerThatChangesNothing()
{
    QSignalSpy confirmed(prompt(), &PromptWidget::deleteXmlJob);
    QSignalSpy cancelled(prompt(), &PromptWidget::cancelDeleteXmlJob);
    ask(60);
    QTest::keyClick(prompt(), Qt::Key_Return);
    QCOMPARE(confirmed.count() + cancelled.count(), 0);
    QTest::keyClick(prompt(), Qt::Key_Escape);
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(confirmed.count(), 0);
    ask(7);
    QTest::keyClick(prompt(), Qt::Key_Escape);
    QVERIFY(!prompt()->isVisible());
}

void TestPrompts::tabStaysWithinThePrompt()
{
    ask(60);
    QTRY_VERIFY(prompt()->hasFocus());
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), i % 2 ? Qt::Key_Backtab : Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget());
        QVERIFY(prompt()->isAncestorOf(QApplication::focusWidget()));
    }
}

void TestPrompts::itLiesCentredOverTheHost()
{
    for (const QSize &size : {QSize(714, 504), QSize(800, 600)}) {
        m_window->resize(size);
        ask(53, QStringLiteral("2"));
        QCOMPARE(prompt()->parentWidget(), m_window);
        QVERIFY(m_window->rect().contains(prompt()->geometry()));
        const QPoint off = prompt()->geometry().center() - m_window->rect().center();
        QVERIFY(qAbs(off.x()) <= 1 && qAbs(off.y()) <= 1);
        m_window->resize(size + QSize(40, 40));
        const QPoint moved = prompt()->geometry().center() - m_window->rect().center();
        QVERIFY(qAbs(moved.x()) <= 1 && qAbs(moved.y()) <= 1);
    }
}

void TestPrompts::itOutlivesItsHost()
{
    const QPointer<PromptWidget> before = prompt();
    auto *host = new QWidget;
    host->resize(714, 504);
    host->show();
    SnackbarMessage::setHost(host);
    ask(52);
    QCOMPARE(prompt()->parentWidget(), host);
    delete host;
    QVERIFY(before);
    QCOMPARE(prompt(), before.data());
    QVERIFY(!InputGate::getInstance()->isRestricted());
    SnackbarMessage::setHost(m_window);
    ask(52);
    QVERIFY(prompt()->isVisible());
}

void TestPrompts::itWorksWithoutAHost()
{
    SnackbarMessage::setHost(nullptr);
    m_window->hide();
    ask(60);
    QVERIFY(prompt()->isVisible());
    QVERIFY(prompt()->isWindow());
    QSignalSpy confirmed(prompt(), &PromptWidget::deleteXmlJob);
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(confirmed.count(), 1);
}

void TestPrompts::onlyThePromptGetsInput()
{
    QLineEdit field(m_window);
    field.setGeometry(10, 100, 100, 40);
    field.show();
    ask(52);
    QTest::mouseClick(m_page, Qt::LeftButton);
    QTest::mouseDClick(m_page, Qt::LeftButton);
    QTest::keyClick(m_page, Qt::Key_Space);
    QTest::keyClicks(&field, QStringLiteral("12"));
    QCOMPARE(m_pressed, 0);
    QCOMPARE(field.text(), QString());
    prompt()->close();
    QTest::mouseClick(m_page, Qt::LeftButton);
    QTest::keyClicks(&field, QStringLiteral("12"));
    QCOMPARE(m_pressed, 1);
    QCOMPARE(field.text(), QStringLiteral("12"));
}

void TestPrompts::touchesFromTheScreenAreHeldBackToo()
{
    QWindow *screen = m_window->windowHandle();
    const QPoint page = m_page->geometry().center();
    QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier, page);
    QCOMPARE(m_pressed, 1);
    ask(54);
    QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier, page);
    m_page->setFocus();
    QTest::keyClick(screen, Qt::Key_Space);
    QCOMPARE(m_pressed, 1);
    QSignalSpy confirmed(prompt(), &PromptWidget::easyMode);
    auto *confirm = button(QStringLiteral("promptConfirm"));
    QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier,
                      confirm->mapTo(m_window, confirm->rect().center()));
    QCOMPARE(confirmed.count(), 1);
    QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier, page);
    QCOMPARE(m_pressed, 2);
}

void TestPrompts::listsOfAllowedWidgetsAreAllowed()
{
    QWidget root(m_window);
    QComboBox allowed(&root);
    QComboBox covered(m_window);
    for (QComboBox *combo : {&allowed, &covered})
        combo->addItems({QStringLiteral("1"), QStringLiteral("2")});
    root.show();
    covered.show();
    InputGate::getInstance()->restrictTo(&root);
    QVERIFY(InputGate::getInstance()->allows(allowed.view()->viewport()));
    QVERIFY(!InputGate::getInstance()->allows(covered.view()->viewport()));
    QTest::keyClick(&allowed, Qt::Key_Down);
    QTest::keyClick(&covered, Qt::Key_Down);
    QCOMPARE(allowed.currentIndex(), 1);
    QCOMPARE(covered.currentIndex(), 0);
    InputGate::getInstance()->release(&root);
}

void TestPrompts::modalDialogsAreAllowed()
{
    QWidget root(m_window);
    QDialog dialog;
    QPushButton inside(&dialog);
    InputGate::getInstance()->restrictTo(&root);
    QVERIFY(!InputGate::getInstance()->allows(&inside));
    dialog.setModal(true);
    dialog.show();
    QVERIFY(InputGate::getInstance()->allows(&inside));
    QVERIFY(!InputGate::getInstance()->allows(m_page));
    InputGate::getInstance()->release(&root);
}

void TestPrompts::shortcutsOfCoveredPagesAreHeldBack()
{
    QShortcut shortcut(QKeySequence(Qt::Key_F2), m_window);
    int activated = 0;
    connect(&shortcut, &QShortcut::activated, this, [&activated] { ++activated; });
    QTest::keyClick(m_window, Qt::Key_F2);
    QCOMPARE(activated, 1);
    ask(52);
    QCOMPARE(QApplication::activeWindow(), m_window);
    QTest::keyClick(prompt(), Qt::Key_F2);
    QTest::keyClick(m_window, Qt::Key_F2);
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F2);
    QCOMPARE(activated, 1);
    QShortcut own(QKeySequence(Qt::Key_F3), prompt());
    int ownActivated = 0;
    connect(&own, &QShortcut::activated, this, [&ownActivated] { ++ownActivated; });
    QTest::keyClick(prompt(), Qt::Key_F3);
    QCOMPARE(ownActivated, 1);
    prompt()->close();
    QTest::keyClick(m_window, Qt::Key_F2);
    QCOMPARE(activated, 2);
}

void TestPrompts::aHeldButtonGetsItsRelease()
{
    int released = 0;
    connect(m_page, &QPushButton::released, this, [&released] { ++released; });
    QTest::mousePress(m_page, Qt::LeftButton);
    QVERIFY(m_page->isDown());
    ask(52);
    QTest::mouseRelease(m_page, Qt::LeftButton);
    QVERIFY(!m_page->isDown());
    QCOMPARE(released, 1);
    QTest::mouseClick(m_page, Qt::LeftButton);
    QCOMPARE(released, 1);
}

void TestPrompts::aHeldSliderGetsItsRelease()
{
    QSlider slider(Qt::Horizontal, m_window);
    slider.setGeometry(10, 100, 200, 40);
    slider.show();
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.maximum = 99;
    const QRect handle = slider.style()->subControlRect(QStyle::CC_Slider, &option,
                                                        QStyle::SC_SliderHandle, &slider);
    QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, handle.center());
    QVERIFY(slider.isSliderDown());
    ask(52);
    QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, handle.center());
    QVERIFY(!slider.isSliderDown());
}

void TestPrompts::aButtonPressedByTheProgramGetsItsRelease()
{
    QPushButton button(m_window);
    button.show();
    button.setDown(true);
    ask(52);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QVERIFY(!button.isDown());
}

void TestPrompts::theLastRestrictionCounts()
{
    InputGate *gate = InputGate::getInstance();
    QWidget first(m_window);
    QWidget second(m_window);
    gate->restrictTo(&first);
    gate->restrictTo(&second);
    QVERIFY(!gate->allows(&first));
    QVERIFY(gate->allows(&second));
    gate->restrictTo(&first);
    QVERIFY(gate->allows(&first));
    gate->release(&first);
    QVERIFY(gate->allows(&second));
    gate->release(&second);
    QVERIFY(!gate->isRestricted());
    QVERIFY(gate->allows(m_page));
}

void TestPrompts::companionsAreServedAlways()
{
    QWidget companion(m_window);
    QPushButton key(&companion);
    InputGate::getInstance()->addCompanion(&companion);
    ask(52);
    QVERIFY(InputGate::getInstance()->allows(&key));
    QVERIFY(!InputGate::getInstance()->allows(m_page));
}

void TestPrompts::aDestroyedRootFreesTheInput()
{
    {
        QWidget root(m_window);
        InputGate::getInstance()->restrictTo(&root);
        QVERIFY(!InputGate::getInstance()->allows(m_page));
    }
    QVERIFY(InputGate::getInstance()->allows(m_page));
}

void TestPrompts::theCoverBlocksThePageUntilItIsLifted()
{
    CoverOtherWidgetButCurDialog();
    QCOMPARE(journal(), QStringList(QStringLiteral("cover")));
    auto *pane = m_window->findChild<QWidget *>(QStringLiteral("coverPane"));
    QVERIFY(pane);
    QVERIFY(pane->isVisible());
    QCOMPARE(m_window->childAt(m_page->geometry().center()), pane);
    QTest::mouseClick(m_page, Qt::LeftButton);
    QCOMPARE(m_pressed, 0);
    CoverOtherWidgetButCurDialog();
    QCOMPARE(m_window->findChildren<QWidget *>(QStringLiteral("coverPane")).size(), 1);
    DisCoverOtherWidgetButCurDialog();
    QVERIFY(!m_window->findChild<QWidget *>(QStringLiteral("coverPane")));
    QTest::mouseClick(m_page, Qt::LeftButton);
    QCOMPARE(m_pressed, 1);
}

void TestPrompts::aPromptAfterTheCoverGetsInput()
{
    CoverOtherWidgetButCurDialog();
    QSignalSpy confirmed(prompt(), &PromptWidget::easyMode);
    ask(54);
    QCOMPARE(m_window->childAt(prompt()->geometry().center())->window(), m_window);
    QVERIFY(prompt()->isAncestorOf(
        m_window->childAt(button(QStringLiteral("promptConfirm"))->mapTo(m_window, QPoint(5, 5)))));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(confirmed.count(), 1);
    // The cover stays until it is lifted.
    QTest::mouseClick(m_page, Qt::LeftButton);
    QCOMPARE(m_pressed, 0);
}

void TestPrompts::anAnswerForOneAskerAlone()
{
    QSignalSpy confirmed(prompt(), &PromptWidget::deleteXmlJob);
    QSignalSpy cancelled(prompt(), &PromptWidget::cancelDeleteXmlJob);
    QVector<bool> answered;
    for (const char *name : {"promptConfirm", "promptCancel"}) {
        prompt()->ask(kind(60), QStringLiteral("A"), [&](bool yes) { answered.append(yes); });
        QCOMPARE(prompt()->currentWidget(), kind(60));
        QCOMPARE(prompt()->text(), QStringLiteral("A"));
        touch(QString::fromLatin1(name));
        touch(QString::fromLatin1(name));
        QVERIFY(!prompt()->isVisible());
    }
    QCOMPARE(answered, QVector<bool>({true, false}));
    QCOMPARE(static_cast<int>(confirmed.count()), 0);
    QCOMPARE(static_cast<int>(cancelled.count()), 0);
    // The next one, asked in the usual way, gives its signals again.
    ask(60);
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(static_cast<int>(confirmed.count()), 1);
    QCOMPARE(static_cast<int>(answered.size()), 2);
}

void TestPrompts::anAskerThatIsForgotten()
{
    int answers = 0;
    const auto askAlone = [&] {
        prompt()->ask(kind(60), QStringLiteral("A"), [&](bool) { ++answers; });
    };
    askAlone();
    ask(60, QStringLiteral("B")); // takes its place
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(answers, 0);
    askAlone();
    prompt()->close();
    ask(60, QStringLiteral("B"));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(answers, 0);
}

void TestPrompts::anAskerMayAskAgain()
{
    QStringList answered;
    prompt()->ask(kind(60), QStringLiteral("A"), [&](bool) {
        answered += QStringLiteral("A");
        prompt()->ask(kind(60), QStringLiteral("B"),
                      [&](bool) { answered += QStringLiteral("B"); });
    });
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(prompt()->text(), QStringLiteral("B"));
    QVERIFY(prompt()->isVisible());
    touch(QStringLiteral("promptConfirm"));
    QVERIFY(!prompt()->isVisible());
    QCOMPARE(answered, QStringList({QStringLiteral("A"), QStringLiteral("B")}));
}

void TestPrompts::aLongNameBreaksWithin()
{
    const QString name(100, QLatin1Char('W'));
    ask(60, name);
    QVERIFY(prompt()->question().contains(name));
    QCOMPARE(prompt()->text(), name);
    const auto *label = prompt()->findChild<QLabel *>(QStringLiteral("promptQuestion"));
    const QRect needed = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 1000),
                                                           Qt::TextWordWrap, label->text());
    QVERIFY(needed.width() <= label->width());
    QVERIFY(needed.height() <= label->height());
}

void TestPrompts::aCoverAfterThePromptLeavesItTheInput()
{
    QSignalSpy confirmed(prompt(), &PromptWidget::easyMode);
    ask(54);
    CoverOtherWidgetButCurDialog();
    const QPoint where = button(QStringLiteral("promptConfirm"))->mapTo(m_window, QPoint(5, 5));
    QVERIFY(prompt()->isAncestorOf(m_window->childAt(where)));
    touch(QStringLiteral("promptConfirm"));
    QCOMPARE(confirmed.count(), 1);
}

void TestPrompts::liftingWithoutACoverDoesNothing()
{
    ask(52);
    DisCoverOtherWidgetButCurDialog();
    QVERIFY(prompt()->isVisible());
    QVERIFY(InputGate::getInstance()->isRestricted());
    QCOMPARE(journal().last(), QStringLiteral("uncover"));
}

void TestPrompts::theCoverFollowsItsHost()
{
    CoverOtherWidgetButCurDialog();
    m_window->resize(800, 600);
    QCOMPARE(m_window->findChild<QWidget *>(QStringLiteral("coverPane"))->size(), QSize(800, 600));
}

QTEST_MAIN(TestPrompts)
#include "test_prompts.moc"
