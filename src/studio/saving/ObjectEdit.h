// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "saving/jsonforms.h"

#include <string>
#include <vector>

namespace studio {

/// Changes the members of an object of the file, or makes a new one. Members that stay keep their
/// bytes, apart from what is replaced in them.
class ObjectEdit
{
public:
    /// @param patch takes the changes, those of members being there by finish()
    ObjectEdit(TextPatch& patch, const JsonValue& object);
    /// A new object.
    ObjectEdit(TextPatch& patch, JsonForm form);

    /// The file's member; Missing for a new object.
    JsonValue operator[](std::string_view key) const { return m_object[key]; }
    bool isNew() const { return !m_object.isObject(); }
    TextPatch& patch() const { return m_patch; }
    const JsonForm& form() const { return m_form; }

    /// Gives a member a value, in place of the one that it has.
    void set(std::string_view key, std::string text);
    void remove(std::string_view key);

    /// Writes what has changed around members; for an object of the file.
    void finish();
    /// A new object's text.
    /// @param like the members that this one has too come in its order, and first
    std::string text(const JsonValue& like = {}) const;
    bool isEmpty() const { return m_members.empty(); }

private:
    struct Member
    {
        std::string key;
        JsonPiece piece;
    };

    TextPatch& m_patch;
    JsonValue m_object;
    JsonForm m_form;
    std::vector<JsonValue> m_values; ///< the file's
    std::vector<Member> m_members;
    bool m_isRearranged = false;
};

} // namespace studio
