#pragma once

#include <QString>

/// The names of jobs. Pendant and controller have the one rule, laid down in docs/job-format.md.
namespace jobname {

/// The longest name, in bytes of UTF-8.
constexpr int kMaxBytes = 100;

/// Whether the text may be the name of a job. It never leads out of a directory.
bool isValid(const QString &name);

} // namespace jobname
