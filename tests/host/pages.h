#pragma once

// The polishing page as an operator works it, with nothing of the pendant that ships.

#include "shell/technologywidget.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QtTest>

namespace host {

template <typename Widget> Widget *child(const char *name)
{
    auto *found = TechnologyWidget::getInstance()->findChild<Widget *>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s of the name %s", Widget::staticMetaObject.className(), name);
    return found;
}

inline void touch(const char *name)
{
    QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton);
}

inline QString textOf(const char *name)
{
    return child<QLineEdit>(name)->text();
}

inline void enter(const char *name, const QString &text)
{
    auto *field = child<QLineEdit>(name);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

} // namespace host
