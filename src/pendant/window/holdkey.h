#pragma once

#include <QPushButton>

/// A key that is held or it is not. It lets go on anything that could hide a release: leaving the
/// key, losing the window, hiding, a prompt, the lock screen, a change of the link.
class HoldKey : public QPushButton {
    Q_OBJECT
public:
    explicit HoldKey(QWidget *parent = nullptr);

    bool isHeld() const { return m_held; }
    /// While the application takes no operator actions it can be let go, but not taken hold of.
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
