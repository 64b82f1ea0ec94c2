// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QPointer>

#include <memory>
#include <optional>
#include <utility>

class DopeSheetView;
class PlaybackClock;
class QVBoxLayout;
class TimeEditorRowHeader;
class TimeEditorScene;
class TimelineView;

namespace ui {
class ClockLink;
} // namespace ui

/// A dope sheet that only wants rows: a DopeSheetView with its scene, the TimelineView above and
/// the TimeEditorRowHeader beside it, which scroll and zoom together, and a corner for buttons.
///
/// All frames stay in sight, whatever the range and the size, until the user zooms. Frames that the
/// user seeks on the ruler show in the view at once, and the playback range is its background. A
/// host gives it a PlaybackClock, or listens to the ruler for both.
class MORRANT_UI_EXPORT DopeSheetPane : public Widget
{
    Q_OBJECT

public:
    explicit DopeSheetPane(QWidget* parent = nullptr);
    ~DopeSheetPane() override;

    // What it is made of: the pane's, and not to be deleted.
    DopeSheetView& view() const { return *m_view; }
    TimeEditorScene& scene() const;
    TimelineView& ruler() const { return *m_ruler; }
    TimeEditorRowHeader& header() const { return *m_header; }

    /// A widget beside the ruler, above the labels, such as buttons: the pane owns it, keeps it as
    /// high as the ruler, and has the one before deleted later. Null leaves the corner empty.
    void setCorner(QWidget* corner);

    /// Shows and moves a clock's time, as TimelineView::setClock() has it for the ruler; a tap of
    /// Space in the view plays and pauses. The clock is not owned; null and its death leave the
    /// pane as it is.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// The frames of the document, any two of them, as for the ruler's scene. The editor's scene
    /// reaches a little beyond them, and down to the last row that there is now.
    void setFrameRange(int first, int last);
    /// To be called when rows have come or gone.
    void rowsChanged();
    void setPlaybackRange(int first, int last); ///< nothing is reported as the user's
    /// Frames a second, of time codes and beats; without either where it is not above 0 and finite.
    void setRate(double framesPerSecond);

    int currentFrame() const;
    /// The time has changed elsewhere: nothing is reported.
    void setCurrentFrame(int frame);
    /// Whether the page is turned when the playhead leaves it, unless the user drags it. On at
    /// first.
    bool followsFrame() const { return m_followsFrame; }
    void setFollowsFrame(bool follows);

    /// What the user has zoomed to, from edge to edge of the view; none while all frames are
    /// fitted. For hosts that keep it with a document.
    std::optional<std::pair<double, double>> zoomedFrames() const;
    /// Shows just these frames, to the pixel and as far as the scene reaches, and stays with the
    /// rows in sight; none fits all. A hidden pane does so in the size that it is shown with. What
    /// is not a range is ignored.
    void setZoomedFrames(const std::optional<std::pair<double, double>>& frames);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void connectViews();
    void watchSizes();
    void fitCorner();
    void setZoomed(bool zoomed);
    void showFrames(std::pair<double, double> frames);
    void showWantedFrames();

    DopeSheetView* m_view;
    TimelineView* m_ruler;
    TimeEditorRowHeader* m_header;
    QVBoxLayout* m_labels; ///< corner and header
    QPointer<QWidget> m_corner;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    bool m_isZoomed = false;
    std::optional<std::pair<double, double>> m_awaited; ///< frames to show once there is a size
    bool m_followsFrame = true;
};
