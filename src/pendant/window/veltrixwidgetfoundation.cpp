#include "veltrixwidgetfoundation.h"

#include "app.h"
#include "displaysize.h"
#include "eventpage.h"
#include "idlelock.h"
#include "jobpage.h"
#include "keycolumn.h"
#include "language.h"
#include "loginpage.h"
#include "pagetitles.h"
#include "promptwidget.h"
#include "screenhost.h"
#include "snackbarmessage.h"
#include "statusbar.h"
#include "storerepair.h"
#include "titlebar.h"
#include "useraccounts.h"
#include "userpage.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int kContentY = TitleBar::kHeight;

static_assert(DisplaySize::contentWidth + KeyColumn::kWidth == DisplaySize::width);
static_assert(TitleBar::kHeight + DisplaySize::contentHeight + StatusBar::kHeight
              == DisplaySize::height);

VeltrixWidgetFoundation::MainPage mainPageOf(VeltrixWidgetFoundation::Area area)
{
    switch (area) {
    case VeltrixWidgetFoundation::Jobs:
        return VeltrixWidgetFoundation::JobsPage;
    case VeltrixWidgetFoundation::Events:
        return VeltrixWidgetFoundation::JournalPage;
    case VeltrixWidgetFoundation::Users:
        return VeltrixWidgetFoundation::UsersPage;
    case VeltrixWidgetFoundation::Process:
        break;
    }
    return VeltrixWidgetFoundation::ProcessPages;
}

} // namespace

VeltrixWidgetFoundation::VeltrixWidgetFoundation(QWidget *parent)
    : QWidget(parent), m_titleBar(new TitleBar(this)), m_keys(new KeyColumn(this)),
      m_statusBar(new StatusBar(this)), m_jobs(new JobPage(this)), m_events(new EventPage(this)),
      m_users(new UserPage(this)), m_login(new LoginPage(this)), m_idleLock(new IdleLock(this)),
      m_lastRole(App::sysUser)
{
    setObjectName(QStringLiteral("VeltrixWidgetFoundation"));
    setFixedSize(DisplaySize::width, DisplaySize::height);
    DisplaySize::widgetX = 0;
    DisplaySize::widgetY = kContentY;

    const int width = DisplaySize::contentWidth;
    m_titleBar->setGeometry(0, 0, width, TitleBar::kHeight);
    m_statusBar->setGeometry(0, kContentY + DisplaySize::contentHeight, width, StatusBar::kHeight);
    m_keys->setGeometry(width, 0, KeyColumn::kWidth, DisplaySize::height);
    for (QWidget *page : QVector<QWidget *>{m_jobs, m_events, m_users}) {
        page->setGeometry(0, kContentY, width, DisplaySize::contentHeight);
        page->hide();
    }
    ScreenHost::set(this);

    connect(m_titleBar, &TitleBar::areaClicked, this, &VeltrixWidgetFoundation::showArea);
    connect(m_titleBar, &TitleBar::lockClicked, this, &VeltrixWidgetFoundation::lock);
    connect(this, &VeltrixWidgetFoundation::signal_clickUserBtn, this, [this] { showArea(Users); });
    connect(m_keys, &KeyColumn::aboutToChangeRobot, this,
            &VeltrixWidgetFoundation::aboutToChangeRobot);
    connect(m_keys, &KeyColumn::deadmanHeld, m_idleLock, &IdleLock::setHeld);
    connect(Language::getInstance(), &Language::aboutToChange, this,
            &VeltrixWidgetFoundation::aboutToChangeLanguage);
    connect(UserAccounts::getInstance(), &UserAccounts::userChanged, this,
            &VeltrixWidgetFoundation::userChanged);
    connect(m_idleLock, &IdleLock::expired, UserAccounts::getInstance(), &UserAccounts::lock);
    new StoreRepair(this);
    refreshTitle();
}

VeltrixWidgetFoundation::~VeltrixWidgetFoundation()
{
    if (ScreenHost::widget() == this)
        ScreenHost::set(nullptr);
}

VeltrixWidgetFoundation *VeltrixWidgetFoundation::getGlobalMainWindow()
{
    static QPointer<VeltrixWidgetFoundation> window;
    if (!window)
        window = new VeltrixWidgetFoundation;
    return window;
}

void VeltrixWidgetFoundation::addContent(QWidget *widget)
{
    if (!widget || m_contents.contains(widget))
        return;
    const bool hidden = widget->testAttribute(Qt::WA_WState_ExplicitShowHide) && widget->isHidden();
    widget->setParent(this);
    widget->setGeometry(DisplaySize::widgetX, DisplaySize::widgetY, DisplaySize::contentWidth,
                        DisplaySize::contentHeight);
    // Lock screen, questions and messages stay above it, also those of a window not shown yet.
    widget->stackUnder(m_titleBar);
    m_contents.append(widget);
    if (m_area == Process)
        widget->setVisible(!hidden);
    else if (!hidden)
        m_shownContents.append(widget);
}

void VeltrixWidgetFoundation::showContent(QWidget *widget)
{
    if (m_area != Process) {
        m_shownContents = {widget};
        return;
    }
    for (const QPointer<QWidget> &content : m_contents) {
        if (content)
            content->setVisible(content == widget);
    }
}

void VeltrixWidgetFoundation::setEmbeddedController(bool embedded)
{
    m_keys->setEmbeddedController(embedded);
    m_login->setEmbeddedController(embedded);
}

void VeltrixWidgetFoundation::showWidgetTitle(int group, int title, int)
{
    m_titleGroup = group;
    m_titleId = title;
    refreshTitle();
}

void VeltrixWidgetFoundation::leaveProcessPages()
{
    m_shownContents.clear();
    for (const QPointer<QWidget> &content : m_contents) {
        if (content && !content->isHidden()) {
            m_shownContents.append(content);
            content->hide();
        }
    }
}

void VeltrixWidgetFoundation::showArea(Area area)
{
    if (area != m_area) {
        if (m_area == Process)
            leaveProcessPages();
        m_area = area;
        m_jobs->setVisible(area == Jobs);
        m_events->setVisible(area == Events);
        m_users->setVisible(area == Users);
        if (area == Process) {
            for (const QPointer<QWidget> &content : m_shownContents) {
                if (content)
                    content->show();
            }
        }
        App::mainPage_ = mainPageOf(area);
    }
    m_titleBar->setArea(area);
    refreshTitle();
}

void VeltrixWidgetFoundation::showJobs(int)
{
    m_jobs->showList();
    showArea(Jobs);
}

void VeltrixWidgetFoundation::refreshTitle()
{
    setWindowTitle(tr("工艺示教器"));
    switch (m_area) {
    case Process:
        m_titleBar->setTitle(pageTitle(m_titleGroup, m_titleId));
        break;
    case Jobs:
        m_titleBar->setTitle(tr("作业"));
        break;
    case Events:
        m_titleBar->setTitle(tr("事件记录"));
        break;
    case Users:
        m_titleBar->setTitle(tr("用户与设置"));
        break;
    }
}

void VeltrixWidgetFoundation::lock()
{
    if (!UserAccounts::getInstance()->lock())
        SnackbarMessage::showMessage(tr("还没有用户，无法锁定。请先在用户页添加管理员"), 3000, 3,
                                     true);
}

void VeltrixWidgetFoundation::userChanged()
{
    if (App::sysUser == AUTHORITY_NONE)
        return;
    if (App::sysUser < m_lastRole) {
        // What one user was asked is not for another with fewer rights to confirm.
        PromptWidget::getInstance()->withdraw();
        showArea(Process);
        emit aboutToLowerRole();
    }
    m_lastRole = App::sysUser;
}

void VeltrixWidgetFoundation::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refreshTitle();
    QWidget::changeEvent(event);
}

void VeltrixWidgetFoundation::paintEvent(QPaintEvent *)
{
    // The bars stand apart from the content by a thin line each.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    const int right = DisplaySize::contentWidth;
    painter.drawLine(0, kContentY - 1, right - 1, kContentY - 1);
    painter.drawLine(0, kContentY + DisplaySize::contentHeight, right - 1,
                     kContentY + DisplaySize::contentHeight);
    painter.drawLine(right, 0, right, height());
}
