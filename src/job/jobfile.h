#pragma once

#include "jobfault.h"
#include "programjob.h"

#include <QByteArray>
#include <memory>

/// The text of a stored job, laid down in docs/job-format.md.
namespace jobfile {

constexpr int kVersion = 1;
/// What a job's file is called: its name and this.
constexpr const char *kSuffix = ".JBR";
/// The longest file that is read, in bytes.
constexpr qint64 kMaxBytes = 256 * 1024 * 1024;

/// The job as UTF-8 text. Numbers are written in the shortest form that reads back as the same.
QByteArray write(const ProgramJOB &job);
/// The line of one command or position in it, without the end of the line.
QByteArray lineOf(const Command &command);
QByteArray lineOf(const RobotPos &position);

struct Reading {
    std::unique_ptr<ProgramJOB> job; ///< null when the text is damaged
    JobFault fault; ///< `line` is the line of the text, from 1
};
/// The job that the text holds. What write() made reads back as it was; a text that write() would
/// not make, but for other forms of its numbers, is damaged.
Reading read(const QByteArray &text, const QString &name);

} // namespace jobfile
