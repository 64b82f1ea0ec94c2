// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/ConnectionReceiver.h"

#include <MorrantUI/controls/gestures/GestureDoors.h>

#include <QApplication>
#include <QHash>
#include <QWidget>

namespace {

/// Widgets stay, without a receiver, until they die: each is watched once.
QHash<const QObject*, ConnectionReceiver*>& registry()
{
    // Itself never destroyed, since static widgets may die later.
    static auto* const receivers = new QHash<const QObject*, ConnectionReceiver*>;
    return *receivers;
}

} // namespace

ConnectionReceiver::ConnectionReceiver()
    : m_alive(std::make_shared<bool>(true))
{}

ConnectionReceiver::~ConnectionReceiver()
{
    for (ConnectionReceiver*& receiver : registry()) {
        receiver = receiver == this ? nullptr : receiver;
    }
}

void ConnectionReceiver::makeWidgetReceiver(QWidget* widget)
{
    if (!widget) {
        return;
    }
    if (!registry().contains(widget)) {
        QObject::connect(
            widget, &QObject::destroyed, widget, [](QObject* dead) { registry().remove(dead); });
    }
    registry().insert(widget, this);
}

void ConnectionReceiver::removeWidgetReceiver(QWidget* widget)
{
    if (widget && of(widget) == this) {
        registry().insert(widget, nullptr);
    }
}

ConnectionReceiver* ConnectionReceiver::of(const QWidget* widget)
{
    return registry().value(widget);
}

QWidget* ConnectionReceiver::widgetAt(QPoint globalPosition)
{
    QWidget* widget = QApplication::widgetAt(globalPosition);
    if (!widget || GestureDoors::isBlockedByDialog(*widget)) {
        return nullptr;
    }
    while (widget && !(widget->isEnabled() && of(widget))) {
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return widget;
}

void ConnectionReceiver::onConnectionEnter(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionMove(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionLeave(ConnectionInstance* /*connection*/)
{}

void ConnectionReceiver::onConnectionDrop(ConnectionInstance* /*connection*/)
{}
