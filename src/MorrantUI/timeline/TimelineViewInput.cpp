// SPDX-License-Identifier: Apache-2.0
// What the user does with mouse and keyboard: the half of TimelineView that takes events.

#include "MorrantUI/controls/gestures/cursors.h"
#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/scene/edgescroll.h"
#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/scene/wheel.h"
#include "MorrantUI/timeeditor/keysnapping.h"
#include "MorrantUI/timeline/MarkerNameEdit.h"
#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/rulergesture.h"
#include "MorrantUI/timeline/rulerkeys.h"
#include "MorrantUI/timeline/rulerpaint.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeeditor/VisClip.h>
#include <MorrantUI/timeline/PlaybackBookend.h>
#include <MorrantUI/timeline/TimeThumb.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kWheelZoom = 1.2;    ///< for a notch
constexpr double kWheelNotch = 120.0; ///< of the angle's eighths of a degree

bool movesPlayhead(const ui::RulerHit& hit)
{
    return hit.grip == ui::RulerGrip::Ruler || hit.grip == ui::RulerGrip::Thumb;
}

bool movesPlayback(const ui::RulerHit& hit)
{
    return hit.grip == ui::RulerGrip::Start || hit.grip == ui::RulerGrip::End
           || hit.grip == ui::RulerGrip::Range;
}

QCursor cursorOver(const ui::RulerHit& hit, bool isHeld)
{
    switch (hit.grip) {
    case ui::RulerGrip::Thumb:
    case ui::RulerGrip::Start:
    case ui::RulerGrip::End:
    case ui::RulerGrip::Marker: return Qt::SizeHorCursor;
    case ui::RulerGrip::Range:
    case ui::RulerGrip::Pan: return isHeld ? ui::panGrabCursor() : ui::panCursor();
    default: return Qt::ArrowCursor;
    }
}

/// All key frames and clip ends of an editor.
void appendContent(std::vector<int>& frames, const TimeEditorView* editor)
{
    const TimeEditorScene* const scene = editor ? editor->getEditorScene() : nullptr;
    if (!scene) {
        return;
    }
    for (const TimeEditorCurveItem* const curve : scene->curves()) {
        for (const TimeEditorKeyframeItem* const key : curve->keyframes()) {
            frames.push_back(ui::frameOf(key->scenePos().x()));
        }
    }
    for (const TimeEditorClipItem* const clip : scene->clips()) {
        for (const VisClip* const area : clip->getClipAreas()) {
            frames.push_back(area->getStart());
            frames.push_back(area->getEnd());
        }
    }
}

int snapped(double frame, const std::vector<int>& candidates)
{
    return ui::nearestSnapFrame(frame, candidates).value_or(ui::nearestFrame(frame));
}

/// A range whose nearer end snaps.
double snappedDistance(const ui::FrameRange& range, double distance, const std::vector<int>& frames)
{
    double best = std::round(distance);
    double least = ui::kKeySnapDistance + 1.0;
    for (const int end : {range.first, range.second}) {
        if (const auto frame = ui::nearestSnapFrame(end + distance, frames)) {
            const double off = std::abs(*frame - (end + distance));
            if (off < least) {
                least = off;
                best = static_cast<double>(*frame) - end;
            }
        }
    }
    return best;
}

} // namespace

ui::RulerHit TimelineView::hitAt(QPointF position) const
{
    return m_scene->hitTest(position, viewportTransform(), viewport()->width());
}

/// What is under the pointer: nothing, once it has left.
ui::RulerHit TimelineView::hoverAt(QPointF position) const
{
    return QRectF(viewport()->rect()).contains(position) ? hitAt(position) : ui::RulerHit{};
}

bool TimelineView::isScrubbing() const
{
    return m_gesture && movesPlayhead(m_gesture->hit);
}

void TimelineView::showHover(const ui::RulerHit& hit)
{
    m_left->setHoverState(hit.grip == ui::RulerGrip::Start);
    m_right->setHoverState(hit.grip == ui::RulerGrip::End);
    m_scene->setHovered(hit.marker, hit.grip == ui::RulerGrip::Range);
    viewport()->setCursor(cursorOver(hit, false));
}

// The drag

void TimelineView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (m_gesture) {
        return; // another button while one is held
    }
    if (event->button() == Qt::LeftButton) {
        beginGesture(hitAt(event->position()), *event);
    } else if (event->button() == Qt::MiddleButton) {
        beginGesture({ui::RulerGrip::Pan, 0}, *event);
    }
}

void TimelineView::beginGesture(const ui::RulerHit& hit, const QMouseEvent& event)
{
    ui::TimelineGesture gesture;
    gesture.hit = hit;
    gesture.button = event.button();
    gesture.press = gesture.last = event.position();
    gesture.pressFrame = frameAt(event.position().x());
    gesture.frame = currentFrame();
    gesture.playback = playback();
    gesture.marker = m_scene->marker(hit.marker);
    gesture.hasBegun = hit.grip == ui::RulerGrip::Ruler || hit.grip == ui::RulerGrip::Pan;
    switch (hit.grip) {
    case ui::RulerGrip::Thumb: gesture.heldFrame = gesture.frame; break;
    case ui::RulerGrip::Start:
    case ui::RulerGrip::Range: gesture.heldFrame = gesture.playback.first; break;
    case ui::RulerGrip::End: gesture.heldFrame = gesture.playback.second; break;
    case ui::RulerGrip::Marker: gesture.heldFrame = gesture.marker->frame; break;
    default: gesture.heldFrame = gesture.pressFrame; break;
    }
    m_gesture = std::make_unique<ui::TimelineGesture>(std::move(gesture));
    showHover(hit);
    changeMouse(cursorOver(hit, true));
    const QPointer<TimelineView> alive(this);
    if (hit.grip != ui::RulerGrip::Pan) {
        m_scene->setSelectedMarker(hit.marker);
    }
    if (alive && isScrubbing()) {
        Q_EMIT scrubbingChanged(true);
    }
    if (alive && m_gesture) {
        dragTo(event.position(), event.modifiers());
    }
}

void TimelineView::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!m_gesture) {
        if (event->buttons() == Qt::NoButton) {
            showHover(hoverAt(event->position()));
        }
        return;
    }
    if (event->buttons().testFlag(m_gesture->button)) {
        dragTo(event->position(), event->modifiers());
    } else {
        endGesture(Outcome::Keep); // released elsewhere
    }
}

void TimelineView::dragTo(QPointF position, Qt::KeyboardModifiers modifiers)
{
    ui::TimelineGesture& gesture = *m_gesture;
    if (gesture.hit.grip == ui::RulerGrip::Pan) {
        const int step = ui::nearestFrame(position.x() - gesture.last.x());
        gesture.last.rx() += step; // what is less than a pixel adds up
        scrollBy(-step);
        return;
    }
    gesture.last = position;
    const double distance = std::abs(position.x() - gesture.press.x());
    gesture.hasBegun = gesture.hasBegun || distance >= QApplication::startDragDistance();
    if (!gesture.hasBegun) {
        return;
    }
    // A press at the edge alone turns no page.
    const bool isBeyond = distance >= QApplication::startDragDistance()
                          && ui::edgeScrollSpeed(position.x(), viewport()->width()) != 0.0;
    if (isBeyond != m_edgeTimer.isActive()) {
        isBeyond ? m_edgeTimer.start() : m_edgeTimer.stop();
    }
    dragHeld(position, modifiers);
}

void TimelineView::dragHeld(QPointF position, Qt::KeyboardModifiers modifiers)
{
    ui::TimelineGesture& gesture = *m_gesture;
    if (!modifiers.testFlag(Qt::ShiftModifier)) {
        gesture.snapFrames.reset();
    } else if (!gesture.snapFrames) {
        gesture.snapFrames = snapFrames(gesture);
    }
    const std::vector<int> none;
    const std::vector<int>& candidates = gesture.snapFrames ? *gesture.snapFrames : none;
    const double distance = frameAt(position.x()) - gesture.pressFrame;
    const int frame = snapped(gesture.heldFrame + distance, candidates);
    switch (gesture.hit.grip) {
    case ui::RulerGrip::Start: m_left->setFrame(frame); break;
    case ui::RulerGrip::End: m_right->setFrame(frame); break;
    case ui::RulerGrip::Range:
        applyPlayback(ui::movedRange(
            gesture.playback, snappedDistance(gesture.playback, distance, candidates), frames()));
        break;
    case ui::RulerGrip::Marker:
        if (std::optional<TimelineMarker> marker = m_scene->marker(gesture.hit.marker)) {
            marker->frame = ui::frameWithin(frame, frames());
            m_scene->changeMarker(*marker);
        }
        break;
    default: seek(frame); break;
    }
}

/// A drag beyond an edge brings what lies there into sight, as far as there are frames.
void TimelineView::scrollAtEdge()
{
    if (!m_gesture) {
        m_edgeTimer.stop();
        return;
    }
    const double width = viewport()->width();
    const double speed = ui::edgeScrollSpeed(m_gesture->last.x(), width);
    const bool isAtEnd =
        speed < 0.0 ? frameAt(0.0) <= frames().first : frameAt(width) >= frames().second;
    if (!isAtEnd) {
        const QPointer<TimelineView> alive(this);
        scrollBy(ui::nearestFrame(speed * m_edgeTimer.interval() / 1000.0));
        if (alive && m_gesture) {
            dragHeld(m_gesture->last, ui::queryKeyboardModifiers());
        }
    }
}

std::vector<int> TimelineView::snapFrames(const ui::TimelineGesture& gesture) const
{
    std::vector<int> found{frames().first, frames().second};
    if (!movesPlayhead(gesture.hit)) {
        found.push_back(currentFrame());
    }
    if (!movesPlayback(gesture.hit)) {
        found.push_back(playback().first);
        found.push_back(playback().second);
    }
    for (const TimelineMarker& marker : m_scene->markers()) {
        if (marker.id != gesture.hit.marker) {
            found.push_back(marker.frame);
        }
    }
    appendContent(found, m_editor);
    return found;
}

void TimelineView::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    const QPointer<TimelineView> alive(this);
    if (m_gesture && event->button() == m_gesture->button) {
        endGesture(Outcome::Keep);
    }
    if (alive && !m_gesture) {
        showHover(hoverAt(event->position()));
    }
}

/// Every way out of a drag.
void TimelineView::endGesture(Outcome outcome)
{
    const std::unique_ptr<ui::TimelineGesture> gesture = std::exchange(m_gesture, nullptr);
    if (!gesture) {
        return;
    }
    m_edgeTimer.stop();
    restoreMouse();
    showHover({});
    const QPointer<TimelineView> alive(this);
    if (outcome == Outcome::TakeBack) {
        takeBack(*gesture);
    } else {
        tellEdit(*gesture);
    }
    if (alive && movesPlayhead(gesture->hit)) {
        Q_EMIT scrubbingChanged(false);
    }
}

void TimelineView::takeBack(const ui::TimelineGesture& gesture)
{
    if (movesPlayhead(gesture.hit)) {
        m_thumb->moveTo(gesture.frame);
    } else if (movesPlayback(gesture.hit)) {
        const QPointer<TimelineView> alive(this);
        applyPlayback(gesture.playback);
        if (alive) {
            m_scene->setPlaybackRange(gesture.playback.first, gesture.playback.second);
        }
    } else if (std::optional<TimelineMarker> marker = m_scene->marker(gesture.hit.marker)) {
        marker->frame = gesture.marker->frame;
        m_scene->changeMarker(*marker);
    }
}

void TimelineView::tellEdit(const ui::TimelineGesture& gesture)
{
    if (movesPlayback(gesture.hit)) {
        tellPlayback(gesture.playback);
    } else if (gesture.marker) {
        const std::optional<TimelineMarker> now = m_scene->marker(gesture.hit.marker);
        if (now && now->frame != gesture.marker->frame) {
            Q_EMIT markerEdited({gesture.marker, now});
        }
    }
}

void TimelineView::finishGesture()
{
    const QPointer<TimelineView> alive(this);
    endGesture(Outcome::Keep);
    if (alive && m_nameEdit) {
        m_nameEdit->finish(true);
    }
}

void TimelineView::abandonGesture()
{
    const QPointer<TimelineView> alive(this);
    endGesture(Outcome::Keep);
    if (alive) {
        GraphicsView::abandonGesture();
    }
}

// Playback range

/// The end that leads goes first, so that neither is stopped by the other.
void TimelineView::applyPlayback(Range range)
{
    const QPointer<TimelineView> alive(this);
    const bool endLeads = range.second > playback().second;
    PlaybackBookend* const leading = endLeads ? m_right : m_left;
    leading->setFrame(endLeads ? range.second : range.first);
    if (alive) {
        PlaybackBookend* const following = endLeads ? m_left : m_right;
        following->setFrame(endLeads ? range.first : range.second);
    }
}

void TimelineView::tellPlayback(Range before)
{
    if (before != playback()) {
        Q_EMIT playbackRangeEdited(before, playback());
    }
}

void TimelineView::setPlaybackEnd(bool isStart, int frame)
{
    const QPointer<TimelineView> alive(this);
    const Range before = playback();
    (isStart ? m_left : m_right)->setFrame(frame);
    if (alive) {
        tellPlayback(before);
    }
}

void TimelineView::playAllFrames()
{
    const QPointer<TimelineView> alive(this);
    const Range before = playback();
    applyPlayback(frames());
    if (alive) {
        tellPlayback(before);
    }
}

// Other ways of the mouse

void TimelineView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const ui::RulerHit hit = hitAt(event->position());
    const ui::RulerBands bands = m_scene->geometry(viewportTransform(), viewport()->width()).bands;
    if (event->button() != Qt::LeftButton || m_gesture) {
        mousePressEvent(event);
    } else if (hit.grip == ui::RulerGrip::Marker) {
        renameMarker(hit.marker);
    } else if (hit.grip == ui::RulerGrip::Range) {
        playAllFrames();
    } else if (hit.grip == ui::RulerGrip::Ruler && event->position().y() >= bands.markers) {
        const int frame = ui::nearestFrame(frameAt(event->position().x()));
        const QPointer<TimelineView> alive(this);
        const int added = addMarker(ui::frameWithin(frame, frames()));
        if (alive) {
            renameMarker(added);
        }
    } else {
        mousePressEvent(event);
    }
    event->accept();
}

void TimelineView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const QPoint angle = event->angleDelta();
    const int notches = angle.y() != 0 ? angle.y() : angle.x();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        const int x = ui::nearestFrame(event->position().x());
        zoomAt(std::pow(kWheelZoom, notches / kWheelNotch), x);
        return;
    }
    const QPoint pixels = event->pixelDelta();
    const int fine = std::abs(pixels.x()) > std::abs(pixels.y()) ? pixels.x() : pixels.y();
    const QPoint distance(fine != 0 ? fine : notches, 0);
    scrollBy(-ui::wheelSteps(distance, ui::kWheelShare, m_wheelRest).x());
}

/// A marker's name may be cut short, or have no room at all.
bool TimelineView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return GraphicsView::viewportEvent(event);
    }
    const auto& help = *static_cast<QHelpEvent*>(event);
    const std::optional<TimelineMarker> marker = m_scene->marker(hitAt(help.pos()).marker);
    const QString frame = marker ? m_scene->frameText(marker->frame) : QString();
    const QString name = marker ? ui::shownName(marker->name) : QString();
    const QString text = name.isEmpty() ? frame : tr("%1 at %2").arg(name, frame);
    return ui::answerWithWholeText(*viewport(), event, text, {})
           || GraphicsView::viewportEvent(event);
}

void TimelineView::leaveEvent(QEvent* event)
{
    if (!m_gesture) {
        showHover({});
    }
    GraphicsView::leaveEvent(event);
}

// Keyboard

bool TimelineView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (wantsKey(ui::rulerKey(key.key(), key.modifiers()))) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::Hide || event->type() == QEvent::EnabledChange) {
        showHover({}); // the pointer need not leave
    }
    return GraphicsView::event(event);
}

/// None while a name is edited: what the line edit leaves over is meant for nobody.
bool TimelineView::wantsKey(const ui::RulerKey& key) const
{
    if (isRenaming()) {
        return false;
    }
    switch (key.command) {
    case ui::RulerCommand::None: return false;
    case ui::RulerCommand::Cancel: return m_gesture != nullptr;
    case ui::RulerCommand::MoveMarker:
    case ui::RulerCommand::Rename:
    case ui::RulerCommand::Remove: return !m_gesture && m_scene->selectedMarker() != 0;
    default: return !m_gesture;
    }
}

void TimelineView::keyPressEvent(QKeyEvent* event)
{
    const ui::RulerKey key = ui::rulerKey(event->key(), event->modifiers());
    if (wantsKey(key)) {
        event->accept();
        obey(key);
    } else {
        event->ignore(); // a view would scroll
    }
}

void TimelineView::obey(const ui::RulerKey& key)
{
    const Range before = playback();
    const int marker = m_scene->selectedMarker();
    switch (key.command) {
    case ui::RulerCommand::Step: seek(ui::movedFrame(currentFrame(), key.distance)); break;
    case ui::RulerCommand::GoToMarker: goToMarker(key.distance > 0); break;
    case ui::RulerCommand::MoveMarker:
        moveSelectedMarker(ui::movedFrame(m_scene->marker(marker)->frame, key.distance));
        break;
    case ui::RulerCommand::GoToStart: seek(before.first); break;
    case ui::RulerCommand::GoToEnd: seek(before.second); break;
    case ui::RulerCommand::GoToFirst: seek(frames().first); break;
    case ui::RulerCommand::GoToLast: seek(frames().second); break;
    case ui::RulerCommand::SetStart: setPlaybackEnd(true, currentFrame()); break;
    case ui::RulerCommand::SetEnd: setPlaybackEnd(false, currentFrame()); break;
    case ui::RulerCommand::AddMarker: addMarker(currentFrame()); break;
    case ui::RulerCommand::Rename: renameMarker(marker); break;
    case ui::RulerCommand::Remove: removeMarker(marker); break;
    case ui::RulerCommand::Cancel: endGesture(Outcome::TakeBack); break;
    case ui::RulerCommand::None: break;
    }
}

void TimelineView::moveSelectedMarker(int frame)
{
    if (std::optional<TimelineMarker> marker = m_scene->marker(m_scene->selectedMarker())) {
        marker->frame = ui::frameWithin(frame, frames());
        changeMarker(*marker);
    }
}

void TimelineView::goToMarker(bool forward)
{
    const TimelineMarkers& markers = m_scene->markers();
    const auto isAfter = [](int frame, const TimelineMarker& marker) {
        return frame < marker.frame;
    };
    const auto isBefore = [](const TimelineMarker& marker, int frame) {
        return marker.frame < frame;
    };
    auto found = forward
                     ? std::upper_bound(markers.begin(), markers.end(), currentFrame(), isAfter)
                     : std::lower_bound(markers.begin(), markers.end(), currentFrame(), isBefore);
    if (found == (forward ? markers.end() : markers.begin())) {
        return;
    }
    if (!forward) {
        --found;
    }
    const int frame = found->frame;
    const QPointer<TimelineView> alive(this);
    m_scene->setSelectedMarker(found->id);
    if (alive) {
        seek(frame);
    }
}

void TimelineView::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    m_showsFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                   || reason == Qt::ShortcutFocusReason;
    GraphicsView::focusInEvent(event);
    viewport()->update();
}

void TimelineView::focusOutEvent(QFocusEvent* event)
{
    GraphicsView::focusOutEvent(event);
    viewport()->update();
}
