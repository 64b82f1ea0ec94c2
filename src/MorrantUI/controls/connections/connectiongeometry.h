// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRegion>

#include <algorithm>
#include <cmath>

namespace ui {

/// The line of a connection: a cord that hangs a little between its ends. Logical pixels.
struct ConnectionCurve
{
    QPointF start;
    QPointF end;

    /// How far the middle hangs below the straight line.
    double sag() const
    {
        constexpr double kSlack = 0.06; ///< of the distance between the ends
        constexpr double kDeepest = 32.0;
        return std::min(kSlack * length(), kDeepest);
    }

    double length() const { return std::hypot(end.x() - start.x(), end.y() - start.y()); }

    /// The point at a share of the way, from 0 at the start to 1 at the end.
    QPointF at(double share) const
    {
        const double back = 1.0 - share;
        return back * back * start + 2.0 * back * share * control() + share * share * end;
    }

    QPainterPath path() const
    {
        QPainterPath path(start);
        path.quadTo(control(), end);
        return path;
    }

    /// What has to be painted for the line and everything within `margin` of it: a chain of small
    /// rectangles, since the one around all of it would repaint half a window at every step.
    QRegion region(double margin) const
    {
        constexpr double kPiece = 40.0; ///< length of line in one rectangle
        constexpr int kMostPieces = 64;
        const double wanted = std::min<double>(length() / kPiece, kMostPieces);
        const int pieces = std::max(1, static_cast<int>(std::ceil(wanted)));
        const double reach = margin + sag() / pieces; // the arc of a piece stays above its chord
        QRegion region;
        for (int i = 0; i < pieces; ++i) {
            const QRectF chord(
                at(static_cast<double>(i) / pieces), at(static_cast<double>(i + 1) / pieces));
            region += chord.normalized().adjusted(-reach, -reach, reach, reach).toAlignedRect();
        }
        return region;
    }

private:
    QPointF control() const { return (start + end) / 2 + QPointF(0, 2 * sag()); }
};

} // namespace ui
