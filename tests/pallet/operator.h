#pragma once

// An operator at the main window: touches widgets that are really there to be touched, enters
// numbers on the keypad, chooses rows from opened lists, and holds keys of the key column.

#include "../support.h"
#include "snackbarpanel.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QPushButton>

namespace support {

class Operator {
public:
    explicit Operator(QWidget *window) : m_window(window) { }

    /// The visible widget of that name; null when there is none.
    QWidget *find(const QString &name) const
    {
        const auto all = m_window->findChildren<QWidget *>(name);
        for (QWidget *widget : all) {
            if (widget->isVisible())
                return widget;
        }
        return nullptr;
    }
    bool sees(const QString &name) const { return find(name) != nullptr; }

    /// What a finger on the middle of that widget meets; null, with a word why, when it is not
    /// enabled or something lies over it.
    QWidget *under(QWidget *target, const QString &name) const
    {
        if (!target || !target->isVisible())
            return complain(name, "is not in view");
        if (!target->isEnabled())
            return complain(name, "is disabled");
        const QPoint middle = target->mapTo(m_window, target->rect().center());
        QWidget *hit = m_window->childAt(middle);
        while (qobject_cast<SnackbarPanel *>(hit)) { // a message that was read is touched away
            QTest::mouseClick(hit, Qt::LeftButton);
            hit = m_window->childAt(middle);
        }
        if (!hit)
            return complain(name, "is out of the window");
        if (hit != target && !target->isAncestorOf(hit))
            return complain(name,
                            "is covered by " + hit->objectName().toUtf8() + ", a "
                                + hit->metaObject()->className());
        return hit;
    }

    bool touch(QWidget *target, const QString &name) const
    {
        QWidget *hit = under(target, name);
        if (hit)
            QTest::mouseClick(hit, Qt::LeftButton, Qt::NoModifier,
                              hit->mapFrom(target, target->rect().center()));
        return hit != nullptr;
    }
    bool touch(const QString &name) const { return touch(find(name), name); }
    bool touchAll(const QStringList &names) const
    {
        for (const QString &name : names) {
            if (!touch(name))
                return false;
        }
        return true;
    }

    /// Puts a finger on a key and leaves it there; lift() takes it away.
    bool press(const QString &name) const
    {
        QWidget *hit = under(find(name), name);
        if (hit)
            QTest::mousePress(hit, Qt::LeftButton);
        return hit != nullptr;
    }
    void lift(const QString &name) const
    {
        if (QWidget *key = find(name))
            QTest::mouseRelease(key, Qt::LeftButton);
    }

    /// Enters a number, digits with '.' and '-', on the keypad that a touch on the field opens.
    bool enter(QWidget *field, const QString &number, const QString &name) const
    {
        if (!touch(field, name))
            return false;
        for (const QChar key : number) {
            // the sign key turns the sign of what stands there, so it comes last
            if (key != QLatin1Char('-') && !touch(keyOf(key)))
                return false;
        }
        if (number.startsWith(QLatin1Char('-')) && !touch(keyOf(QLatin1Char('-'))))
            return false;
        return touch(QStringLiteral("key_ok"));
    }
    bool enter(const QString &name, const QString &number) const
    {
        return enter(find(name), number, name);
    }

    /// Opens the list of a combo box and touches a row of it.
    bool choose(QWidget *target, int row, const QString &name) const
    {
        auto *box = qobject_cast<QComboBox *>(target);
        if (!touch(box, name))
            return false;
        if (!QTest::qWaitFor([box] { return box->view()->isVisible(); }))
            return complain(name, "does not open") != nullptr;
        box->view()->scrollTo(box->model()->index(row, 0));
        const QRect place = box->view()->visualRect(box->model()->index(row, 0));
        // the finger comes from elsewhere: a list takes no release where it was opened
        QWidget *list = box->view()->viewport();
        QMouseEvent move(QEvent::MouseMove, place.center(), list->mapToGlobal(place.center()),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(list, &move);
        QTest::mouseClick(list, Qt::LeftButton, Qt::NoModifier, place.center());
        if (!QTest::qWaitFor([box] { return !box->view()->isVisible(); }))
            return complain(name, "does not close") != nullptr;
        if (box->currentIndex() != row)
            return complain(name, "has another row") != nullptr;
        return true;
    }
    bool choose(const QString &name, int row) const { return choose(find(name), row, name); }

private:
    static QString keyOf(QChar key)
    {
        if (key == QLatin1Char('.'))
            return QStringLiteral("key_point");
        if (key == QLatin1Char('-'))
            return QStringLiteral("key_sign");
        return QStringLiteral("key_") + key;
    }
    static QWidget *complain(const QString &name, const QByteArray &why)
    {
        qWarning("%s %s", qPrintable(name), why.constData());
        return nullptr;
    }

    QWidget *m_window;
};

} // namespace support
