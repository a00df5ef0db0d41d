#pragma once

#include <QFont>

struct SetFontSize {
    /// The page font at `points` points.
    static QFont setSize(int points);
};
