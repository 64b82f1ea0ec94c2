#pragma once

#include "layout/Layout.h"

#include <functional>

class DockableGroup;
class DockableWindow;

/// A layout, and the tree of dockable windows that it describes. A panel's id is the object name of
/// its window.
namespace studio {

/// Makes the window of a panel, floating and hidden.
using MakePanel = std::function<DockableWindow*(const QString& id)>;

/// What is docked in gMainWindow and what floats, with the sizes as they are; the rest is empty.
Layout layoutOf(DockableGroup& mainWindow);

/// Replaces everything in and around an empty or a full gMainWindow, and deletes what was there.
/// Floating windows are shown if gMainWindow is visible. Sizes are exact from then on; before
/// gMainWindow was first shown they count as proportions, until applySizes() is called.
void buildTree(const Layout& layout, DockableGroup& mainWindow, const MakePanel& make);

/// Deletes everything in and around gMainWindow.
void clearTree(DockableGroup& mainWindow);

/// Gives the groups in gMainWindow the sizes of a layout, as far as they have the same children.
void applySizes(const Layout& layout, DockableGroup& mainWindow);

/// The windows that float, in the order in which they came.
std::vector<DockableWindow*> floatingWindows(DockableGroup& mainWindow);

/// Docks a window where its panel has its place in a layout: beside the neighbours that are docked,
/// or else at the end.
void dockAtHome(DockableWindow& window, const LayoutNode& home, DockableGroup& mainWindow);

} // namespace studio
