// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/dispatch.h"

namespace ui::style {

namespace {

template <Qt::ArrowType direction>
void drawArrowTo(const QStyleOption& option, QPainter& painter, const Context&)
{
    drawArrow(option, painter, direction);
}

} // namespace

Draw primitiveDrawing(QStyle::PrimitiveElement element)
{
    switch (element) {
    case QStyle::PE_PanelButtonCommand: return drawButtonPanel;
    case QStyle::PE_PanelButtonTool: return drawToolButtonPanel;
    case QStyle::PE_IndicatorButtonDropDown: return drawToolButtonDropDown;
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorItemViewItemCheck: return drawCheckMark;
    case QStyle::PE_IndicatorRadioButton: return drawRadioMark;
    case QStyle::PE_PanelLineEdit: return drawFieldPanel;
    case QStyle::PE_FrameLineEdit: return drawFieldFrame;
    case QStyle::PE_PanelMenu: return drawMenuPanel;
    case QStyle::PE_PanelTipLabel: return drawToolTipPanel;
    case QStyle::PE_FrameTabWidget: return drawTabPane;
    case QStyle::PE_FrameTabBarBase: return drawTabBarBase;
    case QStyle::PE_IndicatorTabClose: return drawTabClose;
    case QStyle::PE_PanelItemViewItem: return drawItemGround;
    case QStyle::PE_IndicatorBranch: return drawBranch;
    case QStyle::PE_IndicatorHeaderArrow: return drawHeaderArrow;
    case QStyle::PE_IndicatorItemViewItemDrop: return drawDropIndicator;
    case QStyle::PE_Frame:
    case QStyle::PE_FrameWindow:
    case QStyle::PE_FrameDockWidget: return drawFrame;
    case QStyle::PE_FrameGroupBox: return drawGroupFrame;
    case QStyle::PE_FrameFocusRect: return drawFocusRect;
    case QStyle::PE_IndicatorToolBarHandle: return drawToolBarHandle;
    case QStyle::PE_IndicatorToolBarSeparator: return drawToolBarSeparator;
    case QStyle::PE_FrameMenu: // the panel has drawn the edge
    case QStyle::PE_FrameDefaultButton:
    case QStyle::PE_FrameStatusBarItem:
    case QStyle::PE_PanelMenuBar:
    case QStyle::PE_PanelStatusBar: return drawNothing;
    case QStyle::PE_IndicatorArrowUp: return drawArrowTo<Qt::UpArrow>;
    case QStyle::PE_IndicatorArrowDown: return drawArrowTo<Qt::DownArrow>;
    case QStyle::PE_IndicatorArrowLeft: return drawArrowTo<Qt::LeftArrow>;
    case QStyle::PE_IndicatorArrowRight: return drawArrowTo<Qt::RightArrow>;
    default: return nullptr;
    }
}

Draw controlDrawing(QStyle::ControlElement element)
{
    switch (element) {
    case QStyle::CE_PushButtonBevel: return drawPushButtonBevel;
    case QStyle::CE_PushButtonLabel: return drawPushButtonLabel;
    case QStyle::CE_CheckBox: return drawCheckBox;
    case QStyle::CE_RadioButton: return drawRadioButton;
    case QStyle::CE_ComboBoxLabel: return drawComboBoxLabel;
    case QStyle::CE_ProgressBarGroove: return drawProgressGroove;
    case QStyle::CE_ProgressBarContents: return drawProgressContents;
    case QStyle::CE_ProgressBarLabel: return drawProgressLabel;
    case QStyle::CE_MenuItem: return drawMenuItem;
    case QStyle::CE_MenuScroller: return drawMenuScroller;
    case QStyle::CE_MenuBarItem: return drawMenuBarItem;
    case QStyle::CE_MenuBarEmptyArea: return drawMenuBarGround;
    case QStyle::CE_TabBarTabShape: return drawTabShape;
    case QStyle::CE_TabBarTabLabel: return drawTabLabel;
    case QStyle::CE_ItemViewItem: return drawItem;
    case QStyle::CE_HeaderSection: return drawHeaderSection;
    case QStyle::CE_HeaderEmptyArea: return drawHeaderEmptyArea;
    case QStyle::CE_ShapedFrame: return drawShapedFrame;
    case QStyle::CE_Splitter: return drawSplitter;
    case QStyle::CE_ToolBar: return drawToolBar;
    case QStyle::CE_SizeGrip: return drawSizeGrip;
    case QStyle::CE_RubberBand: return drawRubberBand;
    case QStyle::CE_MenuTearoff:
    case QStyle::CE_MenuEmptyArea:
    case QStyle::CE_MenuHMargin:
    case QStyle::CE_MenuVMargin: return drawNothing;
    default: return nullptr;
    }
}

Draw complexControlDrawing(QStyle::ComplexControl control)
{
    switch (control) {
    case QStyle::CC_ToolButton: return drawToolButton;
    case QStyle::CC_ComboBox: return drawComboBox;
    case QStyle::CC_SpinBox: return drawSpinBox;
    case QStyle::CC_ScrollBar: return drawScrollBar;
    case QStyle::CC_Slider: return drawSlider;
    case QStyle::CC_Dial: return drawDial;
    default: return nullptr;
    }
}

Place complexControlLayout(QStyle::ComplexControl control)
{
    switch (control) {
    case QStyle::CC_ComboBox: return comboBoxPart;
    case QStyle::CC_SpinBox: return spinBoxPart;
    case QStyle::CC_ScrollBar: return scrollBarPart;
    case QStyle::CC_Slider: return sliderPart;
    case QStyle::CC_GroupBox: return groupBoxPart;
    default: return nullptr;
    }
}

} // namespace ui::style
