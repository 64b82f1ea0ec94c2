// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Property.h"

#include <map>
#include <string>
#include <string_view>

namespace studio {

/// A text with stretches of it replaced. Keeps no copy of the text, which must outlive it.
class TextPatch
{
public:
    explicit TextPatch(std::string_view source)
        : m_source(source)
    {}

    /// Replaces a stretch, and with it what was replaced within it.
    void replace(Span span, std::string text);
    bool isEmpty() const { return m_edits.empty(); }

    /// A stretch as it stands in the text.
    std::string_view source(Span span) const;
    /// A stretch with what was replaced within it. @param span cuts no replaced stretch in two
    std::string patched(Span span) const;
    /// The whole text, with what was replaced.
    std::string result() const;

private:
    struct Edit
    {
        std::uint32_t end = 0;
        std::string text;
    };

    std::string_view m_source;
    std::map<std::uint32_t, Edit> m_edits; ///< by where they begin; apart from each other
};

} // namespace studio
