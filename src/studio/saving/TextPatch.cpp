// SPDX-License-Identifier: Apache-2.0
#include "saving/TextPatch.h"

#include <utility>

namespace studio {

void TextPatch::replace(Span span, std::string text)
{
    m_edits.erase(m_edits.lower_bound(span.begin), m_edits.lower_bound(span.end));
    m_edits.insert_or_assign(span.begin, Edit{span.end, std::move(text)});
}

std::string_view TextPatch::source(Span span) const
{
    return m_source.substr(span.begin, span.end - span.begin);
}

std::string TextPatch::patched(Span span) const
{
    std::string result;
    std::uint32_t at = span.begin;
    const auto end = m_edits.lower_bound(span.end);
    for (auto edit = m_edits.lower_bound(span.begin); edit != end; ++edit) {
        result += source({at, edit->first});
        result += edit->second.text;
        at = edit->second.end;
    }
    return result += source({at, span.end});
}

std::string TextPatch::result() const
{
    return patched({0, static_cast<std::uint32_t>(m_source.size())});
}

} // namespace studio
