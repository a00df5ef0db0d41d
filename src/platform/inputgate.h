#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

/// Decides which widgets get the operator's input (mouse, touch, keys, shortcuts). With no
/// restriction all of them do; with one or more, only the widgets below the root that was given
/// last, and the companions. Everything else is swallowed by an application-wide event filter, so
/// that neither a press nor a key reaches a covered page.
///
/// Lists that pop up from an allowed widget are allowed with it, and so is a modal dialog. What was
/// pressed before a restriction began still gets its release, so that a held button never sticks.
class InputGate : public QObject {
    Q_OBJECT
public:
    static InputGate *getInstance();

    /// From now on only `root` and what lies below it gets input. Given twice it counts once and
    /// moves to the top. Lists and menus that are open elsewhere close without a choice.
    void restrictTo(QWidget *root);
    void release(QWidget *root);
    bool isRestricted() const;

    /// While held, no widget at all gets input. Calls nest: each hold() needs its unhold().
    void hold() { ++m_holds; }
    void unhold() { --m_holds; }
    bool allows(const QWidget *widget) const;

    /// A helper panel that serves whichever root is allowed: keypad, letter keyboard, messages.
    void addCompanion(QWidget *widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// A root was given or released.
    void restrictionChanged();

private:
    explicit InputGate(QObject *parent = nullptr);

    QWidget *topRoot() const;
    bool allowsObject(const QObject *object) const;
    bool isRelease(const QObject *watched, const QEvent *event);

    int m_holds = 0;
    QList<QPointer<QWidget>> m_roots;
    QList<QPointer<QWidget>> m_companions;
    QList<QPointer<QObject>> m_pressed; ///< what a press has reached and no release yet
    bool m_released = false; ///< the press of m_pressed is over
};
