#include "simulator/jobs.h"

#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/parameterstore.h"
#include "wire/ids.h"
#include "wire/json.h"

namespace {

constexpr char kPackage[] = "job";

ParameterStore::Key keyOf(int robot, const QString &name)
{
    return {robot, kPackage, 0, name};
}

// {"robot", "name", "text"}: the job as the file has it. The answer tells what is wrong with it.
const char *storeJob(Request &request)
{
    const std::optional<int> robot = envelope::robot(request.body);
    const std::optional<QString> name = wire::text(request.body, "name");
    const std::optional<QString> text = wire::text(request.body, "text");
    if (!robot)
        return "robot";
    if (!name || name->isEmpty() || name->toUtf8().size() > JobShelf::kMaxNameBytes)
        return "name";
    if (!text)
        return "text";
    JobProgram::Checked checked = JobProgram::check(text->toUtf8(), *name);
    JobFault fault = checked.fault;
    if (checked.program)
        fault = request.jobs.refusal(request.store, *robot, *name, *text);
    if (!fault
        && !request.jobs.keep(request.store, *robot, *name, *text, std::move(checked.program)))
        return "the store does not take it";
    Json::Value answer;
    answer["robot"] = *robot;
    answer["name"] = name->toStdString();
    answer["fault"] = fault.word();
    answer["line"] = fault.line;
    answer["detail"] = fault.detail.toStdString();
    request.reply(wire::JobChecked, answer);
    return nullptr;
}

Json::Value rowOf(const QString &text)
{
    Json::Value row;
    row["text"] = text.toStdString();
    return row;
}

} // namespace

JobFault JobShelf::refusal(const ParameterStore &store, int robot, const QString &name,
                           const QString &text)
{
    if (!jobname::isValid(name))
        return {JobFault::Name, 0, {}};
    const QHash<QString, qint64> &sizes = sizesOf(store, robot);
    if (!sizes.contains(name) && sizes.size() >= m_limits.jobs)
        return {JobFault::TooMany, 0, QString::number(m_limits.jobs)};
    qint64 bytes = ParameterStore::sizeOf(rowOf(text)) - sizes.value(name);
    for (const qint64 each : sizes)
        bytes += each;
    if (bytes > m_limits.bytes)
        return {JobFault::NoRoom, 0, QStringLiteral("%1 MiB").arg(m_limits.bytes >> 20)};
    return {};
}

const QHash<QString, qint64> &JobShelf::sizesOf(const ParameterStore &store, int robot)
{
    const auto found = m_sizes.find(robot);
    if (found != m_sizes.end())
        return found->second;
    static const QHash<QString, qint64> none;
    const std::optional<QHash<QString, qint64>> sizes = store.sizes(robot, kPackage);
    return sizes ? m_sizes[robot] = *sizes : none; // the message is refused for what was met
}

bool JobShelf::keep(ParameterStore &store, int robot, const QString &name, const QString &text,
                    std::unique_ptr<JobProgram> program)
{
    const Json::Value row = rowOf(text);
    if (!store.store(keyOf(robot, name), row))
        return false;
    m_unsettled.push_back({{robot, name}, std::move(program), ParameterStore::sizeOf(row)});
    return true;
}

void JobShelf::settle(bool isStored)
{
    for (Kept &kept : m_unsettled) {
        if (!isStored)
            break;
        const auto sizes = m_sizes.find(kept.place.first);
        if (sizes != m_sizes.end())
            sizes->second[kept.place.second] = kept.bytes;
        m_programs[kept.place] = std::move(kept.program);
    }
    m_unsettled.clear();
}

void JobShelf::clear()
{
    m_programs.clear();
    m_unsettled.clear();
    m_sizes.clear();
}

const JobProgram *JobShelf::find(const ParameterStore &store, int robot, const QString &name)
{
    const auto found = m_programs.find({robot, name});
    if (found != m_programs.end())
        return found->second.get();
    const std::optional<Json::Value> kept = store.load(keyOf(robot, name));
    const std::optional<QString> text = kept ? wire::text(*kept, "text") : std::nullopt;
    if (!text) {
        if (kept)
            store.markUnreadable(keyOf(robot, name));
        return nullptr;
    }
    // What an older controller took and this one does not is no job of it.
    JobProgram::Checked checked = JobProgram::check(text->toUtf8(), name);
    if (!checked.program)
        return nullptr;
    return (m_programs[{robot, name}] = std::move(checked.program)).get();
}

HandlerTable jobHandlers()
{
    return {{wire::StoreJob, &storeJob}};
}
