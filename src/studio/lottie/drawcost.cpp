// SPDX-License-Identifier: Apache-2.0
#include "lottie/drawcost.h"

#include <include/core/SkPath.h>

#include <algorithm>
#include <cmath>

namespace studio {

PathExtent extentOf(const SkPath& path, double scale, double tallest)
{
    static constexpr int kPointsAfterFirst[] = {0, 1, 2, 2, 3, 0};
    PathExtent extent;
    SkPath::RawIter verbs(path);
    SkPoint points[4];
    for (auto verb = verbs.next(points); verb != SkPath::kDone_Verb; verb = verbs.next(points)) {
        ++extent.verbs;
        double length = 0;
        for (int i = 0; i < kPointsAfterFirst[verb]; ++i) {
            length += SkPoint::Distance(points[i], points[i + 1]);
        }
        extent.length += length;
        extent.pieces += verb == SkPath::kLine_Verb ? 1 : 1 + std::sqrt(length);
        extent.steps += std::min(length * scale, tallest);
    }
    return extent;
}

double copyCost(const PathExtent& extent)
{
    return 100 * extent.verbs;
}

double measureCost(const PathExtent& extent)
{
    return 100 * extent.pieces;
}

double fillCost(const PathExtent& extent)
{
    return 300 * extent.verbs + 40 * extent.steps;
}

double strokeCost(const PathExtent& extent)
{
    return 4 * fillCost(extent);
}

double dashCost(double count)
{
    return 6000 * count;
}

double mergeCost(double verbs)
{
    return 5000 * verbs * verbs;
}

double pixelCost(double devicePixels)
{
    return devicePixels;
}

double gradientCost(double numbers, double devicePixels)
{
    // Every pixel is compared with every stop, several pixels at once.
    return 500 + 200 * numbers + devicePixels * (4 + numbers / 10);
}

double lumaCost(double devicePixels)
{
    return 4 * devicePixels;
}

double transformCost(const Transform& transform)
{
    const auto keys = transform.position.keys.size() + transform.positionX.keys.size()
                      + transform.positionY.keys.size();
    // Where it stands still, the way it last moved is looked for along the keys.
    return 3000 + (transform.autoOrient ? 1000 * static_cast<double>(keys) : 0);
}

} // namespace studio
