#pragma once

#include <objbase.h>

/// The activator as the notification platform sees it.
struct Activator : IUnknown
{
    static constexpr IID kId{
        0x53e31837, 0x6600, 0x4a81, {0x93, 0x95, 0x75, 0xcf, 0xfe, 0x74, 0x6f, 0x94}};

    struct Input
    {
        LPCWSTR key;
        LPCWSTR value;
    };

    virtual HRESULT STDMETHODCALLTYPE
    Activate(LPCWSTR applicationId, LPCWSTR arguments, const Input* inputs, ULONG count) = 0;
};

/// Whether and how a thread is initialised for COM; what other threads imply does not count.
enum class ApartmentState
{
    None,
    SingleThreaded,
    MultiThreaded,
};

inline ApartmentState apartmentState()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    if (FAILED(CoGetApartmentType(&type, &qualifier)) || qualifier == APTTYPEQUALIFIER_IMPLICIT_MTA)
    {
        return ApartmentState::None;
    }
    return type == APTTYPE_MTA ? ApartmentState::MultiThreaded : ApartmentState::SingleThreaded;
}
