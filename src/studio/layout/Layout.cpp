#include "layout/Layout.h"

#include <QSet>

#include <algorithm>
#include <numeric>
#include <utility>

namespace studio {

namespace {

using Kind = LayoutNode::Kind;

constexpr double kNewcomersShare = 0.32; ///< of its neighbour's room

bool hasSizes(Kind kind)
{
    return kind == Kind::Row || kind == Kind::Column;
}

/// @return nothing for a node without any of the panels left; takes those that it finds
std::optional<LayoutNode> pruned(const LayoutNode& node, QSet<QString>& wanted)
{
    if (node.kind == Kind::Panel) {
        return wanted.remove(node.panel) ? std::optional(node) : std::nullopt;
    }
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
    if (result.children.empty()) {
        return std::nullopt;
    }
    return result.children.size() > 1 ? result : std::move(result.children.front());
}

/// Adds a panel, as large as the others are on average.
void append(LayoutNode& row, const QString& panel)
{
    if (!row.sizes.isEmpty()) {
        const qint64 sum = std::accumulate(row.sizes.begin(), row.sizes.end(), qint64(0));
        row.sizes.append(static_cast<int>(sum / row.sizes.size()));
    }
    row.children.push_back({Kind::Panel, panel, {}, 0, {}});
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

bool mentions(const Layout& layout, const QString& panel)
{
    return panelsOf(layout.root).contains(panel) || layout.closed.contains(panel)
           || std::any_of(
               layout.floating.begin(), layout.floating.end(), [&panel](const auto& window) {
                   return panelsOf(window.root).contains(panel);
               });
}

/// The nodes from a tree's root down to the smallest one that holds some panels.
std::vector<LayoutNode*> pathToHolder(LayoutNode& root, const QStringList& panels)
{
    std::vector<LayoutNode*> path{&root};
    for (;;) {
        auto& children = path.back()->children;
        const auto holder =
            std::find_if(children.begin(), children.end(), [&panels](const LayoutNode& child) {
                const QStringList own = panelsOf(child);
                return std::all_of(panels.begin(), panels.end(), [&own](const QString& panel) {
                    return own.contains(panel);
                });
            });
        if (holder == children.end()) {
            return path;
        }
        path.push_back(&*holder);
    }
}

/// Adds a panel beside one of a row's children, which gives it a part of its room.
void insertBeside(LayoutNode& row, std::ptrdiff_t child, bool after, const LayoutNode& panel)
{
    if (!row.sizes.isEmpty()) {
        int& size = row.sizes[child];
        const int own = static_cast<int>(size * kNewcomersShare);
        size -= own;
        row.sizes.insert(child + (after ? 1 : 0), own);
    }
    row.children.insert(row.children.begin() + child + (after ? 1 : 0), panel);
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

Layout fitted(Layout layout, const QStringList& panels)
{
    QSet<QString> missing(panels.begin(), panels.end());
    const auto root = pruned(layout.root, missing);
    std::vector<FloatingWindow> floating;
    for (const FloatingWindow& window : layout.floating) {
        if (auto node = pruned(window.root, missing)) {
            floating.push_back({window.geometry, *std::move(node)});
        }
    }
    layout.floating = std::move(floating);
    QStringList closed;
    for (const QString& panel : std::as_const(layout.closed)) {
        if (missing.remove(panel)) {
            closed.append(panel);
        }
    }
    layout.closed = closed;

    layout.root = root.value_or(LayoutNode());
    if (!hasSizes(layout.root.kind)) {
        layout.root = {Kind::Row, {}, {}, 0, {layout.root}};
    }
    for (const QString& panel : panels) {
        if (missing.contains(panel)) {
            append(layout.root, panel);
        }
    }
    return layout;
}

Layout withPanel(Layout layout, const QString& panel, const LayoutNode& home)
{
    if (mentions(layout, panel)) {
        return layout;
    }
    const LayoutNode own{Kind::Panel, panel, {}, 0, {}};
    const QStringList there = panelsOf(layout.root);
    for (const Neighbour& place : neighboursOf(home, panel)) {
        QStringList beside;
        std::copy_if(
            place.panels.begin(),
            place.panels.end(),
            std::back_inserter(beside),
            [&there](const QString& other) { return there.contains(other); });
        if (beside.isEmpty()) {
            continue;
        }
        auto path = pathToHolder(layout.root, beside);
        while (path.size() > 1 && path[path.size() - 2]->kind == Kind::Tabs) {
            path.pop_back(); // beside all tabs of a group
        }
        LayoutNode& holder = *path.back();
        LayoutNode* row = path.size() > 1 ? path[path.size() - 2] : nullptr;
        if (row && row->kind == place.kind) {
            insertBeside(*row, &holder - row->children.data(), place.isBefore, own);
        } else {
            LayoutNode pair{place.kind, {}, {}, 0, {std::move(holder), own}};
            if (!place.isBefore) {
                std::swap(pair.children.front(), pair.children.back());
            }
            holder = std::move(pair);
        }
        return layout;
    }
    return layout;
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
    window.moveLeft(std::clamp(window.left(), screen.left(), screen.right() + 1 - window.width()));
    window.moveTop(std::clamp(window.top(), screen.top(), screen.bottom() + 1 - window.height()));
    return window;
}

} // namespace studio
