// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/layoutnode.h"

#include "MorrantUI/docking/placing.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>

namespace ui::docking {

namespace {

using Kind = LayoutNode::Kind;

std::optional<LayoutNode> pruned(const LayoutNode& node, QSet<QString>& wanted);

/// The group with those of the panels that are left; takes those that it finds.
LayoutNode prunedGroup(const LayoutNode& node, QSet<QString>& wanted)
{
    LayoutNode result;
    result.kind = node.kind;
    const bool sized = node.sizes.size() == static_cast<qsizetype>(node.children.size());
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        auto child = pruned(node.children[i], wanted);
        if (!child) {
            continue;
        }
        if (node.active == static_cast<int>(i)) {
            result.active = static_cast<int>(result.children.size());
        }
        if (sized) {
            result.sizes.append(node.sizes[static_cast<qsizetype>(i)]);
        }
        result.children.push_back(*std::move(child));
    }
    return result;
}

/// @return nothing for a node without any of the panels left
std::optional<LayoutNode> pruned(const LayoutNode& node, QSet<QString>& wanted)
{
    if (node.kind == Kind::Panel) {
        return wanted.remove(node.panel) ? std::optional(node) : std::nullopt;
    }
    LayoutNode group = prunedGroup(node, wanted);
    if (group.children.empty()) {
        return std::nullopt;
    }
    return group.children.size() > 1 ? group : std::move(group.children.front());
}

bool findPath(const LayoutNode& node, const QString& panel, std::vector<const LayoutNode*>& path)
{
    path.push_back(&node);
    if (node.kind == Kind::Panel && node.panel == panel) {
        return true;
    }
    for (const LayoutNode& child : node.children) {
        if (findPath(child, panel, path)) {
            return true;
        }
    }
    path.pop_back();
    return false;
}

} // namespace

QStringList panelsOf(const LayoutNode& node)
{
    if (node.kind == Kind::Panel) {
        return {node.panel};
    }
    QStringList panels;
    for (const LayoutNode& child : node.children) {
        panels += panelsOf(child);
    }
    return panels;
}

SavedLayout withOnly(const SavedLayout& layout, QSet<QString> panels)
{
    SavedLayout result;
    const bool isRow = layout.root.kind == Kind::Row || layout.root.kind == Kind::Column;
    if (isRow) {
        result.root = prunedGroup(layout.root, panels);
    } else if (auto node = pruned(layout.root, panels)) {
        result.root.children.push_back(*std::move(node));
    }
    for (const SavedWindow& window : layout.floating) {
        if (auto node = pruned(window.root, panels)) {
            result.floating.push_back(
                {window.geometry, window.screen, window.state, *std::move(node)});
        }
    }
    return result;
}

void append(LayoutNode& row, const QString& panel)
{
    if (!row.sizes.isEmpty()) {
        const qint64 sum = std::accumulate(row.sizes.begin(), row.sizes.end(), qint64(0));
        row.sizes.append(static_cast<int>(sum / row.sizes.size()));
    }
    LayoutNode node;
    node.kind = Kind::Panel;
    node.panel = panel;
    row.children.push_back(std::move(node));
}

std::vector<Neighbour> neighboursOf(const LayoutNode& root, const QString& panel)
{
    std::vector<const LayoutNode*> path;
    findPath(root, panel, path);
    std::vector<Neighbour> neighbours;
    for (std::size_t i = path.size(); i-- > 1;) {
        const LayoutNode& holder = *path[i - 1];
        const auto own = path[i] - holder.children.data();
        if (own > 0) {
            neighbours.push_back({panelsOf(*(path[i] - 1)), holder.kind, true});
        }
        if (own + 1 < static_cast<std::ptrdiff_t>(holder.children.size())) {
            neighbours.push_back({panelsOf(*(path[i] + 1)), holder.kind, false});
        }
    }
    return neighbours;
}

QRect within(QRect window, const QRect& screen)
{
    window.setSize(window.size().boundedTo(screen.size()));
    window.moveTopLeft(placeWithin(window, screen));
    return window;
}

} // namespace ui::docking
