// What others rely on by name: slots, signals, validators, message ids, pages, buttons. The lists
// are written out here, so that a change of the code shows up as a difference.

#include "../support.h"

#include "link/messages.h"
#include "pagetitles.h"
#include "shell/pagetable.h"
#include "shell/technologyform.h"
#include "shell/technologywidget.h"

#include <QMetaMethod>
#include <QToolButton>
#include <iterator>
#include <set>

namespace {

constexpr unsigned short kMessages[] = {
    0x2f07, 0x3003, 0x3806, 0x3c01, 0x3c02, 0x3c08, 0x3c0a, 0x4201, 0x4202, 0x4204, 0x4205, 0x4207,
    0x4208, 0x420a, 0x420b, 0x420d, 0x420e, 0x4210, 0x4211, 0x4213, 0x4214, 0x4216, 0x4218, 0x421d,
    0x421e, 0x421f, 0x4221, 0x4222, 0x4224, 0x4225, 0x4227, 0x4228, 0x4232, 0x4242, 0x4244, 0x4245,
    0x4247, 0x424a, 0x424d, 0x4401, 0x4402, 0x4404, 0x4405, 0x4407, 0x4408, 0x440a, 0x440b, 0x440e,
    0x4410, 0x4411, 0x4412, 0x4417, 0x4601, 0x4602, 0x4701, 0x4702, 0x4704, 0x4705, 0x4707, 0x4708,
    0x470a, 0x470b, 0x4711, 0x4712, 0x4714, 0x4715, 0x4717, 0x4718, 0x4801, 0x4802, 0x4804, 0x4805,
    0x4807, 0x4810, 0x4811, 0x4812, 0x4814, 0x4815, 0x4816, 0x4818, 0x481a, 0x481c, 0x481e, 0x4820,
    0x4821, 0x4822, 0x4830, 0x4831, 0x4833, 0x4835, 0x4836, 0x4837, 0x5604, 0x5605, 0x5607, 0x560b,
};

constexpr const char *kReplySignals[] = {
    "robot_Polish_Para(QByteArray)",
    "robot_Spray_Analog(QByteArray)",
    "robot_Spray_Digital(QByteArray)",
    "robot_Spray_Sequence(QByteArray)",
    "robot_Spray_TrackPara(QByteArray)",
    "robot_Spray_HandOperatOne(QByteArray)",
    "robot_Spray_HandOperatTwo(QByteArray)",
    "robot_Spray_HandOperatThree(QByteArray)",
    "robot_pallet_ToolParameter(QByteArray)",
    "robot_pallet_TrayParameter(QByteArray)",
    "robot_pallet_PositionParameter(QByteArray)",
    "robot_pallet_WorkpieceParameter(QByteArray)",
    "robot_pallet_ApproachParameter(QByteArray)",
    "robot_pallet_OverlappingModel(QByteArray)",
    "robot_pallet_PlaneModel(QByteArray)",
    "robot_pallet_ChangeModel(QByteArray)",
    "robot_pallet_PlanePreview(QByteArray)",
    "robot_receivePalletData(QByteArray)",
    "robot_pallet_LocATPara(QByteArray)",
    "robot_piece_LocAT(QByteArray)",
    "robot_palleteasy_PositionParameter(QByteArray)",
    "robot_palleteasy_ToolParameter(QByteArray)",
    "robot_switchpalletmode(QByteArray)",
    "robot_tool_count_check(int,QByteArray,QByteArray)",
    "robot_usercoords_reply(int,QString,QVector<double>)",
    "robot_user_suc(int)",
    "receive_moreRobot_CurPosition(QByteArray,QByteArray)",
    "robot_change_ShotParameter(QByteArray)",
    "robot_recLaserTechParam(QByteArray)",
    "robot_recCutTechParam(QByteArray)",
    "robot_recLaserChangerIoSet(QByteArray)",
    "robot_recLaserChangerAnalog(QByteArray)",
    "robot_recLaserChangerAnalogSet(QByteArray)",
    "robot_change_CurrentState(QByteArray)",
    "robot_trackConBasic_para(QByteArray)",
    "robot_trackConTool_para(QByteArray)",
    "robot_trackConCalibration_para(QByteArray)",
    "robot_trackConCaliSensorPoint_para(QByteArray)",
    "robot_trackConCaliSensorPos_para(QByteArray)",
    "robot_trackConSensorPos_para(QByteArray)",
    "robot_trackConPosr_para(QByteArray)",
    "robot_calibrationPos_para(QByteArray)",
    "robot_trackSpeed_para(QByteArray)",
    "robot_get_oneglobalVariant(QByteArray)",
    "robot_rec_globalPosition(QByteArray)",
    "robot_BWB_command(int,int)",
    "sPBtnState(int,int,int)",
};

constexpr const char *kSlots[] = {
    "buttonClick()",
    "showWeldingPage()",
    "showVisionpage()",
    "return_mainPage()",
    "return_PalletPage()",
    "LaserMainPage()",
    "ShowBWBJobList()",
    "showPolish()",
    "modifypolish()",
    "updatePolishParam(QByteArray)",
    "return_polishwiget()",
    "return_spraywiget()",
    "showPalletTypeWidget()",
    "showPalletCompleteWidget()",
    "showPalletEasyWidget()",
    "SureCompletePalletMode()",
    "SureEasyPalletMode()",
    "CancelCompletePalletMode()",
    "CancelEasyPalletMode()",
    "needchangePalletTechnologyNum()",
    "changeTechnologyNumber()",
    "changePalletEasyTechnologyNum()",
    "updateSwitchPalletMode(QByteArray)",
    "palletcomplete()",
    "palletSetTongsWidget()",
    "palletSetTongsWidget2()",
    "updatePalletToolParameter(QByteArray)",
    "keep_count_data_pallet(int,QByteArray,QByteArray)",
    "modifyTongs()",
    "palletSetTrayWidget()",
    "palletSetTrayWidget2()",
    "updatePalletTrayParameter(QByteArray)",
    "keep_userReply_pallet(int,QString,QVector<double>)",
    "trayOriginPressed()",
    "trayXdirectionPressed()",
    "trayYdirectionPressed()",
    "send_calData_pallet()",
    "received_user_successed_pallet(int)",
    "modifyTray()",
    "palletGetUserCoords()",
    "palletSetPositionWidget()",
    "getCurposition()",
    "getCurposition2()",
    "getCurposition3()",
    "recvCurposition(QByteArray,QByteArray)",
    "palletEntrancePosition()",
    "palletAuxiliaryPosition()",
    "palletJobPosition()",
    "updatePalletPositionParameter(QByteArray)",
    "modifyPosition()",
    "doMoveToEntrancePoint()",
    "doMoveToAuxiliaryPoint()",
    "doMoveToJobPoint()",
    "runToPoint(QStringList)",
    "runToJointPoint(QStringList)",
    "palletWorkpieceParaWidget()",
    "getPalletWorkpieceParameter()",
    "updatePalletWorkpieceParameter(QByteArray)",
    "modifyWorkpiece()",
    "palletApproachParaWidget()",
    "updatePalletApproachParameter(QByteArray)",
    "modifyApproach()",
    "approachWays()",
    "changeApproachOnOffBtnState()",
    "palletOverlappingModelWidget()",
    "overlapModeTab(int)",
    "on_levelsnum_editingFinished()",
    "updatePalletOverlappingModel(QByteArray)",
    "modifyOverlapping()",
    "repeatModel()",
    "repeatModeComboBoxShow(int)",
    "repeatModeEditShow()",
    "on_repeatModeComboBox_activated(int)",
    "on_repeatBtn_clicked()",
    "itemChanged(QTableWidgetItem*)",
    "overlapExplain1()",
    "overlapExplain2()",
    "overlapExplain3()",
    "overlapExplain4()",
    "overlapExplain5()",
    "overlapExplain6()",
    "changeFixedPointHeightBtnState()",
    "changeVerticalAlignmentBtnState()",
    "changeLevelsAutoAlignmentBtnState()",
    "changePoseAutorotationBtnState()",
    "palletPlaneModelWidget()",
    "changePlanePicturesNum()",
    "planeTemplateSelectionWidget()",
    "updatePalletPlaneModel(QByteArray)",
    "updatePalletChangeModel(QByteArray)",
    "ranksWholeRotate()",
    "crisscrossWholeRotate()",
    "huiTypeWholeRotate()",
    "modifyPlane()",
    "ranksToCustom()",
    "on_planeModifyBtn_clicked()",
    "palletCreatedFileWidget1()",
    "palletCreatedFileWidget2()",
    "palletCreatedFileWidget3()",
    "palletCreatedFileWidget4()",
    "palletCreatedFileWidget5()",
    "returnCreateFile()",
    "sureResetWizardData()",
    "sureResetWizardData2()",
    "exitCreateFile()",
    "exitPalletFile()",
    "cancelExitPalletFile()",
    "initializeCreateFile()",
    "wizardInfoGetPoint()",
    "wizardInfoGetUpperPoint()",
    "wizardInfoGetSafePoint()",
    "doMoveToGetPoint()",
    "doMoveToGetUpperPoint()",
    "doMoveToGetSafePoint()",
    "saveWizardPutGetGoodsParam(bool,int)",
    "saveWizardPumpParam(bool,int)",
    "saveWizardSuccessParam(bool,int)",
    "slotPALLETtotalGetVariant(QString)",
    "slotPALLETlayerGetVariant(QString)",
    "slotPALLETstackGetVariant(QString)",
    "slotPALLETpaloffVariant(QString)",
    "changexyPathOptBtnState()",
    "changezPathOptBtnState()",
    "on_createdFileFinishBtn_clicked()",
    "createJobFile()",
    "createJobFile2()",
    "insertPalCmd(int,int,int,QString)",
    "insertMoveCmd(int,int,int,int,QString)",
    "insertWhileCmd(int,int&,int,int)",
    "insertWaitCmd(int,int,int)",
    "insertDoutCmd(int,int,int)",
    "insertTimerCmd(QString,int)",
    "insertBoolCmd(int)",
    "insertIntCmd(int,int)",
};

constexpr const char *kSignals[] = {
    "tnw_WidgetTitle(int,int,int)",
    "showPalletCurrentUserCoords()",
    "showJobFile(windType)",
    "sig_show_click_btn(QString)",
};

constexpr int kTitles[59] = {
    0,  1,  -1, -1, -1, -1, 22, 23, 55, 56, 57, 59, -1, -1, -1, 5,  24, -1, 25, -1,
    26, 27, 28, 6,  7,  8,  9,  10, 11, 12, 13, -1, 15, 16, -1, -1, -1, -1, -1, -1,
    18, 19, 20, -1, 21, -1, -1, 47, 48, 49, 50, 51, 52, 53, 54, 58, -1, 60, 61,
};

bool isSlot(const QMetaObject &object, const char *signature)
{
    const int index = object.indexOfSlot(QMetaObject::normalizedSignature(signature).constData());
    return index >= 0 && object.method(index).access() == QMetaMethod::Public;
}

bool isSignal(const QMetaObject &object, const char *signature)
{
    return object.indexOfSignal(QMetaObject::normalizedSignature(signature).constData()) >= 0;
}

// The calls that the surrounding application and the packages make, with their exact types.
using Widget = TechnologyWidget;
static_assert(std::is_base_of_v<QStackedWidget, Widget>);
static_assert(!std::is_base_of_v<Ui_TechnologyWidget, Widget>);
static_assert(std::is_same_v<decltype(&Widget::getInstance), Widget *(*)()>);
static_assert(std::is_constructible_v<Widget, QWidget *>);
static_assert(std::is_same_v<decltype(&Widget::hideWgt), void (Widget::*)()>);
static_assert(
    std::is_same_v<decltype(&Widget::resizeTable), void (Widget::*)(QTableWidget *, int)>);
static_assert(std::is_same_v<decltype(&Widget::getCurrentCoordsUser), QString (Widget::*)()>);
static_assert(std::is_same_v<decltype(&Widget::setLabelcoord), void (Widget::*)(unsigned char)>);
static_assert(std::is_same_v<decltype(&Widget::initPalletRobotType), void (Widget::*)()>);
static_assert(std::is_same_v<decltype(&Widget::reflashTechnologyIOPortList), void (Widget::*)()>);
static_assert(std::is_same_v<decltype(&Widget::isStrMatchReg), bool (Widget::*)(QString, QString)>);

using Validator = bool (Widget::*)(QString);
constexpr Validator kValidators[] = {
    &Widget::isValidSizeParam, &Widget::isPalletpara,       &Widget::isPalletpara1,
    &Widget::isPalletpara2,    &Widget::isPalletpara3,      &Widget::isPalletpara4,
    &Widget::isValidint,       &Widget::isValiddouble,      &Widget::isValidLocation,
    &Widget::isValidper,       &Widget::isFlowOutEdtValiid, &Widget::isValidpointtime,
    &Widget::isValidx,
};
static_assert(std::size(kValidators) == 13);

static_assert(std::is_same_v<decltype(&Ui_TechnologyWidget::setupUi),
                             void (Ui_TechnologyWidget::*)(QStackedWidget *)>);
static_assert(std::is_same_v<decltype(&Ui_TechnologyWidget::retranslateUi),
                             void (Ui_TechnologyWidget::*)(QStackedWidget *)>);

static_assert(std::is_same_v<decltype(&Robot::getInstance), Robot *(*)()>);
static_assert(std::is_same_v<decltype(&Robot::sendCommandData),
                             void (Robot::*)(const unsigned short &, const QByteArray &)>);
static_assert(std::is_same_v<decltype(&Robot::get_servo_state), int (Robot::*)() const>);
static_assert(std::is_same_v<decltype(&Robot::get_deadman_state), int (Robot::*)() const>);
static_assert(std::is_same_v<decltype(&Robot::get_teach_mode), int (Robot::*)() const>);
static_assert(
    std::is_same_v<decltype(&Robot::robot_key_slot_saftySwitchProcess), void (Robot::*)(int)>);

} // namespace

class TestContract : public QObject {
    Q_OBJECT
private slots:
    void technologySlots()
    {
        for (const char *signature : kSlots)
            QVERIFY2(isSlot(TechnologyWidget::staticMetaObject, signature), signature);
    }

    /// Whoever adds a slot adds it to the list, so that taking one away shows up later.
    void everySlotIsListed()
    {
        std::set<QByteArray> listed;
        for (const char *signature : kSlots)
            QVERIFY2(listed.insert(QMetaObject::normalizedSignature(signature)).second, signature);
        const QMetaObject &object = TechnologyWidget::staticMetaObject;
        std::size_t found = 0;
        for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
            const QMetaMethod method = object.method(i);
            if (method.methodType() != QMetaMethod::Slot || method.access() != QMetaMethod::Public)
                continue;
            ++found;
            QVERIFY2(listed.count(method.methodSignature()) == 1,
                     method.methodSignature().constData());
        }
        QCOMPARE(found, listed.size());
    }

    void technologySignals()
    {
        for (const char *signature : kSignals)
            QVERIFY2(isSignal(TechnologyWidget::staticMetaObject, signature), signature);
    }

    void base()
    {
        QCOMPARE(TechnologyWidget::staticMetaObject.superClass(),
                 &QStackedWidget::staticMetaObject);
        QCOMPARE(QByteArray(TechnologyWidget::staticMetaObject.className()),
                 QByteArray("TechnologyWidget"));
    }

    void messages()
    {
        QCOMPARE(static_cast<int>(std::size(kMessages)), 96);
        QCOMPARE(message::kCount, 96);
        std::set<QByteArray> names;
        for (int i = 0; i < 96; ++i) {
            QCOMPARE(message::kAll[i].id, kMessages[i]);
            QVERIFY(message::kAll[i].name);
            QCOMPARE(message::name(kMessages[i]), message::kAll[i].name);
            names.insert(message::kAll[i].name);
        }
        QCOMPARE(static_cast<int>(names.size()), 96);
    }

    void noOtherMessage()
    {
        const std::set<unsigned short> known(std::begin(kMessages), std::end(kMessages));
        for (int id = 0; id <= 0xffff; ++id) {
            const auto number = static_cast<unsigned short>(id);
            QCOMPARE(message::name(number) != nullptr, known.count(number) == 1);
        }
    }

    void namedMessages()
    {
        QCOMPARE(static_cast<int>(message::SetPolish), 0x4601);
        QCOMPARE(static_cast<int>(message::GetPolish), 0x4602);
        QCOMPARE(static_cast<int>(message::GetLaserIo), 0x4402);
        QCOMPARE(static_cast<int>(message::GetLaserBore), 0x4405);
        QCOMPARE(static_cast<int>(message::GetLaserAnalog), 0x4408);
        QCOMPARE(static_cast<int>(message::GetLaserManual), 0x4412);
        QCOMPARE(static_cast<int>(message::GetLaserState), 0x440e);
    }

    /// A reply's id never is that of a request.
    void replyIds()
    {
        const std::set<unsigned short> requests(std::begin(kMessages), std::end(kMessages));
        std::set<unsigned short> seen;
        for (const wire::ReplyName &reply : wire::kReplies) {
            QVERIFY2(requests.count(reply.id) == 0, reply.signal);
            QVERIFY2(seen.insert(reply.id).second, reply.signal);
        }
        QCOMPARE(static_cast<int>(seen.size()), 47);
    }

    void replySignals()
    {
        QCOMPARE(static_cast<int>(std::size(kReplySignals)), 47);
        std::set<QByteArray> named;
        for (const wire::ReplyName &reply : wire::kReplies)
            named.insert(reply.signal);
        for (const char *signature : kReplySignals) {
            QVERIFY2(isSignal(Robot::staticMetaObject, signature), signature);
            const QByteArray full(signature);
            QVERIFY2(named.count(full.left(full.indexOf('('))) == 1, signature);
        }
    }

    void pageTable()
    {
        QCOMPARE(static_cast<int>(std::size(page::kTable)), 59);
        const TechnologyWidget *pages = TechnologyWidget::getInstance();
        QCOMPARE(pages->count(), 59);
        for (int i = 0; i < 59; ++i) {
            QCOMPARE(static_cast<int>(page::kTable[i].index), i);
            QCOMPARE(page::kTable[i].title, kTitles[i]);
            QCOMPARE(pages->widget(i)->objectName(),
                     QString::fromLatin1(page::kTable[i].objectName));
        }
        QCOMPARE(page::kTitleGroup, 8);
        QCOMPARE(page::kHostedTitleGroup, 1);
    }

    /// The main window knows a title for each id that the pages tell it, no two alike.
    void titles()
    {
        QStringList seen;
        const auto check = [&seen](int group, int title) {
            const QString text = pageTitle(group, title);
            const bool good = hasPageTitle(group, title) && !text.isEmpty() && !seen.contains(text);
            seen += text;
            return good;
        };
        for (int title : kTitles) {
            if (title >= 0)
                QVERIFY2(check(8, title), qPrintable(QString::number(title)));
        }
        QVERIFY(check(8, 62));
        QVERIFY(check(1, 29));
        QVERIFY(check(1, 31));
        QVERIFY(!hasPageTitle(8, 63));
        QVERIFY(!hasPageTitle(2, 0));
        QCOMPARE(pageTitle(2, 0), pageTitle(8, 0));
    }

    void menuButtons_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"BtnPalletTech", "BtnWeldSetting", "BtnVisionSetting",
                                 "BtnLaserSetting", "BtnBWBTech", "BtnTrackConveyor", "BtnPolish",
                                 "BtnScrew", "BtnSpray", "UserTechBtns"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void menuButtons()
    {
        QFETCH(QString, name);
        const TechnologyWidget *pages = TechnologyWidget::getInstance();
        const auto *menu = support::child<QWidget>(pages, "techBackwidget");
        QVERIFY(pages->widget(0)->isAncestorOf(menu));
        const auto *button = menu->findChild<QToolButton *>(name);
        QVERIFY(button);
        QVERIFY(!button->text().isEmpty());
        QVERIFY(!button->icon().isNull());
        QVERIFY(button->width() >= 40 && button->height() >= 40);
    }

    void packageButtons()
    {
        const TechnologyWidget *pages = TechnologyWidget::getInstance();
        const auto *spray = support::child<QWidget>(pages, "sprayBackwidget");
        for (const char *name : {"BtnAnalogSetting", "BtnDigitalSetting", "BtnSequence",
                                 "BtnHandOperating", "BtnTrackPara"})
            QVERIFY2(spray->findChild<QToolButton *>(QString::fromLatin1(name)), name);
    }

    /// Every visible text of the form is set: no button without a word.
    void noButtonIsMute()
    {
        const auto buttons = TechnologyWidget::getInstance()->findChildren<QAbstractButton *>();
        for (const QAbstractButton *button : buttons) {
            if (button->objectName().isEmpty()
                || button->objectName().startsWith(QLatin1String("Scroll"))
                || button->objectName().startsWith(QLatin1String("qt_")))
                continue;
            QVERIFY2(!button->text().isEmpty(), qPrintable(button->objectName()));
        }
    }
};

QTEST_MAIN(TestContract)
#include "test_contract.moc"
