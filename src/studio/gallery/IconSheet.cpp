// SPDX-License-Identifier: Apache-2.0
#include "gallery/IconSheet.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QDir>
#include <QPainter>

#include <algorithm>

namespace studio {

namespace {

constexpr QSize kCell(96, 58);  ///< logical pixels
constexpr int kIconHeight = 34; ///< part of the cell above the name
constexpr int kWantedColumns = 11;

QStringList iconNames()
{
    QStringList names;
    for (const QString& folder : {QString(), QStringLiteral("cursors/")}) {
        const QDir dir(QStringLiteral("icons:") + folder);
        for (const QString& file :
             dir.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name)) {
            if (!file.contains(QLatin1Char('@'))) {
                names.append(folder + file.chopped(4));
            }
        }
    }
    return names;
}

int columnsIn(int width)
{
    return std::max(1, width / kCell.width());
}

} // namespace

IconSheet::IconSheet(QWidget* parent)
    : QWidget(parent)
    , m_names(iconNames())
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

IconSheet::~IconSheet() = default;

QSize IconSheet::sizeHint() const
{
    const int width = kWantedColumns * kCell.width();
    return {width, heightForWidth(width)};
}

int IconSheet::heightForWidth(int width) const
{
    const int columns = columnsIn(width);
    const int rows = (static_cast<int>(m_names.size()) + columns - 1) / columns;
    return rows * kCell.height();
}

void IconSheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(ui::colorQt(QStringLiteral("HelperHints")));
    QFont font = painter.font();
    font.setPixelSize(std::max(9, font.pixelSize() - 2));
    painter.setFont(font);
    const int columns = columnsIn(width());
    for (int index = 0; index < m_names.size(); ++index) {
        const QPoint corner(index % columns * kCell.width(), index / columns * kCell.height());
        const QRect cell(corner, kCell);
        const QPixmap icon =
            ui::getCachedPixmap(QStringLiteral("icons:%1.png").arg(m_names[index]));
        QRect place(QPoint(), (QSizeF(icon.size()) / icon.devicePixelRatio()).toSize());
        place = place.size().height() > kIconHeight
                    ? QRect(QPoint(), QSize(kIconHeight, kIconHeight))
                    : place;
        place.moveCenter(QRect(corner, QSize(kCell.width(), kIconHeight)).center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(place, icon);
        const QString name = painter.fontMetrics().elidedText(
            m_names[index].section(QLatin1Char('/'), -1), Qt::ElideRight, kCell.width() - 6);
        painter.drawText(
            cell.adjusted(0, kIconHeight, 0, 0), Qt::AlignHCenter | Qt::AlignTop, name);
    }
}

} // namespace studio
