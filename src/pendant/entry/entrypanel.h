#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QGridLayout;
class QLabel;

/// What keypad and letter keyboard have in common: a panel laid over the field's window (a window
/// of its own where that one is too small for it), with the field's name, its old value, a preview
/// of the new one, and OK and cancel.
///
/// One panel is open at a time. It is made for one entry and deletes itself after it. The field
/// keeps the focus; a key of a real keyboard goes to the field as long as no key of the panel was
/// touched (the panel then steps aside), and into the preview afterwards. The panel cancels itself
/// when the field is disabled, made read-only, hidden or destroyed, or when a prompt takes the
/// operator's input away from the field.
class EntryPanel : public QWidget {
    Q_OBJECT
public:
    ~EntryPanel() override;

    /// The panel on screen; null when none is.
    static EntryPanel *open();

    /// Null once the field is being destroyed.
    QLineEdit *field() const { return qobject_cast<QLineEdit *>(m_field.data()); }
    /// The text of the entry so far.
    QString text() const;
    /// The line that says why a key or OK was refused; empty when nothing is refused.
    QString hint() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Takes the text over into the field and closes. A text that the field's validator does not
    /// accept is marked as such, and the panel stays open.
    void confirm();
    /// Closes; the field keeps its old text.
    void cancel();

protected:
    /// `keyWidth` is the width of a key that spans one column, in pixels.
    EntryPanel(QLineEdit *field, int keyWidth);

    /// Lays the panel over the window. Called at the end of the derived constructor.
    void present();

    /// A key 64 pixels high, named `key_<name>`, that leaves the focus alone.
    QAbstractButton *addKey(const QString &name, const QString &label, int row, int column,
                            int columns = 1);
    QGridLayout *keys() const { return m_keys; }
    QLineEdit *preview() const { return m_preview; }

    /// True until the first key: the old value is shown and the next character replaces it.
    bool isFresh() const;
    /// Puts `typed` in the place of the selection or at the cursor; refused when the field's
    /// validator or length forbids it.
    void type(const QString &typed);
    void backspace();
    void moveCursor(int steps);
    void clearText();
    void refuse(const QString &why);
    void accept();

    /// Whether OK may take `text` when the field has no validator.
    virtual bool isAcceptable(const QString &text) const;

    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void place();
    void dismiss();
    bool takeFieldKey(QKeyEvent *event);
    bool takeKey(QKeyEvent *event);
    void showOldValue();

    QPointer<QObject> m_field; ///< the field; no line edit any more while it is being destroyed
    QWidget *m_panel;
    QLabel *m_oldValue;
    QLabel *m_hint;
    QLineEdit *m_preview;
    QGridLayout *m_keys;
    int m_keyWidth;
    bool m_used = false; ///< a key of the panel was touched
    bool m_closed = false;
};
