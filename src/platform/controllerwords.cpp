#include "controllerwords.h"

#include <QCoreApplication>

namespace {

struct Word {
    const char *word;
    const char *text;
};

constexpr Word kWords[] = {
    {"notEnabled", QT_TRANSLATE_NOOP("Controller", "未动作：请上电并按住使能键")},
    {"notTeaching", QT_TRANSLATE_NOOP("Controller", "点动只能在示教模式下进行")},
    {"outOfReach", QT_TRANSLATE_NOOP("Controller", "未动作：目标点不可达")},
    {"axisLimit", QT_TRANSLATE_NOOP("Controller", "已停止：轴到达限位")},
    {"noSuchAxis", QT_TRANSLATE_NOOP("Controller", "机器人没有该轴")},
};

} // namespace

QString controllerWord(const QString &message)
{
    for (const Word &known : kWords) {
        if (message == QLatin1String(known.word))
            return QCoreApplication::translate("Controller", known.text);
    }
    return message.left(kLongestWord);
}
