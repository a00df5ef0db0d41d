#pragma once

#include <QWidget>

class LineEditWidget;
class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// Accounts and the idle lock. The administrator manages all accounts; everybody changes their own
/// password here, with the old one.
class UserPage : public QWidget {
    Q_OBJECT
public:
    explicit UserPage(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void refresh();
    void refreshRights();
    void retranslate();
    void refillRoles();
    void refillIdle();
    QString selectedName() const;
    void selectionChanged();
    /// The password typed twice; null when the two differ, which is then said.
    QString newPassword();
    void report(bool good, const QString &success, const QString &error);
    void clearPasswords();
    void addUser();
    void changePassword();
    void changeRole();
    void removeUser();
    void askAgain(bool asking);

    QTableWidget *m_users;
    QLabel *m_nameLabel;
    LineEditWidget *m_name;
    QLabel *m_roleLabel;
    QComboBox *m_role;
    QLabel *m_oldPasswordLabel;
    LineEditWidget *m_oldPassword;
    QLabel *m_passwordLabel;
    LineEditWidget *m_password;
    QLabel *m_repeatLabel;
    LineEditWidget *m_repeat;
    QPushButton *m_add;
    QPushButton *m_changePassword;
    QPushButton *m_changeRole;
    QPushButton *m_remove;
    QLabel *m_idleLabel;
    QComboBox *m_idle;
    QLabel *m_message;
    QString m_asked; ///< the user whose deletion waits for the second press
};
