// SPDX-License-Identifier: Apache-2.0
// The selection as keys of curves, and edits of it by other means than the mouse: the half of
// ValueGraphView that fields beside it use.

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/graph/GraphDrag.h"
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/ValueGraphCurve.h>
#include <MorrantUI/graph/ValueGraphView.h>

#include <QGraphicsScene>
#include <QPointer>
#include <QSignalBlocker>

#include <cmath>
#include <set>
#include <utility>

// The selection

/// Each with its point.
std::vector<std::pair<ValueGraphView::KeyPlace, GraphPointWidget*>> ValueGraphView::selection()
    const
{
    std::vector<std::pair<KeyPlace, GraphPointWidget*>> all;
    for (ValueGraphCurve* const curve : m_curves) {
        std::size_t key = 0;
        for (const QPointer<GraphPointWidget>& point : curve->m_points) {
            if (point && point->isSelected()) {
                all.emplace_back(KeyPlace{curve, key}, point.data());
            }
            key += point ? 1 : 0;
        }
    }
    return all;
}

std::vector<ValueGraphView::KeyPlace> ValueGraphView::selectedKeys() const
{
    std::vector<KeyPlace> keys;
    for (const auto& [key, point] : selection()) {
        keys.push_back(key);
    }
    return keys;
}

void ValueGraphView::selectKeys(const std::vector<KeyPlace>& keys)
{
    bool isChanged = false;
    {
        const QSignalBlocker quiet(scene()); // one signal for all of them
        for (ValueGraphCurve* const curve : m_curves) {
            std::set<std::size_t> wanted;
            for (const KeyPlace& key : keys) {
                if (key.curve == curve) {
                    wanted.insert(key.key);
                }
            }
            std::size_t place = 0;
            for (const QPointer<GraphPointWidget>& point : curve->m_points) {
                if (point) {
                    const bool wasSelected = point->isSelected();
                    point->setSelected(wanted.contains(place++));
                    isChanged = isChanged || point->isSelected() != wasSelected;
                }
            }
        }
    }
    if (isChanged) {
        Q_EMIT scene()->selectionChanged();
    }
}

std::optional<double> ValueGraphView::selectedFrame() const
{
    std::optional<double> frame;
    for (const auto& [key, point] : selection()) {
        if (point->x() != frame.value_or(point->x())) {
            return std::nullopt;
        }
        frame = point->x();
    }
    return frame;
}

std::optional<double> ValueGraphView::selectedValue() const
{
    const auto all = selection();
    return all.size() == 1 ? std::optional(0.0 - all.front().second->y()) : std::nullopt;
}

// Edits

void ValueGraphView::beginGesture()
{
    const QPointer<ValueGraphView> alive(this);
    finishGesture();
    if (!alive) {
        return;
    }
    m_placed = std::make_unique<ui::GraphEdit>();
    for (const auto& [key, point] : selection()) {
        m_placed->add(point);
    }
    beginEdit(false);
}

void ValueGraphView::placeSelectedKeys(std::optional<double> frame, std::optional<double> value)
{
    if (!std::isfinite(frame.value_or(0.0)) || !std::isfinite(value.value_or(0.0))) {
        return;
    }
    const bool isAlone = !m_placed;
    if ((!frame && !value) || (isAlone && selection().empty())) {
        return;
    }
    const QPointer<ValueGraphView> alive(this);
    if (isAlone) {
        beginGesture();
    }
    if (!alive || !m_placed) {
        return;
    }
    {
        const ui::ChangeBatch batch(this);
        for (GraphPointWidget* const point : m_placed->points()) {
            const double x = frame.value_or(point->x());
            point->forceMove(
                {frame && m_snapsToFrames ? std::round(x) : x, value ? 0.0 - *value : point->y()});
        }
    }
    if (!alive) {
        return;
    }
    rememberTimes(); // what was said is not snapped again
    if (tellStep() && isAlone) {
        endGesture(true);
    }
}

void ValueGraphView::endGesture(bool keeps)
{
    const auto placed = std::exchange(m_placed, nullptr);
    if (!placed) {
        return;
    }
    const QPointer<ValueGraphView> alive(this);
    if (!keeps) {
        const ui::ChangeBatch batch(this);
        placed->restore();
    }
    if (alive) {
        rememberTimes();
        beginEdit(placed->hasChanged());
        finishEdit();
    }
}

void ValueGraphView::rememberTimes()
{
    for (ValueGraphCurve* const curve : m_curves) {
        curve->rememberTimes();
    }
}
