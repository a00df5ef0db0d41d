#pragma once

#include <QWidget>

class QButtonGroup;

/// One number of 1 to 9, chosen by touching it: nine buttons in a row. The chosen one is marked.
/// The buttons are named "<object name>_1" to "<object name>_9".
class TargetChooser : public QWidget {
    Q_OBJECT
public:
    explicit TargetChooser(const QString &name, QWidget *parent = nullptr);

    int value() const;
    /// Values outside 1 to 9 choose 1.
    void setValue(int value);

private:
    QButtonGroup *m_buttons;
};
