// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSize>
#include <QStyle>

#include <optional>

class QFontMetrics;
class QStyleOption;

namespace ui::style {

/// The lengths that grow with the font, in logical pixels, and those that do not.
/// At the usual 12 pixels a row is 22 high, an indicator 14 and a scroll bar 10 wide.
class Metrics
{
public:
    explicit Metrics(int fontSize)
        : m_fontSize(fontSize)
    {}

    int rowHeight() const;       ///< fields, buttons, menu and list rows
    int indicator() const;       ///< check boxes and radio buttons; always even
    int scrollBarExtent() const; ///< thickness
    int sliderHandle() const;    ///< diameter; always even
    int arrowColumn() const;     ///< width of the arrow part of fields, at the trailing edge

    /// What the style answers for a metric; nothing for those that it leaves to its base.
    std::optional<int> pixelMetric(QStyle::PixelMetric metric) const;

    /// The size of a control around contents of `contents`. `base` is the base style's answer,
    /// used where it is no smaller than ours.
    QSize sizeAround(
        QStyle::ContentsType type,
        const QStyleOption* option,
        const QSize& contents,
        const QSize& base) const;

private:
    QSize menuItemSize(const QStyleOption* option, const QSize& contents) const;
    QSize pushButtonSize(const QStyleOption* option, const QSize& contents) const;

    int m_fontSize;
};

/// Geometry of a menu row, shared by its size and its painting.
inline constexpr int kMenuRowPadding = 8;      ///< from the panel's edge to the text or mark
inline constexpr int kMenuMarkColumn = 24;     ///< tick or icon, when the menu has any
inline constexpr int kMenuArrowColumn = 22;    ///< submenu arrow
inline constexpr int kMenuShortcutGap = 28;    ///< from the longest text to the shortcuts
inline constexpr int kMenuSeparatorHeight = 9; ///< without a text

/// The width before a menu row's text.
int menuTextOffset(const QStyleOption& option);

/// Longer texts of menu rows end in an ellipsis, so that the menu stays on the screen.
int widestMenuText(const QFontMetrics& metrics);

} // namespace ui::style
