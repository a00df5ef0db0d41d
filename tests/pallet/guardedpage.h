#pragma once

// A page of the palletising chain with its guarded edit: cancel button and locked navigation.

#include "../support.h"
#include "shell/buttonstyle.h"
#include "shell/technologywidget.h"

#include <QComboBox>
#include <QPushButton>

namespace support {

struct GuardedPage {
    int index;
    QString modify;
    QString cancel;
    QStringList navigation; ///< return, page up, page down
    QStringList controls; ///< what an edit enables

    /// What is wrong with the page in this state, or nothing.
    QString complaint(TechnologyWidget *pages, bool editing) const
    {
        const auto isOn = [pages](const QString &name) {
            const auto *widget = child<QWidget>(pages, name);
            return widget->isEnabledTo(widget->parentWidget());
        };
        if (pages->currentIndex() != index)
            return QStringLiteral("page %1 is shown").arg(pages->currentIndex());
        const QString word = editing ? QStringLiteral("保存") : QStringLiteral("修改");
        if (child<QPushButton>(pages, modify)->text() != word)
            return QStringLiteral("the button reads ") + child<QPushButton>(pages, modify)->text();
        if (child<QPushButton>(pages, cancel)->isHidden() == editing)
            return QStringLiteral("the cancel button");
        for (const QString &name : controls) {
            if (isOn(name) != editing)
                return name;
        }
        for (const QString &name : navigation) {
            const QString sheet = child<QPushButton>(pages, name)->styleSheet();
            if (isOn(name) == editing
                || sheet != (editing ? forbiddenButtonSheet() : returnButtonSheet()))
                return name;
        }
        return {};
    }
};

struct Toast {
    QString text;
    int duration;
    int kind;

    bool operator==(const Toast &other) const
    {
        return text == other.text && duration == other.duration && kind == other.kind;
    }
};

/// The messages on screen since the journal began; each of them is meant to be seen.
inline QVector<Toast> toasts(const Journal &journal)
{
    QVector<Toast> list;
    for (const QVariantList &values : journal.of("toast")) {
        if (!values.at(3).toBool())
            qFatal("a message without its flag");
        list.append({values.at(0).toString(), values.at(1).toInt(), values.at(2).toInt()});
    }
    return list;
}

inline Toast refusal(const char *text, int duration = 3000, int kind = 4)
{
    return {QString::fromUtf8(text), duration, kind};
}

inline QComboBox *craft(const TechnologyWidget *pages)
{
    return child<QComboBox>(pages, "m_pPalletCraftNum");
}

/// A reply for robot 1, craft 1 with this package object.
inline QByteArray palletReply(const QByteArray &pallet, int number = 1, int robot = 1)
{
    return "{\"craftID\":" + QByteArray::number(number) + ",\"pallet\":" + pallet
        + ",\"robot\":" + QByteArray::number(robot) + "}\n";
}

/// The request of a page for its parameters.
inline Message request(unsigned short id, int number = 1, int robot = 1)
{
    return {id, QStringLiteral("{\"craftID\":%1,\"robot\":%2}\n").arg(number).arg(robot).toUtf8()};
}

/// One step of a save: `text` in the field `name` is refused with `toast`.
struct Refused {
    const char *name;
    const char *text;
    Toast toast;
};

} // namespace support

inline char *toString(const support::Toast &toast)
{
    const QString text =
        QStringLiteral("%1 (%2 ms, kind %3)").arg(toast.text).arg(toast.duration).arg(toast.kind);
    return qstrdup(text.toUtf8().constData());
}

namespace support {
using ::toString;
}
