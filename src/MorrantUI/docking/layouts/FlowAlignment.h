// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui {

namespace flow {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// Where the items of a row stand that leave room.
enum class FlowAlignment
{
    Leading,
    Center,
    Trailing,
};
Q_ENUM_NS(FlowAlignment)

} // namespace flow

using flow::FlowAlignment;

} // namespace ui
