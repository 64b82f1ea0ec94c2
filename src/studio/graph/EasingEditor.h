// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "graph/easings.h"
#include <MorrantUI/theme/Widget.h>

#include <optional>

class FixedGraphView;
class SegmentedButton;

namespace studio {

/// The easing of one segment: a row of presets above a curve from 0 to 1 whose two handles are
/// dragged. It changes no document: it tells what the user did.
class EasingEditor : public Widget
{
    Q_OBJECT

public:
    explicit EasingEditor(QWidget* parent = nullptr);
    ~EasingEditor() override;

    /// Shows an easing, or that there is none to edit. Ignored while the user edits one.
    void setEasing(const std::optional<SegmentEasing>& easing);
    /// Ends a drag, as by its release.
    void finishGesture();

    FixedGraphView& view() const;
    SegmentedButton& presets() const { return *m_presets; }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Around all changes that are one step.
    void editStarted();
    void easingEdited(const studio::SegmentEasing& easing);
    /// @param changed false where all is as before
    void editEnded(bool changed);

private:
    class View;

    void fill(const SegmentEasing& easing);
    void choose(int preset);

    GraphCurveData m_data;
    View* m_view;
    SegmentedButton* m_presets;
    SegmentEasing m_easing;
    bool m_isEditing = false;
};

} // namespace studio
