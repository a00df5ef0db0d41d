// The plane page: how the workpieces of one layer lie on the tray, nine graphics for each craft.

#include "app.h"
#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/technologyform.h"
#include "snackbarmessage.h"

#include <algorithm>

namespace {

using Form = Ui_TechnologyWidget;
using Sent = Field::Sent;

enum Template { Ranks = 0, Crisscross = 1, HuiType = 2, Custom = 3 };

constexpr double kMaxTranslation = 5000; ///< mm
constexpr double kMaxCount = 99;

/// A template: its block in the messages, its fields, and the picture of its whole rotation.
struct TemplateRow {
    const char *block; ///< key below "pallet"
    QVector<DigitalLineEdit * Form::*> counts; ///< numX, numY; the hui type has none
    QComboBox *Form::*wholeRotation;
    QComboBox *Form::*singleRotation;
    QLabel *Form::*picture;
    const char *pictureName; ///< the angle and ".png" follow
};

const TemplateRow &templateRow(int type)
{
    static const TemplateRow rows[] = {
        {"ranks",
         {&Form::ranksXDirectionNum, &Form::ranksYDirectionNum},
         &Form::ranksWholeRotate,
         &Form::ranksWorkpieceRotate,
         &Form::ranksPic,
         "RanksModel"},
        {"intertwining",
         {&Form::crisscrossXDirectionNum, &Form::crisscrossYDirectionNum},
         &Form::crisscrossWholeRotate,
         &Form::crisscrossWorkpieceRotate,
         &Form::crisscrossPic,
         "crisscross"},
        {"gearType",
         {},
         &Form::huiTypeWholeRotate,
         &Form::huiTypeWorkpieceRotate,
         &Form::huiTypePic,
         "HuiType"},
    };
    return rows[type];
}

constexpr const char *kCountKeys[] = {"numX", "numY"};
constexpr const char *kWholeKey = "rotationAngleWhole";
constexpr const char *kSingleKey = "rotationAngleSingle";

/// The tests of a save, whatever the template: the fields of the templates that are not in use are
/// tested too.
const Check kChecks[] = {
    {&Form::xDirectionMoveDistance, &TechnologyWidget::isPalletpara2, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "X方向平移距离参数有误!"), 5000, 1},
    {&Form::xDirectionMoveDistance, nullptr, -kMaxTranslation, kMaxTranslation,
     QT_TRANSLATE_NOOP("TechnologyWidget", "X方向平移距离参数有误!"), 5000, 1},
    {&Form::yDirectionMoveDistance, &TechnologyWidget::isPalletpara2, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "Y方向平移距离参数有误!"), 5000, 1},
    {&Form::yDirectionMoveDistance, nullptr, -kMaxTranslation, kMaxTranslation,
     QT_TRANSLATE_NOOP("TechnologyWidget", "Y方向平移距离参数有误!"), 5000, 1},
    {&Form::ranksXDirectionNum, &TechnologyWidget::isPalletpara3, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "行列X方向个数参数有误!"), 5000, 1},
    {&Form::ranksXDirectionNum, nullptr, 1, kMaxCount,
     QT_TRANSLATE_NOOP("TechnologyWidget", "行列X方向个数参数有误!"), 5000, 1},
    {&Form::ranksYDirectionNum, &TechnologyWidget::isPalletpara3, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "行列Y方向个数参数有误!"), 5000, 1},
    {&Form::ranksYDirectionNum, nullptr, 1, kMaxCount,
     QT_TRANSLATE_NOOP("TechnologyWidget", "行列Y方向个数参数有误!"), 5000, 1},
    {&Form::crisscrossXDirectionNum, &TechnologyWidget::isPalletpara3, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "纵横交错X方向个数参数有误!"), 5000, 1},
    {&Form::crisscrossXDirectionNum, nullptr, 1, kMaxCount,
     QT_TRANSLATE_NOOP("TechnologyWidget", "纵横交错X方向个数参数有误!"), 5000, 1},
    {&Form::crisscrossYDirectionNum, &TechnologyWidget::isPalletpara3, 0, 0,
     QT_TRANSLATE_NOOP("TechnologyWidget", "纵横交错Y方向个数参数有误!"), 5000, 1},
    {&Form::crisscrossYDirectionNum, nullptr, 1, kMaxCount,
     QT_TRANSLATE_NOOP("TechnologyWidget", "纵横交错Y方向个数参数有误!"), 5000, 1},
};

/// The count and rotation fields of all templates.
QVector<QWidget *> templateFields(const Form *ui)
{
    QVector<QWidget *> list;
    for (int type = Ranks; type <= HuiType; ++type) {
        const TemplateRow &row = templateRow(type);
        for (const auto count : row.counts)
            list.append(ui->*count);
        list.append(ui->*row.wholeRotation);
        list.append(ui->*row.singleRotation);
    }
    return list;
}

/// What starts from the saved graphic is at hand only while nothing is being edited.
void enableSavedGraphicButtons(const Form *ui, bool enabled)
{
    for (QPushButton *button : {ui->customPreviewBtn, ui->copyPictureBtn, ui->ranksToCustomBtn,
                                ui->crisscrossToCustomBtn, ui->huiTypeToCustomBtn})
        button->setEnabled(enabled);
}

void setRow(QComboBox *box, int row)
{
    box->setCurrentIndex(std::max(row, -1));
}

void selectAngle(QComboBox *box, std::optional<int> angle)
{
    const int row = angle ? box->findText(QString::number(*angle), Qt::MatchExactly) : -1;
    if (row >= 0)
        box->setCurrentIndex(row);
}

void fillTemplate(const Form *ui, int type, const Reply &plane)
{
    const TemplateRow &row = templateRow(type);
    for (int i = 0; i < row.counts.size(); ++i) {
        if (const auto count = plane.number("pallet", row.block, kCountKeys[i]))
            fields::setText(ui->*row.counts[i], fields::shown(*count));
    }
    selectAngle(ui->*row.wholeRotation, plane.integer("pallet", row.block, kWholeKey));
    selectAngle(ui->*row.singleRotation, plane.integer("pallet", row.block, kSingleKey));
}

/// A list of workpieces comes in chunks, each of which names its graphic; `start` counts from 1.
bool isLastOfAnswer(const Reply &plane)
{
    const auto item = [&plane](const char *key) {
        return wire::integer(plane.root(), "pallet", "custom", key);
    };
    const std::optional<int> sum = item("sum");
    const std::optional<int> start = item("start");
    const std::optional<int> count = item("count");
    return !sum || !start || !count || qint64(*start) + *count > *sum;
}

void collectTemplate(const Form *ui, int type, Json::Value &pallet)
{
    const TemplateRow &row = templateRow(type);
    Json::Value &block = pallet[row.block];
    for (int i = 0; i < row.counts.size(); ++i)
        block[kCountKeys[i]] = (ui->*row.counts[i])->text().toDouble();
    block[kWholeKey] = (ui->*row.wholeRotation)->currentText().toDouble();
    block[kSingleKey] = (ui->*row.singleRotation)->currentText().toDouble();
}

/// Shows the drawing of the template turned as a whole by the angle that is chosen.
void showRotation(const Form *ui, int type)
{
    const TemplateRow &row = templateRow(type);
    const QString angle = (ui->*row.wholeRotation)->currentText();
    for (const char *known :
         {QT_TRANSLATE_NOOP("TechnologyWidget", "0"), QT_TRANSLATE_NOOP("TechnologyWidget", "90"),
          QT_TRANSLATE_NOOP("TechnologyWidget", "180"),
          QT_TRANSLATE_NOOP("TechnologyWidget", "-90")}) {
        if (angle == TechnologyWidget::tr(known))
            setSheet(ui->*row.picture,
                     QStringLiteral("border-image: url(:/new/picture/Resources/res/%1%2.png);")
                         .arg(QLatin1String(row.pictureName), QLatin1String(known)));
    }
}

EditPage editPage(const Form *ui)
{
    EditPage page{ui->planeModifyBtn,
                  {ui->draftingPreview, ui->customPagDn, ui->customPagUp, ui->customPage,
                   ui->moveupBtn, ui->moveDownBtn, ui->planeTemplateComboBox,
                   ui->xDirectionMoveDistance, ui->yDirectionMoveDistance},
                  ui->planeModifyCancelBtn,
                  {ui->returnNavigationBtn7, ui->planePageUp}};
    page.fields += templateFields(ui);
    page.fields += {ui->workPieceNum, ui->planeMoleTab};
    return page;
}

} // namespace

struct TechnologyWidget::Pallet::Plane : Page {
    using Page::Page;

    void retranslate() override;

    Json::Value requestBody() const;
    bool fillHead(const Reply &plane);
    void showAutoTranslations();

    // What the controller moves the layer by, mm; nothing as long as no reply has told.
    std::optional<double> autoX;
    std::optional<double> autoY;
};

void TechnologyWidget::Pallet::initPlane()
{
    plane = addPackage<Plane>(pages, *this);
    setReturnButtonSheet({ui->returnNavigationBtn7, ui->planePageUp, ui->planeModifyBtn,
                          ui->planeModifyCancelBtn, ui->customPreviewReturnBtn,
                          ui->customPreviewSaveBtn});
    ui->CustomPreviewframe->hide();
    showViewState(editPage(ui));
    for (int type = Ranks; type <= HuiType; ++type)
        showRotation(ui, type);

    connect(robot, &Robot::robot_pallet_PlaneModel, &widget,
            &TechnologyWidget::updatePalletPlaneModel);
    connect(robot, &Robot::robot_pallet_ChangeModel, &widget,
            &TechnologyWidget::updatePalletChangeModel);
    for (QAbstractButton *button : {static_cast<QAbstractButton *>(ui->planeModelBtn),
                                    static_cast<QAbstractButton *>(ui->overlappingPageDown),
                                    static_cast<QAbstractButton *>(ui->planeModifyCancelBtn)})
        connect(button, &QAbstractButton::clicked, &widget,
                &TechnologyWidget::palletPlaneModelWidget);
    connect(ui->planePageUp, &QPushButton::clicked, &widget,
            &TechnologyWidget::palletOverlappingModelWidget);
    connect(ui->returnNavigationBtn7, &QPushButton::clicked, &widget,
            &TechnologyWidget::palletcomplete);
    connect(ui->planeModifyBtn, &QPushButton::clicked, &widget, &TechnologyWidget::modifyPlane);
    for (QPushButton *button :
         {ui->ranksToCustomBtn, ui->crisscrossToCustomBtn, ui->huiTypeToCustomBtn})
        connect(button, &QPushButton::clicked, &widget, &TechnologyWidget::ranksToCustom);

    const auto rowChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(ui->planePicturesNumComboBox, rowChanged, &widget,
            &TechnologyWidget::changePlanePicturesNum);
    connect(ui->planeTemplateComboBox, rowChanged, &widget,
            &TechnologyWidget::planeTemplateSelectionWidget);
    connect(ui->ranksWholeRotate, rowChanged, &widget, &TechnologyWidget::ranksWholeRotate);
    connect(ui->crisscrossWholeRotate, rowChanged, &widget,
            &TechnologyWidget::crisscrossWholeRotate);
    connect(ui->huiTypeWholeRotate, rowChanged, &widget, &TechnologyWidget::huiTypeWholeRotate);
}

/// Opens the page, or drops an edit.
void TechnologyWidget::palletPlaneModelWidget()
{
    showPage(page::PalletPlane);
    ui->planePatternTemplate->setGeometry(8, 128, 698, 318);
    ui->CustomPreviewframe->hide();
    showViewState(editPage(ui));
    enableSavedGraphicButtons(ui, true);
    // The graphic's row and not the template's, until the reply tells the template; meant so.
    if (ui->planePicturesNumComboBox->currentIndex() <= Custom)
        ui->planePatternTemplate->setCurrentIndex(ui->planePicturesNumComboBox->currentIndex());
    changePlanePicturesNum();
    // what another view of the graphic may have hidden
    const QVector<QWidget *> shown = {ui->planeTopWidget,
                                      ui->planeFootWidget,
                                      ui->label_325,
                                      ui->label_326,
                                      ui->label_327,
                                      ui->label_328,
                                      ui->technologyNumber_7,
                                      ui->planePicturesNumComboBox,
                                      ui->planeTemplateComboBox,
                                      ui->xDirectionMoveDistance,
                                      ui->yDirectionMoveDistance,
                                      ui->autoTransLenX,
                                      ui->autoTransLenY};
    for (QWidget *widget : shown)
        widget->show();
    ui->planeModifyBtn->setEnabled(true);
}

Json::Value TechnologyWidget::Pallet::Plane::requestBody() const
{
    Json::Value body = request::forRow(ui->m_pPalletCraftNum);
    body["graphic"] = ui->planePicturesNumComboBox->currentIndex() + 1;
    return body;
}

/// Another graphic: what the last one had and the reply does not bring is not to stay.
void TechnologyWidget::changePlanePicturesNum()
{
    for (int type = Ranks; type <= HuiType; ++type) {
        const TemplateRow &row = templateRow(type);
        for (const auto count : row.counts)
            (ui->*count)->setText(QStringLiteral("1"));
        (ui->*row.wholeRotation)->setCurrentIndex(0);
        (ui->*row.singleRotation)->setCurrentIndex(0);
    }
    request::ask(message::GetPalletPlane, wire::reply::robot_pallet_PlaneModel,
                 {ui->m_pPalletCraftNum, ui->planePicturesNumComboBox},
                 palletPages->plane->requestBody());
}

void TechnologyWidget::planeTemplateSelectionWidget()
{
    const int type = ui->planeTemplateComboBox->currentIndex();
    if (type < Ranks || type > Custom)
        return;
    ui->planePatternTemplate->setCurrentIndex(type);
    if (type == Custom)
        ui->workPieceNum->setText(QString::number(ui->planeMoleTab->rowCount()));
    else
        showRotation(ui, type);
}

/// The common head of both plane replies: craft, graphic, template and translations. False when the
/// reply is to be dropped.
bool TechnologyWidget::Pallet::Plane::fillHead(const Reply &plane)
{
    if (!reply::select(plane,
                       {{ui->m_pPalletCraftNum, plane.integer("craftID")},
                        {ui->planePicturesNumComboBox, plane.integer("graphic")}},
                       isLastOfAnswer(plane)))
        return false;
    if (const auto type = plane.integer("pallet", "graphicType"))
        setRow(ui->planeTemplateComboBox, *type);
    if (const auto x = plane.number("pallet", "transLenX"))
        fields::setText(ui->xDirectionMoveDistance, fields::shown(*x));
    if (const auto y = plane.number("pallet", "transLenY"))
        fields::setText(ui->yDirectionMoveDistance, fields::shown(*y));
    if (const auto x = plane.number("pallet", "autoTransLenX"))
        autoX = x;
    if (const auto y = plane.number("pallet", "autoTransLenY"))
        autoY = y;
    showAutoTranslations();
    return true;
}

void TechnologyWidget::Pallet::Plane::showAutoTranslations()
{
    if (autoX)
        ui->autoTransLenX->setText(
            TechnologyWidget::tr("X自动平移距离%1").arg(fields::shown(*autoX)));
    if (autoY)
        ui->autoTransLenY->setText(
            TechnologyWidget::tr("Y自动平移距离%1").arg(fields::shown(*autoY)));
}

void TechnologyWidget::Pallet::Plane::retranslate()
{
    showAutoTranslations();
}

/// A graphic arrived.
void TechnologyWidget::updatePalletPlaneModel(const QByteArray &body)
{
    App::isSendLargeData_ = false;
    const auto plane =
        reply::warnAndStop(wire::reply::robot_pallet_PlaneModel, body, reply::error::kPlane);
    if (!plane || !palletPages->plane->fillHead(*plane))
        return;
    const int type = plane->integer("pallet", "graphicType").value_or(-1);
    if (type < Ranks || type > Custom)
        return;
    ui->planePatternTemplate->setCurrentIndex(type);
    if (type == Custom)
        return;
    fillTemplate(ui, type, *plane);
    showRotation(ui, type);
}

/// The workpieces that a template was turned into arrived.
void TechnologyWidget::updatePalletChangeModel(const QByteArray &body)
{
    const auto plane =
        reply::warnAndGoOn(wire::reply::robot_pallet_ChangeModel, body, reply::error::kPlane);
    if (plane && palletPages->plane->fillHead(*plane)
        && plane->integer("pallet", "graphicType").value_or(-1) == Custom)
        ui->planePatternTemplate->setCurrentIndex(Custom);
}

void TechnologyWidget::ranksWholeRotate()
{
    showRotation(ui, Ranks);
}

void TechnologyWidget::crisscrossWholeRotate()
{
    showRotation(ui, Crisscross);
}

void TechnologyWidget::huiTypeWholeRotate()
{
    showRotation(ui, HuiType);
}

void TechnologyWidget::modifyPlane()
{
    pressModify(
        editPage(ui),
        [this] {
            if (!fields::acceptAll(kChecks, this, ui))
                return false;
            if (ui->planeTemplateComboBox->currentIndex() != Custom)
                return true;
            SnackbarMessage::showMessage(tr("自定义图形不能在此保存"), 5000, 2, true);
            return false;
        },
        [this] {
            PrintLog::OutputToLog(tr("设置平面模式"), 1);
            const int type = ui->planeTemplateComboBox->currentIndex();
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            body["graphic"] = ui->planePicturesNumComboBox->currentIndex() + 1;
            Json::Value &pallet = body["pallet"];
            pallet["graphicType"] = type;
            pallet["transLenX"] = ui->xDirectionMoveDistance->text().toDouble();
            pallet["transLenY"] = ui->yDirectionMoveDistance->text().toDouble();
            if (type >= Ranks)
                collectTemplate(ui, type, pallet);
            request::send(message::SetPalletPlane, body);
        });
    enableSavedGraphicButtons(ui, ui->planeModifyCancelBtn->isHidden());
}

/// Turns the saved template into a table of workpieces; the controller owns the layout.
void TechnologyWidget::ranksToCustom()
{
    ui->planeTemplateComboBox->setCurrentIndex(Custom);
    ui->planePatternTemplate->setCurrentIndex(Custom);
    request::send(message::ConvertPalletPlane, palletPages->plane->requestBody());
}

/// The button's name attaches this slot as well; the work is done by modifyPlane().
void TechnologyWidget::on_planeModifyBtn_clicked() { }
