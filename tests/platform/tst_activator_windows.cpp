// SPDX-License-Identifier: Apache-2.0
#include "RegistryKey.h"
#include "com.h"
#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

#include <stdexcept>

using namespace ui::test;

/// Clicks arrive through COM, as from the notification platform.
class ActivatorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        enterApartment("sta"); // what Qt does on a real desktop
        QVERIFY(SUCCEEDED(CLSIDFromString(morrant::native::kActivatorClassId, &m_classId)));
    }

    void init() override
    {
        TestCase::init();
        if (m_key) {
            registerWithNotificationServer();
        }
    }

    void cleanup() override
    {
        installActivatorCallback({});
        TestCase::cleanup();
    }

    void cleanupTestCase()
    {
        m_key.reset();
        CoUninitialize();
    }

    void aRefusedRegistrationIsOneLineAndCanBeRepeated()
    {
        const QString path = comClassKey(morrant::native::kActivatorClassId);
        m_key.emplace(HKEY_CURRENT_USER, path);
        QVERIFY(m_key->create(REG_OPTION_VOLATILE));
        registerWithNotificationServer();
        QCOMPARE(takeLog(), QStringList(u"error: Could not register Notification Activator."_qs));
        QVERIFY(FAILED(click()));

        m_key.emplace(HKEY_CURRENT_USER, path);
        registerWithNotificationServer();
        QCOMPARE(
            m_key->value(u"LocalServer32"_qs),
            u'"' + QDir::toNativeSeparators(QCoreApplication::applicationFilePath())
                + u"\" -ToastActivated"_qs);
    }

    void aClickRunsTheCallbackOnceOnTheGuiThread()
    {
        QCOMPARE(click(), S_OK); // without a callback
        QList<QThread*> threads;
        installActivatorCallback([&threads] { threads << QThread::currentThread(); });
        registerWithNotificationServer(); // again
        QCOMPARE(click(), S_OK);
        QCOMPARE(threads, QList<QThread*>{qApp->thread()});
    }

    void aCallbackMayInstallAnother()
    {
        // Static, since a callback destroyed while it runs would have lost what it captured.
        static std::weak_ptr<int> firstsOwn;
        static bool firstSurvived = false;
        static int seconds = 0;
        auto captured = std::make_shared<int>();
        firstsOwn = captured;
        installActivatorCallback([captured = std::move(captured)] {
            installActivatorCallback([] { ++seconds; });
            firstSurvived = !firstsOwn.expired();
        });
        QCOMPARE(click(), S_OK);
        QVERIFY(firstSurvived && firstsOwn.expired());
        QCOMPARE(click(), S_OK);
        QCOMPARE(seconds, 1);
    }

    void whatACallbackThrowsEndsInTheLog()
    {
        installActivatorCallback([] { throw std::runtime_error("no {} document"); });
        QCOMPARE(click(), S_OK);
        installActivatorCallback([] { throw 1; });
        QCOMPARE(click(), S_OK);
        QCOMPARE(
            takeLog(),
            (QStringList{
                u"error: Notification callback failed: no {} document"_qs,
                u"error: Notification callback failed."_qs}));
    }

    void theFactoryFollowsTheRulesOfCom()
    {
        void* object = nullptr;
        const IID& iid = IID_IClassFactory;
        QCOMPARE(CoGetClassObject(m_classId, CLSCTX_LOCAL_SERVER, nullptr, iid, &object), S_OK);
        auto* factory = static_cast<IClassFactory*>(object);
        QCOMPARE(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
        QVERIFY(!object);
        QCOMPARE(factory->CreateInstance(nullptr, iid, &object), E_NOINTERFACE);
        QVERIFY(!object);
        QCOMPARE(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
        QCOMPARE(factory->LockServer(TRUE), S_OK);
        QCOMPARE(factory->LockServer(FALSE), S_OK);

        QCOMPARE(factory->CreateInstance(nullptr, IID_IUnknown, &object), S_OK);
        auto* unknown = static_cast<IUnknown*>(object);
        QCOMPARE(unknown->QueryInterface(Activator::kId, &object), S_OK);
        QCOMPARE(static_cast<Activator*>(object)->Release(), ULONG(1));
        QCOMPARE(unknown->Release(), ULONG(0));
        factory->Release();
    }

private:
    HRESULT click() const
    {
        void* object = nullptr;
        const HRESULT created =
            CoCreateInstance(m_classId, nullptr, CLSCTX_LOCAL_SERVER, Activator::kId, &object);
        if (FAILED(created)) {
            return created;
        }
        auto* activator = static_cast<Activator*>(object);
        const morrant::native::toast::UserInput input{L"key", L"value"};
        const HRESULT result = activator->Activate(L"application", L"arguments", &input, 1);
        return activator->Release() == 0 ? result : E_UNEXPECTED;
    }

    CLSID m_classId{};
    std::optional<RegistryKey> m_key; ///< once the first registration is through
};

const Registration<ActivatorTest> kRegistration;

#include "tst_activator_windows.moc"
