// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/ButtonSegment.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"

#include <QKeyEvent>

#include <optional>

namespace {

std::optional<SegmentStep> stepOf(int key, Qt::LayoutDirection direction)
{
    const bool leftToRight = direction == Qt::LeftToRight;
    switch (key) {
    case Qt::Key_Left: return leftToRight ? SegmentStep::Previous : SegmentStep::Next;
    case Qt::Key_Right: return leftToRight ? SegmentStep::Next : SegmentStep::Previous;
    case Qt::Key_Up: return SegmentStep::Previous;
    case Qt::Key_Down: return SegmentStep::Next;
    case Qt::Key_Home: return SegmentStep::First;
    case Qt::Key_End: return SegmentStep::Last;
    default: return std::nullopt;
    }
}

} // namespace

ButtonSegment::ButtonSegment(const QString& text, const QString& iconName, QWidget* parent)
    : GroupButton(iconName, parent)
{
    ui::installAccessible<ButtonSegment, ui::AccessibleButtonAs<QAccessible::CheckBox>>();
    ui::keepSpace(*this);
    setFocusPolicy(Qt::NoFocus); // until the group makes it its tab stop
    setCheckable(true);
    setText(text);
}

ButtonSegment::~ButtonSegment() = default;

void ButtonSegment::changeEvent(QEvent* event)
{
    GroupButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        Q_EMIT availabilityChanged();
    }
}

void ButtonSegment::keyPressEvent(QKeyEvent* event)
{
    const auto step = stepOf(event->key(), layoutDirection());
    if (step && !ui::hasModifier(*event)) {
        Q_EMIT stepped(*step);
    } else {
        GroupButton::keyPressEvent(event);
    }
}
