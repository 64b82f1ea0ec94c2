// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/arrivals.h"
#include <MorrantUI/docking/DockableArea.h>

#include <QList>
#include <QRect>
#include <QSize>

class DockableGroup;

namespace ui::docking {

inline constexpr int kHandleWidth = 6; ///< logical pixels, as wide as the border around a group
inline constexpr int kBorder = 6;

/// How the splitter of a group shares its length among the children, and what a newcomer takes of
/// it and gives back when it leaves. Sizes leave out the handles.
class SplitterSizes
{
public:
    /// How the room is shared at a time.
    struct Memory
    {
        QRect group; ///< position and size
        QList<int> sizes;
        Arrivals arrivals;
    };

    explicit SplitterSizes(DockableGroup& group);

    Memory memory() const;
    /// Shares it in that way again, among as many children as then.
    void recall(const Memory& memory);

    /// Nothing of before is to come back: the user or the host wants it otherwise.
    void forget() { m_arrivals.clear(); }
    /// The children move from another group into this one.
    void takeMemoryOf(SplitterSizes& other);

    /// How things are before a window arrives.
    Arrival before(const DockableWindow& window) const;
    /// A floating group makes room for a newcomer, towards the side where it comes.
    void growFor(DockableWindow& window, int place);
    /// After a newcomer has arrived: it gets a share, or in a floating group what that has grown
    /// by.
    void shareAfter(const Arrival& arrival, int place);
    /// After a child has left: if the others are as it found them they get their sizes back.
    void giveBack(DockableWindow& child);

    /// After a child was split: a new group has come in its place. The others keep their sizes as
    /// far as they can.
    void splitInserted(
        const DockableWindow& target, const DockableWindow& split, const QList<int>& sizes);
    /// After a group has left its place to its children, `last` behind the others.
    /// @param sizes the row's before that
    /// @param parts how the children shared the group's own room
    void splitDissolved(
        const DockableWindow& split,
        const DockableWindow& last,
        int place,
        const QList<int>& sizes,
        const QList<int>& parts);

    /// After a floating window and a newcomer have become this group: whoever leaves first, the
    /// other is to be what it was.
    void rememberPair(
        const DockableWindow& target,
        const QRect& targetAlone,
        const DockableWindow& newcomer,
        QSize newcomerAlone);
    /// One of two children keeps its size, the other gets the rest. The group need not be laid out
    /// yet.
    void setSizesAround(DockableWindow& child, int extent);

    /// The sizes of a new pair: the window at which another one docks, in the room it has, and
    /// that.
    static QList<int> sharesFor(int room, int wanted, DockableArea area);

private:
    bool isVertical() const;
    int length() const;
    QSize beside(int place) const;
    std::vector<const DockableWindow*> childrenBut(const DockableWindow* one) const;
    void remember(const Arrival& arrival);

    DockableGroup& m_group; ///< owns this
    Arrivals m_arrivals;
};

} // namespace ui::docking
