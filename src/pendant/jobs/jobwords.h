#pragma once

#include "jobfault.h"

#include <QColor>
#include <QDateTime>

/// How jobs are told of on screen, in list and viewer alike.
namespace jobwords {

const QColor kFaultGround(0xf3, 0xd6, 0xd2);
const QColor kFaultInk(0x8c, 0x1d, 0x18);

/// "第 10 行：控制器没有端口 OT#17"; without the line when it belongs to none.
QString faultText(const JobFault &fault);
/// "6.1 KB".
QString sizeText(qint64 bytes);
/// Local time, "2026-11-21 05:38"; a dash for no time.
QString dateText(const QDateTime &time);

} // namespace jobwords
