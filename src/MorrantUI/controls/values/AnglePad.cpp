// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/AnglePad.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/padpaint.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/valueformat.h>
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QPen>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUsualSize = 4.5;    ///< side in font sizes
constexpr double kQuarterTurn = 90.0; ///< degrees
constexpr double kKeyStep = 1.0;      ///< degrees
constexpr double kResolution = 0.1;   ///< degrees that dragged angles are rounded to
constexpr double kFineResolution = 0.01;

constexpr double kRingShare = 0.14;    ///< thickness of the ring, of the radius
constexpr double kRingGap = 2.0;       ///< from the ring to the face, logical pixels
constexpr double kFocusRoom = 3.0;     ///< for the focus ring around the dial
constexpr double kNeedleFrom = 0.3;    ///< of the face's radius
constexpr double kShortNeedle = 0.64;  ///< the same, beside a number
constexpr double kNeedleTo = 0.9;      ///< of the face's radius
constexpr double kTextFace = 11.0;     ///< radius of the least face with room for a number
constexpr double kTextGap = 5.0;       ///< between the number and needles on both sides
constexpr double kTextShare = 0.8;     ///< of the font size
constexpr double kTurnStrength = 0.45; ///< of the ring's fill once a turn is complete
constexpr int kArcUnit = 16;           ///< of QPainter's arcs, in a degree

class AccessibleAnglePad : public ui::AccessibleNumberControl
{
public:
    explicit AccessibleAnglePad(AnglePad* pad)
        : AccessibleNumberControl(
            pad,
            QAccessible::Dial,
            {.value = [pad] { return pad->value(); },
             .setValue = [pad](double degrees) { pad->enterValue(degrees); },
             .minimum = [pad] { return pad->minimum(); },
             .maximum = [pad] { return pad->maximum(); },
             .step = [] { return kKeyStep; }})
        , m_pad(pad)
    {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? ui::angleText(m_pad->value())
                                          : AccessibleNumberControl::text(kind);
    }

private:
    AnglePad* m_pad;
};

/// The circles of a dial, around one centre.
struct Dial
{
    QPointF center;
    double ring = 0.0; ///< radius of the middle of the ring's thickness
    double ringWidth = 0.0;
    double face = 0.0; ///< radius
};

Dial dialIn(const QRectF& rect)
{
    const double radius = std::max(1.0, std::min(rect.width(), rect.height()) / 2 - kFocusRoom);
    const double ringWidth = std::max(2.0, radius * kRingShare);
    const double face = std::max(1.0, radius - ringWidth - kRingGap);
    return {rect.center(), radius - ringWidth / 2, ringWidth, face};
}

QRectF circle(const QPointF& center, double radius)
{
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

/// An arc of the ring from the top, clockwise for positive degrees.
void drawArc(QPainter& painter, const Dial& dial, double degrees, const QColor& color)
{
    if (degrees == 0.0) {
        return;
    }
    const ui::style::PainterState saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool whole = std::abs(degrees) >= 360.0;
    painter.setPen(QPen(color, dial.ringWidth, Qt::SolidLine, whole ? Qt::FlatCap : Qt::RoundCap));
    painter.drawArc(
        circle(dial.center, dial.ring),
        qRound(kQuarterTurn * kArcUnit),
        qRound(-degrees * kArcUnit));
}

/// The ring with the angle beyond whole turns, brighter below it when there are any.
void drawRing(
    QPainter& painter,
    const Dial& dial,
    const ui::Turns& turns,
    const ui::style::WidgetState& state)
{
    const QColor fill = ui::style::ink(ui::colorQt(QStringLiteral("Highlight")), state);
    drawArc(painter, dial, 360.0, ui::style::ink(ui::colorQt(QStringLiteral("Midlight")), state));
    if (turns.whole != 0) {
        drawArc(painter, dial, 360.0, ui::style::translucent(fill, kTurnStrength));
    }
    drawArc(painter, dial, turns.rest, fill);
}

/// Small dials only show that there are whole turns, by their ring.
bool showsNumber(const Dial& dial, const ui::Turns& turns)
{
    return turns.whole != 0 && dial.face >= kTextFace;
}

void drawNeedle(
    QPainter& painter,
    const Dial& dial,
    const ui::Turns& turns,
    const ui::style::WidgetState& state)
{
    const double longest = dial.face < kTextFace ? 0.0 : kNeedleFrom;
    const double from = showsNumber(dial, turns) ? kShortNeedle : longest;
    const double radians = qDegreesToRadians(turns.rest);
    const QPointF towards(std::sin(radians), -std::cos(radians));
    const ui::style::PainterState saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(
        ui::style::ink(ui::colorQt(QStringLiteral("Light")), state),
        2.0,
        Qt::SolidLine,
        Qt::RoundCap));
    painter.drawLine(
        dial.center + towards * dial.face * from, dial.center + towards * dial.face * kNeedleTo);
}

/// The number of whole turns in the middle of the face.
void drawTurns(
    QPainter& painter,
    const Dial& dial,
    const ui::Turns& turns,
    const ui::style::WidgetState& state)
{
    if (!showsNumber(dial, turns)) {
        return;
    }
    const ui::style::PainterState saved(painter);
    const QString text = AnglePad::tr("%1×", "whole turns").arg(turns.whole);
    QFont font = painter.font();
    font.setPixelSize(std::max(1, qRound(QFontInfo(font).pixelSize() * kTextShare)));
    const double room = 2 * dial.face * kShortNeedle - kTextGap;
    const double wanted = QFontMetricsF(font).horizontalAdvance(text);
    if (wanted > room) {
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * room / wanted)));
    }
    painter.setFont(font);
    painter.setPen(ui::style::ink(ui::colorQt(QStringLiteral("Text")), state));
    painter.drawText(circle(dial.center, dial.face), Qt::AlignCenter | Qt::TextDontClip, text);
}

} // namespace

AnglePad::AnglePad(QWidget* parent)
    : ValueControl(parent)
{
    ui::installAccessible<AnglePad, AccessibleAnglePad>();
    connect(this, &ValueControl::valueChanged, this, [this](bool committed) {
        Q_EMIT edited(value(), committed);
    });
}

AnglePad::~AnglePad() = default;

void AnglePad::setValue(double degrees)
{
    assign({degrees, 0.0});
}

void AnglePad::setRange(double minimum, double maximum)
{
    if (!ui::isRange(minimum, maximum)) {
        return;
    }
    m_minimum = std::clamp(minimum, -ui::kDialLimit, ui::kDialLimit);
    m_maximum = std::clamp(maximum, -ui::kDialLimit, ui::kDialLimit);
    setValue(value());
}

void AnglePad::setMinimum(double minimum)
{
    setRange(minimum, std::max(minimum, m_maximum));
}

void AnglePad::setMaximum(double maximum)
{
    setRange(std::min(maximum, m_minimum), maximum);
}

void AnglePad::setDefaultValue(double degrees)
{
    if (!std::isnan(degrees)) {
        m_default = degrees;
    }
}

void AnglePad::enterValue(double degrees)
{
    endDrag();
    commitValue({degrees, 0.0});
}

QSize AnglePad::sizeHint() const
{
    return ui::pads::squareOf(*this, kUsualSize);
}

QSize AnglePad::minimumSizeHint() const
{
    const int side = ui::rowHeight(*this);
    return {side, side};
}

ValueControl::Value AnglePad::limited(const Value& value) const
{
    return {std::clamp(value.x, m_minimum, m_maximum), 0.0};
}

ValueControl::Value AnglePad::resetValue() const
{
    return {m_default, 0.0};
}

void AnglePad::pressAt(const QPointF& point, Qt::KeyboardModifiers /*modifiers*/)
{
    m_tracker.start(fromCenter(point));
    m_turned = value();
    m_hasTurned = false;
}

void AnglePad::dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    const double turn = m_tracker.advance(fromCenter(point));
    m_hasTurned = m_hasTurned || turn != 0.0;
    if (!m_hasTurned) {
        return;
    }
    const bool fine = modifiers.testFlag(Qt::ControlModifier);
    const bool snaps = modifiers.testFlag(Qt::ShiftModifier);
    m_turned += turn * ui::fineFactor(modifiers);
    const double grid = snaps ? ui::kDialSnap : (fine ? kFineResolution : kResolution);
    dragValue({ui::nearestMultiple(m_turned, grid), 0.0});
}

std::optional<ValueControl::Value> AnglePad::keyTarget(
    int key, Qt::KeyboardModifiers modifiers) const
{
    const auto moved = [this](double degrees) { return Value{value() + degrees, 0.0}; };
    const double fine = ui::fineFactor(modifiers);
    const bool snaps = fine == 1.0 && modifiers.testFlag(Qt::ShiftModifier);
    const auto stepped = [&](double way) { return moved(way * (snaps ? ui::kDialSnap : fine)); };
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Right: return stepped(kKeyStep);
    case Qt::Key_Down:
    case Qt::Key_Left: return stepped(-kKeyStep);
    case Qt::Key_PageUp: return moved(kQuarterTurn);
    case Qt::Key_PageDown: return moved(-kQuarterTurn);
    case Qt::Key_Home: return Value{0.0, 0.0};
    default: return std::nullopt;
    }
}

void AnglePad::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ui::style::WidgetState state = ui::style::stateOf(*this, isDragging());
    const Dial dial = dialIn(rect());
    const ui::Turns turns = ui::turnsOf(value());
    const QRectF face = circle(dial.center, dial.face);

    drawRing(painter, dial, turns, state);
    ui::style::fillRounded(
        painter, face, dial.face, ui::style::shade(ui::colorQt(QStringLiteral("Button")), state));
    drawNeedle(painter, dial, turns, state);
    drawTurns(painter, dial, turns, state);
    if (state.keyboard) {
        const double outer = dial.ring + dial.ringWidth / 2 + kFocusRoom;
        ui::style::drawFocusRing(painter, circle(dial.center, outer), outer);
    }
}

QPointF AnglePad::fromCenter(const QPointF& point) const
{
    return point - dialIn(rect()).center;
}
