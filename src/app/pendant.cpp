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
#include "useraccounts.h"
#include "veltrixdatabase.h"
#include "veltrixwidgetfoundation.h"

#include <QDir>

bool Pendant::openStore(const Options &options, QString *error)
{
    if (!QDir().mkpath(options.dataDirectory)) {
        *error = QStringLiteral("The data directory %1 cannot be made.").arg(options.dataDirectory);
        return false;
    }
    QString reason;
    if (!VeltrixDatabase::getInstance()->open(options.dataDirectory, &reason)) {
        *error = QStringLiteral("The configuration in %1 cannot be opened: %2.")
                     .arg(options.dataDirectory, reason);
        return false;
    }
    if (!PrintLog::open(options.dataDirectory)) {
        *error = QStringLiteral("The log in %1 cannot be opened.").arg(options.dataDirectory);
        return false;
    }
    AuditLog::getInstance()->open(options.dataDirectory);
    VeltrixDatabase::getInstance()->loadAppConfigData();
    JobStore::getInstance()->setDirectory(options.dataDirectory + QStringLiteral("/jobs"));
    return true;
}

bool Pendant::connectController(const Options &options, QString *error)
{
    if (!options.isEmbedded()) {
        Robot::getInstance()->connectToController(options.controllerHost, options.controllerPort);
        return true;
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
        *error = QStringLiteral("The simulated controller does not start: %1.").arg(reason);
        return false;
    }
    for (const KinematicRule &rule : options.kinematics)
        m_controller.controller()->setKinematicType(rule.robot, rule.type);
    Robot::getInstance()->connectToController(QStringLiteral("127.0.0.1"), port);
    return true;
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
    const auto backToMenu = [this] {
        m_window->showContent(m_pages);
        m_pages->return_mainPage();
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
    if (!openStore(options, error))
        return false;
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
    return connectController(options, error);
}

void Pendant::letGo()
{
    m_window->close();
}

void Pendant::stop()
{
    Robot::getInstance()->disconnectFromController();
    m_controller.stop();
    AuditLog::getInstance()->close();
    PrintLog::close();
    VeltrixDatabase::getInstance()->close();
}
