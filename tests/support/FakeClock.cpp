// SPDX-License-Identifier: Apache-2.0
#include "support/FakeClock.h"

#include <QtWidgets>

namespace ui::test {

void FakeClock::advanceAnimations(int milliseconds)
{
    QList<QPointer<QAbstractAnimation>> running;
    for (auto* animation : m_root->findChildren<QAbstractAnimation*>()) {
        if (animation->state() == QAbstractAnimation::Running) {
            running.append(animation);
        }
    }
    for (const auto& animation : running) {
        if (animation) {
            animation->setCurrentTime(animation->currentTime() + milliseconds);
        }
    }
}

int FakeClock::fireTimers(int milliseconds)
{
    QList<QPointer<QTimer>> due;
    for (auto* timer : m_root->findChildren<QTimer*>()) {
        if (timer->isActive() && timer->interval() <= milliseconds) {
            due.append(timer);
        }
    }
    int fired = 0;
    for (const auto& timer : due) {
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

} // namespace ui::test
