#include "shell/coordinates.h"

#include <QLocale>
#include <cmath>

namespace {

QStringList listOf(const char *names)
{
    return QString::fromUtf8(names).split(QLatin1Char(','));
}

} // namespace

const QStringList SEVENJointCoordName = listOf("J1,J2,J3,J4,J5,J6,J7");
const QStringList SEVENAngleCoordName = listOf("X,Y,Z,A,B,C,Ψ");
const QStringList SEVENToolCoordName = listOf("TX,TY,TZ,TA,TB,TC,TΨ");
const QStringList SEVENUserCoordName = listOf("UX,UY,UZ,UA,UB,UC,UΨ");
const QStringList SIXJointCoordName = listOf("J1,J2,J3,J4,J5,J6,X");
const QStringList SIXAngleCoordName = listOf("X,Y,Z,A,B,C,X");
const QStringList SIXToolCoordName = listOf("TX,TY,TZ,TA,TB,TC,X");
const QStringList SIXUserCoordName = listOf("UX,UY,UZ,UA,UB,UC,X");
const QStringList THREEJointCoordName = listOf("J1,J2,J3,X,X,X,X");
const QStringList THREEAngleCoordName = listOf("X,Y,Z,X,X,X,X");
const QStringList THREEToolCoordName = listOf("TX,TY,TZ,X,X,X,X");
const QStringList THREEUserCoordName = listOf("UX,UY,UZ,X,X,X,X");
const QStringList FOURJointCoordName = listOf("J1,J2,J3,J4,X,X,X");
const QStringList FOURAngleCoordName = listOf("X,Y,Z,U,X,X,X");
const QStringList FOURUserCoordName = listOf("UX,UY,UZ,UU,X,X,X");
const QStringList ONEJointCoordName = listOf("J1,X,X,X,X,X,X");
const QStringList FIVEJointCoordName = listOf("J1,J2,J3,J4,J5,X,X");
const QStringList FIVEAngleCoordName = listOf("X,Y,Z,A,B,C,X");
const QStringList FIVEToolCoordName = listOf("TX,TY,TZ,TA,TB,TC,X");
const QStringList FIVEUserCoordName = listOf("UX,UY,UZ,UA,UB,UC,X");

// The compiler pads a day below 10 with a second blank.
const QDate buildDate =
    QLocale(QLocale::English)
        .toDate(QString::fromLatin1(__DATE__).replace(QLatin1String("  "), QLatin1String(" 0")),
                QStringLiteral("MMM dd yyyy"));
const QTime buildTime =
    QTime::fromString(QString::fromLatin1(__TIME__), QStringLiteral("hh:mm:ss"));

namespace axes {

namespace {

int countOf(Family family)
{
    for (const Model &model : kModels) {
        if (model.family == family)
            return model.axes;
    }
    return 0;
}

} // namespace

QStringList names(Family family, unsigned char coordinate)
{
    constexpr const char *kPrefixes[] = {"J", "", "T", "U"};
    if (coordinate > User || (family == Family::OneAxis && coordinate != Joint))
        return {};
    const QString prefix = QString::fromLatin1(kPrefixes[coordinate]);
    const QString letters =
        family == Family::FourAxis ? QStringLiteral("XYZU") : QStringLiteral("XYZABCΨ");
    QStringList list;
    for (int axis = 0; axis < countOf(family); ++axis)
        list +=
            prefix + (coordinate == Joint ? QString::number(axis + 1) : QString(letters.at(axis)));
    return list;
}

double numberOf(const QString &text)
{
    const double value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

} // namespace axes
