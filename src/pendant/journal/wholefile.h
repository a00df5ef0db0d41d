#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file so that a crash, a full disk or a lost power leaves the old file or the whole new
/// one. Empty when it stands; else why not, in the words of the system.
QString writeWholeFile(const QString &path, const QByteArray &bytes);
