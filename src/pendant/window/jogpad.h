#pragma once

#include <QTimer>
#include <QVector>
#include <QWidget>

class HoldKey;
class QPushButton;

/// The jog keys: for each axis of the current robot one that moves it backwards and one forwards,
/// for as long as it is held. The robot moves only while the enabling key is held too. They move
/// the axes themselves or the Cartesian position, as the coordinate key says.
class JogPad : public QWidget {
    Q_OBJECT
public:
    static constexpr int kMostAxes = 7;
    static constexpr int kKeyHeight = 40;
    static constexpr int kSpacing = 2;
    static constexpr int kHeight = kMostAxes * kKeyHeight + (kMostAxes - 1) * kSpacing;

    /// How many axes a robot of that kinematic type, 1 to 12, has; of an unknown one 6.
    static int axesOf(int kinematicType);

    explicit JogPad(QWidget *parent = nullptr);

    /// Switches between axes and Cartesian position; stands wherever the owner puts it.
    QPushButton *coordinateKey() const { return m_coordinateKey; }
    /// Lets all keys go.
    void release();

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Pair {
        HoldKey *backwards;
        HoldKey *forwards;
    };
    HoldKey *makeKey(int axis, int direction);
    void onHeld(HoldKey *key, int axis, int direction, bool held);
    void refresh();

    QPushButton *m_coordinateKey;
    QVector<Pair> m_keys;
    QTimer m_repeat; ///< says again what is held
    int m_axes = 0;
    int m_axis = 0; ///< of the key that is held; 0: none
    int m_direction = 0;
    int m_coordinate = 0; ///< 0 axes, 1 Cartesian
};
