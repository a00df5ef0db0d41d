#include "jobwords.h"

#include <QCoreApplication>
#include <QLocale>

QString jobwords::faultText(const JobFault &fault)
{
    if (fault.line <= 0)
        return fault.reason();
    return QCoreApplication::translate("JobWords", "第 %1 行：%2")
        .arg(QString::number(fault.line), fault.reason());
}

QString jobwords::sizeText(qint64 bytes)
{
    constexpr int kDecimals = 1;
    if (bytes < 1024)
        return QStringLiteral("%1 B").arg(bytes);
    return QLocale::c().formattedDataSize(bytes, kDecimals, QLocale::DataSizeTraditionalFormat);
}

QString jobwords::dateText(const QDateTime &time)
{
    return time.isValid() ? time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"))
                          : QStringLiteral("—");
}
