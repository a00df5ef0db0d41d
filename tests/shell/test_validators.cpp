// The validators of the save steps. Each matches the whole text, and a digit written as \d is any
// digit of the world's scripts.

#include "../support.h"

#include "shell/technologywidget.h"

namespace {

using Validator = bool (TechnologyWidget::*)(QString);

struct Rows {
    const char *name;
    Validator validator;
    QStringList accepted;
    QStringList refused;
};

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList strings;
    for (const char *text : texts)
        strings += QString::fromUtf8(text);
    return strings;
}

/// What no validator takes.
QStringList never()
{
    return list({"",     " ",    "a",   "abc", "-",    "+",    ".",    "--1",   "1-",
                 "1 ",   " 1",   "1\n", "\n1", "1\n2", "1,5",  "1.5.", "1..",   "1e5",
                 "1E5",  "0x10", "inf", "nan", "1/2",  "½",    "\t5",  "5\r\n", "五",
                 "-\n1", "1.a",  ".5",  "-.5", "０.",  "1。5", "1．5"})
        + QStringList(QString(QChar(0))) + QStringList(QStringLiteral("1") + QChar(0));
}

QVector<Rows> table()
{
    using T = TechnologyWidget;
    const QStringList size =
        list({"0", "0.5", "12", "12.5", "0.0", "0.00", "0.123456789", "1", "10",
              "9999999999999999999999", "1.0", "10.50", "1２", "1.２", "0.３", "1٣"});
    const QStringList noSize =
        list({"01", "00", ".5", "-1", "+1", "-0", "0.", "12.", "00.5", "01.5", "２", "２1"});
    return {
        {"isValidSizeParam", &T::isValidSizeParam, size, noSize},
        {"isPalletpara", &T::isPalletpara, size, noSize},
        {"isPalletpara1", &T::isPalletpara1,
         list({"1", "1.0", "9", "10", "12.5", "999999999999", "1.000000001", "2.0", "1２"}),
         list({"0", "0.5", "0.0", "01", "00", ".5", "-1", "+1", "1.", "-2.5", "２"})},
        {"isPalletpara2", &T::isPalletpara2,
         list({"0", "00", "01", "-1", "+1", "-0", "12.5", "-12.5", "+0.001", "007.50",
               "123456789012345678901234567890", "２", "-２.３"}),
         list({"1.", "+-1", "- 1", "-1.", "－1", "＋1"})},
        {"isPalletpara3", &T::isPalletpara3, list({"1", "9", "10", "99", "100", "999", "1２３"}),
         list({"0", "00", "01", "1000", "-1", "+1", "1.0", "1.5", "２", "99999"})},
        {"isPalletpara4", &T::isPalletpara4,
         list({"1", "9", "10", "999", "1000", "9999", "1２３４"}),
         list({"0", "01", "10000", "-1", "+1", "1.0", "1.5", "２"})},
        {"isValidint", &T::isValidint,
         list({"0", "00", "01", "007", "5", "12345678901234567890", "0２"}),
         list({"-1", "+1", "1.0", "1.5", "２", "-0"})},
        {"isValiddouble", &T::isValiddouble,
         list({"0", "00", "01", "1", "1.5", "1.25", "1.125", "0.001", "123456.789", "２.３",
               "1.２"}),
         list({"1.", "1.1234", "-1", "+1", "-0.5", "0.0001"})},
        {"isValidLocation", &T::isValidLocation,
         list({"0", "-0", "1", "-1", "1.5", "-1.5", "-1.125", "1.125", "007", "-007", "-２.３"}),
         list({"+1", "1.", "-1.", "1.1234", "-1.1234", "1-1", "－1"})},
        {"isValidper", &T::isValidper, list({"0", "1", "9", "10", "50", "99", "100", "1０", "9９"}),
         list({"00", "01", "101", "110", "200", "1000", "-1", "+1", "0.5", "100.0", "50.0", "２",
               "1００"})},
        {"isFlowOutEdtValiid", &T::isFlowOutEdtValiid,
         list({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}),
         list({"11", "00", "01", "010", "20", "100", "-1", "+1", "1.0", "5.5", "２", "1０"})},
        {"isValidpointtime", &T::isValidpointtime,
         list({"1", "0.", "0.5", "0.25", "0.50", "0.0", "0.00", "0.01", "0.99"}),
         list({"0", "2", "1.", "1.0", "0.123", "00.5", "-0.5", "10", "01", "0.5５", "１"})},
        {"isValidx", &T::isValidx,
         list({"0.01", "0.1", "9.99", "10", "1", "9", "5.5", "0.10", "1.0", "1.00", "２", "２.３",
               "０"}),
         list({"0", "0.0", "0.00", "10.5", "10.00", "10.0", "11", "0.001", "0.000", "9.999", "-1",
               "+1", "01", "1.", "00", "100", "0."})},
    };
}

QString shown(const QString &text)
{
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    line.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    line.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    line.replace(QChar(0), QLatin1String("\\0"));
    return line;
}

} // namespace

Q_DECLARE_METATYPE(Validator)

class TestValidators : public QObject {
    Q_OBJECT
private slots:
    void texts_data()
    {
        QTest::addColumn<Validator>("validator");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("expected");
        const QVector<Rows> validators = table();
        QCOMPARE(static_cast<int>(validators.size()), 13);
        for (const Rows &rows : validators) {
            const auto add = [&rows](const QStringList &texts, bool accepted) {
                for (const QString &text : texts)
                    QTest::newRow(qPrintable(
                        QStringLiteral("%1 '%2' %3")
                            .arg(QString::fromLatin1(rows.name), shown(text),
                                 accepted ? QStringLiteral("passes") : QStringLiteral("fails"))))
                        << rows.validator << text << accepted;
            };
            add(rows.accepted, true);
            add(rows.refused, false);
            // "0." is taken by one of them, in its list above
            QStringList rest = never();
            for (const QString &text : rows.accepted)
                rest.removeAll(text);
            add(rest, false);
        }
    }
    void texts()
    {
        QFETCH(Validator, validator);
        QFETCH(QString, text);
        QFETCH(bool, expected);
        QCOMPARE((TechnologyWidget::getInstance()->*validator)(text), expected);
    }

    /// Every whole number against the bounds that it is meant for.
    void wholeNumbers()
    {
        TechnologyWidget *pages = TechnologyWidget::getInstance();
        for (int number = 0; number <= 12000; ++number) {
            const QString text = QString::number(number);
            QCOMPARE(pages->isPalletpara1(text), number >= 1);
            QCOMPARE(pages->isPalletpara3(text), number >= 1 && number <= 999);
            QCOMPARE(pages->isPalletpara4(text), number >= 1 && number <= 9999);
            QCOMPARE(pages->isValidper(text), number <= 100);
            QCOMPARE(pages->isFlowOutEdtValiid(text), number <= 10);
            QCOMPARE(pages->isValidx(text), number >= 1 && number <= 10);
            QVERIFY(pages->isValidint(text));
            QVERIFY(pages->isValiddouble(text));
            QVERIFY(pages->isValidLocation(text));
            QVERIFY(pages->isPalletpara2(text));
        }
    }

    /// Hundredths from 0.00 to 10.00.
    void hundredths()
    {
        TechnologyWidget *pages = TechnologyWidget::getInstance();
        for (int number = 0; number <= 1000; ++number) {
            const QString text =
                QStringLiteral("%1.%2").arg(number / 100).arg(number % 100, 2, 10, QChar(u'0'));
            QCOMPARE(pages->isValidx(text), number > 0 && number < 1000);
            QCOMPARE(pages->isValidpointtime(text), number < 100);
        }
    }

    void matching_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("expected");
        QTest::newRow("whole") << "abc"
                               << "abc" << true;
        QTest::newRow("part") << "abcd"
                              << "abc" << false;
        QTest::newRow("end only") << "xabc"
                                  << "abc" << false;
        QTest::newRow("case") << "ABC"
                              << "abc" << false;
        QTest::newRow("alternatives") << "b"
                                      << "a|b" << true;
        QTest::newRow("first alternative is a prefix") << "ab"
                                                       << "a|ab" << true;
        QTest::newRow("dot takes a line end") << "a\nb"
                                              << "a.b" << true;
        QTest::newRow("nothing") << ""
                                 << "" << true;
        QTest::newRow("nothing of something") << ""
                                              << "a" << false;
        QTest::newRow("optional") << ""
                                  << "a?" << true;
        QTest::newRow("no pattern at all") << "a"
                                           << "(" << false;
        QTest::newRow("no wildcard syntax") << "abc"
                                            << "a*" << false;
    }
    void matching()
    {
        QFETCH(QString, text);
        QFETCH(QString, pattern);
        QFETCH(bool, expected);
        QCOMPARE(TechnologyWidget::getInstance()->isStrMatchReg(text, pattern), expected);
    }

    void longTexts()
    {
        TechnologyWidget *pages = TechnologyWidget::getInstance();
        const QString digits(20000, QChar(u'1'));
        QVERIFY(pages->isValidint(digits));
        QVERIFY(!pages->isValidint(digits + QLatin1Char('x')));
        QVERIFY(!pages->isPalletpara4(digits));
        QVERIFY(pages->isPalletpara2(QStringLiteral("-") + digits + QStringLiteral(".") + digits));
    }
};

QTEST_MAIN(TestValidators)
#include "test_validators.moc"
