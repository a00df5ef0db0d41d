#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>
#include <array>
#include <string_view>

/// What the coordinates of a robot are called and how many it has, by its kinematic type, which is
/// read from Robot at the moment of use.

/// A position as texts: x, y, z, a, b, c, d, or the seven joints. Millimetres; the angles in the
/// unit that App::isDeg chooses.
using PositionTexts = std::array<QString, 7>;

namespace axes {

constexpr int kMost = 7;

enum class Family { None, OneAxis, ThreeAxis, FourAxis, FiveAxis, SixAxis, SevenAxis };

/// Which values of a position a label row shows, in the order of the labels. Written as a text of
/// their letters x, y, z, a, b, c, d, or for joints of their numbers 1 to 7.
class Values {
public:
    constexpr Values(const char *letters) : m_letters(letters) { }

    constexpr int count() const { return static_cast<int>(m_letters.size()); }
    /// The index in the position of the value on the label at `place`, 0 to count() - 1.
    constexpr std::size_t at(int place) const
    {
        const char letter = m_letters[static_cast<std::size_t>(place)];
        return letter >= '1' && letter <= '7' ? static_cast<std::size_t>(letter - '1')
                                              : std::string_view("xyzabcd").find(letter);
    }

private:
    std::string_view m_letters;
};

/// What a kinematic type has, with a column for each use. The uses differ on purpose: a type 8 has
/// four values on the tray and two of a position; types 2 to 4 show c as the fourth value of a
/// position, and as the fourth joint the fourth.
struct Model {
    int kinematicType;
    Family family;
    int axes; ///< 1 to 7
    Values trayPoint; ///< a point of the tray
    Values position; ///< a taught position in Cartesian coordinates
    Values joints; ///< a point of the program wizard
};

// clang-format off
constexpr Model kModels[] = {
    { 1, Family::SixAxis,   6, "xyzabc", "xyzabc",  "123456"},
    { 2, Family::FourAxis,  4, "xyza",   "xyzc",    "1234"},
    { 3, Family::FourAxis,  4, "xyza",   "xyzc",    "1234"},
    { 4, Family::FourAxis,  4, "xyza",   "xyzc",    "1234"},
    { 5, Family::OneAxis,   1, "xyzabc", "",        ""},
    { 6, Family::FiveAxis,  5, "xyzabc", "xyzab",   "12345"},
    { 7, Family::SixAxis,   6, "xyzabc", "xyzabc",  "123456"},
    { 8, Family::FourAxis,  4, "xyza",   "xy",      "12"},
    { 9, Family::ThreeAxis, 3, "xyz",    "xyz",     "123"},
    {10, Family::ThreeAxis, 3, "xyz",    "xyz",     "123"},
    {11, Family::ThreeAxis, 3, "xyz",    "xyz",     "123"},
    {12, Family::SevenAxis, 7, "xyzabc", "xyzabcd", "1234567"},
};
// clang-format on

/// The model of a kinematic type; a type that is in no family has no axes.
constexpr Model modelOf(int kinematicType)
{
    for (const Model &model : kModels) {
        if (model.kinematicType == kinematicType)
            return model;
    }
    return {kinematicType, Family::None, 0, "xyzabc", "", ""};
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
