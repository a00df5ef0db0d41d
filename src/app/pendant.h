#pragma once

#include "app/options.h"
#include "app/startup.h"

#include "simulator/embeddedcontroller.h"

#include <QTimer>

class TechnologyWidget;
class VeltrixWidgetFoundation;

/// The running pendant: the store, the log, the accounts, the controller it talks to, the main
/// window and the process pages in it, wired together.
class Pendant {
public:
    /// Starts everything. What stands in the way is shown on a page of its own, where the operator
    /// says how to go on; false when the program is to end, with a sentence on why in `error`.
    /// Without an operator, on a tour, it ends at the first obstacle.
    bool start(const Options &options, QString *error);
    /// Takes the window from the screen, which lets go of every held key: the controller is told
    /// that nobody holds the enabling switch before the link ends.
    void letGo();
    /// Ends the link before the embedded controller, so that no loss is reported.
    void stop();

    VeltrixWidgetFoundation *window() const { return m_window; }
    TechnologyWidget *pages() const { return m_pages; }

private:
    void takeUpStore(const Options &options);
    void connectController(const Options &options);
    void wirePages();

    Startup m_startup;
    QTimer m_daily; ///< looks whether a new day has come
    EmbeddedController m_controller;
    VeltrixWidgetFoundation *m_window = nullptr;
    TechnologyWidget *m_pages = nullptr;
};
