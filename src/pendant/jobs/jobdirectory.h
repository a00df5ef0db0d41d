#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVector>

/// One folder of job files, reached without following a link: neither the folder's name nor that of
/// its parent nor that of a file may be one. What is no regular file is told and never opened, so
/// that a pipe of a job's name stops nobody.
///
/// The folder is looked up anew by each object; use one for one piece of work. Reasons are in the
/// language of the screen.
class JobDirectory {
    Q_DECLARE_TR_FUNCTIONS(JobDirectory)
public:
    enum Kind { File, Link, Folder, Device, Pipe, Socket, Unknown };
    struct Entry {
        QString fileName;
        QDateTime changed;
        qint64 bytes = 0; ///< as the file system says; 0 for what is no file
        Kind kind = File;
    };

    /// `parent` is the directory of all jobs, `folder` the name of the one within. They are made
    /// (0700) when `make` is set.
    JobDirectory(const QString &parent, const QString &folder, bool make = false);
    ~JobDirectory();
    JobDirectory(const JobDirectory &) = delete;
    JobDirectory &operator=(const JobDirectory &) = delete;

    /// Why the folder cannot be used; empty when it can.
    QString fault() const { return m_fault; }
    /// There is no such folder, which is no more than that nothing was stored yet.
    bool isMissing() const { return m_isMissing; }

    /// What stands under names with that end, by name.
    QVector<Entry> entries(const QString &suffix) const;
    /// What stands under that name; nothing of the kind File with an invalid time when there is
    /// none.
    Entry entry(const QString &fileName) const;

    /// The content of a regular file of at most `most` bytes, measured while it is read. Nothing
    /// with `error` filled else.
    QByteArray read(const QString &fileName, qint64 most, QString *error) const;
    /// Writes a file of mode 0600 beside the old one, onto the disk, and puts it into its place: a
    /// crash leaves the old one or the new one. Empty when it stands; else why not. What is no
    /// regular file is not replaced.
    QString write(const QString &fileName, const QByteArray &bytes);
    /// Removes a regular file, or a link (itself, never what it leads to). Empty when it is gone.
    QString remove(const QString &fileName);
    /// Removes what a write() that was broken off has left.
    void clearLeftOvers();

    /// "链接", "文件夹", ... for what is no file.
    static QString nameOf(Kind kind);

private:
    int openFolder(int parent, const char *name);

    int m_folder = -1;
    bool m_isMissing = false;
    QString m_fault;
};
