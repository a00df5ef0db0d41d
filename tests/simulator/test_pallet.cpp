// Palletising as the controller keeps it: each page's set is stored, merged, refused and answered
// per robot, craft and graphic; layouts come and go in chunks of ten.

#include "link.h"
#include "link/messages.h"
#include "simulator/angles.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <cmath>

namespace {

Json::Value parsed(const QByteArray &text)
{
    return wire::parseObject(text).value_or(Json::Value());
}

} // namespace

class TestPallet : public QObject {
    Q_OBJECT

    std::unique_ptr<Desk> desk;
    Robot *robot = Robot::getInstance();

    /// For the replies to a list of 9999, on a machine with other work; milliseconds.
    static constexpr int kLongest = 60000;

    using Signal = void (Robot::*)(const QByteArray &);

    static Json::Value address(int robotNumber, const Json::Value &craft, int graphic = 0)
    {
        Json::Value body;
        body["robot"] = robotNumber;
        body["craftID"] = craft;
        if (graphic != 0)
            body["graphic"] = graphic;
        return body;
    }
    void send(message::Id id, const Json::Value &body)
    {
        robot->sendCommandData(id, wire::writeLine(body));
    }
    void set(message::Id id, Json::Value body, const QByteArray &pallet)
    {
        body["pallet"] = parsed(pallet);
        send(id, body);
    }
    /// The replies to a read, up to `count`.
    std::vector<Json::Value> ask(message::Id id, const Json::Value &body, Signal signal,
                                 int count = 1)
    {
        QSignalSpy reply(robot, signal);
        send(id, body);
        const bool came = QTest::qWaitFor([&] { return reply.count() >= count; }, kLongest);
        if (!came)
            return {};
        // A read of something else is answered behind the last one: there are no more than that.
        QSignalSpy mode(robot, &Robot::robot_switchpalletmode);
        send(message::GetPalletMode, address(4, 9));
        if (!QTest::qWaitFor([&] { return !mode.isEmpty(); }, kLongest) || reply.count() != count)
            return {};
        std::vector<Json::Value> replies;
        for (const QList<QVariant> &arguments : reply)
            replies.push_back(parsed(arguments.first().toByteArray()));
        return replies;
    }
    Json::Value askOne(message::Id id, const Json::Value &body, Signal signal)
    {
        const std::vector<Json::Value> replies = ask(id, body, signal);
        return replies.size() == 1 ? replies.front() : Json::Value();
    }
    int mode(int robotNumber, int craft)
    {
        QSignalSpy reply(robot, &Robot::robot_switchpalletmode);
        send(message::GetPalletMode, address(robotNumber, craft));
        if (!QTest::qWaitFor([&] { return !reply.isEmpty(); }))
            return -1;
        const Json::Value body = parsed(reply.first().first().toByteArray());
        return body["robot"] == robotNumber && body["craftID"] == craft
            ? body["usePalletType"].asInt()
            : -1;
    }
    void setWorkpiece(int craft, const QByteArray &pallet)
    {
        set(message::SetPalletWorkpiece, address(1, double(craft)), pallet);
    }
    Json::Value plane(int craft, int graphic, int robotNumber = 1)
    {
        return askOne(message::GetPalletPlane, address(robotNumber, craft, graphic),
                      &Robot::robot_pallet_PlaneModel)["pallet"];
    }
    /// Sends a list of n workpieces as a pendant does.
    void sendList(int n, int craft, int graphic, int upTo = 0)
    {
        for (int start = 0; start < (upTo ? upTo : n); start += 10) {
            Json::Value body = address(1, double(craft), graphic);
            body["pallet"]["graphicType"] = 3;
            body["pallet"]["transLenX"] = 1.5;
            body["pallet"]["transLenY"] = -2.5;
            Json::Value &custom = body["pallet"]["custom"];
            custom["sum"] = n;
            custom["start"] = start + 1;
            custom["count"] = std::min(10, n - start);
            for (int i = start; i < std::min(n, start + 10); ++i) {
                Json::Value item;
                item["X"] = i * 2.5;
                item["Y"] = -i * 1.0;
                item["t"] = i % 360 - 180.0;
                item["h"] = i * 0.25;
                item["dir"] = i % 8;
                custom["eachVec"].append(item);
            }
            send(message::SetPalletPlane, body);
        }
    }
    /// All workpieces of the replies, checked for their chunks.
    std::vector<Json::Value> collect(const std::vector<Json::Value> &replies, int n)
    {
        std::vector<Json::Value> items;
        for (const Json::Value &reply : replies) {
            const Json::Value &custom = reply["pallet"]["custom"];
            const int count = std::min(10, n - int(items.size()));
            if (reply["pallet"]["graphicType"] != 3 || custom["sum"] != n
                || custom["start"] != int(items.size()) + 1 || custom["count"] != count
                || int(custom["eachVec"].size()) != count)
                return {};
            for (const Json::Value &item : custom["eachVec"])
                items.push_back(item);
        }
        return items;
    }

private slots:
    void init()
    {
        desk = std::make_unique<Desk>();
        QVERIFY(connectTo(*desk));
    }
    void cleanup()
    {
        robot->disconnectFromController();
        desk.reset();
    }

    void modes()
    {
        QCOMPARE(mode(1, 1), 2); // not set
        Json::Value body = address(1, 2);
        body["usePalletType"] = 1;
        send(message::SetPalletMode, body);
        QCOMPARE(mode(1, 2), 1);
        // a read that carries a mode, as a change of the mode sends it, sets nothing
        body["usePalletType"] = 0;
        QSignalSpy reply(robot, &Robot::robot_switchpalletmode);
        send(message::GetPalletMode, body);
        QTRY_COMPARE(int(reply.count()), 1);
        QCOMPARE(mode(1, 2), 1);
        body["craftID"] = 2.0;
        send(message::SetPalletMode, body);
        QCOMPARE(mode(1, 2), 0);
        QCOMPARE(mode(1, 3), 2);
        QCOMPARE(mode(2, 2), 2);
    }

    /// Every set: what a craft has that was never set, and that what is stored comes back.
    void setsComeBack_data()
    {
        QTest::addColumn<int>("setId");
        QTest::addColumn<int>("getId");
        QTest::addColumn<int>("reply");
        QTest::addColumn<QByteArray>("initial");
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("gripper") << int(message::SetPalletGripper) << int(message::GetPalletGripper)
                                 << int(wire::reply::robot_pallet_ToolParameter)
                                 << QByteArray("{\"gripper\":[1],\"gripperNum\":1}\n")
                                 << QByteArray("{\"gripper\":[3,9],\"gripperNum\":2}\n");
        QTest::newRow("tray") << int(message::SetPalletTray) << int(message::GetPalletTray)
                              << int(wire::reply::robot_pallet_TrayParameter)
                              << QByteArray("{\"userNum\":1}\n") << QByteArray("{\"userNum\":9}\n");
        QTest::newRow("workpiece")
            << int(message::SetPalletWorkpiece) << int(message::GetPalletWorkpiece)
            << int(wire::reply::robot_pallet_WorkpieceParameter)
            << QByteArray("{\"workpieceGapX\":0.0,\"workpieceGapY\":0.0,\"workpieceHeight\":0.0,"
                          "\"workpieceLength\":0.0,\"workpieceWidth\":0.0}\n")
            << QByteArray("{\"workpieceGapX\":3000.0,\"workpieceGapY\":0.5,\"workpieceHeight\":"
                          "5000.0,\"workpieceLength\":400.25,\"workpieceWidth\":300.0}\n");
        QTest::newRow("approach")
            << int(message::SetPalletApproach) << int(message::GetPalletApproach)
            << int(wire::reply::robot_pallet_ApproachParameter)
            << QByteArray("{\"workpieceApproEnable\":false,\"workpieceApproLenX\":0.0,"
                          "\"workpieceApproLenY\":0.0,\"workpieceApproLenZ\":0.0,"
                          "\"workpieceApproMode\":0}\n")
            << QByteArray("{\"workpieceApproEnable\":true,\"workpieceApproLenX\":5000.0,"
                          "\"workpieceApproLenY\":0.0,\"workpieceApproLenZ\":12.5,"
                          "\"workpieceApproMode\":1}\n");
        QTest::newRow("overlap")
            << int(message::SetPalletOverlap) << int(message::GetPalletOverlap)
            << int(wire::reply::robot_pallet_OverlappingModel)
            << QByteArray("{\"columnLay\":false,\"fixedLayHeight\":false,\"floorAutoJustified\":"
                          "false,\"floorSum\":1,\"graphicNum\":[1],\"heightRevise\":[0.0],"
                          "\"layHeightOffset\":0.0,\"overlapType\":0,\"poseAutorotation\":false}\n")
            << QByteArray("{\"columnLay\":true,\"fixedLayHeight\":true,\"floorAutoJustified\":"
                          "true,\"floorSum\":3,\"graphicNum\":[1,2,1],\"heightRevise\":[0.5,"
                          "-5000.0,5000.0],\"layHeightOffset\":2.5,\"overlapType\":1,"
                          "\"poseAutorotation\":true}\n");
    }
    void setsComeBack()
    {
        QFETCH(int, setId);
        QFETCH(int, getId);
        QFETCH(int, reply);
        QFETCH(QByteArray, initial);
        QFETCH(QByteArray, stored);
        const auto read = [&](int robotNumber, int craft) {
            QByteArray text;
            const Signal emitted[] = {
                &Robot::robot_pallet_ToolParameter,      &Robot::robot_pallet_TrayParameter,
                &Robot::robot_pallet_WorkpieceParameter, &Robot::robot_pallet_ApproachParameter,
                &Robot::robot_pallet_OverlappingModel,
            };
            const int ids[] = {wire::reply::robot_pallet_ToolParameter,
                               wire::reply::robot_pallet_TrayParameter,
                               wire::reply::robot_pallet_WorkpieceParameter,
                               wire::reply::robot_pallet_ApproachParameter,
                               wire::reply::robot_pallet_OverlappingModel};
            for (int i = 0; i < 5; ++i) {
                if (ids[i] == reply) {
                    const Json::Value body = askOne(static_cast<message::Id>(getId),
                                                    address(robotNumber, craft), emitted[i]);
                    if (body["robot"] == robotNumber && body["craftID"] == craft)
                        text = wire::writeLine(body["pallet"]);
                }
            }
            return text;
        };
        QCOMPARE(read(1, 2), initial);
        set(static_cast<message::Id>(setId), address(1, 2.0), stored);
        QCOMPARE(read(1, 2), stored);
        QCOMPARE(read(1, 3), initial);
        QCOMPARE(read(2, 2), initial);
        // an integer craft is as good; a read with more keys is answered too
        set(static_cast<message::Id>(setId), address(1, 3), stored);
        QCOMPARE(read(1, 3), stored);
        QVERIFY(desk->restart());
        QVERIFY(connectTo(*desk));
        QCOMPARE(read(1, 2), stored);
        QCOMPARE(desk->controller->refused(), 0);
    }
    void aReadWithMoreKeysIsAnswered()
    {
        Json::Value body = address(1, 1, 4);
        body["rotationAngleWhole"] = 0;
        body["transLenX"] = 12.5;
        body["transLenY"] = 0.0;
        const Json::Value reply =
            askOne(message::GetPalletWorkpiece, body, &Robot::robot_pallet_WorkpieceParameter);
        QVERIFY(reply["pallet"].isMember("workpieceLength"));
    }
    void partialSetsMerge()
    {
        setWorkpiece(1, "{\"workpieceLength\":400,\"workpieceGapX\":5}");
        setWorkpiece(1, "{\"workpieceLength\":410,\"stray\":1}");
        const Json::Value set = askOne(message::GetPalletWorkpiece, address(1, 1),
                                       &Robot::robot_pallet_WorkpieceParameter)["pallet"];
        QCOMPARE(set["workpieceLength"].asDouble(), 410.0);
        QCOMPARE(set["workpieceGapX"].asDouble(), 5.0);
        QVERIFY(!set.isMember("stray"));
    }

    void positionsHaveTheirAnglesInDegreesToo()
    {
        set(message::SetPalletPosition, address(1, 1.0),
            "{\"enterPos\":[1,2,3,3.14159265358979,0,-1.5707963267949],"
            "\"shiftPos\":[4.5,-5.5,6.5,0.1,0.2,0.3]}");
        const auto read = [this](int robotNumber) {
            return askOne(message::GetPalletPosition, address(robotNumber, 1),
                          &Robot::robot_pallet_PositionParameter)["pallet"];
        };
        const Json::Value pallet = read(1);
        for (const char *point : {"enterPos", "shiftPos", "realPos"}) {
            const Json::Value &plain = pallet[point];
            const Json::Value &degrees = pallet[std::string(point) + "Deg"];
            QCOMPARE(int(plain.size()), 6);
            QCOMPARE(int(degrees.size()), 6);
            for (Json::ArrayIndex i = 0; i < 6; ++i) {
                const double factor = i < 3 ? 1.0 : 180.0 / angles::kPi;
                QVERIFY(std::abs(degrees[i].asDouble() - plain[i].asDouble() * factor) < 1e-9);
            }
        }
        QVERIFY(std::abs(pallet["enterPosDeg"][3].asDouble() - 180) < 1e-9);
        QVERIFY(std::abs(pallet["enterPosDeg"][5].asDouble() + 90) < 1e-9);
        QCOMPARE(pallet["shiftPos"][1].asDouble(), -5.5);
        QCOMPARE(pallet["realPos"][0].asDouble(), 0.0);
        // one point more leaves the others
        set(message::SetPalletPosition, address(1, 1.0), "{\"realPos\":[9,8,7,0,0,0]}");
        QCOMPARE(read(1)["realPos"][0].asDouble(), 9.0);
        QCOMPARE(read(1)["enterPos"][0].asDouble(), 1.0);
        QCOMPARE(read(2)["realPos"][0].asDouble(), 0.0);
    }

    void manyLayers()
    {
        Json::Value body = address(1, 1.0);
        Json::Value &pallet = body["pallet"];
        pallet["floorSum"] = 9999;
        for (int i = 0; i < 9999; ++i) {
            pallet["graphicNum"].append(i % 9 + 1);
            pallet["heightRevise"].append(i * 0.5 - 2500);
        }
        send(message::SetPalletOverlap, body);
        const Json::Value reply = askOne(message::GetPalletOverlap, address(1, 1),
                                         &Robot::robot_pallet_OverlappingModel)["pallet"];
        QCOMPARE(reply["floorSum"].asInt(), 9999);
        QVERIFY(reply["graphicNum"] == pallet["graphicNum"]);
        QCOMPARE(reply["heightRevise"][9998].asDouble(), 2499.0);
        // fewer layers, with their lists
        set(message::SetPalletOverlap, address(1, 1.0),
            "{\"floorSum\":1,\"graphicNum\":[5],\"heightRevise\":[1]}");
        QCOMPARE(int(askOne(message::GetPalletOverlap, address(1, 1),
                            &Robot::robot_pallet_OverlappingModel)["pallet"]["graphicNum"]
                         .size()),
                 1);
    }

    void refusedSets_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("pallet");
        const auto row = [](const char *name, message::Id id, const QByteArray &pallet) {
            QTest::newRow(name) << int(id) << pallet;
        };
        row("gripper 0", message::SetPalletGripper, "{\"gripperNum\":0,\"gripper\":[]}");
        row("gripper 5", message::SetPalletGripper, "{\"gripperNum\":5,\"gripper\":[1,1,1,1,1]}");
        row("gripper 1.5", message::SetPalletGripper, "{\"gripperNum\":1.5,\"gripper\":[1]}");
        row("gripper list short", message::SetPalletGripper, "{\"gripperNum\":2,\"gripper\":[1]}");
        row("gripper list long", message::SetPalletGripper, "{\"gripperNum\":1,\"gripper\":[1,1]}");
        row("gripper no list", message::SetPalletGripper, "{\"gripperNum\":1}");
        row("gripper tool 0", message::SetPalletGripper, "{\"gripperNum\":1,\"gripper\":[0]}");
        row("gripper tool 10", message::SetPalletGripper, "{\"gripperNum\":1,\"gripper\":[10]}");
        row("gripper tool a text", message::SetPalletGripper,
            "{\"gripperNum\":1,\"gripper\":[\"1\"]}");
        row("tray 0", message::SetPalletTray, "{\"userNum\":0}");
        row("tray 10", message::SetPalletTray, "{\"userNum\":10}");
        row("tray a text", message::SetPalletTray, "{\"userNum\":\"1\"}");
        row("point of five", message::SetPalletPosition, "{\"enterPos\":[1,2,3,4,5]}");
        row("point of seven", message::SetPalletPosition, "{\"enterPos\":[1,2,3,4,5,6,7]}");
        row("point of a text", message::SetPalletPosition, "{\"realPos\":[1,2,3,4,5,\"6\"]}");
        row("point no list", message::SetPalletPosition, "{\"realPos\":{}}");
        row("size above", message::SetPalletWorkpiece, "{\"workpieceLength\":5000.5}");
        row("size below", message::SetPalletWorkpiece, "{\"workpieceWidth\":-0.5}");
        row("gap above", message::SetPalletWorkpiece, "{\"workpieceGapY\":3000.5}");
        row("size true", message::SetPalletWorkpiece, "{\"workpieceHeight\":true}");
        row("approach mode 2", message::SetPalletApproach, "{\"workpieceApproMode\":2}");
        row("approach switch 1", message::SetPalletApproach, "{\"workpieceApproEnable\":1}");
        row("approach above", message::SetPalletApproach, "{\"workpieceApproLenZ\":5001}");
        row("layers 0", message::SetPalletOverlap,
            "{\"floorSum\":0,\"graphicNum\":[],\"heightRevise\":[]}");
        row("layers 10000", message::SetPalletOverlap,
            "{\"floorSum\":10000,\"graphicNum\":[],\"heightRevise\":[]}");
        row("layers -1", message::SetPalletOverlap, "{\"floorSum\":-1}");
        row("layers 2^31", message::SetPalletOverlap, "{\"floorSum\":2147483648}");
        row("layers without lists", message::SetPalletOverlap, "{\"floorSum\":2}");
        row("layers with a short list", message::SetPalletOverlap,
            "{\"floorSum\":2,\"graphicNum\":[1,1],\"heightRevise\":[1]}");
        row("graphic 10", message::SetPalletOverlap, "{\"graphicNum\":[10]}");
        row("height above", message::SetPalletOverlap, "{\"heightRevise\":[5000.5]}");
        row("repeat 3", message::SetPalletOverlap, "{\"overlapType\":3}");
        row("no object", message::SetPalletTray, "[]");
    }
    void refusedSets()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, pallet);
        const QByteArray body = "{\"craftID\":1.0,\"pallet\":" + pallet + ",\"robot\":1}";
        robot->sendCommandData(static_cast<unsigned short>(id), body);
        QTRY_COMPARE(desk->controller->refused(), 1);
        for (const char *craft : {"0", "10", "1.5", "\"1\"", "2147483648"}) {
            robot->sendCommandData(static_cast<unsigned short>(id),
                                   QByteArray("{\"craftID\":") + craft
                                       + ",\"pallet\":{},\"robot\":1}");
        }
        QTRY_COMPARE(desk->controller->refused(), 6);
    }

    // ---- graphics ---------------------------------------------------------------------------

    void aGraphicHasItsTemplateAndNoOther()
    {
        const Json::Value first = plane(1, 1);
        QCOMPARE(first["graphicType"].asInt(), 0);
        QCOMPARE(first["ranks"]["numX"].asInt(), 1);
        QCOMPARE(first["transLenX"].asDouble(), 0.0);
        QVERIFY(first.isMember("autoTransLenX") && first.isMember("autoTransLenY"));

        set(message::SetPalletPlane, address(1, 1.0, 1),
            "{\"graphicType\":0,\"transLenX\":-5000,\"transLenY\":2.5,\"ranks\":{\"numX\":4.0,"
            "\"numY\":3.0,\"rotationAngleWhole\":-90.0,\"rotationAngleSingle\":180.0}}");
        set(message::SetPalletPlane, address(1, 1.0, 2),
            "{\"graphicType\":1,\"transLenX\":0,\"transLenY\":0,\"intertwining\":{\"numX\":99,"
            "\"numY\":1,\"rotationAngleWhole\":90,\"rotationAngleSingle\":0}}");
        set(message::SetPalletPlane, address(1, 1.0, 9),
            "{\"graphicType\":2,\"transLenX\":0,\"transLenY\":0,\"gearType\":{"
            "\"rotationAngleWhole\":180,\"rotationAngleSingle\":-90}}");
        const Json::Value ranks = plane(1, 1);
        QCOMPARE(ranks["ranks"]["numX"].asInt(), 4);
        QCOMPARE(ranks["ranks"]["rotationAngleWhole"].asInt(), -90);
        QCOMPARE(ranks["ranks"]["rotationAngleSingle"].asInt(), 180);
        QCOMPARE(ranks["transLenX"].asDouble(), -5000.0);
        QVERIFY(!ranks.isMember("intertwining") && !ranks.isMember("gearType"));
        const Json::Value crisscross = plane(1, 2);
        QCOMPARE(crisscross["graphicType"].asInt(), 1);
        QCOMPARE(crisscross["intertwining"]["numX"].asInt(), 99);
        QVERIFY(!crisscross.isMember("ranks"));
        const Json::Value hui = plane(1, 9);
        QCOMPARE(hui["gearType"]["rotationAngleSingle"].asInt(), -90);
        QVERIFY(!hui["gearType"].isMember("numX"));
        // other graphics, crafts and robots are as they were
        QVERIFY(plane(1, 3) == first);
        QVERIFY(plane(2, 1) == first);
        QVERIFY(plane(1, 1, 2) == first);
        QVERIFY(desk->restart());
        QVERIFY(connectTo(*desk));
        QVERIFY(plane(1, 1) == ranks);
    }
    void refusedGraphics_data()
    {
        QTest::addColumn<QByteArray>("graphic");
        QTest::addColumn<QByteArray>("pallet");
        const auto row = [](const char *name, const QByteArray &pallet,
                            const QByteArray &graphic = "1") {
            QTest::newRow(name) << graphic << pallet;
        };
        row("graphic 0", "{\"graphicType\":0}", "0");
        row("graphic 10", "{\"graphicType\":0}", "10");
        row("graphic a text", "{\"graphicType\":0}", "\"1\"");
        row("type 4", "{\"graphicType\":4}");
        row("type -1", "{\"graphicType\":-1}");
        row("count 0", "{\"graphicType\":0,\"ranks\":{\"numX\":0}}");
        row("count 100", "{\"graphicType\":1,\"intertwining\":{\"numY\":100}}");
        row("angle 45", "{\"graphicType\":0,\"ranks\":{\"rotationAngleWhole\":45}}");
        row("angle 270", "{\"graphicType\":2,\"gearType\":{\"rotationAngleSingle\":270}}");
        row("translation", "{\"graphicType\":0,\"transLenX\":5000.5}");
        row("block a number", "{\"graphicType\":0,\"ranks\":1}");
        row("list without custom", "{\"graphicType\":3}");
        row("list of 0",
            "{\"graphicType\":3,\"custom\":{\"sum\":0,\"start\":1,\"count\":0,\"eachVec\":[]}}");
        row("list of 10000",
            "{\"graphicType\":3,\"custom\":{\"sum\":10000,\"start\":1,\"count\":1,"
            "\"eachVec\":[{\"X\":0,\"Y\":0,\"t\":0,\"h\":0,\"dir\":0}]}}");
        row("eleven in a chunk",
            "{\"graphicType\":3,\"custom\":{\"sum\":11,\"start\":1,\"count\":11,\"eachVec\":"
            "[{},{},{},{},{},{},{},{},{},{},{}]}}");
        row("fewer than it says",
            "{\"graphicType\":3,\"custom\":{\"sum\":2,\"start\":1,\"count\":2,\"eachVec\":[{}]}}");
        row("more than in all",
            "{\"graphicType\":3,\"custom\":{\"sum\":1,\"start\":1,\"count\":2,\"eachVec\":"
            "[{},{}]}}");
        row("a second chunk without the first",
            "{\"graphicType\":3,\"custom\":{\"sum\":11,\"start\":11,\"count\":1,\"eachVec\":[{}]}"
            "}");
        row("direction 8",
            "{\"graphicType\":3,\"custom\":{\"sum\":1,\"start\":1,\"count\":1,\"eachVec\":"
            "[{\"dir\":8}]}}");
        row("X a text",
            "{\"graphicType\":3,\"custom\":{\"sum\":1,\"start\":1,\"count\":1,\"eachVec\":"
            "[{\"X\":\"1\"}]}}");
    }
    void refusedGraphics()
    {
        QFETCH(QByteArray, graphic);
        QFETCH(QByteArray, pallet);
        const Json::Value before = plane(1, 1);
        robot->sendCommandData(message::SetPalletPlane,
                               "{\"craftID\":1.0,\"graphic\":" + graphic + ",\"pallet\":" + pallet
                                   + ",\"robot\":1}");
        QTRY_COMPARE(desk->controller->refused(), 1);
        QVERIFY(plane(1, 1) == before);
    }

    void listsInChunks_data()
    {
        QTest::addColumn<int>("n");
        for (const int n : {1, 9, 10, 11, 20, 21, 25, 9999})
            QTest::addRow("%d", n) << n;
    }
    void listsInChunks()
    {
        QFETCH(int, n);
        sendList(n, 3, 7);
        const int chunks = (n + 9) / 10;
        const std::vector<Json::Value> replies =
            ask(message::GetPalletPlane, address(1, 3, 7), &Robot::robot_pallet_PlaneModel, chunks);
        QCOMPARE(int(replies.size()), chunks);
        const std::vector<Json::Value> items = collect(replies, n);
        QCOMPARE(int(items.size()), n);
        for (int i = 0; i < n; ++i) {
            const Json::Value &item = items[static_cast<size_t>(i)];
            QCOMPARE(item["X"].asDouble(), i * 2.5);
            QCOMPARE(item["Y"].asDouble(), -i * 1.0);
            QCOMPARE(item["t"].asDouble(), i % 360 - 180.0);
            QCOMPARE(item["h"].asDouble(), i * 0.25);
            QCOMPARE(item["dir"].asInt(), i % 8);
        }
        QCOMPARE(replies.front()["pallet"]["transLenX"].asDouble(), 1.5);
        QCOMPARE(desk->controller->refused(), 0);
    }
    void aTransferThatBreaksOffLeavesTheList()
    {
        sendList(12, 3, 7);
        sendList(30, 3, 7, 20); // the last ten never come
        QCOMPARE(
            int(ask(message::GetPalletPlane, address(1, 3, 7), &Robot::robot_pallet_PlaneModel, 2)
                    .size()),
            2);
        sendList(30, 3, 7); // begins anew
        QCOMPARE(
            int(ask(message::GetPalletPlane, address(1, 3, 7), &Robot::robot_pallet_PlaneModel, 3)
                    .size()),
            3);
        QCOMPARE(desk->controller->refused(), 0);
    }
    void chunksOfTwoGraphicsDoNotMix()
    {
        sendList(20, 3, 7, 10);
        Json::Value body = address(1, 3.0, 8); // the second half, of another graphic
        body["pallet"]["graphicType"] = 3;
        Json::Value &custom = body["pallet"]["custom"];
        custom["sum"] = 20;
        custom["start"] = 11;
        custom["count"] = 10;
        for (int i = 0; i < 10; ++i)
            custom["eachVec"].append(Json::Value(Json::objectValue));
        send(message::SetPalletPlane, body);
        QTRY_COMPARE(desk->controller->refused(), 1);
        QCOMPARE(plane(3, 7)["graphicType"].asInt(), 0);
        QCOMPARE(plane(3, 8)["graphicType"].asInt(), 0);
    }

    void convertsTheSavedTemplate()
    {
        setWorkpiece(2,
                     "{\"workpieceLength\":400,\"workpieceWidth\":300,\"workpieceHeight\":200,"
                     "\"workpieceGapX\":10,\"workpieceGapY\":20}");
        set(message::SetPalletPlane, address(1, 2.0, 1),
            "{\"graphicType\":0,\"transLenX\":7,\"transLenY\":8,\"ranks\":{\"numX\":4,\"numY\":3,"
            "\"rotationAngleWhole\":0,\"rotationAngleSingle\":0}}");
        const std::vector<Json::Value> replies =
            ask(message::ConvertPalletPlane, address(1, 2, 1), &Robot::robot_pallet_ChangeModel, 2);
        QCOMPARE(int(replies.size()), 2);
        QCOMPARE(replies[0]["graphic"].asInt(), 1);
        QCOMPARE(replies[0]["craftID"].asInt(), 2);
        QCOMPARE(replies[0]["pallet"]["transLenX"].asDouble(), 7.0);
        const std::vector<Json::Value> items = collect(replies, 12);
        QCOMPARE(int(items.size()), 12);
        for (int i = 0; i < 12; ++i) {
            const Json::Value &item = items[static_cast<size_t>(i)];
            QCOMPARE(item["X"].asDouble(), 150.0 + 310.0 * (i % 4));
            QCOMPARE(item["Y"].asDouble(), 200.0 + 420.0 * (i / 4));
            QCOMPARE(item["t"].asDouble(), 0.0);
            QCOMPARE(item["h"].asDouble(), 0.0);
            QCOMPARE(item["dir"].asInt(), 0);
        }
        // nothing that is saved has changed
        QCOMPARE(plane(2, 1)["graphicType"].asInt(), 0);
    }
    void convertsTheOtherTemplates()
    {
        setWorkpiece(2, "{\"workpieceLength\":400,\"workpieceWidth\":300}");
        set(message::SetPalletPlane, address(1, 2.0, 2),
            "{\"graphicType\":1,\"intertwining\":{\"numX\":2,\"numY\":1,\"rotationAngleWhole\":0,"
            "\"rotationAngleSingle\":0}}");
        set(message::SetPalletPlane, address(1, 2.0, 3),
            "{\"graphicType\":2,\"gearType\":{\"rotationAngleWhole\":90,"
            "\"rotationAngleSingle\":90}}");
        const std::vector<Json::Value> crisscross = collect(
            ask(message::ConvertPalletPlane, address(1, 2, 2), &Robot::robot_pallet_ChangeModel),
            2);
        QCOMPARE(int(crisscross.size()), 2);
        QCOMPARE(crisscross[0]["t"].asDouble(), 0.0);
        QCOMPARE(crisscross[1]["t"].asDouble(), 90.0);
        QCOMPARE(crisscross[1]["X"].asDouble(), 500.0);
        const std::vector<Json::Value> hui = collect(
            ask(message::ConvertPalletPlane, address(1, 2, 3), &Robot::robot_pallet_ChangeModel),
            4);
        QCOMPARE(int(hui.size()), 4);
        QCOMPARE(hui[0]["t"].asDouble(), 180.0);
        QCOMPARE(hui[1]["t"].asDouble(), -90.0);
    }
    void convertsAListToItself()
    {
        sendList(11, 4, 1);
        const std::vector<Json::Value> items = collect(
            ask(message::ConvertPalletPlane, address(1, 4, 1), &Robot::robot_pallet_ChangeModel, 2),
            11);
        QCOMPARE(int(items.size()), 11);
        QCOMPARE(items[10]["h"].asDouble(), 2.5);
    }

    /// A smaller layer is moved over the middle of the largest one that the stack uses.
    void automaticTranslations()
    {
        setWorkpiece(5,
                     "{\"workpieceLength\":400,\"workpieceWidth\":300,\"workpieceGapX\":10,"
                     "\"workpieceGapY\":20}");
        const auto ranks = [this](int graphic, int numX, int numY) {
            set(message::SetPalletPlane, address(1, 5.0, graphic),
                "{\"graphicType\":0,\"ranks\":{\"numX\":" + QByteArray::number(numX)
                    + ",\"numY\":" + QByteArray::number(numY) + "}}");
        };
        ranks(1, 4, 3);
        ranks(2, 3, 1);
        ranks(3, 9, 9); // larger, but no layer has it
        const auto stack = [this](const char *aligned) {
            set(message::SetPalletOverlap, address(1, 5.0),
                QByteArray("{\"floorSum\":3,\"graphicNum\":[1,2,1],\"heightRevise\":[0,0,0],"
                           "\"floorAutoJustified\":")
                    + aligned + "}");
        };
        stack("false");
        QCOMPARE(plane(5, 2)["autoTransLenX"].asDouble(), 0.0);
        stack("true");
        QCOMPARE(plane(5, 2)["autoTransLenX"].asDouble(), 155.0); // half of one piece and gap
        QCOMPARE(plane(5, 2)["autoTransLenY"].asDouble(), 420.0);
        QCOMPARE(plane(5, 1)["autoTransLenX"].asDouble(), 0.0);
        QCOMPARE(plane(5, 3)["autoTransLenX"].asDouble(), 0.0);
    }

    void aRefusedReadGetsNoAnswer()
    {
        QSignalSpy reply(robot, &Robot::robot_pallet_PlaneModel);
        send(message::GetPalletPlane, address(1, 1));
        send(message::GetPalletPlane, address(5, 1, 1));
        send(message::ConvertPalletPlane, address(1, 0, 1));
        QTRY_COMPARE(desk->controller->refused(), 3);
        QCOMPARE(mode(1, 1), 2);
        QCOMPARE(int(reply.count()), 0);
    }
    void faultsApplyToChunksToo()
    {
        sendList(25, 1, 1);
        desk->controller->setFault(message::GetPalletPlane, Fault::FirstReplyLost);
        QCOMPARE(
            int(ask(message::GetPalletPlane, address(1, 1, 1), &Robot::robot_pallet_PlaneModel, 2)
                    .size()),
            2);
        desk->controller->setFault(message::GetPalletPlane, Fault::Cut);
        QSignalSpy links(robot, &Robot::linkChanged);
        send(message::GetPalletPlane, address(1, 1, 1));
        QTRY_VERIFY(!links.isEmpty()); // lost; it may be back before anyone looks
        desk->controller->setFault(message::GetPalletPlane, Fault::None);
        QTRY_VERIFY(robot->isConnected());
        QCOMPARE(
            int(ask(message::GetPalletPlane, address(1, 1, 1), &Robot::robot_pallet_PlaneModel, 3)
                    .size()),
            3);
    }
};

QTEST_MAIN(TestPallet)
#include "test_pallet.moc"
