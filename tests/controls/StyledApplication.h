// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/TestCase.h"
#include "theme/ApplicationLook.h"
#include <MorrantUI/theme/VisualDesignDark.h>

namespace ui::test {

/// Base of the test classes that run under the dark theme and its style; the application's former
/// look comes back with their end.
class StyledTestCase : public TestCase
{
protected:
    StyledTestCase() { m_theme.applyAppStyle(); }

    VisualDesignDark& theme() { return m_theme; }

private:
    ApplicationLook m_look;
    VisualDesignDark& m_theme = makeTheme<VisualDesignDark>(assetsPath());
};

} // namespace ui::test
