// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPalette>
#include <QProxyStyle>

#include <memory>

namespace ui::style {
class Metrics;
}

/// The application style: the flat, dark, rounded look of every standard control, drawn over Qt's
/// "fusion" style. A theme makes it (VisualDesignBase::createStyle) and the application owns it.
///
/// Colours come from the palette of the widget being drawn, so a widget that overrides its palette
/// keeps its own, and from the current theme by name where no palette role fits. Palettes of a
/// theme do not tell disabled from enabled: the style itself fades what is disabled. Row heights,
/// indicators and scroll bars follow the font size; icons keep the size that they are drawn for.
/// The keyboard focus is ringed in "Accent1", fields being edited are edged in it.
class MORRANT_UI_EXPORT Style : public QProxyStyle
{
    Q_OBJECT

public:
    /// @param palette installed in the application when the style is set there
    /// @param fontSize pixel size that the metrics follow; less than 1 counts as 1
    /// @param largeFontSize used instead of `fontSize` when `fontSizeOverridden` is set
    Style(const QPalette& palette, int fontSize, int largeFontSize, bool fontSizeOverridden);
    ~Style() override;

    QPalette standardPalette() const override;

    void polish(QPalette& palette) override;
    /// Installs the palette that the style was made from in the application.
    void polish(QApplication* application) override;
    /// Lets menus and tool tips have round corners and controls know that they are hovered.
    void polish(QWidget* widget) override;
    /// Takes back what polish() did to the widget.
    void unpolish(QWidget* widget) override;
    using QProxyStyle::unpolish;

    void drawPrimitive(
        PrimitiveElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawControl(
        ControlElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawComplexControl(
        ComplexControl control,
        const QStyleOptionComplex* option,
        QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawItemText(
        QPainter* painter,
        const QRect& rect,
        int flags,
        const QPalette& palette,
        bool enabled,
        const QString& text,
        QPalette::ColorRole textRole = QPalette::NoRole) const override;
    /// Icons keep to whole device pixels.
    void drawItemPixmap(
        QPainter* painter, const QRect& rect, int alignment, const QPixmap& pixmap) const override;
    QPixmap generatedIconPixmap(
        QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override;

    QRect subControlRect(
        ComplexControl control,
        const QStyleOptionComplex* option,
        SubControl subControl,
        const QWidget* widget = nullptr) const override;
    QRect subElementRect(
        SubElement element,
        const QStyleOption* option,
        const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(
        ContentsType type,
        const QStyleOption* option,
        const QSize& contents,
        const QWidget* widget = nullptr) const override;
    int pixelMetric(
        PixelMetric metric,
        const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr) const override;
    int styleHint(
        StyleHint hint,
        const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr,
        QStyleHintReturn* returnData = nullptr) const override;
    /// The pictures of Qt's own dialogs, from the theme's icons where it has them.
    QIcon standardIcon(
        StandardPixmap picture,
        const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr) const override;
    QPixmap standardPixmap(
        StandardPixmap picture,
        const QStyleOption* option,
        const QWidget* widget = nullptr) const override;

private:
    QPalette m_palette;
    std::unique_ptr<const ui::style::Metrics> m_metrics;
};
