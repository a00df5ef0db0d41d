#include "app/options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

namespace {

constexpr int kTourSwitchLasts = 60000; // milliseconds

bool readAddress(const QString &address, Options *options)
{
    const int colon = address.lastIndexOf(QLatin1Char(':'));
    bool ok = false;
    const int port = address.mid(colon + 1).toInt(&ok);
    if (colon < 1 || !ok || port < 1 || port > 65535)
        return false;
    options->controllerHost = address.left(colon);
    options->controllerPort = static_cast<quint16>(port);
    return true;
}

} // namespace

std::optional<Options> readOptions(const QStringList &arguments, QString *error)
{
    const QCommandLineOption controller(
        QStringLiteral("controller"),
        QStringLiteral("Connect to the robot controller at this address instead of the embedded "
                       "simulated one."),
        QStringLiteral("HOST:PORT"));
    const QCommandLineOption kinematic(
        QStringLiteral("kinematic"),
        QStringLiteral("Kinematic type, 1 to 12, of a robot, 1 to 4, of the embedded controller; "
                       "by default 1. Repeatable."),
        QStringLiteral("ROBOT=TYPE"));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Keep configuration, accounts, logs, jobs and the "
                                                 "embedded controller's parameters here."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        QStringLiteral("Drive the pages against the embedded controller without an operator, leave "
                       "pictures and the jobs it makes here, and end."),
        QStringLiteral("DIR"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("Language of the screen; by default that of the last run."),
        QStringLiteral("zh|en"));
    const QCommandLineOption special(QStringLiteral("special-process-only"),
                                     QStringLiteral("Offer nothing but the special process."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Teach pendant: process packages"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({controller, kinematic, data, tour, language, special});
    if (!parser.parse(arguments)) {
        *error = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(0);
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty()) {
        *error =
            QStringLiteral("Unknown argument \"%1\".").arg(parser.positionalArguments().first());
        return std::nullopt;
    }

    Options options;
    if (parser.isSet(controller) && !readAddress(parser.value(controller), &options)) {
        *error = QStringLiteral("--controller takes HOST:PORT, not \"%1\".")
                     .arg(parser.value(controller));
        return std::nullopt;
    }
    const QStringList kinematics = parser.values(kinematic);
    for (const QString &text : kinematics) {
        const std::optional<KinematicRule> rule = KinematicRule::parse(text);
        if (!rule) {
            *error = QStringLiteral("--kinematic takes ROBOT=TYPE, a robot from 1 to 4 and a type "
                                    "from 1 to 12, not \"%1\".")
                         .arg(text);
            return std::nullopt;
        }
        options.kinematics.push_back(*rule);
    }
    if (!kinematics.isEmpty() && !options.isEmbedded()) {
        *error = QStringLiteral("--kinematic is about the embedded controller; it does not go with "
                                "--controller.");
        return std::nullopt;
    }
    options.tourDirectory = parser.value(tour);
    options.switchLasts = parser.isSet(tour) ? kTourSwitchLasts : 0;
    if (parser.isSet(tour) && !options.isEmbedded()) {
        *error = QStringLiteral("--tour drives the embedded controller; it does not go with "
                                "--controller.");
        return std::nullopt;
    }
    options.language = parser.value(language);
    if (parser.isSet(language) && options.language != QLatin1String("zh")
        && options.language != QLatin1String("en")) {
        *error = QStringLiteral("--language takes zh or en, not \"%1\".").arg(options.language);
        return std::nullopt;
    }
    options.specialProcessOnly = parser.isSet(special);
    options.dataDirectory = parser.value(data);
    if (options.dataDirectory.isEmpty())
        options.dataDirectory =
            QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    options.dataDirectory = QDir(options.dataDirectory).absolutePath();
    return options;
}
