// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QKeyEvent>

namespace ui {

/// Whether a key undoes or redoes.
inline bool isHistoryKey(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

} // namespace ui
