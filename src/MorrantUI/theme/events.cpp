// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/events.h"

#include <QCoreApplication>
#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>

namespace ui {

namespace {

class CallbackFilter final : public QObject
{
public:
    CallbackFilter(EventFilter callback, QObject* owner)
        : QObject(owner)
        , m_callback(std::make_shared<const EventFilter>(std::move(callback)))
    {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // The callback may delete this object, and the function it runs in with it.
        const auto callback = m_callback;
        const QPointer<QObject> receiver(watched);
        const bool filtered = (*callback)(watched, event);
        return filtered || receiver.isNull();
    }

private:
    std::shared_ptr<const EventFilter> m_callback;
};

} // namespace

QObject* installEventFilter(QObject* target, EventFilter callback, QObject* owner)
{
    if (!target || !callback) {
        return nullptr;
    }
    auto* filter = new CallbackFilter(std::move(callback), owner ? owner : target);
    target->installEventFilter(filter);
    QObject::connect(target, &QObject::destroyed, filter, &QObject::deleteLater);
    return filter;
}

void processEvents()
{
    QCoreApplication::processEvents();
}

QList<QKeySequence> redoKeys()
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
    for (const QKeySequence key : {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}) {
        if (!keys.contains(key)) {
            keys.append(key);
        }
    }
    return keys;
}

QString ctrlKeyName()
{
    return QStringLiteral("CTRL");
}

} // namespace ui
