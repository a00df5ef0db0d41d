#pragma once

#include "simulator/kinematicrule.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

/// What the command line of the pendant asks for.
struct Options {
    QString controllerHost; ///< empty: the embedded simulated controller
    quint16 controllerPort = 0;
    QString dataDirectory; ///< configuration, accounts, log, the embedded controller's data
    QString tourDirectory; ///< not empty: drive the pages without an operator and leave pictures
    QString language; ///< "zh", "en"; empty: the one of the last run
    std::vector<KinematicRule> kinematics; ///< of the embedded controller's robots
    /// Milliseconds from the last word of a held enabling switch to its lapse, in the embedded
    /// controller; 0: its own. Longer on a tour: it has no operator whose hand could be missed, and
    /// its arm is simulated, so a slow machine may take its time.
    int switchLasts = 0;
    bool specialProcessOnly = false; ///< the device that offers nothing but the special process

    bool isEmbedded() const { return controllerHost.isEmpty(); }
};

/// Reads the command line. Nothing, with one sentence in `error`, when it cannot be taken. Options
/// that only print (--help, --version) print and end the process.
std::optional<Options> readOptions(const QStringList &arguments, QString *error);
