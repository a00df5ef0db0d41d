#pragma once

#include "entrypanel.h"

/// The letter keyboard over a free-text field. Its keys are named after the character that they
/// type unshifted: "key_a" to "key_z", "key_0" to "key_9", "key_minus", "key_underscore",
/// "key_point", "key_space"; and "key_shift", "key_back", "key_clear", "key_left", "key_right",
/// "key_ok", "key_cancel". A field that hides its text is hidden in the preview too.
class LetterKeyboard : public EntryPanel {
    Q_OBJECT
public:
    /// Opens the keyboard for `field` and closes a panel that was open for another one.
    static LetterKeyboard *open(QLineEdit *field);
    /// The keyboard on screen; null when none is.
    static LetterKeyboard *current();

private:
    explicit LetterKeyboard(QLineEdit *field);

    void addCharacter(const QString &name, QChar plain, QChar shifted, int row, int column);
    void setShifted(bool shifted);

    struct Character {
        QAbstractButton *key;
        QChar plain;
        QChar shifted;
    };
    QList<Character> m_characters;
    bool m_shifted = false;
};
