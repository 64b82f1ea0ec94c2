// SPDX-License-Identifier: Apache-2.0
#include "saving/documentwriter.h"

#include "lottie/reader.h"
#include "saving/numbertexts.h"
#include "saving/propertywriter.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

class Writer
{
public:
    Writer(const Document& now, const Document& before, const JsonTree& tree)
        : m_now(now)
        , m_before(before)
        , m_root(tree.root())
        , m_patch(before.bytes)
    {}

    std::string write();

private:
    void writeLayer(const Layer& now, const Layer& before, const JsonValue& value);
    void writeTransform(const Transform& now, const Transform& before, ObjectEdit& edit);
    void writePosition(const Transform& now, const Transform& before, ObjectEdit& edit);
    void writeItems(
        const std::vector<ShapeItem>& now,
        const std::vector<ShapeItem>& before,
        const JsonValue& list,
        bool isGroup);
    void writeOrder(const std::vector<std::size_t>& order);

    const Document& m_now;
    const Document& m_before;
    JsonValue m_root;
    TextPatch m_patch;
};

std::string Writer::write()
{
    const std::vector<JsonValue> values = valuesOf(m_root["layers"]);
    QHash<quint32, std::size_t> places;
    for (std::size_t i = 0; i < m_before.main.layers.size(); ++i) {
        places.insert(m_before.main.layers[i].span.begin, i);
    }
    std::vector<std::size_t> order;
    for (const Layer& layer : m_now.main.layers) {
        const auto place = places.constFind(layer.span.begin);
        if (place != places.constEnd()) {
            writeLayer(layer, m_before.main.layers[*place], values[*place]);
            order.push_back(*place);
        }
    }
    writeOrder(order);
    if (m_now.notes != m_before.notes) {
        ObjectEdit root(m_patch, m_root);
        root.set(kNotesKey, stringText(m_now.notes));
        root.finish();
    }
    return m_patch.result();
}

void Writer::writeOrder(const std::vector<std::size_t>& order)
{
    if (std::is_sorted(order.begin(), order.end())) {
        return;
    }
    std::vector<JsonPiece> pieces;
    for (const std::size_t place : order) {
        pieces.push_back({place, {}});
    }
    const JsonValue list = m_root["layers"];
    m_patch.replace(list.span(), compose(m_patch, list, pieces));
}

std::string solidText(const Numbers& color)
{
    constexpr double kFull = 255;
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "\"#";
    for (std::size_t i = 0; i < 3; ++i) {
        const auto channel =
            static_cast<unsigned>(std::lround(std::clamp(color[i], 0.0, 1.0) * kFull));
        text += kDigits[channel >> 4];
        text += kDigits[channel & 0xf];
    }
    return text + '"';
}

void Writer::writeLayer(const Layer& now, const Layer& before, const JsonValue& value)
{
    ObjectEdit edit(m_patch, value);
    const auto setTime = [&edit](std::string_view key, double time, double was) {
        if (time != was) {
            edit.set(key, numberText(time));
        }
    };
    const auto setFlag = [&edit](std::string_view key, bool flag, bool was) {
        if (flag != was) {
            edit.set(key, flag ? "true" : "false");
        }
    };
    if (now.name != before.name) {
        edit.set("nm", stringText(now.name));
    }
    setTime("ip", now.inPoint, before.inPoint);
    setTime("op", now.outPoint, before.outPoint);
    setTime("st", now.startTime, before.startTime);
    setFlag("hd", now.hidden, before.hidden);
    setFlag(kLockedKey, now.locked, before.locked);
    if (now.kind == LayerKind::Solid && now.color.value != before.color.value) {
        edit.set("sc", solidText(now.color.value));
    }
    const JsonValue transform = value["ks"];
    if (transform.isObject()) {
        ObjectEdit inner(m_patch, transform);
        writeTransform(now.transform, before.transform, inner);
        inner.finish();
    } else {
        ObjectEdit inner(m_patch, objectForm(edit.form()));
        writeTransform(now.transform, before.transform, inner);
        if (!inner.isEmpty()) {
            edit.set("ks", inner.text());
        }
    }
    if (now.kind == LayerKind::Shape) {
        writeItems(now.shapes, before.shapes, value["shapes"], false);
    }
    edit.finish();
}

void Writer::writeTransform(const Transform& now, const Transform& before, ObjectEdit& edit)
{
    writeProperty(edit, "a", now.anchor, before.anchor);
    writePosition(now, before, edit);
    writeProperty(edit, "s", now.scale, before.scale);
    writeProperty(edit, edit["rz"].exists() ? "rz" : "r", now.rotation, before.rotation);
    writeProperty(edit, "o", now.opacity, before.opacity);
}

void Writer::writePosition(const Transform& now, const Transform& before, ObjectEdit& edit)
{
    if (!before.splitPosition) {
        writeProperty(edit, "p", now.position, before.position);
        return;
    }
    ObjectEdit split(m_patch, edit["p"]);
    writeProperty(split, "x", now.positionX, before.positionX);
    writeProperty(split, "y", now.positionY, before.positionY);
    split.finish();
}

void Writer::writeItems(
    const std::vector<ShapeItem>& now,
    const std::vector<ShapeItem>& before,
    const JsonValue& list,
    bool isGroup)
{
    std::size_t i = 0;
    for (const JsonValue& value : list) {
        if (isGroup && value["ty"].string() == u"tr") {
            continue; // a group's transform is no item
        }
        const auto& shape = now[i].shape;
        const auto& was = before[i++].shape;
        ObjectEdit edit(m_patch, value);
        if (const auto* group = std::get_if<GroupShape>(&shape)) {
            writeItems(group->items, std::get<GroupShape>(was).items, value["it"], true);
        } else if (const auto* fill = std::get_if<FillShape>(&shape)) {
            const auto& color = std::get<FillShape>(was).color;
            writeProperty(edit, "c", fill->color, color, m_before.colorUnit);
        } else if (const auto* stroke = std::get_if<StrokeShape>(&shape)) {
            const auto& color = std::get<StrokeShape>(was).color;
            writeProperty(edit, "c", stroke->color, color, m_before.colorUnit);
        }
        edit.finish();
    }
}

} // namespace

std::optional<std::string> write(const Document& document)
{
    const ReadResult before = read(document.bytes);
    JsonTree tree;
    if (!before || !tree.parse(before.document->bytes, {kMaxNesting, kMaxJsonValues})) {
        return std::nullopt;
    }
    return Writer(document, *before.document, tree).write();
}

} // namespace studio
