#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class Pendant;
class QComboBox;
class QLineEdit;
class QPoint;
class QWidget;

/// The hand and the eye of a tour: touches widgets as a finger would, enters on the keypad, waits
/// for what must come and takes pictures. Each step says on the error output why it cannot be done
/// and returns false.
class Operator {
public:
    /// Pictures are numbered in `directory`, which must exist.
    Operator(Pendant &pendant, QString directory);

    Pendant &pendant() const { return m_pendant; }
    int pictures() const { return m_pictures; }

    /// Touches the visible, enabled widget of that name at its middle. A message that lies over it
    /// is touched away before; anything else that does makes the step fail.
    bool touch(const QString &objectName);
    /// Touches a place of a widget that has no name of its own there, such as a row of a list.
    bool touchAt(QWidget *widget, const QPoint &place);
    /// One after the other, up to the first that cannot be touched.
    bool touchAll(const QStringList &objectNames);
    /// Puts a finger on the widget and keeps it there until letGo(); a key that is held. Other
    /// widgets can be touched meanwhile.
    bool press(const QString &objectName);
    bool letGo(const QString &objectName);
    /// Touches a field and writes on the letter keyboard that it opens: small and capital letters,
    /// digits, '-', '_' and '.'.
    bool write(const QString &field, const QString &text);
    /// Touches a field and enters `keys` on the keypad that it opens: digits, '.' and '-'.
    bool enter(const QString &field, const QString &keys);
    bool chooseRow(const QString &comboBox, int row);
    /// The same for a cell of a table, which has no name of its own; `name` is what messages call
    /// it.
    bool enter(QLineEdit *field, const QString &keys, const QString &name);
    bool chooseRow(QComboBox *box, int row, const QString &name);
    /// Waits until the field, label or combo box reads `text`.
    bool shows(const QString &widget, const QString &text);
    /// `what` completes the sentence "waited in vain for".
    bool waitFor(const QString &what, const std::function<bool()> &condition);
    /// Waits until the arm has come to rest and the open page, which must be one that polls the
    /// position, shows where: an answer may have been under way while the arm still moved.
    bool waitForStandstill();
    /// Lets answers that are under way come in, as they would before the next touch.
    void settle();
    /// Takes a picture of the main window, or of `widget`.
    void picture(const QString &name, QWidget *widget = nullptr);
    bool fail(const QString &what);

private:
    QWidget *find(const QString &objectName);
    QWidget *reach(QWidget *target, const QString &name);
    bool tap(QWidget *hit);
    bool enterOnKeypad(const QString &keys);

    Pendant &m_pendant;
    QString m_directory;
    int m_pictures = 0;
};
