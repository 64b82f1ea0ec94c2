// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/windows/toastinterfaces.h"

#include <QByteArray>

#include <objbase.h>

namespace ui::test {

using Activator = morrant::native::toast::INotificationActivationCallback;

/// Whether and how this thread is initialised for COM: "none", "sta" or "mta"; what other threads
/// imply does not count.
inline const char* apartment()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    if (FAILED(CoGetApartmentType(&type, &qualifier)) || qualifier == APTTYPEQUALIFIER_IMPLICIT_MTA)
    {
        return "none";
    }
    return type == APTTYPE_MTA ? "mta" : "sta";
}

/// Initialises this thread so; "none" leaves it as it is. Ended by CoUninitialize().
inline bool enterApartment(const QByteArray& kind)
{
    const DWORD flags = kind == "mta" ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED;
    return kind != "none" && SUCCEEDED(CoInitializeEx(nullptr, flags));
}

} // namespace ui::test
