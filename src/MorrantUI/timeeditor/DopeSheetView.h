// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QPoint>

#include <optional>
#include <vector>

/// A time editor with what animators expect of a dope sheet beyond its keys: the wheel zooms with
/// Control, Plus and Minus about the playhead, the middle button pans, and a tap of Space, which
/// held pans, is for the host. A DopeSheetPane puts ruler and labels around it.
class MORRANT_UI_EXPORT DopeSheetView : public TimeEditorView
{
    Q_OBJECT

public:
    explicit DopeSheetView(QWidget* parent = nullptr);
    ~DopeSheetView() override;

    /// Selects keys and nothing else, of rows and on bars, as those below do; the scene's
    /// selectionChanged() tells once where that is another selection. Keys that are hidden or
    /// disabled are left out.
    void selectAllKeys();
    /// Those at the frames of the keys that are selected; without any, at the current frame.
    void selectKeyColumn();
    void selectKeysFrom(int frame); ///< and behind it
    void selectKeysUpTo(int frame); ///< with it

    /// The frames of the selected keys, upwards, each once.
    std::vector<double> selectedFrames() const;

    /// Ends what the mouse is doing, as by its release. For hosts that show something else now.
    void finishGesture() { abandonGesture(); }

Q_SIGNALS:
    /// Space was pressed and let go with nothing between: for the host to play and pause.
    void spaceTapped();
    /// The user wants to zoom about a place of the viewport, in logical pixels: connected to
    /// TimelineView::zoomAt().
    void zoomWanted(double factor, int x);
    /// The mouse is done: a click, or the end of a drag, whichever way. Once for what began with a
    /// press; where the release got lost, as soon as that shows.
    void gestureEnded();
    void released(); ///< after it, where it was a button that was let go

protected:
    void abandonGesture() override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    template <typename IsWanted>
    void selectKeysWhere(const IsWanted& isWanted);
    bool endLostGesture(const QMouseEvent& event);
    void endPress();

    bool m_isPressed = false;       ///< and gestureEnded() is still to come
    bool m_isTap = false;           ///< Space is down, and nothing else has happened
    std::optional<QPoint> m_panned; ///< where the middle button was last
};
