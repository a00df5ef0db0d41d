#pragma once

#include <QWidget>

/// The sibling pages: kind of page that the host is to show.
enum TechWidgetType {
    TECH_WELDING = 2,
    TECH_VISION = 3,
    TECH_SCREW = 4
};

/// Host of the welding, vision and electric-screwdriver pages, which a sibling component provides.
/// It says which page stands here and offers the way back to the process menu.
class NewTechnologyWidget : public QWidget {
    Q_OBJECT
public:
    static NewTechnologyWidget *getInstance();

    void showWgt(TechWidgetType type);
    TechWidgetType currentType() const;

signals:
    void backRequested();

private:
    explicit NewTechnologyWidget(QWidget *parent = nullptr);
};
