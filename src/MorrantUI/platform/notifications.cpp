// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/notifications.h"

#include "MorrantUI/log.h"
#include "MorrantUI/platform/activationcallback.h"

#include <QCoreApplication>
#include <QThread>

#include <exception>
#include <utility>

namespace {

std::function<void()>& activationCallback()
{
    static std::function<void()> callback;
    return callback;
}

/// Whoever activates us is another process, or the system: no exception may reach it.
void callActivationCallback() noexcept
{
    try {
        // A copy, since a callback that replaces itself must not be destroyed while it runs.
        const std::function<void()> callback = activationCallback();
        if (callback) {
            callback();
        }
    } catch (const std::exception& error) {
        ui::log::error("Notification callback failed: {}", error.what());
    } catch (...) {
        ui::log::error("Notification callback failed.");
    }
}

} // namespace

void installActivatorCallback(std::function<void()> callback)
{
    activationCallback() = std::move(callback);
}

namespace morrant::native {

void runActivationCallback() noexcept
{
    QCoreApplication* app = QCoreApplication::instance();
    if (app && app->thread() != QThread::currentThread()) {
        QMetaObject::invokeMethod(app, &callActivationCallback, Qt::QueuedConnection);
    } else {
        callActivationCallback();
    }
}

void postRenderNotification(const std::string& text)
{
    sendNotification("Render Complete", text);
}

} // namespace morrant::native
