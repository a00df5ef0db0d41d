#pragma once

#include <QString>

struct GetFont {
    /// Family of the font that the pendant's pages are drawn in; it has all Chinese characters.
    static QString getfonts();
};
