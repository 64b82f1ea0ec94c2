// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/Apartment.h"

#include "MorrantUI/platform/windows/winrt.h"

namespace morrant::native {

// Only a successful call is matched by one that ends it: a thread of the other kind refuses with
// RPC_E_CHANGED_MODE, and ending that would take the host's own apartment away.
Apartment::Apartment()
    : m_entered(SUCCEEDED(winrt::initialize()))
{}

Apartment::~Apartment()
{
    if (m_entered) {
        winrt::uninitialize();
    }
}

} // namespace morrant::native
