#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class Pendant;
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

    /// Touches the visible, enabled widget of that name at its middle. Something that lies over it
    /// makes the step fail.
    bool touch(const QString &objectName);
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
    /// Waits until the field reads `text`.
    bool shows(const QString &field, const QString &text);
    /// `what` completes the sentence "waited in vain for".
    bool waitFor(const QString &what, const std::function<bool()> &condition);
    /// Lets answers that are under way come in, as they would before the next touch.
    void settle();
    /// Takes a picture of the main window, or of `widget`.
    void picture(const QString &name, QWidget *widget = nullptr);
    bool fail(const QString &what);

private:
    QWidget *find(const QString &objectName);

    Pendant &m_pendant;
    QString m_directory;
    int m_pictures = 0;
};
