// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/easings.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <optional>
#include <vector>

class FixedGraphView;
class SegmentedButton;

/// The easing of a segment: a row of presets above a curve from 0 to 1 whose two handles are
/// dragged, with room for what overshoots. Time goes from left to right in every language.
///
/// It changes no keys: it tells what the user did. A drag and a choice are one step of a history,
/// with editStarted() before and editEnded() behind all of it; Escape takes a drag back. A slot may
/// delete the editor, of which nothing is told then. The slot of a choice may take the easing away,
/// which ends that; in a drag other easings are ignored.
///
/// Tab goes to the one handle and then to the other, which the arrow keys move. Handles beyond the
/// room for what overshoots are brought into sight between drags.
class MORRANT_UI_EXPORT EasingEditor : public Widget
{
    Q_OBJECT

public:
    explicit EasingEditor(QWidget* parent = nullptr);
    ~EasingEditor() override;

    /// Shows an easing, or that there is none to edit, and tells nobody. Ignored while the user
    /// drags a handle. One with numbers that are not finite is shown as a linear one.
    void setEasing(const std::optional<SegmentEasing>& easing);
    /// The same of several that are edited together, as of a position's numbers: the first one's
    /// curve, and a preset only where it is all of theirs. What the user does then is for all. None
    /// is no easing to edit.
    void setEasings(const std::vector<SegmentEasing>& easings);
    /// What is shown; none where there is none to edit.
    std::optional<SegmentEasing> easing() const;
    /// Ends a drag, as by its release.
    void finishGesture();

    // What it is made of: the editor's, and not to be deleted.
    FixedGraphView& view() const;
    SegmentedButton& presets() const { return *m_presets; } ///< as ui::easing::kPresets

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user begins to drag, or has chosen a preset.
    void editStarted();
    /// A step: what is shown now.
    void edited(const SegmentEasing& easing);
    /// @param changed false where all is as before; of several that differed, none is
    void editEnded(bool changed);

private:
    class View;

    void fill(const SegmentEasing& easing);
    void showPreset(const std::vector<SegmentEasing>& of);
    void choose(int preset);
    void showHandles();

    GraphCurveData m_data;
    View* m_view;
    SegmentedButton* m_presets;
    SegmentEasing m_easing;
    bool m_hasEasing = false;
    bool m_isDragging = false;
    bool m_isMixed = false; ///< the easing is the first of several that differ
    SegmentEasing m_before; ///< when the drag began
};
