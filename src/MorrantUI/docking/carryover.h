// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

namespace ui::docking {

/// Gives a widget that is seen another parent that is, in the same window, without hiding it: Qt
/// would hide it and show it again, which makes a video, or a window in it, blink. It stays where
/// it is on screen. Any other widget is left alone.
void carryOver(QWidget& widget, QWidget& parent);

/// Whether a window of its own (QWidget::createWindowContainer()) lies in the widget.
bool holdsWindow(const QWidget& widget);

} // namespace ui::docking
