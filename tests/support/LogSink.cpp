// SPDX-License-Identifier: Apache-2.0
#include "support/LogSink.h"

#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <mutex>

namespace ui::test {

static QStringList gLines;
static QStringList gMissedColors;

namespace {

class RecordingSink : public spdlog::sinks::base_sink<std::mutex>
{
protected:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        static const QString missed = QStringLiteral("debug: The theme has no color ");
        const auto level = spdlog::level::to_string_view(message.level);
        const QString line = QString::fromStdString(fmt::format("{}: {}", level, message.payload));
        line.startsWith(missed) ? gMissedColors.append(line.mid(missed.size()))
                                : gLines.append(line);
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

QStringList LogSink::takeMissedColors()
{
    return std::exchange(gMissedColors, {});
}

} // namespace ui::test
