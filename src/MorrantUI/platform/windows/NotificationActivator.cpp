// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/NotificationActivator.h"

#include "MorrantUI/platform/activationcallback.h"

#include <memory>

namespace {

/// What QueryInterface does for an object of one interface beside IUnknown.
template <typename Interface>
HRESULT queryInterface(Interface* self, const IID& own, REFIID wanted, void** object)
{
    if (!object) {
        return E_POINTER;
    }
    if (wanted != own && wanted != IID_IUnknown) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    self->AddRef();
    *object = self;
    return S_OK;
}

/// Gives one reference back; the last one takes the object along.
template <typename Object>
ULONG release(Object* self, std::atomic<ULONG>& references)
{
    const ULONG left = --references;
    if (left == 0) {
        const std::unique_ptr<Object> last(self);
    }
    return left;
}

} // namespace

/// References are counted but do not keep the process alive: it ends when the user ends it.
class NotificationActivatorFactory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override
    {
        return queryInterface<IClassFactory>(this, IID_IClassFactory, interfaceId, object);
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return release(this, m_references); }

    HRESULT STDMETHODCALLTYPE
    CreateInstance(IUnknown* outer, REFIID interfaceId, void** object) override
    {
        if (!object) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer) {
            return CLASS_E_NOAGGREGATION;
        }
        morrant::native::ComPointer<NotificationActivator> activator;
        *activator.out() = std::make_unique<NotificationActivator>().release();
        return activator->QueryInterface(interfaceId, object);
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }

private:
    std::atomic<ULONG> m_references = 1;
};

morrant::native::ComPointer<IClassFactory> NotificationActivator::makeFactory()
{
    morrant::native::ComPointer<IClassFactory> factory;
    *factory.out() = std::make_unique<NotificationActivatorFactory>().release();
    return factory;
}

HRESULT NotificationActivator::QueryInterface(REFIID interfaceId, void** object)
{
    return queryInterface<INotificationActivationCallback>(this, kId, interfaceId, object);
}

ULONG NotificationActivator::AddRef()
{
    return ++m_references;
}

ULONG NotificationActivator::Release()
{
    return release(this, m_references);
}

HRESULT NotificationActivator::Activate(
    LPCWSTR /*applicationId*/,
    LPCWSTR /*arguments*/,
    const morrant::native::toast::UserInput* /*inputs*/,
    ULONG /*inputCount*/)
{
    morrant::native::runActivationCallback();
    return S_OK;
}
