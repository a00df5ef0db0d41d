#include "jobdirectory.h"

#include "files/privatefiles.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <algorithm>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;
constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
constexpr qint64 kBlock = 1 << 16;

QString wordsOf(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

JobDirectory::Kind kindOf(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return JobDirectory::File;
    case S_IFLNK:
        return JobDirectory::Link;
    case S_IFDIR:
        return JobDirectory::Folder;
    case S_IFCHR:
    case S_IFBLK:
        return JobDirectory::Device;
    case S_IFIFO:
        return JobDirectory::Pipe;
    case S_IFSOCK:
        return JobDirectory::Socket;
    default:
        return JobDirectory::Unknown;
    }
}

JobDirectory::Entry entryOf(const QString &fileName, const struct stat &state)
{
    constexpr qint64 kThousand = 1000;
    JobDirectory::Entry entry;
    entry.fileName = fileName;
    entry.kind = kindOf(state.st_mode);
    entry.changed = QDateTime::fromMSecsSinceEpoch(
        state.st_mtim.tv_sec * kThousand + state.st_mtim.tv_nsec / (kThousand * kThousand));
    entry.bytes = entry.kind == JobDirectory::File ? state.st_size : 0;
    return entry;
}

/// How write() names a file that is not yet in its place: ".A.JBR.0123456789abcdef.part".
const QString kPart = QStringLiteral(".part");

QString partNameOf(const QString &fileName)
{
    return QStringLiteral(".%1.%2").arg(fileName).arg(QRandomGenerator::system()->generate64(), 16,
                                                      16, QLatin1Char('0'))
        + kPart;
}

bool isPartName(const QString &fileName)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A\\..+\\.JBR\\.[0-9a-f]{16}\\.part\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    return pattern.match(fileName).hasMatch();
}

/// Writes all of it, onto the disk; 0, or the number of what went wrong.
int writeAll(int file, const QByteArray &bytes)
{
    const char *next = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    while (left > 0) {
        const ssize_t written = ::write(file, next, left);
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0) {
            next += written;
            left -= static_cast<size_t>(written);
        }
    }
    return ::fsync(file) == 0 ? 0 : errno;
}

} // namespace

JobDirectory::JobDirectory(const QString &parent, const QString &folder, bool make)
{
    if (make && !QFileInfo(parent).isSymLink())
        privatefiles::makeDirectory(parent);
    const int above = openFolder(AT_FDCWD, QFile::encodeName(parent).constData());
    if (above < 0)
        return;
    const QByteArray name = QFile::encodeName(folder);
    if (make)
        ::mkdirat(above, name.constData(), kFolderMode);
    m_folder = openFolder(above, name.constData());
    ::close(above);
    if (make && m_folder >= 0)
        ::fchmod(m_folder, kFolderMode);
}

JobDirectory::~JobDirectory()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

int JobDirectory::openFolder(int parent, const char *name)
{
    const int folder = ::openat(parent, name, kFolderFlags);
    if (folder >= 0)
        return folder;
    const int number = errno;
    struct stat state = {};
    const bool isLink =
        ::fstatat(parent, name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(state.st_mode);
    m_isMissing = number == ENOENT;
    m_fault = tr("目录 %1 不能使用：%2")
                  .arg(QFile::decodeName(name), isLink ? nameOf(Link) : wordsOf(number));
    return -1;
}

QVector<JobDirectory::Entry> JobDirectory::entries(const QString &suffix) const
{
    QVector<Entry> found;
    const int copy = m_folder < 0 ? -1 : ::openat(m_folder, ".", kFolderFlags);
    DIR *folder = copy < 0 ? nullptr : ::fdopendir(copy);
    if (!folder) {
        if (copy >= 0)
            ::close(copy);
        return found;
    }
    while (const dirent *item = ::readdir(folder)) {
        const QString fileName = QFile::decodeName(item->d_name);
        // A name that is no text in this system's encoding could not be said back.
        if (!fileName.endsWith(suffix) || QFile::encodeName(fileName) != item->d_name)
            continue;
        struct stat state = {};
        if (::fstatat(m_folder, item->d_name, &state, AT_SYMLINK_NOFOLLOW) == 0)
            found.append(entryOf(fileName, state));
    }
    ::closedir(folder);
    std::sort(found.begin(), found.end(),
              [](const Entry &one, const Entry &other) { return one.fileName < other.fileName; });
    return found;
}

JobDirectory::Entry JobDirectory::entry(const QString &fileName) const
{
    struct stat state = {};
    const QByteArray name = QFile::encodeName(fileName);
    if (m_folder < 0 || ::fstatat(m_folder, name.constData(), &state, AT_SYMLINK_NOFOLLOW) != 0)
        return {};
    return entryOf(fileName, state);
}

// The kind is asked twice: before, because opening a pipe or a device can do something, and of what
// was opened, because it may be another by then.
QByteArray JobDirectory::read(const QString &fileName, qint64 most, QString *error) const
{
    if (m_folder < 0) {
        *error = m_fault;
        return {};
    }
    const QByteArray name = QFile::encodeName(fileName);
    struct stat state = {};
    if (::fstatat(m_folder, name.constData(), &state, AT_SYMLINK_NOFOLLOW) != 0) {
        *error = wordsOf(errno);
        return {};
    }
    int file = -1;
    if (S_ISREG(state.st_mode)) {
        file = ::openat(m_folder, name.constData(),
                        O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (file < 0 || ::fstat(file, &state) != 0)
            *error = wordsOf(errno);
    }
    if (error->isEmpty() && !S_ISREG(state.st_mode))
        *error = tr("不是文件：%1").arg(nameOf(kindOf(state.st_mode)));
    else if (error->isEmpty() && state.st_size > most)
        *error = tr("文件太大");
    QByteArray bytes;
    bytes.reserve(static_cast<int>(std::min<qint64>(state.st_size, most) + kBlock));
    std::vector<char> block(kBlock);
    while (error->isEmpty()) {
        const ssize_t count = ::read(file, block.data(), block.size());
        if (count == 0)
            break;
        if (count > 0)
            bytes.append(block.data(), static_cast<int>(count));
        else if (errno != EINTR)
            *error = wordsOf(errno);
        if (error->isEmpty() && bytes.size() > most)
            *error = tr("文件太大");
    }
    if (file >= 0)
        ::close(file);
    return error->isEmpty() ? bytes : QByteArray();
}

QString JobDirectory::write(const QString &fileName, const QByteArray &bytes)
{
    if (m_folder < 0)
        return m_fault;
    const Entry old = entry(fileName);
    if (old.kind != File)
        return tr("同名的%1已存在").arg(nameOf(old.kind));
    const QByteArray name = QFile::encodeName(fileName);
    const QByteArray part = QFile::encodeName(partNameOf(fileName));
    const int file =
        ::openat(m_folder, part.constData(),
                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY, kFileMode);
    if (file < 0)
        return wordsOf(errno);
    int number = writeAll(file, bytes);
    if (::close(file) != 0 && number == 0)
        number = errno;
    if (number == 0 && ::renameat(m_folder, part.constData(), m_folder, name.constData()) != 0)
        number = errno;
    if (number != 0) {
        ::unlinkat(m_folder, part.constData(), 0);
        return wordsOf(number);
    }
    return ::fsync(m_folder) == 0 ? QString() : wordsOf(errno);
}

QString JobDirectory::remove(const QString &fileName)
{
    if (m_folder < 0)
        return m_isMissing ? QString() : m_fault;
    const Entry old = entry(fileName);
    if (old.kind != File && old.kind != Link)
        return tr("不是文件：%1").arg(nameOf(old.kind));
    const QByteArray name = QFile::encodeName(fileName);
    if (::unlinkat(m_folder, name.constData(), 0) != 0 && errno != ENOENT)
        return wordsOf(errno);
    ::fsync(m_folder);
    return {};
}

void JobDirectory::clearLeftOvers()
{
    const QVector<Entry> parts = entries(kPart);
    for (const Entry &part : parts) {
        if (part.kind == File && isPartName(part.fileName))
            ::unlinkat(m_folder, QFile::encodeName(part.fileName).constData(), 0);
    }
}

QString JobDirectory::nameOf(Kind kind)
{
    switch (kind) {
    case File:
        return tr("文件");
    case Link:
        return tr("链接");
    case Folder:
        return tr("文件夹");
    case Device:
        return tr("设备");
    case Pipe:
        return tr("管道");
    case Socket:
        return tr("套接字");
    case Unknown:
        break;
    }
    return tr("未知类型");
}
