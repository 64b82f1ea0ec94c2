// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QColor>

/// Darkens what lies below it: a half transparent sheet in the theme's colour "Base".
/// Transparent for the mouse; its owner sizes, shows and hides it.
class MORRANT_UI_EXPORT WindowDimmer : public Widget
{
    Q_OBJECT

public:
    explicit WindowDimmer(QWidget* parent);
    ~WindowDimmer() override;

    QColor color() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};
