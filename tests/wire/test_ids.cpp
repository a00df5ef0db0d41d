// The contract of the link: which messages go out, which signals come in, and that no id is two.

#include "link/messages.h"
#include "robot.h"
#include "wire/ids.h"

#include <QMetaMethod>
#include <QSet>
#include <QtTest>
#include <iterator>

namespace {

// Independent of the list in link/messages.h: what controllers in the field understand.
constexpr unsigned short kOutgoing[] = {
    0x2f07, 0x3003, 0x3806, 0x3c01, 0x3c02, 0x3c08, 0x3c0a, 0x4201, 0x4202, 0x4204, 0x4205, 0x4207,
    0x4208, 0x420a, 0x420b, 0x420d, 0x420e, 0x4210, 0x4211, 0x4213, 0x4214, 0x4216, 0x4218, 0x421d,
    0x421e, 0x421f, 0x4221, 0x4222, 0x4224, 0x4225, 0x4227, 0x4228, 0x4232, 0x4242, 0x4244, 0x4245,
    0x4247, 0x424a, 0x424d, 0x4401, 0x4402, 0x4404, 0x4405, 0x4407, 0x4408, 0x440a, 0x440b, 0x440e,
    0x4410, 0x4411, 0x4412, 0x4417, 0x4601, 0x4602, 0x4701, 0x4702, 0x4704, 0x4705, 0x4707, 0x4708,
    0x470a, 0x470b, 0x4711, 0x4712, 0x4714, 0x4715, 0x4717, 0x4718, 0x4801, 0x4802, 0x4804, 0x4805,
    0x4807, 0x4810, 0x4811, 0x4812, 0x4814, 0x4815, 0x4816, 0x4818, 0x481a, 0x481c, 0x481e, 0x4820,
    0x4821, 0x4822, 0x4830, 0x4831, 0x4833, 0x4835, 0x4836, 0x4837, 0x5604, 0x5605, 0x5607, 0x560b,
};

// What the pages connect to, with the exact argument lists.
const char *const kSignals[] = {
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

constexpr bool collides(unsigned short id)
{
    for (const unsigned short outgoing : kOutgoing) {
        if (outgoing == id)
            return true;
    }
    return false;
}

constexpr bool repliesAreFree()
{
    for (const wire::ReplyName &reply : wire::kReplies) {
        if (collides(reply.id) || reply.id <= wire::JobChecked)
            return false;
    }
    return true;
}
static_assert(std::size(kOutgoing) == 96, "");
static_assert(std::size(wire::kReplies) == 47, "");
static_assert(repliesAreFree(), "a reply has the id of a request or of the link itself");

} // namespace

class TestIds : public QObject {
    Q_OBJECT
private slots:
    void outgoing()
    {
        QCOMPARE(message::kCount, 96);
        for (int i = 0; i < message::kCount; ++i)
            QCOMPARE(message::kAll[i].id, kOutgoing[i]);
    }

    void namesAreThereAndDiffer()
    {
        QSet<QByteArray> names;
        for (const message::Entry &entry : message::kAll) {
            QCOMPARE(message::name(entry.id), entry.name);
            names.insert(entry.name);
        }
        QCOMPARE(static_cast<int>(names.size()), message::kCount);
        QCOMPARE(QByteArray(message::name(message::SetPolish)), QByteArray("SetPolish"));
        QVERIFY(!message::name(0));
        QVERIFY(!message::name(wire::reply::robot_Polish_Para));
    }

    void familyOfPolishing()
    {
        QCOMPARE(int(message::SetPolish), 0x4601);
        QCOMPARE(int(message::GetPolish), 0x4602);
        QCOMPARE(int(wire::reply::robot_Polish_Para), 0x4603);
    }

    void everySignalIsDeclaredAndHasOneReply()
    {
        QCOMPARE(std::size(kSignals), size_t(47));
        QSet<QByteArray> replies;
        for (const wire::ReplyName &reply : wire::kReplies)
            replies.insert(reply.signal);
        QCOMPARE(static_cast<int>(replies.size()), 47);

        for (const char *signature : kSignals) {
            const QByteArray normal = QMetaObject::normalizedSignature(signature);
            QVERIFY2(Robot::staticMetaObject.indexOfSignal(normal.constData()) >= 0, signature);
            QVERIFY2(replies.contains(normal.left(normal.indexOf('('))), signature);
        }
    }
};

QTEST_GUILESS_MAIN(TestIds)
#include "test_ids.moc"
