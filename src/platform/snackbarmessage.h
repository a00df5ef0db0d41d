#pragma once

#include <QString>

/// Transient messages at the foot of the screen. They never block.
class SnackbarMessage {
public:
    /// Shows `text` for `duration` milliseconds; -1 stays until it is touched or replaced.
    /// `kind` is 1 (error), 2 (notice), 3 (warning) or 4 (refused value).
    static void showMessage(const QString &text, const int &duration, int kind, bool flag);
};
