// SPDX-License-Identifier: Apache-2.0
#include <MorrantUI/platform/notifications.h>

#include <QGuiApplication>
#include <QTimer>

#include <spdlog/spdlog.h>

#include <chrono>
#include <cstdio>

/// A host that the tests start with a session bus of theirs: sends its arguments as a notification
/// and says when the user has clicked it. Exit code 0 after a click, 1 without one.
int main(int argc, char** argv)
{
    using namespace std::chrono_literals;
    QGuiApplication app(argc, argv);
    spdlog::set_pattern("%l: %v");
    installActivatorCallback([] {
        std::puts("clicked");
        QCoreApplication::exit(0);
    });
    registerWithNotificationServer();
    sendNotification(argv[1], argv[2]);
    std::puts("sent");
    std::fflush(stdout);
    QTimer::singleShot(argc > 3 ? 0s : 20s, &app, [] { QCoreApplication::exit(1); });
    return app.exec();
}
