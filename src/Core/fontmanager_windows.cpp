// SPDX-License-Identifier: Apache-2.0
#include "fontmanager.h"

#include <include/ports/SkFontMgr_empty.h>

sk_sp<SkFontMgr> morrant::makeFontManager()
{
    // It knows no installed font, but reads any file.
    return SkFontMgr_New_Custom_Empty();
}
