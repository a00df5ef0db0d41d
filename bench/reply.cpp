// From a reply of the controller to the filled polishing page, against parsing the same text alone.

#include "pendantstyle.h"
#include "robot.h"
#include "rounds.h"
#include "shell/technologywidget.h"
#include "wire/ids.h"

#include <QApplication>
#include <json/json.h>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PendantStyle::apply(application);
    TechnologyWidget pages(nullptr);
    pages.resize(714, 504);
    pages.show();
    pages.showPolish();
    QApplication::processEvents();

    constexpr int kReplies = 2000;
    std::vector<QByteArray> bodies;
    for (int i = 0; i < kReplies; ++i) // each reply brings nine values that differ from the last
        bodies.push_back(QByteArray("{\"craftID\":1,\"polish\":{\"autoFeed\":{\"cycle\":")
                         + QByteArray::number(i) + ",\"value\":" + QByteArray::number(i * 0.25)
                         + "},\"endToolOffset\":{\"X\":" + QByteArray::number(i * 1.5) + ",\"Y\":"
                         + QByteArray::number(i * 2.5) + ",\"Z\":" + QByteArray::number(i * 3.5)
                         + "},\"startToolOffset\":{\"X\":" + QByteArray::number(i * -1.5)
                         + ",\"Y\":" + QByteArray::number(i * -2.5)
                         + ",\"Z\":" + QByteArray::number(i * -3.5)
                         + "},\"toolWear\":" + QByteArray::number(i * 0.125) + "},\"robot\":1}\n");

    compare(
        "2000 replies to the filled page (not painted)", 15,
        [&bodies] {
            for (const QByteArray &body : bodies)
                Robot::getInstance()->receiveMessage(wire::reply::robot_Polish_Para, body);
        },
        [&bodies] {
            for (const QByteArray &body : bodies) {
                Json::Value root;
                Json::Reader reader;
                reader.parse(body.constData(), body.constData() + body.size(), root, true);
            }
        });
    return 0;
}
