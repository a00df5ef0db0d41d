#pragma once

#include <QString>
#include <functional>

class Pendant;
class QWidget;

/// Drives the pages as an operator would, by touches and keypad keys, and leaves pictures: the main
/// job of the pendant, seen without a screen.
class Tour {
public:
    Tour(Pendant &pendant, QString directory);

    /// Walks through everything. False, with the step named on the error output, when a widget
    /// cannot be touched or an answer does not come.
    bool run();

private:
    bool visitPackages(const QString &language);
    bool visitHostedPages();
    bool visitApplicationPages();
    bool setUpPolishing();
    bool walkPalletChain();

    /// Touches the visible, enabled widget of that name at its middle. Something that lies over it
    /// makes the step fail.
    bool touch(const QString &objectName);
    /// Touches a field and enters `keys` on the keypad that it opens: digits, '.' and '-'.
    bool enter(const QString &field, const QString &keys);
    bool chooseRow(const QString &comboBox, int row);
    bool shows(const QString &field, const QString &text);
    bool waitFor(const QString &what, const std::function<bool()> &condition);
    void settle();
    void picture(const QString &name, QWidget *widget = nullptr);
    bool fail(const QString &what);

    Pendant &m_pendant;
    QString m_directory;
    int m_pictures = 0;
};
