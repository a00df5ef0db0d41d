#include "pallet/layertable.h"

#include "digitallineedit.h"
#include "setfontsize.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

namespace {

enum Column { Number, Graphic, Height, Columns };

constexpr int kRowHeight = 44;

/// A cell widget that the table alone shows, when its row comes into view. Until then it needs no
/// polish of the style either.
template <typename Base> class Cell : public Base {
public:
    using Base::Base;

    void setInView(bool inView)
    {
        m_inView = inView;
        Base::setVisible(inView);
    }
    void setVisible(bool visible) override { Base::setVisible(visible && m_inView); }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::PolishRequest && !m_inView)
            return true;
        return Base::event(event);
    }

private:
    bool m_inView = false;
};

using GraphicCell = Cell<QComboBox>;
using HeightCell = Cell<DigitalLineEdit>;

const QStringList &graphicNumbers()
{
    static const QStringList numbers = [] {
        QStringList list;
        for (int number = 1; number <= 9; ++number)
            list += QString::number(number);
        return list;
    }();
    return numbers;
}

} // namespace

LayerTable::LayerTable(QWidget *parent) : QTableWidget(parent)
{
    setColumnCount(Columns);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->resizeSection(Number, 70);
    horizontalHeader()->resizeSection(Graphic, 108);
    horizontalHeader()->setStretchLastSection(true);
    setShowGrid(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(kRowHeight);
}

void LayerTable::setScrollBar(QScrollBar *bar)
{
    const QScrollBar *own = verticalScrollBar();
    const auto follow = [own, bar] {
        bar->setRange(own->minimum(), own->maximum());
        bar->setPageStep(own->pageStep());
        bar->setSingleStep(own->singleStep());
    };
    follow();
    connect(own, &QScrollBar::rangeChanged, bar, follow);
    connect(own, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
    connect(bar, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
}

void LayerTable::rebuild(const QVector<Layer> &layers, Old old)
{
    m_isFilling = true;
    removeRows(old);
    addRows(layers);
    m_isFilling = false;
    writeHeader();
    scheduleDelayedItemsLayout();
    executeDelayedItemsLayout();
}

/// In the order in which they were made: each is then the first of its parent's children, which is
/// found without a search.
void LayerTable::removeRows(Old old)
{
    for (int layer = m_firstShown; layer <= m_lastShown; ++layer) {
        static_cast<GraphicCell *>(m_graphics[layer])->setInView(false);
        static_cast<HeightCell *>(m_heights[layer])->setInView(false);
    }
    m_firstShown = 0;
    m_lastShown = -1;
    // A widget that goes searches all posted events for its own. Each still has one if the event
    // loop has not run since it was made; together they are done with in one pass.
    if (old == Old::Deleted)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::PolishRequest);
    for (int layer = 0; layer < m_graphics.size(); ++layer) {
        if (old == Old::Deleted) {
            delete m_graphics[layer];
            delete m_heights[layer];
        } else {
            removeCellWidget(layer + 1, Graphic);
            removeCellWidget(layer + 1, Height);
        }
    }
    m_graphics.clear();
    m_heights.clear();
    setRowCount(0);
}

void LayerTable::addRows(const QVector<Layer> &layers)
{
    setRowCount(static_cast<int>(layers.size()) + 1);
    m_graphics.reserve(layers.size());
    m_heights.reserve(layers.size());
    int row = 0;
    for (const Layer &layer : layers) {
        ++row;
        auto *number = new QTableWidgetItem(QString::number(row));
        number->setTextAlignment(Qt::AlignCenter);
        setItem(row, Number, number);

        auto *graphic = new GraphicCell(viewport());
        graphic->insertItems(0, graphicNumbers());
        graphic->setCurrentIndex(layer.row);
        setCellWidget(row, Graphic, graphic);
        m_graphics.append(graphic);

        // a text that is set later costs a layout and a word to the accessibility tools
        auto *height = new HeightCell(layer.height, viewport());
        setCellWidget(row, Height, height);
        m_heights.append(height);
    }
}

void LayerTable::writeHeader()
{
    if (rowCount() == 0)
        return;
    const char *const texts[Columns] = {QT_TRANSLATE_NOOP("TechnologyWidget", "层"),
                                        QT_TRANSLATE_NOOP("TechnologyWidget", "图形编号"),
                                        QT_TRANSLATE_NOOP("TechnologyWidget", "高度修正")};
    for (int column = 0; column < Columns; ++column) {
        auto *header =
            new QTableWidgetItem(QCoreApplication::translate("TechnologyWidget", texts[column]));
        header->setBackground(QColor(169, 169, 169));
        header->setFont(SetFontSize::setSize(14));
        header->setTextAlignment(Qt::AlignCenter);
        setItem(0, column, header);
    }
}

void LayerTable::showCellsInView()
{
    if (m_isFilling)
        return;
    executeDelayedItemsLayout(); // what it calls in turn is done before the rows are looked up
    const int layers = static_cast<int>(m_graphics.size());
    const int bottom = rowAt(viewport()->height() - 1);
    const int first = std::max(rowAt(0) - 1, 0);
    const int last = std::min(bottom < 0 ? layers - 1 : bottom - 1, layers - 1);
    for (int layer = m_firstShown; layer <= m_lastShown; ++layer) {
        if (layer >= first && layer <= last)
            continue;
        static_cast<GraphicCell *>(m_graphics[layer])->setInView(false);
        static_cast<HeightCell *>(m_heights[layer])->setInView(false);
    }
    for (int layer = first; layer <= last; ++layer) {
        auto *graphic = static_cast<GraphicCell *>(m_graphics[layer]);
        graphic->setGeometry(visualRect(model()->index(layer + 1, Graphic)));
        graphic->setInView(true);

        auto *height = static_cast<HeightCell *>(m_heights[layer]);
        height->setGeometry(visualRect(model()->index(layer + 1, Height)));
        height->setProperty(
            "fieldName",
            QCoreApplication::translate("TechnologyWidget", "第%1层高度修正").arg(layer + 1));
        height->setProperty("fieldUnit", QStringLiteral("mm"));
        height->setInView(true);
    }
    m_firstShown = first;
    m_lastShown = last;
}

/// In the place of the base's: it would show them all.
void LayerTable::updateEditorGeometries()
{
    showCellsInView();
}

void LayerTable::scrollContentsBy(int dx, int dy)
{
    QTableWidget::scrollContentsBy(dx, dy);
    showCellsInView();
}

void LayerTable::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                             const QVector<int> &roles)
{
    if (!m_isFilling)
        QTableWidget::dataChanged(topLeft, bottomRight, roles);
}
