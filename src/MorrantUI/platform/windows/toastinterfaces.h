// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <inspectable.h>

/// The interfaces of the notification platform, each as far as the last operation we call: not
/// every SDK declares them, and those that do disagree on the headers. In a namespace of ours, so
/// that both can be included.
namespace morrant::native::toast {

inline constexpr const wchar_t* kXmlDocumentClass = L"Windows.Data.Xml.Dom.XmlDocument";
inline constexpr const wchar_t* kToastManagerClass =
    L"Windows.UI.Notifications.ToastNotificationManager";
inline constexpr const wchar_t* kToastClass = L"Windows.UI.Notifications.ToastNotification";

/// A parsed document. Nothing is asked of it here; it is passed on.
struct IXmlDocument : IInspectable
{
    static constexpr IID kId{
        0xf7f3a506, 0x1e87, 0x42d6, {0xbc, 0xfb, 0xb8, 0xc8, 0x09, 0xfa, 0x54, 0x94}};
};

struct IXmlDocumentIO : IInspectable
{
    static constexpr IID kId{
        0x6cd0e74e, 0xee65, 0x4489, {0x9e, 0xbf, 0xca, 0x43, 0xe8, 0x7b, 0xa6, 0x37}};

    virtual HRESULT STDMETHODCALLTYPE LoadXml(HSTRING xml) = 0;
};

struct IToastNotification : IInspectable
{};

struct IToastNotificationFactory : IInspectable
{
    static constexpr IID kId{
        0x04124b20, 0x82c6, 0x4229, {0xb1, 0x09, 0xfd, 0x9e, 0xd4, 0x66, 0x2b, 0x53}};

    virtual HRESULT STDMETHODCALLTYPE
    CreateToastNotification(IXmlDocument* content, IToastNotification** toast) = 0;
};

struct IToastNotifier : IInspectable
{
    virtual HRESULT STDMETHODCALLTYPE Show(IToastNotification* toast) = 0;
};

struct IToastNotificationManagerStatics : IInspectable
{
    static constexpr IID kId{
        0x50ac103f, 0xd235, 0x4598, {0xbb, 0xef, 0x98, 0xfe, 0x4d, 0x1a, 0x3a, 0xd4}};

    /// Fails for a program that is not installed as a package: it has no identity to go by.
    virtual HRESULT STDMETHODCALLTYPE CreateToastNotifier(IToastNotifier** notifier) = 0;
    virtual HRESULT STDMETHODCALLTYPE
    CreateToastNotifierWithId(HSTRING applicationId, IToastNotifier** notifier) = 0;
};

struct UserInput
{
    LPCWSTR key;
    LPCWSTR value;
};

struct INotificationActivationCallback : IUnknown
{
    static constexpr IID kId{
        0x53e31837, 0x6600, 0x4a81, {0x93, 0x95, 0x75, 0xcf, 0xfe, 0x74, 0x6f, 0x94}};

    virtual HRESULT STDMETHODCALLTYPE Activate(
        LPCWSTR applicationId, LPCWSTR arguments, const UserInput* inputs, ULONG inputCount) = 0;
};

} // namespace morrant::native::toast
