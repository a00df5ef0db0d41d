// The letter keyboard and the free-text field.

#include "letterkeyboard.h"
#include "lineeditwidget.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class TestLetters : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void typingWorksAsInALineEdit();
    void aTouchOpensTheKeyboard();
    void disabledAndReadOnlyFieldsOpenNone();
    void aNameIsTypedAndConfirmed();
    void cancelKeepsTheOldText();
    void everyCharacterKeyTypesItsLabel_data();
    void everyCharacterKeyTypesItsLabel();
    void arrowsAndBackspaceEdit();
    void aPasswordStaysHidden();
    void theMaximumLengthHolds();
    void keysFitTheContentArea();

private:
    void touch(const QString &key);

    QWidget *m_window = nullptr;
    LineEditWidget *m_field = nullptr;
};

void TestLetters::init()
{
    m_window = new QWidget;
    m_window->resize(714, 504);
    m_field = new LineEditWidget(m_window);
    m_field->setGeometry(20, 20, 200, 40);
    m_field->setText(QStringLiteral("PAL"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void TestLetters::cleanup()
{
    delete m_window;
    QVERIFY(!LetterKeyboard::current());
}

void TestLetters::touch(const QString &key)
{
    QVERIFY2(LetterKeyboard::current(), "no keyboard is open");
    auto *button =
        LetterKeyboard::current()->findChild<QPushButton *>(QStringLiteral("key_") + key);
    QVERIFY2(button, qPrintable(key));
    QTest::mouseClick(button, Qt::LeftButton);
}

void TestLetters::typingWorksAsInALineEdit()
{
    m_field->setFocus();
    QTest::keyClicks(m_field, QStringLiteral("_7b"));
    QCOMPARE(m_field->text(), QStringLiteral("PAL_7b"));
    QVERIFY(!LetterKeyboard::current());
}

void TestLetters::aTouchOpensTheKeyboard()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(LetterKeyboard::current());
    QCOMPARE(LetterKeyboard::current()->text(), QStringLiteral("PAL"));
    QTest::keyClick(m_field, Qt::Key_Escape);
    QVERIFY(!LetterKeyboard::current());
}

void TestLetters::disabledAndReadOnlyFieldsOpenNone()
{
    m_field->setEnabled(false);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(!LetterKeyboard::current());
    m_field->setEnabled(true);
    m_field->setReadOnly(true);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(!LetterKeyboard::current());
}

void TestLetters::aNameIsTypedAndConfirmed()
{
    QSignalSpy finished(m_field, &QLineEdit::editingFinished);
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch(QStringLiteral("shift"));
    touch(QStringLiteral("b"));
    touch(QStringLiteral("shift"));
    for (const char *key : {"o", "x", "underscore", "2", "minus", "a", "point", "space", "z"})
        touch(QLatin1String(key));
    QCOMPARE(LetterKeyboard::current()->text(), QStringLiteral("Box_2-a. z"));
    QCOMPARE(m_field->text(), QStringLiteral("PAL"));
    touch(QStringLiteral("ok"));
    QVERIFY(!LetterKeyboard::current());
    QCOMPARE(m_field->text(), QStringLiteral("Box_2-a. z"));
    QCOMPARE(finished.count(), 1);
}

void TestLetters::cancelKeepsTheOldText()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch(QStringLiteral("b"));
    touch(QStringLiteral("cancel"));
    QVERIFY(!LetterKeyboard::current());
    QCOMPARE(m_field->text(), QStringLiteral("PAL"));
}

void TestLetters::everyCharacterKeyTypesItsLabel_data()
{
    QTest::addColumn<bool>("shifted");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << false << "0123456789abcdefghijklmnopqrstuvwxyz-_.";
    QTest::newRow("shifted") << true << ")!@#$%^&*(ABCDEFGHIJKLMNOPQRSTUVWXYZ/:,";
}

void TestLetters::everyCharacterKeyTypesItsLabel()
{
    QFETCH(bool, shifted);
    QFETCH(QString, expected);
    QStringList names;
    for (char c = '0'; c <= '9'; ++c)
        names.append(QString(QLatin1Char(c)));
    for (char c = 'a'; c <= 'z'; ++c)
        names.append(QString(QLatin1Char(c)));
    names << QStringLiteral("minus") << QStringLiteral("underscore") << QStringLiteral("point");

    QTest::mouseClick(m_field, Qt::LeftButton);
    touch(QStringLiteral("clear"));
    if (shifted)
        touch(QStringLiteral("shift"));
    QString labels;
    for (const QString &name : names) {
        const auto *key =
            LetterKeyboard::current()->findChild<QPushButton *>(QStringLiteral("key_") + name);
        QVERIFY2(key, qPrintable(name));
        labels += key->text().replace(QLatin1String("&&"), QLatin1String("&"));
        touch(name);
    }
    QCOMPARE(labels, expected);
    QCOMPARE(LetterKeyboard::current()->text(), expected);
}

void TestLetters::arrowsAndBackspaceEdit()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    touch(QStringLiteral("left"));
    touch(QStringLiteral("left"));
    touch(QStringLiteral("back"));
    touch(QStringLiteral("i"));
    QCOMPARE(LetterKeyboard::current()->text(), QStringLiteral("PiL"));
    touch(QStringLiteral("right"));
    touch(QStringLiteral("e"));
    QCOMPARE(LetterKeyboard::current()->text(), QStringLiteral("PiLe"));
}

void TestLetters::aPasswordStaysHidden()
{
    m_field->setEchoMode(QLineEdit::Password);
    m_field->setText(QStringLiteral("secret"));
    QTest::mouseClick(m_field, Qt::LeftButton);
    const LetterKeyboard *keyboard = LetterKeyboard::current();
    QVERIFY(keyboard);
    const auto *preview = keyboard->findChild<QLineEdit *>(QStringLiteral("entryPreview"));
    QCOMPARE(preview->displayText().contains(QStringLiteral("s")), false);
    for (const QLabel *label : keyboard->findChildren<QLabel *>())
        QVERIFY(!label->text().contains(QStringLiteral("secret")));
    touch(QStringLiteral("q"));
    QCOMPARE(preview->displayText().contains(QStringLiteral("q")), false);
    touch(QStringLiteral("ok"));
    QCOMPARE(m_field->text(), QStringLiteral("q"));
}

void TestLetters::theMaximumLengthHolds()
{
    m_field->setMaxLength(3);
    QTest::mouseClick(m_field, Qt::LeftButton);
    for (int i = 0; i < 5; ++i)
        touch(QStringLiteral("a"));
    QCOMPARE(LetterKeyboard::current()->text(), QStringLiteral("aaa"));
    QVERIFY(!LetterKeyboard::current()->hint().isEmpty());
}

void TestLetters::keysFitTheContentArea()
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    QVERIFY(LetterKeyboard::current());
    QVERIFY(!LetterKeyboard::current()->isWindow());
    for (const QPushButton *key : LetterKeyboard::current()->findChildren<QPushButton *>()) {
        QVERIFY2(key->width() >= 64 && key->height() >= 64, qPrintable(key->objectName()));
        const QRect where(key->mapTo(m_window, QPoint(0, 0)), key->size());
        QVERIFY2(m_window->rect().contains(where), qPrintable(key->objectName()));
    }
}

QTEST_MAIN(TestLetters)
#include "test_letters.moc"
