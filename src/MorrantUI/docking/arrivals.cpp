// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/arrivals.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ui::docking {

void Arrivals::remember(const Arrival& arrival, const std::vector<const DockableWindow*>& children)
{
    std::erase_if(m_arrivals, [&](const Arrival& old) {
        return std::find(children.begin(), children.end(), old.newcomer) == children.end();
    });
    m_arrivals.push_back(arrival);
}

std::optional<Arrival> Arrivals::take(const DockableWindow& newcomer, bool inPlace)
{
    const auto found = std::find_if(m_arrivals.rbegin(), m_arrivals.rend(), [&](const Arrival& a) {
        return a.newcomer == &newcomer && a.inPlace == inPlace;
    });
    if (found == m_arrivals.rend()) {
        return std::nullopt;
    }
    Arrival arrival = std::move(*found);
    m_arrivals.erase(std::next(found).base());
    return arrival;
}

void Arrivals::replace(const DockableWindow& gone, const DockableWindow& inItsPlace)
{
    for (Arrival& arrival : m_arrivals) {
        std::replace(arrival.others.begin(), arrival.others.end(), &gone, &inItsPlace);
        arrival.newcomer = arrival.newcomer == &gone ? &inItsPlace : arrival.newcomer;
    }
}

} // namespace ui::docking
