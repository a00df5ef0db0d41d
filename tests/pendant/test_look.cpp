// The general look, the switch, the fonts and the small helpers.

#include "eventlog.h"
#include "getfont.h"
#include "helpers.h"
#include "pendantstyle.h"
#include "setfontsize.h"
#include "switchbutton.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRawFont>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>
#include <QtTest>
#include <cmath>

class TestLook : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void theFontHasChineseCharacters();
    void fontSizesArePoints();
    void theApplicationHasTheLook();
    void targetsAreHighEnough();
    void rowsOfListsAreHighEnough();
    void textsStandOutFromTheirGround_data();
    void textsStandOutFromTheirGround();
    void aStyleSheetOfAButtonStillCounts();
    void checkedAndPressedButtonsDiffer();

    void aClickLeavesTheSwitchAlone();
    void aSwitchEmitsAsAPushButton();
    void aSwitchShowsItsState();
    void aSwitchIsLargeEnough();

    void degreesToRadians();
    void aDelayLetsTimersRun();
    void aDelayHoldsBackTheOperatorsInput();
    void aDelayHoldsItsTime();
    void delaysMayNest();
    void aDelayIsRecorded();
};

void TestLook::initTestCase()
{
    PendantStyle::apply(*qApp);
}

void TestLook::theFontHasChineseCharacters()
{
    const QString family = GetFont::getfonts();
    QVERIFY(!family.isEmpty());
    QCOMPARE(GetFont::getfonts(), family);
    const QRawFont font =
        QRawFont::fromFont(SetFontSize::setSize(14), QFontDatabase::SimplifiedChinese);
    QVERIFY(font.isValid());
    for (const QChar character : QStringLiteral("修改保存码垛传送带打磨工艺号返回确定取消"))
        QVERIFY2(font.supportsCharacter(character), qPrintable(QString(character)));
}

void TestLook::fontSizesArePoints()
{
    QCOMPARE(SetFontSize::setSize(14).pointSize(), 14);
    QCOMPARE(SetFontSize::setSize(14).family(), GetFont::getfonts());
}

void TestLook::theApplicationHasTheLook()
{
    QVERIFY(qobject_cast<PendantStyle *>(QApplication::style()));
    QVERIFY(qApp->styleSheet().isEmpty());
    QVERIFY(QApplication::font().pointSize() >= 13);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             PendantStyle::palette().color(QPalette::Window));
    const QColor ground = PendantStyle::palette().color(QPalette::Window);
    QVERIFY2(ground.hsvSaturation() < 20, "the ground is grey");
}

void TestLook::targetsAreHighEnough()
{
    QPushButton button(QStringLiteral("修改"));
    QLineEdit field;
    QComboBox combo;
    combo.addItem(QStringLiteral("1"));
    QCheckBox check(QStringLiteral("启用"));
    QRadioButton radio(QStringLiteral("整体"));
    for (const QWidget *widget : {static_cast<QWidget *>(&button), static_cast<QWidget *>(&field),
                                  static_cast<QWidget *>(&combo), static_cast<QWidget *>(&check),
                                  static_cast<QWidget *>(&radio)})
        QVERIFY2(widget->sizeHint().height() >= 40, widget->metaObject()->className());
    QVERIFY(QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth) >= 24);

    combo.resize(combo.sizeHint());
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const QRect arrow = QApplication::style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                              QStyle::SC_ComboBoxArrow, &combo);
    QVERIFY(combo.rect().contains(arrow));
    const QRect text = QApplication::style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                             QStyle::SC_ComboBoxEditField, &combo);
    QVERIFY(!text.intersects(arrow));
}

void TestLook::rowsOfListsAreHighEnough()
{
    QListWidget list;
    list.addItem(QStringLiteral("1"));
    QVERIFY(list.sizeHintForRow(0) >= 40);
    QComboBox combo;
    combo.addItems({QStringLiteral("1"), QStringLiteral("2")});
    combo.show();
    QTest::mousePress(&combo, Qt::LeftButton);
    QTRY_VERIFY(combo.view()->isVisible());
    const QRect row = combo.view()->visualRect(combo.model()->index(1, 0));
    QVERIFY(row.height() >= 40);
    QVERIFY(combo.view()->viewport()->rect().contains(row));
    combo.hidePopup();
}

void TestLook::textsStandOutFromTheirGround_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("ground");
    QTest::addColumn<double>("least");
    QTest::newRow("label") << int(QPalette::Active) << int(QPalette::WindowText)
                           << int(QPalette::Window) << 7.0;
    QTest::newRow("button") << int(QPalette::Active) << int(QPalette::ButtonText)
                            << int(QPalette::Button) << 7.0;
    QTest::newRow("field") << int(QPalette::Active) << int(QPalette::Text) << int(QPalette::Base)
                           << 7.0;
    QTest::newRow("read-only field")
        << int(QPalette::Disabled) << int(QPalette::Text) << int(QPalette::Base) << 4.5;
    QTest::newRow("selection") << int(QPalette::Active) << int(QPalette::HighlightedText)
                               << int(QPalette::Highlight) << 4.5;
}

void TestLook::textsStandOutFromTheirGround()
{
    QFETCH(int, group);
    QFETCH(int, text);
    QFETCH(int, ground);
    QFETCH(double, least);
    const auto luminance = [](const QColor &colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
            + 0.0722 * part(colour.blueF());
    };
    const QPalette palette = PendantStyle::palette();
    const auto colour = [&](int role) {
        return luminance(palette.color(QPalette::ColorGroup(group), QPalette::ColorRole(role)));
    };
    const double a = colour(text) + 0.05;
    const double b = colour(ground) + 0.05;
    QVERIFY(qMax(a, b) / qMin(a, b) >= least);
}

void TestLook::aStyleSheetOfAButtonStillCounts()
{
    QPushButton button;
    button.resize(100, 40);
    button.setStyleSheet(QStringLiteral("QPushButton{background-color:rgb(10,200,30);border:0}"));
    QCOMPARE(button.grab().toImage().pixelColor(50, 5), QColor(10, 200, 30));
}

void TestLook::checkedAndPressedButtonsDiffer()
{
    QPushButton button(QStringLiteral("1"));
    button.resize(100, 40);
    const QImage plain = button.grab().toImage();
    button.setCheckable(true);
    button.setChecked(true);
    const QImage checked = button.grab().toImage();
    button.setChecked(false);
    button.setDown(true);
    const QImage down = button.grab().toImage();
    button.setDown(false);
    button.setEnabled(false);
    const QImage disabled = button.grab().toImage();
    QVERIFY(plain != checked && plain != down && plain != disabled && checked != down);
}

void TestLook::aClickLeavesTheSwitchAlone()
{
    SwitchButton button;
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QVERIFY(!button.m_check);
    button.setCheck(true);
    QVERIFY(button.m_check);
    QVERIFY(button.isCheck());
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(button.m_check);
    button.setCheck(false);
    QVERIFY(!button.isCheck());
}

void TestLook::aSwitchEmitsAsAPushButton()
{
    SwitchButton button;
    QStringList order;
    connect(&button, &SwitchButton::pressed, this,
            [&] { order.append(QStringLiteral("pressed")); });
    connect(&button, &SwitchButton::released, this,
            [&] { order.append(QStringLiteral("released")); });
    connect(&button, &SwitchButton::clicked, this,
            [&] { order.append(QStringLiteral("clicked")); });
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(order, QStringList("pressed"));
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(order, QStringList({"pressed", "released", "clicked"}));
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(order.size(), 3);
}

void TestLook::aSwitchShowsItsState()
{
    SwitchButton button;
    button.resize(button.sizeHint());
    const auto grey = [&button] {
        return button.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    };
    const QImage off = grey();
    button.setCheck(true);
    QVERIFY(grey() != off);
    button.setCheck(false);
    QCOMPARE(grey(), off);
    button.setEnabled(false);
    QVERIFY(grey() != off);
}

void TestLook::aSwitchIsLargeEnough()
{
    SwitchButton button;
    button.resize(1, 1);
    QVERIFY(button.width() >= 64 && button.height() >= 40);
    QVERIFY(button.sizeHint().width() >= 64 && button.sizeHint().height() >= 40);
}

void TestLook::degreesToRadians()
{
    QCOMPARE(DegToRad(180.0), 3.14159265358979323846);
    QCOMPARE(DegToRad(0.0), 0.0);
    QCOMPARE(DegToRad(-90.0), -1.57079632679489661923);
    QCOMPARE(QString::number(DegToRad(12.5), 'g', 6), QStringLiteral("0.218166"));
}

void TestLook::aDelayLetsTimersRun()
{
    bool ran = false;
    bool within = false;
    QTimer::singleShot(0, this, [&] {
        ran = true;
        within = isInDelay();
    });
    QVERIFY(!isInDelay());
    Delayms(50);
    QVERIFY(ran);
    QVERIFY(within);
    QVERIFY(!isInDelay());
}

void TestLook::aDelayHoldsBackTheOperatorsInput()
{
    QPushButton button(QStringLiteral("1"));
    QLineEdit field;
    button.show();
    QSignalSpy clicked(&button, &QPushButton::clicked);
    bool touched = false;
    QTimer::singleShot(0, this, [&] {
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(button.windowHandle(), Qt::LeftButton);
        QTest::keyClick(&button, Qt::Key_Space);
        QTest::keyClicks(&field, QStringLiteral("12"));
        touched = true;
    });
    Delayms(60);
    QVERIFY(touched);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(field.text(), QString());
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
}

void TestLook::aDelayHoldsItsTime()
{
    QElapsedTimer clock;
    clock.start();
    Delayms(120);
    QVERIFY(clock.elapsed() >= 119);
}

void TestLook::delaysMayNest()
{
    QStringList order;
    QTimer::singleShot(0, this, [&] {
        Delayms(80);
        order.append(QStringLiteral("inner"));
        QVERIFY(isInDelay());
    });
    Delayms(20);
    order.append(QStringLiteral("outer"));
    QCOMPARE(order, QStringList({"inner", "outer"}));
    QVERIFY(!isInDelay());
}

void TestLook::aDelayIsRecorded()
{
    QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
    Delayms(1);
    QCOMPARE(recorded.count(), 1);
    QCOMPARE(recorded.first().at(0).toString(), QStringLiteral("delay"));
    QCOMPARE(recorded.first().at(1).toList().first().toUInt(), 1U);
}

QTEST_MAIN(TestLook)
#include "test_look.moc"
