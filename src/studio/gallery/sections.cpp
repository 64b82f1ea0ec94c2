#include "gallery/sections.h"

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

Widget* card(const QString& colour)
{
    auto* widget = new Widget;
    widget->setFixedSize(kSampleSize);
    widget->setBackgroundColor(ui::colorQt(colour));
    return widget;
}

/// A generated image as a label, made at twice the size so that it is sharp on dense screens.
QLabel* picture(QImage image)
{
    image.setDevicePixelRatio(2.0);
    auto* label = new QLabel;
    label->setPixmap(QPixmap::fromImage(image));
    return label;
}

QWidget* bordered()
{
    Widget* widget = card(QStringLiteral("Base"));
    widget->setRadius(6);
    widget->setBorder(QPen(ui::colorQt(QStringLiteral("Accent2")), 1));
    return captioned(widget, tr("1 px border"));
}

QWidget* thickBordered()
{
    Widget* widget = card(QStringLiteral("RowHighlight2"));
    widget->setRadius(12);
    widget->setBorder(QPen(ui::colorQt(QStringLiteral("Accent1")), 2));
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
    frame->setBackgroundColor(ui::colorQt(QStringLiteral("TabBackground")));
    return captioned(frame, tr("Focus frame"));
}

QWidget* generatedImages()
{
    const QSize size(2 * kImageSide, 2 * kImageSide);
    const QColor accent = ui::colorQt(QStringLiteral("Accent3"));
    const std::vector<QColor> palette{
        ui::colorQt(QStringLiteral("Accent1")),
        ui::colorQt(QStringLiteral("Accent2")),
        QColor(accent.red(), accent.green(), accent.blue(), 130),
        ui::colorQt(QStringLiteral("Accent4")),
        ui::colorQt(QStringLiteral("Accent5"))};
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(12);
    layout->addWidget(picture(ui::drawColorSquare(accent, size, 12)));
    layout->addWidget(picture(ui::drawChequerBox(accent, size, 0)));
    layout->addWidget(picture(ui::drawRoundColor(accent, size)));
    layout->addWidget(picture(ui::drawPalettePreview(palette, 280)));
    layout->addStretch();
    return row;
}

} // namespace

QWidget* section(const QString& title, QWidget* content)
{
    auto* widget = new Widget;
    widget->setBackgroundColor(ui::colorQt(QStringLiteral("Window")));
    widget->setRadius(kCardRadius);
    widget->setBorder(QPen(ui::colorQt(QStringLiteral("Mid")), 1));
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
    ui::setWidgetForeground(label, ui::colorQt(QStringLiteral("HelperHints")));
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
