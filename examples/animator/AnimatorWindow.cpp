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

    void onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> /*items*/) override
    {
        Animation animation = m_window.animation();
        const auto selected = m_window.outline().selectedKeys(); // in order
        for (auto place = selected.rbegin(); place != selected.rend(); ++place) {
            auto& keys = animation.properties[place->line].keys;
            keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(place->key));
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
    , m_outline(new DopeSheetOutline(m_sheet->view(), m_sheet->header(), this))
    , m_graph(new ValueGraphView)
    , m_edits(std::make_unique<KeyEdits>(*this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_sheet);
    column->addWidget(m_graph);
    // [rows]
    connect(m_outline, &DopeSheetOutline::rowsChanged, m_sheet, &DopeSheetPane::rowsChanged);
    for (const Property& property : m_now.properties) {
        m_curves.push_back(m_graph->addCurve(property.name, property.color));
    }
    m_clock.setTrack(0, 100, 24);
    m_sheet->setClock(&m_clock);             // Space plays
    m_graph->setClock(&m_clock);             // here, too
    m_sheet->view().setUtils(m_edits.get()); // your TimeEditorUtils: copy, paste, delete, menus
    // [rows]
    connectViews();
    showAnimation();

    QAction* undo = m_history.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_history.createRedoAction(this);
    redo->setShortcuts(ui::redoKeys());
    addActions({undo, redo});
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
    connect(&ruler, &TimelineView::playbackRangeEdited, this, &AnimatorWindow::takeTime);
    connect(&ruler, &TimelineView::markerEdited, this, &AnimatorWindow::takeTime);
    // [edits]
}

// [show]
void AnimatorWindow::showAnimation()
{
    std::vector<DopeSheetLine> lines;
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        const Property& property = m_now.properties[i];
        DopeSheetLine line{.id = property.name, .label = {.text = property.name}};
        for (const ValueGraphKey& key : property.keys) {
            line.keys.push_back({key.time, easingOf(key)});
        }
        lines.push_back(line);
        m_curves[i]->setKeys(property.keys);
    }
    m_outline->setLines(lines);
    m_sheet->ruler().getTimelineScene()->setMarkers(m_now.markers);
    m_clock.setPlaybackRange(m_now.playback.first, m_now.playback.second);
}

void AnimatorWindow::takeKeys()
{
    Animation animation = m_now;
    for (const auto& [place, frame, distance, selected] : m_outline->movedKeys()) {
        animation.properties[place.line].keys[place.key].time = frame;
    }
    preview(animation);
}

void AnimatorWindow::takeCurves()
{
    Animation animation = m_now;
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        animation.properties[i].keys = m_curves[i]->keys();
    }
    preview(animation);
}
// [show]

void AnimatorWindow::takeTime()
{
    Animation animation = m_now;
    animation.markers = m_sheet->ruler().getTimelineScene()->markers();
    animation.playback = m_clock.playbackRange();
    preview(animation);
    finish(tr("Change Time"));
}
