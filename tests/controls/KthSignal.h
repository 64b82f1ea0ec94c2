// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

namespace ui::test {

/// Does something once, from within the k-th signal or callback of a story, counted from 0.
struct KthSignal
{
    /// To be called by each of them.
    void operator()()
    {
        if (k-- == 0) {
            std::exchange(act, nullptr)();
        }
    }
    bool isDone() const { return k < 0 && !act; }

    int k = -1;
    std::function<void()> act;
};

} // namespace ui::test
