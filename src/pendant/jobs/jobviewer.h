#pragma once

#include "jobfault.h"

#include <QDateTime>
#include <QWidget>

class JobLineModel;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableView;

/// One job to read: its lines with their numbers, loops indented, and below them what the file has
/// for the selected line. A damaged file shows as the text that it is, with the damaged line marked
/// and the reason above; so does the line that the controller refuses.
class JobViewer : public QWidget {
    Q_OBJECT
public:
    explicit JobViewer(QWidget *parent = nullptr);

    /// Opens a job of a robot: the one in memory when it is not stored, else its file. Empty when
    /// it is open; else why it is not, and the viewer shows what it showed.
    QString open(int robot, const QString &name);
    /// Lets go of the job.
    void shut();
    bool isOpen() const { return m_robot != 0; }
    int robot() const { return m_robot; } ///< 0: none is open
    QString name() const { return m_name; }

signals:
    /// The operator wants to go back, or the job is gone.
    void left();

protected:
    void changeEvent(QEvent *event) override;

private:
    /// What tells one state of a job from the next.
    struct Stamp {
        bool exists = false;
        bool isUnsaved = false;
        QDateTime changed;
        qint64 bytes = 0;
        bool operator==(const Stamp &other) const
        {
            return exists == other.exists && isUnsaved == other.isUnsaved
                && changed == other.changed && bytes == other.bytes;
        }
    };

    Stamp stampOf(int robot, const QString &name) const;
    void take(const QByteArray &text);
    void follow();
    void mark();
    void showStored();
    void refreshHead();
    void retranslate();

    JobLineModel *m_model;
    QLabel *m_head;
    QLabel *m_facts;
    QLabel *m_warning;
    QTableView *m_lines;
    QPlainTextEdit *m_stored;
    QPushButton *m_back;

    int m_robot = 0;
    QString m_name;
    Stamp m_stamp;
    qint64 m_bytes = 0; ///< that were read
    JobFault m_damage; ///< of a text that does not read
    JobFault m_fault; ///< that is shown: the damage, or what the controller refuses
};
