// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <optional>

namespace studio {

/// The time editor of a dope sheet, as animators expect it beyond what the library leaves to hosts:
/// the wheel zooms with Control, the middle button pans, and a tap of Space, which held pans, is
/// for the host.
class DopeSheetView : public TimeEditorView
{
    Q_OBJECT

public:
    explicit DopeSheetView(QWidget* parent = nullptr);

    /// Ends what the mouse is doing, as by its release.
    void finishGesture() { abandonGesture(); }

Q_SIGNALS:
    void tapped();
    /// The user wants to zoom about a place of the viewport.
    void zoomWanted(double factor, int x);
    /// The mouse is done: a click, or the end of a drag, whichever way.
    void gestureEnded();

protected:
    void abandonGesture() override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    bool m_isTap = false;           ///< Space is down, and nothing else has happened
    std::optional<QPoint> m_panned; ///< where the middle button was last
};

} // namespace studio
