#include "app/datafiles.h"

#include "files/privatefiles.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace {

/// A part of the data directory and what the pendant and its embedded controller leave there.
struct Part {
    const char *directory;
    QStringList files;
};

QVector<Part> parts()
{
    const QStringList all = {QStringLiteral("*")};
    return {
        {".",
         {QStringLiteral("pendant.db*"), QStringLiteral("pendant-damaged-*.db*"),
          QStringLiteral("pendant.log"), QStringLiteral("pendant.*.log"),
          QStringLiteral("audit*.log"), QStringLiteral("events-*.txt"), QStringLiteral("*.lock"),
          QStringLiteral("controller.db*")}},
        {"backup", all},
        {"jobs", all},
        {"jobs/robot1", all},
        {"jobs/robot2", all},
        {"jobs/robot3", all},
        {"jobs/robot4", all},
    };
}

} // namespace

bool makeDataDirectory(const QString &directory)
{
    if (!privatefiles::makeDirectory(directory))
        return false;
    const QVector<Part> all = parts();
    for (const Part &part : all) {
        const QFileInfo place(QDir(directory).filePath(QLatin1String(part.directory)));
        if (!place.isDir() || place.isSymLink())
            continue;
        privatefiles::makeDirectory(place.filePath());
        const QFileInfoList files =
            QDir(place.filePath()).entryInfoList(part.files, QDir::Files | QDir::Hidden);
        for (const QFileInfo &file : files)
            privatefiles::tighten(file.filePath());
    }
    return true;
}
