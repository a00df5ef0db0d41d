#include "simulator/enablingswitches.h"

#include <algorithm>

const EnablingSwitches::Switch *EnablingSwitches::find(int owner) const
{
    const auto found = std::find_if(m_switches.begin(), m_switches.end(),
                                    [owner](const Switch &each) { return each.owner == owner; });
    return found == m_switches.end() ? nullptr : &*found;
}

bool EnablingSwitches::hold(int owner, double now)
{
    for (Switch &each : m_switches) {
        if (each.owner != owner)
            continue;
        each.heard = now;
        return false;
    }
    m_switches.push_back({owner, now, false});
    queue(owner);
    return true;
}

void EnablingSwitches::letGo(int owner)
{
    m_switches.erase(std::remove_if(m_switches.begin(), m_switches.end(),
                                    [owner](const Switch &each) { return each.owner == owner; }),
                     m_switches.end());
    leaveLine(owner);
}

bool EnablingSwitches::isHeld(int owner) const
{
    const Switch *own = find(owner);
    return own && !own->hasLapsed;
}

std::vector<int> EnablingSwitches::expire(double now)
{
    std::vector<int> lapsed;
    for (Switch &each : m_switches) {
        if (each.hasLapsed || now - each.heard < m_lasts)
            continue;
        each.hasLapsed = true;
        leaveLine(each.owner);
        lapsed.push_back(each.owner);
    }
    return lapsed;
}

void EnablingSwitches::queue(int owner)
{
    if (isHeld(owner) && std::find(m_line.begin(), m_line.end(), owner) == m_line.end())
        m_line.push_back(owner);
}

void EnablingSwitches::leaveLine(int owner)
{
    m_line.erase(std::remove(m_line.begin(), m_line.end(), owner), m_line.end());
}
