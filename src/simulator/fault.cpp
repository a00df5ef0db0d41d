#include "simulator/fault.h"

#include "link/messages.h"

#include <QStringList>

namespace {

struct Name {
    const char *text;
    Fault fault;
};

constexpr Name kNames[] = {
    {"none", Fault::None}, {"noreply", Fault::NoReply},     {"firstlost", Fault::FirstReplyLost},
    {"late", Fault::Late}, {"malformed", Fault::Malformed}, {"otherrobot", Fault::OtherRobot},
    {"cut", Fault::Cut},
};

} // namespace

std::optional<FaultRule> FaultRule::parse(const QString &text)
{
    const QStringList sides = text.split(QLatin1Char('='));
    if (sides.size() != 2)
        return std::nullopt;
    FaultRule rule;
    bool good = false;
    rule.id = sides.at(0).toUShort(&good, 0);
    if (!good || !message::name(rule.id))
        return std::nullopt;

    const QStringList parts = sides.at(1).split(QLatin1Char(':'));
    if (parts.size() > 2)
        return std::nullopt;
    if (parts.size() == 2) {
        rule.milliseconds = parts.at(1).toInt(&good);
        if (!good || rule.milliseconds < 0 || parts.at(0) != QLatin1String("late"))
            return std::nullopt;
    }
    for (const Name &name : kNames) {
        if (parts.at(0) == QLatin1String(name.text)) {
            rule.fault = name.fault;
            return rule;
        }
    }
    return std::nullopt;
}
