#include "titlebar.h"

#include "robot.h"
#include "warningmark.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

using Window = VeltrixWidgetFoundation;

constexpr int kLargestTitle = 16; // points
constexpr int kSmallestTitle = 10;
constexpr int kNarrowestButton = 60; // pixels
constexpr int kButtonMargins = 18;
constexpr int kTitleSlack = 4; // pixels; a line as wide as its label wraps already
const char *const kAreaNames[] = {"areaProcess", "areaJobs", "areaEvents", "areaUsers"};

} // namespace

TitleBar::TitleBar(QWidget *parent)
    : QWidget(parent), m_title(new QLabel(this)), m_stale(new QLabel(this)),
      m_lock(new QPushButton(this))
{
    setObjectName(QStringLiteral("titleBar"));
    setFixedHeight(kHeight);
    m_title->setObjectName(QStringLiteral("pageTitle"));
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_title->setWordWrap(true);
    m_title->installEventFilter(this);
    m_stale->setObjectName(QStringLiteral("staleMark"));
    setUpWarningMark(m_stale);
    m_lock->setObjectName(QStringLiteral("lockButton"));

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(10, 3, 4, 3);
    row->setSpacing(4);
    row->addWidget(m_title, 1);
    row->addWidget(m_stale);
    for (int area = Window::Process; area <= Window::Users; ++area) {
        m_areas[area] = new QPushButton(this);
        m_areas[area]->setObjectName(QString::fromLatin1(kAreaNames[area]));
        m_areas[area]->setCheckable(true);
        row->addWidget(m_areas[area]);
        connect(m_areas[area], &QPushButton::clicked, this,
                [this, area] { emit areaClicked(static_cast<Area>(area)); });
    }
    row->addWidget(m_lock);
    const auto buttons = findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedHeight(42);
    }
    connect(m_lock, &QPushButton::clicked, this, &TitleBar::lockClicked);
    connect(Robot::getInstance(), &Robot::linkChanged, this, &TitleBar::refreshStale);
    retranslate();
    refreshStale();
    setArea(Window::Process);
}

void TitleBar::setTitle(const QString &title)
{
    m_title->setText(title);
    fitTitle();
}

QString TitleBar::title() const
{
    return m_title->text();
}

void TitleBar::setArea(Area area)
{
    for (int each = Window::Process; each <= Window::Users; ++each)
        m_areas[each]->setChecked(each == area);
}

/// As wide as their words ask for, so that the title keeps its room.
void TitleBar::fitButtons()
{
    const auto buttons = findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        const int words = button->fontMetrics().horizontalAdvance(button->text());
        button->setFixedWidth(qMax(kNarrowestButton, words + kButtonMargins));
    }
}

void TitleBar::fitTitle()
{
    QFont font = m_title->font();
    int points = kLargestTitle;
    for (; points > kSmallestTitle; --points) {
        font.setPointSize(points);
        if (QFontMetrics(font).horizontalAdvance(m_title->text()) + kTitleSlack <= m_title->width())
            break;
    }
    font.setPointSize(points);
    if (font != m_title->font())
        m_title->setFont(font);
}

bool TitleBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_title && event->type() == QEvent::Resize)
        fitTitle();
    return QWidget::eventFilter(watched, event);
}

void TitleBar::refreshStale()
{
    m_stale->setVisible(Robot::getInstance()->link() == Robot::Link::Lost);
}

void TitleBar::retranslate()
{
    m_stale->setText(tr("链路中断\n显示的是旧值"));
    m_areas[Window::Process]->setText(tr("工艺"));
    m_areas[Window::Jobs]->setText(tr("作业"));
    m_areas[Window::Events]->setText(tr("事件"));
    m_areas[Window::Users]->setText(tr("用户"));
    m_lock->setText(tr("锁定"));
    fitButtons();
}

void TitleBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
