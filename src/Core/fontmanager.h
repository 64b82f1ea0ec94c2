// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <include/core/SkFontMgr.h>

namespace morrant {

/// A manager that reads font files by the system's own means; not null.
sk_sp<SkFontMgr> makeFontManager();

} // namespace morrant
