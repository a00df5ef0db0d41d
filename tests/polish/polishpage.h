#pragma once

// The polishing pages as the operator has them: what stands on them, and how they are worked.

#include "../support.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <QPushButton>

namespace support {

struct PolishField {
    const char *name; ///< object name
    const char *label;
    const char *note;
    const char *path[3]; ///< keys of the message; the last may be null
    const char *refusal; ///< what is said when the text is no number
    bool isCount; ///< sent as an integer
};

inline constexpr PolishField kPolishFields[] = {
    {"toolWear",
     "工具磨损补偿",
     "工具磨损后的补偿量(mm)",
     {"polish", "toolWear", nullptr},
     "参数工具磨损补偿不合理，请重新设置",
     false},
    {"toolOffsetX",
     "起点工具X方向偏移",
     "在打磨起点工具坐标X方向的偏移(mm)",
     {"polish", "startToolOffset", "X"},
     "参数起点工具X方向偏移不合理，请重新设置",
     false},
    {"toolOffsetY",
     "起点工具Y方向偏移",
     "在打磨起点工具坐标Y方向的偏移(mm)",
     {"polish", "startToolOffset", "Y"},
     "参数起点工具Y方向偏移不合理，请重新设置",
     false},
    {"toolOffsetZ",
     "起点工具Z方向偏移",
     "在打磨起点工具坐标Z方向的偏移(mm)",
     {"polish", "startToolOffset", "Z"},
     "参数起点工具Z方向偏移不合理，请重新设置",
     false},
    {"endtoolOffsetX",
     "终点工具X方向偏移",
     "在打磨终点工具坐标X方向的偏移(mm)",
     {"polish", "endToolOffset", "X"},
     "参数终点工具X方向偏移不合理，请重新设置",
     false},
    {"endtoolOffsetY",
     "终点工具Y方向偏移",
     "在打磨终点工具坐标Y方向的偏移(mm)",
     {"polish", "endToolOffset", "Y"},
     "参数终点工具Y方向偏移不合理，请重新设置",
     false},
    {"endtoolOffsetZ",
     "终点工具Z方向偏移",
     "在打磨终点工具坐标Z方向的偏移(mm)",
     {"polish", "endToolOffset", "Z"},
     "参数终点工具Z方向偏移不合理，请重新设置",
     false},
    {"AutoCompensationValue",
     "自动补偿值",
     "以一定打磨次数为周期补偿(mm)",
     {"polish", "autoFeed", "value"},
     "参数自动补偿值不合理，请重新设置",
     false},
    {"AutoCompensationCycle",
     "自动补偿周期",
     "补偿周期(次数)",
     {"polish", "autoFeed", "cycle"},
     "参数自动补偿周期不合理，请重新设置",
     true},
};

constexpr unsigned short kSetPolish = 0x4601;
constexpr unsigned short kGetPolish = 0x4602;

/// The value of a field in a message; null when it is not there.
inline const Json::Value *valueAt(const Json::Value &message, const PolishField &field)
{
    return wire::find(message, field.path, field.path[2] ? 3 : 2);
}

inline Json::Value &placeOf(Json::Value &message, const PolishField &field)
{
    Json::Value &parent = message[field.path[0]][field.path[1]];
    return field.path[2] ? parent[field.path[2]] : parent;
}

/// The request for the parameters of a process number.
inline Message readOf(int number, int robot = 1)
{
    return {kGetPolish,
            QStringLiteral("{\"craftID\":%1,\"robot\":%2}\n").arg(number).arg(robot).toUtf8()};
}

/// Pages 47 and 48.
class PolishPage {
public:
    explicit PolishPage(TechnologyWidget *pages) : m_pages(pages) { }

    QLineEdit *field(const char *name) const { return child<QLineEdit>(m_pages, name); }
    QString text(const char *name) const { return field(name)->text(); }
    QComboBox *number() const { return child<QComboBox>(m_pages, "m_pPolishCombox"); }
    QPushButton *modify() const { return child<QPushButton>(m_pages, "btnPolishModify"); }

    /// From the menu to the parameters.
    void open() const
    {
        m_pages->return_mainPage();
        click(m_pages, "BtnPolish");
        click(m_pages, "BtnPolishPara");
    }
    void pressModify() const { QTest::mouseClick(modify(), Qt::LeftButton); }
    void leave() const { click(m_pages, "btnPolishReturn"); }

    /// The nine texts in the order of the page.
    QStringList texts() const
    {
        QStringList list;
        for (const PolishField &row : kPolishFields)
            list += text(row.name);
        return list;
    }
    void setTexts(const QStringList &texts) const
    {
        int i = 0;
        for (const PolishField &row : kPolishFields)
            field(row.name)->setText(texts.at(i++));
    }

    /// The button reads `word`, and all nine fields are enabled or all are disabled.
    bool isIn(const QString &word, bool enabled) const
    {
        for (const PolishField &row : kPolishFields) {
            if (field(row.name)->isEnabledTo(field(row.name)->parentWidget()) != enabled)
                return false;
        }
        return modify()->text() == word;
    }
    bool isViewing() const { return isIn(QStringLiteral("修改"), false); }
    bool isEditing() const { return isIn(QStringLiteral("保存"), true); }

private:
    TechnologyWidget *m_pages;
};

} // namespace support
