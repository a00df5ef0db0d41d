#include "link/request.h"

#include "link/reads.h"

#include "morerobot.h"
#include "robot.h"
#include "wire/json.h"

#include <QComboBox>

namespace request {

Json::Value forRobot()
{
    Json::Value body;
    body["robot"] = MoreRobot::getCurrentRobot();
    return body;
}

Json::Value forRow(const QComboBox *selector, const char *key)
{
    Json::Value body = forRobot();
    body[key] = selector->currentIndex() + 1;
    return body;
}

Json::Value forText(const QComboBox *selector, const char *key)
{
    Json::Value body = forRobot();
    body[key] = selector->currentText().toDouble();
    return body;
}

void send(message::Id id, const Json::Value &body)
{
    Robot::getInstance()->sendCommandData(id, wire::writeLine(body));
}

void ask(message::Id id, wire::reply::Id answer, const QComboBox *selector)
{
    ask(id, answer, {selector}, forRow(selector));
}

void ask(message::Id id, wire::reply::Id answer, std::initializer_list<const QComboBox *> selectors,
         const Json::Value &body)
{
    reads::Numbers numbers;
    for (const QComboBox *selector : selectors)
        numbers.append(selector->currentIndex() + 1);
    reads::note(answer, numbers);
    send(id, body);
}

void sendEmpty(message::Id id)
{
    Robot::getInstance()->sendCommandData(id, QByteArray());
}

} // namespace request
