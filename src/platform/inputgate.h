#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

/// Decides which widgets get the operator's input (mouse, touch, keys, shortcuts). With no
/// restriction all of them do; with one or more, only the widgets below the root that was given
/// last, and the companions. Everything else is swallowed by an application-wide event filter, so
/// that neither a press nor a key reaches a covered page.
class InputGate : public QObject {
    Q_OBJECT
public:
    static InputGate *getInstance();

    /// From now on only `root` and what lies below it gets input. Given twice it counts once and
    /// moves to the top.
    void restrictTo(QWidget *root);
    void release(QWidget *root);
    bool isRestricted() const;
    bool allows(const QWidget *widget) const;

    /// A helper panel that serves whichever root is allowed: keypad, letter keyboard, messages.
    void addCompanion(QWidget *widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit InputGate(QObject *parent = nullptr);

    QList<QPointer<QWidget>> m_roots;
    QList<QPointer<QWidget>> m_companions;
};
