#pragma once

#include <QString>

/// What is wrong with a stored job, and where. The words cross the link, so that each end says it
/// in its own language.
struct JobFault {
    enum Kind {
        None,
        NotAJob, ///< the first line is not that of a job file
        Version, ///< a version that this reader does not know; detail: the version
        CutOff, ///< the file ends before the job does
        Surplus, ///< something follows where nothing may; detail: its beginning
        UnknownCommand, ///< detail: the word
        Field, ///< a field is missing or out of order; detail: its name
        Value, ///< a field's value cannot be read; detail: the field
        Position, ///< a position that the job does not have; detail: P1
        Twice, ///< a position or a variable of the head stands twice; detail: its name
        Order, ///< a position or a variable of the head is not in its place; detail: its name
        LoopOpen, ///< a loop has no end
        LoopEnd, ///< an end without a loop
        Condition, ///< a loop or wait without a condition, or one that makes no sense
        Port, ///< a port that the controller does not have; detail: DIN17
        Variable, ///< a variable that the controller does not have; detail: its name
        TooLong, ///< more lines than the controller takes; detail: how many it takes
        Name, ///< a name that no job may have
        TooMany, ///< the robot has as many jobs as the controller keeps; detail: how many
        NoRoom, ///< the robot's jobs take more room than the controller has; detail: how much
        Other ///< a fault that this end has no word for; detail: the other end's word
    };

    Kind kind = None;
    int line = 0; ///< of the file for what a reader finds, of the program for what a check finds
    QString detail;

    explicit operator bool() const { return kind != None; }

    /// The kind as one word, "UnknownCommand".
    const char *word() const;
    /// None for a word that is no kind.
    static Kind kindOf(const QString &word);
    /// What is wrong, for the operator, without the line.
    QString reason() const;
};
