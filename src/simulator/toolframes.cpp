// Tool frames: nine tools per robot, each its tip as seen from the flange. No message of the
// pendant changes them; a store that has none starts with a gripper's lengths.

#include "link/messages.h"
#include "simulator/angles.h"
#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/numbers.h"
#include "simulator/session.h"
#include "wire/ids.h"

#include <array>

namespace {

constexpr int kTools = 9;
using Frame = std::array<double, 6>; ///< x, y, z in mm; a, b, c in radians

/// Grippers side by side: tool 1 on the flange's axis, the others around it, a quarter turn apart.
/// A robot's tools are 10 mm longer than those of the robot before it.
Frame frameOf(int robot, int tool)
{
    constexpr double kAside = 120.0;
    constexpr double kAlongX[] = {0, 1, 0, -1, 0};
    const int around = tool == 1 ? 0 : (tool - 2) % 4 + 1;
    const double x = tool == 1 ? 0.0 : kAside * kAlongX[around];
    const double y = tool == 1 ? 0.0 : kAside * kAlongX[around - 1];
    const double z = 150.0 + 10.0 * (robot - 1) + (tool > 5 ? 80.0 : 0.0);
    const double c = tool == 1 ? 0.0 : angles::toRadians(90.0 * (around - 1));
    return {x, y, z, 0.0, 0.0, c > angles::kPi ? c - 2 * angles::kPi : c};
}

const char *getToolData(Request &request)
{
    const std::optional<int> tool = envelope::whole(request.body, "toolNum", 1, kTools);
    if (!tool)
        return "toolNum";
    const Frame frame = frameOf(request.session.robot, *tool);
    Frame degrees = frame;
    for (size_t i = 3; i < degrees.size(); ++i)
        degrees[i] = angles::toDegrees(degrees[i]);
    Json::Value reply;
    reply["toolNum"] = *tool;
    reply["tool"] = numbers::text(frame);
    reply["toolDeg"] = numbers::text(degrees);
    request.reply(wire::reply::robot_tool_count_check, reply);
    return nullptr;
}

} // namespace

HandlerTable toolFrameHandlers()
{
    return {{message::GetToolData, &getToolData}};
}
