// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QVBoxLayout>

QWidget* timeRulerChapter()
{
    auto* window = new QWidget;
    auto* column = new QVBoxLayout(window);
    auto* view = new TimeEditorView;
    view->setup(new TimeEditorScene(view, QRect(0, 0, 240, 44)));
    view->setupViewAndScene(0, 240, 44);
    static int edits = 0; // of whatever a host keeps
    // [timeruler]
    auto* clock = new PlaybackClock(window); // the current time, and what plays it
    clock->setTrack(0, 240, 24);
    clock->setPlaybackRange(24, 168);
    auto* ruler = new TimelineView; // above the editor, their left edges aligned
    ruler->setEditor(view);         // the same scroll and zoom from now on
    ruler->setClock(clock);         // and the same time
    QObject::connect(clock, &PlaybackClock::frameChanged, view, &TimeEditorView::setCurrentFrame);

    // One step of a history each, with what was before and after.
    QObject::connect(ruler, &TimelineView::playbackRangeEdited, view, [] { ++edits; });
    QObject::connect(ruler, &TimelineView::markerEdited, view, [] { ++edits; });
    // [timeruler]
    // [transport]
    auto* actions = new TransportActions(window); // Space plays, arrows step
    actions->setClock(clock);
    window->addActions(actions->actions()); // or a menu
    auto* bar = new TransportBar;
    bar->setClock(clock);
    bar->addButtons(TransportBar::End::Left, actions->actions());
    // [transport]
    column->addWidget(ruler);
    column->addWidget(view);
    column->addWidget(bar);
    return window;
}
