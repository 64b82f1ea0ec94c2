// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/nativemouse.h"

#include "MorrantUI/platform/PointerConfinement.h"
#include "MorrantUI/platform/PointerSystem.h"

#include <utility>

using morrant::native::PointerSystem;

namespace {

bool gHiddenByUs = false;

} // namespace

void hideNativeMouse()
{
    if (!std::exchange(gHiddenByUs, true)) {
        PointerSystem::instance().hide();
    }
}

void showNativeMouse()
{
    if (std::exchange(gHiddenByUs, false)) {
        PointerSystem::instance().show();
    }
}

void resetNativeMouseState()
{
    morrant::native::PointerConfinement::endAll();
    showNativeMouse();
}
