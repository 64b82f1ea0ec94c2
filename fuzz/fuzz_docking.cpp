// SPDX-License-Identifier: Apache-2.0
// Any bytes as a session of docking, four to a step: no session breaks the tree, leaks a window or
// makes Qt warn.

#include "QtHost.h"
#include "docking/DockFuzzer.h"
#include <MorrantUI/docking/DockableWindow.h>

#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t kLongest = 300; // steps

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto* const host = new QtHost;
    Q_UNUSED(host);
    ui::test::DockSteps steps(std::min(size / sizeof(ui::test::DockStep), kLongest));
    if (!steps.empty()) {
        std::memcpy(steps.data(), data, steps.size() * sizeof(ui::test::DockStep));
    }
    const QString broken = ui::test::playDockSteps(steps);
    check(broken.isEmpty(), qPrintable(broken));
    const auto left = QApplication::allWidgets();
    const bool none = std::none_of(left.begin(), left.end(), [](QWidget* widget) {
        return qobject_cast<DockableWindow*>(widget) != nullptr;
    });
    check(none, "a window outlives the session");
    return 0;
}
