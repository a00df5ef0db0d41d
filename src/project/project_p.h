#pragma once

#include "shell/coordinates.h"
#include "shell/processpackage.h"
#include "shell/technologywidget.h"

/// What the special process keeps.
struct TechnologyWidget::Project : ProcessPackage {
    explicit Project(TechnologyWidget &widget);

    void retranslate() override;

    void initPointPanel();
    /// The live half of the point page's panel.
    void showLivePosition(int kind, const PositionTexts &position);
    /// What the panel says of its kind of coordinate, axes::Coordinate.
    void showCoordinate(unsigned char coordinate);

    TechnologyWidget &widget;
    Ui_TechnologyWidget *const ui;
    Robot *const robot;

    PositionTexts bwbLivePosition; ///< what the point page shows as the current position
    unsigned char namedCoordinate = axes::Joint; ///< that the panel names
};
