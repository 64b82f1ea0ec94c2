// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Animation.h"
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QUndoStack>
#include <QWidget>

#include <memory>

class DopeSheetOutline;
class DopeSheetPane;
class TimeEditorUtils;
class ValueGraphCurve;
class ValueGraphView;

/// A dope sheet with its ruler and, below, the same keys as curves of values: two views of one
/// document, each of which shows at every step what is edited in the other.
class AnimatorWindow : public QWidget
{
    Q_OBJECT

public:
    explicit AnimatorWindow(Animation animation);
    ~AnimatorWindow() override;

    const Animation& animation() const { return m_now; }
    QUndoStack& history() { return m_history; }
    DopeSheetPane& sheet() { return *m_sheet; }
    ValueGraphView& graph() { return *m_graph; }
    DopeSheetOutline& outline() { return *m_outline; }

    /// Shows a change that is under way.
    void preview(Animation animation);
    /// Makes a step of all that was previewed. None where nothing is different.
    void finish(const QString& text);

private:
    class Step;

    void connectViews();
    void showAnimation();
    void takeKeys();
    void takeCurves();
    void takeTime();

    Animation m_now;
    Animation m_before; ///< as the history has it
    QUndoStack m_history;
    PlaybackClock m_clock;
    DopeSheetPane* m_sheet;
    DopeSheetOutline* m_outline; ///< the sheet's rows
    ValueGraphView* m_graph;
    std::unique_ptr<TimeEditorUtils> m_edits; ///< stays the host's
    std::vector<ValueGraphCurve*> m_curves;   ///< as the document has its properties
};
