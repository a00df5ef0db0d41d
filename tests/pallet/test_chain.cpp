// A craft is set up as an operator does it, from the menu through all seven pages of the complete
// chain, by touches alone, with the simulated controller over the real link. Its arms move when
// the test says so, so that no clock decides where they are.

#include "../simulator/link.h"
#include "operator.h"

#include "digitallineedit.h"
#include "keycolumn.h"
#include "link/messages.h"
#include "pallet/layertable.h"
#include "pendantstyle.h"
#include "promptwidget.h"
#include "shell/technologywidget.h"
#include "simulator/angles.h"
#include "switchbutton.h"
#include "useraccounts.h"
#include "veltrixwidgetfoundation.h"

#include <QLabel>
#include <QMap>
#include <algorithm>
#include <cmath>

using support::child;

namespace {

constexpr int kPatience = 30000; // milliseconds; reached only when something is wrong
constexpr int kUser = 3; // the user coordinate that the tray gets

using Texts = QMap<QString, QString>;

/// A number field of a page and what the operator enters there.
struct Entry {
    const char *field;
    const char *number;
};

constexpr Entry kWorkpiece[] = {{"Workpiecelength", "300"},
                                {"Workpiecewidth", "200.5"},
                                {"Workpieceheight", "150"},
                                {"WorkpieceintervalX", "10"},
                                {"WorkpieceintervalY", "0.5"}};
constexpr Entry kApproach[] = {{"approachWorkpiecelength", "25"},
                               {"approachWorkpiecewidth", "0"},
                               {"approachWorkpieceheight", "120.75"}};

/// The pages of the chain by the buttons that lead from each to the next.
struct ChainPage {
    const char *way;
    const char *name;
};
constexpr ChainPage kChain[] = {
    {"palletNavigationStart", "gripper"}, {"tongsPageDown", "tray"},
    {"trayPageDown", "position"},         {"positionPageDown", "workpiece"},
    {"workpiecePageDown", "approach"},    {"approachPageDown", "layers"},
    {"overlappingPageDown", "graphic 1"},
};

QString name(const char *latin)
{
    return QString::fromLatin1(latin);
}

} // namespace

class TestChain : public QObject {
    Q_OBJECT
private:
    Robot *robot = Robot::getInstance();
    VeltrixWidgetFoundation *window = nullptr;
    std::unique_ptr<support::Operator> hand;
    std::unique_ptr<Desk> desk;
    TechnologyWidget *pages = nullptr;

    const Arm &arm() const { return desk->controller->cell().arm(1); }
    QString text(const QString &label) const { return child<QLabel>(pages, label)->text(); }

    /// The pages as a pendant has them that was just switched on.
    void makePages()
    {
        delete pages;
        pages = TechnologyWidget::getInstance();
        connect(window, &VeltrixWidgetFoundation::aboutToChangeRobot, pages,
                [this] { pages->return_mainPage(); });
        connect(pages, &TechnologyWidget::tnw_WidgetTitle, window,
                &VeltrixWidgetFoundation::showWidgetTitle);
        window->addContent(pages);
        pages->show();
    }

    /// All answers that are under way have come, and those to what they made the pages ask.
    bool settle() const
    {
        for (int round = 0; round < 3; ++round) {
            QSignalSpy last(robot, &Robot::robot_Polish_Para);
            robot->sendCommandData(message::GetPolish, "{\"robot\":1,\"craftID\":1}\n");
            if (last.isEmpty() && !last.wait(kPatience))
                return false;
        }
        return true;
    }
    bool setTypes(int type)
    {
        for (int number = 1; number <= 2; ++number)
            desk->controller->setKinematicType(number, type);
        return QTest::qWaitFor([&] { return robot->kinematicType == type; }, kPatience);
    }

    // ---- the arm --------------------------------------------------------------------------------

    bool enable()
    {
        if (robot->get_servo_state() != 3 && !hand->touch(name("servoKey")))
            return false;
        if (!child<DeadmanKey>(window, "deadmanKey")->isHeld() && !hand->press(name("deadmanKey")))
            return false;
        return QTest::qWaitFor(
            [&] { return robot->get_servo_state() == 3 && robot->get_deadman_state() == 1; },
            kPatience);
    }
    bool showJogKeys(bool shown) const
    {
        return hand->sees(name("jogCoordinate")) == shown || hand->touch(name("jogToggle"));
    }
    bool isMoving() const { return desk->controller->cell().isMoving(); }

    /// Holds a jog key for that time, in seconds of the arm, at most 0.5.
    bool jog(const char *key, double seconds) const
    {
        if (!hand->press(name(key)) || !QTest::qWaitFor([&] { return isMoving(); }, kPatience))
            return false;
        desk->controller->stepArms(seconds);
        hand->lift(name(key));
        return QTest::qWaitFor([&] { return !isMoving(); }, kPatience);
    }

    /// The values of a point as the page shows them, as many as the robot's position has, with
    /// angles in degrees.
    QVector<double> shown(const QString &point) const
    {
        const bool isFourAxis = arm().model().axes() == 4;
        QVector<double> values;
        for (const char column : isFourAxis ? std::string("xyza") : std::string("xyzabcd")) {
            const auto *label = child<QLabel>(pages, point + QLatin1Char(column));
            bool isNumber = false;
            const double value = label->text().toDouble(&isNumber);
            if (label->isVisible())
                values.append(isNumber ? value : std::nan(""));
        }
        return values;
    }
    /// Where the arm really is, in the same manner.
    QVector<double> reached() const
    {
        const ArmModel &model = arm().model();
        const Pose pose = arm().pose();
        QVector<double> values;
        for (int i = 0; i < model.poseValues(); ++i) {
            const std::size_t index = model.poseIndex(i);
            values.append(index < 3 ? pose[index] : angles::toDegrees(pose[index]));
        }
        return values;
    }
    static bool areClose(const QVector<double> &one, const QVector<double> &other, double within,
                         int count = 7)
    {
        if (one.size() != other.size() || one.isEmpty())
            return false;
        for (int i = 0; i < std::min(count, static_cast<int>(one.size())); ++i) {
            // an angle of half a turn may have either sign
            const double apart = i < 3 ? one[i] - other[i] : std::remainder(one[i] - other[i], 360);
            if (!(std::abs(apart) <= within))
                return false;
        }
        return true;
    }
    bool liveIs(const QVector<double> &place, int count = 7) const
    {
        return QTest::qWaitFor(
            [&] { return areClose(shown(name("CurrentPoint")), place, 0.01, count); }, kPatience);
    }

    /// Drives to a point of the page; false unless the arm starts, is there in the end, and the
    /// page says so.
    bool drive(const char *button, const QString &point, int count = 7)
    {
        const QVector<double> target = shown(point);
        if (!enable() || !hand->touch(name(button))
            || !QTest::qWaitFor([&] { return isMoving(); }, kPatience))
            return false;
        for (int i = 0; i < 2000 && isMoving(); ++i)
            desk->controller->stepArms(0.05);
        return areClose(reached(), target, 0.01, count) && liveIs(target, count);
    }

    // ---- the pages ------------------------------------------------------------------------------

    /// What stands on the page that is open, but for where the robot is. Tool frames are the
    /// robot's own and no part of a craft.
    void read(const QString &page, bool withTools, Texts &texts) const
    {
        const QWidget *open = pages->currentWidget();
        const auto add = [&](const QWidget *widget, const QString &text) {
            const QString object = widget->objectName();
            const bool isTool = object.size() == 6 && object.startsWith(name("tool"));
            if (widget->isVisible() && !object.isEmpty() && !object.startsWith(name("CurrentPoint"))
                && (withTools || !isTool))
                texts.insert(page + name(": ") + object, text);
        };
        for (const auto *label : open->findChildren<QLabel *>())
            add(label, label->text());
        for (const auto *edit : open->findChildren<QLineEdit *>())
            add(edit, edit->text());
        for (const auto *box : open->findChildren<QComboBox *>())
            add(box, box->currentText());
        for (const auto *button : open->findChildren<SwitchButton *>())
            add(button, name(button->isCheck() ? "on" : "off"));
        if (page == name("layers")) {
            const auto *table = child<LayerTable>(pages, "overlapModeTab");
            for (int i = 0; i < table->graphics().size(); ++i)
                texts.insert(name("layers: %1").arg(i + 1),
                             table->graphics()[i]->currentText() + QLatin1Char(' ')
                                 + table->heights()[i]->text());
        }
    }

    /// Walks from the type page through the chain and back to it, and reads all that is there.
    bool readCraft(bool withTools, Texts &texts)
    {
        if (!hand->touch(name("BtnPalletComplete")))
            return false;
        for (const ChainPage &page : kChain) {
            if (!hand->touch(name(page.way)) || !settle())
                return false;
            read(name(page.name), withTools, texts);
        }
        for (int graphic = 2; graphic <= 9; ++graphic) {
            if (!hand->choose(name("planePicturesNumComboBox"), graphic - 1) || !settle())
                return false;
            read(name("graphic %1").arg(graphic), withTools, texts);
        }
        return hand->choose(name("planePicturesNumComboBox"), 0) && settle()
            && hand->touchAll({name("returnNavigationBtn7"), name("palletNavigationReturn")})
            && settle();
    }
    /// From the menu to craft 2.
    bool openCraft()
    {
        return hand->touchAll({name("BtnPalletTech"), name("BtnPalletType")}) && settle()
            && hand->choose(name("m_pPalletCraftNum"), 1) && settle();
    }
    bool leaveToMenu()
    {
        return hand->touchAll({name("palletTypeReturn"), name("m_pBtnPalletTechReturn")})
            && pages->currentIndex() == 0;
    }
    template <typename Entries> bool enterAll(const Entries &entries)
    {
        for (const Entry &entry : entries) {
            if (!hand->enter(name(entry.field), name(entry.number)))
                return false;
        }
        return true;
    }

    /// A craft that was never set becomes an easy one, and then, after the question, a complete
    /// one.
    void setMode()
    {
        QCOMPARE(text(name("palletstate")), QStringLiteral("未设定"));
        QVERIFY(hand->touchAll({name("BtnPalletEasy"), name("PalletEasyNavigationReturn")}));
        QVERIFY(settle());
        QCOMPARE(text(name("palletstate")), QStringLiteral("已设定为简易码垛"));
        QVERIFY(hand->touch(name("BtnPalletComplete")));
        QVERIFY(
            child<QLabel>(window, "promptQuestion")->text().contains(QStringLiteral("工艺号2")));
        for (const char *below : {"BtnPalletComplete", "palletTypeReturn", "m_pPalletCraftNum"})
            QVERIFY(!hand->find(name(below))->isEnabled());
        QVERIFY(hand->touch(name("promptConfirm")));
        QCOMPARE(text(name("technologyNumber_2")), QStringLiteral("工艺号:2"));
        QVERIFY(hand->touch(name("palletNavigationReturn")));
        QVERIFY(settle());
        QCOMPARE(text(name("palletstate")), QStringLiteral("已设定为完整码垛"));
    }

    void setGrippers()
    {
        QVERIFY(hand->touch(name("palletNavigationStart")));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("tongsModifyBtn")));
        QVERIFY(hand->choose(name("TongsnumbercomboBox"), 1));
        QVERIFY(hand->sees(name("Tong2")));
        QVERIFY(!hand->sees(name("Tong3")));
        QVERIFY(hand->choose(name("Tongtoolnumber1"), 3));
        QVERIFY(hand->choose(name("Tongtoolnumber2"), 6));
        QVERIFY(settle());
        // the frames that the simulated controller has for tools 4 and 7
        QCOMPARE(text(name("tool1x")).toDouble(), -120.0);
        QCOMPARE(text(name("tool1y")).toDouble(), 0.0);
        QCOMPARE(text(name("tool1z")).toDouble(), 150.0);
        QCOMPARE(text(name("tool2y")).toDouble(), 120.0);
        QCOMPARE(text(name("tool2z")).toDouble(), 230.0);
        QVERIFY(hand->touch(name("tongsModifyBtn")));
    }

    /// Three places, a calculation that fails on the way, and one that does not.
    void teachTray()
    {
        QVERIFY(hand->touch(name("tongsPageDown")));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("trayModifyBtn")));
        QVERIFY(hand->choose(name("taryCoordinateCombox"), kUser - 1));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("taryOriginBtn")));
        QVERIFY(settle());
        const Pose origin = arm().pose();
        // without the two directions there is nothing to calculate from
        QVERIFY(hand->touch(name("taryXdirectionBtn")));
        QVERIFY(hand->touch(name("taryYdirectionBtn")));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("taryCalculationBtn")));
        QTRY_VERIFY_WITH_TIMEOUT(hand->sees(name("promptConfirm")), kPatience);
        QVERIFY(child<QLabel>(window, "promptQuestion")->text().contains(QStringLiteral("失败")));
        QVERIFY(hand->touch(name("promptConfirm")));

        QVERIFY(showJogKeys(true));
        QVERIFY(hand->touch(name("jogCoordinate")));
        QVERIFY(enable());
        QVERIFY(jog("jog1plus", 0.5));
        QVERIFY(jog("jog1plus", 0.4));
        QVERIFY(hand->touch(name("taryXdirectionBtn")));
        QVERIFY(settle());
        const Pose alongX = arm().pose();
        QVERIFY(alongX[0] - origin[0] > 50);
        QVERIFY(std::abs(text(name("taryXdirectionx")).toDouble() - alongX[0]) < 1);
        QVERIFY(jog("jog1minus", 0.3));
        QVERIFY(jog("jog2plus", 0.5));
        QVERIFY(hand->touch(name("taryYdirectionBtn")));
        QVERIFY(settle());
        QVERIFY(std::abs(text(name("taryYdirectiony")).toDouble() - arm().pose()[1]) < 1);
        QVERIFY(hand->touch(name("taryCalculationBtn")));
        QTRY_VERIFY_WITH_TIMEOUT(hand->sees(name("promptConfirm")), kPatience);
        QVERIFY(child<QLabel>(window, "promptQuestion")->text().contains(QStringLiteral("成功")));
        QVERIFY(hand->touch(name("promptConfirm")));
        QVERIFY(hand->touch(name("trayModifyBtn")));
        QVERIFY(settle());
        checkTrayFrame(origin);
    }

    /// Seen from the tray, the arm stands a jog along X and one along Y away from the origin; the
    /// page shows five characters of a value, and the frame is made of what it shows.
    void checkTrayFrame(const Pose &origin)
    {
        QSignalSpy told(robot, &Robot::receive_moreRobot_CurPosition);
        robot->sendCommandData(message::GetCurrentPosition, "{\"robot\":1,\"coord\":3}\n");
        QTRY_VERIFY_WITH_TIMEOUT(!told.isEmpty(), kPatience);
        const QList<QByteArray> seen = told.first().at(0).toByteArray().split(' ');
        QCOMPARE(int(seen.size()), 9);
        const Pose place = arm().pose();
        for (int i = 0; i < 3; ++i) {
            const auto index = static_cast<std::size_t>(i);
            QVERIFY(std::abs(seen.at(i + 2).toDouble() - (place[index] - origin[index])) < 3);
        }
    }

    void teachPositions()
    {
        QVERIFY(hand->touch(name("trayPageDown")));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("positionModifyBtn")));
        QVERIFY(liveIs(reached()));
        QVERIFY(hand->touch(name("positionEntrancePoint")));
        QVERIFY(areClose(shown(name("EntrancePoint")), reached(), 0.001));

        // the page follows the arm while the key is held
        QVERIFY(enable());
        QVERIFY(hand->press(name("jog3minus")));
        QTRY_VERIFY_WITH_TIMEOUT(isMoving(), kPatience);
        desk->controller->stepArms(0.3);
        QVERIFY(isMoving());
        QVERIFY(liveIs(reached()));
        hand->lift(name("jog3minus"));
        QTRY_VERIFY_WITH_TIMEOUT(!isMoving(), kPatience);
        QVERIFY(jog("jog3minus", 0.3));
        QVERIFY(liveIs(reached()));
        QVERIFY(hand->touch(name("positionAuxiliaryPoint")));
        QVERIFY(areClose(shown(name("AuxiliaryPoint")), reached(), 0.001));

        QVERIFY(jog("jog2minus", 0.5));
        QVERIFY(jog("jog4plus", 0.5)); // the first angle
        if (arm().model().axes() == 7)
            QVERIFY(jog("jog7plus", 0.5)); // the elbow, about a standing flange
        QVERIFY(liveIs(reached()));
        QVERIFY(hand->touch(name("positionJobPoint")));
        QVERIFY(areClose(shown(name("JobPoint")), reached(), 0.001));
        QVERIFY(!areClose(shown(name("JobPoint")), shown(name("AuxiliaryPoint")), 1));
        QVERIFY(hand->touch(name("positionModifyBtn")));

        QVERIFY(drive("moveToEntrancePoint", name("EntrancePoint")));
        QVERIFY(drive("moveToAuxiliaryPoint", name("AuxiliaryPoint")));
        QVERIFY(drive("moveToJobPoint", name("JobPoint")));
        // nobody drives with a hand off the enabling key
        hand->lift(name("deadmanKey"));
        QTRY_COMPARE_WITH_TIMEOUT(robot->get_deadman_state(), 0, kPatience);
        support::Journal journal;
        QVERIFY(hand->touch(name("moveToEntrancePoint")));
        QCOMPARE(journal.toasts(), QStringList(QStringLiteral("请上电！")));
        QVERIFY(settle());
        QVERIFY(!isMoving());
        QVERIFY(hand->touch(name("jogCoordinate")));
        QVERIFY(showJogKeys(false));
    }

    void setWorkpieceAndApproach()
    {
        QVERIFY(hand->touch(name("positionPageDown")));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("workpieceModifyBtn")));
        QVERIFY(enterAll(kWorkpiece));
        QVERIFY(hand->touchAll({name("workpieceModifyBtn"), name("workpiecePageDown")}));
        QVERIFY(settle());
        QVERIFY(hand->touchAll({name("approachModifyBtn"), name("approachOnOffBtn")}));
        QVERIFY(hand->choose(name("approachWaysComboBox"), 1));
        QVERIFY(enterAll(kApproach));
        QVERIFY(hand->touchAll({name("approachModifyBtn"), name("approachPageDown")}));
        QVERIFY(settle());
    }

    void setLayers()
    {
        auto *table = child<LayerTable>(pages, "overlapModeTab");
        QVERIFY(hand->touch(name("overlappingModifyBtn")));
        QVERIFY(hand->choose(name("repeatModeComboBox"), 1));
        QVERIFY(hand->enter(name("levelsnum"), name("6")));
        QTRY_COMPARE_WITH_TIMEOUT(table->rowCount(), 7, kPatience);
        QVERIFY(hand->touchAll({name("fixedPointHeightBtn"), name("levelsAutoAlignmentBtn")}));
        QVERIFY(hand->enter(name("altimetricCompensationEdit"), name("12.5")));
        QVERIFY(hand->choose(table->graphics()[1], 1, name("graphic of layer 2")));
        QVERIFY(hand->enter(table->heights()[1], name("-1.5"), name("height of layer 2")));
        for (int layer = 0; layer < 6; ++layer) {
            QCOMPARE(table->graphics()[layer]->currentIndex(), layer % 2);
            QCOMPARE(table->heights()[layer]->text(), name(layer % 2 == 0 ? "0" : "-1.5"));
        }
        QVERIFY(!table->graphics()[2]->isEnabled());
        QVERIFY(hand->touchAll({name("overlappingModifyBtn"), name("overlappingPageDown")}));
        QVERIFY(settle());
    }

    void setGraphics()
    {
        QCOMPARE(child<QComboBox>(pages, "planePicturesNumComboBox")->currentIndex(), 0);
        QVERIFY(hand->touch(name("planeModifyBtn")));
        QVERIFY(hand->enter(name("ranksXDirectionNum"), name("4")));
        QVERIFY(hand->enter(name("ranksYDirectionNum"), name("3")));
        QVERIFY(hand->choose(name("ranksWholeRotate"), 1));
        QVERIFY(hand->touch(name("planeModifyBtn")));
        QVERIFY(hand->choose(name("planePicturesNumComboBox"), 1));
        QVERIFY(settle());
        QVERIFY(hand->touch(name("planeModifyBtn")));
        QVERIFY(hand->choose(name("planeTemplateComboBox"), 1));
        QVERIFY(hand->enter(name("crisscrossXDirectionNum"), name("3")));
        QVERIFY(hand->enter(name("crisscrossYDirectionNum"), name("2")));
        QVERIFY(hand->choose(name("crisscrossWorkpieceRotate"), 3));
        QVERIFY(hand->enter(name("xDirectionMoveDistance"), name("-12.5")));
        QVERIFY(hand->touch(name("planeModifyBtn")));
        QVERIFY(hand->choose(name("planePicturesNumComboBox"), 0));
        QVERIFY(settle());
        QVERIFY(hand->touchAll({name("returnNavigationBtn7"), name("palletNavigationReturn")}));
        QVERIFY(settle());
    }

    /// What the operator chose and entered, as the pages are to show it ever after.
    static Texts chosen()
    {
        Texts texts = {
            {name("gripper: TongsnumbercomboBox"), name("2")},
            {name("gripper: Tongtoolnumber1"), name("4")},
            {name("gripper: Tongtoolnumber2"), name("7")},
            {name("tray: taryCoordinateCombox"), QString::number(kUser)},
            {name("approach: approachOnOffBtn"), name("on")},
            {name("approach: approachWaysComboBox"), QStringLiteral("接近下降")},
            {name("layers: levelsnum"), name("6")},
            {name("layers: repeatModeComboBox"), QStringLiteral("交替")},
            {name("layers: altimetricCompensationEdit"), name("12.5")},
            {name("layers: fixedPointHeightBtn"), name("on")},
            {name("layers: verticalAlignmentBtn"), name("off")},
            {name("layers: levelsAutoAlignmentBtn"), name("on")},
            {name("layers: poseAutorotationBtn"), name("off")},
            {name("graphic 1: planeTemplateComboBox"), QStringLiteral("行列")},
            {name("graphic 1: ranksXDirectionNum"), name("4")},
            {name("graphic 1: ranksYDirectionNum"), name("3")},
            {name("graphic 1: ranksWholeRotate"), name("90")},
            {name("graphic 1: ranksWorkpieceRotate"), name("0")},
            {name("graphic 1: xDirectionMoveDistance"), name("0")},
            {name("graphic 2: planeTemplateComboBox"), QStringLiteral("纵横交错")},
            {name("graphic 2: crisscrossXDirectionNum"), name("3")},
            {name("graphic 2: crisscrossYDirectionNum"), name("2")},
            {name("graphic 2: crisscrossWholeRotate"), name("0")},
            {name("graphic 2: crisscrossWorkpieceRotate"), name("-90")},
            {name("graphic 2: xDirectionMoveDistance"), name("-12.5")},
            {name("graphic 3: planeTemplateComboBox"), QStringLiteral("行列")},
            {name("graphic 3: ranksXDirectionNum"), name("1")},
        };
        for (const Entry &entry : kWorkpiece)
            texts.insert(name("workpiece: ") + name(entry.field), name(entry.number));
        for (const Entry &entry : kApproach)
            texts.insert(name("approach: ") + name(entry.field), name(entry.number));
        for (int layer = 1; layer <= 6; ++layer)
            texts.insert(name("layers: %1").arg(layer), name(layer % 2 == 1 ? "1 0" : "2 -1.5"));
        return texts;
    }
    /// The lines of `wanted` that `texts` has not, or has otherwise.
    static QStringList missing(const Texts &wanted, const Texts &texts)
    {
        QStringList lines;
        for (auto text = wanted.cbegin(); text != wanted.cend(); ++text) {
            if (texts.value(text.key()) != text.value())
                lines += text.key() + name(" = \"") + texts.value(text.key()) + name("\", not \"")
                    + text.value() + QLatin1Char('"');
        }
        return lines;
    }

private slots:
    void initTestCase()
    {
        PendantStyle::apply(*qApp);
        UserAccounts::getInstance()->setHashCost(1, 8192);
        UserAccounts::getInstance()->start(true);
        window = VeltrixWidgetFoundation::getGlobalMainWindow();
        hand = std::make_unique<support::Operator>(window);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }
    void init()
    {
        App::isDeg = true;
        MoreRobot::setCurrentRobot(1);
        desk = std::make_unique<Desk>(quint16(0), 0);
        QVERIFY(connectTo(*desk));
        makePages();
    }
    void cleanup()
    {
        hand->lift(name("deadmanKey"));
        PromptWidget::getInstance()->close();
        delete pages;
        pages = nullptr;
        robot->disconnectFromController();
        desk.reset();
    }

    void wholeChain_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("four axes") << 2;
        QTest::newRow("six axes") << 1;
        QTest::newRow("seven axes") << 12;
    }
    void wholeChain()
    {
        QFETCH(int, type);
        QVERIFY(setTypes(type));
        Texts fresh;
        QVERIFY(openCraft());
        for (const auto part : {&TestChain::setMode}) {
            (this->*part)();
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(readCraft(false, fresh));

        QVERIFY(hand->touch(name("BtnPalletComplete")));
        for (const auto part : {&TestChain::setGrippers, &TestChain::teachTray,
                                &TestChain::teachPositions, &TestChain::setWorkpieceAndApproach,
                                &TestChain::setLayers, &TestChain::setGraphics}) {
            (this->*part)();
            if (QTest::currentTestFailed())
                return;
        }
        Texts saved;
        QVERIFY(readCraft(true, saved));
        QCOMPARE(missing(chosen(), saved), QStringList());
        QVERIFY(leaveToMenu());

        // the same craft of robot 2 is as robot 1's was before all this
        QVERIFY(hand->touch(name("robotKey2")));
        QTRY_COMPARE_WITH_TIMEOUT(robot->kinematicType, type, kPatience);
        QVERIFY(openCraft());
        QCOMPARE(text(name("palletstate")), QStringLiteral("未设定"));
        Texts other;
        QVERIFY(readCraft(false, other));
        QCOMPARE(missing(fresh, other), QStringList());
        QVERIFY(leaveToMenu());
        QVERIFY(hand->touch(name("robotKey1")));

        // and robot 1 has its own after controller and pendant were switched off and on again
        QVERIFY(desk->restart());
        QTRY_COMPARE_WITH_TIMEOUT(desk->controller->pendants(), 1, kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(robot->isConnected(), kPatience);
        QVERIFY(setTypes(type));
        makePages();
        QVERIFY(openCraft());
        QCOMPARE(text(name("palletstate")), QStringLiteral("已设定为完整码垛"));
        Texts again;
        QVERIFY(readCraft(true, again));
        QCOMPARE(missing(saved, again), QStringList());
        QCOMPARE(desk->controller->refused(), 0);

        // a point that was read is as good as one that was taught, but for the seventh value
        QVERIFY(hand->touchAll({name("BtnPalletComplete"), name("setPositionBtn")}));
        QVERIFY(settle());
        QVERIFY(drive("moveToJobPoint", name("JobPoint"), 6));
    }

    void theLastChoiceStays_data()
    {
        QTest::addColumn<int>("late");
        QTest::newRow("at once") << 0;
        QTest::newRow("late") << 100;
    }
    /// The operator runs through the numbers faster than the answers come: the pages come to rest
    /// on the one that was chosen last, and each choice is asked for twice, by the operator and by
    /// its answer.
    void theLastChoiceStays()
    {
        QFETCH(int, late);
        QVERIFY(hand->touchAll({name("BtnPalletTech"), name("BtnPalletType")}));
        QVERIFY(settle());
        const auto runThrough = [&](const char *selector, message::Id id,
                                    void (Robot::*reply)(const QByteArray &)) {
            constexpr int kLast = 5;
            auto *box = child<QComboBox>(pages, selector);
            box->setCurrentIndex(0);
            if (!settle())
                return false;
            QSignalSpy answers(robot, reply);
            support::Journal journal;
            if (late > 0)
                desk->controller->setFault(id, Fault::Late, late);
            for (int row = 1; row <= kLast; ++row)
                box->setCurrentIndex(row);
            const bool came =
                QTest::qWaitFor([&] { return answers.size() >= 2 * kLast; }, kPatience);
            desk->controller->setFault(id, Fault::None);
            const QVector<support::Message> messages = journal.messages();
            const auto asked =
                std::count_if(messages.begin(), messages.end(),
                              [id](const support::Message &sent) { return sent.id == id; });
            return came && asked == 2 * kLast && box->currentIndex() == kLast && settle()
                && box->currentIndex() == kLast && answers.size() == 2 * kLast;
        };
        QVERIFY(runThrough("m_pPalletCraftNum", message::GetPalletMode,
                           &Robot::robot_switchpalletmode));
        QVERIFY(hand->touch(name("BtnPalletComplete")));
        QVERIFY(hand->touch(name("planeModelBtn")));
        QVERIFY(settle());
        QVERIFY(runThrough("planePicturesNumComboBox", message::GetPalletPlane,
                           &Robot::robot_pallet_PlaneModel));
        QVERIFY(hand->touchAll({name("returnNavigationBtn7"), name("palletNavigationReturn")}));
        QVERIFY(leaveToMenu());
    }

    void anAnswerToAPageThatWasLeft_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("back");
        QTest::addColumn<int>("question");
        QTest::addColumn<int>("answer");
        QTest::newRow("positions") << "setPositionBtn"
                                   << "returnNavigationBtn3" << int(message::GetPalletPosition)
                                   << int(wire::reply::robot_pallet_PositionParameter);
        QTest::newRow("pattern") << "planeModelBtn"
                                 << "returnNavigationBtn7" << int(message::GetPalletPlane)
                                 << int(wire::reply::robot_pallet_PlaneModel);
    }

    /// A page was left and another process number chosen before its answer came: the answer selects
    /// its number, as the operator asked for it, and what is chosen after that stays.
    void anAnswerToAPageThatWasLeft()
    {
        QFETCH(QString, way);
        QFETCH(QString, back);
        QFETCH(int, question);
        QFETCH(int, answer);
        constexpr int kChosen = 3;
        const auto *box = child<QComboBox>(pages, "m_pPalletCraftNum");
        const auto answerFor = [&](int craft) {
            support::receive(static_cast<wire::reply::Id>(answer),
                             "{\"robot\":1,\"graphic\":1,\"pallet\":{},\"craftID\":"
                                 + QByteArray::number(craft) + "}");
        };
        QVERIFY(hand->touchAll({name("BtnPalletTech"), name("BtnPalletType")}) && settle());
        QVERIFY(hand->choose(name("m_pPalletCraftNum"), 8) && settle());
        QVERIFY(hand->touch(name("BtnPalletComplete")));
        // the test brings the answer, when it is time
        desk->controller->setFault(static_cast<unsigned short>(question), Fault::NoReply);
        QVERIFY(hand->touchAll({way, back, name("palletNavigationReturn")}) && settle());
        QVERIFY(hand->choose(name("m_pPalletCraftNum"), kChosen) && settle());
        answerFor(9);
        QCOMPARE(box->currentIndex(), 8);
        QVERIFY(settle());
        QCOMPARE(box->currentIndex(), 8);
        QVERIFY(hand->choose(name("m_pPalletCraftNum"), kChosen) && settle());
        QCOMPARE(box->currentIndex(), kChosen);
        answerFor(8); // nobody asked for this: the controller chooses
        QCOMPARE(box->currentIndex(), 7);
        desk->controller->setFault(static_cast<unsigned short>(question), Fault::None);
        QVERIFY(settle());
        QVERIFY(leaveToMenu());
    }

    /// A list of workpieces comes in several replies; one that is dropped is dropped to its end.
    void aListThatComesTooLate()
    {
        constexpr int kChosen = 3;
        auto *box = child<QComboBox>(pages, "planePicturesNumComboBox");
        const auto answer = [](const QByteArray &pallet) {
            support::receive(wire::reply::robot_pallet_PlaneModel,
                             "{\"robot\":1,\"graphic\":2,\"pallet\":{" + pallet + "}}");
        };
        const QByteArray first = "\"custom\":{\"sum\":12,\"start\":1,\"count\":10}";
        const QByteArray last = "\"custom\":{\"sum\":12,\"start\":11,\"count\":2}";
        QVERIFY(hand->touchAll({name("BtnPalletTech"), name("BtnPalletType")}) && settle());
        QVERIFY(hand->touch(name("BtnPalletComplete")));
        QVERIFY(hand->touch(name("planeModelBtn")) && settle());
        // the test brings the answers, when it is time
        desk->controller->setFault(message::GetPalletPlane, Fault::NoReply);
        answer({}); // selects, and makes the page ask for the list
        QCOMPARE(box->currentIndex(), 1);
        QVERIFY(hand->choose(name("planePicturesNumComboBox"), kChosen));
        for (const QByteArray &chunk : {first, last}) {
            answer(chunk);
            QCOMPARE(box->currentIndex(), kChosen);
        }
        answer(first); // that list was answered: this is another one
        QCOMPARE(box->currentIndex(), 1);
        desk->controller->setFault(message::GetPalletPlane, Fault::None);
        QVERIFY(hand->touchAll({name("returnNavigationBtn7"), name("palletNavigationReturn")}));
        QVERIFY(settle());
        QVERIFY(leaveToMenu());
    }
};

QTEST_MAIN(TestChain)
#include "test_chain.moc"
