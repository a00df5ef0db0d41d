#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <deque>

/// The one ordered journal of what the process component asked of its surroundings.
///
/// Kinds and their values, in the order given:
///   "message" (id, body) · "toast" (text, duration ms, kind, flag) · "prompt" (number, text) ·
///   "promptClosed" (number) · "log" (text, level) · "rights" (label, granted) · "cover" ·
///   "uncover" · "safetySwitch" (value) · "delay" (ms) · "job" (operation, name) · "config"
///   (operation) · "link" (what, detail) · "key" (name, value) · "reading" (message id, path: what
///   could not be read)
///
/// The journal keeps the last `capacity()` entries; long bodies are kept cut to `kKeptBytes`, while
/// `recorded` carries them whole.
class EventLog : public QObject {
    Q_OBJECT
public:
    struct Entry {
        quint64 number; ///< 1 for the first entry of this run
        QDateTime time;
        QString kind;
        QVariantList values;
    };

    static constexpr int kKeptBytes = 2048;

    static EventLog *getInstance();

    void record(const QString &kind, const QVariantList &values = {});

    /// Oldest first.
    const std::deque<Entry> &entries() const { return m_entries; }
    int capacity() const { return m_capacity; }
    void setCapacity(int entries); ///< at least 1
    void clear();

    /// The values of one entry as one readable line: ids of messages in hexadecimal, bodies as
    /// text, tabs, line ends and what else shows nothing escaped as by oneLine().
    static QString valuesText(const Entry &entry);

    /// Writes the kept entries, oldest first, as UTF-8 lines of four tab-separated columns: number,
    /// local time (ISO 8601 with milliseconds), kind, values. The file appears complete or not at
    /// all; false with `error` filled when it cannot be written.
    bool exportText(const QString &path, QString *error = nullptr) const;

signals:
    void recorded(const QString &kind, const QVariantList &values);

private:
    explicit EventLog(QObject *parent = nullptr);

    std::deque<Entry> m_entries;
    quint64 m_lastNumber = 0;
    int m_capacity = 10000;
};
