#pragma once

#include "shell/edittoggle.h"
#include "shell/pagetable.h"

#include <QStackedWidget>
#include <QString>
#include <QVector>

class BoxPainter;
class PromptWidget;
class QTableWidget;
class QTimer;
class Robot;
class Ui_TechnologyWidget;

/// The process pages of the pendant: one stack of 59 pages (shell/pagetable.h) behind a menu of
/// process packages. It keeps no parameters: a page asks the controller when it is shown, is filled
/// by the reply, and sends all its fields back when the operator saves.
///
/// Each section below says which files hold its slots, which pages it owns and which message ids it
/// sends. Everything runs on the GUI thread.
class TechnologyWidget : public QStackedWidget {
    Q_OBJECT
public:
    static TechnologyWidget *getInstance();

    explicit TechnologyWidget(QWidget *parent);
    ~TechnologyWidget() override;

signals:
    /// The title that the main window is to show: group, title id, always 0.
    void tnw_WidgetTitle(int, int, int);
    /// The current user coordinates changed; the main window shows them.
    void showPalletCurrentUserCoords();

    // ---- Shell: shell/technologywidget.cpp, shell/menu.cpp · page 0 ----------------------------
public:
    /// Hides this widget and the host of the sibling pages. For the surrounding application.
    void hideWgt();
    /// Spreads the rows of a table over `height` pixels; -1 takes the table's own height. The last
    /// row is 3 pixels lower than the others. A null table or one without rows is left alone.
    void resizeTable(QTableWidget *table, int height);
    /// The text of the user coordinate that was last made current; empty before that.
    QString getCurrentCoordsUser();
public slots:
    void buttonClick();
    void showWeldingPage();
    void showVisionpage();
    void return_mainPage();

    // ---- Validators: shell/validators.cpp ------------------------------------------------------
    // Each matches the whole text against a pattern that is fixed as it stands.
public:
    bool isStrMatchReg(QString text, QString pattern);
    bool isValidSizeParam(QString text); ///< decimals from 0, no sign, no leading zeros
    bool isPalletpara(QString text); ///< as isValidSizeParam
    bool isPalletpara1(QString text); ///< decimals from 1, no leading zeros
    bool isPalletpara2(QString text); ///< decimals with an optional sign
    bool isPalletpara3(QString text); ///< integers 1 to 999
    bool isPalletpara4(QString text); ///< integers 1 to 9999
    bool isValidint(QString text); ///< digits
    bool isValiddouble(QString text); ///< unsigned decimals, at most 3 places
    bool isValidLocation(QString text); ///< decimals with an optional minus, at most 3 places
    bool isValidper(QString text); ///< integers 0 to 100
    bool isFlowOutEdtValiid(QString text); ///< integers 0 to 10
    bool isValidpointtime(QString text); ///< 1, or 0 with a point and up to 2 places
    bool isValidx(QString text); ///< above 0 up to 10, at most 2 places

    // ---- Palletising: pallet/pallet.cpp · pages 1 to 5, 13, 14, 23 to 42, 57, 58 ----------------
public slots:
    void return_PalletPage();

public:
    /// Refills the port lists of the program wizard from the settings page. Row 0 reads "无".
    void reflashTechnologyIOPortList();

    // ---- Conveyor tracking: conveyor/conveyor.cpp · pages 6 to 12, 55, 56
    // ------------------------

    // ---- Laser cutting: laser/laser.cpp · pages 15 to 22
    // -----------------------------------------
public slots:
    void LaserMainPage();

    // ---- Special process: project/project.cpp · pages 43 to 46
    // -----------------------------------
    void ShowBWBJobList();

    // ---- Polishing: polish/polish.cpp · pages 47, 48 · messages SetPolish, GetPolish
    // --------------
    void showPolish();
    void modifypolish();
    void updatePolishParam(const QByteArray &reply);
    void return_polishwiget();

    // ---- Spraying: spray/spray.cpp · pages 49 to 54
    // -----------------------------------------------
    void return_spraywiget();

protected:
    void changeEvent(QEvent *event) override;

private:
    // ---- Shell
    // -----------------------------------------------------------------------------------
    void initTechButtons();
    void initFirstLevelFonts();
    void reduceMenuToSpecialProcess();
    void initCanvases();
    void showPage(page::Index index);
    void showHostedPage(int type, int group, int title);

    // ---- Packages
    // --------------------------------------------------------------------------------
    void initPalletTechInterface();
    void initLaserInterface();
    void initBWBTechInterface();
    void openSpecialProcess();
    void inittrackCon();
    void initPolishInterface();
    void initSprayInterface();
    EditPage polishPage() const;

    static TechnologyWidget *instance;

    // ---- Shell
    // -----------------------------------------------------------------------------------
    Ui_TechnologyWidget *ui; ///< the form, freed first in the destructor
    Robot *robot; ///< every message and every reply goes through it; not owned
    PromptWidget *promptWidget = nullptr; ///< every question goes through it; not owned

    // ---- Palletising
    // ------------------------------------------------------------------------------- The timers
    // have no parent: they live as long as the process. Each polls every 400 ms, is started by its
    // page and stopped once that page is no longer shown.
    QTimer *palletPositionTimer = nullptr;
    QTimer *wizardPositionTimer = nullptr;
    QTimer *palletEasyPositionTimer = nullptr;
    BoxPainter *planeCanvas = nullptr;
    BoxPainter *locationCanvas = nullptr;
    BoxPainter *previewCanvas = nullptr;
    int forwardStep = 1; ///< step of the canvas's move keys, canvas units
    int locationCanvasZoom = 10; ///< zoom level of the location canvas; 10 is 1:1
    int previewMode = -1; ///< which request the next preview reply answers; -1: none
    QString currentUserCoordsText;

    // ---- Conveyor tracking, laser, special process
    // -------------------------------------------------
    QTimer *trackSpeedTimer = nullptr;
    QTimer *laserStateTimer = nullptr;
    QTimer *bwbPositionTimer = nullptr;
};
