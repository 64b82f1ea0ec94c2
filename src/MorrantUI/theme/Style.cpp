// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/Style.h"

#include "MorrantUI/platform/vectorregisters.h"
#include "MorrantUI/theme/style/dispatch.h"
#include "MorrantUI/theme/style/metrics.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"
#include "MorrantUI/theme/style/standardicons.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSlider>
#include <QSplitterHandle>
#include <QStyleOption>
#include <QTabBar>

#include <algorithm>

namespace {

constexpr int kStandardPixmap = 32; ///< largest side of a standard picture, logical pixels

/// Controls that look different under the pointer.
bool reactsToHover(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget)
           || qobject_cast<const QAbstractSpinBox*>(widget)
           || qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSlider*>(widget)
           || qobject_cast<const QTabBar*>(widget) || qobject_cast<const QSplitterHandle*>(widget);
}

/// Dynamic properties of polished widgets: what polish() has added and unpolish() takes back. A
/// panel keeps its notes, empty, since its window stays one that can be translucent.
constexpr const char* kAddedHover = "_morrantAddedHover";
constexpr const char* kAddedFlags = "_morrantAddedFlags";
constexpr const char* kAddedTranslucency = "_morrantAddedTranslucency";

void addHover(QWidget* widget)
{
    if (!widget->testAttribute(Qt::WA_Hover)) {
        widget->setAttribute(Qt::WA_Hover);
        widget->setProperty(kAddedHover, true);
    }
}

void removeHover(QWidget* widget)
{
    if (widget->property(kAddedHover).toBool()) {
        widget->setAttribute(Qt::WA_Hover, false);
        widget->setProperty(kAddedHover, QVariant());
    }
}

/// Corners can only be round in a window without a ground and a frame of its own, which a window
/// that exists already cannot become unless it was one before.
void makeTranslucent(QWidget* panel)
{
    const bool exists = panel->testAttribute(Qt::WA_WState_Created);
    const bool couldBe = !exists || panel->property(kAddedFlags).isValid();
    if (!panel->isWindow() || !couldBe) {
        return;
    }
    const Qt::WindowFlags flags = panel->windowFlags();
    const Qt::WindowFlags added = (Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint) & ~flags;
    panel->setProperty(kAddedFlags, added.toInt());
    panel->setProperty(kAddedTranslucency, !panel->testAttribute(Qt::WA_TranslucentBackground));
    panel->overrideWindowFlags(flags | added);
    panel->setAttribute(Qt::WA_TranslucentBackground);
}

void makeOpaque(QWidget* panel)
{
    const QVariant added = panel->property(kAddedFlags);
    if (!added.isValid()) {
        return;
    }
    panel->overrideWindowFlags(panel->windowFlags() & ~Qt::WindowFlags::fromInt(added.toInt()));
    if (panel->property(kAddedTranslucency).toBool()) {
        panel->setAttribute(Qt::WA_TranslucentBackground, false);
        panel->setAttribute(Qt::WA_NoSystemBackground, false); // Qt turns it on with the other
    }
    panel->setProperty(kAddedFlags, 0);
    panel->setProperty(kAddedTranslucency, false);
}

} // namespace

Style::Style(const QPalette& palette, int fontSize, int largeFontSize, bool fontSizeOverridden)
    : QProxyStyle(QStringLiteral("fusion"))
    , m_palette(palette)
    , m_metrics(std::make_unique<ui::style::Metrics>(
          std::max(1, fontSizeOverridden ? largeFontSize : fontSize)))
{}

Style::~Style() = default;

QPalette Style::standardPalette() const
{
    return m_palette;
}

void Style::polish(QPalette& palette)
{
    palette = m_palette;
}

void Style::polish(QApplication* application)
{
    QProxyStyle::polish(application);
    QApplication::setPalette(m_palette);
}

void Style::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (reactsToHover(widget)) {
        addHover(widget);
    }
    if (qobject_cast<QMenu*>(widget) || widget->inherits("QTipLabel")) {
        makeTranslucent(widget);
    }
}

void Style::unpolish(QWidget* widget)
{
    removeHover(widget);
    makeOpaque(widget);
    QProxyStyle::unpolish(widget);
}

void Style::drawPrimitive(
    PrimitiveElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (const ui::style::Draw draw = ui::style::primitiveDrawing(element)) {
        draw(*option, *painter, {*proxy(), *baseStyle(), widget});
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(
    ControlElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (const ui::style::Draw draw = ui::style::controlDrawing(element)) {
        draw(*option, *painter, {*proxy(), *baseStyle(), widget});
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(
    ComplexControl control,
    const QStyleOptionComplex* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (const ui::style::Draw draw = ui::style::complexControlDrawing(control)) {
        draw(*option, *painter, {*proxy(), *baseStyle(), widget});
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void Style::drawItemText(
    QPainter* painter,
    const QRect& rect,
    int flags,
    const QPalette& palette,
    bool enabled,
    const QString& text,
    QPalette::ColorRole textRole) const
{
    morrant::native::clearVectorRegisters();
    if (enabled) {
        QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, textRole);
        return;
    }
    const ui::style::PainterState state(*painter);
    painter->setOpacity(painter->opacity() * ui::style::kDisabledOpacity);
    // As enabled text: the base style would emboss disabled text in the Light role.
    QProxyStyle::drawItemText(painter, rect, flags, palette, true, text, textRole);
}

void Style::drawItemPixmap(
    QPainter* painter, const QRect& rect, int alignment, const QPixmap& pixmap) const
{
    const QSize size = pixmap.deviceIndependentSize().toSize();
    const QRect place = alignedRect(
        QGuiApplication::layoutDirection(), Qt::Alignment::fromInt(alignment), size, rect);
    if (pixmap.isNull() || !rect.contains(place)) {
        QProxyStyle::drawItemPixmap(painter, rect, alignment, pixmap);
        return;
    }
    ui::style::drawSharp(*painter, place, pixmap);
}

QPixmap Style::generatedIconPixmap(
    QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const
{
    if (mode != QIcon::Disabled || pixmap.isNull()) {
        return mode == QIcon::Selected ? pixmap
                                       : QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    }
    QPixmap dimmed(pixmap.size());
    dimmed.setDevicePixelRatio(pixmap.devicePixelRatio());
    dimmed.fill(Qt::transparent);
    QPainter painter(&dimmed);
    painter.setOpacity(ui::style::kDisabledOpacity);
    painter.drawPixmap(0, 0, pixmap);
    return dimmed;
}

QRect Style::subControlRect(
    ComplexControl control,
    const QStyleOptionComplex* option,
    SubControl subControl,
    const QWidget* widget) const
{
    if (const ui::style::Place place = ui::style::complexControlLayout(control)) {
        return place(*option, subControl, {*proxy(), *baseStyle(), widget});
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect Style::subElementRect(
    SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    switch (element) {
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
    case SE_ProgressBarLabel: return option->rect;
    case SE_LineEditContents: return option->rect.adjusted(4, 1, -4, -1);
    default: return QProxyStyle::subElementRect(element, option, widget);
    }
}

QSize Style::sizeFromContents(
    ContentsType type,
    const QStyleOption* option,
    const QSize& contents,
    const QWidget* widget) const
{
    const QSize base = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return m_metrics->sizeAround(type, option, contents, base);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    const auto own = m_metrics->pixelMetric(metric);
    return own ? *own : QProxyStyle::pixelMetric(metric, option, widget);
}

int Style::styleHint(
    StyleHint hint,
    const QStyleOption* option,
    const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ComboBox_Popup: return 0; // a list below the field, scrolled like any other
    case SH_ComboBox_PopupFrameStyle: return QFrame::StyledPanel | QFrame::Plain;
    case SH_ScrollView_FrameOnlyAroundContents:
    case SH_ScrollBar_Transient: return 0;
    case SH_ScrollBar_MiddleClickAbsolutePosition: return 1;
    case SH_ScrollBar_LeftClickAbsolutePosition: return 0;
    case SH_Menu_Scrollable: return 1; // rather than further columns, which leave the screen too
    case SH_Slider_AbsoluteSetButtons: return Qt::LeftButton;
    case SH_ItemView_ShowDecorationSelected: return 1;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText: return 0;
    case SH_ToolTipLabel_Opacity: return 255;
    case SH_TitleBar_NoBorder: return 1;
    case SH_DialogButtonBox_ButtonsHaveIcons: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon Style::standardIcon(
    StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const
{
    const Qt::LayoutDirection direction =
        option ? option->direction : QGuiApplication::layoutDirection();
    const QIcon icon = ui::style::standardIcon(picture, direction);
    return icon.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : icon;
}

QPixmap Style::standardPixmap(
    StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const
{
    const Qt::LayoutDirection direction =
        option ? option->direction : QGuiApplication::layoutDirection();
    const QIcon icon = ui::style::standardIcon(picture, direction);
    return icon.isNull() ? QProxyStyle::standardPixmap(picture, option, widget)
                         : icon.pixmap(kStandardPixmap, kStandardPixmap);
}
