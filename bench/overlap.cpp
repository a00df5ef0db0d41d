// From a reply of the controller to the filled and painted layer page, by the number of layers,
// each time in the place of a table of the same height. Beside it the least that any way could
// take: a combo box with nine items and a field for each layer, made and deleted without a table.

#include "digitallineedit.h"
#include "pendantstyle.h"
#include "robot.h"
#include "shell/technologywidget.h"
#include "wire/ids.h"

#include <QApplication>
#include <QComboBox>
#include <QTableWidget>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

QByteArray reply(int layers, int round)
{
    QByteArray graphics;
    QByteArray heights;
    for (int layer = 0; layer < layers; ++layer) {
        graphics += (layer ? "," : "") + QByteArray::number((layer + round) % 9 + 1);
        heights += (layer ? "," : "") + QByteArray::number((layer + round) * 0.25);
    }
    return "{\"robot\":1,\"craftID\":1,\"pallet\":{\"floorSum\":" + QByteArray::number(layers)
        + ",\"overlapType\":2,\"graphicNum\":[" + graphics + "],\"heightRevise\":[" + heights
        + "]}}";
}

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// Processor time: what else the machine does meanwhile does not count.
double milliseconds(const std::function<void()> &work)
{
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PendantStyle::apply(application);
    TechnologyWidget pages(nullptr);
    pages.resize(714, 504);
    pages.show();
    pages.palletOverlappingModelWidget();
    settle();
    const auto *table = pages.findChild<QTableWidget *>(QStringLiteral("overlapModeTab"));
    QStringList numbers;
    for (int number = 1; number <= 9; ++number)
        numbers += QString::number(number);

    std::printf("layers   reply     filled   and painted   widgets alone   ratio   widgets\n"
                "           ms   us/layer      us/layer        us/layer             alive\n");
    for (int layers : {10, 100, 1000, 9999}) {
        std::vector<double> filled;
        std::vector<double> painted;
        std::vector<double> alone;
        const int rounds = layers < 1000 ? 41 : 7;
        for (int round = -1; round < rounds; ++round) {
            const QByteArray body = reply(layers, round + 1);
            const double fill = milliseconds([&body] {
                Robot::getInstance()->receiveMessage(wire::reply::robot_pallet_OverlappingModel,
                                                     body);
            });
            const double paint = milliseconds(settle);
            const double least = milliseconds([layers, &numbers] {
                QWidget parent;
                for (int layer = 0; layer < layers; ++layer) {
                    (new QComboBox(&parent))->insertItems(0, numbers);
                    new DigitalLineEdit(&parent);
                }
                settle();
            });
            if (round < 0) // warms up
                continue;
            filled.push_back(fill);
            painted.push_back(fill + paint);
            alone.push_back(least);
        }
        const double scale = 1000.0 / layers;
        std::printf("%6d %8.2f %10.1f %13.1f %15.1f %7.2f %9d\n", layers, median(painted),
                    median(filled) * scale, median(painted) * scale, median(alone) * scale,
                    median(painted) / median(alone),
                    static_cast<int>(table->findChildren<QWidget *>().size()));
    }
    return 0;
}
