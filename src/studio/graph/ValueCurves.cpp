// SPDX-License-Identifier: Apache-2.0
#include "graph/ValueCurves.h"

#include <MorrantUI/graph/ValueGraphCurve.h>
#include <MorrantUI/graph/ValueGraphView.h>

#include <QGraphicsScene>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

using ui::Graph::Interpolation;

namespace studio {

namespace {

/// Split positions have the colours of the axes that they are, as one of two entries has.
QString colorNameOf(Attribute attribute, std::size_t entry, std::size_t count)
{
    static const std::array<QString, 4> kNames{u"Red"_qs, u"Green"_qs, u"Blue"_qs, u"Grey"_qs};
    const bool isY = attribute == Attribute::PositionY;
    if (count == 1 && !isY && attribute != Attribute::PositionX) {
        return u"Accent2"_qs;
    }
    return kNames.at((isY ? 1 : entry) % kNames.size());
}

/// QPointF's own comparison takes what is next to nothing for nothing.
bool isAt(QPointF place, QPointF other)
{
    return place.x() == other.x() && place.y() == other.y();
}

/// A file does not say whether handles are locked: what a key at the same frame shows is kept.
ValueGraphKey shownKey(ValueGraphKey key, const std::vector<ValueGraphKey>& shown)
{
    const auto same = std::find_if(
        shown.begin(), shown.end(), [&](const auto& one) { return one.time == key.time; });
    key.handlesLocked = same != shown.end() ? same->handlesLocked : key.handlesLocked;
    return key;
}

} // namespace

ValueCurves::ValueCurves(ValueGraphView& view)
    : QObject(&view)
    , m_view(view)
{
    connect(&view, &ValueGraphView::gestureStarted, this, &ValueCurves::noteStart);
    connect(&view, &ValueGraphView::keysChanging, this, &ValueCurves::follow);
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
                const QString color = colorNameOf(address.attribute, entry, count);
                m_curves.push_back({address, entry, m_view.addCurve({}, color), {}, {}});
            }
        }
    }
    refresh();
    select(selected);
}

void ValueCurves::refresh()
{
    if (m_isDragging || !m_editor) {
        return;
    }
    const bool isAnyGone = std::any_of(m_curves.begin(), m_curves.end(), [this](const auto& curve) {
        return !m_editor->property(curve.address);
    });
    if (isAnyGone) {
        build();
        return;
    }
    QGraphicsScene& scene = *m_view.scene();
    const auto before = scene.selectedItems();
    {
        const QSignalBlocker quiet(&scene); // told below, when all curves are shown
        for (Curve& curve : m_curves) {
            place(curve, *m_editor->property(curve.address), {});
            curve.item->setEnabled(!m_editor->isLocked(curve.address.layer));
        }
    }
    if (scene.selectedItems() != before) {
        Q_EMIT scene.selectionChanged();
    }
}

/// @param places of the points' keys among those that there are now; none where they are the same
void ValueCurves::place(Curve& curve, const NumberProperty& property, const Places& places)
{
    const auto keys = valueKeys(property, curve.entry);
    const auto shown = curve.item->keys();
    std::vector<ValueGraphKey> wanted;
    for (std::size_t i = 0; i < (places.empty() ? keys.size() : places.size()); ++i) {
        if (places.empty()) {
            wanted.push_back(shownKey(keys[i], shown));
        } else if (places[i]) {
            wanted.push_back(keys[places[i]->key]);
            wanted.back().handlesLocked = shown[i].handlesLocked;
        } else { // the key is covered by another: it lies below that one
            const auto cover =
                std::min_element(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
                    return std::abs(a.time - shown[i].time) < std::abs(b.time - shown[i].time);
                });
            wanted.push_back({.time = cover->time, .value = cover->value, .hold = cover->hold});
        }
    }
    curve.item->setKeys(wanted);
    curve.shown = curve.item->keys();
    curve.touched.resize(curve.shown.size());
}

// From the scene to the document

void ValueCurves::noteStart()
{
    for (Curve& curve : m_curves) {
        curve.shown = curve.item->keys();
        curve.touched.assign(curve.shown.size(), {});
    }
}

/// What the user has moved, bent or toggled since it was last shown; once touched it stays so,
/// until the gesture ends. @return of how many keys the place is another; none if nothing was
/// touched
std::optional<std::size_t> ValueCurves::noteTouched()
{
    bool isAny = false;
    std::size_t moved = 0;
    for (Curve& curve : m_curves) {
        const auto keys = curve.item->keys();
        for (std::size_t i = 0; i < std::min(keys.size(), curve.touched.size()); ++i) {
            const ValueGraphKey& was = curve.shown[i];
            const ValueGraphKey& now = keys[i];
            Touched& touched = curve.touched[i];
            touched.isMoved |= now.time != was.time || now.value != was.value;
            touched.isBent |=
                !isAt(now.leftHandle, was.leftHandle) || !isAt(now.rightHandle, was.rightHandle);
            touched.isToggled |= now.interpolation != was.interpolation;
            isAny = isAny || touched.isMoved || touched.isBent || touched.isToggled;
            moved += touched.isMoved ? 1 : 0;
        }
    }
    return isAny ? std::optional(moved) : std::nullopt;
}

void ValueCurves::follow()
{
    const auto moved = m_editor ? noteTouched() : std::nullopt;
    if (!moved) {
        return;
    }
    if (!m_isDragging) {
        m_isDragging = true;
        Q_EMIT editingStarted();
        m_editor->beginGesture(
            *moved == 0 ? tr("Change Easing")
                        : (*moved == 1 ? tr("Change Key") : tr("Change Keys")));
    }
    m_changes = changes();
    m_places = m_editor->changeKeys(m_changes);
    for (Curve& curve : m_curves) {
        const NumberProperty* property = m_editor->property(curve.address);
        const Places places = placesOf(curve.address);
        if (property && !property->keys.empty() && places.size() == curve.touched.size()) {
            place(curve, *property, places);
        }
    }
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
            const auto keys = curve.item->keys();
            own.resize(keys.size());
            for (std::size_t i = 0; i < own.size(); ++i) {
                own[i].key = i;
                if (i < curve.touched.size()) {
                    isTouched |= take(curve, keys[i], own[i]);
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

/// What the user has made of a point, against what its key was before. @return whether it is
/// touched
bool ValueCurves::take(const Curve& curve, const ValueGraphKey& now, KeyChange& change) const
{
    const std::size_t entry = curve.entry;
    const Touched& touched = curve.touched[change.key];
    const auto* key = m_editor->keyAt({curve.address, change.key});
    if (key && touched.isMoved) {
        if (now.time != key->time) {
            change.time = now.time;
        }
        if (now.value != key->value[entry]) {
            change.value = change.value.value_or(key->value);
            (*change.value)[entry] = allowedValue(curve.address.attribute, now.value);
        }
    }
    if (key && touched.isToggled) {
        const bool isCurved = now.interpolation == Interpolation::Bezier;
        const auto preset = isCurved ? EasingPreset::EaseInAndOut : EasingPreset::Linear;
        std::tie(change.easeOut, change.easeIn) = handlesOf(ui::easing::easingOf(preset));
    } else if (key && touched.isBent) {
        takeHandles(curve, now, change);
    }
    return touched.isMoved || touched.isBent || touched.isToggled;
}

/// Of handles that are not where the document had them.
void ValueCurves::takeHandles(const Curve& curve, const ValueGraphKey& now, KeyChange& change) const
{
    const std::size_t place = change.key;
    const std::size_t entry = curve.entry;
    const auto keyAt = [&](std::size_t i) { return m_editor->keyAt({curve.address, i}); };
    const auto* key = keyAt(place);
    const auto* before = place > 0 ? keyAt(place - 1) : nullptr;
    const auto* after = keyAt(place + 1);
    const auto bend = [&](auto& wanted,
                          const EasingHandle& was,
                          const auto& from,
                          const auto& to,
                          const auto& handleOf,
                          const auto& shareOf,
                          QPointF handle) {
        const std::size_t easing = easingEntry(from, entry);
        const QPointF whole(to.time - from.time, to.value[entry] - from.value[entry]);
        if (was.count > 0 && !from.hold
            && !isAt(handle, handleOf({was.x[easing], was.y[easing]}, whole))) {
            EasingHandle base = wanted.value_or(was);
            base.count = from.hasSpatial ? std::min(base.count, 1) : base.count;
            const QPointF share(base.x[easing], base.y[easing]);
            wanted = withShare(base, easing, shareOf(handle, whole, share));
        }
    };
    using namespace ui::easing;
    if (after) {
        bend(change.easeOut, key->easeOut, *key, *after, outHandle, outShare, now.rightHandle);
    }
    if (before) {
        bend(change.easeIn, before->easeIn, *before, *key, inHandle, inShare, now.leftHandle);
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
    if (!std::exchange(m_isDragging, false) || !m_editor) {
        return;
    }
    if (m_editor->isInGesture()) { // which another edit may have ended
        changed ? m_editor->commit() : m_editor->cancel();
    }
    m_changes.clear();
    m_places.clear();
    {
        const QSignalBlocker quiet(m_view.scene()); // told below, when all curves are shown
        refresh();
    }
    Q_EMIT selectionChanged();
}

// The selection

std::vector<EntryKey> ValueCurves::selection() const
{
    std::vector<EntryKey> keys;
    for (const ValueGraphView::KeyPlace& place : m_view.selectedKeys()) {
        const auto curve = std::find_if(m_curves.begin(), m_curves.end(), [&](const Curve& one) {
            return one.item == place.curve;
        });
        if (curve != m_curves.end()) {
            keys.push_back({{curve->address, place.key}, curve->entry});
        }
    }
    return keys;
}

template <typename IsWanted>
void ValueCurves::selectPoints(const IsWanted& isWanted)
{
    std::vector<ValueGraphView::KeyPlace> wanted;
    for (const Curve& curve : m_curves) {
        for (std::size_t i = 0; i < curve.shown.size(); ++i) {
            if (isWanted(EntryKey{{curve.address, i}, curve.entry})) {
                wanted.push_back({curve.item, i});
            }
        }
    }
    m_view.selectKeys(wanted);
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
