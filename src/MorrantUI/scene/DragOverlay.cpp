// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/DragOverlay.h"

#include "MorrantUI/scene/dragreadout.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QWidget>

#include <utility>

namespace {

constexpr double kGuideWidth = 1.0;
constexpr float kGroundAlpha = 0.92F;

QRectF textRect(const DragOverlay::Content& content, const QWidget& viewport)
{
    const QFontMetricsF metrics(viewport.font());
    const QSizeF text(metrics.horizontalAdvance(content.text), metrics.height());
    return ui::readoutRect(text, content.pointer, viewport.size());
}

QRectF guideRect(double x, const QWidget& viewport)
{
    return {x - kGuideWidth / 2.0, 0.0, kGuideWidth, static_cast<double>(viewport.height())};
}

} // namespace

void DragOverlay::show(QWidget& viewport, std::optional<Content> content)
{
    if (content != m_content) {
        update(viewport);
        m_content = std::move(content);
        update(viewport);
    }
}

void DragOverlay::update(QWidget& viewport) const
{
    if (!m_content) {
        return;
    }
    constexpr int kAround = 1;
    const auto dirty = [&viewport](const QRectF& rect) {
        viewport.update(rect.toAlignedRect().adjusted(-kAround, -kAround, kAround, kAround));
    };
    dirty(textRect(*m_content, viewport));
    if (m_content->guide) {
        dirty(guideRect(*m_content->guide, viewport));
    }
}

void DragOverlay::paint(QPainter& painter, const QWidget& viewport) const
{
    if (!m_content) {
        return;
    }
    if (m_content->guide) {
        ui::fillSharp(
            painter,
            guideRect(*m_content->guide, viewport),
            ui::colorQt(QStringLiteral("Accent4")));
    }
    const QRectF rect = textRect(*m_content, viewport);
    QColor ground = viewport.palette().color(QPalette::ToolTipBase);
    ground.setAlphaF(kGroundAlpha);
    ui::fillRounded(painter, rect, ui::kCornerRadius, ground);
    ui::strokeRounded(
        painter, rect, ui::kCornerRadius, viewport.palette().color(QPalette::Midlight));
    painter.setPen(viewport.palette().color(QPalette::ToolTipText));
    painter.drawText(rect, Qt::AlignCenter, m_content->text);
}
