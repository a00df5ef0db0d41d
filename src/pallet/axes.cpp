// What the pages show of a position by the robot's family: the names on the point panel, and the
// orientation columns of the pallet pages.

#include "robot.h"
#include "shell/coordinates.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QHash>
#include <array>

namespace {

using axes::Family;

/// The columns of orientation. U is the column a of a robot with four axes.
enum Column { A, B, C, D, Columns };

/// Labels that stand below one another: "<stem><letter of the column><tail>". A page that shows
/// points adds its stems here.
struct Stem {
    const char *name;
    const char *tail;
};

/// Points and their headings; the letters are a, b, c and, for the seventh axis, d.
constexpr Stem kPoints[] = {
    {"taryOrigin", ""},    {"taryXdirection", ""},  {"taryYdirection", ""},
    {"EntrancePoint", ""}, {"AuxiliaryPoint", ""},  {"JobPoint", ""},
    {"CurrentPoint", ""},  {"EntrancePoint", "_2"}, {"AuxiliaryPoint", "_2"},
    {"JobPoint", "_2"},    {"columnEndPoint", ""},  {"lineEndPoint", ""},
    {"HighEndPoint", ""},  {"CurrentPoint", "_2"},  {"GetPoint", ""},
    {"UpperPoint", ""},    {"SafePoint", ""},       {"wizardLive", ""},
    {"wizardHead", ""}, // joints, whose names are no matter of the family
};
constexpr Stem kPointHeads[] = {{"taryHead", ""}, {"positionHead", ""}, {"positionHead", "_2"}};

/// Tool frames with their headings; the letters are A, B and C.
constexpr Stem kTools[] = {
    {"toolHead", ""},   {"tool1", ""},   {"tool2", ""},   {"tool3", ""},   {"tool4", ""},
    {"toolHead", "_2"}, {"tool1", "_2"}, {"tool2", "_2"}, {"tool3", "_2"}, {"tool4", "_2"},
};

struct Place {
    Column column;
    bool isTool;
    bool isHead;
};

QHash<QString, Place> placesByName()
{
    QHash<QString, Place> places;
    const auto add = [&places](const Stem &stem, const char *letters, bool isTool, bool isHead) {
        for (int column = A; letters[column]; ++column)
            places.insert(QLatin1String(stem.name) + QLatin1Char(letters[column])
                              + QLatin1String(stem.tail),
                          {static_cast<Column>(column), isTool, isHead});
    };
    for (const Stem &stem : kPoints)
        add(stem, "abcd", false, false);
    for (const Stem &stem : kPointHeads)
        add(stem, "abcd", false, true);
    for (const Stem &stem : kTools)
        add(stem, "ABC", true, false);
    return places;
}

/// Which columns a family shows, and what the first of them is called. Families that are not here
/// leave the pages as they are.
struct Shown {
    Family family;
    std::array<bool, Columns> points;
    bool tools;
    const char *firstHead; ///< null: the column is not shown
};

constexpr Shown kShown[] = {
    {Family::SevenAxis, {true, true, true, true}, true, "A"},
    {Family::SixAxis, {true, true, true, false}, true, "A"},
    {Family::FourAxis, {true, false, false, false}, false, "U"},
    {Family::ThreeAxis, {false, false, false, false}, false, nullptr},
};

const Shown *shownOf(Family family)
{
    for (const Shown &row : kShown) {
        if (row.family == family)
            return &row;
    }
    return nullptr;
}

constexpr const char *kCoordinateNames[] = {
    QT_TRANSLATE_NOOP("TechnologyWidget", "关节"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "直角"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "工具"),
    QT_TRANSLATE_NOOP("TechnologyWidget", "用户"),
};

} // namespace

void TechnologyWidget::setLabelcoord(unsigned char coord)
{
    QLabel *const names[] = {ui->xmllabel_Axis1, ui->xmllabel_Axis2, ui->xmllabel_Axis3,
                             ui->xmllabel_Axis4, ui->xmllabel_Axis5, ui->xmllabel_Axis6,
                             ui->xmllabel_Axis7};
    QLabel *const stored[] = {ui->label_pos1, ui->label_pos2, ui->label_pos3, ui->label_pos4,
                              ui->label_pos5, ui->label_pos6, ui->label_pos7};
    QLabel *const live[] = {ui->label_CPos1, ui->label_CPos2, ui->label_CPos3, ui->label_CPos4,
                            ui->label_CPos5, ui->label_CPos6, ui->label_CPos7};
    const axes::Model model = axes::modelOf(robot->kinematicType);
    const bool isKnown = model.family != Family::None;
    for (int i = 0; i < axes::kMost; ++i) {
        for (QLabel *label : {names[i], stored[i], live[i]})
            label->setVisible(!isKnown || i < model.axes);
    }

    const QStringList texts = axes::names(model.family, coord);
    if (texts.isEmpty())
        return;
    ui->m_pLabelcoord->setText(tr(kCoordinateNames[coord]));
    for (int i = 0; i < texts.size(); ++i)
        names[i]->setText(texts.at(i));
}

void TechnologyWidget::initPalletRobotType()
{
    static const QHash<QString, Place> places = placesByName();
    const Shown *shown = shownOf(axes::modelOf(robot->kinematicType).family);
    if (!shown)
        return;
    const auto labels = findChildren<QLabel *>();
    for (QLabel *label : labels) {
        const auto place = places.constFind(label->objectName());
        if (place == places.constEnd())
            continue;
        const auto column = static_cast<std::size_t>(place->column);
        label->setVisible(place->isTool ? shown->tools : shown->points[column]);
        if (place->isHead && place->column == A && shown->firstHead)
            label->setText(QString::fromLatin1(shown->firstHead));
    }
}
