#include "jobfault.h"

#include <QCoreApplication>

namespace {

struct Row {
    JobFault::Kind kind;
    const char *word;
    const char *reason; ///< %1 stands for the detail
};

const Row rows[] = {
    {JobFault::None, "None", QT_TRANSLATE_NOOP("JobFault", "没有错误")},
    {JobFault::NotAJob, "NotAJob", QT_TRANSLATE_NOOP("JobFault", "不是作业文件")},
    {JobFault::Version, "Version", QT_TRANSLATE_NOOP("JobFault", "不认识的文件版本 %1")},
    {JobFault::CutOff, "CutOff", QT_TRANSLATE_NOOP("JobFault", "文件不完整")},
    {JobFault::Surplus, "Surplus", QT_TRANSLATE_NOOP("JobFault", "多余的内容：%1")},
    {JobFault::UnknownCommand, "UnknownCommand", QT_TRANSLATE_NOOP("JobFault", "不认识的指令 %1")},
    {JobFault::Field, "Field", QT_TRANSLATE_NOOP("JobFault", "缺少字段 %1")},
    {JobFault::Value, "Value", QT_TRANSLATE_NOOP("JobFault", "字段 %1 的值不能读取")},
    {JobFault::Position, "Position", QT_TRANSLATE_NOOP("JobFault", "没有位置 %1")},
    {JobFault::Twice, "Twice", QT_TRANSLATE_NOOP("JobFault", "%1 重复")},
    {JobFault::Order, "Order", QT_TRANSLATE_NOOP("JobFault", "%1 的顺序不对")},
    {JobFault::LoopOpen, "LoopOpen", QT_TRANSLATE_NOOP("JobFault", "循环没有结束")},
    {JobFault::LoopEnd, "LoopEnd", QT_TRANSLATE_NOOP("JobFault", "循环结束没有对应的开始")},
    {JobFault::Condition, "Condition", QT_TRANSLATE_NOOP("JobFault", "条件无效")},
    {JobFault::Port, "Port", QT_TRANSLATE_NOOP("JobFault", "控制器没有端口 %1")},
    {JobFault::Variable, "Variable", QT_TRANSLATE_NOOP("JobFault", "控制器没有变量 %1")},
    {JobFault::TooLong, "TooLong", QT_TRANSLATE_NOOP("JobFault", "作业太长，最多 %1 行")},
    {JobFault::Name, "Name", QT_TRANSLATE_NOOP("JobFault", "控制器不接受这个作业名称")},
    {JobFault::TooMany, "TooMany",
     QT_TRANSLATE_NOOP("JobFault", "控制器中这台机器人的作业已满，最多 %1 个")},
    {JobFault::NoRoom, "NoRoom",
     QT_TRANSLATE_NOOP("JobFault", "控制器中这台机器人的作业空间已满，最多 %1")},
    {JobFault::Other, "Other", QT_TRANSLATE_NOOP("JobFault", "控制器报告：%1")},
};

const Row &rowOf(JobFault::Kind kind)
{
    for (const Row &row : rows) {
        if (row.kind == kind)
            return row;
    }
    return rows[0];
}

} // namespace

const char *JobFault::word() const
{
    return rowOf(kind).word;
}

JobFault::Kind JobFault::kindOf(const QString &word)
{
    for (const Row &row : rows) {
        if (word == QLatin1String(row.word))
            return row.kind;
    }
    return None;
}

QString JobFault::reason() const
{
    const QString text = QCoreApplication::translate("JobFault", rowOf(kind).reason);
    return text.contains(QLatin1String("%1")) ? text.arg(detail) : text;
}
