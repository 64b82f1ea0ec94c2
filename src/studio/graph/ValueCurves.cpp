// SPDX-License-Identifier: Apache-2.0
#include "graph/ValueCurves.h"

#include "graph/ValueGraphView.h"
#include "graph/easings.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>

using ui::Graph::Interpolation;
using ui::Graph::Side;

namespace studio {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

/// The curve of one entry of a value.
class EntryCurve : public GraphCurveWidget
{
public:
    EntryCurve(std::size_t entry, bool isAlone)
        : m_colorName(isAlone ? u"Accent2"_qs : nameOf(entry))
    {
        setLimits({-kEndless, -kEndless, kEndless, kEndless});
        setEndsAtBarePoints(false);
    }

protected:
    QColor lineColor() const override { return ui::colorQt(m_colorName); }

private:
    static QString nameOf(std::size_t entry)
    {
        static const std::array<QString, 4> kNames{u"Red"_qs, u"Green"_qs, u"Blue"_qs, u"Grey"_qs};
        return kNames.at(entry % kNames.size());
    }

    QString m_colorName;
};

class KeyPoint : public GraphPointWidget
{
public:
    using GraphPointWidget::GraphPointWidget;

    std::function<void()> toggled;

protected:
    void notifyPointChanged() override { toggled(); }
};

QPointF atOffset(const HandleOffset& offset)
{
    return {offset.frames, -offset.value};
}

HandleOffset offsetAt(QPointF place)
{
    return {place.x(), -place.y()};
}

/// QPointF's own comparison takes what is next to nothing for nothing.
bool isAt(const QGraphicsItem& item, QPointF place)
{
    return item.x() == place.x() && item.y() == place.y();
}

void placeHandle(GraphBezierHandleItem& handle, const HandleOffset& offset)
{
    if (!isAt(handle, atOffset(offset))) {
        handle.placeSilently(atOffset(offset));
    }
}

void placePoint(GraphPointWidget& point, const ValueKey& key)
{
    const QPointF place(key.time, -key.value);
    if (!isAt(point, place)) {
        point.forceMove(place);
    }
    if (point.isHolding() != key.hold) {
        point.setHolding(key.hold);
    }
    const auto interpolation = key.curved ? Interpolation::Bezier : Interpolation::Linear;
    placeHandle(*point.getLeftBezier(), key.left);
    placeHandle(*point.getRightBezier(), key.right);
    if (point.getInterpolation() != interpolation) {
        point.setInterpolation(interpolation, true);
    }
}

} // namespace

ValueCurves::ValueCurves(ValueGraphView& view)
    : QObject(&view)
    , m_view(view)
{
    connect(&view, &ValueGraphView::stepped, this, &ValueCurves::follow);
    connect(&view, &ValueGraphView::gestureEnded, this, &ValueCurves::finish);
    connect(view.scene(), &QGraphicsScene::selectionChanged, this, &ValueCurves::selectionChanged);
}

void ValueCurves::show(DocumentEditor* editor, const std::vector<PropertyAddress>& properties)
{
    m_view.finishGesture();
    m_editor = editor;
    m_properties = properties;
    build();
    m_view.fitAll();
}

// From the document to the scene

void ValueCurves::build()
{
    const auto selected = selection();
    {
        const QSignalBlocker quiet(m_view.scene());
        for (const Curve& curve : m_curves) {
            delete curve.item;
        }
        m_curves.clear();
        for (const PropertyAddress& address : m_properties) {
            const NumberProperty* property = m_editor ? m_editor->property(address) : nullptr;
            if (!property) {
                continue;
            }
            const std::size_t count = std::min(
                entryCount(address.attribute), static_cast<std::size_t>(property->dimensions));
            for (std::size_t entry = 0; entry < count; ++entry) {
                Curve curve{address, entry, new EntryCurve(entry, count == 1), {}};
                for (std::size_t i = 0; i < property->keys.size(); ++i) {
                    curve.points.push_back(addPoint(curve));
                }
                m_view.scene()->addItem(curve.item);
                m_curves.push_back(std::move(curve));
            }
        }
    }
    refresh();
    for (const Curve& curve : m_curves) { // once all handles are where they should be
        const auto keys = valueKeys(*m_editor->property(curve.address), curve.entry);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            curve.points[i]->setLockedBeziers(isSmooth(keys[i]), true);
        }
    }
    select(selected);
}

GraphPointWidget* ValueCurves::addPoint(const Curve& curve)
{
    auto* point = new KeyPoint(&m_view, curve.item);
    point->setFlag(QGraphicsItem::ItemStacksBehindParent, false);
    const auto note = [this, point](std::set<const GraphPointWidget*>& list) {
        if (!m_isPlacing) {
            list.insert(point);
        }
    };
    for (const Side side : {Side::Left, Side::Right}) {
        auto* handle = new GraphBezierHandleItem(side, point, point);
        connect(
            handle, &GraphBezierHandleItem::bezierDataChange, this, [this, note] { note(m_bent); });
    }
    connect(point, &GraphPointWidget::pointDataChange, this, [this, note] { note(m_moved); });
    point->toggled = [this, note] { note(m_toggled); };
    return point;
}

void ValueCurves::refresh()
{
    if (m_isDragging || !m_editor) {
        return;
    }
    QRectF extent(0, 0, 1, 1);
    for (Curve& curve : m_curves) {
        const NumberProperty* property = m_editor->property(curve.address);
        if (!property || property->keys.size() != curve.points.size()) {
            build();
            return;
        }
        place(curve, *property, {});
        curve.item->setEnabled(!m_editor->isLocked(curve.address.layer));
        for (const auto& key : property->keys) {
            extent |= QRectF(key.time, -key.value[curve.entry], 1, 1);
        }
    }
    m_view.setExtent(extent);
    m_view.updateItemRects();
    m_view.updateTransformTool();
}

/// @param places of the points' keys among those that there are now; none where they are the same
void ValueCurves::place(Curve& curve, const NumberProperty& property, const Places& places)
{
    m_isPlacing = true;
    const auto keys = valueKeys(property, curve.entry);
    for (std::size_t i = 0; i < curve.points.size(); ++i) {
        GraphPointWidget& point = *curve.points[i];
        if (places.empty()) {
            placePoint(point, keys[i]);
        } else if (places[i]) {
            placePoint(point, keys[places[i]->key]);
        } else if (!keys.empty()) { // the key is covered by another: it lies below that one
            const auto cover = std::min_element(
                keys.begin(), keys.end(), [&point](const ValueKey& a, const ValueKey& b) {
                    return std::abs(a.time - point.x()) < std::abs(b.time - point.x());
                });
            placePoint(point, {cover->time, cover->value, cover->hold, false, {}, {}});
        }
    }
    for (GraphPointWidget* point : curve.points) { // the first and the last may be others
        point->getLeftBezier()->showHandle(true);
        point->getRightBezier()->showHandle(true);
    }
    if (GraphPointWidget* first = curve.item->firstPoint()) {
        first->getLeftBezier()->hide();
    }
    m_isPlacing = false;
}

// From the scene to the document

void ValueCurves::follow()
{
    if (!m_editor || (m_moved.empty() && m_bent.empty() && m_toggled.empty())) {
        return;
    }
    if (!m_isDragging) {
        m_isDragging = true;
        Q_EMIT editingStarted();
        m_editor->beginGesture(
            m_moved.empty() ? tr("Change Easing")
                            : (m_moved.size() == 1 ? tr("Change Key") : tr("Change Keys")));
    }
    m_changes = changes();
    m_places = m_editor->changeKeys(m_changes);
    for (Curve& curve : m_curves) {
        const NumberProperty* property = m_editor->property(curve.address);
        const Places places = placesOf(curve.address);
        if (property && places.size() == curve.points.size()) {
            place(curve, *property, places);
        }
    }
    m_view.updateItemRects();
}

/// All keys of all properties that are touched, changed or not: so that each is told where it is.
std::vector<PropertyKeyChange> ValueCurves::changes() const
{
    std::vector<PropertyKeyChange> all;
    for (const PropertyAddress& address : m_properties) {
        std::vector<KeyChange> own;
        bool isTouched = false;
        for (const Curve& curve : m_curves) {
            if (!(curve.address == address)) {
                continue;
            }
            own.resize(curve.points.size());
            for (std::size_t i = 0; i < own.size(); ++i) {
                const GraphPointWidget* point = curve.points[i];
                own[i].key = i;
                if (m_moved.count(point) + m_bent.count(point) + m_toggled.count(point) > 0) {
                    isTouched = true;
                    take(curve, i, own[i]);
                }
            }
        }
        if (isTouched) {
            for (KeyChange& change : own) {
                all.push_back({address, change});
            }
        }
    }
    return all;
}

/// What the user has made of a point, against what its key was before.
void ValueCurves::take(const Curve& curve, std::size_t place, KeyChange& change) const
{
    GraphPointWidget& point = *curve.points[place];
    const std::size_t entry = curve.entry;
    const auto* key = m_editor->keyAt({curve.address, place});
    if (!key) {
        return;
    }
    if (m_moved.count(&point) > 0) {
        const double frames = std::round(point.x() - key->time);
        if (frames != 0) {
            change.time = key->time + frames;
        }
        if (-point.y() != key->value[entry]) {
            change.value = change.value.value_or(key->value);
            (*change.value)[entry] = allowedValue(curve.address.attribute, -point.y());
        }
    }
    if (m_toggled.count(&point) > 0) {
        const bool isCurved = point.getInterpolation() == Interpolation::Bezier;
        const SegmentEasing easing = easingOf(isCurved ? Preset::EaseInAndOut : Preset::Linear);
        change.easeOut = easing.out;
        change.easeIn = easing.in;
    } else if (m_bent.count(&point) > 0) {
        takeHandles(curve, place, change);
    }
}

/// Of handles that are not where the document had them.
void ValueCurves::takeHandles(const Curve& curve, std::size_t place, KeyChange& change) const
{
    GraphPointWidget& point = *curve.points[place];
    const std::size_t entry = curve.entry;
    const auto keyAt = [&](std::size_t i) { return m_editor->keyAt({curve.address, i}); };
    const auto* key = keyAt(place);
    const auto* before = place > 0 ? keyAt(place - 1) : nullptr;
    const auto* after = keyAt(place + 1);
    const auto distance = [entry](const auto& from, const auto& to) {
        return KeyDistance{to.time - from.time, to.value[entry] - from.value[entry]};
    };
    const auto bend = [&](auto& wanted,
                          const auto& was,
                          const auto& from,
                          const auto& to,
                          const auto& offsetOf,
                          const auto& toEasing,
                          const auto* handle) {
        const std::size_t easing = easingEntry(from, entry);
        const KeyDistance whole = distance(from, to);
        if (was.count > 0 && !from.hold && !isAt(*handle, atOffset(offsetOf(was, easing, whole)))) {
            EasingHandle base = wanted.value_or(was);
            base.count = from.hasSpatial ? std::min(base.count, 1) : base.count;
            wanted = toEasing(base, easing, offsetAt(handle->pos()), whole);
        }
    };
    if (after) {
        bend(
            change.easeOut,
            key->easeOut,
            *key,
            *after,
            outOffset,
            outEasing,
            point.getRightBezier());
    }
    if (before) {
        bend(
            change.easeIn,
            before->easeIn,
            *before,
            *key,
            inOffset,
            inEasing,
            point.getLeftBezier());
    }
}

ValueCurves::Places ValueCurves::placesOf(const PropertyAddress& address) const
{
    Places places;
    for (std::size_t i = 0; i < m_changes.size(); ++i) {
        if (m_changes[i].property == address) {
            places.push_back(m_places[i]);
        }
    }
    return places;
}

void ValueCurves::finish(bool changed)
{
    m_moved.clear();
    m_bent.clear();
    m_toggled.clear();
    if (!std::exchange(m_isDragging, false)) {
        return;
    }
    if (!m_editor) {
        return;
    }
    if (m_editor->isInGesture()) { // which another edit may have ended
        changed ? m_editor->commit() : m_editor->cancel();
    }
    std::vector<std::unique_ptr<GraphPointWidget>> covered; // by another key
    for (Curve& curve : m_curves) {                         // the points go on with their keys
        const Places places = placesOf(curve.address);
        const NumberProperty* property = m_editor->property(curve.address);
        if (!changed || !property || places.size() != curve.points.size()) {
            continue;
        }
        std::vector<GraphPointWidget*> points(property->keys.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (places[i] && places[i]->key < points.size()) {
                points[places[i]->key] = curve.points[i];
            } else {
                covered.emplace_back(curve.points[i]);
            }
        }
        points.erase(std::remove(points.begin(), points.end(), nullptr), points.end());
        curve.points = std::move(points);
    }
    m_changes.clear();
    m_places.clear();
    {
        // A point that was selected tells of it as it dies, when the others are no whole list yet.
        const QSignalBlocker quiet(m_view.scene());
        covered.clear();
    }
    refresh();
    Q_EMIT selectionChanged();
}

// The selection

QPointF ValueCurves::placeOf(const EntryKey& key) const
{
    for (const Curve& curve : m_curves) {
        if (curve.address == key.key.property && curve.entry == key.entry
            && key.key.key < curve.points.size())
        {
            return curve.points[key.key.key]->pos();
        }
    }
    return {};
}

std::vector<EntryKey> ValueCurves::selection() const
{
    std::vector<EntryKey> keys;
    for (const Curve& curve : m_curves) {
        for (std::size_t i = 0; i < curve.points.size(); ++i) {
            if (curve.points[i]->isSelected()) {
                keys.push_back({{curve.address, i}, curve.entry});
            }
        }
    }
    return keys;
}

template <typename IsWanted>
void ValueCurves::selectPoints(const IsWanted& isWanted)
{
    bool isChanged = false;
    {
        const QSignalBlocker quiet(m_view.scene()); // one signal for all of them
        for (const Curve& curve : m_curves) {
            for (std::size_t i = 0; i < curve.points.size(); ++i) {
                const bool wanted = isWanted(EntryKey{{curve.address, i}, curve.entry});
                isChanged = isChanged || curve.points[i]->isSelected() != wanted;
                curve.points[i]->setSelected(wanted);
            }
        }
    }
    if (isChanged) {
        Q_EMIT m_view.scene()->selectionChanged();
    }
}

void ValueCurves::select(const std::vector<EntryKey>& keys)
{
    selectPoints([&keys](const EntryKey& key) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    });
}

void ValueCurves::selectKeys(const std::vector<KeyAddress>& keys)
{
    selectPoints([&keys](const EntryKey& key) {
        return std::find(keys.begin(), keys.end(), key.key) != keys.end();
    });
}

} // namespace studio
