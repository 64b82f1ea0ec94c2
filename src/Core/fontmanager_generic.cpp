// SPDX-License-Identifier: Apache-2.0
#include "fontmanager.h"

#include <include/ports/SkFontMgr_fontconfig.h>

#include <fontconfig/fontconfig.h>

sk_sp<SkFontMgr> morrant::makeFontManager()
{
    // The process's own, which Qt has read: another one costs as much time again at the start.
    return SkFontMgr_New_FontConfig(FcConfigReference(nullptr));
}
