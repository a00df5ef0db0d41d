#pragma once

// A finger for the pages of the start, which wait for it in an event loop of their own.

#include "startpage.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

/// Touches one key after the other, each on the next page that comes up, and remembers what the
/// pages said. A page for which no key is left is closed.
class Finger : public QObject {
public:
    struct Page {
        QString heading;
        QString text; ///< explanation and details
        QStringList keys;
    };

    explicit Finger(QVector<int> choices) : m_choices(std::move(choices))
    {
        connect(&m_timer, &QTimer::timeout, this, &Finger::look);
        m_timer.start(1);
    }

    const QVector<Page> &pages() const { return m_pages; }
    /// Whether every key was touched and no page was left without one.
    bool isDone() const { return m_choices.isEmpty() && m_closed == 0; }
    /// Called for each page before it is touched.
    std::function<void(StartPage *)> onPage;

private:
    void look()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            auto *page = qobject_cast<StartPage *>(window);
            if (page && page->isVisible())
                return touch(page);
        }
    }

    void touch(StartPage *page)
    {
        Page seen;
        const auto labels = page->findChildren<QLabel *>();
        for (QLabel *label : labels)
            seen.text += label->text() + QLatin1Char('\n');
        seen.heading = page->findChild<QLabel *>(QStringLiteral("startHeading"))->text();
        const auto keys = page->findChildren<QPushButton *>();
        for (QPushButton *key : keys)
            seen.keys += key->text();
        m_pages.append(seen);
        if (onPage)
            onPage(page);
        QPushButton *key = m_choices.isEmpty()
            ? nullptr
            : page->findChild<QPushButton *>(
                QStringLiteral("startChoice%1").arg(m_choices.first()));
        if (!key) {
            ++m_closed;
            page->close();
            return;
        }
        m_choices.removeFirst();
        QTest::mouseClick(key, Qt::LeftButton);
    }

    QTimer m_timer;
    QVector<int> m_choices;
    QVector<Page> m_pages;
    int m_closed = 0;
};
