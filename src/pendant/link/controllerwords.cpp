#include "controllerwords.h"

#include <QCoreApplication>

namespace {

struct Word {
    const char *word;
    const char *text;
};

constexpr char kControlHeld[] = "controlHeld";
constexpr int kLongestPart = 60; // characters

constexpr Word kWords[] = {
    {"notEnabled", QT_TRANSLATE_NOOP("Controller", "未动作：请上电并按住使能键")},
    {kControlHeld, QT_TRANSLATE_NOOP("Controller", "未执行：另一台示教器正在控制机器人")},
    {"notRenewed", QT_TRANSLATE_NOOP("Controller", "使能中断：请松开使能键后重新按住")},
    {"notTeaching", QT_TRANSLATE_NOOP("Controller", "点动只能在示教模式下进行")},
    {"outOfReach", QT_TRANSLATE_NOOP("Controller", "未动作：目标点不可达")},
    {"axisLimit", QT_TRANSLATE_NOOP("Controller", "已停止：轴到达限位")},
    {"noSuchAxis", QT_TRANSLATE_NOOP("Controller", "机器人没有该轴")},
    {"storeDamaged", QT_TRANSLATE_NOOP("Controller", "控制器的参数已损坏，不能读取；未作任何修改")},
    {"storeFailed", QT_TRANSLATE_NOOP("Controller", "未保存：控制器的参数存储不可用")},
    {"storeRestored", QT_TRANSLATE_NOOP("Controller", "控制器的参数已恢复，请重新打开页面")},
};

/// A name or reason from outside, without what could hide or disturb the sentence around it.
QString shown(const QString &name)
{
    QString visible;
    for (const QChar c : name) {
        if (c.isPrint())
            visible.append(c);
    }
    return visible.simplified().left(kLongestPart);
}

} // namespace

QString controllerWord(const QString &message, const QString &holder)
{
    const QString name = message == QLatin1String(kControlHeld) ? shown(holder) : QString();
    if (!name.isEmpty())
        return QCoreApplication::translate("Controller", "未执行：%1 正在控制机器人").arg(name);
    for (const Word &known : kWords) {
        if (message == QLatin1String(known.word))
            return QCoreApplication::translate("Controller", known.text);
    }
    return message.left(kLongestWord);
}

QString refusalWord(const QString &reason)
{
    const QString why = shown(reason);
    if (why.isEmpty())
        return QCoreApplication::translate("Controller", "控制器拒绝了该设置");
    return QCoreApplication::translate("Controller", "控制器拒绝了该设置：%1").arg(why);
}
