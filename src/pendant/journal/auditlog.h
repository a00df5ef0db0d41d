#pragma once

#include "app.h"
#include "auditfile.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariantList>

class QTimer;

/// Who did what at the pendant, for whoever has to find out later: log-ins and refusals, changes of
/// accounts, the lock, the link, stored and deleted jobs, mode and drives as they were asked for
/// and as the controller tells them.
///
/// It is kept in `audit.log` of the data directory (AuditFile says how safely), one line per event
/// of five columns, tab-separated: local time (ISO 8601 with milliseconds and UTC offset), kind,
/// user ("-": none), role, details as key=value. Kinds, roles and keys are the same in every
/// language. Whatever a name holds, it stays within its column (oneLine()) and within its quotes.
///
/// When a line cannot be written the status bar says so and the line is counted. Writing is tried
/// again every few seconds and with every event; once it works, a line of the kind "missing" says
/// how many are.
class AuditLog : public QObject {
    Q_OBJECT
public:
    static constexpr int kRetry = 5000; ///< milliseconds

    static AuditLog *getInstance();

    /// From now on events are kept below this directory, which must exist.
    void open(const QString &directory, const AuditFile::Limits &limits = {});
    /// Writes the last line and ends.
    void close();

    void record(const QString &kind, const QString &details = {});
    /// Lines that could not be written and are not told of in the file yet; 0: all is well.
    int missing() const { return m_missing; }
    /// Tries to write again; runs every kRetry milliseconds by itself while lines are missing.
    void retry();

signals:
    /// From or to 0, or one more.
    void missingChanged(int missing);

private:
    explicit AuditLog(QObject *parent = nullptr);

    void takeEvent(const QString &kind, const QVariantList &values);
    void takeAccountChange(const QString &operation, const QString &name, const QVariant &detail);
    void takeLinkChange(const QString &what, const QString &detail);
    void takeFileChange(int robot, const QString &operation, const QString &name);
    void takeStatus();
    void recordAs(const QString &user, AUTHORITY role, const QString &kind, const QString &details);
    bool tellMissing();
    void setMissing(int missing);

    /// What the controller has told of the robot that is worked with.
    struct Status {
        int robot = 0; ///< 0: nothing is known
        int servo = 0;
        int mode = 0;
    };

    AuditFile m_file;
    bool m_isOpen = false;
    int m_missing = 0;
    QDateTime m_missingSince;
    QTimer *m_retry;
    Status m_status;
};
