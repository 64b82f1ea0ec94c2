// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/tabs/tabgeometry.h>

#include <QWidget>

class QBoxLayout;
class QWheelEvent;
class TabGradientOverlay;

/// The row of tabs below a header, as wide as its tabs need, which the header shows a part of. It
/// moves within the header to scroll, and fades out at the edges beyond which it goes on; points
/// are the header's.
class TabRow : public QWidget
{
    Q_OBJECT

public:
    /// @param widestFade of one edge, logical pixels
    TabRow(QWidget* header, int widestFade);
    ~TabRow() override;

    /// The tabs in display order, nothing else.
    QBoxLayout* tabs() const { return m_tabs; }

    ui::tabs::View view() const;

    /// The header's size for all tabs, and for a part of the row.
    QSize wantedSize() const;
    QSize leastSize(int width) const;

    void setFadesVisible(bool visible);

    /// Brings the row to its size and place, and the tabs with it.
    void place();
    /// Bounded to what there is to scroll.
    void scroll(int offset);
    /// Scrolls as little as possible to show a tab, which must exist.
    void reveal(int index);
    /// @return whether there is anything to scroll; else the wheel is for others
    bool scrollByWheel(const QWheelEvent& event);

    /// What of the row is shown at a point; null beside the tabs.
    QWidget* tabAt(const QPoint& point) const;
    /// A tab's rectangle in the header.
    QRect tabRect(int index) const;
    int gapAt(const QPoint& point) const;
    /// The x of a gap's middle.
    int gapX(int gap) const;

Q_SIGNALS:
    /// The space that the tabs need has changed.
    void needsOtherSpace();
    /// A child was deleted or given another parent; no tab any more, perhaps no widget either.
    void childLost(QObject* child);

protected:
    bool event(QEvent* event) override;

private:
    std::vector<ui::tabs::Span> spans() const;

    QBoxLayout* m_tabs;
    TabGradientOverlay* m_fades; ///< a child of the header
    int m_widestFade;
    int m_offset = 0;
    double m_wheelRest = 0.0; ///< of a pixel that the wheel has not scrolled yet
};
