#pragma once

class QEvent;
class QWidget;

namespace ui {

/// Whether an event of a widget tells that it has lost the mouse, or is about to: it is hidden,
/// as by another parent, or disabled, its window loses the focus or is blocked by a modal dialog.
bool endsGesture(const QWidget& widget, const QEvent& event);

} // namespace ui
