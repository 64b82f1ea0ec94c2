// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyDelta.h"
#include "editing/cliptimes.h"

#include <optional>
#include <utility>
#include <vector>

namespace studio {

struct ClipDelta
{
    int layer = -1;
    ClipTimes before;
    ClipTimes after;
};

/// What an undo step keeps.
struct EditDelta
{
    std::vector<PropertyDelta> properties;
    std::vector<ClipDelta> clips;

    bool isEmpty() const { return properties.empty() && clips.empty(); }
};

/// Remembers what a gesture has found, so that each of its steps takes the place of the one before.
class EditGesture
{
public:
    /// @param entriesOf the property whose entries it sets; none for a gesture over many
    explicit EditGesture(QString text, std::optional<PropertyAddress> entriesOf = {})
        : m_text(std::move(text))
        , m_entriesOf(std::move(entriesOf))
    {}

    const QString& text() const { return m_text; } ///< of the undo step
    const std::optional<PropertyAddress>& entriesOf() const { return m_entriesOf; }

    /// Remembers a property or a clip before its first change.
    void remember(const PropertyAddress& address, const Document& document);
    void remember(int layer, const Document& document);
    /// As found; null for a property that was not changed.
    const NumberProperty* found(const PropertyAddress& address) const;

    /// Gives back what was found. @return whatever is remembered
    std::vector<PropertyAddress> giveKeysBack(Document& document) const;
    std::vector<int> giveClipsBack(Document& document) const;

    /// What is different now.
    EditDelta delta(const Document& document) const;

private:
    QString m_text;
    std::optional<PropertyAddress> m_entriesOf;
    std::vector<std::pair<PropertyAddress, NumberProperty>> m_properties;
    std::vector<ClipChange> m_clips;
};

} // namespace studio
