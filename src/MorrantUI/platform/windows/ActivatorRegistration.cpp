// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/ActivatorRegistration.h"

#include "MorrantUI/platform/windows/NotificationActivator.h"
#include "MorrantUI/platform/windows/launchcommand.h"
#include <MorrantUI/platform/notifications.h>

#include <objbase.h>

namespace morrant::native {

bool ActivatorRegistration::start()
{
    return isRunning() || (writeLaunchCommand(kActivatorClassId) && offerFactory());
}

void ActivatorRegistration::stop()
{
    if (isRunning()) {
        CoRevokeClassObject(m_cookie);
        m_cookie = 0;
    }
    m_apartment.reset();
}

bool ActivatorRegistration::offerFactory()
{
    m_apartment.emplace();
    const auto factory = NotificationActivator::makeFactory();
    CLSID classId{};
    if (FAILED(CLSIDFromString(kActivatorClassId, &classId))
        || FAILED(CoRegisterClassObject(
            classId, factory.get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &m_cookie)))
    {
        m_cookie = 0;
        m_apartment.reset();
        return false;
    }
    return true;
}

} // namespace morrant::native
