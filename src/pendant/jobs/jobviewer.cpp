#include "jobviewer.h"

#include "jobfile.h"
#include "joblinemodel.h"
#include "jobstore.h"
#include "jobwords.h"
#include "setfontsize.h"
#include "touchtable.h"
#include "wraplabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int kRowHeight = 32;
constexpr int kTouchHeight = 46;
constexpr int kNumberMargin = 12;

void setUpTable(QTableView *table, JobLineModel *model)
{
    table->setObjectName(QStringLiteral("jobLines"));
    setUpTouchTable(table, kRowHeight);
    table->setModel(model);
    table->setFont(SetFontSize::setSize(14));
    table->horizontalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
}

const JobStore::Unsaved *findUnsaved(int robot, const QString &name)
{
    for (const JobStore::Unsaved &job : JobStore::getInstance()->unsaved()) {
        if (job.robot == robot && job.name == name)
            return &job;
    }
    return nullptr;
}

} // namespace

JobViewer::JobViewer(QWidget *parent)
    : QWidget(parent), m_model(new JobLineModel(this)), m_head(new WrapLabel(16, 2, this)),
      m_facts(new QLabel(this)), m_warning(new WrapLabel(12, 2, this)),
      m_lines(new QTableView(this)), m_stored(new QPlainTextEdit(this)),
      m_back(new QPushButton(this))
{
    setObjectName(QStringLiteral("jobViewer"));
    m_head->setObjectName(QStringLiteral("jobName"));
    m_facts->setObjectName(QStringLiteral("jobFacts"));
    m_facts->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_warning->setObjectName(QStringLiteral("jobWarning"));
    m_warning->setMargin(4);
    QPalette warning = m_warning->palette();
    warning.setColor(QPalette::Window, jobwords::kFaultGround);
    m_warning->setPalette(warning);
    m_warning->setAutoFillBackground(true);
    m_stored->setObjectName(QStringLiteral("jobStoredLine"));
    m_stored->setReadOnly(true);
    m_stored->setFont(SetFontSize::setSize(11));
    m_stored->setFixedHeight(108);
    m_back->setObjectName(QStringLiteral("jobBack"));
    m_back->setMinimumSize(140, kTouchHeight);
    m_back->setFocusPolicy(Qt::NoFocus);
    setUpTable(m_lines, m_model);

    auto *head = new QHBoxLayout;
    head->addWidget(m_head, 1);
    head->addWidget(m_facts);
    auto *foot = new QHBoxLayout;
    foot->addWidget(m_back);
    foot->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(8, 4, 8, 8);
    column->setSpacing(6);
    column->addLayout(head);
    column->addWidget(m_warning);
    column->addWidget(m_lines, 1);
    column->addWidget(m_stored);
    column->addLayout(foot);

    connect(m_back, &QPushButton::clicked, this, &JobViewer::left);
    connect(m_lines->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &JobViewer::showStored);
    connect(JobStore::getInstance(), &JobStore::changed, this, &JobViewer::follow);
    retranslate();
}

JobViewer::Stamp JobViewer::stampOf(int robot, const QString &name) const
{
    Stamp stamp;
    if (const JobStore::Unsaved *job = findUnsaved(robot, name)) {
        stamp.exists = stamp.isUnsaved = true;
        stamp.bytes = job->text.size();
        return stamp;
    }
    const JobStore::File file = JobStore::getInstance()->file(robot, name);
    stamp.exists = file.changed.isValid() && file.kind == JobDirectory::File;
    stamp.changed = file.changed;
    stamp.bytes = file.bytes;
    return stamp;
}

QString JobViewer::open(int robot, const QString &name)
{
    const Stamp stamp = stampOf(robot, name);
    QString error;
    QByteArray text;
    if (const JobStore::Unsaved *job = findUnsaved(robot, name))
        text = job->text;
    else
        text = JobStore::getInstance()->read(robot, name, &error);
    if (!error.isEmpty())
        return error;
    m_robot = robot;
    m_name = name;
    m_stamp = stamp;
    m_bytes = text.size();
    take(text);
    const int line = m_fault ? m_fault.line : 1;
    m_lines->selectRow(qBound(1, line, qMax(1, m_model->rowCount())) - 1);
    m_lines->scrollTo(m_lines->currentIndex(), QAbstractItemView::PositionAtCenter);
    showStored();
    return {};
}

void JobViewer::take(const QByteArray &text)
{
    jobfile::Reading reading = jobfile::read(text, m_name);
    m_damage = reading.fault;
    if (reading.job)
        m_model->setJob(std::move(reading.job));
    else
        m_model->setText(text);
    const QString widest = QStringLiteral("! %1").arg(qMax(100, m_model->rowCount()));
    m_lines->setColumnWidth(JobLineModel::Number,
                            m_lines->fontMetrics().horizontalAdvance(widest) + kNumberMargin);
    mark();
    refreshHead();
}

void JobViewer::shut()
{
    m_robot = 0;
    m_name.clear();
    m_stamp = {};
    m_damage = m_fault = {};
    m_model->clear();
    mark();
    refreshHead();
}

/// The store has changed: the job may be another, stored, checked, or gone.
void JobViewer::follow()
{
    if (!isOpen())
        return;
    const Stamp stamp = stampOf(m_robot, m_name);
    if (!stamp.exists) {
        emit left();
        return;
    }
    if (stamp == m_stamp) {
        mark();
        return;
    }
    const int row = m_lines->currentIndex().row();
    if (!open(m_robot, m_name).isEmpty())
        emit left();
    else if (row >= 0 && row < m_model->rowCount())
        m_lines->selectRow(row);
}

void JobViewer::mark()
{
    m_fault = m_damage;
    QString reason;
    if (!isOpen()) {
        m_fault = {};
    } else if (m_damage) {
        reason = tr("文件已损坏，按文本显示。%1").arg(jobwords::faultText(m_damage));
    } else if (const JobStore::Unsaved *job = findUnsaved(m_robot, m_name)) {
        reason = tr("未保存，只在内存中：%1").arg(job->reason);
    } else {
        const JobStore::Verdict verdict = JobStore::getInstance()->verdict(m_robot, m_name);
        if (verdict.state == JobStore::Verdict::Refused) {
            m_fault = verdict.fault;
            reason = tr("控制器不接受此作业。%1").arg(jobwords::faultText(m_fault));
        }
    }
    m_model->setMarked(m_fault ? m_fault.line : 0);
    m_warning->setText(reason.isEmpty() ? reason : QStringLiteral("! ") + reason);
    m_warning->setVisible(!reason.isEmpty());
}

void JobViewer::showStored()
{
    m_stored->setPlainText(m_model->storedText(m_lines->currentIndex().row()));
}

void JobViewer::refreshHead()
{
    m_head->setText(m_name);
    if (!isOpen()) {
        m_facts->clear();
        return;
    }
    QString facts =
        tr("%1 行").arg(m_model->rowCount()) + QStringLiteral(" · ") + jobwords::sizeText(m_bytes);
    if (m_stamp.changed.isValid())
        facts += QLatin1Char('\n') + jobwords::dateText(m_stamp.changed);
    m_facts->setText(facts);
}

void JobViewer::retranslate()
{
    m_back->setText(tr("返回"));
    m_stored->setPlaceholderText(tr("选择一行，此处显示文件中的全部字段"));
    mark();
    refreshHead();
}

void JobViewer::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
