#pragma once

#include <json/json.h>

/// An instruction of a robot job.
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
        PalToEntry = 71,
        PalToAuxiliary = 72,
        PalToWorkpiece = 73,
        PalHead = 74,
        PalOff = 75
    };

    explicit Command(Type kind);
    virtual ~Command() = default;

    /// The instruction as the controller reads it: "type" and the fields of the kind by their
    /// names.
    virtual Json::Value toJson() const;

    int type; ///< a Type; a wait on a condition changes that of the timer it is made of
};
