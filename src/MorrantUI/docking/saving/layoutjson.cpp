// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/layoutjson.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <utility>

namespace ui::docking {

namespace {

using Kind = LayoutNode::Kind;

const QString kPanel = QStringLiteral("panel");
const QString kGroup = QStringLiteral("group");
const QString kTabGroup = QStringLiteral("tabGroup");
const QString kVertical = QStringLiteral("vertical");
const QString kMinimized = QStringLiteral("minimized");
const QString kMaximized = QStringLiteral("maximized");

QString reason(const char* text)
{
    return QCoreApplication::translate("ui::docking::layoutjson", text);
}

/// A list of exactly so many whole numbers in range; empty when it is anything else.
QList<int> numbers(const QJsonValue& value, qsizetype count, int least)
{
    const QJsonArray array = value.toArray();
    QList<int> result;
    for (const QJsonValue& entry : array) {
        const double number = entry.toDouble(least - 1.0); // which stands for another type, too
        if (number < least || number > kMaxExtent || number != std::floor(number)) {
            return {};
        }
        result.append(static_cast<int>(number));
    }
    return result.size() == count ? result : QList<int>();
}

/// Reads the nodes of one layout.
class NodeReader
{
public:
    /// @return nothing where there is no node that could be read
    std::optional<LayoutNode> read(const QJsonValue& value, int depth = 1)
    {
        const QJsonObject object = value.toObject();
        const QString type = object[u"type"].toString();
        LayoutNode node;
        if (depth > kMaxLayoutNesting || ++m_nodes > kMaxLayoutNodes) {
            return {};
        }
        if (type == kPanel) {
            node.kind = Kind::Panel;
            node.panel = object[u"panel"].toString();
            node.headerHidden = object[u"headerHidden"].toBool();
            return node.panel.isEmpty() ? std::nullopt : std::optional(node);
        }
        if (type != kGroup && type != kTabGroup) {
            return {};
        }
        node.kind = type == kTabGroup                                ? Kind::Tabs
                    : object[u"orientation"].toString() == kVertical ? Kind::Column
                                                                     : Kind::Row;
        readChildren(node, object, depth);
        return node;
    }

private:
    void readChildren(LayoutNode& group, const QJsonObject& object, int depth)
    {
        const QJsonArray children = object[u"children"].toArray();
        const int active = object[u"active"].toInt();
        const auto sizes = numbers(object[u"sizes"], children.size(), 0);
        for (qsizetype i = 0; i < children.size() && m_nodes < kMaxLayoutNodes; ++i) {
            auto child = read(children[i], depth + 1);
            if (!child) {
                continue;
            }
            if (group.kind == Kind::Tabs && i == active) {
                group.active = static_cast<int>(group.children.size());
            }
            if (group.kind != Kind::Tabs && !sizes.isEmpty()) {
                group.sizes.append(sizes[i]);
            }
            group.children.push_back(*std::move(child));
        }
    }

    int m_nodes = 0;
};

SavedState stateOf(const QString& text)
{
    return text == kMinimized   ? SavedState::Minimized
           : text == kMaximized ? SavedState::Maximized
                                : SavedState::Normal;
}

QJsonArray listOf(const QList<int>& numbers)
{
    QJsonArray list;
    for (const int number : numbers) {
        list.append(number);
    }
    return list;
}

QJsonObject objectOf(const LayoutNode& node)
{
    if (node.kind == Kind::Panel) {
        QJsonObject object{{u"type"_qs, kPanel}, {u"panel"_qs, node.panel}};
        if (node.headerHidden) {
            object[u"headerHidden"] = true;
        }
        return object;
    }
    QJsonObject object;
    if (node.kind == Kind::Tabs) {
        object[u"type"] = kTabGroup;
        object[u"active"] = node.active;
    } else {
        object[u"type"] = kGroup;
        object[u"orientation"] = node.kind == Kind::Row ? u"horizontal"_qs : kVertical;
        if (!node.sizes.isEmpty()) {
            object[u"sizes"] = listOf(node.sizes);
        }
    }
    QJsonArray children;
    for (const LayoutNode& child : node.children) {
        children.append(objectOf(child));
    }
    object[u"children"] = children;
    return object;
}

QJsonObject objectOf(const SavedWindow& window)
{
    QJsonObject object{{u"root"_qs, objectOf(window.root)}};
    if (!window.geometry.isEmpty()) {
        const QRect& at = window.geometry;
        object[u"geometry"] = listOf({at.x(), at.y(), at.width(), at.height()});
    }
    if (!window.screen.isEmpty()) {
        object[u"screen"] = window.screen;
    }
    if (window.state != SavedState::Normal) {
        object[u"state"] = window.state == SavedState::Minimized ? kMinimized : kMaximized;
    }
    return object;
}

} // namespace

std::optional<SavedLayout> readLayout(const QByteArray& json, QString* error)
{
    const auto refuse = [error](const char* text) {
        if (error) {
            *error = reason(text);
        }
        return std::nullopt;
    };
    if (json.size() > kMaxLayoutBytes) {
        return refuse(QT_TRANSLATE_NOOP("ui::docking::layoutjson", "it is too large"));
    }
    QJsonParseError parsing;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsing);
    if (parsing.error != QJsonParseError::NoError) {
        return refuse(QT_TRANSLATE_NOOP("ui::docking::layoutjson", "it is no JSON"));
    }
    const QJsonObject object = document.object();
    if (object[u"version"].toInt() != kLayoutVersion) {
        return refuse(QT_TRANSLATE_NOOP("ui::docking::layoutjson", "its version is unknown"));
    }
    NodeReader reader;
    auto root = reader.read(object[u"root"]);
    if (!root) {
        return refuse(QT_TRANSLATE_NOOP("ui::docking::layoutjson", "it has no panels"));
    }
    SavedLayout layout;
    layout.root = *std::move(root);
    for (const QJsonValue& value : object[u"floating"].toArray()) {
        if (auto node = reader.read(value[u"root"])) {
            const auto at = numbers(value[u"geometry"], 4, -kMaxExtent);
            layout.floating.push_back(
                {at.isEmpty() ? QRect() : QRect(at[0], at[1], at[2], at[3]),
                 value[u"screen"].toString(),
                 stateOf(value[u"state"].toString()),
                 *std::move(node)});
        }
    }
    for (const QJsonValue& value : object[u"closed"].toArray()) {
        layout.closed.append(value.toString());
    }
    return layout;
}

QByteArray layoutJson(const SavedLayout& layout)
{
    QJsonArray floating;
    for (const SavedWindow& window : layout.floating) {
        floating.append(objectOf(window));
    }
    return QJsonDocument(QJsonObject{
                             {u"version"_qs, kLayoutVersion},
                             {u"root"_qs, objectOf(layout.root)},
                             {u"floating"_qs, floating},
                             {u"closed"_qs, QJsonArray::fromStringList(layout.closed)}})
        .toJson();
}

} // namespace ui::docking
