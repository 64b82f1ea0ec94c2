// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStyle>
#include <QStyleOption>

class QPainter;
class QWidget;

/// The pictures of the application style, by family of controls. Each function draws one element
/// of Qt's style interface from its option; the option's palette decides wherever it has a role.
namespace ui::style {

/// Who draws for whom.
struct Context
{
    const QStyle& style;   ///< answers rectangles and metrics and draws the parts of a whole
    const QStyle& base;    ///< draws what has no look of its own
    const QWidget* widget; ///< may be null
};

using Draw = void (*)(const QStyleOption&, QPainter&, const Context&);

// buttons.cpp
void drawButtonPanel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawPushButtonBevel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawPushButtonLabel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolButtonPanel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolButtonDropDown(const QStyleOption& option, QPainter& painter, const Context& context);
void drawCheckMark(const QStyleOption& option, QPainter& painter, const Context& context);
void drawRadioMark(const QStyleOption& option, QPainter& painter, const Context& context);
void drawCheckBox(const QStyleOption& option, QPainter& painter, const Context& context);
void drawRadioButton(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolButton(const QStyleOption& option, QPainter& painter, const Context& context);

// fields.cpp
void drawFieldPanel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawFieldFrame(const QStyleOption& option, QPainter& painter, const Context& context);
void drawComboBox(const QStyleOption& option, QPainter& painter, const Context& context);
void drawComboBoxLabel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawSpinBox(const QStyleOption& option, QPainter& painter, const Context& context);
QRect comboBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context);
QRect spinBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context);

// ranges.cpp
void drawScrollBar(const QStyleOption& option, QPainter& painter, const Context& context);
void drawSlider(const QStyleOption& option, QPainter& painter, const Context& context);
void drawDial(const QStyleOption& option, QPainter& painter, const Context& context);
void drawProgressGroove(const QStyleOption& option, QPainter& painter, const Context& context);
void drawProgressContents(const QStyleOption& option, QPainter& painter, const Context& context);
void drawProgressLabel(const QStyleOption& option, QPainter& painter, const Context& context);
QRect sliderPart(const QStyleOption& option, QStyle::SubControl part, const Context& context);
QRect scrollBarPart(const QStyleOption& option, QStyle::SubControl part, const Context& context);

// menus.cpp
void drawMenuPanel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawMenuItem(const QStyleOption& option, QPainter& painter, const Context& context);
void drawMenuScroller(const QStyleOption& option, QPainter& painter, const Context& context);
void drawMenuBarItem(const QStyleOption& option, QPainter& painter, const Context& context);
void drawMenuBarGround(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolTipPanel(const QStyleOption& option, QPainter& painter, const Context& context);

// tabs.cpp
void drawTabShape(const QStyleOption& option, QPainter& painter, const Context& context);
void drawTabLabel(const QStyleOption& option, QPainter& painter, const Context& context);
void drawTabPane(const QStyleOption& option, QPainter& painter, const Context& context);
void drawTabBarBase(const QStyleOption& option, QPainter& painter, const Context& context);
void drawTabClose(const QStyleOption& option, QPainter& painter, const Context& context);

// views.cpp
void drawItemGround(const QStyleOption& option, QPainter& painter, const Context& context);
void drawItem(const QStyleOption& option, QPainter& painter, const Context& context);
void drawBranch(const QStyleOption& option, QPainter& painter, const Context& context);
void drawHeaderSection(const QStyleOption& option, QPainter& painter, const Context& context);
void drawHeaderEmptyArea(const QStyleOption& option, QPainter& painter, const Context& context);
void drawHeaderArrow(const QStyleOption& option, QPainter& painter, const Context& context);
void drawDropIndicator(const QStyleOption& option, QPainter& painter, const Context& context);

// frames.cpp
void drawFrame(const QStyleOption& option, QPainter& painter, const Context& context);
void drawShapedFrame(const QStyleOption& option, QPainter& painter, const Context& context);
void drawGroupFrame(const QStyleOption& option, QPainter& painter, const Context& context);
QRect groupBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context);
void drawFocusRect(const QStyleOption& option, QPainter& painter, const Context& context);
void drawSplitter(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolBar(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolBarHandle(const QStyleOption& option, QPainter& painter, const Context& context);
void drawToolBarSeparator(const QStyleOption& option, QPainter& painter, const Context& context);
void drawSizeGrip(const QStyleOption& option, QPainter& painter, const Context& context);
void drawRubberBand(const QStyleOption& option, QPainter& painter, const Context& context);
void drawNothing(const QStyleOption& option, QPainter& painter, const Context& context);
void drawArrow(const QStyleOption& option, QPainter& painter, Qt::ArrowType direction);

} // namespace ui::style
