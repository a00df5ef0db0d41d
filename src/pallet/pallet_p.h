#pragma once

#include "shell/processpackage.h"
#include "shell/technologywidget.h"

#include <QString>
#include <QVector>
#include <array>

class DigitalLineEdit;
class QComboBox;
class QLabel;

/// What palletising keeps: here what has its name elsewhere too or serves several pages. What a
/// page has for itself is a struct of its own, which the page's file defines.
struct TechnologyWidget::Pallet : ProcessPackage {
    explicit Pallet(TechnologyWidget &widget);

    void retranslate() override;
    void forgetRobot() override;
    void linkChanged() override;

    /// Puts the pages together; from then on the pointers to them are set.
    void initPages();

    TechnologyWidget &widget;
    Ui_TechnologyWidget *const ui;
    Robot *const robot;

    struct Page;
    struct Mode;
    struct Gripper;
    struct Tray;
    struct Layers;
    struct Plane;
    ProcessPackages pages; ///< in the order in which they were put together
    Mode *mode = nullptr;
    Gripper *gripper = nullptr;
    Tray *tray = nullptr;
    Layers *layers = nullptr;
    Plane *plane = nullptr;

    /// The frames of tools 1 to 9 as the controller wrote them: x, y, z, A, B, C. Tools that it has
    /// not told of yet have empty texts.
    std::array<std::array<QString, 6>, 9> toolFrameTexts;

    // The tray's points: x, y, z, a, b, c. Their values stand on these labels and nowhere else.
    QVector<QLabel *> trayOriginLabels;
    QVector<QLabel *> trayXLabels;
    QVector<QLabel *> trayYLabels;
    QString currentUserCoordsText;

    QVector<QComboBox *> overlapGraphicCombos; ///< of the layers, made anew with their table
    QVector<DigitalLineEdit *> overlapHeightEdits;

    int previewMode = -1; ///< which request the next preview reply answers; -1: none

private:
    // Each in the file that is named after the page.
    void initMode();
    void initGripper();
    void initTray();
    void initWorkpiece();
    void initApproach();
    void initLayers();
    void initLayerExplanations();
    void initPlane();
};

/// What a page of palletising has at hand.
struct TechnologyWidget::Pallet::Page : ProcessPackage {
    explicit Page(Pallet &package)
        : pallet(package), widget(package.widget), ui(package.ui), robot(package.robot)
    {
    }

    Pallet &pallet;
    TechnologyWidget &widget;
    Ui_TechnologyWidget *const ui;
    Robot *const robot;
};
