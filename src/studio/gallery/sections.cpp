// SPDX-License-Identifier: Apache-2.0
#include "gallery/sections.h"

#include "gallery/recoloring.h"
#include <MorrantUI/theme/FocusFrame.h>
#include <MorrantUI/theme/Widget.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/images.h>
#include <MorrantUI/theme/palettes.h>

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <functional>

namespace studio::gallery {

namespace {

constexpr double kCardRadius = 8.0;
constexpr QSize kSampleSize(104, 44);
constexpr int kImageSide = 32; ///< of the generated images, logical pixels

QString tr(const char* text)
{
    return QCoreApplication::translate("studio::gallery", text);
}

QWidget* captioned(QWidget* sample, const QString& text)
{
    auto* pair = new QWidget;
    auto* layout = new QVBoxLayout(pair);
    layout->setContentsMargins({});
    layout->setSpacing(4);
    layout->addWidget(sample);
    layout->addWidget(caption(text));
    return pair;
}

Widget* grounded(Widget* widget, const QString& ground)
{
    keepColored(widget, [=] { widget->setBackgroundColor(ui::colorQt(ground)); });
    return widget;
}

void addBorder(Widget* widget, const QString& color, double width)
{
    keepColored(widget, [=] { widget->setBorder(QPen(ui::colorQt(color), width)); });
}

Widget* card(const QString& ground)
{
    auto* widget = grounded(new Widget, ground);
    widget->setFixedSize(kSampleSize);
    return widget;
}

/// A generated image as a label, made at twice the size so that it is sharp on dense screens.
QLabel* picture(const std::function<QImage()>& make)
{
    auto* label = new QLabel;
    keepColored(label, [=] {
        QImage image = make();
        image.setDevicePixelRatio(2.0);
        label->setPixmap(QPixmap::fromImage(image));
    });
    return label;
}

QWidget* bordered()
{
    Widget* widget = card(QStringLiteral("Base"));
    widget->setRadius(6);
    addBorder(widget, QStringLiteral("Accent2"), 1);
    return captioned(widget, tr("1 px border"));
}

QWidget* thickBordered()
{
    Widget* widget = card(QStringLiteral("RowHighlight2"));
    widget->setRadius(12);
    addBorder(widget, QStringLiteral("Accent1"), 2);
    return captioned(widget, tr("2 px border"));
}

QWidget* corners()
{
    Widget* widget = card(QStringLiteral("Button"));
    widget->setRadius(18, 4, 18, 4);
    return captioned(widget, tr("A radius each corner"));
}

QWidget* focusLine()
{
    auto* frame = new morrant::FocusFrame(ui::colorQt(QStringLiteral("Green")));
    frame->setFixedSize(kSampleSize);
    return captioned(grounded(frame, QStringLiteral("TabBackground")), tr("Focus frame"));
}

QColor accent3()
{
    return ui::colorQt(QStringLiteral("Accent3"));
}

QImage paletteStrip()
{
    QColor translucent = accent3();
    translucent.setAlpha(130);
    return ui::drawPalettePreview(
        {ui::colorQt(QStringLiteral("Accent1")),
         ui::colorQt(QStringLiteral("Accent2")),
         translucent,
         ui::colorQt(QStringLiteral("Accent4")),
         ui::colorQt(QStringLiteral("Accent5"))},
        280);
}

QWidget* generatedImages()
{
    static constexpr QSize kSize(2 * kImageSide, 2 * kImageSide);
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(12);
    layout->addWidget(picture([] { return ui::drawColorSquare(accent3(), kSize, 12); }));
    layout->addWidget(picture([] { return ui::drawChequerBox(accent3(), kSize, 0); }));
    layout->addWidget(picture([] { return ui::drawRoundColor(accent3(), kSize); }));
    layout->addWidget(picture(paletteStrip));
    layout->addStretch();
    return row;
}

} // namespace

QWidget* section(const QString& title, QWidget* content)
{
    auto* widget = grounded(new Widget, QStringLiteral("Window"));
    widget->setRadius(kCardRadius);
    addBorder(widget, QStringLiteral("Mid"), 1);
    auto* heading = new QLabel(title);
    QFont font = heading->font();
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(16, 12, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(heading);
    layout->addWidget(content, 1);
    return widget;
}

QWidget* caption(const QString& text)
{
    auto* label = new QLabel(text);
    keepColored(
        label, [=] { ui::setWidgetForeground(label, ui::colorQt(QStringLiteral("HelperHints"))); });
    return label;
}

QWidget* foundation()
{
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins({});
    grid->setSpacing(12);
    grid->addWidget(bordered(), 0, 0);
    grid->addWidget(thickBordered(), 0, 1);
    grid->addWidget(corners(), 0, 2);
    grid->addWidget(focusLine(), 0, 3);
    grid->addWidget(generatedImages(), 1, 0, 1, 5);
    grid->setColumnStretch(4, 1);
    return page;
}

} // namespace studio::gallery
