#include "shell/technologywidget.h"

#include "app.h"
#include "boxpainter.h"
#include "commandinsert.h"
#include "morerobot.h"
#include "newtechnologywidget.h"
#include "promptwidget.h"
#include "robot.h"
#include "setfontsize.h"
#include "shell/livearm.h"
#include "shell/technologyform.h"

#include <QEvent>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QTimer>

TechnologyWidget *TechnologyWidget::instance = nullptr;

/// Pictures and English texts are linked in statically; naming them here keeps them in every
/// program.
static void loadResources()
{
    Q_INIT_RESOURCE(resources);
    Q_INIT_RESOURCE(technology_english);
}

namespace {

/// One of the three layout canvases: where it stands and how large its drawing area is, in pixels.
struct CanvasRow {
    BoxPainter **canvas;
    QWidget *parent;
    QRect geometry;
    QSize fixedSize; ///< invalid: the canvas keeps its geometry
    double extentX;
    double extentY;
};

} // namespace

TechnologyWidget *TechnologyWidget::getInstance()
{
    if (!instance)
        instance = new TechnologyWidget(nullptr);
    return instance;
}

TechnologyWidget::TechnologyWidget(QWidget *parent)
    : QStackedWidget(parent), ui(new Ui_TechnologyWidget), robot(Robot::getInstance()),
      commandInsert(CommandInsert::getInstance()), liveArm(std::make_unique<LiveArm>(*this))
{
    loadResources();
    ui->setupUi(this);

    initTechButtons();
    initPalletTechInterface();
    initPalletRobotType();
    initLaserInterface();
    promptWidget = PromptWidget::getInstance();
    initFirstLevelFonts();
    ui->BtnPalletMultiple->hide();
    if (App::DCAll_In_One)
        reduceMenuToSpecialProcess();

    laserStateTimer = new QTimer;
    laserStateTimer->setInterval(400);
    ui->workPieceNum->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{0,3}")), this));
    initCanvases();
    ui->Forward->setText(QStringLiteral("1"));
    forwardStep = ui->Forward->text().toInt();

    initBWBTechInterface();
    inittrackCon();
    initPolishInterface();
    initSprayInterface();

    connect(MoreRobot::getInstance(), &MoreRobot::currentRobotChanged, this, [this] {
        for (const auto &package : packages)
            package->forgetRobot();
    });
    connect(robot, &Robot::linkChanged, this, [this] {
        for (const auto &package : packages)
            package->linkChanged();
    });
    connect(ui->BtnWeldSetting, &QToolButton::clicked, this, &TechnologyWidget::showWeldingPage);
    connect(ui->BtnVisionSetting, &QToolButton::clicked, this, &TechnologyWidget::showVisionpage);
}

TechnologyWidget::~TechnologyWidget()
{
    delete ui;
    if (instance == this)
        instance = nullptr;
}

void TechnologyWidget::initFirstLevelFonts()
{
    const QFont font = SetFontSize::setSize(14);
    for (QToolButton *button :
         {ui->BtnPalletTech,    ui->BtnPalletType,    ui->BtnLocationDebug, ui->BtnPalletMultiple,
          ui->BtnPalletFile,    ui->BtnVisionSetting, ui->BtnWeldSetting,   ui->BtnLaserSetting,
          ui->BtnLaserBore,     ui->BtnLaserCut,      ui->BtnLaserAnalog,   ui->BtnLaserIoSetting,
          ui->BtnLaserHandOp,   ui->BtnBWBTech,       ui->BtnPolishPara,    ui->BtnTrackConveyor,
          ui->BtnPolish,        ui->BtnScrew,         ui->BtnSpray,         ui->BtnDigitalSetting,
          ui->BtnAnalogSetting, ui->BtnSequence,      ui->BtnTrackPara,     ui->BtnHandOperating})
        button->setFont(font);
}

/// The device that offers nothing but the special process.
void TechnologyWidget::reduceMenuToSpecialProcess()
{
    for (QToolButton *button :
         {ui->BtnPalletTech, ui->BtnWeldSetting, ui->BtnVisionSetting, ui->BtnLaserSetting,
          ui->BtnTrackConveyor, ui->BtnPolish, ui->BtnScrew, ui->BtnSpray})
        button->hide();
    ui->BtnBWBTech->move(17, 20);
}

void TechnologyWidget::initCanvases()
{
    const CanvasRow rows[] = {
        {&planeCanvas, ui->widget_11, {10, 50, 544, 399}, {535, 350}, 485.0, 300.0},
        {&locationCanvas, ui->LocationDebugWidget, {20, 80, 549, 389}, {530, 310}, 480.0, 260.0},
        {&previewCanvas, ui->previewShowwidget, {10, 10, 619, 369}, {}, 610.0, 360.0},
    };
    for (const CanvasRow &row : rows) {
        auto *canvas = new BoxPainter(row.parent);
        canvas->setGeometry(row.geometry);
        if (row.fixedSize.isValid())
            canvas->setFixedSize(row.fixedSize);
        canvas->setXY(row.extentX, row.extentY);
        canvas->setStyleSheet(QStringLiteral("background-color:white"));
        canvas->hide();
        *row.canvas = canvas;
    }
    previewCanvas->setEnabled(false);
}

void TechnologyWidget::showPage(page::Index index)
{
    setCurrentIndex(index);
    const int title = page::kTable[index].title;
    if (title >= 0)
        emit tnw_WidgetTitle(page::kTitleGroup, title, 0);
}

void TechnologyWidget::showTitleAndPage(page::Index index)
{
    emit tnw_WidgetTitle(page::kTitleGroup, page::kTable[index].title, 0);
    setCurrentIndex(index);
}

void TechnologyWidget::connectClicks(std::initializer_list<Click> clicks)
{
    for (const Click &click : clicks)
        connect(click.button, &QAbstractButton::clicked, this, click.slot);
}

void TechnologyWidget::hideWgt()
{
    hide();
    NewTechnologyWidget::getInstance()->hide();
}

void TechnologyWidget::resizeTable(QTableWidget *table, int height)
{
    if (!table || table->rowCount() == 0)
        return;
    const int rows = table->rowCount();
    const int rowHeight = (height == -1 ? table->height() : height) / rows;
    for (int row = 0; row < rows - 1; ++row)
        table->setRowHeight(row, rowHeight);
    table->setRowHeight(rows - 1, rowHeight - 3);
}

void TechnologyWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        // The edit state of a page is a button's text, which the new language resets: no page with
        // such a state may be open at that moment.
        if (currentIndex() != page::Menu)
            return_mainPage();
        ui->retranslateUi(this);
        for (const auto &package : packages)
            package->retranslate();
    }
    QStackedWidget::changeEvent(event);
}

void TechnologyWidget::showEvent(QShowEvent *event)
{
    QStackedWidget::showEvent(event);
    liveArm->resume();
}
