// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

class QObject;

namespace morrant::native::system {

/// Hears the signals that ask a process to end, as long as `owner` lives. Systems without signals
/// do nothing.
/// @param heard called from the event loop, once for signals that came together
void watchTerminationSignals(QObject* owner, std::function<void()> heard);

} // namespace morrant::native::system
