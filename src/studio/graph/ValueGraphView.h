// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GeneralGraphView.h>

#include <optional>

namespace studio {

/// Curves over frames in the values' own unit, with axes that follow the zoom and a line at the
/// current frame. Scene x is the frame, y the value, downward negative.
///
/// The wheel zooms with Control, the middle button and Space pan, F fits what is selected and A
/// everything. What is fitted stays so when the view is resized. A tap of Space is for the host.
class ValueGraphView : public GeneralGraphView
{
    Q_OBJECT

public:
    explicit ValueGraphView(QWidget* parent = nullptr);

    void setFrame(int frame);
    /// What can be scrolled to, in scene units: all of this and much around it.
    void setExtent(const QRectF& extent);
    /// Fits the selected points or, without any, all curves with what overshoots.
    void fitSelected();
    void fitAll();
    /// Ends what the mouse is doing, as by its release.
    void finishGesture() { abandonGesture(); }

Q_SIGNALS:
    void tapped();
    /// Points may have been moved by a step of a gesture.
    void stepped();
    /// After the last step. @param changed false where all is as before
    void gestureEnded(bool changed);

protected:
    QSizeF nudgeStep() const override;
    QString pointText(const GraphPointWidget& point) const override;
    void editEnded(bool changed) override;
    void abandonGesture() override;

    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    /// Distances between lines with a label, in frames and in the values' unit.
    QSizeF steps() const;
    void fit(QRectF rect);
    void paintLabels(QPainter& painter) const;

    int m_frame = 0;
    bool m_isFitted = true; ///< all of it, until the user zooms or pans
    bool m_spaceHeld = false;
    bool m_isTap = false;           ///< Space is down, and nothing else has happened
    std::optional<QPoint> m_panned; ///< where the mouse that pans was last
};

} // namespace studio
