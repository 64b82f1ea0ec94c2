// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/log.h"
#include "MorrantUI/platform/windows/ActivatorRegistration.h"
#include "MorrantUI/platform/windows/systemlibrary.h"
#include "MorrantUI/platform/windows/toast.h"
#include <MorrantUI/platform/notifications.h>

#include <Core/native.h>

#include <QCoreApplication>

#include <shobjidl.h>

namespace {

/// Never destroyed: when static objects are, COM may be gone.
morrant::native::ActivatorRegistration& registration()
{
    static auto& instance = *std::make_unique<morrant::native::ActivatorRegistration>().release();
    return instance;
}

bool registerActivator()
{
    if (registration().isRunning()) {
        return true;
    }
    if (!registration().start()) {
        return false;
    }
    // Runs at the start of the application's end, while Qt still holds its own COM apartment.
    qAddPostRoutine([] { registration().stop(); });
    return true;
}

} // namespace

void registerWithNotificationServer()
{
    if (!morrant::native::isWindows10OrLater()) {
        ui::log::warning("Notifications are only supported on Windows 10.");
        return;
    }
    if (FAILED(SetCurrentProcessExplicitAppUserModelID(morrant::native::kApplicationId))) {
        ui::log::error("Could not register AUMID.");
    }
    if (!registerActivator()) {
        ui::log::error("Could not register Notification Activator.");
    }
}

void sendNotification(const std::string& title, const std::string& text)
{
    if (!morrant::native::isWindows10OrLater()) {
        return;
    }
    const std::string xml = fmt::format(
        "<toast><visual><binding template='ToastGeneric'><text>{}</text><text>{}</text>"
        "</binding></visual></toast>",
        title,
        text);
    morrant::native::showToast(to_native(xml));
}
