// The simulated controller as a program of its own.

#include "files/directorylock.h"
#include "files/privatefiles.h"
#include "link/messages.h"
#include "simulator/kinematicrule.h"
#include "simulator/simulatedcontroller.h"
#include "wire/termination.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDate>
#include <QStandardPaths>
#include <cstdio>
#include <sys/stat.h>
#include <vector>

namespace {

constexpr int kBadOption = 2;
constexpr int kInUse = 3;
constexpr quint16 kUsualPort = 7701;

struct Settings {
    SimulatedController::Options options;
    QString restore; ///< the day whose copy of the store is put back first, or "last"
    std::vector<FaultRule> faults;
    std::vector<KinematicRule> kinematics;
};

int complain(const QString &sentence, int code)
{
    std::fprintf(stderr, "%s\n", qPrintable(sentence));
    return code;
}

void say(const QString &text)
{
    std::fprintf(stdout, "%s\n", qPrintable(text));
    std::fflush(stdout);
}

void listIds()
{
    for (const message::Entry &entry : message::kAll)
        std::fprintf(stdout, "0x%04x  %s\n", entry.id, entry.name);
}

void declareOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("A simulated robot controller on 127.0.0.1, for a pendant to connect to."));
    parser.addOptions({
        {QStringLiteral("port"),
         QStringLiteral("Port to listen on; 0 takes any free one. Default: %1.").arg(kUsualPort),
         QStringLiteral("N"), QString::number(kUsualPort)},
        {QStringLiteral("data"), QStringLiteral("Directory of the parameter store."),
         QStringLiteral("DIR")},
        {QStringLiteral("fault"),
         QStringLiteral("Misbehave on a message: ID=noreply, firstlost, late[:MS], malformed, "
                        "otherrobot or cut. Repeatable."),
         QStringLiteral("ID=FAULT")},
        {QStringLiteral("kinematic"),
         QStringLiteral("Kinematic type, 1 to 12, of a robot, 1 to 4. Repeatable."),
         QStringLiteral("ROBOT=TYPE")},
        {QStringLiteral("restore"),
         QStringLiteral("Put the copy of the parameter store of that day, 2026-11-21, back before "
                        "anything else, or the last one; the store that was is kept."),
         QStringLiteral("DATE|last")},
        {QStringLiteral("list-ids"), QStringLiteral("List the messages with their ids and end.")},
        {QStringLiteral("help"), QStringLiteral("Show this text and end.")},
    });
}

/// What is wrong with the command line, as a sentence; empty when nothing is.
QString readSettings(const QCommandLineParser &parser, Settings &settings)
{
    if (!parser.positionalArguments().isEmpty()) {
        return QStringLiteral("\"%1\" is no option of this program.")
            .arg(parser.positionalArguments().constFirst());
    }
    const QString port = parser.value(QStringLiteral("port"));
    bool good = false;
    settings.options.port = port.toUShort(&good);
    if (!good)
        return QStringLiteral("The port \"%1\" is no number from 0 to 65535.").arg(port);

    settings.options.directory = parser.value(QStringLiteral("data"));
    if (parser.isSet(QStringLiteral("data")) && settings.options.directory.isEmpty())
        return QStringLiteral("The data directory has no name.");
    if (settings.options.directory.isEmpty()) {
        settings.options.directory =
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    }

    settings.restore = parser.value(QStringLiteral("restore"));
    if (parser.isSet(QStringLiteral("restore")) && settings.restore != QLatin1String("last")
        && !QDate::fromString(settings.restore, Qt::ISODate).isValid()) {
        return QStringLiteral("\"%1\" is no day as 2026-11-21, nor \"last\".")
            .arg(settings.restore);
    }

    const QStringList faults = parser.values(QStringLiteral("fault"));
    for (const QString &text : faults) {
        const std::optional<FaultRule> rule = FaultRule::parse(text);
        if (!rule) {
            return QStringLiteral("\"%1\" is no fault: it reads ID=FAULT, with an id of --list-ids "
                                  "and a fault of --help.")
                .arg(text);
        }
        settings.faults.push_back(*rule);
    }
    const QStringList kinematics = parser.values(QStringLiteral("kinematic"));
    for (const QString &text : kinematics) {
        const std::optional<KinematicRule> rule = KinematicRule::parse(text);
        if (!rule) {
            return QStringLiteral("\"%1\" is no kinematic type: it reads ROBOT=TYPE, with a robot "
                                  "from 1 to 4 and a type from 1 to 12.")
                .arg(text);
        }
        settings.kinematics.push_back(*rule);
    }
    return {};
}

/// Who else uses the data directory, as a sentence; empty when nobody does. A directory in which
/// there can be no lock is used all the same.
QString lockDirectory(const QString &directory, DirectoryLock &lock)
{
    privatefiles::makeDirectory(directory);
    if (lock.take(directory, QStringLiteral("controller")) != DirectoryLock::State::InUse)
        return {};
    const DirectoryLock::Holder &holder = lock.holder();
    return QStringLiteral("The data directory %1 is in use by %2, process %3 on %4.")
        .arg(directory,
             holder.program.isEmpty() ? QStringLiteral("another program") : holder.program)
        .arg(holder.process)
        .arg(holder.host);
}

int run(const Settings &settings)
{
    DirectoryLock lock;
    const QString user = lockDirectory(settings.options.directory, lock);
    if (!user.isEmpty())
        return complain(user, kInUse);
    QString sentence;
    if (!settings.restore.isEmpty()) {
        if (!ParameterStore::restore(settings.options.directory, settings.restore, &sentence))
            return complain(sentence, EXIT_FAILURE);
        complain(sentence, 0);
    }
    SimulatedController controller;
    for (const FaultRule &rule : settings.faults)
        controller.setFault(rule.id, rule.fault, rule.milliseconds);
    for (const KinematicRule &rule : settings.kinematics)
        controller.setKinematicType(rule.robot, rule.type);
    QObject::connect(
        &controller, &SimulatedController::messageRefused, &controller,
        [](quint16 id, const QString &reason) {
            complain(
                QStringLiteral("refused 0x%1: %2").arg(id, 4, 16, QLatin1Char('0')).arg(reason), 0);
        });
    QObject::connect(&controller, &SimulatedController::storeTold, &controller,
                     [](const QString &told) { complain(told, 0); });

    QString error;
    if (!controller.start(settings.options, &error))
        return complain(error, EXIT_FAILURE);
    if (controller.store().state() == ParameterStore::State::Unavailable)
        return EXIT_FAILURE; // its own directory was chosen for it, and was told above
    say(QStringLiteral("listening on 127.0.0.1:%1").arg(controller.port()));
    say(QStringLiteral("data in %1").arg(settings.options.directory));
    const int code = QCoreApplication::exec();
    controller.stop();
    return code;
}

} // namespace

int main(int argc, char **argv)
{
    ::umask(0077); // what it stores is for its user alone
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("controller"));

    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(QCoreApplication::arguments()))
        return complain(parser.errorText(), kBadOption);
    if (parser.isSet(QStringLiteral("help"))) {
        say(parser.helpText());
        return EXIT_SUCCESS;
    }
    if (parser.isSet(QStringLiteral("list-ids"))) {
        listIds();
        return EXIT_SUCCESS;
    }
    Settings settings;
    const QString wrong = readSettings(parser, settings);
    if (!wrong.isEmpty())
        return complain(wrong, kBadOption);

    quitOnTermination();
    return run(settings);
}
