// User coordinates 1 to 9 of each robot: three marked points, the frame calculated from them, and
// which frame is the current one.
//
// The messages of a calibration name no robot; they are about the one that the pendant works with.

#include "simulator/userframes.h"

#include "link/messages.h"
#include "simulator/angles.h"
#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/parameterstore.h"
#include "simulator/robotcell.h"
#include "simulator/session.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <cmath>

namespace {

constexpr int kFrames = 9;
constexpr char kPackage[] = "userframe";
const char *const kStoreRefuses = "the store does not take it";
const QString kCalibration = QStringLiteral("Calibration");

bool isPoint(const QString &inquire)
{
    return inquire == QLatin1String("O") || inquire == QLatin1String("X")
        || inquire == QLatin1String("Y");
}

/// A stored point or frame; all 0 when it never was.
Pose load(const ParameterStore &store, int robot, int number, const QString &what)
{
    Pose pose{};
    const ParameterStore::Key key{robot, kPackage, number, what};
    const std::optional<Json::Value> kept = store.load(key);
    if (!kept)
        return pose;
    const Json::Value *values = wire::array(*kept, "pos");
    bool isWhole = values && values->size() == pose.values.size();
    for (Json::ArrayIndex i = 0; isWhole && i < values->size(); ++i) {
        const std::optional<double> value = wire::asNumber(&(*values)[i]);
        isWhole = value.has_value();
        pose[i] = value.value_or(0);
    }
    if (!isWhole)
        store.markUnreadable(key);
    return pose;
}

const char *keep(ParameterStore &store, int robot, int number, const QString &what,
                 const Pose &pose)
{
    Json::Value set;
    for (const double value : pose.values)
        set["pos"].append(value);
    return store.store({robot, kPackage, number, what}, set) ? nullptr : kStoreRefuses;
}

/// A pendant shows the first characters of a value. Of one like 6.1e-17, which is what the
/// kinematics leave of a 0, these would be the digits without their exponent.
double withoutNoise(double value)
{
    constexpr double kSmall = 1e-4; // below it an exponent is written
    if (std::abs(value) >= kSmall)
        return value;
    return std::round(value / kSmall) * kSmall + 0.0; // no -0
}

/// The values of a pose that the pages take for an arm: three of a gantry, x y z c of a four-axis
/// arm, all seven of a seven-axis arm, else six.
Json::Value shown(const Pose &pose, const ArmModel &model)
{
    const int axes = model.axes();
    const bool follows = axes == 3 || axes == 4 || axes == 7;
    Json::Value values(Json::arrayValue);
    for (int i = 0; i < (follows ? axes : 6); ++i)
        values.append(withoutNoise(pose[follows ? model.poseIndex(i) : static_cast<size_t>(i)]));
    return values;
}

/// A pose with its angles in degrees; the elbow is told in degrees in any case.
Pose inUnits(Pose pose, bool degrees)
{
    for (size_t i = 3; degrees && i < kElbow; ++i)
        pose[i] = angles::toDegrees(pose[i]);
    pose[kElbow] = angles::toDegrees(pose[kElbow]);
    return pose;
}

void answer(Request &request, int number, const QString &inquire)
{
    const int robot = request.session.robot;
    const Pose pose = load(request.store, robot, number, inquire);
    const ArmModel &model = request.cell.arm(robot).model();
    Json::Value reply;
    reply["userNum"] = number;
    reply["inquire"] = inquire.toStdString();
    reply["pos"] = shown(inUnits(pose, false), model);
    reply["posDeg"] = shown(inUnits(pose, true), model);
    request.reply(wire::reply::robot_usercoords_reply, reply);
}

const char *markPoint(Request &request)
{
    const std::optional<int> number = envelope::whole(request.body, "userNum", 1, kFrames);
    const std::optional<QString> inquire = wire::text(request.body, "inquire");
    if (!number || !inquire || !isPoint(*inquire))
        return number ? "inquire" : "userNum";
    const int robot = request.session.robot;
    if (const char *wrong =
            keep(request.store, robot, *number, *inquire, request.cell.arm(robot).pose()))
        return wrong;
    answer(request, *number, *inquire);
    return nullptr;
}

const char *getPoint(Request &request)
{
    const std::optional<int> number = envelope::whole(request.body, "userNum", 1, kFrames);
    const std::optional<QString> inquire = wire::text(request.body, "inquire");
    if (!number || !inquire || !(isPoint(*inquire) || *inquire == kCalibration))
        return number ? "inquire" : "userNum";
    answer(request, *number, *inquire);
    return nullptr;
}

/// Position of one point of a calculation: six reals, of which the first three count.
std::optional<KDL::Vector> pointOf(const Json::Value &item)
{
    if (!item.isArray() || item.size() != 6)
        return std::nullopt;
    for (const Json::Value &value : item) {
        if (!wire::asNumber(&value))
            return std::nullopt;
    }
    return KDL::Vector(item[0].asDouble(), item[1].asDouble(), item[2].asDouble());
}

const char *calculate(Request &request)
{
    const std::optional<int> number = envelope::whole(request.body, "userNum", 1, kFrames);
    const Json::Value *points = wire::array(request.body, "cacl");
    if (!number || !points || points->size() != 3)
        return number ? "cacl" : "userNum";
    const std::optional<KDL::Vector> origin = pointOf((*points)[0]);
    const std::optional<KDL::Vector> alongX = pointOf((*points)[1]);
    const std::optional<KDL::Vector> alongY = pointOf((*points)[2]);
    if (!origin || !alongX || !alongY)
        return "cacl";
    const std::optional<Pose> frame = userframe::fromPoints(*origin, *alongX, *alongY);
    if (frame) {
        if (const char *wrong =
                keep(request.store, request.session.robot, *number, kCalibration, *frame))
            return wrong;
    }
    Json::Value reply;
    reply["result"] = frame ? 1 : 0;
    request.reply(wire::reply::robot_user_suc, reply);
    return nullptr;
}

const char *switchFrame(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    const std::optional<int> number = envelope::whole(request.body, "userNum", 1, kFrames);
    if (!robot || !number)
        return robot ? "userNum" : "robot";
    Json::Value set;
    set["userNum"] = *number;
    return request.store.store({*robot, kPackage, 0, QStringLiteral("current")}, set)
        ? nullptr
        : kStoreRefuses;
}

} // namespace

namespace userframe {

std::optional<Pose> fromPoints(const KDL::Vector &origin, const KDL::Vector &alongX,
                               const KDL::Vector &alongY)
{
    constexpr double kLeast = 1.0; // mm
    constexpr double kLeastSine = 0.0087; // of half a degree
    KDL::Vector x = alongX - origin;
    const KDL::Vector toY = alongY - origin;
    // written so that what is no number is too little
    if (!(x.Norm() > kLeast) || !(toY.Norm() > kLeast))
        return std::nullopt;
    x = x / x.Norm();
    KDL::Vector y = toY - KDL::dot(toY, x) * x;
    if (!(y.Norm() > kLeast) || !(y.Norm() > kLeastSine * toY.Norm()))
        return std::nullopt;
    y = y / y.Norm();
    Pose frame = toPose(KDL::Frame(KDL::Rotation(x, y, x * y)));
    frame[0] = origin.x();
    frame[1] = origin.y();
    frame[2] = origin.z();
    return frame;
}

Pose current(const ParameterStore &store, int robot)
{
    const ParameterStore::Key key{robot, kPackage, 0, QStringLiteral("current")};
    const std::optional<Json::Value> kept = store.load(key);
    if (!kept)
        return {};
    const std::optional<int> number = envelope::whole(*kept, "userNum", 1, kFrames);
    if (!number)
        store.markUnreadable(key);
    return number ? load(store, robot, *number, kCalibration) : Pose{};
}

} // namespace userframe

HandlerTable userFrameHandlers()
{
    return {
        {message::GetUserCoordinatePoint, &markPoint},
        {message::GetUserCoordinate, &getPoint},
        {message::CalculateUserCoordinate, &calculate},
        {message::SwitchUserCoordinate, &switchFrame},
    };
}
