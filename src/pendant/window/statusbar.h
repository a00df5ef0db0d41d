#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;

/// The foot of the main window: who is logged in, whether the audit log is missing lines, the
/// language, the time.
class StatusBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 48;

    explicit StatusBar(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void refreshTime();
    void refreshAudit();
    void switchLanguage();

    QLabel *m_user;
    QLabel *m_audit;
    QLabel *m_time;
    QPushButton *m_language;
    QTimer *m_clock;
};
