#include "command.h"

#include "commandfields.h"
#include "robotpos.h"

namespace {

struct Word {
    int type;
    const char *word;
};

constexpr Word kWords[] = {
    {Command::MovJ, "MovJ"},
    {Command::MovL, "MovL"},
    {Command::Timer, "TIMER"},
    {Command::Wait, "WAIT"},
    {Command::WhileBegin, "WHILE"},
    {Command::WhileEnd, "ENDWHILE"},
    {Command::DigitalOut, "DOUT"},
    {Command::SetInteger, "SETINT"},
    {Command::SetBoolean, "SETBOOL"},
    {Command::PalStart, "PALSTART"},
    {Command::PalStep, "PalStep"},
    {Command::PalToEntry, "PalToEntry"},
    {Command::PalToAuxiliary, "PalToAuxiliary"},
    {Command::PalToWorkpiece, "PalToWorkpiece"},
    {Command::PalHead, "PalHead"},
    {Command::PalOff, "PalOff"},
};

/// Puts each field under its name into an object.
struct JsonFields {
    Json::Value &json;

    void operator()(const char *name, int value) { json[name] = value; }
    void operator()(const char *name, unsigned char value) { json[name] = int(value); }
    void operator()(const char *name, double value) { json[name] = value; }
    void operator()(const char *name, const QString &value) { json[name] = value.toStdString(); }
    void operator()(const char *name, const std::unique_ptr<CommandCondition> &condition)
    {
        if (condition)
            CommandCondition::visit(std::as_const(*condition), JsonFields{json[name]});
    }
};

} // namespace

Command::Command(Type kind) : type(kind) { }

Json::Value Command::toJson() const
{
    Json::Value json;
    json["type"] = type;
    visitFields(*this, JsonFields{json});
    const auto *move = dynamic_cast<const MoveCommand *>(this);
    if (move && move->position)
        json["position"] = move->position->toJson();
    return json;
}

const char *wordOf(int type)
{
    for (const Word &word : kWords) {
        if (word.type == type)
            return word.word;
    }
    return nullptr;
}

std::unique_ptr<Command> commandOf(int type)
{
    switch (type) {
    case Command::MovJ:
    case Command::MovL:
        return std::make_unique<MoveCommand>(static_cast<Command::Type>(type));
    case Command::Timer:
        return std::make_unique<TimerCommand>();
    case Command::Wait: {
        auto wait = std::make_unique<WaitCommand>();
        wait->type = Command::Wait;
        return wait;
    }
    case Command::WhileBegin:
    case Command::WhileEnd:
        return std::make_unique<WHILECommand>(static_cast<Command::Type>(type));
    case Command::DigitalOut:
        return std::make_unique<IOCommand>();
    case Command::SetInteger:
    case Command::SetBoolean:
        return std::make_unique<VARCommand>(static_cast<Command::Type>(type));
    default:
        return wordOf(type) ? std::make_unique<PALCommand>(static_cast<Command::Type>(type))
                            : nullptr;
    }
}

std::unique_ptr<Command> commandOf(std::string_view word)
{
    for (const Word &each : kWords) {
        if (word == each.word)
            return commandOf(each.type);
    }
    return nullptr;
}
