#pragma once

#include <QWidget>

class LineEditWidget;
class LinkLamp;
class QComboBox;
class QLabel;
class QPushButton;
class QTimer;
class SimulatedMark;

/// The lock screen: laid over the whole main window, it asks who is there, or has the
/// administrator's password set where there is no account yet. While it is up no input reaches the
/// window below.
class LoginPage : public QWidget {
    Q_OBJECT
public:
    explicit LoginPage(QWidget *window);
    ~LoginPage() override;

    void setEmbeddedController(bool embedded);

public slots:
    /// Shows or hides itself as UserAccounts is locked or not.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void retranslate();
    void stayOnTop();
    void refreshUsers();
    void refreshWait();
    QString waitText(int seconds) const;
    void submit();
    void setFirstPassword();
    void logIn();

    QLabel *m_heading;
    QLabel *m_userLabel;
    QComboBox *m_user;
    QLabel *m_passwordLabel;
    LineEditWidget *m_password;
    QLabel *m_repeatLabel;
    LineEditWidget *m_repeat;
    QLabel *m_message;
    QPushButton *m_enter;
    LinkLamp *m_lamp;
    SimulatedMark *m_simulated;
    QTimer *m_wait;
    QString m_lastUser;
    bool m_wrong = false; ///< the password entered last for the chosen user
};
