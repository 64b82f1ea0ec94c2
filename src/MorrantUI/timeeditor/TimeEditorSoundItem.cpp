// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorSoundItem.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kBarTop = 2.0;     ///< scene units, above and below the bar
constexpr double kWaveInset = 1.0;  ///< pixels between bar and wave
constexpr int kBarDark = 260;       ///< percent
constexpr double kTextInset = 6.0;  ///< pixels
constexpr double kLeastWave = 0.35; ///< pixels to either side: silence is a line

} // namespace

TimeEditorSoundItem::TimeEditorSoundItem(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
{
    setFlags(ItemIsSelectable | ItemSendsGeometryChanges | ItemUsesExtendedStyleOption);
    setRect(0.0, 0.0, 1.0, view != nullptr ? view->trackHeight() : ui::kTrackHeight);
    setColor(ui::colorQt(QStringLiteral("Accent3")));
    setParentItem(parent);
}

TimeEditorSoundItem::~TimeEditorSoundItem() = default;

void TimeEditorSoundItem::setPeaks(std::shared_ptr<const ui::SoundPeaks> peaks)
{
    m_peaks = std::move(peaks);
    placeWhole();
}

void TimeEditorSoundItem::setPlacement(const ui::SoundPlacement& placement)
{
    m_placement = placement;
    placeWhole();
}

void TimeEditorSoundItem::placeWhole()
{
    const double samples = m_peaks ? static_cast<double>(m_peaks->size()) : 0.0;
    setAudibleRange(
        m_placement.firstFrame, m_placement.firstFrame + samples / m_placement.samplesPerFrame);
}

void TimeEditorSoundItem::setAudibleRange(double start, double end)
{
    const bool valid = std::isfinite(start) && std::isfinite(end) && start < end;
    prepareGeometryChange();
    m_start = valid ? start : 0.0;
    m_end = valid ? end : 0.0;
    update();
}

void TimeEditorSoundItem::setText(const QString& text)
{
    m_text = text;
    update();
}

QColor TimeEditorSoundItem::getColor() const
{
    if (isSelected()) {
        return ui::colorQt(QStringLiteral("Accent1"));
    }
    return isHovering() ? getHighlightColor() : getBaseColor();
}

QRectF TimeEditorSoundItem::bar() const
{
    return {m_start, kBarTop, m_end - m_start, rect().height() - 2.0 * kBarTop};
}

QRectF TimeEditorSoundItem::boundingRect() const
{
    return rect() | bar();
}

QPainterPath TimeEditorSoundItem::shape() const
{
    QPainterPath path;
    path.addRect(bar());
    return path;
}

void TimeEditorSoundItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* /*widget*/)
{
    const QRectF visible = bar().intersected(option->exposedRect);
    const QTransform world = painter->worldTransform();
    if (visible.isEmpty() || world.type() > QTransform::TxScale) {
        return;
    }
    painter->fillRect(visible, getColor().darker(kBarDark));
    painter->save();
    painter->setWorldTransform(QTransform());
    paintWave(*painter, world, visible);
    if (!m_text.isEmpty()) {
        painter->setPen(ui::colorQt(QStringLiteral("Text")));
        const QRectF room = world.mapRect(bar()).adjusted(kTextInset, 1.0, -kTextInset, 0.0);
        const QRectF name = painter->boundingRect(room, Qt::AlignLeft | Qt::AlignTop, m_text);
        painter->fillRect(name.adjusted(-2.0, 0.0, 2.0, 0.0), getColor().darker(kBarDark));
        painter->drawText(room, Qt::AlignLeft | Qt::AlignTop, m_text);
    }
    painter->restore();
}

void TimeEditorSoundItem::paintWave(
    QPainter& painter, const QTransform& world, const QRectF& visible)
{
    const QRectF place = world.mapRect(visible);
    const double ratio = painter.device()->devicePixelRatio();
    const double left = std::floor(place.left() * ratio);
    const double count = std::ceil(place.right() * ratio) - left;
    if (!m_peaks || !(count > 0.0) || count > 1e5) {
        return;
    }
    const double step = 1.0 / (world.m11() * ratio); // frames a device pixel
    m_columns.resize(static_cast<std::size_t>(count));
    const double firstFrame = world.inverted().map(QPointF(left / ratio, 0.0)).x();
    ui::soundColumns(*m_peaks, m_placement, firstFrame, step, m_columns);
    const double middle = place.center().y();
    const double reach = place.height() / 2.0 - kWaveInset;
    m_lines.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const double x = (left + static_cast<double>(i) + 0.5) / ratio;
        const double high = std::max(static_cast<double>(m_columns[i].high) * reach, kLeastWave);
        const double low = std::min(static_cast<double>(m_columns[i].low) * reach, -kLeastWave);
        m_lines.emplace_back(x, middle - high, x, middle - low);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(getColor(), 1.0 / ratio);
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
}
