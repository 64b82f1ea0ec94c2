// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/log.h"
#include "MorrantUI/platform/generic/DesktopNotifier.h"
#include <MorrantUI/platform/notifications.h>

namespace {

/// Null, with one line in the log, where there is no desktop to ask.
morrant::native::DesktopNotifier* notifier()
{
    auto* service = morrant::native::DesktopNotifier::instance();
    if (!service) {
        ui::log::warning("Notifications are only supported on Windows 10.");
    }
    return service;
}

} // namespace

void registerWithNotificationServer()
{
    notifier();
}

void sendNotification(const std::string& title, const std::string& text)
{
    if (auto* service = notifier()) {
        service->send(QString::fromStdString(title), QString::fromStdString(text));
    }
}
