// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QRect>

#include <optional>

/// Shows over a header, while a tab is dragged, which tab that is and where it would be dropped.
/// Lets the mouse through.
class MORRANT_UI_EXPORT TabBarOverlay : public Widget
{
    Q_OBJECT

public:
    explicit TabBarOverlay(QWidget* parent = nullptr);
    ~TabBarOverlay() override;

    /// @param tab the dragged tab's rectangle, which is dimmed; empty for none
    /// @param markerX the middle of the line that marks the gap; none where a drop moves nothing
    void setDrop(const QRect& tab, std::optional<int> markerX);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_tab;
    std::optional<int> m_markerX;
};
