#pragma once

/// The messages that the pendant sends: one list, which gives the enumeration, the names in the
/// trace and the table to walk through. The raw numbers stand nowhere else.
///
/// Set... stores, Get... asks for a reply (wire/ids.h names the replies); a set and its get are
/// neighbours. The bodies are JSON objects; GetLaserIo, GetLaserBore, GetLaserAnalog, GetLaserState
/// and GetLaserManual have an empty body.
// clang-format off
#define LINK_MESSAGES(X)                                                                           \
    X(GetCurrentPosition, 0x2f07)                                                                  \
    X(RunToPoint, 0x3003)                                                                          \
    X(GetToolData, 0x3806)                                                                         \
    X(CalculateUserCoordinate, 0x3c01)                                                             \
    X(GetUserCoordinatePoint, 0x3c02)                                                              \
    X(GetUserCoordinate, 0x3c08)                                                                   \
    X(SwitchUserCoordinate, 0x3c0a)                                                                \
    X(SetPalletGripper, 0x4201)                                                                    \
    X(GetPalletGripper, 0x4202)                                                                    \
    X(SetPalletTray, 0x4204)                                                                       \
    X(GetPalletTray, 0x4205)                                                                       \
    X(SetPalletPosition, 0x4207)                                                                   \
    X(GetPalletPosition, 0x4208)                                                                   \
    X(SetPalletWorkpiece, 0x420a)                                                                  \
    X(GetPalletWorkpiece, 0x420b)                                                                  \
    X(SetPalletApproach, 0x420d)                                                                   \
    X(GetPalletApproach, 0x420e)                                                                   \
    X(SetPalletOverlap, 0x4210)                                                                    \
    X(GetPalletOverlap, 0x4211)                                                                    \
    X(SetPalletPlane, 0x4213)                                                                      \
    X(GetPalletPlane, 0x4214)                                                                      \
    X(ConvertPalletPlane, 0x4216)                                                                  \
    X(GetPalletPreview, 0x4218)                                                                    \
    X(CopyPallet, 0x421d)                                                                          \
    X(CleanPallet, 0x421e)                                                                         \
    X(CopyPalletPicture, 0x421f)                                                                   \
    X(SetPalletMode, 0x4221)                                                                       \
    X(GetPalletMode, 0x4222)                                                                       \
    X(SetEasyPosition, 0x4224)                                                                     \
    X(GetEasyPosition, 0x4225)                                                                     \
    X(SetEasyGripper, 0x4227)                                                                      \
    X(GetEasyGripper, 0x4228)                                                                      \
    X(SendWorkpieceList, 0x4232)                                                                   \
    X(GetLocationLayer, 0x4242)                                                                    \
    X(ConfirmLayerOffset, 0x4244)                                                                  \
    X(ApplyLayerOffset, 0x4245)                                                                    \
    X(ConfirmWorkpiecePoint, 0x4247)                                                               \
    X(SaveLocation, 0x424a)                                                                        \
    X(MoveToWorkpiecePoint, 0x424d)                                                                \
    X(SetLaserIo, 0x4401)                                                                          \
    X(GetLaserIo, 0x4402)                                                                          \
    X(SetLaserBore, 0x4404)                                                                        \
    X(GetLaserBore, 0x4405)                                                                        \
    X(SetLaserAnalog, 0x4407)                                                                      \
    X(GetLaserAnalog, 0x4408)                                                                      \
    X(SetLaserCut, 0x440a)                                                                         \
    X(GetLaserCut, 0x440b)                                                                         \
    X(GetLaserState, 0x440e)                                                                       \
    X(SetLaserManual, 0x4410)                                                                      \
    X(LaserManualCommand, 0x4411)                                                                  \
    X(GetLaserManual, 0x4412)                                                                      \
    X(TestLaserAnalog, 0x4417)                                                                     \
    X(SetPolish, 0x4601)                                                                           \
    X(GetPolish, 0x4602)                                                                           \
    X(SetSprayAnalog, 0x4701)                                                                      \
    X(GetSprayAnalog, 0x4702)                                                                      \
    X(SetSprayDigital, 0x4704)                                                                     \
    X(GetSprayDigital, 0x4705)                                                                     \
    X(SetSpraySequence, 0x4707)                                                                    \
    X(GetSpraySequence, 0x4708)                                                                    \
    X(SetSprayTrack, 0x470a)                                                                       \
    X(GetSprayTrack, 0x470b)                                                                       \
    X(SetSpraySwitches, 0x4711)                                                                    \
    X(GetSpraySwitches, 0x4712)                                                                    \
    X(SetSprayOutputs, 0x4714)                                                                     \
    X(GetSprayOutputs, 0x4715)                                                                     \
    X(SetSprayOilTest, 0x4717)                                                                     \
    X(GetSprayOilTest, 0x4718)                                                                     \
    X(SetConveyorBasic, 0x4801)                                                                    \
    X(GetConveyorBasic, 0x4802)                                                                    \
    X(SetConveyorTool, 0x4804)                                                                     \
    X(GetConveyorTool, 0x4805)                                                                     \
    X(GetConveyorSpeed, 0x4807)                                                                    \
    X(StepFirstCalibration, 0x4810)                                                                \
    X(MarkFirstCalibration, 0x4811)                                                                \
    X(GetFirstCalibrationPoint, 0x4812)                                                            \
    X(CleanFirstCalibration, 0x4814)                                                               \
    X(CancelFirstCalibration, 0x4815)                                                              \
    X(GetSecondCalibration, 0x4816)                                                                \
    X(GetSecondCalibrationPoint, 0x4818)                                                           \
    X(MarkSecondCalibrationSensor, 0x481a)                                                         \
    X(GetSecondCalibrationPose, 0x481c)                                                            \
    X(MarkSecondCalibrationPose, 0x481e)                                                           \
    X(CleanSecondCalibration, 0x4820)                                                              \
    X(CancelSecondCalibration, 0x4821)                                                             \
    X(StepSecondCalibration, 0x4822)                                                               \
    X(SetConveyorWindow, 0x4830)                                                                   \
    X(GetConveyorWindow, 0x4831)                                                                   \
    X(MarkConveyorWindow, 0x4833)                                                                  \
    X(CopyConveyor, 0x4835)                                                                        \
    X(CleanConveyor, 0x4836)                                                                       \
    X(MoveToConveyorWindow, 0x4837)                                                                \
    X(SetGlobalPosition, 0x5604)                                                                   \
    X(GetGlobalPosition, 0x5605)                                                                   \
    X(SetGlobalVariable, 0x5607)                                                                   \
    X(GetGlobalVariable, 0x560b)
// clang-format on

namespace message {

enum Id : unsigned short {
#define LINK_MESSAGE_ID(label, number) label = number,
    LINK_MESSAGES(LINK_MESSAGE_ID)
#undef LINK_MESSAGE_ID
};

struct Entry {
    unsigned short id;
    const char *name;
};

/// All messages, ids rising.
inline constexpr Entry kAll[] = {
#define LINK_MESSAGE_ROW(label, number) {number, #label},
    LINK_MESSAGES(LINK_MESSAGE_ROW)
#undef LINK_MESSAGE_ROW
};

inline constexpr int kCount = static_cast<int>(sizeof(kAll) / sizeof(kAll[0]));

/// The name of a message, "SetPolish"; null for an id that is not in the list.
constexpr const char *name(unsigned short id)
{
    for (const Entry &entry : kAll) {
        if (entry.id == id)
            return entry.name;
    }
    return nullptr;
}

} // namespace message
