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
///   (operation) · "link" (what, detail) · "key" (name, value) · "controller" (message, details of
///   it) · "reading" (message id, path: what could not be read)
///
/// The journal keeps the last `capacity()` entries; long bodies are kept cut to `kKeptBytes`, while
/// `recorded` carries them whole.
///
/// What a page says again and again is kept once and counted, so that the entries last a shift. Of
/// the kinds "message", "link" and "controller", with nothing of another kind between them, these
/// fold into an entry that stands already:
///   - what equals the record before it: a page that polls the position;
///   - what completes a cycle of at most kCycle records for the second time, and what goes on with
///     it: several polls that take turns. What merely comes back (set 1, set 2, set 1) is none;
///   - a message that carries the next chunk of the list that the message before it carried: the
///     same id and "sum", and a "start" that goes on behind it. The first chunk is kept.
/// Each record is told by `recorded` all the same.
class EventLog : public QObject {
    Q_OBJECT
public:
    struct Entry {
        quint64 number; ///< 1 for the first entry of this run; a folded record takes none
        QDateTime time; ///< of the first record
        QString kind;
        QVariantList values;
        int count = 1; ///< records that it stands for
        QDateTime lastTime; ///< of the last of them
    };

    static constexpr int kKeptBytes = 2048;
    static constexpr int kCycle = 4;

    static EventLog *getInstance();

    void record(const QString &kind, const QVariantList &values = {});

    /// Oldest first.
    const std::deque<Entry> &entries() const { return m_entries; }
    /// In entries: what is folded counts as one.
    int capacity() const { return m_capacity; }
    void setCapacity(int entries); ///< at least 1
    void clear();

    /// The values of one entry as one readable line: ids of messages in hexadecimal, bodies as
    /// text, tabs, line ends and what else shows nothing escaped as by oneLine().
    static QString valuesText(const Entry &entry);
    /// "×123" for an entry that stands for so many records; empty for a single one.
    static QString countText(const Entry &entry);

    /// Writes the kept entries, oldest first, as UTF-8 lines of four tab-separated columns: number,
    /// local time (ISO 8601 with milliseconds), kind, values. An entry of several records has two
    /// more: their count, "×123", and the time of the last. The file appears complete or not at
    /// all; false with `error` filled when it cannot be written.
    bool exportText(const QString &path, QString *error = nullptr) const;

signals:
    void recorded(const QString &kind, const QVariantList &values);

private:
    explicit EventLog(QObject *parent = nullptr);

    /// What a chunk of a list says of its place; all 0 for what is none.
    struct Chunk {
        bool goesOnBehind(const Chunk &before) const;

        int id = 0;
        double start = 0;
        double count = 0;
        double sum = 0;
        quint64 entry = 0; ///< number of the entry in which it stands
    };
    static Chunk chunkOf(const QString &kind, const QVariantList &values);

    Entry *find(quint64 number);
    Entry *repeated(const QString &kind, const QVariantList &values);
    bool isSame(quint64 number, quint64 other);
    void dropOld(std::size_t kept);

    std::deque<Entry> m_entries;
    /// Numbers of the entries in which the last records stand, the newest last: as far back as a
    /// cycle is looked for, and no further than the last record that cannot be part of one.
    std::deque<quint64> m_run;
    Chunk m_chunk; ///< the last record
    quint64 m_lastNumber = 0;
    int m_capacity = 10000;
};
