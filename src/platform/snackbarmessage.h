#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// Transient messages at the foot of the screen. They never block and never take the focus.
///
/// Up to kShown messages stand above one another, the oldest on top; what comes beyond that waits
/// until one has had its time. A text that is on screen or waiting already gets its time anew
/// instead of a second panel. A touch takes a message away.
class SnackbarMessage {
public:
    static constexpr int kShown = 4; ///< messages on screen at once
    static constexpr int kWaiting = 20; ///< messages kept waiting; the oldest is dropped beyond it

    /// Shows `text` for `duration` milliseconds; -1 stays until it is touched or replaced by the
    /// next message. `kind` is 1 (message), 2 (notice), 3 (warning) or 4 (attention: a refused
    /// value or a result) and selects symbol, word and colour. Every call is recorded in the
    /// journal, also when there is no window to show it in.
    static void showMessage(const QString &text, const int &duration, int kind, bool flag);

    /// Shows `text` until it is touched, whatever else is said meanwhile. The journal has it as a
    /// message of duration -1 and flag true.
    static void showStanding(const QString &text, int kind);

    /// The widget whose foot the messages, the prompts and the covers are laid over; null for the
    /// active window.
    static void setHost(QWidget *host);

    /// What is on screen, oldest first.
    static QStringList shownTexts();
    /// What waits for its turn, oldest first.
    static QStringList waitingTexts();
    /// Takes away all messages, waiting ones too.
    static void dismissAll();
};
