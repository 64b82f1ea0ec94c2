#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>

#include <optional>
#include <vector>

namespace studio {

/// A panel, or several of them side by side, one above the other, or as tabs.
struct LayoutNode
{
    enum class Kind
    {
        Panel,
        Row,    ///< from left to right
        Column, ///< from top to bottom
        Tabs,
    };

    Kind kind = Kind::Row;
    QString panel;    ///< of a panel: its id
    QList<int> sizes; ///< of a row or column: the children's extents; none: as they come
    int active = 0;   ///< of tabs: the child in front
    std::vector<LayoutNode> children;

    bool operator==(const LayoutNode&) const = default;
};

/// A window of its own beside the main window.
struct FloatingWindow
{
    QRect geometry; ///< on the desktop, without the frame
    LayoutNode root;

    bool operator==(const FloatingWindow&) const = default;
};

/// How the panels are arranged, in logical pixels.
struct Layout
{
    QSize windowSize; ///< of the main window when it is not maximised; empty: as it comes
    std::optional<QPoint> windowPosition;
    bool maximized = false;
    LayoutNode root; ///< a row or a column
    std::vector<FloatingWindow> floating;
    QStringList closed; ///< panels that are not shown

    bool operator==(const Layout&) const = default;
};

/// The ids of the panels in a tree, in order.
QStringList panelsOf(const LayoutNode& node);

/// The layout for a program that has these panels, each of which it then mentions once: others are
/// left out, and so is what is left without children or needless with one; panels that it does not
/// mention come at the end of the main window. Its root is a row or a column.
Layout fitted(Layout layout, const QStringList& panels);

/// The layout with a panel that it does not mention, beside its neighbours of another layout; as it
/// is where those are not in its main window.
Layout withPanel(Layout layout, const QString& panel, const LayoutNode& home);

/// Where a panel stands among others.
struct Neighbour
{
    QStringList panels;                            ///< that are together at its side
    LayoutNode::Kind kind = LayoutNode::Kind::Row; ///< what holds it and them
    bool isBefore = true;                          ///< they come before it

    bool operator==(const Neighbour&) const = default;
};

/// The neighbours of a panel in a tree, the closest first.
std::vector<Neighbour> neighboursOf(const LayoutNode& root, const QString& panel);

/// A window's rectangle moved, and if need be reduced, so that it lies within a screen.
QRect within(QRect window, const QRect& screen);

} // namespace studio
