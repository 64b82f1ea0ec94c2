#include "MorrantUI/log.h"
#include <MorrantUI/platform/notifications.h>

static void logUnsupported()
{
    ui::log::warning("Notifications are only supported on Windows 10.");
}

void registerWithNotificationServer()
{
    logUnsupported();
}

void sendNotification(const std::string& /*title*/, const std::string& /*text*/)
{
    logUnsupported();
}
