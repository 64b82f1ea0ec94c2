// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/framefollowing.h"

#include <MorrantUI/timeeditor/TimeEditorView.h>

namespace ui {

namespace {

constexpr double kPageLead = 0.05; ///< of a page, between its left edge and the frame

} // namespace

std::optional<double> pageFor(double left, double right, double frame)
{
    if (!(left < right) || (frame >= left && frame <= right)) {
        return std::nullopt;
    }
    return frame - (right - left) * kPageLead;
}

void followFrame(TimeEditorView* view, int frame)
{
    if (!view) {
        return;
    }
    const QRectF seen = view->getVisibleRect();
    if (const auto left = pageFor(seen.left(), seen.right(), frame)) {
        view->scrollAcross(view->mapFromScene(*left, 0.0).x());
    }
}

} // namespace ui
