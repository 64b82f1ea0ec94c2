// SPDX-License-Identifier: Apache-2.0
#include <MorrantUI/version.h>

namespace ui {

int version() noexcept
{
    return MORRANT_UI_VERSION;
}

const char* versionString() noexcept
{
    return MORRANT_UI_VERSION_STRING;
}

} // namespace ui
