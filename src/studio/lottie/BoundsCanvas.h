// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <include/utils/SkNoDrawCanvas.h>

namespace studio {

/// Draws nothing, and knows where paths would have been: what else is drawn does not count.
class BoundsCanvas : public SkNoDrawCanvas
{
public:
    /// @param clip what has to be paid for, not a limit of the bounds
    explicit BoundsCanvas(const SkIRect& clip)
        : SkNoDrawCanvas(clip)
    {}

    /// Of the paths and their strokes, on the device; empty when there were none.
    const SkRect& bounds() const { return m_bounds; }

protected:
    void onDrawPath(const SkPath& path, const SkPaint& paint) override;

private:
    SkRect m_bounds = SkRect::MakeEmpty();
};

} // namespace studio
