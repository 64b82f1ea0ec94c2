// SPDX-License-Identifier: Apache-2.0
#include "../com.h"
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
///   start            registers and sends
///   life none|mta FONT_FILE
///                    registers, sends and registers a font before there is an application, is
///                    clicked, ends
///   click            asks COM for the activator, as for a click
///   -ToastActivated  what COM starts: leaves its command line in the file that MORRANT_PROBE_FILE
///                    names and ends when the file goes
namespace {

using ui::test::Activator;

/// What COM gives for a click, by one of its interfaces: printed, and null when there is none.
/// Other processes' objects are had as IUnknown only.
template <typename Interface>
Interface* createActivator(REFIID interfaceId)
{
    CLSID classId{};
    CLSIDFromString(morrant::native::kActivatorClassId, &classId);
    void* object = nullptr;
    const HRESULT created =
        CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, interfaceId, &object);
    std::printf("created %s\n", SUCCEEDED(created) ? "yes" : "no");
    return static_cast<Interface*>(object);
}

/// The click comes in on a thread of COM's, which there is when the host is multithreaded.
void clickFrom(bool otherThread)
{
    const auto click = [otherThread] {
        const bool entered = otherThread && ui::test::enterApartment("mta");
        if (auto* activator = createActivator<Activator>(Activator::kId)) {
            activator->Activate(L"", L"", nullptr, 0);
            activator->Release();
        }
        if (entered) {
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

int live(int argc, char** argv, const QByteArray& apartment)
{
    const bool entered = ui::test::enterApartment(apartment);
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
        clickFrom(entered);
        QCoreApplication::processEvents();
    }
    std::printf("afterwards %s\n", ui::test::apartment());
    createActivator<IUnknown>(IID_IUnknown);
    if (entered) {
        CoUninitialize();
    }
    std::printf("end %s\n", ui::test::apartment());
    return 0;
}

int askForActivator()
{
    ui::test::enterApartment("sta");
    if (auto* activator = createActivator<IUnknown>(IID_IUnknown)) {
        activator->Release();
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
    if (mode == "start") {
        registerWithNotificationServer();
        sendNotification("a", "b");
    } else if (mode == "life" && argc == 4) {
        return live(argc, argv, argv[2]);
    } else if (mode == "click") {
        return askForActivator();
    } else if (mode == "-ToastActivated") {
        return beActivated(argc, argv);
    }
    return 0;
}
