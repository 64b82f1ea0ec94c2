// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

namespace studio {

/// A text of a function that belongs to no class, in the context that is given to it then.
inline QString tr(const char* text)
{
    return QCoreApplication::translate("studio", text);
}

} // namespace studio
