// The run count: once, for ever, or as keyed in.

#include "commandinsert.h"
#include "keypad.h"
#include "screenhost.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class TestCommandInsert : public QObject {
    Q_OBJECT
private:
    QWidget m_window;
    CommandInsert *m_counter = CommandInsert::getInstance();

    void touch(const QString &key)
    {
        QVERIFY(Keypad::current());
        auto *button = Keypad::current()->findChild<QPushButton *>(QLatin1String("key_") + key);
        QVERIFY2(button, qPrintable(key));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void keyIn(const QString &digits)
    {
        m_counter->setCycleIndex();
        QVERIFY(Keypad::current());
        for (const QChar digit : digits)
            touch(digit);
    }
    bool isGone() const
    {
        return !Keypad::current() && !m_window.findChild<QLineEdit *>("cycleIndexField");
    }

private slots:
    void initTestCase()
    {
        QCOMPARE(m_counter, CommandInsert::getInstance());
        QCOMPARE(m_counter->cycleIndex(), 1);
        m_window.resize(714, 504);
        m_window.show();
        ScreenHost::set(&m_window);
    }
    void cleanupTestCase() { ScreenHost::set(nullptr); }
    void init() { m_counter->setCycleIndexOnce(); }

    void onceAndForEver()
    {
        QSignalSpy chosen(m_counter, &CommandInsert::cycleIndexChosen);
        m_counter->setCycleIndexEver();
        QCOMPARE(m_counter->cycleIndex(), CommandInsert::kEndless);
        m_counter->setCycleIndexOnce();
        QCOMPARE(m_counter->cycleIndex(), 1);
        QCOMPARE(chosen, QList<QList<QVariant>>({{0}, {1}}));
        QVERIFY(!Keypad::current());
    }

    void keyedIn()
    {
        QSignalSpy chosen(m_counter, &CommandInsert::cycleIndexChosen);
        keyIn(QStringLiteral("25"));
        touch(QStringLiteral("ok"));
        QCOMPARE(m_counter->cycleIndex(), 25);
        QCOMPARE(chosen, QList<QList<QVariant>>({{25}}));
        QTRY_VERIFY(isGone());
    }

    /// What stands there is shown and can be confirmed as it is; after running for ever it is 1.
    void startsWithTheOldCount()
    {
        keyIn(QStringLiteral("9999"));
        touch(QStringLiteral("ok"));
        m_counter->setCycleIndex();
        QCOMPARE(Keypad::current()->text(), QStringLiteral("9999"));
        touch(QStringLiteral("ok"));
        QCOMPARE(m_counter->cycleIndex(), CommandInsert::kMaximum);
        m_counter->setCycleIndexEver();
        m_counter->setCycleIndex();
        QCOMPARE(Keypad::current()->text(), QStringLiteral("1"));
        touch(QStringLiteral("cancel"));
        QCOMPARE(m_counter->cycleIndex(), CommandInsert::kEndless);
        QTRY_VERIFY(isGone());
    }

    void noCountFromZeroOrFiveDigits()
    {
        keyIn(QStringLiteral("0"));
        QVERIFY(!Keypad::current()->hint().isEmpty());
        touch(QStringLiteral("cancel"));
        keyIn(QStringLiteral("12345"));
        QCOMPARE(Keypad::current()->text(), QStringLiteral("1234"));
        touch(QStringLiteral("cancel"));
        QCOMPARE(m_counter->cycleIndex(), 1);
        QTRY_VERIFY(isGone());
    }

    /// A second press serves the keypad anew; the first one's field goes with its keypad.
    void pressedTwice()
    {
        m_counter->setCycleIndex();
        keyIn(QStringLiteral("7"));
        touch(QStringLiteral("ok"));
        QCOMPARE(m_counter->cycleIndex(), 7);
        QTRY_VERIFY(isGone());
    }
};

QTEST_MAIN(TestCommandInsert)
#include "test_commandinsert.moc"
