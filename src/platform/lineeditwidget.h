#pragma once

#include <QLineEdit>

/// A free-text field. A touch opens the on-screen letter keyboard.
class LineEditWidget : public QLineEdit {
    Q_OBJECT
public:
    explicit LineEditWidget(QWidget *parent = nullptr);
};
