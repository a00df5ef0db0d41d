// Six pages, each with a drawing, that say what the switches and repeat modes of the layers do.

#include "pallet/pallet_p.h"
#include "shell/buttonstyle.h"
#include "shell/technologyform.h"

#include <QPushButton>

namespace {

using Form = Ui_TechnologyWidget;
using Slot = void (TechnologyWidget::*)();
using Button = QPushButton *Form::*;

struct Explanation {
    Slot show;
    Button up;
    Button down;
    Button back;
};

/// In the order of the ring that the page buttons walk.
const Explanation kRing[] = {
    {&TechnologyWidget::overlapExplain1, &Form::overlapExplainPageUp1,
     &Form::overlapExplainPageDown1, &Form::overlapExplainReturnBtn1},
    {&TechnologyWidget::overlapExplain2, &Form::overlapExplainPageUp2,
     &Form::overlapExplainPageDown2, &Form::overlapExplainReturnBtn2},
    {&TechnologyWidget::overlapExplain3, &Form::overlapExplainPageUp3,
     &Form::overlapExplainPageDown3, &Form::overlapExplainReturnBtn3},
    {&TechnologyWidget::overlapExplain4, &Form::overlapExplainPageUp4,
     &Form::overlapExplainPageDown4, &Form::overlapExplainReturnBtn4},
    {&TechnologyWidget::overlapExplain5, &Form::overlapExplainPageUp5,
     &Form::overlapExplainPageDown5, &Form::overlapExplainReturnBtn5},
    {&TechnologyWidget::overlapExplain6, &Form::overlapExplainPageUp6,
     &Form::overlapExplainPageDown6, &Form::overlapExplainReturnBtn6},
};
constexpr std::size_t kPages = std::size(kRing);

} // namespace

void TechnologyWidget::Pallet::initLayerExplanations()
{
    for (std::size_t i = 0; i < kPages; ++i) {
        const Explanation &explanation = kRing[i];
        setReturnButtonSheet({ui->*explanation.up, ui->*explanation.down, ui->*explanation.back});
        connect(ui->*explanation.up, &QPushButton::clicked, &widget,
                kRing[(i + kPages - 1) % kPages].show);
        connect(ui->*explanation.down, &QPushButton::clicked, &widget,
                kRing[(i + 1) % kPages].show);
        connect(ui->*explanation.back, &QPushButton::clicked, &widget,
                &TechnologyWidget::palletOverlappingModelWidget);
    }
    connect(ui->overlappingExplainBtn, &QPushButton::clicked, &widget, kRing[0].show);
}

void TechnologyWidget::overlapExplain1()
{
    showPage(page::OverlapExplain1);
}

void TechnologyWidget::overlapExplain2()
{
    showPage(page::OverlapExplain2);
}

void TechnologyWidget::overlapExplain3()
{
    showPage(page::OverlapExplain3);
}

void TechnologyWidget::overlapExplain4()
{
    showPage(page::OverlapExplain4);
}

void TechnologyWidget::overlapExplain5()
{
    showPage(page::OverlapExplain5);
}

void TechnologyWidget::overlapExplain6()
{
    showPage(page::OverlapExplain6);
}
