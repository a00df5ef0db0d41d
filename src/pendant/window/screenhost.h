#pragma once

class QWidget;

/// The widget that prompts, covers and messages are laid over.
struct ScreenHost {
    /// The main window gives its content here; null takes it back.
    static void set(QWidget *host);
    /// What was set; else the active window; else a visible window; null when there is none.
    static QWidget *widget();
};
