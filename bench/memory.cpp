// Peak memory of the pendant after visiting all pages, against a bare Qt window. Each is measured
// in a process of its own.

#include "app/pendant.h"
#include "pendantstyle.h"
#include "shell/technologywidget.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

namespace {

/// Peak resident memory of this process, KiB.
long peak()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLong();
    }
    return 0;
}

void settle()
{
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

int showBareWindow()
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    settle();
    std::printf("%ld\n", peak());
    return 0;
}

int visitAllPages(QApplication &application)
{
    PendantStyle::apply(application);
    QTemporaryDir directory;
    Options options;
    options.dataDirectory = directory.path();
    Pendant pendant;
    QString error;
    if (!pendant.start(options, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    pendant.window()->show();
    for (int i = 0; i < pendant.pages()->count(); ++i) {
        pendant.pages()->setCurrentIndex(i);
        settle();
    }
    std::printf("%ld\n", peak());
    pendant.stop();
    return 0;
}

long measure(const QString &mode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {mode});
    process.waitForFinished(60000);
    return process.readAllStandardOutput().trimmed().toLong();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == QLatin1String("bare"))
        return showBareWindow();
    if (mode == QLatin1String("pendant"))
        return visitAllPages(application);
    const long bare = measure(QStringLiteral("bare"));
    const long pendant = measure(QStringLiteral("pendant"));
    std::printf("peak memory: pendant %.1f MB, bare window %.1f MB: %+.1f MB, ratio %.2f\n",
                static_cast<double>(pendant) / 1024, static_cast<double>(bare) / 1024,
                static_cast<double>(pendant - bare) / 1024,
                static_cast<double>(pendant) / static_cast<double>(bare));
    return 0;
}
