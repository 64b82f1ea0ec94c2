// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/JoystickPad.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/values/AccessibleJoystickPad.h"
#include "MorrantUI/controls/values/padpaint.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/valueformat.h>
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUsualSize = 9.0;     ///< side in font sizes
constexpr double kLeastSize = 4.0;     ///< side in font sizes
constexpr double kRim = 3.0;           ///< from the edge to the handle at its furthest
constexpr double kGridStrength = 0.45; ///< of the quarter lines, of the centre lines
constexpr double kCrossStrength = 0.6; ///< of the lines through the handle
constexpr double kHoverEdge = 0.35;    ///< of the text colour, in the edge under the pointer
constexpr int kQuarters = 4;

bool isNumber(const num2<double>& value)
{
    return !std::isnan(value.x) && !std::isnan(value.y);
}

/// A pad has no use for an axis without a length.
bool spans(double minimum, double maximum)
{
    return ui::isRange(minimum, maximum) && minimum != maximum;
}

/// The ring of the focus is around the pad, not around its handle.
ui::style::WidgetState handleState(ui::style::WidgetState state)
{
    state.keyboard = false;
    return state;
}

/// A hairline across the whole of `rect`, with `at` in its middle.
void drawAcross(
    QPainter& painter,
    const QRectF& rect,
    Qt::Orientation orientation,
    double at,
    const QColor& color)
{
    const double line = ui::style::PixelGrid(painter).line();
    ui::style::fillSharp(
        painter,
        orientation == Qt::Horizontal ? QRectF(rect.left(), at - line / 2, rect.width(), line)
                                      : QRectF(at - line / 2, rect.top(), line, rect.height()),
        color);
}

} // namespace

JoystickPad::JoystickPad(QWidget* parent)
    : ValueControl(parent)
    , m_glide(new QVariantAnimation(this))
{
    ui::installAccessible<JoystickPad, ui::AccessibleJoystickPad>();
    connect(this, &ValueControl::valueChanged, this, [this](bool committed) {
        Q_EMIT edited(point(), committed);
    });
    m_glide->setEasingCurve(QEasingCurve::OutCubic);
    m_glide->setEndValue(QPointF());
    connect(m_glide, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

JoystickPad::~JoystickPad() = default;

void JoystickPad::setValue(const num2<double>& value)
{
    assign(value);
}

void JoystickPad::setRange(const num2<double>& minimum, const num2<double>& maximum)
{
    if (!spans(minimum.x, maximum.x) || !spans(minimum.y, maximum.y)) {
        return;
    }
    m_minimum = minimum;
    m_maximum = maximum;
    update();
    assign(value());
}

void JoystickPad::setRange(const QRectF& range)
{
    setRange({range.left(), range.top()}, {range.right(), range.bottom()});
}

QRectF JoystickPad::range() const
{
    return {QPointF(m_minimum.x, m_minimum.y), QPointF(m_maximum.x, m_maximum.y)};
}

void JoystickPad::setStep(double step)
{
    if (std::isfinite(step) && step > 0.0) {
        m_step = step;
    }
}

void JoystickPad::setDefaultValue(const num2<double>& value)
{
    if (isNumber(value)) {
        m_default = value;
        update();
    }
}

void JoystickPad::setSpringBack(bool springBack)
{
    endDrag(); // by the rule that it began with
    m_springBack = springBack;
}

void JoystickPad::setYDownwards(bool downwards)
{
    m_yDownwards = downwards;
    update();
}

void JoystickPad::enterValue(const num2<double>& value)
{
    endDrag();
    commitValue(value);
}

QSize JoystickPad::sizeHint() const
{
    return ui::pads::squareOf(*this, kUsualSize);
}

QSize JoystickPad::minimumSizeHint() const
{
    return ui::pads::squareOf(*this, kLeastSize);
}

ValueControl::Value JoystickPad::limited(const Value& value) const
{
    return {
        std::clamp(value.x, m_minimum.x, m_maximum.x),
        std::clamp(value.y, m_minimum.y, m_maximum.y)};
}

ValueControl::Value JoystickPad::resetValue() const
{
    return m_default;
}

void JoystickPad::pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    m_glide->stop();
    m_start = value();
    m_origin = area().pointOf(m_start);
    m_handle = m_origin;
    m_placed = m_origin;
    m_pointer = point;
    const QPointF away = point - m_origin;
    if (std::hypot(away.x(), away.y()) > handleSize() / 2.0) {
        m_handle = point;
        moveHandle(modifiers);
    }
}

void JoystickPad::dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    m_handle += (point - m_pointer) * ui::fineFactor(modifiers);
    m_pointer = point;
    moveHandle(modifiers);
}

void JoystickPad::moveHandle(Qt::KeyboardModifiers modifiers)
{
    const QPointF movement = m_handle - m_origin;
    const bool isLocked = modifiers.testFlag(Qt::ShiftModifier);
    const QPointF place = m_origin + (isLocked ? ui::alongOneAxis(movement) : movement);
    if (place == m_placed) {
        return;
    }
    m_placed = place;
    num2<double> value = area().valueAt(place);
    // An axis that does not move keeps its number to the last bit.
    value.x = place.x() == m_origin.x() ? m_start.x : value.x;
    value.y = place.y() == m_origin.y() ? m_start.y : value.y;
    dragValue(value);
}

void JoystickPad::letGo()
{
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    const ui::PadArea pad = area();
    if (m_springBack && isVisible() && duration > 0 && value() != defaultValue()) {
        m_glide->setDuration(duration);
        m_glide->setStartValue(pad.pointOf(value()) - pad.pointOf(defaultValue()));
        m_glide->start();
    }
}

std::optional<ValueControl::Value> JoystickPad::keyTarget(
    int key, Qt::KeyboardModifiers modifiers) const
{
    const double step = m_step * ui::modifierFactor(modifiers);
    const double up = m_yDownwards ? -step : step;
    const Value now = value();
    switch (key) {
    case Qt::Key_Right: return now + Value{step, 0.0};
    case Qt::Key_Left: return now - Value{step, 0.0};
    case Qt::Key_Up: return now + Value{0.0, up};
    case Qt::Key_Down: return now - Value{0.0, up};
    case Qt::Key_Home: return Value{m_minimum.x, now.y};
    case Qt::Key_End: return Value{m_maximum.x, now.y};
    case Qt::Key_PageUp: return Value{now.x, m_maximum.y};
    case Qt::Key_PageDown: return Value{now.x, m_minimum.y};
    default: return std::nullopt;
    }
}

void JoystickPad::valueAssigned(const Value& before)
{
    ui::notifyAccessibleAxes(this, before);
}

void JoystickPad::hideEvent(QHideEvent* event)
{
    m_glide->stop();
    ValueControl::hideEvent(event);
}

void JoystickPad::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ui::style::WidgetState state = ui::style::stateOf(*this, isDragging());
    const ui::PadArea pad = area();
    const bool glides = m_glide->state() == QAbstractAnimation::Running;
    const QPointF handle =
        pad.pointOf(value()) + (glides ? m_glide->currentValue().toPointF() : QPointF());

    paintGround(painter, state);
    paintGrid(painter, pad.rect, state);
    paintCross(painter, handle, state);
    ui::pads::drawKnob(
        painter, handle, handleSize(), ui::colorQt(QStringLiteral("Base")), handleState(state));
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, square());
    }
}

void JoystickPad::paintGround(QPainter& painter, const ui::style::WidgetState& state) const
{
    const QColor text = ui::colorQt(QStringLiteral("Text"));
    ui::style::fillRounded(
        painter,
        square(),
        ui::style::kRadius,
        ui::style::ink(ui::colorQt(QStringLiteral("Base")), state));
    const QColor rest = ui::colorQt(QStringLiteral("Midlight"));
    ui::style::strokeRounded(
        painter,
        square(),
        ui::style::kRadius,
        state.hovered ? ui::style::translucent(text, kHoverEdge) : ui::style::ink(rest, state));
}

/// The centre lines, and fainter ones half-way to the edge.
void JoystickPad::paintGrid(
    QPainter& painter, const QRectF& reach, const ui::style::WidgetState& state) const
{
    const QColor line = ui::style::ink(ui::colorQt(QStringLiteral("Midlight")), state);
    const QRectF inside = square().adjusted(1, 1, -1, -1);
    for (int quarter = 1; quarter < kQuarters; ++quarter) {
        const double share = static_cast<double>(quarter) / kQuarters;
        const QColor color =
            quarter == kQuarters / 2 ? line : ui::style::translucent(line, kGridStrength);
        drawAcross(painter, inside, Qt::Horizontal, reach.top() + share * reach.height(), color);
        drawAcross(painter, inside, Qt::Vertical, reach.left() + share * reach.width(), color);
    }
}

void JoystickPad::paintCross(
    QPainter& painter, const QPointF& handle, const ui::style::WidgetState& state) const
{
    const QColor color =
        ui::style::ink(ui::style::translucent(ui::style::accentColor(), kCrossStrength), state);
    const QRectF inside = square().adjusted(1, 1, -1, -1);
    drawAcross(painter, inside, Qt::Horizontal, handle.y(), color);
    drawAcross(painter, inside, Qt::Vertical, handle.x(), color);
}

int JoystickPad::handleSize() const
{
    return style()->pixelMetric(QStyle::PM_SliderLength, nullptr, this);
}

QRectF JoystickPad::square() const
{
    return ui::style::centeredSquare(rect(), width());
}

ui::PadArea JoystickPad::area() const
{
    const double rim = handleSize() / 2.0 + kRim;
    QRectF reach = square().adjusted(rim, rim, -rim, -rim);
    if (!reach.isValid()) {
        reach = QRectF(square().center(), QSizeF(0.0, 0.0));
    }
    return {reach, m_minimum, m_maximum, m_yDownwards};
}
