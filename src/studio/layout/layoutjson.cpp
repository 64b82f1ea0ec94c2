#include "layout/layoutjson.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>

#include <cmath>
#include <utility>

namespace studio {

namespace {

using Kind = LayoutNode::Kind;

/// Reads the values of one layout and remembers the first thing that is wrong with it.
class LayoutReader
{
    Q_DECLARE_TR_FUNCTIONS(studio::LayoutReader)

public:
    Layout read(const QJsonObject& object)
    {
        Layout layout;
        if (object[u"version"].toInt() != kLayoutVersion) {
            fail(tr("its version is unknown"));
            return layout;
        }
        if (object.contains(u"windowSize")) {
            const auto size = numbers(object[u"windowSize"], 2, 1);
            layout.windowSize = QSize(size[0], size[1]);
        }
        if (object.contains(u"windowPosition")) {
            const auto position = numbers(object[u"windowPosition"], 2, -kMaxExtent);
            layout.windowPosition = QPoint(position[0], position[1]);
        }
        layout.maximized = flag(object[u"maximized"]);
        layout.root = node(object[u"root"], 1);
        for (const QJsonValue& value : array(object, u"floating")) {
            layout.floating.push_back(floatingWindow(value.toObject()));
        }
        for (const QJsonValue& value : array(object, u"closed")) {
            layout.closed.append(panel(value));
        }
        return layout;
    }

    QString error() const { return m_error; }

private:
    void fail(const QString& error)
    {
        if (m_error.isEmpty()) {
            m_error = error;
        }
    }

    QJsonArray array(const QJsonObject& object, QStringView key)
    {
        const QJsonValue value = object[key];
        if (!value.isArray() && !value.isUndefined()) {
            fail(tr("“%1” is no list").arg(key));
        }
        return value.toArray();
    }

    bool flag(const QJsonValue& value)
    {
        if (!value.isBool() && !value.isUndefined()) {
            fail(tr("“maximized” is neither true nor false"));
        }
        return value.toBool();
    }

    int number(const QJsonValue& value, int least)
    {
        const double number = value.toDouble(least - 1.0); // which also stands for another type
        if (number < least || number > kMaxExtent || number != std::floor(number)) {
            fail(tr("a number in it is out of range"));
            return 0;
        }
        return static_cast<int>(number);
    }

    /// So many whole numbers, zeros in place of what is wrong.
    QList<int> numbers(const QJsonValue& value, qsizetype count, int least)
    {
        const QJsonArray array = value.toArray();
        if (array.size() != count) {
            fail(tr("a list in it has the wrong length"));
            return QList<int>(count, 0);
        }
        QList<int> result;
        for (const QJsonValue& entry : array) {
            result.append(number(entry, least));
        }
        return result;
    }

    QString panel(const QJsonValue& value)
    {
        const QString id = value.toString();
        if (id.isEmpty()) {
            fail(tr("a panel in it has no name"));
        } else if (m_panels.contains(id)) {
            fail(tr("the panel “%1” is in it twice").arg(id));
        }
        m_panels.insert(id);
        return id;
    }

    FloatingWindow floatingWindow(const QJsonObject& object)
    {
        const auto numbers = this->numbers(object[u"geometry"], 4, -kMaxExtent);
        const QSize size(numbers[2], numbers[3]);
        if (size.isEmpty()) {
            fail(tr("a floating window in it has no size"));
        }
        return {QRect(QPoint(numbers[0], numbers[1]), size), node(object[u"root"], 1)};
    }

    LayoutNode node(const QJsonValue& value, int depth)
    {
        LayoutNode result;
        const QJsonObject object = value.toObject();
        const QString type = object[u"type"].toString();
        if (depth > kMaxLayoutNesting) {
            fail(tr("its groups are nested too deep"));
        } else if (type == u"panel") {
            result.kind = Kind::Panel;
            result.panel = panel(object[u"panel"]);
        } else if (type == u"group" || type == u"tabGroup") {
            readChildren(result, object, depth);
            type == u"group" ? readRow(result, object) : readTabs(result, object);
        } else {
            fail(tr("something in it is neither a panel nor a group"));
        }
        return result;
    }

    void readChildren(LayoutNode& group, const QJsonObject& object, int depth)
    {
        for (const QJsonValue& child : array(object, u"children")) {
            group.children.push_back(node(child, depth + 1));
            if (!m_error.isEmpty()) {
                return;
            }
        }
    }

    void readRow(LayoutNode& group, const QJsonObject& object)
    {
        const QString orientation = object[u"orientation"].toString();
        if (orientation != u"horizontal" && orientation != u"vertical") {
            fail(tr("a group in it is neither horizontal nor vertical"));
        }
        group.kind = orientation == u"vertical" ? Kind::Column : Kind::Row;
        if (object.contains(u"sizes")) {
            const auto count = static_cast<qsizetype>(group.children.size());
            group.sizes = numbers(object[u"sizes"], count, 0);
        }
    }

    void readTabs(LayoutNode& group, const QJsonObject& object)
    {
        group.kind = Kind::Tabs;
        group.active = number(object[u"active"], 0);
        if (group.active >= qMax<qsizetype>(1, static_cast<qsizetype>(group.children.size()))) {
            fail(tr("the tab in front does not exist"));
        }
    }

    QSet<QString> m_panels;
    QString m_error;
};

QJsonArray listOf(std::initializer_list<int> numbers)
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
        return {{u"type"_qs, u"panel"_qs}, {u"panel"_qs, node.panel}};
    }
    QJsonObject object;
    if (node.kind == Kind::Tabs) {
        object[u"type"] = u"tabGroup"_qs;
        object[u"active"] = node.active;
    } else {
        object[u"type"] = u"group"_qs;
        object[u"orientation"] = node.kind == Kind::Row ? u"horizontal"_qs : u"vertical"_qs;
        QJsonArray sizes;
        for (const int size : node.sizes) {
            sizes.append(size);
        }
        if (!sizes.isEmpty()) {
            object[u"sizes"] = sizes;
        }
    }
    QJsonArray children;
    for (const LayoutNode& child : node.children) {
        children.append(objectOf(child));
    }
    object[u"children"] = children;
    return object;
}

} // namespace

LayoutResult readLayout(const QByteArray& json)
{
    QJsonParseError parsing;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsing);
    if (!document.isObject()) {
        const bool parsed = parsing.error == QJsonParseError::NoError;
        return {
            {},
            parsed ? LayoutReader::tr("it is no JSON object") : LayoutReader::tr("it is no JSON")};
    }
    LayoutReader reader;
    Layout layout = reader.read(document.object());
    if (!reader.error().isEmpty()) {
        return {{}, reader.error()};
    }
    return {std::move(layout), {}};
}

LayoutResult readLayoutFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {{}, LayoutReader::tr("it cannot be opened")};
    }
    if (file.size() > kMaxLayoutBytes) {
        return {{}, LayoutReader::tr("it is too large")};
    }
    return readLayout(file.readAll());
}

QByteArray layoutJson(const Layout& layout)
{
    QJsonObject object{{u"version"_qs, kLayoutVersion}, {u"root"_qs, objectOf(layout.root)}};
    if (!layout.windowSize.isEmpty()) {
        object[u"windowSize"] = listOf({layout.windowSize.width(), layout.windowSize.height()});
    }
    if (layout.windowPosition) {
        object[u"windowPosition"] =
            listOf({layout.windowPosition->x(), layout.windowPosition->y()});
    }
    if (layout.maximized) {
        object[u"maximized"] = true;
    }
    QJsonArray floating;
    for (const FloatingWindow& window : layout.floating) {
        const QRect& at = window.geometry;
        floating.append(QJsonObject{
            {u"geometry"_qs, listOf({at.x(), at.y(), at.width(), at.height()})},
            {u"root"_qs, objectOf(window.root)}});
    }
    object[u"floating"] = floating;
    object[u"closed"] = QJsonArray::fromStringList(layout.closed);
    return QJsonDocument(object).toJson();
}

QString writeLayoutFile(const Layout& layout, const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const QByteArray json = layoutJson(layout);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit();
    return written ? QString() : file.errorString();
}

} // namespace studio
