#include "RegistryKey.h"
#include "activator.h"
#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

#include <QThread>

#include <memory>
#include <optional>
#include <stdexcept>

/// Clicks arrive through COM, as from the notification platform.
class ActivatorTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); // what Qt does on a real desktop
        const wchar_t* classId = morrant::native::kActivatorClassId;
        QVERIFY(SUCCEEDED(CLSIDFromString(classId, &m_classId)));
        m_key.emplace(
            HKEY_CURRENT_USER,
            QStringLiteral("Software\\Classes\\CLSID\\") + QString::fromWCharArray(classId));
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
        QVERIFY(m_key->create(ui::test::RegistryKey::Lifetime::Volatile));
        registerWithNotificationServer();
        QCOMPARE(
            takeLog(),
            QStringList{QStringLiteral("error: Could not register Notification Activator.")});
        QVERIFY(FAILED(click()));

        m_key.emplace(
            HKEY_CURRENT_USER,
            QStringLiteral("Software\\Classes\\CLSID\\")
                + QString::fromWCharArray(morrant::native::kActivatorClassId));
        registerWithNotificationServer();
        QCOMPARE(
            m_key->value(QString(), QStringLiteral("LocalServer32")),
            u'"' + QDir::toNativeSeparators(QCoreApplication::applicationFilePath())
                + QStringLiteral("\" -ToastActivated"));
    }

    void registeringAgainChangesNothing()
    {
        int clicks = 0;
        installActivatorCallback([&clicks] { ++clicks; });
        registerWithNotificationServer();
        registerWithNotificationServer();
        QCOMPARE(click(), S_OK);
        QCOMPARE(clicks, 1);
    }

    void aClickWithoutACallbackSucceeds()
    {
        registerWithNotificationServer();
        QCOMPARE(click(), S_OK);
    }

    void aClickRunsTheCallbackOnTheGuiThread()
    {
        registerWithNotificationServer();
        QThread* thread = nullptr;
        installActivatorCallback([&thread] { thread = QThread::currentThread(); });
        QCOMPARE(click(), S_OK);
        QCOMPARE(thread, qApp->thread());
    }

    void aCallbackMayInstallAnother()
    {
        registerWithNotificationServer();
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
        QVERIFY(firstSurvived);
        QVERIFY(firstsOwn.expired());
        QCOMPARE(click(), S_OK);
        QCOMPARE(seconds, 1);
    }

    void whatACallbackThrowsEndsInTheLog()
    {
        registerWithNotificationServer();
        installActivatorCallback([] { throw std::runtime_error("no {} document"); });
        QCOMPARE(click(), S_OK);
        QCOMPARE(
            takeLog(),
            QStringList{QStringLiteral("error: Notification callback failed: no {} document")});

        installActivatorCallback([] { throw 1; });
        QCOMPARE(click(), S_OK);
        QCOMPARE(takeLog(), QStringList{QStringLiteral("error: Notification callback failed.")});
    }

    void theFactoryFollowsTheRulesOfCom()
    {
        registerWithNotificationServer();
        void* object = nullptr;
        QCOMPARE(
            CoGetClassObject(m_classId, CLSCTX_LOCAL_SERVER, nullptr, IID_IClassFactory, &object),
            S_OK);
        auto* factory = static_cast<IClassFactory*>(object);

        QCOMPARE(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
        QVERIFY(!object);
        QCOMPARE(factory->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
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
        const Activator::Input input{L"key", L"value"};
        const HRESULT result =
            activator->Activate(morrant::native::kApplicationId, L"arguments", &input, 1);
        return activator->Release() == 0 ? result : E_UNEXPECTED;
    }

    CLSID m_classId{};
    std::optional<ui::test::RegistryKey> m_key;
};

const ui::test::Registration<ActivatorTest> kRegistration;

#include "tst_activator_windows.moc"
