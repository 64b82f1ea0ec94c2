// SPDX-License-Identifier: Apache-2.0
#include "lottie/BoundsCanvas.h"

#include <include/core/SkPaint.h>
#include <include/core/SkPath.h>

namespace studio {

void BoundsCanvas::onDrawPath(const SkPath& path, const SkPaint& paint)
{
    const SkMatrix matrix = getTotalMatrix();
    SkPath shown;
    path.transform(matrix, &shown);
    SkRect room = shown.computeTightBounds();
    if (paint.getStyle() == SkPaint::kStroke_Style) {
        const float reach = matrix.mapRadius(paint.getStrokeWidth() / 2);
        room.outset(reach, reach);
    }
    if (!path.isEmpty() && room.isFinite()) {
        m_bounds.join(room);
    }
}

} // namespace studio
