// Who may do what: the table of labels, the lock, and what a refusal says.

#include "../support.h"

#include "helpers.h"

#include <QTranslator>

namespace {

/// Puts "en:" before every text of the pages' context.
class PrefixTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "TechnologyWidget") != 0)
            return {};
        return QStringLiteral("en:") + QString::fromUtf8(source);
    }
};

} // namespace

class TestRights : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        App::locked_ = false;
        App::sysUser = AUTHORITY_NONE;
    }

    void table_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("least");
        const auto row = [](const char *label, AUTHORITY least) {
            QTest::newRow(label) << QString::fromUtf8(label) << int(least);
        };
        row("码垛工艺", AUTHORITY_OPERATOR);
        row("传送带跟踪工艺", AUTHORITY_OPERATOR);
        row("打磨工艺", AUTHORITY_OPERATOR);
        row("喷涂工艺", AUTHORITY_OPERATOR);
        row("专用工艺", AUTHORITY_OPERATOR);
        row("激光切割设置", AUTHORITY_TECHNICIAN);
        row("焊接设置", AUTHORITY_TECHNICIAN);
        row("视觉设置", AUTHORITY_TECHNICIAN);
        row("电批工艺", AUTHORITY_TECHNICIAN);
        row("删除程序", AUTHORITY_TECHNICIAN);
        row("修改程序", AUTHORITY_TECHNICIAN);
        row("xml文件导入", AUTHORITY_ADMINISTRATOR);
        row("不在表中", AUTHORITY_ADMINISTRATOR);
    }

    void table()
    {
        QFETCH(QString, label);
        QFETCH(int, least);
        PrefixTranslator english;
        for (const bool translated : {false, true}) {
            if (translated)
                QCoreApplication::installTranslator(&english);
            const QString shown =
                QCoreApplication::translate("TechnologyWidget", label.toUtf8().constData());
            QCOMPARE(shown.startsWith(QLatin1String("en:")), translated);
            QCOMPARE(int(App::requiredRole(label)), least);
            QCOMPARE(int(App::requiredRole(shown)), least);
            for (int user = AUTHORITY_NONE; user <= AUTHORITY_ADMINISTRATOR; ++user) {
                support::Journal journal;
                const bool granted =
                    App::ForbidOperatorAuthority(static_cast<AUTHORITY>(user), shown);
                QCOMPARE(granted, user != AUTHORITY_NONE && user >= least);
                QCOMPARE(journal.of("rights"), (QVector<QVariantList>{{shown, granted}}));
                QCOMPARE(static_cast<int>(journal.toasts().size()), granted ? 0 : 1);
                if (!granted) {
                    QVERIFY(journal.toasts().first().contains(shown));
                    QVERIFY(journal.toasts().first().contains(
                        App::roleName(static_cast<AUTHORITY>(least))));
                }
            }
            QCoreApplication::removeTranslator(&english);
        }
    }

    void nobodyPassesALockedScreen()
    {
        App::locked_ = true;
        support::Journal journal;
        QVERIFY(!App::ForbidOperatorAuthority(AUTHORITY_ADMINISTRATOR, QStringLiteral("打磨工艺")));
        QCOMPARE(journal.of("rights"),
                 (QVector<QVariantList>{{QStringLiteral("打磨工艺"), false}}));
        QVERIFY(!App::canDoOperate());
    }

    void noOperationDuringAWait()
    {
        QVERIFY(App::canDoOperate());
        bool during = true;
        QTimer::singleShot(0, this, [&during] { during = App::canDoOperate(); });
        Delayms(30);
        QVERIFY(!during);
        QVERIFY(App::canDoOperate());
    }

    void currentInterface()
    {
        App::mainPage_ = 2;
        App::secondPage_ = 30;
        QVERIFY(App::isInCurrentInterface(2, 30));
        QVERIFY(!App::isInCurrentInterface(2, 28));
        QVERIFY(!App::isInCurrentInterface(1, 30));
        App::secondPage_ = 28;
    }
};

QTEST_MAIN(TestRights)
#include "test_rights.moc"
