#pragma once

#include <QAbstractTableModel>
#include <QByteArray>
#include <memory>
#include <vector>

class ProgramJOB;

/// The lines of a job as its viewer shows them, or those of a text that is no job. A line's text is
/// made when it is asked for, so that a job of many thousand lines opens at once.
class JobLineModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Number, Statement, Columns };

    explicit JobLineModel(QObject *parent = nullptr);
    ~JobLineModel() override;

    /// Shows a job: its statements, what stands in a loop is indented.
    void setJob(std::unique_ptr<ProgramJOB> job);
    /// Shows the lines of a text as they are, but for characters that cannot be seen.
    void setText(const QByteArray &text);
    void clear();
    bool isJob() const { return m_job != nullptr; }

    /// Marks the line as faulty, from 1; 0 marks none.
    void setMarked(int line);
    int marked() const { return m_marked; }

    /// What the file has for that row, with all fields, and for a move its position below; cut
    /// where a line is longer than anyone reads. Empty outside the rows.
    QString storedText(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QString statement(int row) const;
    QByteArray rawLine(int row, int longest) const;
    void indent();

    std::unique_ptr<ProgramJOB> m_job;
    std::vector<int> m_depths; ///< of the job's lines: in how many loops they stand
    QByteArray m_text;
    std::vector<int> m_starts; ///< of the text's lines
    int m_marked = 0;
};
