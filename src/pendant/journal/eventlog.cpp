#include "eventlog.h"

#include "oneline.h"
#include "wholefile.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>

namespace {

/// Long texts and bodies cut to what the journal keeps. Most values are short, so that the list is
/// shared with the caller's and costs nothing.
QVariantList cutValues(const QVariantList &values)
{
    QVariantList kept = values;
    for (int i = 0; i < values.size(); ++i) {
        const QVariant &value = values.at(i);
        const int type = static_cast<int>(value.userType());
        if (type == QMetaType::QByteArray) {
            const QByteArray bytes = value.toByteArray();
            if (bytes.size() > EventLog::kKeptBytes)
                kept[i] = QByteArray(bytes.constData(), EventLog::kKeptBytes);
        } else if (type == QMetaType::QString) {
            const QString text = value.toString();
            if (text.size() > EventLog::kKeptBytes)
                kept[i] = text.left(EventLog::kKeptBytes);
        }
    }
    return kept;
}

bool startsWithMessageId(const QString &kind)
{
    return kind == QLatin1String("message") || kind == QLatin1String("reading");
}

} // namespace

EventLog::EventLog(QObject *parent) : QObject(parent) { }

EventLog *EventLog::getInstance()
{
    static EventLog *const instance = new EventLog;
    return instance;
}

void EventLog::record(const QString &kind, const QVariantList &values)
{
    while (m_entries.size() >= static_cast<std::size_t>(m_capacity))
        m_entries.pop_front();
    m_entries.push_back({++m_lastNumber, QDateTime::currentDateTimeUtc(), kind, cutValues(values)});
    emit recorded(kind, values);
}

void EventLog::setCapacity(int entries)
{
    m_capacity = std::max(1, entries);
    while (m_entries.size() > static_cast<std::size_t>(m_capacity))
        m_entries.pop_front();
}

void EventLog::clear()
{
    m_entries.clear();
}

QString EventLog::valuesText(const Entry &entry)
{
    QStringList parts;
    for (int i = 0; i < entry.values.size(); ++i) {
        const QVariant &value = entry.values.at(i);
        if (i == 0 && startsWithMessageId(entry.kind))
            parts += QStringLiteral("0x%1").arg(value.toUInt(), 4, 16, QLatin1Char('0'));
        else if (static_cast<int>(value.userType()) == QMetaType::QByteArray)
            parts += oneLine(QString::fromUtf8(value.toByteArray()).trimmed());
        else
            parts += oneLine(value.toString());
    }
    return parts.join(QStringLiteral(" · "));
}

bool EventLog::exportText(const QString &path, QString *error) const
{
    QByteArray text;
    for (const Entry &entry : m_entries) {
        const QString line =
            QStringLiteral("%1\t%2\t%3\t")
                .arg(QString::number(entry.number),
                     entry.time.toLocalTime().toString(Qt::ISODateWithMs), entry.kind)
            + valuesText(entry) + QLatin1Char('\n');
        text += line.toUtf8();
    }
    const QString reason = writeWholeFile(path, text);
    if (!reason.isEmpty() && error)
        *error = QCoreApplication::translate("EventLog", "无法写入 %1：%2").arg(path, reason);
    return reason.isEmpty();
}
