// The way through a craft's pages in the running pendant, by touches alone, for a craft that is new
// and for one that is there already.

#include "runningpendant.h"

#include "app/operator.h"
#include "app/pallettour.h"
#include "link/messages.h"
#include "shell/technologywidget.h"

#include <QDir>
#include <QMap>

class TestPalletTour : public QObject {
    Q_OBJECT
private:
    RunningPendant m_desk;

private slots:
    void initTestCase() { QVERIFY(m_desk.start()); }
    void cleanupTestCase() { m_desk.pendant.stop(); }

    /// The craft was not set before; the second time it is complete.
    void walk_data()
    {
        QTest::addColumn<QString>("before");
        QTest::newRow("new craft") << QStringLiteral("未设定");
        QTest::newRow("known craft") << QStringLiteral("已设定为完整码垛");
    }
    void walk()
    {
        QFETCH(QString, before);
        Operator hand(m_desk.pendant, m_desk.pictures.path());
        QVERIFY(hand.touchAll({QStringLiteral("BtnPalletTech"), QStringLiteral("BtnPalletType")}));
        QVERIFY(hand.chooseRow(QStringLiteral("m_pPalletCraftNum"), 1));
        QVERIFY(hand.shows(QStringLiteral("palletstate"), before));
        QVERIFY(hand.touchAll(
            {QStringLiteral("palletTypeReturn"), QStringLiteral("m_pBtnPalletTechReturn")}));

        support::Journal journal;
        QVERIFY(PalletTour(hand).walk());
        QCOMPARE(m_desk.pendant.pages()->currentIndex(), 0);
        QCOMPARE(Robot::getInstance()->get_deadman_state(), 0);
        QCOMPARE(hand.pictures(), 31);
        QCOMPARE(QDir(m_desk.pictures.path()).entryList({QStringLiteral("*.png")}).size(), 31);

        // each page was saved once, each graphic too
        QMap<int, int> counts;
        const QVector<support::Message> messages = journal.messages();
        for (const support::Message &sent : messages)
            ++counts[sent.id];
        for (const message::Id id :
             {message::SetPalletGripper, message::SetPalletTray, message::SetPalletPosition,
              message::SetPalletWorkpiece, message::SetPalletApproach, message::SetPalletOverlap})
            QCOMPARE(counts.value(id), 1);
        QCOMPARE(counts.value(message::SetPalletPlane), 3);
        QCOMPARE(counts.value(message::RunToPoint), 3);
    }
};

QTEST_MAIN(TestPalletTour)
#include "test_pallettour.moc"
