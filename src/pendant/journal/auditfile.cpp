#include "auditfile.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kPrivate = S_IRUSR | S_IWUSR;

/// What became of names is on the disk only when their directory is.
void syncDirectoryOf(const QByteArray &path)
{
    const QByteArray directory = path.left(path.lastIndexOf('/') + 1);
    const int opened = ::open(directory.isEmpty() ? "." : directory.constData(),
                              O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return;
    ::fsync(opened);
    ::close(opened);
}

bool endsWithinLine(int file, off_t size)
{
    char last = '\n';
    return size > 0 && (::pread(file, &last, 1, size - 1) != 1 || last != '\n');
}

} // namespace

void AuditFile::setPath(const QString &path, const Limits &limits)
{
    close();
    m_path = QFile::encodeName(path);
    m_limits = limits;
}

void AuditFile::close()
{
    if (m_file >= 0)
        ::close(m_file);
    m_file = -1;
}

QByteArray AuditFile::numbered(int number) const
{
    return m_path + '.' + QByteArray::number(number);
}

/// Whether what is open still is the file of that name: one that was moved or deleted by somebody
/// else would take the lines and nobody would find them.
bool AuditFile::isCurrent() const
{
    struct stat opened = {};
    struct stat named = {};
    return m_file >= 0 && ::fstat(m_file, &opened) == 0 && ::lstat(m_path.constData(), &named) == 0
        && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

/// False with errno set. What was open stays so then.
bool AuditFile::open()
{
    const int file =
        ::open(m_path.constData(),
               O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kPrivate);
    if (file < 0)
        return false;
    struct stat status = {};
    const bool isRead = ::fstat(file, &status) == 0;
    if (isRead && !S_ISREG(status.st_mode))
        errno = EINVAL;
    if (!isRead || !S_ISREG(status.st_mode) || ::fchmod(file, kPrivate) != 0) {
        const int reason = errno;
        ::close(file);
        errno = reason;
        return false;
    }
    close();
    m_file = file;
    m_isTorn = endsWithinLine(file, status.st_size);
    syncDirectoryOf(m_path);
    return true;
}

/// Moves the full file away. When that cannot be done it grows on, so that no line is lost for it.
bool AuditFile::makeRoom()
{
    // A gap among the numbers, left by a move that was cut off, takes the files before it.
    int last = 1;
    while (last < m_limits.files - 1 && ::access(numbered(last).constData(), F_OK) == 0)
        ++last;
    for (int number = last; number > 1; --number) {
        if (::rename(numbered(number - 1).constData(), numbered(number).constData()) != 0)
            return false;
    }
    if (::rename(m_path.constData(), numbered(1).constData()) != 0)
        return false;
    if (open())
        return true;
    ::rename(numbered(1).constData(), m_path.constData());
    return false;
}

bool AuditFile::write(const QByteArray &bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(m_file, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    while (::fdatasync(m_file) != 0) {
        if (errno != EINTR)
            return errno == EINVAL; // a file system that knows no such thing
    }
    return true;
}

QString AuditFile::append(const QByteArray &line)
{
    const auto reason = [] { return QString::fromLocal8Bit(std::strerror(errno)); };
    if (m_path.isEmpty() || (!isCurrent() && !open()))
        return reason();
    struct stat status = {};
    if (::fstat(m_file, &status) != 0)
        return reason();
    if (status.st_size > 0 && status.st_size + line.size() + 1 > m_limits.bytes && makeRoom())
        status.st_size = 0;

    if (write((m_isTorn ? "\n" : "") + line + '\n')) {
        m_isTorn = false;
        return {};
    }
    const QString why = reason();
    // No half line stays, or the next one would begin within it.
    if (::ftruncate(m_file, status.st_size) != 0)
        m_isTorn = true;
    return why;
}
