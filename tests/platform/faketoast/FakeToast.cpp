#include "FakeToast.h"

#include "objects.h"

#include <QXmlStreamReader>

#include <set>
#include <winstring.h>

namespace faketoast {

std::atomic<int> gLiveObjects = 0;

namespace {

struct Records
{
    QString failingCall;
    QStringList calls;
    QString applicationId;
    QStringList shownTexts;
};

Records& records()
{
    static Records instance;
    return instance;
}

/// Documents and toasts by the one address that stands for them in calls.
std::set<const void*>& knownObjects()
{
    static std::set<const void*> instance;
    return instance;
}

HRESULT record(const QString& call)
{
    records().calls.append(call);
    return call == records().failingCall ? E_FAIL : S_OK;
}

QString toQString(HSTRING string)
{
    UINT32 length = 0;
    const wchar_t* text = WindowsGetStringRawBuffer(string, &length);
    return QString::fromWCharArray(text, static_cast<qsizetype>(length));
}

class Document final : public Object<Inspectable, XmlDocument, XmlDocumentIO>
{
public:
    Document() { knownObjects().insert(static_cast<XmlDocument*>(this)); }
    ~Document() override { knownObjects().erase(static_cast<XmlDocument*>(this)); }

    const QStringList& texts() const { return m_texts; }

    HRESULT STDMETHODCALLTYPE LoadXml(HSTRING xml) override
    {
        if (const HRESULT refused = record(QStringLiteral("LoadXml")); FAILED(refused)) {
            return refused;
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

protected:
    HRESULT onQuery(REFIID wanted) override
    {
        if (wanted == XmlDocumentIO::kId) {
            return record(QStringLiteral("XmlDocument as IXmlDocumentIO"));
        }
        if (wanted == XmlDocument::kId) {
            return record(QStringLiteral("XmlDocument as IXmlDocument"));
        }
        return S_OK;
    }

private:
    QStringList m_texts;
};

class Toast final : public Object<Inspectable, ToastNotification>
{
public:
    explicit Toast(const QStringList& texts)
        : m_texts(texts)
    {
        knownObjects().insert(static_cast<ToastNotification*>(this));
    }

    ~Toast() override { knownObjects().erase(static_cast<ToastNotification*>(this)); }

    const QStringList& texts() const { return m_texts; }

private:
    QStringList m_texts;
};

class Notifier final : public Object<Inspectable, ToastNotifier>
{
public:
    HRESULT STDMETHODCALLTYPE Show(ToastNotification* toast) override
    {
        if (const HRESULT refused = record(QStringLiteral("Show")); FAILED(refused)) {
            return refused;
        }
        if (!knownObjects().contains(toast)) {
            return E_INVALIDARG;
        }
        records().shownTexts += static_cast<Toast*>(toast)->texts();
        return S_OK;
    }
};

class DocumentClass final : public Object<ActivationFactory>
{
public:
    HRESULT STDMETHODCALLTYPE ActivateInstance(IInspectable** instance) override
    {
        if (const HRESULT refused = record(QStringLiteral("new XmlDocument")); FAILED(refused)) {
            return refused;
        }
        *instance = static_cast<Inspectable*>(std::make_unique<Document>().release());
        return S_OK;
    }
};

class ManagerClass final : public Object<ActivationFactory, ToastNotificationManagerStatics>
{
public:
    HRESULT STDMETHODCALLTYPE CreateToastNotifier(ToastNotifier** /*notifier*/) override
    {
        record(QStringLiteral("CreateToastNotifier"));
        return HRESULT_FROM_WIN32(ERROR_NOT_FOUND); // as for every program without a package
    }

    HRESULT STDMETHODCALLTYPE
    CreateToastNotifierWithId(HSTRING applicationId, ToastNotifier** notifier) override
    {
        records().applicationId = toQString(applicationId);
        if (const HRESULT refused = record(QStringLiteral("CreateToastNotifierWithId"));
            FAILED(refused)) {
            return refused;
        }
        *notifier = std::make_unique<Notifier>().release();
        return S_OK;
    }
};

class ToastClass final : public Object<ActivationFactory, ToastNotificationFactory>
{
public:
    HRESULT STDMETHODCALLTYPE
    CreateToastNotification(XmlDocument* content, ToastNotification** toast) override
    {
        if (const HRESULT refused = record(QStringLiteral("CreateToastNotification"));
            FAILED(refused)) {
            return refused;
        }
        if (!knownObjects().contains(content)) {
            return E_INVALIDARG;
        }
        *toast = std::make_unique<Toast>(static_cast<Document*>(content)->texts()).release();
        return S_OK;
    }
};

} // namespace

QStringList classNames()
{
    return {
        QStringLiteral("Windows.Data.Xml.Dom.XmlDocument"),
        QStringLiteral("Windows.UI.Notifications.ToastNotificationManager"),
        QStringLiteral("Windows.UI.Notifications.ToastNotification")};
}

void reset(const QString& failingCall)
{
    records() = {};
    records().failingCall = failingCall;
}

QStringList calls()
{
    return records().calls;
}

QString applicationId()
{
    return records().applicationId;
}

QStringList shownTexts()
{
    return records().shownTexts;
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
    *factory = nullptr;
    const qsizetype index = classNames().indexOf(toQString(className));
    if (index < 0) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    if (const HRESULT refused =
            record(QStringLiteral("class ") + classNames().at(index).section(u'.', -1));
        FAILED(refused))
    {
        return refused;
    }
    switch (index) {
    case 0: *factory = std::make_unique<DocumentClass>().release(); break;
    case 1: *factory = std::make_unique<ManagerClass>().release(); break;
    default: *factory = std::make_unique<ToastClass>().release(); break;
    }
    return S_OK;
}
