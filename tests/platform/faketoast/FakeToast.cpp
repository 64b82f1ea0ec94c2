// SPDX-License-Identifier: Apache-2.0
#include "FakeToast.h"

#include "MorrantUI/platform/windows/toastinterfaces.h"

#include <QXmlStreamReader>

#include <activation.h>
#include <atomic>
#include <memory>
#include <set>
#include <winstring.h>

namespace faketoast {

using namespace morrant::native;

namespace {

constexpr IID kInspectable{
    0xaf86e2e0, 0xb12d, 0x4c6a, {0x9c, 0x5a, 0xd7, 0xaa, 0x65, 0x10, 0x1e, 0x90}};
constexpr IID kActivationFactory{
    0x00000035, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// Documents and toasts by the one address that stands for them in calls.
std::set<const void*>& knownObjects()
{
    static std::set<const void*> instance;
    return instance;
}

HRESULT record(const QString& call)
{
    notes().calls.append(call);
    return call == notes().failingCall ? E_FAIL : S_OK;
}

QString toQString(HSTRING string)
{
    UINT32 length = 0;
    const wchar_t* text = WindowsGetStringRawBuffer(string, &length);
    return QString::fromWCharArray(text, static_cast<qsizetype>(length));
}

/// Classes, documents, notifiers and toasts in one counted object. Each of its interfaces has an
/// address of its own: whoever mistakes one for the other passes a wrong pointer.
class Fake final : public IActivationFactory,
                   public toast::IXmlDocument,
                   public toast::IXmlDocumentIO,
                   public toast::IToastNotification,
                   public toast::IToastNotifier,
                   public toast::IToastNotificationManagerStatics,
                   public toast::IToastNotificationFactory
{
public:
    Fake() { knownObjects().insert({asDocument(), asToast()}); }
    ~Fake()
    {
        knownObjects().erase(asDocument());
        knownObjects().erase(asToast());
    }
    Q_DISABLE_COPY_MOVE(Fake)

    static Fake* make() { return std::make_unique<Fake>().release(); }
    IActivationFactory* asFactory() { return this; }
    toast::IXmlDocument* asDocument() { return this; }
    toast::IToastNotification* asToast() { return this; }
    toast::IToastNotifier* asNotifier() { return this; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override
    {
        HRESULT refused = S_OK;
        *object = nullptr;
        if (wanted == toast::IXmlDocumentIO::kId) {
            *object = static_cast<toast::IXmlDocumentIO*>(this);
            refused = record(u"XmlDocument as IXmlDocumentIO"_qs);
        } else if (wanted == toast::IXmlDocument::kId) {
            *object = asDocument();
            refused = record(u"XmlDocument as IXmlDocument"_qs);
        } else if (wanted == toast::IToastNotificationManagerStatics::kId) {
            *object = static_cast<toast::IToastNotificationManagerStatics*>(this);
        } else if (wanted == toast::IToastNotificationFactory::kId) {
            *object = static_cast<toast::IToastNotificationFactory*>(this);
        } else if (wanted == kActivationFactory || wanted == kInspectable || wanted == IID_IUnknown)
        {
            *object = asFactory();
        }
        if (!*object || FAILED(refused)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        const std::unique_ptr<Fake> last(left == 0 ? this : nullptr);
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetIids(ULONG* /*count*/, IID** /*ids*/) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetRuntimeClassName(HSTRING* /*name*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTrustLevel(TrustLevel* /*level*/) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE ActivateInstance(IInspectable** instance) override
    {
        const HRESULT refused = record(u"new XmlDocument"_qs);
        *instance = FAILED(refused) ? nullptr : make()->asFactory();
        return refused;
    }

    HRESULT STDMETHODCALLTYPE LoadXml(HSTRING xml) override
    {
        QXmlStreamReader reader(toQString(xml));
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"text") {
                m_texts.append(reader.readElementText());
            }
        }
        const HRESULT refused = record(u"LoadXml"_qs);
        return reader.hasError() ? E_INVALIDARG : refused;
    }

    HRESULT STDMETHODCALLTYPE CreateToastNotifier(toast::IToastNotifier** /*notifier*/) override
    {
        return HRESULT_FROM_WIN32(ERROR_NOT_FOUND); // as for every program without a package
    }

    HRESULT STDMETHODCALLTYPE
    CreateToastNotifierWithId(HSTRING applicationId, toast::IToastNotifier** notifier) override
    {
        notes().applicationId = toQString(applicationId);
        const HRESULT refused = record(u"CreateToastNotifierWithId"_qs);
        *notifier = FAILED(refused) ? nullptr : make()->asNotifier();
        return refused;
    }

    HRESULT STDMETHODCALLTYPE CreateToastNotification(
        toast::IXmlDocument* content, toast::IToastNotification** toast) override
    {
        if (FAILED(record(u"CreateToastNotification"_qs)) || !knownObjects().contains(content)) {
            return E_INVALIDARG;
        }
        Fake* made = make();
        made->m_texts = static_cast<Fake*>(content)->m_texts;
        *toast = made->asToast();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Show(toast::IToastNotification* toast) override
    {
        if (FAILED(record(u"Show"_qs)) || !knownObjects().contains(toast)) {
            return E_INVALIDARG;
        }
        notes().shownTexts += static_cast<Fake*>(toast)->m_texts;
        return S_OK;
    }

private:
    std::atomic<ULONG> m_references = 1;
    QStringList m_texts;
};

} // namespace

Notes& notes()
{
    static Notes instance;
    return instance;
}

QStringList classNames()
{
    return {
        QString::fromWCharArray(toast::kXmlDocumentClass),
        QString::fromWCharArray(toast::kToastManagerClass),
        QString::fromWCharArray(toast::kToastClass)};
}

int liveObjects()
{
    return static_cast<int>(knownObjects().size());
}

} // namespace faketoast

extern "C" Q_DECL_EXPORT HRESULT WINAPI
DllGetActivationFactory(HSTRING className, IActivationFactory** factory);

HRESULT WINAPI DllGetActivationFactory(HSTRING className, IActivationFactory** factory)
{
    using namespace faketoast;
    const QString name = toQString(className);
    *factory = nullptr;
    if (!classNames().contains(name) || FAILED(record(u"class "_qs + name.section(u'.', -1)))) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    *factory = Fake::make()->asFactory();
    return S_OK;
}
