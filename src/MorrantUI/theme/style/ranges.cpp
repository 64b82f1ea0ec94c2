// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ui::style {

namespace {

constexpr double kGroove = 4.0;         ///< thickness of a slider's groove
constexpr double kHandleMargin = 2.0;   ///< beside a scroll bar's handle
constexpr int kTickSpace = 5;           ///< beside a slider's groove, as QSlider reserves it
constexpr double kStripeSpacing = 12.0; ///< of a progress bar without an end
constexpr double kDialSweep = 300.0;    ///< degrees from the least to the greatest value

/// Where the handle of a scroll bar starts and how long it is, along the bar.
struct HandleSpan
{
    int start = 0;
    int length = 0;
};

HandleSpan handleSpan(const QStyleOptionSlider& slider, int groove, int shortest)
{
    if (slider.maximum <= slider.minimum) {
        return {0, groove};
    }
    const qint64 range = qint64(slider.maximum) - slider.minimum;
    const qint64 page = std::max(slider.pageStep, 1);
    const int ideal = static_cast<int>(page * groove / (range + page));
    const int length = std::clamp(ideal, std::min(shortest, groove), groove);
    const int start = QStyle::sliderPositionFromValue(
        slider.minimum, slider.maximum, slider.sliderPosition, groove - length, slider.upsideDown);
    return {start, length};
}

QRectF grooveOf(const QStyleOptionSlider& slider, const QRectF& area)
{
    QRectF groove = area;
    if (slider.orientation == Qt::Horizontal) {
        groove.setHeight(kGroove);
    } else {
        groove.setWidth(kGroove);
    }
    groove.moveCenter(area.center());
    return groove;
}

/// The part of the groove between the least value and the handle.
QRectF filledPart(const QStyleOptionSlider& slider, QRectF groove, const QRectF& handle)
{
    const QPointF middle = handle.center();
    if (slider.orientation == Qt::Horizontal) {
        slider.upsideDown ? groove.setLeft(middle.x()) : groove.setRight(middle.x());
    } else {
        slider.upsideDown ? groove.setTop(middle.y()) : groove.setBottom(middle.y());
    }
    return groove;
}

void drawTicks(const QStyleOptionSlider& slider, QPainter& painter, const Context& context)
{
    const int length = context.style.pixelMetric(QStyle::PM_SliderLength, &slider, context.widget);
    const bool horizontal = slider.orientation == Qt::Horizontal;
    const int span = (horizontal ? slider.rect.width() : slider.rect.height()) - length;
    const int wanted = slider.tickInterval > 0 ? slider.tickInterval : slider.pageStep;
    // Marks nearer than four pixels would run into a bar.
    const qint64 range = qint64(slider.maximum) - slider.minimum;
    const qint64 least = range * 4 / std::max(span, 1);
    const qint64 step = std::max({qint64(wanted), least, qint64(1)});
    const QColor color = edge(slider);
    for (qint64 value = slider.minimum; value <= slider.maximum; value += step) {
        const int at =
            length / 2
            + QStyle::sliderPositionFromValue(
                slider.minimum, slider.maximum, static_cast<int>(value), span, slider.upsideDown);
        const auto mark = [&](int offset) {
            const QPoint corner = slider.rect.topLeft();
            fillSharp(
                painter,
                horizontal ? QRectF(corner.x() + at, corner.y() + offset, 1, 3)
                           : QRectF(corner.x() + offset, corner.y() + at, 3, 1),
                color);
        };
        if (slider.tickPosition & QSlider::TicksAbove) {
            mark(0);
        }
        if (slider.tickPosition & QSlider::TicksBelow) {
            mark((horizontal ? slider.rect.height() : slider.rect.width()) - 3);
        }
    }
}

void drawSliderHandle(const QStyleOptionSlider& slider, QPainter& painter, const QRectF& handle)
{
    const WidgetState state = stateOf(slider);
    const double side = std::min(handle.width(), handle.height());
    const QRectF knob = centeredSquare(handle, side);
    const QColor ground = slider.palette.color(QPalette::Window);
    // A gap of the ground's colour sets the knob off from the groove.
    fillRounded(painter, knob, side / 2, ground);
    const QRectF disc = knob.adjusted(1, 1, -1, -1);
    const QColor fill = slider.palette.color(QPalette::Light);
    fillRounded(painter, disc, side / 2, shade(fill, state));
    if (state.keyboard) {
        drawFocusRing(painter, knob, side / 2);
    }
}

double progressOf(const QStyleOptionProgressBar& bar)
{
    const double range = double(bar.maximum) - bar.minimum;
    return range > 0 ? std::clamp((double(bar.progress) - bar.minimum) / range, 0.0, 1.0) : 1.0;
}

bool hasNoEnd(const QStyleOptionProgressBar& bar)
{
    return bar.minimum == 0 && bar.maximum == 0;
}

QRectF progressChunk(const QStyleOptionProgressBar& bar)
{
    const QRectF all = bar.rect;
    QRectF chunk = all;
    const bool horizontal = bar.state.testFlag(QStyle::State_Horizontal);
    const bool leftToRight = (bar.direction == Qt::LeftToRight) != bar.invertedAppearance;
    if (horizontal) {
        chunk.setWidth(all.width() * progressOf(bar));
        if (!leftToRight) {
            chunk.moveRight(all.right());
        }
        return chunk;
    }
    chunk.setHeight(all.height() * progressOf(bar));
    if (!bar.invertedAppearance) {
        chunk.moveBottom(all.bottom());
    }
    return chunk;
}

void drawStripes(QPainter& painter, const QRectF& rect, const QColor& color)
{
    painter.setPen(QPen(color, kStripeSpacing / 2));
    for (double x = rect.left() - rect.height(); x < rect.right() + rect.height();
         x += kStripeSpacing) {
        painter.drawLine(QPointF(x, rect.bottom()), QPointF(x + rect.height(), rect.top()));
    }
}

} // namespace

void drawScrollBar(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider) {
        return;
    }
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    if (slider->maximum <= slider->minimum) {
        return;
    }
    const QRectF handle = context.style.subControlRect(
        QStyle::CC_ScrollBar, slider, QStyle::SC_ScrollBarSlider, context.widget);
    const QRectF pill =
        handle.adjusted(kHandleMargin, kHandleMargin, -kHandleMargin, -kHandleMargin);
    const bool active = slider->activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const WidgetState state = stateOf(option);
    const double strength = active && state.pressed ? 0.5 : (active && state.hovered ? 0.36 : 0.22);
    const QColor fill = translucent(option.palette.color(QPalette::Text), strength);
    fillRounded(painter, pill, std::min(pill.width(), pill.height()) / 2, ink(fill, state));
}

void drawSlider(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider) {
        return;
    }
    const QRectF area = context.style.subControlRect(
        QStyle::CC_Slider, slider, QStyle::SC_SliderGroove, context.widget);
    const QRectF handle = context.style.subControlRect(
        QStyle::CC_Slider, slider, QStyle::SC_SliderHandle, context.widget);
    const QRectF groove = grooveOf(*slider, area);
    const WidgetState state = stateOf(option);
    if (slider->subControls.testFlag(QStyle::SC_SliderTickmarks)) {
        drawTicks(*slider, painter, context);
    }
    if (slider->subControls.testFlag(QStyle::SC_SliderGroove)) {
        fillRounded(
            painter, groove, kGroove / 2, ink(option.palette.color(QPalette::Midlight), state));
        fillRounded(
            painter,
            filledPart(*slider, groove, handle),
            kGroove / 2,
            ink(option.palette.color(QPalette::Highlight), state));
    }
    if (slider->subControls.testFlag(QStyle::SC_SliderHandle)) {
        drawSliderHandle(*slider, painter, handle);
    }
}

void drawDial(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* dial = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!dial) {
        return;
    }
    const WidgetState state = stateOf(option);
    const QRectF face = centeredSquare(option.rect, option.rect.width()).adjusted(3, 3, -3, -3);
    const double range = std::max(1.0, double(dial->maximum) - dial->minimum);
    const double share = (double(dial->sliderPosition) - dial->minimum) / range;
    const double turned = kDialSweep * (dial->upsideDown ? share : 1.0 - share);
    const double first = 270.0 - (360.0 - kDialSweep) / 2; // degrees, counter-clockwise from east
    const auto arc = [&](double degrees, const QColor& color) {
        painter.setPen(QPen(ink(color, state), 3.0, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(face, qRound(first * 16), qRound(-degrees * 16));
    };
    const QRectF knob = face.adjusted(5, 5, -5, -5);
    fillRounded(
        painter,
        knob,
        knob.width() / 2,
        shade(groundOf(option, QPalette::Button, context.widget), state));
    const PainterState saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    arc(kDialSweep, option.palette.color(QPalette::Midlight));
    arc(turned, option.palette.color(QPalette::Highlight));
    const double angle = (first - turned) * std::numbers::pi / 180.0;
    const QPointF towards(std::cos(angle), -std::sin(angle));
    const double radius = knob.width() / 2;
    painter.setPen(
        QPen(ink(option.palette.color(QPalette::Light), state), 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(
        knob.center() + towards * radius * 0.45, knob.center() + towards * (radius - 2));
    if (state.keyboard) {
        drawFocusRing(painter, knob, radius);
    }
}

void drawProgressGroove(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const QColor ground = groundOf(option, QPalette::Base, context.widget);
    fillRounded(painter, option.rect, kRadius, ground);
    strokeRounded(painter, option.rect, kRadius, edge(option));
}

void drawProgressContents(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(&option);
    if (!bar) {
        return;
    }
    const QColor fill = ink(option.palette.color(QPalette::Highlight), stateOf(option));
    const QRectF chunk = progressChunk(*bar);
    const PainterState saved(painter);
    QPainterPath clip;
    clip.addRoundedRect(option.rect, kRadius, kRadius);
    painter.setClipPath(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasNoEnd(*bar)) {
        drawStripes(painter, option.rect, fill);
    } else if (!chunk.isEmpty()) {
        fillRounded(painter, chunk, kRadius, fill);
    }
}

void drawProgressLabel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(&option);
    if (!bar || !bar->textVisible || hasNoEnd(*bar)) {
        return;
    }
    const QRectF chunk = progressChunk(*bar);
    const auto write = [&](const QRegion& where, QPalette::ColorRole role) {
        const PainterState saved(painter);
        painter.setClipRegion(where, Qt::IntersectClip);
        context.style.drawItemText(
            &painter,
            option.rect,
            Qt::AlignCenter,
            option.palette,
            stateOf(option).enabled,
            bar->text,
            role);
    };
    const QRegion covered(chunk.toRect());
    write(covered, QPalette::HighlightedText);
    write(QRegion(option.rect) - covered, QPalette::Text);
}

QRect sliderPart(const QStyleOption& option, QStyle::SubControl part, const Context& context)
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider) {
        return {};
    }
    const bool horizontal = slider->orientation == Qt::Horizontal;
    const int knob = context.style.pixelMetric(QStyle::PM_SliderLength, slider, context.widget);
    const int before = slider->tickPosition & QSlider::TicksAbove ? kTickSpace : 0;
    const int after = slider->tickPosition & QSlider::TicksBelow ? kTickSpace : 0;
    const QRect groove = horizontal ? option.rect.adjusted(0, before, 0, -after)
                                    : option.rect.adjusted(before, 0, -after, 0);
    const int length = horizontal ? groove.width() : groove.height();
    const int at = QStyle::sliderPositionFromValue(
        slider->minimum,
        slider->maximum,
        slider->sliderPosition,
        length - knob,
        slider->upsideDown);
    switch (part) {
    case QStyle::SC_SliderGroove: return groove;
    case QStyle::SC_SliderHandle:
        return horizontal ? QRect(groove.x() + at, groove.y(), knob, groove.height())
                          : QRect(groove.x(), groove.y() + at, groove.width(), knob);
    default: return option.rect;
    }
}

QRect scrollBarPart(const QStyleOption& option, QStyle::SubControl part, const Context& context)
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider) {
        return {};
    }
    const bool horizontal = slider->orientation == Qt::Horizontal;
    const QRect all = option.rect;
    const int groove = horizontal ? all.width() : all.height();
    const int shortest =
        context.style.pixelMetric(QStyle::PM_ScrollBarSliderMin, &option, context.widget);
    const HandleSpan handle = handleSpan(*slider, groove, shortest);
    const auto along = [&](int start, int length) {
        const QRect span = horizontal ? QRect(all.x() + start, all.y(), length, all.height())
                                      : QRect(all.x(), all.y() + start, all.width(), length);
        return QStyle::visualRect(option.direction, all, span);
    };
    const int end = handle.start + handle.length;
    switch (part) {
    case QStyle::SC_ScrollBarGroove: return all;
    case QStyle::SC_ScrollBarSlider: return along(handle.start, handle.length);
    case QStyle::SC_ScrollBarSubPage: return along(0, handle.start);
    case QStyle::SC_ScrollBarAddPage: return along(end, groove - end);
    default: return {}; // there are no arrow buttons
    }
}

} // namespace ui::style
