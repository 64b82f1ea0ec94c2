#include "../activator.h"
#include <MorrantUI/platform/native.h>
#include <MorrantUI/platform/notifications.h>

#include <QApplication>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <spdlog/spdlog.h>

#include <cstdio>
#include <memory>

/// A host that the tests start. Prints its log lines and what it finds, one a line.
///
///   register         registers
///   send             sends
///   life none|mta FONT_FILE
///                    registers, sends and registers a font before there is an application, is
///                    clicked, ends
///   click            asks COM for the activator, as for a click
///   -ToastActivated  what COM starts: leaves its command line in the file that MORRANT_PROBE_FILE
///                    names and ends when the file goes
namespace {

CLSID activatorClass()
{
    CLSID classId{};
    CLSIDFromString(morrant::native::kActivatorClassId, &classId);
    return classId;
}

HRESULT createActivator(REFIID interfaceId, void** object)
{
    return CoCreateInstance(activatorClass(), nullptr, CLSCTX_LOCAL_SERVER, interfaceId, object);
}

/// The click comes in on a thread of COM's, which there is when the host is multithreaded.
void clickFrom(bool otherThread)
{
    const auto click = [] {
        const HRESULT entered = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        void* object = nullptr;
        const HRESULT created = createActivator(Activator::kId, &object);
        std::printf("created %s\n", SUCCEEDED(created) ? "yes" : "no");
        if (SUCCEEDED(created)) {
            auto* activator = static_cast<Activator*>(object);
            activator->Activate(L"", L"", nullptr, 0);
            activator->Release();
        }
        if (SUCCEEDED(entered)) {
            CoUninitialize();
        }
    };
    if (!otherThread) {
        click();
        return;
    }
    const std::unique_ptr<QThread> thread(QThread::create(click));
    thread->start();
    thread->wait();
}

void printApartment(const char* when)
{
    const ApartmentState state = apartmentState();
    std::printf(
        "%s %s\n",
        when,
        state == ApartmentState::None            ? "none"
        : state == ApartmentState::MultiThreaded ? "mta"
                                                 : "sta");
}

int live(int argc, char** argv, bool multithreaded)
{
    if (multithreaded) {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    }
    registerWithNotificationServer();
    sendNotification("before", "the application");
    const bool registered = morrant::native::registerFontFile(argv[3]);
    std::printf("font %s\n", registered ? "taken" : "refused");
    {
        const QApplication app(argc, argv);
        installActivatorCallback([] {
            const bool here = QThread::currentThread() == qApp->thread();
            std::printf("clicked %s\n", here ? "on the GUI thread" : "elsewhere");
        });
        clickFrom(multithreaded);
        QCoreApplication::processEvents();
    }
    printApartment("afterwards");
    void* object = nullptr;
    std::printf("offered %s\n", SUCCEEDED(createActivator(IID_IUnknown, &object)) ? "yes" : "no");
    if (multithreaded) {
        CoUninitialize();
    }
    printApartment("end");
    return 0;
}

int askForActivator()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* object = nullptr;
    const HRESULT created = createActivator(IID_IUnknown, &object);
    std::printf("created %s\n", SUCCEEDED(created) ? "yes" : "no");
    if (SUCCEEDED(created)) {
        static_cast<IUnknown*>(object)->Release();
    }
    CoUninitialize();
    return 0;
}

int beActivated(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    QFile file(qEnvironmentVariable("MORRANT_PROBE_FILE"));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    file.write(QString::fromWCharArray(GetCommandLineW()).toUtf8());
    file.close();
    registerWithNotificationServer();

    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&file] {
        if (!file.exists()) {
            QCoreApplication::quit();
        }
    });
    poll.start(50);
    QTimer::singleShot(30000, &poll, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    spdlog::set_pattern("%l: %v");
    const QByteArray mode = argc > 1 ? argv[1] : "";
    if (mode == "register") {
        registerWithNotificationServer();
    } else if (mode == "send") {
        sendNotification("a", "b");
    } else if (mode == "life" && argc == 4) {
        return live(argc, argv, QByteArray(argv[2]) == "mta");
    } else if (mode == "click") {
        return askForActivator();
    } else if (mode == "-ToastActivated") {
        return beActivated(argc, argv);
    }
    return 0;
}
