// The numeric keypad and the field that it serves.

#include "digitallineedit.h"
#include "inputgate.h"
#include "keypad.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

class TestKeypad : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void typingWorksAsInALineEdit();
    void enterFinishesOnce();
    void leavingAnEditedFieldFinishesOnce();
    void leavingAnUntouchedFieldDoesNotFinish();
    void aTextSetByTheProgramIsNoEntry();
    void enterThenLeavingIsOneEntry();
    void aSlotThatDisablesTheFieldGetsOneEntry();
    void anUnacceptableTextIsNotFinishedByEnter();
    void editingFinishedIsForEntriesOnly();
    void aTapWithoutAnEntryIsNotEditing();
    void anUnacceptableTextThatIsLeftIsNotEditing();
    void aSlotMayDeleteTheFieldThatIsLeft();

    void aTouchOpensTheKeypad();
    void disabledAndReadOnlyFieldsOpenNone();
    void aPressThatSlidesOffOpensNone();
    void theTitleNamesFieldAndUnit_data();
    void theTitleNamesFieldAndUnit();
    void theFirstDigitReplaces();
    void backspaceEditsTheOldValue();
    void arrowsMoveWithinTheOldValue();
    void theSignTurns();
    void theSignIsKeptByTheDigitThatReplaces();
    void thePointGetsItsZeroAndStandsOnce();
    void clearThenOkGivesAnEmptyField();
    void okOnTheOldValueIsAnEntry();
    void okEmitsTextEditedAndEditingFinished();
    void cancelKeepsTheOldValue();
    void escapeCancels();
    void theValidatorLimitsKeysAndOk();
    void whatIsNoNumberIsRefused();
    void theMaximumLengthHolds();
    void oneKeypadAtATime();
    void touchingTheSameFieldAgainKeepsTheEntry();
    void theKeypadClosesWithItsField_data();
    void theKeypadClosesWithItsField();
    void aKeyboardTypesIntoTheFieldAndSendsTheKeypadAway();
    void aKeyboardGoesOnWhereTheKeypadBegan();
    void keysAreLargeAndFitTheContentArea_data();
    void keysAreLargeAndFitTheContentArea();
    void theKeysBesideThePageStayInReach();
    void inASmallWindowTheKeypadStandsAlone();
    void aPromptTakesTheKeypadAway();
    void theKeypadServesAFieldOfThePrompt();
    void aTouchBesideThePanelReachesNothing();

private:
    void touch(const char *key);
    QString previewText() const;
    bool isOpen() const { return Keypad::current() != nullptr; }

    QWidget *m_window = nullptr;
    DigitalLineEdit *m_field = nullptr;
    DigitalLineEdit *m_other = nullptr;
};

void TestKeypad::init()
{
    m_window = new QWidget;
    m_window->resize(714, 504);
    m_field = new DigitalLineEdit(m_window);
    m_field->setGeometry(20, 20, 160, 40);
    m_field->setText(QStringLiteral("12.5"));
    m_other = new DigitalLineEdit(m_window);
    m_other->setGeometry(20, 80, 160, 40);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    m_other->setFocus();
    QTRY_VERIFY(m_other->hasFocus());
}

void TestKeypad::cleanup()
{
    delete m_window;
    m_window = nullptr;
    QVERIFY(!isOpen());
}

void TestKeypad::touch(const char *key)
{
    QVERIFY2(isOpen(), "no keypad is open");
    auto *button = Keypad::current()->findChild<QPushButton *>(QLatin1String(key));
    QVERIFY2(button, key);
    QTest::mouseClick(button, Qt::LeftButton);
}

QString TestKeypad::previewText() const
{
    return isOpen() ? Keypad::current()->text() : QStringLiteral("(closed)");
}

void TestKeypad::typingWorksAsInALineEdit()
{
    QSignalSpy edited(m_field, &QLineEdit::textEdited);
    m_field->clear();
    QTest::keyClicks(m_field, QStringLiteral("-3.25"));
    QCOMPARE(m_field->text(), QStringLiteral("-3.25"));
    QCOMPARE(edited.count(), 5);
    QTest::keyClick(m_field, Qt::Key_Backspace);
    QCOMPARE(m_field->text(), QStringLiteral("-3.2"));
    QVERIFY(!isOpen());
}

void TestKeypad::enterFinishesOnce()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->setFocus();
    m_field->selectAll();
    QTest::keyClicks(m_field, QStringLiteral("7"));
    QCOMPARE(finished.count(), 0);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
    QTest::keyClicks(m_field, QStringLiteral("1"));
    QTest::keyClick(m_field, Qt::Key_Enter);
    QCOMPARE(finished.count(), 2);
}

void TestKeypad::leavingAnEditedFieldFinishesOnce()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("7"));
    m_other->setFocus();
    QCOMPARE(finished.count(), 1);
    m_field->setFocus();
    m_other->setFocus();
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::leavingAnUntouchedFieldDoesNotFinish()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->setFocus();
    QTest::keyClick(m_field, Qt::Key_Left);
    QTest::keyClick(m_field, Qt::Key_Tab);
    QVERIFY(!m_field->hasFocus());
    QCOMPARE(finished.count(), 0);
}

void TestKeypad::aTextSetByTheProgramIsNoEntry()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->setFocus();
    m_field->setText(QStringLiteral("99"));
    m_other->setFocus();
    QCOMPARE(finished.count(), 0);
}

void TestKeypad::enterThenLeavingIsOneEntry()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("7"));
    QTest::keyClick(m_field, Qt::Key_Return);
    m_other->setFocus();
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::aSlotThatDisablesTheFieldGetsOneEntry()
{
    int finished = 0;
    connect(m_field, &DigitalLineEdit::finishType, this, [this, &finished] {
        ++finished;
        m_field->setEnabled(false);
    });
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("7"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished, 1);
}

void TestKeypad::anUnacceptableTextIsNotFinishedByEnter()
{
    m_field->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[1-9][0-9]")), m_field));
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    m_field->clear();
    QTest::keyClicks(m_field, QStringLiteral("4"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished.count(), 0);
    QTest::keyClicks(m_field, QStringLiteral("2"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::editingFinishedIsForEntriesOnly()
{
    QSignalSpy edited(m_field, &QLineEdit::editingFinished);
    m_field->setFocus();
    m_other->setFocus();
    QCOMPARE(edited.count(), 0);
    m_field->setFocus();
    m_field->setText(QStringLiteral("99")); // by the program
    m_other->setFocus();
    QCOMPARE(edited.count(), 0);
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("7"));
    m_other->setFocus();
    QCOMPARE(edited.count(), 1);
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("8"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(edited.count(), 2);
    m_other->setFocus();
    QCOMPARE(edited.count(), 2);

    // the window goes and comes back in the middle of an entry
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("9"));
    QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(m_field, &leave);
    QCOMPARE(edited.count(), 2);
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(m_field, &back);
    m_other->setFocus();
    QCOMPARE(edited.count(), 3);
}

void TestKeypad::aTapWithoutAnEntryIsNotEditing()
{
    QSignalSpy edited(m_field, &QLineEdit::editingFinished);
    QSignalSpy selected(m_field, &QLineEdit::selectionChanged);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    touch("key_cancel");
    QVERIFY(m_field->hasSelectedText());
    selected.clear();
    m_other->setFocus();
    QCOMPARE(edited.count(), 0);
    QVERIFY(!m_field->hasSelectedText());
    QCOMPARE(selected.count(), 1);
}

void TestKeypad::anUnacceptableTextThatIsLeftIsNotEditing()
{
    m_field->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[1-9][0-9]")), m_field));
    QSignalSpy edited(m_field, &QLineEdit::editingFinished);
    m_field->setFocus();
    m_field->clear();
    QTest::keyClicks(m_field, QStringLiteral("4"));
    m_other->setFocus();
    QCOMPARE(edited.count(), 0);
}

void TestKeypad::aSlotMayDeleteTheFieldThatIsLeft()
{
    auto *field = new DigitalLineEdit(m_window);
    field->show();
    connect(field, &QLineEdit::editingFinished, m_window, [field] { field->deleteLater(); });
    int finished = 0;
    connect(field, &DigitalLineEdit::finishType, m_window, [&finished] { ++finished; });
    QPointer<DigitalLineEdit> alive = field;
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("7"));
    m_other->setFocus();
    QCOMPARE(finished, 1);
    QTRY_VERIFY(!alive);
}

void TestKeypad::aTouchOpensTheKeypad()
{
    QVERIFY(!isOpen());
    QTest::mousePress(m_field, Qt::LeftButton);
    QVERIFY(!isOpen());
    QTest::mouseRelease(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    QCOMPARE(Keypad::current()->field(), m_field);
    QVERIFY(Keypad::current()->isVisible());
    QCOMPARE(previewText(), QStringLiteral("12.5"));
    QVERIFY(Keypad::current()
                ->findChild<QLabel *>(QStringLiteral("entryOldValue"))
                ->text()
                .contains(QStringLiteral("12.5")));
}

void TestKeypad::disabledAndReadOnlyFieldsOpenNone()
{
    m_field->setEnabled(false);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(!isOpen());
    m_field->setEnabled(true);
    m_field->setReadOnly(true);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(!isOpen());
    m_field->setReadOnly(false);
    QTest::mouseClick(m_field, Qt::RightButton);
    QVERIFY(!isOpen());
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
}

void TestKeypad::aPressThatSlidesOffOpensNone()
{
    QTest::mousePress(m_field, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseRelease(m_field, Qt::LeftButton, Qt::NoModifier, QPoint(10, 400));
    QVERIFY(!isOpen());
}

void TestKeypad::theTitleNamesFieldAndUnit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("accessible");
    QTest::addColumn<QString>("title");
    QTest::newRow("both") << "补偿值"
                          << "mm"
                          << ""
                          << "补偿值（mm）";
    QTest::newRow("name") << "补偿值"
                          << ""
                          << ""
                          << "补偿值";
    QTest::newRow("accessible") << ""
                                << ""
                                << "周期"
                                << "周期";
    QTest::newRow("none") << ""
                          << ""
                          << ""
                          << "输入";
}

void TestKeypad::theTitleNamesFieldAndUnit()
{
    QFETCH(QString, name);
    QFETCH(QString, unit);
    QFETCH(QString, accessible);
    QFETCH(QString, title);
    m_field->setProperty("fieldName", name);
    m_field->setProperty("fieldUnit", unit);
    m_field->setAccessibleName(accessible);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    QCOMPARE(Keypad::current()->findChild<QLabel *>(QStringLiteral("entryTitle"))->text(), title);
}

void TestKeypad::theFirstDigitReplaces()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    QCOMPARE(previewText(), QStringLiteral("3"));
    touch("key_0");
    touch("key_point");
    touch("key_7");
    QCOMPARE(previewText(), QStringLiteral("30.7"));
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
    touch("key_ok");
    QVERIFY(!isOpen());
    QCOMPARE(m_field->text(), QStringLiteral("30.7"));
    QCOMPARE(finished.count(), 1);
    m_other->setFocus();
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::backspaceEditsTheOldValue()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_back");
    QCOMPARE(previewText(), QStringLiteral("12."));
    touch("key_8");
    QCOMPARE(previewText(), QStringLiteral("12.8"));
}

void TestKeypad::arrowsMoveWithinTheOldValue()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_left");
    touch("key_left");
    touch("key_back");
    QCOMPARE(previewText(), QStringLiteral("125"));
    touch("key_right");
    touch("key_4");
    QCOMPARE(previewText(), QStringLiteral("1254"));
    touch("key_cancel");

    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_right");
    touch("key_9");
    QCOMPARE(previewText(), QStringLiteral("912.5"));
}

void TestKeypad::theSignTurns()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_4");
    touch("key_2");
    touch("key_sign");
    QCOMPARE(previewText(), QStringLiteral("-42"));
    touch("key_1");
    QCOMPARE(previewText(), QStringLiteral("-421"));
    touch("key_sign");
    QCOMPARE(previewText(), QStringLiteral("421"));
}

void TestKeypad::theSignIsKeptByTheDigitThatReplaces()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_sign");
    QCOMPARE(previewText(), QStringLiteral("-12.5"));
    touch("key_6");
    QCOMPARE(previewText(), QStringLiteral("-6"));
}

void TestKeypad::thePointGetsItsZeroAndStandsOnce()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_point");
    QCOMPARE(previewText(), QStringLiteral("0."));
    touch("key_5");
    QVERIFY(Keypad::current()->hint().isEmpty());
    touch("key_point");
    QCOMPARE(previewText(), QStringLiteral("0.5"));
    QVERIFY(!Keypad::current()->hint().isEmpty());
    touch("key_5");
    QVERIFY(Keypad::current()->hint().isEmpty());
}

void TestKeypad::clearThenOkGivesAnEmptyField()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_clear");
    touch("key_ok");
    QCOMPARE(m_field->text(), QString());
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::okOnTheOldValueIsAnEntry()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    for (int times = 1; times <= 2; ++times) {
        QTest::mouseClick(m_field, Qt::LeftButton);
        touch("key_ok");
        QCOMPARE(m_field->text(), QStringLiteral("12.5"));
        QCOMPARE(finished.count(), times);
    }
}

void TestKeypad::okEmitsTextEditedAndEditingFinished()
{
    QSignalSpy edited(m_field, &QLineEdit::textEdited);
    QSignalSpy finished(m_field, &QLineEdit::editingFinished);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    QCOMPARE(edited.count(), 0);
    touch("key_ok");
    QCOMPARE(edited.last().first().toString(), QStringLiteral("3"));
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::cancelKeepsTheOldValue()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QSignalSpy changed(m_field, &QLineEdit::textChanged);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    touch("key_cancel");
    QVERIFY(!isOpen());
    m_other->setFocus();
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(finished.count(), 0);
}

void TestKeypad::escapeCancels()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    QTest::keyClick(m_field, Qt::Key_Escape);
    QVERIFY(!isOpen());
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
}

void TestKeypad::theValidatorLimitsKeysAndOk()
{
    m_field->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{1,2}")), m_field));
    m_field->setText(QStringLiteral("12"));
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_0");
    QCOMPARE(previewText(), QStringLiteral("12"));
    QVERIFY(!Keypad::current()->hint().isEmpty());
    touch("key_sign");
    QCOMPARE(previewText(), QStringLiteral("12"));
    touch("key_7");
    QCOMPARE(previewText(), QStringLiteral("7"));
    QVERIFY(Keypad::current()->hint().isEmpty());
    touch("key_ok");
    QVERIFY(isOpen());
    QVERIFY(!Keypad::current()->hint().isEmpty());
    QCOMPARE(finished.count(), 0);
    touch("key_0");
    touch("key_ok");
    QVERIFY(!isOpen());
    QCOMPARE(m_field->text(), QStringLiteral("70"));
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::whatIsNoNumberIsRefused()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_clear");
    touch("key_sign");
    QCOMPARE(previewText(), QStringLiteral("-"));
    touch("key_ok");
    QVERIFY(isOpen());
    QVERIFY(!Keypad::current()->hint().isEmpty());
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
}

void TestKeypad::theMaximumLengthHolds()
{
    m_field->setMaxLength(4);
    QTest::mouseClick(m_field, Qt::LeftButton);
    for (int i = 0; i < 6; ++i)
        touch("key_1");
    QCOMPARE(previewText(), QStringLiteral("1111"));
    QVERIFY(!Keypad::current()->hint().isEmpty());
}

void TestKeypad::oneKeypadAtATime()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    const QPointer<Keypad> first = Keypad::current();
    QTest::mouseClick(m_other, Qt::LeftButton);
    QVERIFY(Keypad::current() != first);
    QCOMPARE(Keypad::current()->field(), m_other);
    QVERIFY(!first || first->isHidden());
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
    QTRY_VERIFY(first.isNull());
    QCOMPARE(m_window->findChildren<Keypad *>().size(), 1);
}

void TestKeypad::touchingTheSameFieldAgainKeepsTheEntry()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    Keypad *before = Keypad::current();
    QTest::mouseClick(m_field, Qt::LeftButton);
    QCOMPARE(Keypad::current(), before);
    QCOMPARE(previewText(), QStringLiteral("3"));
}

void TestKeypad::theKeypadClosesWithItsField_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("disabled") << 0;
    QTest::newRow("hidden") << 1;
    QTest::newRow("read-only") << 2;
    QTest::newRow("destroyed") << 3;
    QTest::newRow("page disabled") << 4;
    QTest::newRow("window destroyed") << 5;
}

void TestKeypad::theKeypadClosesWithItsField()
{
    QFETCH(int, how);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_3");
    const QPointer<DigitalLineEdit> field = m_field;
    switch (how) {
    case 0:
        m_field->setEnabled(false);
        break;
    case 1:
        m_field->hide();
        break;
    case 2:
        m_field->setReadOnly(true);
        break;
    case 3:
        delete m_field;
        break;
    case 4:
        m_window->setEnabled(false);
        break;
    default:
        delete m_window;
        m_window = nullptr;
        break;
    }
    QVERIFY(!isOpen());
    if (field)
        QCOMPARE(field->text(), QStringLiteral("12.5"));
}

void TestKeypad::aKeyboardTypesIntoTheFieldAndSendsTheKeypadAway()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QTest::keyClicks(m_field, QStringLiteral("48"));
    QVERIFY(!isOpen());
    QCOMPARE(m_field->text(), QStringLiteral("48"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::aKeyboardGoesOnWhereTheKeypadBegan()
{
    QSignalSpy finished(m_field, &DigitalLineEdit::finishType);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_4");
    QTest::keyClicks(m_field, QStringLiteral("8"));
    QCOMPARE(previewText(), QStringLiteral("48"));
    QTest::keyClick(m_field, Qt::Key_Backspace);
    QCOMPARE(previewText(), QStringLiteral("4"));
    QCOMPARE(m_field->text(), QStringLiteral("12.5"));
    QTest::keyClick(m_field, Qt::Key_Return);
    QVERIFY(!isOpen());
    QCOMPARE(m_field->text(), QStringLiteral("4"));
    QCOMPARE(finished.count(), 1);
}

void TestKeypad::keysAreLargeAndFitTheContentArea_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("content, top") << QSize(714, 504) << QPoint(20, 20);
    QTest::newRow("content, bottom") << QSize(714, 504) << QPoint(500, 460);
    QTest::newRow("screen") << QSize(800, 600) << QPoint(300, 280);
}

void TestKeypad::keysAreLargeAndFitTheContentArea()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, place);
    m_window->resize(size);
    m_field->move(place);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    QVERIFY(!Keypad::current()->isWindow());
    const QList<QPushButton *> keys = Keypad::current()->findChildren<QPushButton *>();
    QCOMPARE(keys.size(), 18);
    for (const QPushButton *key : keys) {
        QVERIFY2(key->width() >= 64 && key->height() >= 64, qPrintable(key->objectName()));
        const QRect where(key->mapTo(m_window, QPoint(0, 0)), key->size());
        QVERIFY2(m_window->rect().contains(where), qPrintable(key->objectName()));
        for (const QPushButton *other : keys) {
            if (other != key)
                QVERIFY(!key->geometry().intersects(other->geometry()));
        }
    }
}

void TestKeypad::theKeysBesideThePageStayInReach()
{
    m_window->resize(800, 600);
    QWidget page(m_window);
    page.setGeometry(0, 48, 714, 504);
    QWidget group(&page);
    group.setGeometry(10, 10, 300, 100);
    DigitalLineEdit field(&group);
    page.show();
    QTest::mouseClick(&field, Qt::LeftButton);
    QVERIFY(isOpen());
    QCOMPARE(Keypad::current()->geometry(), page.geometry());
    for (const QPushButton *key : Keypad::current()->findChildren<QPushButton *>()) {
        const QRect where(key->mapTo(m_window, QPoint(0, 0)), key->size());
        QVERIFY2(page.geometry().contains(where), qPrintable(key->objectName()));
    }
    touch("key_cancel");
}

void TestKeypad::inASmallWindowTheKeypadStandsAlone()
{
    m_window->resize(300, 200);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    QVERIFY(Keypad::current()->isWindow());
    touch("key_8");
    touch("key_ok");
    QCOMPARE(m_field->text(), QStringLiteral("8"));
}

void TestKeypad::aPromptTakesTheKeypadAway()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(isOpen());
    QWidget prompt(m_window);
    InputGate::getInstance()->restrictTo(&prompt);
    QVERIFY(!isOpen());
    InputGate::getInstance()->release(&prompt);
}

void TestKeypad::theKeypadServesAFieldOfThePrompt()
{
    QWidget prompt(m_window);
    DigitalLineEdit field(&prompt);
    prompt.show();
    InputGate::getInstance()->restrictTo(&prompt);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(!isOpen());
    QTest::mouseClick(&field, Qt::LeftButton);
    QVERIFY(isOpen());
    touch("key_5");
    touch("key_ok");
    QCOMPARE(field.text(), QStringLiteral("5"));
    InputGate::getInstance()->release(&prompt);
}

void TestKeypad::aTouchBesideThePanelReachesNothing()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch("key_5");
    QCOMPARE(m_window->childAt(m_field->geometry().center()), Keypad::current());
    QTest::mouseClick(Keypad::current(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(isOpen());
    QCOMPARE(previewText(), QStringLiteral("5"));
}

QTEST_MAIN(TestKeypad)
#include "test_keypad.moc"
