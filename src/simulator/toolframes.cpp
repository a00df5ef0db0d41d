// Tool frames: nine tools per robot, each its tip as seen from the flange. No message of the
// pendant changes them; a store that has none starts with a gripper's lengths.

#include "simulator/toolframes.h"

#include "link/messages.h"
#include "simulator/angles.h"
#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/numbers.h"
#include "simulator/session.h"
#include "wire/ids.h"

/// Grippers side by side: tool 1 on the flange's axis, the others around it, a quarter turn apart.
/// A robot's tools are 10 mm longer than those of the robot before it.
toolframes::Frame toolframes::frameOf(int robot, int tool)
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

namespace {

const char *getToolData(Request &request)
{
    const std::optional<int> tool = envelope::whole(request.body, "toolNum", 1, toolframes::kTools);
    if (!tool)
        return "toolNum";
    const toolframes::Frame frame = toolframes::frameOf(request.session.robot, *tool);
    toolframes::Frame degrees = frame;
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
