// The wizard's last key: what was collected becomes a job of the current robot. The job is told by
// the tables of jobsequence.cpp; the commands are built in commandbuilders.cpp.

#include "jobedit.h"
#include "pallet/pallet_p.h"
#include "pallet/wizard/jobsequence.h"
#include "printlog.h"
#include "shell/technologyform.h"
#include "snackbarmessage.h"

#include <QComboBox>

using namespace jobsequence;

namespace {

using Form = Ui_TechnologyWidget;

QString joined(const PositionTexts &point)
{
    QStringList texts;
    for (const QString &text : point)
        texts += text;
    return texts.join(QLatin1Char(' '));
}

bool isChosen(const Form *ui, Option option)
{
    const QString none = TechnologyWidget::tr("无");
    switch (option) {
    case Option::GripSuccess:
        return ui->tongs_1_getsucceed->currentText() != none;
    case Option::PickPermission:
        return ui->get_enable_signal->currentText() != none;
    case Option::Always:
        break;
    }
    return true;
}

/// 0 joint, 1 linear.
int interpolationOf(const Form *ui, Leg leg)
{
    switch (leg) {
    case Leg::Get:
        return ui->getProcess->currentIndex();
    case Leg::Middle:
        return ui->middleProcess->currentIndex();
    case Leg::Pallet:
        return ui->palletProcess->currentIndex();
    case Leg::None:
        break;
    }
    return 0;
}

QString moveText(const Form *ui, Leg leg)
{
    return interpolationOf(ui, leg) == 0 ? TechnologyWidget::tr("MovJ")
                                         : TechnologyWidget::tr("MovL");
}

} // namespace

/// Writes a job, step by step.
struct TechnologyWidget::Pallet::JobWriter {
    TechnologyWidget &widget;
    Pallet &pallet;

    void write(const Sequence &sequence);
    void insert(const Step &step, int &line);
    QString pointText(Position position) const;
};

/// Builds and stores the job. The store may fail; the editor then speaks for itself.
void TechnologyWidget::on_createdFileFinishBtn_clicked()
{
    // A second press that was under way finds the wizard left: the job of that name is done.
    if (palletPages->jobIsGenerated && currentIndex() != page::Wizard5)
        return;
    palletPages->getPointText = joined(programInformation.points[ProgramInformation::Get]);
    palletPages->upperPointText = joined(programInformation.points[ProgramInformation::Upper]);
    palletPages->safePointText = joined(programInformation.points[ProgramInformation::Safe]);
    for (const QString &text :
         {palletPages->getPointText, palletPages->upperPointText, palletPages->safePointText})
        PrintLog::OutputToLog(text, 1);
    const QString function = ui->palletFunctioncomboBox->currentText();
    if (function == tr("码垛"))
        createJobFile();
    else if (function == tr("卸垛"))
        createJobFile2();
    palletPages->jobIsGenerated = true;
    initializeCreateFile();
    SnackbarMessage::showMessage(tr("码垛文件生成成功！"), 5000, 1, true);
    return_PalletPage();
}

void TechnologyWidget::createJobFile()
{
    Pallet::JobWriter{*this, *palletPages}.write(palletising());
}

void TechnologyWidget::createJobFile2()
{
    Pallet::JobWriter{*this, *palletPages}.write(depalletising());
}

/// Walks the steps of a job. The cursor is the line of the next command; it moves on also where a
/// builder had to leave its command out.
void TechnologyWidget::Pallet::JobWriter::write(const Sequence &sequence)
{
    widget.jobEdit->newJob(widget.programInformation.name);
    pallet.palOffVariableName = pallet.ui->paloffVariable->currentText();
    int line = 1;
    for (const Step &step : sequence) {
        if (isChosen(pallet.ui, step.option))
            insert(step, line);
    }
    widget.jobEdit->storeJob();
}

void TechnologyWidget::Pallet::JobWriter::insert(const Step &step, int &line)
{
    const Form *ui = pallet.ui;
    const int valvePort = widget.programInformation.tongsPort[0];
    const int valveValue = widget.programInformation.tongsValue[0];
    const QString text = moveText(ui, step.leg);
    switch (step.action) {
    case Action::OuterLoop:
        return widget.insertWhileCmd(0, line, 0, 0); // leaves the cursor inside the loop
    case Action::GripLoop:
        return widget.insertWhileCmd(1, line, ui->tongs_1_getsucceed->currentIndex(),
                                     ui->tongs_1_getsucceed_validvalues->currentText().toInt());
    case Action::GripLoopEnd:
        break; // the end stands there already: the cursor goes past it
    case Action::OuterLoopEnd:
        return; // likewise, and nothing follows it
    case Action::Head:
        widget.insertPalCmd(0, 2, line, QString());
        break;
    case Action::Start:
        widget.insertPalCmd(0, 0, line, QString());
        break;
    case Action::Count:
        widget.insertPalCmd(0, 7, line, QString());
        break;
    case Action::Move:
        widget.insertMoveCmd(0, interpolationOf(ui, step.leg), step.position, line,
                             pointText(step.position));
        break;
    case Action::Permission:
        widget.insertWaitCmd(ui->get_enable_signal->currentIndex(),
                             ui->get_enable_signal_validvalues->currentText().toInt(), line);
        break;
    case Action::ValveOn:
        widget.insertDoutCmd(valvePort, valveValue, line);
        break;
    case Action::ValveOff:
        widget.insertDoutCmd(valvePort, valveValue == 1 ? 0 : 1, line);
        break;
    case Action::Pause:
        widget.insertTimerCmd(QStringLiteral("1"), line);
        break;
    case Action::ToEntry:
        widget.insertPalCmd(0, 5, line, text);
        break;
    case Action::ToAuxiliary:
        widget.insertPalCmd(0, 4, line, text);
        break;
    case Action::ToWorkpiece:
        widget.insertPalCmd(0, 3, line, text);
        break;
    case Action::Off:
        widget.insertPalCmd(0, 6, line, QString());
        break;
    }
    ++line;
}

QString TechnologyWidget::Pallet::JobWriter::pointText(Position position) const
{
    switch (position) {
    case SafePoint:
        return pallet.safePointText;
    case UpperPoint:
        return pallet.upperPointText;
    case GetPoint:
        return pallet.getPointText;
    case NoPosition:
        break;
    }
    return {};
}
