#include "simulator/kinematicrule.h"

#include "simulator/robotcell.h"

#include <QStringList>

std::optional<KinematicRule> KinematicRule::parse(const QString &text)
{
    const QStringList sides = text.split(QLatin1Char('='));
    bool isRobot = false;
    bool isType = false;
    const KinematicRule rule{sides.value(0).toInt(&isRobot), sides.value(1).toInt(&isType)};
    if (sides.size() != 2 || !isRobot || !isType || rule.robot < 1
        || rule.robot > RobotCell::kRobots || rule.type < 1 || rule.type > 12)
        return std::nullopt;
    return rule;
}
