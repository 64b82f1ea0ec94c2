// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorUtils.h"

#include "MorrantUI/timeeditor/keyscaling.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QMenu>

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
    if (m_view) {
        const bool ripples = ui::queryKeyboardModifiers().testFlag(Qt::AltModifier);
        ui::scaleKeys(*m_view, {from, to, right, ripples}, std::move(selected), others);
    }
}
