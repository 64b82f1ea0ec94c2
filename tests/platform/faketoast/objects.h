#pragma once

#include <activation.h>
#include <atomic>
#include <inspectable.h>
#include <memory>

/// The interfaces as the platform lays them out, each as far as it may be called; told apart from
/// the library's own declarations on purpose: a slip in one of them shows.
namespace faketoast {

struct Inspectable : IInspectable
{
    static constexpr IID kId{
        0xaf86e2e0, 0xb12d, 0x4c6a, {0x9c, 0x5a, 0xd7, 0xaa, 0x65, 0x10, 0x1e, 0x90}};
};

struct ActivationFactory : IActivationFactory
{
    static constexpr IID kId{
        0x00000035, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

    HRESULT STDMETHODCALLTYPE ActivateInstance(IInspectable** /*instance*/) override
    {
        return E_NOTIMPL;
    }
};

struct XmlDocument : IInspectable
{
    static constexpr IID kId{
        0xf7f3a506, 0x1e87, 0x42d6, {0xbc, 0xfb, 0xb8, 0xc8, 0x09, 0xfa, 0x54, 0x94}};
};

struct XmlDocumentIO : IInspectable
{
    static constexpr IID kId{
        0x6cd0e74e, 0xee65, 0x4489, {0x9e, 0xbf, 0xca, 0x43, 0xe8, 0x7b, 0xa6, 0x37}};

    virtual HRESULT STDMETHODCALLTYPE LoadXml(HSTRING xml) = 0;
};

struct ToastNotification : IInspectable
{
    static constexpr IID kId{
        0x997e2675, 0x059e, 0x4e60, {0x8b, 0x06, 0x17, 0x60, 0x91, 0x7c, 0x8b, 0x80}};
};

struct ToastNotificationFactory : IInspectable
{
    static constexpr IID kId{
        0x04124b20, 0x82c6, 0x4229, {0xb1, 0x09, 0xfd, 0x9e, 0xd4, 0x66, 0x2b, 0x53}};

    virtual HRESULT STDMETHODCALLTYPE
    CreateToastNotification(XmlDocument* content, ToastNotification** toast) = 0;
};

struct ToastNotifier : IInspectable
{
    static constexpr IID kId{
        0x75927b93, 0x03f3, 0x41ec, {0x91, 0xd3, 0x6e, 0x5b, 0xac, 0x1b, 0x38, 0xe7}};

    virtual HRESULT STDMETHODCALLTYPE Show(ToastNotification* toast) = 0;
};

struct ToastNotificationManagerStatics : IInspectable
{
    static constexpr IID kId{
        0x50ac103f, 0xd235, 0x4598, {0xbb, 0xef, 0x98, 0xfe, 0x4d, 0x1a, 0x3a, 0xd4}};

    virtual HRESULT STDMETHODCALLTYPE CreateToastNotifier(ToastNotifier** notifier) = 0;
    virtual HRESULT STDMETHODCALLTYPE
    CreateToastNotifierWithId(HSTRING applicationId, ToastNotifier** notifier) = 0;
};

extern std::atomic<int> gLiveObjects;

/// A counted object. Each of its interfaces has an address of its own, the first one is also that
/// of its identity: whoever mistakes one for the other passes a wrong pointer.
template <typename First, typename... Others>
class Object : public First, public Others...
{
public:
    Object() { ++gLiveObjects; }
    virtual ~Object() { --gLiveObjects; }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override
    {
        *object = nullptr;
        if (const HRESULT refused = onQuery(wanted); FAILED(refused)) {
            return refused;
        }
        if (wanted == IID_IUnknown || wanted == Inspectable::kId || wanted == First::kId) {
            *object = static_cast<First*>(this);
        }
        ((wanted == Others::kId ? void(*object = static_cast<Others*>(this)) : void()), ...);
        if (!*object) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            const std::unique_ptr<Object> last(this);
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetIids(ULONG* /*count*/, IID** /*ids*/) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetRuntimeClassName(HSTRING* /*name*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTrustLevel(TrustLevel* /*level*/) override { return E_NOTIMPL; }

protected:
    virtual HRESULT onQuery(REFIID /*wanted*/) { return S_OK; }

private:
    std::atomic<ULONG> m_references = 1;
};

} // namespace faketoast
