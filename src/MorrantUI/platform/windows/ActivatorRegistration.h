// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/windows/Apartment.h"

#include <windows.h>

#include <optional>

namespace morrant::native {

/// Makes NotificationActivator known to COM: how to start the program for it, and that the running
/// program has it. GUI thread only.
class ActivatorRegistration
{
public:
    /// Does nothing while it is running already.
    /// @return false when a step failed; those after it are left out
    bool start();

    /// Takes the running program's offer back; the way to start it stays. To be called before COM
    /// ends on this thread.
    void stop();

    bool isRunning() const { return m_cookie != 0; }

private:
    bool offerFactory();

    std::optional<Apartment> m_apartment; ///< the offer ends with the apartment it was made in
    DWORD m_cookie = 0;
};

} // namespace morrant::native
