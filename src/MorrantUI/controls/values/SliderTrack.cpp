// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/SliderTrack.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/padpaint.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/valueformat.h>
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kGroove = 4.0;  ///< thickness, as of the style's sliders
constexpr int kPageSteps = 10;   ///< of Page Up and Page Down
constexpr int kLeastHandles = 4; ///< the shortest slider, in handles
constexpr int kUsualHandles = 8; ///< the wanted length, in handles

class AccessibleTrack : public ui::AccessibleNumberControl
{
public:
    explicit AccessibleTrack(SliderTrack* track)
        : AccessibleNumberControl(
            track,
            QAccessible::Slider,
            {.value = [track] { return track->value(); },
             .setValue = [track](double value) { track->enterValue(value); },
             .minimum = [track] { return track->setup().minimum; },
             .maximum = [track] { return track->setup().maximum; },
             .step = [track] { return track->setup().step; }})
    {}
};

} // namespace

SliderTrack::SliderTrack(QWidget* parent)
    : ValueControl(parent)
{
    ui::installAccessible<SliderTrack, AccessibleTrack>();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SliderTrack::setUp(const ui::SliderSetup& setup)
{
    if (setup != m_setup) {
        m_setup = setup;
        update();
        assign(current());
    }
}

void SliderTrack::enterValue(double value)
{
    endDrag();
    commitValue({ui::roundedTo(value, m_setup.decimals), 0.0});
}

QSize SliderTrack::sizeHint() const
{
    return {kUsualHandles * handleSize(), std::max(handleSize(), ui::rowHeight(*this))};
}

QSize SliderTrack::minimumSizeHint() const
{
    return {kLeastHandles * handleSize(), handleSize()};
}

ValueControl::Value SliderTrack::limited(const Value& value) const
{
    return {std::clamp(value.x, m_setup.minimum, m_setup.maximum), 0.0};
}

void SliderTrack::pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    m_pointer = point.x();
    m_handle = scale().xOf(value());
    if (std::abs(m_pointer - m_handle) > handleSize() / 2.0) {
        m_handle = m_pointer;
        dragHandle(m_setup.step * ui::fineFactor(modifiers));
    }
}

void SliderTrack::dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    const double moved = point.x() - m_pointer;
    if (moved == 0.0) {
        return; // a modifier alone changes nothing
    }
    m_handle += moved * ui::modifierFactor(modifiers);
    m_pointer = point.x();
    dragHandle(m_setup.step * ui::fineFactor(modifiers)); // so are the values it can have
}

/// A value from beyond the soft range stays while the handle is held at that end.
void SliderTrack::dragHandle(double step)
{
    const double reached = scale().valueAt(m_handle);
    const bool keepsBeyond = (reached == m_setup.softMaximum && value() > reached)
                             || (reached == m_setup.softMinimum && value() < reached);
    if (!keepsBeyond) {
        dragValue(
            {ui::steppedValue(
                 reached, m_setup.softMinimum, m_setup.softMaximum, step, m_setup.decimals),
             0.0});
    }
}

std::optional<ValueControl::Value> SliderTrack::keyTarget(
    int key, Qt::KeyboardModifiers modifiers) const
{
    const double step = ui::keyStep(m_setup.step, ui::modifierFactor(modifiers), m_setup.decimals);
    const double page = ui::keyStep(m_setup.step, kPageSteps, m_setup.decimals);
    const double forward = isRightToLeft() ? -step : step;
    const auto moved = [&](double way) {
        // Not past an end of the soft range, but from beyond it further on.
        const double wanted = ui::roundedTo(value() + way, m_setup.decimals);
        const double least = std::min(m_setup.softMinimum, value());
        const double greatest = std::max(m_setup.softMaximum, value());
        return Value{std::clamp(wanted, least, greatest), 0.0};
    };
    switch (key) {
    case Qt::Key_Right: return moved(forward);
    case Qt::Key_Left: return moved(-forward);
    case Qt::Key_Up: return moved(step);
    case Qt::Key_Down: return moved(-step);
    case Qt::Key_PageUp: return moved(page);
    case Qt::Key_PageDown: return moved(-page);
    case Qt::Key_Home: return Value{m_setup.softMinimum, 0.0};
    case Qt::Key_End: return Value{m_setup.softMaximum, 0.0};
    default: return std::nullopt;
    }
}

void SliderTrack::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ui::style::WidgetState state = ui::style::stateOf(*this, isDragging());
    const ui::SliderScale range = scale();
    const double handle = handleSize();
    QRectF groove(0, 0, width(), kGroove);
    groove.moveCenter(QRectF(rect()).center());
    const QRectF filled = ui::filledGroove(range, groove, value());

    ui::style::fillRounded(
        painter,
        groove,
        kGroove / 2,
        ui::style::ink(ui::colorQt(QStringLiteral("Midlight")), state));
    ui::style::fillRounded(
        painter,
        filled,
        kGroove / 2,
        ui::style::ink(ui::colorQt(QStringLiteral("Highlight")), state));
    ui::pads::drawKnob(
        painter,
        {range.xOf(value()), groove.center().y()},
        handle,
        palette().color(QPalette::Window),
        state);
}

int SliderTrack::handleSize() const
{
    return style()->pixelMetric(QStyle::PM_SliderLength, nullptr, this);
}

ui::SliderScale SliderTrack::scale() const
{
    const double half = handleSize() / 2.0;
    return {
        .left = half,
        .right = std::max(half, width() - half),
        .minimum = m_setup.softMinimum,
        .maximum = m_setup.softMaximum,
        .direction = layoutDirection()};
}
