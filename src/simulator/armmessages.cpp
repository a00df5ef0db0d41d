// Where the arms are, and running them to a point.

#include "link/messages.h"
#include "simulator/angles.h"
#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/numbers.h"
#include "simulator/robotcell.h"
#include "simulator/session.h"
#include "simulator/userframes.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <cmath>
#include <vector>

namespace {

/// The kinds of coordinates in which a position is told.
enum Coordinate { Axes = 0, Cartesian = 1, Tool = 2, User = 3 };

Pose withSeventh(Pose pose, const Pose &from)
{
    pose[kElbow] = from[kElbow];
    return pose;
}

/// A pose of the base as seen from the flange: the vector from the base in the flange's axes. The
/// angles stay those of the base.
Pose inTool(const Pose &pose)
{
    const KDL::Frame frame = toFrame(pose);
    const KDL::Vector seen = frame.M.Inverse(frame.p) * 1000.0;
    Pose own = pose;
    own[0] = seen.x();
    own[1] = seen.y();
    own[2] = seen.z();
    return own;
}

Pose fromTool(const Pose &pose)
{
    const KDL::Vector place = toFrame(pose).M * KDL::Vector(pose[0], pose[1], pose[2]);
    Pose own = pose;
    own[0] = place.x();
    own[1] = place.y();
    own[2] = place.z();
    return own;
}

Pose inUser(const Pose &pose, const Pose &user)
{
    return withSeventh(toPose(toFrame(user).Inverse() * toFrame(pose)), pose);
}

Pose fromUser(const Pose &pose, const Pose &user)
{
    return withSeventh(toPose(toFrame(user) * toFrame(pose)), pose);
}

/// The seven values of a position, and which of them are told in radians and in degrees.
struct Reading {
    std::array<double, kAxes> values{};
    std::array<bool, kAxes> isAngle{};
};

Reading readingOf(const Arm &arm, int coordinate, const Pose &user)
{
    Reading reading;
    if (coordinate == Axes) {
        reading.values = arm.joints();
        for (int i = 0; i < arm.model().axes(); ++i)
            reading.isAngle.at(static_cast<size_t>(i)) = !arm.model().isLinear(i);
        return reading;
    }
    const Pose pose = arm.pose();
    const Pose told = coordinate == Tool ? inTool(pose)
        : coordinate == User             ? inUser(pose, user)
                                         : pose;
    reading.values = told.values;
    for (size_t i = 3; i < kElbow; ++i)
        reading.isAngle[i] = true;
    // The elbow has but one unit: a pendant sends it back as it was shown.
    reading.values[kElbow] = angles::toDegrees(told[kElbow]);
    return reading;
}

/// An angle in degrees, as exact as the position is; what the kinematics leave of a 0 is a 0.
double degreesOf(double radians)
{
    constexpr double kUnit = 1e-4;
    return std::round(angles::toDegrees(radians) / kUnit) * kUnit;
}

/// Nine numbers: robot, kind of coordinates, seven values.
std::string lineOf(int robot, int coordinate, const Reading &reading, bool degrees)
{
    std::vector<double> line = {static_cast<double>(robot), static_cast<double>(coordinate)};
    for (size_t i = 0; i < kAxes; ++i) {
        const double value = reading.values[i];
        line.push_back(degrees && reading.isAngle[i] ? degreesOf(value) : value);
    }
    return numbers::text(line);
}

const char *getPosition(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    const std::optional<int> coordinate = envelope::whole(request.body, "coord", Axes, User);
    if (!robot || !coordinate)
        return robot ? "coord" : "robot";
    const Pose user = *coordinate == User ? userframe::current(request.store, *robot) : Pose{};
    const Reading reading = readingOf(request.cell.arm(*robot), *coordinate, user);
    Json::Value reply;
    reply["pos"] = lineOf(*robot, *coordinate, reading, false);
    reply["posDeg"] = lineOf(*robot, *coordinate, reading, true);
    request.reply(wire::reply::receive_moreRobot_CurPosition, reply);
    return nullptr;
}

constexpr size_t kValues = 14;
constexpr size_t kFirstValue = 7;

std::optional<std::array<double, kValues>> valuesOf(const Json::Value &body)
{
    const Json::Value *list = wire::array(body, "position", "values");
    if (!list || list->size() != kValues)
        return std::nullopt;
    std::array<double, kValues> values{};
    for (Json::ArrayIndex i = 0; i < kValues; ++i) {
        const std::optional<double> value = wire::asNumber(&(*list)[i]);
        if (!value)
            return std::nullopt;
        values[i] = *value;
    }
    return values;
}

/// The axes of a point to run to. Turning axes come in degrees, as they are shown, when the second
/// flag is 0; in radians when it is 1.
Joints jointsOf(const std::array<double, kValues> &values, const ArmModel &model)
{
    const bool degrees = values[1] == 0;
    Joints joints{};
    for (int i = 0; i < model.axes(); ++i) {
        const auto axis = static_cast<size_t>(i);
        const double value = values[kFirstValue + axis];
        joints[axis] = degrees && !model.isLinear(i) ? angles::toRadians(value) : value;
    }
    return joints;
}

// A move command with the point to run to: kind of coordinates and flag in the first two of its
// fourteen values, the point in the last seven.
const char *runToPoint(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    if (!robot)
        return "robot";
    if (!envelope::whole(request.body, "type", 1, 1))
        return "type";
    const std::optional<std::array<double, kValues>> values = valuesOf(request.body);
    if (!values)
        return "position";
    const double coordinate = (*values)[0];
    if (!(coordinate == Axes || coordinate == Cartesian || coordinate == Tool
          || coordinate == User))
        return "position";

    RobotCell &cell = request.cell;
    const char *word = nullptr;
    if (coordinate == Axes) {
        const Joints joints = jointsOf(*values, cell.arm(*robot).model());
        word = cell.runTo(*robot, joints, request.session.number);
    } else {
        Pose pose{};
        std::copy_n(values->begin() + kFirstValue, kAxes, pose.values.begin());
        pose[kElbow] = angles::toRadians(pose[kElbow]);
        if (coordinate == Tool)
            pose = fromTool(pose);
        else if (coordinate == User)
            pose = fromUser(pose, userframe::current(request.store, *robot));
        word = cell.runTo(*robot, pose, request.session.number);
    }
    if (word)
        request.tell(word);
    return nullptr;
}

} // namespace

HandlerTable armHandlers()
{
    return {
        {message::GetCurrentPosition, &getPosition},
        {message::RunToPoint, &runToPoint},
    };
}
