// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace ui::bench {

/// Prints one line for each figure, "bench NAME VALUE UNIT limit LIMIT ok" (or "short", beyond the
/// limit) and "bench NAME VALUE UNIT reported", and remembers whether any was short.
class Report
{
public:
    /// The program's first argument, if there is one, is a text that a figure's name must hold.
    Report(int argc, char** argv);

    /// Whether the figure was asked for; ask before measuring.
    bool wants(std::string_view name) const;

    /// Prints a figure that must not exceed its limit. A NaN is short.
    void judge(std::string_view name, double value, std::string_view unit, double limit);

    /// Prints a figure without a limit.
    void state(std::string_view name, double value, std::string_view unit);

    /// 1 when a figure was short, else 0.
    int exitCode() const { return m_short ? 1 : 0; }

private:
    std::string m_filter;
    bool m_short = false;
};

} // namespace ui::bench
