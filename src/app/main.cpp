#include "app/options.h"
#include "app/pendant.h"
#include "app/tour.h"

#include "pendantstyle.h"
#include "veltrixwidgetfoundation.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pendant"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    PendantStyle::apply(application);

    QString error;
    const std::optional<Options> options = readOptions(QApplication::arguments(), &error);
    Pendant pendant;
    if (!options || !pendant.start(*options, &error)) {
        QTextStream(stderr) << error << Qt::endl;
        return 2;
    }
    pendant.window()->show();

    int result = 0;
    if (options->tourDirectory.isEmpty())
        result = QApplication::exec();
    else
        result = Tour(pendant, options->tourDirectory).run() ? 0 : 1;
    pendant.stop();
    return result;
}
