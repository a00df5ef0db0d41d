#include "simulator/jobprogram.h"

#include "command.h"
#include "jobfile.h"
#include "simulator/jobcheck.h"

JobProgram::Checked JobProgram::check(const QByteArray &text, const QString &name,
                                      const Ports &ports)
{
    jobfile::Reading reading = jobfile::read(text, name);
    if (!reading.job)
        return {nullptr, reading.fault};
    const int lines = reading.job->lineCount();
    if (lines > kMaxLines)
        return {nullptr, {JobFault::TooLong, kMaxLines + 1, QString::number(kMaxLines)}};

    std::unique_ptr<JobProgram> program(new JobProgram(std::move(reading.job)));
    JobFault fault = program->pairLoops();
    const int end = fault ? fault.line : lines + 1;
    for (int line = 1; line < end; ++line) {
        JobFault found = checkCommand(*program->m_job->command(line), ports);
        if (found) {
            found.line = line;
            fault = found;
            break;
        }
    }
    if (!fault)
        fault = program->checkStartValues();
    if (fault)
        return {nullptr, fault};
    return {std::move(program), {}};
}

JobFault JobProgram::pairLoops()
{
    m_partners.assign(static_cast<std::size_t>(lineCount()), 0);
    std::vector<int> open;
    for (int line = 1; line <= lineCount(); ++line) {
        const int type = m_job->command(line)->type;
        if (type == Command::WhileBegin) {
            open.push_back(line);
        } else if (type == Command::WhileEnd) {
            if (open.empty())
                return {JobFault::LoopEnd, line, {}};
            m_partners[static_cast<std::size_t>(line - 1)] = open.back();
            m_partners[static_cast<std::size_t>(open.back() - 1)] = line;
            open.pop_back();
        }
    }
    return open.empty() ? JobFault() : JobFault{JobFault::LoopOpen, open.back(), {}};
}

/// The head of a job's file may name variables that no line does.
JobFault JobProgram::checkStartValues() const
{
    for (const auto &[name, value] : m_job->variables()) {
        if (const JobFault fault = checkStartValue(name, value))
            return fault;
    }
    return {};
}

int JobProgram::partner(int line) const
{
    return line < 1 || line > lineCount() ? 0 : m_partners[static_cast<std::size_t>(line - 1)];
}

int JobProgram::next(int line, bool holds) const
{
    const int other = partner(line);
    if (other == 0 || (other > line && holds))
        return line + 1;
    return other > line ? other + 1 : other;
}
