// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/VisualDesignBase.h>

#include <memory>
#include <utility>
#include <vector>

namespace ui::test {

/// Makes a theme, which is the current one from then on, and keeps it to the end of the program:
/// the pointer to the current theme is never cleared.
template <typename Theme, typename... Args>
Theme& makeTheme(Args&&... args)
{
    // Itself never destroyed, since static widgets may still ask for colours.
    static auto* const themes = new std::vector<std::unique_ptr<Theme>>;
    themes->push_back(std::make_unique<Theme>(std::forward<Args>(args)...));
    return *themes->back();
}

} // namespace ui::test
