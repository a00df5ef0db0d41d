#include "letterkeyboard.h"

#include <QAbstractButton>
#include <QLineEdit>

LetterKeyboard::LetterKeyboard(QLineEdit *field) : EntryPanel(field, 64)
{
    setObjectName(QStringLiteral("letterKeyboard"));
    const struct {
        const char *plain, *shifted;
    } rows[] = {
        {"1234567890", "!@#$%^&*()"}, {"qwertyuiop", "QWERTYUIOP"}, {"asdfghjkl", "ASDFGHJKL"}};
    int row = 0;
    for (const auto &line : rows) {
        for (int column = 0; line.plain[column]; ++column) {
            const QChar plain = QLatin1Char(line.plain[column]);
            addCharacter(QString(plain), plain, QLatin1Char(line.shifted[column]), row, column);
        }
        ++row;
    }
    const QString last = QStringLiteral("zxcvbnm");
    for (int i = 0; i < last.size(); ++i)
        addCharacter(last.mid(i, 1), last.at(i), last.at(i).toUpper(), 3, i + 1);
    addCharacter(QStringLiteral("minus"), QLatin1Char('-'), QLatin1Char('/'), 3, 8);
    addCharacter(QStringLiteral("underscore"), QLatin1Char('_'), QLatin1Char(':'), 3, 9);
    addCharacter(QStringLiteral("point"), QLatin1Char('.'), QLatin1Char(','), 4, 0);

    const auto add = [this](const char *name, const QString &label, int line, int column,
                            int columns, auto action) {
        QAbstractButton *key = addKey(QLatin1String(name), label, line, column, columns);
        connect(key, &QAbstractButton::clicked, this, action);
        return key;
    };
    add("back", QStringLiteral("⌫"), 2, 9, 1, [this] { backspace(); });
    add("shift", QStringLiteral("⇧"), 3, 0, 1, [this](bool on) {
        setShifted(on);
    })->setCheckable(true);
    add("space", tr("空格"), 4, 1, 2, [this] { type(QStringLiteral(" ")); });
    add("left", QStringLiteral("←"), 4, 3, 1, [this] { moveCursor(-1); });
    add("right", QStringLiteral("→"), 4, 4, 1, [this] { moveCursor(1); });
    add("clear", tr("清空"), 4, 5, 1, [this] { clearText(); });
    add("cancel", tr("取消"), 4, 6, 2, [this] { cancel(); });
    add("ok", tr("确定"), 4, 8, 2, [this] { confirm(); });
    present();
}

LetterKeyboard *LetterKeyboard::open(QLineEdit *field)
{
    if (LetterKeyboard *keyboard = current(); keyboard && keyboard->field() == field)
        return keyboard;
    return new LetterKeyboard(field);
}

LetterKeyboard *LetterKeyboard::current()
{
    return qobject_cast<LetterKeyboard *>(EntryPanel::open());
}

void LetterKeyboard::addCharacter(const QString &name, QChar plain, QChar shifted, int row,
                                  int column)
{
    QAbstractButton *key = addKey(name, QString(plain), row, column);
    m_characters.append({key, plain, shifted});
    connect(key, &QAbstractButton::clicked, this,
            [this, plain, shifted] { type(QString(m_shifted ? shifted : plain)); });
}

void LetterKeyboard::setShifted(bool shifted)
{
    m_shifted = shifted;
    for (const Character &character : m_characters) {
        // A single & in a label would underline what follows it.
        QString label(shifted ? character.shifted : character.plain);
        label.replace(QLatin1Char('&'), QLatin1String("&&"));
        character.key->setText(label);
    }
}
