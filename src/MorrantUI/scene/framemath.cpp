#include "MorrantUI/scene/framemath.h"

#include <cmath>
#include <limits>

namespace ui {

namespace {

int saturated(double whole)
{
    if (std::isnan(whole)) {
        return 0;
    }
    if (whole <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    if (whole >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(whole);
}

} // namespace

int frameOf(double sceneX)
{
    return saturated(std::trunc(sceneX));
}

int nearestFrame(double sceneX)
{
    return saturated(std::round(sceneX));
}

double frameSpan(const FrameRange& range)
{
    return static_cast<double>(range.second) - range.first;
}

int movedFrame(int frame, double distance)
{
    return nearestFrame(frame + distance);
}

} // namespace ui
