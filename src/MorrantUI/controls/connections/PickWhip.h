// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/buttons/RowButton.h>
#include <MorrantUI/controls/connections/ConnectionInstance.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QString>
#include <QVariant>

#include <optional>

/// The connector of an attribute: dragging from it starts a connection to whatever receives one. A
/// click, also with Space, reports clicked() without a drag, where a host may offer a list of what
/// there is to connect with.
class MORRANT_UI_EXPORT PickWhip : public RowButton
{
    Q_OBJECT

public:
    explicit PickWhip(QWidget* parent = nullptr);
    /// Cancels the connection that is being dragged from here.
    ~PickWhip() override;

    /// What its connections carry; see ConnectionInstance::start(). Applies to the next drag.
    void setSource(QObject* source, const QVariant& userData = {});
    QObject* source() const { return m_source; }
    QVariant userData() const { return m_userData; }

    /// Shows that the attribute is connected already, in the connectors' accent. Emits nothing.
    void setConnected(bool connected);
    bool isConnected() const { return m_connected; }

    /// The connection being dragged from here, or null.
    ConnectionInstance* connection() const;

Q_SIGNALS:
    void connectionStarted(ConnectionInstance* connection); ///< once for each drag
    /// After the receiver's part; comes once for each start.
    void connectionFinished(ConnectionInstance::State state);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintMark(QPainter& painter) override;
    void changeEvent(QEvent* event) override;

private:
    void describe();
    void startConnection(QPoint globalPosition);

    QPointer<QObject> m_source;
    QVariant m_userData;
    QString m_ownToolTip; ///< unless the host has set another
    bool m_connected = false;
    std::optional<QPoint> m_pressed; ///< where a drag may begin, until it does
    QPointer<ConnectionInstance> m_connection;
};
