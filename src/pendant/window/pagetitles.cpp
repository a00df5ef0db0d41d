#include "pagetitles.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct Title {
    int group;
    int id;
    const char *text;
};

const Title kTitles[] = {
    {8, 0, QT_TRANSLATE_NOOP("PageTitle", "工艺")},
    {8, 1, QT_TRANSLATE_NOOP("PageTitle", "码垛工艺")},
    {8, 5, QT_TRANSLATE_NOOP("PageTitle", "激光切割工艺")},
    {8, 6, QT_TRANSLATE_NOOP("PageTitle", "码垛导航")},
    {8, 7, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 抓手设置")},
    {8, 8, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 托盘设置")},
    {8, 9, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 位置设置")},
    {8, 10, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 工件参数")},
    {8, 11, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 接近参数")},
    {8, 12, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 重叠模式")},
    {8, 13, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 平面模式")},
    {8, 15, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 多重计数")},
    {8, 16, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 程序向导")},
    {8, 18, QT_TRANSLATE_NOOP("PageTitle", "简易码垛")},
    {8, 19, QT_TRANSLATE_NOOP("PageTitle", "简易码垛 - 抓手设置")},
    {8, 20, QT_TRANSLATE_NOOP("PageTitle", "简易码垛 - 位置设置")},
    {8, 21, QT_TRANSLATE_NOOP("PageTitle", "专用工艺")},
    {8, 22, QT_TRANSLATE_NOOP("PageTitle", "传送带跟踪工艺")},
    {8, 23, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 跟踪参数")},
    {8, 24, QT_TRANSLATE_NOOP("PageTitle", "激光 - 打孔参数")},
    {8, 25, QT_TRANSLATE_NOOP("PageTitle", "激光 - 切割参数")},
    {8, 26, QT_TRANSLATE_NOOP("PageTitle", "激光 - 模拟量设置")},
    {8, 27, QT_TRANSLATE_NOOP("PageTitle", "激光 - IO设置")},
    {8, 28, QT_TRANSLATE_NOOP("PageTitle", "激光 - 手动操作")},
    {8, 47, QT_TRANSLATE_NOOP("PageTitle", "打磨工艺")},
    {8, 48, QT_TRANSLATE_NOOP("PageTitle", "打磨参数")},
    {8, 49, QT_TRANSLATE_NOOP("PageTitle", "喷涂工艺")},
    {8, 50, QT_TRANSLATE_NOOP("PageTitle", "喷涂 - 模拟量设置")},
    {8, 51, QT_TRANSLATE_NOOP("PageTitle", "喷涂 - 数字量设置")},
    {8, 52, QT_TRANSLATE_NOOP("PageTitle", "喷涂 - 时序设置")},
    {8, 53, QT_TRANSLATE_NOOP("PageTitle", "喷涂 - 手动操作")},
    {8, 54, QT_TRANSLATE_NOOP("PageTitle", "喷涂 - 跟踪参数")},
    {8, 55, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 基本信息")},
    {8, 56, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 工具与检测源")},
    {8, 57, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 标定")},
    {8, 58, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 第二种标定")},
    {8, 59, QT_TRANSLATE_NOOP("PageTitle", "传送带 - 位置设置")},
    {8, 60, QT_TRANSLATE_NOOP("PageTitle", "码垛类型")},
    {8, 61, QT_TRANSLATE_NOOP("PageTitle", "码垛 - 位置调试")},
    {8, 62, QT_TRANSLATE_NOOP("PageTitle", "电批")},
    {1, 29, QT_TRANSLATE_NOOP("PageTitle", "焊接")},
    {1, 31, QT_TRANSLATE_NOOP("PageTitle", "视觉")},
};

const Title *find(int group, int title)
{
    const auto *found =
        std::find_if(std::begin(kTitles), std::end(kTitles), [&](const Title &candidate) {
            return candidate.group == group && candidate.id == title;
        });
    return found == std::end(kTitles) ? nullptr : found;
}

} // namespace

bool hasPageTitle(int group, int title)
{
    return find(group, title) != nullptr;
}

QString pageTitle(int group, int title)
{
    const Title *found = find(group, title);
    return QCoreApplication::translate("PageTitle", found ? found->text : kTitles[0].text);
}
