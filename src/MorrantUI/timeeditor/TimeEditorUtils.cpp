// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorUtils.h"

#include "MorrantUI/timeeditor/keyscaling.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QMenu>

#include <algorithm>
#include <cmath>
#include <utility>

TimeEditorUtils::TimeEditorUtils(TimeEditorView* view)
    : m_view(view)
{}

TimeEditorUtils::~TimeEditorUtils() = default;

TimeEditorView* TimeEditorUtils::getTimeView() const
{
    return m_view;
}

QMenu* TimeEditorUtils::populateMenu(QMenu* menu, std::set<TimeEditorCurveItem*> /*curves*/)
{
    return menu;
}

void TimeEditorUtils::onCutKeyframes()
{}

void TimeEditorUtils::onCopyKeyframes()
{}

void TimeEditorUtils::onPasteKeyframes()
{}

void TimeEditorUtils::onAddKeyframe()
{}

void TimeEditorUtils::onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> /*keys*/)
{}

QMenu* TimeEditorUtils::createMenu(QPoint position)
{
    std::set<TimeEditorCurveItem*> curves;
    if (m_view) {
        curves = m_view->curvesForMenu(position);
    }
    auto* const made = new QMenu(m_view);
    QMenu* const menu = populateMenu(made, std::move(curves));
    if (menu != made) {
        made->deleteLater(); // the host shows one of its own
    }
    return menu;
}

double TimeEditorUtils::drange(
    double value, double fromFirst, double fromLast, double toFirst, double toLast) const
{
    return ui::mapped(value, fromFirst, fromLast, toFirst, toLast);
}

void TimeEditorUtils::scaleKeys(int from, int to, FrameKeys selected, FrameKeys others, bool right)
{
    if (selected.empty() || !m_view) {
        return;
    }
    std::stable_sort(selected.begin(), selected.end(), [](const auto& a, const auto& b) {
        return a.first < b.first;
    });
    const ui::KeyScale scale{
        static_cast<double>(from),
        static_cast<double>(to),
        selected.front().second->scenePos().x(),
        selected.back().second->scenePos().x(),
        right};
    for (const auto& [frame, key] : selected) {
        const double x = std::round(ui::scaledFrame(scale, frame));
        const double parentX = key->parentItem() != nullptr ? key->parentItem()->x() : 0.0;
        if (std::isfinite(x)) {
            key->setPos(x - parentX, key->y());
        }
    }
    if (ui::queryKeyboardModifiers() & Qt::AltModifier) {
        m_view->setDoneRippleEdit(true);
        ripple(others, static_cast<double>(to) - from, right);
    } else if (m_view->getDoneRippleEdit()) {
        ripple(others, 0.0, right);
    }
}

void TimeEditorUtils::ripple(const FrameKeys& others, double distance, bool right)
{
    const std::pair<int, int> scaled = m_view->getScaleRange();
    for (const auto& [frame, key] : others) {
        if (right ? frame > scaled.second : frame < scaled.first) {
            key->setPos(frame + distance, key->y());
        }
    }
}
