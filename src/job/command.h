#pragma once

#include <json/json.h>

/// An instruction of a robot job. Each class lists its fields once, in the order in which the
/// interpreter reads them, in a static visit(); commandfields.h walks it. Fields called reserved
/// are the interpreter's own.
class Command {
public:
    /// The kinds of instruction that the pages build, by their numbers in the job language.
    enum Type {
        MovJ = 1, ///< joint move
        MovL = 2, ///< linear move
        Timer = 7,
        Wait = 8, ///< wait on a condition
        WhileBegin = 13,
        WhileEnd = 14,
        DigitalOut = 16,
        SetInteger = 35,
        SetBoolean = 37,
        PalStart = 68,
        PalStep = 69,
        PalToEntry = 71, ///< move to the entrance point of the workpiece
        PalToAuxiliary = 72, ///< move to its auxiliary point
        PalToWorkpiece = 73, ///< move to its place
        PalHead = 74,
        PalOff = 75
    };

    explicit Command(Type kind);
    virtual ~Command() = default;
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    /// The instruction as the controller reads it: "type", all fields under their names, and the
    /// "position" of a move and the "condition" of a loop or wait where there is one.
    Json::Value toJson() const;

    int type; ///< a Type; a wait on a condition changes that of the timer it is made of
};
