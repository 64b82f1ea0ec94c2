// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QString>

#include <vector>

class TimeEditorBaseItem;
class TimeEditorKeyframeItem;
class TimeEditorLayoutContainer;

/// Where the keyboard goes among the keys of a stack of rows.
namespace ui {

inline constexpr int kRowName = 0x4B5; ///< of a row's QGraphicsItem::data(): what readers hear

/// The keys of a row of whatever kind, in the order of their frames.
std::vector<TimeEditorKeyframeItem*> keysIn(const TimeEditorBaseItem& row);
/// The row that a key is a child of, or null.
TimeEditorBaseItem* rowOf(const TimeEditorKeyframeItem& key);
/// What a row is about; empty where nobody has said so.
QString rowName(const TimeEditorBaseItem& row);

/// The key that an arrow, Home or End leads to: along the row, or to the key nearest in time of the
/// next row that has any. The one it comes from where there is none, and for other keys.
TimeEditorKeyframeItem* walkedKey(
    const TimeEditorLayoutContainer& rows, TimeEditorKeyframeItem* from, int key);

/// Where a walk begins: in the first row in sight with any keys, at the one nearest to a frame.
/// Null without any.
TimeEditorKeyframeItem* firstWalkedKey(
    const TimeEditorLayoutContainer& rows, const QRectF& visible, int frame);

} // namespace ui
