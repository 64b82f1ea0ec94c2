// SPDX-License-Identifier: Apache-2.0
#include "editing/EditGesture.h"

#include <algorithm>

namespace studio {

void EditGesture::remember(const PropertyAddress& address, const Document& document)
{
    if (!found(address)) {
        m_properties.emplace_back(address, *findProperty(document, address));
    }
}

void EditGesture::remember(int layer, const Document& document)
{
    const bool isKnown =
        std::any_of(m_clips.begin(), m_clips.end(), [layer](const ClipChange& clip) {
            return clip.layer == layer;
        });
    if (!isKnown) {
        m_clips.push_back({layer, clipOf(*findLayer(document, layer))});
    }
}

const NumberProperty* EditGesture::found(const PropertyAddress& address) const
{
    const auto it =
        std::find_if(m_properties.begin(), m_properties.end(), [&address](const auto& property) {
            return property.first == address;
        });
    return it != m_properties.end() ? &it->second : nullptr;
}

std::vector<PropertyAddress> EditGesture::giveKeysBack(Document& document) const
{
    std::vector<PropertyAddress> addresses;
    for (const auto& [address, before] : m_properties) {
        *findProperty(document, address) = before;
        addresses.push_back(address);
    }
    return addresses;
}

std::vector<int> EditGesture::giveClipsBack(Document& document) const
{
    std::vector<int> layers;
    for (const ClipChange& before : m_clips) {
        setClip(document.main.layers[static_cast<std::size_t>(before.layer)], before.times);
        layers.push_back(before.layer);
    }
    return layers;
}

EditDelta EditGesture::delta(const Document& document) const
{
    EditDelta delta;
    for (const auto& [address, before] : m_properties) {
        PropertyDelta property(address, before, *findProperty(document, address));
        if (!property.isEmpty()) {
            delta.properties.push_back(std::move(property));
        }
    }
    for (const ClipChange& before : m_clips) {
        const ClipTimes after = clipOf(*findLayer(document, before.layer));
        if (after != before.times) {
            delta.clips.push_back({before.layer, before.times, after});
        }
    }
    return delta;
}

} // namespace studio
