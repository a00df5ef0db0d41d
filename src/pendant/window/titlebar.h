#pragma once

#include "veltrixwidgetfoundation.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// The title of the page, the mark of old values, the four areas of the pendant, and the lock.
class TitleBar : public QWidget {
    Q_OBJECT
public:
    using Area = VeltrixWidgetFoundation::Area;
    static constexpr int kAreas = VeltrixWidgetFoundation::Users + 1;
    static constexpr int kHeight = 48;

    explicit TitleBar(QWidget *parent = nullptr);

    void setTitle(const QString &title);
    QString title() const;
    void setArea(Area area);

signals:
    void areaClicked(VeltrixWidgetFoundation::Area area);
    void lockClicked();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void retranslate();
    void fitButtons();
    /// Long titles get a smaller font rather than being cut off.
    void fitTitle();
    void refreshStale();

    QLabel *m_title;
    QLabel *m_stale;
    QPushButton *m_areas[kAreas];
    QPushButton *m_lock;
};
