// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/ConnectionTarget.h"

#include <MorrantUI/controls/connections/ConnectionReceiver.h>

ConnectionTarget::ConnectionTarget(QWidget* widget)
    : accepts(ConnectionReceiver::of(widget) != nullptr)
    , style(accepts ? ConnectionStyle::Framed : ConnectionStyle::Line)
    , m_widget(widget)
    , m_receiver(ConnectionReceiver::of(widget))
{
    if (m_receiver) {
        m_alive = m_receiver->m_alive;
    }
}

bool ConnectionTarget::is(const QWidget* other) const
{
    return widget() == other && receiver() == ConnectionReceiver::of(other);
}
