// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/windows/ComPointer.h"

#include <inspectable.h>
#include <string_view>

/// The Windows Runtime's functions, looked up at the first call: older systems lack them, and a
/// library that imported them would not load there. Where they are missing everything fails.
namespace morrant::native::winrt {

HRESULT initialize();
void uninitialize();

/// A new object of a class; null on failure.
ComPointer<IInspectable> activate(const wchar_t* className);

/// The class's own object by one of its interfaces; the pointer owns nothing yet.
HRESULT getActivationFactory(const wchar_t* className, REFIID interfaceId, void** factory);

template <typename Interface>
ComPointer<Interface> activationFactory(const wchar_t* className)
{
    ComPointer<Interface> factory;
    if (FAILED(getActivationFactory(className, Interface::kId, factory.outVoid()))) {
        return {};
    }
    return factory;
}

/// Owns a string of the runtime, which may hold zero characters. Null stands for the empty string
/// and for a failure: callers see that one in what they pass it to.
class String
{
public:
    explicit String(std::wstring_view text);
    ~String();
    String(const String&) = delete;
    String& operator=(const String&) = delete;

    HSTRING get() const { return m_string; }

private:
    HSTRING m_string = nullptr;
};

} // namespace morrant::native::winrt
