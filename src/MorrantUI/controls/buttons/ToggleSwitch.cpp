// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/ToggleSwitch.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/buttons/switchgeometry.h>

#include <QKeyEvent>
#include <QPropertyAnimation>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kOffEdge = 0.3; ///< of the text colour's strength, around the track
constexpr double kHoverEdge = 0.55;

/// A switch's track is a little higher than a check mark's box.
int trackHeight(const QWidget& widget)
{
    return ui::indicatorHeight(widget) + 2;
}

QColor between(const QColor& off, const QColor& on, double position)
{
    const auto mix = [position](int from, int to) {
        return from + static_cast<int>(std::lround(position * (to - from)));
    };
    return {
        mix(off.red(), on.red()),
        mix(off.green(), on.green()),
        mix(off.blue(), on.blue()),
        mix(off.alpha(), on.alpha())};
}

} // namespace

ToggleSwitch::ToggleSwitch(QWidget* parent)
    : ToggleSwitch(QString(), parent)
{}

ToggleSwitch::ToggleSwitch(const QString& text, QWidget* parent)
    : QAbstractButton(parent)
    , m_glide(new QPropertyAnimation(this, "knobPosition", this))
{
    ui::installAccessible<ToggleSwitch, ui::AccessibleButtonAs<QAccessible::CheckBox>>();
    ui::keepSpace(*this);
    setAttribute(Qt::WA_Hover);
    setCheckable(true);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setText(text);
    m_glide->setEasingCurve(QEasingCurve::OutCubic);
}

ToggleSwitch::~ToggleSwitch() = default;

void ToggleSwitch::setKnobPosition(double position)
{
    if (position != m_knobPosition) {
        m_knobPosition = position;
        update();
    }
}

/// Not from toggled(), which the host may have blocked.
void ToggleSwitch::checkStateSet()
{
    moveKnob();
}

void ToggleSwitch::nextCheckState()
{
    QAbstractButton::nextCheckState();
    moveKnob();
}

void ToggleSwitch::moveKnob()
{
    const double target = isChecked() ? 1.0 : 0.0;
    const bool isUnderWay = m_glide->state() == QAbstractAnimation::Running;
    if (isUnderWay && m_glide->endValue().toDouble() == target) {
        return;
    }
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    m_glide->stop();
    if (duration <= 0 || !isVisible()) {
        setKnobPosition(target);
        return;
    }
    m_glide->setDuration(duration);
    m_glide->setStartValue(m_knobPosition);
    m_glide->setEndValue(target);
    m_glide->start();
}

void ToggleSwitch::hideEvent(QHideEvent* event)
{
    m_glide->stop();
    setKnobPosition(isChecked() ? 1.0 : 0.0);
    QAbstractButton::hideEvent(event);
}

QSize ToggleSwitch::sizeHint() const
{
    const int track = static_cast<int>(ui::switchTrackWidth(trackHeight(*this)));
    const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
    const int beside = text().isEmpty() ? 0 : ui::kSwitchTextGap + label.width();
    return {track + beside, std::max(label.height(), ui::rowHeight(*this))};
}

QSize ToggleSwitch::minimumSizeHint() const
{
    return sizeHint();
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    const QStyleOption option = ui::buttonOption(*this);
    const ui::style::WidgetState state = ui::style::stateOf(option);
    const ui::SwitchParts parts =
        ui::switchParts(rect(), trackHeight(*this), m_knobPosition, layoutDirection());
    const QPalette& colors = option.palette;
    QStylePainter painter(this);

    const QColor ground = between(
        ui::style::groundOf(option, QPalette::Base, this),
        colors.color(QPalette::Highlight),
        m_knobPosition);
    const double radius = parts.track.height() / 2;
    ui::style::fillRounded(painter, parts.track, radius, ui::style::shade(ground, state));
    const double edge = (state.hovered ? kHoverEdge : kOffEdge) * (1.0 - m_knobPosition);
    const QColor line = ui::style::translucent(colors.color(QPalette::Text), edge);
    ui::style::strokeRounded(painter, parts.track, radius, ui::style::ink(line, state));

    const QColor knob = between(
        colors.color(QPalette::Light), colors.color(QPalette::HighlightedText), m_knobPosition);
    // Not faded itself: the track would shine through.
    painter.setOpacity(state.enabled ? 1.0 : ui::style::kDisabledOpacity);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(knob);
    painter.drawEllipse(parts.knob);
    painter.setOpacity(1.0);

    QStyleOptionButton label;
    label.initFrom(this);
    label.text = text();
    label.rect = parts.text.toRect();
    painter.drawControl(QStyle::CE_CheckBoxLabel, label);
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, parts.track, radius);
    }
}

void ToggleSwitch::keyPressEvent(QKeyEvent* event)
{
    if (!ui::switchOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}
