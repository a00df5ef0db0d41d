#include "programjob.h"

ProgramJOB::ProgramJOB(QString name) : m_name(std::move(name)) { }

Command *ProgramJOB::command(int line) const
{
    if (line < 1 || line > lineCount())
        return nullptr;
    return m_lines[static_cast<std::size_t>(line - 1)].get();
}

void ProgramJOB::insertCommand(int line, std::unique_ptr<Command> command)
{
    const int at = std::clamp(line, 1, lineCount() + 1) - 1;
    m_lines.insert(m_lines.begin() + at, std::move(command));
}

RobotPos *ProgramJOB::getPosition(char letter, int number) const
{
    return getPosition(RobotPos::wordOf(letter, number));
}

RobotPos *ProgramJOB::getPosition(int word) const
{
    const auto found = m_positions.find(word);
    return found == m_positions.end() ? nullptr : found->second.get();
}

RobotPos *ProgramJOB::addPosition(const RobotPos &position)
{
    const auto [at, isNew] = m_positions.try_emplace(position.id);
    if (!isNew)
        return nullptr;
    at->second = std::make_unique<RobotPos>(position);
    return at->second.get();
}

void ProgramJOB::setVariable(const QString &variable, const QString &value)
{
    m_variables[variable] = value;
}
