#pragma once

#include <QString>

/// Makes the data directory and takes the rights of others from it and from the files that earlier
/// runs left there; files that are none of the pendant's stay as they are. To be called before a
/// database in it is open. False when there is no directory in the end.
bool makeDataDirectory(const QString &directory);
