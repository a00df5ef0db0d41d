#include "startpage.h"

#include "displaysize.h"
#include "language.h"
#include "setfontsize.h"
#include "wraplabel.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int kMargin = 28;
constexpr int kKeyHeight = 46;
constexpr int kHeadingPoints = 17;
constexpr int kTextPoints = 12;
constexpr int kDetailPoints = 11;

QString joined(const QString &first, const QString &second, const QString &between)
{
    return first == second ? first : first + between + second;
}

/// The same content in two languages at once.
StartPage::Content both(StartPage::Content first, const StartPage::Content &second)
{
    first.heading = joined(first.heading, second.heading, QStringLiteral("\n"));
    first.explanation = joined(first.explanation, second.explanation, QStringLiteral("\n"));
    for (int row = 0; row < first.details.size(); ++row) {
        StartPage::Detail &detail = first.details[row];
        const StartPage::Detail other = second.details.value(row);
        detail.label = joined(detail.label, other.label, QStringLiteral(" / "));
        detail.value = joined(detail.value, other.value, QStringLiteral(" / "));
    }
    for (int row = 0; row < first.choices.size(); ++row) {
        QString &text = first.choices[row].text;
        text = joined(text, second.choices.at(row).text, QStringLiteral(" / "));
    }
    return first;
}

QLabel *textLabel(const char *name, int points, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(SetFontSize::setSize(points));
    return label;
}

QWidget *detailsTable(const QVector<StartPage::Detail> &details, QWidget *parent)
{
    auto *table = new QWidget(parent);
    table->setObjectName(QStringLiteral("startDetails"));
    auto *grid = new QGridLayout(table);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < details.size(); ++row) {
        auto *label = new QLabel(details[row].label, table);
        label->setFont(SetFontSize::setSize(kDetailPoints));
        // Paths and what the system says come in any length.
        auto *value = new WrapLabel(kDetailPoints, 2, table);
        value->setObjectName(QStringLiteral("startDetail%1").arg(row));
        value->setText(details[row].value);
        value->setAccessibleName(details[row].value);
        grid->addWidget(label, row, 0);
        grid->addWidget(value, row, 1);
    }
    return table;
}

} // namespace

StartPage::StartPage(QWidget *parent)
    : QWidget(parent), m_column(new QVBoxLayout(this)),
      m_heading(textLabel("startHeading", kHeadingPoints, this)),
      m_explanation(textLabel("startExplanation", kTextPoints, this))
{
    setObjectName(QStringLiteral("startPage"));
    setFixedSize(DisplaySize::width, DisplaySize::height);
    // The pendant goes on without this window.
    setAttribute(Qt::WA_QuitOnClose, false);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_column->setSpacing(12);
    m_column->addWidget(m_heading);
    m_column->addWidget(m_explanation);
    m_column->addStretch(1);
}

int StartPage::ask(const QStringList &languages, const Maker &maker, int otherwise)
{
    Content content;
    for (const QString &language : languages) {
        Language::getInstance()->show(language);
        content = content.heading.isEmpty() ? maker() : both(content, maker());
    }
    fill(content);
    show();
    activateWindow();
    m_chosen = otherwise;
    QEventLoop waiting;
    m_waiting = &waiting;
    waiting.exec();
    m_waiting = nullptr;
    hide();
    return m_chosen;
}

void StartPage::fill(const Content &content)
{
    delete std::exchange(m_details, nullptr);
    delete std::exchange(m_choices, nullptr);
    setWindowTitle(content.heading);
    m_heading->setText(content.heading);
    m_explanation->setText(content.explanation);
    m_details = detailsTable(content.details, this);
    m_column->insertWidget(2, m_details);
    addChoices(content.choices);
}

void StartPage::addChoices(const QVector<Choice> &choices)
{
    m_choices = new QWidget(this);
    auto *grid = new QGridLayout(m_choices);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    const int last = choices.size() - 1;
    for (int row = 0; row <= last; ++row) {
        auto *key = new QPushButton(choices[row].text, m_choices);
        const int id = choices[row].id;
        key->setObjectName(QStringLiteral("startChoice%1").arg(id));
        key->setMinimumHeight(kKeyHeight);
        key->setFont(SetFontSize::setSize(kTextPoints));
        key->setFocusPolicy(Qt::NoFocus);
        connect(key, &QPushButton::clicked, this, [this, id] {
            m_chosen = id;
            if (m_waiting)
                m_waiting->quit();
        });
        if (row < last - 1 || last == 0)
            grid->addWidget(key, row, 0, 1, 2);
        else
            grid->addWidget(key, last - 1, row == last ? 1 : 0);
    }
    m_column->addWidget(m_choices);
}

void StartPage::closeEvent(QCloseEvent *event)
{
    if (m_waiting)
        m_waiting->quit();
    QWidget::closeEvent(event);
}
