// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QRectF>
#include <QStyleOption>

class QAbstractButton;
class QKeyEvent;
class QPainter;

/// What the button family shares.
namespace ui {

/// The height of a row of controls in the widget's own font, logical pixels.
int rowHeight(const QWidget& widget);

/// The thickness of a switch's track and of a check mark's box in the widget's own font.
int indicatorHeight(const QWidget& widget);

/// The theme's icon; null for an empty name.
QIcon namedIcon(const QString& name);

/// The state of a button that the style's own classes do not know.
QStyleOption buttonOption(const QAbstractButton& button);

/// Draws an icon into `rect`, which it may fill, all of it in one colour; in its own colours when
/// `color` is invalid.
void drawMasked(
    QPainter& painter, const QRectF& rect, const QIcon& icon, const QColor& color, bool enabled);

/// Whether the key is Return or the keypad's Enter, whatever is held with it.
bool isReturn(const QKeyEvent& event);

/// Whether Control, Shift or the like is held with the key; the keypad does not count.
bool hasModifier(const QKeyEvent& event);

/// While a button has the focus, Space is its own, also where the window has a shortcut for it. One
/// that has got the focus by a click leaves the key to the window.
void keepSpace(QAbstractButton& button);

/// Clicks the button if the event is a first press of Return or Enter; its repetitions do nothing.
/// @return whether it was Return or Enter
bool clickOnReturn(QAbstractButton& button, const QKeyEvent& event);

/// The same for what is switched rather than pressed: in a dialog, Return belongs to the default
/// button.
bool switchOnReturn(QAbstractButton& button, const QKeyEvent& event);

} // namespace ui
