#include "eventmodel.h"

#include "eventlog.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace {

constexpr int kRefreshInterval = 100; // ms

struct KindName {
    const char *kind;
    const char *name;
};

const KindName kKinds[] = {
    {"message", QT_TRANSLATE_NOOP("EventModel", "发送消息")},
    {"toast", QT_TRANSLATE_NOOP("EventModel", "提示")},
    {"prompt", QT_TRANSLATE_NOOP("EventModel", "询问")},
    {"promptClosed", QT_TRANSLATE_NOOP("EventModel", "询问结束")},
    {"log", QT_TRANSLATE_NOOP("EventModel", "日志")},
    {"rights", QT_TRANSLATE_NOOP("EventModel", "权限")},
    {"cover", QT_TRANSLATE_NOOP("EventModel", "遮盖")},
    {"uncover", QT_TRANSLATE_NOOP("EventModel", "取消遮盖")},
    {"safetySwitch", QT_TRANSLATE_NOOP("EventModel", "安全开关")},
    {"delay", QT_TRANSLATE_NOOP("EventModel", "等待")},
    {"job", QT_TRANSLATE_NOOP("EventModel", "程序")},
    {"config", QT_TRANSLATE_NOOP("EventModel", "配置")},
    {"link", QT_TRANSLATE_NOOP("EventModel", "链路")},
    {"key", QT_TRANSLATE_NOOP("EventModel", "按键")},
    {"controller", QT_TRANSLATE_NOOP("EventModel", "控制器")},
    {"reading", QT_TRANSLATE_NOOP("EventModel", "读取错误")},
};

const std::deque<EventLog::Entry> &journal()
{
    return EventLog::getInstance()->entries();
}

bool hasMessageId(const EventLog::Entry &entry)
{
    return !entry.values.isEmpty()
        && (entry.kind == QLatin1String("message") || entry.kind == QLatin1String("reading"));
}

QString hexId(const EventLog::Entry &entry)
{
    return QString::number(entry.values.first().toUInt(), 16).rightJustified(4, QLatin1Char('0'));
}

} // namespace

EventModel::EventModel(QObject *parent) : QAbstractTableModel(parent), m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(kRefreshInterval);
    connect(m_timer, &QTimer::timeout, this, &EventModel::refresh);
    connect(EventLog::getInstance(), &EventLog::recorded, this, [this] {
        if (!m_paused && !m_timer->isActive())
            m_timer->start();
    });
    rebuild();
}

const QStringList &EventModel::kinds()
{
    static const QStringList all = [] {
        QStringList names;
        for (const KindName &kind : kKinds)
            names += QString::fromLatin1(kind.kind);
        return names;
    }();
    return all;
}

QString EventModel::kindName(const QString &kind)
{
    const auto *found =
        std::find_if(std::begin(kKinds), std::end(kKinds),
                     [&](const KindName &each) { return kind == QLatin1String(each.kind); });
    return found == std::end(kKinds) ? kind : tr(found->name);
}

void EventModel::setKind(const QString &kind)
{
    m_kind = kind;
    rebuild();
}

void EventModel::setMessageId(const QString &hex)
{
    m_idPrefix = hex.trimmed().toLower();
    if (m_idPrefix.startsWith(QLatin1String("0x")))
        m_idPrefix.remove(0, 2);
    rebuild();
}

void EventModel::setMessageNames(std::function<QString(quint16)> names)
{
    m_names = std::move(names);
    retranslate();
}

void EventModel::setPaused(bool paused)
{
    m_paused = paused;
    if (paused)
        m_timer->stop();
    else
        refresh();
}

std::size_t EventModel::positionOf(quint64 number)
{
    const auto &entries = journal();
    if (entries.empty() || number < entries.front().number || number > entries.back().number)
        return entries.size();
    return static_cast<std::size_t>(number - entries.front().number);
}

bool EventModel::shows(std::size_t position) const
{
    const EventLog::Entry &entry = journal()[position];
    if (!m_kind.isEmpty() && entry.kind != m_kind)
        return false;
    return m_idPrefix.isEmpty() || (hasMessageId(entry) && hexId(entry).startsWith(m_idPrefix));
}

void EventModel::rebuild()
{
    beginResetModel();
    m_rows.clear();
    const auto &entries = journal();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (shows(i))
            m_rows.push_front(entries[i].number);
    }
    m_taken = entries.empty() ? m_taken : entries.back().number;
    ++m_refreshes;
    endResetModel();
}

void EventModel::refresh()
{
    const auto &entries = journal();
    const quint64 oldest = entries.empty() ? m_taken + 1 : entries.front().number;

    // What has fallen out of the journal stands at the end of the rows.
    const auto gone =
        std::find_if(m_rows.begin(), m_rows.end(), [&](quint64 number) { return number < oldest; });
    const int kept = static_cast<int>(std::distance(m_rows.begin(), gone));
    const bool removes = gone != m_rows.end();
    if (removes) {
        beginRemoveRows({}, kept, static_cast<int>(m_rows.size()) - 1);
        m_rows.erase(gone, m_rows.end());
        endRemoveRows();
    }

    std::deque<quint64> fresh;
    for (std::size_t i = entries.empty() ? 0 : positionOf(std::max(m_taken + 1, oldest));
         i < entries.size(); ++i) {
        if (shows(i))
            fresh.push_front(entries[i].number);
    }
    if (!entries.empty())
        m_taken = entries.back().number;
    if (!fresh.empty()) {
        beginInsertRows({}, 0, static_cast<int>(fresh.size()) - 1);
        m_rows.insert(m_rows.begin(), fresh.begin(), fresh.end());
        endInsertRows();
    }
    if (removes || !fresh.empty())
        ++m_refreshes;
    tellCounts(fresh.size());
}

/// New records may have been folded into the newest of the rows that were there before.
void EventModel::tellCounts(std::size_t fresh)
{
    constexpr std::size_t kFolding = 2 * EventLog::kCycle;
    const std::size_t rows = std::min(m_rows.size(), fresh + kFolding);
    if (rows > 0)
        emit dataChanged(index(0, Content), index(static_cast<int>(rows) - 1, Content));
}

QString EventModel::content(std::size_t position) const
{
    const EventLog::Entry &entry = journal()[position];
    QString name;
    if (m_names && hasMessageId(entry))
        name = m_names(static_cast<quint16>(entry.values.first().toUInt()));
    QStringList parts{EventLog::countText(entry), name, EventLog::valuesText(entry)};
    parts.removeAll(QString());
    return parts.join(QLatin1Char(' '));
}

QString EventModel::fullText(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    const std::size_t position = positionOf(m_rows[static_cast<std::size_t>(row)]);
    if (position >= journal().size())
        return {};
    const EventLog::Entry &entry = journal()[position];
    const QString format = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz");
    QString time = entry.time.toLocalTime().toString(format);
    if (entry.count > 1)
        time += QStringLiteral(" – ") + entry.lastTime.toLocalTime().toString(format);
    return time + QLatin1Char('\n') + content(position);
}

void EventModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, Columns - 1);
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, Columns - 1));
}

int EventModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int EventModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant EventModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || index.row() >= rowCount())
        return {};
    // Between two refreshes the journal may have dropped an entry that still has its row.
    const std::size_t position = positionOf(m_rows[static_cast<std::size_t>(index.row())]);
    if (position >= journal().size())
        return {};
    const EventLog::Entry &entry = journal()[position];
    switch (index.column()) {
    case Number:
        return entry.number;
    case Time:
        return entry.time.toLocalTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    case Kind:
        return kindName(entry.kind);
    case Content:
        return content(position);
    default:
        return {};
    }
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case Number:
        return tr("序号");
    case Time:
        return tr("时间");
    case Kind:
        return tr("类别");
    case Content:
        return tr("内容");
    default:
        return {};
    }
}
