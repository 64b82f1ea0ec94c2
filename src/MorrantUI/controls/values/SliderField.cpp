// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/SliderField.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/values/PendingValue.h"
#include "MorrantUI/controls/values/SliderTrack.h"
#include "MorrantUI/controls/values/padpaint.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/valueformat.h>

#include <QHBoxLayout>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFieldWidth = 5.5; ///< in font sizes; room for -1234.567

} // namespace

SliderField::SliderField(QWidget* parent)
    : QWidget(parent)
    , m_track(new SliderTrack(this))
    , m_field(new NumericField(0.0, this))
    , m_shown(new PendingValue(m_field))
{
    ui::installAccessible<SliderField, ui::AccessibleGrouping>();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_track, 1);
    row->addWidget(m_field);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusProxy(m_track);

    connect(m_track, &ValueControl::valueChanged, this, &SliderField::takeFromTrack);
    connect(m_track, &ValueControl::dragStateChanged, this, &SliderField::dragStateChanged);
    connect(m_field, &LineEdit::valueChanged, this, &SliderField::takeFromField);
    connect(m_field, &NumericField::dragStateChanged, this, &SliderField::takeDragState);
    connect(this, &SliderField::valueChanged, this, [this](bool committed) {
        Q_EMIT edited(value(), committed);
    });
    sizeField();
    applySetup();
}

SliderField::~SliderField()
{
    // They outlive what is a slider field of this object, and tell of drags that end with them.
    m_track->disconnect(this);
    m_field->disconnect(this);
}

double SliderField::value() const
{
    return m_track->value();
}

void SliderField::setValue(double value)
{
    // A host that hands back what it was told must not disturb the field in the middle of an edit.
    if (!std::isnan(value) && admitted(value) != m_track->value()) {
        showValue(value);
    }
}

void SliderField::setRange(double minimum, double maximum)
{
    if (ui::isRange(minimum, maximum)) {
        m_setup.minimum = m_setup.softMinimum = minimum;
        m_setup.maximum = m_setup.softMaximum = maximum;
        applySetup();
    }
}

void SliderField::setSoftRange(double minimum, double maximum)
{
    if (ui::isRange(minimum, maximum) && minimum <= m_setup.maximum && maximum >= m_setup.minimum) {
        m_setup.softMinimum = std::max(minimum, m_setup.minimum);
        m_setup.softMaximum = std::min(maximum, m_setup.maximum);
        applySetup();
    }
}

void SliderField::setMinimum(double minimum)
{
    setRange(minimum, std::max(minimum, m_setup.maximum));
}

void SliderField::setMaximum(double maximum)
{
    setRange(std::min(maximum, m_setup.minimum), maximum);
}

void SliderField::setSoftMinimum(double minimum)
{
    setSoftRange(minimum, std::max(minimum, m_setup.softMaximum));
}

void SliderField::setSoftMaximum(double maximum)
{
    setSoftRange(std::min(maximum, m_setup.softMinimum), maximum);
}

void SliderField::setStep(double step)
{
    if (std::isfinite(step) && step > 0.0 && step != m_setup.step) {
        m_setup.step = step;
        applySetup();
    }
}

void SliderField::setDecimals(int decimals)
{
    m_setup.decimals = std::clamp(decimals, 0, ui::kMaxSliderDecimals);
    applySetup();
}

void SliderField::setDefaultValue(double value)
{
    if (!std::isnan(value) && value != m_default) {
        m_default = value;
        applySetup();
    }
}

double SliderField::defaultValue() const
{
    return admitted(m_default);
}

bool SliderField::isDragging() const
{
    return m_track->isDragging() || m_fieldDragging;
}

void SliderField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        sizeField();
    }
    QWidget::changeEvent(event);
}

void SliderField::sizeField()
{
    m_field->setFixedWidth(qRound(kFieldWidth * ui::pads::fontSize(*this)));
}

void SliderField::takeFromTrack(bool committed)
{
    m_shown->show(m_track->value());
    if (committed) {
        m_committed = m_track->value();
    }
    if (tellChange()) {
        Q_EMIT valueChanged(committed);
    }
}

/// @return whether this object has outlived it
bool SliderField::tellChange()
{
    const QPointer<SliderField> self(this);
    if (m_told != m_track->value()) {
        m_told = m_track->value();
        Q_EMIT changed();
    }
    return !self.isNull();
}

void SliderField::takeFromField(bool committed)
{
    m_shown->forget(); // the user's number is the later one
    const double entered = admitted(m_field->value());
    // Not after a step by key: the field takes a text that is set for one that is committed.
    if ((committed || m_fieldDragging) && entered != m_field->value()) {
        m_field->setValue(entered);
    }
    const bool isNew = entered != m_track->value();
    m_track->setValue(entered);
    if (!tellChange()) {
        return;
    }
    if (committed) {
        commit();
    } else if (isNew) {
        Q_EMIT valueChanged(false);
    }
}

void SliderField::takeDragState(bool dragging)
{
    if (dragging == m_fieldDragging) {
        return; // the field also reports the end of drags that never began
    }
    m_fieldDragging = dragging;
    const QPointer<SliderField> self(this);
    if (!dragging) {
        commit(); // the field leaves its drags uncommitted
    }
    if (self) {
        Q_EMIT dragStateChanged(dragging);
    }
}

void SliderField::commit()
{
    if (m_track->value() != m_committed) {
        m_committed = m_track->value();
        Q_EMIT valueChanged(true);
    }
}

void SliderField::applySetup()
{
    const bool isInteger = m_setup.decimals == 0;
    m_field->setFieldType(isInteger ? NumericField::Integer : NumericField::FloatingPoint);
    m_field->setMin(m_setup.minimum);
    m_field->setMax(m_setup.maximum);
    m_field->setSoftMin(m_setup.softMinimum);
    m_field->setSoftMax(m_setup.softMaximum);
    m_field->setDragMultiplier(m_setup.step);
    m_setup.resetValue = defaultValue();
    m_track->setUp(m_setup);
    showValue(m_track->value());
}

void SliderField::showValue(double value)
{
    m_track->setValue(admitted(value));
    m_shown->show(m_track->value());
    if (!isDragging()) {
        m_committed = m_track->value();
    }
    tellChange();
}

double SliderField::admitted(double value) const
{
    const double limited = std::clamp(value, m_setup.minimum, m_setup.maximum);
    const double rounded = ui::roundedTo(limited, m_setup.decimals);
    return std::clamp(rounded, m_setup.minimum, m_setup.maximum);
}
