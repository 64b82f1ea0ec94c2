// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/ValueGraphView.h"

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/graph/GraphDrag.h"
#include "MorrantUI/graph/axislines.h"
#include "MorrantUI/timeline/clocklinks.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/ValueGraphCurve.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QGraphicsScene>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

using ui::Graph::axisLabel;
using ui::Graph::axisLines;
using ui::Graph::axisStep;

namespace {

constexpr double kZoomStep = 1.25;    ///< a key
constexpr double kLabelDistance = 80; ///< pixels at least from one frame's label to the next
constexpr double kLineDistance = 32;  ///< pixels at least from one value's line to the next
constexpr double kExtentRoom = 20;    ///< times the extent, on each side
constexpr double kAxisShare = 0.08;   ///< of what is fitted, left free for labels
constexpr double kNudgesPerLine = 10; ///< Up and Down, from one labelled value to the next
constexpr double kFarthest = 1e100;   ///< scene units that are looked at
constexpr int kLabelMargin = 4;       ///< pixels

bool hasOnly(const QKeyEvent& event, Qt::KeyboardModifiers modifiers)
{
    return !(event.modifiers() & ~(modifiers | Qt::KeypadModifier));
}

/// Keys that pan, fit and zoom; Shift is what a keyboard may need for signs.
bool isViewKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_F:
    case Qt::Key_A: return hasOnly(event, {});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus: return hasOnly(event, Qt::ShiftModifier);
    default: return false;
    }
}

bool isArrow(const QKeyEvent& event)
{
    const int key = event.key();
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

/// Keys that belong to the graph while it has the focus, although the window's menus have them too.
bool isOwnKey(const QKeyEvent& event, bool hasSelection)
{
    if (isArrow(event)) {
        return hasOnly(event, Qt::ShiftModifier) && hasSelection;
    }
    const bool isEscape = event.key() == Qt::Key_Escape;
    return isEscape ? QGuiApplication::mouseButtons() != Qt::NoButton : isViewKey(event);
}

/// A pixel wide at any zoom, which differs between the axes.
void setLinePen(QPainter& painter, const QString& colorName)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(ui::colorQt(colorName), 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
}

/// A rectangle that can be reckoned with, whatever the host's numbers; null where they are none.
QRectF within(const QRectF& rect)
{
    const auto near = [](double number) { return std::clamp(number, -kFarthest, kFarthest); };
    const QRectF held(
        QPointF(near(rect.left()), near(rect.top())),
        QPointF(near(rect.right()), near(rect.bottom())));
    return std::isfinite(held.width()) && std::isfinite(held.height()) ? held : QRectF();
}

} // namespace

ValueGraphView::ValueGraphView(QWidget* parent)
    : GeneralGraphView(parent)
{
    auto* scene = new QGraphicsScene(this);
    scene->setItemIndexMethod(QGraphicsScene::NoIndex); // what is dragged changes all the time
    setScene(scene);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    setDragMode(RubberBandDrag);
    setViewportUpdateMode(FullViewportUpdate);
    setDefaultInterpolation(ui::Graph::Interpolation::Bezier);
    setAccessibleName(tr("Values over frames"));
    connect(scene, &QGraphicsScene::selectionChanged, this, [this] {
        updateTransformTool();
        describeSelection();
        viewport()->update();
    });
    noteKeys(false);
}

ValueGraphView::~ValueGraphView()
{
    const QSignalBlocker quiet(scene()); // of a selection that goes with the view
    for (ValueGraphCurve* const curve : curves()) {
        delete curve; // which asks the view
    }
}

ValueGraphCurve* ValueGraphView::addCurve(const QString& text, const QString& colorName)
{
    auto* const curve = new ValueGraphCurve(*this);
    curve->setToolTip(text);
    curve->setColorName(colorName);
    scene()->addItem(curve);
    m_curves.push_back(curve);
    noteKeys(false);
    return curve;
}

void ValueGraphView::setClock(PlaybackClock* clock)
{
    m_clockLink.reset();
    m_clock = clock;
    if (!clock) {
        return;
    }
    const auto show = [this, clock] {
        if (clock->hasTrack()) {
            setCurrentFrame(clock->frame());
        }
    };
    m_clockLink.reset(new ui::ClockLink{
        connect(clock, &PlaybackClock::trackChanged, this, show),
        connect(clock, &PlaybackClock::frameChanged, this, show),
        connect(this, &ValueGraphView::spaceTapped, clock, &PlaybackClock::toggle),
    });
    show();
}

PlaybackClock* ValueGraphView::clock() const
{
    return m_clock;
}

void ValueGraphView::setCurrentFrame(int frame)
{
    if (std::exchange(m_frame, frame) != frame) {
        viewport()->update();
    }
}

void ValueGraphView::setHint(const QString& hint)
{
    if (std::exchange(m_hint, hint) != hint) {
        describeSelection();
        viewport()->update();
    }
}

// What is shown

/// Many curves may change together: their extent is taken once.
void ValueGraphView::noteKeys(bool hasNewPoints)
{
    if (hasNewPoints) {
        updateItemRects();
    }
    if (!std::exchange(m_isExtentStale, true)) {
        const auto show = [this] {
            takeExtent();
            if (!m_isEditing) {
                Q_EMIT keysShown();
            }
        };
        QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
    }
}

/// Of a curve that dies: what is left may be fitted.
void ValueGraphView::forget(ValueGraphCurve& curve)
{
    m_curves.erase(std::remove(m_curves.begin(), m_curves.end(), &curve), m_curves.end());
    noteKeys(false);
}

/// What can be scrolled to: all curves and much around them. A gesture does it at its end.
void ValueGraphView::takeExtent()
{
    if (!std::exchange(m_isExtentStale, false) || m_isEditing) {
        return;
    }
    const auto bounds = pointBounds(true);
    const QRectF extent = within(bounds.value_or(QRectF()));
    const double x = kExtentRoom * std::max(extent.width(), 1.0);
    const double y = kExtentRoom * std::max(extent.height(), 1.0);
    setSceneRect(extent.adjusted(-x, -y, x, y));
    if (m_isFitted && bounds) {
        fit(extent);
    }
    updateItemRects();
    updateTransformTool();
    describeSelection();
    viewport()->update();
}

void ValueGraphView::fit(QRectF rect)
{
    rect.setWidth(std::max(rect.width(), 1.0)); // of a single key, a frame
    if (rect.height() <= 0) {                   // a value that stands still
        const double room = std::max(std::abs(rect.top()) / 2, 1.0);
        rect.adjust(0, -room, 0, room);
    }
    rect.adjust(-kAxisShare * rect.width(), 0, 0, kAxisShare * rect.height());
    fitSceneRect(rect);
}

void ValueGraphView::fitSelected()
{
    const auto points = utils()->pointItems(true);
    if (points.size() < 2) { // of a single one there is nothing to fill the view with
        fitAll();
        return;
    }
    m_isFitted = false;
    fitPoints(false);
}

void ValueGraphView::fitAll()
{
    m_isFitted = true;
    takeExtent();
    if (const auto bounds = pointBounds(true)) {
        fit(within(*bounds));
    }
}

void ValueGraphView::resizeEvent(QResizeEvent* event)
{
    GeneralGraphView::resizeEvent(event);
    if (m_isFitted) {
        fitAll();
    }
}

QSizeF ValueGraphView::steps() const
{
    const QTransform zoom = transform();
    return {
        std::max(axisStep(kLabelDistance / zoom.m11()), 1.0), axisStep(kLineDistance / zoom.m22())};
}

// Painting

void ValueGraphView::drawBackground(QPainter* painter, const QRectF& rect)
{
    const QSizeF step = steps();
    painter->fillRect(rect, ui::colorQt(QStringLiteral("WindowBase")));
    painter->save();
    setLinePen(*painter, QStringLiteral("Midlight"));
    for (const double frame : axisLines(rect.left(), rect.right(), step.width())) {
        painter->drawLine(QLineF(frame, rect.top(), frame, rect.bottom()));
    }
    for (const double y : axisLines(rect.top(), rect.bottom(), step.height())) {
        painter->drawLine(QLineF(rect.left(), y, rect.right(), y));
    }
    painter->restore();
}

void ValueGraphView::drawForeground(QPainter* painter, const QRectF& rect)
{
    painter->save();
    setLinePen(*painter, QStringLiteral("Accent5"));
    painter->drawLine(QLineF(m_frame, rect.top(), m_frame, rect.bottom()));
    painter->resetTransform();
    paintLabels(*painter);
    if (m_curves.empty()) {
        constexpr int kCentred = Qt::AlignCenter | Qt::TextWordWrap;
        const QRect place = painter->boundingRect(viewport()->rect(), kCentred, m_hint);
        const QMargins around(kLabelMargin, 0, kLabelMargin, 0);
        painter->fillRect(place + around, ui::colorQt(QStringLiteral("WindowBase"))); // no grid
        painter->setPen(ui::colorQt(QStringLiteral("HelperHints")));
        painter->drawText(viewport()->rect(), kCentred, m_hint);
    }
    painter->restore();
}

/// Values along the left edge, frames along the lower one.
void ValueGraphView::paintLabels(QPainter& painter) const
{
    const QSizeF step = steps();
    const QRectF seen = getVisibleRect();
    const QFontMetricsF metrics(font());
    painter.setFont(font());
    painter.setLayoutDirection(Qt::LeftToRight); // a minus stands before its number
    painter.setPen(ui::colorQt(QStringLiteral("Text")));
    const double bottom = viewport()->height() - kLabelMargin;
    for (const double y : axisLines(seen.top(), seen.bottom(), step.height())) {
        const double at = mapFromScene(0, y).y();
        if (at > metrics.height() && at < bottom - metrics.height()) {
            painter.drawText(QPointF(kLabelMargin, at - 2), axisLabel(-y, step.height()));
        }
    }
    for (const double frame : axisLines(seen.left(), seen.right(), step.width())) {
        const double left = mapFromScene(frame, 0).x() + kLabelMargin;
        const QString label = axisLabel(frame, step.width());
        if (left >= 0.0 && left + metrics.horizontalAdvance(label) <= viewport()->width()) {
            painter.drawText(QPointF(left, bottom), label);
        }
    }
}

// What the user does

QSizeF ValueGraphView::nudgeStep() const
{
    return {1, steps().height() / kNudgesPerLine};
}

QString ValueGraphView::pointText(const GraphPointWidget& point) const
{
    const QLocale locale;
    return tr("Frame %1, value %2")
        .arg(locale.toString(point.x()), locale.toString(0.0 - point.y()));
}

QString ValueGraphView::selectionText() const
{
    const QString selected = GeneralGraphView::selectionText();
    return selected.isEmpty() && m_curves.empty() ? m_hint : selected;
}

void ValueGraphView::editStarted()
{
    GeneralGraphView::editStarted();
    m_isEditing = true;
    rememberTimes();
    Q_EMIT gestureStarted();
}

/// What the mouse has moved, told before anything else happens. @return whether the view is still
/// there
bool ValueGraphView::tellStep()
{
    if (m_snapsToFrames) {
        for (ValueGraphCurve* const curve : curves()) {
            curve->snapToFrames();
        }
    }
    const QPointer<ValueGraphView> alive(this);
    Q_EMIT keysChanging();
    if (alive) {
        updateTransformTool();
    }
    return !alive.isNull();
}

void ValueGraphView::editEnded(bool changed)
{
    GeneralGraphView::editEnded(changed);
    if (!tellStep()) {
        return;
    }
    m_isEditing = false;
    const QPointer<ValueGraphView> alive(this);
    Q_EMIT gestureEnded(changed);
    if (alive) {
        noteKeys(false);
        updateTransformTool();
    }
}

void ValueGraphView::abandonGesture()
{
    const QPointer<ValueGraphView> alive(this);
    m_isTap = m_spaceHeld = false;
    endPan();
    endGesture(true);
    if (alive) {
        GeneralGraphView::abandonGesture();
    }
}

bool ValueGraphView::event(QEvent* event)
{
    const bool hasSelection = scene() && !scene()->selectedItems().isEmpty();
    if (event->type() == QEvent::ShortcutOverride
        && isOwnKey(*static_cast<QKeyEvent*>(event), hasSelection))
    {
        event->accept();
        return true;
    }
    return GeneralGraphView::event(event);
}

/// A press that pans, or one that a pan takes no notice of. Others end what fields have begun, and
/// the view may go with it.
bool ValueGraphView::takesPress(const QMouseEvent& event)
{
    m_isTap = false;
    const bool isPan =
        event.buttons() == Qt::MiddleButton || (m_spaceHeld && event.buttons() == Qt::LeftButton);
    if (isPan) {
        m_pan = Pan{event.button(), event.position().toPoint()};
        changeMouse(Qt::ClosedHandCursor);
    }
    if (isPanning(event)) {
        return true;
    }
    const QPointer<ValueGraphView> alive(this);
    if (event.button() == Qt::LeftButton) {
        endGesture(true);
    }
    return !alive;
}

/// Ends a pan whose button is up, also where nobody has seen its release.
bool ValueGraphView::isPanning(const QMouseEvent& event)
{
    if (m_pan && !event.buttons().testFlag(m_pan->button)) {
        endPan();
    }
    return m_pan.has_value();
}

void ValueGraphView::endPan()
{
    if (std::exchange(m_pan, std::nullopt)) {
        restoreMouse();
    }
}

void ValueGraphView::mousePressEvent(QMouseEvent* event)
{
    if (!takesPress(*event)) {
        GeneralGraphView::mousePressEvent(event);
    }
}

void ValueGraphView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!takesPress(*event)) {
        GeneralGraphView::mouseDoubleClickEvent(event);
    }
}

void ValueGraphView::mouseMoveEvent(QMouseEvent* event)
{
    if (isPanning(*event)) {
        const QPoint now = event->position().toPoint();
        m_isFitted = false;
        panBy(now - std::exchange(m_pan->last, now));
        return;
    }
    const QPointer<ValueGraphView> alive(this);
    GeneralGraphView::mouseMoveEvent(event);
    if (alive && m_isEditing && event->buttons() != Qt::NoButton) {
        tellStep();
    }
}

void ValueGraphView::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasPanning = m_pan.has_value();
    if (!isPanning(*event) && !wasPanning) {
        GeneralGraphView::mouseReleaseEvent(event);
    }
}

/// In mid-drag Qt repeats the last movement as the view moves.
void ValueGraphView::moveView(const std::function<void()>& change)
{
    const QPointer<ValueGraphView> alive(this);
    m_isFitted = false;
    {
        const ui::ChangeBatch batch(this);
        change();
    }
    if (alive && m_isEditing) {
        tellStep();
    }
}

void ValueGraphView::wheelEvent(QWheelEvent* event)
{
    moveView([this, event] {
        if (zoomByWheel(*event)) {
            event->accept();
        } else {
            GeneralGraphView::wheelEvent(event);
        }
    });
}

void ValueGraphView::keyPressEvent(QKeyEvent* event)
{
    const bool isOwn = isViewKey(*event);
    const bool isSpace = isOwn && event->key() == Qt::Key_Space;
    m_isTap = isSpace && (m_isTap || !event->isAutoRepeat());
    m_spaceHeld = m_spaceHeld || isSpace;
    const QPointer<ValueGraphView> alive(this);
    if (isArrow(*event)) {
        endGesture(true); // of fields: a nudge is another
    }
    if (!alive) {
        return;
    }
    if (!isOwn) {
        GeneralGraphView::keyPressEvent(event);
    } else if (!m_isEditing) { // what is dragged would run away
        showByKey(event->key());
    }
}

void ValueGraphView::showByKey(int key)
{
    const auto zoom = [this](double factor) {
        moveView([&] { zoomAt({factor, 1}, mapFromScene(m_frame, 0)); });
    };
    switch (key) {
    case Qt::Key_F: fitSelected(); break;
    case Qt::Key_A: fitAll(); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoom(kZoomStep); break;
    case Qt::Key_Minus: zoom(1 / kZoomStep); break;
    default: break;
    }
}

void ValueGraphView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
        GeneralGraphView::keyReleaseEvent(event);
        return;
    }
    m_spaceHeld = false;
    if (std::exchange(m_isTap, false)) {
        Q_EMIT spaceTapped();
    }
}
