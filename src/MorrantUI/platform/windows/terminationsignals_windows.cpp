// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/terminationsignals.h"

namespace morrant::native::system {

/// Programs with windows hear of the session's end by message, which Qt takes; signals are none of
/// this system's.
void watchTerminationSignals(QObject*, std::function<void()>)
{}

} // namespace morrant::native::system
