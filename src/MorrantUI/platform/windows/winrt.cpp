// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/winrt.h"

#include "MorrantUI/platform/windows/systemlibrary.h"

#include <roapi.h>

#include <activation.h>

namespace morrant::native::winrt {

namespace {

/// The functions are all there or none is: the library that holds them came with Windows 8.
struct Functions
{
    template <typename Function>
    static Function* find(const char* name)
    {
        return systemFunction<Function>(L"combase.dll", name);
    }

    using Initialize = HRESULT WINAPI(RO_INIT_TYPE);
    using Uninitialize = void WINAPI();
    using ActivateInstance = HRESULT WINAPI(HSTRING, IInspectable**);
    using GetActivationFactory = HRESULT WINAPI(HSTRING, REFIID, void**);
    using CreateString = HRESULT WINAPI(const wchar_t*, UINT32, HSTRING*);
    using DeleteString = HRESULT WINAPI(HSTRING);

    Initialize* initialize = find<Initialize>("RoInitialize");
    Uninitialize* uninitialize = find<Uninitialize>("RoUninitialize");
    ActivateInstance* activateInstance = find<ActivateInstance>("RoActivateInstance");
    GetActivationFactory* getActivationFactory =
        find<GetActivationFactory>("RoGetActivationFactory");
    CreateString* createString = find<CreateString>("WindowsCreateString");
    DeleteString* deleteString = find<DeleteString>("WindowsDeleteString");
};

const Functions& functions()
{
    static const Functions found;
    return found;
}

} // namespace

HRESULT initialize()
{
    return functions().initialize ? functions().initialize(RO_INIT_SINGLETHREADED) : E_NOTIMPL;
}

void uninitialize()
{
    functions().uninitialize();
}

ComPointer<IInspectable> activate(const wchar_t* className)
{
    ComPointer<IInspectable> object;
    if (!functions().activateInstance
        || FAILED(functions().activateInstance(String(className).get(), object.out())))
    {
        return {};
    }
    return object;
}

HRESULT getActivationFactory(const wchar_t* className, REFIID interfaceId, void** factory)
{
    return functions().getActivationFactory
               ? functions().getActivationFactory(String(className).get(), interfaceId, factory)
               : E_NOTIMPL;
}

String::String(std::wstring_view text)
{
    if (functions().createString) {
        functions().createString(text.data(), static_cast<UINT32>(text.size()), &m_string);
    }
}

String::~String()
{
    if (m_string) {
        functions().deleteString(m_string);
    }
}

} // namespace morrant::native::winrt
