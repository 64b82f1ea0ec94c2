// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "saving/ObjectEdit.h"

namespace studio {

/// Writes the keys of one property into its list. Keys of the file keep their bytes but for what
/// was edited; new ones are written as their neighbours are, also where the file is an old one that
/// tells with each key the value of the next ("e").
class KeyListWriter
{
public:
    using Keys = std::vector<Keyframe<Numbers>>;

    /// @param list the file's; Missing where there was none
    /// @param before the keys as read from it
    /// @param entries how many numbers a changed value has at least
    /// @param form of the object around the list, for what has no neighbours
    KeyListWriter(
        TextPatch& patch,
        const JsonValue& list,
        const Keys& before,
        std::size_t entries,
        double unit,
        const JsonForm& form);

    /// Writes over the file's list.
    void replace(const Keys& keys);
    /// A list where there was none.
    std::string text(const Keys& keys);

private:
    using Key = Keyframe<Numbers>;

    const Key* origin(const Key& key) const;
    std::vector<JsonPiece> pieces(const Keys& keys);
    void change(const Keys& keys, std::size_t at, ObjectEdit& edit);
    void writeValue(const Keys& keys, std::size_t at, ObjectEdit& edit);
    void writeEnd(const Keys& keys, std::size_t at, ObjectEdit& edit);
    void writeEasing(const Key& key, const Key& was, ObjectEdit& edit);
    void writeHandle(const EasingHandle& handle, std::string_view name, ObjectEdit& edit);
    void writeWay(const Key& key, const Key& was, ObjectEdit& edit);
    void writeNumbers(
        const Numbers& numbers,
        std::string_view name,
        std::size_t count,
        double unit,
        ObjectEdit& edit);
    bool isFollowedAsBefore(const Keys& keys, std::size_t at) const;
    bool tellsNoValue(const Keys& keys, std::size_t at) const;

    TextPatch& m_patch;
    JsonValue m_list;
    const Keys& m_before;
    std::size_t m_entries;
    double m_unit;
    JsonForm m_form;
    JsonValue m_sample; ///< a key of the file that has most of what keys have
    bool m_hasEnds = false;
    std::map<std::uint32_t, const Key*> m_origins; ///< the file's keys by their first byte
    std::map<std::uint32_t, std::size_t> m_places; ///< their places in the list, by the same
    std::vector<JsonValue> m_values;               ///< the file's keys as they stand there
};

} // namespace studio
