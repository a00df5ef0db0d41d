#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>
#include <array>

/// What the coordinates of a robot are called and how many it has, by its kinematic type, which is
/// read from Robot at the moment of use.

/// A position as texts: x, y, z, a, b, c, d, or the seven joints. Millimetres; the angles in the
/// unit that App::isDeg chooses.
using PositionTexts = std::array<QString, 7>;

namespace axes {

constexpr int kMost = 7;

enum class Family { None, OneAxis, ThreeAxis, FourAxis, FiveAxis, SixAxis, SevenAxis };

/// What a kinematic type has.
struct Model {
    int kinematicType;
    Family family;
    int axes; ///< 1 to 7
    int shown; ///< how many values of a taught position are shown, 0 to 7
    bool fourthIsC; ///< the fourth value that is shown is c, not a

    /// The index in the position of the value that is shown at `place`, 0 to shown - 1.
    constexpr int valueAt(int place) const { return fourthIsC && place == 3 ? 5 : place; }
};

constexpr Model kModels[] = {
    {1, Family::SixAxis, 6, 6, false},    {2, Family::FourAxis, 4, 4, true},
    {3, Family::FourAxis, 4, 4, true},    {4, Family::FourAxis, 4, 4, true},
    {5, Family::OneAxis, 1, 0, false},    {6, Family::FiveAxis, 5, 5, false},
    {7, Family::SixAxis, 6, 6, false},    {8, Family::FourAxis, 4, 2, false},
    {9, Family::ThreeAxis, 3, 3, false},  {10, Family::ThreeAxis, 3, 3, false},
    {11, Family::ThreeAxis, 3, 3, false}, {12, Family::SevenAxis, 7, 7, false},
};

/// The model of a kinematic type; a type that is in no family has no axes.
constexpr Model modelOf(int kinematicType)
{
    for (const Model &model : kModels) {
        if (model.kinematicType == kinematicType)
            return model;
    }
    return {kinematicType, Family::None, 0, 0, false};
}

/// The kinds of coordinate, by their numbers in the messages.
enum Coordinate : unsigned char { Joint = 0, Cartesian = 1, Tool = 2, User = 3 };

/// The names of the axes of a family in a kind of coordinate: J1, J2, ...; X, Y, ...; TX, ...;
/// UX, .... Empty for a kind above 3, for no family, and for one axis in any kind but Joint.
QStringList names(Family family, unsigned char coordinate);

/// The number that a text of a position stands for. A text that is no finite number counts as 0.
double numberOf(const QString &text);

/// What the first two of the fourteen values of a point to run to say of its coordinates.
struct PointHead {
    const char *firstAxis; ///< name of the first axis in this kind of coordinate
    int coordinate;
    int flag;
};

constexpr PointHead kPointHeads[] = {{"J1", 0, 0}, {"X", 1, 1}, {"TX", 2, 1}, {"UX", 3, 1}};

} // namespace axes

// The names of the axes for the rest of the application, seven in each list; "X" fills the places
// past the axes. What the pages show is given by axes::names().
extern const QStringList SEVENJointCoordName;
extern const QStringList SEVENAngleCoordName;
extern const QStringList SEVENToolCoordName;
extern const QStringList SEVENUserCoordName;
extern const QStringList SIXJointCoordName;
extern const QStringList SIXAngleCoordName;
extern const QStringList SIXToolCoordName;
extern const QStringList SIXUserCoordName;
extern const QStringList THREEJointCoordName;
extern const QStringList THREEAngleCoordName;
extern const QStringList THREEToolCoordName;
extern const QStringList THREEUserCoordName;
extern const QStringList FOURJointCoordName;
extern const QStringList FOURAngleCoordName;
extern const QStringList FOURUserCoordName;
extern const QStringList ONEJointCoordName;
extern const QStringList FIVEJointCoordName;
extern const QStringList FIVEAngleCoordName;
extern const QStringList FIVEToolCoordName;
extern const QStringList FIVEUserCoordName;

/// When this program was compiled.
extern const QDate buildDate;
extern const QTime buildTime;
