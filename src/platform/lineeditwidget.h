#pragma once

#include <QLineEdit>

/// A free-text field. A touch opens the on-screen letter keyboard; a keyboard types into it as into
/// any line edit. The properties of DigitalLineEdit give the keyboard its title.
class LineEditWidget : public QLineEdit {
    Q_OBJECT
public:
    explicit LineEditWidget(QWidget *parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_touched = false; ///< pressed, not released yet
};
