// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/NumericField.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/gestures/cursors.h"
#include "MorrantUI/controls/values/AccessibleNumericField.h"
#include "MorrantUI/controls/values/suffixes.h"
#include "MorrantUI/controls/values/typednumber.h"
#include "MorrantUI/log.h"
#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/controls/values/valueformat.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/VisualDesignBase.h>

#include <Core/Expression.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace {

bool themeUsesPointerLock()
{
    const VisualDesignBase* theme = ui::currentTheme();
    return !theme || theme->usePointerLock();
}

bool isStepKey(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down;
}

struct Evaluation
{
    double value = 0.0;
    std::string error; ///< empty when all is well
};

Evaluation evaluate(QString text)
{
    Evaluation result;
    text.replace(u',', u'.');
    result.value = evaluateExpression(text.toStdString(), {}, &result.error);
    return result;
}

void logError(const std::string& error)
{
    if (!error.empty()) {
        ui::log::error("Inline Expression Error: {}", error);
    }
}

void setUnlessNaN(double& member, double value)
{
    member = std::isnan(value) ? member : value;
}

} // namespace

struct NumericField::Data
{
    ui::NumberRange range;
    double softMin = std::numeric_limits<double>::lowest();
    double softMax = std::numeric_limits<double>::max();
    double dragMultiplier = 1.0;
    double startValue = 0.0;
    double toldValue = 0.0; ///< what assistive tools know
    int cursorPosition = 0; ///< in the text, under the last press
    QString suffix;
    QString textBefore; ///< a drag's first step, which Escape brings back

    bool dragging = false;
    bool draggingReported = false; ///< what dragStateChanged() said last
    bool mayBeClick = false;       ///< pressed at rest, and nothing else has come of it yet
    bool isReleased = false;       ///< the press is ending by the release of its button
    QPointer<MouseWrapDragFilter> dragFilter;
    std::optional<ui::OverrideCursor> dragCursor;
};

NumericField::NumericField(double startValue, QWidget* parent)
    : LineEdit(parent)
    , m_data(std::make_unique<Data>())
{
    ui::installAccessible<NumericField, ui::AccessibleNumericField>();
    connect(this, &QLineEdit::textChanged, this, &NumericField::tellReaders);
    connect(this, &QLineEdit::textChanged, this, &NumericField::changed);
    connect(this, &LineEdit::valueChanged, this, [this](bool committed) {
        Q_EMIT edited(value(), committed);
    });
    setUsePointerLock(themeUsesPointerLock());
    setValue(startValue);
    setStartValue(value());
    setMouseTracking(true);
    setReadOnly(true);
    setColors(QStringLiteral("Window"), QStringLiteral("Text"), QStringLiteral("WindowText"));
    setFocusPolicy(Qt::TabFocus);

    if (const VisualDesignBase* theme = ui::currentTheme()) {
        connect(theme, &VisualDesignBase::usePointerLockChanged, this, [this] {
            setUsePointerLock(themeUsesPointerLock());
        });
    }
    connect(this, &QWidget::customContextMenuRequested, this, &NumericField::cancelForContextMenu);
}

NumericField::~NumericField()
{
    finishDrag();
}

double NumericField::value() const
{
    const double number = m_data ? text().toDouble() : 0.0;
    return std::isnan(number) ? 0.0 : number;
}

void NumericField::setValue(double value)
{
    showText(textOf(value));
}

double NumericField::startValue() const
{
    return m_data->startValue;
}

void NumericField::setStartValue(double value)
{
    const bool isInfinite = std::isinf(value);
    setUnlessNaN(m_data->startValue, isInfinite ? ui::limitValue(value, m_data->range) : value);
}

double NumericField::getMin() const
{
    return m_data->range.min;
}

void NumericField::setMin(double value)
{
    setUnlessNaN(m_data->range.min, ui::acceptedMin(value, isInteger()));
}

double NumericField::getMax() const
{
    return m_data->range.max;
}

void NumericField::setMax(double value)
{
    setUnlessNaN(m_data->range.max, ui::acceptedMax(value, isInteger()));
}

double NumericField::softMin() const
{
    return m_data->softMin;
}

void NumericField::setSoftMin(double value)
{
    setUnlessNaN(m_data->softMin, value);
}

double NumericField::softMax() const
{
    return m_data->softMax;
}

void NumericField::setSoftMax(double value)
{
    setUnlessNaN(m_data->softMax, value);
}

double NumericField::dragMultiplier() const
{
    return m_data->dragMultiplier;
}

void NumericField::setDragMultiplier(double multiplier)
{
    if (std::isfinite(multiplier)) {
        m_data->dragMultiplier = multiplier;
    }
}

bool NumericField::isInteger() const
{
    return m_data->range.isInteger;
}

void NumericField::setFieldType(FIELD_TYPE type)
{
    m_data->range.isInteger = type == Integer;
}

void NumericField::setSuffix(const QString& suffix)
{
    m_data->suffix = suffix;
    ui::reserveSuffix(*this, suffix);
    update();
}

QString NumericField::suffix() const
{
    return m_data->suffix;
}

void NumericField::setUsePointerLock(bool use)
{
    const QPointer<NumericField> self(this);
    finishDrag();
    if (!self) {
        return;
    }
    if (MouseWrapDragFilter* old = m_data->dragFilter) {
        removeEventFilter(old);
        old->deleteLater();
    }
    MouseWrapDragFilter* filter =
        use ? MouseWrapDragFilter::Make(this) : MouseWrapDragFilter::MakeDummy(this);
    filter->setEnabled(isReadOnly());
    connect(filter, &MouseWrapDragFilter::started, this, &NumericField::beginDrag);
    connect(filter, &MouseWrapDragFilter::dragged, this, &NumericField::scrub);
    connect(filter, &MouseWrapDragFilter::ended, this, &NumericField::endDrag);
    m_data->dragFilter = filter;
}

void NumericField::finishDrag()
{
    if (m_data->dragFilter) {
        m_data->dragFilter->forceEndDrag();
    }
}

QString NumericField::textOf(double value) const
{
    return ui::formatValue(value, m_data->range);
}

void NumericField::showText(const QString& text)
{
    if (text == this->text()) {
        return;
    }
    // Of a number that nobody edits the value's event says it all.
    const ui::QuietReaders quiet(hasFocus() ? nullptr : this, ui::kTextChanges);
    setText(text);
}

/// Once for each value that the text says, whoever has changed it; what is half typed says none.
void NumericField::tellReaders()
{
    bool isNumber = false;
    const double number = text().toDouble(&isNumber);
    if (isNumber && number != m_data->toldValue) {
        m_data->toldValue = number;
        ui::notifyAccessibleValue(this, number);
    }
}

void NumericField::fixup(QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    const Evaluation result = evaluate(text);
    logError(result.error);
    text = textOf(result.value);
}

std::optional<QString> NumericField::entryOf(const QString& typed)
{
    const QString text = ui::withoutGrouping(ui::withoutSuffix(typed, m_data->suffix));
    const Evaluation whole = evaluate(text);
    // A value in spite of an error is that of a beginning; 0 may stand for none.
    const bool hasValue = text.isEmpty() || whole.error.empty() || whole.value != 0.0
                          || ui::beginsWithZero(text, [](const QString& beginning) {
                                 const Evaluation part = evaluate(beginning);
                                 return part.error.empty() && part.value == 0.0;
                             });
    if (!hasValue) {
        logError(whole.error);
        return {};
    }
    return text;
}

bool NumericField::isAcceptable(const QString& text) const
{
    return !text.isEmpty() && LineEdit::isAcceptable(text);
}

void NumericField::beginDrag()
{
    QCoreApplication::instance()->installEventFilter(this); // for Escape, wherever the focus is
    m_data->dragCursor.emplace(ui::scrubCursor());
    m_data->isReleased = false;
}

void NumericField::scrub(const QPointF&, const QPointF& totalDelta)
{
    const QPointer<NumericField> self(this);
    m_data->mayBeClick = false;
    if (!m_data->dragging && hasFocus()) {
        commitEdit(); // steps by key: what Escape takes back is never the drag
        if (!self || !m_data->dragFilter || !m_data->dragFilter->isDragging()) {
            return;
        }
    }
    if (!std::exchange(m_data->dragging, true)) {
        m_data->textBefore = text();
    }
    if (!std::exchange(m_data->draggingReported, true)) {
        Q_EMIT dragStateChanged(true);
        if (!self || !m_data->dragging) {
            return;
        }
    }
    const double factor = ui::modifierFactor(ui::queryKeyboardModifiers());
    setValue(ui::scrubbedValue(
        {.startValue = m_data->startValue,
         .distance = totalDelta.x(),
         .valuePerPixel = m_data->dragMultiplier * factor,
         .softMin = m_data->softMin,
         .softMax = m_data->softMax},
        m_data->range));
    Q_EMIT valueChanged(false);
}

void NumericField::endDrag()
{
    QCoreApplication::instance()->removeEventFilter(this);
    m_data->dragCursor.reset();
    m_data->dragging = false;
    m_data->mayBeClick = m_data->mayBeClick && m_data->isReleased;
    if (std::exchange(m_data->draggingReported, false)) {
        Q_EMIT dragStateChanged(false);
    }
}

void NumericField::cancelDrag()
{
    if (m_data->dragging && text() != m_data->textBefore) {
        const QPointer<NumericField> self(this);
        showText(m_data->textBefore);
        Q_EMIT valueChanged(false);
        if (!self) {
            return;
        }
    }
    m_data->dragFilter->forceEndDrag();
}

void NumericField::cancelForContextMenu()
{
    const QPointer<NumericField> self(this);
    const bool reported = m_data->draggingReported;
    m_data->dragFilter->forceEndDrag();
    if (!self) {
        return;
    }
    clearFocus();
    if (!self) {
        return;
    }
    setReadOnly(false);
    setCursor(Qt::ArrowCursor);
    showNativeMouse();
    if (!reported) {
        Q_EMIT dragStateChanged(false);
    }
}

/// @return false when this field has been deleted by what a loss of focus commits elsewhere
bool NumericField::takeFocus(Qt::FocusReason reason)
{
    const QPointer<NumericField> self(this);
    QWidget* const former = QApplication::focusWidget();
    if (former && former != this) {
        former->clearFocus(); // now, since setFocus() does not outlive its widget
    }
    if (self) {
        setFocus(reason);
    }
    return !self.isNull();
}

bool NumericField::enterEditMode()
{
    setReadOnly(false);
    setCursor(Qt::IBeamCursor); // a field that has the focus is told of none
    return takeFocus(Qt::OtherFocusReason);
}

void NumericField::leaveEditMode()
{
    setReadOnly(true);
    setCursor(ui::scrubCursor());
}

bool NumericField::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == this && event->type() == QEvent::MouseButtonRelease) { // before the drag filter
        m_data->isReleased = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    }
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) {
        return LineEdit::eventFilter(watched, event);
    }
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        cancelDrag();
    }
    return true;
}

bool NumericField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isStepKey(key.key())) {
            event->accept();
            return true;
        }
        if (isUseless(key)) {
            event->ignore();
            return false;
        }
    }
    if (event->type() == QEvent::ReadOnlyChange) {
        m_data->mayBeClick = false;
        m_data->dragFilter->setEnabled(isReadOnly());
    }
    return LineEdit::event(event);
}

void NumericField::changeEvent(QEvent* event)
{
    LineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_data && !m_data->suffix.isEmpty()) {
        ui::reserveSuffix(*this, m_data->suffix);
    }
}

void NumericField::paintEvent(QPaintEvent* event)
{
    LineEdit::paintEvent(event);
    ui::paintSuffix(*this, m_data->suffix);
}

/// At rest there is no caret to move: such keys are left to the window.
bool NumericField::isUseless(const QKeyEvent& key) const
{
    return isReadOnly() && !isStepKey(key.key()) && key.key() != Qt::Key_Escape
           && !ui::isReturn(key) && !ui::hasModifier(key);
}

void NumericField::keyPressEvent(QKeyEvent* event)
{
    if (isUseless(*event)) {
        event->ignore();
        return;
    }
    if (!isStepKey(event->key())) {
        LineEdit::keyPressEvent(event);
        return;
    }
    const double sign = event->key() == Qt::Key_Up ? 1.0 : -1.0;
    const double step = sign * m_data->dragMultiplier * ui::modifierFactor(event->modifiers());
    const int start = selectionStart();
    const int length = selectionLength();
    const bool isWhole = length == text().size();
    event->accept();

    const QPointer<NumericField> self(this);
    stepTo(textOf(value() + step));
    if (!self) {
        return;
    }
    if (isWhole) {
        selectAll();
    } else if (length > 0) {
        setSelection(start, length);
    }
}

void NumericField::mousePressEvent(QMouseEvent* event)
{
    if (!isReadOnly()) {
        if (!hasFocus() && !takeFocus(Qt::MouseFocusReason)) { // as a context menu leaves the field
            return;
        }
        LineEdit::mousePressEvent(event);
    } else if (event->button() == Qt::RightButton) {
        ui::log::debug("right click");
    } else if (event->button() == Qt::LeftButton) {
        m_data->cursorPosition = cursorPositionAt(event->position().toPoint());
        setStartValue(value());
        m_data->mayBeClick = true;
    }
}

void NumericField::mouseMoveEvent(QMouseEvent* event)
{
    if (!isReadOnly()) {
        LineEdit::mouseMoveEvent(event);
    }
}

void NumericField::mouseReleaseEvent(QMouseEvent* event)
{
    if (!isReadOnly()) {
        LineEdit::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    // The filter has seen the release first and ended the drag.
    const bool isClick = std::exchange(m_data->mayBeClick, false);
    if (isClick && rect().contains(event->position().toPoint()) && enterEditMode()) {
        setKeepsFocus(false);
        setCursorPosition(m_data->cursorPosition);
        LineEdit::mouseReleaseEvent(event);
    }
}

void NumericField::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!isReadOnly()) {
        LineEdit::mouseDoubleClickEvent(event);
        const int place = cursorPositionAt(event->position().toPoint());
        const ui::TextSpan number = ui::numberAt(text(), place);
        if (event->button() == Qt::LeftButton && number.length > 0) {
            setSelection(static_cast<int>(number.start), static_cast<int>(number.length));
        }
        return;
    }
    // A drag can follow another quickly: to scrubbing the second press is a press.
    QMouseEvent press(
        QEvent::MouseButtonPress,
        event->position(),
        event->scenePosition(),
        event->globalPosition(),
        event->button(),
        event->buttons(),
        event->modifiers(),
        event->pointingDevice());
    QCoreApplication::sendEvent(this, &press);
}

void NumericField::enterEvent(QEnterEvent* event)
{
    if (!isEnabled()) {
        setCursor(Qt::PointingHandCursor); // deliberate
    } else if (isReadOnly()) {
        setCursor(ui::scrubCursor());
    } else {
        setCursor(Qt::IBeamCursor);
    }
    LineEdit::enterEvent(event);
}

void NumericField::focusInEvent(QFocusEvent* event)
{
    const bool byTab =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab && !m_data->dragging) {
        enterEditMode(); // the focus is here already
    }
    setCursor(Qt::IBeamCursor);
    LineEdit::focusInEvent(event);
}

void NumericField::focusOutEvent(QFocusEvent* event)
{
    if (!goesToOwnMenu(*event)) {
        leaveEditMode();
    }
    LineEdit::focusOutEvent(event);
}
