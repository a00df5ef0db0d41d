// A message that was refused is told to the pendant that sent it.

#include "simulator/refusals.h"

#include "simulator/refusalword.h"
#include "simulator/simulatedcontroller.h"
#include "wire/ids.h"
#include "wire/json.h"

#include <algorithm>
#include <string_view>

bool Refusals::isDue(quint16 id, const char *reason)
{
    m_told.erase(std::remove_if(m_told.begin(), m_told.end(),
                                [](const Told &told) { return told.since.hasExpired(kBetween); }),
                 m_told.end());
    const auto isIt = [=](const Told &told) {
        return told.id == id && std::string_view(told.reason) == reason;
    };
    if (std::any_of(m_told.begin(), m_told.end(), isIt))
        return false;
    m_told.push_back({id, reason, {}});
    m_told.back().since.start();
    return true;
}

/// Keys have words of their own, and so has what the store or an arm has already said of a message.
void SimulatedController::tellOfRefusal(Pendant &pendant, quint16 id, const char *reason)
{
    if (id == wire::Key || pendant.session.isTold || !pendant.session.refusals.isDue(id, reason))
        return;
    Json::Value status = statusOf(pendant, pendant.session.robot);
    status["message"] = refusalword::kRefused;
    status["id"] = id;
    status["reason"] = reason;
    pendant.connection->send(wire::Status, wire::writeLine(status));
}
