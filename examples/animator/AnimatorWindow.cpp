// SPDX-License-Identifier: Apache-2.0
#include "AnimatorWindow.h"

#include <MorrantUI/MorrantUI.h>

#include <QAction>
#include <QUndoCommand>
#include <QVBoxLayout>

#include <algorithm>

namespace {

KeyEasing easingOf(const ValueGraphKey& key)
{
    const bool isCurved = key.interpolation == ui::Graph::Interpolation::Bezier;
    return key.hold ? KeyEasing::Hold : isCurved ? KeyEasing::Bezier : KeyEasing::Linear;
}

// [delete]
/// What the dope sheet's shortcuts ask for.
class KeyEdits : public TimeEditorUtils
{
public:
    explicit KeyEdits(AnimatorWindow& window)
        : TimeEditorUtils(&window.sheet().view())
        , m_window(window)
    {}

    void onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> items) override
    {
        Animation animation = m_window.animation();
        for (std::size_t i = 0; i < animation.properties.size(); ++i) {
            auto& keys = animation.properties[i].keys;
            std::vector<ValueGraphKey> left;
            for (std::size_t key = 0; key < keys.size(); ++key) {
                if (items.count(m_window.row(i).item(key)) == 0) {
                    left.push_back(keys[key]);
                }
            }
            keys = left;
        }
        m_window.preview(animation);
        m_window.finish(tr("Delete Keys"));
    }

private:
    AnimatorWindow& m_window;
};
// [delete]

} // namespace

// [step]
class AnimatorWindow::Step : public QUndoCommand
{
public:
    Step(AnimatorWindow& window, const QString& text)
        : QUndoCommand(text)
        , m_window(window)
        , m_from(window.m_before)
        , m_to(window.m_now)
    {}
    void redo() override { m_window.preview(m_window.m_before = m_to); }
    void undo() override { m_window.preview(m_window.m_before = m_from); }

private:
    AnimatorWindow& m_window;
    Animation m_from;
    Animation m_to;
};

void AnimatorWindow::preview(Animation animation)
{
    for (auto& [name, color, keys] : animation.properties) { // they may have passed each other
        std::stable_sort(keys.begin(), keys.end(), [](const auto& one, const auto& other) {
            return one.time < other.time;
        });
    }
    m_now = std::move(animation);
    showAnimation(); // in mid-drag, too: what is dragged goes on from what the document made of it
}

void AnimatorWindow::finish(const QString& text)
{
    if (!(m_now == m_before)) { // not where Escape has taken it back
        m_history.push(new Step(*this, text));
    }
}
// [step]

AnimatorWindow::AnimatorWindow(Animation animation)
    : m_now(std::move(animation))
    , m_before(m_now)
    , m_sheet(new DopeSheetPane)
    , m_graph(new ValueGraphView)
    , m_edits(std::make_unique<KeyEdits>(*this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_sheet);
    column->addWidget(m_graph);
    // [rows]
    for (const Property& property : m_now.properties) {
        auto* row = new DopeSheetRow(&m_sheet->view());
        row->setText(property.name); // for screen readers
        m_sheet->scene().addLayoutItem(row);
        m_sheet->header().setLabel(row, {.text = property.name});
        m_rows.push_back({row, m_graph->addCurve(property.name, property.color)});
    }
    m_clock.setTrack(0, 100, 24);
    m_sheet->setClock(&m_clock);             // Space plays
    m_sheet->view().setUtils(m_edits.get()); // your TimeEditorUtils: copy, paste, delete, menus
    // [rows]
    connectViews();
    showAnimation();

    QAction* undo = m_history.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    addAction(undo);
}

AnimatorWindow::~AnimatorWindow() = default;

void AnimatorWindow::connectViews()
{
    // [edits]
    connect(&m_sheet->view(), &TimeEditorView::keysMoving, this, &AnimatorWindow::takeKeys);
    connect(&m_sheet->view(), &TimeEditorView::keysMoved, this, [this] { // the end
        takeKeys();
        finish(tr("Move Keys"));
    });
    connect(m_graph, &ValueGraphView::keysChanging, this, &AnimatorWindow::takeCurves);
    connect(m_graph, &ValueGraphView::gestureEnded, this, [this] { finish(tr("Change Curve")); });
    TimelineView& ruler = m_sheet->ruler();
    connect(&m_clock, &PlaybackClock::frameChanged, m_graph, &ValueGraphView::setCurrentFrame);
    connect(m_graph, &ValueGraphView::spaceTapped, &m_clock, &PlaybackClock::toggle);
    connect(&ruler, &TimelineView::playbackRangeEdited, this, &AnimatorWindow::takeTime);
    connect(&ruler, &TimelineView::markerEdited, this, &AnimatorWindow::takeTime);
    // [edits]
}

// [show]
void AnimatorWindow::showAnimation()
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        std::vector<DopeSheetKey> keys;
        for (const ValueGraphKey& key : m_now.properties[i].keys) {
            keys.push_back({key.time, easingOf(key)});
        }
        m_rows[i].keys->setKeys(keys);
        m_rows[i].curve->setKeys(m_now.properties[i].keys);
    }
    m_sheet->ruler().getTimelineScene()->setMarkers(m_now.markers);
    m_sheet->setPlaybackRange(m_now.playback.first, m_now.playback.second);
}

void AnimatorWindow::takeKeys()
{
    Animation animation = m_now;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const auto shown = m_rows[i].keys->keys(); // in the order of the last setKeys()
        for (std::size_t key = 0; key < shown.size(); ++key) {
            animation.properties[i].keys[key].time = shown[key].frame;
        }
    }
    preview(animation);
}

void AnimatorWindow::takeCurves()
{
    Animation animation = m_now;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        animation.properties[i].keys = m_rows[i].curve->keys();
    }
    preview(animation);
}
// [show]

void AnimatorWindow::takeTime()
{
    const TimelineScene& scene = *m_sheet->ruler().getTimelineScene();
    Animation animation = m_now;
    animation.markers = scene.markers();
    animation.playback = {scene.getPlaybackStartFrame(), scene.getPlaybackEndFrame()};
    preview(animation);
    finish(tr("Change Time"));
}
