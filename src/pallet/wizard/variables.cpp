// The wizard's pages of variables and legs: which variables of the controller a job counts in and
// ends by, and the two switches of the way to the pallet.

#include "pallet/pallet_p.h"
#include "pallet/wizard/variablebox.h"
#include "pallet/wizard/wizardpages.h"
#include "shell/technologyform.h"
#include "snackbarmessage.h"
#include "switchbutton.h"

#include <QComboBox>

namespace {

/// A type of variable of the controller: its word in a type box, and the names of its variables,
/// "<prefix>001" to "<prefix><count>".
struct VariableType {
    const char *word;
    const char *prefix;
    int count;
};

constexpr VariableType kInteger = {"INT", "I", 100};
constexpr VariableType kGlobalInteger = {"GINT", "GI", 990};
constexpr VariableType kBoolean = {"BOOL", "B", 100};
constexpr VariableType kGlobalBoolean = {"GBOOL", "GB", 990};

void append(QComboBox *box, const VariableType &type)
{
    QStringList names;
    for (int number = 1; number <= type.count; ++number)
        names +=
            QLatin1String(type.prefix) + QStringLiteral("%1").arg(number, 3, 10, QLatin1Char('0'));
    box->addItems(names);
}

/// Another word than those of the two types leaves the box empty.
void refill(QComboBox *box, const QString &word, const VariableType &local,
            const VariableType &global)
{
    box->clear();
    for (const VariableType &type : {local, global}) {
        if (word == QLatin1String(type.word))
            append(box, type);
    }
    box->setEnabled(box->count() > 0);
}

} // namespace

void TechnologyWidget::Pallet::initWizardVariables()
{
    using Slot = void (TechnologyWidget::*)(const QString &);
    const struct {
        QComboBox *types;
        Slot slot;
    } lists[] = {
        {ui->totalVariabletype, &TechnologyWidget::slotPALLETtotalGetVariant},
        {ui->layerVariabletype, &TechnologyWidget::slotPALLETlayerGetVariant},
        {ui->stackVariabletype, &TechnologyWidget::slotPALLETstackGetVariant},
        {ui->paloffVariabletype, &TechnologyWidget::slotPALLETpaloffVariant},
    };
    // The row, not the text: another language changes the text alone.
    for (const auto &list : lists)
        connect(list.types, QOverload<int>::of(&QComboBox::currentIndexChanged), &widget,
                [pages = &widget, list](int row) {
                    const QString type = list.types->itemText(row);
                    (pages->*list.slot)(type);
                });
    connect(ui->xyPathOptimization, &SwitchButton::clicked, &widget,
            &TechnologyWidget::changexyPathOptBtnState);
    connect(ui->zPathOptimization, &SwitchButton::clicked, &widget,
            &TechnologyWidget::changezPathOptBtnState);
}

void TechnologyWidget::slotPALLETtotalGetVariant(const QString &type)
{
    refill(ui->totalVariable, type, kInteger, kGlobalInteger);
}

void TechnologyWidget::slotPALLETlayerGetVariant(const QString &type)
{
    refill(ui->layerVariable, type, kInteger, kGlobalInteger);
}

void TechnologyWidget::slotPALLETstackGetVariant(const QString &type)
{
    refill(ui->stackVariable, type, kInteger, kGlobalInteger);
}

void TechnologyWidget::slotPALLETpaloffVariant(const QString &type)
{
    refill(ui->paloffVariable, type, kBoolean, kGlobalBoolean);
}

void wizard::appendEndVariables(const Ui_TechnologyWidget *ui)
{
    append(ui->paloffVariable, kBoolean);
    ui->paloffVariable->setEnabled(true);
}

bool wizard::acceptVariables(const Ui_TechnologyWidget *ui)
{
    const struct {
        QComboBox *type;
        int row;
        QComboBox *variable;
    } checks[] = {
        {ui->totalVariabletype, 2, ui->totalVariable},
        {ui->layerVariabletype, 2, ui->layerVariable},
        {ui->stackVariabletype, 2, ui->stackVariable},
        {ui->paloffVariabletype, 1, ui->paloffVariable},
    };
    for (const auto &check : checks) {
        if (check.type->currentIndex() == check.row && check.variable->currentText().isEmpty()) {
            SnackbarMessage::showMessage(TechnologyWidget::tr("变量名不能为空，请重新选择"), 5000,
                                         1, true);
            return false;
        }
    }
    return true;
}

void TechnologyWidget::changexyPathOptBtnState()
{
    ui->xyPathOptimization->setCheck(!ui->xyPathOptimization->isCheck());
}

void TechnologyWidget::changezPathOptBtnState()
{
    ui->zPathOptimization->setCheck(!ui->zPathOptimization->isCheck());
}
