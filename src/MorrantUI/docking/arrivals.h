// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

class DockableWindow;

namespace ui::docking {

/// A newcomer's arrival in a group, and how things were before: undone when it leaves. Windows are
/// compared only.
struct Arrival
{
    const DockableWindow* newcomer = nullptr;
    std::vector<const DockableWindow*> others;
    QSize newcomerSize;
    QList<int> sizes;     ///< of the others; of one more if it came in place of that
    bool inPlace = false; ///< it is a group that came around one of the children
    QRect before;         ///< position and size of the group
    QRect after;
};

/// The arrivals that a group remembers.
class Arrivals
{
public:
    /// Forgets those of windows that are no children any more.
    void remember(const Arrival& arrival, const std::vector<const DockableWindow*>& children);
    /// Forgets the newest arrival of a window, and returns it.
    std::optional<Arrival> take(const DockableWindow& newcomer, bool inPlace);
    /// After a child has come in place of another one.
    void replace(const DockableWindow& gone, const DockableWindow& inItsPlace);
    void clear() { m_arrivals.clear(); }

private:
    std::vector<Arrival> m_arrivals; ///< oldest first
};

} // namespace ui::docking
