#pragma once

// The program wizard as the operator has it: five pages, 33 to 37, and the questions on the way
// out.

#include "course.h"
#include "guardedpage.h"
#include "jobstore.h"
#include "positionpage.h"
#include "promptwidget.h"
#include "switchbutton.h"

#include <QTemporaryDir>

namespace support {

inline const QString kBlackName =
    QStringLiteral("background-color: rgb(255, 255, 255);border: 1px solid  rgb(106, 106, "
                   "106);color:black;");
inline const QString kRedName =
    QStringLiteral("background-color: rgb(255, 255, 255);border: 1px solid  rgb(106, 106, "
                   "106);color:red;");

inline const QStringList kWizardPoints = {QStringLiteral("GetPoint"), QStringLiteral("UpperPoint"),
                                          QStringLiteral("SafePoint")};
constexpr const char *kMarkButtons[] = {"positionGetPoint", "positionGetUpperPoint",
                                        "positionGetSafePoint"};
constexpr const char *kRunButtons[] = {"moveToGetPoint", "moveToGetUpperPoint",
                                       "moveToGetSafePoint"};
inline const QStringList kPorts = {
    QStringLiteral("tongs_1_port"),       QStringLiteral("tongs_2_port"),
    QStringLiteral("tongs_3_port"),       QStringLiteral("tongs_4_port"),
    QStringLiteral("get_enable_signal"),  QStringLiteral("tongs_1_getsucceed"),
    QStringLiteral("tongs_2_getsucceed"), QStringLiteral("tongs_3_getsucceed"),
    QStringLiteral("tongs_4_getsucceed")};

/// "0", or another text, seven times.
inline QStringList seven(const char *text)
{
    QStringList list;
    for (int i = 0; i < 7; ++i)
        list += QString::fromLatin1(text);
    return list;
}

inline QStringList items(const QComboBox *box)
{
    QStringList list;
    for (int row = 0; row < box->count(); ++row)
        list += box->itemText(row);
    return list;
}

/// Jobs in a directory of the test's own, and the wizard as an operator works with it.
class Wizard {
public:
    explicit Wizard(TechnologyWidget *widget) : pages(widget)
    {
        JobStore::getInstance()->setDirectory(m_jobs.path());
    }

    /// Everything as after the program's start: no job, nothing collected, menu on screen.
    void reset()
    {
        PromptWidget::getInstance()->close();
        App::locked_ = false;
        App::m_Select_IO_Type = 1;
        startPallet(pages);
        setState(0, 0);
        pages->cancelExitPalletFile();
        pages->sureResetWizardData();
        for (const char *name : {"palletNumTechcomboBox", "palletFunctioncomboBox"})
            box(pages, QString::fromLatin1(name))->setCurrentIndex(0);
        for (int robot = 1; robot <= MoreRobot::kRobots; ++robot) {
            for (const JobStore::File &job : JobStore::getInstance()->files(robot))
                JobStore::getInstance()->remove(robot, job.name);
        }
        pages->return_PalletPage();
    }

    QLineEdit *name() const { return child<QLineEdit>(pages, "palletProgrameName_edit"); }
    bool store(int robot, const char *job) const
    {
        return JobStore::getInstance()->save(robot, QString::fromLatin1(job), "job\n").isEmpty();
    }

    void open(const char *job = "JOB1") const
    {
        click(pages, "BtnPalletFile");
        enter(name(), QString::fromLatin1(job));
    }
    void markAll(const QByteArray &joints = "1 2 3 4 5 6 7") const
    {
        tellPosition("0 0 " + joints);
        for (const char *button : kMarkButtons)
            click(pages, button);
    }
    /// From the pallet page on to this page of the stack, by touches.
    void goTo(int page, const char *job = "JOB1") const
    {
        open(job);
        if (page == 33)
            return;
        click(pages, "createdFilePagedownBtn1");
        if (page == 34)
            return;
        markAll();
        click(pages, "createdFilePagedownBtn2");
        if (page == 35)
            return;
        box(pages, QStringLiteral("tongs_1_port"))->setCurrentIndex(1);
        click(pages, "createdFilePagedownBtn3");
        if (page == 36)
            return;
        click(pages, "createdFilePagedownBtn4");
    }

    /// Answers the question that is up.
    void answer(bool yes) const
    {
        click(PromptWidget::getInstance(), yes ? "promptConfirm" : "promptCancel");
    }

    TechnologyWidget *pages;

private:
    QTemporaryDir m_jobs;
};

} // namespace support
