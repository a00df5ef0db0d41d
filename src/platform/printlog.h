#pragma once

#include <QString>

/// The pendant's running log: a rotating text file.
class PrintLog {
public:
    /// Writes one line of a page, which stands in the journal too ("log"). `level`: 0 debug,
    /// 1 information, 2 warning, 3 error.
    static void OutputToLog(const QString &text, int level);
    /// Writes one line of the pendant itself, into the file alone.
    static void writeLine(const QString &text, int level);

    /// Opens `<directory>/pendant.log`; until then lines go to the journal alone. False when the
    /// file cannot be opened.
    static bool open(const QString &directory);
    /// Writes to the standard error instead, for a run in which no file can be written.
    static void openStandardError();
    static void close();
};
