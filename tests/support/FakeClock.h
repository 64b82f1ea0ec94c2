// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

namespace ui::test {

/// Drives time for an object and everything below it instead of waiting for it.
class FakeClock
{
public:
    explicit FakeClock(QObject* root)
        : m_root(root)
    {}

    /// Sets every running animation below the root `milliseconds` ahead and stops those that have
    /// reached their end.
    void advanceAnimations(int milliseconds)
    {
        const auto isRunning = [](const auto* animation) {
            return animation->state() == QAbstractAnimation::Running;
        };
        for (const auto& animation : those<QAbstractAnimation>(isRunning)) {
            if (animation) {
                animation->setCurrentTime(animation->currentTime() + milliseconds);
            }
        }
    }

    /// Lets every active timer below the root with an interval of at most `milliseconds` fire once;
    /// single-shot timers are stopped first, as when they fire by themselves.
    /// @return how many fired
    int fireTimers(int milliseconds)
    {
        const auto isDue = [milliseconds](const auto* timer) {
            return timer->isActive() && timer->interval() <= milliseconds;
        };
        int fired = 0;
        for (const auto& timer : those<QTimer>(isDue)) {
            if (!timer || !timer->isActive()) {
                continue; // an earlier one stopped it
            }
            if (timer->isSingleShot()) {
                timer->stop();
            }
            ++fired;
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        }
        return fired;
    }

private:
    /// Found at once; some of them may die of the others.
    template <typename Object, typename Rule>
    QList<QPointer<Object>> those(Rule isMeant) const
    {
        auto found = m_root->findChildren<Object*>();
        found.removeIf([isMeant](const Object* one) { return !isMeant(one); });
        return {found.begin(), found.end()};
    }

    QObject* m_root;
};

} // namespace ui::test
