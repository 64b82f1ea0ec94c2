// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/metrics.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QStyleOption>

#include <algorithm>

namespace ui::style {

namespace {

constexpr int kButtonPadding = 11;    ///< beside a push button's text
constexpr int kButtonMinWidth = 64;   ///< of a push button with a text
constexpr int kToolButtonPadding = 3; ///< on each side
constexpr int kFieldPadding = 6;      ///< beside a field's text
constexpr int kTabPadding = 12;       ///< beside a tab's text
constexpr int kMenuChars = 80;        ///< of average width, in a menu row's text
constexpr int kMenuBesidesText = 180; ///< for marks, a long shortcut, arrow and frame

constexpr int roundedToEven(double value)
{
    return 2 * static_cast<int>(value / 2 + 0.5);
}

} // namespace

int Metrics::rowHeight() const
{
    return roundedToEven(m_fontSize * 1.85);
}

int Metrics::indicator() const
{
    return roundedToEven(m_fontSize * 1.2);
}

int Metrics::scrollBarExtent() const
{
    return std::max(8, roundedToEven(m_fontSize * 0.85));
}

int Metrics::sliderHandle() const
{
    return roundedToEven(m_fontSize * 1.15);
}

int Metrics::arrowColumn() const
{
    return roundedToEven(m_fontSize * 1.5);
}

std::optional<int> Metrics::pixelMetric(QStyle::PixelMetric metric) const
{
    switch (metric) {
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight: return indicator();
    case QStyle::PM_ScrollBarExtent: return scrollBarExtent();
    case QStyle::PM_ScrollBarSliderMin: return 2 * rowHeight();
    case QStyle::PM_SliderThickness:
    case QStyle::PM_SliderControlThickness:
    case QStyle::PM_SliderLength: return sliderHandle();
    case QStyle::PM_HeaderDefaultSectionSizeVertical: return rowHeight();
    case QStyle::PM_TitleBarHeight: return rowHeight() + 2;
    case QStyle::PM_MenuButtonIndicator: return arrowColumn();
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_RadioButtonLabelSpacing:
    case QStyle::PM_LayoutHorizontalSpacing:
    case QStyle::PM_LayoutVerticalSpacing: return m_fontSize / 2;
    case QStyle::PM_LayoutLeftMargin:
    case QStyle::PM_LayoutTopMargin:
    case QStyle::PM_LayoutRightMargin:
    case QStyle::PM_LayoutBottomMargin: return 2 * m_fontSize / 3;
    case QStyle::PM_SplitterWidth: return 4;
    case QStyle::PM_MenuHMargin:
    case QStyle::PM_MenuVMargin: return 4;
    case QStyle::PM_MenuPanelWidth:
    case QStyle::PM_DefaultFrameWidth:
    case QStyle::PM_SpinBoxFrameWidth:
    case QStyle::PM_ToolBarFrameWidth: return 1;
    case QStyle::PM_MenuBarPanelWidth:
    case QStyle::PM_MenuBarHMargin:
    case QStyle::PM_MenuBarItemSpacing:
    case QStyle::PM_ScrollView_ScrollBarSpacing:
    case QStyle::PM_ButtonShiftHorizontal:
    case QStyle::PM_ButtonShiftVertical:
    case QStyle::PM_TabBarTabShiftVertical:
    case QStyle::PM_TabBarTabShiftHorizontal: return 0;
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_ToolBarIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_TabBarIconSize:
    case QStyle::PM_TabCloseIndicatorWidth:
    case QStyle::PM_TabCloseIndicatorHeight: return 16; // the size that the icons are drawn for
    default: return std::nullopt;
    }
}

QSize Metrics::sizeAround(
    QStyle::ContentsType type,
    const QStyleOption* option,
    const QSize& contents,
    const QSize& base) const
{
    const QSize row(0, rowHeight());
    switch (type) {
    case QStyle::CT_PushButton: return pushButtonSize(option, contents);
    case QStyle::CT_MenuItem: return menuItemSize(option, contents);
    case QStyle::CT_ToolButton:
        return contents + QSize(2 * kToolButtonPadding, 2 * kToolButtonPadding);
    case QStyle::CT_LineEdit: return (contents + QSize(2, 2)).expandedTo(row);
    case QStyle::CT_ComboBox:
        return (contents + QSize(3 * kFieldPadding + arrowColumn(), 4)).expandedTo(row);
    case QStyle::CT_SpinBox:
        return (contents + QSize(2 * kFieldPadding + arrowColumn(), 2)).expandedTo(row);
    case QStyle::CT_MenuBarItem: return (contents + QSize(2 * kMenuRowPadding, 0)).expandedTo(row);
    case QStyle::CT_TabBarTab: {
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        const bool upright = tab && tab->shape % 4 >= QTabBar::RoundedWest;
        const QSize padding(2 * kTabPadding - 8, 0);
        return upright ? contents + padding.transposed()
                       : (contents + padding).expandedTo(row + QSize(0, 4));
    }
    case QStyle::CT_CheckBox:
    case QStyle::CT_RadioButton:
    case QStyle::CT_ItemViewItem: return base.expandedTo(row);
    case QStyle::CT_HeaderSection: return (base + QSize(kFieldPadding, 0)).expandedTo(row);
    default: return base;
    }
}

QSize Metrics::menuItemSize(const QStyleOption* option, const QSize& contents) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) {
        return contents;
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        return {contents.width(), item->text.isEmpty() ? kMenuSeparatorHeight : rowHeight()};
    }
    const bool hasShortcut = item->text.contains(QLatin1Char('\t'));
    const int text = std::min(contents.width(), widestMenuText(item->fontMetrics));
    const int width =
        menuTextOffset(*item) + text + kMenuArrowColumn + (hasShortcut ? kMenuShortcutGap : 0);
    return {width, std::max(rowHeight(), contents.height() + 4)};
}

QSize Metrics::pushButtonSize(const QStyleOption* option, const QSize& contents) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (button && button->text.isEmpty()) {
        return (contents + QSize(2 * kToolButtonPadding, 2 * kToolButtonPadding))
            .expandedTo({rowHeight(), rowHeight()});
    }
    return (contents + QSize(2 * kButtonPadding, 4)).expandedTo({kButtonMinWidth, rowHeight()});
}

int menuTextOffset(const QStyleOption& option)
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    const bool hasMarks = item && (item->menuHasCheckableItems || item->maxIconWidth > 0);
    return hasMarks ? std::max(kMenuMarkColumn, item->maxIconWidth + 6) : kMenuRowPadding;
}

int widestMenuText(const QFontMetrics& metrics)
{
    const QList<QScreen*> screens = QGuiApplication::screens(); // asked for by every row
    int widest = kMenuChars * metrics.averageCharWidth();
    for (const QScreen* const screen : screens) {
        widest = std::min(widest, screen->availableGeometry().width() - kMenuBesidesText);
    }
    return std::max(widest, 0);
}

} // namespace ui::style
