// How the layers of a stack follow each other. The repeat modes work on the table of the page
// alone; the controller gets what stands there in the end.

#include "link/reply.h"
#include "link/request.h"
#include "pallet/pallet_p.h"
#include "printlog.h"
#include "robot.h"
#include "shell/buttonstyle.h"
#include "shell/edittoggle.h"
#include "shell/fields.h"

#include <algorithm>

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

struct TechnologyWidget::Pallet::Layers : Page {
    using Page::Page;

    void takeWidgets();
    void followFirst();
    void lockRepeatMode();
    void holdColumns();
    bool accept() const;
};

void TechnologyWidget::Pallet::initLayers()
{
    layers = addPackage<Layers>(pages, *this);
    setReturnButtonSheet({ui->returnNavigationBtn6, ui->overlappingPageUp, ui->overlappingPageDown,
                          ui->overlappingModifyBtn, ui->overlappingModifyCancelBtn,
                          ui->overlappingExplainBtn});
    ui->overlapModeTab->setScrollBar(ui->overlapModeScroll);
    widget.overlapModeTab(ui->levelsnum->text().toInt());
    widget.repeatModel();
    showViewState(editPage(ui));

    connect(robot, &Robot::robot_pallet_OverlappingModel, &widget,
            &TechnologyWidget::updatePalletOverlappingModel);
    connect(ui->overlapModeTab, &QTableWidget::itemChanged, &widget,
            &TechnologyWidget::itemChanged);
    connect(ui->repeatModeComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
            &TechnologyWidget::repeatModel);
    widget.connectClicks({
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
    palletPages->layers->takeWidgets();
    palletPages->layers->followFirst();
    palletPages->layers->holdColumns(); // the operator may have begun to edit before the reply came
}

/// The table anew, for so many layers.
void TechnologyWidget::overlapModeTab(int layers)
{
    ui->overlapModeTab->rebuild(stackOf(layers), LayerTable::Old::DeletedLater);
    palletPages->layers->takeWidgets();
}

/// The widgets of a rebuilt table; layer 1 is the chosen one.
void TechnologyWidget::Pallet::Layers::takeWidgets()
{
    pallet.overlapGraphicCombos = ui->overlapModeTab->graphics();
    pallet.overlapHeightEdits = ui->overlapModeTab->heights();
    ui->overlapModeTab->selectRow(1);
}

/// Brings new rows into the repeat mode and keeps them there.
void TechnologyWidget::Pallet::Layers::followFirst()
{
    widget.on_repeatModeComboBox_activated(ui->repeatModeComboBox->currentIndex());
    if (pallet.overlapGraphicCombos.size() < 2)
        return;
    for (int layer = 0; layer < 2; ++layer) {
        connect(pallet.overlapGraphicCombos[layer],
                QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
                &TechnologyWidget::repeatModeComboBoxShow);
        connect(pallet.overlapHeightEdits[layer], &DigitalLineEdit::finishType, &widget,
                &TechnologyWidget::repeatModeEditShow);
    }
}

void TechnologyWidget::on_levelsnum_editingFinished()
{
    const int layers = ui->levelsnum->text().toInt();
    if (layers <= 0)
        return;
    overlapModeTab(layers);
    palletPages->layers->followFirst();
}

void TechnologyWidget::on_repeatModeComboBox_activated(int mode)
{
    const QVector<QComboBox *> &graphics = palletPages->overlapGraphicCombos;
    const int layers = static_cast<int>(graphics.size());
    if (layers < 2 || mode < Same || mode > Custom)
        return;
    // how many of the first layers the others follow, and may be chosen
    const int leading = mode == Same ? 1 : mode == Alternating ? 2 : layers;
    repeatGraphics(graphics, leading);
    repeatHeights(palletPages->overlapHeightEdits, leading);
    for (int layer = 0; layer < layers; ++layer)
        graphics[layer]->setEnabled(layer < leading);
}

/// One of the first two layers got another graphic.
void TechnologyWidget::repeatModeComboBoxShow(int row)
{
    const QVector<QComboBox *> &graphics = palletPages->overlapGraphicCombos;
    const int layers = static_cast<int>(graphics.size());
    const int mode = ui->repeatModeComboBox->currentIndex();
    if (mode == Same && layers > 1) {
        for (QComboBox *graphic : graphics)
            graphic->setCurrentIndex(row);
    } else if (mode == Alternating && layers > 2) {
        repeatGraphics(graphics, 2);
    }
}

/// One of the first two layers got another height correction.
void TechnologyWidget::repeatModeEditShow()
{
    const QVector<DigitalLineEdit *> &heights = palletPages->overlapHeightEdits;
    const int layers = static_cast<int>(heights.size());
    const int mode = ui->repeatModeComboBox->currentIndex();
    if (mode == Same && layers > 1)
        repeatHeights(heights, 1);
    else if (mode == Alternating && layers > 2)
        repeatHeights(heights, 2);
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
    repeatGraphics(palletPages->overlapGraphicCombos, std::max(row - 1, 1));
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
        palletPages->layers->lockRepeatMode();
    else
        ui->repeatModeComboBox->setEnabled(true);
}

/// A stack that is built column by column admits but one graphic.
void TechnologyWidget::Pallet::Layers::lockRepeatMode()
{
    ui->repeatModeComboBox->setCurrentIndex(Same);
    ui->repeatModeComboBox->setEnabled(false);
    widget.on_repeatModeComboBox_activated(Same);
}

void TechnologyWidget::changeLevelsAutoAlignmentBtnState()
{
    ui->levelsAutoAlignmentBtn->setCheck(!ui->levelsAutoAlignmentBtn->isCheck());
}

void TechnologyWidget::changePoseAutorotationBtnState()
{
    ui->poseAutorotationBtn->setCheck(!ui->poseAutorotationBtn->isCheck());
}

bool TechnologyWidget::Pallet::Layers::accept() const
{
    if (!fields::acceptAll(kChecks, &widget, ui))
        return false;
    const bool inRange =
        std::all_of(pallet.overlapHeightEdits.cbegin(), pallet.overlapHeightEdits.cend(),
                    [](const auto *edit) { return isHeight(edit->text()); });
    if (!inRange)
        fields::refuse(TechnologyWidget::tr("高度修正值范围为[-5000-5000]!"));
    return inRange;
}

void TechnologyWidget::modifyOverlapping()
{
    const bool wasViewing = ui->overlappingModifyBtn->text() == tr("修改");
    pressModify(
        editPage(ui), [this] { return palletPages->layers->accept(); },
        [this] {
            const QVector<QComboBox *> &layers = palletPages->overlapGraphicCombos;
            // an emptied field names no stack: that of the table stands
            if (ui->levelsnum->text().isEmpty())
                ui->levelsnum->setText(QString::number(layers.size()));
            Json::Value body = request::forText(ui->m_pPalletCraftNum);
            for (const Field &field : kOverlapping)
                fields::collect(field, ui, body);
            Json::Value &pallet = body["pallet"];
            pallet["floorSum"] = ui->levelsnum->text().toInt();
            Json::Value &graphics = pallet["graphicNum"] = Json::Value(Json::arrayValue);
            Json::Value &heights = pallet["heightRevise"] = Json::Value(Json::arrayValue);
            for (int layer = 0; layer < layers.size(); ++layer) {
                graphics.append(layers[layer]->currentText().toInt());
                heights.append(palletPages->overlapHeightEdits[layer]->text().toDouble());
            }
            request::send(message::SetPalletOverlap, body);
            PrintLog::OutputToLog(tr("设置重叠模式"), 1);
        });
    if (wasViewing)
        palletPages->layers->holdColumns();
}

/// While a stack that is built column by column is edited, its layers are all the same.
void TechnologyWidget::Pallet::Layers::holdColumns()
{
    if (ui->verticalAlignmentBtn->isCheck()
        && ui->overlappingModifyBtn->text() == TechnologyWidget::tr("保存"))
        lockRepeatMode();
}
