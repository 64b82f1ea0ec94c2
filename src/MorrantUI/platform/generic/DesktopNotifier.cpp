// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/generic/DesktopNotifier.h"

#include "MorrantUI/log.h"
#include "MorrantUI/platform/activationcallback.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPointer>
#include <QVariantMap>

#include <array>
#include <utility>

namespace morrant::native {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kDefaultAction = QStringLiteral("default"); ///< a click on the notification itself
constexpr int kServiceDecides = -1;                       ///< how long it is shown

/// A text written for a template of XML, as a plain one: the five named entities are resolved.
QString withoutEntities(QString text)
{
    static const std::array<std::pair<QString, QString>, 5> entities = {{
        {QStringLiteral("&lt;"), QStringLiteral("<")},
        {QStringLiteral("&gt;"), QStringLiteral(">")},
        {QStringLiteral("&quot;"), QStringLiteral("\"")},
        {QStringLiteral("&apos;"), QStringLiteral("'")},
        {QStringLiteral("&amp;"), QStringLiteral("&")}, // last: "&amp;lt;" is "&lt;"
    }};
    for (const auto& [entity, character] : entities) {
        text.replace(entity, character);
    }
    return text;
}

} // namespace

DesktopNotifier* DesktopNotifier::instance()
{
    static QPointer<DesktopNotifier> notifier;
    QCoreApplication* app = QCoreApplication::instance();
    if (!notifier && app && QDBusConnection::sessionBus().isConnected()) {
        notifier = new DesktopNotifier(app);
    }
    return notifier;
}

DesktopNotifier::DesktopNotifier(QObject* parent)
    : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(
        kService,
        kPath,
        kService,
        QStringLiteral("ActionInvoked"),
        this,
        SLOT(onActionInvoked(uint, QString)));
    bus.connect(
        kService,
        kPath,
        kService,
        QStringLiteral("NotificationClosed"),
        this,
        SLOT(onClosed(uint)));
}

void DesktopNotifier::send(const QString& title, const QString& body)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    call << QGuiApplication::applicationDisplayName() << uint(0) << QString()
         << withoutEntities(title) << body << QStringList{kDefaultAction, QString()} << hints
         << kServiceDecides;
    auto* reply = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        const QDBusPendingReply<uint> id = *reply;
        reply->deleteLater();
        if (id.isError()) {
            ui::log::error("Could not show Notification: {}", id.error().message().toStdString());
        } else {
            m_shown.insert(id.value());
        }
    });
}

void DesktopNotifier::onActionInvoked(uint id, const QString& action)
{
    if (action == kDefaultAction && m_shown.contains(id)) {
        runActivationCallback();
    }
}

void DesktopNotifier::onClosed(uint id)
{
    m_shown.remove(id);
}

} // namespace morrant::native
