// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QSet>
#include <QString>

class QDBusPendingCallWatcher;

namespace morrant::native {

/// Notifications by the desktop's own service, `org.freedesktop.Notifications` on the session bus
/// (the freedesktop.org protocol, version 1.2). Every call is sent and not waited for.
class DesktopNotifier : public QObject
{
    Q_OBJECT

public:
    /// Lives as long as the application; null before there is one, and where no session bus is.
    static DesktopNotifier* instance();

    /// A failure of the service is one line in the log.
    /// @param title shown as plain text, its XML entities resolved
    /// @param body may hold the service's markup
    void send(const QString& title, const QString& body);

private Q_SLOTS:
    void onActionInvoked(uint id, const QString& action);
    void onClosed(uint id);

private:
    explicit DesktopNotifier(QObject* parent);

    QSet<uint> m_shown; ///< ours, as the service numbers them
};

} // namespace morrant::native
