#pragma once

#include "layout/Layout.h"

namespace studio {

inline constexpr int kLayoutVersion = 1;
inline constexpr int kMaxLayoutNesting = 32;         ///< groups within each other
inline constexpr qint64 kMaxLayoutBytes = 256 << 10; ///< of a file
inline constexpr int kMaxExtent = 100'000;           ///< logical pixels, either way from 0

struct LayoutResult
{
    std::optional<Layout> layout; ///< empty when it cannot be read
    QString error;                ///< then what is wrong with it, the rest of a sentence

    explicit operator bool() const { return layout.has_value(); }
};

/// Reads what layoutJson() has written, or a person. Whatever is not of the right type, out of
/// range, nested too deep, or names a panel twice makes it unreadable. Ids are not checked further:
/// see fitted().
LayoutResult readLayout(const QByteArray& json);

/// Reads a file; also a resource or one in a search path.
LayoutResult readLayoutFile(const QString& path);

QByteArray layoutJson(const Layout& layout);

/// Writes a file as a whole or not at all, and makes its folder.
/// @return what went wrong, the rest of a sentence; empty for nothing
QString writeLayoutFile(const Layout& layout, const QString& path);

} // namespace studio
