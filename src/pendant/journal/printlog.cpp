#include "printlog.h"

#include "eventlog.h"

#include <QDir>
#include <QFile>

#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <algorithm>
#include <memory>

namespace {

constexpr std::size_t kFileBytes = 1024 * 1024;
constexpr std::size_t kOldFiles = 2; // with the current one: three files

std::shared_ptr<spdlog::logger> &logger()
{
    static auto *const instance = new std::shared_ptr<spdlog::logger>;
    return *instance;
}

spdlog::level::level_enum spdlogLevel(int level)
{
    constexpr spdlog::level::level_enum levels[] = {spdlog::level::debug, spdlog::level::info,
                                                    spdlog::level::warn, spdlog::level::err};
    return levels[std::clamp(level, 0, 3)];
}

void writeTo(spdlog::sink_ptr sink)
{
    auto opened = std::make_shared<spdlog::logger>("pendant", std::move(sink));
    opened->set_level(spdlog::level::debug);
    opened->set_pattern("%Y-%m-%d %H:%M:%S.%e %l %v");
    opened->flush_on(spdlog::level::warn);
    // A full disk must neither stop the pendant nor fill its error stream.
    opened->set_error_handler([](const std::string &) {});
    logger() = opened;
}

} // namespace

bool PrintLog::open(const QString &directory)
{
    close();
    if (!QDir().mkpath(directory))
        return false;
    const QString path = QDir(directory).filePath(QStringLiteral("pendant.log"));
    try {
        writeTo(std::make_shared<spdlog::sinks::rotating_file_sink_mt>(
            QFile::encodeName(path).toStdString(), kFileBytes, kOldFiles));
    } catch (const spdlog::spdlog_ex &) {
        return false;
    }
    return true;
}

void PrintLog::openStandardError()
{
    close();
    writeTo(std::make_shared<spdlog::sinks::stderr_sink_mt>());
}

void PrintLog::close()
{
    if (logger())
        logger()->flush();
    logger().reset();
}

void PrintLog::OutputToLog(const QString &text, int level)
{
    EventLog::getInstance()->record(QStringLiteral("log"), {text, level});
    writeLine(text, level);
}

void PrintLog::writeLine(const QString &text, int level)
{
    if (!logger())
        return;
    // One entry is one line, whatever the text holds.
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
    logger()->log(spdlogLevel(level), line.toUtf8().toStdString());
}
