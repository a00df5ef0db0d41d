// The process pages with another application around them than the pendant that ships.

#include "app.h"
#include "eventlog.h"
#include "link/messages.h"
#include "pages.h"
#include "robot.h"
#include "wire/json.h"

#include <QSignalSpy>

class TestMinimal : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void nobodyOpensPages();
    void polishing();
    void refusedValue();

private:
    using Sent = QPair<unsigned short, QByteArray>;

    static void open();

    QVector<Sent> m_sent;
    QStringList m_said;
};

namespace {

constexpr int kMenu = 0;

const QByteArray kReply = R"({"robot": 1, "craftID": 1, "polish": {
    "toolWear": 0.5,
    "startToolOffset": {"X": 1.25, "Y": -2.5, "Z": 3},
    "endToolOffset": {"X": -4.5, "Y": 5.125, "Z": -6},
    "autoFeed": {"value": 0.03, "cycle": 12}}})";

} // namespace

void TestMinimal::initTestCase()
{
    connect(Robot::getInstance(), &Robot::commandSent, this,
            [this](unsigned short id, const QByteArray &body) {
                m_sent.append({id, body});
            });
    connect(EventLog::getInstance(), &EventLog::recorded, this,
            [this](const QString &kind, const QVariantList &values) {
                if (kind == QLatin1String("toast"))
                    m_said += values.first().toString();
            });
    TechnologyWidget::getInstance()->show();
}

void TestMinimal::init()
{
    App::sysUser = AUTHORITY_OPERATOR;
    TechnologyWidget::getInstance()->return_mainPage();
    m_sent.clear();
    m_said.clear();
}

void TestMinimal::open()
{
    host::touch("BtnPolish");
    host::touch("BtnPolishPara");
}

void TestMinimal::nobodyOpensPages()
{
    App::sysUser = AUTHORITY_NONE;
    host::touch("BtnPolish");
    QCOMPARE(TechnologyWidget::getInstance()->currentIndex(), kMenu);
    QCOMPARE(m_said.size(), 1);
}

void TestMinimal::polishing()
{
    QSignalSpy titles(TechnologyWidget::getInstance(), &TechnologyWidget::tnw_WidgetTitle);
    open();
    QCOMPARE(titles.size(), 2);
    QCOMPARE(m_sent.size(), 1);
    QCOMPARE(int(m_sent.first().first), int(message::GetPolish));
    QCOMPARE(m_sent.first().second, QByteArray("{\"craftID\":1,\"robot\":1}\n"));

    emit Robot::getInstance()->robot_Polish_Para(kReply);
    QCOMPARE(host::textOf("toolWear"), QStringLiteral("0.5"));
    QCOMPARE(host::textOf("toolOffsetY"), QStringLiteral("-2.5"));
    QCOMPARE(host::textOf("AutoCompensationCycle"), QStringLiteral("12"));

    m_sent.clear();
    host::touch("btnPolishModify");
    host::enter("toolWear", QStringLiteral("0.75"));
    QVERIFY(m_sent.isEmpty());
    host::touch("btnPolishModify");

    QCOMPARE(m_sent.size(), 1);
    QCOMPARE(int(m_sent.first().first), int(message::SetPolish));
    const auto sent = wire::parseObject(m_sent.first().second);
    QVERIFY(sent);
    QCOMPARE(wire::number(*sent, "polish", "toolWear").value_or(0), 0.75);
    QCOMPARE(wire::number(*sent, "polish", "startToolOffset", "Y").value_or(0), -2.5);
    QCOMPARE(wire::number(*sent, "polish", "autoFeed", "cycle").value_or(0), 12.0);
    QVERIFY(m_said.isEmpty());
}

void TestMinimal::refusedValue()
{
    open();
    emit Robot::getInstance()->robot_Polish_Para(kReply);
    m_sent.clear();
    host::touch("btnPolishModify");
    host::enter("toolWear", QStringLiteral("abc"));
    host::touch("btnPolishModify");
    QVERIFY(m_sent.isEmpty());
    QCOMPARE(m_said, QStringList{QStringLiteral("参数工具磨损补偿不合理，请重新设置")});
}

QTEST_MAIN(TestMinimal)
#include "test_minimal.moc"
