// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableArea.h>

#include <QObject>

#include <cstddef>
#include <memory>
#include <vector>

class QWidget;

/// The same panels in our tree and in a bare one of Qt's splitters and tabs.
namespace ui::bench {

inline constexpr std::size_t kPanels = 50; ///< unless told otherwise
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

/// Built, shown and laid out, in a window in which a panel is as large however many there are.
/// There can be only one of ours.
std::unique_ptr<Tree> makeOurTree(Shape shape, std::size_t panels = kPanels);
std::unique_ptr<Tree> makeBareTree(Shape shape, std::size_t panels = kPanels);
/// The margins around, and the gaps between, the labels of all panels, instead of the style's.
void setLabelGaps(QWidget& window, int margin, int gap);

/// Where the panels of a shape go, but for the first; those of a row as in Shape::Splits.
std::size_t targetOf(std::size_t panel, Shape shape);
DockableArea areaOf(std::size_t panel, Shape shape);

struct Move
{
    std::size_t panel = 0;
    std::size_t target = 0;
    DockableArea area = DockableArea::Right;
};

/// Who goes where: the same for both trees.
std::vector<Move> seededMoves(unsigned seed, Shape shape, std::size_t panels, std::size_t count);

/// Counts what the contents of all panels go through while it lives.
class ContentEvents : public QObject
{
public:
    ContentEvents();

    int resizes = 0;
    int paints = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Runs deferred deletes and everything else that is due.
void drain();

} // namespace ui::bench
