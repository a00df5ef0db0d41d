#include "jobfile.h"

#include "commandfields.h"
#include "jobscanner.h"

#include <array>
#include <charconv>

namespace {

constexpr std::string_view kMark = "JBR ";

// ---- writing ----------------------------------------------------------------------------------

template <class Number> void appendNumber(QByteArray &out, Number value)
{
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.append(digits.data(), static_cast<int>(end - digits.data()));
}

void appendText(QByteArray &out, const QString &text)
{
    static constexpr char kHex[] = "0123456789abcdef";
    out.append('"');
    for (const char byte : text.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            out.append('\\').append(byte);
        } else if (code < 0x20 || code == 0x7f) {
            out.append("\\x").append(kHex[code >> 4]).append(kHex[code & 15]);
        } else {
            out.append(byte);
        }
    }
    out.append('"');
}

/// Appends " name=value" for each field.
struct FieldWriter {
    QByteArray &out;

    void open(const char *name) { out.append(' ').append(name).append('='); }
    void operator()(const char *name, int value)
    {
        open(name);
        appendNumber(out, value);
    }
    void operator()(const char *name, unsigned char value) { (*this)(name, int(value)); }
    void operator()(const char *name, double value)
    {
        open(name);
        appendNumber(out, value);
    }
    void operator()(const char *name, const QString &value)
    {
        open(name);
        appendText(out, value);
    }
    void operator()(const char *name, const std::unique_ptr<CommandCondition> &condition)
    {
        open(name);
        if (!condition) {
            out.append("none");
            return;
        }
        out.append('{');
        CommandCondition::visit(std::as_const(*condition), *this);
        out.append(" }");
    }
};

void appendPosition(QByteArray &out, const RobotPos &position)
{
    out.append("POSITION ").append(RobotPos::nameOf(position.id).toLatin1()).append(" kind=");
    appendNumber(out, int(position.kind));
    for (const double value : position.values) {
        out.append(' ');
        appendNumber(out, value);
    }
}

void appendCommand(QByteArray &out, const Command &command)
{
    out.append(wordOf(command.type));
    visitFields(command, FieldWriter{out});
}

// ---- reading ----------------------------------------------------------------------------------

/// Reads " name=value" for each field, in step with the command's own order. The first field that
/// cannot be read is the fault; what follows it stays as constructed.
struct FieldReader {
    JobScanner &scanner;
    JobFault &fault;

    bool open(const char *name)
    {
        if (fault)
            return false;
        if (scanner.take(" ") && scanner.take(name) && scanner.take("="))
            return true;
        fail(JobFault::Field, name);
        return false;
    }
    void fail(JobFault::Kind kind, const char *name)
    {
        fault.kind = kind;
        fault.detail = QLatin1String(name);
    }
    template <class Value> void readValue(const char *name, Value &value)
    {
        if (open(name) && !scanner.read(value))
            fail(JobFault::Value, name);
    }

    void operator()(const char *name, int &value) { readValue(name, value); }
    void operator()(const char *name, unsigned char &value) { readValue(name, value); }
    void operator()(const char *name, double &value) { readValue(name, value); }
    void operator()(const char *name, QString &value) { readValue(name, value); }
    void operator()(const char *name, std::unique_ptr<CommandCondition> &condition)
    {
        if (!open(name) || scanner.take("none"))
            return;
        if (!scanner.take("{")) {
            fail(JobFault::Value, name);
            return;
        }
        condition = std::make_unique<CommandCondition>();
        CommandCondition::visit(*condition, *this);
        if (!fault && !scanner.take(" }"))
            fail(JobFault::Value, name);
    }
};

JobFault surplus(const JobScanner &scanner)
{
    constexpr int kShown = 20; // characters
    return {JobFault::Surplus, 0, scanner.rest().trimmed().left(kShown)};
}

JobFault readPosition(JobScanner &scanner, ProgramJOB &job)
{
    RobotPos position;
    const std::string_view name = scanner.word();
    const std::optional<int> word = RobotPos::wordOf(name);
    if (!word)
        return {JobFault::Value, 0, QStringLiteral("POSITION")};
    position.id = *word;
    if (!scanner.take(" kind="))
        return {JobFault::Field, 0, QStringLiteral("kind")};
    if (!scanner.read(position.kind))
        return {JobFault::Value, 0, QStringLiteral("kind")};
    for (double &value : position.values) {
        if (!scanner.take(" ") || !scanner.read(value))
            return {JobFault::Value, 0, RobotPos::nameOf(*word)};
    }
    if (!scanner.atEnd())
        return surplus(scanner);
    const bool isOrdered = job.positions().empty() || job.positions().rbegin()->first < *word;
    if (!job.addPosition(position))
        return {JobFault::Twice, 0, RobotPos::nameOf(*word)};
    if (!isOrdered || !job.variables().empty())
        return {JobFault::Order, 0, RobotPos::nameOf(*word)};
    return {};
}

JobFault readVariable(JobScanner &scanner, ProgramJOB &job)
{
    QString variable;
    QString value;
    if (!scanner.read(variable) || !scanner.take(" ") || !scanner.read(value))
        return {JobFault::Value, 0, QStringLiteral("VARIABLE")};
    if (!scanner.atEnd())
        return surplus(scanner);
    const ProgramJOB::Variables &variables = job.variables();
    if (variables.count(variable) > 0)
        return {JobFault::Twice, 0, variable};
    if (!variables.empty() && variable < variables.rbegin()->first)
        return {JobFault::Order, 0, variable};
    job.setVariable(variable, value);
    return {};
}

/// A move refers to its position by the id word; the pointer is made anew.
JobFault findPosition(Command &command, const ProgramJOB &job)
{
    auto *move = dynamic_cast<MoveCommand *>(&command);
    if (!move || move->positionId == 0)
        return {};
    move->position = job.getPosition(move->positionId);
    if (move->position)
        return {};
    return {JobFault::Position, 0, RobotPos::nameOf(move->positionId)};
}

JobFault readCommand(JobScanner &scanner, ProgramJOB &job)
{
    const std::string_view word = scanner.word();
    std::unique_ptr<Command> command = commandOf(word);
    if (!command)
        return {JobFault::UnknownCommand, 0,
                QString::fromUtf8(word.data(),
                                  static_cast<int>(std::min<std::size_t>(word.size(), 40)))};
    JobFault fault;
    visitFields(*command, FieldReader{scanner, fault});
    if (fault)
        return fault;
    if (!scanner.atEnd())
        return surplus(scanner);
    fault = findPosition(*command, job);
    job.insertCommand(job.lineCount() + 1, std::move(command));
    return fault;
}

JobFault readHead(JobScanner &scanner)
{
    int version = 0;
    if (!scanner.take(kMark))
        return {JobFault::NotAJob, 0, {}};
    const QString text = scanner.rest();
    if (!scanner.read(version) || !scanner.atEnd() || version != jobfile::kVersion)
        return {JobFault::Version, 0, text.left(20)};
    return {};
}

enum class Section { Head, Positions, Commands, Ended };

/// Reads one line and moves on to the section of the next.
JobFault readLine(JobScanner &scanner, Section &section, ProgramJOB &job)
{
    switch (section) {
    case Section::Head:
        section = Section::Positions;
        return readHead(scanner);
    case Section::Positions:
        if (scanner.take("POSITION "))
            return readPosition(scanner, job);
        if (scanner.take("VARIABLE "))
            return readVariable(scanner, job);
        if (!scanner.takeAll("BEGIN"))
            return {JobFault::Field, 0, QStringLiteral("BEGIN")};
        section = Section::Commands;
        return {};
    case Section::Commands:
        if (!scanner.takeAll("END"))
            return readCommand(scanner, job);
        section = Section::Ended;
        return {};
    case Section::Ended:
        break;
    }
    return surplus(scanner);
}

} // namespace

QByteArray jobfile::write(const ProgramJOB &job)
{
    QByteArray out;
    out.append(kMark.data(), static_cast<int>(kMark.size()));
    appendNumber(out, kVersion);
    out.append('\n');
    for (const auto &[word, position] : job.positions()) {
        appendPosition(out, *position);
        out.append('\n');
    }
    for (const auto &[name, value] : job.variables()) {
        out.append("VARIABLE ");
        appendText(out, name);
        out.append(' ');
        appendText(out, value);
        out.append('\n');
    }
    out.append("BEGIN\n");
    for (int line = 1; line <= job.lineCount(); ++line) {
        appendCommand(out, *job.command(line));
        out.append('\n');
    }
    out.append("END\n");
    return out;
}

QByteArray jobfile::lineOf(const Command &command)
{
    QByteArray out;
    appendCommand(out, command);
    return out;
}

QByteArray jobfile::lineOf(const RobotPos &position)
{
    QByteArray out;
    appendPosition(out, position);
    return out;
}

jobfile::Reading jobfile::read(const QByteArray &text, const QString &name)
{
    Reading reading;
    auto job = std::make_unique<ProgramJOB>(name);
    Section section = Section::Head;
    const char *at = text.constData();
    const char *const end = at + text.size();
    int line = 0;
    while (at < end) {
        ++line;
        const char *stop = std::find(at, end, '\n');
        JobScanner scanner(at, stop);
        JobFault fault = stop == end && section != Section::Head
            ? JobFault{JobFault::CutOff, line, {}}
            : readLine(scanner, section, *job);
        if (fault) {
            fault.line = line;
            reading.fault = fault;
            return reading;
        }
        at = stop == end ? end : stop + 1;
    }
    if (section != Section::Ended) {
        reading.fault = {line == 0 ? JobFault::NotAJob : JobFault::CutOff, std::max(line, 1), {}};
        return reading;
    }
    reading.job = std::move(job);
    return reading;
}
