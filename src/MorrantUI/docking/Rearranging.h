// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

namespace ui::docking {

/// While one lives, windows change places behind the scenes: none is shown as a top-level window,
/// groups neither grow nor move, and nobody shares out room. What moves within a top-level window
/// does not leave it.
class Rearranging
{
public:
    Rearranging();
    ~Rearranging();
    Q_DISABLE_COPY_MOVE(Rearranging)

    static bool active();
};

} // namespace ui::docking
