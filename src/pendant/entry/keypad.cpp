#include "keypad.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QValidator>

Keypad::Keypad(QLineEdit *field) : EntryPanel(field, 80)
{
    setObjectName(QStringLiteral("keypad"));
    const struct {
        int digit, row, column;
    } digits[] = {{7, 0, 0}, {8, 0, 1}, {9, 0, 2}, {4, 1, 0}, {5, 1, 1},
                  {6, 1, 2}, {1, 2, 0}, {2, 2, 1}, {3, 2, 2}, {0, 3, 1}};
    for (const auto &key : digits) {
        const QString digit = QString::number(key.digit);
        connect(addKey(digit, digit, key.row, key.column), &QAbstractButton::clicked, this,
                [this, digit] { type(digit); });
    }
    const auto add = [this](const char *name, const QString &label, int row, int column,
                            int columns, auto action) {
        connect(addKey(QLatin1String(name), label, row, column, columns), &QAbstractButton::clicked,
                this, action);
    };
    add("sign", QStringLiteral("±"), 3, 0, 1, [this] { toggleSign(); });
    add("point", QStringLiteral("."), 3, 2, 1, [this] { typePoint(); });
    add("back", QStringLiteral("⌫"), 0, 3, 1, [this] { backspace(); });
    add("clear", tr("清空"), 0, 4, 1, [this] { clearText(); });
    add("left", QStringLiteral("←"), 1, 3, 1, [this] { moveCursor(-1); });
    add("right", QStringLiteral("→"), 1, 4, 1, [this] { moveCursor(1); });
    add("cancel", tr("取消"), 2, 3, 2, [this] { cancel(); });
    add("ok", tr("确定"), 3, 3, 2, [this] { confirm(); });
    present();
}

Keypad *Keypad::open(QLineEdit *field)
{
    if (Keypad *keypad = current(); keypad && keypad->field() == field)
        return keypad;
    return new Keypad(field);
}

Keypad *Keypad::current()
{
    return qobject_cast<Keypad *>(EntryPanel::open());
}

void Keypad::typePoint()
{
    // A point without a digit before it gets its zero, so that the number is a whole one.
    const QString before = preview()->hasSelectedText()
        ? preview()->text().left(preview()->selectionStart())
        : preview()->text().left(preview()->cursorPosition());
    const bool bare = before.isEmpty() || before == QLatin1String("-");
    if (!preview()->hasSelectedText() && preview()->text().contains(QLatin1Char('.')))
        refuse(tr("已有小数点"));
    else
        type(bare ? QStringLiteral("0.") : QStringLiteral("."));
}

void Keypad::toggleSign()
{
    const bool replaces = isFresh();
    QString turned = preview()->text();
    int cursor = preview()->cursorPosition();
    if (turned.startsWith(QLatin1Char('-'))) {
        turned.remove(0, 1);
        --cursor;
    } else {
        turned.prepend(QLatin1Char('-'));
        ++cursor;
    }
    if (const QValidator *validator = field() ? field()->validator() : nullptr) {
        int position = 0;
        QString checked = turned;
        if (validator->validate(checked, position) == QValidator::Invalid) {
            refuse(tr("此处不能输入负号"));
            return;
        }
    }
    accept();
    preview()->setText(turned);
    preview()->setCursorPosition(qMax(0, cursor));
    // The next digit still replaces the old number, behind the sign.
    if (replaces) {
        const int start = turned.startsWith(QLatin1Char('-')) ? 1 : 0;
        preview()->setSelection(start, static_cast<int>(turned.size()) - start);
    }
}

bool Keypad::isAcceptable(const QString &text) const
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    return isNumber || text.isEmpty();
}
