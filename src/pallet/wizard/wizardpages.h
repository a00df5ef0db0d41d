#pragma once

class Ui_TechnologyWidget;

/// What the later pages of the program wizard do for the pages around them.
namespace wizard {

/// No port, and the first value of each signal.
void resetPorts(const Ui_TechnologyWidget *ui);

/// The page of variables opens: the list gets its hundred once more each time, whatever it holds,
/// until another type is chosen.
void appendEndVariables(const Ui_TechnologyWidget *ui);

/// A type of the last row needs a variable; the others pass as they are. False when one is missing,
/// which it says.
bool acceptVariables(const Ui_TechnologyWidget *ui);

} // namespace wizard
