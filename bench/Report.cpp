// SPDX-License-Identifier: Apache-2.0
#include "Report.h"

#include <cstdio>

namespace ui::bench {

namespace {

void printFigure(std::string_view name, double value, std::string_view unit)
{
    std::printf("bench %s %.4g %s ", std::string(name).c_str(), value, std::string(unit).c_str());
}

} // namespace

Report::Report(int argc, char** argv)
    : m_filter(argc > 1 ? argv[1] : "")
{}

bool Report::wants(std::string_view name) const
{
    return name.find(m_filter) != std::string_view::npos;
}

void Report::judge(std::string_view name, double value, std::string_view unit, double limit)
{
    const bool good = value <= limit;
    m_short = m_short || !good;
    printFigure(name, value, unit);
    std::printf("limit %.4g %s\n", limit, good ? "ok" : "short");
    std::fflush(stdout);
}

void Report::state(std::string_view name, double value, std::string_view unit)
{
    printFigure(name, value, unit);
    std::printf("reported\n");
    std::fflush(stdout);
}

} // namespace ui::bench
