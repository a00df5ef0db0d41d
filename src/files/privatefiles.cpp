#include "files/privatefiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kFileMode = 0600;
constexpr mode_t kDirectoryMode = 0700;
constexpr mode_t kRights = 07777;

/// A descriptor that closes itself.
class Descriptor {
public:
    Descriptor(const QString &path, int flags)
        : m_number(::open(QFile::encodeName(path).constData(),
                          flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kFileMode))
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Null when it is not open.
    const struct stat *state()
    {
        return isOpen() && ::fstat(m_number, &m_state) == 0 ? &m_state : nullptr;
    }

private:
    int m_number;
    struct stat m_state = {};
};

void setMode(Descriptor &file, const struct stat &state, mode_t mode)
{
    if (state.st_uid == ::geteuid() && (state.st_mode & kRights) != mode)
        ::fchmod(file.number(), mode);
}

/// What is no regular file is not even opened: opening a pipe or a device can do something.
bool isFile(const QString &path)
{
    struct stat state = {};
    return ::lstat(QFile::encodeName(path).constData(), &state) == 0 && S_ISREG(state.st_mode);
}

/// A directory that others may need, though it was named for ours.
bool isCommon(const QString &path, const struct stat &state)
{
    const QDir directory(path);
    return (state.st_mode & S_ISVTX) || directory == QDir::home() || directory.isRoot()
        || QFileInfo(directory.absolutePath()).dir().isRoot();
}

} // namespace

bool privatefiles::makeDirectory(const QString &path)
{
    const bool isNew = ::mkdir(QFile::encodeName(path).constData(), kDirectoryMode) == 0;
    if (!isNew && !QDir().mkpath(path))
        return false;
    Descriptor directory(path, O_RDONLY | O_DIRECTORY);
    if (const struct stat *state = directory.state()) {
        if (!isCommon(path, *state))
            setMode(directory, *state, kDirectoryMode);
    }
    return true;
}

bool privatefiles::makeFile(const QString &path)
{
    if (!isFile(path)) {
        const Descriptor made(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
        return made.isOpen();
    }
    tighten(path);
    return true;
}

void privatefiles::tighten(const QString &path)
{
    if (!isFile(path))
        return;
    Descriptor file(path, O_RDONLY | O_NOFOLLOW);
    const struct stat *state = file.state();
    if (state && S_ISREG(state->st_mode))
        setMode(file, *state, kFileMode);
}

bool privatefiles::sync(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    return file.isOpen() && ::fsync(file.number()) == 0;
}
