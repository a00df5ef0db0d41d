// A job of the wizard, from its finish key to its file; and reading a job of 100,000 lines, against
// reading the same bytes line by line.

#include "commandfields.h"
#include "jobfile.h"
#include "jobstore.h"
#include "rounds.h"
#include "shell/technologywidget.h"
#include "wholefile.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr int kLines = 100000;
constexpr int kRounds = 9;

/// The kinds of the wizard's jobs, again and again, in loops.
ProgramJOB longJob()
{
    ProgramJOB job(QStringLiteral("long"));
    RobotPos position;
    for (int number = 1; number <= 3; ++number) {
        position.id = RobotPos::wordOf('P', number);
        for (double &value : position.values)
            value += number * 12.345;
        job.addPosition(position);
    }
    constexpr int kTypes[] = {Command::WhileBegin, Command::MovJ,       Command::Wait,
                              Command::MovL,       Command::DigitalOut, Command::Timer,
                              Command::PalToEntry, Command::PalStep,    Command::PalOff,
                              Command::WhileEnd};
    for (int line = 0; line < kLines; ++line) {
        std::unique_ptr<Command> command = commandOf(kTypes[line % 10]);
        if (auto *move = dynamic_cast<MoveCommand *>(command.get()))
            move->positionId = RobotPos::wordOf('P', line % 3 + 1);
        if (auto *loop = dynamic_cast<WHILECommand *>(command.get()); loop && line % 10 == 0)
            loop->condition = std::make_unique<CommandCondition>();
        if (auto *wait = dynamic_cast<WaitCommand *>(command.get()))
            wait->condition = std::make_unique<CommandCondition>();
        job.insertCommand(job.lineCount() + 1, std::move(command));
    }
    return job;
}

/// The job of the wizard with three points and no option.
void makeWizardJob()
{
    const QTemporaryDir directory;
    JobStore::getInstance()->setDirectory(directory.path());
    TechnologyWidget pages(nullptr);
    const QString name = QStringLiteral("BENCH");
    pages.findChild<QLineEdit *>(QStringLiteral("palletProgrameName_edit"))->setText(name);
    pages.palletCreatedFileWidget2();
    pages.recvCurposition("0 0 1.5 2 3 4 5 6 7", "0 0 1.5 2 3 4 5 6 7");
    pages.wizardInfoGetPoint();
    pages.wizardInfoGetUpperPoint();
    pages.wizardInfoGetSafePoint();
    const QString path = JobStore::getInstance()->pathOf(1, name);
    const QByteArray other(4096, 'x');
    compare(
        "the wizard's job, against a file of 4096 bytes written whole", 101,
        [&] { pages.createJobFile(); }, [&] { writeWholeFile(path + QLatin1Char('x'), other); });
    std::printf("%lld bytes\n", static_cast<long long>(QFileInfo(path).size()));
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    makeWizardJob();

    const ProgramJOB job = longJob();
    const QByteArray text = jobfile::write(job);
    std::printf("%d lines, %lld bytes\n", job.lineCount(), static_cast<long long>(text.size()));

    int lines = 0;
    const auto readJob = [&] {
        const jobfile::Reading reading = jobfile::read(text, job.name());
        lines = reading.job ? reading.job->lineCount() : -1;
    };
    qint64 characters = 0;
    const auto readLines = [&] {
        QTextStream stream(text);
        QString line;
        characters = 0;
        while (stream.readLineInto(&line))
            characters += line.size();
    };
    compare("reading, against QTextStream line by line", kRounds, readJob, readLines);
    std::printf("%d lines read, %lld characters\n", lines, static_cast<long long>(characters));

    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("long.JBR"));
    compare(
        "text and whole file, against the text alone", kRounds,
        [&] { writeWholeFile(path, jobfile::write(job)); }, [&] { jobfile::write(job); });
    return lines == kLines ? 0 : 1;
}
