// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gallery/forcedstates.h"

#include <QWidget>

#include <functional>
#include <vector>

namespace studio::gallery {

/// One control for the table of states.
struct Specimen
{
    QWidget* widget = nullptr; ///< for the caller to own; null: the control has no such state
    QWidget* part = nullptr; ///< of the widget that is hovered, pressed or focused; null: all of it
};

/// A row of the table.
struct SpecimenRow
{
    QString name;
    std::function<Specimen(State)> make;
    QString otherName = {}; ///< of a state that this control alone has
    std::function<QWidget*()> other = {};
};

/// The toolkit's value controls, in the order of the table.
std::vector<SpecimenRow> specimenRows();

/// Attribute rows in a section that folds, and a flow of buttons between spacer bars; all of it
/// reacts. For the caller to own.
QWidget* attributes();

} // namespace studio::gallery
