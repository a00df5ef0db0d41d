#pragma once

#include "app/operator.h"

/// Drives the pages as an operator would, by touches and keypad keys, and leaves pictures: the main
/// job of the pendant, seen without a screen.
class Tour {
public:
    Tour(Pendant &pendant, QString directory);

    /// Walks through everything. False, with the step named on the error output, when a widget
    /// cannot be touched or an answer does not come.
    bool run();

private:
    bool visitPackages(const QString &language);
    bool visitHostedPages();
    bool visitApplicationPages();
    bool setUpPolishing();
    bool makeJob(const QString &language);

    Operator m_operator;
    QString m_directory;
};
