#pragma once

#include "command.h"
#include "robotpos.h"

#include <QString>
#include <map>
#include <memory>
#include <vector>

/// A job program: its commands line by line, its positions, and the values its variables start
/// with. Lines count from 1.
class ProgramJOB {
public:
    using Positions = std::map<int, std::unique_ptr<RobotPos>>; ///< by id word
    using Variables = std::map<QString, QString>; ///< start values by name

    explicit ProgramJOB(QString name);

    const QString &name() const { return m_name; }

    int lineCount() const { return static_cast<int>(m_lines.size()); }
    /// Null outside 1 to lineCount().
    Command *command(int line) const;
    /// Puts the command in front of that line; a line past the end appends, one below 1 is the
    /// first.
    void insertCommand(int line, std::unique_ptr<Command> command);

    /// The position of that letter and number, or null. It stays where it is as long as the job.
    RobotPos *getPosition(char letter, int number) const;
    RobotPos *getPosition(int word) const;
    /// Takes a position in, under its id word; null when the job has one of that word already.
    RobotPos *addPosition(const RobotPos &position);
    const Positions &positions() const { return m_positions; }

    void setVariable(const QString &variable, const QString &value);
    const Variables &variables() const { return m_variables; }

private:
    QString m_name;
    std::vector<std::unique_ptr<Command>> m_lines;
    Positions m_positions;
    Variables m_variables;
};
