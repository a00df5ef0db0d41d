#include "app/pendant.h"

#include "app.h"
#include "auditlog.h"
#include "eventpage.h"
#include "jobstore.h"
#include "language.h"
#include "link/messages.h"
#include "newtechnologywidget.h"
#include "printlog.h"
#include "robot.h"
#include "shell/technologywidget.h"
#include "snackbarmessage.h"
#include "statusbar.h"
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"

#include <QCoreApplication>

namespace {

constexpr int kDayCheck = 10 * 60 * 1000; // ms

/// Where there is an operator, a page asks.
Startup::Ask operatorOf(const Options &options)
{
    if (!options.tourDirectory.isEmpty())
        return [](const QStringList &, const StartPage::Maker &) { return Startup::End; };
    return [](const QStringList &languages, const StartPage::Maker &maker) {
        StartPage page;
        return page.ask(languages, maker, Startup::End);
    };
}

} // namespace

void Pendant::takeUpStore(const Options &options)
{
    VeltrixDatabase *database = VeltrixDatabase::getInstance();
    AuditLog::getInstance()->open(options.dataDirectory);
    database->loadAppConfigData();
    database->keepDailyCopy();
    QObject::connect(&m_daily, &QTimer::timeout, &m_daily,
                     [database] { database->keepDailyCopy(); });
    m_daily.start(kDayCheck);
    JobStore::getInstance()->setDirectory(options.dataDirectory + QStringLiteral("/jobs"));
}

/// Without its controller the pendant is there all the same, and says why.
void Pendant::connectController(const Options &options)
{
    if (!options.isEmbedded()) {
        Robot::getInstance()->connectToController(options.controllerHost, options.controllerPort);
        return;
    }
    SimulatedController::Options controller;
    controller.directory = options.dataDirectory;
    if (options.switchLasts > 0)
        controller.switchLasts = options.switchLasts;
    QObject::connect(&m_controller, &EmbeddedController::storeTold, &m_controller,
                     [](const QString &sentence) { PrintLog::OutputToLog(sentence, 3); });
    QString reason;
    const quint16 port = m_controller.start(controller, &reason);
    if (port == 0) {
        const QString text =
            QCoreApplication::translate("Pendant", "模拟控制器无法启动：%1").arg(reason);
        PrintLog::OutputToLog(text, 3);
        SnackbarMessage::showStanding(text, 3);
        return;
    }
    for (const KinematicRule &rule : options.kinematics)
        m_controller.controller()->setKinematicType(rule.robot, rule.type);
    Robot::getInstance()->connectToController(QStringLiteral("127.0.0.1"), port);
}

void Pendant::wirePages()
{
    NewTechnologyWidget *hosted = NewTechnologyWidget::getInstance();
    m_window->addContent(m_pages);
    m_window->addContent(hosted);
    hosted->hide();

    QObject::connect(m_pages, &TechnologyWidget::tnw_WidgetTitle, m_window,
                     &VeltrixWidgetFoundation::showWidgetTitle);
    QObject::connect(m_pages, &TechnologyWidget::showJobFile, m_window,
                     &VeltrixWidgetFoundation::showJobs);
    const auto backToMenu = [window = m_window, pages = m_pages] {
        window->showContent(pages);
        pages->return_mainPage();
    };
    QObject::connect(hosted, &NewTechnologyWidget::backRequested, m_pages, backToMenu);
    // What a page shows belongs to one robot: another robot's values start from the menu.
    QObject::connect(m_window, &VeltrixWidgetFoundation::aboutToChangeRobot, m_pages, backToMenu);
    QObject::connect(m_window, &VeltrixWidgetFoundation::aboutToChangeLanguage, m_pages,
                     backToMenu);
    // ... and one user's open page is not for another with fewer rights.
    QObject::connect(m_window, &VeltrixWidgetFoundation::aboutToLowerRole, m_pages, backToMenu);
    backToMenu();
}

bool Pendant::start(const Options &options, QString *error)
{
    if (!m_startup.run(options, operatorOf(options), error))
        return false;
    takeUpStore(options);
    if (options.language.isEmpty())
        Language::getInstance()->loadStored();
    else
        Language::getInstance()->setCurrent(options.language);
    App::DCAll_In_One = options.specialProcessOnly;
    UserAccounts::getInstance()->start(options.isEmbedded());

    m_window = VeltrixWidgetFoundation::getGlobalMainWindow();
    m_window->setEmbeddedController(options.isEmbedded());
    m_window->eventPage()->setExportDirectory(options.dataDirectory);
    m_window->eventPage()->setMessageNames([](quint16 id) {
        const char *name = message::name(id);
        return name ? QString::fromLatin1(name) : QString();
    });
    m_pages = TechnologyWidget::getInstance();
    wirePages();
    m_window->statusBar()->setKeeps(m_startup.keeps());
    connectController(options);
    return true;
}

void Pendant::letGo()
{
    m_window->close();
}

void Pendant::stop()
{
    Robot::getInstance()->disconnectFromController();
    m_controller.stop();
    m_daily.stop();
    AuditLog::getInstance()->close();
    VeltrixDatabase::getInstance()->close();
    PrintLog::close();
    m_startup.release();
}
