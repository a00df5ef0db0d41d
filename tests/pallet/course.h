#pragma once

// What happens while an operator works with the pages of the complete chain, as one list of lines
// in the order of the events: pages and titles, and whatever the journal gets.

#include "../support.h"
#include "promptwidget.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace support {

/// "page 24", "title 7", "0x4202 {...}", "toast 3000 1 <text>", "log <text>", "prompt 55 <text>",
/// "promptClosed 55", "cover", "uncover", "safetySwitch 0", "delay 500", "reading <path>",
/// "coordinates" (the signal for the main window).
class Course : public QObject {
public:
    explicit Course(TechnologyWidget *pages)
    {
        connect(pages, &QStackedWidget::currentChanged, this,
                [this](int index) { m_lines += QStringLiteral("page %1").arg(index); });
        connect(pages, &TechnologyWidget::tnw_WidgetTitle, this,
                [this](int group, int title, int third) {
                    m_lines += group == 8 && third == 0
                        ? QStringLiteral("title %1").arg(title)
                        : QStringLiteral("title %1 %2 %3").arg(group).arg(title).arg(third);
                });
        connect(pages, &TechnologyWidget::showPalletCurrentUserCoords, this,
                [this] { m_lines += QStringLiteral("coordinates"); });
        connect(EventLog::getInstance(), &EventLog::recorded, this, &Course::record);
    }

    const QStringList &lines() const { return m_lines; }
    void clear() { m_lines.clear(); }

private:
    void record(const QString &kind, const QVariantList &values)
    {
        if (kind == QLatin1String("link") || kind == QLatin1String("key"))
            return; // the link's own affairs
        if (kind == QLatin1String("message")) {
            m_lines += QStringLiteral("0x%1 %2")
                           .arg(values.at(0).toUInt(), 0, 16)
                           .arg(QString::fromUtf8(values.at(1).toByteArray().trimmed()));
        } else if (kind == QLatin1String("toast")) {
            m_lines += QStringLiteral("toast %1 %2 %3")
                           .arg(values.at(1).toInt())
                           .arg(values.at(2).toInt())
                           .arg(values.at(0).toString());
        } else if (kind == QLatin1String("log")) {
            m_lines += values.at(1).toInt() == 1
                ? QStringLiteral("log %1").arg(values.at(0).toString())
                : QStringLiteral("log of another level");
        } else if (kind == QLatin1String("reading")) {
            m_lines += QStringLiteral("reading %1").arg(values.at(1).toString());
        } else {
            QStringList texts(kind);
            for (const QVariant &value : values)
                texts += value.toString();
            m_lines += texts.join(QLatin1Char(' ')).trimmed();
        }
    }

    QStringList m_lines;
};

inline QComboBox *box(const QObject *pages, const QString &name)
{
    return child<QComboBox>(pages, name);
}
inline int row(const QObject *pages, const char *name)
{
    return box(pages, QString::fromLatin1(name))->currentIndex();
}
/// Sets a row as if it had always stood there.
inline void setRowQuietly(const QObject *pages, const QString &name, int row)
{
    const QSignalBlocker quiet(box(pages, name));
    box(pages, name)->setCurrentIndex(row);
}
inline QString labelText(const QObject *pages, const QString &name)
{
    return child<QLabel>(pages, name)->text();
}
inline bool isEnabled(const QObject *pages, const QString &name)
{
    const auto *widget = child<QWidget>(pages, name);
    return widget->isEnabledTo(widget->parentWidget());
}
inline bool isShown(const QObject *pages, const QString &name)
{
    return !child<QWidget>(pages, name)->isHidden();
}

/// The craft that the pages start a test with: number 1 in complete mode, on a six-axis robot 1.
inline void startPallet(TechnologyWidget *pages)
{
    App::sysUser = AUTHORITY_ADMINISTRATOR;
    App::currentAction_ = 0;
    App::isDeg = true;
    MoreRobot::setCurrentRobot(1);
    Robot::getInstance()->kinematicType = 1;
    pages->initPalletRobotType();
    box(pages, QStringLiteral("m_pPalletCraftNum"))->setCurrentIndex(0);
    receive(wire::reply::robot_switchpalletmode, "{\"robot\":1,\"craftID\":1,\"usePalletType\":1}");
    pages->return_mainPage();
}

} // namespace support
