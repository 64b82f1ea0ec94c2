// SPDX-License-Identifier: Apache-2.0
#include "saving/propertywriter.h"

#include "saving/KeyListWriter.h"
#include "saving/numbertexts.h"

#include <algorithm>

namespace studio {

namespace {

/// A value of no keys: one number stands alone, as files have it.
std::string restText(const NumberProperty& property, const JsonForm& form, double unit)
{
    const auto entries = static_cast<std::size_t>(property.dimensions);
    const std::string list = numbersText(
        property.value, std::max(entries, usedEntries(property.value)), listForm(form), unit);
    return property.dimensions > 1 ? list : list.substr(1, list.size() - 2);
}

void writeValue(
    ObjectEdit& edit, const NumberProperty& now, const NumberProperty& before, double unit)
{
    const JsonValue value = edit["k"];
    const auto dimensions = static_cast<std::size_t>(now.dimensions);
    const bool isWider = now.dimensions > before.dimensions;
    if (now.isAnimated()) {
        const bool wasAnimated = value.exists() && before.isAnimated();
        const std::size_t entries = isWider || !wasAnimated ? dimensions : 1;
        const JsonValue list = wasAnimated ? value : JsonValue();
        KeyListWriter keys(edit.patch(), list, before.keys, entries, unit, edit.form());
        wasAnimated ? keys.replace(now.keys) : edit.set("k", keys.text(now.keys));
    } else if (value.exists() && !before.isAnimated()) {
        const std::size_t entries = isWider ? dimensions : usedEntries(now.value);
        replaceNumbers(edit.patch(), value, now.value, entries, unit);
    } else {
        edit.set("k", restText(now, edit.form(), unit));
    }
}

} // namespace

void writeProperty(
    ObjectEdit& parent,
    std::string_view key,
    const NumberProperty& now,
    const NumberProperty& before,
    double unit)
{
    if (now == before) {
        return;
    }
    const JsonValue written = parent[key];
    ObjectEdit edit = written.isObject() ? ObjectEdit(parent.patch(), written)
                                         : ObjectEdit(parent.patch(), objectForm(parent.form()));
    const bool isTold = written["a"].exists();
    if (now.isAnimated() != before.isAnimated() || (edit.isNew() && !isTold)) {
        edit.set("a", now.isAnimated() ? "1" : "0");
    }
    writeValue(edit, now, before, unit);
    written.isObject() ? edit.finish() : parent.set(key, edit.text());
}

} // namespace studio
