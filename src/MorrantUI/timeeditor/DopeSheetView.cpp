// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetView.h"

#include "MorrantUI/timeeditor/SelectionTold.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include "MorrantUI/timeeditor/outlinelines.h"
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace {

constexpr double kZoomStep = 1.2; ///< a notch of the wheel, as on the ruler, or a key
constexpr double kNotch = 120.0;  ///< eighths of a degree

/// Keys that belong to the sheet while it has the focus, although the window's menus have them too.
bool isOwnKey(const QKeyEvent& event)
{
    const bool isPlain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_F:
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
    case Qt::Key_Delete:
    case Qt::Key_Backspace: return isPlain;
    case Qt::Key_C:
    case Qt::Key_X:
    case Qt::Key_V: return event.modifiers() == Qt::ControlModifier;
    case Qt::Key_Escape: return QGuiApplication::mouseButtons() != Qt::NoButton;
    default: return false;
    }
}

} // namespace

DopeSheetView::DopeSheetView(QWidget* parent)
    : TimeEditorView(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // always: the ruler's width must not change
    setAccessibleName(tr("Keys over frames"));
}

DopeSheetView::~DopeSheetView() = default;

// What is selected

template <typename IsWanted>
void DopeSheetView::selectKeysWhere(const IsWanted& isWanted)
{
    if (!getEditorScene()) {
        return;
    }
    TimeEditorScene& scene = *getEditorScene();
    const ui::SelectionTold told(scene);
    scene.clearSelection();
    for (const TimeEditorBaseItem* const row : scene.keyRows()) {
        for (TimeEditorKeyframeItem* const key : ui::keysIn(*row)) {
            if (isWanted(key->scenePos().x())) {
                key->setSelected(true);
            }
        }
    }
}

void DopeSheetView::selectAllKeys()
{
    selectKeysWhere([](double) { return true; });
}

void DopeSheetView::selectKeyColumn()
{
    std::vector<double> frames = selectedFrames();
    if (frames.empty()) {
        frames.push_back(frameNumber());
    }
    selectKeysWhere([&frames](double frame) {
        const auto next = std::lower_bound(frames.begin(), frames.end(), frame - ui::kSameFrame);
        return next != frames.end() && *next <= frame + ui::kSameFrame;
    });
}

void DopeSheetView::selectKeysFrom(int frame)
{
    selectKeysWhere([frame](double other) { return other >= frame; });
}

void DopeSheetView::selectKeysUpTo(int frame)
{
    selectKeysWhere([frame](double other) { return other <= frame; });
}

std::vector<double> DopeSheetView::selectedFrames() const
{
    std::set<double> frames;
    for (const TimeEditorKeyframeItem* const key : selectedKeyframes()) {
        frames.insert(key->scenePos().x());
    }
    return {frames.begin(), frames.end()};
}

// Gestures

void DopeSheetView::abandonGesture()
{
    m_isTap = false;
    m_panned.reset();
    const QPointer<DopeSheetView> alive(this);
    TimeEditorView::abandonGesture();
    if (alive) {
        endPress();
    }
}

void DopeSheetView::endPress()
{
    if (std::exchange(m_isPressed, false)) {
        Q_EMIT gestureEnded();
    }
}

/// What has not seen its release ends before another press, or a movement without buttons.
/// @return whether the view is still there
bool DopeSheetView::endLostGesture(const QMouseEvent& event)
{
    const QPointer<DopeSheetView> alive(this);
    if (m_isPressed && !(event.buttons() & ~Qt::MouseButtons(event.button()))) {
        abandonGesture();
    }
    return alive;
}

bool DopeSheetView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return TimeEditorView::event(event);
}

void DopeSheetView::mousePressEvent(QMouseEvent* event)
{
    m_isTap = false;
    if (event->button() == Qt::MiddleButton && event->buttons() == Qt::MiddleButton) {
        m_panned = event->position().toPoint();
        return;
    }
    if (endLostGesture(*event)) {
        m_isPressed = true;
        TimeEditorView::mousePressEvent(event);
    }
}

void DopeSheetView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_isPressed = true; // what Qt gives the item below for a press
    TimeEditorView::mouseDoubleClickEvent(event);
}

void DopeSheetView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panned && event->buttons().testFlag(Qt::MiddleButton)) {
        const QPoint now = event->position().toPoint();
        const QPoint step = now - *std::exchange(m_panned, now);
        scrollAcross(-step.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - step.y());
        return;
    }
    if (endLostGesture(*event)) {
        TimeEditorView::mouseMoveEvent(event);
    }
}

void DopeSheetView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        m_panned.reset();
        return;
    }
    if (isBesideDrag(*event)) {
        return;
    }
    const QPointer<DopeSheetView> alive(this);
    TimeEditorView::mouseReleaseEvent(event);
    if (alive) {
        endPress();
    }
    if (alive) {
        Q_EMIT released();
    }
}

void DopeSheetView::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() == Qt::ShiftModifier && event->angleDelta().x() == 0) {
        QWheelEvent sideways(
            event->position(),
            event->globalPosition(),
            event->pixelDelta().transposed(),
            event->angleDelta().transposed(),
            event->buttons(),
            Qt::NoModifier, // with Shift a scroll bar goes by pages
            event->phase(),
            event->inverted(),
            event->source(),
            event->pointingDevice());
        TimeEditorView::wheelEvent(&sideways);
        event->accept();
        return;
    }
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        TimeEditorView::wheelEvent(event);
        return;
    }
    const double notches = event->angleDelta().y() / kNotch;
    Q_EMIT zoomWanted(std::pow(kZoomStep, notches), event->position().toPoint().x());
    event->accept();
}

void DopeSheetView::keyPressEvent(QKeyEvent* event)
{
    m_isTap = event->key() == Qt::Key_Space && (m_isTap || !event->isAutoRepeat());
    const int playhead = mapFromScene(frameNumber(), 0.0).x();
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: Q_EMIT zoomWanted(kZoomStep, playhead); return;
    case Qt::Key_Minus: Q_EMIT zoomWanted(1.0 / kZoomStep, playhead); return;
    default: TimeEditorView::keyPressEvent(event); break;
    }
}

void DopeSheetView::keyReleaseEvent(QKeyEvent* event)
{
    const bool isTap =
        event->key() == Qt::Key_Space && !event->isAutoRepeat() && std::exchange(m_isTap, false);
    const bool isFit = event->key() == Qt::Key_F && !event->isAutoRepeat() && getEditorScene()
                       && (event->modifiers().testFlag(Qt::ShiftModifier)
                           || getEditorScene()->selectedItems().isEmpty());
    const int rowsAbove = verticalScrollBar()->value();
    const QPointer<DopeSheetView> alive(this);
    if (isFit && getScale() > 1.0) {
        setScale(1.0); // or the margins would be as far away as what was zoomed out to
    }
    if (alive) {
        TimeEditorView::keyReleaseEvent(event);
    }
    if (alive && isFit) {
        verticalScrollBar()->setValue(rowsAbove);
    }
    if (alive && isTap) {
        Q_EMIT spaceTapped();
    }
}
