// SPDX-License-Identifier: Apache-2.0
#include "editing/cliptimes.h"

#include "lottie/reader.h"

#include <cmath>

namespace studio {

ClipTimes clipOf(const Layer& layer)
{
    return {layer.inPoint, layer.outPoint, layer.startTime};
}

void setClip(Layer& layer, const ClipTimes& times)
{
    layer.inPoint = times.inPoint;
    layer.outPoint = times.outPoint;
    layer.startTime = times.startTime;
}

bool isClip(const ClipTimes& times)
{
    const auto isFrame = [](double time) { return std::abs(time) <= kMaxFrame; };
    return isFrame(times.inPoint) && isFrame(times.outPoint) && isFrame(times.startTime)
           && times.outPoint > times.inPoint;
}

} // namespace studio
