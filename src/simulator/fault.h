#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

/// How a controller can misbehave on one message. The message itself is carried out in each case.
enum class Fault {
    None,
    NoReply, ///< its replies do not come
    FirstReplyLost, ///< its first reply after the fault was set does not come
    Late, ///< its replies come late
    Malformed, ///< its replies are cut in the middle of their text
    OtherRobot, ///< its replies carry another robot's number
    Cut ///< the connection is cut instead of a reply
};

/// A fault as the command line writes it: "0x4602=late:500". Names: none, noreply, firstlost, late,
/// malformed, otherrobot, cut; milliseconds with "late" only, 1000 without them.
struct FaultRule {
    quint16 id = 0;
    Fault fault = Fault::None;
    int milliseconds = 1000;

    /// Nothing when `text` is no such rule or names no message of the catalogue.
    static std::optional<FaultRule> parse(const QString &text);
};
