// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>

class TimeEditorKeyframeItem;
class TimeEditorLayoutContainer;

/// Where the keyboard goes among the keys of a stack of rows.
namespace ui {

/// The key that an arrow, Home or End leads to: along the row, or to the key nearest in time of the
/// next row that has any. The one it comes from where there is none, and for other keys.
TimeEditorKeyframeItem* walkedKey(
    const TimeEditorLayoutContainer& rows, TimeEditorKeyframeItem* from, int key);

/// Where a walk begins: in the first row in sight with any keys, at the one nearest to a frame.
/// Null without any.
TimeEditorKeyframeItem* firstWalkedKey(
    const TimeEditorLayoutContainer& rows, const QRectF& visible, int frame);

} // namespace ui
