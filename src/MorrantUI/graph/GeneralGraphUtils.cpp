// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GeneralGraphUtils.h"

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/timeeditor/keyscaling.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>

#include <algorithm>
#include <cmath>

namespace {

/// Beyond the scaled selection, on the side that is dragged.
bool isRippled(int frame, const std::pair<int, int>& range, bool right)
{
    return right ? frame > range.second : frame < range.first;
}

} // namespace

GeneralGraphUtils::GeneralGraphUtils(GeneralGraphView* view, QObject* parent)
    : QObject(parent)
    , m_view(view)
{}

double GeneralGraphUtils::drange(
    double value, double inMin, double inMax, double outMin, double outMax)
{
    return ui::mapped(value, inMin, inMax, outMin, outMax);
}

void GeneralGraphUtils::scaleKeys(
    int from, int to, ScaledPoints scaled, ScaledPoints others, bool side)
{
    for (ScaledPoints* const points : {&scaled, &others}) {
        std::erase_if(*points, [](const auto& each) { return !each.second; });
    }
    if (scaled.empty() || !m_view) {
        return;
    }
    const ui::ChangeBatch batch(m_view); // nobody is told, and nothing dies, before all have moved
    const bool alt = ui::eventKeyboardModifiers().testFlag(Qt::AltModifier);
    const std::pair<int, int> range = m_view->getScaleRange();
    std::stable_sort(scaled.begin(), scaled.end(), [](const auto& a, const auto& b) {
        return a.first < b.first;
    });
    const ui::KeyScale scale{
        static_cast<double>(from),
        static_cast<double>(to),
        scaled.front().second->scenePos().x(),
        scaled.back().second->scenePos().x(),
        side};
    for (const auto& [frame, point] : scaled) {
        const double x = std::round(ui::scaledFrame(scale, frame));
        const QGraphicsItem* const parent = point->parentItem();
        point->setX(parent ? x - parent->pos().x() : x);
    }
    if (!alt && !m_view->getDoneRippleEdit()) {
        return;
    }
    m_view->setDoneRippleEdit(true);
    const double moved = alt ? static_cast<double>(to) - from : 0.0;
    for (const auto& [frame, point] : others) {
        if (isRippled(frame, range, side)) {
            point->setX(frame + moved);
        }
    }
}

std::vector<GraphPointWidget*> GeneralGraphUtils::pointItems(bool selectedOnly)
{
    std::vector<GraphPointWidget*> points;
    const QGraphicsScene* const scene = m_view ? m_view->scene() : nullptr;
    if (!scene) {
        return points;
    }
    for (QGraphicsItem* const item : selectedOnly ? scene->selectedItems() : scene->items()) {
        if (auto* const point = dynamic_cast<GraphPointWidget*>(item)) {
            points.push_back(point);
        }
    }
    return points;
}
