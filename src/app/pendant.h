#pragma once

#include "app/options.h"

#include "simulator/embeddedcontroller.h"

class TechnologyWidget;
class VeltrixWidgetFoundation;

/// The running pendant: the store, the log, the accounts, the controller it talks to, the main
/// window and the process pages in it, wired together.
class Pendant {
public:
    /// Starts everything; false with one sentence in `error` when something cannot be had.
    bool start(const Options &options, QString *error);
    /// Takes the window from the screen, which lets go of every held key: the controller is told
    /// that nobody holds the enabling switch before the link ends.
    void letGo();
    /// Ends the link before the embedded controller, so that no loss is reported.
    void stop();

    VeltrixWidgetFoundation *window() const { return m_window; }
    TechnologyWidget *pages() const { return m_pages; }

private:
    bool openStore(const Options &options, QString *error);
    bool connectController(const Options &options, QString *error);
    void wirePages();

    EmbeddedController m_controller;
    VeltrixWidgetFoundation *m_window = nullptr;
    TechnologyWidget *m_pages = nullptr;
};
