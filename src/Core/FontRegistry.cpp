// SPDX-License-Identifier: Apache-2.0
#include "FontRegistry.h"

#include "fontmanager.h"

#include <include/core/SkString.h>

#include <memory>
#include <set>
#include <utility>

namespace morrant {

namespace {

std::string familyName(const SkTypeface& typeface)
{
    SkString name;
    typeface.getFamilyName(&name);
    return {name.c_str(), name.size()};
}

} // namespace

// Never destroyed: Skia's own statics, made later, would be gone before it.
FontRegistry& gFontRegistry = *std::make_unique<FontRegistry>().release();

FontRegistry::FontRegistry() = default;
FontRegistry::~FontRegistry() = default;

sk_sp<SkTypeface> FontRegistry::addFont(const std::string& utf8Path)
{
    auto known = m_files.find(utf8Path);
    if (known == m_files.end()) {
        if (!m_fontManager) {
            m_fontManager = makeFontManager();
        }
        auto typeface = m_fontManager->makeFromFile(utf8Path.c_str());
        if (!typeface) {
            return nullptr;
        }
        known = m_files.emplace(utf8Path, FontFile{std::move(typeface), false}).first;
    }
    report(known->first, known->second);
    return known->second.typeface;
}

void FontRegistry::setFontFileCallback(FontFileCallback callback)
{
    m_callback = std::move(callback);
}

std::vector<std::string> FontRegistry::families() const
{
    std::set<std::string> names;
    for (const auto& [path, file] : m_files) {
        names.insert(familyName(*file.typeface));
    }
    return {names.begin(), names.end()};
}

std::vector<sk_sp<SkTypeface>> FontRegistry::typefaces(const std::string& family) const
{
    std::vector<sk_sp<SkTypeface>> found;
    for (const auto& [path, file] : m_files) {
        if (familyName(*file.typeface) == family) {
            found.push_back(file.typeface);
        }
    }
    return found;
}

void FontRegistry::report(const std::string& path, FontFile& file)
{
    if (file.reported || !m_callback) {
        return;
    }
    file.reported = true;
    // A copy, since a callback that replaces itself must not be destroyed while it runs.
    const FontFileCallback callback = m_callback;
    callback(path);
}

} // namespace morrant
