// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

namespace ui::test {

/// The words of a text, for tables with many names in one row.
inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ');
}

} // namespace ui::test
