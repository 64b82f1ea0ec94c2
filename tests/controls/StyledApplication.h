// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/TestCase.h"
#include "support/themes.h"
#include "theme/ApplicationLook.h"
#include <MorrantUI/theme/VisualDesignDark.h>

namespace ui::test {

/// The dark theme and its style for as long as a test class runs; the
/// application's former look comes back with the end of this object.
class StyledApplication
{
public:
    StyledApplication() { m_theme.applyAppStyle(); }

    VisualDesignDark& theme() { return m_theme; }

private:
    ApplicationLook m_look;
    VisualDesignDark& m_theme = makeTheme<VisualDesignDark>(assetsPath());
};

/// Base of the test classes that run in such an application.
class StyledTestCase : public TestCase
{
protected:
    VisualDesignDark& theme() { return m_application.theme(); }

private:
    StyledApplication m_application;
};

} // namespace ui::test
