// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/dropzones.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

/// The overlay of a dockable window that shows where a dragged window can be dropped. Transparent
/// for the mouse and hidden until asked for.
class MORRANT_UI_EXPORT DropIndicatorMain : public Widget
{
    Q_OBJECT

public:
    explicit DropIndicatorMain(QWidget* parent);
    ~DropIndicatorMain() override;

    /// Takes the zone under the cursor, among the zones as they were last built: over a fresh
    /// target the first call finds none, the next corrects it (deliberate).
    void updateArea();

    /// Builds the zones for a target of the indicator's size, and shows them above everything else.
    void showZones(double topOffset, bool sidesDisabled, bool topBottomDisabled);

    /// The zone of the last updateArea(). Hiding does not change it.
    DockableArea area() const { return m_area; }
    const ui::docking::DropZones& zones() const { return m_zones; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ui::docking::DropZoneSetup m_setup;
    ui::docking::DropZones m_zones;
    DockableArea m_area = DockableArea::None;
};
