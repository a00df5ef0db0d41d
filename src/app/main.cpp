#include "app/options.h"
#include "app/pendant.h"
#include "app/tour.h"

#include "pendantstyle.h"
#include "veltrixwidgetfoundation.h"
#include "wire/termination.h"

#include <QApplication>
#include <QTextStream>
#include <algorithm>
#include <csignal>
#include <sys/stat.h>

namespace {

/// A tour is also made where there is no screen.
void chooseScreen(int argc, char **argv)
{
    const bool isTour = std::any_of(argv, argv + argc, [](const char *argument) {
        return QByteArray(argument).startsWith("--tour");
    });
    const bool hasScreen = qEnvironmentVariableIsSet("DISPLAY")
        || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (isTour && !hasScreen)
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Files are for the user alone. One that reaches a limit on its size is a write that fails, as on
/// a full disk, and not the end of the program.
void guardFiles()
{
    umask(0077);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace

int main(int argc, char **argv)
{
    guardFiles();
    chooseScreen(argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pendant"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    PendantStyle::apply(application);

    QString error;
    const std::optional<Options> options = readOptions(QApplication::arguments(), &error);
    if (!options) {
        QTextStream(stderr) << error << Qt::endl;
        return 2;
    }
    Pendant pendant;
    if (!pendant.start(*options, &error))
        return 2;
    pendant.window()->show();

    int result = 0;
    if (options->tourDirectory.isEmpty()) {
        quitOnTermination([&pendant] { pendant.letGo(); });
        result = QApplication::exec();
    } else {
        result = Tour(pendant, options->tourDirectory).run() ? 0 : 1;
    }
    pendant.stop();
    return result;
}
