// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/palettes.h"

#include <QWidget>

#include <algorithm>
#include <array>

namespace ui {

void setWidgetBackground(QWidget* widget, const QColor& color)
{
    if (!widget) {
        return;
    }
    constexpr std::array kRoles{QPalette::Window, QPalette::Base, QPalette::Button};

    const QPalette& current = widget->palette();
    // Installing a palette reaches all children, and this is called at every change of state.
    const bool installed = std::all_of(
        kRoles.begin(), kRoles.end(), [&](auto role) { return current.color(role) == color; });
    if (!installed) {
        QPalette changed = current;
        for (const auto role : kRoles) {
            changed.setColor(role, color);
        }
        widget->setPalette(changed);
    }
    widget->setAutoFillBackground(true);
}

void setWidgetForeground(QWidget* widget, const QColor& color)
{
    appendPalette(
        widget,
        {{QPalette::Text, color},
         {QPalette::ButtonText, color},
         {QPalette::BrightText, color},
         {QPalette::WindowText, color}});
}

void appendPalette(QWidget* widget, std::list<std::pair<QPalette::ColorRole, QColor>> roles)
{
    if (!widget || roles.empty()) {
        return;
    }
    QPalette palette = widget->palette();
    for (const auto& [role, color] : roles) {
        palette.setColor(role, color);
    }
    widget->setPalette(palette);
}

} // namespace ui
