#pragma once

#include <QtGlobal>

/// The message ids that this project gives by itself: those of the link, and those of the replies.
/// The ids of the requests stand in link/messages.h.
namespace wire {

/// The link's own messages; none of them reaches a page. Their bodies are JSON objects, laid down
/// in docs/link-protocol.md.
enum LinkMessage : quint16 {
    Hello = 0x0001, ///< pendant to controller, the first message of a connection
    HelloAnswer = 0x0002, ///< controller to pendant: the connection stands
    HelloRefusal = 0x0003, ///< controller to pendant: it does not, and why
    Heartbeat = 0x0004, ///< both ways, empty body
    Status = 0x0005, ///< controller to pendant: state of the robot that the pendant works with
    Key = 0x0006, ///< pendant to controller: servo, deadman, mode, robot
    StoreJob = 0x0007, ///< pendant to controller: a stored job
    JobChecked = 0x0008 ///< controller to pendant: what it says of that job
};

// The replies, in the order of their ids: X(id, signal of Robot). An id is the free third number of
// the request family that it answers, or the nearest free one where a family has several replies;
// the last two answer no request. Append-only within a family: an id never gets another meaning.
#define WIRE_REPLIES(X)                                                                            \
    X(0x2f08, receive_moreRobot_CurPosition)                                                       \
    X(0x3807, robot_tool_count_check)                                                              \
    X(0x3c03, robot_user_suc)                                                                      \
    X(0x3c09, robot_usercoords_reply)                                                              \
    X(0x4203, robot_pallet_ToolParameter)                                                          \
    X(0x4206, robot_pallet_TrayParameter)                                                          \
    X(0x4209, robot_pallet_PositionParameter)                                                      \
    X(0x420c, robot_pallet_WorkpieceParameter)                                                     \
    X(0x420f, robot_pallet_ApproachParameter)                                                      \
    X(0x4212, robot_pallet_OverlappingModel)                                                       \
    X(0x4215, robot_pallet_PlaneModel)                                                             \
    X(0x4217, robot_pallet_ChangeModel)                                                            \
    X(0x4219, robot_pallet_PlanePreview)                                                           \
    X(0x4223, robot_switchpalletmode)                                                              \
    X(0x4226, robot_palleteasy_PositionParameter)                                                  \
    X(0x4229, robot_palleteasy_ToolParameter)                                                      \
    X(0x4233, robot_receivePalletData)                                                             \
    X(0x4243, robot_pallet_LocATPara)                                                              \
    X(0x4248, robot_piece_LocAT)                                                                   \
    X(0x4403, robot_recLaserChangerIoSet)                                                          \
    X(0x4406, robot_recLaserTechParam)                                                             \
    X(0x4409, robot_recLaserChangerAnalog)                                                         \
    X(0x440c, robot_recCutTechParam)                                                               \
    X(0x440f, robot_change_CurrentState)                                                           \
    X(0x4413, robot_change_ShotParameter)                                                          \
    X(0x4418, robot_recLaserChangerAnalogSet)                                                      \
    X(0x4603, robot_Polish_Para)                                                                   \
    X(0x4703, robot_Spray_Analog)                                                                  \
    X(0x4706, robot_Spray_Digital)                                                                 \
    X(0x4709, robot_Spray_Sequence)                                                                \
    X(0x470c, robot_Spray_TrackPara)                                                               \
    X(0x4713, robot_Spray_HandOperatOne)                                                           \
    X(0x4716, robot_Spray_HandOperatTwo)                                                           \
    X(0x4719, robot_Spray_HandOperatThree)                                                         \
    X(0x4803, robot_trackConBasic_para)                                                            \
    X(0x4806, robot_trackConTool_para)                                                             \
    X(0x4808, robot_trackSpeed_para)                                                               \
    X(0x4813, robot_trackConCalibration_para)                                                      \
    X(0x4817, robot_trackConSensorPos_para)                                                        \
    X(0x4819, robot_trackConCaliSensorPoint_para)                                                  \
    X(0x481d, robot_trackConCaliSensorPos_para)                                                    \
    X(0x4832, robot_trackConPosr_para)                                                             \
    X(0x4834, robot_calibrationPos_para)                                                           \
    X(0x5606, robot_rec_globalPosition)                                                            \
    X(0x560c, robot_get_oneglobalVariant)                                                          \
    X(0x560d, robot_BWB_command)                                                                   \
    X(0x560e, sPBtnState)

/// The id of each reply, under the name of its signal: `wire::reply::robot_Polish_Para`.
namespace reply {
#define WIRE_REPLY_ID(number, signal) signal = number,
enum Id : quint16 { WIRE_REPLIES(WIRE_REPLY_ID) };
#undef WIRE_REPLY_ID
} // namespace reply

struct ReplyName {
    quint16 id;
    const char *signal; ///< name of the signal of Robot
};

/// All replies, ids rising.
inline constexpr ReplyName kReplies[] = {
#define WIRE_REPLY_ROW(number, signal) {reply::signal, #signal},
    WIRE_REPLIES(WIRE_REPLY_ROW)
#undef WIRE_REPLY_ROW
};

} // namespace wire
