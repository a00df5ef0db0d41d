// The position panel of the point page: the stored and the live values of a position under the
// names of the robot's axes.

#include "project/project_p.h"
#include "robot.h"
#include "shell/livearm.h"
#include "shell/technologyform.h"

#include <array>

namespace {

constexpr const char *kCoordinateNames[] = {
    QT_TRANSLATE_NOOP("TechnologyWidget", "关节"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "直角"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "工具"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "用户"),
};

using Labels = std::array<QLabel *, axes::kMost>;

Labels liveLabels(const Ui_TechnologyWidget *ui)
{
    return {ui->label_CPos1, ui->label_CPos2, ui->label_CPos3, ui->label_CPos4,
            ui->label_CPos5, ui->label_CPos6, ui->label_CPos7};
}

} // namespace

void TechnologyWidget::Project::initPointPanel()
{
    widget.liveArm->nameFirstAxis(page::ProjectPoints,
                                  [this] { return ui->xmllabel_Axis1->text(); });
    widget.liveArm->addHook([this](int kind, const PositionTexts &position) {
        if (widget.currentIndex() == page::ProjectPoints)
            showLivePosition(kind, position);
    });
}

void TechnologyWidget::Project::retranslate()
{
    showCoordinate(namedCoordinate);
}

void TechnologyWidget::Project::showCoordinate(unsigned char coordinate)
{
    namedCoordinate = coordinate;
    ui->m_pLabelcoord->setText(TechnologyWidget::tr(kCoordinateNames[coordinate]));
}

void TechnologyWidget::Project::showLivePosition(int kind, const PositionTexts &position)
{
    if (kind < axes::Joint || kind > axes::User)
        return;
    bwbLivePosition = position;
    widget.setLabelcoord(static_cast<unsigned char>(kind));
    const Labels labels = liveLabels(ui);
    for (std::size_t i = 0; i < position.size(); ++i)
        labels[i]->setText(QString::number(axes::numberOf(position[i]), 'f', 3));
}

void TechnologyWidget::setLabelcoord(unsigned char coord)
{
    const Labels names = {ui->xmllabel_Axis1, ui->xmllabel_Axis2, ui->xmllabel_Axis3,
                          ui->xmllabel_Axis4, ui->xmllabel_Axis5, ui->xmllabel_Axis6,
                          ui->xmllabel_Axis7};
    const Labels stored = {ui->label_pos1, ui->label_pos2, ui->label_pos3, ui->label_pos4,
                           ui->label_pos5, ui->label_pos6, ui->label_pos7};
    const Labels live = liveLabels(ui);
    const axes::Model model = axes::modelOf(robot->kinematicType);
    const bool isKnown = model.family != axes::Family::None;
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (QLabel *label : {names[i], stored[i], live[i]})
            label->setVisible(!isKnown || static_cast<int>(i) < model.axes);
    }

    const QStringList texts = axes::names(model.family, coord);
    if (texts.isEmpty())
        return;
    projectPages->showCoordinate(coord);
    for (int i = 0; i < texts.size(); ++i)
        names[static_cast<std::size_t>(i)]->setText(texts.at(i));
}
