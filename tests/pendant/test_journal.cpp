// The journal: what it keeps, what it tells, its export, and the page that shows it.

#include "../support.h"

#include "eventmodel.h"
#include "eventpage.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <algorithm>
#include <numeric>

namespace {

EventLog *const journal = EventLog::getInstance();

QStringList contents(const QAbstractItemModel *model)
{
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row)
        all += model->index(row, EventModel::Content).data().toString();
    return all;
}

void recordMessage(int id, const QByteArray &body = "{}\n")
{
    journal->record(QStringLiteral("message"), {id, body});
}

/// The counts of the kept entries, oldest first.
QVector<int> counts()
{
    QVector<int> all;
    for (const EventLog::Entry &entry : journal->entries())
        all += entry.count;
    return all;
}

/// A chunk of a list as the pages send it.
QByteArray chunk(int start, int count, int sum, const QByteArray &item = "{\"X\":1.5}")
{
    QByteArray items = item;
    for (int i = 1; i < count; ++i)
        items += ',' + item;
    return "{\"craftID\":1,\"pallet\":{\"count\":" + QByteArray::number(count) + ",\"eachVec\":["
        + items + "],\"start\":" + QByteArray::number(start) + ",\"sum\":" + QByteArray::number(sum)
        + "},\"robot\":1}\n";
}

} // namespace

class TestJournal : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        journal->clear();
        journal->setCapacity(10000);
    }

    void numbersGoOnAndTheRingDropsTheOldest()
    {
        journal->setCapacity(3);
        journal->record(QStringLiteral("cover"));
        const quint64 first = journal->entries().front().number;
        for (int i = 0; i < 4; ++i)
            journal->record(QStringLiteral("delay"), {i});
        QCOMPARE(static_cast<int>(journal->entries().size()), 3);
        QCOMPARE(journal->entries().front().number, first + 2);
        QCOMPARE(journal->entries().back().number, first + 4);
        QCOMPARE(journal->entries().back().values, QVariantList{3});
        journal->setCapacity(1);
        QCOMPARE(static_cast<int>(journal->entries().size()), 1);
        QCOMPARE(journal->entries().back().number, first + 4);
        journal->setCapacity(0);
        QCOMPARE(journal->capacity(), 1);
    }

    void longBodiesAreKeptCutAndToldWhole()
    {
        const QByteArray body(5000, 'x');
        const QString text(5000, QLatin1Char('y'));
        support::Journal heard;
        journal->record(QStringLiteral("message"), {0x4601, body});
        journal->record(QStringLiteral("toast"), {text, 3000, 4, true});
        QCOMPARE(heard.messages().first().body, body);
        QCOMPARE(heard.toasts().first(), text);
        const auto &entries = journal->entries();
        QCOMPARE(entries[0].values[1].toByteArray(), body.left(EventLog::kKeptBytes));
        QCOMPARE(entries[1].values[0].toString(), text.left(EventLog::kKeptBytes));
        QCOMPARE(entries[1].values[1].toInt(), 3000);
    }

    void exportHasFourColumnsAndOneLinePerEntry()
    {
        recordMessage(0x4602, "{\"robot\":1}\n");
        journal->record(QStringLiteral("log"), {QStringLiteral("设置\t抓手\n信息\\"), 1});
        const QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("events.txt"));
        QString error;
        QVERIFY2(journal->exportText(path, &error), qPrintable(error));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        QCOMPARE(static_cast<int>(lines.size()), 3);
        QVERIFY(lines[2].isEmpty());
        const QStringList message = lines[0].split(QLatin1Char('\t'));
        QCOMPARE(static_cast<int>(message.size()), 4);
        QCOMPARE(message[0].toULongLong(), journal->entries().front().number);
        const QDateTime time = QDateTime::fromString(message[1], Qt::ISODateWithMs);
        QCOMPARE(time.toMSecsSinceEpoch(), journal->entries().front().time.toMSecsSinceEpoch());
        QCOMPARE(message[2], QStringLiteral("message"));
        QCOMPARE(message[3], QStringLiteral("0x4602 · {\"robot\":1}"));
        QCOMPARE(lines[1].section(QLatin1Char('\t'), 2),
                 QStringLiteral("log\t设置\\t抓手\\n信息\\\\ · 1"));
    }

    void aPollIsOneEntryWithACount()
    {
        QSignalSpy told(journal, &EventLog::recorded);
        for (int i = 0; i < 5000; ++i)
            recordMessage(0x2f07, "{\"coord\":1,\"robot\":1}\n");
        QCOMPARE(counts(), QVector<int>{5000});
        QCOMPARE(static_cast<int>(told.count()), 5000);
        const EventLog::Entry first = journal->entries().front();
        QVERIFY(first.lastTime >= first.time);
        // Another body is news, and so is the first one again.
        recordMessage(0x2f07, "{\"coord\":0,\"robot\":1}\n");
        recordMessage(0x2f07, "{\"coord\":1,\"robot\":1}\n");
        QCOMPARE(counts(), QVector<int>({5000, 1, 1}));
        QCOMPARE(journal->entries().back().number, first.number + 2);
    }

    void theTimesAreThoseOfTheFirstAndTheLast()
    {
        recordMessage(0x2f07);
        const QDateTime first = journal->entries().front().time;
        QTRY_VERIFY(QDateTime::currentDateTimeUtc() > first);
        recordMessage(0x2f07);
        QCOMPARE(journal->entries().front().time, first);
        QVERIFY(journal->entries().front().lastTime > first);
    }

    void pollsThatTakeTurns_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("folds");
        QTest::newRow("two") << 2 << true;
        QTest::newRow("three") << 3 << true;
        QTest::newRow("as many as a cycle has") << EventLog::kCycle << true;
        QTest::newRow("more") << EventLog::kCycle + 1 << false;
    }
    void pollsThatTakeTurns()
    {
        QFETCH(int, length);
        QFETCH(bool, folds);
        for (int i = 0; i < 100 * length; ++i)
            recordMessage(0x2f00 + i % length);
        const QVector<int> each = counts();
        QCOMPARE(static_cast<int>(each.size()), folds ? 2 * length - 1 : 100 * length);
        QCOMPARE(std::accumulate(each.begin(), each.end(), 0), 100 * length);
    }

    /// Which of two settings was sent last is seen.
    void whatComesBackIsNoCycle()
    {
        recordMessage(0x4601, "1");
        recordMessage(0x4601, "2");
        recordMessage(0x4601, "1");
        QCOMPARE(counts(), QVector<int>({1, 1, 1}));
    }

    void otherKindsAreNeverFolded()
    {
        for (int i = 0; i < 3; ++i)
            journal->record(QStringLiteral("log"), {QStringLiteral("行"), 1});
        QCOMPARE(counts(), QVector<int>({1, 1, 1}));
        recordMessage(0x4601);
        journal->record(QStringLiteral("log"), {QStringLiteral("行"), 1});
        recordMessage(0x4601); // something happened in between
        QCOMPARE(counts(), QVector<int>({1, 1, 1, 1, 1, 1}));
    }

    /// A page that polls without a controller: each message is refused.
    void refusedPollsFoldToo()
    {
        for (int i = 0; i < 500; ++i) {
            recordMessage(0x2f07);
            journal->record(QStringLiteral("link"),
                            {QStringLiteral("refused"), QStringLiteral("0x2f07")});
        }
        QCOMPARE(static_cast<int>(journal->entries().size()), 3);
    }

    /// What differs behind the part that is kept is not the same.
    void cutBodiesAreNotCompared()
    {
        const QByteArray body(EventLog::kKeptBytes, 'x');
        recordMessage(0x4601, body + "1");
        recordMessage(0x4601, body + "2");
        recordMessage(0x4601, body);
        QCOMPARE(counts(), QVector<int>({1, 1, 1}));
    }

    void aBulkTransferIsOneEntry()
    {
        for (int start = 1; start <= 9999; start += 10)
            recordMessage(0x4232, chunk(start, std::min(10, 9999 - start + 1), 9999));
        QCOMPARE(counts(), QVector<int>{1000});
        QVERIFY(journal->entries().front().values.at(1).toByteArray().contains("\"start\":1,"));
        // The same list once more is another transfer, and a gap belongs to none.
        recordMessage(0x4232, chunk(1, 10, 9999));
        recordMessage(0x4232, chunk(11, 10, 9999));
        recordMessage(0x4232, chunk(31, 10, 9999));
        recordMessage(0x4213, chunk(41, 10, 9999));
        recordMessage(0x4213, chunk(51, 10, 9998));
        QCOMPARE(counts(), QVector<int>({1000, 2, 1, 1, 1}));
    }

    void longChunksFoldAsShortOnes()
    {
        const QByteArray item = "{\"X\":1.5" + QByteArray(400, '0') + "}";
        recordMessage(0x4213, chunk(1, 10, 20, item));
        recordMessage(0x4213, chunk(11, 10, 20, item));
        QCOMPARE(counts(), QVector<int>{2});
        QCOMPARE(static_cast<int>(journal->entries().front().values.at(1).toByteArray().size()),
                 EventLog::kKeptBytes);
    }

    void theRingCountsFoldedEntries()
    {
        journal->setCapacity(3);
        for (int i = 0; i < 4; ++i) {
            journal->record(QStringLiteral("delay"), {i});
            for (int poll = 0; poll < 10; ++poll)
                recordMessage(0x2f07);
        }
        QCOMPARE(counts(), QVector<int>({10, 1, 10}));
        journal->setCapacity(1); // and a cycle whose entries are gone begins anew
        for (int i = 0; i < 8; ++i)
            recordMessage(0x2f00 + i % 2);
        QCOMPARE(static_cast<int>(journal->entries().size()), 1);
    }

    void exportTellsHowOftenAndWhenLast()
    {
        recordMessage(0x2f07);
        recordMessage(0x2f07);
        recordMessage(0x4602);
        const QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("events.txt"));
        QVERIFY(journal->exportText(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        const QStringList folded = lines[0].split(QLatin1Char('\t'));
        QCOMPARE(static_cast<int>(folded.size()), 6);
        QCOMPARE(folded[4], QStringLiteral("×2"));
        QCOMPARE(QDateTime::fromString(folded[5], Qt::ISODateWithMs).toMSecsSinceEpoch(),
                 journal->entries().front().lastTime.toMSecsSinceEpoch());
        QCOMPARE(static_cast<int>(lines[1].split(QLatin1Char('\t')).size()), 4);
    }

    void countsGrowOnScreen()
    {
        EventModel model;
        model.setMessageNames([](quint16) { return QStringLiteral("GetCurrentPosition"); });
        recordMessage(0x2f07);
        model.refresh();
        QCOMPARE(contents(&model), QStringList{QStringLiteral("GetCurrentPosition 0x2f07 · {}")});
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        for (int i = 0; i < 122; ++i)
            recordMessage(0x2f07);
        journal->record(QStringLiteral("delay"), {1});
        QTRY_VERIFY(changed.count() > 0);
        QCOMPARE(contents(&model),
                 QStringList(
                     {QStringLiteral("1"), QStringLiteral("×123 GetCurrentPosition 0x2f07 · {}")}));
        const QModelIndex last = changed.last().at(1).toModelIndex();
        QCOMPARE(last.row(), 1);
        const QString text = model.fullText(1);
        const EventLog::Entry &entry = journal->entries().front();
        for (const QDateTime &time : {entry.time, entry.lastTime})
            QVERIFY(text.contains(time.toLocalTime().toString(QStringLiteral("HH:mm:ss.zzz"))));
    }

    void theOldestExportsGo()
    {
        const QTemporaryDir directory;
        const auto make = [&](const QString &name) {
            QFile file(directory.filePath(name));
            return file.open(QIODevice::WriteOnly);
        };
        // Of a time to come: the clock was put back since, and the new one is the oldest by name.
        for (int i = 0; i < EventPage::kExports; ++i)
            QVERIFY(make(QStringLiteral("events-20%1-120000.txt").arg(990101 + i)));
        QVERIFY(make(QStringLiteral("events-notes.txt")));
        EventPage page;
        page.setExportDirectory(directory.path());
        const QString path = page.exportJournal();
        QVERIFY(QFile::exists(path));
        const QStringList names = QDir(directory.path()).entryList(QDir::Files, QDir::Name);
        QCOMPARE(static_cast<int>(names.size()), EventPage::kExports + 1);
        QVERIFY(names.contains(QStringLiteral("events-notes.txt")));
        QVERIFY(!names.contains(QStringLiteral("events-20990101-120000.txt")));
        QVERIFY(names.contains(QStringLiteral("events-20990102-120000.txt")));
    }

    void exportSaysWhyItFailed()
    {
        const QTemporaryDir directory;
        QString error;
        QVERIFY(
            !journal->exportText(directory.filePath(QStringLiteral("no/such/events.txt")), &error));
        QVERIFY(error.contains(QStringLiteral("no/such/events.txt")));
    }

    void newestComesFirst()
    {
        EventModel model;
        recordMessage(0x4601);
        journal->record(QStringLiteral("safetySwitch"), {0});
        recordMessage(0x4602);
        model.refresh();
        QCOMPARE(contents(&model),
                 QStringList({QStringLiteral("0x4602 · {}"), QStringLiteral("0"),
                              QStringLiteral("0x4601 · {}")}));
        QVERIFY(model.index(0, EventModel::Number).data().toULongLong()
                > model.index(1, EventModel::Number).data().toULongLong());
        QCOMPARE(model.index(1, EventModel::Kind).data().toString(), QStringLiteral("安全开关"));
    }

    void aThousandMessagesCostOneRefresh()
    {
        EventModel model;
        const int before = model.refreshCount();
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        for (int i = 0; i < 1000; ++i)
            recordMessage(0x4601, QByteArray::number(i));
        QCOMPARE(model.rowCount(), 0);
        QTRY_COMPARE(model.rowCount(), 1000);
        QCOMPARE(model.refreshCount(), before + 1);
        QCOMPARE(static_cast<int>(inserted.count()), 1);
    }

    void rowsFollowTheRing()
    {
        journal->setCapacity(5);
        EventModel model;
        for (int i = 0; i < 4; ++i)
            journal->record(QStringLiteral("delay"), {i});
        model.refresh();
        QCOMPARE(model.rowCount(), 4);
        for (int i = 4; i < 8; ++i)
            journal->record(QStringLiteral("delay"), {i});
        // Not refreshed yet: the rows of dropped entries are empty rather than wrong.
        QCOMPARE(contents(&model),
                 QStringList({QStringLiteral("3"), QString(), QString(), QString()}));
        model.refresh();
        QCOMPARE(contents(&model),
                 QStringList({QStringLiteral("7"), QStringLiteral("6"), QStringLiteral("5"),
                              QStringLiteral("4"), QStringLiteral("3")}));
        journal->clear();
        model.refresh();
        QCOMPARE(model.rowCount(), 0);
        journal->record(QStringLiteral("delay"), {8});
        model.refresh();
        QCOMPARE(contents(&model), QStringList{QStringLiteral("8")});
    }

    void filtersByKindAndMessageId()
    {
        EventModel model;
        recordMessage(0x4601);
        recordMessage(0x4602);
        recordMessage(0x2f01);
        journal->record(QStringLiteral("reading"), {0x4603, QStringLiteral("polish.toolWear")});
        journal->record(QStringLiteral("log"), {QStringLiteral("4601"), 1});
        model.refresh();
        QCOMPARE(model.rowCount(), 5);
        model.setKind(QStringLiteral("message"));
        QCOMPARE(model.rowCount(), 3);
        model.setMessageId(QStringLiteral("0x46"));
        QCOMPARE(contents(&model),
                 QStringList({QStringLiteral("0x4602 · {}"), QStringLiteral("0x4601 · {}")}));
        model.setKind(QString());
        QCOMPARE(model.rowCount(), 3);
        model.setMessageId(QStringLiteral("2F01"));
        QCOMPARE(contents(&model), QStringList{QStringLiteral("0x2f01 · {}")});
        recordMessage(0x4601);
        recordMessage(0x2f01);
        model.refresh();
        QCOMPARE(model.rowCount(), 2);
        model.setMessageId(QString());
        QCOMPARE(model.rowCount(), 7);
    }

    void messagesBearTheirNames()
    {
        EventModel model;
        model.setMessageNames(
            [](quint16 id) { return id == 0x4601 ? QStringLiteral("SetPolish") : QString(); });
        recordMessage(0x4601);
        recordMessage(0x4602);
        model.refresh();
        QCOMPARE(
            contents(&model),
            QStringList({QStringLiteral("0x4602 · {}"), QStringLiteral("SetPolish 0x4601 · {}")}));
    }

    void everyKindHasAName()
    {
        for (const QString &kind : EventModel::kinds())
            QVERIFY2(EventModel::kindName(kind) != kind, qPrintable(kind));
        QCOMPARE(EventModel::kindName(QStringLiteral("else")), QStringLiteral("else"));
    }

    void pageFiltersShowsDetailAndExports()
    {
        const QTemporaryDir directory;
        EventPage page;
        page.setExportDirectory(directory.filePath(QStringLiteral("data")));
        page.resize(714, 504);
        recordMessage(0x4601, "{\"one\":1}\n");
        recordMessage(0x2f01);
        journal->record(QStringLiteral("log"), {QStringLiteral("行"), 1});
        QCOMPARE(page.model()->rowCount(), 0); // hidden: nothing is taken over
        page.show();
        QCOMPARE(page.model()->rowCount(), 3);

        auto *kind = support::child<QComboBox>(&page, "eventKind");
        kind->setCurrentIndex(kind->findData(QStringLiteral("message")));
        QCOMPARE(page.model()->rowCount(), 2);
        support::enter(support::child<QLineEdit>(&page, "eventMessageId"),
                       QStringLiteral("46zz01"));
        QCOMPARE(support::child<QLineEdit>(&page, "eventMessageId")->text(),
                 QStringLiteral("4601"));
        QCOMPARE(page.model()->rowCount(), 1);
        support::child<QTableView>(&page, "eventTable")->selectRow(0);
        QVERIFY(support::child<QPlainTextEdit>(&page, "eventDetail")
                    ->toPlainText()
                    .endsWith(QStringLiteral("0x4601 · {\"one\":1}")));

        support::Journal heard;
        support::click(&page, "eventExport");
        const QStringList files =
            QDir(directory.filePath(QStringLiteral("data"))).entryList(QDir::Files);
        QCOMPARE(static_cast<int>(files.size()), 1);
        QVERIFY(heard.toasts().first().contains(files.first()));
    }

    void pageSaysWhyAnExportFailed()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        EventPage page;
        page.setExportDirectory(file.fileName());
        support::Journal heard;
        QCOMPARE(page.exportJournal(), QString());
        QCOMPARE(static_cast<int>(heard.toasts().size()), 1);
        QVERIFY(heard.toasts().first().contains(file.fileName()));
    }
};

QTEST_MAIN(TestJournal)
#include "test_journal.moc"
