// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/FrozenUpdates.h"

namespace ui {

FrozenUpdates::FrozenUpdates(std::initializer_list<QWidget*> widgets)
{
    for (QWidget* widget : widgets) {
        if (!widget->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
            widget->setUpdatesEnabled(false);
            m_frozen.emplace_back(widget);
        }
    }
}

FrozenUpdates::~FrozenUpdates()
{
    for (const QPointer<QWidget>& widget : m_frozen) {
        if (widget) {
            widget->setUpdatesEnabled(true);
        }
    }
}

} // namespace ui
