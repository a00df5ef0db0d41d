#pragma once

#include "entrypanel.h"

/// The numeric keypad over a field. Its keys are named "key_0" to "key_9", "key_point", "key_sign",
/// "key_back", "key_clear", "key_left", "key_right", "key_ok" and "key_cancel".
///
/// The first digit replaces the old value; the sign key turns the sign of what stands there.
class Keypad : public EntryPanel {
    Q_OBJECT
public:
    /// Opens the keypad for `field` and closes a panel that was open for another one.
    static Keypad *open(QLineEdit *field);
    /// The keypad on screen; null when none is.
    static Keypad *current();

protected:
    bool isAcceptable(const QString &text) const override;

private:
    explicit Keypad(QLineEdit *field);

    void typePoint();
    void toggleSign();
};
