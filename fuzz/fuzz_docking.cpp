// SPDX-License-Identifier: Apache-2.0
// Any bytes as a session of docking, four to a step: no session breaks the tree, leaks a window or
// makes Qt warn.

#include "docking/DockFuzzer.h"
#include <MorrantUI/docking/DockableWindow.h>

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kLongest = 300; // steps

void check(bool holds, const QString& claim)
{
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", qPrintable(claim));
        std::abort();
    }
}

void abortOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    const bool ofThePlatform = text.startsWith(QLatin1String("This plugin does not support"))
                               && !text.contains(QLatin1String("setParent"));
    check(type == QtDebugMsg || type == QtInfoMsg || ofThePlatform, text);
}

struct Host
{
    Host() { qInstallMessageHandler(abortOnWarning); }

    int argc = 1;
    char name[13] = "fuzz_docking";
    char* argv[2] = {name, nullptr};
    QApplication application{argc, argv};
};

void startHost()
{
    static const auto* const host = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QApplication::setDesktopSettingsAware(false);
        return new Host;
    }();
    Q_UNUSED(host);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    startHost();
    ui::test::DockSteps steps(std::min(size / sizeof(ui::test::DockStep), kLongest));
    if (!steps.empty()) {
        std::memcpy(steps.data(), data, steps.size() * sizeof(ui::test::DockStep));
    }
    const QString broken = ui::test::playDockSteps(steps);
    check(broken.isEmpty(), broken);
    const auto left = QApplication::allWidgets();
    const bool none = std::none_of(left.begin(), left.end(), [](QWidget* widget) {
        return qobject_cast<DockableWindow*>(widget) != nullptr;
    });
    check(none, QStringLiteral("a window outlives the session"));
    return 0;
}
