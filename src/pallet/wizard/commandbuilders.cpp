// The commands of a palletising job, one builder each. A builder that cannot make its command
// inserts nothing and says nothing.

#include "iocommand.h"
#include "jobedit.h"
#include "movecommand.h"
#include "palcommand.h"
#include "pallet/pallet_p.h"
#include "shell/technologyform.h"
#include "switchbutton.h"
#include "timercommand.h"
#include "varcommand.h"
#include "whilecommand.h"

#include <QComboBox>
#include <cmath>

namespace {

using Form = Ui_TechnologyWidget;

/// The name of a count variable, or "[-]" where none is counted.
QString countName(const QComboBox *type, const QComboBox *variable)
{
    return type->currentText() == TechnologyWidget::tr("无") ? QStringLiteral("[-]")
                                                             : variable->currentText();
}

/// The condition: this digital input reads that value.
std::unique_ptr<CommandCondition> inputReads(int port, int value)
{
    auto condition = std::make_unique<CommandCondition>();
    condition->operandName = QStringLiteral("DIN%1").arg(port);
    condition->operandPort = port;
    condition->operandKind = CommandCondition::DigitalInput;
    condition->rightValue = QString::number(value);
    condition->comparison = 1;
    condition->reserved2 = 0;
    return condition;
}

/// What the seven numbers of a position text make: a position whose Cartesian values are left at 0.
std::unique_ptr<RobotPos> parsedPosition(const QString &text, int number)
{
    QStringList pieces;
    for (int i = 0; i < RobotPos::kValues / 2; ++i)
        pieces += QStringLiteral("0");
    pieces += text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (pieces.size() != RobotPos::kValues)
        return nullptr;
    auto position = std::make_unique<RobotPos>();
    for (int i = 0; i < RobotPos::kValues; ++i) {
        bool isNumber = false;
        const double value = pieces.at(i).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value))
            return nullptr;
        position->values[static_cast<std::size_t>(i)] = value;
    }
    position->id = RobotPos::wordOf('P', number);
    position->kind = 'P';
    return position;
}

std::unique_ptr<MoveCommand> moveOf(int interpolation)
{
    if (interpolation != 0 && interpolation != 1)
        return nullptr;
    const bool isJoint = interpolation == 0;
    auto move = std::make_unique<MoveCommand>(isJoint ? Command::MovJ : Command::MovL);
    move->moveParamA = 10.0;
    move->moveKind = isJoint ? 2 : 1;
    move->moveParamB = isJoint ? 10.0 : 1.0;
    move->moveParamC = isJoint ? 10.0 : 1.0;
    move->moveParamD = 0.0;
    return move;
}

/// By the selector of insertPalCmd(); there is no 1.
std::optional<Command::Type> palType(int selector)
{
    switch (selector) {
    case 0:
        return Command::PalStart;
    case 2:
        return Command::PalHead;
    case 3:
        return Command::PalToWorkpiece;
    case 4:
        return Command::PalToAuxiliary;
    case 5:
        return Command::PalToEntry;
    case 6:
        return Command::PalOff;
    case 7:
        return Command::PalStep;
    default:
        return std::nullopt;
    }
}

/// Hands a command over to the job.
template <class AnyCommand>
void insertInto(JobEdit *jobEdit, int line, std::unique_ptr<AnyCommand> built)
{
    Command *command = built.release();
    jobEdit->insertCommand(line, command);
    delete command; // what no job has taken
}

} // namespace

/// `selector`: 0 PALSTART, 2 PalHead, 3 PalToWorkpiece, 4 PalToAuxiliary, 5 PalToEntry, 6 PalOff,
/// 7 PalStep; others build nothing. `text`, "MovJ" or "MovL", is for 3 to 5. The craft is that of
/// the wizard whatever `craft` says.
void TechnologyWidget::insertPalCmd(int, int selector, int line, QString text)
{
    const std::optional<Command::Type> type = palType(selector);
    if (!type)
        return;
    auto command = std::make_unique<PALCommand>(*type);
    command->craftNumber = programInformation.craftNumber;
    switch (*type) {
    case Command::PalStart:
        command->palFunction = ui->palletFunctioncomboBox->currentText() == tr("码垛") ? 0 : 1;
        command->reserved2 = 0;
        command->totalName = countName(ui->totalVariabletype, ui->totalVariable);
        command->layerName = countName(ui->layerVariabletype, ui->layerVariable);
        command->stackName = countName(ui->stackVariabletype, ui->stackVariable);
        break;
    case Command::PalStep:
        command->stepFlag = 1;
        break;
    case Command::PalOff:
        command->palOffName = palletPages->palOffVariableName;
        break;
    case Command::PalToEntry:
        command->xyPathOptimization = ui->xyPathOptimization->isCheck() ? 1 : 0;
        command->zPathOptimization = ui->zPathOptimization->isCheck() ? 1 : 0;
        [[fallthrough]];
    case Command::PalToAuxiliary:
    case Command::PalToWorkpiece:
        // other than a plain move, a linear one keeps 10.0 in the second and third parameter
        command->moveName = text;
        command->moveParamA = 10.0;
        command->reserved3 = 0;
        command->moveParamB = 10.0;
        command->moveParamC = 10.0;
        command->moveKind = text == tr("MovJ") ? 2 : 1;
        break;
    default:
        break;
    }
    insertInto(jobEdit, line, std::move(command));
}

/// `interpolation`: 0 joint, 1 linear; others build nothing. `text`: seven numbers with blanks
/// between them, the joints of position `number`. A position that the job has already is used as
/// it stands there.
void TechnologyWidget::insertMoveCmd(int, int interpolation, int number, int line, QString text)
{
    const std::unique_ptr<RobotPos> parsed = parsedPosition(text, number);
    if (!parsed)
        return;
    std::unique_ptr<MoveCommand> move = moveOf(interpolation);
    if (!move || !jobEdit || !jobEdit->currentJob())
        return;
    move->positionId = parsed->id;
    move->position = jobEdit->currentJob()->getPosition('P', number);
    if (!move->position && !jobEdit->setCmdPosValue(move.get(), text, true))
        return;
    insertInto(jobEdit, line, std::move(move));
}

/// `selector`: 0 until the pallet is done, 1 while the input reads the value, others the condition
/// of a new loop. The end goes in behind the head, and `line` becomes that of the end: what is
/// inserted there stands inside the loop.
void TechnologyWidget::insertWhileCmd(int selector, int &line, int port, int value)
{
    auto head = std::make_unique<WHILECommand>(Command::WhileBegin);
    if (selector == 1) {
        head->condition = inputReads(port, value);
    } else {
        head->condition = std::make_unique<CommandCondition>();
        head->condition->comparison = 1;
        head->condition->reserved2 = 0;
    }
    if (selector == 0) {
        head->condition->operandName = palletPages->palOffVariableName;
        head->condition->rightValue = QStringLiteral("0");
        head->condition->operandKind = ui->paloffVariabletype->currentText() == tr("BOOL")
            ? CommandCondition::BooleanVariable
            : CommandCondition::GlobalBooleanVariable;
    }
    insertInto(jobEdit, line, std::move(head));
    ++line;
    insertInto(jobEdit, line, std::make_unique<WHILECommand>(Command::WhileEnd));
}

void TechnologyWidget::insertWaitCmd(int port, int value, int line)
{
    auto wait = std::make_unique<WaitCommand>();
    wait->type = Command::Wait;
    wait->condition = inputReads(port, value);
    insertInto(jobEdit, line, std::move(wait));
}

void TechnologyWidget::insertDoutCmd(int port, int value, int line)
{
    auto output = std::make_unique<IOCommand>();
    output->ioName = QStringLiteral("OT#");
    output->ioPort = port;
    output->ioValue = static_cast<double>(value);
    output->reserved3 = 0;
    output->reserved4 = 0;
    insertInto(jobEdit, line, std::move(output));
}

void TechnologyWidget::insertTimerCmd(QString seconds, int line)
{
    auto timer = std::make_unique<TimerCommand>();
    timer->duration = seconds.toDouble();
    insertInto(jobEdit, line, std::move(timer));
}

/// An assignment to the variable that ends the job.
void TechnologyWidget::insertBoolCmd(int line)
{
    auto assignment = std::make_unique<VARCommand>(Command::SetBoolean);
    assignment->varName = ui->paloffVariable->currentText();
    jobEdit->setCmdVarValue(assignment.get());
    insertInto(jobEdit, line, std::move(assignment));
}

/// An assignment of 0 to a count variable: `which` 0 the total, 1 the layer, 2 the stack; others
/// the default variable.
void TechnologyWidget::insertIntCmd(int line, int which)
{
    auto assignment = std::make_unique<VARCommand>(Command::SetInteger);
    const QComboBox *variables[] = {ui->totalVariable, ui->layerVariable, ui->stackVariable};
    if (which >= 0 && which <= 2)
        assignment->varName = variables[which]->currentText();
    assignment->varValue = QStringLiteral("0");
    jobEdit->setCmdVarValue(assignment.get());
    insertInto(jobEdit, line, std::move(assignment));
}
