// SPDX-License-Identifier: Apache-2.0
// What the view does beside an edit: what it shows at the pointer, how it scrolls along, where the
// keyboard is among the keys.

#include "MorrantUI/scene/DragOverlay.h"
#include "MorrantUI/scene/dragreadout.h"
#include "MorrantUI/timeeditor/KeyEdit.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include "MorrantUI/timeeditor/rowpass.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/drawing.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeeditor/TranslateScaleTool.h>
#include <MorrantUI/timeline/TimeHandle.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr int kRingDistance = 3; ///< pixels around a key
constexpr int kWalkMargin = 50;  ///< pixels that stay in sight beside a key that was walked to
constexpr int kManyKeys = 256;   ///< from which on the tool is placed once for all of them

} // namespace

// Drawing

void TimeEditorView::paintEvent(QPaintEvent* event)
{
    {
        const ui::RowPass pass(mapToScene(event->rect()).boundingRect());
        GraphicsView::paintEvent(event);
    }
    const bool showsRing = m_walkShown && m_walkedKey && hasFocus();
    if (!showsRing && !m_overlay->content()) {
        return;
    }
    QPainter painter(viewport());
    painter.setLayoutDirection(Qt::LeftToRight); // a minus stands before its number
    painter.setRenderHint(QPainter::Antialiasing);
    if (showsRing) {
        const QRect key = mapFromScene(m_walkedKey->sceneBoundingRect()).boundingRect();
        const QRect ring =
            key.adjusted(-kRingDistance, -kRingDistance, kRingDistance, kRingDistance);
        ui::drawFocusRing(painter, ring);
    }
    m_overlay->paint(painter, *viewport());
}

void TimeEditorView::scrollContentsBy(int dx, int dy)
{
    GraphicsView::scrollContentsBy(dx, dy);
    if (m_overlay->content()) {
        viewport()->update(); // what is beside the pointer has been shifted with the rest
    }
}

/// At once, unless so many keys are selected that whoever selects more of them one by one would
/// wait for it.
void TimeEditorView::showTool()
{
    if (!m_showTransformTool || m_toolKeys < kManyKeys) {
        placeTool();
    } else if (!std::exchange(m_toolAwaited, true)) {
        QMetaObject::invokeMethod(this, &TimeEditorView::placeTool, Qt::QueuedConnection);
    }
}

void TimeEditorView::placeTool()
{
    m_toolAwaited = false;
    if (!m_tool) {
        return;
    }
    const KeyExtent extent = m_showTransformTool ? selectedKeyExtent() : KeyExtent();
    m_toolKeys = extent.keys;
    const bool shown = extent.keys >= 2;
    if (shown) {
        m_tool->setRect(extent.places);
    }
    m_tool->setVisible(shown);
}

// Drags

/// The one that has the mouse.
TimeEditorClipItem* TimeEditorView::heldClip() const
{
    return dynamic_cast<TimeEditorClipItem*>(m_scene ? m_scene->mouseGrabberItem() : nullptr);
}

std::optional<ui::DragProgress> TimeEditorView::dragProgress() const
{
    if (m_keyDrag && m_keyDrag->state() == ui::DragState::Dragging) {
        const TimeEditorKeyframeItem* const key = m_keyDrag->pressedKey();
        return key ? std::optional<ui::DragProgress>(
                   {m_keyDrag->moved(), key->scenePos().x(), m_snapFrame})
                   : std::nullopt;
    }
    if (m_tool && m_tool->isDragging()) {
        const QRectF rect = getTranslateToolRect();
        if (!m_tool->isScaling()) {
            return ui::DragProgress{m_tool->movedBy(), rect.left(), {}};
        }
        if (m_scalingKeys.empty()) {
            return std::nullopt;
        }
        const auto byFrame = [](const auto& a, const auto& b) { return a.first < b.first; };
        const auto [first, last] =
            std::minmax_element(m_scalingKeys.begin(), m_scalingKeys.end(), byFrame);
        const double now = m_scalingFlag ? rect.right() : rect.left();
        return ui::DragProgress{now - (m_scalingFlag ? last : first)->first, now, {}};
    }
    const TimeEditorClipItem* const clip = heldClip();
    return clip ? clip->dragProgress() : std::nullopt;
}

Qt::Orientations TimeEditorView::scrollDirections() const
{
    if (m_panning || !m_scene) {
        return {};
    }
    if (rubberBandRect().isValid()) {
        return Qt::Horizontal | Qt::Vertical;
    }
    const QGraphicsItem* const grabber = m_scene->mouseGrabberItem();
    // Nothing leaves its row; what Escape has ended keeps the mouse and goes nowhere.
    if (const TimeHandle* const handle = m_scene->getTimeHandle(); handle && grabber == handle) {
        return handle->isDragging() ? Qt::Horizontal : Qt::Orientations();
    }
    const bool moves =
        dragProgress().has_value()
        || (grabber && !m_keyDrag && grabber->flags() & QGraphicsItem::ItemIsMovable);
    return moves ? Qt::Horizontal : Qt::Orientations();
}

void TimeEditorView::followDrag(const QMouseEvent& event)
{
    const std::optional<ui::DragProgress> progress = dragProgress();
    std::optional<DragOverlay::Content> content;
    if (progress) {
        content = {ui::movedText(progress->moved, progress->now), event.position(), {}};
        if (progress->guide) {
            content->guide = mapFromScene(*progress->guide, 0.0).x();
        }
    }
    m_overlay->show(*viewport(), content);
    scrollAtEdge(event, scrollDirections());
}

void TimeEditorView::endDragAids()
{
    stopEdgeScroll();
    m_overlay->show(*viewport(), std::nullopt);
}

void TimeEditorView::showHoverCursor(Qt::CursorShape shape)
{
    if (hasOverrideCursor() && !m_spaceHeld && !m_panning) {
        changeMouse(shape);
    }
}

/// Qt shows the cursors of the items that it hovers; those of rows and keys, and whatever shows
/// while the view has an override cursor, are the view's.
void TimeEditorView::followCursor()
{
    const TimeEditorBaseItem* const item = m_scene ? m_scene->hoveredCursorOwner() : nullptr;
    if (item) {
        m_cursorBelowRows = viewport()->cursor();
        viewport()->setCursor(item->cursor());
    }
    if (hasOverrideCursor() && !m_spaceHeld && !m_panning) {
        changeMouse(viewport()->cursor());
    }
}

// The keyboard

bool TimeEditorView::walkKeys(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool chooses = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool walks = event.key() >= Qt::Key_Home && event.key() <= Qt::Key_Down;
    if (!(chooses || walks) || held & ~(Qt::ShiftModifier | Qt::ControlModifier) || m_keyDrag
        || !m_scene || !m_scene->layoutContainer())
    {
        return false;
    }
    const TimeEditorLayoutContainer& rows = *m_scene->layoutContainer();
    const bool begins = !m_walkedKey || m_walkedKey->scene() != m_scene;
    TimeEditorKeyframeItem* const key =
        begins ? ui::firstWalkedKey(rows, getVisibleRect(), frameNumber())
               : ui::walkedKey(rows, m_walkedKey, event.key());
    if (!key) {
        return false;
    }
    m_walkedKey = key;
    m_walkShown = true;
    viewport()->update();
    const QPointer<TimeEditorView> alive(this);
    ensureVisible(
        key->sceneBoundingRect(), kWalkMargin, 0); // whoever hears of it may delete the key
    if (alive && m_walkedKey && chooses && held & Qt::ControlModifier) {
        m_walkAnchor = m_walkedKey;
        {
            const QSignalBlocker quiet(m_scene); // Qt looks at the key after telling of it
            m_walkedKey->setSelected(!m_walkedKey->isSelected());
        }
        Q_EMIT m_scene->selectionChanged();
    } else if (alive && m_walkedKey && (chooses || !(held & Qt::ControlModifier))) {
        selectWalked(*m_walkedKey, walks && held & Qt::ShiftModifier);
    }
    if (alive) {
        describeWalkedKey();
    }
    return true;
}

/// Alone, or with those from where the walk's selection began, which is in the same row or adds.
void TimeEditorView::selectWalked(TimeEditorKeyframeItem& key, bool extends)
{
    if (!extends || !m_walkAnchor) {
        m_walkAnchor = &key;
    }
    m_rangeAnchor = &key;
    {
        const QSignalBlocker quiet(m_scene); // one signal for all of them
        if (!extends) {
            m_scene->clearSelection();
        }
        key.setSelected(true);
        const TimeEditorBaseItem* const row = ui::rowOf(key);
        if (extends && row && ui::rowOf(*m_walkAnchor) == row) {
            const auto [first, last] = std::minmax({m_walkAnchor->x(), key.x()});
            for (TimeEditorKeyframeItem* const each : ui::keysIn(*row)) {
                each->setSelected(each->x() >= first && each->x() <= last);
            }
        }
    }
    Q_EMIT m_scene->selectionChanged();
}

void TimeEditorView::describeWalkedKey()
{
    if (!m_walkedKey) {
        return;
    }
    const TimeEditorBaseItem* const row = ui::rowOf(*m_walkedKey);
    const QString name = row ? ui::rowName(*row) : QString();
    const QString frame = QString::number(ui::nearestFrame(m_walkedKey->scenePos().x()));
    const QString text = name.isEmpty() ? tr("Key at frame %1").arg(frame)
                                        : tr("%1, key at frame %2").arg(name, frame);
    setAccessibleDescription(m_walkedKey->isSelected() ? tr("%1, selected").arg(text) : text);
}

QObjectList TimeEditorView::listsForReaders() const
{
    std::vector<std::pair<double, TimeEditorBaseItem*>> rows;
    for (TimeEditorBaseItem* const row :
         m_scene ? m_scene->keyRows() : std::vector<TimeEditorBaseItem*>())
    {
        if (row->isVisible()) {
            rows.emplace_back(row->scenePos().y(), row);
        }
    }
    std::sort(rows.begin(), rows.end());
    QObjectList lists;
    for (const auto& [y, row] : rows) {
        lists.append(row);
    }
    return lists;
}

void TimeEditorView::rememberWalk(TimeEditorKeyframeItem* pressed)
{
    if (pressed) {
        m_walkedKey = pressed;
        m_walkAnchor = pressed;
    }
    if (std::exchange(m_walkShown, false)) {
        viewport()->update();
    }
}

void TimeEditorView::nudgeSelectedKeys(int frames)
{
    const QPointer<TimeEditorView> alive(this);
    if (m_keyDrag || (m_tool && m_tool->isDragging())) {
        return;
    }
    moveSelectedKeys(frames);
    if (alive) {
        finishEdit();
    }
    if (alive) {
        showTool();
        describeWalkedKey();
    }
}

bool TimeEditorView::event(QEvent* event)
{
    const bool turnsRing = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (turnsRing && m_walkShown) {
        viewport()->update();
    }
    return GraphicsView::event(event);
}
