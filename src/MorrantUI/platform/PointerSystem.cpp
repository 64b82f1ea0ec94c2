// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/PointerSystem.h"

#include "MorrantUI/log.h"
#include <MorrantUI/theme/OverrideCursor.h>

#include <QGuiApplication>

namespace morrant::native {

namespace {

/// Where only Qt knows the pointer: off screen, and under Wayland, which lets nobody move it.
class QtPointer final : public PointerSystem
{
public:
    void hide() override { m_blank = std::make_unique<ui::OverrideCursor>(Qt::BlankCursor); }
    void show() override { m_blank.reset(); }

private:
    std::unique_ptr<ui::OverrideCursor> m_blank;
};

PointerSystem* gReplacement = nullptr;

PointerSystem& makeSystem()
{
    std::unique_ptr<PointerSystem> system = makePointerSystem();
    if (!system) {
        system = std::make_unique<QtPointer>();
    }
    return *system.release(); // never destroyed: others give the pointer back at the program's end
}

} // namespace

PointerSystem::~PointerSystem() = default;

PointerSystem& PointerSystem::instance()
{
    if (gReplacement) {
        return *gReplacement;
    }
    if (!qGuiApp) {
        static QtPointer before; // Qt does not know yet where it draws
        return before;
    }
    static PointerSystem& system = makeSystem();
    return system;
}

void PointerSystem::replace(PointerSystem* other)
{
    gReplacement = other;
}

bool logFailure(bool success)
{
    if (!success) {
        ui::log::error("Error: {}", PointerSystem::instance().lastError());
    }
    return success;
}

std::optional<QPoint> pointerPosition()
{
    const auto position = PointerSystem::instance().position();
    logFailure(position.has_value());
    return position;
}

} // namespace morrant::native
