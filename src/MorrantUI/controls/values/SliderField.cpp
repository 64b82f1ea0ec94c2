#include "MorrantUI/controls/values/SliderField.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/values/SliderTrack.h"
#include "MorrantUI/controls/values/padpaint.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/slidermath.h>

#include <QHBoxLayout>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFieldWidth = 5.5; ///< in font sizes; room for -1234.567

/// Whether what stands in the field is on its way to being entered.
bool isTyping(const NumericField& field)
{
    return field.hasFocus() && !field.isReadOnly() && field.isModified();
}

bool isRange(double minimum, double maximum)
{
    return std::isfinite(minimum) && std::isfinite(maximum) && minimum <= maximum;
}

} // namespace

SliderField::SliderField(QWidget* parent)
    : QWidget(parent)
    , m_track(new SliderTrack(this))
    , m_field(new NumericField(0.0, this))
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
    // Queued: the field still has to commit or take back what was typed.
    connect(m_field, &QLineEdit::textChanged, this, &SliderField::catchUp, Qt::QueuedConnection);
    m_field->installEventFilter(this);
    sizeField();
    applySetup();
}

SliderField::~SliderField() = default;

double SliderField::value() const
{
    return m_track->value();
}

void SliderField::setValue(double value)
{
    // A host that hands back what it was told must not disturb the field in the middle of an edit.
    if (!std::isnan(value) && admitted(value) != m_track->value()) {
        show(value);
    }
}

void SliderField::setRange(double minimum, double maximum)
{
    if (!isRange(minimum, maximum)) {
        return;
    }
    m_minimum = minimum;
    m_maximum = maximum;
    m_softMinimum = minimum;
    m_softMaximum = maximum;
    applySetup();
}

void SliderField::setSoftRange(double minimum, double maximum)
{
    if (!isRange(minimum, maximum) || minimum > m_maximum || maximum < m_minimum) {
        return;
    }
    m_softMinimum = std::max(minimum, m_minimum);
    m_softMaximum = std::min(maximum, m_maximum);
    applySetup();
}

void SliderField::setStep(double step)
{
    if (std::isfinite(step) && step > 0.0 && step != m_step) {
        m_step = step;
        applySetup();
    }
}

void SliderField::setDecimals(int decimals)
{
    m_decimals = std::clamp(decimals, 0, ui::kMaxSliderDecimals);
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

bool SliderField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        QMetaObject::invokeMethod(this, &SliderField::catchUp, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void SliderField::sizeField()
{
    m_field->setFixedWidth(qRound(kFieldWidth * ui::pads::fontSize(*this)));
}

void SliderField::takeFromTrack(bool committed)
{
    showInField();
    if (committed) {
        m_committed = m_track->value();
    }
    Q_EMIT valueChanged(committed);
}

void SliderField::takeFromField(bool committed)
{
    m_fieldIsBehind = false; // the user's number is the later one
    const double entered = admitted(m_field->value());
    // Not after a step by key: the field takes a text that is set for one that is committed.
    if ((committed || m_fieldDragging) && entered != m_field->value()) {
        m_field->setValue(entered);
    }
    const bool isNew = entered != m_track->value();
    m_track->setValue(entered);
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
    const bool isInteger = m_decimals == 0;
    m_field->setFieldType(isInteger ? NumericField::Integer : NumericField::FloatingPoint);
    m_field->setMin(m_minimum);
    m_field->setMax(m_maximum);
    m_field->setSoftMin(m_softMinimum);
    m_field->setSoftMax(m_softMaximum);
    m_field->setDragMultiplier(m_step);
    m_track->setUp(
        {.minimum = m_minimum,
         .maximum = m_maximum,
         .softMinimum = m_softMinimum,
         .softMaximum = m_softMaximum,
         .step = m_step,
         .resetValue = defaultValue(),
         .decimals = m_decimals});
    show(m_track->value());
}

void SliderField::show(double value)
{
    m_track->setValue(admitted(value));
    showInField();
    if (!isDragging()) {
        m_committed = m_track->value();
    }
}

/// What is being typed stays; the field follows once that has come to nothing.
void SliderField::showInField()
{
    m_fieldIsBehind = isTyping(*m_field);
    if (!m_fieldIsBehind) {
        m_field->setValue(m_track->value());
    }
}

void SliderField::catchUp()
{
    if (m_fieldIsBehind) {
        showInField();
    }
}

double SliderField::admitted(double value) const
{
    const double rounded = ui::roundedTo(std::clamp(value, m_minimum, m_maximum), m_decimals);
    return std::clamp(rounded, m_minimum, m_maximum);
}
