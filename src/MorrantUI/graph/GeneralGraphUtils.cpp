// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GeneralGraphUtils.h"

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/timeeditor/keyscaling.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>

#include <utility>

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
    if (!m_view) {
        return;
    }
    const ui::ChangeBatch batch(m_view); // nobody is told, and nothing dies, before all have moved
    const bool ripples = ui::eventKeyboardModifiers().testFlag(Qt::AltModifier);
    ui::scaleKeys(*m_view, {from, to, side, ripples}, std::move(scaled), others);
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
