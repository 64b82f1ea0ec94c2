// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/theme/style/shades.h"

#include <QRectF>

class QPainter;
class QWidget;

/// What tabs and their header share of their look.
namespace ui::tabs {

/// The height of a tab in the widget's own font, logical pixels.
int tabHeight(const QWidget& widget);

/// A tab's ground, round at its upper corners; the active one has the page's colour and a line in
/// the accent colour along its top.
void paintTab(QPainter& painter, const QRectF& tab, bool active, const style::WidgetState& state);

/// That line alone.
void paintAccent(QPainter& painter, const QRectF& tab, const style::WidgetState& state);

/// The ring of a tab with the keyboard focus, below that line.
void paintFocus(QPainter& painter, const QRectF& tab);

/// What the tabs stand on.
QColor rowGround();

} // namespace ui::tabs
