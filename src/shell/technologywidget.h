#pragma once

#include "jobmanager.h"
#include "shell/pagetable.h"
#include "shell/processpackage.h"
#include "shell/programinformation.h"
#include "windtype.h"

#include <QStackedWidget>
#include <QString>
#include <QVector>
#include <initializer_list>
#include <memory>

class BoxPainter;
class CommandInsert;
class JobEdit;
class LiveArm;
class PromptWidget;
class QAbstractButton;
class QTableWidget;
class QTableWidgetItem;
class QTimer;
class Robot;
class Ui_TechnologyWidget;

/// The process pages of the pendant: one stack of 59 pages (shell/pagetable.h) behind a menu of
/// process packages. It keeps no parameters: a page asks the controller when it is shown, is filled
/// by the reply, and sends all its fields back when the operator saves.
///
/// Each section below says which files hold its slots, which pages it owns and which message ids it
/// sends; what a package keeps stands in its own header. Everything runs on the GUI thread.
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
    /// The main window is to show the robot's jobs.
    void showJobFile(windType);
    /// The main window is to act as if its button of that name had been pressed, such as "job".
    void sig_show_click_btn(QString);

    // ---- Shell: shell/technologywidget.cpp, shell/menu.cpp · page 0 ----
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

    // ---- Validators: shell/validators.cpp ----
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

    // ---- Palletising: pallet/pallet.cpp · pages 1 to 5, 13, 14, 23 to 42, 57, 58 ----
public slots:
    void return_PalletPage();

public:
    /// Refills the port lists of the program wizard from the settings page. Row 0 reads "无".
    void reflashTechnologyIOPortList();
    /// What the program wizard has collected so far.
    const ProgramInformation &collectedProgram() const { return programInformation; }

    /// Shows and hides the orientation columns of the pallet pages by the robot's family.
    void initPalletRobotType();

public slots:
    // Craft and mode: pallet/mode.cpp · pages 57, 23, 40 · SetPalletMode, GetPalletMode
    void showPalletTypeWidget();
    void showPalletCompleteWidget();
    void showPalletEasyWidget();
    void SureCompletePalletMode();
    void SureEasyPalletMode();
    void CancelCompletePalletMode();
    void CancelEasyPalletMode();
    void needchangePalletTechnologyNum();
    void changeTechnologyNumber();
    void changePalletEasyTechnologyNum();
    void updateSwitchPalletMode(const QByteArray &reply);
    void palletcomplete();

    // Gripper: pallet/gripper.cpp · page 24 · SetPalletGripper, GetPalletGripper, GetToolData
    void palletSetTongsWidget();
    void palletSetTongsWidget2();
    void updatePalletToolParameter(const QByteArray &reply);
    void keep_count_data_pallet(int tool, QByteArray frame, QByteArray unused);
    void modifyTongs();

    // Tray: pallet/tray.cpp · page 25 · SetPalletTray, GetPalletTray, the user-coordinate messages
    void palletSetTrayWidget();
    void palletSetTrayWidget2();
    void updatePalletTrayParameter(const QByteArray &reply);
    void keep_userReply_pallet(int user, QString inquire, QVector<double> point);
    void trayOriginPressed();
    void trayXdirectionPressed();
    void trayYdirectionPressed();
    void send_calData_pallet();
    void received_user_successed_pallet(const int result);
    void modifyTray();
    void palletGetUserCoords();

    // Positions: pallet/position.cpp, pallet/motion.cpp · page 26 · SetPalletPosition,
    // GetPalletPosition, GetCurrentPosition, RunToPoint
    void palletSetPositionWidget();
    void getCurposition();
    void getCurposition2();
    void getCurposition3();
    void recvCurposition(const QByteArray radians, const QByteArray degrees);
    void palletEntrancePosition();
    void palletAuxiliaryPosition();
    void palletJobPosition();
    void updatePalletPositionParameter(const QByteArray &reply);
    void modifyPosition();
    void doMoveToEntrancePoint();
    void doMoveToAuxiliaryPoint();
    void doMoveToJobPoint();
    void runToPoint(QStringList values);
    void runToJointPoint(QStringList values);

    // Workpiece: pallet/workpiece.cpp · page 27 · SetPalletWorkpiece, GetPalletWorkpiece
    void palletWorkpieceParaWidget();
    void getPalletWorkpieceParameter();
    void updatePalletWorkpieceParameter(const QByteArray &reply);
    void modifyWorkpiece();

    // Approach: pallet/approach.cpp · page 28 · SetPalletApproach, GetPalletApproach
    void palletApproachParaWidget();
    void updatePalletApproachParameter(const QByteArray &reply);
    void modifyApproach();
    void approachWays();
    void changeApproachOnOffBtnState();

    // Layers: pallet/overlap.cpp, pallet/overlapexplain.cpp · pages 29, 2 to 5, 13, 14 ·
    // SetPalletOverlap, GetPalletOverlap
    void palletOverlappingModelWidget();
    void overlapModeTab(int layers);
    void on_levelsnum_editingFinished();
    void updatePalletOverlappingModel(const QByteArray &reply);
    void modifyOverlapping();
    void repeatModel();
    void repeatModeComboBoxShow(int row);
    void repeatModeEditShow();
    void on_repeatModeComboBox_activated(int mode);
    void on_repeatBtn_clicked();
    void itemChanged(QTableWidgetItem *item);
    void overlapExplain1();
    void overlapExplain2();
    void overlapExplain3();
    void overlapExplain4();
    void overlapExplain5();
    void overlapExplain6();
    void changeFixedPointHeightBtnState();
    void changeVerticalAlignmentBtnState();
    void changeLevelsAutoAlignmentBtnState();
    void changePoseAutorotationBtnState();

    // Plane pattern: pallet/plane.cpp · page 30 · SetPalletPlane, GetPalletPlane,
    // ConvertPalletPlane
    void palletPlaneModelWidget();
    void changePlanePicturesNum();
    void planeTemplateSelectionWidget();
    void updatePalletPlaneModel(const QByteArray &reply);
    void updatePalletChangeModel(const QByteArray &reply);
    void ranksWholeRotate();
    void crisscrossWholeRotate();
    void huiTypeWholeRotate();
    void modifyPlane();
    void ranksToCustom();
    void on_planeModifyBtn_clicked();

    // Program wizard: pallet/wizard/wizard.cpp, points.cpp, ports.cpp, variables.cpp · pages 33 to
    // 37 · GetCurrentPosition, RunToPoint
    void palletCreatedFileWidget1();
    void palletCreatedFileWidget2();
    void palletCreatedFileWidget3();
    void palletCreatedFileWidget4();
    void palletCreatedFileWidget5();
    void returnCreateFile();
    void sureResetWizardData();
    void sureResetWizardData2();
    void exitCreateFile();
    void exitPalletFile();
    void cancelExitPalletFile();
    void initializeCreateFile();
    void wizardInfoGetPoint();
    void wizardInfoGetUpperPoint();
    void wizardInfoGetSafePoint();
    void doMoveToGetPoint();
    void doMoveToGetUpperPoint();
    void doMoveToGetSafePoint();
    void saveWizardPutGetGoodsParam(bool skip, int unused);
    void saveWizardPumpParam(bool skip, int unused);
    void saveWizardSuccessParam(bool skip, int unused);
    void slotPALLETtotalGetVariant(const QString &type);
    void slotPALLETlayerGetVariant(const QString &type);
    void slotPALLETstackGetVariant(const QString &type);
    void slotPALLETpaloffVariant(const QString &type);
    void changexyPathOptBtnState();
    void changezPathOptBtnState();

    // Job generation: pallet/wizard/generate.cpp, commandbuilders.cpp, jobsequence.cpp
    void on_createdFileFinishBtn_clicked();
    void createJobFile();
    void createJobFile2();
    void insertPalCmd(int craft, int selector, int line, QString text);
    void insertMoveCmd(int unused, int interpolation, int number, int line, QString text);
    void insertWhileCmd(int selector, int &line, int port, int value);
    void insertWaitCmd(int port, int value, int line);
    void insertDoutCmd(int port, int value, int line);
    void insertTimerCmd(QString seconds, int line);
    void insertBoolCmd(int line);
    void insertIntCmd(int line, int which);

public:
    /// The editor that builds this widget's jobs.
    JobEdit *jobEditor() const { return jobEdit; }

    // ---- Conveyor tracking: conveyor/conveyor.cpp · pages 6 to 12, 55, 56 ----

    // ---- Laser cutting: laser/laser.cpp · pages 15 to 22 ----
public slots:
    void LaserMainPage();

    // ---- Special process: project/project.cpp, pointpanel.cpp · pages 43 to 46 ----
    void ShowBWBJobList();

public:
    /// Names the values of the position panel of the point page: 0 joint, 1 Cartesian, 2 tool,
    /// 3 user; a value above 3 sets no text.
    void setLabelcoord(unsigned char coord);

public slots:
    // ---- Polishing: polish/polish.cpp · pages 47, 48 · messages SetPolish, GetPolish ----
    void showPolish();
    void modifypolish();
    void updatePolishParam(const QByteArray &reply);
    void return_polishwiget();

    // ---- Spraying: spray/spray.cpp · pages 49 to 54 ----
    void return_spraywiget();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Pallet;
    struct Project;
    struct Polish;

    void initTechButtons();
    void initFirstLevelFonts();
    void reduceMenuToSpecialProcess();
    void initCanvases();
    void initPalletTechInterface();
    void initLaserInterface();
    void initBWBTechInterface();
    void openSpecialProcess();
    void inittrackCon();
    void initPolishInterface();
    void initSprayInterface();

    void showPage(page::Index index);
    /// The same with the title told first, as the pages of the pallet chain have it.
    void showTitleAndPage(page::Index index);
    void showHostedPage(int type, int group, int title);
    /// A button and the slot that a click on it runs.
    struct Click {
        QAbstractButton *button;
        void (TechnologyWidget::*slot)();
    };
    void connectClicks(std::initializer_list<Click> clicks);

    static TechnologyWidget *instance;

    Ui_TechnologyWidget *ui; ///< the form, freed first in the destructor
    Robot *robot; ///< every message and every reply goes through it; not owned
    CommandInsert *commandInsert; ///< run count of the special process; not owned
    PromptWidget *promptWidget = nullptr; ///< every question goes through it; not owned
    const std::unique_ptr<LiveArm> liveArm; ///< what the pages with points share

    // What each package keeps; see the package's own header.
    ProcessPackages packages; ///< in the order in which they were put together
    Pallet *palletPages = nullptr;
    Project *projectPages = nullptr;
    Polish *polishPages = nullptr;

    // The timers have no parent: they live as long as the process. Each polls every 400 ms, is
    // started by its page and stopped once that page is no longer shown.
    QTimer *palletPositionTimer = nullptr;
    QTimer *wizardPositionTimer = nullptr;
    QTimer *palletEasyPositionTimer = nullptr;
    QTimer *bwbPositionTimer = nullptr;
    QTimer *trackSpeedTimer = nullptr;
    QTimer *laserStateTimer = nullptr;
    JobEdit *jobEdit = nullptr; ///< has no parent either
    JobManager jobManager;
    ProgramInformation programInformation; ///< what the program wizard has collected
    BoxPainter *planeCanvas = nullptr;
    BoxPainter *locationCanvas = nullptr;
    BoxPainter *previewCanvas = nullptr;
    int forwardStep = 1; ///< step of the canvas's move keys, canvas units
    int locationCanvasZoom = 10; ///< zoom level of the location canvas; 10 is 1:1
};
