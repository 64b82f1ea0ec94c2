// SPDX-License-Identifier: Apache-2.0
#include "support/TestRegistry.h"

namespace ui::test {

std::vector<TestEntry>& testRegistry()
{
    static std::vector<TestEntry> entries;
    return entries;
}

} // namespace ui::test
