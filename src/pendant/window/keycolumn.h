#pragma once

#include "holdkey.h"

#include <QWidget>

class JogPad;
class LinkLamp;
class QLabel;
class SimulatedMark;

/// The enabling key: the robot may move by hand only while it is held.
class DeadmanKey : public HoldKey {
    Q_OBJECT
public:
    explicit DeadmanKey(QWidget *parent = nullptr);
    ~DeadmanKey() override; ///< a key that goes while it is held lets go
};

/// The keys beside the content: link lamp, simulated mark, servo, enabling key (also F12 of a
/// keyboard, held), and below them either mode selector and robots 1 to 4 or the jog keys. They
/// show what the controller reports, not what was last asked for. The simulated mark offers the
/// kinematic types.
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
    QWidget *makeSelectors();
    void showJogPad(bool shown);
    void offerTypes();
    void setType(int type);

    LinkLamp *m_lamp;
    SimulatedMark *m_simulated;
    QPushButton *m_servo;
    DeadmanKey *m_deadman;
    QPushButton *m_jogToggle;
    JogPad *m_jogPad;
    QWidget *m_selectors = nullptr; ///< mode and robot
    QLabel *m_modeCaption;
    QLabel *m_robotCaption;
    QPushButton *m_modes[3];
    QPushButton *m_robots[4];
};
