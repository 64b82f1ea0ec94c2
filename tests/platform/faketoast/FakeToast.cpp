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

std::atomic<int> gLiveObjects = 0;

/// Stands beside bases that derive from the same.
struct Inspectable : IInspectable
{};

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

/// A counted object. Each of its interfaces has an address of its own, the first one is also that
/// of its identity: whoever mistakes one for the other passes a wrong pointer.
template <typename First, typename... Others>
class Object : public First, public Others...
{
public:
    Object() { ++gLiveObjects; }
    virtual ~Object() { --gLiveObjects; }
    Q_DISABLE_COPY_MOVE(Object)

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override
    {
        *object = wanted == IID_IUnknown || wanted == kInspectable ? static_cast<First*>(this)
                                                                   : find(wanted);
        if (*object) {
            AddRef();
        }
        return *object ? S_OK : E_NOINTERFACE;
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
    /// The address of an interface beside the object's identity; null when there is none.
    virtual void* find(REFIID wanted) = 0;

private:
    std::atomic<ULONG> m_references = 1;
};

class Document final : public Object<Inspectable, toast::IXmlDocument, toast::IXmlDocumentIO>
{
public:
    Document() { knownObjects().insert(static_cast<toast::IXmlDocument*>(this)); }
    ~Document() override { knownObjects().erase(static_cast<toast::IXmlDocument*>(this)); }

    const QStringList& texts() const { return m_texts; }

    HRESULT STDMETHODCALLTYPE LoadXml(HSTRING xml) override
    {
        if (FAILED(record(u"LoadXml"_qs))) {
            return E_FAIL;
        }
        constexpr auto kDoesNotParse = static_cast<HRESULT>(0xC00CE504);
        QXmlStreamReader reader(toQString(xml));
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"text") {
                m_texts.append(reader.readElementText());
            }
        }
        return reader.hasError() ? kDoesNotParse : S_OK;
    }

private:
    void* find(REFIID wanted) override
    {
        if (wanted == toast::IXmlDocumentIO::kId) {
            const bool fails = FAILED(record(u"XmlDocument as IXmlDocumentIO"_qs));
            return fails ? nullptr : static_cast<toast::IXmlDocumentIO*>(this);
        }
        if (wanted == toast::IXmlDocument::kId) {
            const bool fails = FAILED(record(u"XmlDocument as IXmlDocument"_qs));
            return fails ? nullptr : static_cast<toast::IXmlDocument*>(this);
        }
        return nullptr;
    }

    QStringList m_texts;
};

class Toast final : public Object<Inspectable, toast::IToastNotification>
{
public:
    explicit Toast(const QStringList& texts)
        : m_texts(texts)
    {
        knownObjects().insert(static_cast<toast::IToastNotification*>(this));
    }
    ~Toast() override { knownObjects().erase(static_cast<toast::IToastNotification*>(this)); }

    const QStringList& texts() const { return m_texts; }

private:
    void* find(REFIID /*wanted*/) override { return nullptr; }

    QStringList m_texts;
};

class Notifier final : public Object<toast::IToastNotifier>
{
public:
    HRESULT STDMETHODCALLTYPE Show(toast::IToastNotification* toast) override
    {
        if (FAILED(record(u"Show"_qs)) || !knownObjects().contains(toast)) {
            return E_FAIL;
        }
        notes().shownTexts += static_cast<Toast*>(toast)->texts();
        return S_OK;
    }

private:
    void* find(REFIID /*wanted*/) override { return nullptr; }
};

/// All three classes in one: what makes documents, notifiers and toasts.
class Classes final : public Object<
                          IActivationFactory,
                          toast::IToastNotificationManagerStatics,
                          toast::IToastNotificationFactory>
{
public:
    HRESULT STDMETHODCALLTYPE ActivateInstance(IInspectable** instance) override
    {
        if (FAILED(record(u"new XmlDocument"_qs))) {
            return E_FAIL;
        }
        *instance = static_cast<Inspectable*>(std::make_unique<Document>().release());
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE CreateToastNotifier(toast::IToastNotifier** /*notifier*/) override
    {
        record(u"CreateToastNotifier"_qs);
        return HRESULT_FROM_WIN32(ERROR_NOT_FOUND); // as for every program without a package
    }

    HRESULT STDMETHODCALLTYPE
    CreateToastNotifierWithId(HSTRING applicationId, toast::IToastNotifier** notifier) override
    {
        notes().applicationId = toQString(applicationId);
        if (FAILED(record(u"CreateToastNotifierWithId"_qs))) {
            return E_FAIL;
        }
        *notifier = std::make_unique<Notifier>().release();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE CreateToastNotification(
        toast::IXmlDocument* content, toast::IToastNotification** toast) override
    {
        if (FAILED(record(u"CreateToastNotification"_qs)) || !knownObjects().contains(content)) {
            return E_FAIL;
        }
        *toast = std::make_unique<Toast>(static_cast<Document*>(content)->texts()).release();
        return S_OK;
    }

private:
    void* find(REFIID wanted) override
    {
        if (wanted == toast::IToastNotificationManagerStatics::kId) {
            return static_cast<toast::IToastNotificationManagerStatics*>(this);
        }
        if (wanted == toast::IToastNotificationFactory::kId) {
            return static_cast<toast::IToastNotificationFactory*>(this);
        }
        return wanted == kActivationFactory ? static_cast<IActivationFactory*>(this) : nullptr;
    }
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
    return gLiveObjects;
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
    *factory = std::make_unique<Classes>().release();
    return S_OK;
}
