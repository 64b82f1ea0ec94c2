// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace morrant::native {

/// Runs the installed activation callback, if there is one, on the GUI thread: at once when called
/// there, otherwise as soon as its event loop gets to it. Callable from any thread.
void runActivationCallback() noexcept;

} // namespace morrant::native
