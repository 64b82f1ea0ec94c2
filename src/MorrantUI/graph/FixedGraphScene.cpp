// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/FixedGraphScene.h"

#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

using ui::Graph::kFixedScale;

constexpr int kMainLines = 5;          ///< units from one stronger line to the next
constexpr double kFineStrength = 0.45; ///< of the lines between, opaque being 1

/// Lines across and down at every unit of which `isWanted` holds.
template <typename Wanted>
void paintLines(QPainter& painter, const QColor& color, Wanted isWanted)
{
    for (int unit = 0; unit <= kFixedScale; ++unit) {
        if (isWanted(unit)) {
            ui::fillSharp(painter, QRectF(unit, 0, 0, kFixedScale), color);
            ui::fillSharp(painter, QRectF(0, unit, kFixedScale, 0), color);
        }
    }
}

} // namespace

FixedGraphScene::FixedGraphScene(QObject* parent)
    : QGraphicsScene(parent)
{
    setItemIndexMethod(NoIndex); // whatever is dragged here changes its place all the time
}

void FixedGraphScene::drawBackground(QPainter* painter, const QRectF& exposed)
{
    const QColor main = ui::colorQt(QStringLiteral("Midlight"));
    QColor fine = main;
    fine.setAlphaF(static_cast<float>(kFineStrength));
    painter->fillRect(exposed, ui::colorQt(QStringLiteral("WindowBase")));
    painter->fillRect(QRectF(0, 0, kFixedScale, kFixedScale), ui::colorQt(QStringLiteral("Base")));
    paintLines(*painter, fine, [](int unit) { return unit % kMainLines != 0; });
    paintLines(*painter, main, [](int unit) { return unit % kMainLines == 0; });
}

void FixedGraphScene::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QGraphicsScene::mousePressEvent(event);
    } else {
        event->accept();
    }
}

void FixedGraphScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QGraphicsScene::mouseDoubleClickEvent(event);
    } else {
        event->accept();
    }
}
