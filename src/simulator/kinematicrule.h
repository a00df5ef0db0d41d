#pragma once

#include <QString>
#include <optional>

/// The kinematic type of a robot as the command line writes it: "2=12".
struct KinematicRule {
    int robot; ///< 1 to 4
    int type; ///< 1 to 12

    /// Nothing when `text` is no such rule.
    static std::optional<KinematicRule> parse(const QString &text);
};
