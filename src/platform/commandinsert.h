#pragma once

#include <QObject>

/// How often an opened job or project is run: the run count that the run buttons set.
///
/// Lives on the GUI thread, as long as the process.
class CommandInsert : public QObject {
    Q_OBJECT
public:
    static constexpr int kEndless = 0; ///< the count that stands for running again and again
    static constexpr int kMaximum = 9999; ///< the highest count that can be keyed in

    static CommandInsert *getInstance();

    /// 1 to kMaximum, or kEndless; 1 until something else was chosen.
    int cycleIndex() const { return m_count; }

public slots:
    /// Asks the operator for the count with the numeric keypad, 1 to kMaximum. The count stays as
    /// it is when the keypad is cancelled, and when there is no screen to show it on.
    void setCycleIndex();
    void setCycleIndexOnce();
    void setCycleIndexEver();

signals:
    /// A run count was chosen, be it the one that stood before.
    void cycleIndexChosen(int count);

private:
    explicit CommandInsert(QObject *parent = nullptr);

    void choose(int count);

    int m_count = 1;
};
