// SPDX-License-Identifier: Apache-2.0
#include "fontmanager.h"

#include <include/ports/SkFontMgr_fontconfig.h>

sk_sp<SkFontMgr> morrant::makeFontManager()
{
    return SkFontMgr_New_FontConfig(nullptr);
}
