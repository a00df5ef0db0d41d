#include "eventpage.h"

#include "eventlog.h"
#include "eventmodel.h"
#include "lineeditwidget.h"
#include "printlog.h"
#include "snackbarmessage.h"
#include "touchtable.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int kRowHeight = 40;
constexpr int kTouchHeight = 42;

void setUpTable(QTableView *table, EventModel *model)
{
    table->setObjectName(QStringLiteral("eventTable"));
    setUpTouchTable(table, kRowHeight);
    table->setModel(model);
    table->setAlternatingRowColors(true);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setColumnWidth(EventModel::Number, 60);
    table->setColumnWidth(EventModel::Time, 112);
    table->setColumnWidth(EventModel::Kind, 128);
}

/// Their names are their times, so the oldest comes first. The new one stays, whatever the clock
/// says.
void dropOldExports(const QString &newOne)
{
    static const QRegularExpression name(QStringLiteral("^events-\\d{8}-\\d{6}\\.txt$"));
    const QDir directory = QFileInfo(newOne).dir();
    QStringList others =
        directory
            .entryList({QStringLiteral("events-*.txt")}, QDir::Files | QDir::NoSymLinks, QDir::Name)
            .filter(name);
    others.removeAll(QFileInfo(newOne).fileName());
    while (others.size() >= EventPage::kExports)
        QFile::remove(directory.filePath(others.takeFirst()));
}

} // namespace

EventPage::EventPage(QWidget *parent)
    : QWidget(parent), m_model(new EventModel(this)), m_table(new QTableView(this)),
      m_kind(new QComboBox(this)), m_id(new LineEditWidget(this)), m_kindLabel(new QLabel(this)),
      m_idLabel(new QLabel(this)), m_count(new QLabel(this)), m_export(new QPushButton(this)),
      m_detail(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("eventPage"));
    m_kind->setObjectName(QStringLiteral("eventKind"));
    m_kind->setMinimumSize(130, kTouchHeight);
    m_kind->addItem(QString(), QString());
    for (const QString &kind : EventModel::kinds())
        m_kind->addItem(QString(), kind);
    m_id->setObjectName(QStringLiteral("eventMessageId"));
    m_id->setFixedSize(110, kTouchHeight);
    m_id->setPlaceholderText(QStringLiteral("0x…"));
    m_id->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("(0[xX])?[0-9a-fA-F]{0,4}")), m_id));
    m_count->setObjectName(QStringLiteral("eventCount"));
    m_export->setObjectName(QStringLiteral("eventExport"));
    m_export->setMinimumSize(96, kTouchHeight);
    m_detail->setObjectName(QStringLiteral("eventDetail"));
    m_detail->setReadOnly(true);
    m_detail->setFixedHeight(84);
    setUpTable(m_table, m_model);

    auto *filters = new QHBoxLayout;
    filters->setSpacing(8);
    filters->addWidget(m_kindLabel);
    filters->addWidget(m_kind);
    filters->addSpacing(8);
    filters->addWidget(m_idLabel);
    filters->addWidget(m_id);
    filters->addWidget(m_count, 1);
    filters->addWidget(m_export);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->addLayout(filters);
    column->addWidget(m_table, 1);
    column->addWidget(m_detail);

    connect(m_kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { m_model->setKind(m_kind->currentData().toString()); });
    connect(m_id, &QLineEdit::textChanged, m_model, &EventModel::setMessageId);
    connect(m_export, &QPushButton::clicked, this, &EventPage::exportJournal);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &EventPage::showDetail);
    connect(m_model, &QAbstractItemModel::modelReset, this, &EventPage::refreshCount);
    connect(m_model, &QAbstractItemModel::modelReset, this, &EventPage::showDetail);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &EventPage::showDetail);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &EventPage::refreshCount);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &EventPage::refreshCount);
    m_model->setPaused(true);
    retranslate();
}

void EventPage::setMessageNames(std::function<QString(quint16)> names)
{
    m_model->setMessageNames(std::move(names));
}

QString EventPage::exportJournal()
{
    const QString directory = m_directory.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        : m_directory;
    const QString path = QDir(directory).filePath(
        QStringLiteral("events-%1.txt")
            .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"))));
    QString error;
    if (!QDir().mkpath(directory))
        error = tr("无法创建目录 %1").arg(directory);
    else if (EventLog::getInstance()->exportText(path, &error)) {
        dropOldExports(path);
        SnackbarMessage::showMessage(tr("事件已导出：%1").arg(path), 5000, 2, true);
        return path;
    }
    PrintLog::OutputToLog(error, 2);
    SnackbarMessage::showMessage(error, 5000, 1, true);
    return {};
}

void EventPage::showDetail()
{
    const QString text = m_model->fullText(m_table->currentIndex().row());
    if (text != m_detail->toPlainText()) // it keeps what the operator has scrolled to
        m_detail->setPlainText(text);
}

void EventPage::refreshCount()
{
    m_count->setText(tr("%1 条").arg(m_model->rowCount()));
}

void EventPage::retranslate()
{
    m_kindLabel->setText(tr("类别"));
    m_idLabel->setText(tr("消息号"));
    m_id->setAccessibleName(tr("消息号"));
    m_export->setText(tr("导出"));
    m_detail->setPlaceholderText(tr("选择一条事件，此处显示完整内容"));
    const QSignalBlocker quiet(m_kind);
    m_kind->setItemText(0, tr("全部"));
    for (int row = 1; row < m_kind->count(); ++row)
        m_kind->setItemText(row, EventModel::kindName(m_kind->itemData(row).toString()));
    refreshCount();
    m_model->retranslate();
}

void EventPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void EventPage::showEvent(QShowEvent *event)
{
    m_model->setPaused(false);
    QWidget::showEvent(event);
}

void EventPage::hideEvent(QHideEvent *event)
{
    m_model->setPaused(true);
    QWidget::hideEvent(event);
}
