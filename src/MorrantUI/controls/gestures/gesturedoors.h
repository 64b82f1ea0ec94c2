#pragma once

class QEvent;
class QWidget;

namespace ui {

/// Whether an event of a widget tells that it has lost the mouse, or is about to: it is hidden,
/// as by another parent, or disabled, its window loses the focus or is blocked by a modal dialog.
bool endsGesture(const QWidget& widget, const QEvent& event);

/// Whether a modal dialog keeps the mouse from a widget.
bool isBlockedByDialog(const QWidget& widget);

/// Whether a widget may take hold of the mouse: it is visible and enabled, no modal dialog blocks
/// its window, and the application is the active one. Where this fails, endsGesture() would come
/// too late.
bool mayTakeMouse(const QWidget& widget);

} // namespace ui
