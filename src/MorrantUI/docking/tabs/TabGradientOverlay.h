// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/tabs/tabgeometry.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

/// Fades a row of tabs out into the header's ground at the edges beyond which it goes on. Lets the
/// mouse through.
class MORRANT_UI_EXPORT TabGradientOverlay : public Widget
{
    Q_OBJECT

public:
    explicit TabGradientOverlay(QWidget* parent = nullptr);
    ~TabGradientOverlay() override;

    /// Both 0 at first, which paints nothing.
    void setFades(const ui::tabs::Fades& fades);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ui::tabs::Fades m_fades;
};
