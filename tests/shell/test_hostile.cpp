// Replies that mean harm: whatever arrives, the program runs on and the form stays consistent.

#include "../polish/polishpage.h"

#include "promptwidget.h"

#include <QMetaMethod>
#include <QTableWidget>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

using support::kPolishFields;
using support::PolishField;

namespace {

/// One slot that takes replies. A page that learns to take another reply adds a row here.
struct Subject {
    const char *signal; ///< of Robot, normalised
    const char *slot; ///< of TechnologyWidget, normalised
    wire::reply::Id id;
    QByteArray valid; ///< a whole reply for robot 1, number 1
    const char *numberKey; ///< key of the process number; null: it has none
    const char *selector; ///< combo box of the process number; null: it has none
    QStringList fields; ///< line edits that hold numbers
    const char *modify; ///< modify button; null: the page has none
    void (TechnologyWidget::*show)();
    void (*deliver)(const QByteArray &body); ///< straight to the slot, past the length limit
    QStringList switched = {}; ///< further widgets that are enabled in edit state alone
    bool numberOpensAnew = true; ///< another process number enters the page anew
    bool takesAnyRow = false; ///< a number beyond the rows leaves no row selected
    int messagesOfASave = 1;
    const char *table = nullptr; ///< table that takes as many rows as a reply says
};

QStringList polishFieldNames()
{
    QStringList names;
    for (const PolishField &row : kPolishFields)
        names += QString::fromLatin1(row.name);
    return names;
}

const QStringList kPositionButtons = {QStringLiteral("positionEntrancePoint"),
                                      QStringLiteral("positionAuxiliaryPoint"),
                                      QStringLiteral("positionJobPoint")};

const QStringList kGripperBoxes = {
    QStringLiteral("TongsnumbercomboBox"), QStringLiteral("Tongtoolnumber1"),
    QStringLiteral("Tongtoolnumber2"), QStringLiteral("Tongtoolnumber3"),
    QStringLiteral("Tongtoolnumber4")};

const QStringList kTrayControls = {
    QStringLiteral("taryCoordinateCombox"), QStringLiteral("taryOriginBtn"),
    QStringLiteral("taryXdirectionBtn"), QStringLiteral("taryYdirectionBtn"),
    QStringLiteral("taryCalculationBtn")};

const QVector<Subject> &subjects()
{
    static const QVector<Subject> table = {
        {"robot_Polish_Para(QByteArray)", "updatePolishParam(QByteArray)",
         wire::reply::robot_Polish_Para,
         "{\"robot\":1,\"craftID\":1,\"polish\":{\"toolWear\":0.5,"
         "\"startToolOffset\":{\"X\":1.25,\"Y\":-2.5,\"Z\":3},"
         "\"endToolOffset\":{\"X\":-4.5,\"Y\":5.125,\"Z\":-6},"
         "\"autoFeed\":{\"value\":0.03,\"cycle\":12}}}\n",
         "craftID", "m_pPolishCombox", polishFieldNames(), "btnPolishModify",
         &TechnologyWidget::showPolish,
         [](const QByteArray &body) { emit Robot::getInstance()->robot_Polish_Para(body); }},
        {"robot_pallet_PositionParameter(QByteArray)",
         "updatePalletPositionParameter(QByteArray)",
         wire::reply::robot_pallet_PositionParameter,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"enterPos\":[1,2,3,0.1,0.2,0.3],"
         "\"shiftPos\":[1,2,3,0.1,0.2,0.3],\"realPos\":[1,2,3,0.1,0.2,0.3],"
         "\"enterPosDeg\":[1,2,3,10,20,30]}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {},
         "positionModifyBtn",
         &TechnologyWidget::palletSetPositionWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_PositionParameter(body);
         },
         kPositionButtons,
         false,
         true},
        {"receive_moreRobot_CurPosition(QByteArray,QByteArray)",
         "recvCurposition(QByteArray,QByteArray)",
         wire::reply::receive_moreRobot_CurPosition,
         "{\"robot\":1,\"pos\":\"0 1 1 2 3 4 5 6 7\",\"posDeg\":\"0 1 1 2 3 40 50 60 70\"}\n",
         nullptr,
         nullptr,
         {},
         "positionModifyBtn",
         &TechnologyWidget::palletSetPositionWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->receive_moreRobot_CurPosition(body, body);
         },
         kPositionButtons},
        {"robot_switchpalletmode(QByteArray)",
         "updateSwitchPalletMode(QByteArray)",
         wire::reply::robot_switchpalletmode,
         "{\"robot\":1,\"craftID\":1,\"usePalletType\":1}\n",
         "craftID",
         "m_pPalletCraftNum",
         {},
         nullptr,
         &TechnologyWidget::showPalletTypeWidget,
         [](const QByteArray &body) { emit Robot::getInstance()->robot_switchpalletmode(body); }},
        {"robot_pallet_ToolParameter(QByteArray)",
         "updatePalletToolParameter(QByteArray)",
         wire::reply::robot_pallet_ToolParameter,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"gripperNum\":4,\"gripper\":[1,2,3,9]}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {},
         "tongsModifyBtn",
         &TechnologyWidget::palletSetTongsWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_ToolParameter(body);
         },
         kGripperBoxes,
         false},
        {"robot_tool_count_check(int,QByteArray,QByteArray)",
         "keep_count_data_pallet(int,QByteArray,QByteArray)",
         wire::reply::robot_tool_count_check,
         "{\"toolNum\":1,\"tool\":\"1 2 3 0.1 0.2 0.3\",\"toolDeg\":\"1 2 3 10 20 30\"}\n",
         nullptr,
         nullptr,
         {},
         "tongsModifyBtn",
         &TechnologyWidget::palletSetTongsWidget,
         [](const QByteArray &body) {
             for (int tool : {std::numeric_limits<int>::min(), -1, 0, 1, 9, 10,
                              std::numeric_limits<int>::max()})
                 emit Robot::getInstance()->robot_tool_count_check(tool, body, body);
         },
         kGripperBoxes},
        {"robot_pallet_TrayParameter(QByteArray)",
         "updatePalletTrayParameter(QByteArray)",
         wire::reply::robot_pallet_TrayParameter,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"userNum\":3}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {},
         "trayModifyBtn",
         &TechnologyWidget::palletSetTrayWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_TrayParameter(body);
         },
         kTrayControls,
         false,
         false,
         3},
        {"robot_usercoords_reply(int,QString,QVector<double>)",
         "keep_userReply_pallet(int,QString,QVector<double>)",
         wire::reply::robot_usercoords_reply,
         "{\"userNum\":1,\"inquire\":\"O\",\"pos\":[1,2,3,0.1,0.2,0.3]}\n",
         nullptr,
         nullptr,
         {},
         "trayModifyBtn",
         &TechnologyWidget::palletSetTrayWidget,
         [](const QByteArray &body) {
             Robot *robot = Robot::getInstance();
             emit robot->robot_usercoords_reply(1, QString::fromUtf8(body), {1, 2, 3});
             emit robot->robot_usercoords_reply(
                 -1, QStringLiteral("O"),
                 QVector<double>(static_cast<int>(body.size() % 40),
                                 std::numeric_limits<double>::infinity()));
         },
         kTrayControls,
         true,
         false,
         3},
        {"robot_user_suc(int)",
         "received_user_successed_pallet(int)",
         wire::reply::robot_user_suc,
         "{\"result\":1}\n",
         nullptr,
         nullptr,
         {},
         nullptr,
         &TechnologyWidget::palletSetTrayWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_user_suc(static_cast<int>(body.size()) - 1);
         }},
        {"robot_pallet_WorkpieceParameter(QByteArray)",
         "updatePalletWorkpieceParameter(QByteArray)",
         wire::reply::robot_pallet_WorkpieceParameter,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"workpieceLength\":300,\"workpieceWidth\":200,"
         "\"workpieceHeight\":150.5,\"workpieceGapX\":10,\"workpieceGapY\":0}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {QStringLiteral("Workpiecelength"), QStringLiteral("Workpiecewidth"),
          QStringLiteral("Workpieceheight"), QStringLiteral("WorkpieceintervalX"),
          QStringLiteral("WorkpieceintervalY")},
         "workpieceModifyBtn",
         &TechnologyWidget::palletWorkpieceParaWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_WorkpieceParameter(body);
         },
         {},
         false},
        {"robot_pallet_ApproachParameter(QByteArray)",
         "updatePalletApproachParameter(QByteArray)",
         wire::reply::robot_pallet_ApproachParameter,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"workpieceApproEnable\":true,"
         "\"workpieceApproMode\":1,\"workpieceApproLenX\":10,\"workpieceApproLenY\":20.5,"
         "\"workpieceApproLenZ\":30}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {QStringLiteral("approachWorkpiecelength"), QStringLiteral("approachWorkpiecewidth"),
          QStringLiteral("approachWorkpieceheight")},
         "approachModifyBtn",
         &TechnologyWidget::palletApproachParaWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_ApproachParameter(body);
         },
         {},
         false},
        {"robot_pallet_OverlappingModel(QByteArray)",
         "updatePalletOverlappingModel(QByteArray)",
         wire::reply::robot_pallet_OverlappingModel,
         "{\"robot\":1,\"craftID\":1,\"pallet\":{\"floorSum\":3,\"overlapType\":2,"
         "\"layHeightOffset\":1.5,\"fixedLayHeight\":true,\"columnLay\":false,"
         "\"floorAutoJustified\":true,\"poseAutorotation\":false,\"graphicNum\":[1,2,9],"
         "\"heightRevise\":[0,-5,5.5]}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {QStringLiteral("levelsnum"), QStringLiteral("altimetricCompensationEdit")},
         "overlappingModifyBtn",
         &TechnologyWidget::palletOverlappingModelWidget,
         [](const QByteArray &body) {
             emit Robot::getInstance()->robot_pallet_OverlappingModel(body);
         },
         {},
         false,
         false,
         1,
         "overlapModeTab"},
        {"robot_pallet_PlaneModel(QByteArray)",
         "updatePalletPlaneModel(QByteArray)",
         wire::reply::robot_pallet_PlaneModel,
         "{\"robot\":1,\"craftID\":1,\"graphic\":1,\"pallet\":{\"graphicType\":0,"
         "\"transLenX\":1.5,\"transLenY\":-2,\"autoTransLenX\":3,\"autoTransLenY\":4,"
         "\"ranks\":{\"numX\":4,\"numY\":3,\"rotationAngleWhole\":90,"
         "\"rotationAngleSingle\":-90}}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {QStringLiteral("xDirectionMoveDistance"), QStringLiteral("yDirectionMoveDistance"),
          QStringLiteral("ranksXDirectionNum"), QStringLiteral("ranksYDirectionNum")},
         "planeModifyBtn",
         &TechnologyWidget::palletPlaneModelWidget,
         [](const QByteArray &body) { emit Robot::getInstance()->robot_pallet_PlaneModel(body); },
         {},
         false,
         true},
        {"robot_pallet_ChangeModel(QByteArray)",
         "updatePalletChangeModel(QByteArray)",
         wire::reply::robot_pallet_ChangeModel,
         "{\"robot\":1,\"craftID\":1,\"graphic\":1,\"pallet\":{\"graphicType\":3,"
         "\"transLenX\":1.5,\"transLenY\":-2,\"autoTransLenX\":3,\"autoTransLenY\":4}}\n",
         "craftID",
         "m_pPalletCraftNum",
         {QStringLiteral("xDirectionMoveDistance"), QStringLiteral("yDirectionMoveDistance")},
         nullptr,
         &TechnologyWidget::palletPlaneModelWidget,
         [](const QByteArray &body) { emit Robot::getInstance()->robot_pallet_ChangeModel(body); },
         {},
         false,
         true},
    };
    return table;
}

/// Replies and the slots that take them.
struct Pair {
    const char *signal;
    const char *slot;
};

constexpr Pair kPairs[] = {
    {"robot_Polish_Para(QByteArray)", "updatePolishParam(QByteArray)"},
    {"robot_Spray_Analog(QByteArray)", "updateSprayAnalog(QByteArray)"},
    {"robot_Spray_Digital(QByteArray)", "updateSprayDigital(QByteArray)"},
    {"robot_Spray_Digital(QByteArray)", "updateSprayHandOperateColor(QByteArray)"},
    {"robot_Spray_Sequence(QByteArray)", "updateSpraySequence(QByteArray)"},
    {"robot_Spray_TrackPara(QByteArray)", "updateSprayTrack(QByteArray)"},
    {"robot_Spray_HandOperatOne(QByteArray)", "updateSprayHandOperateOne(QByteArray)"},
    {"robot_Spray_HandOperatTwo(QByteArray)", "updateSprayHandOperateTwo(QByteArray)"},
    {"robot_Spray_HandOperatThree(QByteArray)", "updateSprayHandOperateThree(QByteArray)"},
    {"robot_pallet_ToolParameter(QByteArray)", "updatePalletToolParameter(QByteArray)"},
    {"robot_pallet_TrayParameter(QByteArray)", "updatePalletTrayParameter(QByteArray)"},
    {"robot_pallet_PositionParameter(QByteArray)", "updatePalletPositionParameter(QByteArray)"},
    {"robot_pallet_WorkpieceParameter(QByteArray)", "updatePalletWorkpieceParameter(QByteArray)"},
    {"robot_pallet_ApproachParameter(QByteArray)", "updatePalletApproachParameter(QByteArray)"},
    {"robot_pallet_OverlappingModel(QByteArray)", "updatePalletOverlappingModel(QByteArray)"},
    {"robot_pallet_PlaneModel(QByteArray)", "updatePalletPlaneModel(QByteArray)"},
    {"robot_pallet_ChangeModel(QByteArray)", "updatePalletChangeModel(QByteArray)"},
    {"robot_pallet_PlanePreview(QByteArray)", "updatePalletPlanePreview(QByteArray)"},
    {"robot_receivePalletData(QByteArray)", "updatePallDragdropData(QByteArray)"},
    {"robot_pallet_LocATPara(QByteArray)", "updatePalletLocATPara(QByteArray)"},
    {"robot_piece_LocAT(QByteArray)", "updatePalletPieceLocAt(QByteArray)"},
    {"robot_palleteasy_PositionParameter(QByteArray)",
     "updatePalletEasyPositionParameter(QByteArray)"},
    {"robot_palleteasy_ToolParameter(QByteArray)", "updatePalletEasyToolParameter(QByteArray)"},
    {"robot_switchpalletmode(QByteArray)", "updateSwitchPalletMode(QByteArray)"},
    {"robot_tool_count_check(int,QByteArray,QByteArray)",
     "keep_count_data_pallet(int,QByteArray,QByteArray)"},
    {"robot_usercoords_reply(int,QString,QVector<double>)",
     "keep_userReply_pallet(int,QString,QVector<double>)"},
    {"robot_usercoords_reply(int,QString,QVector<double>)",
     "keep_userReply_track(int,QString,QVector<double>)"},
    {"robot_user_suc(int)", "received_user_successed_pallet(int)"},
    {"receive_moreRobot_CurPosition(QByteArray,QByteArray)",
     "recvCurposition(QByteArray,QByteArray)"},
    {"robot_change_ShotParameter(QByteArray)", "updateShotParameter(QByteArray)"},
    {"robot_recLaserTechParam(QByteArray)", "updateLaserTechParam(QByteArray)"},
    {"robot_recCutTechParam(QByteArray)", "updateCutTechParam(QByteArray)"},
    {"robot_recLaserChangerIoSet(QByteArray)", "updateLaserChangeIoSet(QByteArray)"},
    {"robot_recLaserChangerAnalog(QByteArray)", "updateLaserChangeAnalog(QByteArray)"},
    {"robot_recLaserChangerAnalogSet(QByteArray)", "updateLaserChangeAnalogSet(QByteArray)"},
    {"robot_change_CurrentState(QByteArray)", "updateCurrentStateTech(QByteArray)"},
    {"robot_trackConBasic_para(QByteArray)", "updateTrackConBasic(QByteArray)"},
    {"robot_trackConTool_para(QByteArray)", "updateTrackConTool(QByteArray)"},
    {"robot_trackConCalibration_para(QByteArray)", "updateTrackConCalibration(QByteArray)"},
    {"robot_trackConCaliSensorPoint_para(QByteArray)", "updateTrackConCaliSensorPoint(QByteArray)"},
    {"robot_trackConCaliSensorPos_para(QByteArray)", "updateTrackConCaliSensorPos(QByteArray)"},
    {"robot_trackConSensorPos_para(QByteArray)", "updateTrackConSensorPos(QByteArray)"},
    {"robot_trackConPosr_para(QByteArray)", "updateTrackConPos(QByteArray)"},
    {"robot_calibrationPos_para(QByteArray)", "updateCalibrationPos(QByteArray)"},
    {"robot_trackSpeed_para(QByteArray)", "updateTrackSpeed(QByteArray)"},
    {"robot_get_oneglobalVariant(QByteArray)", "receiveOneGlobalVariant(QByteArray)"},
    {"robot_rec_globalPosition(QByteArray)", "receiveGlobalPosition(QByteArray)"},
    {"robot_BWB_command(int,int)", "setBWBCommand(int,int)"},
    {"sPBtnState(int,int,int)", "specialProcessBtnState(int,int,int)"},
};

/// The paths of all values in a reply, inner objects included.
void collectPaths(const Json::Value &value, const std::vector<std::string> &path,
                  std::vector<std::vector<std::string>> &paths)
{
    if (!path.empty())
        paths.push_back(path);
    if (!value.isObject())
        return;
    for (const std::string &key : value.getMemberNames()) {
        std::vector<std::string> deeper = path;
        deeper.push_back(key);
        collectPaths(value[key], deeper, paths);
    }
}

Json::Value &at(Json::Value &root, const std::vector<std::string> &path)
{
    Json::Value *value = &root;
    for (const std::string &key : path)
        value = &(*value)[key];
    return *value;
}

QByteArray name(const std::vector<std::string> &path)
{
    std::string text;
    for (const std::string &key : path)
        text += text.empty() ? key : "/" + key;
    return QByteArray::fromStdString(text);
}

/// What stands in the place of a value; written as JSON text, not always good one.
struct Harm {
    QByteArray name;
    QByteArray text;
};

/// Values that cost time to read; one place of a reply is enough for them.
QVector<Harm> heavyHarms()
{
    QByteArray objects;
    for (int i = 0; i < 100000; ++i)
        objects += "{\"X\":";
    QVector<Harm> list;
    list.append(Harm{"100,000 arrays", QByteArray(100000, '[') + QByteArray(100000, ']')});
    list.append(Harm{"100,000 arrays, open", QByteArray(100000, '[')});
    list.append(Harm{"100,000 objects", objects + "1" + QByteArray(100000, '}')});
    list.append(Harm{"100,000 objects, open", objects});
    list.append(Harm{"10 MB of digits", QByteArray(10 * 1024 * 1024, '9')});
    list.append(Harm{"3 MB of digits", QByteArray(3 * 1024 * 1024, '9')});
    list.append(Harm{"3 MB of decimals", "0." + QByteArray(3 * 1024 * 1024, '3')});
    list.append(Harm{"3 MB of text", "\"" + QByteArray(3 * 1024 * 1024, 'x') + "\""});
    list.append(Harm{"a long list", "[" + QByteArray(100000, ' ').replace(" ", "1,") + "1]"});
    return list;
}

QVector<Harm> harms()
{
    QVector<Harm> list;
    for (const char *text : {"null",
                             "true",
                             "false",
                             "\"\"",
                             "\"5\"",
                             "\"text\"",
                             "[]",
                             "[1]",
                             "[[[]]]",
                             "{}",
                             "{\"X\":1}",
                             "{\"X\":{\"X\":{\"X\":1}}}",
                             "0",
                             "-0",
                             "-1",
                             "10",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967295",
                             "4294967297",
                             "9223372036854775807",
                             "9223372036854775808",
                             "18446744073709551615",
                             "18446744073709551616",
                             "-9223372036854775809",
                             "0.5",
                             "1e308",
                             "-1e308",
                             "1e309",
                             "1e999",
                             "-1e999",
                             "1e-400",
                             "1e+9999",
                             "nan",
                             "inf",
                             "Infinity",
                             "-",
                             "+1",
                             "01",
                             ".5",
                             "0x10",
                             "1,2",
                             "'5'",
                             "tru",
                             "\"\\ud800\"",
                             "\"\\u0000\"",
                             "\"open",
                             "[1",
                             "{\"X\""})
        list.append(Harm{text, text});
    list.append(Harm{"a list", "[" + QByteArray(200, ' ').replace(" ", "1,") + "1]"});
    list.append(Harm{"invalid UTF-8", "\"\xff\xfe\xc3\x28\xf0\x28\x8c\x28\""});
    list.append(Harm{"bytes", QByteArray::fromHex("00ff80c328efbfbf")});
    return list;
}

} // namespace

/// Of each reply.
constexpr int kMutations = 2000;
/// Rows of a table that takes its time to fill.
constexpr int kLargeTable = 500;

class TestHostile : public QObject {
    Q_OBJECT
private:
    TechnologyWidget *pages = nullptr;
    int opened = 0;
    int largeBodies = 0;
    QHash<QString, QWidget *> widgets; ///< by name: a search of the whole form takes its time

    template <typename Widget> Widget *widget(const QString &name) const
    {
        auto *found = qobject_cast<Widget *>(widgets.value(name));
        if (!found)
            qFatal("there is no %s of the name %s", Widget::staticMetaObject.className(),
                   qPrintable(name));
        return found;
    }
    template <typename Widget> Widget *widget(const char *name) const
    {
        return widget<Widget>(QString::fromLatin1(name));
    }

    struct State {
        int row = -1;
        QStringList texts;
        QString modify;
        bool enabled = false;
    };

    State stateOf(const Subject &subject) const
    {
        State state;
        if (subject.selector)
            state.row = widget<QComboBox>(subject.selector)->currentIndex();
        for (const QString &field : subject.fields) {
            const auto *edit = widget<QLineEdit>(field);
            state.texts += edit->text();
            state.enabled = edit->isEnabledTo(edit->parentWidget());
        }
        for (const QString &name : subject.switched) {
            const auto *control = widget<QWidget>(name);
            state.enabled = control->isEnabledTo(control->parentWidget());
        }
        if (subject.modify)
            state.modify = widget<QPushButton>(subject.modify)->text();
        return state;
    }

    /// What is wrong with the form after a reply, or nothing.
    QString complaint(const Subject &subject, const State &before) const
    {
        const State after = stateOf(subject);
        if (subject.selector) {
            const int rows = widget<QComboBox>(subject.selector)->count();
            if (rows != 9 || after.row < -1 || after.row > 8)
                return QStringLiteral("row %1 of %2").arg(after.row).arg(rows);
        }
        for (int i = 0; i < subject.fields.size(); ++i) {
            bool isNumber = false;
            const double value = after.texts.at(i).toDouble(&isNumber);
            if (!(isNumber && std::isfinite(value)) && after.texts.at(i) != before.texts.at(i))
                return QStringLiteral("%1 reads '%2'")
                    .arg(subject.fields.at(i), after.texts.at(i).left(40));
        }
        for (const QString &field : subject.fields + subject.switched) {
            const auto *control = widget<QWidget>(field);
            if (control->isEnabledTo(control->parentWidget()) != after.enabled)
                return QStringLiteral("some fields are enabled, some are not");
        }
        if (!subject.modify)
            return {};
        // a reply that brings another number enters the page anew, which ends an edit
        const bool entered = subject.numberOpensAnew && after.row != before.row;
        const QString expected = entered ? QStringLiteral("修改") : before.modify;
        if (after.modify != expected || after.enabled != (after.modify == QStringLiteral("保存")))
            return QStringLiteral("the button reads '%1', the fields are %2")
                .arg(after.modify, after.enabled ? QStringLiteral("on") : QStringLiteral("off"));
        return {};
    }

    void open(const Subject &subject, bool editing)
    {
        // what the widgets have posted to themselves is not left to pile up
        if (++opened % 64 == 0)
            QCoreApplication::processEvents();
        if (subject.selector)
            widget<QComboBox>(subject.selector)->setCurrentIndex(0);
        (pages->*subject.show)();
        support::receive(subject.id, subject.valid);
        PromptWidget::getInstance()->close(); // the operator has read what the reply put up
        if (editing && subject.modify)
            widget<QPushButton>(subject.modify)->click();
    }

    /// Delivers a body in view and in edit state, by the link's entry and straight to the slot. One
    /// that fills a table with thousands of rows is delivered in one of the four ways, each such
    /// body in the next.
    QString attack(const Subject &subject, const QByteArray &body)
    {
        constexpr int kWays = 4;
        for (int i = 0; i < kWays; ++i) {
            const int way = (largeBodies + i) % kWays;
            open(subject, way >= kWays / 2);
            const State before = stateOf(subject);
            if (way % 2 == 1)
                subject.deliver(body);
            else
                support::receive(subject.id, body);
            const QString wrong = complaint(subject, before);
            if (!wrong.isEmpty())
                return wrong;
            if (subject.table && widget<QTableWidget>(subject.table)->rowCount() > kLargeTable) {
                ++largeBodies;
                break;
            }
        }
        return {};
    }

    /// After all that the page can be worked as ever.
    QString worksOn(const Subject &subject)
    {
        open(subject, false);
        const QStringList good = stateOf(subject).texts;
        if (subject.selector && widget<QComboBox>(subject.selector)->currentIndex() != 0)
            return QStringLiteral("the number is lost");
        for (const QString &text : good) {
            bool isNumber = false;
            text.toDouble(&isNumber);
            if (!isNumber)
                return QStringLiteral("a field is not filled");
        }
        if (!subject.modify)
            return {};
        QTest::mouseClick(widget<QPushButton>(subject.modify), Qt::LeftButton);
        support::Journal journal;
        QTest::mouseClick(widget<QPushButton>(subject.modify), Qt::LeftButton);
        return journal.messages().size() == subject.messagesOfASave
            ? QString()
            : QStringLiteral("it does not save");
    }

private slots:
    void initTestCase()
    {
        App::sysUser = AUTHORITY_ADMINISTRATOR;
        MoreRobot::setCurrentRobot(1);
        pages = TechnologyWidget::getInstance();
        const auto all = pages->findChildren<QWidget *>();
        for (QWidget *each : all)
            widgets.insert(each->objectName(), each);
        pages->resize(714, 504);
        pages->show();
    }

    /// Each reply that the pages take has its row in this test.
    void everySlotIsASubject()
    {
        const QMetaObject &robot = Robot::staticMetaObject;
        const QMetaObject &component = TechnologyWidget::staticMetaObject;
        int found = 0;
        for (const Pair &pair : kPairs) {
            QVERIFY2(robot.indexOfSignal(QMetaObject::normalizedSignature(pair.signal).constData())
                         >= 0,
                     pair.signal);
            if (component.indexOfSlot(QMetaObject::normalizedSignature(pair.slot).constData()) < 0)
                continue;
            const bool isSubject =
                std::any_of(subjects().begin(), subjects().end(), [&](const Subject &subject) {
                    return QByteArray(subject.signal) == pair.signal
                        && QByteArray(subject.slot) == pair.slot;
                });
            QVERIFY2(isSubject, pair.slot);
            ++found;
        }
        QCOMPARE(found, static_cast<int>(subjects().size()));
    }

    void validReply()
    {
        for (const Subject &subject : subjects()) {
            QCOMPARE(attack(subject, subject.valid), QString());
            QCOMPARE(worksOn(subject), QString());
        }
    }

    void everyKey_data()
    {
        QTest::addColumn<int>("subject");
        QTest::addColumn<QByteArray>("path");
        for (int i = 0; i < subjects().size(); ++i) {
            std::vector<std::vector<std::string>> paths;
            collectPaths(support::json(subjects().at(i).valid), {}, paths);
            QVERIFY(!paths.empty());
            for (const auto &path : paths)
                QTest::addRow("%s %s", subjects().at(i).slot, name(path).constData())
                    << i << name(path);
        }
    }
    /// One value of the reply gives way to each of the harms, and one is missing.
    void everyKey()
    {
        QFETCH(int, subject);
        QFETCH(QByteArray, path);
        std::vector<std::string> keys;
        for (const QByteArray &key : path.split('/'))
            keys.push_back(key.toStdString());
        const Subject &row = subjects().at(subject);
        Json::Value marked = support::json(row.valid);
        at(marked, keys) = "@here@";
        const QByteArray frame = wire::writeLine(marked);
        for (const Harm &harm : harms()) {
            QByteArray body = frame;
            body.replace("\"@here@\"", harm.text);
            const QString wrong = attack(row, body);
            QVERIFY2(wrong.isEmpty(),
                     qPrintable(QString::fromLatin1(harm.name) + QLatin1String(": ") + wrong));
        }

        Json::Value without = support::json(row.valid);
        Json::Value &parent = at(without, std::vector<std::string>(keys.begin(), keys.end() - 1));
        parent.removeMember(keys.back());
        QCOMPARE(attack(row, wire::writeLine(without)), QString());
        QCOMPARE(worksOn(row), QString());
    }

    /// Depth and length beyond all measure, at the innermost value of a reply.
    void heavyValues()
    {
        const QVector<Harm> list = heavyHarms();
        for (const Subject &subject : subjects()) {
            std::vector<std::vector<std::string>> paths;
            collectPaths(support::json(subject.valid), {}, paths);
            const auto deepest = std::max_element(
                paths.begin(), paths.end(),
                [](const auto &one, const auto &other) { return one.size() < other.size(); });
            Json::Value marked = support::json(subject.valid);
            at(marked, *deepest) = "@here@";
            const QByteArray frame = wire::writeLine(marked);
            for (const Harm &harm : list) {
                QByteArray body = frame;
                body.replace("\"@here@\"", harm.text);
                open(subject, true);
                const State before = stateOf(subject);
                support::receive(subject.id, body);
                subject.deliver(body);
                const QString wrong = complaint(subject, before);
                QVERIFY2(wrong.isEmpty(),
                         qPrintable(QString::fromLatin1(harm.name) + QLatin1String(": ") + wrong));
            }
            QCOMPARE(worksOn(subject), QString());
        }
    }

    void wholeBodies()
    {
        QByteArray deep;
        for (int i = 0; i < 100000; ++i)
            deep += "{\"polish\":";
        for (const Subject &subject : subjects()) {
            QVector<QByteArray> bodies = {QByteArray(),
                                          QByteArray(" "),
                                          QByteArray("\n"),
                                          QByteArray(1, '\0'),
                                          QByteArray("{}"),
                                          QByteArray("[]"),
                                          QByteArray("null"),
                                          QByteArray("5"),
                                          QByteArray("\"robot\""),
                                          QByteArray("{\"robot\":1}"),
                                          QByteArray("{\"robot\":1"),
                                          QByteArray("{\"robot\":1,}"),
                                          QByteArray("{robot:1}"),
                                          QByteArray("{\"robot\":1}{\"robot\":1}"),
                                          QByteArray("//\n{\"robot\":1}"),
                                          QByteArray("/*"),
                                          QByteArray(100000, '['),
                                          QByteArray(100000, '{'),
                                          deep,
                                          deep + "1" + QByteArray(100000, '}'),
                                          QByteArray(10 * 1024 * 1024, '9'),
                                          QByteArray(5 * 1024 * 1024, ' ') + subject.valid,
                                          subject.valid + QByteArray(5 * 1024 * 1024, ' '),
                                          subject.valid + subject.valid,
                                          subject.valid.trimmed() + "x",
                                          QByteArray("\xef\xbb\xbf") + subject.valid,
                                          QByteArray::fromHex("fffe7b0022007200"),
                                          QByteArray::fromHex("c328ffff00")};
            for (const QByteArray &body : bodies)
                QCOMPARE(attack(subject, body), QString());
            QCOMPARE(worksOn(subject), QString());
        }
    }

    void cutAtEveryByte()
    {
        for (const Subject &subject : subjects()) {
            for (int size = 0; size < subject.valid.size(); ++size) {
                open(subject, true);
                const State before = stateOf(subject);
                support::receive(subject.id, subject.valid.left(size));
                QCOMPARE(complaint(subject, before), QString());
            }
            QCOMPARE(worksOn(subject), QString());
        }
    }

    /// The same key twice: what stands last counts, and nothing is mixed.
    void duplicateKeys()
    {
        for (const Subject &subject : subjects()) {
            const QByteArray inner = subject.valid.trimmed().mid(1); // without the opening brace
            for (const char *first :
                 {"\"robot\":2", "\"robot\":null", "\"craftID\":7", "\"craftID\":\"x\"",
                  "\"polish\":{\"toolWear\":\"x\"}", "\"polish\":[]", "\"\":1"})
                QCOMPARE(attack(subject, "{" + QByteArray(first) + "," + inner), QString());
            const QByteArray open = subject.valid.trimmed().chopped(1); // without the closing one
            for (const char *last :
                 {"\"robot\":2", "\"robot\":null", "\"craftID\":7", "\"craftID\":0",
                  "\"polish\":null", "\"polish\":{\"toolWear\":{}}", "\"\":1"})
                QCOMPARE(attack(subject, open + "," + last + "}"), QString());
            QCOMPARE(worksOn(subject), QString());
        }
    }

    void anotherRobot()
    {
        for (const Subject &subject : subjects()) {
            for (const char *robot : {"0", "2", "3", "4", "5", "-1", "2147483648", "1.5"}) {
                QByteArray body = subject.valid;
                body.replace("\"robot\":1", "\"robot\":" + QByteArray(robot));
                QCOMPARE(attack(subject, body), QString());
            }
        }
    }

    void processNumbers()
    {
        for (const Subject &subject : subjects()) {
            if (!subject.numberKey || !subject.selector)
                continue;
            const auto *selector = widget<QComboBox>(subject.selector);
            struct Row {
                const char *number;
                int row;
            };
            for (const Row &row : {Row{"0", -1}, Row{"10", 0}, Row{"-1", -1}, Row{"2147483648", 0},
                                   Row{"-2147483648", -1}, Row{"-2147483649", 0}, Row{"9", 8},
                                   Row{"1e300", 0}, Row{"\"3\"", 0}, Row{"null", 0}}) {
                QByteArray body = subject.valid;
                const QByteArray key = "\"" + QByteArray(subject.numberKey) + "\":";
                body.replace(key + "1", key + row.number);
                open(subject, false);
                support::receive(subject.id, body);
                const bool isBeyond = QByteArray(row.number) == "10";
                QVERIFY2(selector->currentIndex()
                             == (isBeyond && subject.takesAnyRow ? -1 : row.row),
                         row.number);
                QCOMPARE(attack(subject, body), QString());
            }
            QCOMPARE(worksOn(subject), QString());
        }
    }

    /// Thousands of replies that went wrong on the way; the seed is fixed.
    void mutations()
    {
        std::mt19937 random(20240917);
        const auto below = [&random](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        for (const Subject &subject : subjects()) {
            for (int round = 0; round < kMutations; ++round) {
                QByteArray body = subject.valid;
                for (int changes = 1 + below(4); changes > 0 && !body.isEmpty(); --changes) {
                    const int place = below(static_cast<int>(body.size()));
                    switch (below(7)) {
                    case 0:
                        body[place] = static_cast<char>(below(256));
                        break;
                    case 1:
                        body[place] = static_cast<char>(body.at(place) ^ (1 << below(8)));
                        break;
                    case 2:
                        body.remove(place, 1 + below(12));
                        break;
                    case 3:
                        body.insert(place, "{}[]\",:0-e.\\"[below(12)]);
                        break;
                    case 4:
                        body.insert(place,
                                    body.mid(below(static_cast<int>(body.size())), 1 + below(30)));
                        break;
                    case 5: // another digit: most of these are replies that can be read
                        for (int i = place; i < body.size(); ++i) {
                            if (body.at(i) >= '0' && body.at(i) <= '9') {
                                body[i] = "0123456789"[below(10)];
                                break;
                            }
                        }
                        break;
                    default:
                        body.truncate(place);
                    }
                }
                open(subject, round % 2 == 1);
                const State before = stateOf(subject);
                support::receive(subject.id, body);
                const QString wrong = complaint(subject, before);
                QVERIFY2(wrong.isEmpty(),
                         qPrintable(wrong + QLatin1String(" after ")
                                    + QString::fromLatin1(body.toPercentEncoding())));
            }
            QCOMPARE(worksOn(subject), QString());
        }
    }

    /// Replies of other pages' ids and of no id at all reach no slot and harm nothing.
    void otherIds()
    {
        for (const Subject &subject : subjects()) {
            open(subject, true);
            const State before = stateOf(subject);
            for (int id = 0; id <= 0xffff; ++id) {
                if (id != subject.id)
                    Robot::getInstance()->receiveMessage(static_cast<unsigned short>(id),
                                                         "{\"x\":1}");
            }
            QCOMPARE(complaint(subject, before), QString());
            QCOMPARE(stateOf(subject).texts, before.texts);
        }
    }
};

QTEST_MAIN(TestHostile)
#include "test_hostile.moc"
