#pragma once

#include "shell/coordinates.h"
#include "shell/processpackage.h"
#include "shell/technologywidget.h"

#include <QString>
#include <QVector>
#include <array>

class DigitalLineEdit;
class LiveArm;
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
    LiveArm &arm;

    struct Page;
    struct Mode;
    struct Gripper;
    struct Tray;
    struct Positions;
    struct Layers;
    struct Plane;
    struct Wizard;
    struct WizardPoints;
    struct JobWriter;
    ProcessPackages pages; ///< in the order in which they were put together
    Mode *mode = nullptr;
    Gripper *gripper = nullptr;
    Tray *tray = nullptr;
    Positions *positions = nullptr;
    Layers *layers = nullptr;
    Plane *plane = nullptr;
    Wizard *wizard = nullptr;
    WizardPoints *wizardPoints = nullptr;

    /// The frames of tools 1 to 9 as the controller wrote them: x, y, z, A, B, C. Tools that it has
    /// not told of yet have empty texts.
    std::array<std::array<QString, 6>, 9> toolFrameTexts;

    // The tray's points: x, y, z, a, b, c. Their values stand on these labels and nowhere else.
    QVector<QLabel *> trayOriginLabels;
    QVector<QLabel *> trayXLabels;
    QVector<QLabel *> trayYLabels;
    QString currentUserCoordsText;

    PositionTexts curCartPos; ///< the last Cartesian position that the controller told
    PositionTexts curCartPosCopy; ///< the same, for the easy page
    PositionTexts curJointPos; ///< the last joint position
    PositionTexts entrancePos;
    PositionTexts auxiliaryPos;
    PositionTexts jobPos;

    QVector<QComboBox *> overlapGraphicCombos; ///< of the layers, made anew with their table
    QVector<DigitalLineEdit *> overlapHeightEdits;

    int previewMode = -1; ///< which request the next preview reply answers; -1: none

    int getPointMarks = 0; ///< how often the wizard's points were marked; 0: not yet
    int upperPointMarks = 0;
    int safePointMarks = 0;
    // The marked points as the job takes them: seven numbers with one blank between them.
    QString getPointText;
    QString upperPointText;
    QString safePointText;
    QString palOffVariableName; ///< of the variable that ends the job
    bool jobIsGenerated = false; ///< since its name was taken on the wizard's first page

private:
    // Each in the file that is named after the page.
    void initMode();
    void initGripper();
    void initTray();
    void initMotion();
    void initPositions();
    void initWorkpiece();
    void initApproach();
    void initLayers();
    void initLayerExplanations();
    void initPlane();
    void initWizard();
    void initWizardPoints();
    void initWizardVariables();
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
