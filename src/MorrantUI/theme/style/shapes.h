// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/drawing.h>

#include <QRectF>

class QPainter;

/// The style's own helpers beside its public drawing verbs.
namespace ui::style {

using ui::drawChevron;
using ui::drawCross;
using ui::drawFocusRing;
using ui::drawTick;
using ui::fillRounded;
using ui::fillSharp;
using ui::strokeRounded;

inline constexpr double kRadius = kCornerRadius;
inline constexpr double kSmallRadius = kSmallCornerRadius;

/// Gives a painter its state back.
class PainterState
{
public:
    explicit PainterState(QPainter& painter);
    ~PainterState();
    Q_DISABLE_COPY_MOVE(PainterState)

private:
    QPainter& m_painter;
};

/// A rectangle drawn out beyond the side across from `edge`, so that filled with rounded corners
/// and clipped to the rectangle only those at `edge` are round.
QRectF openedAgainst(QRectF rect, Qt::Edge edge);

/// The largest square in the middle of `rect`, at most `side` wide.
QRectF centeredSquare(const QRectF& rect, double side);

} // namespace ui::style
