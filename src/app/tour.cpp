#include "app/tour.h"

#include "app/jobtour.h"
#include "app/locktour.h"
#include "app/operator.h"
#include "app/pallettour.h"
#include "app/pendant.h"
#include "jobmanager.h"
#include "language.h"
#include "morerobot.h"
#include "robot.h"
#include "shell/technologywidget.h"

#include <QDir>
#include <QTextStream>

Tour::Tour(Pendant &pendant, QString directory)
    : m_operator(pendant, directory), m_directory(std::move(directory))
{
}

bool Tour::run()
{
    if (!QDir().mkpath(m_directory))
        return m_operator.fail(QStringLiteral("%1 cannot be made").arg(m_directory));
    if (!m_operator.waitFor(QStringLiteral("the connection to the controller"),
                            [] { return Robot::getInstance()->isConnected(); }))
        return false;
    const QStringList languages{QStringLiteral("zh"), QStringLiteral("en")};
    for (const QString &language : languages) {
        if (!Language::getInstance()->setCurrent(language))
            return m_operator.fail(QStringLiteral("the language %1 cannot be had").arg(language));
        if (!visitPackages(language) || !visitHostedPages() || !visitApplicationPages()
            || !setUpPolishing() || !PalletTour(m_operator).walk() || !makeJob(language))
            return false;
    }
    LockTour lock(m_operator);
    if (!lock.makeUser())
        return false;
    for (const QString &language : languages) {
        if (!Language::getInstance()->setCurrent(language) || !lock.walk(language))
            return false;
    }
    QTextStream(stdout) << m_operator.pictures() << " pictures in " << m_directory << Qt::endl;
    return true;
}

/// A job for the pallet and one from it, under names that the robot has no job of yet.
bool Tour::makeJob(const QString &language)
{
    const bool depalletise = language == QLatin1String("en");
    JobManager jobs;
    jobs.updateJobsFileInfo(MoreRobot::getCurrentRobot(), false, QString(), QString());
    QString name;
    for (int number = 1; name.isEmpty() || jobs.jobExists(name); ++number)
        name = (depalletise ? QStringLiteral("Unload_%1") : QStringLiteral("Load_%1")).arg(number);
    return JobTour(m_operator, m_directory).walk(name, depalletise);
}

bool Tour::visitPackages(const QString &language)
{
    m_operator.picture(QStringLiteral("menu-") + language);
    const struct {
        const char *button;
        const char *back;
    } packages[] = {
        {"BtnPalletTech", "m_pBtnPalletTechReturn"}, {"BtnLaserSetting", "m_pBtnLaserTechReturn"},
        {"BtnBWBTech", "ReturnProject_Button"},      {"BtnTrackConveyor", "m_pBtnTrackConReturn"},
        {"BtnPolish", "m_pBtnPolishReturn"},         {"BtnSpray", "m_pBtnSprayReturn"},
    };
    for (const auto &package : packages) {
        if (!m_operator.touch(QLatin1String(package.button)))
            return false;
        m_operator.picture(QLatin1String(package.button));
        if (!m_operator.touch(QLatin1String(package.back)))
            return false;
    }
    return true;
}

bool Tour::visitHostedPages()
{
    for (const char *button : {"BtnWeldSetting", "BtnVisionSetting", "BtnScrew"}) {
        if (!m_operator.touch(QLatin1String(button)))
            return false;
        m_operator.picture(QLatin1String(button));
        if (!m_operator.touch(QStringLiteral("hostedPageBack")))
            return false;
    }
    return true;
}

bool Tour::visitApplicationPages()
{
    for (const char *button : {"areaEvents", "areaUsers"}) {
        if (!m_operator.touch(QLatin1String(button)))
            return false;
        m_operator.picture(QLatin1String(button));
    }
    return m_operator.touch(QStringLiteral("areaProcess"));
}

/// Reads process number 3, changes it, is refused a value, saves, and finds it again.
bool Tour::setUpPolishing()
{
    const QString wear = Language::getInstance()->current() == QLatin1String("zh")
        ? QStringLiteral("12.5")
        : QStringLiteral("-0.25");
    if (!m_operator.touch(QStringLiteral("BtnPolish"))
        || !m_operator.touch(QStringLiteral("BtnPolishPara"))
        || !m_operator.chooseRow(QStringLiteral("m_pPolishCombox"), 2))
        return false;
    m_operator.picture(QStringLiteral("polish-view"));
    if (!m_operator.touch(QStringLiteral("btnPolishModify"))
        || !m_operator.touch(QStringLiteral("toolWear")))
        return false;
    m_operator.picture(QStringLiteral("polish-keypad"));
    if (!m_operator.touch(QStringLiteral("key_cancel"))
        || !m_operator.enter(QStringLiteral("toolWear"), wear)
        || !m_operator.enter(QStringLiteral("AutoCompensationCycle"), QStringLiteral("-4"))
        || !m_operator.touch(QStringLiteral("btnPolishModify")))
        return false;
    m_operator.picture(QStringLiteral("polish-refused"));
    if (!m_operator.enter(QStringLiteral("AutoCompensationCycle"), QStringLiteral("40"))
        || !m_operator.touch(QStringLiteral("btnPolishModify")))
        return false;
    m_operator.picture(QStringLiteral("polish-saved"));
    if (!m_operator.chooseRow(QStringLiteral("m_pPolishCombox"), 0)
        || !m_operator.chooseRow(QStringLiteral("m_pPolishCombox"), 2)
        || !m_operator.shows(QStringLiteral("toolWear"), wear)
        || !m_operator.shows(QStringLiteral("AutoCompensationCycle"), QStringLiteral("40")))
        return false;
    m_operator.picture(QStringLiteral("polish-read-again"), m_operator.pendant().pages());
    return m_operator.touch(QStringLiteral("btnPolishReturn"))
        && m_operator.touch(QStringLiteral("m_pBtnPolishReturn"));
}
