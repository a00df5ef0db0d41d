#include "pallet/wizard/variablebox.h"

#include "inputgate.h"
#include "setfontsize.h"

#include <QAbstractItemModel>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

namespace {

constexpr int kColumns = 10;
constexpr int kEntries = 100; ///< on the board at once
constexpr int kGap = 3;
constexpr QSize kKey(54, 40);
constexpr int kHundredHeight = 42; ///< ten of them beside the ten rows of keys

/// The board of one box, as a window that takes all input until an entry or a place beside it is
/// touched.
class VariableBoard : public QFrame {
public:
    explicit VariableBoard(QComboBox *box) : QFrame(box, Qt::Popup), m_box(box)
    {
        setObjectName(QStringLiteral("variableBoard"));
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_NoMouseReplay);
        setFrameShape(QFrame::StyledPanel);

        auto *title = new QLabel(box->property("fieldName").toString(), this);
        title->setFont(SetFontSize::setSize(15));
        auto *cancel = new QPushButton(VariableBox::tr("取消"), this);
        cancel->setObjectName(QStringLiteral("variableCancel"));
        cancel->setMinimumSize(110, 44);
        connect(cancel, &QPushButton::clicked, this, &QWidget::close);

        auto *grid = new QGridLayout;
        grid->setSpacing(kGap);
        const QFont font = SetFontSize::setSize(12);
        for (int i = 0; i < kEntries; ++i) {
            auto *key = new QPushButton(this);
            key->setFixedSize(kKey);
            key->setFont(font);
            key->setCheckable(true);
            QSizePolicy policy = key->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            key->setSizePolicy(policy);
            connect(key, &QPushButton::clicked, this, [this, i] { choose(m_first + i); });
            grid->addWidget(key, i / kColumns, i % kColumns);
            m_keys.append(key);
        }

        auto *layout = new QGridLayout(this);
        layout->setContentsMargins(6, 6, 6, 6);
        layout->setSpacing(6);
        layout->addWidget(title, 0, 0, 1, 2);
        layout->addWidget(cancel, 0, 2, Qt::AlignRight);
        addHundreds(layout);
        layout->addLayout(grid, 1, 1, 1, 2);
        layout->setColumnStretch(1, 1);

        connect(InputGate::getInstance(), &InputGate::restrictionChanged, this, [this] {
            if (!InputGate::getInstance()->allows(m_box))
                close();
        });
        // keys of a list that is another one meanwhile would not do what they say
        connect(box->model(), &QAbstractItemModel::rowsInserted, this, &QWidget::close);
        connect(box->model(), &QAbstractItemModel::rowsRemoved, this, &QWidget::close);
        const int row = std::max(box->currentIndex(), 0);
        showFrom(row - row % kEntries);
        m_keys.at(row % kEntries)->setFocus();
    }

private:
    void addHundreds(QGridLayout *layout)
    {
        auto *hundreds = new QListWidget(this);
        hundreds->setObjectName(QStringLiteral("variableHundreds"));
        hundreds->setFixedWidth(104);
        hundreds->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        for (int first = 0; first < m_box->count(); first += kEntries)
            hundreds->addItem(m_box->itemText(first) + QStringLiteral(" …"));
        for (int i = 0; i < hundreds->count(); ++i)
            hundreds->item(i)->setSizeHint(QSize(0, kHundredHeight));
        hundreds->setCurrentRow(std::max(m_box->currentIndex(), 0) / kEntries);
        hundreds->setVisible(hundreds->count() > 1);
        connect(hundreds, &QListWidget::currentRowChanged, this,
                [this](int row) { showFrom(row * kEntries); });
        layout->addWidget(hundreds, 1, 0);
    }

    /// The hundred from this row of the box on.
    void showFrom(int first)
    {
        m_first = first;
        for (int i = 0; i < kEntries; ++i) {
            const int row = first + i;
            QPushButton *key = m_keys.at(i);
            key->setObjectName(QStringLiteral("entry_%1").arg(row));
            key->setVisible(row < m_box->count());
            key->setText(m_box->itemText(row));
            key->setChecked(row == m_box->currentIndex());
        }
    }

    void choose(int row)
    {
        m_box->setCurrentIndex(row);
        close();
    }

    QComboBox *m_box;
    QVector<QPushButton *> m_keys;
    int m_first = 0; ///< row of the box that the first key stands for
};

} // namespace

VariableBox::VariableBox(QWidget *parent) : QComboBox(parent) { }

void VariableBox::showPopup()
{
    if ((m_board && m_board->isVisible()) || count() == 0)
        return;
    auto *board = new VariableBoard(this);
    m_board = board;
    board->adjustSize();
    QRect place(QPoint(), board->size());
    place.moveCenter(window()->mapToGlobal(window()->rect().center()));
    if (const QScreen *display = screen()) {
        const QRect area = display->availableGeometry();
        place.moveLeft(std::max(area.left(), std::min(place.left(), area.right() - place.width())));
        place.moveTop(std::max(area.top(), std::min(place.top(), area.bottom() - place.height())));
    }
    board->move(place.topLeft());
    board->show();
}

void VariableBox::hidePopup()
{
    if (m_board)
        m_board->close();
    QComboBox::hidePopup();
}
