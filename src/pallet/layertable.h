#pragma once

#include <QTableWidget>
#include <QVector>

class DigitalLineEdit;
class QComboBox;
class QScrollBar;

/// The table of the layers of a stack: a grey header row, and below it one row for each layer with
/// its number, a combo box with the graphic numbers 1 to 9 and a field with the height correction
/// in millimetres. Table row r stands for the layer of index r - 1.
///
/// A stack has up to 9999 layers, and so up to 19998 of these widgets. Of cell widgets that are
/// shown, Qt places, stacks and paints each against all others, in view or not, which takes a time
/// that grows with the square of their number; so here only those that are in view are shown.
class LayerTable : public QTableWidget {
    Q_OBJECT
public:
    /// What becomes of the widgets of the old rows.
    enum class Old {
        Deleted, ///< at once
        DeletedLater ///< back in the event loop, since one of them may be receiving the very touch
                     ///< that led here
    };

    /// What a new row shows.
    struct Layer {
        int row = 0; ///< of the combo box; -1: no graphic
        QString height = QStringLiteral("0");
    };

    explicit LayerTable(QWidget *parent = nullptr);

    /// Replaces all rows by the header row and a row for each of `layers`.
    void rebuild(const QVector<Layer> &layers, Old old);
    /// Lets a scroll bar beside the table move its rows, so that they can be looked through while
    /// the table is disabled.
    void setScrollBar(QScrollBar *bar);
    /// Writes the header row in the program's language, if there is one.
    void writeHeader();

    /// The widgets of the layers in their order. They belong to the table.
    const QVector<QComboBox *> &graphics() const { return m_graphics; }
    const QVector<DigitalLineEdit *> &heights() const { return m_heights; }

protected:
    void updateEditorGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

private:
    void removeRows(Old old);
    void addRows(const QVector<Layer> &layers);
    void showCellsInView();

    QVector<QComboBox *> m_graphics;
    QVector<DigitalLineEdit *> m_heights;
    int m_firstShown = 0; ///< the layers whose cells are shown, by index; none when last < first
    int m_lastShown = -1;
    bool m_isFilling = false;
};
