// SPDX-License-Identifier: Apache-2.0
#include "saving/ObjectEdit.h"

#include <algorithm>
#include <utility>

namespace studio {

ObjectEdit::ObjectEdit(TextPatch& patch, const JsonValue& object)
    : m_patch(patch)
    , m_object(object)
    , m_form(formOf(patch, object))
{
    m_values = valuesOf(object);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        m_members.push_back({std::string(m_values[i].key()), {i, {}}});
    }
}

ObjectEdit::ObjectEdit(TextPatch& patch, JsonForm form)
    : m_patch(patch)
    , m_form(std::move(form))
{}

void ObjectEdit::set(std::string_view key, std::string text)
{
    const auto found = std::find_if(
        m_members.begin(), m_members.end(), [key](const Member& m) { return m.key == key; });
    if (found != m_members.end() && found->piece.origin) {
        m_patch.replace(m_values[*found->piece.origin].span(), std::move(text));
        return;
    }
    Member& member = found != m_members.end() ? *found : m_members.emplace_back();
    member.key = key;
    member.piece.text = '"' + member.key + '"' + m_form.colon + text;
    m_isRearranged = true;
}

void ObjectEdit::remove(std::string_view key)
{
    const auto isNamed = [key](const Member& member) { return member.key == key; };
    const auto first = std::remove_if(m_members.begin(), m_members.end(), isNamed);
    m_isRearranged = m_isRearranged || first != m_members.end();
    m_members.erase(first, m_members.end());
}

void ObjectEdit::finish()
{
    if (!m_isRearranged) {
        return;
    }
    std::vector<JsonPiece> pieces;
    for (const Member& member : m_members) {
        pieces.push_back(member.piece);
    }
    m_patch.replace(m_object.span(), compose(m_patch, m_object, pieces));
}

std::string ObjectEdit::text(const JsonValue& like) const
{
    const auto rankOf = [&like](const Member& member) {
        std::size_t rank = 0;
        for (const JsonValue& value : like) {
            if (value.key() == member.key) {
                break;
            }
            ++rank;
        }
        return rank;
    };
    std::vector<Member> members = m_members;
    std::stable_sort(members.begin(), members.end(), [&](const Member& a, const Member& b) {
        return rankOf(a) < rankOf(b);
    });
    std::vector<std::string> texts;
    for (const Member& member : members) {
        texts.push_back(member.piece.text);
    }
    return compose(m_form, texts);
}

} // namespace studio
