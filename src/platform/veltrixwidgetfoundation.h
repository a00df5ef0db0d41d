#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

class EventPage;
class IdleLock;
class JobPage;
class KeyColumn;
class LoginPage;
class StatusBar;
class TitleBar;
class UserPage;

/// The main window, 800 x 600: title bar, content area of 714 x 504, key column, status bar. The
/// content area shows the process pages, the jobs, the journal, or the users; the lock screen
/// covers it all.
class VeltrixWidgetFoundation : public QWidget {
    Q_OBJECT
public:
    /// What the content area shows.
    enum Area { Process, Jobs, Events, Users };
    Q_ENUM(Area)
    /// App::mainPage_ while an area is shown; the process pages ask for theirs before they poll.
    enum MainPage { ProcessPages = 2, JournalPage = 8, UsersPage = 9, JobsPage = 10 };

    explicit VeltrixWidgetFoundation(QWidget *parent = nullptr);
    ~VeltrixWidgetFoundation() override;

    /// The application's one main window; made on the first call.
    static VeltrixWidgetFoundation *getGlobalMainWindow();

    /// Puts a page host into the content area, at 714 x 504; hidden hosts stay hidden.
    void addContent(QWidget *widget);
    /// Shows this one of the page hosts and hides the others; while another area is shown, on the
    /// return from it.
    void showContent(QWidget *widget);
    /// The controller runs inside this program: marked on screen at all times.
    void setEmbeddedController(bool embedded);
    StatusBar *statusBar() const { return m_statusBar; }
    EventPage *eventPage() const { return m_events; }
    JobPage *jobPage() const { return m_jobs; }
    IdleLock *idleLock() const { return m_idleLock; }
    Area area() const { return m_area; }

public slots:
    /// Shows the title of a page: group 8 process pages, group 1 hosted pages; `third` is always 0.
    void showWidgetTitle(int group, int title, int third);
    void showArea(Area area);
    /// Shows the job list of the robot that is worked with. The kind of window that the asking page
    /// names makes no difference: there is one list.
    void showJobs(int windType);

signals:
    void signal_clickUserBtn();
    /// Another robot, another language, or a user of a lower role than the one before: the process
    /// pages go back to their menu first. Emitted before the change.
    void aboutToChangeRobot(int robot);
    void aboutToChangeLanguage();
    void aboutToLowerRole();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void refreshTitle();
    void leaveProcessPages();
    void lock();
    void userChanged();

    TitleBar *m_titleBar;
    KeyColumn *m_keys;
    StatusBar *m_statusBar;
    JobPage *m_jobs;
    EventPage *m_events;
    UserPage *m_users;
    LoginPage *m_login;
    IdleLock *m_idleLock;
    QVector<QPointer<QWidget>> m_contents;
    QVector<QPointer<QWidget>>
        m_shownContents; ///< what to show again on return to the process pages
    Area m_area = Process;
    int m_titleGroup = 8;
    int m_titleId = 0;
    int m_lastRole; ///< of the user who was logged in last
};
