// SPDX-License-Identifier: Apache-2.0
#include "support/LogSink.h"

#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <mutex>

namespace ui::test {

static QStringList gLines;

namespace {

class RecordingSink : public spdlog::sinks::base_sink<std::mutex>
{
protected:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        const auto level = spdlog::level::to_string_view(message.level);
        gLines.append(QString::fromStdString(fmt::format("{}: {}", level, message.payload)));
    }

    void flush_() override {}
};

} // namespace

void LogSink::install()
{
    auto logger = std::make_shared<spdlog::logger>("test", std::make_shared<RecordingSink>());
    logger->set_level(spdlog::level::trace);
    spdlog::set_default_logger(logger);
}

QStringList LogSink::take()
{
    return std::exchange(gLines, {});
}

} // namespace ui::test
