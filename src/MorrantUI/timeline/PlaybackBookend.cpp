// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/PlaybackBookend.h"

#include "MorrantUI/timeline/playbackrange.h"
#include <MorrantUI/timeline/TimelineScene.h>

namespace {

constexpr int kGrabSize = 25;

}

PlaybackBookend::PlaybackBookend(TimelineScene* scene, bool isStart, bool flag)
    : m_flag(flag)
    , m_grabSize(kGrabSize)
    , m_isStart(isStart)
    , m_scene(scene)
{
    if (scene) {
        (isStart ? scene->m_start : scene->m_end) = this;
        connect(scene, &TimelineScene::playbackRangeChanged, this, &PlaybackBookend::followScene);
    }
}

PlaybackBookend::~PlaybackBookend() = default;

/// Whoever changes the range: otherwise a frame that the user wants would count as the present one.
void PlaybackBookend::followScene()
{
    m_frame = m_isStart ? m_scene->getPlaybackStartFrame() : m_scene->getPlaybackEndFrame();
}

void PlaybackBookend::setFrame(int frame)
{
    if (!m_scene) {
        return;
    }
    const int placed = ui::bookendFrame(
        m_isStart,
        frame,
        {m_scene->getStartFrame(), m_scene->getEndFrame()},
        {m_scene->getPlaybackStartFrame(), m_scene->getPlaybackEndFrame()});
    if (placed == m_frame) {
        return;
    }
    m_frame = placed;
    const QPointer<PlaybackBookend> alive(this);
    if (m_isStart) {
        m_scene->setPlaybackStartFrame(placed);
    } else {
        m_scene->setPlaybackEndFrame(placed);
    }
    if (alive) {
        Q_EMIT changedTime(placed);
    }
}

void PlaybackBookend::setHoverState(bool hovered)
{
    if (hovered == m_hovered) {
        return;
    }
    m_hovered = hovered;
    if (m_scene) {
        m_scene->update();
    }
}
