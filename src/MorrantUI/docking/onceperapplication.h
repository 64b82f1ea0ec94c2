// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QPointer>

namespace ui::docking {

/// Whether something is to be done for the application that runs now, since it was last done for
/// another one or for none; it counts as done from then on.
/// @param doneFor kept between the calls
inline bool isFirstFor(QPointer<QCoreApplication>& doneFor)
{
    const bool isFirst = doneFor != QCoreApplication::instance();
    doneFor = QCoreApplication::instance();
    return isFirst;
}

} // namespace ui::docking
