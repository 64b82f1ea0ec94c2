// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPoint>
#include <QtGlobal>

#include <memory>

class ConnectionInstance;
class ConnectionTarget;
class QWidget;

/// The receiving side of connections: a base for widgets, or for an object of its own beside them,
/// that connections can be dropped on. A widget that derives from it names it after its QWidget
/// base, and calls makeWidgetReceiver(this).
///
/// A connection goes to the innermost registered widget below the pointer that is visible and
/// enabled, and not blocked by a modal dialog. The operations come in the order enter, move (once
/// with each enter and then with each movement), drop if there is one, leave. A leave follows every
/// enter, unless the receiver or its widget has died meanwhile; each of them may delete the
/// receiver, the connection's source or anything else.
class MORRANT_UI_EXPORT ConnectionReceiver
{
public:
    ConnectionReceiver();
    /// Takes the receiver from all its widgets; it is not left any more.
    virtual ~ConnectionReceiver();
    Q_DISABLE_COPY_MOVE(ConnectionReceiver)

    /// Makes the widget's area one where connections reach this receiver, until either dies. A
    /// receiver may have several widgets; a widget has the receiver that it was given last. Null is
    /// ignored.
    void makeWidgetReceiver(QWidget* widget);

    /// Ends the same; a connection above the widget leaves it at its next movement.
    void removeWidgetReceiver(QWidget* widget);

    /// The widget's receiver, or null.
    static ConnectionReceiver* of(const QWidget* widget);

    /// The widget that a connection at a global position would go to, or null.
    static QWidget* widgetAt(QPoint globalPosition);

    /// The connection has come over the widget. ConnectionInstance::setAccepted() and
    /// setDrawStyle() are for here and for onConnectionMove().
    virtual void onConnectionEnter(ConnectionInstance* connection);
    virtual void onConnectionMove(ConnectionInstance* connection);  ///< over it
    virtual void onConnectionLeave(ConnectionInstance* connection); ///< after every enter
    /// The connection was let go over the widget while accepted. The drag is over already: a dialog
    /// may be opened, and the next connection started.
    virtual void onConnectionDrop(ConnectionInstance* connection);

private:
    friend class ConnectionTarget;

    std::shared_ptr<bool> m_alive; ///< watched by a connection that calls back
};
