#pragma once

#include <QPushButton>
#include <QWidget>

class LinkLamp;
class QLabel;
class SimulatedMark;

/// The enabling key: the robot may move by hand only while it is held. It lets go on anything that
/// could hide a release: leaving the key, losing the window, hiding, a prompt, the lock screen.
class DeadmanKey : public QPushButton {
    Q_OBJECT
public:
    explicit DeadmanKey(QWidget *parent = nullptr);

    bool isHeld() const { return m_held; }
    void setHeld(bool held);

signals:
    void heldChanged(bool held);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    bool m_held = false;
};

/// The keys beside the content: link lamp, simulated mark, servo, enabling key (also F12 of a
/// keyboard, held), mode selector, robots 1 to 4. They show what the controller reports, not what
/// was last asked for.
class KeyColumn : public QWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 86;

    explicit KeyColumn(QWidget *parent = nullptr);

    void setEmbeddedController(bool embedded);
    void releaseDeadman() { m_deadman->setHeld(false); }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void aboutToChangeRobot(int robot);
    void deadmanHeld(bool held);

protected:
    void changeEvent(QEvent *event) override;

private:
    void refresh();
    void selectRobot(int robot);

    LinkLamp *m_lamp;
    SimulatedMark *m_simulated;
    QPushButton *m_servo;
    DeadmanKey *m_deadman;
    QLabel *m_modeCaption;
    QLabel *m_robotCaption;
    QPushButton *m_modes[3];
    QPushButton *m_robots[4];
};
