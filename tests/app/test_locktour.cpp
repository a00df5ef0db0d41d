// The tour's way through the lock screen, in both languages, and that it leaves no account behind.

#include "runningpendant.h"

#include "app/locktour.h"
#include "app/operator.h"
#include "language.h"

#include <QDir>

class TestLockTour : public QObject {
    Q_OBJECT
private:
    RunningPendant m_desk;

private slots:
    void initTestCase()
    {
        UserAccounts::getInstance()->setHashCost(1, 8192);
        QVERIFY(m_desk.start());
    }
    void cleanupTestCase() { m_desk.pendant.stop(); }

    void walk()
    {
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        LockTour tour(hand);
        QVERIFY(tour.makeUser());
        for (const QString &language : {QStringLiteral("zh"), QStringLiteral("en")}) {
            QVERIFY(Language::getInstance()->setCurrent(language));
            support::Journal journal;
            QVERIFY(tour.walk(language));
            QStringList operations;
            for (const QVariantList &values : journal.of("config"))
                operations += values.first().toString();
            QCOMPARE(operations, (QStringList{"lock", "logInFailed", "logIn"}));
        }
        QCOMPARE(QDir(m_desk.pictures.path()).entryList({QStringLiteral("*.png")}).size(), 6);
        QVERIFY(VeltrixDatabase::getInstance()->open(m_desk.data.path()));
        QVERIFY(VeltrixDatabase::getInstance()->accounts().isEmpty());
    }
};

QTEST_MAIN(TestLockTour)
#include "test_locktour.moc"
