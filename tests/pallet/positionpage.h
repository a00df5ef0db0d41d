#pragma once

// The position page as the operator has it, and the robot that it teaches.

#include "../support.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace support {

constexpr unsigned short kCurrentPosition = 0x2f07;
constexpr unsigned short kRunToPoint = 0x3003;
constexpr unsigned short kSetPosition = 0x4207;
constexpr unsigned short kGetPosition = 0x4208;

inline const QStringList kPoints = {QStringLiteral("EntrancePoint"),
                                    QStringLiteral("AuxiliaryPoint"), QStringLiteral("JobPoint")};
inline const QString kColumns = QStringLiteral("xyzabcd");

/// The state of robot 1, as its controller tells it. 3 is a powered servo.
inline void setState(int servo, int deadman)
{
    Robot::getInstance()->receiveMessage(wire::Status,
                                         QStringLiteral("{\"robot\":1,\"servo\":%1,\"deadman\":%2}")
                                             .arg(servo)
                                             .arg(deadman)
                                             .toUtf8());
}

/// The robot tells where it is: the same text for both units unless a second one is given.
inline void tellPosition(const QByteArray &radians, const QByteArray &degrees = QByteArray())
{
    const QByteArray second = degrees.isNull() ? radians : degrees;
    receive(wire::reply::receive_moreRobot_CurPosition,
            "{\"pos\":\"" + radians + "\",\"posDeg\":\"" + second + "\"}");
}

inline QStringList values(const QObject *pages, const QString &point)
{
    QStringList texts;
    for (const QChar column : kColumns)
        texts += child<QLabel>(pages, point + column)->text();
    return texts;
}

inline void setValues(const QObject *pages, const QString &point, const QString &text)
{
    for (const QChar column : kColumns)
        child<QLabel>(pages, point + column)->setText(text);
}

/// The columns of a point that are on screen, as their letters.
inline QString shownColumns(const QObject *pages, const QString &point, const QString &columns,
                            const QString &tail = QString())
{
    QString shown;
    for (const QChar column : columns) {
        if (!child<QLabel>(pages, point + column + tail)->isHidden())
            shown += column;
    }
    return shown;
}

} // namespace support
