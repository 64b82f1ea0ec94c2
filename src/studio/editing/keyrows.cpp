// SPDX-License-Identifier: Apache-2.0
#include "editing/keyrows.h"

#include "texts.h"

#include <algorithm>

namespace studio {

namespace {

template <typename Value>
std::vector<double> timesOf(const Property<Value>& property)
{
    std::vector<double> times;
    times.reserve(property.keys.size());
    for (const auto& key : property.keys) {
        times.push_back(key.time);
    }
    return times;
}

/// Lists what of shapes moves and cannot be edited.
class ReadOnlyRows
{
    Q_DECLARE_TR_FUNCTIONS(studio)

public:
    explicit ReadOnlyRows(std::vector<KeyRow>& rows)
        : m_rows(rows)
    {}

    template <typename Value>
    void add(const Property<Value>& property, const QString& name)
    {
        if (property.isAnimated()) {
            const QString full = m_owner.isEmpty() ? name : tr("%1 · %2").arg(m_owner, name);
            m_rows.push_back({full, std::nullopt, timesOf(property)});
        }
    }

    void addItems(const std::vector<ShapeItem>& items)
    {
        for (const ShapeItem& item : items) {
            if (!item.hidden) {
                m_owner = item.name;
                std::visit([this](const auto& shape) { addShape(shape); }, item.shape);
            }
        }
    }

private:
    void addShape(const UnknownShape&) {}
    void addShape(const MergeShape&) {}

    void addShape(const GroupShape& group)
    {
        const Transform& transform = group.transform;
        add(transform.anchor, tr("Anchor"));
        add(transform.position, tr("Position"));
        add(transform.positionX, tr("Position X"));
        add(transform.positionY, tr("Position Y"));
        add(transform.scale, tr("Scale"));
        add(transform.rotation, tr("Rotation"));
        add(transform.opacity, tr("Opacity"));
        add(transform.skew, tr("Skew"));
        add(transform.skewAxis, tr("Skew Axis"));
        addItems(group.items);
    }

    void addShape(const PathShape& shape) { add(shape.path, tr("Path")); }

    void addShape(const RectangleShape& shape)
    {
        add(shape.position, tr("Position"));
        add(shape.size, tr("Size"));
        add(shape.radius, tr("Radius"));
    }

    void addShape(const EllipseShape& shape)
    {
        add(shape.position, tr("Position"));
        add(shape.size, tr("Size"));
    }

    void addShape(const StarShape& shape)
    {
        add(shape.position, tr("Position"));
        add(shape.points, tr("Points"));
        add(shape.rotation, tr("Rotation"));
        add(shape.outerRadius, tr("Outer Radius"));
        add(shape.outerRoundness, tr("Outer Roundness"));
        add(shape.innerRadius, tr("Inner Radius"));
        add(shape.innerRoundness, tr("Inner Roundness"));
    }

    void addShape(const FillStyle& shape) { add(shape.opacity, tr("Opacity")); }

    void addShape(const StrokeStyle& shape)
    {
        add(shape.opacity, tr("Opacity"));
        add(shape.width, tr("Width"));
        for (const NumberProperty& dash : shape.dashes) {
            add(dash, tr("Dash"));
        }
        add(shape.dashOffset, tr("Dash Offset"));
    }

    template <typename Shape>
    void addGradient(const Shape& shape)
    {
        add(shape.gradient.start, tr("Start"));
        add(shape.gradient.end, tr("End"));
        add(shape.gradient.stops, tr("Colours"));
        add(shape.gradient.highlightLength, tr("Highlight Length"));
        add(shape.gradient.highlightAngle, tr("Highlight Angle"));
    }

    void addShape(const GradientFillShape& shape)
    {
        addGradient(shape);
        addShape(static_cast<const FillStyle&>(shape));
    }

    void addShape(const GradientStrokeShape& shape)
    {
        addGradient(shape);
        addShape(static_cast<const StrokeStyle&>(shape));
    }

    void addShape(const TrimShape& shape)
    {
        add(shape.start, tr("Trim Start"));
        add(shape.end, tr("Trim End"));
        add(shape.offset, tr("Trim Offset"));
    }

    std::vector<KeyRow>& m_rows;
    QString m_owner; ///< what the shape is called
};

} // namespace

std::vector<KeyRow> keyRowsOf(const Document& document, int layer)
{
    std::vector<KeyRow> rows;
    const Layer* found = findLayer(document, layer);
    if (!found) {
        return rows;
    }
    std::vector<PropertyAddress> editable = transformOf(document, layer);
    const std::vector<PropertyAddress> colors = colorsOf(document, layer);
    editable.insert(editable.end(), colors.begin(), colors.end());
    for (const PropertyAddress& address : editable) {
        const NumberProperty& property = *findProperty(document, address);
        if (property.isAnimated()) {
            rows.push_back({nameOf(document, address), address, timesOf(property)});
        }
    }
    ReadOnlyRows others(rows);
    others.add(found->transform.skew, tr("Skew"));
    others.add(found->transform.skewAxis, tr("Skew Axis"));
    others.add(found->timeRemap, tr("Time Remap"));
    for (const Mask& mask : found->masks) {
        others.add(mask.path, tr("Mask Path"));
        others.add(mask.opacity, tr("Mask Opacity"));
    }
    others.addItems(found->shapes);
    return rows;
}

} // namespace studio
