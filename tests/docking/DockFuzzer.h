// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace ui::test {

/// One step of a random session: what to do and, as numbers taken modulo what there is, to whom.
struct DockStep
{
    std::uint8_t kind = 0;
    std::uint8_t a = 0;
    std::uint8_t b = 0;
    std::uint8_t c = 0;
};

using DockSteps = std::vector<DockStep>;

DockSteps randomDockSteps(unsigned seed, int count);

/// Plays the steps on a main window with twelve panels, and asks for broken invariants after each.
/// @return what broke and at which step; empty if nothing did
QString playDockSteps(const DockSteps& steps);

} // namespace ui::test
