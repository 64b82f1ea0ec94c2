// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QVBoxLayout>

namespace {

/// Whatever a host plays and keeps with.
struct Player
{
    void seek(int toFrame) { frame = toFrame; }

    int frame = 0;
    int edits = 0;
};

} // namespace

QWidget* timeRulerChapter()
{
    auto* window = new QWidget;
    auto* column = new QVBoxLayout(window);
    auto* view = new TimeEditorView;
    view->setup(new TimeEditorScene(view, QRect(0, 0, 240, 44)));
    view->setupViewAndScene(0, 240, 44);
    static Player player;
    // [timeruler]
    auto* ruler = new TimelineView; // above the editor, their left edges aligned
    ruler->setEditor(view);         // the same scroll and zoom from now on
    ruler->setFrameRange(0, 240);
    ruler->setPlaybackRange(24, 168);
    ruler->getTimelineScene()->setFramesPerSecond(24);

    // The user seeks; what the host sets is not told back.
    QObject::connect(ruler, &TimelineView::frameChanged, view, [view](int frame) {
        player.seek(frame);
        view->setCurrentFrame(frame);
    });
    // One step of a history each, with what was before and after.
    QObject::connect(ruler, &TimelineView::playbackRangeEdited, view, [] { ++player.edits; });
    QObject::connect(ruler, &TimelineView::markerEdited, view, [] { ++player.edits; });
    // [timeruler]
    column->addWidget(ruler);
    column->addWidget(view);
    return window;
}
