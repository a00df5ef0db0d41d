#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;

/// The foot of the main window: who is logged in, whether the audit log is missing lines, what is
/// not kept, the language, the time.
class StatusBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 48;

    /// What of this run is kept when the pendant ends.
    enum class Keeps { Everything, NoLog, Nothing };

    explicit StatusBar(QWidget *parent = nullptr);

    /// Says so for the rest of the run when not everything is.
    void setKeeps(Keeps keeps);

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void refreshTime();
    void refreshAudit();
    void switchLanguage();

    QLabel *m_user;
    QLabel *m_audit;
    QLabel *m_notKept;
    QLabel *m_time;
    QPushButton *m_language;
    QTimer *m_clock;
    Keeps m_keeps = Keeps::Everything;
};
