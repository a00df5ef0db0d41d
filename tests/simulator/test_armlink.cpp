// The arms as a pendant meets them: positions, running to a point, user coordinates, what stops a
// motion, what is said when it is refused. The arms move by stepArms() alone, so that no clock
// decides anything.

#include "app.h"
#include "link.h"
#include "link/messages.h"
#include "morerobot.h"
#include "otherpendant.h"
#include "simulator/angles.h"
#include "simulator/armwords.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <cmath>

namespace {

constexpr double kPi = angles::kPi;

QByteArray json(const Json::Value &value)
{
    return wire::writeLine(value);
}

QVector<double> numbers(const QByteArray &line)
{
    QVector<double> values;
    for (const QByteArray &part : line.split(' ')) {
        bool good = false;
        values.append(part.toDouble(&good));
        if (!good)
            return {};
    }
    return values;
}

double distance(const QVector<double> &a, const QVector<double> &b)
{
    return std::hypot(std::hypot(a[2] - b[2], a[3] - b[3]), a[4] - b[4]);
}

} // namespace

class TestArmLink : public QObject {
    Q_OBJECT

    Robot *robot = Robot::getInstance();
    QTemporaryDir directory;
    std::unique_ptr<SimulatedController> controller;

    void startController(int switchLasts = kHeldAllDay)
    {
        controller = std::make_unique<SimulatedController>();
        SimulatedController::Options options;
        options.directory = directory.path();
        options.statusInterval = 20;
        options.motionInterval = 0;
        options.switchLasts = switchLasts;
        QString error;
        QVERIFY2(controller->start(options, &error), qPrintable(error));
        robot->setLinkTimes(quickTimes());
        robot->connectToController(QStringLiteral("127.0.0.1"), controller->port());
        QTRY_VERIFY(robot->isConnected());
    }
    void setType(int type, int number = 1)
    {
        controller->setKinematicType(number, type);
        if (number == MoreRobot::getCurrentRobot())
            QTRY_COMPARE(robot->kinematicType, type);
    }
    void enable()
    {
        robot->requestServo(true);
        robot->setDeadman(true);
        QTRY_COMPARE(robot->get_servo_state(), 3);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
    }
    /// The two lines of a position.
    QVector<QVector<double>> position(int coordinate, int number = 1)
    {
        Json::Value body;
        body["robot"] = number;
        body["coord"] = coordinate;
        QSignalSpy reply(robot, &Robot::receive_moreRobot_CurPosition);
        robot->sendCommandData(message::GetCurrentPosition, json(body));
        if (!QTest::qWaitFor([&] { return !reply.isEmpty(); }))
            return {};
        return {numbers(reply.first().at(0).toByteArray()),
                numbers(reply.first().at(1).toByteArray())};
    }
    void run(const QVector<double> &flags, const QVector<double> &point, int number = 1)
    {
        Json::Value body;
        body["robot"] = number;
        body["type"] = 1;
        Json::Value &values = body["position"]["values"];
        for (int i = 0; i < 7; ++i)
            values.append(i < flags.size() ? flags.at(i) : 0.0);
        for (int i = 0; i < 7; ++i)
            values.append(i < point.size() ? point.at(i) : 0.0);
        body["position"]["id"] = 0;
        body["position"]["kind"] = "P";
        const int before = controller->received(message::RunToPoint);
        robot->sendCommandData(message::RunToPoint, json(body));
        QTRY_COMPARE(controller->received(message::RunToPoint), before + 1);
    }
    void userMessage(message::Id id, int number, const char *inquire)
    {
        Json::Value body;
        body["userNum"] = number;
        body["inquire"] = inquire;
        robot->sendCommandData(id, json(body));
    }
    QVector<double> userPoint(message::Id id, int number, const char *inquire)
    {
        QSignalSpy reply(robot, &Robot::robot_usercoords_reply);
        userMessage(id, number, inquire);
        if (!QTest::qWaitFor([&] { return !reply.isEmpty(); }))
            return {};
        if (reply.first().at(0).toInt() != number
            || reply.first().at(1).toString() != QLatin1String(inquire))
            return {};
        return reply.first().at(2).value<QVector<double>>();
    }
    int calculate(int number, const QVector<QVector<double>> &points)
    {
        Json::Value body;
        body["userNum"] = number;
        for (const QVector<double> &point : points) {
            Json::Value item(Json::arrayValue);
            for (const double value : point)
                item.append(value);
            body["cacl"].append(item);
        }
        QSignalSpy reply(robot, &Robot::robot_user_suc);
        robot->sendCommandData(message::CalculateUserCoordinate, json(body));
        return QTest::qWaitFor([&] { return !reply.isEmpty(); }) ? reply.first().at(0).toInt() : -1;
    }
    /// Lets the arms arrive.
    void arrive()
    {
        for (int i = 0; i < 2000 && controller->cell().isMoving(); ++i)
            controller->stepArms(0.02);
        QVERIFY(!controller->cell().isMoving());
    }

    /// Keeps the journal's entries of what the controller says.
    struct Ear {
        Ear()
        {
            QObject::connect(EventLog::getInstance(), &EventLog::recorded, &context,
                             [this](const QString &kind, const QVariantList &values) {
                                 if (kind == QLatin1String("controller"))
                                     words.append(values.value(0).toString());
                             });
        }
        QObject context;
        QStringList words;
    };

private slots:
    void init() { startController(); }
    void cleanup()
    {
        MoreRobot::setCurrentRobot(1);
        App::isDeg = true;
        robot->disconnectFromController();
        controller.reset();
    }

    void positionsHaveNineNumbers_data()
    {
        QTest::addColumn<int>("type");
        for (int type = 1; type <= 12; ++type)
            QTest::addRow("type %d", type) << type;
    }
    void positionsHaveNineNumbers()
    {
        QFETCH(int, type);
        setType(type);
        const ArmModel model(type);
        for (int coordinate = 0; coordinate < 4; ++coordinate) {
            const QVector<QVector<double>> lines = position(coordinate);
            QCOMPARE(int(lines.size()), 2);
            for (const QVector<double> &line : lines) {
                QCOMPARE(int(line.size()), 9);
                QCOMPARE(line[0], 1.0);
                QCOMPARE(line[1], double(coordinate));
            }
            for (int i = 0; i < 7; ++i) {
                const bool angle =
                    coordinate == 0 ? i < model.axes() && !model.isLinear(i) : i > 2 && i < 6;
                const double radians = lines[0][i + 2];
                const double wanted = angle ? angles::toDegrees(radians) : radians;
                QVERIFY(std::abs(lines[1][i + 2] - wanted) < 1e-4);
            }
        }
        const Pose pose = model.pose(model.home());
        const QVector<double> cartesian = position(1)[0];
        const QVector<double> axes = position(0)[0];
        for (int i = 0; i < 7; ++i) {
            QVERIFY(std::abs(cartesian[i + 2] - pose[static_cast<size_t>(i)]) < 1e-5);
            QVERIFY(std::abs(axes[i + 2] - model.home()[static_cast<size_t>(i)]) < 1e-5);
        }
    }
    void positionOfAnotherRobot()
    {
        setType(2, 3);
        QCOMPARE(position(1, 3)[0][0], 3.0);
        QVERIFY(std::abs(position(1, 3)[0][4] - 800) < 1e-3);
    }

    void runsToAPoint()
    {
        enable();
        const QVector<double> start = position(1)[0];
        QVector<double> point = start.mid(2);
        point[1] += 150;
        point[2] -= 100;
        run({1, 1}, point);
        QTRY_VERIFY(controller->cell().isMoving());
        // a position that is polled on the way runs
        QVector<double> last = start;
        for (int i = 0; i < 5; ++i) {
            controller->stepArms(0.1);
            const QVector<double> now = position(1)[0];
            QVERIFY(distance(last, now) > 1);
            QVERIFY(distance(last, now) < 250 * 0.1);
            QVERIFY(position(0)[0] != start);
            last = now;
        }
        arrive();
        const QVector<double> end = position(1)[0];
        for (int i = 0; i < 6; ++i)
            QVERIFY(std::abs(end[i + 2] - point[i]) < 1e-2);
        QCOMPARE(position(1, 2)[0][3], 0.0); // robot 2 stays
    }
    void runsToAxesInDegrees()
    {
        enable();
        QVector<double> axes = position(0)[1].mid(2);
        axes[0] = 12.5;
        axes[4] = 80;
        run({}, axes);
        arrive();
        const QVector<double> end = position(0)[1];
        for (int i = 0; i < 7; ++i)
            QVERIFY(std::abs(end[i + 2] - axes[i]) < 1e-4);
    }
    void runsToAxesInRadiansWhenItIsSaid()
    {
        enable();
        run({0, 1}, {0.25, 0.1, 0.1, 0, 1.2, 0.5});
        arrive();
        QVERIFY(std::abs(position(0)[0][2] - 0.25) < 1e-5);
        QVERIFY(std::abs(position(0)[0][6] - 1.2) < 1e-5);
    }
    void aFourAxisPointComesWithoutItsFixedAngles()
    {
        setType(2);
        enable();
        run({1, 1}, {900, 200, 400, 0, 0, 0.5});
        arrive();
        const QVector<double> end = position(1)[0];
        QVERIFY(std::abs(end[2] - 900) < 1e-2 && std::abs(end[3] - 200) < 1e-2);
        QVERIFY(std::abs(end[4] - 400) < 1e-2);
        QVERIFY(std::abs(end[5] - kPi) < 1e-4);
        QVERIFY(std::abs(end[7] - 0.5) < 1e-4);
    }
    /// A page converts a, b and c of a point, not the elbow: it comes back as it was told.
    void theElbowIsInDegreesEverywhere()
    {
        setType(12);
        enable();
        QVector<double> point = position(1)[0].mid(2);
        point[6] = 20;
        run({1, 1}, point);
        arrive();
        const double elbow = controller->cell().arm(1).pose()[kElbow];
        QVERIFY(std::abs(elbow - angles::toRadians(20)) < 1e-5);
        for (const int coordinate : {1, 2, 3}) {
            const QVector<QVector<double>> lines = position(coordinate);
            QVERIFY(std::abs(lines[0][8] - 20) < 1e-3);
            QVERIFY(std::abs(lines[1][8] - 20) < 1e-3);
        }
        for (const bool degrees : {true, false}) {
            App::isDeg = degrees;
            const QVector<double> marked = userPoint(message::GetUserCoordinatePoint, 1, "O");
            QCOMPARE(int(marked.size()), 7);
            QVERIFY(std::abs(marked[6] - 20) < 1e-3);
        }
    }
    /// What the kinematics leave of a 0 does not reach a page that shows the first five characters.
    void markedPointsHaveNoNoise()
    {
        enable();
        QVector<double> axes = position(0)[0].mid(2);
        for (const double turn : {1e-10, -1e-10, 1e-8, -1e-8}) {
            axes[0] = turn;
            run({0, 1}, axes);
            arrive();
            const double y = controller->cell().arm(1).pose()[1];
            QVERIFY(y != 0.0 && std::abs(y) < 5e-5);
            const double told = userPoint(message::GetUserCoordinatePoint, 1, "O")[1];
            QCOMPARE(QString::number(told, 'g', 6), QStringLiteral("0"));
        }
    }
    void robotTwoIsRunByItsNumber()
    {
        enable();
        const QVector<double> one = position(1)[0];
        QVector<double> point = one.mid(2);
        point[1] = 120;
        run({1, 1}, point, 2);
        arrive();
        QCOMPARE(position(1)[0], one);
        QVERIFY(std::abs(position(1, 2)[0][3] - 120) < 1e-2);
    }

    void aMotionStops_data()
    {
        QTest::addColumn<int>("by");
        QTest::newRow("enabling switch") << 0;
        QTest::newRow("drives") << 1;
        QTest::newRow("mode") << 2;
        QTest::newRow("safety switch") << 3;
        QTest::newRow("another robot") << 4;
        QTest::newRow("the pendant is lost") << 5;
    }
    void aMotionStops()
    {
        QFETCH(int, by);
        enable();
        QVector<double> point = position(1)[0].mid(2);
        point[1] += 300;
        run({1, 1}, point);
        QTRY_VERIFY(controller->cell().isMoving());
        controller->stepArms(0.3);
        const Joints where = controller->cell().arm(1).joints();
        switch (by) {
        case 0:
            robot->setDeadman(false);
            break;
        case 1:
            robot->requestServo(false);
            break;
        case 2:
            robot->setTeachMode(1);
            break;
        case 3:
            robot->robot_key_slot_saftySwitchProcess(0);
            break;
        case 4:
            MoreRobot::setCurrentRobot(2);
            break;
        default:
            robot->disconnectFromController();
            break;
        }
        QTRY_VERIFY(!controller->cell().isMoving());
        controller->stepArms(1);
        QCOMPARE(controller->cell().arm(1).joints(), where);
        if (by == 0) { // pressed again, it does not go on by itself
            robot->setDeadman(true);
            QTRY_COMPARE(robot->get_deadman_state(), 1);
            controller->stepArms(1);
            QCOMPARE(controller->cell().arm(1).joints(), where);
        }
        if (by == 2) {
            robot->setTeachMode(0);
            QTRY_COMPARE(robot->get_teach_mode(), 0);
        }
    }
    void notEnabled_data()
    {
        QTest::addColumn<bool>("servo");
        QTest::addColumn<bool>("deadman");
        QTest::newRow("nothing") << false << false;
        QTest::newRow("servo only") << true << false;
        QTest::newRow("deadman only") << false << true;
    }
    void notEnabled()
    {
        QFETCH(bool, servo);
        QFETCH(bool, deadman);
        robot->requestServo(servo);
        robot->setDeadman(deadman);
        QTRY_COMPARE(robot->get_deadman_state(), deadman ? 1 : 0);
        QTRY_COMPARE(robot->get_servo_state(), servo ? 3 : 1);
        Ear ear;
        QSignalSpy said(robot, &Robot::controllerSaid);
        QVector<double> point = position(1)[0].mid(2);
        run({1, 1}, point);
        QTRY_COMPARE(ear.words, QStringList(QString::fromLatin1(armword::kNotEnabled)));
        QCOMPARE(int(said.count()), 1);
        QVERIFY(said.first().first().toString() != ear.words.first()); // a text, not the word
        QVERIFY(!controller->cell().isMoving());
    }
    void unreachableIsRefusedAndSaid_data()
    {
        QTest::addColumn<QVector<double>>("flags");
        QTest::addColumn<QVector<double>>("point");
        QTest::addColumn<QString>("word");
        const QString reach = QString::fromLatin1(armword::kOutOfReach);
        const QString limit = QString::fromLatin1(armword::kAxisLimit);
        QTest::newRow("far") << QVector<double>{1, 1} << QVector<double>{4000, 0, 500} << reach;
        QTest::newRow("never taught")
            << QVector<double>{1, 1} << QVector<double>{0, 0, 0, 0, 0, 0, 0} << reach;
        QTest::newRow("axis") << QVector<double>{} << QVector<double>{171, 0, 0, 0, 0, 0} << limit;
        QTest::newRow("huge") << QVector<double>{1, 1} << QVector<double>{1e300, 0, 0} << reach;
    }
    void unreachableIsRefusedAndSaid()
    {
        QFETCH(QVector<double>, flags);
        QFETCH(QVector<double>, point);
        QFETCH(QString, word);
        enable();
        Ear ear;
        QSignalSpy toasts(EventLog::getInstance(), &EventLog::recorded);
        run(flags, point);
        QTRY_COMPARE(ear.words, QStringList(word));
        QTRY_VERIFY(kindEntries(toasts, "toast") == 1);
        QVERIFY(!controller->cell().isMoving());
        QCOMPARE(controller->refused(), 0);
    }
    void refusedMessages_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("body");
        const auto row = [](const char *name, int id, const QByteArray &body) {
            QTest::newRow(name) << id << body;
        };
        row("no robot", message::GetCurrentPosition, "{\"coord\":1}");
        row("robot 5", message::GetCurrentPosition, "{\"coord\":1,\"robot\":5}");
        row("coord 4", message::GetCurrentPosition, "{\"coord\":4,\"robot\":1}");
        row("coord -1", message::GetCurrentPosition, "{\"coord\":-1,\"robot\":1}");
        row("coord a text", message::GetCurrentPosition, "{\"coord\":\"1\",\"robot\":1}");
        row("run without a point", message::RunToPoint, "{\"robot\":1,\"type\":1}");
        row("run with 13", message::RunToPoint,
            "{\"robot\":1,\"type\":1,\"position\":{\"values\":[1,1,0,0,0,0,0,0,0,0,0,0,0]}}");
        row("run to a text", message::RunToPoint,
            "{\"robot\":1,\"type\":1,\"position\":{\"values\":"
            "[1,1,0,0,0,0,0,\"9\",0,0,0,0,0,0]}}");
        row("run in coordinates 4", message::RunToPoint,
            "{\"robot\":1,\"type\":1,\"position\":{\"values\":[4,1,0,0,0,0,0,9,0,0,0,0,0,0]}}");
        row("another command", message::RunToPoint,
            "{\"robot\":1,\"type\":68,\"position\":{\"values\":[1,1,0,0,0,0,0,9,0,0,0,0,0,0]}}");
        row("mark 0", message::GetUserCoordinatePoint, "{\"userNum\":0,\"inquire\":\"O\"}");
        row("mark 10", message::GetUserCoordinatePoint, "{\"userNum\":10,\"inquire\":\"O\"}");
        row("mark Z", message::GetUserCoordinatePoint, "{\"userNum\":1,\"inquire\":\"Z\"}");
        row("mark the frame", message::GetUserCoordinatePoint,
            "{\"userNum\":1,\"inquire\":\"Calibration\"}");
        row("ask for Z", message::GetUserCoordinate, "{\"userNum\":1,\"inquire\":\"Z\"}");
        row("two points", message::CalculateUserCoordinate,
            "{\"userNum\":1,\"cacl\":[[0,0,0,0,0,0],[1,0,0,0,0,0]]}");
        row("points of five", message::CalculateUserCoordinate,
            "{\"userNum\":1,\"cacl\":[[0,0,0,0,0],[1,0,0,0,0],[0,1,0,0,0]]}");
        row("a point of texts", message::CalculateUserCoordinate,
            "{\"userNum\":1,\"cacl\":[[0,0,0,0,0,0],[\"1\",0,0,0,0,0],[0,1,0,0,0,0]]}");
        row("switch without a robot", message::SwitchUserCoordinate, "{\"userNum\":1}");
        row("switch to 10", message::SwitchUserCoordinate, "{\"userNum\":10,\"robot\":1}");
        row("tool 0", message::GetToolData, "{\"toolNum\":0}");
        row("tool 10", message::GetToolData, "{\"toolNum\":10}");
        row("tool 1.5", message::GetToolData, "{\"toolNum\":1.5}");
    }
    void refusedMessages()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, body);
        robot->sendCommandData(static_cast<unsigned short>(id), body);
        QTRY_COMPARE(controller->refused(), 1);
        QVERIFY(robot->isConnected());
    }

    // ---- user coordinates -------------------------------------------------------------------

    /// Marked at the arm, by moving it; the frame against one worked out by hand.
    void threePointsMakeAFrame()
    {
        enable();
        const QVector<double> down = {kPi, 0, 0};
        // X of the tray runs at 30 degrees, Y at 120
        const double co = std::cos(kPi / 6);
        const double si = std::sin(kPi / 6);
        const QVector<QVector<double>> places = {
            {800, -100, 300},
            {800 + 200 * co, -100 + 200 * si, 300},
            {800 - 150 * si + 40 * co, -100 + 150 * co + 40 * si, 300}};
        const char *const names[] = {"O", "X", "Y"};
        QVector<QVector<double>> marked;
        for (int i = 0; i < 3; ++i) {
            run({1, 1}, places[i] + down);
            arrive();
            const QVector<double> point = userPoint(message::GetUserCoordinatePoint, 4, names[i]);
            QCOMPARE(int(point.size()), 6);
            for (int k = 0; k < 3; ++k)
                QVERIFY(std::abs(point[k] - places[i][k]) < 0.01);
            QVERIFY(std::abs(point[3] - 180) < 1e-3); // shown in degrees
            QCOMPARE(userPoint(message::GetUserCoordinate, 4, names[i]), point);
            marked.append(point);
        }
        QCOMPARE(calculate(4, marked), 1);
        const QVector<double> frame = userPoint(message::GetUserCoordinate, 4, "Calibration");
        QCOMPARE(int(frame.size()), 6);
        QVERIFY(std::abs(frame[0] - 800) < 0.01 && std::abs(frame[1] + 100) < 0.01);
        QVERIFY(std::abs(frame[2] - 300) < 0.01);
        QVERIFY(std::abs(frame[3]) < 0.01 && std::abs(frame[4]) < 0.01);
        QVERIFY(std::abs(frame[5] - 30) < 0.01);

        // the arm stands on the Y point; in the frame that is (40, 150, 0)
        const QVector<double> before = position(3)[0];
        QVERIFY(std::abs(before[2] - position(1)[0][2]) < 1e-6); // not switched yet: the base
        robot->sendCommandData(message::SwitchUserCoordinate, "{\"robot\":1,\"userNum\":4.0}");
        const QVector<QVector<double>> now = position(3);
        QVERIFY(std::abs(now[0][2] - 40) < 0.02 && std::abs(now[0][3] - 150) < 0.02);
        QVERIFY(std::abs(now[0][4]) < 0.02);
        QVERIFY(std::abs(now[1][7] + 30) < 0.01); // turned against the frame

        // and a point of the frame is run to
        run({3, 1}, {10, 20, 50, kPi, 0, 0});
        arrive();
        const QVector<double> there = position(3)[0];
        QVERIFY(std::abs(there[2] - 10) < 0.02 && std::abs(there[3] - 20) < 0.02);
        QVERIFY(std::abs(there[4] - 50) < 0.02);
        const QVector<double> base = position(1)[0];
        QVERIFY(std::abs(base[2] - (800 + 10 * co - 20 * si)) < 0.02);
        QVERIFY(std::abs(base[3] - (-100 + 10 * si + 20 * co)) < 0.02);
        QVERIFY(std::abs(base[4] - 350) < 0.02);
    }
    void framesOnASlope()
    {
        // X upwards at 45 degrees in the XZ plane, Y along Y
        QCOMPARE(calculate(1, {{0, 0, 0, 0, 0, 0}, {10, 0, 10, 0, 0, 0}, {0, 7, 0, 0, 0, 0}}), 1);
        const QVector<double> frame = userPoint(message::GetUserCoordinate, 1, "Calibration");
        QVERIFY(std::abs(frame[4] + 45) < 1e-6); // about Y, the X axis lifted
        QVERIFY(std::abs(frame[3]) < 1e-6 && std::abs(frame[5]) < 1e-6);
        App::isDeg = false;
        const QVector<double> radians = userPoint(message::GetUserCoordinate, 1, "Calibration");
        QVERIFY(std::abs(radians[4] + kPi / 4) < 1e-9);
    }
    void pointsThatMakeNoFrame_data()
    {
        QTest::addColumn<QVector<double>>("origin");
        QTest::addColumn<QVector<double>>("alongX");
        QTest::addColumn<QVector<double>>("alongY");
        using V = QVector<double>;
        QTest::newRow("all one") << V{1, 2, 3, 0, 0, 0} << V{1, 2, 3, 0, 0, 0}
                                 << V{1, 2, 3, 0, 0, 0};
        QTest::newRow("X is the origin")
            << V{1, 2, 3, 0, 0, 0} << V{1, 2, 3, 0, 0, 0} << V{1, 200, 3, 0, 0, 0};
        QTest::newRow("Y is the origin")
            << V{1, 2, 3, 0, 0, 0} << V{100, 2, 3, 0, 0, 0} << V{1, 2, 3, 0, 0, 0};
        QTest::newRow("one line") << V{0, 0, 0, 0, 0, 0} << V{100, 50, 10, 0, 0, 0}
                                  << V{200, 100, 20, 0, 0, 0};
        QTest::newRow("one line, backwards")
            << V{0, 0, 0, 0, 0, 0} << V{100, 0, 0, 0, 0, 0} << V{-300, 0, 0, 0, 0, 0};
        QTest::newRow("nearly one line")
            << V{0, 0, 0, 0, 0, 0} << V{1000, 0, 0, 0, 0, 0} << V{1000, 8, 0, 0, 0, 0};
        QTest::newRow("angles alone differ")
            << V{0, 0, 0, 0, 0, 0} << V{0, 0, 0, 1, 0, 0} << V{0, 0, 0, 0, 1, 0};
    }
    void pointsThatMakeNoFrame()
    {
        QFETCH(QVector<double>, origin);
        QFETCH(QVector<double>, alongX);
        QFETCH(QVector<double>, alongY);
        QCOMPARE(calculate(2, {{0, 0, 5, 0, 0, 0}, {10, 0, 5, 0, 0, 0}, {0, 7, 5, 0, 0, 0}}), 1);
        const QVector<double> frame = userPoint(message::GetUserCoordinate, 2, "Calibration");
        QCOMPARE(calculate(2, {origin, alongX, alongY}), 0);
        // what was calculated before stays
        QCOMPARE(userPoint(message::GetUserCoordinate, 2, "Calibration"), frame);
    }
    void pointsAreShownByFamily_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("values");
        QTest::newRow("six") << 1 << 6;
        QTest::newRow("four") << 3 << 4;
        QTest::newRow("one") << 5 << 6;
        QTest::newRow("five") << 6 << 6;
        QTest::newRow("three") << 11 << 3;
        QTest::newRow("seven") << 12 << 7;
    }
    void pointsAreShownByFamily()
    {
        QFETCH(int, type);
        QFETCH(int, values);
        setType(type);
        const QVector<double> point = userPoint(message::GetUserCoordinatePoint, 7, "X");
        QCOMPARE(int(point.size()), values);
        const QVector<double> cartesian = position(1)[1].mid(2);
        for (int i = 0; i < 3; ++i)
            QVERIFY(std::abs(point[i] - cartesian[i]) < 1e-4);
        if (values == 4)
            QVERIFY(std::abs(point[3] - cartesian[5]) < 1e-4);
    }
    void pointsBelongToARobotAndSurvive()
    {
        const QVector<double> nothing(6, 0.0);
        const QVector<double> point = userPoint(message::GetUserCoordinatePoint, 9, "Y");
        QVERIFY(point != nothing);
        QCOMPARE(userPoint(message::GetUserCoordinate, 8, "Y"), nothing);
        MoreRobot::setCurrentRobot(2);
        QCOMPARE(userPoint(message::GetUserCoordinate, 9, "Y"), nothing);
        MoreRobot::setCurrentRobot(1);
        robot->disconnectFromController();
        controller.reset();
        startController();
        QCOMPARE(userPoint(message::GetUserCoordinate, 9, "Y"), point);
    }

    // ---- tools ------------------------------------------------------------------------------

    void toolFrames()
    {
        QSet<QByteArray> frames;
        for (int tool = 1; tool <= 9; ++tool) {
            QSignalSpy reply(robot, &Robot::robot_tool_count_check);
            robot->sendCommandData(message::GetToolData,
                                   "{\"toolNum\":" + QByteArray::number(tool) + "}\n");
            QTRY_COMPARE(int(reply.count()), 1);
            QCOMPARE(reply.first().at(0).toInt(), tool);
            const QByteArray line = reply.first().at(1).toByteArray();
            const QVector<double> radians = numbers(line);
            const QVector<double> degrees = numbers(reply.first().at(2).toByteArray());
            QCOMPARE(int(radians.size()), 6);
            QCOMPARE(int(degrees.size()), 6);
            for (int i = 0; i < 6; ++i) {
                QVERIFY(std::abs((i < 3 ? radians[i] : angles::toDegrees(radians[i])) - degrees[i])
                        < 1e-3);
            }
            QVERIFY(radians[2] > 0);
            frames.insert(line);
        }
        QCOMPARE(int(frames.size()), 9);
    }

    // ---- jogging ----------------------------------------------------------------------------

    void jogsWhileItIsAskedFor()
    {
        enable();
        const QVector<double> start = position(1)[0];
        robot->jog(2, 1, 1);
        QTRY_VERIFY(controller->cell().isMoving());
        controller->stepArms(0.4);
        robot->jog(2, 1, 1);
        position(1); // behind the key
        controller->stepArms(0.4);
        QVERIFY(controller->cell().isMoving());
        const QVector<double> there = position(1)[0];
        QVERIFY(std::abs(there[3] - start[3] - 80) < 0.1);
        QVERIFY(std::abs(there[2] - start[2]) < 0.1);
        robot->jog(0, 0, 0);
        QTRY_VERIFY(!controller->cell().isMoving());

        // a key that is not said again is let go
        const double before = position(0)[0][2];
        robot->jog(1, -1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
        controller->stepArms(1);
        QVERIFY(!controller->cell().isMoving());
        QVERIFY(position(0)[0][2] < before - angles::toRadians(1));
    }
    void aJogEndsWithTheEnablingSwitchAndDoesNotBeginAgain()
    {
        enable();
        robot->jog(1, 1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
        robot->setDeadman(false);
        QTRY_VERIFY(!controller->cell().isMoving());
        robot->setDeadman(true);
        robot->jog(1, 1, 0); // still held
        position(0);
        QVERIFY(!controller->cell().isMoving());
        robot->jog(0, 0, 0);
        robot->jog(1, 1, 0); // pressed anew
        QTRY_VERIFY(controller->cell().isMoving());
    }
    void aRefusedJogIsSaidOnce()
    {
        Ear ear;
        for (int i = 0; i < 5; ++i)
            robot->jog(1, 1, 0);
        position(0);
        position(0);
        QCOMPARE(ear.words, QStringList(QString::fromLatin1(armword::kNotEnabled)));
        enable();
        robot->setTeachMode(1);
        QTRY_COMPARE(robot->get_teach_mode(), 1);
        robot->jog(3, 1, 0);
        QTRY_COMPARE(int(ear.words.size()), 2);
        QCOMPARE(ear.words.last(), QString::fromLatin1(armword::kNotTeaching));
        robot->setTeachMode(0);
        QTRY_COMPARE(robot->get_teach_mode(), 0);
        robot->jog(7, 1, 0);
        QTRY_COMPARE(int(ear.words.size()), 3);
        QCOMPARE(ear.words.last(), QString::fromLatin1(armword::kNoSuchAxis));
        QVERIFY(!controller->cell().isMoving());
    }
    void aJogIntoALimitIsSaid()
    {
        setType(8);
        enable();
        Ear ear;
        for (int i = 0; i < 100 && ear.words.isEmpty(); ++i) {
            robot->jog(3, -1, 0);
            position(0);
            controller->stepArms(0.4);
            position(0);
        }
        QCOMPARE(ear.words, QStringList(QString::fromLatin1(armword::kAxisLimit)));
        QCOMPARE(position(0)[0][4], 0.0);
    }
    void jogsThatAreNone_data()
    {
        QTest::addColumn<QByteArray>("body");
        for (const char *body :
             {"{\"key\":\"jog\"}", "{\"key\":\"jog\",\"value\":8,\"direction\":1,\"coord\":0}",
              "{\"key\":\"jog\",\"value\":1,\"direction\":0,\"coord\":0}",
              "{\"key\":\"jog\",\"value\":1,\"direction\":2,\"coord\":0}",
              "{\"key\":\"jog\",\"value\":1,\"direction\":1,\"coord\":2}",
              "{\"key\":\"jog\",\"value\":1,\"coord\":1}",
              "{\"key\":\"jog\",\"value\":1,\"direction\":\"1\",\"coord\":0}"})
            QTest::newRow(body) << QByteArray(body);
    }
    void jogsThatAreNone()
    {
        QFETCH(QByteArray, body);
        enable();
        auto *socket = new QTcpSocket;
        wire::Connection other(socket, wire::Connection::Role::Pendant, Json::Value(),
                               wire::Timing());
        socket->connectToHost(QHostAddress::LocalHost, controller->port());
        QTRY_VERIFY(other.isOpen());
        other.send(wire::Key, body);
        QTRY_COMPARE(controller->refused(), 1);
        QVERIFY(!controller->cell().isMoving());
        QSignalSpy keys(EventLog::getInstance(), &EventLog::recorded);
        robot->jog(8, 1, 0);
        robot->jog(1, 2, 0);
        robot->jog(1, 1, 3);
        QCOMPARE(kindEntries(keys, "key"), 0);
    }
    // ---- one pendant has control ------------------------------------------------------------

    void anotherPendantsSwitchIsNotEnough()
    {
        OtherPendant other(controller->port());
        QTRY_VERIFY(other.connection->isOpen());
        robot->requestServo(true);
        QTRY_COMPARE(robot->get_servo_state(), 3);
        other.key("deadman", 1);
        QTRY_COMPARE(other.state("deadman"), 1);
        Ear ear;
        run({1, 1}, position(1)[0].mid(2));
        QTRY_COMPARE(ear.words, QStringList(QString::fromLatin1(armword::kNotEnabled)));
        QCOMPARE(robot->get_deadman_state(), 0); // its own switch
    }
    void whoHoldsItsSwitchFirstHasControl()
    {
        enable();
        OtherPendant other(controller->port(), QStringLiteral("second"));
        QTRY_VERIFY(other.connection->isOpen());
        other.key("deadman", 1);
        QTRY_COMPARE(other.state("deadman"), 1);

        // neither moves nor readies the robots
        const QByteArray point = "{\"robot\":2,\"type\":1,\"position\":{\"values\":"
                                 "[0,1,0,0,0,0,0,0.3,0,0,0,1.5,0,0]}}";
        other.connection->send(message::RunToPoint, point);
        other.jog(1, 1, 0);
        other.key("mode", 1);
        other.key("servo", 1);
        other.key("kinematic", 2);
        QTRY_COMPARE(int(other.words.size()), 5);
        QCOMPARE(QSet<QString>(other.words.begin(), other.words.end()),
                 QSet<QString>{QString::fromLatin1(armword::kControlHeld)});
        QCOMPARE(other.holder,
                 QCoreApplication::applicationName() + QStringLiteral(" (127.0.0.1)"));
        QCOMPARE(other.state("deadman"), 1);
        QVERIFY(!controller->cell().isMoving());
        QCOMPARE(controller->cell().mode(), 0);
        QCOMPARE(controller->cell().arm(1).model().type(), 1);

        // the holder moves all the while
        robot->jog(1, 1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
        controller->stepArms(0.1);

        // when it lets go nothing starts, and the next that is asked for is taken
        robot->setDeadman(false);
        QTRY_VERIFY(!controller->cell().isMoving());
        other.jog(1, 1, 0); // still held
        other.key("robot", 1);
        const int before = other.statuses;
        QTRY_VERIFY(other.statuses > before);
        controller->stepArms(1);
        QVERIFY(!controller->cell().isMoving());
        other.connection->send(message::RunToPoint, point);
        QTRY_VERIFY(controller->cell().isMoving());
        QCOMPARE(int(other.words.size()), 5);

        // and this pendant, which comes second now, is refused in its turn
        Ear ear;
        robot->setDeadman(true);
        QTRY_COMPARE(robot->get_deadman_state(), 1);
        run({1, 1}, position(1)[0].mid(2));
        QTRY_COMPARE(ear.words, QStringList(QString::fromLatin1(armword::kControlHeld)));
        QVERIFY(controller->cell().isMoving());
        robot->requestServo(false); // but stopping is everybody's right
        QTRY_VERIFY(!controller->cell().isMoving());
    }
    void aJogThatIsRefusedIsSaidOnceWhileTheHolderMoves()
    {
        enable();
        robot->jog(1, 1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
        OtherPendant other(controller->port());
        QTRY_VERIFY(other.connection->isOpen());
        other.key("deadman", 1);
        for (int i = 0; i < 5; ++i)
            other.jog(2, 1, 0);
        other.key("robot", 1);
        QTRY_COMPARE(controller->received(wire::Key), 11); // 4 of this pendant
        QTRY_COMPARE(other.words, QStringList(QString::fromLatin1(armword::kControlHeld)));
        QVERIFY(controller->cell().isMoving());
    }
    void drivesOffIsTheEndOfControl()
    {
        enable();
        OtherPendant other(controller->port());
        QTRY_VERIFY(other.connection->isOpen());
        other.key("deadman", 1);
        other.key("servo", 0);
        QTRY_COMPARE(robot->get_servo_state(), 1);
        other.key("servo", 1); // first of those that hold their switches
        QTRY_COMPARE(robot->get_servo_state(), 3);
        QVERIFY(other.words.isEmpty());
        QCOMPARE(robot->get_deadman_state(), 1);
        Ear ear;
        run({1, 1}, position(1)[0].mid(2));
        QTRY_COMPARE(ear.words, QStringList(QString::fromLatin1(armword::kControlHeld)));
        other.jog(1, 1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
    }

    // ---- a switch that is not renewed -------------------------------------------------------

    void aSwitchLapses_data()
    {
        QTest::addColumn<int>("motion");
        QTest::newRow("run of the axes") << 0;
        QTest::newRow("run to a place") << 1;
        QTest::newRow("jog of an axis") << 2;
        QTest::newRow("jog of the pose") << 3;
    }
    /// In the time of the arms: half a second after its pendant was last heard they stand still.
    void aSwitchLapses()
    {
        QFETCH(int, motion);
        robot->disconnectFromController();
        const int usual = SimulatedController::Options().switchLasts;
        QVERIFY(usual <= 480);
        startController(usual);
        OtherPendant pendant(controller->port());
        QTRY_VERIFY(pendant.connection->isOpen());
        pendant.key("servo", 1);
        pendant.key("deadman", 1);
        QTRY_COMPARE(pendant.state("deadman"), 1);
        if (motion < 2) {
            pendant.connection->send(message::RunToPoint,
                                     motion == 0
                                         ? "{\"robot\":1,\"type\":1,\"position\":{\"values\":"
                                           "[0,1,0,0,0,0,0,0.9,0,0,0,1.5,0,0]}}"
                                         : "{\"robot\":1,\"type\":1,\"position\":{\"values\":"
                                           "[1,1,0,0,0,0,0,800,500,900,3.14159,0,0,0]}}");
        } else {
            pendant.jog(1, 1, motion - 2);
        }
        QTRY_VERIFY(controller->cell().isMoving());
        const auto heard = [&] {
            const int before = controller->received(wire::Key);
            pendant.key("deadman", 1);
            return QTest::qWaitFor([&] { return controller->received(wire::Key) > before; });
        };

        // renewed in time it goes on
        for (int i = 0; i < 2; ++i) {
            for (int tick = 0; tick < 5; ++tick)
                controller->stepArms(0.02);
            QVERIFY(heard());
        }
        QVERIFY(controller->cell().isMoving());
        double since = 0;
        while (controller->cell().isMoving() && since < 2) {
            controller->stepArms(0.02);
            since += 0.02;
            if (motion >= 2) {
                // the jog key is still heard of: it is not the jog's own end that is seen here
                const int before = controller->received(wire::Key);
                pendant.jog(1, 1, motion - 2);
                QTRY_COMPARE(controller->received(wire::Key), before + 1);
            }
        }
        QVERIFY2(since <= 0.5, qPrintable(QString::number(since)));
        QVERIFY2(since > 0.4, qPrintable(QString::number(since)));
        QTRY_COMPARE(pendant.words, QStringList(QString::fromLatin1(armword::kNotRenewed)));
        QCOMPARE(pendant.state("deadman"), 0);
        const Joints where = controller->cell().arm(1).joints();

        // late renewals change nothing, nor does what is asked for behind them
        for (int i = 0; i < 3; ++i)
            QVERIFY(heard());
        pendant.jog(2, 1, 0);
        QTRY_COMPARE(pendant.words.value(1), QString::fromLatin1(armword::kNotEnabled));
        QCOMPARE(pendant.state("deadman"), 0);
        controller->stepArms(0.02);
        QCOMPARE(controller->cell().arm(1).joints(), where);

        // let go and pressed anew it counts, and the arm waits to be asked
        pendant.key("deadman", 0);
        pendant.key("deadman", 1);
        QTRY_COMPARE(pendant.state("deadman"), 1);
        pendant.jog(2, 1, 0); // still held
        controller->stepArms(0.02);
        QVERIFY(heard());
        QCOMPARE(controller->cell().arm(1).joints(), where);
        pendant.jog(3, 1, 0);
        QTRY_VERIFY(controller->cell().isMoving());
    }
    void aLapseGivesControlUp()
    {
        robot->disconnectFromController();
        startController(SimulatedController::Options().switchLasts);
        OtherPendant hung(controller->port());
        OtherPendant waits(controller->port());
        QTRY_VERIFY(hung.connection->isOpen() && waits.connection->isOpen());
        hung.key("deadman", 1);
        QTRY_COMPARE(hung.state("deadman"), 1);
        waits.key("mode", 1);
        QTRY_COMPARE(waits.words, QStringList(QString::fromLatin1(armword::kControlHeld)));
        controller->stepArms(0.5);
        waits.key("mode", 1);
        QTRY_COMPARE(waits.state("teachMode"), 1);
        QTRY_COMPARE(hung.state("deadman"), 0);
    }
    /// Robot renews its switch by itself, from the press to the release.
    void thePendantRenewsItsSwitch()
    {
        robot->disconnectFromController();
        startController(SimulatedController::Options().switchLasts);
        enable();
        QSignalSpy recorded(EventLog::getInstance(), &EventLog::recorded);
        for (int i = 0; i < 10; ++i) {
            const int before = controller->received(wire::Key);
            QTRY_VERIFY(controller->received(wire::Key) > before);
            controller->stepArms(0.4);
        }
        QCOMPARE(robot->get_deadman_state(), 1);
        QCOMPARE(kindEntries(recorded, "key"), 0); // the journal has the press alone
    }

    /// With its own clock the controller moves by itself.
    void movesByItself()
    {
        robot->disconnectFromController();
        controller = std::make_unique<SimulatedController>();
        SimulatedController::Options options;
        options.directory = directory.path();
        options.switchLasts = kHeldAllDay;
        QString error;
        QVERIFY(controller->start(options, &error));
        robot->connectToController(QStringLiteral("127.0.0.1"), controller->port());
        QTRY_VERIFY(robot->isConnected());
        enable();
        QVector<double> point = position(1)[0].mid(2);
        point[1] += 20;
        run({1, 1}, point);
        QTRY_VERIFY(std::abs(position(1)[0][3] - point[1]) < 0.01);
        QTRY_VERIFY(!controller->cell().isMoving());
    }
};

QTEST_MAIN(TestArmLink)
#include "test_armlink.moc"
