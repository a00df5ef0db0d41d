#pragma once

#include <QString>

/// Files of the data directories: for the user of the program alone (0600, directories 0700), and
/// on the disk when that is said. A link in the place of a file is not followed.
///
/// Not for a database that is open: closing any descriptor of it gives up SQLite's locks on it.
namespace privatefiles {

/// Makes a directory with its parents, mode 0700. One that is there already is tightened when it
/// belongs to this user and is no common one: sticky as /tmp, directly below the root, or the home.
/// False when there is none in the end.
bool makeDirectory(const QString &path);

/// Makes an empty file of mode 0600, or tightens the file of that name. False when there is no
/// regular file of that name in the end; a file that belongs to somebody else stays as it is.
bool makeFile(const QString &path);

/// Takes the rights of others from a regular file, if there is one.
void tighten(const QString &path);

/// Whether a file's content, or a directory's entries, are on the disk now.
bool sync(const QString &path);

} // namespace privatefiles
