// SPDX-License-Identifier: Apache-2.0
#include "saving/KeyListWriter.h"

#include "saving/numbertexts.h"

#include <algorithm>

namespace studio {

namespace {

const Keyframe<Numbers> kNoKey;

std::string handleText(const EasingHandle& handle, const JsonForm& form, bool asScalars)
{
    const auto entries = static_cast<std::size_t>(handle.count);
    const auto list = [&](const Numbers& numbers) {
        return asScalars && entries == 1 ? numberText(numbers[0])
                                         : numbersText(numbers, entries, listForm(form));
    };
    return compose(
        form, {"\"x\"" + form.colon + list(handle.x), "\"y\"" + form.colon + list(handle.y)});
}

} // namespace

KeyListWriter::KeyListWriter(
    TextPatch& patch,
    const JsonValue& list,
    const Keys& before,
    std::size_t entries,
    double unit,
    const JsonForm& form)
    : m_patch(patch)
    , m_list(list)
    , m_before(before)
    , m_entries(entries)
    , m_unit(unit)
    , m_form(form)
{
    if (!list.isList()) {
        return;
    }
    for (const Key& key : before) {
        m_origins.emplace(key.span.begin, &key);
    }
    m_values = valuesOf(list);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const JsonValue& value = m_values[i];
        m_places.emplace(value.span().begin, i);
        m_hasEnds = m_hasEnds || value["e"].exists();
        if (value.size() > m_sample.size()) {
            m_sample = value;
        }
    }
}

void KeyListWriter::replace(const Keys& keys)
{
    const std::vector<JsonPiece> now = pieces(keys);
    const auto isAsBefore = [this](const JsonPiece& piece, const Key& key) {
        return piece.origin && m_places.at(key.span.begin) == *piece.origin;
    };
    if (!std::equal(now.begin(), now.end(), m_before.begin(), m_before.end(), isAsBefore)) {
        m_patch.replace(m_list.span(), compose(m_patch, m_list, now));
    }
}

std::string KeyListWriter::text(const Keys& keys)
{
    std::vector<std::string> texts;
    for (JsonPiece& piece : pieces(keys)) {
        texts.push_back(std::move(piece.text));
    }
    return compose(listForm(m_form), texts);
}

std::vector<JsonPiece> KeyListWriter::pieces(const Keys& keys)
{
    std::vector<JsonPiece> result;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (const Key* was = origin(keys[i])) {
            const std::size_t place = m_places.at(was->span.begin);
            const bool hasValue = m_values[place]["s"].exists() || tellsNoValue(keys, i);
            if (*was != keys[i] || !hasValue || !isFollowedAsBefore(keys, i)) {
                ObjectEdit edit(m_patch, m_values[place]);
                change(keys, i, edit);
                edit.finish();
            }
            result.push_back({place, {}});
            continue;
        }
        const bool hasSample = m_sample.isObject();
        ObjectEdit edit(m_patch, hasSample ? formOf(m_patch, m_sample) : objectForm(m_form));
        change(keys, i, edit);
        result.push_back({{}, edit.text(m_sample)});
    }
    return result;
}

/// The key as it was read; null for a new one.
const Keyframe<Numbers>* KeyListWriter::origin(const Key& key) const
{
    const auto found = key.span.isEmpty() ? m_origins.end() : m_origins.find(key.span.begin);
    return found != m_origins.end() ? found->second : nullptr;
}

void KeyListWriter::change(const Keys& keys, std::size_t at, ObjectEdit& edit)
{
    const Key& key = keys[at];
    const Key* known = origin(key);
    const Key& was = known ? *known : kNoKey;
    if (!known || key.time != was.time) {
        edit.set("t", numberText(key.time));
    }
    writeValue(keys, at, edit);
    writeEnd(keys, at, edit);
    if (key.hold != was.hold) {
        edit.set("h", key.hold ? "1" : "0");
    }
    writeEasing(key, was, edit);
    writeWay(key, was, edit);
}

/// Old files leave out the value of the last key: the one before tells where it ends.
bool KeyListWriter::tellsNoValue(const Keys& keys, std::size_t at) const
{
    const Key* was = origin(keys[at]);
    if (!was || at == 0 || at + 1 < keys.size()
        || m_values[m_places.at(was->span.begin)]["s"].exists()) {
        return false;
    }
    return m_hasEnds || keys[at].value == keys[at - 1].value;
}

void KeyListWriter::writeValue(const Keys& keys, std::size_t at, ObjectEdit& edit)
{
    const Key* was = origin(keys[at]);
    const bool isWritten = edit["s"].exists();
    const bool isSame = was && was->value == keys[at].value;
    if (isWritten ? !isSame : !tellsNoValue(keys, at)) {
        writeNumbers(keys[at].value, "s", m_entries, m_unit, edit);
    }
}

/// Whether the file already has what this key tells of the next one.
bool KeyListWriter::isFollowedAsBefore(const Keys& keys, std::size_t at) const
{
    const Key* was = origin(keys[at]);
    if (at + 1 == keys.size()) {
        return was == &m_before.back();
    }
    const Key* next = origin(keys[at + 1]);
    return was && next && was + 1 == next && next->value == keys[at + 1].value;
}

void KeyListWriter::writeEnd(const Keys& keys, std::size_t at, ObjectEdit& edit)
{
    const bool isLast = at + 1 == keys.size();
    if (!m_hasEnds || (isLast && !edit["e"].exists())) {
        return;
    }
    if (isLast) {
        edit.remove("e");
        return;
    }
    // The file may have left it out where nothing changes, and old ones do for a key that is held.
    const bool isWritten = edit["e"].exists();
    const bool isNeeded = tellsNoValue(keys, at + 1);
    const bool isLacking = isNeeded && !isWritten && keys[at].value != keys[at + 1].value;
    const bool isDue = isNeeded || isWritten || !keys[at].hold;
    if (isLacking || (isDue && !isFollowedAsBefore(keys, at))) {
        writeNumbers(keys[at + 1].value, "e", m_entries, m_unit, edit);
    }
}

void KeyListWriter::writeEasing(const Key& key, const Key& was, ObjectEdit& edit)
{
    if (key.easeOut == was.easeOut && key.easeIn == was.easeIn) {
        return;
    }
    edit.remove("n"); // some players take the curve from their store by this name
    if (key.easeOut != was.easeOut) {
        writeHandle(key.easeOut, "o", edit);
    }
    if (key.easeIn != was.easeIn) {
        writeHandle(key.easeIn, "i", edit);
    }
}

void KeyListWriter::writeHandle(const EasingHandle& handle, std::string_view name, ObjectEdit& edit)
{
    const JsonValue written = edit[name];
    const auto entries = static_cast<std::size_t>(handle.count);
    const bool hasRoom = std::max(written["x"].size(), std::size_t(1)) <= entries
                         && std::max(written["y"].size(), std::size_t(1)) <= entries;
    if (entries == 0) {
        edit.remove(name);
    } else if (written["x"].exists() && written["y"].exists() && hasRoom) {
        replaceNumbers(m_patch, written["x"], handle.x, entries);
        replaceNumbers(m_patch, written["y"], handle.y, entries);
    } else {
        const JsonValue sample = m_sample[name];
        const bool hasSample = sample["x"].exists() && sample["y"].exists();
        const JsonForm form = hasSample ? formOf(m_patch, sample) : objectForm(edit.form());
        edit.set(name, handleText(handle, form, hasSample && !sample["x"].isList()));
    }
}

void KeyListWriter::writeWay(const Key& key, const Key& was, ObjectEdit& edit)
{
    if (key.spatialOut == was.spatialOut && key.spatialIn == was.spatialIn) {
        return;
    }
    if (!key.hasSpatial) {
        edit.remove("to");
        edit.remove("ti");
        return;
    }
    constexpr std::size_t kAxes = 2;
    writeNumbers(key.spatialOut, "to", kAxes, 1, edit);
    writeNumbers(key.spatialIn, "ti", kAxes, 1, edit);
}

void KeyListWriter::writeNumbers(
    const Numbers& numbers, std::string_view name, std::size_t count, double unit, ObjectEdit& edit)
{
    const std::size_t entries = std::max(count, usedEntries(numbers));
    if (edit[name].exists()) {
        replaceNumbers(m_patch, edit[name], numbers, entries, unit);
        return;
    }
    const JsonValue sample = m_sample[name];
    const JsonForm form = sample.isList() ? formOf(m_patch, sample) : listForm(edit.form());
    edit.set(name, numbersText(numbers, std::max(entries, sample.size()), form, unit));
}

} // namespace studio
