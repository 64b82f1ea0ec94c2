// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableArea.h>

#include <QList>

#include <cstddef>
#include <memory>

class QWidget;

/// The same fifty panels in our tree and in a bare one of Qt's splitters and tabs.
namespace ui::bench {

inline constexpr std::size_t kPanels = 50;
inline constexpr std::size_t kTabsInGroup = 5;

enum class Shape
{
    Flat,   ///< one row
    Splits, ///< each panel beside or below an earlier one, in turns
    Tabs,   ///< a row of tab groups
};

/// A tree of panels in which one can be taken out and put elsewhere. Each panel has a title and
/// twenty labels.
class Tree
{
public:
    Tree() = default;
    virtual ~Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    virtual QWidget& window() = 0;
    /// Makes the panel a window of its own and dissolves what held it, if that is needless now.
    virtual void undock(std::size_t panel) = 0;
    /// At the centre the panel becomes a tab, in front.
    virtual void dock(std::size_t panel, std::size_t target, DockableArea area) = 0;
    /// Brings a page of every tab group to the front.
    virtual void switchTabs(int index) = 0;
};

/// Built, shown and laid out. There can be only one of ours.
std::unique_ptr<Tree> makeOurTree(Shape shape);
std::unique_ptr<Tree> makeBareTree(Shape shape);

/// Where the panels of a shape go, but for the first; those of a row as in Shape::Splits.
std::size_t targetOf(std::size_t panel, Shape shape);
DockableArea areaOf(std::size_t panel, Shape shape);

/// Runs deferred deletes and everything else that is due.
void drain();

} // namespace ui::bench
