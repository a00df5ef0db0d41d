#pragma once

#include <QString>
#include <string>

/// Numbers as texts, the way the controller writes positions and frames.
namespace numbers {

/// At most six decimals, none that are not needed, and never "-0".
std::string text(double number);

/// Separated by single blanks.
template <typename List> std::string text(const List &list)
{
    std::string line;
    for (const double number : list) {
        if (!line.empty())
            line += ' ';
        line += text(number);
    }
    return line;
}

} // namespace numbers
