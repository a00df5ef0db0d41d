#include "app/pallettour.h"

#include "app/operator.h"
#include "app/pendant.h"
#include "digitallineedit.h"
#include "pallet/layertable.h"
#include "promptwidget.h"
#include "robot.h"
#include "shell/technologywidget.h"
#include "switchbutton.h"
#include "veltrixwidgetfoundation.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <cmath>

namespace {

constexpr char kEasyMode[] = "已设定为简易码垛"; // what the page of modes says

constexpr int kCraftRow = 1;
constexpr int kLayers = 6;
constexpr int kServoOn = 3;
constexpr int kDeadmanHeld = 1;
constexpr int kJogFor = 700; ///< milliseconds; some 70 mm

/// A number field and what is entered in it.
struct Entry {
    const char *field;
    const char *number;
};
/// A combo box and the row that is chosen in it.
struct Choice {
    const char *box;
    int row;
};

const Entry kWorkpiece[] = {
    {"Workpiecelength", "300"},    {"Workpiecewidth", "200.5"},  {"Workpieceheight", "150"},
    {"WorkpieceintervalX", "0.5"}, {"WorkpieceintervalY", "10"},
};
const Entry kApproach[] = {
    {"approachWorkpiecelength", "25"},
    {"approachWorkpiecewidth", "0"},
    {"approachWorkpieceheight", "120.75"},
};
const Choice kGrippers[] = {
    {"TongsnumbercomboBox", 1}, {"Tongtoolnumber1", 3}, {"Tongtoolnumber2", 6}};
const Choice kTray[] = {{"taryCoordinateCombox", 2}};

const Choice kRanks[] = {
    {"planeTemplateComboBox", 0}, {"ranksWholeRotate", 1}, {"ranksWorkpieceRotate", 0}};
const Entry kRanksCounts[] = {{"ranksXDirectionNum", "4"}, {"ranksYDirectionNum", "3"}};
const Choice kCrisscross[] = {
    {"planeTemplateComboBox", 1}, {"crisscrossWholeRotate", 0}, {"crisscrossWorkpieceRotate", 3}};
const Entry kCrisscrossCounts[] = {{"crisscrossXDirectionNum", "3"},
                                   {"crisscrossYDirectionNum", "2"},
                                   {"xDirectionMoveDistance", "-12.5"}};
const Choice kHuiType[] = {
    {"planeTemplateComboBox", 2}, {"huiTypeWholeRotate", 2}, {"huiTypeWorkpieceRotate", 0}};

/// A place that is taught on the position page, and the way there from the one before.
struct Point {
    const char *labels; ///< what the names of its labels begin with
    const char *mark;
    const char *drive;
    const char *jogKey; ///< null: where the arm stands
};
const Point kPoints[] = {
    {"EntrancePoint", "positionEntrancePoint", "moveToEntrancePoint", nullptr},
    {"AuxiliaryPoint", "positionAuxiliaryPoint", "moveToAuxiliaryPoint", "jog3minus"},
    {"JobPoint", "positionJobPoint", "moveToJobPoint", "jog2minus"},
};
constexpr int kPointCount = static_cast<int>(std::size(kPoints));

QString name(const char *latin)
{
    return QString::fromLatin1(latin);
}

template <typename Choices> bool chooseAll(Operator &hand, const Choices &choices)
{
    for (const Choice &choice : choices) {
        if (!hand.chooseRow(name(choice.box), choice.row))
            return false;
    }
    return true;
}

template <typename Entries> bool enterAll(Operator &hand, const Entries &entries)
{
    for (const Entry &entry : entries) {
        if (!hand.enter(name(entry.field), name(entry.number)))
            return false;
    }
    return true;
}

template <typename Widget> const Widget *child(const Operator &hand, const QString &objectName)
{
    return hand.pendant().window()->findChild<Widget *>(objectName);
}

template <typename Choices> bool findChoices(Operator &hand, const Choices &choices)
{
    for (const Choice &choice : choices) {
        const auto *box = child<QComboBox>(hand, name(choice.box));
        if (!hand.waitFor(
                QStringLiteral("row %1 of %2").arg(choice.row).arg(QLatin1String(choice.box)),
                [box, row = choice.row] { return box && box->currentIndex() == row; }))
            return false;
    }
    return true;
}

template <typename Entries> bool findEntries(Operator &hand, const Entries &entries)
{
    for (const Entry &entry : entries) {
        if (!hand.shows(name(entry.field), name(entry.number)))
            return false;
    }
    return true;
}

/// Opens a page and waits until it has filled itself from the answer that `signal` brings: what it
/// shows then is the controller's, not what was left of the entry.
template <typename Signal> bool readPage(Operator &hand, const char *button, Signal signal)
{
    bool came = false;
    const QObject context;
    QObject::connect(Robot::getInstance(), signal, &context, [&came] { came = true; });
    return hand.touch(name(button))
        && hand.waitFor(name("the answer to %1").arg(QLatin1String(button)),
                        [&came] { return came; });
}

/// x, y and z of a point as the page shows them; no number where it shows none.
QVector<double> placeOf(const Operator &hand, const char *labels)
{
    QVector<double> values;
    for (const char axis : {'x', 'y', 'z'}) {
        const auto *label = child<QLabel>(hand, name(labels) + QLatin1Char(axis));
        bool isNumber = false;
        const double value = label ? label->text().toDouble(&isNumber) : 0.0;
        values.append(isNumber ? value : std::nan(""));
    }
    return values;
}

/// In millimetres; no number when one of the places is not known.
double distance(const QVector<double> &one, const QVector<double> &other)
{
    return std::hypot(one.at(0) - other.at(0), one.at(1) - other.at(1), one.at(2) - other.at(2));
}

} // namespace

PalletTour::PalletTour(Operator &hand) : m_operator(hand), m_taught(kPointCount) { }

bool PalletTour::walk()
{
    return m_operator.touchAll({name("BtnPalletTech"), name("BtnPalletType")})
        && m_operator.chooseRow(name("m_pPalletCraftNum"), kCraftRow) && setMode()
        && chooseGrippers() && teachTray() && teachPositions() && setWorkpiece() && setApproach()
        && setLayers() && readExplanations() && setGraphics()
        && m_operator.touchAll({name("palletNavigationReturn"), name("palletTypeReturn"),
                                name("BtnPalletType"), name("BtnPalletComplete")})
        && findGrippersAndTray() && findPositions() && findWorkpieceAndApproach() && findLayers()
        && findGraphics()
        && m_operator.touchAll({name("palletNavigationReturn"), name("palletTypeReturn"),
                                name("m_pBtnPalletTechReturn")});
}

/// Whatever the craft was, it becomes an easy one, and then, after the question, a complete one.
bool PalletTour::setMode()
{
    m_operator.picture(name("pallet-type"));
    if (!m_operator.touch(name("BtnPalletEasy")))
        return false;
    if (PromptWidget::getInstance()->isVisible() && !m_operator.touch(name("promptConfirm")))
        return false;
    // The question comes up once the page knows which mode the craft has.
    if (!m_operator.touch(name("PalletEasyNavigationReturn"))
        || !m_operator.shows(name("palletstate"), TechnologyWidget::tr(kEasyMode))
        || !m_operator.touch(name("BtnPalletComplete")) || !answer(name("pallet-mode-question")))
        return false;
    m_operator.picture(name("pallet-navigation"));
    return true;
}

bool PalletTour::chooseGrippers()
{
    return m_operator.touchAll({name("palletNavigationStart"), name("tongsModifyBtn")})
        && chooseAll(m_operator, kGrippers) && save("gripper", "tongsModifyBtn");
}

/// The arm shows three places of the tray. It goes in straight lines along its own axes.
bool PalletTour::teachTray()
{
    if (!m_operator.touchAll({name("tongsPageDown"), name("trayModifyBtn")})
        || !chooseAll(m_operator, kTray) || !enable()
        || !m_operator.touchAll({name("jogToggle"), name("jogCoordinate"), name("taryOriginBtn")})
        || !jog("jog1plus") || !m_operator.touch(name("taryXdirectionBtn")) || !jog("jog2plus")
        || !m_operator.touch(name("taryYdirectionBtn")))
        return false;
    m_operator.picture(name("pallet-tray-marked"));
    return m_operator.touch(name("taryCalculationBtn"))
        && m_operator.waitFor(name("the tray to be calculated"),
                              [] { return PromptWidget::getInstance()->isVisible(); })
        && answer(name("pallet-tray-calculated")) && save("tray", "trayModifyBtn");
}

bool PalletTour::teachPositions()
{
    if (!m_operator.touchAll({name("trayPageDown"), name("positionModifyBtn")}) || !enable())
        return false;
    for (int point = 0; point < kPointCount; ++point) {
        if (!mark(point))
            return false;
    }
    if (!save("position", "positionModifyBtn"))
        return false;
    for (const int point : {1, 2, 0}) {
        if (!driveTo(point))
            return false;
    }
    // and from the corner of the tray to where all began
    return jog("jog2minus") && jog("jog1minus") && m_operator.letGo(name("deadmanKey"))
        && m_operator.touchAll({name("jogCoordinate"), name("jogToggle")});
}

bool PalletTour::setWorkpiece()
{
    if (!m_operator.touchAll(
            {name("positionPageDown"), name("workpieceModifyBtn"), name("Workpiecelength")}))
        return false;
    m_operator.picture(name("pallet-workpiece-keypad"));
    return m_operator.touch(name("key_cancel")) && enterAll(m_operator, kWorkpiece)
        && save("workpiece", "workpieceModifyBtn");
}

bool PalletTour::setApproach()
{
    return m_operator.touchAll({name("workpiecePageDown"), name("approachModifyBtn")})
        && turn("approachOnOffBtn", true) && m_operator.chooseRow(name("approachWaysComboBox"), 1)
        && enterAll(m_operator, kApproach) && save("approach", "approachModifyBtn");
}

/// Two graphics take turns.
bool PalletTour::setLayers()
{
    if (!m_operator.touchAll({name("approachPageDown"), name("overlappingModifyBtn")})
        || !turn("verticalAlignmentBtn", false)
        || !m_operator.chooseRow(name("repeatModeComboBox"), 1)
        || !m_operator.enter(name("levelsnum"), QString::number(kLayers))
        || !m_operator.enter(name("altimetricCompensationEdit"), name("12.5"))
        || !turn("fixedPointHeightBtn", true) || !turn("levelsAutoAlignmentBtn", true))
        return false;
    const auto *table = child<LayerTable>(m_operator, name("overlapModeTab"));
    if (table->graphics().size() != kLayers)
        return m_operator.fail(name("the table has %1 layers").arg(table->graphics().size()));
    return m_operator.chooseRow(table->graphics().at(1), 1, name("the graphic of layer 2"))
        && m_operator.enter(table->heights().at(1), name("-1.5"), name("the height of layer 2"))
        && save("layers", "overlappingModifyBtn");
}

bool PalletTour::readExplanations()
{
    if (!m_operator.touch(name("overlappingExplainBtn")))
        return false;
    for (int page = 1; page <= 6; ++page) {
        m_operator.picture(name("pallet-explanation-%1").arg(page));
        if (!m_operator.touch(name("overlapExplainPageDown%1").arg(page)))
            return false;
    }
    return m_operator.touch(name("overlapExplainReturnBtn1"));
}

/// Three graphics, one of each template; the fourth kind is looked at and left.
bool PalletTour::setGraphics()
{
    if (!m_operator.touch(name("overlappingPageDown"))
        || !m_operator.chooseRow(name("planePicturesNumComboBox"), 0)
        || !m_operator.touch(name("planeModifyBtn")) || !chooseAll(m_operator, kRanks)
        || !enterAll(m_operator, kRanksCounts) || !save("ranks", "planeModifyBtn")
        || !m_operator.chooseRow(name("planePicturesNumComboBox"), 1)
        || !m_operator.touch(name("planeModifyBtn")) || !chooseAll(m_operator, kCrisscross)
        || !enterAll(m_operator, kCrisscrossCounts) || !save("crisscross", "planeModifyBtn")
        || !m_operator.chooseRow(name("planePicturesNumComboBox"), 2)
        || !m_operator.touch(name("planeModifyBtn")) || !chooseAll(m_operator, kHuiType)
        || !save("hui-type", "planeModifyBtn")
        || !m_operator.chooseRow(name("planePicturesNumComboBox"), 3)
        || !m_operator.touch(name("planeModifyBtn"))
        || !m_operator.chooseRow(name("planeTemplateComboBox"), 3))
        return false;
    m_operator.picture(name("pallet-custom-edited"));
    return m_operator.touch(name("planeModifyCancelBtn"))
        && m_operator.chooseRow(name("planePicturesNumComboBox"), 0)
        && m_operator.touch(name("returnNavigationBtn7"));
}

bool PalletTour::findGrippersAndTray()
{
    if (!readPage(m_operator, "setTongsBtn", &Robot::robot_pallet_ToolParameter)
        || !findChoices(m_operator, kGrippers))
        return false;
    m_operator.picture(name("pallet-gripper"));
    if (!m_operator.touch(name("returnNavigationBtn1"))
        || !readPage(m_operator, "setTrayBtn", &Robot::robot_pallet_TrayParameter)
        || !findChoices(m_operator, kTray))
        return false;
    m_operator.picture(name("pallet-tray"));
    return m_operator.touch(name("returnNavigationBtn2"));
}

bool PalletTour::findPositions()
{
    if (!readPage(m_operator, "setPositionBtn", &Robot::robot_pallet_PositionParameter))
        return false;
    for (int point = 0; point < kPointCount; ++point) {
        const char *labels = kPoints[point].labels;
        if (!m_operator.waitFor(name("the %1 that was taught").arg(QLatin1String(labels)), [&] {
                return distance(placeOf(m_operator, labels), m_taught.at(point)) < 0.01;
            }))
            return false;
    }
    if (!m_operator.waitForStandstill())
        return false;
    m_operator.picture(name("pallet-position"));
    return m_operator.touch(name("returnNavigationBtn3"));
}

bool PalletTour::findWorkpieceAndApproach()
{
    if (!readPage(m_operator, "workpieceParaBtn", &Robot::robot_pallet_WorkpieceParameter)
        || !findEntries(m_operator, kWorkpiece))
        return false;
    m_operator.picture(name("pallet-workpiece"));
    if (!m_operator.touch(name("returnNavigationBtn4"))
        || !readPage(m_operator, "approachParaBtn", &Robot::robot_pallet_ApproachParameter)
        || !findEntries(m_operator, kApproach))
        return false;
    m_operator.picture(name("pallet-approach"));
    return m_operator.touch(name("returnNavigationBtn5"));
}

bool PalletTour::findLayers()
{
    if (!readPage(m_operator, "overlappingModelBtn", &Robot::robot_pallet_OverlappingModel)
        || !m_operator.shows(name("levelsnum"), QString::number(kLayers)))
        return false;
    const auto *table = child<LayerTable>(m_operator, name("overlapModeTab"));
    for (int layer = 0; layer < kLayers; ++layer) {
        const int graphic = layer % 2;
        const QString height = graphic == 0 ? name("0") : name("-1.5");
        if (table->graphics().at(layer)->currentIndex() != graphic
            || table->heights().at(layer)->text() != height)
            return m_operator.fail(name("layer %1 is another").arg(layer + 1));
    }
    m_operator.picture(name("pallet-layers"));
    return m_operator.touch(name("returnNavigationBtn6"));
}

bool PalletTour::findGraphics()
{
    if (!readPage(m_operator, "planeModelBtn", &Robot::robot_pallet_PlaneModel)
        || !findChoices(m_operator, kRanks) || !findEntries(m_operator, kRanksCounts))
        return false;
    m_operator.picture(name("pallet-ranks"));
    if (!m_operator.chooseRow(name("planePicturesNumComboBox"), 1)
        || !findChoices(m_operator, kCrisscross) || !findEntries(m_operator, kCrisscrossCounts))
        return false;
    m_operator.picture(name("pallet-crisscross"));
    if (!m_operator.chooseRow(name("planePicturesNumComboBox"), 2)
        || !findChoices(m_operator, kHuiType))
        return false;
    m_operator.picture(name("pallet-hui-type"));
    return m_operator.chooseRow(name("planePicturesNumComboBox"), 0)
        && m_operator.touch(name("returnNavigationBtn7"));
}

/// Switches the drives on and holds the enabling key; an answered question has let go of it.
bool PalletTour::enable()
{
    const Robot *robot = Robot::getInstance();
    if (robot->get_servo_state() != kServoOn && !m_operator.touch(name("servoKey")))
        return false;
    const auto *key = child<QPushButton>(m_operator, name("deadmanKey"));
    if (!key->isDown() && !m_operator.press(name("deadmanKey")))
        return false;
    return m_operator.waitFor(name("the robot to be enabled"), [robot] {
        return robot->get_servo_state() == kServoOn && robot->get_deadman_state() == kDeadmanHeld;
    });
}

/// Holds a jog key for a while.
bool PalletTour::jog(const char *key)
{
    if (!m_operator.press(name(key)))
        return false;
    QElapsedTimer held;
    held.start();
    return m_operator.waitFor(name("the arm to move"), [&held] { return held.hasExpired(kJogFor); })
        && m_operator.letGo(name(key));
}

bool PalletTour::mark(int point)
{
    const Point &row = kPoints[point];
    if ((row.jogKey && !jog(row.jogKey)) || !m_operator.waitForStandstill()
        || !m_operator.touch(name(row.mark)))
        return false;
    m_taught[point] = placeOf(m_operator, row.labels);
    if (point > 0 && !(distance(m_taught.at(point), m_taught.at(point - 1)) > 10.0))
        return m_operator.fail(name("the arm did not move"));
    return true;
}

bool PalletTour::driveTo(int point)
{
    return m_operator.touch(name(kPoints[point].drive))
        && m_operator.waitFor(name("the arm to arrive"), [this, point] {
               return distance(placeOf(m_operator, "CurrentPoint"), m_taught.at(point)) < 0.1;
           });
}

bool PalletTour::answer(const QString &pictureName)
{
    if (!PromptWidget::getInstance()->isVisible())
        return m_operator.fail(name("there is no question"));
    m_operator.picture(pictureName);
    return m_operator.touch(name("promptConfirm"));
}

bool PalletTour::turn(const char *switchName, bool on)
{
    const auto *button = child<SwitchButton>(m_operator, name(switchName));
    return button->isCheck() == on || m_operator.touch(name(switchName));
}

bool PalletTour::save(const char *page, const char *modifyButton)
{
    m_operator.picture(name("pallet-%1-edited").arg(QLatin1String(page)));
    return m_operator.touch(name(modifyButton));
}
