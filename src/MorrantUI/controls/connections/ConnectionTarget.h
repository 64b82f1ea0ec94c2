// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/connections/ConnectionStyle.h>

#include <QPointer>
#include <QWidget>

#include <memory>

class ConnectionReceiver;

/// The receiver that a connection has entered and not left yet, and what it has said to it. Widget
/// and receiver may each die at any time, and are null from then on.
class ConnectionTarget
{
public:
    /// Nothing, or a widget that has just been entered, with the receiver that it has now.
    explicit ConnectionTarget(QWidget* widget = nullptr);

    ConnectionReceiver* receiver() const { return m_alive.expired() ? nullptr : m_receiver; }
    QWidget* widget() const { return receiver() ? m_widget.data() : nullptr; }
    /// Whether this is still what a connection above the widget would go to.
    bool is(const QWidget* other) const;

    bool isAccepting() const { return accepts && receiver(); }

    bool accepts;          ///< a receiver does until it says no
    ConnectionStyle style; ///< how the line should look

private:
    QPointer<QWidget> m_widget;
    ConnectionReceiver* m_receiver;
    std::weak_ptr<bool> m_alive;
};
