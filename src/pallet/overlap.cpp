// How the layers of a stack follow each other. The repeat modes work on the table of the page
// alone; the controller gets what stands there in the end.

#include "link/reply.h"
#include "link/request.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"
#include "shell/technologywidget.h"

#include <algorithm>
#include <utility>

namespace {

using Form = Ui_TechnologyWidget;

constexpr int kMaxLayers = 9999;
constexpr double kMaxHeightOffset = 5000; ///< millimetres, as the next
constexpr double kMaxHeightRevise = 5000;

/// Rows of the repeat combo box.
enum Repeat { Same, Alternating, Custom };

/// All but the number of layers, which a reply has its own bound for, and the table.
const Field kOverlapping[] = {
    {&Form::repeatModeComboBox, {"pallet", "overlapType"}, Field::Sent::Row},
    {&Form::altimetricCompensationEdit, {"pallet", "layHeightOffset"}, Field::Sent::Real},
    {&Form::fixedPointHeightBtn, {"pallet", "fixedLayHeight"}, Field::Sent::Switch},
    {&Form::verticalAlignmentBtn, {"pallet", "columnLay"}, Field::Sent::Switch},
    {&Form::levelsAutoAlignmentBtn, {"pallet", "floorAutoJustified"}, Field::Sent::Switch},
    {&Form::poseAutorotationBtn, {"pallet", "poseAutorotation"}, Field::Sent::Switch},
};

constexpr char kRefusedOffset[] = QT_TRANSLATE_NOOP("TechnologyWidget", "放货点高度补偿参数有误!");

const Check kChecks[] = {
    {&Form::altimetricCompensationEdit, &TechnologyWidget::isPalletpara, 0, 0, kRefusedOffset, 5000,
     1},
    {&Form::altimetricCompensationEdit, nullptr, 0, kMaxHeightOffset, kRefusedOffset},
};

/// What a reply says about the number of layers; beyond the largest stack it is the largest.
std::optional<int> layersIn(const Reply &reply)
{
    const std::optional<double> layers = reply.number("pallet", "floorSum");
    if (!layers)
        return std::nullopt;
    return static_cast<int>(std::clamp<double>(*layers, -kMaxLayers, kMaxLayers));
}

/// An element of a list that may be missing or shorter than the stack is high: 0 then.
double numberAt(const Json::Value *list, int index)
{
    if (!list || static_cast<Json::ArrayIndex>(index) >= list->size())
        return 0;
    return wire::asNumber(&(*list)[static_cast<Json::ArrayIndex>(index)]).value_or(0);
}

/// The row of a graphic number; -1 for a number that there is none for.
int rowOf(double graphic)
{
    return graphic >= 1 && graphic < 10 ? static_cast<int>(graphic) - 1 : -1;
}

/// New layers, as many as a stack can have.
QVector<LayerTable::Layer> stackOf(int layers)
{
    return QVector<LayerTable::Layer>(std::clamp(layers, 0, kMaxLayers));
}

/// Each layer takes the graphic of the layer `period` below it; the first ones keep theirs.
void repeatGraphics(const QVector<QComboBox *> &graphics, int period)
{
    for (int layer = period; layer < graphics.size(); ++layer)
        graphics[layer]->setCurrentIndex(graphics[layer % period]->currentIndex());
}

void repeatHeights(const QVector<DigitalLineEdit *> &heights, int period)
{
    for (int layer = period; layer < heights.size(); ++layer)
        fields::setText(heights[layer], heights[layer % period]->text());
}

/// Whether a height correction can be saved. An emptied one is none, 0; else only a number counts.
bool isHeight(const QString &text)
{
    bool isNumber = false;
    const double height = text.toDouble(&isNumber);
    return text.isEmpty()
        || (isNumber && height >= -kMaxHeightRevise && height <= kMaxHeightRevise);
}

/// The explanations are locked with the other ways out: the way back from them opens the page anew,
/// and an edit would be lost.
EditPage editPage(const Form *ui)
{
    EditPage page{ui->overlappingModifyBtn,
                  fields::widgets(kOverlapping, ui),
                  ui->overlappingModifyCancelBtn,
                  {ui->returnNavigationBtn6, ui->overlappingPageUp, ui->overlappingPageDown,
                   ui->overlappingExplainBtn}};
    page.fields += {ui->levelsnum, ui->overlapModeTab, ui->repeatBtn};
    return page;
}

} // namespace

void TechnologyWidget::initOverlapping()
{
    setReturnButtonSheet({ui->returnNavigationBtn6, ui->overlappingPageUp, ui->overlappingPageDown,
                          ui->overlappingModifyBtn, ui->overlappingModifyCancelBtn,
                          ui->overlappingExplainBtn});
    ui->overlapModeTab->setScrollBar(ui->overlapModeScroll);
    overlapModeTab(ui->levelsnum->text().toInt());
    repeatModel();
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_OverlappingModel, this,
            &TechnologyWidget::updatePalletOverlappingModel);
    connect(ui->overlapModeTab, &QTableWidget::itemChanged, this, &TechnologyWidget::itemChanged);
    connect(ui->repeatModeComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TechnologyWidget::repeatModel);
    connectClicks({
        {ui->overlappingModelBtn, &TechnologyWidget::palletOverlappingModelWidget},
        {ui->fixedPointHeightBtn, &TechnologyWidget::changeFixedPointHeightBtnState},
        {ui->verticalAlignmentBtn, &TechnologyWidget::changeVerticalAlignmentBtnState},
        {ui->levelsAutoAlignmentBtn, &TechnologyWidget::changeLevelsAutoAlignmentBtnState},
        {ui->poseAutorotationBtn, &TechnologyWidget::changePoseAutorotationBtnState},
        {ui->overlappingModifyBtn, &TechnologyWidget::modifyOverlapping},
        {ui->overlappingModifyCancelBtn, &TechnologyWidget::palletOverlappingModelWidget},
        {ui->overlappingPageUp, &TechnologyWidget::palletApproachParaWidget},
        {ui->returnNavigationBtn6, &TechnologyWidget::showPalletCompleteWidget},
    });
}

/// Opens the page, or ends an edit of it without saving.
void TechnologyWidget::palletOverlappingModelWidget()
{
    showTitleAndPage(page::PalletOverlapping);
    showViewState(editPage(ui));
    ui->overlapModeTab->writeHeader();
    repeatModel();
    request::ask(message::GetPalletOverlap, wire::reply::robot_pallet_OverlappingModel,
                 ui->m_pPalletCraftNum);
}

/// The layers of a craft arrived.
void TechnologyWidget::updatePalletOverlappingModel(const QByteArray &body)
{
    const std::optional<Reply> overlap = reply::warnAndGoOn(
        wire::reply::robot_pallet_OverlappingModel, body, reply::error::kOverlapping);
    if (!overlap || !reply::selectProcessNumber(ui->m_pPalletCraftNum, *overlap))
        return;
    if (!overlap->has("pallet"))
        return;
    if (const std::optional<int> count = layersIn(*overlap))
        fields::setText(ui->levelsnum, QString::number(*count));
    for (const Field &field : kOverlapping)
        fields::fill(field, ui, *overlap);

    const Json::Value *graphics = overlap->array("pallet", "graphicNum");
    const Json::Value *heights = overlap->array("pallet", "heightRevise");
    QVector<LayerTable::Layer> layers = stackOf(ui->levelsnum->text().toInt());
    for (int layer = 0; layer < layers.size(); ++layer) {
        layers[layer].row = rowOf(numberAt(graphics, layer));
        layers[layer].height = fields::shown(numberAt(heights, layer));
    }
    ui->overlapModeTab->rebuild(layers, LayerTable::Old::Deleted);
    takeLayers();
    followFirstLayers();
    holdColumns(); // the operator may have begun to edit before the reply came
}

/// The table anew, for so many layers.
void TechnologyWidget::overlapModeTab(int layers)
{
    ui->overlapModeTab->rebuild(stackOf(layers), LayerTable::Old::DeletedLater);
    takeLayers();
}

/// The widgets of a rebuilt table; layer 1 is the chosen one.
void TechnologyWidget::takeLayers()
{
    overlapGraphicCombos = ui->overlapModeTab->graphics();
    overlapHeightEdits = ui->overlapModeTab->heights();
    ui->overlapModeTab->selectRow(1);
}

/// Brings new rows into the repeat mode and keeps them there.
void TechnologyWidget::followFirstLayers()
{
    on_repeatModeComboBox_activated(ui->repeatModeComboBox->currentIndex());
    if (overlapGraphicCombos.size() < 2)
        return;
    for (int layer = 0; layer < 2; ++layer) {
        connect(overlapGraphicCombos[layer], QOverload<int>::of(&QComboBox::currentIndexChanged),
                this, &TechnologyWidget::repeatModeComboBoxShow);
        connect(overlapHeightEdits[layer], &DigitalLineEdit::finishType, this,
                &TechnologyWidget::repeatModeEditShow);
    }
}

void TechnologyWidget::on_levelsnum_editingFinished()
{
    const int layers = ui->levelsnum->text().toInt();
    if (layers <= 0)
        return;
    overlapModeTab(layers);
    followFirstLayers();
}

void TechnologyWidget::on_repeatModeComboBox_activated(int mode)
{
    const int layers = static_cast<int>(overlapGraphicCombos.size());
    if (layers < 2 || mode < Same || mode > Custom)
        return;
    // how many of the first layers the others follow, and may be chosen
    const int leading = mode == Same ? 1 : mode == Alternating ? 2 : layers;
    repeatGraphics(overlapGraphicCombos, leading);
    repeatHeights(overlapHeightEdits, leading);
    for (int layer = 0; layer < layers; ++layer)
        overlapGraphicCombos[layer]->setEnabled(layer < leading);
}

/// One of the first two layers got another graphic.
void TechnologyWidget::repeatModeComboBoxShow(int row)
{
    const int layers = static_cast<int>(overlapGraphicCombos.size());
    const int mode = ui->repeatModeComboBox->currentIndex();
    if (mode == Same && layers > 1) {
        for (QComboBox *graphic : std::as_const(overlapGraphicCombos))
            graphic->setCurrentIndex(row);
    } else if (mode == Alternating && layers > 2) {
        repeatGraphics(overlapGraphicCombos, 2);
    }
}

/// One of the first two layers got another height correction.
void TechnologyWidget::repeatModeEditShow()
{
    const int layers = static_cast<int>(overlapHeightEdits.size());
    const int mode = ui->repeatModeComboBox->currentIndex();
    if (mode == Same && layers > 1)
        repeatHeights(overlapHeightEdits, 1);
    else if (mode == Alternating && layers > 2)
        repeatHeights(overlapHeightEdits, 2);
}

void TechnologyWidget::repeatModel()
{
    ui->repeatBtn->setVisible(ui->repeatModeComboBox->currentText() == tr("自定义"));
}

/// The layers from the chosen one on repeat the graphics of those below it.
void TechnologyWidget::on_repeatBtn_clicked()
{
    const int row = ui->overlapModeTab->currentRow();
    if (row <= 0)
        return;
    repeatGraphics(overlapGraphicCombos, std::max(row - 1, 1));
}

void TechnologyWidget::itemChanged(QTableWidgetItem *) { }

void TechnologyWidget::changeFixedPointHeightBtnState()
{
    ui->fixedPointHeightBtn->setCheck(!ui->fixedPointHeightBtn->isCheck());
}

void TechnologyWidget::changeVerticalAlignmentBtnState()
{
    ui->verticalAlignmentBtn->setCheck(!ui->verticalAlignmentBtn->isCheck());
    if (ui->verticalAlignmentBtn->isCheck())
        lockRepeatMode();
    else
        ui->repeatModeComboBox->setEnabled(true);
}

/// A stack that is built column by column admits but one graphic.
void TechnologyWidget::lockRepeatMode()
{
    ui->repeatModeComboBox->setCurrentIndex(Same);
    ui->repeatModeComboBox->setEnabled(false);
    on_repeatModeComboBox_activated(Same);
}

void TechnologyWidget::changeLevelsAutoAlignmentBtnState()
{
    ui->levelsAutoAlignmentBtn->setCheck(!ui->levelsAutoAlignmentBtn->isCheck());
}

void TechnologyWidget::changePoseAutorotationBtnState()
{
    ui->poseAutorotationBtn->setCheck(!ui->poseAutorotationBtn->isCheck());
}

bool TechnologyWidget::acceptOverlapping()
{
    if (!fields::acceptAll(kChecks, this, ui))
        return false;
    const bool inRange = std::all_of(overlapHeightEdits.cbegin(), overlapHeightEdits.cend(),
                                     [](const auto *edit) { return isHeight(edit->text()); });
    if (!inRange)
        fields::refuse(tr("高度修正值范围为[-5000-5000]!"));
    return inRange;
}

void TechnologyWidget::modifyOverlapping()
{
    const bool wasViewing = ui->overlappingModifyBtn->text() == tr("修改");
    pressModify(
        editPage(ui), [this] { return acceptOverlapping(); },
        [this] {
            // an emptied field names no stack: that of the table stands
            if (ui->levelsnum->text().isEmpty())
                ui->levelsnum->setText(QString::number(overlapGraphicCombos.size()));
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            for (const Field &field : kOverlapping)
                fields::collect(field, ui, body);
            Json::Value &pallet = body["pallet"];
            pallet["floorSum"] = ui->levelsnum->text().toInt();
            Json::Value &graphics = pallet["graphicNum"] = Json::Value(Json::arrayValue);
            Json::Value &heights = pallet["heightRevise"] = Json::Value(Json::arrayValue);
            for (int layer = 0; layer < overlapGraphicCombos.size(); ++layer) {
                graphics.append(overlapGraphicCombos[layer]->currentText().toInt());
                heights.append(overlapHeightEdits[layer]->text().toDouble());
            }
            request::send(message::SetPalletOverlap, body);
            PrintLog::OutputToLog(tr("设置重叠模式"), 1);
        });
    if (wasViewing)
        holdColumns();
}

/// While a stack that is built column by column is edited, its layers are all the same.
void TechnologyWidget::holdColumns()
{
    if (ui->verticalAlignmentBtn->isCheck() && ui->overlappingModifyBtn->text() == tr("保存"))
        lockRepeatMode();
}
