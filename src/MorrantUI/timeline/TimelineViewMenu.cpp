// SPDX-License-Identifier: Apache-2.0
// The ruler's context menu.

#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/rulerlayout.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>
#include <MorrantUI/timeline/PlaybackBookend.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QContextMenuEvent>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <cmath>

namespace {

constexpr int kSwatch = 12; ///< logical pixels

QIcon swatch(const QColor& color, double ratio)
{
    QPixmap picture(QSize(kSwatch, kSwatch) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    ui::fillRounded(painter, QRectF(0, 0, kSwatch, kSwatch), ui::kSmallCornerRadius, color);
    return picture;
}

} // namespace

void TimelineView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (m_gesture) {
        return;
    }
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const std::optional<TimelineMarker> selected = m_scene->marker(m_scene->selectedMarker());
    int marker = hitAt(event->pos()).marker;
    int frame = ui::nearestFrame(frameAt(event->pos().x()));
    QPoint place = event->globalPos();
    if (byKey) {
        marker = selected ? selected->id : 0;
        frame = selected ? selected->frame : currentFrame();
        const double x = std::clamp<double>(frame * pixelsPerFrame() - m_scroll, 0.0, width());
        place = viewport()->mapToGlobal(QPoint(static_cast<int>(x), viewport()->height()));
    } else if (marker != 0) {
        const QPointer<TimelineView> alive(this);
        m_scene->setSelectedMarker(marker);
        if (!alive) {
            return;
        }
    }
    auto* const menu = new ContextMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    populateMenu(menu, ui::frameWithin(frame, frames()), marker);
    if (menu->isEmpty()) {
        menu->deleteLater();
    } else {
        menu->popup(place);
    }
}

void TimelineView::populateMenu(ContextMenu* menu, int frame, int marker)
{
    if (m_scene->marker(marker)) {
        addMarkerRows(menu, marker);
        menu->addSeparator();
    }
    addRulerRows(menu, frame);
}

void TimelineView::addMarkerRows(QMenu* menu, int marker)
{
    menu->addAction(tr("Rename Marker"), this, [this, marker] { renameMarker(marker); });
    auto* const colors = new ContextMenu(menu);
    colors->setTitle(tr("Marker Colour"));
    const std::array<std::pair<QString, const char*>, 6> kChoices{
        {{tr("Default"), nullptr},
         {tr("Red"), "Red"},
         {tr("Yellow"), "Yellow"},
         {tr("Green"), "Green"},
         {tr("Blue"), "Blue"},
         {tr("Grey"), "Grey"}}};
    for (const auto& [text, name] : kChoices) {
        const QColor color = name ? ui::colorQt(QString::fromLatin1(name)) : QColor();
        const QColor shown = color.isValid() ? color : ui::colorQt(QStringLiteral("Accent3"));
        colors->addAction(swatch(shown, devicePixelRatioF()), text, this, [this, marker, color] {
            if (std::optional<TimelineMarker> changed = m_scene->marker(marker)) {
                changed->color = color;
                changeMarker(*changed);
            }
        });
    }
    menu->addMenu(colors);
    menu->addAction(tr("Move Marker to Current Frame"), this, [this, marker] {
        if (std::optional<TimelineMarker> changed = m_scene->marker(marker)) {
            changed->frame = ui::frameWithin(currentFrame(), frames());
            changeMarker(*changed);
        }
    });
    menu->addAction(tr("Remove Marker"), this, [this, marker] { removeMarker(marker); });
}

void TimelineView::addRulerRows(QMenu* menu, int frame)
{
    menu->addAction(tr("Add Marker"), this, [this, frame] { addMarker(frame); });
    menu->addSeparator();
    menu->addAction(
        tr("Start Playback Here"), this, [this, frame] { setPlaybackEnd(true, frame); });
    menu->addAction(tr("End Playback Here"), this, [this, frame] { setPlaybackEnd(false, frame); });
    menu->addAction(tr("Play All Frames"), this, [this] { playAllFrames(); });
    menu->addSeparator();
    QAction* const timeCode = menu->addAction(tr("Show Time Code"));
    timeCode->setCheckable(true);
    timeCode->setChecked(m_scene->showsTimeCode());
    connect(timeCode, &QAction::toggled, m_scene, &TimelineScene::setShowsTimeCode);
    menu->addAction(tr("Show All Frames"), this, [this] { fitFrameRange(); });
}
