#pragma once

#include <QString>

/// The text as part of one line that shows all it holds: backslash, tab and line ends as \\, \t,
/// \n, \r, other control characters as \xNN, and whatever else breaks a line or shows nothing
/// (separators, characters of the category Format, lone surrogates) as \u{N...}.
QString oneLine(const QString &text);
