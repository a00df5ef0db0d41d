#include "eventlog.h"

#include "oneline.h"
#include "wholefile.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>
#include <cstring>

namespace {

/// Long texts and bodies cut to what the journal keeps. Most values are short, so that the list is
/// shared with the caller's and costs nothing.
QVariantList cutValues(const QVariantList &values, bool *isCut)
{
    QVariantList kept = values;
    const auto replace = [&](int i, const QVariant &shorter) {
        kept[i] = shorter;
        *isCut = true;
    };
    for (int i = 0; i < values.size(); ++i) {
        const QVariant &value = values.at(i);
        const int type = static_cast<int>(value.userType());
        if (type == QMetaType::QByteArray) {
            const QByteArray bytes = value.toByteArray();
            if (bytes.size() > EventLog::kKeptBytes)
                replace(i, QByteArray(bytes.constData(), EventLog::kKeptBytes));
        } else if (type == QMetaType::QString) {
            const QString text = value.toString();
            if (text.size() > EventLog::kKeptBytes)
                replace(i, text.left(EventLog::kKeptBytes));
        }
    }
    return kept;
}

bool startsWithMessageId(const QString &kind)
{
    return kind == QLatin1String("message") || kind == QLatin1String("reading");
}

bool folds(const QString &kind)
{
    return kind == QLatin1String("message") || kind == QLatin1String("link")
        || kind == QLatin1String("controller");
}

/// The number behind a key of a JSON text as the pages write it, without blanks; 0 without one.
double numberBehind(const QByteArray &body, const char *key)
{
    const auto at = body.indexOf(key);
    if (at < 0)
        return 0;
    const auto begin = at + static_cast<int>(std::strlen(key));
    auto end = begin;
    while (end < body.size() && body.at(end) != '\0'
           && std::strchr("+-.0123456789eE", body.at(end)))
        ++end;
    return body.mid(begin, end - begin).toDouble();
}

QString isoTime(const QDateTime &time)
{
    return time.toLocalTime().toString(Qt::ISODateWithMs);
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
    const QDateTime now = QDateTime::currentDateTimeUtc();
    bool isCut = false;
    const QVariantList kept = cutValues(values, &isCut);
    Chunk chunk = chunkOf(kind, values);
    // Of what is cut or is a part, the journal does not know whether it is the same.
    const bool mayRepeat = folds(kind) && !isCut && chunk.sum == 0;
    if (!mayRepeat)
        m_run.clear();

    Entry *entry = chunk.goesOnBehind(m_chunk) ? find(m_chunk.entry) : repeated(kind, kept);
    if (entry) {
        ++entry->count;
        entry->lastTime = now;
    } else {
        dropOld(static_cast<std::size_t>(m_capacity) - 1);
        m_entries.push_back({++m_lastNumber, now, kind, kept, 1, now});
        entry = &m_entries.back();
    }
    chunk.entry = entry->number;
    m_chunk = chunk;
    if (mayRepeat)
        m_run.push_back(entry->number);
    if (m_run.size() > 2 * kCycle - 1)
        m_run.pop_front();
    emit recorded(kind, values);
}

EventLog::Chunk EventLog::chunkOf(const QString &kind, const QVariantList &values)
{
    if (kind != QLatin1String("message") || values.size() < 2)
        return {};
    const QByteArray body = values.at(1).toByteArray();
    if (!body.contains("\"eachVec\":"))
        return {};
    return {values.at(0).toInt(), numberBehind(body, "\"start\":"),
            numberBehind(body, "\"count\":"), numberBehind(body, "\"sum\":")};
}

bool EventLog::Chunk::goesOnBehind(const Chunk &before) const
{
    return sum > 0 && id == before.id && sum == before.sum && start == before.start + before.count;
}

/// Null for one that has gone.
EventLog::Entry *EventLog::find(quint64 number)
{
    if (m_entries.empty() || number < m_entries.front().number)
        return nullptr;
    return &m_entries[static_cast<std::size_t>(number - m_entries.front().number)];
}

bool EventLog::isSame(quint64 number, quint64 other)
{
    const Entry *one = find(number);
    const Entry *two = find(other);
    return one && two && one->kind == two->kind && one->values == two->values;
}

/// The entry in which a record that may repeat stands already; null when it is news.
EventLog::Entry *EventLog::repeated(const QString &kind, const QVariantList &values)
{
    const std::size_t last = m_run.size();
    for (std::size_t length = 1; length <= kCycle && 2 * length - 1 <= last; ++length) {
        Entry *entry = find(m_run[last - length]);
        bool isCycle = entry && entry->kind == kind && entry->values == values;
        for (std::size_t back = 1; isCycle && back < length; ++back)
            isCycle = isSame(m_run[last - back], m_run[last - back - length]);
        if (isCycle)
            return entry;
    }
    return nullptr;
}

void EventLog::dropOld(std::size_t kept)
{
    while (m_entries.size() > kept)
        m_entries.pop_front();
}

void EventLog::setCapacity(int entries)
{
    m_capacity = std::max(1, entries);
    dropOld(static_cast<std::size_t>(m_capacity));
}

void EventLog::clear()
{
    m_entries.clear();
    m_run.clear();
    m_chunk = {};
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

QString EventLog::countText(const Entry &entry)
{
    return entry.count > 1 ? QStringLiteral("×%1").arg(entry.count) : QString();
}

bool EventLog::exportText(const QString &path, QString *error) const
{
    QByteArray text;
    for (const Entry &entry : m_entries) {
        QStringList columns{QString::number(entry.number), isoTime(entry.time), entry.kind,
                            valuesText(entry)};
        if (entry.count > 1)
            columns << countText(entry) << isoTime(entry.lastTime);
        const QString line = columns.join(QLatin1Char('\t')) + QLatin1Char('\n');
        text += line.toUtf8();
    }
    const QString reason = writeWholeFile(path, text);
    if (!reason.isEmpty() && error)
        *error = QCoreApplication::translate("EventLog", "无法写入 %1：%2").arg(path, reason);
    return reason.isEmpty();
}
