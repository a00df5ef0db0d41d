// The tables of coordinates: name lists, models, numbers of a position, the day of the build.

#include "shell/coordinates.h"

#include <QtTest>

namespace {

struct NamedList {
    const char *name;
    const QStringList *list;
    const char *text;
};

#define LIST(name, text)                                                                           \
    {                                                                                              \
#name, &name, text                                                                         \
    }
const NamedList kLists[] = {
    LIST(SEVENJointCoordName, "J1,J2,J3,J4,J5,J6,J7"),
    LIST(SEVENAngleCoordName, "X,Y,Z,A,B,C,Ψ"),
    LIST(SEVENToolCoordName, "TX,TY,TZ,TA,TB,TC,TΨ"),
    LIST(SEVENUserCoordName, "UX,UY,UZ,UA,UB,UC,UΨ"),
    LIST(SIXJointCoordName, "J1,J2,J3,J4,J5,J6,X"),
    LIST(SIXAngleCoordName, "X,Y,Z,A,B,C,X"),
    LIST(SIXToolCoordName, "TX,TY,TZ,TA,TB,TC,X"),
    LIST(SIXUserCoordName, "UX,UY,UZ,UA,UB,UC,X"),
    LIST(THREEJointCoordName, "J1,J2,J3,X,X,X,X"),
    LIST(THREEAngleCoordName, "X,Y,Z,X,X,X,X"),
    LIST(THREEToolCoordName, "TX,TY,TZ,X,X,X,X"),
    LIST(THREEUserCoordName, "UX,UY,UZ,X,X,X,X"),
    LIST(FOURJointCoordName, "J1,J2,J3,J4,X,X,X"),
    LIST(FOURAngleCoordName, "X,Y,Z,U,X,X,X"),
    LIST(FOURUserCoordName, "UX,UY,UZ,UU,X,X,X"),
    LIST(ONEJointCoordName, "J1,X,X,X,X,X,X"),
    LIST(FIVEJointCoordName, "J1,J2,J3,J4,J5,X,X"),
    LIST(FIVEAngleCoordName, "X,Y,Z,A,B,C,X"),
    LIST(FIVEToolCoordName, "TX,TY,TZ,TA,TB,TC,X"),
    LIST(FIVEUserCoordName, "UX,UY,UZ,UA,UB,UC,X"),
};
#undef LIST

} // namespace

class TestCoordinates : public QObject {
    Q_OBJECT
private slots:
    void nameLists()
    {
        for (const NamedList &row : kLists) {
            QVERIFY2(row.list->size() == 7, row.name);
            QVERIFY2(row.list->join(QLatin1Char(',')) == QString::fromUtf8(row.text), row.name);
        }
    }

    void models()
    {
        struct Row {
            int type;
            axes::Family family;
            int axes;
            // indices of the values that are shown
            const char *trayPoint;
            const char *position;
            const char *joints;
        };
        using axes::Family;
        const Row rows[] = {
            {0, Family::None, 0, "012345", "", ""},
            {1, Family::SixAxis, 6, "012345", "012345", "012345"},
            {2, Family::FourAxis, 4, "0123", "0125", "0123"},
            {3, Family::FourAxis, 4, "0123", "0125", "0123"},
            {4, Family::FourAxis, 4, "0123", "0125", "0123"},
            {5, Family::OneAxis, 1, "012345", "", ""},
            {6, Family::FiveAxis, 5, "012345", "01234", "01234"},
            {7, Family::SixAxis, 6, "012345", "012345", "012345"},
            {8, Family::FourAxis, 4, "0123", "01", "01"},
            {9, Family::ThreeAxis, 3, "012", "012", "012"},
            {10, Family::ThreeAxis, 3, "012", "012", "012"},
            {11, Family::ThreeAxis, 3, "012", "012", "012"},
            {12, Family::SevenAxis, 7, "012345", "0123456", "0123456"},
            {13, Family::None, 0, "012345", "", ""},
            {-1, Family::None, 0, "012345", "", ""},
        };
        const auto indices = [](const axes::Values &values) {
            QString text;
            for (int place = 0; place < values.count(); ++place)
                text += QString::number(values.at(place));
            return text;
        };
        for (const Row &row : rows) {
            const axes::Model model = axes::modelOf(row.type);
            QCOMPARE(model.kinematicType, row.type);
            QVERIFY2(model.family == row.family, qPrintable(QString::number(row.type)));
            QCOMPARE(model.axes, row.axes);
            QCOMPARE(indices(model.trayPoint), QString::fromLatin1(row.trayPoint));
            QCOMPARE(indices(model.position), QString::fromLatin1(row.position));
            QCOMPARE(indices(model.joints), QString::fromLatin1(row.joints));
        }
    }

    void numbers()
    {
        QCOMPARE(axes::numberOf(QStringLiteral("-1.5e2")), -150.0);
        for (const char *text : {"", " ", "x", "1,5", "nan", "inf", "-inf", "1e999", "0x10"})
            QCOMPARE(axes::numberOf(QString::fromLatin1(text)), 0.0);
    }

    /// The day and the time of a build that is neither in the future nor before the project.
    void buildTimes()
    {
        QVERIFY(buildDate.isValid());
        QVERIFY(buildTime.isValid());
        QVERIFY(buildDate <= QDate::currentDate().addDays(1));
        QVERIFY(buildDate.year() >= 2024);
    }
};

QTEST_APPLESS_MAIN(TestCoordinates)
#include "test_coordinates.moc"
