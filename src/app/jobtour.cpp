#include "app/jobtour.h"

#include "app/operator.h"
#include "app/pendant.h"
#include "jobpage.h"
#include "jobstore.h"
#include "morerobot.h"
#include "robot.h"
#include "shell/technologywidget.h"
#include "veltrixwidgetfoundation.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTableWidget>
#include <cmath>

namespace {

/// The joint that the page of points shows as the robot's.
double liveJoint(const Pendant &pendant, const QString &label)
{
    const auto *live = pendant.pages()->findChild<QLabel *>(label);
    bool isNumber = false;
    const double value = live ? live->text().toDouble(&isNumber) : 0.0;
    return isNumber ? value : std::nan("");
}

} // namespace

JobTour::JobTour(Operator &hand, QString directory)
    : m_operator(hand), m_directory(std::move(directory))
{
}

bool JobTour::walk(const QString &name, bool depalletise)
{
    return m_operator.touchAll({QStringLiteral("BtnPalletTech"), QStringLiteral("BtnPalletFile")})
        && nameTheJob(name, depalletise) && teachThePoints() && chooseSignals() && chooseVariables()
        && finish(depalletise) && m_operator.touch(QStringLiteral("m_pBtnPalletTechReturn"))
        && readTheJob(name);
}

/// The first page; a name that is none is refused before.
bool JobTour::nameTheJob(const QString &name, bool depalletise)
{
    if (!m_operator.chooseRow(QStringLiteral("palletNumTechcomboBox"), 1)
        || !m_operator.chooseRow(QStringLiteral("palletFunctioncomboBox"), depalletise ? 1 : 0)
        || !m_operator.touch(QStringLiteral("createdFilePagedownBtn1")))
        return false;
    m_operator.picture(QStringLiteral("wizard-name-refused"));
    if (!m_operator.write(QStringLiteral("palletProgrameName_edit"), name))
        return false;
    m_operator.picture(QStringLiteral("wizard-name"));
    if (!m_operator.touch(QStringLiteral("createdFilePagedownBtn1")))
        return false;
    return m_operator.pendant().pages()->currentIndex() == page::Wizard2
        || m_operator.fail(QStringLiteral("the wizard does not take the name %1").arg(name));
}

/// The second page: the arm goes to three places by its jog keys, and back to the first of them.
bool JobTour::teachThePoints()
{
    Robot *robot = Robot::getInstance();
    if (robot->get_servo_state() != 3 && !m_operator.touch(QStringLiteral("servoKey")))
        return false;
    if (!m_operator.waitFor(QStringLiteral("the drives"),
                            [robot] { return robot->get_servo_state() == 3; })
        || !m_operator.press(QStringLiteral("deadmanKey"))
        || !m_operator.waitFor(QStringLiteral("the enabling switch"),
                               [robot] { return robot->get_deadman_state() == 1; })
        || !m_operator.touch(QStringLiteral("jogToggle")))
        return false;
    const struct {
        const char *key;
        const char *mark;
    } places[] = {{"jog1plus", "positionGetSafePoint"},
                  {"jog2plus", "positionGetUpperPoint"},
                  {"jog3plus", "positionGetPoint"}};
    for (const auto &place : places) {
        if (!jog(QLatin1String(place.key)) || !m_operator.waitForStandstill()
            || !m_operator.touch(QLatin1String(place.mark)))
            return false;
    }
    m_operator.picture(QStringLiteral("wizard-points"));
    const double safe = liveJoint(m_operator.pendant(), QStringLiteral("SafePointz"));
    if (!m_operator.touch(QStringLiteral("moveToGetSafePoint"))
        || !m_operator.waitFor(QStringLiteral("the arm to reach the safe point"), [this, safe] {
               const double now = liveJoint(m_operator.pendant(), QStringLiteral("wizardLivez"));
               return std::abs(now - safe) < 0.1;
           }))
        return false;
    return m_operator.letGo(QStringLiteral("deadmanKey"))
        && m_operator.touchAll(
            {QStringLiteral("jogToggle"), QStringLiteral("createdFilePagedownBtn2")});
}

/// Holds a jog key until its axis has turned by five degrees.
bool JobTour::jog(const QString &key)
{
    const QString label =
        QStringLiteral("wizardLive") + QStringLiteral("xyz").at(key.at(3).digitValue() - 1);
    const Pendant &pendant = m_operator.pendant();
    if (!m_operator.waitFor(QStringLiteral("the position of the arm"),
                            [&] { return !std::isnan(liveJoint(pendant, label)); }))
        return false;
    const double from = liveJoint(pendant, label);
    return m_operator.press(key) && m_operator.waitFor(QStringLiteral("the arm to move"), [&] {
        return std::abs(liveJoint(pendant, label) - from) > 5.0;
    }) && m_operator.letGo(key);
}

bool JobTour::chooseSignals()
{
    if (!m_operator.chooseRow(QStringLiteral("tongs_1_port"), 2)
        || !m_operator.chooseRow(QStringLiteral("tongs_1_getsucceed"), 3)
        || !m_operator.chooseRow(QStringLiteral("get_enable_signal"), 5))
        return false;
    m_operator.picture(QStringLiteral("wizard-signals"));
    return m_operator.touch(QStringLiteral("createdFilePagedownBtn3"));
}

bool JobTour::chooseVariables()
{
    if (!m_operator.chooseRow(QStringLiteral("totalVariabletype"), 2)
        || !m_operator.chooseRow(QStringLiteral("totalVariable"), 11)
        || !m_operator.chooseRow(QStringLiteral("layerVariabletype"), 1))
        return false;
    m_operator.picture(QStringLiteral("wizard-variables"));
    return m_operator.touch(QStringLiteral("createdFilePagedownBtn4"));
}

bool JobTour::finish(bool depalletise)
{
    if (!m_operator.chooseRow(
            depalletise ? QStringLiteral("palletProcess") : QStringLiteral("getProcess"), 1)
        || !m_operator.touch(QStringLiteral("xyPathOptimization")))
        return false;
    m_operator.picture(QStringLiteral("wizard-legs"));
    if (!m_operator.touch(QStringLiteral("createdFileFinishBtn")))
        return false;
    m_operator.picture(QStringLiteral("wizard-finished"));
    return true;
}

/// The job list has the job, and the controller takes it; its file goes along with the pictures.
bool JobTour::readTheJob(const QString &name)
{
    JobStore *store = JobStore::getInstance();
    const int robot = MoreRobot::getCurrentRobot();
    if (!m_operator.waitFor(
            QStringLiteral("the controller to accept the job"),
            [&] { return store->verdict(robot, name).state == JobStore::Verdict::Accepted; })
        || !m_operator.touch(QStringLiteral("areaJobs")))
        return false;
    auto *table = m_operator.pendant().window()->jobPage()->findChild<QTableWidget *>(
        QStringLiteral("jobTable"));
    const QList<QTableWidgetItem *> found = table->findItems(name, Qt::MatchExactly);
    if (found.isEmpty())
        return m_operator.fail(QStringLiteral("%1 is not in the job list").arg(name));
    if (!m_operator.touchAt(table->viewport(), table->visualItemRect(found.first()).center()))
        return false;
    m_operator.picture(QStringLiteral("jobs"));
    if (!m_operator.touch(QStringLiteral("jobOpen")))
        return false;
    m_operator.picture(QStringLiteral("job"));
    const QString path = store->pathOf(robot, name);
    const QString copy = QDir(m_directory).filePath(QFileInfo(path).fileName());
    QFile::remove(copy);
    if (!QFile::copy(path, copy))
        return m_operator.fail(QStringLiteral("%1 cannot be copied").arg(path));
    return m_operator.touchAll({QStringLiteral("jobBack"), QStringLiteral("areaProcess")});
}
