// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessible>
#include <QtTest>

#include <utility>

namespace ui::test {

/// What assistive tools are told while it lives; one at a time. Qt tells something only where it
/// finds the bus of such tools, as a test in tests/studio has one.
class ReaderEvents
{
public:
    static bool available()
    {
        return qEnvironmentVariableIsSet("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
               && QTest::qWaitFor(QAccessible::isActive);
    }
    /// Of so many events, those that are heard here.
    static int heard(int told) { return QAccessible::isActive() ? told : 0; }

    ReaderEvents()
    {
        available();
        m_before = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            gTold.append({event->object(), event->type()});
        });
    }
    ~ReaderEvents() { QAccessible::installUpdateHandler(m_before); }
    Q_DISABLE_COPY_MOVE(ReaderEvents)

    QList<std::pair<QObject*, QAccessible::Event>> take() { return std::exchange(gTold, {}); }
    QList<QAccessible::Event> takeOf(const QObject* object)
    {
        QList<QAccessible::Event> types;
        for (const auto& [told, type] : take()) {
            told == object ? types.append(type) : void();
        }
        return types;
    }

private:
    static inline QList<std::pair<QObject*, QAccessible::Event>> gTold;
    QAccessible::UpdateHandler m_before;
};

} // namespace ui::test
