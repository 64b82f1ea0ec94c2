// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/PendingValue.h"

#include <MorrantUI/controls/values/NumericField.h>

#include <QEvent>

#include <utility>

PendingValue::PendingValue(NumericField* field)
    : QObject(field)
    , m_field(*field)
{
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, [this] {
        if (m_waiting) {
            settleSoon();
        }
    });
}

PendingValue::~PendingValue() = default;

bool PendingValue::isTyped() const
{
    return m_field.hasFocus() && !m_field.isReadOnly() && m_field.isModified();
}

bool PendingValue::show(double value)
{
    if (isTyped()) {
        m_waiting = value;
        return false;
    }
    m_waiting.reset();
    m_field.setValue(value);
    return true;
}

bool PendingValue::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        settleSoon();
    }
    return QObject::eventFilter(watched, event);
}

/// Queued: the field still has to commit or take back what was typed.
void PendingValue::settleSoon()
{
    QMetaObject::invokeMethod(this, &PendingValue::settle, Qt::QueuedConnection);
}

void PendingValue::settle()
{
    if (isTyped()) {
        return;
    }
    if (const auto value = std::exchange(m_waiting, std::nullopt)) {
        m_field.setValue(*value);
    }
    Q_EMIT settled();
}
