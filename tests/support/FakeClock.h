// SPDX-License-Identifier: Apache-2.0
#pragma once

class QObject;

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
    void advanceAnimations(int milliseconds);

    /// Lets every active timer below the root with an interval of at most `milliseconds` fire once;
    /// single-shot timers are stopped first, as when they fire by themselves.
    /// @return how many fired
    int fireTimers(int milliseconds);

private:
    QObject* m_root;
};

} // namespace ui::test
