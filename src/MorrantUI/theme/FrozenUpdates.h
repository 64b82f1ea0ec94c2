// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWidget>

#include <initializer_list>
#include <vector>

namespace ui {

/// Switches the painting of widgets off, and in the same order back to what each had before.
class FrozenUpdates
{
public:
    explicit FrozenUpdates(std::initializer_list<QWidget*> widgets);
    ~FrozenUpdates();
    Q_DISABLE_COPY_MOVE(FrozenUpdates)

private:
    std::vector<QPointer<QWidget>> m_frozen;
};

} // namespace ui
