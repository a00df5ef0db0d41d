#pragma once

#include <QWidget>

/// The main window, 800 x 600: title bar, content area of 714 x 504, key column, status bar.
class VeltrixWidgetFoundation : public QWidget {
    Q_OBJECT
public:
    explicit VeltrixWidgetFoundation(QWidget *parent = nullptr);

    /// The application's one main window; made on the first call.
    static VeltrixWidgetFoundation *getGlobalMainWindow();

    /// Puts a page host into the content area, at 714 x 504.
    void addContent(QWidget *widget);

public slots:
    /// Shows the title of a page: group 8 process pages, group 1 hosted pages; `third` is always 0.
    void showWidgetTitle(int group, int title, int third);

signals:
    void signal_clickUserBtn();
};
