#pragma once

#include <QLineEdit>

/// A numeric field. A touch opens the numeric keypad over the page; a keyboard types into it as
/// into any line edit.
class DigitalLineEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit DigitalLineEdit(QWidget *parent = nullptr);

signals:
    /// The entry is confirmed (keypad OK, Enter), or an edited field was left. Not emitted when an
    /// untouched field merely loses the focus.
    void finishType();
};
