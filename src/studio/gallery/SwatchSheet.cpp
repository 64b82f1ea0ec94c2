// SPDX-License-Identifier: Apache-2.0
#include "gallery/SwatchSheet.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/images.h>

#include <QPainter>

#include <array>

namespace studio {

namespace {

constexpr int kColumns = 6;
constexpr QSize kSwatch(44, 28); ///< logical pixels
constexpr int kRowHeight = 40;
constexpr int kRadius = 5;

constexpr std::array kNames{
    "AppBackground",
    "WindowBase",
    "SubUIBackground",
    "TabBackground",
    "ElementHeader",
    "Window",
    "Base",
    "AlternateBase",
    "Button",
    "Mid",
    "Midlight",
    "Light",
    "Dark",
    "Shadow",
    "Text",
    "WindowText",
    "ToolTipText",
    "HelperHints",
    "Highlight",
    "RowHighlight2",
    "ViewportMask",
    "ConnectorAccent",
    "ConnectorAnchor",
    "Grey",
    "Accent1",
    "Accent2",
    "Accent3",
    "Accent4",
    "Accent5",
    "Red",
    "Yellow",
    "Green",
    "Blue",
    "Black",
};

} // namespace

SwatchSheet::SwatchSheet(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(sizeHint());
}

SwatchSheet::~SwatchSheet() = default;

QSize SwatchSheet::sizeHint() const
{
    const int rows = (static_cast<int>(kNames.size()) + kColumns - 1) / kColumns;
    return {kColumns * 170, rows * kRowHeight};
}

void SwatchSheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double ratio = devicePixelRatioF();
    const int columnWidth = width() / kColumns;
    for (int index = 0; index < static_cast<int>(kNames.size()); ++index) {
        const QString name = QLatin1String(kNames[static_cast<std::size_t>(index)]);
        const QPoint corner(index % kColumns * columnWidth, index / kColumns * kRowHeight);
        QImage image =
            ui::drawColorSquare(ui::colorQt(name), kSwatch * ratio, qRound(kRadius * ratio));
        image.setDevicePixelRatio(ratio);
        painter.drawImage(corner, image);
        painter.setPen(ui::colorQt(QStringLiteral("Midlight")));
        painter.drawRoundedRect(
            QRectF(corner, kSwatch).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
        painter.setPen(ui::colorQt(QStringLiteral("WindowText")));
        const QRect label(
            corner.x() + kSwatch.width() + 10,
            corner.y(),
            columnWidth - kSwatch.width() - 10,
            kSwatch.height());
        painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft, name);
    }
}

} // namespace studio
