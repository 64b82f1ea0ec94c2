// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QRect>
#include <QSet>
#include <QString>
#include <QStringList>

#include <vector>

/// A saved arrangement as plain values.
namespace ui::docking {

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
    QString panel;             ///< of a panel: its name
    bool headerHidden = false; ///< of a panel: it has a header, which is not shown
    QList<int> sizes;          ///< of a row or column: the children's extents; none: as they come
    int active = 0;            ///< of tabs: the child in front
    std::vector<LayoutNode> children;

    bool operator==(const LayoutNode&) const = default;
};

enum class SavedState
{
    Normal,
    Minimized,
    Maximized,
};

/// A window of its own beside the main window.
struct SavedWindow
{
    QRect geometry; ///< on the desktop, without the frame, when it is neither of the two; may be
                    ///< empty
    QString screen; ///< its name; empty: the closest
    SavedState state = SavedState::Normal;
    LayoutNode root;

    bool operator==(const SavedWindow&) const = default;
};

/// How the panels are arranged, in logical pixels.
struct SavedLayout
{
    LayoutNode root;
    std::vector<SavedWindow> floating;
    QStringList closed; ///< panels that are not shown

    bool operator==(const SavedLayout&) const = default;
};

/// The names of the panels in a tree, in order; one that is there twice comes twice.
QStringList panelsOf(const LayoutNode& node);

/// The layout with these panels and no others, each of them once, at its first place: what is left
/// without children is gone, and so is what is needless with one. Its root is a row or a column.
SavedLayout withOnly(const SavedLayout& layout, QSet<QString> panels);

/// Adds a panel at the end of a row or column, as large as the others are on average.
void append(LayoutNode& row, const QString& panel);

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

} // namespace ui::docking
