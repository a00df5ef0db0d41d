#pragma once

#include <QString>

/// The title of a page in the current language. `group` 8: pages of the process component, 1:
/// welding and vision. An unknown pair gives the title of the process menu.
QString pageTitle(int group, int title);
/// Whether the pair is in the table.
bool hasPageTitle(int group, int title);
