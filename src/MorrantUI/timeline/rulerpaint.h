// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/timeline/rulerlayout.h"
#include "MorrantUI/timeline/rulerticks.h"

#include <QFont>

class QPainter;

/// How a time ruler looks.
namespace ui {

/// One end of the playback range as it is painted.
struct BookendLook
{
    bool isThere = false;
    bool canBeDragged = false;
    bool isLit = false; ///< under the pointer, or dragged
};

struct RulerPicture
{
    RulerGeometry geometry;
    RulerScale scale;
    FrameRange frames;
    std::vector<MarkerSpot> spots;
    std::vector<MarkerBar> bars;
    const TimelineMarker* selected = nullptr; ///< painted in front, also where it shares its pixel
    int hoveredMarker = 0;
    BookendLook start;
    BookendLook end;
    bool isRangeLit = false;
    QFont font;
    QRectF playheadLabel; ///< labels that it would cover in part are left out
};

/// The font of labels and names: a little smaller than a widget's own.
QFont rulerFont(const QFont& widgetFont);
/// Whole pixels of a line in it.
double labelHeight(const QFont& font);
LabelMetrics labelMetrics(const QFont& font);
/// What is shown of a marker's name: one line, and no more than a screen is wide.
QString shownName(const QString& name);
/// Of what is shown.
double nameWidth(const QFont& font, const QString& name);

/// A frame as the ruler writes it: without a rate as its number.
QString rulerLabel(int frame, const RulerScale& scale);

/// Where the current frame's label is, above the thumb and within the ruler; empty where the thumb
/// is out of sight.
QRectF playheadLabel(const RulerGeometry& geometry, const QFont& font, const QString& label);

/// Everything but the current frame. The painter's units are pixels of the viewport.
void paintRuler(QPainter& painter, const RulerPicture& picture);
/// The line below the thumb, and the current frame's label.
void paintPlayhead(
    QPainter& painter, const RulerGeometry& geometry, const QFont& font, const QString& label);

} // namespace ui
