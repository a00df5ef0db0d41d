#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVector>
#include <memory>

struct JobFault;

/// The link to the robot controller: messages out, replies in as signals, and the state that the
/// controller reports. One object, on the GUI thread.
class Robot : public QObject {
    Q_OBJECT
public:
    /// What the link is doing, for the lamp of the key column.
    enum class Link { Off, Connecting, Connected, Lost };
    Q_ENUM(Link)

    static Robot *getInstance();

    /// Hands a message to the controller and returns at once. Without a connection the message is
    /// refused, counted and journalled; nothing is kept for later.
    void sendCommandData(const unsigned short &id, const QByteArray &body);

    int get_servo_state() const; ///< 3: the drives are powered; 0: unknown or off
    int get_deadman_state() const; ///< 1: the enabling switch is held
    int get_teach_mode() const; ///< 0: teach mode; 1: automatic; 2: remote

    /// The safety switch of the key column: 0 takes back the enabling switch, so that the robot
    /// stands still while a question is on screen. It counts again once it is pressed anew.
    void robot_key_slot_saftySwitchProcess(int value);

    /// 1 to 12; sorts robots into families by their axes. Reported by the controller.
    int kinematicType = 1;

    // ---- transport ----------------------------------------------------------------------------
    /// The link's times, in milliseconds.
    struct LinkTimes {
        int heartbeat = 1000; ///< after so long without another message a heartbeat is sent
        int silence = 3500; ///< a controller that says nothing for so long is lost
        int greeting = 3000; ///< for connecting and greeting together
        QVector<int> pauses = {250, 500, 1000, 2000,
                               5000}; ///< before each attempt; the last repeats
        int renewal = 100; ///< a held enabling switch is said again after so long
        int warning = 10000; ///< between two link warnings on screen within one outage
    };
    /// Takes effect with the next attempt to connect. `pauses` must not be empty.
    void setLinkTimes(const LinkTimes &times);

    /// Connects, and goes on reconnecting with growing pauses until disconnectFromController().
    void connectToController(const QString &host, quint16 port);
    void disconnectFromController();
    Link link() const;
    bool isConnected() const { return link() == Link::Connected; }
    /// The controller's greeting says that it is simulated.
    bool isSimulated() const;
    /// Messages refused because no controller was connected.
    quint64 refusedCount() const;

    // ---- keys of the pendant, answered by the next status message -----------------------------
    // They are no messages of a page: they go out beside sendCommandData, and the journal has them
    // as "key". Without a connection they are refused like a message.
    void requestServo(bool on);
    /// Held, it is said again until it is let go, by the timer of this thread: who hangs lets go.
    void setDeadman(bool held);
    /// 0: teach; 1: automatic; 2: remote. Another number does nothing.
    void setTeachMode(int mode);
    /// A simulated controller makes the current robot one of another kinematic type, 1 to 12; a
    /// real one takes no such key, and none is sent to it. Another number does nothing.
    void setKinematicType(int type);
    /// A simulated controller whose parameter store is damaged puts its last good copy back, or
    /// begins empty what cannot be read when it has none. No other controller takes such a key.
    void restoreParameters(bool fromCopy);
    /// Moves the current robot by hand for as long as this is said again and again, a few times a
    /// second: axis 1 to 7 forwards (+1) or backwards (-1), of the arm itself (coordinate 0) or of
    /// its Cartesian position (1). Axis 0 stops it. Other numbers do nothing.
    void jog(int axis, int direction, int coordinate);
    /// Tells the controller which robot is worked with; MoreRobot::setCurrentRobot() calls it.
    /// Until that robot's status comes, servo and deadman read as 0.
    void selectRobot(int robot);

    /// Hands a stored job to the controller, which answers with jobChecked(). Empty when it is on
    /// its way; else why not.
    QString sendJob(int robot, const QString &name, const QByteArray &text);

public slots:
    /// The one entry of whatever arrives: decodes by id and emits the signal of that reply. An
    /// unknown id or an unreadable typed reply is journalled ("reading") and dropped.
    void receiveMessage(unsigned short id, const QByteArray &body);

signals:
    /// For each sendCommandData, connected or not.
    void commandSent(unsigned short id, const QByteArray &body);
    void linkChanged(Robot::Link link);
    /// Servo, deadman, mode, kinematic type or the reported ports changed.
    void statusChanged();
    /// The controller says something to the operator, for instance why an arm does not move; the
    /// text is on screen already.
    void controllerSaid(const QString &text);
    /// The controller's parameter store is damaged; `copy` is the day of its last good copy,
    /// "2026-11-21", or empty. Said again and again for as long as something asks for it.
    void storeDamaged(const QString &copy);
    /// ... and was put right.
    void storeRestored();
    /// The controller has checked a job that was handed to it; no fault: it takes it.
    void jobChecked(int robot, const QString &name, const JobFault &fault);
    /// The controller's IO ports, after each greeting.
    void portsReported(const QStringList &digitalOut, const QStringList &digitalIn,
                       const QStringList &analogOut);

    // ---- replies ------------------------------------------------------------------------------
    void robot_Polish_Para(const QByteArray &);
    void robot_Spray_Analog(const QByteArray);
    void robot_Spray_Digital(const QByteArray);
    void robot_Spray_Sequence(const QByteArray);
    void robot_Spray_TrackPara(const QByteArray);
    void robot_Spray_HandOperatOne(const QByteArray);
    void robot_Spray_HandOperatTwo(const QByteArray);
    void robot_Spray_HandOperatThree(const QByteArray);
    void robot_pallet_ToolParameter(const QByteArray &);
    void robot_pallet_TrayParameter(const QByteArray &);
    void robot_pallet_PositionParameter(const QByteArray &);
    void robot_pallet_WorkpieceParameter(const QByteArray &);
    void robot_pallet_ApproachParameter(const QByteArray &);
    void robot_pallet_OverlappingModel(const QByteArray &);
    void robot_pallet_PlaneModel(const QByteArray &);
    void robot_pallet_ChangeModel(const QByteArray &);
    void robot_pallet_PlanePreview(const QByteArray &);
    void robot_receivePalletData(const QByteArray &);
    void robot_pallet_LocATPara(const QByteArray &);
    void robot_piece_LocAT(const QByteArray &);
    void robot_palleteasy_PositionParameter(const QByteArray &);
    void robot_palleteasy_ToolParameter(const QByteArray &);
    void robot_switchpalletmode(const QByteArray &);
    void robot_tool_count_check(const int, const QByteArray, const QByteArray);
    void robot_usercoords_reply(const int, const QString, const QVector<double>);
    void robot_user_suc(const int);
    void receive_moreRobot_CurPosition(const QByteArray, const QByteArray);
    void robot_change_ShotParameter(const QByteArray &);
    void robot_recLaserTechParam(const QByteArray &);
    void robot_recCutTechParam(const QByteArray &);
    void robot_recLaserChangerIoSet(const QByteArray &);
    void robot_recLaserChangerAnalog(const QByteArray &);
    void robot_recLaserChangerAnalogSet(const QByteArray &);
    void robot_change_CurrentState(const QByteArray &);
    void robot_trackConBasic_para(QByteArray);
    void robot_trackConTool_para(QByteArray);
    void robot_trackConCalibration_para(const QByteArray);
    void robot_trackConCaliSensorPoint_para(const QByteArray);
    void robot_trackConCaliSensorPos_para(const QByteArray);
    void robot_trackConSensorPos_para(const QByteArray);
    void robot_trackConPosr_para(const QByteArray);
    void robot_calibrationPos_para(const QByteArray);
    void robot_trackSpeed_para(const QByteArray);
    void robot_get_oneglobalVariant(const QByteArray);
    void robot_rec_globalPosition(QByteArray);
    void robot_BWB_command(int, int);
    void sPBtnState(int, int, int);

private:
    explicit Robot(QObject *parent = nullptr);
    ~Robot() override;

    struct Private;
    std::unique_ptr<Private> d;
};
