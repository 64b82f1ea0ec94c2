// SPDX-License-Identifier: Apache-2.0
// What the user does with mouse and keyboard: the half of TimeEditorView that takes events.

#include "MorrantUI/controls/gestures/cursors.h"
#include "MorrantUI/scene/wheel.h"
#include "MorrantUI/timeeditor/KeptSelection.h"
#include "MorrantUI/timeeditor/KeyEdit.h"
#include "MorrantUI/timeeditor/SelectionTold.h"
#include "MorrantUI/timeeditor/clipselection.h"
#include "MorrantUI/timeeditor/keysnapping.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeeditor/TranslateScaleTool.h>
#include <MorrantUI/timeeditor/VisClip.h>
#include <MorrantUI/timeline/TimeHandle.h>

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

QPoint rounded(QPointF position)
{
    return {ui::nearestFrame(position.x()), ui::nearestFrame(position.y())};
}

} // namespace

TimeEditorBaseItem* TimeEditorView::itemUnder(QPoint position) const
{
    const QRectF pixel = mapToScene(QRect(position, QSize(1, 1))).boundingRect();
    TimeEditorBaseItem* const item = m_scene ? m_scene->itemUnder(pixel) : nullptr;
    return item && !item->isEnabled() && !item->acceptedMouseButtons()
               ? dynamic_cast<TimeEditorBaseItem*>(
                   item->parentItem()) // which is to be seen through
               : item;
}

void TimeEditorView::mousePressEvent(QMouseEvent* event)
{
    if (!m_scene) {
        GraphicsView::mousePressEvent(event);
        return;
    }
    if (isBesideDrag(*event)) {
        return;
    }
    const QPointer<TimeEditorView> alive(this);
    finishDrags(); // whose release went elsewhere
    if (!alive || !m_scene) {
        return;
    }
    const ui::SelectionTold told(*m_scene);
    const QPoint position = rounded(event->position());
    const QPointF place = mapToScene(position);
    TimeEditorBaseItem* const pressed = itemUnder(position);
    if (selectedContent().empty()) {
        m_lastClicked = nullptr;
    }
    const bool rangeSelected =
        event->modifiers().testFlag(Qt::ShiftModifier) && selectClipsUpTo(pressed, position);
    m_lastPress = position;
    rememberPress(pressed, place.x(), event->button());
    if (event->button() == Qt::LeftButton && !event->modifiers().testFlag(Qt::ControlModifier)
        && !rangeSelected && !m_spaceHeld)
    {
        ui::deselectClipAreas(
            m_scene->clips(), dynamic_cast<TimeEditorClipItem*>(pressed), ui::frameOf(place.x()));
    }
    if (m_spaceHeld && event->button() == Qt::LeftButton) {
        m_panning = true;
        startHandPan();
        changeMouse(ui::panGrabCursor());
        m_keyDrag.reset();
    } else {
        endHandPan();
        changeMouse(Qt::ArrowCursor);
    }
    if (event->button() == Qt::RightButton) {
        return;
    }
    auto* const key = dynamic_cast<TimeEditorKeyframeItem*>(pressed);
    if (key && event->modifiers().testFlag(Qt::ShiftModifier) && !m_panning && selectKeysUpTo(key))
    {
        return;
    }
    m_rangeAnchor = key;
    GraphicsView::mousePressEvent(event);
}

void TimeEditorView::rememberPress(
    TimeEditorBaseItem* pressed, double sceneX, Qt::MouseButton button)
{
    auto* const key = dynamic_cast<TimeEditorKeyframeItem*>(pressed);
    m_lastClicked = pressed;
    m_pressedKey = button == Qt::LeftButton ? key : nullptr; // no other button drags
    m_hasSnapCandidates = false;
    m_keyDrag.reset();
    m_beforeBand.reset();
    if (!pressed) {
        m_beforeBand = std::make_unique<ui::KeptSelection>(*m_scene);
    }
    rememberWalk(key);
    if (m_pressedKey) {
        m_pressedKeyFrame = ui::frameOf(m_pressedKey->scenePos().x());
        startKeyDrag(m_pressedKey, sceneX);
    }
}

bool TimeEditorView::selectClipsUpTo(TimeEditorBaseItem* pressed, QPoint position)
{
    if (dynamic_cast<TimeEditorClipItem*>(m_lastClicked.data()) == nullptr
        || dynamic_cast<TimeEditorClipItem*>(pressed) == nullptr)
    {
        return false;
    }
    // From pixel to pixel: clips below each other are pressed at the same x.
    const QRectF between =
        mapToScene(QRect(m_lastPress, QSize(1, 1)).united(QRect(position, QSize(1, 1))))
            .boundingRect();
    const QList<QGraphicsItem*> reached = m_scene->items(between, Qt::IntersectsItemShape);
    for (QGraphicsItem* const item : reached) {
        if (auto* const clip = dynamic_cast<TimeEditorClipItem*>(item)) {
            clip->selectItemAndClips();
        }
    }
    return !reached.isEmpty();
}

bool TimeEditorView::selectKeysUpTo(TimeEditorKeyframeItem* pressed)
{
    const TimeEditorBaseItem* const row = ui::rowOf(*pressed);
    if (!m_rangeAnchor || !row || ui::rowOf(*m_rangeAnchor) != row) {
        return false;
    }
    const auto [first, last] =
        std::minmax({m_rangeAnchor->scenePos().x(), pressed->scenePos().x()});
    m_rangeAnchor = pressed;
    {
        const QSignalBlocker quiet(m_scene); // one signal for all of them
        for (TimeEditorKeyframeItem* const key : ui::keysIn(*row)) {
            const double x = key->scenePos().x();
            key->setSelected(x >= first && x <= last);
        }
    }
    Q_EMIT m_scene->selectionChanged();
    return true;
}

void TimeEditorView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<TimeEditorView> alive(this);
    if (const auto own = std::exchange(m_cursorBelowRows, std::nullopt)) {
        viewport()->setCursor(*own); // Qt takes what it finds for the view's own
    }
    if (event->buttons() == Qt::NoButton && std::exchange(m_panning, false)) {
        endHandPan(); // the release went elsewhere
    }
    if (event->buttons() == Qt::NoButton && (m_keyDrag || !m_edit->isEmpty())) {
        finishDrags(); // and so did this one's
    }
    if (alive && !snapsDrag(*event)) {
        GraphicsView::mouseMoveEvent(event);
    }
    if (!alive) {
        return;
    }
    if (event->buttons() == Qt::NoButton) {
        followCursor();
    } else if (event->buttons().testFlag(Qt::LeftButton)) {
        followDrag(*event);
    }
}

bool TimeEditorView::snapsDrag(const QMouseEvent& event)
{
    m_snapFrame.reset();
    if (!m_snapping && !event.modifiers().testFlag(Qt::ShiftModifier)) {
        m_hasSnapCandidates = false;
        return false;
    }
    return m_pressedKey && event.buttons() == Qt::LeftButton && !m_panning
           && snapDraggedKeys(mapToScene(rounded(event.position())).x());
}

bool TimeEditorView::snapDraggedKeys(double sceneX)
{
    const std::optional<int> frame = ui::nearestSnapFrame(sceneX, snapCandidates());
    if (!frame || !m_keyDrag) {
        return false;
    }
    m_snapFrame = frame;
    if (m_keyDrag->snapTo(*frame)) {
        Q_EMIT keysMoving();
    }
    return true;
}

const std::vector<int>& TimeEditorView::snapCandidates()
{
    if (std::exchange(m_hasSnapCandidates, true)) {
        return m_snapCandidates;
    }
    const std::pair<int, int>& region = m_scene->getBackgroundRegion();
    m_snapCandidates = {m_scene->currentFrame(), region.first, region.second};
    const double row = m_pressedKey->scenePos().y();
    for (const QGraphicsItem* const item : m_scene->items()) {
        const auto* const key = dynamic_cast<const TimeEditorKeyframeItem*>(item);
        if (key && !key->isSelected() && key->scenePos().y() != row) {
            m_snapCandidates.push_back(ui::frameOf(key->scenePos().x()));
        }
    }
    for (const TimeEditorClipItem* const clip : m_scene->clips()) {
        for (const VisClip* const area : clip->getClipAreas()) {
            m_snapCandidates.push_back(area->getStart());
            m_snapCandidates.push_back(area->getEnd());
        }
    }
    return m_snapCandidates;
}

void TimeEditorView::startKeyDrag(TimeEditorKeyframeItem* key, double sceneX)
{
    if (!m_keyDrag || m_keyDrag->pressedKey() != key) {
        m_keyDrag = std::make_unique<ui::KeyDrag>(key, sceneX);
    }
}

bool TimeEditorView::dragKeys(double sceneX)
{
    if (!m_keyDrag) {
        return false;
    }
    if (m_keyDrag->dragTo(sceneX, transform().m11())) {
        Q_EMIT keysMoving();
    }
    return true;
}

/// And has not been dragged yet.
bool TimeEditorView::isKeyPressed() const
{
    return m_keyDrag && m_keyDrag->state() == ui::DragState::Pressed;
}

void TimeEditorView::finishKeyDrag()
{
    if (const auto drag = std::exchange(m_keyDrag, nullptr)) {
        const KeyMoves moves = drag->moves();
        if (!moves.empty()) {
            Q_EMIT keysMoved(moves);
        }
    }
}

void TimeEditorView::mouseReleaseEvent(QMouseEvent* event)
{
    if (isBesideDrag(*event)) {
        return;
    }
    const QPointer<TimeEditorView> alive(this);
    const bool wasPanning = std::exchange(m_panning, false);
    endDragAids();
    setEndPointSnapping(false);
    endKeyScaling();
    const QRectF bounds = selectedBounds();
    m_scaleRange = {ui::frameOf(bounds.left()), ui::frameOf(bounds.left() + bounds.width())};
    changeMouse(m_spaceHeld ? ui::panCursor() : QCursor(Qt::ArrowCursor));
    m_pressedKey = nullptr;
    m_beforeBand.reset();
    tellOfDragged();
    if (!alive) {
        return;
    }
    GraphicsView::mouseReleaseEvent(event);
    if (alive && wasPanning) {
        endHandPan();
    }
    if (alive) {
        finishKeyDrag();
    }
    if (alive) {
        finishEdit();
    }
}

/// Before Qt hears of the release and goes on with the scene after it: a slot may delete that. What
/// was only pressed waits for Qt to take it for a click.
void TimeEditorView::tellOfDragged()
{
    const QPointer<TimeEditorView> alive(this);
    if (!isKeyPressed()) {
        finishKeyDrag();
    }
    TimeEditorClipItem* const clip = alive ? heldClip() : nullptr;
    if (clip && clip->hasDragged()) {
        clip->finishDrag();
    }
}

void TimeEditorView::wheelEvent(QWheelEvent* event)
{
    scrollByShare(*event, ui::kWheelShare);
    event->accept();
}

bool TimeEditorView::cancelGesture()
{
    endDragAids();
    if (m_keyDrag && m_keyDrag->state() == ui::DragState::Dragging) {
        m_keyDrag->cancel();
        m_pressedKey = nullptr;
        Q_EMIT keysMoving();
        return true;
    }
    if (m_tool && m_tool->isDragging()) {
        m_tool->cancelDrag();
        return true;
    }
    TimeHandle* const handle = m_scene ? m_scene->getTimeHandle() : nullptr;
    if (handle && handle->cancelDrag()) {
        return true;
    }
    for (TimeEditorClipItem* const clip :
         m_scene ? m_scene->clips() : std::set<TimeEditorClipItem*>()) {
        if (clip->cancelDrag()) {
            return true;
        }
    }
    return cancelRubberBand();
}

bool TimeEditorView::cancelRubberBand()
{
    const QPointer<TimeEditorView> alive(this);
    const auto before = std::exchange(m_beforeBand, nullptr);
    if (!endRubberBand()) {
        return false;
    }
    if (alive && m_scene && before) {
        before->restore(*m_scene);
    }
    return true;
}

void TimeEditorView::abandonGesture()
{
    const QPointer<TimeEditorView> alive(this);
    m_spaceHeld = false;
    m_panning = false;
    m_snapping = false;
    m_pressedKey = nullptr;
    m_beforeBand.reset();
    endKeyScaling();
    endDragAids();
    finishDrags();
    if (alive) {
        GraphicsView::abandonGesture();
    }
    if (alive) {
        onAltPressed(false);
    }
}

/// Before anything loses the mouse: Qt goes on with an item after it has told it of that, and
/// whoever hears of the edit may delete the item.
void TimeEditorView::finishDrags()
{
    const QPointer<TimeEditorView> alive(this);
    endKeyScaling(); // what the tool still asks for moves nothing
    if (TimeEditorClipItem* const clip = heldClip()) {
        clip->finishDrag();
    }
    if (alive) {
        finishKeyDrag();
    }
    if (alive) {
        finishEdit();
    }
}

void TimeEditorView::setEndPointSnapping(bool on)
{
    m_endPointSnapping = on;
    if (!m_scene || m_scene->clips().empty()) {
        return;
    }
    const QPoint pointer = viewport()->mapFromGlobal(QCursor::pos());
    auto* const under = dynamic_cast<TimeEditorClipItem*>(itemUnder(pointer));
    if (on) {
        if (under) {
            under->updateEndPointFeedforward(under->getEndPointHoverArea());
        }
        return;
    }
    for (TimeEditorClipItem* const clip : m_scene->clips()) {
        if (clip != under) {
            clip->setDragClipIndex(-1, EndPointHover::None);
        }
    }
}

void TimeEditorView::onAltPressed(bool on)
{
    setEndPointSnapping(on);
    if (m_scene) {
        for (TimeEditorClipItem* const clip : m_scene->clips()) {
            clip->setAltHeld(on);
        }
        m_scene->update();
    }
}

void TimeEditorView::keyPressEvent(QKeyEvent* event)
{
    const bool control = ui::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Space:
        if (!event->isAutoRepeat() && !m_spaceHeld) {
            m_spaceHeld = true;
            changeMouse(ui::panCursor());
        }
        break;
    case Qt::Key_Shift: setSnapping(true); break;
    case Qt::Key_Alt: onAltPressed(true); break;
    case Qt::Key_C:
    case Qt::Key_X:
    case Qt::Key_V:
        if (control) {
            handleShortcut(event->key());
        }
        break;
    case Qt::Key_Escape:
        if (cancelGesture()) {
            event->accept();
            return; // it has done its work, and must not close what the view is in
        }
        break;
    default: break;
    }
    GraphicsView::keyPressEvent(event);
}

void TimeEditorView::handleShortcut(int key)
{
    if (!m_utils) {
        return;
    }
    switch (key) {
    case Qt::Key_C: m_utils->onCopyKeyframes(); break;
    case Qt::Key_X: m_utils->onCutKeyframes(); break;
    case Qt::Key_V: m_utils->onPasteKeyframes(); break;
    default: m_utils->onDeleteKeyframes(selectedKeyframes()); break;
    }
}

void TimeEditorView::keyReleaseEvent(QKeyEvent* event)
{
    const QPointer<TimeEditorView> alive(this);
    const bool repeated = event->isAutoRepeat();
    switch (event->key()) {
    case Qt::Key_Space:
        if (!repeated) {
            releaseSpace();
        }
        break;
    case Qt::Key_Shift:
        if (!repeated) {
            setSnapping(false);
        }
        break;
    case Qt::Key_Alt:
        if (!repeated) {
            onAltPressed(false);
        }
        break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        if (!repeated) {
            handleShortcut(event->key());
        }
        break;
    case Qt::Key_F:
        if (repeated) {
            break;
        }
        if (selectedContent().empty() || event->modifiers().testFlag(Qt::ShiftModifier)) {
            fitTimelineInView();
        } else {
            fitSelectedItemsInView();
        }
        break;
    default: break;
    }
    if (alive) {
        GraphicsView::keyReleaseEvent(event);
    }
}

void TimeEditorView::releaseSpace()
{
    m_spaceHeld = false;
    changeMouse(Qt::ArrowCursor);
    endHandPan();
}

void TimeEditorView::leaveEvent(QEvent* event)
{
    restoreMouse();
    m_spaceHeld = false;
    m_panning = false;
    endHandPan();
    GraphicsView::leaveEvent(event);
}

void TimeEditorView::contextMenuEvent(QContextMenuEvent* event)
{
    const QPointer<TimeEditorView> alive(this);
    if (m_scene && (m_scene->mouseGrabberItem() || rubberBandRect().isValid())) {
        return; // in mid-drag
    }
    if (m_utils) {
        const QPointer<QMenu> menu = m_utils->createMenu(event->pos());
        if (menu && !menu->isEmpty()) {
            menu->exec(event->globalPos());
        }
        if (menu && alive && menu->parent() == this) {
            menu->deleteLater();
        }
    }
    if (alive) {
        GraphicsView::contextMenuEvent(event);
    }
}
