#pragma once

#include <QByteArray>
#include <QString>

/// A text file that lines are only ever added to. Each line is on the disk when append() returns:
/// written in one piece and then fdatasync()ed, so that it outlives the program and a power cut.
///
/// A file that would grow beyond its size becomes `<path>.1`, the one before `<path>.2`, and so on;
/// the oldest gives way once there are as many as allowed. Nobody but the owner reads or writes
/// them (mode 0600). One program writes a file at a time.
class AuditFile {
public:
    struct Limits {
        qint64 bytes = 1024 * 1024; ///< of one file, unless a single line is longer
        int files = 10; ///< the current one included; at least 2
    };

    AuditFile() = default;
    AuditFile(const AuditFile &) = delete;
    AuditFile &operator=(const AuditFile &) = delete;
    ~AuditFile() { close(); }

    /// The file is opened or made by the first append(), and again whenever it is gone.
    void setPath(const QString &path, const Limits &limits);
    void close();

    /// Adds the line, which must hold no line end. Empty when it stands; else why not, and then
    /// nothing of it is in the file.
    QString append(const QByteArray &line);

private:
    bool isCurrent() const;
    bool open();
    bool makeRoom();
    bool write(const QByteArray &bytes);
    QByteArray numbered(int number) const;

    QByteArray m_path; ///< as the file system spells it
    Limits m_limits;
    int m_file = -1;
    bool m_isTorn = false; ///< the last line of the file is not complete
};
