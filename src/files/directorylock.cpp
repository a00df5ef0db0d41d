#include "files/directorylock.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kLongestEntry = 512; // bytes

int openLockFile(const QByteArray &path)
{
    constexpr int common = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | common, 0600);
    if (file >= 0)
        return file;
    // What nobody can write any more can still be locked.
    const int error = errno;
    const int readable = ::open(path.constData(), O_RDONLY | common);
    errno = error;
    return readable;
}

bool isRegular(int file)
{
    struct stat state = {};
    return ::fstat(file, &state) == 0 && S_ISREG(state.st_mode);
}

/// Three lines: process, program, host.
void writeHolder(int file)
{
    const QByteArray entry = QByteArray::number(QCoreApplication::applicationPid()) + '\n'
        + QCoreApplication::applicationName().toUtf8() + '\n' + QSysInfo::machineHostName().toUtf8()
        + '\n';
    // Without room on the disk the lock holds all the same; it only does not say whose it is.
    if (::ftruncate(file, 0) == 0) {
        const ssize_t written = ::pwrite(file, entry.constData(), entry.size(), 0);
        static_cast<void>(written);
    }
}

/// Names come from a file: nothing in them may break a line or reach a terminal.
QString cleaned(const QByteArray &bytes)
{
    const QString whole = QString::fromUtf8(bytes);
    QString text;
    std::copy_if(whole.begin(), whole.end(), std::back_inserter(text),
                 [](QChar c) { return c.isPrint(); });
    return text;
}

DirectoryLock::Holder readHolder(int file)
{
    char bytes[kLongestEntry];
    const ssize_t size = ::pread(file, bytes, sizeof bytes, 0);
    if (size <= 0)
        return {};
    const QByteArrayList lines = QByteArray(bytes, static_cast<int>(size)).split('\n');
    DirectoryLock::Holder holder;
    holder.process = lines.value(0).toLongLong();
    holder.program = cleaned(lines.value(1));
    holder.host = cleaned(lines.value(2));
    return holder;
}

} // namespace

DirectoryLock::~DirectoryLock()
{
    release();
}

DirectoryLock::State DirectoryLock::take(const QString &directory, const QString &name)
{
    release();
    const QString path = QDir(directory).filePath(name + QStringLiteral(".lock"));
    m_file = openLockFile(QFile::encodeName(path));
    int error = m_file < 0 ? errno : 0;
    if (m_file >= 0 && !isRegular(m_file))
        error = EINVAL;
    else if (m_file >= 0 && ::flock(m_file, LOCK_EX | LOCK_NB) != 0)
        error = errno;
    if (error == 0) {
        ::fchmod(m_file, 0600);
        writeHolder(m_file);
        return m_state = State::Held;
    }

    const Holder holder = error == EWOULDBLOCK ? readHolder(m_file) : Holder();
    release();
    m_holder = holder;
    m_reason = path + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(error));
    return m_state = error == EWOULDBLOCK ? State::InUse : State::Unavailable;
}

void DirectoryLock::release()
{
    if (m_file >= 0)
        ::close(m_file);
    m_file = -1;
    m_state = State::Free;
    m_holder = {};
    m_reason.clear();
}
