#include "joblinemodel.h"

#include "commandfields.h"
#include "jobfile.h"
#include "jobtext.h"
#include "jobwords.h"
#include "robotpos.h"

#include <QBrush>
#include <QColor>

#include <algorithm>

namespace {

constexpr int kIndent = 4; // blanks for a loop
constexpr int kDeepest = 10; // loops; what is deeper stands below one another
constexpr int kLongestShown = 200; // bytes of a line of text
constexpr int kLongestStored = 4000;

/// On one line, and everything in it seen.
QString visible(QString text)
{
    for (QChar &character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace

JobLineModel::JobLineModel(QObject *parent) : QAbstractTableModel(parent) { }

JobLineModel::~JobLineModel() = default;

void JobLineModel::setJob(std::unique_ptr<ProgramJOB> job)
{
    beginResetModel();
    m_text.clear();
    m_starts.clear();
    m_job = std::move(job);
    m_marked = 0;
    indent();
    endResetModel();
}

/// The head and the end of a loop stand one step further out than what is in it. An end without a
/// loop leaves the lines where they are.
void JobLineModel::indent()
{
    const int lines = m_job ? m_job->lineCount() : 0;
    m_depths.assign(static_cast<std::size_t>(lines), 0);
    int depth = 0;
    for (int line = 1; line <= lines; ++line) {
        const int type = m_job->command(line)->type;
        if (type == Command::WhileEnd)
            depth = std::max(0, depth - 1);
        m_depths[static_cast<std::size_t>(line - 1)] = depth;
        if (type == Command::WhileBegin)
            ++depth;
    }
}

void JobLineModel::setText(const QByteArray &text)
{
    beginResetModel();
    m_job.reset();
    m_depths.clear();
    m_text = text;
    m_starts.assign(1, 0);
    m_marked = 0;
    for (int at = static_cast<int>(text.indexOf('\n')); at >= 0 && at + 1 < text.size();
         at = static_cast<int>(text.indexOf('\n', at + 1)))
        m_starts.push_back(at + 1);
    endResetModel();
}

void JobLineModel::clear()
{
    setJob(nullptr);
}

void JobLineModel::setMarked(int line)
{
    if (line == m_marked)
        return;
    const int before = m_marked;
    m_marked = line;
    for (const int each : {before, line}) {
        if (each >= 1 && each <= rowCount())
            emit dataChanged(index(each - 1, 0), index(each - 1, Columns - 1));
    }
}

QByteArray JobLineModel::rawLine(int row, int longest) const
{
    const auto number = static_cast<std::size_t>(row);
    const int begin = m_starts[number];
    const int next =
        number + 1 < m_starts.size() ? m_starts[number + 1] : static_cast<int>(m_text.size());
    const int end = next > begin && m_text.at(next - 1) == '\n' ? next - 1 : next;
    const QByteArray line = m_text.mid(begin, std::min(end - begin, longest));
    return end - begin > longest ? line + "…" : line;
}

QString JobLineModel::statement(int row) const
{
    if (!m_job)
        return visible(QString::fromUtf8(rawLine(row, kLongestShown)));
    const int depth = std::min(m_depths[static_cast<std::size_t>(row)], kDeepest);
    return QString(depth * kIndent, QLatin1Char(' '))
        + visible(statementOf(*m_job->command(row + 1)).left(kLongestShown));
}

QString JobLineModel::storedText(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    if (!m_job)
        return visible(QString::fromUtf8(rawLine(row, kLongestStored)));
    const Command &command = *m_job->command(row + 1);
    QByteArray line = jobfile::lineOf(command);
    if (line.size() > kLongestStored)
        line = line.left(kLongestStored) + "…";
    const auto *move = dynamic_cast<const MoveCommand *>(&command);
    const QByteArray position = move && move->position ? jobfile::lineOf(*move->position) : "";
    QString text = visible(QString::fromUtf8(line));
    if (!position.isEmpty())
        text += QLatin1Char('\n') + QString::fromLatin1(position);
    return text;
}

int JobLineModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_job ? m_job->lineCount() : static_cast<int>(m_starts.size());
}

int JobLineModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant JobLineModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const bool isMarked = index.row() + 1 == m_marked;
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == Statement)
            return statement(index.row());
        return isMarked ? QStringLiteral("! %1").arg(index.row() + 1)
                        : QString::number(index.row() + 1);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (index.column() == Number ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::BackgroundRole:
        return isMarked ? QBrush(jobwords::kFaultGround) : QVariant();
    case Qt::ForegroundRole:
        return index.column() == Number && !isMarked ? QBrush(QColor(0x6a, 0x72, 0x7a))
                                                     : QVariant();
    default:
        return {};
    }
}
