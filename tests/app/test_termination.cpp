// SIGTERM and SIGINT end the pendant in order: keys let go, link closed, logs complete, code 0.

#include "runningpendant.h"

#include "app/operator.h"
#include "wire/termination.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <csignal>

namespace {

/// The columns of the audit log's lines.
QVector<QStringList> auditLines(const QString &directory)
{
    QVector<QStringList> lines;
    QFile file(directory + QStringLiteral("/audit.log"));
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    const QStringList texts = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &text : texts) {
        if (!text.isEmpty())
            lines.append(text.split(QLatin1Char('\t')));
    }
    return lines;
}

bool contains(const QVector<QStringList> &lines, const QString &kind)
{
    return std::any_of(lines.begin(), lines.end(),
                       [&](const QStringList &line) { return line.value(1) == kind; });
}

} // namespace

class TestTermination : public QObject {
    Q_OBJECT

private slots:
    void theProgramEndsInOrder_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
    }

    void theProgramEndsInOrder()
    {
        QFETCH(int, signal);
        const QTemporaryDir data;
        QProcess pendant;
        pendant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        pendant.start(QStringLiteral(PENDANT_PROGRAM), {QStringLiteral("--data"), data.path()});
        QVERIFY(pendant.waitForStarted());
        // Connected to its controller: the event loop runs.
        QTRY_VERIFY_WITH_TIMEOUT(
            contains(auditLines(data.path()), QStringLiteral("link-connected")), 60000);
        QCOMPARE(::kill(static_cast<pid_t>(pendant.processId()), signal), 0);
        QVERIFY(pendant.waitForFinished(60000));
        QCOMPARE(pendant.exitStatus(), QProcess::NormalExit);
        QCOMPARE(pendant.exitCode(), 0);

        const QVector<QStringList> lines = auditLines(data.path());
        QCOMPARE(lines.first().value(1), QStringLiteral("start"));
        QCOMPARE(lines.at(lines.size() - 2).value(1), QStringLiteral("link-off"));
        QCOMPARE(lines.last().value(1), QStringLiteral("end"));
        for (const QStringList &line : lines)
            QCOMPARE(static_cast<int>(line.size()), 5);
    }

    /// The same in this process, with the enabling switch held. It ends this program's event loop,
    /// so it comes last.
    void theEnablingSwitchIsLetGoFirst()
    {
        RunningPendant desk;
        QVERIFY(desk.start());
        Operator hand(desk.pendant, desk.pictures.path());
        QVERIFY(hand.press(QStringLiteral("deadmanKey")));
        QTRY_COMPARE(Robot::getInstance()->get_deadman_state(), 1);

        support::Journal journal;
        quitOnTermination([&desk] { desk.pendant.letGo(); });
        QCOMPARE(std::raise(SIGTERM), 0);
        QCOMPARE(QApplication::exec(), 0);
        QVector<QVariantList> told;
        for (const support::Entry &entry : journal.entries()) {
            if (entry.kind == QLatin1String("key") || entry.kind == QLatin1String("link"))
                told.append(entry.values);
        }
        QCOMPARE(told,
                 (QVector<QVariantList>{{QStringLiteral("deadman"), 0},
                                        {QStringLiteral("off"), QString()}}));
        desk.pendant.stop();
        QCOMPARE(auditLines(desk.data.path()).last().value(1), QStringLiteral("end"));
    }
};

QTEST_MAIN(TestTermination)
#include "test_termination.moc"
