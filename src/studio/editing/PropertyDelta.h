// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"

namespace studio {

/// What an edit has changed in one property, and no more of it.
class PropertyDelta
{
public:
    PropertyDelta(
        PropertyAddress address, const NumberProperty& before, const NumberProperty& after);

    const PropertyAddress& address() const { return m_address; }
    bool isEmpty() const;

    /// Makes `after` of what equals `before`, or the other way round.
    void apply(NumberProperty& property) const;
    void revert(NumberProperty& property) const;

private:
    struct PlacedKey
    {
        std::size_t place = 0;
        Keyframe<Numbers> key;
    };
    struct State
    {
        Numbers value{}; ///< without keys
        int dimensions = 1;
        std::vector<PlacedKey> keys; ///< that the other state lacks, upwards

        bool isSameValue(const State& other) const
        {
            return value == other.value && dimensions == other.dimensions;
        }
    };

    static void exchange(NumberProperty& property, const State& from, const State& to);

    PropertyAddress m_address;
    State m_before;
    State m_after;
};

} // namespace studio
