// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>
#include <Core/num2.h>

#include <vector>

namespace morrant {

/// How the value leaves a key and arrives at it.
enum class KeyInterpolationType : short
{
    Bezier = 0, ///< along the key's handles
    Linear = 1, ///< straight, whatever handles the key has
};

} // namespace morrant

/// A key of a normalised curve. Handles are offsets from the key in time and value, unbounded; a
/// handle of nothing lies on its key.
struct GraphCurveKey
{
    double time = 0.0;       ///< 0 to 1
    num2<double> leftHandle; ///< towards the key before
    num2<double> rightHandle;
    double value = 0.0;        ///< 0 to 1
    bool handlesLocked = true; ///< for editors: the handles move as a mirrored pair
    morrant::KeyInterpolationType interpolation = morrant::KeyInterpolationType::Linear;
    int index = 0; ///< the key's identity: it stays when the key moves

    friend bool operator==(const GraphCurveKey&, const GraphCurveKey&) = default;
};

/// A curve of keys with time and value from 0 to 1: an easing, a falloff, a response. A value type;
/// a copy is a state to come back to.
///
/// The interface library reads a curve through count() and keys() only, so that these two and the
/// fields of the keys are what an application's own Core has to supply. Applying edits, and what
/// the curve is worth at a time, are between data and host.
///
/// Keys are ordered by time; of several at one time, a key that came there stands on the side it
/// came from, and the value jumps from the first to the last of them. Times and values are clamped
/// to 0..1. What holds a number that is not finite is refused, and so is an index that no key has:
/// nothing changes then.
class GraphCurveData
{
public:
    int count() const { return static_cast<int>(m_keys.size()); }
    /// In order. Valid until the next change.
    const std::vector<GraphCurveKey>& keys() const { return m_keys; }
    /// Null for an index that no key has. Valid until the next change.
    MORRANT_CORE_EXPORT const GraphCurveKey* find(int index) const;

    /// Takes over keys in any order, those of one time in the order given. One with a number that
    /// is not finite is left out; an index that is negative or was met before is replaced by a new
    /// one.
    MORRANT_CORE_EXPORT void setKeys(std::vector<GraphCurveKey> keys);

    /// Adds a key without handles, behind others of its time.
    /// @return its index, which no key has had before; -1 when it was refused
    MORRANT_CORE_EXPORT int add(
        double time,
        double value,
        morrant::KeyInterpolationType interpolation = morrant::KeyInterpolationType::Linear);

    // Each of these returns whether there is such a key and it takes the change.

    /// Gives the key of this index everything else anew.
    MORRANT_CORE_EXPORT bool replace(const GraphCurveKey& key);
    /// A key stays before or behind those of its new time, as it was before the move.
    MORRANT_CORE_EXPORT bool move(int index, double time, double value);
    /// Both are offsets from the key.
    MORRANT_CORE_EXPORT bool setHandles(int index, num2<double> left, num2<double> right);
    MORRANT_CORE_EXPORT bool setHandlesLocked(int index, bool locked); ///< the handles stay
    /// The handles stay.
    MORRANT_CORE_EXPORT bool setInterpolation(
        int index, morrant::KeyInterpolationType interpolation);
    MORRANT_CORE_EXPORT bool remove(int index); ///< the other indices stay

    /// The value of the curve at a time, as an editor draws it. From one key to the next it is a
    /// cubic bezier, whose inner points are the keys' handles, or the keys themselves where they
    /// are linear. These points are clamped to the segment in time, so that the curve never turns
    /// back, and to 0..1 in value. Before the first key and from the last one on the value is
    /// theirs.
    /// @param time clamped to 0..1; NaN counts as 0
    /// @return 0 without keys; else 0 to 1, exact at the keys
    MORRANT_CORE_EXPORT double evaluate(double time) const;

    friend bool operator==(const GraphCurveData& left, const GraphCurveData& right)
    {
        return left.m_keys == right.m_keys;
    }

private:
    using Keys = std::vector<GraphCurveKey>;

    Keys::iterator locate(int index);
    int newIndex();

    Keys m_keys;
    int m_nextIndex = 0;
};
