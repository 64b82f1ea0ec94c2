// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/log.h"

#include <spdlog/spdlog.h>

namespace ui::log {

namespace {

spdlog::level::level_enum toSpdlog(Level level)
{
    switch (level) {
    case Level::Debug: return spdlog::level::debug;
    case Level::Info: return spdlog::level::info;
    case Level::Warning: return spdlog::level::warn;
    case Level::Error: break;
    }
    return spdlog::level::err;
}

} // namespace

void write(Level level, std::string_view line)
{
    // The string_view overload takes the line as it is: braces in it are text, not placeholders.
    if (auto* logger = spdlog::default_logger_raw()) {
        logger->log(toSpdlog(level), spdlog::string_view_t(line.data(), line.size()));
    }
}

} // namespace ui::log
