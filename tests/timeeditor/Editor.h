// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

namespace ui::test {

/// Writes down what the view asks of the host.
class RecordingUtils : public TimeEditorUtils
{
public:
    using TimeEditorUtils::TimeEditorUtils;

    void onCutKeyframes() override { calls << u"cut"_qs; }
    void onCopyKeyframes() override { calls << u"copy"_qs; }
    void onPasteKeyframes() override { calls << u"paste"_qs; }
    void onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> keys) override
    {
        calls << u"delete %1"_qs.arg(keys.size());
        qDeleteAll(keys);
    }

    QStringList calls;
};

/// The areas of a clip, "10-20 30-50".
inline QString areasOf(const TimeEditorClipItem& clip)
{
    QStringList texts;
    for (const VisClip* const area : clip.getClipAreas()) {
        texts << u"%1-%2"_qs.arg(area->getStart()).arg(area->getEnd());
    }
    return texts.join(u' ');
}

/// A view of 100 frames with ten pixels a frame, and rows of keys.
class Editor
{
public:
    explicit Editor(std::initializer_list<std::vector<int>> rows = {})
        : view(new TimeEditorView)
        , scene(new TimeEditorScene(view, QRect(0, 0, 100, 44)))
        , utils(view)
        , pointer(view->viewport())
    {
        view->resize(1044, 200);
        view->setup(scene);
        view->setUtils(&utils);
        view->setFrameRange(0, 100);
        view->setPlaybackRange(10, 60);
        for (const std::vector<int>& frames : rows) {
            addRow(frames);
        }
        view->show();
        view->activateWindow();
        view->setupViewAndScene(
            0, 100, 22 * static_cast<int>(std::max<std::size_t>(2, rows.size())));
        QVERIFY(QTest::qWaitForWindowExposed(view));
        QObject::connect(view, &TimeEditorView::keysMoved, view, [this](const KeyMoves& moves) {
            told << static_cast<int>(moves.size());
        });
    }
    ~Editor() { delete view; }
    Q_DISABLE_COPY_MOVE(Editor)

    TimeEditorCurveItem* addRow(const std::vector<int>& frames)
    {
        auto* const row = new TimeEditorCurveItem(view);
        for (const int frame : frames) {
            row->addKeyframe(frame);
        }
        scene->addLayoutItem(row);
        curves.push_back(row);
        return row;
    }

    TimeEditorClipItem* addClip(std::initializer_list<std::pair<int, int>> areas)
    {
        auto* const clip = new TimeEditorClipItem(view);
        for (const auto& [start, end] : areas) {
            clip->addClipArea(start, end);
        }
        scene->addLayoutItem(clip);
        return clip;
    }

    void selectRow(std::size_t row) const
    {
        for (TimeEditorKeyframeItem* const each : curves.at(row)->keyframes()) {
            each->setSelected(true);
        }
    }

    TimeEditorKeyframeItem* key(std::size_t row, std::size_t index) const
    {
        return curves.at(row)->keyframes().at(index);
    }
    /// The frames of a row's keys, "3 10 11".
    QString frames(std::size_t row) const
    {
        QStringList texts;
        for (const TimeEditorKeyframeItem* const each : curves.at(row)->keyframes()) {
            texts << QString::number(each->x());
        }
        return texts.join(u' ');
    }
    /// The frames of all selected keys.
    QString selection() const
    {
        QStringList texts;
        for (const TimeEditorKeyframeItem* const each : view->selectedKeyframes()) {
            texts << QString::number(each->x());
        }
        texts.sort(); // all of them have two digits
        return texts.join(u' ');
    }

    QPoint at(double frame, double y) const { return view->mapFromScene(frame, y); }
    QPoint at(const TimeEditorKeyframeItem* item) const
    {
        return view->mapFromScene(item->sceneBoundingRect().center());
    }

    QColor colorAt(double frame, double y) const
    {
        return pixelAt(view->viewport()->grab().toImage(), at(frame, y));
    }

    void hold(Qt::KeyboardModifiers modifiers) { pointer.hold(modifiers); }
    void press(QPoint place) { pointer.press(place); }
    void click(QPoint place) { pointer.click(place); }
    void drag(QPoint from, QPoint to, int step = 5)
    {
        press(from);
        pointer.drop(to, step);
    }

    TimeEditorView* view;
    TimeEditorScene* scene;
    RecordingUtils utils;
    FakePointer pointer;
    std::vector<TimeEditorCurveItem*> curves;
    QList<int> told; ///< how many keys each complete edit moved
};

} // namespace ui::test
