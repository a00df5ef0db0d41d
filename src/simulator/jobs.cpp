#include "simulator/jobs.h"

#include "simulator/envelope.h"
#include "simulator/handlers.h"
#include "simulator/parameterstore.h"
#include "wire/ids.h"
#include "wire/json.h"

namespace {

ParameterStore::Key keyOf(int robot, const QString &name)
{
    return {robot, "job", 0, name};
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
    if (checked.program
        && !request.jobs.keep(request.store, *robot, *name, *text, std::move(checked.program)))
        return "the store does not take it";
    Json::Value answer;
    answer["robot"] = *robot;
    answer["name"] = name->toStdString();
    answer["fault"] = checked.fault.word();
    answer["line"] = checked.fault.line;
    answer["detail"] = checked.fault.detail.toStdString();
    request.reply(wire::JobChecked, answer);
    return nullptr;
}

} // namespace

bool JobShelf::keep(ParameterStore &store, int robot, const QString &name, const QString &text,
                    std::unique_ptr<JobProgram> program)
{
    Json::Value kept;
    kept["text"] = text.toStdString();
    if (!store.store(keyOf(robot, name), kept))
        return false;
    m_programs[{robot, name}] = std::move(program);
    return true;
}

const JobProgram *JobShelf::find(const ParameterStore &store, int robot, const QString &name)
{
    const auto found = m_programs.find({robot, name});
    if (found != m_programs.end())
        return found->second.get();
    const std::optional<Json::Value> kept = store.load(keyOf(robot, name));
    const std::optional<QString> text = kept ? wire::text(*kept, "text") : std::nullopt;
    if (!text)
        return nullptr;
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
