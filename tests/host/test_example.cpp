// The example program, from the first touch on. Its main() is built as runExample() here.

#include "pages.h"

#include <QApplication>
#include <QTimer>

int runExample(int argc, char **argv);

namespace {

bool opened = false;
QString answered;

void operate()
{
    auto *pages = TechnologyWidget::getInstance();
    opened = pages->isVisible() && pages->size() == QSize(714, 504);
    host::touch("BtnPolish");
    host::touch("BtnPolishPara");
    host::touch("btnPolishModify");
    for (const char *field :
         {"toolWear", "toolOffsetX", "toolOffsetY", "toolOffsetZ", "endtoolOffsetX",
          "endtoolOffsetY", "endtoolOffsetZ", "AutoCompensationValue", "AutoCompensationCycle"})
        host::enter(field, QStringLiteral("2"));
    host::touch("btnPolishModify");
    host::child<QLineEdit>("toolWear")->clear();
    host::touch("btnPolishReturn");
    host::touch("BtnPolishPara");
    answered = host::textOf("toolWear");
    QApplication::quit();
}

/// The touches come once the example has begun to run.
void waitForStart()
{
    QTimer::singleShot(0, operate);
}

} // namespace

class TestExample : public QObject {
    Q_OBJECT
private slots:
    void firstTouch();
};

void TestExample::firstTouch()
{
    qAddPreRoutine(waitForStart);
    char name[] = "example";
    char *arguments[] = {name, nullptr};
    QCOMPARE(runExample(1, arguments), 0);
    QVERIFY(opened);
    QCOMPARE(answered, QStringLiteral("2"));
}

QTEST_APPLESS_MAIN(TestExample)
#include "test_example.moc"
