// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/windows/ComPointer.h"
#include "MorrantUI/platform/windows/toastinterfaces.h"

#include <atomic>

/// What the notification platform calls when the user clicks a notification. Made by its factory,
/// and gone with its last reference.
class NotificationActivator final : public morrant::native::toast::INotificationActivationCallback
{
public:
    /// The factory that makes activators for COM.
    static morrant::native::ComPointer<IClassFactory> makeFactory();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    /// Runs the activation callback, if one is installed; always S_OK. What was clicked and typed
    /// is not looked at.
    HRESULT STDMETHODCALLTYPE Activate(
        LPCWSTR applicationId,
        LPCWSTR arguments,
        const morrant::native::toast::UserInput* inputs,
        ULONG inputCount) override;

private:
    std::atomic<ULONG> m_references = 1;
};
