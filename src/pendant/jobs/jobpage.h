#pragma once

#include "jobstore.h"

#include <QWidget>

class JobViewer;
class QLabel;
class QPushButton;
class QStackedLayout;
class QTableWidget;

/// The jobs of the robot that is worked with: name, date, size and what the controller says of
/// each. They are opened, handed to the controller again and deleted here; a job that could not be
/// stored is stored again or dropped.
class JobPage : public QWidget {
    Q_OBJECT
public:
    explicit JobPage(QWidget *parent = nullptr);

    JobViewer *viewer() const { return m_viewer; }

public slots:
    /// Leaves the viewer.
    void showList();
    /// Reads the list anew; the selection stays with its job.
    void refresh();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// A job of the list.
    struct Row {
        JobStore::File file;
        bool isUnsaved = false;
        QString reason; ///< why it is not saved
    };

    QWidget *makeList();
    QPushButton *makeButton(const char *name, void (JobPage::*slot)());
    const Row *selected() const;
    QString stateOf(const Row &row, bool *isBad) const;
    void fill(int row);
    void showSelected();
    void retranslate();
    void changeRobot();
    void open();
    void send();
    void saveAgain();
    void remove();
    void drop();
    void turnSorting();
    void removeNow(const QString &name);
    /// Puts the question up; `act` is called when it is confirmed and the robot is still the same.
    void ask(const QString &what, void (JobPage::*act)(const QString &), const QString &name);
    void dropNow(const QString &name);

    QVector<Row> m_rows;
    int m_robot = 1; ///< whose list it is
    bool m_newestFirst = false;

    QStackedLayout *m_stack;
    QLabel *m_count;
    QLabel *m_empty;
    QTableWidget *m_table;
    QLabel *m_detail;
    QPushButton *m_sort;
    QPushButton *m_open;
    QPushButton *m_send;
    QPushButton *m_saveAgain;
    QPushButton *m_drop;
    QPushButton *m_remove;
    JobViewer *m_viewer;
};
