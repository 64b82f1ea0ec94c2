// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorKeyframeItem.h"

#include "MorrantUI/scene/glyphs.h"
#include "MorrantUI/timeeditor/ItemEdit.h"
#include "MorrantUI/timeeditor/RowHover.h"
#include "MorrantUI/timeeditor/keylook.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

#include <cmath>

namespace {

constexpr double kKeySize = 10.0; ///< pixels across, scene units down
constexpr double kKeyTop = 1.0;   ///< below the row's upper edge

} // namespace

TimeEditorKeyframeItem::TimeEditorKeyframeItem(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
    , m_view(view)
{
    setFlags(
        ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges
        | ItemSendsScenePositionChanges);
    setColor(ui::colorQt(QStringLiteral("Light")));
    updateRect();
    setParentItem(parent);
}

TimeEditorKeyframeItem::~TimeEditorKeyframeItem() = default;

TimeEditorView* TimeEditorKeyframeItem::view() const
{
    return m_view;
}

void TimeEditorKeyframeItem::setEasing(KeyEasing easing)
{
    if (m_easing != easing) {
        m_easing = easing;
        if (TimeEditorCurveItem* const row = curve()) {
            row->refresh();
        }
    }
}

void TimeEditorKeyframeItem::setExtraOutline(bool extra)
{
    m_extraOutline = extra;
    update();
}

std::vector<TimeEditorKeyframeItem*> TimeEditorKeyframeItem::relatedItems() const
{
    std::vector<TimeEditorKeyframeItem*> alive;
    for (const QPointer<TimeEditorKeyframeItem>& item : m_related) {
        if (item) {
            alive.push_back(item);
        }
    }
    return alive;
}

void TimeEditorKeyframeItem::setRelatedItems(const std::vector<TimeEditorKeyframeItem*>& items)
{
    m_related.assign(items.begin(), items.end());
}

QColor TimeEditorKeyframeItem::getColor() const
{
    return fill(ui::KeyColors::fetch());
}

QColor TimeEditorKeyframeItem::fill(const ui::KeyColors& colors) const
{
    const TimeEditorCurveItem* const row = curve();
    return ui::keyFill(
        {.base = getBaseColor(),
         .animating = isAnimating() ? animatingColor() : QColor(),
         .selected = isSelected(),
         .shadedByEasing =
             row != nullptr && row->colorMode() == TimeEditorCurveItem::ColorMode::Easing,
         .easing = m_easing},
        colors);
}

ui::Glyph TimeEditorKeyframeItem::glyph(const ui::KeyColors& colors) const
{
    return {
        m_easing == KeyEasing::Hold ? ui::GlyphShape::KeySquare : ui::GlyphShape::KeyDiamond,
        fill(colors),
        colors.outline,
        m_extraOutline ? colors.extra : QColor()};
}

void TimeEditorKeyframeItem::updateRect()
{
    const double scale = m_view ? m_view->transform().m11() : 1.0;
    const double width = scale > 0.0 ? kKeySize / scale : kKeySize;
    setRect(-width / 2.0, kKeyTop, width, kKeySize);
}

bool TimeEditorKeyframeItem::collidesWithPath(
    const QPainterPath& path, Qt::ItemSelectionMode mode) const
{
    const QRectF reached = path.controlPointRect();
    const bool contains = mode == Qt::ContainsItemShape || mode == Qt::ContainsItemBoundingRect;
    return contains ? reached.contains(rect()) : reached.intersects(rect());
}

void TimeEditorKeyframeItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    ui::drawGlyph(*painter, QPointF(), glyph(ui::KeyColors::fetch()));
}

QVariant TimeEditorKeyframeItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemPositionChange: return acceptedPosition(value.toPointF());
    case ItemPositionHasChanged: return value;
    case ItemScenePositionHasChanged:
        if (m_curve && scene()) {
            m_curve->refresh();
        }
        return value;
    case ItemParentChange:
        m_curve = dynamic_cast<TimeEditorCurveItem*>(qvariant_cast<QGraphicsItem*>(value));
        break;
    case ItemSceneHasChanged:
        if (m_curve) {
            return value; // a row looks after its keys itself, which may be a hundred thousand
        }
        break;
    case ItemSelectedHasChanged: update(); break;
    default: break;
    }
    return TimeEditorBaseItem::itemChange(change, value);
}

QPointF TimeEditorKeyframeItem::acceptedPosition(QPointF wanted) const
{
    if (!std::isfinite(wanted.x()) || !std::isfinite(wanted.y())) {
        return pos();
    }
    const bool free = scene() == nullptr || isForceMoving();
    return free ? wanted : QPointF(std::round(wanted.x()), y());
}

void TimeEditorKeyframeItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorKeyframeItem> alive(this);
    TimeEditorBaseItem::mousePressEvent(event);
    if (alive && m_view && event->isAccepted() && event->button() == Qt::LeftButton) {
        m_view->startKeyDrag(this, event->scenePos().x());
    }
}

void TimeEditorKeyframeItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_view) {
        m_view->dragKeys(event->scenePos().x()); // Qt's own moving would be told to nobody
    } else {
        TimeEditorBaseItem::mouseMoveEvent(event);
    }
}

void TimeEditorKeyframeItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorKeyframeItem> alive(this);
    if (m_view && m_view->isKeyPressed()) {
        ui::steadyClick(*event);
    }
    if (m_view) {
        m_view->finishKeyDrag();
    }
    if (alive) {
        TimeEditorBaseItem::mouseReleaseEvent(event);
    }
}

bool TimeEditorKeyframeItem::sceneEvent(QEvent* event)
{
    if (event->type() == QEvent::UngrabMouse && m_view) {
        m_view->finishKeyDrag();
        return true; // whoever was told may have deleted the key
    }
    if (ui::RowHover::isForeign(*event) && m_curve && m_curve->isPaintedByStack()) {
        return true;
    }
    return TimeEditorBaseItem::sceneEvent(event);
}
