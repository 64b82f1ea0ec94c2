// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fmt/core.h>

#include <string_view>
#include <utility>

/// The library's own log lines. They go to the default logger of spdlog, which belongs to the host;
/// only log.cpp includes spdlog, since its headers cost every unit seconds of compiling.
namespace ui::log {

enum class Level
{
    Debug,
    Info,
    Warning,
    Error,
};

/// Hands one finished line to the default logger. A sink that throws is the host's affair and is
/// ignored here.
void write(Level level, std::string_view line);

template <typename... Args>
void debug(fmt::format_string<Args...> format, Args&&... args)
{
    write(Level::Debug, fmt::format(format, std::forward<Args>(args)...));
}

template <typename... Args>
void info(fmt::format_string<Args...> format, Args&&... args)
{
    write(Level::Info, fmt::format(format, std::forward<Args>(args)...));
}

template <typename... Args>
void warning(fmt::format_string<Args...> format, Args&&... args)
{
    write(Level::Warning, fmt::format(format, std::forward<Args>(args)...));
}

template <typename... Args>
void error(fmt::format_string<Args...> format, Args&&... args)
{
    write(Level::Error, fmt::format(format, std::forward<Args>(args)...));
}

} // namespace ui::log
