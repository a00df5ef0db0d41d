#pragma once

#include <QLineEdit>

/// A numeric field. A touch opens the numeric keypad over the page; a keyboard types into it as
/// into any line edit.
///
/// editingFinished() is emitted on the same occasions as finishType(), with every version of Qt,
/// and as in any line edit not for a text that the validator refuses.
///
/// The keypad's title is made of the properties "fieldName" and "fieldUnit" (texts), else of the
/// accessible name.
class DigitalLineEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit DigitalLineEdit(QWidget *parent = nullptr);
    explicit DigitalLineEdit(const QString &text, QWidget *parent = nullptr);

signals:
    /// The entry is confirmed (keypad OK, Enter), or an edited field was left. Not emitted when an
    /// untouched field merely loses the focus, and once for each entry.
    void finishType();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void finish();
    void openKeypad();

    bool m_touched = false; ///< pressed, not released yet
    bool m_edited = false; ///< typed into, not confirmed yet
    bool m_confirmed = false; ///< confirmed, and neither typed into nor set since then
};
