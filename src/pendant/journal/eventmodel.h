#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <deque>
#include <functional>

class QTimer;

/// The journal as a table, newest entry first, filtered by kind and message id. An entry that
/// stands for several records has their count before its content ("×123") and the time of the
/// first.
///
/// New entries are taken over in one step per refresh, at most every 100 ms, however many there
/// are; while paused none are, and resuming takes over what came meanwhile.
class EventModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Number, Time, Kind, Content, Columns };

    explicit EventModel(QObject *parent = nullptr);

    /// All kinds that the journal knows, in the order of its documentation.
    static const QStringList &kinds();
    /// The kind's name for the screen; an unknown kind is its own name.
    static QString kindName(const QString &kind);

    /// An empty kind shows all.
    void setKind(const QString &kind);
    /// Hexadecimal digits, with or without 0x, that the message id starts with; empty shows all.
    void setMessageId(const QString &hex);
    void setMessageNames(std::function<QString(quint16)> names);
    void setPaused(bool paused);
    /// Takes over what is new now.
    void refresh();
    /// How often rows were taken over or removed.
    int refreshCount() const { return m_refreshes; }
    /// The whole entry of a row as text: date and time, of the first and the last record when it
    /// stands for several, then what the content column shows.
    QString fullText(int row) const;
    void retranslate();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void rebuild();
    void tellCounts(std::size_t fresh);
    bool shows(std::size_t position) const;
    QString content(std::size_t position) const;
    /// Position in the journal of the entry of this number; the journal's size when it is gone.
    static std::size_t positionOf(quint64 number);

    std::deque<quint64> m_rows; ///< entry numbers, newest first
    quint64 m_taken = 0; ///< number of the newest entry that was looked at
    QString m_kind;
    QString m_idPrefix;
    std::function<QString(quint16)> m_names;
    QTimer *m_timer;
    bool m_paused = false;
    int m_refreshes = 0;
};
