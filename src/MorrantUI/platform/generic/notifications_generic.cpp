#include "MorrantUI/log.h"
#include <MorrantUI/platform/notifications.h>

namespace {

void logUnsupported()
{
    ui::log::warning("Notifications are only supported on Windows 10.");
}

} // namespace

void registerWithNotificationServer()
{
    logUnsupported();
}

void sendNotification(const std::string& /*title*/, const std::string& /*text*/)
{
    logUnsupported();
}
