// Positions and moves as the job language has them.

#include "movecommand.h"
#include "robotpos.h"
#include "wire/json.h"

#include <QtTest>

namespace {

QStringList numbered(int count)
{
    QStringList texts;
    for (int i = 1; i <= count; ++i)
        texts += QString::number(i);
    return texts;
}

} // namespace

class TestMoveCommand : public QObject {
    Q_OBJECT
private slots:
    void positionFromTexts()
    {
        const std::optional<RobotPos> position = RobotPos::fromTexts(numbered(14));
        QVERIFY(position);
        for (std::size_t i = 0; i < position->values.size(); ++i)
            QCOMPARE(position->values[i], static_cast<double>(i + 1));
        QCOMPARE(position->id, 0);
        QCOMPARE(position->kind, static_cast<unsigned char>('P'));
        for (const int count : {0, 1, 7, 13, 15, 28})
            QVERIFY2(!RobotPos::fromTexts(numbered(count)), qPrintable(QString::number(count)));
    }

    void textsThatAreNoNumbers()
    {
        QStringList texts = numbered(14);
        texts[0] = QStringLiteral("word");
        texts[1] = QString();
        texts[2] = QStringLiteral("nan");
        texts[3] = QStringLiteral("1e999");
        const std::optional<RobotPos> position = RobotPos::fromTexts(texts);
        QVERIFY(position);
        for (std::size_t i = 0; i < 4; ++i)
            QCOMPARE(position->values[i], 0.0);
        QCOMPARE(position->values[4], 5.0);
    }

    void positionAsJson()
    {
        RobotPos position;
        QCOMPARE(position.values, (std::array<double, 14>{}));
        position.id = RobotPos::wordOf('P', 3);
        QCOMPARE(position.id, 0x500003);
        position.values[1] = -0.5;
        position.values[13] = 7;
        QCOMPARE(wire::writeLine(position.toJson()),
                 QByteArray("{\"id\":5242883,\"kind\":\"P\",\"values\":[0.0,-0.5,0.0,0.0,0.0,0.0,"
                            "0.0,0.0,0.0,0.0,0.0,0.0,0.0,7.0]}\n"));
    }

    void commandTypes()
    {
        const struct {
            Command::Type type;
            int number;
        } rows[] = {
            {Command::MovJ, 1},
            {Command::MovL, 2},
            {Command::Timer, 7},
            {Command::Wait, 8},
            {Command::WhileBegin, 13},
            {Command::WhileEnd, 14},
            {Command::DigitalOut, 16},
            {Command::SetInteger, 35},
            {Command::SetBoolean, 37},
            {Command::PalStart, 68},
            {Command::PalStep, 69},
            {Command::PalToEntry, 71},
            {Command::PalToAuxiliary, 72},
            {Command::PalToWorkpiece, 73},
            {Command::PalHead, 74},
            {Command::PalOff, 75},
        };
        for (const auto &row : rows) {
            const Command command(row.type);
            QCOMPARE(command.type, row.number);
            QCOMPARE(wire::integer(command.toJson(), "type"), std::optional<int>(row.number));
        }
    }

    void moveAsConstructed()
    {
        const MoveCommand move(Command::MovL);
        QCOMPARE(move.type, 2);
        QVERIFY(!move.position);
        QCOMPARE(wire::writeLine(move.toJson()),
                 QByteArray(
                     "{\"frameName\":\"UF\",\"moveKind\":0,\"moveParamA\":0.0,\"moveParamB\":0.0,"
                     "\"moveParamC\":0.0,\"moveParamD\":0.0,\"moveParamE\":0.0,\"moveParamF\":0.0,"
                     "\"moveParamG\":0.0,\"moveParamH\":0.0,\"moveParamI\":0.0,\"positionId\":0,"
                     "\"reserved1\":0,\"reserved2\":0,\"reserved3\":0,\"reserved4\":0,"
                     "\"reserved5\":1,\"reserved6\":0.0,\"reservedText\":\"\",\"type\":2}\n"));
    }

    /// The position comes along, also through the base.
    void moveWithPosition()
    {
        RobotPos position;
        position.values[0] = 12.5;
        MoveCommand move(Command::MovJ);
        move.position = &position;
        move.moveKind = 2;
        move.positionId = 3;
        const Command &command = move;
        const Json::Value json = command.toJson();
        QCOMPARE(wire::integer(json, "type"), std::optional<int>(1));
        QCOMPARE(wire::integer(json, "moveKind"), std::optional<int>(2));
        QCOMPARE(wire::integer(json, "positionId"), std::optional<int>(3));
        const Json::Value *values = wire::array(json, "position", "values");
        QVERIFY(values);
        QCOMPARE(static_cast<int>(values->size()), 14);
        QCOMPARE((*values)[0].asDouble(), 12.5);
    }
};

QTEST_APPLESS_MAIN(TestMoveCommand)
#include "test_movecommand.moc"
