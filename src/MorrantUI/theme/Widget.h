// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <Core/num2.h>

#include <QPen>
#include <QPointer>
#include <QWidget>

#include <array>
#include <optional>

/// Base of most widgets: paints its own background, a rectangle in the palette's Window colour with
/// one radius or four, and an optional border, and can host one child that fills it.
///
/// It shows nothing until it is given a background colour or a border. Every setter takes effect
/// with the next paint and asks for one only while the widget is visible. Lengths are logical
/// pixels.
class MORRANT_UI_EXPORT Widget : public QWidget
{
    Q_OBJECT

public:
    /// Makes the widget's own Base and Window colours transparent, so that it does not inherit the
    /// background of a parent.
    explicit Widget(QWidget* parent = nullptr);
    ~Widget() override;

    /// Fills the background with the colour; also the Base and Button colours of the palette, which
    /// children without a palette of their own inherit.
    void setBackgroundColor(const QColor& color);

    /// Rounds all corners alike and drops radii set per corner. Zero or less gives square corners;
    /// a value that is not finite is ignored.
    void setRadius(double radius);

    /// Rounds each corner with a circle of its own; replaces a common radius.
    void setRadius(double topLeft, double topRight, double bottomRight, double bottomLeft);

    /// Rounds each corner with an ellipse of its own (x and y radius); replaces a common radius.
    /// Radii are limited to half the widget when painted; see ui::radiusClip().
    void setRadius(
        num2<double> topLeft,
        num2<double> topRight,
        num2<double> bottomRight,
        num2<double> bottomLeft);

    /// Draws a border inside the widget's rectangle. With radii per corner the corners cut into it.
    void setBorder(const QPen& pen);
    void clearBorder(); ///< the default

    /// Whether a bordered rectangle is moved onto pixel centres, which keeps thin lines sharp; on
    /// by default. Without a border it changes nothing.
    void setPixelAlignedBorder(bool aligned);

    /// Hosts a child that fills the widget, and owns it. The previous child and the layout are
    /// deleted at once, so call it later (queued) from a slot of that child; one that has moved to
    /// another parent is left alone. Null leaves the widget empty. The widget itself and its
    /// ancestors are ignored.
    void setChild(QWidget* child);

protected:
    /// Paints the background over contentsRect().
    void paintEvent(QPaintEvent* event) override;

    /// Paints background and border over `rect`. Opens its own painter, so none may be open on the
    /// widget.
    void paintBackground(const QRect& rect);

private:
    void updateIfVisible();

    double m_radius = 0.0;
    bool m_useRadius = false;
    std::optional<std::array<num2<double>, 4>> m_cornerRadii; ///< used unless m_useRadius is set
    std::optional<QPen> m_border;
    bool m_pixelAlignedBorder = true;
    QPointer<QWidget> m_child;
};
