// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <functional>
#include <string>

/// Desktop notifications, on Windows 10 and later, and by the desktop's own service on the session
/// bus elsewhere. Nothing here throws, shows a message or waits; every failure is one line in the
/// log. GUI thread only; on Windows before or after QApplication is made, and whichever way the
/// thread has initialised COM.
///
/// Without a session bus, or before there is an application to use it, registering and sending
/// write "Notifications are only supported on Windows 10."; on an older Windows only registering
/// does.

/// Tells the system who this process is and how to start it for a click on a notification, and
/// waits for such clicks until QApplication ends. Call once at start-up; again changes nothing.
///
/// A click finds its way here only when an installer has tied morrant::native::kApplicationId to
/// morrant::native::kActivatorClassId, by a Start-menu shortcut or a registry key. The system then
/// starts the program with "-ToastActivated" when it is not running.
MORRANT_UI_EXPORT void registerWithNotificationServer();

/// Sets what runs on the GUI thread when the user clicks a notification, in place of any earlier
/// callback; an empty one ends that. The callback may install another. An exception out of it ends
/// in the log.
MORRANT_UI_EXPORT void installActivatorCallback(std::function<void()> callback);

/// Shows a notification of two lines, both UTF-8.
///
/// The texts become part of an XML document as they are: a caller whose text may hold '&' or '<'
/// escapes them, otherwise Windows refuses the notification and it is not shown. A desktop's
/// service gets the body as it is and the title, which has no markup there, without its entities.
MORRANT_UI_EXPORT void sendNotification(const std::string& title, const std::string& text);

namespace morrant::native {

/// The application user model identifier of the process.
inline constexpr const wchar_t* kApplicationId = L"com.morrant.application";

/// The COM class that the system activates for a click, in registry form.
inline constexpr const wchar_t* kActivatorClassId = L"{C900569C-57DE-4BB7-B230-459CEF656378}";

/// Sends a notification titled "Render Complete".
MORRANT_UI_EXPORT void postRenderNotification(const std::string& text);

} // namespace morrant::native
