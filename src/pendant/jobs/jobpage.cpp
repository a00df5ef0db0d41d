#include "jobpage.h"

#include "app.h"
#include "jobviewer.h"
#include "jobwords.h"
#include "morerobot.h"
#include "promptwidget.h"
#include "robot.h"
#include "setfontsize.h"
#include "snackbarmessage.h"
#include "touchtable.h"
#include "wraplabel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int kRowHeight = 44;
constexpr int kTouchHeight = 46;
constexpr int kShown = 5000; // milliseconds
enum Column { Name, Date, Size, State, Columns };

void setUpTable(QTableWidget *table)
{
    table->setObjectName(QStringLiteral("jobTable"));
    setUpTouchTable(table, kRowHeight);
    table->setColumnCount(Columns);
    table->setAlternatingRowColors(true);
    QHeaderView *header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(Name, QHeaderView::Stretch);
    table->setColumnWidth(Date, 144);
    table->setColumnWidth(Size, 78);
    table->setColumnWidth(State, 218);
}

void warn(const QString &text)
{
    SnackbarMessage::showMessage(text, kShown, 3, true);
}

} // namespace

JobPage::JobPage(QWidget *parent)
    : QWidget(parent), m_stack(new QStackedLayout(this)), m_viewer(new JobViewer(this))
{
    setObjectName(QStringLiteral("jobPage"));
    m_stack->addWidget(makeList());
    m_stack->addWidget(m_viewer);

    connect(m_table, &QTableWidget::itemSelectionChanged, this, &JobPage::showSelected);
    connect(m_table, &QTableWidget::cellDoubleClicked, this, &JobPage::open);
    connect(m_viewer, &JobViewer::left, this, &JobPage::showList);
    connect(JobStore::getInstance(), &JobStore::changed, this, [this] {
        if (isVisible())
            refresh();
    });
    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this, &JobPage::changeRobot);
    retranslate();
}

QWidget *JobPage::makeList()
{
    auto *list = new QWidget(this);
    m_count = new QLabel(list);
    m_count->setObjectName(QStringLiteral("jobCount"));
    m_empty = new QLabel(list);
    m_empty->setObjectName(QStringLiteral("jobEmpty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setFont(SetFontSize::setSize(14));
    m_table = new QTableWidget(list);
    setUpTable(m_table);
    m_detail = new WrapLabel(11, 3, list);
    m_detail->setObjectName(QStringLiteral("jobDetail"));
    m_sort = makeButton("jobSort", &JobPage::turnSorting);
    m_open = makeButton("jobOpen", &JobPage::open);
    m_send = makeButton("jobSend", &JobPage::send);
    m_saveAgain = makeButton("jobSaveAgain", &JobPage::saveAgain);
    m_drop = makeButton("jobDrop", &JobPage::drop);
    m_remove = makeButton("jobDelete", &JobPage::remove);
    for (QPushButton *wide : {m_sort, m_send})
        wide->setMinimumWidth(180);

    auto *head = new QHBoxLayout;
    head->addWidget(m_count, 1);
    head->addWidget(m_sort);
    auto *foot = new QHBoxLayout;
    foot->setSpacing(8);
    for (QPushButton *button : {m_open, m_send, m_saveAgain})
        foot->addWidget(button);
    foot->addStretch(1);
    foot->addWidget(m_drop);
    foot->addWidget(m_remove);
    auto *column = new QVBoxLayout(list);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(6);
    column->addLayout(head);
    column->addWidget(m_empty, 1);
    column->addWidget(m_table, 1);
    column->addWidget(m_detail);
    column->addLayout(foot);
    return list;
}

QPushButton *JobPage::makeButton(const char *name, void (JobPage::*slot)())
{
    auto *button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setMinimumSize(116, kTouchHeight);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

// ---- the list -----------------------------------------------------------------------------------

void JobPage::refresh()
{
    const Row *before = selected();
    const QString name = before ? before->file.name : QString();
    m_robot = MoreRobot::getCurrentRobot();
    const auto order = m_newestFirst ? JobStore::Order::NewestFirst : JobStore::Order::ByName;
    m_rows.clear();
    for (const JobStore::File &file : JobStore::getInstance()->list(m_robot, order))
        m_rows.append({file, false, {}});
    for (const JobStore::Unsaved &job : JobStore::getInstance()->unsaved()) {
        for (Row &row : m_rows) {
            if (job.robot == m_robot && row.file.name == job.name) {
                row.isUnsaved = true;
                row.reason = job.reason;
                row.file.bytes = job.text.size();
            }
        }
    }

    const QSignalBlocker quiet(m_table);
    m_table->clearSelection();
    m_table->setCurrentItem(nullptr);
    m_table->setRowCount(static_cast<int>(m_rows.size()));
    for (int row = 0; row < m_table->rowCount(); ++row) {
        fill(row);
        if (!name.isEmpty() && m_rows.at(row).file.name == name)
            m_table->selectRow(row);
    }
    const auto jobs = std::count_if(m_rows.begin(), m_rows.end(), [](const Row &row) {
        return row.isUnsaved || row.file.kind == JobDirectory::File;
    });
    m_count->setText(tr("机器人 %1 · %2 个作业").arg(m_robot).arg(jobs));
    m_empty->setVisible(m_rows.isEmpty());
    m_table->setVisible(!m_rows.isEmpty());
    showSelected();
}

void JobPage::fill(int row)
{
    const Row &job = m_rows.at(row);
    bool isBad = false;
    const QString state = stateOf(job, &isBad);
    const QString texts[] = {job.file.name,
                             jobwords::dateText(job.isUnsaved ? QDateTime() : job.file.changed),
                             jobwords::sizeText(job.file.bytes), state};
    for (int column = 0; column < Columns; ++column) {
        auto *item = new QTableWidgetItem(texts[column]);
        if (column == State && isBad)
            item->setForeground(jobwords::kFaultInk);
        m_table->setItem(row, column, item);
    }
}

QString JobPage::stateOf(const Row &row, bool *isBad) const
{
    *isBad = row.isUnsaved || row.file.kind != JobDirectory::File;
    if (row.isUnsaved)
        return tr("未保存：%1").arg(row.reason);
    if (row.file.kind != JobDirectory::File)
        return tr("不可读：%1").arg(JobDirectory::nameOf(row.file.kind));
    const JobStore::Verdict verdict = JobStore::getInstance()->verdict(m_robot, row.file.name);
    switch (verdict.state) {
    case JobStore::Verdict::Sent:
        return tr("检查中");
    case JobStore::Verdict::Accepted:
        return tr("通过");
    case JobStore::Verdict::Refused:
        *isBad = true;
        return jobwords::faultText(verdict.fault);
    case JobStore::Verdict::Unknown:
        break;
    }
    return tr("未发送");
}

const JobPage::Row *JobPage::selected() const
{
    const QList<QTableWidgetItem *> items = m_table->selectedItems();
    const int row = items.isEmpty() ? -1 : items.first()->row();
    return row >= 0 && row < m_rows.size() ? &m_rows.at(row) : nullptr;
}

void JobPage::showSelected()
{
    const Row *row = selected();
    const bool isUnsaved = row && row->isUnsaved;
    bool isBad = false;
    m_detail->setText(row ? row->file.name + QLatin1Char('\n') + stateOf(*row, &isBad) : QString());
    const JobDirectory::Kind kind = row ? row->file.kind : JobDirectory::Unknown;
    const bool canRead = isUnsaved || kind == JobDirectory::File;
    m_open->setEnabled(row && canRead);
    m_send->setEnabled(row && canRead);
    m_remove->setEnabled(row && (canRead || kind == JobDirectory::Link)); // the link itself
    m_send->setVisible(!isUnsaved);
    m_remove->setVisible(!isUnsaved || kind == JobDirectory::Link); // it is in the job's way
    m_saveAgain->setVisible(isUnsaved);
    m_drop->setVisible(isUnsaved);
}

void JobPage::showList()
{
    m_stack->setCurrentIndex(0);
    m_viewer->shut();
}

/// Nothing that was begun for one robot goes on for the next.
void JobPage::changeRobot()
{
    m_table->clearSelection();
    showList();
    refresh();
}

void JobPage::turnSorting()
{
    m_newestFirst = !m_newestFirst;
    retranslate();
}

// ---- what is done with a job --------------------------------------------------------------------

void JobPage::open()
{
    const Row *row = selected();
    if (!row || !m_open->isEnabled()) // a double tap asks no button
        return;
    const QString name = row->file.name;
    const QString error = m_viewer->open(m_robot, name);
    if (error.isEmpty()) {
        m_stack->setCurrentWidget(m_viewer);
    } else {
        warn(tr("作业 %1 不能打开：%2").arg(name, error));
        refresh();
    }
}

void JobPage::send()
{
    const Row *row = selected();
    if (!row)
        return;
    const QString name = row->file.name;
    const QString error = JobStore::getInstance()->send(m_robot, name);
    if (!error.isEmpty())
        warn(tr("作业 %1 未发送：%2").arg(name, error));
}

void JobPage::saveAgain()
{
    const Row *row = selected();
    if (!row)
        return;
    const QString name = row->file.name;
    const QString error = JobStore::getInstance()->saveAgain(m_robot, name);
    if (error.isEmpty())
        SnackbarMessage::showMessage(tr("作业 %1 已保存").arg(name), kShown, 2, true);
    else
        warn(tr("作业 %1 仍未保存：%2").arg(name, error));
}

void JobPage::remove()
{
    const Row *row = selected();
    if (!row)
        return;
    const QString name = row->file.name;
    const bool isLink = row->file.kind == JobDirectory::Link;
    ask(isLink ? tr("%1（链接）").arg(name) : name, &JobPage::removeNow, name);
}

void JobPage::drop()
{
    if (const Row *row = selected())
        ask(tr("%1（未保存）").arg(row->file.name), &JobPage::dropNow, row->file.name);
}

void JobPage::ask(const QString &what, void (JobPage::*act)(const QString &), const QString &name)
{
    if (!App::ForbidOperatorAuthority(App::sysUser,
                                      QCoreApplication::translate("TechnologyWidget", "删除程序")))
        return;
    Robot::getInstance()->robot_key_slot_saftySwitchProcess(0);
    const QPointer<JobPage> self(this);
    PromptWidget::getInstance()->ask(PromptWidget::PROMPT_DELETE_PROJECT, what,
                                     [self, act, name, robot = m_robot](bool confirmed) {
                                         if (self && confirmed && robot == self->m_robot)
                                             (self->*act)(name);
                                     });
}

void JobPage::removeNow(const QString &name)
{
    const QString error = JobStore::getInstance()->remove(m_robot, name);
    if (!error.isEmpty())
        warn(tr("作业 %1 不能删除：%2").arg(name, error));
}

void JobPage::dropNow(const QString &name)
{
    JobStore::getInstance()->drop(m_robot, name);
}

// ---- the page -----------------------------------------------------------------------------------

void JobPage::retranslate()
{
    m_table->setHorizontalHeaderLabels({tr("名称"), tr("日期"), tr("大小"), tr("状态")});
    m_empty->setText(tr("这台机器人还没有作业。\n码垛的程序向导完成后，作业会出现在这里。"));
    m_sort->setText(m_newestFirst ? tr("排序：最新在前") : tr("排序：按名称"));
    m_open->setText(tr("打开"));
    m_send->setText(tr("发送到控制器"));
    m_saveAgain->setText(tr("重新保存"));
    m_drop->setText(tr("放弃"));
    m_remove->setText(tr("删除"));
    refresh();
}

void JobPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void JobPage::showEvent(QShowEvent *event)
{
    refresh();
    QWidget::showEvent(event);
}
