#include "link/request.h"

#include "morerobot.h"
#include "robot.h"
#include "wire/json.h"

#include <QComboBox>
#include <QVariant>

namespace {

constexpr char kAskedRows[] = "askedRows"; // property of a selector: rows that await their answer
constexpr int kMostAsked = 32;

} // namespace

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

void ask(message::Id id, QComboBox *selector)
{
    ask(id, {selector}, forRow(selector));
}

void ask(message::Id id, std::initializer_list<QComboBox *> selectors, const Json::Value &body)
{
    const bool isAnswered = Robot::getInstance()->isConnected();
    for (QComboBox *selector : selectors) {
        QVariantList rows = selector->property(kAskedRows).toList();
        if (!isAnswered)
            rows.clear(); // nor is what was asked before
        else if (rows.size() >= kMostAsked)
            rows.removeFirst(); // its answer was lost
        if (isAnswered)
            rows.append(selector->currentIndex());
        selector->setProperty(kAskedRows, rows);
    }
    send(id, body);
}

bool takeAnswer(QComboBox *selector, int row)
{
    QVariantList rows = selector->property(kAskedRows).toList();
    if (!rows.removeOne(row))
        return false;
    selector->setProperty(kAskedRows, rows);
    return true;
}

void sendEmpty(message::Id id)
{
    Robot::getInstance()->sendCommandData(id, QByteArray());
}

} // namespace request
