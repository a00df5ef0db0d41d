// Every text of the program has its English.

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

struct Message {
    QString context;
    QString source;
    QString translation;
    QString type; ///< "unfinished", "vanished", or empty
};

QVector<Message> readMessages(const QString &path)
{
    QVector<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    Message message;
    while (!xml.atEnd()) {
        if (!xml.readNextStartElement())
            continue;
        const QString name = xml.name().toString();
        if (name == QLatin1String("name")) {
            message.context = xml.readElementText();
        } else if (name == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (name == QLatin1String("translation")) {
            message.type = xml.attributes().value(QLatin1String("type")).toString();
            message.translation = xml.readElementText();
            messages.append(message);
        }
    }
    return messages;
}

QStringList found(const QString &text, const QString &pattern)
{
    QStringList list;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(pattern, QRegularExpression::UseUnicodePropertiesOption)
            .globalMatch(text);
    while (matches.hasNext())
        list.append(matches.next().captured());
    list.sort();
    return list;
}

} // namespace

class TestEnglish : public QObject {
    Q_OBJECT
    QString m_shipped = QStringLiteral(SOURCE_ROOT "/translations/pendant_en.ts");

private slots:
    /// The shipped file, brought up to date with the sources, has nothing new in it.
    void hasEveryTextOfTheSources()
    {
        QTemporaryDir directory;
        const QString copy = directory.filePath(QStringLiteral("pendant_en.ts"));
        QVERIFY(QFile::copy(m_shipped, copy));
        QVERIFY(QFile(copy).setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        QProcess lupdate;
        lupdate.start(QStringLiteral(LUPDATE),
                      {QStringLiteral("-silent"), QStringLiteral("-no-obsolete"),
                       QStringLiteral(SOURCE_ROOT "/src"), QStringLiteral("-ts"), copy});
        QVERIFY2(lupdate.waitForFinished(120000), qPrintable(lupdate.errorString()));
        QCOMPARE(lupdate.exitCode(), 0);

        const QVector<Message> messages = readMessages(copy);
        QVERIFY(messages.size() > 200);
        QStringList missing;
        for (const Message &message : messages) {
            if (message.type == QLatin1String("unfinished") || message.translation.isEmpty())
                missing.append(message.context + QStringLiteral(": ") + message.source);
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
    }

    /// No Chinese is left in the English, and it has the same arguments.
    void isEnglish()
    {
        const QVector<Message> messages = readMessages(m_shipped);
        QVERIFY(!messages.isEmpty());
        for (const Message &message : messages) {
            const QByteArray what = (message.context + QStringLiteral(": ") + message.source
                                     + QStringLiteral(" -> ") + message.translation)
                                        .toUtf8();
            QVERIFY2(found(message.translation, QStringLiteral("\\p{Han}")).isEmpty(),
                     what.constData());
            QVERIFY2(found(message.translation, QStringLiteral("%\\d"))
                         == found(message.source, QStringLiteral("%\\d")),
                     what.constData());
        }
    }
};

QTEST_GUILESS_MAIN(TestEnglish)
#include "test_english.moc"
