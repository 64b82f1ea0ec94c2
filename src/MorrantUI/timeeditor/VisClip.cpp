// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/VisClip.h"

#include <algorithm>

namespace {

constexpr int kFarthest = 1'000'000'000; ///< frames; rectangles of integers can still be moved

} // namespace

VisClip::VisClip(int start, int end)
{
    setRange(start, end);
}

void VisClip::setRange(int start, int end)
{
    m_start = std::clamp(start, -kFarthest, kFarthest);
    m_end = std::max(m_start, std::clamp(end, -kFarthest, kFarthest));
}
