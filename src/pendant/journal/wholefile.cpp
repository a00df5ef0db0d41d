#include "wholefile.h"

#include <QSaveFile>

QString writeWholeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // Flushed by hand: commit() would take what is left in the buffer as written although the disk
    // has no room for it, and put a cut file in the place of the old one.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()
        && file.commit())
        return {};
    return file.errorString();
}
