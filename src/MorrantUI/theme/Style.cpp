#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/style/dispatch.h>
#include <MorrantUI/theme/style/metrics.h>
#include <MorrantUI/theme/style/shades.h>
#include <MorrantUI/theme/style/shapes.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSlider>
#include <QSplitterHandle>
#include <QTabBar>

#include <algorithm>

namespace {

/// Controls that look different under the pointer.
bool reactsToHover(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget)
           || qobject_cast<const QAbstractSpinBox*>(widget)
           || qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSlider*>(widget)
           || qobject_cast<const QTabBar*>(widget) || qobject_cast<const QSplitterHandle*>(widget);
}

/// Corners can only be round in a window without a ground and a frame of its own, which a window
/// that exists already cannot become.
void makeTranslucent(QWidget* panel)
{
    if (!panel->isWindow() || panel->testAttribute(Qt::WA_WState_Created)) {
        return;
    }
    panel->overrideWindowFlags(
        panel->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    panel->setAttribute(Qt::WA_TranslucentBackground);
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
        widget->setAttribute(Qt::WA_Hover);
    }
    if (qobject_cast<QMenu*>(widget) || widget->inherits("QTipLabel")) {
        makeTranslucent(widget);
    }
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
    if (enabled) {
        QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, textRole);
        return;
    }
    const ui::style::PainterState state(*painter);
    painter->setOpacity(painter->opacity() * ui::style::kDisabledOpacity);
    // As enabled text: the base style would emboss disabled text in the Light role.
    QProxyStyle::drawItemText(painter, rect, flags, palette, true, text, textRole);
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
    case SH_Slider_AbsoluteSetButtons: return Qt::LeftButton;
    case SH_ItemView_ShowDecorationSelected: return 1;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText: return 0;
    case SH_ToolTipLabel_Opacity: return 255;
    case SH_TitleBar_NoBorder: return 1;
    default: return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}
