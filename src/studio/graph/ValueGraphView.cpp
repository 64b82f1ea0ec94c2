// SPDX-License-Identifier: Apache-2.0
#include "graph/ValueGraphView.h"

#include "graph/valuekeys.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr double kZoomStep = 1.25;    ///< a key
constexpr double kLabelDistance = 80; ///< pixels at least from one frame's label to the next
constexpr double kLineDistance = 32;  ///< pixels at least from one value's line to the next
constexpr double kExtentRoom = 20;    ///< times the extent, on each side
constexpr double kAxisShare = 0.08;   ///< of what is fitted, left free for labels
constexpr double kNudgesPerLine = 10; ///< Up and Down, from one labelled value to the next
constexpr int kLabelMargin = 4;       ///< pixels
constexpr int kMostDecimals = 6;

/// Keys that belong to the graph while it has the focus, although the window's menus have them too.
bool isOwnKey(const QKeyEvent& event, bool hasSelection)
{
    const bool isPlain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_F:
    case Qt::Key_A:
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus: return isPlain;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: return isPlain && hasSelection;
    case Qt::Key_Escape: return QGuiApplication::mouseButtons() != Qt::NoButton;
    default: return false;
    }
}

/// Every multiple of a step in a range.
template <typename Visit>
void forLines(double first, double last, double step, Visit visit)
{
    constexpr double kMostLines = 1000;
    if (!(step > 0) || !((last - first) / step < kMostLines)) {
        return;
    }
    for (double n = std::ceil(first / step); n * step <= last; ++n) {
        visit(n * step);
    }
}

/// A pixel wide at any zoom, which differs between the axes.
void setLinePen(QPainter& painter, const QString& colorName)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(ui::colorQt(colorName), 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
}

QString labelOf(double number, double step)
{
    const int decimals = static_cast<int>(-std::floor(std::log10(step)));
    return QLocale().toString(number + 0.0, 'f', std::clamp(decimals, 0, kMostDecimals));
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
    setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    setDefaultInterpolation(ui::Graph::Interpolation::Bezier);
    setAccessibleName(tr("Values over frames"));
    connect(scene, &QGraphicsScene::selectionChanged, this, [this] {
        updateTransformTool();
        viewport()->update();
    });
    setExtent({0, -1, 1, 1});
}

void ValueGraphView::setFrame(int frame)
{
    if (std::exchange(m_frame, frame) != frame) {
        viewport()->update();
    }
}

// What is shown

void ValueGraphView::setExtent(const QRectF& extent)
{
    const double x = kExtentRoom * std::max(extent.width(), 1.0);
    const double y = kExtentRoom * std::max(extent.height(), 1.0);
    setSceneRect(extent.adjusted(-x, -y, x, y));
    if (m_isFitted) {
        fitAll();
    }
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
    if (const auto bounds = pointBounds(true)) {
        fit(*bounds);
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
    setLinePen(*painter, u"Midlight"_qs);
    forLines(rect.left(), rect.right(), step.width(), [&](double frame) {
        painter->drawLine(QLineF(frame, rect.top(), frame, rect.bottom()));
    });
    forLines(rect.top(), rect.bottom(), step.height(), [&](double y) {
        painter->drawLine(QLineF(rect.left(), y, rect.right(), y));
    });
    painter->restore();
}

void ValueGraphView::drawForeground(QPainter* painter, const QRectF& rect)
{
    painter->save();
    setLinePen(*painter, u"Accent5"_qs);
    painter->drawLine(QLineF(m_frame, rect.top(), m_frame, rect.bottom()));
    painter->resetTransform();
    paintLabels(*painter);
    painter->restore();
}

/// Values along the left edge, frames along the lower one.
void ValueGraphView::paintLabels(QPainter& painter) const
{
    const QSizeF step = steps();
    const QRectF seen = getVisibleRect();
    const QFontMetricsF metrics(font());
    painter.setFont(font());
    painter.setPen(ui::colorQt(QStringLiteral("Text")));
    const double bottom = viewport()->height() - kLabelMargin;
    forLines(seen.top(), seen.bottom(), step.height(), [&](double y) {
        const double at = mapFromScene(0, y).y();
        if (at > metrics.height() && at < bottom - metrics.height()) {
            painter.drawText(QPointF(kLabelMargin, at - 2), labelOf(-y, step.height()));
        }
    });
    forLines(seen.left(), seen.right(), step.width(), [&](double frame) {
        const double at = mapFromScene(frame, 0).x();
        painter.drawText(QPointF(at + kLabelMargin, bottom), labelOf(frame, step.width()));
    });
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

void ValueGraphView::editEnded(bool changed)
{
    GeneralGraphView::editEnded(changed);
    Q_EMIT stepped();
    Q_EMIT gestureEnded(changed);
    updateTransformTool();
}

void ValueGraphView::abandonGesture()
{
    m_isTap = m_spaceHeld = false;
    m_panned.reset();
    GeneralGraphView::abandonGesture();
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

void ValueGraphView::mousePressEvent(QMouseEvent* event)
{
    m_isTap = false;
    const bool isPan =
        event->buttons() == Qt::MiddleButton || (m_spaceHeld && event->buttons() == Qt::LeftButton);
    if (isPan) {
        m_panned = event->position().toPoint();
        changeMouse(Qt::ClosedHandCursor);
        return;
    }
    GeneralGraphView::mousePressEvent(event);
}

void ValueGraphView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panned) {
        const QPoint now = event->position().toPoint();
        m_isFitted = false;
        panBy(now - *std::exchange(m_panned, now));
        return;
    }
    GeneralGraphView::mouseMoveEvent(event);
    if (event->buttons() != Qt::NoButton) {
        Q_EMIT stepped();
        updateTransformTool();
    }
}

void ValueGraphView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_panned) {
        m_panned.reset();
        restoreMouse();
        return;
    }
    GeneralGraphView::mouseReleaseEvent(event);
}

void ValueGraphView::wheelEvent(QWheelEvent* event)
{
    m_isFitted = false;
    if (zoomByWheel(*event)) {
        event->accept();
    } else {
        GeneralGraphView::wheelEvent(event);
    }
}

void ValueGraphView::keyPressEvent(QKeyEvent* event)
{
    const bool isSpace = event->key() == Qt::Key_Space;
    m_isTap = isSpace && (m_isTap || !event->isAutoRepeat());
    const auto zoom = [this](double factor) {
        m_isFitted = false;
        zoomAt({factor, 1}, mapFromScene(m_frame, 0));
    };
    switch (event->key()) {
    case Qt::Key_Space: m_spaceHeld = true; break;
    case Qt::Key_F: fitSelected(); break;
    case Qt::Key_A: fitAll(); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoom(kZoomStep); break;
    case Qt::Key_Minus: zoom(1 / kZoomStep); break;
    default: GeneralGraphView::keyPressEvent(event); break;
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
        Q_EMIT tapped();
    }
}

} // namespace studio
