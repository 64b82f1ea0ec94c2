// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/toast.h"

#include "MorrantUI/log.h"
#include "MorrantUI/platform/windows/Apartment.h"
#include "MorrantUI/platform/windows/toastinterfaces.h"
#include "MorrantUI/platform/windows/winrt.h"
#include <MorrantUI/platform/notifications.h>

namespace morrant::native {

namespace {

ComPointer<toast::IXmlDocument> makeContents(std::wstring_view xml)
{
    const auto object = winrt::activate(toast::kXmlDocumentClass);
    const auto reader = object.as<toast::IXmlDocumentIO>();
    if (!reader || FAILED(reader->LoadXml(winrt::String(xml).get()))) {
        return {};
    }
    return object.as<toast::IXmlDocument>();
}

ComPointer<toast::IToastNotifier> makeNotifier()
{
    ComPointer<toast::IToastNotifier> notifier;
    const auto manager = winrt::activationFactory<toast::IToastNotificationManagerStatics>(
        toast::kToastManagerClass);
    if (!manager
        || FAILED(manager->CreateToastNotifierWithId(
            winrt::String(kApplicationId).get(), notifier.out())))
    {
        return {};
    }
    return notifier;
}

ComPointer<toast::IToastNotification> makeToast(toast::IXmlDocument& contents)
{
    ComPointer<toast::IToastNotification> toast;
    const auto factory =
        winrt::activationFactory<toast::IToastNotificationFactory>(toast::kToastClass);
    if (!factory || FAILED(factory->CreateToastNotification(&contents, toast.out()))) {
        return {};
    }
    return toast;
}

} // namespace

void showToast(std::wstring_view xml)
{
    const Apartment apartment; // outlives every object below
    const auto contents = makeContents(xml);
    if (!contents) {
        ui::log::error("Could not create Notification Contents.");
        return;
    }
    const auto notifier = makeNotifier();
    if (!notifier) {
        ui::log::error("Could not create Toast Notifier.");
        return;
    }
    const auto toast = makeToast(*contents.get());
    if (!toast) {
        ui::log::error("Could not create Notification.");
        return;
    }
    if (FAILED(notifier->Show(toast.get()))) {
        ui::log::error("Could not show Notification.");
    }
}

} // namespace morrant::native
