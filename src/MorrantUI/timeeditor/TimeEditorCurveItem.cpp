// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorCurveItem.h"

#include "MorrantUI/scene/glyphs.h"
#include "MorrantUI/timeeditor/RowBlock.h"
#include "MorrantUI/timeeditor/RowHover.h"
#include "MorrantUI/timeeditor/keylook.h"
#include "MorrantUI/timeeditor/rowpass.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QGraphicsScene>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>
#include <cmath>
#include <typeinfo>
#include <utility>

namespace {

constexpr double kBarReach = 3.0;     ///< pixels above and below the middle that take presses
constexpr double kBarHeight = 2.0;    ///< pixels
constexpr double kHoldHeight = 8.0;   ///< pixels
constexpr double kBezierHeight = 4.0; ///< pixels
constexpr float kBarOpacity = 0.55F;  ///< keys stand out before their bar

double segmentHeight(KeyEasing easing)
{
    switch (easing) {
    case KeyEasing::Hold: return kHoldHeight;
    case KeyEasing::Bezier: return kBezierHeight;
    default: return kBarHeight;
    }
}

} // namespace

TimeEditorCurveItem::TimeEditorCurveItem(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
    , m_view(view)
{
    setFlags(
        ItemIsSelectable | ItemSendsGeometryChanges | ItemContainsChildrenInShape
        | ItemUsesExtendedStyleOption);
    setRect(0.0, 0.0, 1.0, m_view ? m_view->trackHeight() : ui::kTrackHeight);
    setPen(Qt::NoPen);
    setColor(ui::colorQt(QStringLiteral("Grey")));
    setParentItem(parent);
}

TimeEditorCurveItem::~TimeEditorCurveItem() = default;

TimeEditorKeyframeItem* TimeEditorCurveItem::addKeyframe(int frame)
{
    auto* const key = new TimeEditorKeyframeItem(m_view, nullptr);
    key->forceMove(QPointF(frame, keyY())); // before anybody has to be told
    key->setParentItem(this);
    return key;
}

double TimeEditorCurveItem::keyY() const
{
    return rect().center().y() - ui::kKeyMiddle;
}

std::vector<TimeEditorKeyframeItem*> TimeEditorCurveItem::keyframes() const
{
    std::vector<TimeEditorKeyframeItem*> keys;
    keys.reserve(sortedKeys().size());
    for (const RowKey& entry : m_keys) {
        keys.push_back(entry.key);
    }
    return keys;
}

void TimeEditorCurveItem::setColorMode(ColorMode mode)
{
    if (m_colorMode != mode) {
        m_colorMode = mode;
        refresh();
    }
}

void TimeEditorCurveItem::refresh()
{
    // A stale order means that nobody has looked since the last time.
    if (!std::exchange(m_orderStale, true) && scene()) {
        // A key that moves out of its row's former extent leaves a place that nobody else knows of.
        scene()->update();
    }
}

void TimeEditorCurveItem::updateRect()
{
    if (scene()) {
        scene()->update(); // once for all keys: the repaint of each of them is dear
    }
    for (const RowKey& entry : sortedKeys()) {
        entry.key->updateRect();
    }
    m_orderStale = true;
}

QColor TimeEditorCurveItem::getColor() const
{
    if (isSelected()) {
        return ui::colorQt(QStringLiteral("Accent1"));
    }
    return isHovering() ? getHighlightColor() : getBaseColor();
}

const std::vector<TimeEditorCurveItem::RowKey>& TimeEditorCurveItem::sortedKeys() const
{
    if (std::exchange(m_keysStale, false)) {
        m_keys.clear();
        m_onlyKeys = true;
        const QList<QGraphicsItem*> children = childItems();
        m_keys.reserve(static_cast<std::size_t>(children.size()));
        for (QGraphicsItem* const child : children) {
            if (auto* const key = dynamic_cast<TimeEditorKeyframeItem*>(child)) {
                m_keys.push_back({0.0, key});
            } else {
                m_onlyKeys = false;
            }
        }
        m_orderStale = true;
    }
    if (std::exchange(m_orderStale, false)) {
        const auto byFrame = [](const RowKey& a, const RowKey& b) { return a.x < b.x; };
        for (RowKey& entry : m_keys) {
            entry.x = entry.key->x();
        }
        if (!std::is_sorted(m_keys.begin(), m_keys.end(), byFrame)) {
            std::stable_sort(m_keys.begin(), m_keys.end(), byFrame);
        }
        m_extent = extent();
    }
    return m_keys;
}

QRectF TimeEditorCurveItem::extent() const
{
    if (m_keys.empty()) {
        return rect();
    }
    const RowKey& first = m_keys.front();
    const RowKey& last = m_keys.back();
    return rect() | first.key->boundingRect().translated(first.key->pos())
           | last.key->boundingRect().translated(last.key->pos());
}

QRectF TimeEditorCurveItem::bar() const
{
    const std::vector<RowKey>& keys = sortedKeys();
    if (keys.size() < 2) {
        return {};
    }
    const double middle = keyY() + ui::kKeyMiddle;
    return {
        QPointF(keys.front().x, middle - kBarReach), QPointF(keys.back().x, middle + kBarReach)};
}

QRectF TimeEditorCurveItem::boundingRect() const
{
    if (ui::RowPass::current() && isPaintedByStack()) {
        return ui::kNowhere; // and with it Qt passes over all keys
    }
    sortedKeys();
    return m_extent;
}

QPainterPath TimeEditorCurveItem::shape() const
{
    QPainterPath path;
    path.addRect(bar());
    return path;
}

bool TimeEditorCurveItem::collidesWithPath(
    const QPainterPath& path, Qt::ItemSelectionMode /*mode*/) const
{
    // Qt asks the row before it looks at the keys, and looks at all of them then.
    sortedKeys();
    if (!m_onlyKeys) {
        return true;
    }
    if (ui::KeyMask::current() && isPaintedByStack()) {
        return false;
    }
    const QRectF reached = path.controlPointRect();
    return bar().intersects(reached) || keyAt(reached) != nullptr;
}

TimeEditorKeyframeItem* TimeEditorCurveItem::keyAt(const QRectF& place) const
{
    const std::vector<RowKey>& keys = sortedKeys();
    if (keys.empty() || !m_extent.intersects(place)) {
        return nullptr;
    }
    const double reach = keys.front().key->rect().width();
    const auto before = [](const RowKey& key, double x) { return key.x < x; };
    const auto begin = std::lower_bound(keys.begin(), keys.end(), place.left() - reach, before);
    const auto end = std::lower_bound(begin, keys.end(), place.right() + reach, before);
    TimeEditorKeyframeItem* found = nullptr; // as they are painted: selected ones are in front
    for (auto entry = begin; entry != end; ++entry) {
        TimeEditorKeyframeItem* const key = entry->key;
        const bool reached = key->rect().translated(key->pos()).intersects(place);
        if (reached && key->isVisible() && (!found || !found->isSelected() || key->isSelected())) {
            found = key;
        }
    }
    return found;
}

void TimeEditorCurveItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* /*widget*/)
{
    QColor color = getColor();
    color.setAlphaF(kBarOpacity);
    paintSegments(*painter, option->exposedRect.adjusted(-1.0, 0.0, 1.0, 0.0), color);
}

void TimeEditorCurveItem::paintSegments(
    QPainter& painter, const QRectF& exposed, const QColor& color)
{
    const std::vector<RowKey>& keys = sortedKeys();
    const double middle = keyY() + ui::kKeyMiddle;
    const bool byEasing = m_colorMode == ColorMode::Easing;
    for (std::size_t i = 0; i + 1 < keys.size() && keys.at(i).x <= exposed.right();) {
        const KeyEasing easing = byEasing ? keys.at(i).key->easing() : KeyEasing::Linear;
        std::size_t end = i + 1; // segments that look alike are one bar
        while (end + 1 < keys.size() && (!byEasing || keys.at(end).key->easing() == easing)) {
            ++end;
        }
        // Frames may lie farther off than pixels can tell.
        const double left = std::max(keys.at(i).x, exposed.left());
        const double right = std::min(keys.at(end).x, exposed.right());
        const double height = segmentHeight(easing);
        if (left < right) {
            painter.fillRect(
                QRectF(left, middle - height / 2.0, right - left, height),
                byEasing ? ui::easedShade(color, easing) : color);
        }
        i = end;
    }
}

bool TimeEditorCurveItem::isPaintedByStack() const
{
    sortedKeys();
    return m_stacked && m_onlyKeys && isVisible() && opacity() >= 1.0 && graphicsEffect() == nullptr
           && cacheMode() == NoCache && transform().isIdentity() && transformations().isEmpty()
           && rotation() == 0.0 && scale() == 1.0;
}

void TimeEditorCurveItem::paintStacked(QPainter& painter, const QRectF& exposed, QWidget* widget)
{
    const QTransform before = painter.worldTransform();
    painter.translate(scenePos());
    const QRectF visible = exposed.translated(-scenePos());
    QStyleOptionGraphicsItem option;
    option.exposedRect = visible;
    paint(&painter, &option, widget);
    paintKeys(painter, visible, widget);
    painter.setWorldTransform(before);
}

void TimeEditorCurveItem::paintKeys(QPainter& painter, const QRectF& exposed, QWidget* widget)
{
    const double reach = ui::kGlyphReach / std::abs(painter.worldTransform().m11());
    const std::vector<RowKey>& keys = sortedKeys();
    const auto before = [](const RowKey& key, double x) { return key.x < x; };
    const auto begin = std::lower_bound(keys.begin(), keys.end(), exposed.left() - reach, before);
    const auto end = std::lower_bound(begin, keys.end(), exposed.right() + reach, before);
    const ui::KeyColors colors = ui::KeyColors::fetch();
    std::vector<TimeEditorKeyframeItem*> ownKinds; // of the host, with a paint() of their own
    const auto paintSome = [&](bool selected) {
        ui::GlyphPass pass(painter);
        for (auto entry = begin; entry != end; ++entry) {
            TimeEditorKeyframeItem* const key = entry->key;
            if (key->isSelected() != selected || !key->isVisible()) {
                continue;
            }
            if (typeid(*key) != typeid(TimeEditorKeyframeItem)) {
                ownKinds.push_back(key);
                continue;
            }
            pass.draw(key->pos(), key->glyph(colors));
        }
    };
    paintSome(false);
    paintSome(true); // in front: it must not hide behind another at the same frame
    QStyleOptionGraphicsItem option;
    const QTransform row = painter.worldTransform();
    for (TimeEditorKeyframeItem* const key : ownKinds) {
        option.exposedRect = key->boundingRect();
        painter.setWorldTransform(QTransform::fromTranslate(key->x(), key->y()) * row);
        key->paint(&painter, &option, widget);
    }
    painter.setWorldTransform(row);
}

bool TimeEditorCurveItem::sceneEvent(QEvent* event)
{
    return (ui::RowHover::isForeign(*event) && isPaintedByStack())
           || TimeEditorBaseItem::sceneEvent(event);
}

QVariant TimeEditorCurveItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemChildAddedChange:
    case ItemChildRemovedChange:
        m_keysStale = true;
        refresh();
        return value;
    case ItemParentHasChanged:
        m_stacked = dynamic_cast<ui::RowBlock*>(parentItem()) != nullptr;
        break;
    case ItemSelectedHasChanged: refresh(); break;
    default: break;
    }
    return TimeEditorBaseItem::itemChange(change, value);
}
