// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/Rearranging.h"

namespace ui::docking {

namespace {

int& depth()
{
    static int rearrangements = 0;
    return rearrangements;
}

} // namespace

Rearranging::Rearranging()
{
    ++depth();
}

Rearranging::~Rearranging()
{
    --depth();
}

bool Rearranging::active()
{
    return depth() > 0;
}

} // namespace ui::docking
