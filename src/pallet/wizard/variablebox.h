#pragma once

#include <QComboBox>
#include <QPointer>

/// A combo box for hundreds of short entries, such as the variables of a controller. A touch opens
/// a board with a hundred of them at once and a key for each further hundred, so that any entry is
/// two touches away. The board is named "variableBoard", its entries "entry_<row of the box>", the
/// list of the hundreds "variableHundreds", the key that closes it "variableCancel".
///
/// The property "fieldName" gives the board its title.
class VariableBox : public QComboBox {
    Q_OBJECT
public:
    explicit VariableBox(QWidget *parent = nullptr);

    void showPopup() override;
    void hidePopup() override;

private:
    QPointer<QWidget> m_board;
};
