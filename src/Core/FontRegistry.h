// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>

#include <include/core/SkFontMgr.h>
#include <include/core/SkTypeface.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace morrant {

/// The fonts that the application brings along as files, for Skia and, through the callback, for
/// whoever else draws text. GUI thread only.
class FontRegistry
{
public:
    /// Receives the path of a font file, UTF-8, as it was given to addFont().
    using FontFileCallback = std::function<void(const std::string&)>;

    MORRANT_CORE_EXPORT FontRegistry();
    MORRANT_CORE_EXPORT ~FontRegistry();
    FontRegistry(const FontRegistry&) = delete;
    FontRegistry& operator=(const FontRegistry&) = delete;

    /// Loads a font file; of a collection its first face. The registry keeps the typeface, so that
    /// asking again for the same path reads nothing. Null for a file that is missing or is not a
    /// font; such a path is read anew the next time.
    ///
    /// The callback is told each loaded file once, from the first call for its path that finds a
    /// callback set.
    MORRANT_CORE_EXPORT sk_sp<SkTypeface> addFont(const std::string& utf8Path);

    /// Replaces the callback; an empty one stops the reports. Files that an earlier callback was
    /// told are not reported again. A callback may call any operation of the registry, this one
    /// too.
    MORRANT_CORE_EXPORT void setFontFileCallback(FontFileCallback callback);

    /// The family names of the loaded fonts, sorted, each once.
    MORRANT_CORE_EXPORT std::vector<std::string> families() const;

    /// The loaded fonts of a family in the order of their paths; empty for a family that is not
    /// ours. The name is compared exactly.
    MORRANT_CORE_EXPORT std::vector<sk_sp<SkTypeface>> typefaces(const std::string& family) const;

private:
    struct FontFile
    {
        sk_sp<SkTypeface> typeface;
        bool reported = false;
    };

    void report(const std::string& path, FontFile& file);

    sk_sp<SkFontMgr> m_fontManager; ///< made by the first font, with the process's font list
    std::map<std::string, FontFile> m_files;
    FontFileCallback m_callback;
};

/// The application's registry. It outlives every static object, since these may hold typefaces.
MORRANT_CORE_EXPORT extern FontRegistry& gFontRegistry;

} // namespace morrant
