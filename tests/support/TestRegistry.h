// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ui::test {

/// When a test class runs within its program.
enum class RunOrder
{
    First, ///< before any theme exists: the current-theme pointer is never cleared again
    Normal,
};

struct TestEntry
{
    std::string name;
    RunOrder order = RunOrder::Normal;
    std::function<std::unique_ptr<QObject>()> make;
    std::function<bool()> runsHere; ///< asked once there is an application; empty if it always does
};

/// Every test class linked into this program, in no particular order.
inline std::vector<TestEntry>& testRegistry()
{
    static std::vector<TestEntry> entries;
    return entries;
}

/// A file-level `const ui::test::Registration<FooTest> kRegistration;` adds FooTest to the program.
/// Where `runsHere` says no, the program is one without it.
template <typename Test>
struct Registration
{
    explicit Registration(
        RunOrder order = RunOrder::Normal, std::function<bool()> runsHere = nullptr)
    {
        testRegistry().push_back(
            {Test::staticMetaObject.className(),
             order,
             [] { return std::make_unique<Test>(); },
             std::move(runsHere)});
    }
};

} // namespace ui::test
