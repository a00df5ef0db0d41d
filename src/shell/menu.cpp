#include "app.h"
#include "displaysize.h"
#include "newtechnologywidget.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"
#include "veltrixwidgetfoundation.h"

#include <functional>

void TechnologyWidget::initTechButtons()
{
    const QList<QToolButton *> buttons = ui->techBackwidget->findChildren<QToolButton *>();
    for (QToolButton *button : buttons)
        connect(button, &QToolButton::clicked, this, &TechnologyWidget::buttonClick);
    connect(ui->UserTechBtns, &QToolButton::clicked, VeltrixWidgetFoundation::getGlobalMainWindow(),
            &VeltrixWidgetFoundation::signal_clickUserBtn);
}

/// A button of the menu was pressed; its object name tells which. Buttons that are not listed have
/// a slot of their own.
void TechnologyWidget::buttonClick()
{
    struct Branch {
        const char *button;
        const char
            *label; ///< what the user's right is asked for; it may differ from the button's text
        std::function<void()> open;
    };
    const Branch branches[] = {
        {"BtnPalletTech", QT_TR_NOOP("码垛工艺"), [this] { return_PalletPage(); }},
        {"BtnLaserSetting", QT_TR_NOOP("激光切割设置"), [this] { LaserMainPage(); }},
        {"BtnBWBTech", QT_TR_NOOP("专用工艺"), [this] { openSpecialProcess(); }},
        {"BtnTrackConveyor", QT_TR_NOOP("传送带跟踪工艺"), [this] { showPage(page::Conveyor); }},
        {"BtnPolish", QT_TR_NOOP("打磨工艺"), [this] { return_polishwiget(); }},
        {"BtnSpray", QT_TR_NOOP("喷涂工艺"), [this] { return_spraywiget(); }},
        {"BtnScrew", QT_TR_NOOP("电批工艺"),
         [this] { showHostedPage(TECH_SCREW, page::kTitleGroup, 62); }},
    };

    if (!sender())
        return;
    const QString name = sender()->objectName();
    for (const Branch &branch : branches) {
        if (name != QLatin1String(branch.button))
            continue;
        if (App::ForbidOperatorAuthority(App::sysUser, tr(branch.label)))
            branch.open();
        return;
    }
}

void TechnologyWidget::showWeldingPage()
{
    if (App::ForbidOperatorAuthority(App::sysUser, tr("焊接设置")))
        showHostedPage(TECH_WELDING, page::kHostedTitleGroup, 29);
}

void TechnologyWidget::showVisionpage()
{
    if (App::ForbidOperatorAuthority(App::sysUser, tr("视觉设置")))
        showHostedPage(TECH_VISION, page::kHostedTitleGroup, 31);
}

/// A page of the sibling component takes the place of this one.
void TechnologyWidget::showHostedPage(int type, int group, int title)
{
    hide();
    NewTechnologyWidget *host = NewTechnologyWidget::getInstance();
    host->resize(DisplaySize::contentWidth, DisplaySize::contentHeight);
    host->move(DisplaySize::widgetX, DisplaySize::widgetY);
    host->showWgt(static_cast<TechWidgetType>(type));
    emit tnw_WidgetTitle(group, title, 0);
}

void TechnologyWidget::return_mainPage()
{
    showPage(page::Menu);
    App::mainPage_ = 2;
    App::secondPage_ = 28;
}
