#pragma once

#include "support/paths.h"
#include "support/themes.h"
#include "theme/ApplicationLook.h"
#include <MorrantUI/theme/VisualDesignDark.h>

namespace ui::test {

/// The dark theme and its style for as long as a test class runs; the application's former look
/// comes back with the end of this object.
class StyledApplication
{
public:
    StyledApplication() { m_theme.applyAppStyle(); }

    VisualDesignDark& theme() { return m_theme; }

private:
    ApplicationLook m_look;
    VisualDesignDark& m_theme = makeTheme<VisualDesignDark>(assetsPath());
};

} // namespace ui::test
