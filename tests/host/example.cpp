// A program around the process pages. Robot::commandSent is the way out to the controller, and the
// reply signals of Robot are the way back; here polishing is answered on the spot.

#include "app.h"
#include "displaysize.h"
#include "eventlog.h"
#include "link/messages.h"
#include "newtechnologywidget.h"
#include "robot.h"
#include "shell/technologywidget.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    App::sysUser = AUTHORITY_ADMINISTRATOR; // without a user no package opens

    QWidget window;
    auto *said = new QLabel;
    TechnologyWidget *pages = TechnologyWidget::getInstance();
    pages->setFixedSize(DisplaySize::contentWidth, DisplaySize::contentHeight);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(pages);
    layout->addWidget(said);

    const auto show = [said](const QString &kind, const QVariantList &values) {
        if (kind == QLatin1String("toast"))
            said->setText(values.first().toString());
    };
    QObject::connect(EventLog::getInstance(), &EventLog::recorded, said, show);

    const auto controller = [stored = QByteArray(R"({"robot": 1, "craftID": 1, "polish": {}})")](
                                unsigned short id, const QByteArray &body) mutable {
        if (id == message::SetPolish)
            stored = body;
        else if (id == message::GetPolish)
            emit Robot::getInstance()->robot_Polish_Para(stored);
    };
    QObject::connect(Robot::getInstance(), &Robot::commandSent, pages, controller);

    const auto back = [pages] {
        pages->return_mainPage();
        pages->show();
    };
    QObject::connect(NewTechnologyWidget::getInstance(), &NewTechnologyWidget::backRequested, pages,
                     back);
    back();
    window.show();
    return QApplication::exec();
}
