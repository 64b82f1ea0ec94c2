// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/ValueGraphCurve.h"

#include "MorrantUI/scene/placematching.h"
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/ValueGraphView.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using ui::Graph::Side;

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

double finite(double number)
{
    return std::isfinite(number) ? number : 0.0;
}

/// Between the host's values, upward, and the scene's. Never a negative nothing.
QPointF turned(QPointF place)
{
    return {finite(place.x()), 0.0 - finite(place.y())};
}

/// What is there already is left alone: a move, even to the same place, costs the curve its shape.
bool isAt(const QGraphicsItem& item, QPointF place)
{
    return item.x() == place.x() && item.y() == place.y();
}

/// @param handle null where the host has put something else under the point
void placeHandle(GraphBezierHandleItem* handle, QPointF offset)
{
    if (handle && !isAt(*handle, turned(offset))) {
        handle->placeSilently(turned(offset));
    }
}

QPointF offsetOf(const GraphBezierHandleItem* handle)
{
    return handle ? turned(handle->pos()) : QPointF();
}

void showKey(GraphPointWidget& point, const ValueGraphKey& key)
{
    const QPointF place = turned({key.time, key.value});
    if (!isAt(point, place)) {
        point.forceMove(place);
    }
    if (point.isHolding() != key.hold) {
        point.setHolding(key.hold);
    }
    placeHandle(point.getLeftBezier(), key.leftHandle);
    placeHandle(point.getRightBezier(), key.rightHandle);
    if (point.getInterpolation() != key.interpolation) {
        point.setInterpolation(key.interpolation, true);
    }
    if (point.hasLockedBeziers() != key.handlesLocked) {
        point.setLockedBeziers(key.handlesLocked, true);
    }
}

} // namespace

ValueGraphCurve::ValueGraphCurve(ValueGraphView& view)
    : m_view(&view)
{
    setLimits({-kEndless, -kEndless, kEndless, kEndless});
    setEndsAtBarePoints(false);
}

/// What is selected would tell of it as it is hidden or dies, when the others are not in place yet.
/// @return whether that has come to something
template <typename Change>
bool ValueGraphCurve::changeQuietly(const Change& change)
{
    const auto selection = [home = scene()] {
        return home ? home->selectedItems() : QList<QGraphicsItem*>();
    };
    const QSignalBlocker quiet(scene());
    const QList<QGraphicsItem*> before = selection();
    change();
    return selection() != before;
}

ValueGraphCurve::~ValueGraphCurve()
{
    if (m_view) {
        m_view->forget(*this);
    }
    m_points.clear();
    QGraphicsScene* const home = scene();
    const bool isSelectionOther = changeQuietly([this, home] {
        while (!childItems().isEmpty()) {
            delete childItems().constFirst();
        }
        if (home) {
            home->removeItem(this); // so that a slot may delete that as well
        }
    });
    if (home && isSelectionOther) {
        Q_EMIT home->selectionChanged();
    }
}

void ValueGraphCurve::setColorName(const QString& name)
{
    m_colorName = name;
    update();
}

QColor ValueGraphCurve::lineColor() const
{
    return m_colorName.isEmpty() || isSelected() ? GraphCurveWidget::lineColor()
                                                 : ui::colorQt(m_colorName);
}

// Keys

void ValueGraphCurve::setKeys(const std::vector<ValueGraphKey>& keys)
{
    std::vector<QPointer<GraphPointWidget>> before = std::exchange(m_points, {});
    before.erase(std::remove(before.begin(), before.end(), nullptr), before.end());
    std::vector<QPointF> shown;
    std::vector<QPointF> wanted;
    for (const QPointer<GraphPointWidget>& point : before) {
        shown.push_back(point->pos());
    }
    for (const ValueGraphKey& key : keys) {
        wanted.push_back(turned({key.time, key.value}));
    }
    const auto matches = ui::matchedPlaces(shown, wanted);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        m_points.emplace_back(
            matches[i] ? std::exchange(before[*matches[i]], nullptr).data() : makePoint());
    }
    const bool isSelectionOther = changeQuietly([&] {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            showKey(*m_points[i], keys[i]);
        }
        for (const QPointer<GraphPointWidget>& point : before) {
            delete point.data();
        }
        showHandles();
    });
    if (m_view) {
        m_view->noteKeys(keys.size() > shown.size());
    }
    if (isSelectionOther) {
        Q_EMIT scene()->selectionChanged(); // the last thing: a slot may do anything
    }
}

std::vector<ValueGraphKey> ValueGraphCurve::keys() const
{
    std::vector<ValueGraphKey> all;
    for (const QPointer<GraphPointWidget>& point : m_points) {
        if (point) {
            all.push_back(
                {.time = point->x(),
                 .value = 0.0 - point->y(),
                 .leftHandle = offsetOf(point->getLeftBezier()),
                 .rightHandle = offsetOf(point->getRightBezier()),
                 .interpolation = point->getInterpolation(),
                 .hold = point->isHolding(),
                 .handlesLocked = point->hasLockedBeziers()});
        }
    }
    return all;
}

GraphPointWidget* ValueGraphCurve::point(std::size_t key) const
{
    for (const QPointer<GraphPointWidget>& point : m_points) {
        if (point && key-- == 0) {
            return point;
        }
    }
    return nullptr;
}

std::optional<double> ValueGraphCurve::valueAtFrame(double frame) const
{
    const std::optional<double> y = valueAt(frame);
    return y ? std::optional(0.0 - *y) : std::nullopt;
}

GraphPointWidget* ValueGraphCurve::makePoint()
{
    auto* const point = new GraphPointWidget(m_view, this);
    point->setFlag(QGraphicsItem::ItemStacksBehindParent, false);
    for (const Side side : {Side::Left, Side::Right}) {
        new GraphBezierHandleItem(side, point, point);
    }
    return point;
}

/// The first and the last may be others than before.
void ValueGraphCurve::showHandles()
{
    const GraphPointWidget* const first = firstPoint();
    for (const QPointer<GraphPointWidget>& point : m_points) {
        for (GraphBezierHandleItem* const handle :
             {point->getLeftBezier(), point->getRightBezier()}) {
            if (handle) {
                handle->showHandle(true);
                handle->setVisible(
                    handle->isVisible() && !(point == first && handle->side() == Side::Left));
            }
        }
    }
}

// Frames

void ValueGraphCurve::rememberTimes()
{
    m_times.clear();
    for (const QPointer<GraphPointWidget>& point : m_points) {
        if (point) {
            m_times.emplace_back(point, point->x());
        }
    }
}

/// Distances are whole, so that keys between frames keep what they have of one.
void ValueGraphCurve::snapToFrames()
{
    for (const auto& [point, time] : m_times) {
        const double wanted = point ? time + std::round(point->x() - time) : 0.0;
        if (point && point->x() != wanted) {
            point->forceMove({wanted, point->y()});
        }
    }
}
