// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/PointerSystem.h"

#include <optional>
#include <vector>

namespace morrant::native {

/// A process has one registration for raw mouse input, and we are a guest in it: the host's own
/// comes back when the last of our users has gone.
class RawInputShare
{
public:
    static RawInputShare& instance();

    /// Registers a window for a user; the latest holds. False when the system refuses it.
    bool add(const void* user, WId window);
    void remove(const void* user);

private:
    struct Entry
    {
        const void* user;
        RawRegistration registration;
    };

    std::vector<Entry> m_entries;
    std::optional<RawRegistration> m_foreign; ///< while there are entries
};

} // namespace morrant::native
