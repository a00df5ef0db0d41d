// Every text of the program has its English.

#include <QDir>
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

    static QString shipped(const QString &name)
    {
        return QStringLiteral(SOURCE_ROOT "/translations/%1_en.ts").arg(name);
    }
    static QStringList foldersOf(const QString &name)
    {
        const QStringList component = {"conveyor", "laser",   "link",  "pallet",
                                       "polish",   "project", "shell", "spray"};
        if (name == QLatin1String("technology"))
            return component;
        QStringList rest =
            QDir(QStringLiteral(SOURCE_ROOT "/src")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &folder : component)
            rest.removeAll(folder);
        return rest;
    }

private slots:
    void hasEveryTextOfTheSources_data()
    {
        QTest::addColumn<int>("least");
        QTest::newRow("technology") << 300;
        QTest::newRow("pendant") << 200;
    }
    /// A shipped file, brought up to date with its sources, has nothing new in it.
    void hasEveryTextOfTheSources()
    {
        QFETCH(int, least);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QTemporaryDir directory;
        const QString copy = directory.filePath(QStringLiteral("pendant_en.ts"));
        QVERIFY(QFile::copy(shipped(name), copy));
        QVERIFY(QFile(copy).setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        QProcess lupdate;
        lupdate.setWorkingDirectory(QStringLiteral(SOURCE_ROOT "/src"));
        lupdate.start(QStringLiteral(LUPDATE),
                      QStringList({QStringLiteral("-silent"), QStringLiteral("-no-obsolete"),
                                   QStringLiteral("-I"), QStringLiteral(".")})
                          + foldersOf(name) + QStringList({QStringLiteral("-ts"), copy}));
        QVERIFY2(lupdate.waitForFinished(120000), qPrintable(lupdate.errorString()));
        QCOMPARE(lupdate.exitCode(), 0);

        const QVector<Message> messages = readMessages(copy);
        QVERIFY(messages.size() > least);
        QStringList missing;
        for (const Message &message : messages) {
            if (message.type == QLatin1String("unfinished") || message.translation.isEmpty())
                missing.append(message.context + QStringLiteral(": ") + message.source);
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
    }

    void isEnglish_data() { hasEveryTextOfTheSources_data(); }
    /// No Chinese is left in the English, and it has the same arguments.
    void isEnglish()
    {
        const QVector<Message> messages =
            readMessages(shipped(QString::fromLatin1(QTest::currentDataTag())));
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
