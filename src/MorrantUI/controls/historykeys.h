// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/events.h>

#include <QKeyEvent>

namespace ui {

/// Whether a key redoes, see redoKeys(), of which Qt's own fields know some only.
inline bool isRedoKey(const QKeyEvent& key)
{
    return redoKeys().contains(QKeySequence(key.keyCombination()));
}

/// Whether a key undoes or redoes.
inline bool isHistoryKey(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || isRedoKey(key);
}

} // namespace ui
